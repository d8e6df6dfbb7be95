#include "calendar/CalendarMath.h"

#include "calendar/Saturated.h"
#include "lang/LoadText.h"

#include <array>

namespace {

constexpr std::array<int, 12> kMonthLengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<Text, 7> kWeekdays = {Text::Sunday,   Text::Monday, Text::Tuesday, Text::Wednesday,
                                           Text::Thursday, Text::Friday, Text::Saturday};
constexpr int kDayMinutes = 24 * 60;
constexpr int kDaySeconds = kDayMinutes * 60;
constexpr int kNoon = 12;

/// The one midnight that a span may cross: an afternoon's start and a morning's end.
bool CrossesMidnight(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    return start.wHour >= kNoon && end.wHour < kNoon;
}

int MinuteOfDay(const SYSTEMTIME& time) {
    return time.wHour * 60 + time.wMinute;
}

int SecondOfDay(const SYSTEMTIME& time) {
    return MinuteOfDay(time) * 60 + time.wSecond;
}

ClockSpan SpanOfSeconds(int seconds) {
    ClockSpan span;
    span.known = true;
    span.hours = seconds / 3600;
    span.minutes = seconds / 60 - 60 * span.hours;
    span.seconds = seconds % 60;
    span.decimalHours = static_cast<float>(span.minutes) * 0.016666668F + static_cast<float>(span.hours);
    return span;
}

}  // namespace

int DayNumber(int month, int day, int year) {
    const std::int64_t a = (14 - std::int64_t{month}) / 12;
    const std::int64_t y = year - a + 4800;
    const std::int64_t t = (153 * (month + 12 * a) - 457) / 5;
    return Saturated(day + t + 365 * y + y / 4 - y / 100 + y / 400 - 32045);
}

CalendarDay FromDayNumber(int dayNumber) {
    const std::int64_t j = std::int64_t{dayNumber} + 32044;
    const std::int64_t b = (4 * j + 3) / 146097;
    const std::int64_t c = j - (146097 * b) / 4;
    const std::int64_t d = (4 * c + 3) / 1461;
    const std::int64_t e = c - (1461 * d) / 4;
    const std::int64_t m = (5 * e + 2) / 153;
    return {.month = Saturated(m + 3 - 12 * (m / 10)),
            .day = Saturated(e - (153 * m + 2) / 5 + 1),
            .year = Saturated((b - 48) * 100 + d + m / 10)};
}

bool IsLeapYear(int year) {
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
}

int DaysInMonth(int month, int year) {
    if (month < 1 || month > 12) return 0;
    return month == 2 && IsLeapYear(year) ? 29 : kMonthLengths[static_cast<std::size_t>(month - 1)];
}

int DayOfWeek(int month, int day, int year) {
    const std::int64_t a = (14 - std::int64_t{month}) / 12;
    const std::int64_t y = year - a;
    const std::int64_t m = month + 12 * a - 2;
    const std::int64_t rest = (day + y + y / 4 - y / 100 + y / 400 + 31 * m / 12) % 7;
    return static_cast<int>((rest + 7) % 7);
}

int DayOfYear(int dayNumber) {
    const std::int64_t d = (std::int64_t{dayNumber} + 31738) % 146097 % 36524 % 1461;
    const std::int64_t leap = d / 1460;
    return static_cast<int>((d - leap) % 365 + leap + 1);
}

QString WeekdayName(int dayOfWeek) {
    if (dayOfWeek < 0 || dayOfWeek > 6) return {};
    return LoadText(kWeekdays[static_cast<std::size_t>(dayOfWeek)]);
}

ClockSpan MinutesBetween(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    int minutes = MinuteOfDay(end) - MinuteOfDay(start);
    if (minutes < 1) {
        if (!CrossesMidnight(start, end)) return {};
        minutes += kDayMinutes;
    }
    return SpanOfSeconds(minutes * 60);
}

ClockSpan SecondsBetween(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    int seconds = SecondOfDay(end) - SecondOfDay(start);
    if (seconds < 60) {
        if (CrossesMidnight(start, end))
            seconds += kDaySeconds;
        else if (seconds < 0)
            return {};
    }
    return SpanOfSeconds(seconds);
}

void NormaliseTime(int& hour, int& minute) {
    if (hour < 1 || hour > 12) hour = 12;
    minute = std::clamp(minute, 0, 59);
}

int Hour24Of(int hour12, bool isPm) {
    if (hour12 == 12) return isPm ? 12 : 0;
    return isPm ? Saturated(std::int64_t{hour12} + 12) : hour12;
}

void Hour12Of(int hour24, int& hour12, bool& isPm) {
    isPm = hour24 >= 12;
    hour12 = hour24 > 12 ? hour24 - 12 : hour24;
    if (hour24 == 0) hour12 = 12;
}
