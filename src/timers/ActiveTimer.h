#pragma once

#include "app/CTimerService.h"
#include "platform/host/CClock.h"
#include "timers/TrueCount.h"

#include <QString>
#include <cstdint>

/// One timer: a count and the moment up to which it is good. Nothing ticks inside; a fold adds the time since
/// then, whether a second has passed or an hour.
class ActiveTimer {
 public:
    QString recordId;         ///< 32 characters in a stored entry
    std::uint16_t hours = 0;  ///< not limited to 24
    std::uint16_t minutes = 0;
    std::uint16_t seconds = 0;
    TimerState state = TimerState::Stopped;
    SYSTEMTIME lastUpdate;
    TrueCount trueCount;  ///< folded whenever the count is, and decides nothing of it

    /// Starts a stopped timer, from the three values or from zero, or resumes a paused one with its count:
    /// the time of the pause doesn't count. A running timer stays as it is.
    void Begin(const CClock& clock, bool useInitial, std::uint16_t h, std::uint16_t m, std::uint16_t s);
    /// Adds the time since the last fold. Only clock times count, not dates: 11:59:50 PM to 12:00:05 AM are
    /// 15 seconds. A clock set back adds nothing, and the count goes on from the new time; false then.
    bool UpdateElapsed(const CClock& clock);

    /// The count in seconds.
    [[nodiscard]] int Seconds() const { return (hours * 60 + minutes) * 60 + seconds; }

    /// What is stated of a timer: whether two are the same doesn't depend on what their true count is.
    bool operator==(const ActiveTimer& other) const {
        return recordId == other.recordId && hours == other.hours && minutes == other.minutes &&
               seconds == other.seconds && state == other.state && lastUpdate == other.lastUpdate;
    }

 private:
    void AddMinutesToCount(int m);
    void AddSecondsToCount(int s);
};
