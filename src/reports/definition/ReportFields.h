#pragma once

#include "fields/FieldRow.h"

#include <vector>

/// The fields that can be used in a report for a kind of records, time or expense, in the order in which
/// they are offered. What groups or is added up can also be sorted by, and what can be sorted by can be a
/// column: ReportUse::Sort gives the group fields, the sums, then those for sorting alone, and
/// ReportUse::List all of them with what can only be listed at the end.
[[nodiscard]] const std::vector<const FieldRow*>& ReportFields(RecordKind kind, ReportUse use);
[[nodiscard]] bool CanUse(RecordKind kind, FieldId field, ReportUse use);
/// Whether reports know the field at all, be it of the other kind of records. Others are left out of a
/// definition when it is loaded.
[[nodiscard]] bool IsReportField(FieldId field);
