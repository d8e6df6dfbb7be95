#include "shell/CElidedLabel.h"

#include <QPainter>
#include <QStyle>

CElidedLabel::CElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CElidedLabel::SetFullText(const QString& text, const QString& tip) {
    m_full = text;
    setText(text);
    setToolTip((tip.isEmpty() ? text : tip).toHtmlEscaped());
    setAccessibleDescription(tip.isEmpty() ? text : tip);
    updateGeometry();
}

QSize CElidedLabel::sizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(m_full) + 2, metrics.height()};
}

QSize CElidedLabel::minimumSizeHint() const {
    return {0, QFontMetrics(font()).height()};
}

void CElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(m_full, Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                          foregroundRole());
}
