#include "shell/work/CElidedButton.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

constexpr int kMargin = 6;
constexpr int kLeastCharacters = 4;

}  // namespace

CElidedButton::CElidedButton(QWidget* parent) : QToolButton(parent) {
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize CElidedButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * kMargin + 2, QToolButton::sizeHint().height()};
}

QSize CElidedButton::minimumSizeHint() const {
    return {kLeastCharacters * fontMetrics().averageCharWidth() + 2 * kMargin,
            QToolButton::sizeHint().height()};
}

void CElidedButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const QRect place = rect().adjusted(kMargin, 0, -kMargin, 0);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    painter.drawItemText(place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                         QPalette::ButtonText);
}
