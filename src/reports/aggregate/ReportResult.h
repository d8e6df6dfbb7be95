#pragma once

#include "records/CutDistances.h"
#include "reports/aggregate/CListing.h"
#include "reports/aggregate/GroupedTable.h"
#include "reports/aggregate/ReportSection.h"
#include "reports/definition/CReportDef.h"

#include <memory>
#include <optional>

/// What a run came to: the numbers and texts of page, table and chart, apart from the rows of a listing,
/// which are asked for record by record. Each part is there when the kind of report has it and something was
/// counted.
struct ReportResult {
    CReportDef definition{};
    QString date{};  ///< of the run, as a record's date reads
    std::optional<CListing> listing{};
    /// Without fields to group by or to add up there is none; with them it may have no rows.
    std::optional<GroupedTable> grouped{};
    std::shared_ptr<const ReportSectionList> summary{};
    CutDistances cutDistances{};  ///< among what was shown, added up or sorted by
};
