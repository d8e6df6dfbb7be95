#pragma once

#include "cli/commands/CommandRow.h"

// The group "export".

[[nodiscard]] ExitCode ExportRecords(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode ExportItems(const CArguments& arguments, Console& console, RecordContext& context);

/// Of records: the mode, what becomes of them, and those that narrow and sort a list.
[[nodiscard]] std::span<const OptionRow> ExportOptions();
