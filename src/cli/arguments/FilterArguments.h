#pragma once

#include "calendar/DateTimeVal.h"
#include "cli/arguments/OptionRow.h"
#include "cli/output/ExitCode.h"
#include "records/CVORec.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <span>
#include <utility>

class CArguments;
class CVelmarchDoc;
class ExpenseFilter;
class TimeFilter;
struct PeriodContext;

/// The options that narrow a list of records of a kind: --period to the flags.
[[nodiscard]] std::span<const OptionRow> FilterOptions(RecordKind kind);

/// Why a filter can't be made; the exit code says which kind.
struct FilterProblem {
    ExitCode exit = ExitCode::Done;
    QString words;
    QStringList notes = {};  ///< what the user must know of a filter that was made
};

/// The period that a command line names; neither of the two without one.
struct PeriodOption {
    std::optional<int> preset;
    std::optional<std::pair<DateTimeVal, DateTimeVal>> days;  ///< first and last, as typed
};
[[nodiscard]] FilterProblem ReadPeriodOption(const CArguments& arguments, const PeriodContext& context,
                                             PeriodOption& period);

/// Makes a filter the one that a command line describes; without any option it lets everything pass. That of
/// the document is the one of the kind.
[[nodiscard]] FilterProblem ReadFilter(const CArguments& arguments, const PeriodContext& context,
                                       TimeFilter& filter);
[[nodiscard]] FilterProblem ReadFilter(const CArguments& arguments, const PeriodContext& context,
                                       ExpenseFilter& filter);
[[nodiscard]] FilterProblem ReadFilter(RecordKind kind, const CArguments& arguments, CVelmarchDoc& document);
