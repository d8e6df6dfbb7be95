#include "shell/core/TimerCommands.h"

#include "app/CVelmarchDoc.h"
#include "timers/CRecordTimers.h"

namespace {

bool Apply(const QString& id, TimerAction action, CRecordTimers& timers) {
    switch (action) {
        case TimerAction::Stop:
            return timers.StopRecordTimer(id);
        case TimerAction::Start:
            return timers.StartRecordTimer(id);
        case TimerAction::Pause:
            return timers.PauseRecordTimer(id);
    }
    return false;
}

Hint HintOf(TimerAction action) {
    return action == TimerAction::Stop    ? Hint::TimerStopped
           : action == TimerAction::Start ? Hint::TimerStarted
                                          : Hint::TimerPaused;
}

QStringList IdsIn(const ActiveTimerSet& set, bool pausedToo) {
    QStringList ids;
    for (int i = 0; i < set.Count(); ++i)
        if (set.StateAt(i) == TimerState::Running || (pausedToo && set.StateAt(i) == TimerState::Paused))
            ids.append(set.IdAt(i));
    return ids;
}

}  // namespace

void ApplyToSelection(const QStringList& ids, TimerAction action, CRecordTimers& timers,
                      CVelmarchDoc& document) {
    timers.FoldAndStore();
    for (const QString& id : ids)
        if (Apply(id, action, timers)) document.NotifyViews(HintOf(action), {id});
}

void StopAllTimers(CRecordTimers& timers, CVelmarchDoc& document) {
    timers.FoldAndStore();
    const QStringList ids = IdsIn(timers.Set(), true);
    timers.StopAllTimers();
    document.NotifyViews(Hint::TimerStopped, ids);
}

void PauseAllTimers(CRecordTimers& timers, CVelmarchDoc& document) {
    timers.FoldAndStore();
    const QStringList ids = IdsIn(timers.Set(), false);
    timers.PauseAllTimers();
    document.NotifyViews(Hint::TimerPaused, ids);
}
