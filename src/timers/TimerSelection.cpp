#include "timers/TimerSelection.h"

#include "app/RecordMode.h"
#include "timers/CRecordTimers.h"

namespace {

TimerOutcome Apply(const QString& id, TimerAction action, CRecordTimers& timers) {
    if (action == TimerAction::Stop) return timers.StopRecordTimer(id);
    return action == TimerAction::Start ? timers.StartRecordTimer(id) : timers.PauseRecordTimer(id);
}

bool IsFailure(const TimerOutcome& outcome) {
    return outcome.end == TimerOutcome::End::NotInRecord || outcome.end == TimerOutcome::End::NotSaved;
}

}  // namespace

TimerOutcome ApplyToSelection(const QStringList& recordIds, TimerAction action, CRecordTimers& timers) {
    TimerOutcome all;
    if (theRecordMode != RecordMode::Time || recordIds.isEmpty()) return all;
    if (action != TimerAction::Start) timers.FoldAndStore();
    for (const QString& id : recordIds) {
        const TimerOutcome outcome = Apply(id, action, timers);
        if (all && IsFailure(outcome)) all = outcome;
    }
    return all;
}
