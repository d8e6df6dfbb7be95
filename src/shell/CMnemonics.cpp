#include "shell/CMnemonics.h"

#include <algorithm>

void CMnemonics::Plan(QStringList texts) {
    while (!texts.isEmpty()) {
        const auto scarcest = std::min_element(
            texts.begin(), texts.end(),
            [this](const QString& a, const QString& b) { return FreeLetters(a) < FreeLetters(b); });
        m_planned.insert(*scarcest, Mark(*scarcest));
        texts.erase(scarcest);
    }
}

/// How many different letters of a text are free.
qsizetype CMnemonics::FreeLetters(const QString& text) const {
    QString free;
    for (const QChar letter : text.toUpper())
        if (letter.isLetterOrNumber() && !m_taken.contains(letter) && !free.contains(letter))
            free.append(letter);
    return free.size();
}

QString CMnemonics::Give(const QString& text) {
    const auto planned = m_planned.constFind(text);
    return planned == m_planned.constEnd() ? Mark(text) : *planned;
}

QString CMnemonics::Take(const QString& markedText) {
    const qsizetype mark = markedText.indexOf(QLatin1Char('&'));
    if (mark >= 0 && mark + 1 < markedText.size()) m_taken.append(markedText[mark + 1].toUpper());
    return markedText;
}

QString CMnemonics::Plain(QString markedText) {
    return markedText.remove(QLatin1Char('&'));
}

QString CMnemonics::Mark(const QString& text) {
    const int place = FreePlace(text);
    QString result = text.left(place < 0 ? text.size() : place);
    result.replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (place < 0) return result;
    m_taken.append(text[place].toUpper());
    QString rest = text.mid(place);
    return result + QLatin1Char('&') + rest.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

int CMnemonics::FreePlace(const QString& text) const {
    const auto isFree = [this, &text](int i) {
        return text[i].isLetterOrNumber() && !m_taken.contains(text[i].toUpper());
    };
    const int size = static_cast<int>(text.size());
    for (int i = 0; i < size; ++i)
        if (isFree(i) && (i == 0 || !text[i - 1].isLetterOrNumber())) return i;
    for (int i = 0; i < size; ++i)
        if (isFree(i)) return i;
    return -1;
}
