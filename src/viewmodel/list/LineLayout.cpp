#include "viewmodel/list/LineLayout.h"

#include "config/ColumnTable.h"

#include <algorithm>

namespace {

constexpr int kGap = 2;

bool IsImageAmongLines(int column) {
    return IsImageColumn(column) && !IsNotesColumn(column);
}

}  // namespace

std::vector<ListLine> BuildLines(std::span<const int> visible, std::span<const int> breaks) {
    std::vector<ListLine> lines(1);
    std::size_t nextBreak = 0;
    for (std::size_t place = 0; place < visible.size(); ++place) {
        if (nextBreak < breaks.size() && static_cast<int>(place) == breaks[nextBreak]) {
            lines.emplace_back();
            ++nextBreak;
        }
        ListLine& line = lines.back();
        line.columns.push_back(visible[place]);
        ++(IsImageAmongLines(visible[place]) ? line.imageColumns : line.textColumns);
    }
    return lines;
}

std::vector<CellPlace> PlaceCells(const ListLine& line, int left, int lineWidth, int imageSize) {
    const auto columns = static_cast<double>(line.columns.size());
    const double shared =
        static_cast<double>(lineWidth) - imageSize * line.imageColumns - (kGap * columns - kGap);
    const int textWidth = line.textColumns > 0 ? std::max(0, static_cast<int>(shared / line.textColumns)) : 0;
    std::vector<CellPlace> places;
    places.reserve(line.columns.size());
    for (const int column : line.columns) {
        const bool isImage = IsImageAmongLines(column);
        const int width = isImage ? imageSize : textWidth;
        places.push_back({column, left, width, isImage});
        left += width + kGap;
    }
    return places;
}

LineGrid GridOf(std::span<const ListLine> lines) {
    LineGrid grid;
    for (const ListLine& line : lines) {
        grid.textColumns = std::max(grid.textColumns, line.textColumns);
        grid.imageColumns = std::max(grid.imageColumns, line.imageColumns);
    }
    return grid;
}

std::vector<CellPlace> PlaceCellsOnGrid(const ListLine& line, const LineGrid& grid, int left, int lineWidth,
                                        int imageSize) {
    const int textsEnd = left + std::max(0, lineWidth + kGap - grid.imageColumns * (imageSize + kGap));
    const int step = (textsEnd - left) / std::max(1, grid.textColumns);
    int texts = 0, imageLeft = textsEnd;
    std::vector<CellPlace> places;
    places.reserve(line.columns.size());
    for (const int column : line.columns) {
        if (IsImageAmongLines(column)) {
            places.push_back({column, imageLeft, imageSize, true});
            imageLeft += imageSize + kGap;
            continue;
        }
        const int textLeft = left + texts++ * step;
        const int end = texts == line.textColumns ? textsEnd : left + texts * step;
        places.push_back({column, textLeft, std::max(0, end - textLeft - kGap), false});
    }
    return places;
}

int LineColourNumber(int line) {
    for (const int number : {4, 3, 2})
        if (line % number == 0) return number;
    return 1;
}
