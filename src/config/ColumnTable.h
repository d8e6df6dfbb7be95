#pragma once

#include "lang/Text.h"

#include <span>

enum class RecordKind : int;

/// What a column shows, as it is stored with a set of columns.
enum class ColumnKind : int { Image = 3, Text = 5, Date = 6, Time = 7, DateTime = 8, Number = 9 };

/// Numbers of the columns: 0 to 16 of time records, 17 to 33 of expenses.
namespace Column {
inline constexpr int kDate = 0;
inline constexpr int kDuration = 1;
inline constexpr int kBreak = 2;
inline constexpr int kEffective = 3;
inline constexpr int kItem1 = 4;
inline constexpr int kItem2 = 5;
inline constexpr int kStart = 6;
inline constexpr int kEnd = 7;
inline constexpr int kRate = 8;
inline constexpr int kItem3 = 9;
inline constexpr int kItem4 = 10;
inline constexpr int kItem5 = 11;
inline constexpr int kAmount = 12;
inline constexpr int kBillable = 13;
inline constexpr int kBilled = 14;
inline constexpr int kNotes = 15;
inline constexpr int kExported = 16;
inline constexpr int kFirstExpense = 17;
inline constexpr int kExpenseDate = 17;
inline constexpr int kExpenseAmount = 18;
inline constexpr int kExpenseItem1 = 19;
inline constexpr int kExpenseItem2 = 20;
inline constexpr int kExpenseItem3 = 21;
inline constexpr int kIsDistance = 22;
inline constexpr int kDistance = 23;
inline constexpr int kExpenseRate = 24;
inline constexpr int kExpenseItem4 = 25;
inline constexpr int kExpenseItem5 = 26;
inline constexpr int kFlag1 = 27;
inline constexpr int kFlag2 = 28;
inline constexpr int kFlag3 = 29;
inline constexpr int kFlag4 = 30;
inline constexpr int kFlag5 = 31;
inline constexpr int kExpenseNotes = 32;
inline constexpr int kExpenseExported = 33;
inline constexpr int kCount = 34;
inline constexpr int kNone = 600;  ///< no column at all
}  // namespace Column

/// The time records' half (columns 0 to 16) or the expenses' (17 to 33).
enum class ColumnHalf { Time, Expense };

/// One column as a fresh installation has it.
struct ColumnRow {
    int index;
    Text caption;
    int width;  ///< pixels
    ColumnKind kind;
    int field;         ///< number of the field whose name is the caption; 0: none
    int listPosition;  ///< in the record list, from 1 among the visible columns of its half; 0: hidden
    int treePosition;  ///< the same as a level of the data tree, before the exclusion
};

/// All 34 columns in order of their numbers.
[[nodiscard]] std::span<const ColumnRow> ColumnTable();
/// The columns that make no level of the data tree, in the order in which they are taken out of it.
[[nodiscard]] std::span<const int> ColumnsWithoutLevel();
/// Places in the visible order of the record list before which the layout of several lines starts a new one.
/// The last of each never fires with the default columns: there is no tenth, and no ninth.
[[nodiscard]] std::span<const int> DefaultBreaks(ColumnHalf half);

[[nodiscard]] constexpr bool IsColumn(int column) {
    return column >= 0 && column < Column::kCount;
}
/// Of a column; whoever has none takes the time half.
[[nodiscard]] constexpr ColumnHalf HalfOf(int column) {
    return column >= Column::kFirstExpense && column < Column::kCount ? ColumnHalf::Expense
                                                                      : ColumnHalf::Time;
}
/// Of a kind of records: expenses have theirs, all others the time half.
[[nodiscard]] ColumnHalf HalfOf(RecordKind kind);
[[nodiscard]] constexpr int FirstColumn(ColumnHalf half) {
    return half == ColumnHalf::Time ? 0 : Column::kFirstExpense;
}
/// Behind the last.
[[nodiscard]] constexpr int EndOfColumns(ColumnHalf half) {
    return half == ColumnHalf::Time ? Column::kFirstExpense : Column::kCount;
}

/// Drawn as an image of 16 pixels. The notes are images among columns but texts among lines.
[[nodiscard]] bool IsImageColumn(int column);
[[nodiscard]] bool IsNotesColumn(int column);
/// Numbers stand right; rate and amount of expenses have their own numbers.
[[nodiscard]] bool IsRightAligned(int column);
