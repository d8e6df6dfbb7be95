#pragma once

#include "calendar/DateTimeVal.h"
#include "entry/Typed.h"
#include "platform/host/CRegionalInfo.h"

#include <QString>

/// A time of day: "9", "930", "9:30", "9.30", "9h30", "2130", "9 pm", "9:30p", or the word for now ("n"
/// does). Without AM or PM the clock of 24 hours is meant, in every region: "9" is 9 AM and "12" is noon.
[[nodiscard]] Typed ReadTypedTime(const QString& text, const CClock& clock, DateTimeVal& out);

/// A length of time under 24 hours: "1:30", ":45", "90m", "1h", "1h30", or hours with decimals, "1.5" and the
/// region's "1,5". A bare number is hours.
[[nodiscard]] Typed ReadTypedSpan(const QString& text, const CRegionalInfo& region, int& hours, int& minutes);

/// A day of the calendar: in the region's order with any separator and a year of up to four digits, without a
/// year (this year), a day of this month, year-month-day with four digits in front, or the word for today
/// ("t" does). A day that no month has, such as 31 February, can't be read.
[[nodiscard]] Typed ReadTypedDate(const QString& text, const CRegionalInfo& region, const CClock& clock,
                                  DateTimeVal& out);
