#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class CPRecord;

/// Which item may be chosen under which: a tree of list items of any depth, its root without an item. The
/// items belong to the catalogue. Children form a chain of siblings. All walks and the destruction are
/// without recursion: a tree of any depth that fits into the store is fine.
class DependencyTree {
 public:
    /// A question about an item.
    using ItemTest = std::function<bool(const CPRecord& item)>;

    class Node {
     public:
        [[nodiscard]] const CPRecord* Item() const { return m_item; }  ///< null for the root
        [[nodiscard]] Node* Parent() const { return m_parent; }
        [[nodiscard]] Node* FirstChild() const { return m_firstChild; }
        [[nodiscard]] Node* LastChild() const { return m_lastChild; }
        [[nodiscard]] Node* Next() const { return m_next; }
        [[nodiscard]] Node* Previous() const { return m_previous; }
        /// How many steps it is from the root, which is at 0.
        [[nodiscard]] int Depth() const;
        /// The first child whose item shows exactly this text; null for none.
        [[nodiscard]] Node* FindChild(const QString& text) const;

     private:
        friend class DependencyTree;
        const CPRecord* m_item = nullptr;
        Node* m_parent = nullptr;
        Node* m_firstChild = nullptr;
        Node* m_lastChild = nullptr;
        Node* m_next = nullptr;
        Node* m_previous = nullptr;
    };

    DependencyTree();
    ~DependencyTree();
    /// The other tree is empty afterwards, and usable.
    DependencyTree(DependencyTree&& other) noexcept;
    DependencyTree& operator=(DependencyTree&& other) noexcept;
    DependencyTree(const DependencyTree&) = delete;
    DependencyTree& operator=(const DependencyTree&) = delete;

    [[nodiscard]] Node& Root() const { return *m_root; }
    [[nodiscard]] bool IsEmpty() const { return m_root->FirstChild() == nullptr; }
    void Clear();

    Node& Append(Node& parent, const CPRecord& item);
    Node& Prepend(Node& parent, const CPRecord& item);
    /// Puts the children of a node in the order of their texts, whatever the case of letters, equal ones as
    /// they stand; the nodes stay the same ones.
    static void SortChildren(Node& parent);
    /// Puts a node with all below it behind the last child of another, which must not stand below it.
    static void Move(Node& node, Node& parent);
    /// Takes a node out with all below it; the root stays.
    void Remove(Node& node);
    /// Every node whose item the test finds, at any depth, each with all below it. False when there was none.
    bool RemoveIf(const ItemTest& isGone);
    /// Whether a node holds an item that the test finds.
    [[nodiscard]] bool Holds(const ItemTest& isWanted) const;
    /// The next node depth-first, parents before children; null at the end. Start with Root().
    [[nodiscard]] static Node* NextOf(const Node& node);
    /// The node that a path of texts leads to; null when a text isn't there. An empty path gives the root.
    [[nodiscard]] Node* Walk(const QStringList& path) const;

 private:
    static Node& Insert(Node& parent, const CPRecord& item, Node* previous);
    static void Link(Node& node, Node& parent, Node* previous);
    static void Unlink(Node& node);
    static void Destroy(Node* branch);

    std::unique_ptr<Node> m_root;
};
