#include "shell/look/PlainTip.h"

#include <QTextDocument>

QString PlainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()) : text;
}
