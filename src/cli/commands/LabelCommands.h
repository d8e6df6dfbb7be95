#pragma once

#include "cli/commands/CommandRow.h"

// The group "labels": the user's own names of fields.

[[nodiscard]] ExitCode ListLabels(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode SetLabel(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode ResetLabels(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode UseLabelPreset(const CArguments& arguments, Console& console, RecordContext& context);
