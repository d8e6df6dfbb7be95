#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Bytes with their MD5 digest (RFC 1321) in front, and the same as a text of upper-case hexadecimal digits.
/// A block of nothing is the digest of nothing.
enum class BlockState {
    Sound,
    BadEncoding,  ///< another character than the sixteen digits, or an odd number of them
    TooShort,     ///< less than a digest
    BadDigest     ///< the digest is another one's
};

[[nodiscard]] QByteArray Guarded(QByteArrayView content);
/// The content of a sound block; untouched otherwise.
[[nodiscard]] BlockState Unguard(QByteArrayView block, QByteArray& content);

[[nodiscard]] QString BlockText(QByteArrayView content);
[[nodiscard]] BlockState ReadBlockText(const QString& text, QByteArray& content);
