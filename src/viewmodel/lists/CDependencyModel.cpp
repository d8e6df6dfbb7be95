#include "viewmodel/lists/CDependencyModel.h"

#include "lang/FormatText.h"
#include "viewmodel/lists/DraggedItems.h"

#include <algorithm>
#include <memory>
#include <utility>

CDependencyModel::CDependencyModel(CDependencyEditor& editor, Caption caption, QObject* parent)
    : QAbstractItemModel(parent), m_editor(editor), m_caption(std::move(caption)) {
    m_editor.SetListener(this);
}

CDependencyModel::~CDependencyModel() {
    m_editor.SetListener(nullptr);
}

// --- Where nodes stand

/// The children of a node as views know them.
CDependencyModel::Children& CDependencyModel::ChildrenOf(const Node& node) const {
    const auto known = m_children.find(&node);
    if (known != m_children.end()) return *known;
    Children children;
    for (const Node* child = node.FirstChild(); child; child = child->Next()) children.push_back(child);
    Children& kept = *m_children.insert(&node, children);
    Number(node, 0);
    return kept;
}

void CDependencyModel::Number(const Node& parent, std::size_t from) const {
    const Children& children = m_children[&parent];
    for (std::size_t row = from; row < children.size(); ++row)
        m_places.insert(children[row], {&parent, static_cast<int>(row)});
}

CDependencyModel::Place CDependencyModel::PlaceOf(const Node& node) const {
    if (!node.Parent()) return {nullptr, 0};
    if (!m_places.contains(&node)) static_cast<void>(ChildrenOf(*node.Parent()));
    return m_places.value(&node);
}

DependencyTree::Node& CDependencyModel::NodeAt(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : m_editor.Tree().Root();
}

QModelIndex CDependencyModel::IndexOf(const Node& node) const {
    return createIndex(PlaceOf(node).row, 0, &node);
}

QStringList CDependencyModel::PathOf(const Node& node) const {
    QStringList path;
    for (const Node* at = &node; at->Item(); at = at->Parent()) path.prepend(at->Item()->GetId());
    return path;
}

DependencyTree::Node* CDependencyModel::NodeOf(const QStringList& path) const {
    Node* node = &m_editor.Tree().Root();
    for (const QString& id : path) {
        Node* child = node->FirstChild();
        while (child && child->Item()->GetId() != id) child = child->Next();
        if (!child) return nullptr;
        node = child;
    }
    return node;
}

QModelIndex CDependencyModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column != 0 || row >= rowCount(parent)) return {};
    if (!parent.isValid()) return createIndex(0, 0, &m_editor.Tree().Root());
    return createIndex(row, 0, ChildrenOf(NodeAt(parent))[static_cast<std::size_t>(row)]);
}

QModelIndex CDependencyModel::parent(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    const Node* parent = PlaceOf(NodeAt(index)).parent;
    return parent ? IndexOf(*parent) : QModelIndex();
}

int CDependencyModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? static_cast<int>(ChildrenOf(NodeAt(parent)).size()) : 1;
}

// --- What is shown

/// "Project: Alpha"
QString CDependencyModel::InWords(const Node& node) const {
    const CPRecord* item = node.Item();
    if (!item) return LoadText(Text::TreeRoot);
    return FormatText<Text::RecordInWords>(m_caption(item->listId), item->GetText());
}

QVariant CDependencyModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Node& node = NodeAt(index);
    switch (role) {
        case Qt::DisplayRole:
            // A line break inside a text would make its line higher than the others.
            return node.Item() ? node.Item()->GetText().simplified() : LoadText(Text::TreeRoot);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return InWords(node);
        default:
            return {};
    }
}

Qt::ItemFlags CDependencyModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index) | Qt::ItemIsDropEnabled;
    return NodeAt(index).Item() ? flags | Qt::ItemIsDragEnabled : flags;
}

// --- Drag and drop

QStringList CDependencyModel::mimeTypes() const {
    return {DraggedCandidates::Type(), DraggedLine::Type()};
}

