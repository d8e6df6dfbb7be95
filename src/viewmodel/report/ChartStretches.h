#pragma once

#include "lang/Text.h"

#include <vector>

/// What a point of a line stands for.
enum class ChartStep { Day, Week, Month, Year };

/// Stretches of days that follow one another without a gap.
struct ChartStretches {
    ChartStep step = ChartStep::Day;
    std::vector<int> starts;  ///< day numbers, ascending
    int end = 0;              ///< the day behind the last stretch

    /// Which stretch a day lies in; it must lie in one.
    [[nodiscard]] std::size_t Of(int day) const;
    [[nodiscard]] int LastDayOf(std::size_t stretch) const;
};

/// All stretches from the one of a first day to that of a last one: days up to 60 of them, weeks up to 1,100
/// days, months up to 11,000, else years. firstDayOfWeek: 0 is Sunday.
[[nodiscard]] ChartStretches MakeStretches(int firstDay, int lastDay, int firstDayOfWeek);
