#pragma once

#include "app/TimeFilter.h"
#include "cli/CommandTable.h"

#include <QString>
#include <span>

class CArguments;
struct PeriodSurroundings;

/// The options that narrow a list of time records: --period to --timers.
[[nodiscard]] std::span<const OptionRow> TimeFilterOptions();

/// Why a filter can't be made; the exit code says which kind.
struct FilterProblem {
    ExitCode exit = ExitCode::Done;
    QString words;
};

/// Makes the filter that a command line describes; without any option it lets everything pass.
[[nodiscard]] FilterProblem ReadTimeFilter(const CArguments& arguments, const PeriodSurroundings& around,
                                           TimeFilter& filter);
