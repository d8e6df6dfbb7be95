#include "entry/CodedText.h"

#include "app/PaymentKinds.h"
#include "lang/FormatText.h"

CodedText SplitCodedText(const QString& text) {
    const QString& prefix = LoadText(Text::CodedPrefix);
    const QString& separator = LoadText(Text::CodedSeparator);
    if (!text.startsWith(prefix)) return {};
    const qsizetype end = text.indexOf(separator, prefix.size());
    if (end < 0) return {};
    return {text.mid(prefix.size(), end - prefix.size()), text.mid(end + separator.size())};
}

QString JoinCodedText(const CodedText& parts) {
    if (parts.code.isEmpty() && parts.name.isEmpty()) return {};
    return FormatText<Text::CodedText>(parts.code, parts.name);
}

bool IsPlainText(const QString& text) {
    const CodedText parts = SplitCodedText(text);
    return !text.isEmpty() && parts.code.isEmpty() && parts.name.isEmpty();
}

QString ChangeCodedText(const QString& text, const CodedText& parts) {
    const QString joined = JoinCodedText(parts);
    return joined.isEmpty() && IsPlainText(text) ? text : joined;
}

QStringList PaymentTexts() {
    QStringList texts;
    for (const PaymentKind& kind : PaymentKinds())
        texts.append(FormatText<Text::CodePair>(LoadText(kind.code), LoadText(kind.name)));
    return texts;
}
