#pragma once

#include <cstddef>
#include <optional>
#include <vector>

class CPageLayout;

/// What stands on a sheet of paper: a stretch of the layout, from top to bottom.
struct Sheet {
    double from = 0;
    double to = 0;
    double shownTo = 0;                 ///< lines that end above this stood on the sheet before
    std::optional<std::size_t> headOf;  ///< the item whose first row stands once more above the stretch
    double headHeight = 0;
};

/// Parts a layout into sheets of a height. Nothing is cut in half: neither a line nor a row nor a picture.
/// The first row of a table that names its columns stands on each sheet again, and never alone. A row that is
/// higher than a sheet is parted between its lines.
[[nodiscard]] std::vector<Sheet> SheetsOf(const CPageLayout& layout, double height);
