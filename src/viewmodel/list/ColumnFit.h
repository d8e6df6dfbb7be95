#pragma once

#include <span>
#include <vector>

/// Between which widths a column's is chosen, in pixels, none below the one before it. A width that the user
/// has chosen is all three.
struct ColumnNeed {
    int least = 0;    ///< below this nothing can be read
    int content = 0;  ///< all that stands in it can be read
    int wanted = 0;   ///< with air
};

/// The widths of columns side by side. What the room lacks is taken from the air first, then from the widest;
/// no column is cut while another has air. Where even the least widths need more room, they are taken.
/// Room 300 for contents of 60, 200 and 100 that can be cut to 50: 60, 140 and 100.
[[nodiscard]] std::vector<int> FitColumns(std::span<const ColumnNeed> needs, int room);
