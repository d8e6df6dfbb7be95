#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

struct RawText {
    QByteArray utf8;
    bool operator==(const RawText&) const = default;
};
struct RawBlob {
    QByteArray bytes;
    bool operator==(const RawBlob&) const = default;
};

/// A value as a database file holds it; empty for NULL.
using RawValue = std::variant<std::monostate, std::int64_t, double, RawText, RawBlob>;
using RawRow = std::vector<RawValue>;

/// The values of a row from its bytes; nothing unless every byte has its place in them and every text is
/// UTF-8, so that bytes of another kind are hardly ever taken for a row.
[[nodiscard]] std::optional<RawRow> ReadRowBytes(QByteArrayView bytes);

/// A number of 1 to 9 bytes as the file format writes it; moves on behind it. Nothing where it is cut off.
[[nodiscard]] std::optional<std::uint64_t> ReadVarint(QByteArrayView bytes, qsizetype& at);
