#include "shell/frame/CPanes.h"

#include "shell/tree/CDataTreeView.h"

#include <QResizeEvent>

namespace {
/// Panes narrower than this leave too little for a list beside the tree.
constexpr int kWideEnough = 600;
constexpr int kTreeShare = 1, kListShare = 3;
constexpr int kTreeWidth = 200, kListWidth = 800;
/// Beside folder and number some of the name has to be read.
constexpr int kLeastTreeCharacters = 20;
}  // namespace

CPanes::CPanes(CDataTreeView& tree, QWidget& list, QWidget* parent)
    : QSplitter(parent), m_tree(tree), m_list(list) {
    setObjectName(QStringLiteral("panes"));
    setChildrenCollapsible(false);
    m_tree.setMinimumWidth(kLeastTreeCharacters * m_tree.fontMetrics().averageCharWidth());
    addWidget(&m_tree);
    addWidget(&m_list);
    setStretchFactor(0, kTreeShare);
    setStretchFactor(1, kListShare);
    setSizes({kTreeWidth, kListWidth});
}

bool CPanes::IsShown() const {
    return !m_tree.isHidden();
}

void CPanes::Show(bool isShown) {
    m_use = {isShown, isShown};
    Follow();
    if (!isShown) m_list.setFocus();
}

void CPanes::RestoreTreeUse(const TreeUse& use) {
    m_use = use;
    Follow();
}

void CPanes::Stack(bool isStacked) {
    setOrientation(isStacked ? Qt::Vertical : Qt::Horizontal);
    Follow();
}

void CPanes::Follow() {
    const bool hasRoom = IsStacked() || width() >= kWideEnough;
    m_tree.setVisible(m_use.isWanted && (hasRoom || m_use.isInsisted));
}

void CPanes::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    if (width() >= kWideEnough) m_use.isInsisted = false;
    Follow();
}

bool CPanes::HasNode() const {
    return m_tree.HasNode();
}

bool CPanes::CanExpand() const {
    return IsShown() && m_tree.CanExpand();
}

void CPanes::ExpandAll() {
    m_tree.ExpandAll();
}

bool CPanes::FillRecord(CVORec& record) const {
    return m_tree.FillRecord(record);
}

bool CPanes::Says(int column) const {
    return m_tree.Says(column);
}

void CPanes::NextPane() {
    const bool toTree = IsShown() && !m_tree.hasFocus();
    (toTree ? static_cast<QWidget&>(m_tree) : m_list).setFocus(Qt::TabFocusReason);
}
