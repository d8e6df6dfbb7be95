#pragma once

#include <QTimer>
#include <functional>
#include <utility>

class ActiveTimerSet;
class CRecordListModel;

/// The list's clock: ticks once a second while any timer runs, and only then. A tick folds the timers of the
/// rows in sight and has their counts shown; rows out of sight catch up at their next fold.
class CTimerTicker final : public QObject {
    Q_OBJECT

 public:
    /// First and last row in sight; last below first when there are none.
    using Sight = std::function<std::pair<int, int>()>;
    CTimerTicker(ActiveTimerSet& timers, CRecordListModel& model, Sight sight, QObject* parent = nullptr);

    /// Starts or stops as the timers say; after every change of them.
    void Reconsider();
    [[nodiscard]] bool IsTicking() const { return m_timer.isActive(); }
    void Tick();

 private:
    ActiveTimerSet& m_timers;
    CRecordListModel& m_model;
    Sight m_sight;
    QTimer m_timer{this};
};
