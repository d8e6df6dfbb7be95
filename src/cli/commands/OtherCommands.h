#pragma once

#include "cli/commands/CommandRow.h"

#include <QString>

// The groups of one command: "texts", "doctor", "demo".

[[nodiscard]] ExitCode ListTexts(const CArguments& arguments, Console& console);
[[nodiscard]] ExitCode RunDoctor(const CArguments& arguments, Console& console, const QString& homeOption);
[[nodiscard]] ExitCode FillDemo(const CArguments& arguments, Console& console, RecordContext& context);

[[nodiscard]] std::span<const OptionRow> DoctorOptions();
[[nodiscard]] std::span<const OptionRow> DemoOptions();
