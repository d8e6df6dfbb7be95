#pragma once

#include "platform/host/CRegionalInfo.h"
#include "platform/host/SYSTEMTIME.h"

#include <QString>

/// How minutes are rounded; the numbers are stored as they stand.
enum class RoundType : int { None = 0, Expansion = 16, Nearest = 32 };

/// Rounds to precision decimal places, half away from zero: 2.5 at 0 gives 3, -1.5 at 0 gives -2.
[[nodiscard]] float RoundDecimal(float value, int precision);
[[nodiscard]] double RoundDecimalWide(double value, int precision);

/// Rounds hours and minutes in place to a multiple of divisor minutes (1 to 59, otherwise nothing happens).
/// roundType is tested by bits, 16 upward, then 32 nearest with ties down. pmFlag: the PM flag of a time of
/// day, which flips when rounding passes noon or midnight; null for a duration. 11:58 AM upward to 5 minutes
/// becomes 12:00 PM.
void RoundMinutes(int& hours, int& minutes, int divisor, int roundType, bool* pmFlag);

/// Reads a number written with a full stop or the locale's decimal character, not both. Blanks in front and
/// what follows the number are passed over. True if one was read; out stays untouched otherwise. "inf",
/// "nan", hexadecimal digits and numbers too large to be held are none.
[[nodiscard]] bool ParseFloat(const CRegionalInfo& locale, const QString& text, float& out);
[[nodiscard]] bool ParseDouble(const CRegionalInfo& locale, const QString& text, double& out);
/// Whether nothing but blanks follows the number that is read: "12,75" is read as 12 where the comma isn't
/// the decimal character.
[[nodiscard]] bool ReadsWhole(const CRegionalInfo& locale, const QString& text);

/// precision decimal places; below 0 up to six significant digits without trailing zeros.
[[nodiscard]] QString FormatNumber(const CRegionalInfo& locale, double value, int precision);
/// "09:05 AM", or "09:05" in a 24-hour locale.
[[nodiscard]] QString FormatTimeOfDay(const CRegionalInfo& locale, int hour12, int minute, bool isPm);
/// The date in the locale's order; a year below 1 is left out.
[[nodiscard]] QString FormatDate(const CRegionalInfo& locale, int month, int day, int year);
/// Reads three numbers in the locale's order with its separator. False leaves the clock value untouched. The
/// year is taken as written, two digits included. A part outside 0 to 65535 can't be read.
[[nodiscard]] bool ParseDate(const CRegionalInfo& locale, const QString& text, SYSTEMTIME& outClock);
