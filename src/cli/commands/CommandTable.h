#pragma once

#include "cli/commands/CommandRow.h"

struct GroupRow {
    const char* name;
    Text description;
};

inline constexpr int kAnyNumber = 1'000'000;  ///< of words

[[nodiscard]] std::span<const GroupRow> CommandGroups();
/// All commands, those of a group together.
[[nodiscard]] std::span<const CommandRow> Commands();
/// The options that stand with every command.
[[nodiscard]] std::span<const OptionRow> GlobalOptions();
