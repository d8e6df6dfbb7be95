#include "cli/commands/RecordCommands.h"

#include "app/CVelmarchDoc.h"
#include "app/StoreChange.h"
#include "cli/arguments/CArguments.h"
#include "cli/output/COutput.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/doctor/KeptTexts.h"
#include "cli/commands/RecordDesk.h"
#include "cli/arguments/RecordFields.h"
#include "cli/output/RecordOutput.h"
#include "cli/commands/RecordSteps.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"

using namespace Qt::Literals::StringLiterals;

// One record made, changed or shown from what stands on the command line.

namespace {

constexpr OptionRow kEditOptions[] = {{"clear", "FIELD", OptionShape::Values, Text::CliOptClear}};

/// A store that took a record in and then could not write it to disk has told so by itself.
bool IsWritten(const RecordDesk& desk) {
    return desk.document.Store().m_lastError == 0;
}

/// The last reading becomes the suggestion for the next expense. The record is stored; that this fails is no
/// failure of the command.
void KeepOdometer(const Settings& noted, Console& console, RecordDesk& desk) {
    if (noted.odometerLastEnd == desk.settings.odometerLastEnd) return;
    const QJsonObject answer =
        desk.owner.Change({{u"name"_s, u"odometerLastEnd"_s}, {u"value"_s, noted.odometerLastEnd}});
    if (!answer[u"ok"].toBool()) console.out.Note(LoadText(Text::CliOdometerNotNoted));
}

}  // namespace

std::span<const OptionRow> EditOptions() {
    return kEditOptions;
}

ExitCode AddRecord(RecordKind kind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    const std::unique_ptr<CVORec> record = RecordOfToday(kind, console.clock);
    Settings noted = desk.settings;
    const FieldProblem problem =
        EnterFields(*record, arguments, {noted, desk.settings.Region(), console.clock, nullptr});
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);
    QString id;
    if (!desk.document.AddRecord(*record, true, false, true, &id) || !IsWritten(desk))
        return ExitCode::Failed;
    KeepOdometer(noted, console, desk);
    Announce(kind, {id}, console, desk, KeepTexts(*record, arguments, desk));
    PrintRecord(kind, id, console, desk);
    return ExitCode::Done;
}

ExitCode EditRecord(RecordKind kind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    desk.timers.Look();  // the window may be asked for them, so that comes before others have to wait
    const StoreHold hold(desk.document.Store());
    if (!hold.IsHeld()) return ExitCode::Failed;
    const CVORec* stored = FindRecord(kind, arguments.Words().first(), console, desk);
    if (!stored) return LookupFailed(desk);
    const std::unique_ptr<CVORec> record = stored->Clone();
    Settings noted = desk.settings;
    const FieldProblem problem =
        EnterFields(*record, arguments, {noted, desk.settings.Region(), console.clock, &desk.timers.Desk()});
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);
    const QString id = record->GetId();
    if (!desk.document.ModifyRecord(*record, id, true, false, true, true) || !IsWritten(desk))
        return ExitCode::Failed;
    KeepOdometer(noted, console, desk);
    Announce(kind, {id}, console, desk, KeepTexts(*record, arguments, desk));
    PrintRecord(kind, id, console, desk);
    return ExitCode::Done;
}

ExitCode ShowRecord(RecordKind kind, const CArguments& arguments, Console& console, RecordDesk& desk) {
    const CVORec* record = FindRecord(kind, arguments.Words().first(), console, desk);
    if (!record) return LookupFailed(desk);
    desk.timers.Look();
    WriteRecord(console.out, {*record, desk.timers.Shown(record->GetId())});
    return ExitCode::Done;
}
