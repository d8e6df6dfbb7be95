#include "shell/look/PopupPlace.h"

#include <QKeyEvent>
#include <QScreen>
#include <QWidget>

namespace {

QPoint PlaceFor(const QWidget& popup, const QWidget& field) {
    const QRect room = field.screen()->availableGeometry();
    const QSize size = popup.sizeHint();
    QPoint place = field.mapToGlobal(QPoint(0, field.height()));
    if (place.y() + size.height() > room.bottom())
        place.setY(field.mapToGlobal(QPoint()).y() - size.height());
    place.setX(qMax(room.left(), qMin(place.x(), room.right() - size.width())));
    return place;
}

}  // namespace

void ShowPopup(QWidget& popup, const QWidget& field) {
    popup.setAttribute(Qt::WA_DeleteOnClose);
    popup.ensurePolished();
    popup.move(PlaceFor(popup, field));
    popup.show();
}

bool OpensPopup(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return (event.key() == Qt::Key_Down && modifiers == Qt::AltModifier) ||
           (event.key() == Qt::Key_F4 && modifiers == Qt::NoModifier);
}
