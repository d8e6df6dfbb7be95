#include "shell/lists/CDependencyTreeView.h"

#include "lang/LoadText.h"
#include "shell/look/CPlainTipDelegate.h"
#include "shell/look/FormRows.h"
#include "viewmodel/lists/CDependencyModel.h"

#include <QDragMoveEvent>

namespace {
constexpr int kOpenWhileDragging = 600;  // milliseconds
}

CDependencyTreeView::CDependencyTreeView(CDependencyModel& model, QWidget* parent)
    : QTreeView(parent), m_model(model) {
    NameWidget(*this, QStringLiteral("dependencyTree"), LoadText(Text::DepTree));
    setModel(&model);
    setItemDelegate(new CPlainTipDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    m_openDelay.setSingleShot(true);
    m_openDelay.setInterval(kOpenWhileDragging);
    connect(&m_openDelay, &QTimer::timeout, this, [this] {
        if (state() == DraggingState) expand(m_heldOver);
    });
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, &CDependencyTreeView::RememberOpen);
    connect(&model, &QAbstractItemModel::modelReset, this, &CDependencyTreeView::Reopen);
    connect(this, &QTreeView::expanded, this, &CDependencyTreeView::OpenChanged);
    connect(this, &QTreeView::collapsed, this, &CDependencyTreeView::OpenChanged);
    setCurrentIndex(model.RootIndex());
    expand(model.RootIndex());
}

DependencyTree::Node* CDependencyTreeView::Selected() const {
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? nullptr : &m_model.NodeAt(selected.front());
}

void CDependencyTreeView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    Q_EMIT SelectionMoved();
}

void CDependencyTreeView::dragMoveEvent(QDragMoveEvent* event) {
    QTreeView::dragMoveEvent(event);
    const QModelIndex line = indexAt(event->position().toPoint());
    if (line == m_heldOver) return;
    m_heldOver = line;
    m_openDelay.start();
}

void CDependencyTreeView::Open(const Node& node) {
    const QModelIndex line = m_model.IndexOf(node);
    expand(line);
    scrollTo(line);
}

bool CDependencyTreeView::IsOpen() const {
    const Node* node = Selected();
    return node && isExpanded(m_model.IndexOf(*node));
}

void CDependencyTreeView::ToggleBelow() {
    const Node* node = Selected();
    if (!node) return;
    const QModelIndex line = m_model.IndexOf(*node);
    if (isExpanded(line))
        CloseBelow(line);
    else
        expandRecursively(line);
    scrollTo(line);
}

/// The line first: what is below it then closes out of sight.
void CDependencyTreeView::CloseBelow(const QModelIndex& line) {
    std::vector<QModelIndex> left{line};
    while (!left.empty()) {
        const QModelIndex index = left.back();
        left.pop_back();
        collapse(index);
        for (int row = 0; row < m_model.rowCount(index); ++row) {
            const QModelIndex child = m_model.index(row, 0, index);
            if (isExpanded(child)) left.push_back(child);
        }
    }
}

// --- Over a reset

void CDependencyTreeView::RememberOpen() {
    m_open.clear();
    m_selected.clear();
    if (const Node* node = Selected()) m_selected = m_model.PathOf(*node);
    for (const Node* node = &m_model.NodeAt({}); node; node = DependencyTree::NextOf(*node))
        if (node->FirstChild() && isExpanded(m_model.IndexOf(*node))) m_open.push_back(m_model.PathOf(*node));
}

/// A selected line that is gone leaves the selection to the one above it.
void CDependencyTreeView::Reopen() {
    expand(m_model.RootIndex());
    for (const QStringList& path : m_open)
        if (const Node* node = m_model.NodeOf(path)) expand(m_model.IndexOf(*node));
    const Node* node = m_model.NodeOf(m_selected);
    while (!node && !m_selected.isEmpty()) {
        m_selected.removeLast();
        node = m_model.NodeOf(m_selected);
    }
    setCurrentIndex(m_model.IndexOf(*node));
}
