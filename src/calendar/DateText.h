#pragma once

#include <QString>

struct CRegionalInfo;

/// The three texts of a day, in the order and with the separator of the locale.

/// With the year in full: "11/19/2026".
[[nodiscard]] QString LongDateText(const CRegionalInfo& locale, int month, int day, int year);
/// With the year modulo 100: "11/19/26". In a year such as 2000 that is 0, and the year falls away: "11/19".
[[nodiscard]] QString ShortDateText(const CRegionalInfo& locale, int month, int day, int year);
/// Without year: "11/19".
[[nodiscard]] QString DayText(const CRegionalInfo& locale, int month, int day);
