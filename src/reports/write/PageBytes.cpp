#include "reports/write/PageBytes.h"

#include "platform/host/CodePage.h"

using namespace Qt::Literals::StringLiterals;

namespace {

bool IsUtf8(const QByteArray& codePage) {
    return codePage == "UTF-8" || codePage == "UTF8";
}

}  // namespace

CPageEncoder::CPageEncoder() : m_codePage(CodePageName()), m_encoder(m_codePage) {}

QByteArray CPageEncoder::Encode(const QString& piece) {
    if (IsUtf8(m_codePage) || !m_encoder.IsOpen()) return piece.toUtf8();
    if (std::exchange(m_isBehindHead, true)) return m_encoder.Encode(piece);
    QString head = piece;
    const QString declared = u"charset=\"utf-8\""_s;
    const qsizetype place = head.indexOf(declared);
    if (place >= 0)
        head.replace(place, declared.size(),
                     u"charset=\"%1\""_s.arg(QString::fromLatin1(m_codePage).toLower()));
    return m_encoder.Encode(head);
}

qint64 CountLostCharacters(const QString& page) {
    CPageEncoder encoder;
    (void)encoder.Encode(page);
    return encoder.LostCount();
}
