#include "changes/CTimersOfRecords.h"

#include "app/CTimerService.h"

QStringList COwnTimers::Timed(const QStringList& ids) {
    QStringList timed;
    for (const QString& id : ids)
        if (m_timers.HasTimer(id)) timed.append(id);
    return timed;
}

bool COwnTimers::Drop(const QStringList& ids) {
    bool isSaved = true;
    for (const QString& id : ids) isSaved = m_timers.Drop(id) && isSaved;
    return isSaved;
}
