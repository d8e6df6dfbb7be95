#pragma once

#include "cli/CommandTable.h"

// The commands of the group "time".

[[nodiscard]] ExitCode AddTime(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode EditTime(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode ShowTime(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode NewTime(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode DeleteTimes(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode CopyTimes(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode MarkTimes(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode ListTimes(const CArguments& arguments, Console& console, RecordDesk& desk);

[[nodiscard]] std::span<const OptionRow> TimeEditOptions();
[[nodiscard]] std::span<const OptionRow> TimeNewOptions();
[[nodiscard]] std::span<const OptionRow> TimeMarkOptions();
[[nodiscard]] std::span<const OptionRow> TimeListOptions();
