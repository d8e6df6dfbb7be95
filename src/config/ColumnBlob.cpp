#include "config/ColumnBlob.h"

#include "records/ByteStream.h"
#include "records/GuardedBlock.h"
#include "records/RunPack.h"

#include <QtEndian>
#include <algorithm>

namespace {

constexpr qsizetype kRowSize = 45;
constexpr qsizetype kVisibleAt = 32;
constexpr qsizetype kWidthAt = 33;
constexpr qsizetype kPositionAt = 37;
constexpr qsizetype kKindAt = 41;
constexpr qsizetype kRowsSize = kRowSize * Column::kCount;
constexpr qsizetype kNumberSize = 4;
static_assert(kVisibleAt == 2 * ColumnEntry::kCaptionUnits && kKindAt + kNumberSize == kRowSize);

// --- Writing

void PutRow(const ColumnEntry& entry, char* row) {
    const qsizetype units = std::min(entry.caption.size(), ColumnEntry::kCaptionUnits);
    qToLittleEndian<char16_t>(entry.caption.utf16(), units, row);
    row[kVisibleAt] = static_cast<char>(entry.visible);
    qToLittleEndian(entry.width, row + kWidthAt);
    qToLittleEndian(entry.position, row + kPositionAt);
    qToLittleEndian(entry.kind, row + kKindAt);
}

void AppendNumber(QByteArray& bytes, std::int32_t number) {
    char raw[kNumberSize];
    qToLittleEndian(number, raw);
    bytes.append(raw, kNumberSize);
}

void AppendBreaks(QByteArray& bytes, const std::vector<std::int32_t>& breaks) {
    AppendNumber(bytes, static_cast<std::int32_t>(breaks.size()));
    for (const std::int32_t place : breaks) AppendNumber(bytes, place);
}

QByteArray PlainBytes(const ColumnPayload& payload) {
    QByteArray plain(kRowsSize, '\0');
    for (std::size_t i = 0; i < payload.entries.size(); ++i)
        PutRow(payload.entries[i], plain.data() + kRowSize * static_cast<qsizetype>(i));
    AppendBreaks(plain, payload.timeBreaks);
    AppendBreaks(plain, payload.expenseBreaks);
    return plain;
}

// --- Reading

/// The row's units up to the first zero.
QString CaptionOf(const char* row) {
    QString caption(ColumnEntry::kCaptionUnits, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(row, caption.size(), caption.data());
    const qsizetype end = caption.indexOf(QChar(u'\0'));
    return end < 0 ? caption : caption.left(end);
}

ColumnEntry RowFrom(const char* row) {
    ColumnEntry entry;
    entry.caption = CaptionOf(row);
    entry.visible = static_cast<std::uint8_t>(row[kVisibleAt]);
    entry.width = qFromLittleEndian<std::int32_t>(row + kWidthAt);
    entry.position = qFromLittleEndian<std::int32_t>(row + kPositionAt);
    entry.kind = qFromLittleEndian<std::int32_t>(row + kKindAt);
    return entry;
}

/// Takes a number and so many breaks from the front of the bytes. False when they don't hold as many.
bool TakeBreaks(QByteArrayView& rest, std::vector<std::int32_t>& breaks) {
    if (rest.size() < kNumberSize) return false;
    const auto count = qsizetype{qFromLittleEndian<std::int32_t>(rest.data())};
    rest = rest.sliced(kNumberSize);
    if (count < 0 || count > rest.size() / kNumberSize) return false;
    breaks.resize(static_cast<std::size_t>(count));
    if (count > 0) qFromLittleEndian<std::int32_t>(rest.data(), count, breaks.data());
    rest = rest.sliced(count * kNumberSize);
    return true;
}

std::optional<ColumnPayload> PayloadFrom(QByteArrayView plain) {
    if (plain.size() < kRowsSize) return std::nullopt;
    ColumnPayload payload;
    for (std::size_t i = 0; i < payload.entries.size(); ++i) {
        payload.entries[i] = RowFrom(plain.data() + kRowSize * static_cast<qsizetype>(i));
        if (payload.entries[i].caption.isEmpty() || payload.entries[i].width == 0) return std::nullopt;
    }
    QByteArrayView rest = plain.sliced(kRowsSize);
    if (!TakeBreaks(rest, payload.timeBreaks) || !TakeBreaks(rest, payload.expenseBreaks))
        return std::nullopt;
    return payload;
}

}  // namespace

std::optional<QByteArray> ColumnBlobOf(const ColumnPayload& payload) {
    const QByteArray plain = PlainBytes(payload);
    if (plain.size() > kMostColumnBytes) return std::nullopt;
    ByteStream stream;
    stream.PutBuffer(Guarded(RunPack(plain)));
    return stream.Release();
}

std::optional<ColumnPayload> ColumnsFromBlob(const QByteArray& blob) {
    ByteStream stream;
    stream.Attach(blob);
    QByteArray guarded, packed;
    if (!stream.GetBuffer(guarded) || Unguard(guarded, packed) != BlockState::Sound) return std::nullopt;
    const std::optional<QByteArray> plain = RunUnpack(packed, kMostColumnBytes);
    return plain ? PayloadFrom(*plain) : std::nullopt;
}

bool IsEmptyColumnBlob(const QByteArray& blob) {
    ByteStream empty;
    empty.PutBuffer({});
    return blob.startsWith(empty.Buffer());
}
