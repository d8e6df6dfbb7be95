#include "app/PulldownLists.h"

#include "app/ListTable.h"

#include <algorithm>

PulldownLists::PulldownLists() {
    Clear();
}

void PulldownLists::Clear() {
    m_lists.clear();
    for (const int list : KnownLists()) m_lists.push_back({list, {}, {}});
    m_items.clear();
    m_retired.clear();
}

/// The first entry of that number.
const PulldownLists::List* PulldownLists::Locate(int list) const {
    const auto found = std::ranges::find(m_lists, list, &List::id);
    return found == m_lists.end() ? nullptr : &*found;
}

PulldownLists::List* PulldownLists::Locate(int list) {
    return const_cast<List*>(std::as_const(*this).Locate(list));
}

const PulldownLists::ItemList* PulldownLists::Get(int list) const {
    const List* found = Locate(list);
    return found ? &found->items : nullptr;
}

CPRecord* PulldownLists::Find(int list, const QString& text) const {
    const List* found = Locate(list);
    if (!found) return nullptr;
    const auto item = found->byText.find(text);
    return item == found->byText.end() ? nullptr : item->second;
}

CPRecord* PulldownLists::FindById(const QString& id) const {
    const auto item = m_items.find(id);
    return item == m_items.end() ? nullptr : item->second.get();
}

bool PulldownLists::Add(std::unique_ptr<CPRecord> item) {
    if (IsIgnoredList(item->listId)) return true;
    List* list = Locate(item->listId);
    if (!list) return false;
    const auto [place, isNew] = m_items.try_emplace(item->GetId());
    if (!isNew) return true;
    place->second = std::move(item);
    CPRecord* added = place->second.get();
    list->items.push_back(added);
    list->byText.try_emplace(added->GetText(), added);
    return true;
}

void PulldownLists::SetValue(CPRecord& item, const CPRecord& value) {
    const QString former = item.GetText();
    item.valueType = value.valueType;
    item.text = value.text;
    item.number = value.number;
    List* list = Locate(item.listId);
    if (!list || item.GetText() == former) return;
    const bool isOnly = list->byText.try_emplace(item.GetText(), &item).second;
    FindFirstAnew(*list, former);
    if (!isOnly) FindFirstAnew(*list, item.GetText());
}

void PulldownLists::Remove(CPRecord& item) {
    if (List* list = Locate(item.listId)) {
        std::erase(list->items, &item);
        FindFirstAnew(*list, item.GetText());
    }
    Retire(item.GetId());
}

void PulldownLists::RemoveAll(int list) {
    List* found = Locate(list);
    if (!found) return;
    for (const CPRecord* item : found->items) Retire(item->GetId());
    found->items.clear();
    found->byText.clear();
}

/// The list is walked only where texts stand in it twice: then there are more items than texts.
void PulldownLists::FindFirstAnew(List& list, const QString& text) {
    list.byText.erase(text);
    if (list.items.size() == list.byText.size()) return;
    const auto first = std::ranges::find(list.items, text, &CPRecord::GetText);
    if (first != list.items.end()) list.byText.emplace(text, *first);
}

void PulldownLists::Retire(const QString& id) {
    const auto item = m_items.find(id);
    if (item == m_items.end()) return;
    m_retired.push_back(std::move(item->second));
    m_items.erase(item);
}
