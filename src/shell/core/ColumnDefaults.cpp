#include "shell/core/ColumnDefaults.h"

#include <algorithm>
#include <array>

namespace {

constexpr ColumnDefaultRow kColumns[] = {
    {0, Text::ColumnCaptionDate, 80, ColumnKind::DateTime, 1},
    {1, Text::ColumnCaptionDuration, 44, ColumnKind::Number, 3},
    {2, Text::ColumnCaptionBreak, 44, ColumnKind::Number, 0},
    {3, Text::ColumnCaptionEffective, 44, ColumnKind::Number, 0},
    {4, Text::FieldClient, 60, ColumnKind::Text, 6},
    {5, Text::FieldProject, 90, ColumnKind::Text, 7},
    {6, Text::ColumnCaptionStart, 65, ColumnKind::Time, 2},
    {7, Text::ColumnCaptionEnd, 65, ColumnKind::Time, 0},
    {8, Text::FieldRate, 50, ColumnKind::Number, 0},
    {9, Text::FieldActivity, 90, ColumnKind::Text, 8},
    {10, Text::FieldCostCentre, 90, ColumnKind::Text, 9},
    {11, Text::FieldCurrency, 45, ColumnKind::Text, 0},
    {12, Text::FieldAmount, 90, ColumnKind::Number, 0},
    {13, Text::ColumnCaptionBillable, 30, ColumnKind::Image, 4},
    {14, Text::ColumnCaptionBilled, 35, ColumnKind::Image, 5},
    {15, Text::ColumnCaptionNotes, 30, ColumnKind::Image, 0},
    {16, Text::ColumnCaptionExported, 30, ColumnKind::Image, 0},
    {17, Text::ColumnCaptionDate, 80, ColumnKind::Date, 1},
    {18, Text::FieldAmount, 60, ColumnKind::Number, 2},
    {19, Text::FieldClient, 60, ColumnKind::Text, 5},
    {20, Text::FieldProject, 60, ColumnKind::Text, 6},
    {21, Text::FieldExpenseItem3, 60, ColumnKind::Text, 7},
    {22, Text::ColumnCaptionTrip, 30, ColumnKind::Image, 0},
    {23, Text::FieldDistance, 50, ColumnKind::Number, 0},
    {24, Text::FieldRate, 50, ColumnKind::Number, 0},
    {25, Text::FieldExpenseItem4, 90, ColumnKind::Text, 8},
    {26, Text::FieldExpenseCurrency, 90, ColumnKind::Text, 0},
    {27, Text::ColumnCaptionBillable, 30, ColumnKind::Image, 3},
    {28, Text::ColumnCaptionBilled, 30, ColumnKind::Image, 4},
    {29, Text::ColumnCaptionFlag3, 30, ColumnKind::Image, 0},
    {30, Text::ColumnCaptionFlag4, 30, ColumnKind::Image, 0},
    {31, Text::ColumnCaptionFlag5, 30, ColumnKind::Image, 0},
    {32, Text::ColumnCaptionNotes, 30, ColumnKind::Image, 0},
    {33, Text::ColumnCaptionExported, 30, ColumnKind::Image, 0},
};
static_assert(std::size(kColumns) == Column::kCount);

constexpr bool InOrder() {
    for (int i = 0; i < Column::kCount; ++i)
        if (kColumns[i].index != i) return false;
    return true;
}
static_assert(InOrder(), "a column's number is its place in the table");

constexpr int kTimeBreaks[] = {5, 7, 9};
constexpr std::array kRightAligned = {1, 2, 3, 8, 12, 18, 23, 24};

}  // namespace

std::span<const ColumnDefaultRow> ColumnDefaults() {
    return kColumns;
}

const std::vector<int>& VisibleTimeColumns() {
    static const std::vector<int> visible = [] {
        std::vector<int> columns;
        for (int i = 0; i < Column::kFirstExpense; ++i)
            if (kColumns[i].position > 0) columns.push_back(i);
        std::sort(columns.begin(), columns.end(),
                  [](int a, int b) { return kColumns[a].position < kColumns[b].position; });
        return columns;
    }();
    return visible;
}

std::span<const int> TimeLineBreaks() {
    return kTimeBreaks;
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
