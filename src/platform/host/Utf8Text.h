#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// The text that these bytes stand for, every character of it: QString::fromUtf8 takes a U+FEFF at the
/// beginning for the mark of a file, while in a value it is a character like any other. Bytes that are no
/// UTF-8 become U+FFFD.
[[nodiscard]] QString TextOfUtf8(QByteArrayView utf8);

/// The most bytes of UTF-8 that a 16-bit unit of a text takes.
inline constexpr qsizetype kMostUtf8PerUnit = 3;
/// Writes a text as UTF-8 to where there is room for it, kMostUtf8PerUnit for each unit; how many bytes it
/// took. Half a pair becomes a question mark, as everywhere.
[[nodiscard]] qsizetype WriteUtf8(QStringView text, char* out);
