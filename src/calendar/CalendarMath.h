#pragma once

#include "platform/host/SYSTEMTIME.h"

#include <QString>

/// A day of the Gregorian calendar.
struct CalendarDay {
    int month = 0;
    int day = 0;
    int year = 0;
    bool operator==(const CalendarDay&) const = default;
};

/// Julian Day Number of a Gregorian date. 1 January 2000 is 2451545. A day past the end of its month counts
/// on: 31 February is the 2nd or 3rd of March.
[[nodiscard]] int DayNumber(int month, int day, int year);
[[nodiscard]] CalendarDay FromDayNumber(int dayNumber);
[[nodiscard]] bool IsLeapYear(int year);
/// 28 to 31; 0 for a month outside 1 to 12. Year 0 counts as a leap year.
[[nodiscard]] int DaysInMonth(int month, int year);
/// 0 is Sunday to 6 Saturday.
[[nodiscard]] int DayOfWeek(int month, int day, int year);
/// Day of the year, from 1. The last day of a 400-year cycle gives 1 (31 December 2000), and that is wanted.
[[nodiscard]] int DayOfYear(int dayNumber);
/// Name of a weekday 0 to 6; an empty text for another number.
[[nodiscard]] QString WeekdayName(int dayOfWeek);

/// Week numbers of a day number by the four rules.
[[nodiscard]] int WeekIso(int dayNumber);          ///< ISO 8601
[[nodiscard]] int WeekSimple(int dayNumber);       ///< the 2nd week starts on the 8th
[[nodiscard]] int WeekFirstSunday(int dayNumber);  ///< the 2nd week starts on the first Sunday
[[nodiscard]] int WeekFirstMonday(int dayNumber);  ///< the 2nd week starts on the first Monday
/// By rule 0 ISO, 1 simple, 2 first Sunday, 3 first Monday; 0 for another rule.
[[nodiscard]] int WeekByRule(int dayNumber, int weekNumberType);

/// "(323, 47)" or "(47)": day of the year when asked for, and the week number by rule 0 ISO, 1 simple, 2
/// first Sunday, 3 first Monday. Another rule shows the day of the year, or 0 without it.
[[nodiscard]] QString DayWeekLabel(int month, int day, int year, bool showDay, int weekNumberType);

/// A length of time between two clock times.
struct ClockSpan {
    bool known = false;  ///< false: no span, all figures 0
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    float decimalHours = 0.0F;  ///< minutes * 0.016666668 plus hours
};

/// Minutes from start to end, reading hour and minute only. Crosses one midnight when the start is at 12:00
/// or later and the end before 12:00; equal times and any other earlier end are no span.
[[nodiscard]] ClockSpan MinutesBetween(const SYSTEMTIME& start, const SYSTEMTIME& end);
/// The same with seconds; a difference of 0 to 59 seconds stands.
[[nodiscard]] ClockSpan SecondsBetween(const SYSTEMTIME& start, const SYSTEMTIME& end);

/// Repairs a time for a record: an hour outside 1 to 12 becomes 12, a minute is brought into 0 to 59.
void NormaliseTime(int& hour, int& minute);

/// 12-hour to 24-hour and back: 12 AM is 0, 12 PM is 12. A 24-hour figure above 23 gives an hour above 12.
[[nodiscard]] int Hour24Of(int hour12, bool isPm);
void Hour12Of(int hour24, int& hour12, bool& isPm);
