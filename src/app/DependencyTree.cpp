#include "app/DependencyTree.h"

#include "records/CPRecord.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Node = DependencyTree::Node;

/// The next node depth-first that isn't below this one; null at the end.
Node* NextBeside(const Node* node) {
    while (node && !node->Next()) node = node->Parent();
    return node ? node->Next() : nullptr;
}

}  // namespace

// --- Nodes

int DependencyTree::Node::Depth() const {
    int depth = 0;
    for (const Node* node = m_parent; node; node = node->m_parent) ++depth;
    return depth;
}

DependencyTree::Node* DependencyTree::Node::FindChild(const QString& text) const {
    for (Node* child = m_firstChild; child; child = child->m_next)
        if (child->m_item->GetText() == text) return child;
    return nullptr;
}

// --- The tree

DependencyTree::DependencyTree() : m_root(std::make_unique<Node>()) {}

DependencyTree::~DependencyTree() {
    Clear();
}

DependencyTree::DependencyTree(DependencyTree&& other) noexcept : DependencyTree() {
    std::swap(m_root, other.m_root);
}

DependencyTree& DependencyTree::operator=(DependencyTree&& other) noexcept {
    if (this == &other) return *this;
    std::swap(m_root, other.m_root);
    other.Clear();
    return *this;
}

void DependencyTree::Clear() {
    while (m_root->m_firstChild) Remove(*m_root->m_firstChild);
}

DependencyTree::Node& DependencyTree::Append(Node& parent, const CPRecord& item) {
    return Insert(parent, item, parent.m_lastChild);
}

DependencyTree::Node& DependencyTree::Prepend(Node& parent, const CPRecord& item) {
    return Insert(parent, item, nullptr);
}

void DependencyTree::SortChildren(Node& parent) {
    std::vector<std::pair<QString, Node*>> children;
    for (Node* child = parent.m_firstChild; child; child = child->m_next)
        children.emplace_back(child->m_item->GetText(), child);
    std::ranges::stable_sort(children, [](const auto& one, const auto& other) {
        return one.first.compare(other.first, Qt::CaseInsensitive) < 0;
    });
    parent.m_firstChild = parent.m_lastChild = nullptr;
    for (const auto& [text, child] : children) {
        child->m_previous = std::exchange(parent.m_lastChild, child);
        child->m_next = nullptr;
        (child->m_previous ? child->m_previous->m_next : parent.m_firstChild) = child;
    }
}

/// previous: the sibling in front; null makes it the first child.
DependencyTree::Node& DependencyTree::Insert(Node& parent, const CPRecord& item, Node* previous) {
    Node* node = new Node;  // its parent owns it; Destroy is the other end
    node->m_item = &item;
    Link(*node, parent, previous);
    return *node;
}

void DependencyTree::Link(Node& node, Node& parent, Node* previous) {
    node.m_parent = &parent;
    node.m_previous = previous;
    node.m_next = previous ? previous->m_next : parent.m_firstChild;
    (node.m_previous ? node.m_previous->m_next : parent.m_firstChild) = &node;
    (node.m_next ? node.m_next->m_previous : parent.m_lastChild) = &node;
}

void DependencyTree::Move(Node& node, Node& parent) {
    if (!node.m_parent) return;
    Unlink(node);
    Link(node, parent, parent.m_lastChild);
}

void DependencyTree::Remove(Node& node) {
    if (!node.m_parent) return;
    Unlink(node);
    Destroy(&node);
}

void DependencyTree::Unlink(Node& node) {
    (node.m_previous ? node.m_previous->m_next : node.m_parent->m_firstChild) = node.m_next;
    (node.m_next ? node.m_next->m_previous : node.m_parent->m_lastChild) = node.m_previous;
}

/// Children before parents, going down and up along the pointers: no depth is too much.
void DependencyTree::Destroy(Node* branch) {
    Node* node = branch;
    while (true) {
        if (Node* child = node->m_firstChild) {
            node->m_firstChild = child->m_next;
            node = child;
            continue;
        }
        Node* parent = node->m_parent;
        const bool isLast = node == branch;
        delete node;
        if (isLast) return;
        node = parent;
    }
}

bool DependencyTree::RemoveIf(const ItemTest& isGone) {
    bool found = false;
    Node* node = NextOf(*m_root);
    while (node) {
        const bool goes = isGone(*node->m_item);
        Node* next = goes ? NextBeside(node) : NextOf(*node);
        if (goes) Remove(*node);
        found = found || goes;
        node = next;
    }
    return found;
}

bool DependencyTree::Holds(const ItemTest& isWanted) const {
    for (const Node* node = NextOf(*m_root); node; node = NextOf(*node))
        if (isWanted(*node->m_item)) return true;
    return false;
}

DependencyTree::Node* DependencyTree::NextOf(const Node& node) {
    return node.m_firstChild ? node.m_firstChild : NextBeside(&node);
}

DependencyTree::Node* DependencyTree::Walk(const QStringList& path) const {
    Node* node = m_root.get();
    for (const QString& text : path) {
        node = node->FindChild(text);
        if (!node) return nullptr;
    }
    return node;
}
