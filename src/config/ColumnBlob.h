#pragma once

#include "config/ColumnEntry.h"
#include "config/ColumnTable.h"

#include <QByteArray>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

/// What is stored of a set of columns.
struct ColumnPayload {
    std::array<ColumnEntry, Column::kCount> entries;
    std::vector<std::int32_t> timeBreaks;
    std::vector<std::int32_t> expenseBreaks;

    bool operator==(const ColumnPayload&) const = default;
};

/// The greatest number of bytes before packing. A sound set has 1562; more breaks than fit into this are no
/// set, and a small blob can't unpack to a huge one.
inline constexpr qsizetype kMostColumnBytes = 65536;

/// The stored form, as docs/columns.md describes it: 34 rows and both lists of breaks, packed, guarded by
/// an MD5 digest (RFC 1321), as the one buffer of a byte stream. Nothing for a set that could not be read
/// back.
[[nodiscard]] std::optional<QByteArray> ColumnBlobOf(const ColumnPayload& payload);
/// The reverse. Nothing for bytes that are no such blob, damaged, or that hold a row with an empty caption or
/// a width of 0. Everything else comes as it stands: positions are the set's matter.
[[nodiscard]] std::optional<ColumnPayload> ColumnsFromBlob(const QByteArray& blob);
/// Whether it is a stored value without content: its one item has no bytes.
[[nodiscard]] bool IsEmptyColumnBlob(const QByteArray& blob);
