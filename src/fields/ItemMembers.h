#pragma once

#include "fields/FieldRow.h"

#include <array>

inline constexpr std::size_t kItemCount = 5;

/// The members that hold the five items of a kind of records, in the order of their names.
template <class Record, std::size_t Count>
[[nodiscard]] constexpr std::array<QString Record::*, kItemCount> ItemMembers(
    const FieldRow (&fields)[Count]) {
    std::array<QString Record::*, kItemCount> members{};
    std::size_t next = 0;
    for (const FieldRow& field : fields)
        if (field.form == FieldForm::Text) members[next++] = std::get<QString Record::*>(field.member);
    return members;
}
