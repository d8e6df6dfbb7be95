#include "app/ShownFields.h"

#include "calendar/NumberText.h"
#include "fields/FieldRow.h"
#include "fields/FieldValue.h"
#include "fields/StoredColumns.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/FieldTexts.h"

#include <algorithm>

namespace {

/// An expense that is no distance entry has none, even where one was stored before.
float DistanceOf(const CERecord& record) {
    return record.isDistance ? record.GetDistance() : 0.0F;
}

QString HoursText(const SpanField& span) {
    return span.IsSet() ? span.decimal.text : NoTimeText();
}

QString TextInCatalogue(const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Flag:
            return LoadText(FlagOf(record, field) ? Text::FieldYes : Text::FieldNo);
        case FieldForm::Date:
            return ValueOf<RecordDate>(record, field).longText;
        case FieldForm::Span:
            return HoursText(SpanOf(record, field));
        case FieldForm::TimeOfDay:
            return TimeTextOf(record, field);
        default:
            return TextOf(record, field);
    }
}

float MoneyOf(const CVORec& record, const FieldRow& field) {
    float money = 0.0F;
    (void)ValueOf<DecimalField>(record, field).GetMoney(money);  // 0 where there is none
    return money;
}

float HoursOf(const CVORec& record, const FieldRow& field) {
    float hours = 0.0F;
    (void)SpanOf(record, field).GetDecimal(hours);  // 0 where there are none
    return hours;
}

/// Any amount below zero of an expense counts as none.
float NumberInCatalogue(const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Span:
            return HoursOf(record, field);
        case FieldForm::Distance:
            return DistanceOf(static_cast<const CERecord&>(record));
        default:
            return record.Kind() == RecordKind::Expense ? std::max(MoneyOf(record, field), 0.0F)
                                                        : MoneyOf(record, field);
    }
}

}  // namespace

/// The rate of an expense is one of a distance. The stored distance is looked at, also of an expense that is
/// no distance entry any more.
std::optional<QString> ShownText(const CVORec& record, const FieldRow& field) {
    if (field.shown != Shown::Text && field.shown != Shown::TextAndNumber) return std::nullopt;
    if (field.id == FieldId::ExpenseRate && static_cast<const CERecord&>(record).GetDistance() == 0.0F)
        return QString();
    return TextInCatalogue(record, field);
}

std::optional<double> ShownNumber(const CVORec& record, const FieldRow& field) {
    if (field.shown != Shown::Number && field.shown != Shown::TextAndNumber) return std::nullopt;
    return double{NumberInCatalogue(record, field)};
}

std::optional<QString> ShownDisplay(const CVORec& record, const FieldRow& field) {
    if (auto text = ShownText(record, field)) return text;
    const std::optional<double> value = ShownNumber(record, field);
    return value ? std::optional(FormatNumber(TheRegion(), *value, -1)) : std::nullopt;
}

ColumnSet ShownColumns(const FieldRow& field) {
    ColumnSet columns = StoredColumnsOf(field);
    if (field.id == FieldId::ExpenseRate) columns |= ColumnsOf(&CERecord::distance);
    if (field.id == FieldId::Distance) columns |= ColumnsOf(&CERecord::isDistance);
    return columns;
}
