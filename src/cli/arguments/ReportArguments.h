#pragma once

#include "cli/arguments/FilterArguments.h"
#include "reports/definition/CReportDef.h"

class CQueryStore;

/// --kind of a stored definition.
[[nodiscard]] std::span<const OptionRow> KindOption();
/// The options that describe a report: its fields, their order, its texts, the records by --query or
/// --select.
[[nodiscard]] std::span<const OptionRow> DefinitionOptions();

/// Changes the definition as the options say; its kind says which of them it has a place for. kind: of the
/// records, queries: of their mode. A stored query is tied in under the name that it has.
[[nodiscard]] FilterProblem ReadDefinition(const CArguments& arguments, RecordKind kind,
                                           const CQueryStore& queries, CReportDef& report);
