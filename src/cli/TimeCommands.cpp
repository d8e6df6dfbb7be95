#include "cli/TimeCommands.h"

#include "app/CVelmarchDoc.h"
#include "cli/CArguments.h"
#include "cli/COutput.h"
#include "cli/EnteredValues.h"
#include "cli/RecordDesk.h"
#include "cli/RecordSteps.h"
#include "cli/TimeFields.h"
#include "cli/TimeOutput.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"

// One record made, changed or shown from what stands on the command line.

namespace {

constexpr OptionRow kEditOptions[] = {{"clear", "FIELD", OptionShape::Values, Text::CliOptClear}};

FieldNeeds Needs(Console& console, const RecordDesk& desk, const CTimerDesk* timers) {
    return {desk.settings, desk.settings.Region(), console.clock, timers};
}

/// A store that took a record in and then could not write it to disk has told so by itself.
bool IsWritten(const RecordDesk& desk) {
    return desk.document.Store().m_lastError == 0;
}

}  // namespace

std::span<const OptionRow> TimeEditOptions() {
    return kEditOptions;
}

ExitCode AddTime(const CArguments& arguments, Console& console, RecordDesk& desk) {
    CTRecord record;
    DateTimeVal today;
    if (today.SetToday(console.clock)) record.date.Set(today.month, today.day, today.year);
    const FieldProblem problem = EnterTimeFields(record, arguments, Needs(console, desk, nullptr));
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);
    QString id;
    if (!desk.document.AddRecord(record, true, false, true, &id) || !IsWritten(desk)) return ExitCode::Failed;
    Announce({id}, console, desk);
    PrintTimeRecord(id, console, desk);
    return ExitCode::Done;
}

ExitCode EditTime(const CArguments& arguments, Console& console, RecordDesk& desk) {
    const CTRecord* stored = FindTimeRecord(arguments.Words().first(), console, desk);
    if (!stored) return LookupFailed(desk);
    desk.timers.Look();
    CTRecord record;
    record.Copy(*stored);
    const FieldProblem problem =
        EnterTimeFields(record, arguments, Needs(console, desk, &desk.timers.Desk()));
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);
    const QString id = record.GetId();
    if (!desk.document.ModifyRecord(record, id, true, false, true, true) || !IsWritten(desk))
        return ExitCode::Failed;
    Announce({id}, console, desk);
    PrintTimeRecord(id, console, desk);
    return ExitCode::Done;
}

ExitCode ShowTime(const CArguments& arguments, Console& console, RecordDesk& desk) {
    const CTRecord* record = FindTimeRecord(arguments.Words().first(), console, desk);
    if (!record) return LookupFailed(desk);
    desk.timers.Look();
    WriteTime(console.out, {*record, desk.timers.Shown(record->GetId())});
    return ExitCode::Done;
}
