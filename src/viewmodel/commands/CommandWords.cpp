#include "viewmodel/commands/CommandWords.h"

#include "app/CommandTexts.h"
#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "viewmodel/commands/MenuTable.h"

#include <algorithm>

namespace {

constexpr FieldNameRow kFieldNames[] = {
    {32804, FieldId::TimeItem1, FieldId::ExpenseItem1},
    {32805, FieldId::TimeItem2, FieldId::ExpenseItem2},
    {32806, FieldId::TimeItem3, FieldId::TimeItem3},
    {32807, FieldId::TimeItem4, FieldId::TimeItem4},
    {32808, FieldId::ExpenseItem3, FieldId::ExpenseItem3},
    {32809, FieldId::ExpenseItem4, FieldId::ExpenseItem4},
    {32832, FieldId::Billable, FieldId::Flag1},
    {32833, FieldId::Billed, FieldId::Flag2},
    {32834, FieldId::Flag3, FieldId::Flag3},
    {32835, FieldId::Flag4, FieldId::Flag4},
    {32836, FieldId::Flag5, FieldId::Flag5},
    {Command::kMarkFirst, FieldId::Billable, FieldId::Flag1},
    {Command::kMarkFirstAndSecond, FieldId::Billed, FieldId::Flag2},
    {32839, FieldId::Flag3, FieldId::Flag3},
    {40058, FieldId::Flag4, FieldId::Flag4},
    {32840, FieldId::Flag5, FieldId::Flag5},
};

/// The field of a command in the mode.
FieldId FieldOf(int command, bool timeMode) {
    const auto row = std::ranges::find(kFieldNames, command, &FieldNameRow::command);
    if (row == std::end(kFieldNames)) return FieldId::None;
    return timeMode ? row->timeField : row->expenseField;
}

/// Where the texts of a command are formats, they take the field's name.
QString Filled(QString text, const QString& fieldName) {
    return text.replace(QStringLiteral("%s"), fieldName);
}

const MenuRow& RowOf(Menu menu) {
    return *std::ranges::find(MenuTable(), menu, &MenuRow::menu);
}

}  // namespace

std::span<const FieldNameRow> FieldNameTable() {
    return kFieldNames;
}

CommandWords WordsOf(const CommandRow& row, bool timeMode, const FieldLabels& labels) {
    const FieldId field = FieldOf(row.id, timeMode);
    const QString fieldName = field == FieldId::None ? QString() : labels.GetLabel(NumberOf(field));
    CommandWords words{.name = fieldName, .isFieldName = !fieldName.isEmpty(), .tip = {}, .status = {}};
    if (!words.isFieldName) words.name = PlainCaption(LoadText(row.caption));

    // The number that stands twice names the period there.
    const auto texts = std::ranges::find(CommandTextRows(), row.id, &CommandTextRow::command);
    const bool hasTexts = texts != CommandTextRows().end() && row.run != Run::Layout;
    words.tip = hasTexts ? Filled(PlainCaption(LoadText(texts->caption)), fieldName) : words.name;
    words.status = Filled(LoadText(hasTexts ? texts->tip : row.tip), fieldName);
    return words;
}

QString MenuPathOf(const CommandRow& row) {
    const MenuRow& menu = RowOf(row.menu);
    QString own = PlainCaption(LoadText(menu.caption));
    if (menu.parent == menu.menu) return own;
    return PlainCaption(LoadText(RowOf(menu.parent).caption)) + LoadText(Text::PathBetween) + own;
}

QString PlainCaption(const QString& caption) {
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        // a doubled one stands for itself
        if (caption[i] == u'&' && ++i == caption.size()) break;
        plain += caption[i];
    }
    if (plain.endsWith(QStringLiteral("..."))) plain.chop(3);
    return plain;
}
