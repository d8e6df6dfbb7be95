#pragma once

#include "calendar/DateTimeVal.h"

#include <optional>

class QTimeZone;

/// The zone of this machine, as it was at the start of the program.
[[nodiscard]] const QTimeZone& LocalZone();

/// Whether times of day that follow one another lie on two days: 22:00 and 06:00, but not 09:00 and 17:00.
[[nodiscard]] bool GoesPastMidnight(const DateTimeVal& start, const DateTimeVal& end);

/// The minutes that truly pass from one time of day to the next other one, the first on the date of `start`.
/// 22:00 to 06:00 are 480, and 420 in the night in which the clocks are set forward. Nothing for times or a
/// date that aren't set.
[[nodiscard]] std::optional<int> MinutesPassed(const DateTimeVal& start, const DateTimeVal& end,
                                               const QTimeZone& zone);
