#pragma once

#include <span>
#include <vector>

/// One line of a record in the layout of several lines.
struct ListLine {
    std::vector<int> columns;  ///< in order
    int textColumns = 0;
    int imageColumns = 0;
};

/// Where a column lies in its line, in pixels.
struct CellPlace {
    int column;
    int left;
    int width;
    bool isImage;
};

/// Divides the visible columns into lines. breaks: places in the visible order, from 0 and ascending, before
/// which a new line starts. One that isn't met exactly in its turn stops all later ones:
/// nine columns with 5, 7, 9 make lines of 5, 2 and 2; with 7, 5 they make lines of 7 and 2.
[[nodiscard]] std::vector<ListLine> BuildLines(std::span<const int> visible, std::span<const int> breaks);

/// Places the columns of a line from the left. An image takes imageSize pixels; the texts share the rest
/// evenly; 2 pixels of gap stand behind each column.
[[nodiscard]] std::vector<CellPlace> PlaceCells(const ListLine& line, int left, int lineWidth, int imageSize);

/// What all lines of a record have room for.
struct LineGrid {
    int textColumns = 0;  ///< of the line that has the most
    int imageColumns = 0;
};
[[nodiscard]] LineGrid GridOf(std::span<const ListLine> lines);
/// The same on a grid, so that texts of one line stand below those of the other: each line has as many
/// columns as the one with the most texts, its last text takes the columns that are left, and the images
/// stand at the right end, below each other.
[[nodiscard]] std::vector<CellPlace> PlaceCellsOnGrid(const ListLine& line, const LineGrid& grid, int left,
                                                      int lineWidth, int imageSize);

/// Which of the four line colours a line takes, counted from 1: 4 for every fourth line, else 3 for every
/// third, else 2 for every second, else 1. So line 5 takes colour 1 and line 6 colour 3.
[[nodiscard]] int LineColourNumber(int line);
