#pragma once

#include "lang/Text.h"

#include <span>
#include <vector>

/// What a column shows, as it is stored with a set of columns.
enum class ColumnKind : int { Image = 3, Text = 5, Date = 6, Time = 7, DateTime = 8, Number = 9 };

/// Numbers of the columns of time records. Expense records have 17 to 33.
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
inline constexpr int kExpenseNotes = 32;
inline constexpr int kCount = 34;
inline constexpr int kNone = 600;  ///< no column at all
}  // namespace Column

/// One column as a fresh installation shows it.
struct ColumnDefaultRow {
    int index;
    Text caption;
    int width;  ///< pixels
    ColumnKind kind;
    int position;  ///< from 1 among the visible columns of its mode; 0: hidden
};

/// All 34 columns in order of their numbers: 0 to 16 of time records, 17 to 33 of expense records.
[[nodiscard]] std::span<const ColumnDefaultRow> ColumnDefaults();
/// The visible columns of time records in order of position.
[[nodiscard]] const std::vector<int>& VisibleTimeColumns();
/// Places in the visible order before which the layout of several lines starts a new one. The 9 never fires
/// with the default columns: there is no tenth.
[[nodiscard]] std::span<const int> TimeLineBreaks();

/// Drawn as an image of 16 pixels. The notes are images among columns but texts among lines.
[[nodiscard]] bool IsImageColumn(int column);
[[nodiscard]] bool IsNotesColumn(int column);
/// Numbers stand right; rate and amount of expenses have their own numbers.
[[nodiscard]] bool IsRightAligned(int column);
