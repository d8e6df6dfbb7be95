#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <random>

/// So many different texts of 1 to 40 characters, the same for the same seed: letters in both cases, what
/// means something to a path, a statement, a pattern or a format, letters with marks of their own, other
/// scripts, emoji. Some differ in nothing but case or blanks.
inline QStringList RandomTexts(int count, unsigned seed) {
    static const QStringList kPieces = [] {
        QStringList pieces{QStringLiteral("\u0301"), QStringLiteral("\u00df"),     QStringLiteral("\u0130"),
                           QStringLiteral("\u65e5"), QStringLiteral("\U0001F4C5"), QStringLiteral("\u202e"),
                           QStringLiteral("a\u0308")};
        for (const char letter : QByteArrayView("aAbBxX019 /\\'\"%_*?;:.-[]{}&<>\t\n"))
            pieces.append(QString(QLatin1Char(letter)));
        return pieces;
    }();
    std::mt19937 random(seed);
    const auto pick = [&random](qsizetype below) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(below));
    };
    QSet<QString> seen;
    QStringList texts;
    while (texts.size() < count) {
        QString text;
        for (qsizetype length = 1 + pick(40); length > 0; --length) text += kPieces[pick(kPieces.size())];
        if (seen.contains(text)) continue;
        seen.insert(text);
        texts.append(text);
    }
    return texts;
}
