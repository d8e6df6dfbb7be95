#pragma once

#include "cli/arguments/OptionRow.h"
#include "cli/output/Console.h"
#include "cli/output/ExitCode.h"

#include <array>
#include <span>
#include <variant>

class CArguments;
class CCfgStore;
class CSettingsOwner;
class QString;
struct RecordContext;

/// A command is a function whose arguments say what it may touch: nothing of the home, the settings for
/// reading, the settings for changing, records with their timers, or the home itself.
using RunWithoutHome = ExitCode (*)(const CArguments&, Console&);
using RunWithSettings = ExitCode (*)(const CArguments&, Console&, const CCfgStore&);
using RunOnSettings = ExitCode (*)(const CArguments&, Console&, CSettingsOwner&);
using RunOnRecords = ExitCode (*)(const CArguments&, Console&, RecordContext&);
using RunOnHome = ExitCode (*)(const CArguments&, Console&, const QString& homeOption);
using RunCommand = std::variant<RunWithoutHome, RunWithSettings, RunOnSettings, RunOnRecords, RunOnHome>;

/// One command. A group without commands of its own ("day") is one row with an empty name.
struct CommandRow {
    const char* name;
    const char* words;  ///< its words as the help shows them: "ID..."
    Text description;
    RunCommand run;
    std::array<std::span<const OptionRow>, 5> options{};
    const char* group = "";  ///< set by the table
};
