#include "shell/controls/CFlowLayout.h"

#include <algorithm>

CFlowLayout::~CFlowLayout() = default;

void CFlowLayout::addItem(QLayoutItem* item) {
    m_items.emplace_back(item);
    invalidate();
}

QLayoutItem* CFlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* CFlowLayout::takeAt(int index) {
    if (!itemAt(index)) return nullptr;
    QLayoutItem* taken = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    invalidate();
    return taken;
}

std::vector<QRect> CFlowLayout::PlacesIn(const QRect& inside) const {
    std::vector<QRect> places;
    int x = inside.x(), y = inside.y(), bottom = y;
    for (const auto& item : m_items) {
        const QSize hint = item->sizeHint();
        const QSize size(std::min(hint.width(), std::max(inside.width(), 1)), hint.height());
        if (x > inside.x() && x + size.width() > inside.x() + inside.width()) {
            x = inside.x();
            y = bottom + spacing();
        }
        places.emplace_back(QPoint(x, y), size);
        x += size.width() + spacing();
        bottom = std::max(bottom, y + size.height());
    }
    return places;
}

int CFlowLayout::heightForWidth(int width) const {
    const QMargins edges = contentsMargins();
    const std::vector<QRect> places = PlacesIn(QRect(0, 0, width - edges.left() - edges.right(), 0));
    int height = 0;
    for (const QRect& place : places) height = std::max(height, place.y() + place.height());
    return height + edges.top() + edges.bottom();
}

/// Wide enough for a few letters, high enough for a row.
QSize CFlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : m_items) size = size.expandedTo(QSize(1, item->sizeHint().height()));
    const QMargins edges = contentsMargins();
    return size + QSize(edges.left() + edges.right(), edges.top() + edges.bottom());
}

void CFlowLayout::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const std::vector<QRect> places = PlacesIn(place.marginsRemoved(contentsMargins()));
    for (std::size_t i = 0; i < places.size(); ++i) m_items[i]->setGeometry(places[i]);
}
