#include "app/PulldownLists.h"

#include "app/ListTable.h"

#include <algorithm>

PulldownLists::PulldownLists() {
    Clear();
}

void PulldownLists::Clear() {
    m_lists.clear();
    for (const int list : KnownLists()) m_lists.push_back({list, {}, {}});
    m_byId.clear();
    m_owned.clear();
}

void PulldownLists::Reserve(std::size_t items) {
    m_byId.reserve(static_cast<qsizetype>(items));
    m_owned.reserve(items);
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
    if (!found->byText) found->byText = IndexOf(found->items);
    return found->byText->value(text);
}

CPRecord* PulldownLists::FindById(const QString& id) const {
    return m_byId.value(id);
}

bool PulldownLists::Add(std::unique_ptr<CPRecord> item) {
    if (IsIgnoredList(item->listId)) return true;
    List* list = Locate(item->listId);
    if (!list) return false;
    CPRecord*& place = m_byId[item->GetId()];
    if (place) return true;
    place = item.get();
    list->items.push_back(item.get());
    if (list->byText) AddText(*list->byText, *item);
    m_owned.push_back(std::move(item));
    return true;
}

void PulldownLists::SetValue(CPRecord& item, const CPRecord& value) {
    const QString former = item.GetText();
    item.valueType = value.valueType;
    item.text = value.text;
    item.number = value.number;
    List* list = Locate(item.listId);
    if (!list || !list->byText || item.GetText() == former) return;
    const bool isOnly = AddText(*list->byText, item);
    FindFirstAnew(*list, former);
    if (!isOnly) FindFirstAnew(*list, item.GetText());
}

void PulldownLists::Remove(CPRecord& item) {
    if (List* list = Locate(item.listId)) {
        std::erase(list->items, &item);
        FindFirstAnew(*list, item.GetText());
    }
    m_byId.remove(item.GetId());
}

void PulldownLists::RemoveIf(int list, const std::function<bool(const CPRecord& item)>& isGone) {
    List* found = Locate(list);
    if (!found) return;
    std::erase_if(found->items, [&](const CPRecord* item) {
        if (!isGone(*item)) return false;
        m_byId.remove(item->GetId());
        return true;
    });
    found->byText.reset();
}

void PulldownLists::RemoveAll(int list) {
    List* found = Locate(list);
    if (!found) return;
    for (const CPRecord* item : found->items) m_byId.remove(item->GetId());
    found->items.clear();
    found->byText.reset();
}

/// Whether no other item of the list shows its text.
bool PulldownLists::AddText(TextIndex& index, CPRecord& item) {
    CPRecord*& first = index[item.GetText()];
    if (first) return false;
    first = &item;
    return true;
}

PulldownLists::TextIndex PulldownLists::IndexOf(const ItemList& items) {
    TextIndex index;
    index.reserve(std::ssize(items));
    for (CPRecord* item : items) AddText(index, *item);
    return index;
}

/// The list is walked only where texts stand in it twice: then there are more items than texts.
void PulldownLists::FindFirstAnew(List& list, const QString& text) {
    if (!list.byText) return;
    list.byText->remove(text);
    if (std::ssize(list.items) == list.byText->size()) return;
    const auto first = std::ranges::find(list.items, text, &CPRecord::GetText);
    if (first != list.items.end()) list.byText->insert(text, *first);
}
