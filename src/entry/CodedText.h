#pragma once

#include <QString>
#include <QStringList>

/// A text made of a code and a name: "[4711] Acme" is the code 4711 with the name Acme.
struct CodedText {
    QString code;
    QString name;
};

/// Both parts empty for a text that doesn't begin with the prefix or lacks the separator: "Acme", "[4711]".
/// The first separator counts, so a code can't contain one.
[[nodiscard]] CodedText SplitCodedText(const QString& text);
/// Empty when both parts are.
[[nodiscard]] QString JoinCodedText(const CodedText& parts);

/// Whether a text has neither code nor name, and isn't empty.
[[nodiscard]] bool IsPlainText(const QString& text);
/// The text once its parts were edited. A plain text has none, and stays as it is while they are left empty:
/// it would be gone otherwise though nobody touched it.
[[nodiscard]] QString ChangeCodedText(const QString& text, const CodedText& parts);

/// The 19 kinds of payment as they are offered for the fourth item of an expense: "CA: Cash".
[[nodiscard]] QStringList PaymentTexts();
