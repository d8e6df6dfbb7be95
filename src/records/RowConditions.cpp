#include "records/RowConditions.h"

#include "lang/FormatText.h"
#include "platform/host/Utf8Text.h"
#include "records/QuoteText.h"

#include <QStringList>

namespace {

/// Whether the store sees the same characters as the program: a zero ends a text there, and what is no
/// character is another one here.
bool IsSameInStore(const QString& text) {
    return !text.contains(QChar::Null) && !text.contains(QChar::ReplacementCharacter) &&
           TextOfUtf8(text.toUtf8()) == text;
}

QString Exact(const QString& column, const TextCondition& condition) {
    const QString wanted = QuoteText(condition.wanted);
    return condition.isWhole ? FormatText<Text::SqlIsText>(column, wanted)
                             : FormatText<Text::SqlHoldsText>(column, wanted);
}

/// The store's lower() folds what lower-case letters of English have capitals for, which is all that there is
/// to fold in a text of as many bytes as characters. Any other text may come out as wanted: "İ" holds an "i".
QString Folded(const QString& column, const TextCondition& condition) {
    TextCondition folded = condition;
    folded.wanted = condition.wanted.toLower();
    const QString lower = FormatText<Text::SqlLowerCase>(column);
    return FormatText<Text::SqlOrNotEnglish>(Exact(lower, folded), column, column);
}

}  // namespace

QString RowConditions::Where() const {
    QStringList conditions;
    if (days)
        conditions.append(FormatText<Text::SqlBetweenDays>(days->first.year, days->first.month,
                                                           days->first.day, days->last.year, days->last.month,
                                                           days->last.day));
    for (const TextCondition& text : texts) {
        // An empty text is held by a missing one too.
        if (text.wanted.isEmpty() || !IsSameInStore(text.wanted)) continue;
        const QString column = LoadText(text.column);
        conditions.append(text.isExact ? Exact(column, text) : Folded(column, text));
    }
    if (conditions.isEmpty()) return {};
    return LoadText(Text::SqlWhere) + conditions.join(LoadText(Text::SqlAnd));
}
