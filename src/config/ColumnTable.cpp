#include "config/ColumnTable.h"

#include "fields/ExpenseFields.h"
#include "fields/FieldTable.h"
#include "fields/TimeFields.h"

#include <array>
#include <vector>

namespace {

constexpr ColumnRow RowOf(const FieldRow& field) {
    const FieldColumn& column = field.column;
    const bool canBeNamed = field.label != Text{};
    return {.index = column.index,
            .caption = field.caption,
            .width = column.width,
            .kind = column.kind,
            .field = canBeNamed ? NumberOf(field.id) : 0,
            .listPosition = column.listPosition,
            .treePosition = column.treePosition};
}

template <std::size_t Count>
constexpr void PutRows(const FieldRow (&fields)[Count], std::array<ColumnRow, Column::kCount>& rows) {
    for (const FieldRow& field : fields)
        if (IsColumn(field.column.index)) rows[static_cast<std::size_t>(field.column.index)] = RowOf(field);
}

constexpr auto kColumns = [] {
    std::array<ColumnRow, Column::kCount> rows{};
    PutRows(kTimeFields, rows);
    PutRows(kExpenseFields, rows);
    return rows;
}();

std::vector<int> MakeColumnsWithoutLevel() {
    std::vector<int> columns;
    for (int column = 0; column < Column::kCount; ++column)
        if (!FieldOfColumn(column)->column.isLevel) columns.push_back(column);
    return columns;
}

constexpr int kTimeBreaks[] = {5, 7, 9};
constexpr int kExpenseBreaks[] = {4, 6, 8};

}  // namespace

std::span<const ColumnRow> ColumnTable() {
    return kColumns;
}

std::span<const int> ColumnsWithoutLevel() {
    static const std::vector<int> kWithout = MakeColumnsWithoutLevel();
    return kWithout;
}

std::span<const int> DefaultBreaks(ColumnHalf half) {
    if (half == ColumnHalf::Time) return kTimeBreaks;
    return kExpenseBreaks;
}

ColumnHalf HalfOf(RecordKind kind) {
    return kind == RecordKind::Expense ? ColumnHalf::Expense : ColumnHalf::Time;
}

bool IsNotesColumn(int column) {
    const FieldRow* field = FieldOfColumn(column);
    return field && field->form == FieldForm::Notes;
}

bool IsImageColumn(int column) {
    const FieldRow* field = FieldOfColumn(column);
    return field && field->column.kind == ColumnKind::Image;
}

bool IsRightAligned(int column) {
    const FieldRow* field = FieldOfColumn(column);
    return field && field->column.kind == ColumnKind::Number;
}
