#pragma once

#include "cli/commands/CommandRow.h"

// The groups "day" and "period".

[[nodiscard]] ExitCode ShowDay(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode ListPeriods(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode ShowPeriod(const CArguments& arguments, Console& console, const CCfgStore& settings);
