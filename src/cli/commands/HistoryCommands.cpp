#include "cli/commands/HistoryCommands.h"

#include "app/CVelmarchDoc.h"
#include "changes/CUndo.h"
#include "changes/ChangeNames.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/ListSteps.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "records/CRecordStore.h"
#include "records/CStoreJournal.h"
#include "records/CVOSrcMgr.h"

#include <limits>

namespace {

constexpr OptionRow kHistoryOptions[] = {{"limit", "N", OptionShape::Value, Text::CliOptHistoryLimit}};
constexpr OptionRow kWayOptions[] = {{"skip", "", OptionShape::Flag, Text::CliOptSkip}};

/// A state as scripts and people see it; people see nothing of what is as usual.
struct StateRow {
    ChangeState state;
    const char* name;
    Text mark;
};
constexpr StateRow kStates[] = {
    {ChangeState::Done, "done", Text::CliYes},
    {ChangeState::Undone, "undone", Text::CliHistoryUndone},
    {ChangeState::TooLarge, "too-large", Text::CliHistoryTooLarge},
};

const StateRow& RowOf(ChangeState state) {
    for (const StateRow& row : kStates)
        if (row.state == state) return row;
    return kStates[0];
}

void WriteJson(CJsonText& json, const HistoryRow& change) {
    json.NewLine();
    json.BeginObject();
    json.Key("number");
    json.Integer(change.number);
    json.Key("time");
    json.Text(change.time);
    json.Key("change");
    json.Text(ChangeName(change));
    json.Key("state");
    json.Text(QString::fromLatin1(RowOf(change.state).name));
    json.EndObject();
}

void WriteLine(COutput& out, const HistoryRow& change) {
    const QString name = ChangeName(change);
    const StateRow& state = RowOf(change.state);
    const QString marked = change.state == ChangeState::Done
                               ? name
                               : FormatText<Text::CliHistoryMarked>(name, LoadText(state.mark));
    out.PutLine(FormatText<Text::CliHistoryLine>(QString(change.time).replace(u'T', u' '), marked));
}

void WriteChanges(COutput& out, const std::vector<HistoryRow>& changes) {
    if (!out.isJson) {
        for (const HistoryRow& change : changes) WriteLine(out, change);
        return;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const HistoryRow& change : changes) WriteJson(json, change);
    json.EndArray();
    out.Put("\n");
}

void AnnounceAll(const UndoOutcome& outcome, Console& console, RecordContext& context) {
    if (!outcome.times.isEmpty())
        Announce(RecordKind::Time, outcome.times, console, context, outcome.hasLists);
    if (!outcome.expenses.isEmpty())
        Announce(RecordKind::Expense, outcome.expenses, console, context, outcome.hasLists);
    if (outcome.times.isEmpty() && outcome.expenses.isEmpty() && outcome.hasLists)
        AnnounceLists(console, context);
}

template <Text Line>
void WriteOutcome(COutput& out, const char* key, const UndoOutcome& outcome) {
    if (!out.isJson) {
        for (const QString& name : outcome.passedOver)
            out.PutLine(FormatText<Text::CliHistoryPassedOver>(name));
        return out.PutLine(FormatText<Line>(outcome.words));
    }
    CJsonText json(out);
    json.BeginObject();
    json.Key(key);
    json.Text(outcome.words);
    json.Key("times");
    json.Integer(outcome.times.size());
    json.Key("expenses");
    json.Integer(outcome.expenses.size());
    json.Key("lists");
    json.Flag(outcome.hasLists);
    json.Key("passedOver");
    json.BeginArray();
    for (const QString& name : outcome.passedOver) json.Text(name);
    json.EndArray();
    json.EndObject();
    out.Put("\n");
}

/// Who finds a history that can't be read hears where it was put.
void TellOfHistory(Console& console, RecordContext& context) {
    CStoreJournal* journal = context.document.Store().Manager().Journal();
    const QString notice = journal ? journal->TakeNotice() : QString();
    if (!notice.isEmpty()) console.out.Complain(notice);
}

ExitCode RefuseWay(const UndoOutcome& outcome, Console& console) {
    if (outcome.end == UndoOutcome::End::Nothing) return Refuse(ExitCode::NotFound, outcome.words, console);
    if (!outcome.words.isEmpty()) console.out.Complain(outcome.words);
    if (!outcome.instead.isEmpty()) console.out.Complain(LoadText(Text::CliHistorySkipHint));
    return ExitCode::Failed;
}

/// Timers that can't be read may belong to any record of the change.
template <Text Line>
ExitCode Go(CHistory::Way way, const char* key, const CArguments& arguments, Console& console,
            RecordContext& context) {
    context.timers.Read();
    if (!context.timers.AreKnown()) return Refuse(ExitCode::Failed, LoadText(Text::CliTimersUnread), console);
    const UndoOutcome outcome = arguments.Has("skip") ? context.undo.RunPast(way) : context.undo.Run(way);
    TellOfHistory(console, context);
    if (!outcome) return RefuseWay(outcome, console);
    AnnounceAll(outcome, console, context);
    WriteOutcome<Line>(console.out, key, outcome);
    if (!outcome.notice.isEmpty()) console.out.Complain(outcome.notice);
    return ExitCode::Done;
}

}  // namespace

std::span<const OptionRow> HistoryOptions() {
    return kHistoryOptions;
}

ExitCode ListHistory(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto typed = arguments.Value("limit");
    const auto limit = typed ? EnteredValues::ReadCount(*typed) : std::numeric_limits<int>::max();
    if (!limit || *limit < 1) return Refuse(ExitCode::Usage, FormatText<Text::CliNoLimit>(*typed), console);
    const auto changes = context.undo.Changes();
    TellOfHistory(console, context);
    if (!changes)
        return Refuse(ExitCode::Failed, FormatText<Text::HistoryBusy>(context.undo.Error()), console);
    std::vector<HistoryRow> listed = ListedChanges(*changes);
    if (listed.size() > static_cast<std::size_t>(*limit)) listed.resize(static_cast<std::size_t>(*limit));
    WriteChanges(console.out, listed);
    return ExitCode::Done;
}

std::span<const OptionRow> WayOptions() {
    return kWayOptions;
}

ExitCode UndoChange(const CArguments& arguments, Console& console, RecordContext& context) {
    return Go<Text::HistoryUndone>(CHistory::Way::Undo, "undone", arguments, console, context);
}

ExitCode RedoChange(const CArguments& arguments, Console& console, RecordContext& context) {
    return Go<Text::HistoryRedone>(CHistory::Way::Redo, "redone", arguments, console, context);
}
