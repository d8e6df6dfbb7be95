#include "calendar/CalendarMath.h"
#include "lang/FormatText.h"

#include <array>
#include <cstdint>

namespace {

using WeekRule = int (*)(int dayNumber);

/// The four rules in the order of the setting weekNumberType.
constexpr std::array<WeekRule, 4> kWeekRules = {WeekIso, WeekSimple, WeekFirstSunday, WeekFirstMonday};

/// 1 January of the year of a day.
struct YearStart {
    int dayNumber;
    int dayOfWeek;
};

YearStart YearStartOf(int dayNumber) {
    const int year = FromDayNumber(dayNumber).year;
    return {DayNumber(1, 1, year), DayOfWeek(1, 1, year)};
}

bool IsWeekRule(int weekNumberType) {
    return weekNumberType >= 0 && weekNumberType < static_cast<int>(kWeekRules.size());
}

}  // namespace

int WeekByRule(int dayNumber, int weekNumberType) {
    return IsWeekRule(weekNumberType) ? kWeekRules[static_cast<std::size_t>(weekNumberType)](dayNumber) : 0;
}

int WeekIso(int dayNumber) {
    const std::int64_t j = dayNumber;
    const std::int64_t d4 = (j + 31741 - j % 7) % 146097 % 36524 % 1461;
    const std::int64_t leap = d4 / 1460;
    return static_cast<int>(((d4 - leap) % 365 + leap) / 7 + 1);
}

/// Inherits the odd day of DayOfYear: 31 December 2000 lies in week 1.
int WeekSimple(int dayNumber) {
    return (DayOfYear(dayNumber) - 1) / 7 + 1;
}

int WeekFirstSunday(int dayNumber) {
    const YearStart first = YearStartOf(dayNumber);
    return (dayNumber - first.dayNumber + first.dayOfWeek) / 7 + 1;
}

/// Goes up at each Monday, except that a year that starts on a Sunday has a first week of eight days: for 1
/// January -1 / 7 gives 0, and the Monday on the 2nd starts no new week. That is wanted.
int WeekFirstMonday(int dayNumber) {
    const YearStart first = YearStartOf(dayNumber);
    return (dayNumber - first.dayNumber + first.dayOfWeek - 1) / 7 + 1;
}

QString DayWeekLabel(int month, int day, int year, bool showDay, int weekNumberType) {
    const int dayNumber = DayNumber(month, day, year);
    QString label = QStringLiteral("(");
    if (showDay) label += FormatText<Text::DayOfYearNumber>(DayOfYear(dayNumber)) + QStringLiteral(", ");
    const bool isDayAlone = showDay && !IsWeekRule(weekNumberType);
    label += FormatText<Text::WeekNumber>(isDayAlone ? DayOfYear(dayNumber)
                                                     : WeekByRule(dayNumber, weekNumberType));
    return label + u')';
}
