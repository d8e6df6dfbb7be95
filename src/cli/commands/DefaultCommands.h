#pragma once

#include "cli/commands/CommandRow.h"

// The group "defaults": records kept under names, from which new ones start.

[[nodiscard]] ExitCode ListDefaults(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode ShowDefault(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode SaveDefault(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RenameDefault(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode DeleteDefault(const CArguments& arguments, Console& console, CSettingsOwner& owner);

[[nodiscard]] std::span<const OptionRow> ModeOption();
[[nodiscard]] std::span<const OptionRow> SaveDefaultOptions();
/// The fields of both kinds of records.
[[nodiscard]] std::span<const OptionRow> SaveDefaultFields();
