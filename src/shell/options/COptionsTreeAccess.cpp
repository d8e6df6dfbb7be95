#include "shell/options/COptionsTreeAccess.h"

#include "shell/options/COptionAccess.h"
#include "shell/options/COptionsTree.h"

COptionsTreeAccess::COptionsTreeAccess(COptionsTree& tree)
    : QAccessibleWidget(&tree, QAccessible::Tree), m_tree(tree) {}

COptionsTreeAccess::~COptionsTreeAccess() {
    for (const QAccessible::Id id : std::as_const(m_known)) QAccessible::deleteAccessibleInterface(id);
}

int COptionsTreeAccess::childCount() const {
    if (!m_tree.model()) return 0;
    return (static_cast<int>(m_tree.Rows().size()) + 1) * m_tree.model()->columnCount();
}

QAccessibleInterface* COptionsTreeAccess::child(int number) const {
    if (!m_tree.model() || number < 0) return nullptr;
    const int columns = m_tree.model()->columnCount();
    const QModelIndexList rows = m_tree.Rows();
    const int row = number / columns - 1;
    return row < 0 || row >= rows.size() ? nullptr : AccessTo(rows[row].siblingAtColumn(number % columns));
}

/// Screen readers know a cell by a number of its own, so each is made once and kept.
QAccessibleInterface* COptionsTreeAccess::AccessTo(const QModelIndex& cell) const {
    if (!cell.isValid()) return nullptr;
    if (const auto known = m_known.constFind(cell); known != m_known.cend())
        return QAccessible::accessibleInterface(*known);
    ForgetWhatIsGone();
    auto* made = new COptionAccess(m_tree, cell);
    m_known.insert(cell, QAccessible::registerAccessibleInterface(made));
    return made;
}

/// A search takes rows away, and other ones come back.
void COptionsTreeAccess::ForgetWhatIsGone() const {
    m_known.removeIf([](const auto& known) {
        if (known.key().isValid()) return false;
        QAccessible::deleteAccessibleInterface(known.value());
        return true;
    });
}

int COptionsTreeAccess::indexOfChild(const QAccessibleInterface* child) const {
    const auto* option = dynamic_cast<const COptionAccess*>(child);
    return option ? m_tree.NumberOf(option->Cell()) : -1;
}

QAccessibleInterface* COptionsTreeAccess::childAt(int x, int y) const {
    return AccessTo(m_tree.indexAt(m_tree.viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* COptionsTreeAccess::focusChild() const {
    return m_tree.hasFocus() ? AccessTo(m_tree.currentIndex()) : nullptr;
}
