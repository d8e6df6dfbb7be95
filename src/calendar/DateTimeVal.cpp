#include "calendar/DateTimeVal.h"

#include "calendar/CalendarMath.h"

#include <tuple>

namespace {

/// How a year that was entered short is completed. The years from 50 to 999 look odd and are wanted: 899
/// becomes 2899, 999 becomes 1999.
struct YearRow {
    int from;  ///< the row holds from this year upward
    int added;
};
constexpr YearRow kYearRows[] = {{1000, 0}, {900, 1000}, {100, 2000}, {50, 1900}};
constexpr int kAddedBelow = 2000;

int FullYear(int year) {
    for (const YearRow& row : kYearRows)
        if (year >= row.from) return year + row.added;
    return year + kAddedBelow;
}

std::tuple<int, int, int> DateKey(const DateTimeVal& value) {
    return {value.year, value.month, value.day};
}

std::uint16_t ClockField(int value) {
    return static_cast<std::uint16_t>(value);
}

/// Only keeps a picker in range, nothing reads it back.
constexpr std::uint16_t kFiller = 5;

}  // namespace

void DateTimeVal::CopyFrom(const DateTimeVal& other) {
    const std::uint8_t verdict = isValid;
    *this = other;
    isValid = verdict;
}

bool DateTimeVal::SetDate(int newMonth, int newDay, int newYear) {
    month = newMonth;
    day = newDay;
    year = newYear;
    hour12 = 0;
    minute = 0;
    isPm = 0;
    return ValidateDate();
}

bool DateTimeVal::SetTime(int newHour12, int newMinute, bool newIsPm) {
    hour12 = newHour12;
    minute = newMinute;
    isPm = newIsPm ? 1 : 0;
    return ValidateTime();
}

bool DateTimeVal::SetTime24(int hour24, int newMinute) {
    int hour = 0;
    bool pm = false;
    if (hour24 >= 0 && hour24 <= 23) Hour12Of(hour24, hour, pm);
    return SetTime(hour, newMinute, pm);
}

bool DateTimeVal::SetTimeFromClock(const SYSTEMTIME& clockTime) {
    return SetTime24(clockTime.wHour, clockTime.wMinute);
}

bool DateTimeVal::SetToday(const CClock& clock) {
    const SYSTEMTIME now = clock.GetLocalTime();
    return SetDate(now.wMonth, now.wDay, now.wYear);
}

bool DateTimeVal::SetNow(const CClock& clock) {
    const SYSTEMTIME now = clock.GetLocalTime();
    const bool dateIsValid = SetDate(now.wMonth, now.wDay, now.wYear);
    const bool timeIsValid = SetTimeFromClock(now);
    return dateIsValid && timeIsValid;
}

/// The length of the month isn't looked at: 31 February passes.
bool DateTimeVal::ValidateDate() {
    isValid = month >= 1 && month <= 12 && day >= 1 && day <= 31 ? 1 : 0;
    if (isValid == 0)
        month = day = year = 0;
    else
        year = FullYear(year);
    return IsValid();
}

bool DateTimeVal::ValidateTime() {
    isValid = hour12 >= 1 && hour12 <= 12 && minute >= 0 && minute <= 59 ? 1 : 0;
    if (isValid == 0) {
        hour12 = minute = 0;
        isPm = 0;
    }
    return IsValid();
}

bool DateTimeVal::IsLaterDate(const DateTimeVal& other) const {
    return DateKey(*this) > DateKey(other);
}

bool DateTimeVal::IsEarlierDate(const DateTimeVal& other) const {
    return DateKey(*this) < DateKey(other);
}

bool DateTimeVal::IsSameDate(const DateTimeVal& other) const {
    return DateKey(*this) == DateKey(other);
}

/// 12 counts as zero within its half day: 12:30 AM is earlier than 1:00 AM.
bool DateTimeVal::IsEarlierTime(const DateTimeVal& other) const {
    if ((isPm != 0) != (other.isPm != 0)) return other.isPm != 0;
    const int hour = hour12 == 12 ? 0 : hour12;
    const int otherHour = other.hour12 == 12 ? 0 : other.hour12;
    if (hour != otherHour) return hour < otherHour;
    return minute < other.minute;
}

bool DateTimeVal::IsLaterTime(const DateTimeVal& other) const {
    return other.IsEarlierTime(*this);
}

void DateTimeVal::WeekRange(int firstDayOfWeek, DateTimeVal& outStart, DateTimeVal& outEnd) const {
    int daysIntoWeek = DayOfWeek(month, day, year) - firstDayOfWeek;
    if (daysIntoWeek < 0) daysIntoWeek += 7;
    DateTimeVal first;
    first.CopyFrom(*this);
    first.SubtractDays(daysIntoWeek);
    outStart.SetDate(first.month, first.day, first.year);
    first.AddDays(6);
    outEnd.SetDate(first.month, first.day, first.year);
}

bool DateTimeVal::FirstOfMonth(DateTimeVal& out) const {
    return out.SetDate(month, 1, year);
}

bool DateTimeVal::LastOfMonth(DateTimeVal& out) const {
    constexpr int kLeapYear = 0;  // not this value's year: February ends on the 29th in every year
    return out.SetDate(month, DaysInMonth(month, kLeapYear), year);
}

int DateTimeVal::QuarterOf() const {
    return month >= 1 && month <= 9 ? (month + 2) / 3 : 4;
}

void QuarterRange(DateTimeVal& outStart, DateTimeVal& outEnd, int quarter, int year) {
    if (quarter == 3) {
        outStart.SetDate(7, 1, year);
        outEnd.SetDate(9, 30, year);
        return;
    }
    outStart.SetDate(10, 1, year);
    outEnd.SetDate(12, 31, year);
}

int DateTimeVal::Hour24() const {
    return Hour24Of(hour12, hour12 == 12 ? isPm != 0 : isPm == 1);
}

void DateTimeVal::ToClockDate(SYSTEMTIME& out) const {
    out = {.wYear = ClockField(year),
           .wMonth = ClockField(month),
           .wDayOfWeek = 1,
           .wDay = ClockField(day),
           .wHour = kFiller,
           .wMinute = kFiller,
           .wSecond = kFiller,
           .wMilliseconds = kFiller};
}

void DateTimeVal::ToClockTime(SYSTEMTIME& out) const {
    out = {.wYear = 2003,
           .wMonth = 1,
           .wDayOfWeek = 1,
           .wDay = 1,
           .wHour = ClockField(Hour24()),
           .wMinute = ClockField(minute),
           .wSecond = kFiller,
           .wMilliseconds = kFiller};
}
