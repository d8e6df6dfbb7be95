#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"
#include "calendar/Saturated.h"

namespace {

void MoveToDay(DateTimeVal& value, std::int64_t dayNumber) {
    const CalendarDay moved = FromDayNumber(Saturated(dayNumber));
    value.month = moved.month;
    value.day = moved.day;
    value.year = moved.year;
}

/// Puts a 24-hour figure back as a 12-hour time. A figure out of range (38 and more hours were added) gives
/// an hour above 12; the verdict stays as it was.
void PutHour(DateTimeVal& value, std::int64_t hour24) {
    bool isPm = false;
    Hour12Of(Saturated(hour24), value.hour12, isPm);
    value.isPm = isPm ? 1 : 0;
}

}  // namespace

DateTimeVal& DateTimeVal::AddDays(int n) {
    MoveToDay(*this, std::int64_t{DayNumber(month, day, year)} + n);
    return *this;
}

DateTimeVal& DateTimeVal::SubtractDays(int n) {
    MoveToDay(*this, std::int64_t{DayNumber(month, day, year)} - n);
    return *this;
}

DateTimeVal& DateTimeVal::AddMonths(int n) {
    const std::int64_t sum = std::int64_t{month} + n;
    const std::int64_t years = sum > 12 ? (sum - 1) / 12 : 0;
    month = Saturated(sum - 12 * years);
    year = Saturated(year + years);
    ClampDay();
    return *this;
}

DateTimeVal& DateTimeVal::SubtractMonths(int n) {
    std::int64_t years = n > 12 ? n / 12 : 0;
    std::int64_t rest = std::int64_t{month} - (n - 12 * years);
    if (rest < 1) {
        rest += 12;
        ++years;
    }
    month = Saturated(rest);
    year = Saturated(year - years);
    ClampDay();
    return *this;
}

DateTimeVal& DateTimeVal::AddYears(int n) {
    year = Saturated(std::int64_t{year} + n);
    ClampDay();
    return *this;
}

DateTimeVal& DateTimeVal::SubtractYears(int n) {
    year = Saturated(std::int64_t{year} - n);
    ClampDay();
    return *this;
}

/// Hours wrap around midnight, once; the date stays.
DateTimeVal& DateTimeVal::AddHours(int n) {
    const std::int64_t sum = std::int64_t{Hour24()} + n;
    PutHour(*this, sum >= 24 ? sum - 24 : sum);
    return *this;
}

DateTimeVal& DateTimeVal::SubtractHours(int n) {
    const std::int64_t difference = std::int64_t{Hour24()} - n;
    PutHour(*this, difference < 0 ? difference + 24 : difference);
    return *this;
}

DateTimeVal& DateTimeVal::AddMinutes(int n) {
    const std::int64_t sum = std::int64_t{minute} + n;
    const std::int64_t hours = sum >= 60 ? sum / 60 : 0;
    if (hours > 0) AddHours(Saturated(hours));
    minute = Saturated(sum - 60 * hours);
    return *this;
}

DateTimeVal& DateTimeVal::SubtractMinutes(int n) {
    std::int64_t left = n;
    if (n > minute) {
        const int hours = n / 60;
        left -= std::int64_t{60} * hours;
        SubtractHours(hours);
        if (left > minute) {
            SubtractHours(1);
            left -= 60;
        }
    }
    minute = Saturated(minute - left);
    return *this;
}

/// 31 March less a month is 28 or 29 February.
void DateTimeVal::ClampDay() {
    const int length = DaysInMonth(month, year);
    if (length > 0 && day > length) day = length;
}
