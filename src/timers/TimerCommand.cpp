#include "timers/TimerCommand.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "timers/CRecordTimers.h"

#include <QJsonArray>

namespace {

constexpr int kFailed = 1;
constexpr int kNotFound = 4;

/// What a command acts on.
struct Fixture {
    QString id;
    bool fromZero;
    CRecordTimers& timers;
    CVelmarchDoc& document;
};

QJsonObject Refusal(int exitCode, const QString& words) {
    return {
        {QStringLiteral("ok"), false}, {QStringLiteral("exit"), exitCode}, {QStringLiteral("error"), words}};
}

/// The timer as it stands now; a running one is counted on to the present in a copy.
QJsonObject TimerJson(ActiveTimer timer, const CClock& clock) {
    timer.UpdateElapsed(clock);
    const bool isRunning = timer.state == TimerState::Running;
    return {{QStringLiteral("id"), timer.recordId},
            {QStringLiteral("state"), isRunning ? QStringLiteral("running") : QStringLiteral("paused")},
            {QStringLiteral("seconds"), timer.hours * 3600 + timer.minutes * 60 + timer.seconds}};
}

QJsonObject Done(Fixture& fixture) {
    QJsonArray all;
    const ActiveTimerSet& set = fixture.timers.Set();
    for (int i = 0; i < set.Count(); ++i) all.append(TimerJson(set.At(i), set.Clock()));
    return {{QStringLiteral("ok"), true}, {QStringLiteral("timers"), all}};
}

/// A failure may come from saving the timers, whatever was done to them: trying once more tells, and costs
/// nothing when they are saved.
QJsonObject DoneIf(bool succeeded, Fixture& fixture, Text failure) {
    if (succeeded) return Done(fixture);
    if (!fixture.timers.StoreTimers())
        return Refusal(kFailed,
                       FormatText<Text::TimersNotSaved>(fixture.document.GetSettings().Tree().Error()));
    return Refusal(kFailed, LoadText(failure));
}

bool HasRecord(Fixture& fixture) {
    return fixture.document.FetchRecord(RecordKind::Time, fixture.id) != nullptr;
}

QJsonObject NoRecord(const Fixture& fixture) {
    return Refusal(kNotFound, FormatText<Text::TimerRecordUnknown>(fixture.id));
}

/// The timer of a new record, as the quick commands start it.
bool StartFromZero(Fixture& fixture) {
    fixture.timers.RunNewTimerAction();
    return fixture.timers.StartFromZero(fixture.id);
}

QJsonObject Start(Fixture& fixture) {
    if (!HasRecord(fixture)) return NoRecord(fixture);
    const bool started =
        fixture.fromZero ? StartFromZero(fixture) : fixture.timers.StartRecordTimer(fixture.id);
    return DoneIf(started, fixture, Text::TimerNotStarted);
}

QJsonObject Pause(Fixture& fixture) {
    if (!HasRecord(fixture)) return NoRecord(fixture);
    fixture.timers.FoldAndStore();
    return DoneIf(fixture.timers.PauseRecordTimer(fixture.id), fixture, Text::TimerNotRunning);
}

QJsonObject Stop(Fixture& fixture) {
    if (!HasRecord(fixture)) return NoRecord(fixture);
    fixture.timers.FoldAndStore();
    const bool hadTimer = fixture.timers.HasTimer(fixture.id);
    return DoneIf(fixture.timers.StopRecordTimer(fixture.id), fixture,
                  hadTimer ? Text::TimerNotStopped : Text::TimerNotThere);
}

QJsonObject StopAll(Fixture& fixture) {
    fixture.timers.FoldAndStore();
    return DoneIf(fixture.timers.StopAllTimers(), fixture, Text::TimersNotAllStopped);
}

QJsonObject PauseAll(Fixture& fixture) {
    fixture.timers.FoldAndStore();
    return DoneIf(fixture.timers.PauseAllTimers(), fixture, Text::TimersNotAllPaused);
}

QJsonObject Drop(Fixture& fixture) {
    if (!fixture.timers.HasTimer(fixture.id)) return Refusal(kNotFound, LoadText(Text::TimerNotThere));
    fixture.timers.Drop(fixture.id);
    return DoneIf(fixture.timers.StoreTimers(), fixture, Text::TimerNotThere);
}

QJsonObject Status(Fixture& fixture) {
    fixture.timers.FoldAndStore();
    return Done(fixture);
}

struct ActionRow {
    QLatin1String name;
    QJsonObject (*run)(Fixture& fixture);
};

constexpr ActionRow kActions[] = {
    {QLatin1String("start"), Start},        {QLatin1String("pause"), Pause},
    {QLatin1String("stop"), Stop},          {QLatin1String("stop-all"), StopAll},
    {QLatin1String("pause-all"), PauseAll}, {QLatin1String("status"), Status},
    {QLatin1String("drop"), Drop},
};

}  // namespace

QJsonObject RunTimerCommand(const QJsonObject& command, CRecordTimers& timers, CVelmarchDoc& document) {
    const QString action = command.value(QStringLiteral("action")).toString();
    Fixture fixture{command.value(QStringLiteral("id")).toString(),
                    command.value(QStringLiteral("fromZero")).toBool(), timers, document};
    for (const ActionRow& row : kActions)
        if (action == row.name) return row.run(fixture);
    return Refusal(kFailed, FormatText<Text::TimerActionUnknown>(action));
}