QMimeData* CDependencyModel::mimeData(const QModelIndexList& indexes) const {
    return indexes.isEmpty() ? nullptr : DraggedLine{PathOf(NodeAt(indexes.front()))}.ToMime();
}

bool CDependencyModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                       const QModelIndex& parent) const {
    const Node& to = NodeAt(parent);
    if (const auto candidates = DraggedCandidates::FromMime(*data))
        return candidates->list == m_editor.NextListOf(to);
    const auto line = DraggedLine::FromMime(*data);
    const Node* node = line ? NodeOf(line->path) : nullptr;
    return node && m_editor.CanMove(*node, to);
}

bool CDependencyModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                    const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    Node& to = NodeAt(parent);
    if (const auto candidates = DraggedCandidates::FromMime(*data))
        return m_editor.Add(to, candidates->texts) > 0;
    return m_editor.Move(*NodeOf(DraggedLine::FromMime(*data)->path), to);
}

// --- What the editor does

void CDependencyModel::BeforeReset() {
    beginResetModel();
    m_children.clear();
    m_places.clear();
}

/// New ones are announced behind those that were there, and then all go to their places.
void CDependencyModel::AfterAdd(const Node& under) {
    Children& children = ChildrenOf(under);
    Children added;
    for (const Node* child = under.FirstChild(); child; child = child->Next())
        if (!m_places.contains(child)) added.push_back(child);
    const std::size_t first = children.size();
    beginInsertRows(IndexOf(under), static_cast<int>(first), static_cast<int>(first + added.size()) - 1);
    children.insert(children.end(), added.begin(), added.end());
    Number(under, first);
    endInsertRows();
    PutInOrder({&under});
}

void CDependencyModel::BeforeRemove(const Node& node) {
    m_removed = PlaceOf(node);
    beginRemoveRows(IndexOf(*m_removed.parent), m_removed.row, m_removed.row);
    Forget(node);
}

void CDependencyModel::AfterRemove() {
    Children& children = m_children[m_removed.parent];
    children.erase(children.begin() + m_removed.row);
    Number(*m_removed.parent, static_cast<std::size_t>(m_removed.row));
    endRemoveRows();
}

/// Memory that is freed may come back as another node.
void CDependencyModel::Forget(const Node& branch) {
    std::vector<const Node*> left{&branch};
    while (!left.empty()) {
        const Node* node = left.back();
        left.pop_back();
        m_places.remove(node);
        m_children.remove(node);
        for (const Node* child = node->FirstChild(); child; child = child->Next()) left.push_back(child);
    }
}

void CDependencyModel::BeforeMove(const Node& node, const Node& to) {
    static_cast<void>(PlaceOf(node));
    static_cast<void>(ChildrenOf(to));
}

void CDependencyModel::AfterMove(const Node& node) {
    const Place from = m_places.value(&node);
    const Node& to = *node.Parent();
    Children &former = ChildrenOf(*from.parent), &children = ChildrenOf(to);
    const std::size_t last = children.size();
    beginMoveRows(IndexOf(*from.parent), from.row, from.row, IndexOf(to), static_cast<int>(last));
    former.erase(former.begin() + from.row);
    children.push_back(&node);
    Number(*from.parent, static_cast<std::size_t>(from.row));
    Number(to, last);
    endMoveRows();
    PutInOrder({&to});
}

void CDependencyModel::AfterRename() {
    std::vector<const Node*> parents;
    for (auto branch = m_children.keyBegin(); branch != m_children.keyEnd(); ++branch)
        parents.push_back(*branch);
    PutInOrder(parents);
}

/// Views find their lines again, however these move, and show them anew.
void CDependencyModel::PutInOrder(const std::vector<const Node*>& parents) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    for (const Node* parent : parents) {
        Children& children = m_children[parent];
        children.clear();
        for (const Node* child = parent->FirstChild(); child; child = child->Next())
            children.push_back(child);
        Number(*parent, 0);
    }
    for (const QModelIndex& former : persistentIndexList()) {
        const QModelIndex now = IndexOf(NodeAt(former));
        if (now != former) changePersistentIndex(former, now);
    }
    Q_EMIT layoutChanged({}, VerticalSortHint);
}
