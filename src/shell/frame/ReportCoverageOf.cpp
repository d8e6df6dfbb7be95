#include "shell/frame/ReportCoverageOf.h"

#include "app/CVelmarchDoc.h"
#include "app/RecordMode.h"
#include "reports/aggregate/CSortKeys.h"
#include "reports/query/CQueryStore.h"
#include "reports/run/CReportRun.h"
#include "reports/run/CReportSource.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "viewmodel/list/CRecordListModel.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostRecords = 10000;

using Records = std::vector<const CVORec*>;

/// Nothing where the query is asked for only when the report is run, or can't be read.
std::optional<Records> RecordsOfQuery(const FrameContext& context, const CReportDef& report) {
    if (!report.useStoredQuery || report.queryName.isEmpty()) return std::nullopt;
    const auto query = CQueryStore(context.settings, theRecordMode).Load(report.queryName);
    if (!query) return std::nullopt;
    const PeriodContext period = context.document.GetPeriodContext();
    if (const auto* time = std::get_if<TimeQuery>(&*query)) {
        TimeFilter filter;
        ApplyQuery(*time, period, filter);
        return context.document.CollectPassing(filter);
    }
    ExpenseFilter filter;
    ApplyQuery(std::get<ExpenseQuery>(*query), period, filter);
    return context.document.CollectPassing(filter);
}

std::optional<QStringList> IdsOf(const CReportSource& source, const CReportDef& report) {
    return report.selection == ReportSelection::Selected ? source.SelectedIds() : source.ListedIds();
}

std::optional<Records> RecordsOf(const FrameContext& context, const CReportSource& source,
                                 const CReportDef& report) {
    if (report.selection == ReportSelection::Query) return RecordsOfQuery(context, report);
    const std::optional<QStringList> ids = IdsOf(source, report);
    if (!ids) return std::nullopt;
    Records records;
    for (const QString& id : *ids)
        if (const CVORec* record = context.document.FindLoaded(id)) records.push_back(record);
    return records;
}

std::optional<std::size_t> CountOf(const FrameContext& context, const CReportSource& source,
                                   const CReportDef& report) {
    if (report.selection == ReportSelection::Query) {
        const std::optional<Records> records = RecordsOfQuery(context, report);
        return records ? std::optional(records->size()) : std::nullopt;
    }
    const std::optional<QStringList> ids = IdsOf(source, report);
    return ids ? std::optional(static_cast<std::size_t>(ids->size())) : std::nullopt;
}

/// Groups stand in the order in which they first appear.
Records Sorted(const Records& records, const QList<SortKey>& sortKeys) {
    CSortKeys keys(KindOf(theRecordMode), sortKeys);
    keys.Reserve(records.size());
    for (const CVORec* record : records) keys.Add(*record);
    Records sorted;
    for (const std::uint32_t place : keys.Order()) sorted.push_back(records[place]);
    return sorted;
}

std::optional<GroupPreview> GroupsOf(const FrameContext& context, const CFieldCatalogue& catalogue,
                                     const CReportSource& source, const CReportDef& report) {
    std::optional<Records> records = RecordsOf(context, source, report);
    if (!records) return std::nullopt;
    const bool isWhole = records->size() <= kMostRecords;
    records->resize(std::min(records->size(), kMostRecords));
    *records = Sorted(*records, report.sortKeys);
    return GroupPreview{.table = PreviewGroups(report, *records, catalogue), .isWhole = isWhole};
}

}  // namespace

ReportCoverage ReportCoverageOf(const FrameContext& context, const CFieldCatalogue& catalogue,
                                const CReportSource& source) {
    return {.count = [&](const CReportDef& report) { return CountOf(context, source, report); },
            .groups = [&](const CReportDef& report) { return GroupsOf(context, catalogue, source, report); }};
}
