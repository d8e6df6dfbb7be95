#include "viewmodel/list/ListGroups.h"

#include "calendar/DateTimeVal.h"
#include "viewmodel/list/DayOrder.h"

ListGroups ListGroupsOf(std::int32_t stored) {
    const bool isKnown = stored >= 0 && stored <= static_cast<int>(ListGroups::Months);
    return isKnown ? static_cast<ListGroups>(stored) : ListGroups::None;
}

std::uint32_t FirstDayOfGroup(std::uint32_t day, ListGroups groups, int firstDayOfWeek) {
    if (day == 0 || groups == ListGroups::None || groups == ListGroups::Days) return day;
    const CalendarDay date = DayOfNumber(day);
    if (groups == ListGroups::Months) return DayOrder(date.year, date.month, 1);
    DateTimeVal value, first, last;
    (void)value.SetDate(date.month, date.day, date.year);
    value.WeekRange(firstDayOfWeek, first, last);
    return DayOrder(first.year, first.month, first.day);
}
