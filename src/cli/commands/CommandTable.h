#pragma once

#include "cli/output/ExitCode.h"
#include "lang/Text.h"

#include <array>
#include <span>
#include <variant>

class CArguments;
class CCfgStore;
class CClock;
class COutput;
class CPrompt;
class QString;
class CSettingsOwner;
struct RecordDesk;

/// How an option is written.
enum class OptionShape {
    Flag,   ///< --timer
    YesNo,  ///< --billable, --billable yes, --billable no; bare it means yes
    Value,  ///< --date DATE
    Values  ///< the same, as often as wanted
};

/// One option of a command.
struct OptionRow {
    const char* name;   ///< without the dashes
    const char* value;  ///< what its value is called in the help
    OptionShape shape;
    Text description;
};

/// What every command gets: its way out, the user, the clock.
struct Console {
    COutput& out;
    CPrompt& prompt;
    const CClock& clock;
};

/// A command is a function whose arguments say what it may touch: nothing of the home, the settings for
/// reading, the settings for changing, records with their timers, or the home itself.
using RunWithoutHome = ExitCode (*)(const CArguments&, Console&);
using RunWithSettings = ExitCode (*)(const CArguments&, Console&, const CCfgStore&);
using RunOnSettings = ExitCode (*)(const CArguments&, Console&, CSettingsOwner&);
using RunOnRecords = ExitCode (*)(const CArguments&, Console&, RecordDesk&);
using RunOnHome = ExitCode (*)(const CArguments&, Console&, const QString& homeOption);
using RunCommand = std::variant<RunWithoutHome, RunWithSettings, RunOnSettings, RunOnRecords, RunOnHome>;

/// One command. A group without commands of its own ("day") is one row with an empty name.
struct CommandRow {
    const char* group;
    const char* name;
    const char* words;  ///< its words as the help shows them: "ID..."
    int leastWords;
    int mostWords;
    std::array<std::span<const OptionRow>, 2> options;
    Text description;
    RunCommand run;
};

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
