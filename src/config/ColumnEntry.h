#pragma once

#include <QString>
#include <cstdint>

/// One column of a set. Stored with the set, 45 bytes each.
struct ColumnEntry {
    static constexpr qsizetype kCaptionUnits = 16;

    QString caption;  ///< at most 16 UTF-16 units
    std::uint8_t visible = 0;
    std::int32_t width = 0;     ///< pixels
    std::int32_t position = 0;  ///< from 1 among the visible columns of its half; 0 when hidden
    std::int32_t kind = 1;      ///< a ColumnKind; 1: unknown

    bool operator==(const ColumnEntry&) const = default;
};
