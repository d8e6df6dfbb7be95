#pragma once

#include "platform/host/CClock.h"

#include <QString>
#include <cstdint>

struct CRegionalInfo;

/// The hour value of a record's time field that says "no time"; outside 1 to 12 on purpose, so it fails
/// validation.
inline constexpr int NoTimeHour = 50;

/// A Gregorian date and a 12-hour time of day (hour 1 to 12 and a PM flag) with one verdict for both: SetDate
/// leaves the verdict of the date, a later SetTime that of the time. A new value is all zero, invalid,
/// without date and time.
class DateTimeVal {
 public:
    int month = 0;   ///< 1 to 12, 0 when cleared
    int day = 0;     ///< 1 to 31, 0 when cleared
    int year = 0;    ///< full year, 0 when cleared
    int hour12 = 0;  ///< 1 to 12, 0 when there is no time
    int minute = 0;  ///< 0 to 59
    std::uint8_t isPm = 0;
    std::uint8_t isValid = 0;

    /// Copies the six fields and leaves this value's verdict as it was.
    void CopyFrom(const DateTimeVal& other);

    bool SetDate(int newMonth, int newDay, int newYear);
    bool SetTime(int newHour12, int newMinute, bool newIsPm);
    /// An hour outside 0 to 23 fails.
    bool SetTime24(int hour24, int newMinute);
    bool SetTimeFromClock(const SYSTEMTIME& clockTime);
    bool SetToday(const CClock& clock);
    /// Date and time from the clock; true only if both are valid.
    bool SetNow(const CClock& clock);
    bool ValidateDate();
    bool ValidateTime();
    [[nodiscard]] bool IsValid() const { return isValid != 0; }

    /// Reads a date in the user's form. When the text can't be read the value becomes today, valid, and the
    /// result is false.
    bool ParseDateText(const QString& text, const CRegionalInfo& locale, const CClock& clock);
    /// Reads "9:05 PM" or, in 24 hours, "21:05". False zeroes the time; an unknown word behind a good hour
    /// and minute leaves these two as read, with the verdict invalid.
    bool ParseTimeText(const QString& text, bool is24Hour);

    [[nodiscard]] bool IsLaterDate(const DateTimeVal& other) const;
    [[nodiscard]] bool IsEarlierDate(const DateTimeVal& other) const;
    [[nodiscard]] bool IsSameDate(const DateTimeVal& other) const;
    [[nodiscard]] bool IsEarlierTime(const DateTimeVal& other) const;
    [[nodiscard]] bool IsLaterTime(const DateTimeVal& other) const;

    /// Arithmetic changes the fields and leaves the verdict. Days carry over month and year ends; months and
    /// years lower the day to the length of the new month; hours and minutes wrap around midnight, the date
    /// stays. Months, years, hours and minutes take n from 0 upward.
    DateTimeVal& AddDays(int n);
    DateTimeVal& SubtractDays(int n);
    DateTimeVal& AddMonths(int n);
    DateTimeVal& SubtractMonths(int n);
    DateTimeVal& AddYears(int n);
    DateTimeVal& SubtractYears(int n);
    DateTimeVal& AddHours(int n);
    DateTimeVal& SubtractHours(int n);
    DateTimeVal& AddMinutes(int n);
    DateTimeVal& SubtractMinutes(int n);

    void WeekRange(int firstDayOfWeek, DateTimeVal& outStart, DateTimeVal& outEnd) const;
    bool FirstOfMonth(DateTimeVal& out) const;
    /// The last day by a leap year's calendar: February always ends on the 29th here, in common years as
    /// well.
    bool LastOfMonth(DateTimeVal& out) const;
    [[nodiscard]] int QuarterOf() const;

    [[nodiscard]] int Hour24() const;
    void ToClockDate(SYSTEMTIME& out) const;
    void ToClockTime(SYSTEMTIME& out) const;

 private:
    void ClampDay();
};

/// Quarter 3 is July to September; every other quarter, 1, 2 and 4 alike, is October to December of the year.
/// Looks like a slip, is the rule: periods built on it have always meant this.
void QuarterRange(DateTimeVal& outStart, DateTimeVal& outEnd, int quarter, int year);
