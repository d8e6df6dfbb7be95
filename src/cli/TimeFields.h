#pragma once

#include "cli/CommandTable.h"
#include "platform/CRegionalInfo.h"

#include <QString>
#include <span>

class CArguments;
class CClock;
class CTimerDesk;
class CTRecord;
struct Settings;

/// What the fields of a command line need to become values of a record.
struct FieldNeeds {
    const Settings& settings;
    const CRegionalInfo& region;
    const CClock& clock;
    const CTimerDesk* timers;  ///< null for a record that is new
};

/// Why fields were refused; the exit code says which kind. Nothing of the record is to be stored then.
struct FieldProblem {
    ExitCode exit = ExitCode::Done;
    QString words;
};

/// The options --date to --billed.
[[nodiscard]] std::span<const OptionRow> TimeFieldOptions();

/// Enters all given fields, and clears those named by --clear, through the rules of entry: in the fixed order
/// date, items, notes, billable, start, end, duration, break, rate, amount, billed, whatever their order on
/// the command line.
[[nodiscard]] FieldProblem EnterTimeFields(CTRecord& record, const CArguments& arguments,
                                           const FieldNeeds& needs);
