#pragma once

#include "cli/commands/CommandTable.h"

// The group "timer".

[[nodiscard]] ExitCode StartTimer(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode PauseTimer(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode StopTimer(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode StopAllTimers(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode PauseAllTimers(const CArguments& arguments, Console& console, RecordDesk& desk);
/// Takes a timer away without writing anything into its record, which may be gone.
[[nodiscard]] ExitCode DropTimer(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode ShowTimers(const CArguments& arguments, Console& console, RecordDesk& desk);
