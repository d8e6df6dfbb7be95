#include "lists/CDependencyEditor.h"

#include "lists/CDependencyListener.h"
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

/// For a tree that nobody looks at.
class CNoListener final : public CDependencyListener {
 public:
    void BeforeReset() override {}
    void AfterReset() override {}
    void BeforeAdd(const Node&) override {}
    void AfterAdd(const Node&) override {}
    void BeforeRemove(const Node&) override {}
    void AfterRemove() override {}
    void BeforeMove(const Node&, const Node&) override {}
    void AfterMove(const Node&) override {}
    void AfterRename() override {}
};

CDependencyListener& NoListener() {
    static CNoListener none;
    return none;
}

/// Whether one node is the other, or stands below it.
bool IsWithin(const Node& node, const Node& above) {
    const Node* at = &node;
    while (at && at != &above) at = at->Parent();
    return at != nullptr;
}

QSet<QString> TextsBelow(const Node& node) {
    QSet<QString> texts;
    for (const Node* child = node.FirstChild(); child; child = child->Next())
        texts.insert(child->Item()->GetText());
    return texts;
}

}  // namespace

CDependencyEditor::CDependencyEditor(CPulldownCatalogue& catalogue, RecordMode mode)
    : m_catalogue(catalogue),
      m_mode(mode),
      m_tree(SortedCopy(Stored())),
      m_before(PlacesOf(m_tree)),
      m_listener(&NoListener()) {}

void CDependencyEditor::SetListener(CDependencyListener* listener) {
    m_listener = listener ? listener : &NoListener();
}

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

/// Deleted items are stored already, what else was done to the tree isn't.
void CDependencyEditor::NoteEdit() {
    m_isChanged = m_hasUnsaved = true;
}

/// Behind those that are there, and then all in order: many texts cost one sort.
int CDependencyEditor::Add(Node& under, const QStringList& texts) {
    const int list = NextListOf(under);
    QSet<QString> present = TextsBelow(under);
    std::vector<const CPRecord*> items;
    for (const QString& text : texts) {
        const CPRecord* item = present.contains(text) ? nullptr : m_catalogue.FindItem(list, text);
        if (!item) continue;
        present.insert(text);
        items.push_back(item);
    }
    if (items.empty()) return 0;
    m_listener->BeforeAdd(under);
    for (const CPRecord* item : items) m_tree.Append(under, *item);
    DependencyTree::SortChildren(under);
    NoteEdit();
    m_listener->AfterAdd(under);
    return static_cast<int>(items.size());
}

void CDependencyEditor::RemoveNode(Node& node) {
    m_listener->BeforeRemove(node);
    m_tree.Remove(node);
    m_listener->AfterRemove();
}

bool CDependencyEditor::Remove(Node& node) {
    if (!node.Parent()) return false;
    RemoveNode(node);
    NoteEdit();
    return true;
}

bool CDependencyEditor::CanMove(const Node& node, const Node& to) const {
    return node.Parent() && node.Parent() != &to && NextListOf(to) == node.Item()->listId &&
           !IsWithin(to, node) && !to.FindChild(node.Item()->GetText());
}

bool CDependencyEditor::Move(Node& node, Node& to) {
    if (!CanMove(node, to)) return false;
    m_listener->BeforeMove(node, to);
    DependencyTree::Move(node, to);
    DependencyTree::SortChildren(to);
    NoteEdit();
    m_listener->AfterMove(node);
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
    m_listener->AfterRename();
    return Renamed::Done;
}

/// The catalogue has taken the item out of its own trees and stored them. Below a node before the node.
bool CDependencyEditor::DeleteItem(int list, const QString& text) {
    const CPRecord* item = m_catalogue.FindItem(list, text);
    if (!item || !m_catalogue.DeleteItem(list, text)) return false;
    std::vector<Node*> places;
    for (Node* node = DependencyTree::NextOf(m_tree.Root()); node; node = DependencyTree::NextOf(*node))
        if (node->Item() == item) places.push_back(node);
    for (auto place = places.rbegin(); place != places.rend(); ++place) RemoveNode(**place);
    m_isChanged = true;
    return true;
}

/// What points to items goes before they do.
bool CDependencyEditor::TakeUp() {
    if (!m_catalogue.IsStale()) return true;
    const DependencyPlaces now = PlacesOf(m_tree);
    m_listener->BeforeReset();
    m_tree.Clear();
    const bool isLoaded = m_catalogue.Load() && !m_catalogue.IsDamaged(DependencySetOf(KindOf(m_mode)));
    if (isLoaded) {
        DependencyTree tree = SortedCopy(Stored());
        DependencyPlaces stored = PlacesOf(tree);
        CarryOver(m_before, now, tree, [this](const QString& id) { return m_catalogue.FindById(id); });
        m_tree = SortedCopy(tree);
        m_before = std::move(stored);
    }
    m_listener->AfterReset();
    return isLoaded;
}

void CDependencyEditor::Accept() {
    if (m_isChanged) Stored() = SortedCopy(m_tree);
}
