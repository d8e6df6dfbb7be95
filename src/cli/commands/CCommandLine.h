#pragma once

#include "cli/arguments/CArguments.h"

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

struct CommandRow;
struct GroupRow;

/// What a command line asks for.
struct CommandRequest {
    const GroupRow* group = nullptr;      ///< null: none was named
    const CommandRow* command = nullptr;  ///< null: none was named
    CArguments arguments;
    QString home;
    bool isJson = false, isYes = false, isQuiet = false, wantsHelp = false, wantsVersion = false;
    QString problem;  ///< why the line can't be understood; empty when it can
};

/// Takes a command line apart by the table of commands.
[[nodiscard]] CommandRequest ReadCommandLine(const std::vector<std::string>& arguments);
