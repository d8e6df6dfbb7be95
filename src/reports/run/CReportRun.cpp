#include "reports/run/CReportRun.h"

#include "app/CFieldCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "changes/CProgress.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CPrompt.h"
#include "records/FieldTexts.h"
#include "reports/aggregate/CAggregation.h"
#include "reports/definition/ReportKinds.h"
#include "reports/query/CQueryStore.h"
#include "reports/write/CTextSink.h"
#include "reports/write/CsvTable.h"
#include "reports/write/PageBytes.h"
#include "reports/write/ReportPage.h"

namespace {

/// Of a walk over all records of a run; ended at the end of its scope.
class CProgressScope {
 public:
    CProgressScope(CProgress& progress, std::size_t steps) : m_progress(progress) {
        m_progress.Begin(LoadText(Text::ReportMaking), static_cast<int>(steps));
    }
    ~CProgressScope() { m_progress.End(); }
    CProgressScope(const CProgressScope&) = delete;
    CProgressScope& operator=(const CProgressScope&) = delete;

 private:
    CProgress& m_progress;
};

class CBytes final : public CTextSink {
 public:
    [[nodiscard]] bool Take(const QString& piece) override {
        bytes += piece.toUtf8();
        return true;
    }
    QByteArray bytes;
};

QString Today(const CClock& clock) {
    const SYSTEMTIME now = clock.GetLocalTime();
    return TextsOfDay(now.wMonth, now.wDay, now.wYear).longText;
}

template <class Filter>
struct QueryOf;
template <>
struct QueryOf<TimeFilter> {
    using Query = TimeQuery;
};
template <>
struct QueryOf<ExpenseFilter> {
    using Query = ExpenseQuery;
};

}  // namespace

/// The rows of the last run.
class CReportRun::CShownRows final : public CListingRows {
 public:
    explicit CShownRows(const std::vector<QStringList>& rows) : m_rows(rows) {}
    [[nodiscard]] bool ForEachRow(const Visit& visit) override {
        for (const QStringList& cells : m_rows)
            if (!visit(cells)) return false;
        return true;
    }

 private:
    const std::vector<QStringList>& m_rows;
};

void CReportRun::Tell(int textId, const QString& words) const {
    m_context.prompt.Tell({.textId = textId,
                           .title = LoadText(Text::ReportMessageTitle),
                           .text = words,
                           .icon = BoxIcon::Warning,
                           .buttons = Buttons::Ok,
                           .defaultAnswer = Answer::Ok,
                           .actionLabel = {}});
}

RunOutcome CReportRun::TakeIds(CReportDef& report, const std::optional<QStringList>& ids,
                               int noneText) const {
    if (!ids) return {RunEnd::NotInFront};
    if (ids->isEmpty()) {
        Tell(noneText, LoadText(Text{noneText}));
        return {RunEnd::Told};
    }
    report.recordIds = *ids;
    return {};
}

/// The filter of the stored query, or the one that the user describes.
template <class Filter>
RunOutcome CReportRun::FilterFor(const CReportDef& report, Filter& filter) {
    if (!report.useStoredQuery || report.queryName.isEmpty())
        return {m_context.source.AskFilter(filter) ? RunEnd::Done : RunEnd::Cancelled};
    const auto stored = CQueryStore(m_context.settings, theRecordMode).Load(report.queryName);
    using Query = typename QueryOf<Filter>::Query;
    const Query* query = stored ? std::get_if<Query>(&*stored) : nullptr;
    if (!query) return {RunEnd::QueryGone};
    const PeriodContext context = m_context.document.GetPeriodContext();
    for (const QString& date : UnreadDates(*query, context))
        Tell(static_cast<int>(Text::QueryDateUnread),
             FormatText<Text::QueryDateUnread>(report.queryName, date));
    if (const QString note = NoteOnDates(*query, context); !note.isEmpty())
        Tell(static_cast<int>(Text::PeriodEndsSwapped), note);
    ApplyQuery(*query, context, filter);
    return {};
}

