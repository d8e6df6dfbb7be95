#include "app/CFieldCatalogue.h"

#include "app/FieldLabels.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"
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

std::optional<QString> TextIn(const CVORec& record, int number) {
    const FieldRow* field = FindField(record.Kind(), number);
    if (!field || (field->shown != Shown::Text && field->shown != Shown::TextAndNumber)) return std::nullopt;
    // The rate of an expense is one of a distance.
    if (field->id == FieldId::ExpenseRate && DistanceOf(static_cast<const CERecord&>(record)) == 0.0F)
        return QString();
    return TextInCatalogue(record, *field);
}

std::optional<double> NumberIn(const CVORec& record, int number) {
    const FieldRow* field = FindField(record.Kind(), number);
    if (!field || (field->shown != Shown::Number && field->shown != Shown::TextAndNumber))
        return std::nullopt;
    return double{NumberInCatalogue(record, *field)};
}

std::optional<QString> DisplayIn(const CVORec& record, int number) {
    if (auto text = TextIn(record, number)) return text;
    const std::optional<double> value = NumberIn(record, number);
    return value ? std::optional(FormatNumber(TheRegion(), *value, -1)) : std::nullopt;
}

}  // namespace

QString CFieldCatalogue::GetFieldTitle(int field) const {
    if (field == NumberOf(FieldId::Distance))
        return LoadText(m_settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
    const FieldRow* row = FindField(field);
    return row && row->title != Text{} ? LoadText(row->title) : m_labels.GetLabel(field);
}

std::optional<QString> CFieldCatalogue::GetFieldText(const CTRecord& record, int field) const {
    return TextIn(record, field);
}

std::optional<QString> CFieldCatalogue::GetFieldText(const CERecord& record, int field) const {
    return TextIn(record, field);
}

std::optional<double> CFieldCatalogue::GetFieldNumber(const CTRecord& record, int field) const {
    return NumberIn(record, field);
}

std::optional<double> CFieldCatalogue::GetFieldNumber(const CERecord& record, int field) const {
    return NumberIn(record, field);
}

std::optional<QString> CFieldCatalogue::GetFieldDisplay(const CTRecord& record, int field) const {
    return DisplayIn(record, field);
}

std::optional<QString> CFieldCatalogue::GetFieldDisplay(const CERecord& record, int field) const {
    return DisplayIn(record, field);
}

std::optional<int> CFieldCatalogue::Precision(int field) const {
    const FieldRow* row = FindField(field);
    switch (row ? row->places : Places::None) {
        case Places::Duration:
            return m_settings.precisionDuration;
        case Places::Distance:
            return m_settings.precisionDistance;
        case Places::Rate:
            return m_settings.precisionRate;
        case Places::Amount:
            return m_settings.precisionAmount;
        case Places::None:
            break;
    }
    return std::nullopt;
}
