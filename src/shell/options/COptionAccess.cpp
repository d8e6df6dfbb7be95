#include "shell/options/COptionAccess.h"

#include "shell/options/COptionsModel.h"
#include "shell/options/COptionsTree.h"

COptionAccess::COptionAccess(COptionsTree& tree, const QModelIndex& cell) : m_tree(&tree), m_cell(cell) {}

bool COptionAccess::isValid() const {
    return m_tree && m_cell.isValid();
}

QWindow* COptionAccess::window() const {
    return m_tree ? m_tree->window()->windowHandle() : nullptr;
}

QAccessibleInterface* COptionAccess::parent() const {
    return QAccessible::queryAccessibleInterface(m_tree.data());
}

bool COptionAccess::IsCheckable() const {
    return m_cell.data(Qt::CheckStateRole).isValid();
}

bool COptionAccess::IsRadio() const {
    return IsCheckable() && m_cell.data(COptionsModel::RadioRole).isValid();
}

bool COptionAccess::IsEditable() const {
    return m_cell.flags() & Qt::ItemIsEditable;
}

/// "Week numbers: ISO" for a value, the words of its row for all else.
QString COptionAccess::text(QAccessible::Text kind) const {
    if (!isValid() || kind != QAccessible::Name) return {};
    const QString told = m_cell.data(Qt::AccessibleTextRole).toString();
    return told.isEmpty() ? m_cell.data().toString() : told;
}

QRect COptionAccess::rect() const {
    if (!isValid()) return {};
    const QRect place = m_tree->visualRect(m_cell);
    return {m_tree->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::Role COptionAccess::role() const {
    if (m_cell.column() != 0) return QAccessible::Cell;
    if (IsRadio()) return QAccessible::RadioButton;
    return IsCheckable() ? QAccessible::CheckBox : QAccessible::TreeItem;
}

QAccessible::State COptionAccess::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const bool isCursor = m_tree->currentIndex() == m_cell;
    state.focusable = state.selectable = m_cell.column() == 0 || IsEditable();
    state.focused = isCursor && m_tree->hasFocus();
    state.selected = m_tree->selectionModel()->isSelected(m_cell);
    state.checkable = IsCheckable();
    state.checked = m_cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    state.expandable = m_cell.column() == 0 && m_tree->model()->hasChildren(m_cell);
    state.expanded = state.expandable && m_tree->isExpanded(m_cell);
    state.collapsed = state.expandable && !m_tree->isExpanded(m_cell);
    state.invisible = !m_tree->isVisible();
    state.offscreen = !m_tree->viewport()->rect().intersects(m_tree->visualRect(m_cell));
    return state;
}

void* COptionAccess::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList COptionAccess::actionNames() const {
    if (!isValid()) return {};
    if (IsCheckable()) return {IsRadio() ? pressAction() : toggleAction(), setFocusAction()};
    return IsEditable() ? QStringList{pressAction(), setFocusAction()} : QStringList{setFocusAction()};
}

void COptionAccess::doAction(const QString& name) {
    if (!actionNames().contains(name)) return;
    if (name != setFocusAction()) return m_tree->Act(m_cell);
    m_tree->setFocus(Qt::OtherFocusReason);
    m_tree->setCurrentIndex(m_cell);
}
