#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/pages/CPageImage.h"

/// One entry of a page of a tree, with what of it lies in pages of its own.
struct TreeCell {
    std::int64_t rowId = 0;  ///< only in tables with numbers of rows
    QByteArray payload;
    std::vector<PageNumber> overflow;
};

/// A page of a tree as far as it can be read.
struct TreePage {
    bool isOfTable = false;  ///< of a table with numbers of rows; otherwise of an index or a table with a key
    bool isWhole = true;     ///< false: an entry of it can't be read
    std::vector<PageNumber> children;  ///< in their order
    std::vector<TreeCell> cells;
};

/// Nothing when the page is none of a tree.
[[nodiscard]] std::optional<TreePage> ReadTreePage(const CPageImage& image, PageNumber page);
