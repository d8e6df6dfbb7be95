#include "shell/CDataTreeView.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/CPrompt.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/core/CDataTreeModel.h"

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
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(CDataTreeModel::TextSection, QHeaderView::Stretch);
    header()->setSectionResizeMode(CDataTreeModel::CountSection, QHeaderView::ResizeToContents);
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this, &CDataTreeView::Remember);
    connect(m_model, &QAbstractItemModel::modelReset, this, &CDataTreeView::TakeUp);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &CDataTreeView::ApplySelection);
    expand(m_model->RootIndex());
}

void CDataTreeView::OnHint(Hint hint, const QStringList& ids) {
    if (!m_isFiltering) m_tree.OnHint(hint, ids);
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
    Q_EMIT SelectionMoved();
}

bool CDataTreeView::FillRecord(CVORec& record) const {
    if (!HasNode()) return false;
    const TreePath path = m_tree.StepsTo(m_model->NodeAt(Selected()));
    return record.Kind() == RecordKind::Time ? ::FillRecord(path, static_cast<CTRecord&>(record), m_settings)
                                             : ::FillRecord(path, static_cast<CERecord&>(record));
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
    const auto remember = [this](const auto& self, const QModelIndex& parent) -> void {
        for (int row = 0; row < m_model->rowCount(parent) && m_open.size() < kMostOpen; ++row) {
            const QModelIndex child = m_model->index(row, 0, parent);
            if (!isExpanded(child)) continue;
            m_open.append(CDataTree::PathOf(m_model->NodeAt(child)));
            self(self, child);
        }
    };
    remember(remember, m_model->RootIndex());
    m_hadSelection = Selected().isValid();
    m_selected = m_hadSelection ? CDataTree::PathOf(m_model->NodeAt(Selected())) : QStringList();
}

void CDataTreeView::TakeUp() {
    const QScopedValueRollback takingUp(m_isTakingUp, true);
    expand(m_model->RootIndex());
    for (const QStringList& path : std::as_const(m_open))
        if (const CTreeNode* node = m_tree.Find(path)) expand(m_model->IndexOf(*node));
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
