#pragma once

#include <QString>

/// What a timer is doing. Stored as these numbers.
enum class TimerState : int {
    Stopped = 0,  ///< only for the instant of a start or a stop
    Paused = 1,
    Running = 2,
    Unused = 3,
    None = 4  ///< answer of a lookup that found no timer
};

/// What filters and rules of entry need of the timers, without knowing the timer set.
class CTimerService {
 public:
    virtual ~CTimerService() = default;
    [[nodiscard]] virtual TimerState StateOf(const QString& recordId) const = 0;
    /// Runs what the setting timerOnNewTimer says over all timers (0 nothing, 1 pause the running ones, 2
    /// stop all). False when it failed or could not be saved.
    [[nodiscard]] virtual bool RunNewTimerAction() = 0;
    /// A timer from zero for a record that may not be in the document yet. False when it runs but could not
    /// be saved.
    [[nodiscard]] virtual bool StartFromZero(const QString& recordId) = 0;
    /// Takes a timer out without a fold and without touching a record. False when it could not be saved.
    [[nodiscard]] virtual bool Drop(const QString& recordId) = 0;
    /// The record of a timer that was started for it in advance is in the store now: the timer is saved from
    /// here on. False when it could not be.
    [[nodiscard]] virtual bool Keep(const QString&) { return true; }

    [[nodiscard]] bool HasTimer(const QString& recordId) const {
        return StateOf(recordId) != TimerState::None;
    }
};
