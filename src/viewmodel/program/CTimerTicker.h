#pragma once

#include <QTimer>
#include <functional>
#include <utility>
#include <vector>

class ActiveTimerSet;
class CRecordListModel;

/// The list's clock: ticks once a second while any timer runs, and only then. A tick folds the timers of the
/// rows in sight and has their counts shown; rows out of sight catch up at their next fold.
class CTimerTicker final : public QObject {
    Q_OBJECT

 public:
    /// The rows of the list in sight.
    using Sight = std::function<std::vector<int>()>;
    CTimerTicker(ActiveTimerSet& timers, CRecordListModel& model, Sight sight, QObject* parent = nullptr);

    /// Starts or stops as the timers say; after every change of them.
    void Reconsider();
    [[nodiscard]] bool IsTicking() const { return m_timer.isActive(); }
    void Tick();

 Q_SIGNALS:
    /// A second has passed while a timer runs, in whatever mode.
    void Ticked();

 private:
    void TickList();

    ActiveTimerSet& m_timers;
    CRecordListModel& m_model;
    Sight m_sight;
    QTimer m_timer{this};
};
