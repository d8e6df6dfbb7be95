#pragma once

#include "fields/CompareForm.h"

#include <QString>
#include <cstdint>

class CVORec;
struct CRegionalInfo;

/// Of one of the 34 columns.
[[nodiscard]] CompareForm CompareFormOf(int column);

/// What a comparison needs of one row, taken once before a sort starts.
struct RowKey {
    /// Day and start, span, minute of the day, number or flag, so mapped that the less value is the less
    /// number. 0: no value, except of flags. Not used by texts.
    std::uint64_t order = 0;
    QString text;  ///< case-folded, of text columns only
};

/// The key of a record in a column of its kind.
[[nodiscard]] RowKey MakeRowKey(const CVORec& record, int column, const CRegionalInfo& region);
/// The text that a key has, not yet folded: for a caller that folds many equal ones once.
[[nodiscard]] QString RowText(const CVORec& record, int column);

/// The day, as a number of DayOrder, in the order of a date column, without the start that stands in it.
[[nodiscard]] std::uint32_t DayOfOrder(std::uint64_t order);

/// Below 0: a goes first; above 0: b does. These are not all proper orders, and that is wanted:
/// - two equal spans give 1 ascending and -1 descending, whichever comes first;
/// - a row without a span goes first in both directions, a row without a date only ascending;
/// - two unequal numbers and two equal ones are told apart by "less" alone, so equal ones give 1 ascending;
/// - flags and notes give the same answer in both orders: -1 ascending for two alike, 1 for two that differ.
/// Use MergeSort, which copes with that.
[[nodiscard]] int CompareRows(CompareForm form, const RowKey& a, const RowKey& b, bool ascending);
/// The same of the orders alone; texts by the order that stands for them.
[[nodiscard]] int CompareOrders(CompareForm form, std::uint64_t a, std::uint64_t b, bool ascending);
