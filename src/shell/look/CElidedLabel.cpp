#include "shell/look/CElidedLabel.h"

#include "lang/FormatText.h"

#include <QPainter>
#include <QStyle>

CElidedLabel::CElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CElidedLabel::SetCaption(const QString& caption) {
    m_caption = caption;
    setAccessibleName(caption);
}

void CElidedLabel::SetFullText(const QString& text, const QString& tip) {
    m_full = text;
    setText(text);
    setToolTip((tip.isEmpty() ? text : tip).toHtmlEscaped());
    const QString& told = tip.isEmpty() ? text : tip;
    if (m_caption.isEmpty())
        setAccessibleName(told);
    else
        setAccessibleName(told.isEmpty() ? m_caption : FormatText<Text::RecordInWords>(m_caption, told));
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
