#include "shell/COptionsTree.h"

#include "shell/COptionsDelegate.h"

#include <QAccessible>

QModelIndexList COptionsTree::Rows() const {
    QModelIndexList rows;
    if (!model()) return rows;
    for (QModelIndex row = model()->index(0, 0, rootIndex()); row.isValid(); row = indexBelow(row))
        rows << row;
    return rows;
}

int COptionsTree::NumberOf(const QModelIndex& cell) const {
    const auto row = static_cast<int>(Rows().indexOf(cell.siblingAtColumn(0)));
    return row < 0 ? -1 : (row + 1) * model()->columnCount(rootIndex()) + cell.column();
}

void COptionsTree::Act(const QModelIndex& cell) {
    if (auto* delegate = qobject_cast<COptionsDelegate*>(itemDelegate())) delegate->Act(cell);
}

/// Qt itself is silent about the check boxes of a view.
void COptionsTree::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                               const QList<int>& roles) {
    QTreeView::dataChanged(topLeft, bottomRight, roles);
    if (!topLeft.data(Qt::CheckStateRole).isValid()) return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    event.setChild(NumberOf(topLeft));
    QAccessible::updateAccessibility(&event);
}
