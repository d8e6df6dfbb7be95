#include "timers/TimerMerge.h"

#include "timers/ActiveTimerSet.h"

void MergeTimers(ActiveTimerSet& ours, const ActiveTimerSet& base, const ActiveTimerSet& theirs) {
    for (int i = 0; i < theirs.Count(); ++i) {
        const ActiveTimer& their = theirs.At(i);
        const ActiveTimer* former = base.Find(their.recordId);
        const ActiveTimer* own = ours.Find(their.recordId);
        const bool cameThere = !former && !own;
        const bool changedThereOnly = former && own && *own == *former;
        if (cameThere || changedThereOnly) ours.Put(their);
    }
    for (int i = 0; i < base.Count(); ++i) {
        const QString id = base.IdAt(i);
        if (!theirs.Find(id)) ours.Remove(ours.IndexOf(id));
    }
}
