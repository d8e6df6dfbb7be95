#include "viewmodel/report/ChartAxis.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// A number that lies on a tick but for the last bits counts as lying on it: 0.3 / 0.1 is a little below 3.
constexpr double kTolerance = 1e-9;
/// The smallest and the largest steps that can be divided by and multiplied with.
constexpr int kLeastExponent = -290;
constexpr int kMostExponent = 290;
/// Beyond it a double holds every number itself.
constexpr double kMostTicks = 1e6;

ChartAxis Over(double low, double high, double step) {
    const double first = std::clamp(std::floor(low / step + kTolerance), -kMostTicks, 0.0);
    const double last = std::clamp(std::ceil(high / step - kTolerance), 0.0, kMostTicks);
    return {.step = step, .first = static_cast<int>(first), .last = static_cast<int>(last)};
}

/// 10 to a power; the negative ones by division, since 0.1 is nearer to 1 / 10 than a product comes.
double PowerOfTen(int exponent) {
    return exponent < 0 ? 1.0 / std::pow(10.0, -exponent) : std::pow(10.0, exponent);
}

int FirstExponent(double range, int places) {
    const int fitting = static_cast<int>(std::floor(std::log10(range))) - 2;
    return std::clamp(places < 0 ? fitting : std::max(fitting, -places), kLeastExponent, kMostExponent);
}

}  // namespace

std::vector<double> ChartAxis::Ticks() const {
    std::vector<double> ticks;
    for (int tick = first; tick <= last; ++tick) ticks.push_back(tick * step);
    return ticks;
}

ChartAxis MakeAxis(double low, double high, int most, int places) {
    low = std::min(low, 0.0);
    high = std::max(high, 0.0);
    if (low == high) return {};
    // Halves, since the whole range may be too large for a number.
    const double range = std::max(high / 2 - low / 2, PowerOfTen(kLeastExponent));
    const int least = low < 0 && high > 0 ? 3 : 2;
    for (int exponent = FirstExponent(range, places); exponent <= kMostExponent + 20; ++exponent) {
        for (const double digit : std::array{1.0, 2.0, 5.0}) {
            const ChartAxis axis = Over(low, high, digit * PowerOfTen(exponent));
            if (axis.last - axis.first < std::max(most, least)) return axis;
        }
    }
    return {};
}
