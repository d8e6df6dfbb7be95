#pragma once

/// What a column shows, as it is stored with a set of columns.
enum class ColumnKind : int { Image = 3, Text = 5, Date = 6, Time = 7, DateTime = 8, Number = 9 };

/// Numbers of the columns: 0 to 16 of time records, 17 to 33 of expenses.
namespace Column {
inline constexpr int kDate = 0;
inline constexpr int kDuration = 1;
inline constexpr int kEffective = 2;
inline constexpr int kBreak = 3;
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

[[nodiscard]] constexpr bool IsColumn(int column) {
    return column >= 0 && column < Column::kCount;
}
