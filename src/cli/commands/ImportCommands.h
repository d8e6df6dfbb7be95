#pragma once

#include "cli/commands/CommandRow.h"

// The group "import".

[[nodiscard]] ExitCode ImportRecords(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode ImportItems(const CArguments& arguments, Console& console, RecordContext& context);

[[nodiscard]] std::span<const OptionRow> ImportRecordOptions();
[[nodiscard]] std::span<const OptionRow> ImportItemOptions();
