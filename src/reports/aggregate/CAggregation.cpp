#include "reports/aggregate/CAggregation.h"

#include "app/ShownFields.h"
#include "fields/FieldTable.h"
#include "reports/definition/ReportKinds.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::uint32_t kNoRow = std::numeric_limits<std::uint32_t>::max();

/// A report that needs no distance isn't changed by one that can't be read whole.
bool ShowsDistances(const CReportDef& report) {
    const auto isDistance = [](const SortKey& key) { return key.fieldId == FieldId::Distance; };
    return (HasGroups(report.kind) && report.sumFields.contains(FieldId::Distance)) ||
           (HasListing(report.kind) && std::ranges::any_of(report.listFields, isDistance)) ||
           std::ranges::any_of(report.sortKeys, isDistance);
}

}  // namespace

CAggregation::CAggregation(RecordKind kind, const CReportDef& report, const CFieldCatalogue& catalogue,
                           const Settings& settings)
    : m_report(report), m_keys(kind, report.sortKeys), m_showsDistances(ShowsDistances(report)) {
    if (HasListing(report.kind)) m_listing.emplace(kind, report.listFields, catalogue);
    if (HasGroups(report.kind) && LackOf(report) == GroupLack::None)
        m_grouping.emplace(kind, report.groupFields, report.sumFields, catalogue);
    if (report.kind == ReportKind::Summary)
        m_summary = std::make_shared<ReportSectionList>(kind, catalogue, settings);
}

std::optional<std::size_t> CAggregation::Add(const CVORec& record) {
    ++m_count;
    m_keys.Add(record);
    if (m_showsDistances) m_cutDistances.Add(record);
    if (m_summary) m_summary->Add(record);
    if (!m_grouping) return std::nullopt;
    const std::optional<std::size_t> row = m_grouping->Add(record);
    m_rowOf.push_back(row ? static_cast<std::uint32_t>(*row) : kNoRow);
    return row;
}

std::vector<std::uint32_t> CAggregation::Order(std::span<const std::uint32_t> before) {
    return m_keys.Order(before);
}

GroupedTable CAggregation::GroupsIn(std::span<const std::uint32_t> order) const {
    std::vector<std::size_t> rows;
    std::vector<bool> isSeen(m_grouping->RowCount());
    for (const std::uint32_t place : order) {
        const std::uint32_t row = m_rowOf[place];
        if (row == kNoRow || isSeen[row]) continue;
        isSeen[row] = true;
        rows.push_back(row);
    }
    return m_grouping->InOrder(rows);
}

ReportResult CAggregation::Result(std::span<const std::uint32_t> order, const QString& date) const {
    ReportResult result{.definition = m_report,
                        .date = date,
                        .listing = m_listing,
                        .summary = m_summary,
                        .cutDistances = m_cutDistances};
    if (m_grouping) result.grouped = GroupsIn(order);
    return result;
}

ColumnSet NeededColumns(RecordKind kind, const CReportDef& report) {
    QList<FieldId> fields;
    if (report.kind == ReportKind::Summary)
        fields = kind == RecordKind::Time
                     ? QList{FieldId::Effective, FieldId::TimeAmount, FieldId::Billable}
                     : QList{FieldId::Distance, FieldId::ExpenseAmount, FieldId::Flag1, FieldId::Flag3};
    else
        fields = report.groupFields + report.sumFields;
    for (const SortKey& key : report.sortKeys) fields += key.fieldId;
    ColumnSet columns = 0;
    for (const FieldId field : fields)
        if (const FieldRow* row = FindField(kind, NumberOf(field))) columns |= ShownColumns(*row);
    return columns;
}
