#pragma once

#include "records/CPRecord.h"

#include <QHash>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The pick lists with their items in memory: the 57 known lists, their items in order of loading and adding,
/// and the ways to an item by its text and by its identity, both in constant time.
class PulldownLists {
 public:
    using ItemList = std::vector<CPRecord*>;

    PulldownLists();
    /// All lists anew and empty. Now the items that were removed are destroyed as well: until then pointers
    /// to them, in a tree that is being edited say, stay good.
    void Clear();
    /// Makes room for this many items in all.
    void Reserve(std::size_t items);

    /// Null for a list that isn't known.
    [[nodiscard]] const ItemList* Get(int list) const;
    /// By exact comparison of what the item shows; the first of several.
    [[nodiscard]] CPRecord* Find(int list, const QString& text) const;
    [[nodiscard]] CPRecord* FindById(const QString& id) const;

    /// Puts the item at the end of its list. One that is there already, by its identity, stays; one of an
    /// ignored list is taken and dropped. False when there is no such list.
    [[nodiscard]] bool Add(std::unique_ptr<CPRecord> item);
    /// Gives an item the value of another.
    void SetValue(CPRecord& item, const CPRecord& value);
    void Remove(CPRecord& item);
    void RemoveIf(int list, const std::function<bool(const CPRecord& item)>& isGone);
    void RemoveAll(int list);

 private:
    using TextIndex = QHash<QString, CPRecord*>;
    struct List {
        int id;
        ItemList items;
        /// The first item that shows a text. Made when first asked for: a start reads all items and looks
        /// for hardly one by its text.
        mutable std::optional<TextIndex> byText;
    };
    [[nodiscard]] List* Locate(int list);
    [[nodiscard]] const List* Locate(int list) const;
    static bool AddText(TextIndex& index, CPRecord& item);
    [[nodiscard]] static TextIndex IndexOf(const ItemList& items);
    static void FindFirstAnew(List& list, const QString& text);

    std::vector<List> m_lists;
    QHash<QString, CPRecord*> m_byId;
    std::vector<std::unique_ptr<CPRecord>> m_owned;  ///< the items, those that were removed included
};
