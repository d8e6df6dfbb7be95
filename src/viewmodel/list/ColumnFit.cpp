#include "viewmodel/list/ColumnFit.h"

#include <algorithm>
#include <cstdint>

namespace {

using Part = int ColumnNeed::*;

std::int64_t SumAt(std::span<const ColumnNeed> needs, Part low, Part high, int level) {
    std::int64_t sum = 0;
    for (const ColumnNeed& need : needs) sum += std::clamp(level, need.*low, need.*high);
    return sum;
}

/// The greatest width to which all columns may go up without more room, as far as each wants to.
int LevelFor(std::span<const ColumnNeed> needs, Part low, Part high, int room) {
    int fits = 0, tooMuch = room + 1;
    while (tooMuch - fits > 1) {
        const int middle = fits + (tooMuch - fits) / 2;
        (SumAt(needs, low, high, middle) <= room ? fits : tooMuch) = middle;
    }
    return fits;
}

}  // namespace

std::vector<int> FitColumns(std::span<const ColumnNeed> needs, int room) {
    const bool hasAir = SumAt(needs, &ColumnNeed::content, &ColumnNeed::content, 0) <= room;
    const Part low = hasAir ? &ColumnNeed::content : &ColumnNeed::least;
    const Part high = hasAir ? &ColumnNeed::wanted : &ColumnNeed::content;
    const int level = LevelFor(needs, low, high, std::max(room, 0));
    std::vector<int> widths;
    for (const ColumnNeed& need : needs) widths.push_back(std::clamp(level, need.*low, need.*high));
    return widths;
}
