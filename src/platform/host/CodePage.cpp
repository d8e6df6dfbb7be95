#include "platform/host/CodePage.h"

#include "platform/host/TextCoder.h"
#include "platform/host/Utf8Text.h"

namespace {

bool IsUtf8(const QByteArray& encoding) {
    return encoding == "UTF-8" || encoding == "UTF8";
}

}  // namespace

/// As in LANG=de_DE.ISO-8859-1.
QByteArray CodePageName() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const QByteArray name = qgetenv(variable);
        if (name.isEmpty()) continue;
        const qsizetype dot = name.indexOf('.');
        if (dot < 0) return "UTF-8";
        const qsizetype modifier = name.indexOf('@', dot);
        return name.mid(dot + 1, modifier < 0 ? -1 : modifier - dot - 1).toUpper();
    }
    return "UTF-8";
}

QString FromCodePage(QByteArrayView bytes) {
    const QByteArray encoding = CodePageName();
    CTextDecoder decoder(encoding, CTextDecoder::Meaningless::Replaced);
    if (IsUtf8(encoding) || !decoder.IsOpen()) return TextOfUtf8(bytes);
    QString text;
    // What means nothing is replaced, so neither can fail.
    static_cast<void>(decoder.Decode(bytes, text));
    static_cast<void>(decoder.Finish(text));
    return text;
}

QByteArray ToCodePage(const QString& text) {
    const QByteArray encoding = CodePageName();
    CTextEncoder encoder(encoding);
    return IsUtf8(encoding) || !encoder.IsOpen() ? text.toUtf8() : encoder.Encode(text);
}
