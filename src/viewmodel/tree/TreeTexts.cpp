#include "viewmodel/tree/TreeTexts.h"

#include "config/Settings.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "viewmodel/list/CellText.h"

#include <algorithm>

namespace {

constexpr TreeLevelRow TimeText(int column, QString CTRecord::*text) {
    return {column, text, nullptr, nullptr, nullptr, {}, {}};
}
constexpr TreeLevelRow ExpenseText(int column, QString CERecord::*text) {
    return {column, nullptr, text, nullptr, nullptr, {}, {}};
}
constexpr TreeLevelRow TimeFlag(int column, bool CTRecord::*flag, Text set, Text clear) {
    return {column, nullptr, nullptr, flag, nullptr, set, clear};
}
constexpr TreeLevelRow ExpenseFlag(int column, bool CERecord::*flag, Text set, Text clear) {
    return {column, nullptr, nullptr, nullptr, flag, set, clear};
}

constexpr TreeLevelRow kLevels[] = {
    TimeText(Column::kItem1, &CTRecord::item1),
    TimeText(Column::kItem2, &CTRecord::item2),
    TimeText(Column::kItem3, &CTRecord::item3),
    TimeText(Column::kItem4, &CTRecord::item4),
    TimeText(Column::kItem5, &CTRecord::item5),
    TimeFlag(Column::kBillable, &CTRecord::isBillable, Text::TreeBillable, Text::TreeNotBillable),
    TimeFlag(Column::kBilled, &CTRecord::isBilled, Text::TreeBilled, Text::TreeBilled),
    ExpenseText(Column::kExpenseItem1, &CERecord::item1),
    ExpenseText(Column::kExpenseItem2, &CERecord::item2),
    ExpenseText(Column::kExpenseItem3, &CERecord::item3),
    ExpenseFlag(Column::kIsDistance, &CERecord::isDistance, Text::TreeDistance, Text::TreeNoDistance),
    ExpenseText(Column::kExpenseItem4, &CERecord::item4),
    ExpenseText(Column::kExpenseItem5, &CERecord::item5),
    ExpenseFlag(Column::kFlag1, &CERecord::flag1, Text::TreeBillable, Text::TreeNotBillable),
    ExpenseFlag(Column::kFlag2, &CERecord::flag2, Text::TreeBilled, Text::TreeNotBilled),
    ExpenseFlag(Column::kFlag3, &CERecord::flag3, Text::TreeFlag3, Text::TreeNotFlag3),
    ExpenseFlag(Column::kFlag4, &CERecord::flag4, Text::TreeFlag4, Text::TreeNotFlag4),
    ExpenseFlag(Column::kFlag5, &CERecord::flag5, Text::TreeFlag5, Text::TreeNotFlag5),
};

/// Of a column that can be a level.
QString LevelText(const CVORec& record, const TreeLevelRow& level) {
    if (level.IsFlag()) return LoadText(FlagOf(record, level.column) ? level.set : level.clear);
    return level.timeText ? static_cast<const CTRecord&>(record).*level.timeText
                          : static_cast<const CERecord&>(record).*level.expenseText;
}

QString SpanText(const SpanField& span, int spanDisplayFormat) {
    if (!span.IsSet()) return LoadText(Text::NoTime);
    return spanDisplayFormat == 0 ? span.decimal.text : span.clockText;
}

QString OtherTimeText(const CTRecord& record, int column, int spanDisplayFormat) {
    constexpr int kWhichStart = 3, kWhichEnd = 4;
    switch (column) {
        case Column::kDuration:
            return SpanText(record.spans.duration, spanDisplayFormat);
        case Column::kBreak:
            return SpanText(record.spans.breakTime, spanDisplayFormat);
        case Column::kEffective:
            return SpanText(record.spans.effective, spanDisplayFormat);
        case Column::kStart:
            return TimeTextOfRecord(record, kWhichStart);
        case Column::kEnd:
            return TimeTextOfRecord(record, kWhichEnd);
        default:
            return {};
    }
}

}  // namespace

std::span<const TreeLevelRow> TreeLevels() {
    return kLevels;
}

const TreeLevelRow* FindTreeLevel(int column) {
    const auto* level = std::ranges::find(kLevels, column, &TreeLevelRow::column);
    return level == std::end(kLevels) ? nullptr : level;
}

QString ColumnText(const CVORec& record, int column, const Settings& settings) {
    if (!IsColumn(column) || HalfOf(column) != HalfOf(record.Kind())) return {};
    if (const TreeLevelRow* level = FindTreeLevel(column)) return LevelText(record, *level);
    if (IsNotesColumn(column)) return LoadText(FlagOf(record, column) ? Text::TreeNotes : Text::TreeNoNotes);
    if (record.Kind() != RecordKind::Time) return {};
    return OtherTimeText(static_cast<const CTRecord&>(record), column, settings.spanDisplayFormat);
}
