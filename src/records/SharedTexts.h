#pragma once

#include <QByteArrayView>
#include <QString>

/// Gives equal short texts one string in memory: dates, spans, items and rates repeat over a lifetime of
/// records. Longer texts (over 64 bytes) come back unshared. For the one thread of the program.
[[nodiscard]] QString SharedText(QByteArrayView utf8);
