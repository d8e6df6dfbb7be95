#include "config/FontRecord.h"

#include <QtEndian>
#include <cstddef>

namespace {

constexpr int kHeightAt = 0;
constexpr int kWeightAt = 16;
constexpr int kItalicAt = 20;
constexpr int kFaceAt = 28;
constexpr int kFaceUnits = 32;
static_assert(kFaceAt + kFaceUnits * 2 == FontRecord::kSize);

}  // namespace

QByteArray FontRecord::ToBytes() const {
    QByteArray bytes(kSize, '\0');
    char* data = bytes.data();
    qToLittleEndian(tenthsOfPoint, data + kHeightAt);
    qToLittleEndian(weight, data + kWeightAt);
    data[kItalicAt] = italic ? 1 : 0;
    const QString name = face.left(kFaceUnits - 1);
    for (qsizetype i = 0; i < name.size(); ++i)
        qToLittleEndian(name.at(i).unicode(), data + kFaceAt + std::ptrdiff_t{2} * i);
    return bytes;
}

bool FontRecord::FromBytes(const QByteArray& bytes, FontRecord& out) {
    if (bytes.size() != kSize) return false;
    const char* data = bytes.constData();
    FontRecord font;
    font.tenthsOfPoint = qFromLittleEndian<std::int32_t>(data + kHeightAt);
    font.weight = qFromLittleEndian<std::int32_t>(data + kWeightAt);
    font.italic = data[kItalicAt] == 1;
    if (font.tenthsOfPoint < 10 || font.tenthsOfPoint > 10000 || font.weight < 1 || font.weight > 1000)
        return false;
    for (int i = 0; i < kFaceUnits; ++i) {
        const QChar unit(qFromLittleEndian<char16_t>(data + kFaceAt + std::ptrdiff_t{2} * i));
        if (unit.isNull()) break;
        font.face.append(unit);
    }
    out = font;
    return true;
}
