#pragma once

#include "cli/commands/CommandRow.h"

// "lists" and the group "items": the pick lists and what they hold.

[[nodiscard]] ExitCode ShowLists(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode ListItems(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode AddItem(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RenameItem(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode MergeItems(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode DeleteItem(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode ClearItems(const CArguments& arguments, Console& console, RecordContext& context);

[[nodiscard]] std::span<const OptionRow> RenameItemOptions();
