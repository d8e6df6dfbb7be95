#include "reports/definition/FieldListBytes.h"

#include "reports/definition/ReportFields.h"

#include <QtEndian>
#include <cstdint>

namespace {

constexpr qsizetype kWord = 4;

void Append(QByteArray& bytes, std::int32_t number) {
    char word[kWord];
    qToLittleEndian(number, word);
    bytes.append(word, kWord);
}

std::int32_t WordAt(const QByteArray& bytes, qsizetype place) {
    return qFromLittleEndian<std::int32_t>(bytes.constData() + place * kWord);
}

/// How many elements of so many words stand behind the count; none where the size isn't that of the count. A
/// count near the end of its range is one of 64 bits here, so that no product with it starts again at 0.
qsizetype CountOf(const QByteArray* bytes, qsizetype words) {
    if (!bytes || bytes->size() < kWord) return 0;
    const auto count = qsizetype{qFromLittleEndian<std::uint32_t>(bytes->constData())};
    return bytes->size() == kWord * (1 + words * count) ? count : 0;
}

}  // namespace

QByteArray ToBytes(const QList<FieldId>& fields) {
    QByteArray bytes;
    Append(bytes, static_cast<std::int32_t>(fields.size()));
    for (const FieldId field : fields) Append(bytes, NumberOf(field));
    return bytes;
}

QByteArray ToBytes(const QList<SortKey>& keys) {
    QByteArray bytes;
    Append(bytes, static_cast<std::int32_t>(keys.size()));
    for (const SortKey& key : keys) {
        Append(bytes, NumberOf(key.fieldId));
        Append(bytes, key.direction);
    }
    return bytes;
}

QList<FieldId> FieldsOfBytes(const QByteArray* bytes) {
    QList<FieldId> fields;
    const qsizetype count = CountOf(bytes, 1);
    for (qsizetype i = 0; i < count; ++i) {
        const auto field = static_cast<FieldId>(WordAt(*bytes, 1 + i));
        if (IsReportField(field)) fields.append(field);
    }
    return fields;
}

QList<SortKey> SortKeysOfBytes(const QByteArray* bytes) {
    QList<SortKey> keys;
    const qsizetype count = CountOf(bytes, 2);
    for (qsizetype i = 0; i < count; ++i) {
        const auto field = static_cast<FieldId>(WordAt(*bytes, 1 + 2 * i));
        if (IsReportField(field)) keys.append({field, WordAt(*bytes, 2 + 2 * i)});
    }
    return keys;
}
