#pragma once

#include "records/CutDistances.h"
#include "records/RecordColumns.h"
#include "reports/aggregate/CGrouping.h"
#include "reports/aggregate/CSortKeys.h"
#include "reports/aggregate/ReportResult.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class CFieldCatalogue;
class CVORec;
struct Settings;
enum class RecordKind : int;

/// Counts, adds up and sorts the records of a run as they come by, each once. None of them is needed
/// afterwards, except to show the rows of a listing.
class CAggregation {
 public:
    CAggregation(RecordKind kind, const CReportDef& report, const CFieldCatalogue& catalogue,
                 const Settings& settings);

    void Reserve(std::size_t records) { m_keys.Reserve(records); }
    /// The place of the record's group among those so far; nothing where it is in none.
    std::optional<std::size_t> Add(const CVORec& record);
    [[nodiscard]] std::size_t Count() const { return m_count; }
    /// The places of the records, counted from 0 as they were added, in the order of the report's sort keys.
    /// before: the order in which they stand before the keys act; none: as they were added. Once.
    [[nodiscard]] std::vector<std::uint32_t> Order(std::span<const std::uint32_t> before = {});
    /// order: what Order gave, or of each group the first record alone; the groups stand as they first appear
    /// in it. date: of the run.
    [[nodiscard]] ReportResult Result(std::span<const std::uint32_t> order, const QString& date) const;

 private:
    [[nodiscard]] GroupedTable GroupsIn(std::span<const std::uint32_t> order) const;

    CReportDef m_report;
    std::size_t m_count = 0;
    CSortKeys m_keys;
    bool m_showsDistances;  ///< or adds them up, or sorts by them
    CutDistances m_cutDistances;
    std::optional<CListing> m_listing;
    std::optional<CGrouping> m_grouping;
    std::vector<std::uint32_t> m_rowOf;  ///< the group of each record; kNoRow for one that was left out
    std::shared_ptr<ReportSectionList> m_summary;
};

/// The columns of the store that a report without a listing needs of each record.
[[nodiscard]] ColumnSet NeededColumns(RecordKind kind, const CReportDef& report);
