#include "viewmodel/list/GroupTitle.h"

#include "calendar/PeriodFilter.h"
#include "config/Settings.h"
#include "lang/FormatText.h"
#include "viewmodel/list/DayOrder.h"

#include <array>

namespace {

constexpr std::array<Text, 12> kMonths = {Text::MonthJanuary, Text::MonthFebruary, Text::MonthMarch,
                                          Text::MonthApril,   Text::MonthMay,      Text::MonthJune,
                                          Text::MonthJuly,    Text::MonthAugust,   Text::MonthSeptember,
                                          Text::MonthOctober, Text::MonthNovember, Text::MonthDecember};

int DayNumberOf(std::uint32_t day) {
    const CalendarDay date = DayOfNumber(day);
    return DayNumber(date.month, date.day, date.year);
}

QString DateText(int dayNumber, const Settings& settings) {
    const CalendarDay day = FromDayNumber(dayNumber);
    DateTimeVal date;
    (void)date.SetDate(day.month, day.day, day.year);
    return DisplayDate(TheRegion(), date, settings.yearDisplayFormat);
}

QString DayTitle(std::uint32_t day, const Settings& settings) {
    const CalendarDay date = DayOfNumber(day);
    return FormatText<Text::HeadDay>(WeekdayName(DayOfWeek(date.month, date.day, date.year)),
                                     DateText(DayNumberOf(day), settings));
}

/// A week has the number of its middle, which lies in the same week by every rule.
QString WeekTitle(std::uint32_t firstDay, const Settings& settings) {
    constexpr int kMiddle = 3, kLast = 6;
    const int first = DayNumberOf(firstDay);
    const QString from = DateText(first, settings), to = DateText(first + kLast, settings);
    const int number = WeekByRule(first + kMiddle, settings.weekNumberType);
    return number > 0 ? FormatText<Text::HeadWeek>(number, from, to)
                      : FormatText<Text::HeadWeekNoNumber>(from, to);
}

QString MonthTitle(std::uint32_t firstDay) {
    const CalendarDay date = DayOfNumber(firstDay);
    return FormatText<Text::HeadMonth>(LoadText(kMonths[static_cast<std::size_t>(date.month - 1)]),
                                       date.year);
}

QString WithDayName(const QString& title, std::uint32_t day, std::uint32_t today) {
    if (day == today) return FormatText<Text::HeadToday>(title);
    return DayNumberOf(day) + 1 == DayNumberOf(today) ? FormatText<Text::HeadYesterday>(title) : title;
}

}  // namespace

QString GroupTitle(std::uint32_t firstDay, ListGroups groups, std::uint32_t today, const Settings& settings) {
    if (firstDay == 0) return LoadText(Text::HeadNoDate);
    const bool isPresent = firstDay == FirstDayOfGroup(today, groups, settings.firstDayOfWeek);
    if (groups == ListGroups::Weeks) {
        const QString title = WeekTitle(firstDay, settings);
        return isPresent ? FormatText<Text::HeadThisWeek>(title) : title;
    }
    if (groups == ListGroups::Months) {
        const QString title = MonthTitle(firstDay);
        return isPresent ? FormatText<Text::HeadThisMonth>(title) : title;
    }
    return WithDayName(DayTitle(firstDay, settings), firstDay, today);
}
