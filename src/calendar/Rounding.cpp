#include "calendar/NumberText.h"
#include "calendar/Saturated.h"

#include <cmath>

namespace {

/// Adds half a unit of the place behind the last one, away from zero.
template <class Number>
Number AwayFromZero(Number shifted, Number value) {
    return value < 0 ? shifted - 5 : shifted + 5;
}

/// Whether the value is the single-precision number nearest to a decimal of so many places, as 65536.0234375
/// is for 65536.02.
bool IsRounded(float value, double power) {
    return static_cast<float>(std::round(static_cast<double>(value) * power) / power) == value;
}

/// Minutes that are a multiple of the divisor, by the bits of the type; minutes as they are for another type.
std::int64_t RoundedMinutes(std::int64_t minutes, int divisor, int roundType) {
    const std::int64_t rest = minutes % divisor;
    const std::int64_t down = minutes - rest;
    if ((roundType & static_cast<int>(RoundType::Expansion)) != 0) return down + divisor;
    if ((roundType & static_cast<int>(RoundType::Nearest)) != 0)
        return rest > divisor / 2 ? down + divisor : down;
    return minutes;
}

}  // namespace

/// Shifts one place further than wanted, adds half, cuts the digit: 1.005 at 2 goes by way of 1005, 1010 and
/// 101 to 1.01. Every step is in single precision, as the results of many years are. A value that can't be
/// shifted (infinite, or too large) has nothing to round and stays. -0.004 at 2 is a plain zero, not "-0.00".
///
/// A value that is rounded already stays as it is: from 65536.02 at 2 on, single precision can't hold the
/// shifted value, and each further round would lead further away (100000 to 100000.06, then to 100000.03).
float RoundDecimal(float value, int precision) {
    const double power = std::pow(10.0, precision);
    if (IsRounded(value, power)) return value + 0.0F;
    const auto shift = static_cast<float>(std::pow(10.0, precision + 1.0));
    const float tenths = AwayFromZero(value * shift, value);
    const auto rounded = static_cast<float>(std::trunc(tenths * 0.1F) / power);
    return std::isfinite(rounded) ? rounded + 0.0F : value;
}

double RoundDecimalWide(double value, int precision) {
    const double tenths = AwayFromZero(value * std::pow(10.0, precision + 1.0), value);
    const double rounded = std::trunc(tenths / 10.0) / std::pow(10.0, precision);
    return std::isfinite(rounded) ? rounded + 0.0 : value;
}

void RoundMinutes(int& hours, int& minutes, int divisor, int roundType, bool* pmFlag) {
    if (divisor < 1 || divisor > 59 || minutes % divisor == 0) return;
    const std::int64_t rounded = RoundedMinutes(minutes, divisor, roundType);
    if (rounded < 60) {
        minutes = static_cast<int>(rounded);
        return;
    }
    const int oldHours = hours;
    hours = Saturated(hours + rounded / 60);
    minutes = static_cast<int>(rounded % 60);
    if (!pmFlag) return;
    if (oldHours < 12 && hours >= 12) *pmFlag = !*pmFlag;
    if (hours > 12) hours -= 12;
}
