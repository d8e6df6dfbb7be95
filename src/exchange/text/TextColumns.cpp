#include "exchange/text/TextColumns.h"

#include "app/FieldLabels.h"
#include "config/Settings.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"
#include "records/FieldTexts.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

struct NamedColumn {
    std::string_view field;
    Text head{};
};
constexpr NamedColumn kTimeColumns[] = {
    {"date", Text::ColumnCaptionDate},
    {"start", Text::HeadStart},
    {"end", Text::HeadEnd},
    {"duration", Text::HeadDuration},
    {"break", Text::ColumnCaptionBreak},
    {"item1"},
    {"item2"},
    {"rate"},
    {"item3"},
    {"item4"},
    {"item5"},
    {"amount"},
    {"isBillable"},
    {"isBilled"},
    {"notes"},
};
constexpr NamedColumn kExpenseColumns[] = {
    {"date", Text::ColumnCaptionDate},
    {"item1"},
    {"item2"},
    {"item3"},
    {"distance"},
    {"odometerStart", Text::HeadOdometerStart},
    {"odometerEnd", Text::HeadOdometerEnd},
    {"rate", Text::FieldRate},
    {"item4"},
    {"item5"},
    {"amount"},
    {"flag1"},
    {"flag2"},
    {"flag3"},
    {"flag4"},
    {"flag5"},
    {"notes"},
};

std::vector<TextColumn> WithFields(RecordKind kind, std::span<const NamedColumn> names) {
    std::vector<TextColumn> columns;
    const std::span<const FieldRow> fields = FieldsOf(kind);
    for (const NamedColumn& name : names)
        columns.push_back({&*std::ranges::find(fields, name.field, &FieldRow::name), name.head});
    return columns;
}

bool IsDistanceEntry(const CVORec& record) {
    return record.Kind() == RecordKind::Expense && static_cast<const CERecord&>(record).isDistance;
}

}  // namespace

std::span<const TextColumn> TextColumnsOf(RecordKind kind) {
    static const std::vector<TextColumn> kTimes = WithFields(RecordKind::Time, kTimeColumns);
    static const std::vector<TextColumn> kExpenses = WithFields(RecordKind::Expense, kExpenseColumns);
    return kind == RecordKind::Time ? kTimes : kExpenses;
}

QString HeadOf(const TextColumn& column, const ColumnNames& names) {
    if (column.head != Text{}) return LoadText(column.head);
    if (column.field->form == FieldForm::Distance)
        return LoadText(names.settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
    return names.labels.GetLabel(NumberOf(column.field->id));
}

bool IsOfDistanceEntry(const TextColumn& column) {
    const FieldRow& field = *column.field;
    return field.form == FieldForm::Distance || field.form == FieldForm::Reading ||
           field.id == FieldId::ExpenseRate;
}

QString TextIn(const TextColumn& column, const CVORec& record) {
    const FieldRow& field = *column.field;
    if (IsOfDistanceEntry(column) && !IsDistanceEntry(record)) return LoadText(Text::NotApplicable);
    switch (field.form) {
        case FieldForm::Date:
            return ValueOf<RecordDate>(record, field).longText;
        case FieldForm::TimeOfDay:
            return TimeTextOf(record, field);
        case FieldForm::Span:
            return SpanOf(record, field).IsSet() ? SpanOf(record, field).decimal.text : NoTimeText();
        case FieldForm::Flag:
            return LoadText(FlagOf(record, field) ? Text::YesWord : Text::NoWord);
        case FieldForm::Distance:
            return static_cast<const CERecord&>(record).StoredDistance();
        default:
            return TextOf(record, field);
    }
}
