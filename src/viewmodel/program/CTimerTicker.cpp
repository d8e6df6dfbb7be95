#include "viewmodel/program/CTimerTicker.h"

#include "app/RecordMode.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"

namespace {
constexpr int kPeriodMs = 1000;
}

CTimerTicker::CTimerTicker(ActiveTimerSet& timers, CRecordListModel& model, Sight sight, QObject* parent)
    : QObject(parent), m_timers(timers), m_model(model), m_sight(std::move(sight)) {
    m_timer.setInterval(kPeriodMs);
    connect(&m_timer, &QTimer::timeout, this, &CTimerTicker::Tick);
}

void CTimerTicker::Reconsider() {
    if (!m_timers.AnyRunning())
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start();
}

void CTimerTicker::Tick() {
    if (theRecordMode == RecordMode::Time) TickList();
    Q_EMIT Ticked();
}

void CTimerTicker::TickList() {
    for (const int row : m_sight()) {
        if (row < 0 || row >= m_model.rowCount()) continue;
        ActiveTimer* timer = m_timers.Find(m_model.IdAt(row));
        if (timer && timer->UpdateElapsed(m_timers.Clock())) m_model.TouchTimers(row, row);
    }
}
