#include "viewmodel/tree/CTreeNode.h"

#include <algorithm>

namespace {

/// Upper and lower case together, but two texts are never equal unless they are the same.
bool GoesBefore(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

}  // namespace

const std::vector<CTreeNode*>& CTreeNode::Children() const {
    if (!m_isSorted)
        std::ranges::sort(m_children, GoesBefore,
                          [](const CTreeNode* node) -> const QString& { return node->m_text; });
    m_isSorted = true;
    return m_children;
}

std::size_t CTreeNode::PlaceOf(const QString& text) const {
    const std::vector<CTreeNode*>& children = Children();
    const auto place = std::ranges::lower_bound(
        children, text, GoesBefore, [](const CTreeNode* node) -> const QString& { return node->m_text; });
    return static_cast<std::size_t>(place - children.begin());
}

int CTreeNode::Row() const {
    return m_parent ? static_cast<int>(m_parent->PlaceOf(m_text)) : 0;
}
