#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// The name of the system's code page, UTF-8 where the locale names none. From the environment, so the locale
/// need not be generated on this machine.
[[nodiscard]] QByteArray CodePageName();
/// 8-bit text of the system's code page (the locale's encoding) as text; bytes that mean nothing become
/// U+FFFD.
[[nodiscard]] QString FromCodePage(QByteArrayView bytes);
/// The reverse; characters that the code page lacks become a question mark.
[[nodiscard]] QByteArray ToCodePage(const QString& text);
