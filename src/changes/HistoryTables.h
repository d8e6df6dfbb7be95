#pragma once

#include "records/RowCapture.h"

#include <QByteArrayList>
#include <vector>

struct HistoryRow;

/// What changes by the numbers under which the history knows it, which are stored: the tables of the store,
/// and two that are none.
enum class HistoryTable : int {
    Time = 0,
    Expense = 1,
    Item = 2,
    Dependency = 3,
    Entry = 4,  ///< of the settings, by key and name
    Timer = 5   ///< of a record
};

/// The names of the tables of the store.
[[nodiscard]] const QByteArrayList& HistoryTables();
/// The same with the columns by which the user knows a row: client and project of records, list, type, text
/// and number of items.
[[nodiscard]] const std::vector<CapturedTable>& CapturedTables();

/// Whether a change is one of the settings; the others are of the store.
[[nodiscard]] bool IsOfSettings(const HistoryRow& row);
