#include "platform/host/Utf8Text.h"

QString TextOfUtf8(QByteArrayView utf8) {
    constexpr QByteArrayView kMark("\xEF\xBB\xBF");
    if (!utf8.startsWith(kMark)) return QString::fromUtf8(utf8);
    qsizetype marks = 1;
    while (utf8.sliced(marks * kMark.size()).startsWith(kMark)) ++marks;
    return QString(marks, QChar(QChar::ByteOrderMark)) + QString::fromUtf8(utf8.sliced(marks * kMark.size()));
}
