#include "fields/FieldTable.h"

#include "fields/ExpenseFields.h"
#include "fields/TimeFields.h"

#include <algorithm>
#include <array>

namespace {

using Columns = std::array<const FieldRow*, Column::kCount>;

constexpr Columns MakeColumns() {
    Columns columns{};
    for (const FieldRow& field : kTimeFields)
        if (IsColumn(field.column.index)) columns[static_cast<std::size_t>(field.column.index)] = &field;
    for (const FieldRow& field : kExpenseFields)
        if (IsColumn(field.column.index)) columns[static_cast<std::size_t>(field.column.index)] = &field;
    return columns;
}

constexpr Columns kColumns = MakeColumns();

/// Counted, not looked for among the pointers: code under sanitizers can't compare those while it is
/// compiled.
constexpr bool HasEachColumnOnce() {
    std::array<int, Column::kCount> fields{};
    for (const FieldRow& field : kTimeFields)
        if (IsColumn(field.column.index)) ++fields[static_cast<std::size_t>(field.column.index)];
    for (const FieldRow& field : kExpenseFields)
        if (IsColumn(field.column.index)) ++fields[static_cast<std::size_t>(field.column.index)];
    return std::ranges::all_of(fields, [](int count) { return count == 1; });
}
static_assert(HasEachColumnOnce(), "each column shows one field");

/// The member that a form is read from.
constexpr bool FitsItsMember(const FieldRow& field) {
    const auto isOneOf = [&field]<class... Member>(std::variant<Member...>) {
        return (std::holds_alternative<Member>(field.member) || ...);
    };
    switch (field.form) {
        case FieldForm::Text:
        case FieldForm::Notes:
        case FieldForm::Reading:
            return isOneOf(std::variant<QString CTRecord::*, QString CERecord::*>());
        case FieldForm::Flag:
            return isOneOf(std::variant<bool CTRecord::*, bool CERecord::*>());
        case FieldForm::Money:
        case FieldForm::Distance:
            return isOneOf(std::variant<DecimalField CTRecord::*, DecimalField CERecord::*>());
        case FieldForm::Date:
            return isOneOf(std::variant<RecordDate CTRecord::*, RecordDate CERecord::*>());
        case FieldForm::Span:
            return isOneOf(std::variant<SpanField SpanSet::*>());
        case FieldForm::TimeOfDay:
            return isOneOf(std::variant<GetTimeOfDay>());
    }
    return false;
}

constexpr bool Belongs(const FieldRow& field, RecordKind kind) {
    return FitsItsMember(field) && KindOf(field) == kind;
}
static_assert(std::ranges::all_of(kTimeFields,
                                  [](const FieldRow& field) { return Belongs(field, RecordKind::Time); }));
static_assert(std::ranges::all_of(kExpenseFields,
                                  [](const FieldRow& field) { return Belongs(field, RecordKind::Expense); }));

}  // namespace

std::span<const FieldRow> FieldsOf(RecordKind kind) {
    if (kind == RecordKind::Time) return kTimeFields;
    if (kind == RecordKind::Expense) return kExpenseFields;
    return {};
}

const FieldRow* FindField(RecordKind kind, int number) {
    if (number == NumberOf(FieldId::None)) return nullptr;
    const std::span<const FieldRow> fields = FieldsOf(kind);
    const auto field =
        std::ranges::find(fields, number, [](const FieldRow& row) { return NumberOf(row.id); });
    return field == fields.end() ? nullptr : &*field;
}

const FieldRow* FindField(int number) {
    const FieldRow* field = FindField(RecordKind::Time, number);
    return field ? field : FindField(RecordKind::Expense, number);
}

const FieldRow* FieldOfColumn(int column) {
    return IsColumn(column) ? kColumns[static_cast<std::size_t>(column)] : nullptr;
}
