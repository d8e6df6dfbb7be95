#pragma once

#include "cli/commands/CommandRow.h"

struct GroupRow {
    const char* name;
    Text description;
};

inline constexpr int kAnyNumber = 1'000'000;  ///< of words

struct WordCount {
    int least = 0;
    int most = 0;
};
/// How many words a command takes, from the way in which its help shows them: "LIST TEXT" are two, "ID..." is
/// one or more, "[NAME]" one or none.
[[nodiscard]] WordCount CountWords(const char* words);

[[nodiscard]] std::span<const GroupRow> CommandGroups();
/// All commands, those of a group together.
[[nodiscard]] std::span<const CommandRow> Commands();
/// The options that stand with every command.
[[nodiscard]] std::span<const OptionRow> GlobalOptions();
