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
struct Scene {
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

QJsonObject Done(Scene& scene) {
    QJsonArray all;
    const ActiveTimerSet& set = scene.timers.Set();
    for (int i = 0; i < set.Count(); ++i) all.append(TimerJson(set.At(i), set.Clock()));
    return {{QStringLiteral("ok"), true}, {QStringLiteral("timers"), all}};
}

/// A failure may come from saving the timers, whatever was done to them: trying once more tells, and costs
/// nothing when they are saved.
QJsonObject DoneIf(bool succeeded, Scene& scene, Text failure) {
    if (succeeded) return Done(scene);
    if (!scene.timers.StoreTimers())
        return Refusal(kFailed,
                       FormatText<Text::TimersNotSaved>(scene.document.GetSettings().Tree().Error()));
    return Refusal(kFailed, LoadText(failure));
}

bool HasRecord(Scene& scene) {
    return scene.document.FetchRecord(RecordKind::Time, scene.id) != nullptr;
}

QJsonObject NoRecord(const Scene& scene) {
    return Refusal(kNotFound, FormatText<Text::TimerRecordUnknown>(scene.id));
}

/// The timer of a new record, as the quick commands start it.
bool StartFromZero(Scene& scene) {
    scene.timers.RunNewTimerAction();
    return scene.timers.StartFromZero(scene.id);
}

QJsonObject Start(Scene& scene) {
    if (!HasRecord(scene)) return NoRecord(scene);
    const bool started = scene.fromZero ? StartFromZero(scene) : scene.timers.StartRecordTimer(scene.id);
    return DoneIf(started, scene, Text::TimerNotStarted);
}

QJsonObject Pause(Scene& scene) {
    if (!HasRecord(scene)) return NoRecord(scene);
    scene.timers.FoldAndStore();
    return DoneIf(scene.timers.PauseRecordTimer(scene.id), scene, Text::TimerNotRunning);
}

QJsonObject Stop(Scene& scene) {
    if (!HasRecord(scene)) return NoRecord(scene);
    scene.timers.FoldAndStore();
    const bool hadTimer = scene.timers.HasTimer(scene.id);
    return DoneIf(scene.timers.StopRecordTimer(scene.id), scene,
                  hadTimer ? Text::TimerNotStopped : Text::TimerNotThere);
}

QJsonObject StopAll(Scene& scene) {
    scene.timers.FoldAndStore();
    return DoneIf(scene.timers.StopAllTimers(), scene, Text::TimersNotAllStopped);
}

QJsonObject PauseAll(Scene& scene) {
    scene.timers.FoldAndStore();
    return DoneIf(scene.timers.PauseAllTimers(), scene, Text::TimersNotAllPaused);
}

QJsonObject Drop(Scene& scene) {
    if (!scene.timers.HasTimer(scene.id)) return Refusal(kNotFound, LoadText(Text::TimerNotThere));
    scene.timers.Drop(scene.id);
    return DoneIf(scene.timers.StoreTimers(), scene, Text::TimerNotThere);
}

QJsonObject Status(Scene& scene) {
    scene.timers.FoldAndStore();
    return Done(scene);
}

struct ActionRow {
    QLatin1String name;
    QJsonObject (*run)(Scene& scene);
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
    Scene scene{command.value(QStringLiteral("id")).toString(),
                command.value(QStringLiteral("fromZero")).toBool(), timers, document};
    for (const ActionRow& row : kActions)
        if (action == row.name) return row.run(scene);
    return Refusal(kFailed, FormatText<Text::TimerActionUnknown>(action));
}
