#pragma once

#include "app/RecordMode.h"
#include "reports/aggregate/GroupedTable.h"
#include "reports/definition/CReportDef.h"

#include <functional>
#include <optional>

class CCfgStore;
class CFieldCatalogue;
class CPrompt;

/// The first groups that a report would have, made of its first records.
struct GroupPreview {
    GroupedTable table{};
    bool isWhole = true;  ///< these are all records of the report
};

/// What the sheet says about the records before the report is run.
struct ReportCoverage {
    /// How many records a choice covers now; nothing where that is known only when the report is run, or the
    /// stored query can't be read.
    std::function<std::optional<std::size_t>(const CReportDef& report)> count;
    /// Nothing for the same reasons.
    std::function<std::optional<GroupPreview>(const CReportDef& report)> groups;
};

/// What the sheet needs from outside. All must outlive it.
struct ReportSheetContext {
    RecordMode mode;
    CCfgStore& settings;
    const CFieldCatalogue& catalogue;
    CPrompt& prompt;
    ReportCoverage coverage;
};
