#pragma once

#include "timers/ActiveTimer.h"

#include <cstdint>
#include <optional>

/// What a stop writes into the record: the count by clock readings, or the time that has truly passed.
enum class CountBy { Clock, TrueTime };

/// A count by clock readings that isn't what has truly passed, in seconds.
struct TimeDifference {
    std::int64_t counted = 0;
    std::int64_t passed = 0;
};

/// How the two counts of a timer differ; nothing below a minute, or without a true count. 4:00:00 counted in
/// the night in which the clock is set forward, 3:00:00 passed: a difference. 4:00:00 and 4:00:59: none.
[[nodiscard]] std::optional<TimeDifference> DifferenceOf(std::int64_t counted,
                                                         std::optional<std::int64_t> passed);
/// The same, as of the timer's last fold.
[[nodiscard]] inline std::optional<TimeDifference> DifferenceOf(const ActiveTimer& timer) {
    return DifferenceOf(timer.Seconds(), timer.trueCount.Seconds());
}
