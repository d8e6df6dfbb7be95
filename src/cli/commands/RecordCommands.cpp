#include "cli/commands/RecordCommands.h"
#include "cli/home/CTimerAccess.h"

#include "app/CVelmarchDoc.h"
#include "changes/CRecordChanges.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/RecordFields.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "cli/output/RecordOutput.h"
#include "config/CCfgStore.h"
#include "entry/CEnteredItems.h"
#include "entry/NewListItems.h"
#include "lang/LoadText.h"
#include "records/StoreTransaction.h"

using namespace Qt::Literals::StringLiterals;

// One record made, changed or shown from what stands on the command line.

namespace {

constexpr OptionRow kEditOptions[] = {{"clear", "FIELD", OptionShape::Values, Text::CliOptClear}};

/// The last reading becomes the suggestion for the next expense. The record is stored; that this fails is no
/// failure of the command.
void NoteOdometer(const Settings& noted, Console& console, RecordContext& context) {
    if (noted.odometerLastEnd == context.settings.odometerLastEnd) return;
    const InstanceReply reply =
        context.owner.Change(SettingRequest{.name = u"odometerLastEnd"_s, .value = noted.odometerLastEnd});
    if (!reply) console.out.Note(LoadText(Text::CliOdometerNotNoted));
}

}  // namespace

std::span<const OptionRow> EditOptions() {
    return kEditOptions;
}

ExitCode AddRecord(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    const std::unique_ptr<CVORec> record = RecordOfToday(kind, console.clock);
    Settings noted = context.settings;
    const EnteredFields fields =
        EnterFields(*record, arguments, {noted, context.settings.Region(), console.clock, nullptr});
    if (fields.problem.exit != ExitCode::Done)
        return Refuse(fields.problem.exit, fields.problem.words, console);
    fields.addToLists(NewListItems(context.settings, context.entered));
    const Outcome added = context.changes.Add(*record, Identity::New);
    if (!added) return ExitCode::Failed;
    const QString& id = added.ids.first();
    NoteOdometer(noted, console, context);
    for (const QString& note : fields.notes) console.out.Note(note);
    Announce(kind, {id}, console, context, added.hasNewItems);
    PrintRecord(kind, id, console, context);
    return ExitCode::Done;
}

ExitCode EditRecord(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    context.timers.Look();  // the window may be asked for them, so that comes before others have to wait
    const StoreTransaction hold(context.document.Store());
    if (!hold.IsOpen()) return ExitCode::Failed;
    const CVORec* stored = FindRecord(kind, arguments.Words().first(), console, context);
    if (!stored) return LookupFailed(context);
    const std::unique_ptr<CVORec> record = stored->Clone();
    Settings noted = context.settings;
    const EnteredFields fields = EnterFields(*record, arguments,
                                             {.settings = noted,
                                              .region = context.settings.Region(),
                                              .clock = console.clock,
                                              .timers = &context.timers.Timers(),
                                              .areTimersKnown = context.timers.AreKnown()});
    if (fields.problem.exit != ExitCode::Done)
        return Refuse(fields.problem.exit, fields.problem.words, console);
    const QString id = record->GetId();
    fields.addToLists(NewListItems(context.settings, context.entered));
    const Outcome edited = context.changes.Edit(*record, id);
    if (!edited) return ExitCode::Failed;
    NoteOdometer(noted, console, context);
    for (const QString& note : fields.notes) console.out.Note(note);
    Announce(kind, {id}, console, context, edited.hasNewItems);
    PrintRecord(kind, id, console, context);
    return ExitCode::Done;
}

ExitCode ShowRecord(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    const CVORec* record = FindRecord(kind, arguments.Words().first(), console, context);
    if (!record) return LookupFailed(context);
    context.timers.Look();
    WriteRecord(console.out, {*record, context.timers.Shown(record->GetId())});
    return ExitCode::Done;
}
