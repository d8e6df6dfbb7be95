#pragma once

#include <vector>

/// A scale with ticks at round numbers. It starts and ends at a tick, and 0 is one of them.
struct ChartAxis {
    double step = 1.0;  ///< 1, 2 or 5 times a power of ten
    int first = 0;      ///< the lowest tick, in steps from 0
    int last = 1;       ///< the highest one

    [[nodiscard]] double Low() const { return first * step; }
    [[nodiscard]] double High() const { return last * step; }
    /// Where a number lies: 0 at the lowest tick, 1 at the highest.
    [[nodiscard]] double Share(double number) const { return (number / step - first) / (last - first); }
    /// The numbers at the ticks, ascending.
    [[nodiscard]] std::vector<double> Ticks() const;
};

/// The finest scale over the numbers from low to high, and 0, with at most `most` ticks; never fewer than
/// two, three with 0 between them. With decimal places the step isn't finer than the last of them, so that no
/// two ticks read alike; below 0 there is no such bound. 0 to 7.3 with at most 5 ticks: 0, 2, 4, 6, 8.
[[nodiscard]] ChartAxis MakeAxis(double low, double high, int most, int places);
