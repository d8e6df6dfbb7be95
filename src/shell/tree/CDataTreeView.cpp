#include "shell/tree/CDataTreeView.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "shell/tree/CTreeDelegate.h"
#include "viewmodel/tree/CDataTreeModel.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScopedValueRollback>

namespace {

/// More open nodes than these aren't opened again after a rebuild.
constexpr qsizetype kMostOpen = 500;

template <class Filter>
void Narrow(const TreePath& path, Filter& filter) {
    ApplyPath(path, filter);
    filter.matchWhole = filter.matchCase = true;
}

}  // namespace

CDataTreeView::CDataTreeView(CVelmarchDoc& document, const CCfgStore& settings, CPrompt& prompt,
                             QWidget* parent)
    : QTreeView(parent),
      m_document(document),
      m_settings(settings),
      m_prompt(prompt),
      m_tree(document, settings),
      m_model(new CDataTreeModel(m_tree, this)) {
    setObjectName(QStringLiteral("dataTree"));
    setAccessibleName(LoadText(Text::DataTreeTitle));
    setModel(m_model);
    setItemDelegate(new CTreeDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(CDataTreeModel::TextSection, QHeaderView::Stretch);
    header()->setSectionResizeMode(CDataTreeModel::CountSection, QHeaderView::ResizeToContents);
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &CDataTreeView::Remember);
    connect(m_model, &QAbstractItemModel::modelReset, this, &CDataTreeView::TakeUp);
    connect(m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CDataTreeView::NoteOpen);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &CDataTreeView::ApplySelection);
    // The selected node may not be what the list shows any more: then a click means it anew.
    connect(this, &QTreeView::clicked, this, [this] {
        if (!m_isApplied) ApplySelection();
    });
    expand(m_model->RootIndex());
}

void CDataTreeView::OnHint(Hint hint, const QStringList& ids) {
    if (m_isFiltering) return;
    if (hint == Hint::Rebuild) m_isApplied = false;
    if (ids.isEmpty()) return m_tree.OnHint(hint, ids);
    // A node that goes takes the selection to its neighbour, which nobody has chosen, and comes back closed.
    const QScopedValueRollback takingUp(m_isTakingUp, true);
    RememberSelection();
    m_tree.OnHint(hint, ids);
    HoldSelection();
    if (hint == Hint::Changed) Reopen();
    if (hint == Hint::Added || hint == Hint::Changed || hint == Hint::Deleted) m_open.clear();
}

void CDataTreeView::RememberSelection() {
    if (!Selected().isValid()) return;
    m_hadSelection = true;
    m_selected = CDataTree::PathOf(m_model->NodeAt(Selected()));
}

/// The node of a record that changes goes with its old values and may come back with the new ones: then it is
/// selected again. Until then nothing is, and the list stays as it is.
void CDataTreeView::HoldSelection() {
    const CTreeNode* node = m_hadSelection ? m_tree.Find(m_selected) : nullptr;
    if (!node)
        selectionModel()->clear();
    else if (const QModelIndex held = m_model->IndexOf(*node); held != Selected())
        setCurrentIndex(held);
}

// --- The selection

QModelIndex CDataTreeView::Selected() const {
    return currentIndex().siblingAtColumn(CDataTreeModel::TextSection);
}

void CDataTreeView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (selected.isEmpty()) return;
    const QModelIndex node = selected.front().topLeft();
    if (node != Selected()) setCurrentIndex(node);
}

void CDataTreeView::focusInEvent(QFocusEvent* event) {
    const QScopedValueRollback takingUp(m_isTakingUp, true);
    QTreeView::focusInEvent(event);
}

bool CDataTreeView::HasNode() const {
    const QModelIndex selected = Selected();
    return selected.isValid() && m_model->NodeAt(selected).Parent();
}

bool CDataTreeView::CanExpand() const {
    const QModelIndex selected = Selected();
    return selected.isValid() && m_model->hasChildren(selected);
}

/// The tree goes on showing all nodes, so that another one can be chosen.
void CDataTreeView::ApplySelection() {
    const QModelIndex selected = Selected();
    if (m_isTakingUp || !selected.isValid()) return;
    const TreePath path = m_tree.StepsTo(m_model->NodeAt(selected));
    const QScopedValueRollback filtering(m_isFiltering, true);
    if (theRecordMode == RecordMode::Time)
        Narrow(path, m_document.Filter());
    else
        Narrow(path, m_document.FilterOfExpenses());
    m_document.BuildVisible();
    m_tree.KeepOverFilter();
    m_document.NotifyViews(Hint::Rebuild);
    m_isApplied = true;
    Q_EMIT SelectionMoved();
}

bool CDataTreeView::FillRecord(CVORec& record) const {
    if (!HasNode()) return false;
    const TreePath path = m_tree.StepsTo(m_model->NodeAt(Selected()));
    return ::FillRecord(path, record, m_settings);
}

void CDataTreeView::ExpandAll() {
    const QModelIndex selected = Selected();
    if (!selected.isValid())
        return m_prompt.Tell({.textId = static_cast<int>(Text::SelectTreeNode),
                              .title = LoadText(Text::DataTreeTitle),
                              .text = LoadText(Text::SelectTreeNode),
                              .actionLabel = {}});
    ToggleBelow(selected);
    scrollTo(selected);
}

void CDataTreeView::ToggleBelow(const QModelIndex& index) {
    setExpanded(index, !isExpanded(index));
    for (int row = 0; row < m_model->rowCount(index); ++row) ToggleBelow(m_model->index(row, 0, index));
}

// --- Over a rebuild

void CDataTreeView::Remember() {
    if (!m_tree.Root().ChildCount()) return;  // cleared before other records come: what was known is kept
    m_open.clear();
    NoteOpen(m_model->RootIndex(), 0, m_model->rowCount(m_model->RootIndex()) - 1);
    m_hadSelection = false;
    RememberSelection();
}

void CDataTreeView::NoteOpen(const QModelIndex& parent, int first, int last) {
    for (int row = first; row <= last && m_open.size() < kMostOpen; ++row) {
        const QModelIndex child = m_model->index(row, 0, parent);
        if (!isExpanded(child)) continue;
        m_open.append(CDataTree::PathOf(m_model->NodeAt(child)));
        NoteOpen(child, 0, m_model->rowCount(child) - 1);
    }
}

void CDataTreeView::Reopen() {
    for (const QStringList& path : std::as_const(m_open))
        if (const CTreeNode* node = m_tree.Find(path)) expand(m_model->IndexOf(*node));
}

void CDataTreeView::TakeUp() {
    const QScopedValueRollback takingUp(m_isTakingUp, true);
    expand(m_model->RootIndex());
    Reopen();
    const CTreeNode* node = m_hadSelection ? m_tree.Find(m_selected) : nullptr;
    if (node) setCurrentIndex(m_model->IndexOf(*node));
}

void CDataTreeView::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex at = byKey ? Selected() : indexAt(event->pos());
    if (!at.isValid()) return;
    setCurrentIndex(at);
    Q_EMIT MenuWanted(byKey ? viewport()->mapToGlobal(visualRect(at).center()) : event->globalPos());
}
