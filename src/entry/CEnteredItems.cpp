#include "entry/CEnteredItems.h"

#include <utility>

bool CEnteredItems::Add(int list, const QString& text) {
    if (!text.isEmpty()) m_texts.push_back({list, text});
    return true;
}

std::vector<ListText> CEnteredItems::Take() {
    return std::exchange(m_texts, {});
}

void CEnteredItems::StoreInto(CListItemService& lists) {
    for (const auto& [list, text] : Take()) lists.Add(list, text);
}
