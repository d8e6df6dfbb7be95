#pragma once

#include <QString>

/// The texts of values as records show them, made once and then handed out again: over a lifetime of records
/// the same days, lengths and amounts come back thousands of times. All follow the regional values in use.
/// For the one thread of the program; each reference holds until the next call.

/// A number rounded to its precision, with its text.
struct DecimalText {
    float value = 0.0F;
    QString text;
};
[[nodiscard]] const DecimalText& TextOfDecimal(float value, int precision);

/// The texts of a day: year in full, two-digit year, no year.
struct DayTexts {
    QString longText;
    QString shortText;
    QString dayText;
};
[[nodiscard]] const DayTexts& TextsOfDay(int month, int day, int year);

/// A length of time as hours and minutes, "8:05".
[[nodiscard]] const QString& TextOfClockSpan(int hours, int minutes);

/// What stands where there is no time and no span: "--:--".
[[nodiscard]] const QString& NoTimeText();
