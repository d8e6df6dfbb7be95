#pragma once

#include <QString>

class StatusSums;
struct Settings;

/// Sums as people read them: "EUR 1,240.00 · USD 80.00 · 15:30 h". The amounts of each currency, and those
/// without one, then the hours of all of them together. What comes to nothing isn't named.
[[nodiscard]] QString TotalsText(const StatusSums& sums, const Settings& settings);
/// The two parts of it, each by itself.
[[nodiscard]] QString MoneyTotals(const StatusSums& sums, const Settings& settings);
[[nodiscard]] QString HoursTotals(const StatusSums& sums, const Settings& settings);
/// "3 of 1,234 selected".
[[nodiscard]] QString SelectedCount(int selected, int listed);
/// "1 record", "1,234 expenses"; empty for none.
[[nodiscard]] QString TotalsCount(const StatusSums& sums);
/// Hours as the list shows a length of time, with their unit: "3:15 h", "3.25 h".
[[nodiscard]] QString HoursText(double hours, const Settings& settings);
