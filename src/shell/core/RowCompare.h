#pragma once

#include <QString>

class CTRecord;
struct CRegionalInfo;

/// How the values of a column are compared when the list is sorted by it.
enum class CompareForm { DateAndStart, Span, Text, TimeOfDay, Number, Flag };

[[nodiscard]] CompareForm CompareFormOf(int column);

/// What a sort needs of one row, taken once before it starts.
struct RowKey {
    QString text;         ///< case-folded
    double number = 0.0;  ///< day, decimal hours, minute of the day, number, flag
    int minute = -1;      ///< start time behind a date, -1 without one
    bool hasValue = false;
};

/// The key of a record in a column of time records.
[[nodiscard]] RowKey MakeRowKey(const CTRecord& record, int column, const CRegionalInfo& region);

/// Below 0: a goes first; above 0: b does. These are not all proper orders, and that is wanted:
/// - two equal spans give 1 ascending and -1 descending, whichever comes first;
/// - a row without a span goes first in both directions, a row without a date only ascending;
/// - two unequal numbers and two equal ones are told apart by "less" alone, so equal ones give 1 ascending;
/// - flags and notes give the same answer in both orders: -1 ascending for two alike, 1 for two that differ.
/// Use MergeSort, which stands that.
[[nodiscard]] int CompareRows(CompareForm form, const RowKey& a, const RowKey& b, bool ascending);
