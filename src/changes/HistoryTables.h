#pragma once

#include <QByteArrayList>

/// The tables of the store by the numbers under which the history knows them, which are stored.
enum class HistoryTable : int { Time = 0, Expense = 1, Item = 2, Dependency = 3 };

/// Their names.
[[nodiscard]] const QByteArrayList& HistoryTables();
