#include "platform/host/Utf8Text.h"

#include <algorithm>

namespace {

/// In two plain loops, which the compiler makes wide ones of: most texts are.
bool IsAscii(QStringView text) {
    char16_t bits = 0;
    for (const QChar unit : text) bits = static_cast<char16_t>(bits | unit.unicode());
    return bits < 0x80;
}

}  // namespace

QString TextOfUtf8(QByteArrayView utf8) {
    constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    if (!utf8.startsWith(kMark)) return QString::fromUtf8(utf8);
    qsizetype marks = 1;
    while (utf8.sliced(marks * kMark.size()).startsWith(kMark)) ++marks;
    return QString(marks, QChar(QChar::ByteOrderMark)) + QString::fromUtf8(utf8.sliced(marks * kMark.size()));
}

qsizetype WriteUtf8(QStringView text, char* out) {
    if (IsAscii(text)) {
        std::ranges::transform(text, out, [](QChar unit) { return static_cast<char>(unit.unicode()); });
        return text.size();
    }
    const QByteArray utf8 = text.toUtf8();
    std::ranges::copy(utf8, out);
    return utf8.size();
}
