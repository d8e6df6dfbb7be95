#include "config/ColumnTable.h"

#include "records/CVORec.h"

#include <algorithm>
#include <array>

namespace {

constexpr ColumnRow kColumns[] = {
    {0, Text::ColumnCaptionDate, 80, ColumnKind::DateTime, 0, 1, 5},
    {1, Text::ColumnCaptionDuration, 44, ColumnKind::Number, 0, 3, 0},
    {2, Text::ColumnCaptionBreak, 44, ColumnKind::Number, 0, 0, 0},
    {3, Text::ColumnCaptionEffective, 44, ColumnKind::Number, 0, 0, 0},
    {4, Text::FieldClient, 60, ColumnKind::Text, 109, 6, 1},
    {5, Text::FieldProject, 90, ColumnKind::Text, 110, 7, 2},
    {6, Text::ColumnCaptionStart, 65, ColumnKind::Time, 0, 2, 0},
    {7, Text::ColumnCaptionEnd, 65, ColumnKind::Time, 0, 0, 0},
    {8, Text::FieldRate, 50, ColumnKind::Number, 113, 0, 0},
    {9, Text::FieldActivity, 90, ColumnKind::Text, 111, 8, 3},
    {10, Text::FieldCostCentre, 90, ColumnKind::Text, 112, 9, 4},
    {11, Text::FieldCurrency, 45, ColumnKind::Text, 114, 0, 0},
    {12, Text::FieldAmount, 90, ColumnKind::Number, 115, 0, 0},
    {13, Text::ColumnCaptionBillable, 30, ColumnKind::Image, 117, 4, 0},
    {14, Text::ColumnCaptionBilled, 35, ColumnKind::Image, 118, 5, 0},
    {15, Text::ColumnCaptionNotes, 30, ColumnKind::Image, 116, 0, 0},
    {16, Text::ColumnCaptionExported, 30, ColumnKind::Image, 146, 0, 0},
    {17, Text::ColumnCaptionDate, 80, ColumnKind::Date, 0, 1, 5},
    {18, Text::FieldAmount, 60, ColumnKind::Number, 136, 2, 0},
    {19, Text::FieldClient, 60, ColumnKind::Text, 131, 5, 1},
    {20, Text::FieldProject, 60, ColumnKind::Text, 132, 6, 2},
    {21, Text::FieldExpenseItem3, 60, ColumnKind::Text, 133, 7, 4},
    {22, Text::ColumnCaptionTrip, 30, ColumnKind::Image, 0, 0, 0},
    {23, Text::FieldDistance, 50, ColumnKind::Number, 0, 0, 0},
    {24, Text::FieldRate, 50, ColumnKind::Number, 0, 0, 0},
    {25, Text::FieldExpenseItem4, 90, ColumnKind::Text, 134, 8, 3},
    {26, Text::FieldExpenseCurrency, 90, ColumnKind::Text, 135, 0, 0},
    {27, Text::ColumnCaptionBillable, 30, ColumnKind::Image, 138, 3, 0},
    {28, Text::ColumnCaptionBilled, 30, ColumnKind::Image, 139, 4, 0},
    {29, Text::ColumnCaptionFlag3, 30, ColumnKind::Image, 141, 0, 0},
    {30, Text::ColumnCaptionFlag4, 30, ColumnKind::Image, 142, 0, 0},
    {31, Text::ColumnCaptionFlag5, 30, ColumnKind::Image, 140, 0, 0},
    {32, Text::ColumnCaptionNotes, 30, ColumnKind::Image, 137, 0, 0},
    {33, Text::ColumnCaptionExported, 30, ColumnKind::Image, 148, 0, 0},
};
static_assert(std::size(kColumns) == Column::kCount);

constexpr bool InOrder() {
    for (int i = 0; i < Column::kCount; ++i)
        if (kColumns[i].index != i) return false;
    return true;
}
static_assert(InOrder(), "a column's number is its place in the table");

constexpr int kTimeBreaks[] = {5, 7, 9};
constexpr int kExpenseBreaks[] = {4, 6, 8};
/// Dates, times, spans, numbers, notes and the export marks.
constexpr int kWithoutLevel[] = {0, 1, 2, 3, 6, 7, 8, 12, 15, 16, 17, 18, 24, 32, 23, 33};
constexpr std::array kRightAligned = {1, 2, 3, 8, 12, 18, 23, 24};

}  // namespace

std::span<const ColumnRow> ColumnTable() {
    return kColumns;
}

std::span<const int> ColumnsWithoutLevel() {
    return kWithoutLevel;
}

std::span<const int> DefaultBreaks(ColumnHalf half) {
    if (half == ColumnHalf::Time) return kTimeBreaks;
    return kExpenseBreaks;
}

ColumnHalf HalfOf(RecordKind kind) {
    return kind == RecordKind::Expense ? ColumnHalf::Expense : ColumnHalf::Time;
}

bool IsNotesColumn(int column) {
    return column == Column::kNotes || column == Column::kExpenseNotes;
}

bool IsImageColumn(int column) {
    return column >= 0 && column < Column::kCount && kColumns[column].kind == ColumnKind::Image;
}

bool IsRightAligned(int column) {
    return std::find(kRightAligned.begin(), kRightAligned.end(), column) != kRightAligned.end();
}
