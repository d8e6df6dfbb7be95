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

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace {

void WriteTimersJson(COutput& out, const QJsonArray& timers) {
    CJsonText json(out);
    json.BeginArray();
    for (const auto& timer : timers) {
        json.BeginObject();
        json.Key("id");
        json.Text(timer[u"id"].toString());
        json.Key("state");
        json.Text(timer[u"state"].toString());
        json.Key("seconds");
        json.Integer(timer[u"seconds"].toInteger());
        json.EndObject();
    }
    json.EndArray();
    out.Put("\n");
}

void WriteTimerLines(COutput& out, const QJsonArray& timers) {
    if (timers.isEmpty()) out.PutLine(LoadText(Text::CliNoTimers));
    for (const auto& timer : timers) {
        const int seconds = timer[u"seconds"].toInt();
        const QString count = FormatText<Text::TimerCount>(seconds / 3600, seconds / 60 % 60, seconds % 60);
        const bool isRunning = timer[u"state"].toString() == u"running";
        out.PutLine(
            timer[u"id"].toString() + u"  "_s +
            (isRunning ? FormatText<Text::CliTimerRuns>(count) : FormatText<Text::CliTimerPaused>(count)));
    }
}

/// Runs an action and hands out the answer of whoever owns the timers.
ExitCode Run(const QString& action, const QString& id, Console& console, RecordContext& context,
             QJsonObject& answer) {
    QJsonObject command{{u"action"_s, action}};
    if (!id.isEmpty()) command.insert(u"id"_s, id);
    answer = context.timers.Run(command);
    if (answer[u"ok"].toBool()) return ExitCode::Done;
    return Refuse(static_cast<ExitCode>(answer[u"exit"].toInt(1)), answer[u"error"].toString(), console);
}

/// All timers that there are afterwards.
ExitCode RunAndShow(const QString& action, const QString& id, Console& console, RecordContext& context) {
    QJsonObject answer;
    const ExitCode exit = Run(action, id, console, context, answer);
    if (exit != ExitCode::Done) return exit;
    const QJsonArray timers = answer[u"timers"].toArray();
    console.out.isJson ? WriteTimersJson(console.out, timers) : WriteTimerLines(console.out, timers);
    return ExitCode::Done;
}

ExitCode RunOnRecord(const QString& action, const CArguments& arguments, Console& console,
                     RecordContext& context) {
    const auto* record = FindRecord(RecordKind::Time, arguments.Words().first(), console, context);
    if (!record) return LookupFailed(context);
    return RunAndShow(action, record->GetId(), console, context);
}

}  // namespace

ExitCode StartTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    return RunOnRecord(u"start"_s, arguments, console, context);
}

ExitCode PauseTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    return RunOnRecord(u"pause"_s, arguments, console, context);
}

/// Prints the record that the stop has written, whoever wrote it.
ExitCode StopTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto* record = FindRecord(RecordKind::Time, arguments.Words().first(), console, context);
    if (!record) return LookupFailed(context);
    const QString id = record->GetId();
    QJsonObject answer;
    const ExitCode exit = Run(u"stop"_s, id, console, context, answer);
    if (exit != ExitCode::Done) return exit;
    context.timers.Read();
    PrintRecord(RecordKind::Time, id, console, context);
    return ExitCode::Done;
}

ExitCode StopAllTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow(u"stop-all"_s, {}, console, context);
}

ExitCode PauseAllTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow(u"pause-all"_s, {}, console, context);
}

ExitCode DropTimer(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString typed = arguments.Words().first();
    const auto id = EnteredValues::ReadIdentity(typed);
    context.timers.Read();
    if (!id || !context.timers.Find(*id))
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchTimer>(typed), console);
    return RunAndShow(u"drop"_s, *id, console, context);
}

ExitCode ShowTimers(const CArguments&, Console& console, RecordContext& context) {
    return RunAndShow(u"status"_s, {}, console, context);
}
