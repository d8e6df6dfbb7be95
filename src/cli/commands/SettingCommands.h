#pragma once

#include "cli/commands/CommandRow.h"

// The group "settings".

[[nodiscard]] ExitCode ListSettings(const CArguments& arguments, Console& console, const CCfgStore& settings);
[[nodiscard]] ExitCode ListOwnSettings(const CArguments& arguments, Console& console,
                                       const CCfgStore& settings);
[[nodiscard]] ExitCode GetSetting(const CArguments& arguments, Console& console, const CCfgStore& settings);
[[nodiscard]] ExitCode SetSetting(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode ResetSettings(const CArguments& arguments, Console& console, CSettingsOwner& owner);
