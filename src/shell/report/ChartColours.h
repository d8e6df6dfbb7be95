#pragma once

#include <QColor>
#include <array>

/// The colours of a chart. Each stands out from its paper by a contrast of 3 to 1 or more, and what is told
/// apart by a colour is told apart without it as well: by its place, its word, its dashes, its marker.
struct ChartColours {
    QColor ink;
    QColor grid;                  ///< fine lines behind the values, fainter than all else
    QColor zero;                  ///< the line at 0
    QColor below;                 ///< bars below 0
    QColor other;                 ///< what stands for several groups
    std::array<QColor, 5> lines;  ///< the first is also that of the bars
};

/// For a light or a dark paper.
[[nodiscard]] ChartColours MakeChartColours(const QColor& paper, const QColor& ink);
