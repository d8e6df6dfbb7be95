#pragma once

#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"
#include "records/RowConditions.h"

#include <array>

/// The days that a filter lets pass, and nothing of its items.
[[nodiscard]] RowConditions DayConditionsOf(const PeriodFilter& filter, const PeriodContext& context);

/// What a filter asks of days and items, for a statement that leaves out what can't pass. The texts are
/// wanted in these members; the word for any: no condition.
template <class Record, std::size_t Count>
[[nodiscard]] RowConditions ConditionsOf(const PeriodFilter& filter, const PeriodContext& context,
                                         const std::array<QString, Count>& items,
                                         const std::array<QString Record::*, Count>& members) {
    RowConditions conditions = DayConditionsOf(filter, context);
    const QString any = LoadText(Text::AnyWord);
    for (std::size_t i = 0; i < Count; ++i)
        if (items[i] != any)
            conditions.texts.push_back({.column = Record::ColumnOf(members[i]),
                                        .wanted = items[i],
                                        .isWhole = filter.matchWhole,
                                        .isExact = filter.matchCase});
    return conditions;
}
