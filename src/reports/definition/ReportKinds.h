#pragma once

#include "reports/definition/CReportDef.h"

// What goes with the kinds of reports.

/// Whether there is such a kind: a damaged definition may name another.
[[nodiscard]] bool IsReportKind(ReportKind kind);
[[nodiscard]] bool HasListing(ReportKind kind);
[[nodiscard]] bool HasGroups(ReportKind kind);
/// The heading of a report that is made without a stored definition.
[[nodiscard]] QString QuickTitle(ReportKind kind);

/// What a definition lacks to be grouped; what is looked for first.
enum class GroupLack { None, GroupFields, SumFields };
[[nodiscard]] GroupLack LackOf(const CReportDef& report);
