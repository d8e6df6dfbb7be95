#include "shell/CMnemonics.h"

QString CMnemonics::Give(const QString& text) {
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
