#include "records/QuoteText.h"

QString QuoteText(const QString& text) {
    QString inner = text;
    inner.replace(u'\'', QStringLiteral("''"));
    if (!inner.contains(QChar::Null)) return u'\'' + inner + u'\'';
    // A statement ends at a null character, so it is put in by its number.
    inner.replace(QChar::Null, QStringLiteral("'||char(0)||'"));
    return QStringLiteral("('") + inner + QStringLiteral("')");
}