/// All loaded records are looked at, whatever the list's own filter hides.
template <class Filter>
RunOutcome CReportRun::ResolveQuery(CReportDef& report) {
    Filter filter;
    if (const RunOutcome outcome = FilterFor(report, filter); !outcome) return outcome;
    QStringList ids;
    for (const CVORec* record : m_context.document.CollectPassing(filter)) ids += record->GetId();
    return TakeIds(report, ids, static_cast<int>(Text::ReportNothingFound));
}

RunOutcome CReportRun::ResolveRecords(CReportDef& report) {
    switch (report.selection) {
        case ReportSelection::Selected:
            return TakeIds(report, m_context.source.SelectedIds(),
                           static_cast<int>(Text::ReportNothingSelected));
        case ReportSelection::Listed:
            return TakeIds(report, m_context.source.ListedIds(), static_cast<int>(Text::ReportNothingListed));
        case ReportSelection::Query:
            break;
    }
    return theRecordMode == RecordMode::Time ? ResolveQuery<TimeFilter>(report)
                                             : ResolveQuery<ExpenseFilter>(report);
}

bool CReportRun::FindRecords(const QStringList& ids, std::vector<const CVORec*>& records) const {
    for (const QString& id : ids) {
        const CVORec* record = m_context.document.FindRecord(id);
        if (!record || record->Kind() != KindOf(theRecordMode)) return false;
        records.push_back(record);
    }
    return true;
}

void CReportRun::TellWhatLacks(const CReportDef& report) const {
    const GroupLack lack = LackOf(report);
    if (lack == GroupLack::GroupFields)
        Tell(static_cast<int>(Text::ReportLacksGroup), LoadText(Text::ReportLacksGroup));
    if (lack == GroupLack::SumFields)
        Tell(static_cast<int>(Text::ReportLacksSum), LoadText(Text::ReportLacksSum));
}

void CReportRun::TellOfCutDistances(const ReportResult& result) const {
    if (result.cutDistances.Count() > 0)
        Tell(static_cast<int>(Text::DistancesCut), result.cutDistances.Words());
}

/// Nothing of the run before is touched until the page is about to be made.
RunOutcome CReportRun::RunReport(const CReportDef& report) {
    if (!IsReportKind(report.kind)) return {RunEnd::NoSuchKind};
    // What another program changes meanwhile is taken over afterwards: the records stay where they are.
    const CVelmarchDoc::ChangeScope scope(m_context.document);
    std::vector<const CVORec*> records;
    if (!FindRecords(report.recordIds, records)) return {RunEnd::RecordGone};
    CAggregation aggregation(KindOf(theRecordMode), report, m_context.catalogue, m_context.settings);
    aggregation.Reserve(records.size());
    const CProgressScope progress(m_context.progress, 2 * records.size());
    for (const CVORec* record : records) {
        if (!m_context.progress.Advance()) return {RunEnd::Cancelled};
        aggregation.Add(*record);
    }
    const std::vector<std::uint32_t> order = aggregation.Order();
    ReportResult result = aggregation.Result(order, Today(m_context.clock));
    std::vector<QStringList> rows;
    for (const std::uint32_t place : order) {
        if (!m_context.progress.Advance()) return {RunEnd::Cancelled};
        if (result.listing) result.listing->ReadCells(*records[place], rows.emplace_back());
    }
    TellWhatLacks(report);
    TellOfCutDistances(result);
    m_result = std::move(result);
    m_rows = std::move(rows);
    m_writer.Clear();
    CShownRows shown(m_rows);
    return {WriteReportPage(m_writer, m_result, shown) ? RunEnd::Done : RunEnd::NoSuchKind};
}

QByteArray CReportRun::Csv() {
    CBytes sink;
    CShownRows rows(m_rows);
    (void)WriteCsv(sink, m_result, rows);  // neither the rows nor the sink can fail
    return sink.bytes;
}

qint64 CReportRun::CountLostCharacters() const {
    return ::CountLostCharacters(m_writer.GetHtml());
}

GroupedTable PreviewGroups(const CReportDef& report, const std::vector<const CVORec*>& records,
                           const CFieldCatalogue& catalogue) {
    CGrouping grouping(KindOf(theRecordMode), report.groupFields, report.sumFields, catalogue);
    for (const CVORec* record : records) (void)grouping.Add(*record);
    return grouping.Table();
}
