#include "lists/CDependencyEditor.h"

#include "lists/DependencyChain.h"

#include <QSet>
#include <utility>
#include <vector>

namespace {

using Node = DependencyTree::Node;

/// A tree of the same items, the children of each node sorted. Without recursion: a stored tree may be of any
/// depth.
DependencyTree SortedCopy(const DependencyTree& tree) {
    DependencyTree copy;
    std::vector<std::pair<const Node*, Node*>> left{{&tree.Root(), &copy.Root()}};
    while (!left.empty()) {
        const auto [from, to] = left.back();
        left.pop_back();
        for (const Node* child = from->FirstChild(); child; child = child->Next())
            left.emplace_back(child, &copy.Append(*to, *child->Item()));
        DependencyTree::SortChildren(*to);
    }
    return copy;
}

QSet<QString> TextsBelow(const Node& node) {
    QSet<QString> texts;
    for (const Node* child = node.FirstChild(); child; child = child->Next())
        texts.insert(child->Item()->GetText());
    return texts;
}

}  // namespace

CDependencyEditor::CDependencyEditor(CPulldownCatalogue& catalogue, RecordMode mode)
    : m_catalogue(catalogue), m_mode(mode), m_tree(SortedCopy(Stored())) {}

DependencyTree& CDependencyEditor::Stored() const {
    return m_catalogue.Tree(DependencySetOf(KindOf(m_mode)));
}

/// By the list of the node's item: that is what the chain goes on from, at whatever depth it stands.
int CDependencyEditor::NextListOf(const Node& node) const {
    if (!node.Item()) return NextList(m_mode, 0);
    const int depth = ChainDepth(m_mode, node.Item()->listId);
    return depth == 0 ? -1 : NextList(m_mode, depth);
}

QStringList CDependencyEditor::Candidates(const Node& node) const {
    const QSet<QString> present = TextsBelow(node);
    QStringList texts;
    for (const QString& text : m_catalogue.Texts(NextListOf(node)))
        if (!present.contains(text)) texts += text;
    return texts;
}

bool CDependencyEditor::Add(Node& under, const QString& text) {
    const CPRecord* item = m_catalogue.FindItem(NextListOf(under), text);
    if (!item || under.FindChild(text)) return false;
    m_tree.InsertSorted(under, *item);
    m_isChanged = true;
    return true;
}

int CDependencyEditor::AddAll(Node& under) {
    const int list = NextListOf(under);
    QStringList texts = Candidates(under);
    texts.removeDuplicates();
    for (const QString& text : texts) m_tree.Append(under, *m_catalogue.FindItem(list, text));
    DependencyTree::SortChildren(under);
    if (!texts.isEmpty()) m_isChanged = true;
    return static_cast<int>(texts.size());
}

bool CDependencyEditor::Remove(Node& node) {
    if (!node.Parent()) return false;
    m_tree.Remove(node);
    m_isChanged = true;
    return true;
}

bool CDependencyEditor::NewItem(int list, const QString& text) {
    return m_catalogue.CheckNewItem(list, text) == NewItem::Acceptable &&
           m_catalogue.AddItem(list, text, false);
}

CDependencyEditor::Renamed CDependencyEditor::RenameItem(int list, const QString& oldText,
                                                         const QString& newText) {
    if (m_catalogue.CheckNewItem(list, newText) != NewItem::Acceptable) return Renamed::Kept;
    if (!m_catalogue.RenameItem(list, oldText, newText)) return Renamed::Failed;
    for (Node* node = &m_tree.Root(); node; node = DependencyTree::NextOf(*node))
        DependencyTree::SortChildren(*node);
    return Renamed::Done;
}

/// The catalogue has taken the item out of its own trees and stored them.
bool CDependencyEditor::DeleteItem(int list, const QString& text) {
    const CPRecord* item = m_catalogue.FindItem(list, text);
    if (!item || !m_catalogue.DeleteItem(list, text)) return false;
    m_tree.RemoveItem(*item);
    m_isChanged = true;
    return true;
}

void CDependencyEditor::Accept() {
    if (m_isChanged) Stored() = SortedCopy(m_tree);
}
