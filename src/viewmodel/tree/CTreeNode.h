#pragma once

#include <QString>
#include <cstdint>
#include <vector>

/// A node of the data tree: the text that the records below it share on its level, and how many they are. The
/// tree owns it.
class CTreeNode {
 public:
    [[nodiscard]] const QString& Text() const { return m_text; }
    /// Of the root always 0.
    [[nodiscard]] int Count() const { return m_count; }
    /// Null for the root.
    [[nodiscard]] const CTreeNode* Parent() const { return m_parent; }
    /// 0 for the root, 1 for the first level.
    [[nodiscard]] int Depth() const { return m_parent ? m_parent->Depth() + 1 : 0; }
    /// In order of their texts, case aside. Sorted when somebody first asks: who looks at the upper levels of
    /// a large tree doesn't wait for the lower ones.
    [[nodiscard]] const std::vector<CTreeNode*>& Children() const;
    [[nodiscard]] int ChildCount() const { return static_cast<int>(m_children.size()); }
    /// The node's place among the children of its parent, 0 for the root.
    [[nodiscard]] int Row() const;

 private:
    friend class CDataTree;

    /// Where a child of this text stands or would stand.
    [[nodiscard]] std::size_t PlaceOf(const QString& text) const;

    QString m_text;
    CTreeNode* m_parent = nullptr;
    mutable std::vector<CTreeNode*> m_children;
    mutable bool m_isSorted = true;
    int m_count = 0;
    std::uint32_t m_number = 0;      ///< never given twice between two rebuilds
    std::uint32_t m_textNumber = 0;  ///< equal texts have equal ones
};
