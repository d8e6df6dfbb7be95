#include "timers/GoneRecords.h"

#include "app/CVelmarchDoc.h"
#include "timers/ActiveTimerSet.h"

QStringList GoneRecords(const ActiveTimerSet& timers, CVelmarchDoc& document) {
    QStringList gone;
    for (int index = 0; index < timers.Count(); ++index) {
        const QString id = timers.IdAt(index);
        if (!document.FetchRecord(RecordKind::Time, id) && document.Store().m_lastError == 0) gone += id;
    }
    return gone;
}
