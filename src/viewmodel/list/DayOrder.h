#pragma once

#include "calendar/CalendarMath.h"

#include <cstdint>

/// A day as a number: a later day has the greater one, and no day has 0.
[[nodiscard]] constexpr std::uint32_t DayOrder(int year, int month, int day) {
    return static_cast<std::uint32_t>((year * 16 + month) * 32 + day);
}

/// The day of such a number.
[[nodiscard]] constexpr CalendarDay DayOfNumber(std::uint32_t order) {
    return {.month = static_cast<int>(order / 32 % 16),
            .day = static_cast<int>(order % 32),
            .year = static_cast<int>(order / 512)};
}
