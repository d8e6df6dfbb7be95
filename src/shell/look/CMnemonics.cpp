#include "shell/look/CMnemonics.h"

namespace {

QString Escaped(QString text) {
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

bool BeginsWord(const QString& text, qsizetype place) {
    return place == 0 || !text[place - 1].isLetterOrNumber();
}

/// The mark stands at the letter's best place: the beginning of a word, if it begins one.
QString Marked(const QString& text, QChar letter) {
    qsizetype best = -1;
    for (qsizetype i = text.size() - 1; i >= 0; --i)
        if (text[i].toUpper() == letter && (best < 0 || BeginsWord(text, i) || !BeginsWord(text, best)))
            best = i;
    if (best < 0) return Escaped(text);
    return Escaped(text.left(best)) + QLatin1Char('&') + Escaped(text.mid(best));
}

}  // namespace

/// First those that begin a word.
QList<QChar> CMnemonics::FreeLetters(const QString& text) const {
    QList<QChar> letters;
    for (const bool isInitial : {true, false}) {
        for (qsizetype i = 0; i < text.size(); ++i) {
            const QChar letter = text[i].toUpper();
            if (BeginsWord(text, i) == isInitial && letter.isLetterOrNumber() && !m_taken.contains(letter) &&
                !letters.contains(letter))
                letters.append(letter);
        }
    }
    return letters;
}

/// Gives the text a letter that is free, or one whose owner can take another instead.
bool CMnemonics::GiveLetter(const QString& text, Owners& owners, QString& tried) const {
    for (const QChar letter : FreeLetters(text)) {
        if (tried.contains(letter)) continue;
        tried.append(letter);
        const auto owner = owners.constFind(letter);
        if (owner != owners.constEnd() && !GiveLetter(QString(*owner), owners, tried)) continue;
        owners.insert(letter, text);
        return true;
    }
    return false;
}

void CMnemonics::Plan(const QStringList& texts) {
    Owners owners;
    for (const QString& text : texts) {
        QString tried;
        if (!GiveLetter(text, owners, tried)) m_planned.insert(text, Escaped(text));
    }
    for (auto owner = owners.constBegin(); owner != owners.constEnd(); ++owner) {
        m_planned.insert(owner.value(), Marked(owner.value(), owner.key()));
        m_taken.append(owner.key());
    }
}

QString CMnemonics::Give(const QString& text) {
    const auto planned = m_planned.constFind(text);
    if (planned != m_planned.constEnd()) return *planned;
    const QList<QChar> letters = FreeLetters(text);
    if (letters.isEmpty()) return Escaped(text);
    m_taken.append(letters.front());
    return Marked(text, letters.front());
}

QString CMnemonics::Take(const QString& markedText) {
    const qsizetype mark = markedText.indexOf(QLatin1Char('&'));
    if (mark >= 0 && mark + 1 < markedText.size()) m_taken.append(markedText[mark + 1].toUpper());
    return markedText;
}

QString CMnemonics::Plain(QString markedText) {
    return markedText.remove(QLatin1Char('&'));
}
