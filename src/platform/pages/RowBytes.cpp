#include "platform/pages/RowBytes.h"

#include <QtEndian>
#include <bit>

namespace {

/// What the file format calls serial types.
constexpr std::uint64_t kReal = 7;
constexpr std::uint64_t kZero = 8;
constexpr std::uint64_t kOne = 9;
constexpr std::uint64_t kFirstBytes = 12;  ///< even: a blob, odd: a text

constexpr qsizetype kIntegerBytes[] = {0, 1, 2, 3, 4, 6, 8};

/// How many bytes a value takes; nothing for a type that no file has.
std::optional<qsizetype> SizeOf(std::uint64_t type, qsizetype most) {
    if (type < std::size(kIntegerBytes)) return kIntegerBytes[type];
    if (type == kReal) return 8;
    if (type == kZero || type == kOne) return 0;
    if (type < kFirstBytes) return std::nullopt;
    const std::uint64_t size = (type - kFirstBytes) / 2;
    if (size > static_cast<std::uint64_t>(most)) return std::nullopt;
    return static_cast<qsizetype>(size);
}

std::int64_t IntegerOf(QByteArrayView bytes) {
    std::uint64_t value = (static_cast<unsigned char>(bytes[0]) & 0x80U) != 0 ? ~std::uint64_t{0} : 0;
    for (const char byte : bytes) value = (value << 8U) | static_cast<unsigned char>(byte);
    return static_cast<std::int64_t>(value);
}

std::optional<RawValue> ValueOf(std::uint64_t type, QByteArrayView bytes) {
    if (type == 0) return RawValue();
    if (type == kZero || type == kOne) return RawValue(std::int64_t{type == kOne ? 1 : 0});
    if (type == kReal) return RawValue(std::bit_cast<double>(qFromBigEndian<std::uint64_t>(bytes.data())));
    if (type < kReal) return RawValue(IntegerOf(bytes));
    if (type % 2 == 0) return RawValue(RawBlob{bytes.toByteArray()});
    if (!bytes.isValidUtf8()) return std::nullopt;
    return RawValue(RawText{bytes.toByteArray()});
}

}  // namespace

std::optional<std::uint64_t> ReadVarint(QByteArrayView bytes, qsizetype& at) {
    std::uint64_t value = 0;
    for (int i = 0; i < 9; ++i) {
        if (at >= bytes.size()) return std::nullopt;
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        if (i == 8) return (value << 8U) | byte;
        value = (value << 7U) | (byte & 0x7FU);
        if ((byte & 0x80U) == 0) break;
    }
    return value;
}

std::optional<RawRow> ReadRowBytes(QByteArrayView bytes) {
    qsizetype at = 0;
    const auto header = ReadVarint(bytes, at);
    if (!header || *header < 2 || *header > static_cast<std::uint64_t>(bytes.size())) return std::nullopt;
    const auto bodyAt = static_cast<qsizetype>(*header);
    const QByteArrayView types = bytes.first(bodyAt);
    qsizetype valueAt = bodyAt;
    RawRow row;
    while (at < bodyAt) {
        const auto type = ReadVarint(types, at);
        const auto size = type ? SizeOf(*type, bytes.size() - valueAt) : std::nullopt;
        if (!size || *size > bytes.size() - valueAt) return std::nullopt;
        auto value = ValueOf(*type, bytes.sliced(valueAt, *size));
        if (!value) return std::nullopt;
        row.push_back(std::move(*value));
        valueAt += *size;
    }
    if (valueAt != bytes.size()) return std::nullopt;
    return row;
}
