#pragma once

#include "cli/arguments/OptionRow.h"
#include "cli/output/ExitCode.h"
#include "records/CVORec.h"

#include <QString>
#include <optional>
#include <span>

class CArguments;
class CClock;
class CTimerService;
struct CRegionalInfo;
struct Settings;

/// What the fields of a command line need to become values of a record.
struct FieldContext {
    Settings& settings;  ///< a copy: what a rule notes in it for the next record is to be kept by the caller
    const CRegionalInfo& region;
    const CClock& clock;
    const CTimerService* timers;  ///< null for a record that is new
};

/// Why fields were refused; the exit code says which kind. Nothing of the record is to be stored then.
struct FieldProblem {
    ExitCode exit = ExitCode::Done;
    QString words;
};

/// What is entered: a text, or nothing to clear the field.
using Entered = std::optional<QString>;

/// The fields of a kind of records as options.
[[nodiscard]] std::span<const OptionRow> FieldOptions(RecordKind kind);
/// A new record of a kind (time or expense), dated today.
[[nodiscard]] std::unique_ptr<CVORec> RecordOfToday(RecordKind kind, const CClock& clock);

/// Enters all given fields, and clears those named by --clear, through the rules of entry of the record's
/// kind, in a fixed order, whatever their order on the command line.
[[nodiscard]] FieldProblem EnterFields(CVORec& record, const CArguments& arguments,
                                       const FieldContext& context);
