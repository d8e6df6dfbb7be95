#include "shell/options/COptionsTree.h"

#include "shell/options/COptionsDelegate.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSpinBox>

COptionsTree::COptionsTree(QWidget* parent) : QTreeView(parent) {}

/// The editor comes once the move is done with: the tree may still have to scroll to the row.
void COptionsTree::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    const bool isSameRow = current.siblingAtColumn(0) == previous.siblingAtColumn(0);
    if (!isSameRow) CloseEditor();
    QTreeView::currentChanged(current, previous);
    if (!isSameRow) QMetaObject::invokeMethod(this, &COptionsTree::OpenEditor, Qt::QueuedConnection);
}

void COptionsTree::OpenEditor() {
    const QModelIndex value = currentIndex().siblingAtColumn(1);
    if (m_edited.isValid() || !(value.flags() & Qt::ItemIsEditable)) return;
    m_edited = value;
    openPersistentEditor(value);
    // Selected digits would look as if they were typed over already.
    if (auto* digits = indexWidget(value)->findChild<QLineEdit*>()) digits->deselect();
}

void COptionsTree::EnterEditor(const QModelIndex& valueIndex) {
    setCurrentIndex(valueIndex);
    OpenEditor();
    QWidget* editor = indexWidget(m_edited);
    if (!editor) return;
    editor->setFocus();
    if (auto* digits = editor->findChild<QLineEdit*>()) digits->selectAll();
}

void COptionsTree::CloseEditor() {
    if (!m_edited.isValid()) return;
    const QModelIndex value = m_edited;
    m_edited = QModelIndex();
    if (QWidget* editor = indexWidget(value)) commitData(editor);
    closePersistentEditor(value);
}

void COptionsTree::verticalScrollbarValueChanged(int value) {
    QTreeView::verticalScrollbarValueChanged(value);
    CloseEditor();
}

/// Escape in an editor takes back what was typed there.
void COptionsTree::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (hint == QAbstractItemDelegate::RevertModelCache && m_edited.isValid())
        itemDelegate()->setEditorData(editor, m_edited);
    QTreeView::closeEditor(editor, hint);
}

void COptionsTree::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    QWidget* editor = m_edited.isValid() ? indexWidget(m_edited) : nullptr;
    const bool isDigit = typed.size() == 1 && typed.front().isDigit();
    if (!isDigit || !qobject_cast<QSpinBox*>(editor)) return QTreeView::keyPressEvent(event);
    EnterEditor(m_edited);
    QCoreApplication::sendEvent(editor, event);
}

// --- For screen readers

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
