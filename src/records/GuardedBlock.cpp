#include "records/GuardedBlock.h"

#include <QCryptographicHash>
#include <algorithm>

namespace {

constexpr qsizetype kDigestSize = 16;

QByteArray Md5(QByteArrayView bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

bool IsDigit(QChar c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
}

}  // namespace

QByteArray Guarded(QByteArrayView content) {
    return Md5(content).append(content);
}

BlockState Unguard(QByteArrayView block, QByteArray& content) {
    if (block.size() < kDigestSize) return BlockState::TooShort;
    const QByteArrayView guarded = block.sliced(kDigestSize);
    if (QByteArrayView(Md5(guarded)) != block.first(kDigestSize)) return BlockState::BadDigest;
    content = guarded.toByteArray();
    return BlockState::Sound;
}

QString BlockText(QByteArrayView content) {
    return QString::fromLatin1(Guarded(content).toHex().toUpper());
}

BlockState ReadBlockText(const QString& text, QByteArray& content) {
    if (text.size() % 2 != 0 || !std::ranges::all_of(text, IsDigit)) return BlockState::BadEncoding;
    return Unguard(QByteArray::fromHex(text.toLatin1()), content);
}
