#pragma once

#include "cli/output/ExitCode.h"

struct CommandRequest;
struct Console;

/// Opens as much of the home as the command's function asks for, and runs it.
[[nodiscard]] ExitCode RunCommandOf(const CommandRequest& request, Console& console);
