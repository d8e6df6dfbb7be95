#pragma once

#include "cli/commands/CommandRow.h"

// The group "report" without its runs: the definitions of reports that are kept under names.

[[nodiscard]] ExitCode ListReportFields(const CArguments& arguments, Console& console,
                                        RecordContext& context);
[[nodiscard]] ExitCode ListReports(const CArguments& arguments, Console& console, CSettingsOwner& owner);
[[nodiscard]] ExitCode ShowReport(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode SaveReport(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode EditReport(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RenameReport(const CArguments& arguments, Console& console, RecordContext& context);
[[nodiscard]] ExitCode DeleteReport(const CArguments& arguments, Console& console, CSettingsOwner& owner);
