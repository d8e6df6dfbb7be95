#include "cli/commands/TimerCommands.h"

#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "timers/TimerTexts.h"
#include "timers/TrueTime.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kStopOptions[] = {{"true-time", "", OptionShape::Flag, Text::CliOptTrueTime}};

using Timers = std::vector<TimerReading>;

/// Hours and minutes, as a record counts.
QString SpanText(qint64 seconds) {
    return FormatText<Text::CliSpan>(static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60));
}

void WriteTimersJson(COutput& out, const Timers& timers) {
    CJsonText json(out);
    json.BeginArray();
    for (const TimerReading& timer : timers) {
        json.BeginObject();
        json.Key("id");
        json.Text(timer.recordId);
        json.Key("state");
        json.Text(StateName(timer));
        json.Key("seconds");
        json.Integer(timer.seconds);
        json.Key("trueSeconds");
        timer.trueSeconds ? json.Integer(*timer.trueSeconds) : json.Null();
        json.EndObject();
    }
    json.EndArray();
    out.Put("\n");
}

void WriteTimerLines(COutput& out, const Timers& timers) {
    if (timers.empty()) out.PutLine(LoadText(Text::CliNoTimers));
    for (const TimerReading& timer : timers) {
        const QString count = TimerCountText(timer.seconds);
        out.PutLine(timer.recordId + u"  "_s +
                    (timer.isRunning ? FormatText<Text::CliTimerRuns>(count)
                                     : FormatText<Text::CliTimerPaused>(count)));
        if (const auto difference = DifferenceOf(timer.seconds, timer.trueSeconds))
            out.PutLine(
                FormatText<Text::CliTimerDiffers>(TimerCountText(difference->passed), timer.recordId));
    }
}

/// What a record was given, and what it could have been given.
void NoteDifferences(const Timers& stopped, CountBy by, Console& console) {
    for (const TimerReading& timer : stopped) {
        const auto difference = DifferenceOf(timer.seconds, timer.trueSeconds);
        if (!difference) continue;
        const QString counted = SpanText(difference->counted), passed = SpanText(difference->passed);
        console.out.Note(by == CountBy::TrueTime
                             ? FormatText<Text::CliStoppedByTrueTime>(passed, counted)
                             : FormatText<Text::CliStoppedByClock>(counted, passed, timer.recordId, passed));
    }
}

/// Runs what a command does with the timers, and says before the end that some were lost, as long as that is
/// news.
InstanceReply RunOnTimers(const TimerRequest& request, Console& console, RecordContext& context) {
    context.timers.Read();
    const bool areLost = context.timers.AreLost();
    InstanceReply reply = context.timers.Run(request);
    if (areLost) console.out.Complain(LoadText(Text::CliTimersLost));
    return reply;
}

/// All timers that there are afterwards.
ExitCode RunAndShow(const TimerRequest& request, Console& console, RecordContext& context) {
    const InstanceReply reply = RunOnTimers(request, console, context);
    if (!reply) return ExitOf(reply, console);
    const Timers timers = TimersIn(reply);
    console.out.isJson ? WriteTimersJson(console.out, timers) : WriteTimerLines(console.out, timers);
    NoteDifferences(StoppedIn(reply), CountBy::Clock, console);
    return ExitCode::Done;
}

/// All timers that are left are stopped or paused then; those that were lost aren't.
ExitCode RunOnAll(TimerAction action, Console& console, RecordContext& context) {
    const ExitCode exit = RunAndShow({action}, console, context);
    return exit == ExitCode::Done && context.timers.AreLost() ? ExitCode::Failed : exit;
}

ExitCode RunOnRecord(TimerAction action, const CArguments& arguments, Console& console,
                     RecordContext& context) {
    const auto* record = FindRecord(RecordKind::Time, arguments.Words().first(), console, context);
    if (!record) return LookupFailed(context);
    return RunAndShow({action, record->GetId()}, console, context);
}

}  // namespace

std::span<const OptionRow> StopTimerOptions() {
    return kStopOptions;
}

ExitCode StartTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    return RunOnRecord(TimerAction::Start, arguments, console, context);
}

ExitCode PauseTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    return RunOnRecord(TimerAction::Pause, arguments, console, context);
}

/// Prints the record as the stop has left it in the store, which a window may have written.
ExitCode StopTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto* record = FindRecord(RecordKind::Time, arguments.Words().first(), console, context);
    if (!record) return LookupFailed(context);
    const QString id = record->GetId();
    const bool isTrueTime = arguments.Has("true-time");
    const InstanceReply reply =
        RunOnTimers({.action = TimerAction::Stop, .id = id, .isTrueTime = isTrueTime}, console, context);
    if (!reply) return ExitOf(reply, console);
    context.timers.Read();
    const ChangedBy by = context.window.IsThere() ? ChangedBy::Window : ChangedBy::ThisProgram;
    PrintRecord(RecordKind::Time, id, console, context, by);
    NoteDifferences(StoppedIn(reply), isTrueTime ? CountBy::TrueTime : CountBy::Clock, console);
    return ExitCode::Done;
}

ExitCode StopAllTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunOnAll(TimerAction::StopAll, console, context);
}

ExitCode PauseAllTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunOnAll(TimerAction::PauseAll, console, context);
}

ExitCode DropTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString typed = arguments.Words().first();
    const auto id = EnteredValues::ReadIdentity(typed);
    context.timers.Read();
    if (!context.timers.AreKnown() && !context.window.IsThere())
        return Refuse(ExitCode::Failed, LoadText(Text::CliTimersUnread), console);
    if (!id || !context.timers.Find(*id))
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchTimer>(typed), console);
    return RunAndShow({TimerAction::Drop, *id}, console, context);
}

ExitCode ShowTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow({TimerAction::Status}, console, context);
}
