#pragma once

#include "cli/commands/CommandRow.h"

// The group "tree": which list items go with which.

[[nodiscard]] ExitCode ShowTree(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode AddToTree(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RemoveFromTree(const CArguments& arguments, Console& console, RecordContext& context);
