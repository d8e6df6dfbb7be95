#include "app/MergedTree.h"

#include <QHash>
#include <QSet>
#include <utility>
#include <vector>

namespace {

using Node = DependencyTree::Node;

class TreeMerger {
 public:
    TreeMerger(const CPRecord& gone, const CPRecord& kept) : m_gone(gone), m_kept(kept) {}

    /// Without recursion: a stored tree may be of any depth.
    DependencyTree Merge(const DependencyTree& tree) {
        m_left.emplace_back(&tree.Root(), &m_tree.Root());
        while (!m_left.empty()) {
            const std::pair<const Node*, Node*> step = m_left.back();
            m_left.pop_back();
            for (const Node* child = step.first->FirstChild(); child; child = child->Next())
                Take(*child, *step.second);
        }
        for (Node* node : std::as_const(m_unsorted)) DependencyTree::SortChildren(*node);
        return std::move(m_tree);
    }

 private:
    void Take(const Node& child, Node& parent) {
        const bool isGone = child.Item() == &m_gone;
        const CPRecord& item = isGone ? m_kept : *child.Item();
        Node*& place = m_places[{&parent, &item}];
        if (place)
            m_unsorted.insert(place);
        else
            place = &m_tree.Append(parent, item);
        if (isGone) m_unsorted.insert(&parent);
        m_left.emplace_back(&child, place);
    }

    const CPRecord& m_gone;
    const CPRecord& m_kept;
    DependencyTree m_tree;
    std::vector<std::pair<const Node*, Node*>> m_left;               ///< nodes and what they became
    QHash<std::pair<const Node*, const CPRecord*>, Node*> m_places;  ///< by parent and item
    QSet<Node*> m_unsorted;                                          ///< parents that got something new
};

}  // namespace

DependencyTree MergedTree(const DependencyTree& tree, const CPRecord& gone, const CPRecord& kept) {
    return TreeMerger(gone, kept).Merge(tree);
}
