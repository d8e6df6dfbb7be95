#include "app/FilterConditions.h"

#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"

RowConditions ConditionsOf(const PeriodFilter& filter, const PeriodContext& context,
                           const std::array<QString, 5>& items, const std::array<Text, 5>& columns) {
    RowConditions conditions;
    DateTimeVal first, last;
    if (filter.Dates(first, last, context))
        conditions.days = {{first.year, first.month, first.day}, {last.year, last.month, last.day}};
    const QString any = LoadText(Text::AnyWord);
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i] != any)
            conditions.texts.push_back({.column = columns[i],
                                        .wanted = items[i],
                                        .isWhole = filter.matchWhole,
                                        .isExact = filter.matchCase});
    return conditions;
}
