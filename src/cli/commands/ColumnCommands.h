#pragma once

#include "cli/commands/CommandRow.h"

// The group "columns": what the record list shows of a kind of records, and the levels of the data tree.

[[nodiscard]] ExitCode ListColumns(const CArguments& arguments, Console& console, const CCfgStore& settings);
[[nodiscard]] ExitCode SetColumns(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode ResetColumns(const CArguments& arguments, Console& console, CSettingsOwner& owner);

[[nodiscard]] std::span<const OptionRow> ColumnSetOption();
[[nodiscard]] std::span<const OptionRow> ColumnOptions();
