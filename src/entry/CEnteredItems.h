#pragma once

#include "app/CPulldownCatalogue.h"
#include "entry/CListItemService.h"

#include <vector>

/// Gathers the texts that go into the pick lists with the record for which they were entered: they are stored
/// when it is, in its transaction.
class CEnteredItems final : public CListItemService {
 public:
    /// Always true: what a list refuses is left out when it is stored.
    bool Add(int list, const QString& text) override;
    /// A record is about to be entered.
    void Clear() { m_texts.clear(); }
    /// What was gathered; nothing is left.
    [[nodiscard]] std::vector<ListText> Take();
    /// For a record that isn't stored, a default for example: each by itself.
    void StoreInto(CListItemService& lists);

 private:
    std::vector<ListText> m_texts;
};
