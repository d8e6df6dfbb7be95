#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

/// A sum worked out in 64 bits, brought back into an int: absurd dates and spans (a year typed with twelve
/// digits) end at the greatest or least int and never overflow.
[[nodiscard]] constexpr int Saturated(std::int64_t value) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}
