#include "viewmodel/tree/CDataTreeModel.h"

#include "lang/FormatText.h"

namespace {

/// A node's text may be empty; a row without any would look like a fault.
QString ShownText(const CTreeNode& node) {
    if (!node.Parent()) return LoadText(Text::TreeRoot);
    return node.Text().trimmed().isEmpty() ? LoadText(Text::TreeEmptyText) : node.Text();
}

}  // namespace

CDataTreeModel::CDataTreeModel(CDataTree& tree, QObject* parent) : QAbstractItemModel(parent), m_tree(tree) {
    m_tree.SetListener(this);
}

CDataTreeModel::~CDataTreeModel() {
    m_tree.SetListener(nullptr);
}

const CTreeNode& CDataTreeModel::NodeAt(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<const CTreeNode*>(index.constInternalPointer()) : m_tree.Root();
}

QModelIndex CDataTreeModel::IndexOf(const CTreeNode& node) const {
    return createIndex(node.Row(), TextSection, &node);
}

QModelIndex CDataTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column < 0 || column >= SectionCount || row >= rowCount(parent)) return {};
    if (!parent.isValid()) return createIndex(row, column, &m_tree.Root());
    return createIndex(row, column, NodeAt(parent).Children()[static_cast<std::size_t>(row)]);
}

QModelIndex CDataTreeModel::parent(const QModelIndex& index) const {
    const CTreeNode* parent = index.isValid() ? NodeAt(index).Parent() : nullptr;
    return parent ? IndexOf(*parent) : QModelIndex();
}

int CDataTreeModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return 1;
    return parent.column() == TextSection ? NodeAt(parent).ChildCount() : 0;
}

int CDataTreeModel::columnCount(const QModelIndex&) const {
    return SectionCount;
}

bool CDataTreeModel::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0;
}

QVariant CDataTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const CTreeNode& node = NodeAt(index);
    const bool isRoot = node.Parent() == nullptr;
    const QString text = ShownText(node);
    const QString count = isRoot ? QString() : FormatText<Text::PlainInteger>(node.Count());
    switch (role) {
        case Qt::DisplayRole:
            // A line break inside a text would make its row higher than the others.
            return index.column() == TextSection ? text.simplified() : count;
        case Qt::TextAlignmentRole:
            return index.column() == CountSection ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
        case Qt::ToolTipRole:
            return text;
        case Qt::AccessibleTextRole:
            return isRoot ? text : FormatText<Text::RecordInWords>(text, count);
        default:
            return {};
    }
}

void CDataTreeModel::BeforeInsert(const CTreeNode& parent, int row) {
    beginInsertRows(IndexOf(parent), row, row);
}

void CDataTreeModel::BeforeRemove(const CTreeNode& node) {
    const int row = node.Row();
    beginRemoveRows(IndexOf(*node.Parent()), row, row);
}

void CDataTreeModel::CountChanged(const CTreeNode& node) {
    const QModelIndex changed = IndexOf(node).siblingAtColumn(CountSection);
    Q_EMIT dataChanged(changed, changed);
}
