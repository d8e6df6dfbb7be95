#pragma once

#include "cli/commands/CommandTable.h"

// The group "labels": the user's own names of fields.

[[nodiscard]] ExitCode ListLabels(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode SetLabel(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode ResetLabels(const CArguments& arguments, Console& console, RecordDesk& desk);
[[nodiscard]] ExitCode UseLabelPreset(const CArguments& arguments, Console& console, RecordDesk& desk);
