#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

/// A font as the settings keep it: exactly 92 bytes, little-endian.
///
///     offset  0   4 bytes   height in tenths of a point, 10 to 10,000
///             4  12 bytes   zero
///            16   4 bytes   weight, 1 to 1000 (400 normal, 700 bold)
///            20   1 byte    1 italic, 0 upright
///            21   7 bytes   zero
///            28  64 bytes   face as 32 UTF-16 units, the rest of them zero; 31 at most are used
struct FontRecord {
    std::int32_t tenthsOfPoint = 85;
    std::int32_t weight = 400;
    bool italic = false;
    QString face;

    static constexpr int kSize = 92;

    [[nodiscard]] QByteArray ToBytes() const;
    /// False, and the target as it was, for another size or a height or weight that no font has.
    [[nodiscard]] static bool FromBytes(const QByteArray& bytes, FontRecord& out);

    bool operator==(const FontRecord&) const = default;
};
