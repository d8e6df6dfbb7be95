#pragma once

#include <cstdint>

/// One reading of the clock in local time: eight unsigned 16-bit fields. Day of week: 0 is Sunday. Hour: 0
/// to 23.
struct SYSTEMTIME {
    std::uint16_t wYear = 0;
    std::uint16_t wMonth = 0;
    std::uint16_t wDayOfWeek = 0;
    std::uint16_t wDay = 0;
    std::uint16_t wHour = 0;
    std::uint16_t wMinute = 0;
    std::uint16_t wSecond = 0;
    std::uint16_t wMilliseconds = 0;

    bool operator==(const SYSTEMTIME&) const = default;
};
static_assert(sizeof(SYSTEMTIME) == 16, "stored timers hold the clock value as 16 bytes");
