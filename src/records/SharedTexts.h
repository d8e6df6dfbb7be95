#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// Gives equal short texts one string in memory: dates, spans, items and rates repeat over a lifetime of
/// records. Longer texts (over 64 bytes) come back unshared. For the one thread of the program.
[[nodiscard]] QString SharedText(QByteArrayView utf8);
/// The same of a text, up to 32 units: fields of a line that is read.
[[nodiscard]] QString SharedText(QStringView text);
