#pragma once

#include "cli/arguments/OptionRow.h"
#include "cli/output/ExitCode.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class CArguments;
class CClock;
class CTimerService;
class NewListItems;
struct CRegionalInfo;
struct Settings;

/// What the fields of a command line need to become values of a record.
struct FieldContext {
    Settings& settings;  ///< a copy: what a rule notes in it for the next record is to be kept by the caller
    const CRegionalInfo& region;
    const CClock& clock;
    const CTimerService* timers;  ///< null for a record that is new
    bool areTimersKnown = true;
};

/// Why fields were refused; the exit code says which kind. Nothing of the record is to be stored then.
struct FieldProblem {
    ExitCode exit = ExitCode::Done;
    QString words;
};

/// How the fields of a command line were entered.
struct EnteredFields {
    FieldProblem problem;
    QStringList
        notes;  ///< numbers that are stored as others (more digits than single precision holds), and slips
    /// Offers the entered texts, never what was computed, to the pick lists.
    std::function<void(const NewListItems& lists)> addToLists;
};

/// What is entered: a text, or nothing to clear the field.
using Entered = std::optional<QString>;
