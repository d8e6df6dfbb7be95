#include "timers/ActiveTimer.h"

#include "calendar/CalendarMath.h"

namespace {

constexpr int kPerMinute = 60;
constexpr int kPerHour = 3600;

std::uint16_t Count(int value) {
    return static_cast<std::uint16_t>(value);
}

}  // namespace

void ActiveTimer::Begin(const CClock& clock, bool useInitial, std::uint16_t h, std::uint16_t m,
                        std::uint16_t s) {
    if (state != TimerState::Stopped && state != TimerState::Paused) return;
    if (state == TimerState::Stopped) {
        hours = useInitial ? h : Count(0);
        minutes = useInitial ? m : Count(0);
        seconds = useInitial ? s : Count(0);
        trueCount.Start(clock.GetStamp(), Seconds());
    } else {
        trueCount.Resume(clock.GetStamp());
    }
    lastUpdate = clock.GetLocalTime();
    state = TimerState::Running;
}

/// The clock is read twice, and the next fold starts from the second reading: the instant between the two is
/// lost, so that nothing is ever counted twice.
bool ActiveTimer::UpdateElapsed(const CClock& clock) {
    if (state != TimerState::Running) return true;
    trueCount.Fold(clock.GetStamp());
    const SYSTEMTIME now = clock.GetLocalTime();
    const ClockSpan passed = SecondsBetween(lastUpdate, now);
    lastUpdate = clock.GetLocalTime();
    if (!passed.known) return false;
    hours = Count(hours + passed.hours);
    AddMinutesToCount(passed.minutes);
    AddSecondsToCount(passed.seconds);
    return true;
}

/// 59 minutes and 2 more: 1 minute, and an hour.
void ActiveTimer::AddMinutesToCount(int m) {
    minutes = Count(minutes + m);
    if (minutes < kPerMinute) return;
    hours = Count(hours + minutes / kPerMinute);
    minutes = Count(minutes % kPerMinute);
}

/// 59 seconds and 2 more: 1 second, and a minute, which carries into the hours in its turn.
void ActiveTimer::AddSecondsToCount(int s) {
    seconds = Count(seconds + s);
    if (seconds < kPerMinute) return;
    const int fullHours = seconds / kPerHour;
    const int fullMinutes = seconds % kPerHour / kPerMinute;
    seconds = Count(seconds % kPerMinute);
    AddMinutesToCount(fullMinutes);
    hours = Count(hours + fullHours);
}
