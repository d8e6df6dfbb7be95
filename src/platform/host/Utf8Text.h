#pragma once

#include <QByteArrayView>
#include <QString>

/// The text that these bytes stand for, every character of it: QString::fromUtf8 takes a U+FEFF at the
/// beginning for the mark of a file, while in a value it is a character like any other. Bytes that are no
/// UTF-8 become U+FFFD.
[[nodiscard]] QString TextOfUtf8(QByteArrayView utf8);
