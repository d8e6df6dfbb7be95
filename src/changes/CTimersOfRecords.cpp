#include "changes/CTimersOfRecords.h"

#include "timers/CRecordTimers.h"
#include "timers/TimerImage.h"

QStringList COwnTimers::Timed(const QStringList& ids) {
    QStringList timed;
    for (const QString& id : ids)
        if (m_timers.HasTimer(id)) timed.append(id);
    return timed;
}

/// Without timers no record is looked at: there may be a million of them.
QHash<QString, QByteArray> COwnTimers::Images(const QStringList& ids) {
    QHash<QString, QByteArray> images;
    const ActiveTimerSet& set = m_timers.Set();
    for (const QString& id : set.Count() > 0 ? ids : QStringList())
        if (const ActiveTimer* timer = set.Find(id)) images.insert(id, TimerImageOf(*timer, set.Clock()));
    return images;
}

bool COwnTimers::Drop(const QStringList& ids) {
    bool isSaved = true;
    for (const QString& id : ids) isSaved = m_timers.Drop(id) && isSaved;
    return isSaved;
}

bool COwnTimers::PutBack(const QString& id, const QByteArray& image) {
    const auto timer = TimerOfImage(image, id, m_timers.Set().Clock());
    return timer && m_timers.PutBack(*timer);
}
