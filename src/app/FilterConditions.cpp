#include "app/FilterConditions.h"

RowConditions DayConditionsOf(const PeriodFilter& filter, const PeriodContext& context) {
    RowConditions conditions;
    DateTimeVal first, last;
    if (filter.Dates(first, last, context))
        conditions.days = {{first.year, first.month, first.day}, {last.year, last.month, last.day}};
    return conditions;
}
