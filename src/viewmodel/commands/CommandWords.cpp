#include "viewmodel/commands/CommandWords.h"

#include "app/CommandTexts.h"
#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "viewmodel/commands/MenuTable.h"

#include <algorithm>

namespace {

constexpr FieldNameRow kFieldNames[] = {
    {32804, 109, 131},
    {32805, 110, 132},
    {32806, 111, 111},
    {32807, 112, 112},
    {32808, 133, 133},
    {32809, 134, 134},
    {32832, 117, 138},
    {32833, 118, 139},
    {32834, 141, 141},
    {32835, 142, 142},
    {32836, 140, 140},
    {Command::kMarkFirst, 117, 138},
    {Command::kMarkFirstAndSecond, 118, 139},
    {32839, 141, 141},
    {40058, 142, 142},
    {32840, 140, 140},
};

/// The field of a command in the mode, 0 without one.
int FieldOf(int command, bool timeMode) {
    const auto row = std::ranges::find(kFieldNames, command, &FieldNameRow::command);
    if (row == std::end(kFieldNames)) return 0;
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
    const int field = FieldOf(row.id, timeMode);
    const QString fieldName = field == 0 ? QString() : labels.GetLabel(field);
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
