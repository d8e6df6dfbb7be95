#pragma once

#include "cli/commands/CommandTable.h"

#include <QString>

// The groups of one command: "texts", "doctor", "demo".

[[nodiscard]] ExitCode ListTexts(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode RunDoctor(const CArguments& arguments, Console& console, const QString& homeOption);
[[nodiscard]] ExitCode FillDemo(const CArguments& arguments, Console& console, RecordDesk& desk);

[[nodiscard]] std::span<const OptionRow> DemoOptions();
