#include "app/ListNameMap.h"

#include "app/ListTable.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"

#include <algorithm>

namespace {

/// Names of the lists of field names stand in the language library in the order of the lists, in two blocks:
/// those of time records and of the headings of expenses, then those of the fields of expenses.
constexpr int kFirstOfSecondBlock = NumberOf(FieldId::ExpenseItem1);

int NameNumber(int label) {
    return label < kFirstOfSecondBlock
               ? static_cast<int>(Text::NameTimeHeadingClient) + label - kFirstLabel
               : static_cast<int>(Text::NameExpenseFieldClient) + label - kFirstOfSecondBlock;
}

}  // namespace

ListNameMap::ListNameMap() {
    for (int label = kFirstLabel; label <= kLastLabel; ++label)
        m_entries.push_back({LoadText(NameNumber(label)), label});
    for (const ListRow& row : RecordLists()) m_entries.push_back({LoadText(row.title), row.list});
}

const QString* ListNameMap::ListName(int list) const {
    const auto entry = std::ranges::find(m_entries, list, &Entry::list);
    return entry == m_entries.end() ? nullptr : &entry->name;
}

bool ListNameMap::ListIdByName(const QString& name, int& list) const {
    const auto entry = std::ranges::find(m_entries, name, &Entry::name);
    if (entry == m_entries.end()) return false;
    list = entry->list;
    return true;
}
