#pragma once

#include <QString>
#include <cstdint>

class ActiveTimer;
struct SpanField;

/// The count of a timer, "01:30:00".
[[nodiscard]] QString TimerCountText(const ActiveTimer& timer);
[[nodiscard]] QString TimerCountText(std::int64_t seconds);

/// A time in hours and minutes, seconds dropped: "1:30".
[[nodiscard]] QString HoursText(std::int64_t seconds);

/// What the record dialog shows as duration: the count of a running or paused timer, otherwise hours and
/// minutes of the duration ("01:30"), "--:--" when it isn't set. timer: null without one.
[[nodiscard]] QString LiveDurationText(const ActiveTimer* timer, const SpanField& duration);
