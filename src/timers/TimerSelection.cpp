#include "timers/TimerSelection.h"

#include "app/RecordMode.h"
#include "timers/CRecordTimers.h"

void ApplyToSelection(const QStringList& recordIds, TimerAction action, CRecordTimers& timers) {
    if (theRecordMode != RecordMode::Time || recordIds.isEmpty()) return;
    if (action != TimerAction::Start) timers.FoldAndStore();
    for (const QString& id : recordIds) {
        if (action == TimerAction::Stop) timers.StopRecordTimer(id);
        if (action == TimerAction::Start) timers.StartRecordTimer(id);
        if (action == TimerAction::Pause) timers.PauseRecordTimer(id);
    }
}
