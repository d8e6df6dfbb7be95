#pragma once

#include "fields/FieldRow.h"

#include <array>

inline constexpr std::size_t kItemCount = 5;

/// An item of a kind of records: its name, its list, and where the record has it.
template <class Record>
struct ItemField {
    FieldId id = FieldId::None;
    int list = ListId::kNone;
    QString Record::*member = nullptr;
};

/// The five items of a kind of records in the order of their names.
template <class Record, std::size_t Count>
[[nodiscard]] constexpr std::array<ItemField<Record>, kItemCount> ItemFields(
    const FieldRow (&fields)[Count]) {
    std::array<ItemField<Record>, kItemCount> items{};
    std::size_t next = 0;
    for (const FieldRow& field : fields)
        if (field.form == FieldForm::Text)
            items[next++] = {field.id, field.list, std::get<QString Record::*>(field.member)};
    return items;
}

/// The members that hold them.
template <class Record, std::size_t Count>
[[nodiscard]] constexpr std::array<QString Record::*, kItemCount> ItemMembers(
    const FieldRow (&fields)[Count]) {
    std::array<QString Record::*, kItemCount> members{};
    std::size_t next = 0;
    for (const ItemField<Record>& item : ItemFields<Record>(fields)) members[next++] = item.member;
    return members;
}
