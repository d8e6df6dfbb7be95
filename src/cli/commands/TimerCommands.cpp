#include "cli/commands/TimerCommands.h"

#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using Timers = std::vector<TimerReading>;

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
        json.EndObject();
    }
    json.EndArray();
    out.Put("\n");
}

void WriteTimerLines(COutput& out, const Timers& timers) {
    if (timers.empty()) out.PutLine(LoadText(Text::CliNoTimers));
    for (const TimerReading& timer : timers) {
        const QString count =
            FormatText<Text::TimerCount>(timer.seconds / 3600, timer.seconds / 60 % 60, timer.seconds % 60);
        out.PutLine(timer.recordId + u"  "_s +
                    (timer.isRunning ? FormatText<Text::CliTimerRuns>(count)
                                     : FormatText<Text::CliTimerPaused>(count)));
    }
}

/// All timers that there are afterwards.
ExitCode RunAndShow(const TimerRequest& request, Console& console, RecordContext& context) {
    const InstanceReply reply = context.timers.Run(request);
    if (!reply) return ExitOf(reply, console);
    const Timers timers = TimersIn(reply);
    console.out.isJson ? WriteTimersJson(console.out, timers) : WriteTimerLines(console.out, timers);
    return ExitCode::Done;
}

ExitCode RunOnRecord(TimerAction action, const CArguments& arguments, Console& console,
                     RecordContext& context) {
    const auto* record = FindRecord(RecordKind::Time, arguments.Words().first(), console, context);
    if (!record) return LookupFailed(context);
    return RunAndShow({action, record->GetId()}, console, context);
}

}  // namespace

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
    const ExitCode exit = ExitOf(context.timers.Run({TimerAction::Stop, id}), console);
    if (exit != ExitCode::Done) return exit;
    context.timers.Read();
    PrintRecord(RecordKind::Time, id, console, context);
    return ExitCode::Done;
}

ExitCode StopAllTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow({TimerAction::StopAll}, console, context);
}

ExitCode PauseAllTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow({TimerAction::PauseAll}, console, context);
}

ExitCode DropTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString typed = arguments.Words().first();
    const auto id = EnteredValues::ReadIdentity(typed);
    context.timers.Read();
    if (!id || !context.timers.Find(*id))
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchTimer>(typed), console);
    return RunAndShow({TimerAction::Drop, *id}, console, context);
}

ExitCode ShowTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow({TimerAction::Status}, console, context);
}
