#pragma once

#include "fields/Column.h"
#include "lang/Text.h"

#include <span>

enum class RecordKind : int;

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
/// The columns that make no level of the data tree, in order of their numbers. In which order they are taken
/// out of it doesn't matter, as each only closes its gap.
[[nodiscard]] std::span<const int> ColumnsWithoutLevel();
/// Places in the visible order of the record list before which the layout of several lines starts a new one.
/// The last of each never fires with the default columns: there is no tenth, and no ninth.
[[nodiscard]] std::span<const int> DefaultBreaks(ColumnHalf half);

/// Of a column; of anything else the time half.
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
/// Numbers stand right.
[[nodiscard]] bool IsRightAligned(int column);
