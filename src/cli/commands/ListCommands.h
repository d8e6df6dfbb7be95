#pragma once

#include "cli/commands/CommandTable.h"

// "lists" and the group "items": the pick lists and what they hold.

[[nodiscard]] ExitCode ShowLists(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode ListItems(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode AddItem(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode RenameItem(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode DeleteItem(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode ClearItems(const CArguments& arguments, Console& console, RecordDesk& desk);

[[nodiscard]] std::span<const OptionRow> RenameItemOptions();
