#pragma once

#include "cli/commands/CommandRow.h"

// The group "query": what lists and reports are narrowed by, kept under names.

[[nodiscard]] ExitCode ListQueries(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode ShowQuery(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode SaveQuery(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RenameQuery(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode DeleteQuery(const CArguments& arguments, Console& console, CSettingsOwner& owner);
