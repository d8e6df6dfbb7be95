#pragma once

#include "cli/commands/CommandRow.h"

// The group "timer".

[[nodiscard]] ExitCode StartTimer(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode PauseTimer(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode StopTimer(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode StopAllTimers(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode PauseAllTimers(const CArguments& arguments, Console& console, RecordContext& context);
/// Takes a timer away without writing anything into its record, which may be gone.
[[nodiscard]] ExitCode DropTimer(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] std::span<const OptionRow> StopTimerOptions();
[[nodiscard]] ExitCode ShowTimers(const CArguments& arguments, Console& console, RecordContext& context);
