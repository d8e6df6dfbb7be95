#include "OursReports.h"

#include "ProcessorTime.h"
#include "app/CFieldCatalogue.h"
#include "app/CVelmarchApp.h"
#include "app/FieldLabels.h"
#include "config/CCfgStore.h"
#include "fields/FieldId.h"
#include "records/CTRecord.h"
#include "reports/aggregate/CAggregation.h"
#include "reports/write/CHTMLWriter.h"
#include "reports/write/ReportPage.h"

#include <QHash>
#include <algorithm>
#include <cstdio>
#include <tuple>
#include <vector>

namespace {

using Records = std::vector<const CTRecord*>;

/// Keeps the compiler from dropping a result.
volatile double theResult;

constexpr std::size_t kPageRows = 100000;

void Say(const char* name, double value) {
    std::printf("%s %.3f\n", name, value);
}

Records LoadedRecords(CVelmarchDoc& document) {
    Records records;
    document.ForEachVisible(
        [&records](const CVORec& record) { records.push_back(&static_cast<const CTRecord&>(record)); });
    return records;
}

/// The floor has its keys ready: folded texts and numbers of days.
void MeasureSort(const Records& records) {
    Say("report_sort_us", Took([&records] {
            CSortKeys keys(RecordKind::Time, {{FieldId::TimeItem1, 1}, {FieldId::Date, 1}});
            keys.Reserve(records.size());
            for (const CTRecord* record : records) keys.Add(*record);
            theResult = keys.Order().front();
        }));
    using Key = std::tuple<QString, int, const CTRecord*>;
    std::vector<Key> keys;
    for (const CTRecord* record : records) {
        const RecordDate& date = record->date;
        keys.emplace_back(record->item1.toCaseFolded(), (date.year * 16 + date.month) * 32 + date.day,
                          record);
    }
    Say("report_sort_floor_us", Took([&keys] { std::ranges::sort(keys); }));
    theResult = std::get<1>(keys.front());
}

void MeasureGroups(const Records& records, const CFieldCatalogue& catalogue, const Settings& settings) {
    const CReportDef report{.kind = ReportKind::Grouped,
                            .groupFields = {FieldId::TimeItem1, FieldId::TimeItem2},
                            .sumFields = {FieldId::Effective}};
    Say("report_groups_us", Took([&] {
            CAggregation aggregation(RecordKind::Time, report, catalogue, settings);
            for (const CTRecord* record : records) aggregation.Add(*record);
            theResult = static_cast<double>(aggregation.Result(aggregation.Order(), {}).grouped->rows.size());
        }));
    Say("report_groups_floor_us", Took([&records] {
            QHash<std::pair<QString, QString>, double> sums;
            for (const CTRecord* record : records)
                sums[{record->item1, record->item2}] += double{record->spans.effective.decimal.value};
            theResult = static_cast<double>(sums.size());
        }));
}

class CRows final : public CListingRows {
 public:
    CRows(const Records& records, const CListing& listing) : m_records(records), m_listing(listing) {}
    [[nodiscard]] bool ForEachRow(const Visit& visit) override {
        QStringList cells;
        for (std::size_t row = 0; row < std::min(kPageRows, m_records.size()); ++row) {
            m_listing.ReadCells(*m_records[row], cells);
            if (!visit(cells)) return false;
        }
        return true;
    }

 private:
    const Records& m_records;
    const CListing& m_listing;
};

/// The floor appends the same bytes cell by cell.
void MeasurePage(const Records& records, const CFieldCatalogue& catalogue) {
    ReportResult result{.definition = {.kind = ReportKind::Listing}};
    for (const FieldId field : {FieldId::Date, FieldId::TimeItem1, FieldId::TimeItem2, FieldId::TimeItem3,
                                FieldId::Start, FieldId::End, FieldId::Effective, FieldId::TimeAmount})
        result.definition.listFields.append({field, 0});
    result.listing.emplace(RecordKind::Time, result.definition.listFields, catalogue);
    CRows rows(records, *result.listing);
    CHTMLWriter writer;
    Say("report_page_us", Took([&] { theResult = WriteReportPage(writer, result, rows) ? 1 : 0; }));
    const QString page = writer.GetHtml();
    const QStringList cells = page.split(QStringLiteral("</td>"));
    Say("report_page_floor_us", Took([&cells] {
            QString copy;
            for (const QString& cell : cells) copy.append(cell).append(QStringLiteral("</td>"));
            theResult = static_cast<double>(copy.size());
        }));
}

}  // namespace

void MeasureReports(CVelmarchApp& app) {
    const FieldLabels labels;
    const CFieldCatalogue catalogue(labels, app.Settings());
    const Records records = LoadedRecords(app.Document());
    MeasureSort(records);
    MeasureGroups(records, catalogue, app.Settings());
    MeasurePage(records, catalogue);
}
