#pragma once

#include "cli/commands/CommandRow.h"

/// What belongs to a run beside its definition.
[[nodiscard]] std::span<const OptionRow> RunOptions();
/// "report run": the page of a report, its table, or its numbers.
[[nodiscard]] ExitCode RunReport(const CArguments& arguments, Console& console, RecordContext& context);
