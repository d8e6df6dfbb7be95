#pragma once

#include "cli/commands/CommandRow.h"

#include <QString>

// "backup", "verify", "restore".

[[nodiscard]] ExitCode BackUp(const CArguments& arguments, Console& console, const QString& homeOption);
/// Makes and opens no home.
[[nodiscard]] ExitCode VerifyBackup(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode RestoreBackup(const CArguments& arguments, Console& console,
                                     const QString& homeOption);
