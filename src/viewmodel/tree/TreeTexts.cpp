#include "viewmodel/tree/TreeTexts.h"

#include "config/Settings.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <vector>

namespace {

/// The member of a record of this class that holds a value of this type; null for other fields.
template <class Member>
constexpr Member MemberOf(const FieldRow& field) {
    const Member* member = std::get_if<Member>(&field.member);
    return member ? *member : nullptr;
}

constexpr TreeLevelRow LevelOf(const FieldRow& field) {
    return {.column = field.column.index,
            .timeText = MemberOf<QString CTRecord::*>(field),
            .expenseText = MemberOf<QString CERecord::*>(field),
            .timeFlag = MemberOf<bool CTRecord::*>(field),
            .expenseFlag = MemberOf<bool CERecord::*>(field),
            .set = field.column.levelSet,
            .clear = field.column.levelClear};
}

std::vector<TreeLevelRow> MakeLevels() {
    std::vector<TreeLevelRow> levels;
    for (int column = 0; column < Column::kCount; ++column)
        if (const FieldRow* field = FieldOfColumn(column); field->column.isLevel)
            levels.push_back(LevelOf(*field));
    return levels;
}

QString SpanText(const SpanField& span, int spanDisplayFormat) {
    if (!span.IsSet()) return LoadText(Text::NoTime);
    return spanDisplayFormat == 0 ? span.decimal.text : span.clockText;
}

QString FlagText(const CVORec& record, const FieldRow& field) {
    return LoadText(FlagOf(record, field) ? field.column.levelSet : field.column.levelClear);
}

QString NotesText(const CVORec& record, const FieldRow& field) {
    return LoadText(FlagOf(record, field) ? Text::TreeNotes : Text::TreeNoNotes);
}

}  // namespace

std::span<const TreeLevelRow> TreeLevels() {
    static const std::vector<TreeLevelRow> kLevels = MakeLevels();
    return kLevels;
}

const TreeLevelRow* FindTreeLevel(int column) {
    const std::span<const TreeLevelRow> levels = TreeLevels();
    const auto level = std::ranges::find(levels, column, &TreeLevelRow::column);
    return level == levels.end() ? nullptr : &*level;
}

QString ColumnText(const CVORec& record, int column, const Settings& settings) {
    const FieldRow* field = FieldOfColumn(column);
    if (!field || KindOf(*field) != record.Kind()) return {};
    switch (field->form) {
        case FieldForm::Text:
            return TextOf(record, *field);
        case FieldForm::Flag:
            return field->column.isLevel ? FlagText(record, *field) : QString();
        case FieldForm::Notes:
            return NotesText(record, *field);
        case FieldForm::Span:
            return SpanText(SpanOf(record, *field), settings.spanDisplayFormat);
        case FieldForm::TimeOfDay:
            return TimeTextOf(record, *field);
        default:
            return {};
    }
}
