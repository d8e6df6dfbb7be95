#pragma once

#include "cli/commands/CommandTable.h"

// The group "tree": which list items go with which.

[[nodiscard]] ExitCode ShowTree(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode AddToTree(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode RemoveFromTree(const CArguments& arguments, Console& console, RecordDesk& desk);
