#pragma once

#include "platform/host/TextCoder.h"

#include <QByteArray>
#include <QString>

/// Makes the bytes of a page piece by piece, in the system's code page. The page says in its head which one
/// that is: browsers would read another one.
class CPageEncoder {
 public:
    CPageEncoder();
    /// A piece ends at the end of a character, the first one behind the head.
    [[nodiscard]] QByteArray Encode(const QString& piece);
    /// How many characters the code page lacks; a question mark stands for each.
    [[nodiscard]] qint64 LostCount() const { return m_encoder.ReplacedCount(); }

 private:
    QByteArray m_codePage;
    CTextEncoder m_encoder;
    bool m_isBehindHead = false;
};

/// How many characters of a page the system's code page lacks, to be known before it is saved.
[[nodiscard]] qint64 CountLostCharacters(const QString& page);
