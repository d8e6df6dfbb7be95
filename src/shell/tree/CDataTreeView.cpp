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
#include <algorithm>

namespace {

/// More open nodes than these aren't opened again after a rebuild.
constexpr qsizetype kMostOpen = 500;

}  // namespace

CDataTreeView::CDataTreeView(CVelmarchDoc& document, const CCfgStore& settings, CPrompt& prompt,
                             QWidget* parent)
    : QTreeView(parent),
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
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &CDataTreeView::RememberOpen);
    connect(m_model, &QAbstractItemModel::modelReset, this, &CDataTreeView::Reopen);
    connect(m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CDataTreeView::NoteOpen);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &CDataTreeView::ChooseSelected);
    // The cursor may stand on a node that the list doesn't show: then a click chooses it.
    connect(this, &QTreeView::clicked, this, &CDataTreeView::ChooseSelected);
    expand(m_model->RootIndex());
}

void CDataTreeView::OnHint(Hint hint, const QStringList& ids) {
    const QScopedValueRollback following(m_isFollowing, true);
    m_tree.OnHint(hint, ids);
    if (hint == Hint::Changed) Reopen();
    if (hint == Hint::Added || hint == Hint::Changed || hint == Hint::Deleted) m_open.clear();
    Follow();
}

/// A node that goes takes the cursor to its neighbour, which nobody has chosen; one that comes back with the
/// changed values of its only record is selected again.
void CDataTreeView::Follow() {
    const CTreeNode* node = m_tree.Shown();
    if (!node)
        selectionModel()->clear();
    else if (const QModelIndex shown = m_model->IndexOf(*node); shown != Selected())
        setCurrentIndex(shown);
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
    const QScopedValueRollback following(m_isFollowing, true);
    QTreeView::focusInEvent(event);
}

bool CDataTreeView::HasNode() const {
    const CTreeNode* node = m_tree.Shown();
    return node && node->Parent();
}

bool CDataTreeView::CanExpand() const {
    const QModelIndex selected = Selected();
    return selected.isValid() && m_model->hasChildren(selected);
}

void CDataTreeView::ChooseSelected() {
    const QModelIndex selected = Selected();
    if (m_isFollowing || !selected.isValid()) return;
    m_tree.Choose(m_model->NodeAt(selected));
    const QScopedValueRollback following(m_isFollowing, true);
    Follow();
}

bool CDataTreeView::FillRecord(CVORec& record) const {
    const CTreeNode* node = m_tree.Shown();
    return node && ::FillRecord(m_tree.StepsTo(*node), record, m_settings);
}

bool CDataTreeView::Says(int column) const {
    const CTreeNode* node = m_tree.Shown();
    if (!node) return false;
    const TreePath steps = m_tree.StepsTo(*node);
    return std::ranges::find(steps, column, &TreeStep::column) != steps.end();
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

void CDataTreeView::RememberOpen() {
    if (!m_tree.Root().ChildCount()) return;  // cleared before other records come: what was known holds on
    m_open.clear();
    NoteOpen(m_model->RootIndex(), 0, m_model->rowCount(m_model->RootIndex()) - 1);
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
    expand(m_model->RootIndex());
    for (const QStringList& path : std::as_const(m_open))
        if (const CTreeNode* node = m_tree.Find(path)) expand(m_model->IndexOf(*node));
}

void CDataTreeView::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex at = byKey ? Selected() : indexAt(event->pos());
    if (!at.isValid()) return;
    setCurrentIndex(at);
    Q_EMIT MenuWanted(byKey ? viewport()->mapToGlobal(visualRect(at).center()) : event->globalPos());
}
