#pragma once

#include "cli/commands/CommandRow.h"

// What was changed, and taking it back.

[[nodiscard]] ExitCode ListHistory(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode UndoChange(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RedoChange(const CArguments& arguments, Console& console, RecordContext& context);

[[nodiscard]] std::span<const OptionRow> HistoryOptions();
/// Of undo and redo.
[[nodiscard]] std::span<const OptionRow> WayOptions();
