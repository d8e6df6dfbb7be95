#include "fields/FieldValue.h"

std::optional<ClockTime> TimeOf(const CVORec& record, const FieldRow& field) {
    ClockTime time;
    const GetTimeOfDay get = std::get<GetTimeOfDay>(field.member);
    const bool isThere = (static_cast<const CTRecord&>(record).*get)(time.hour, time.minute, time.isPm);
    return isThere ? std::optional(time) : std::nullopt;
}

bool FlagOf(const CVORec& record, const FieldRow& field) {
    if (field.form == FieldForm::Flag) return ValueOf<bool>(record, field);
    return field.form == FieldForm::Notes && !ValueOf<QString>(record, field).isEmpty();
}

QString TextOf(const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Text:
        case FieldForm::Notes:
        case FieldForm::Reading:
            return ValueOf<QString>(record, field);
        case FieldForm::Money:
            return ValueOf<DecimalField>(record, field).MoneyText();
        case FieldForm::Distance:
            return ValueOf<DecimalField>(record, field).text;
        default:
            return {};
    }
}

QString TimeTextOf(const CVORec& record, const FieldRow& field) {
    constexpr int kStart = 3, kEnd = 4;
    return TimeTextOfRecord(static_cast<const CTRecord&>(record), field.id == FieldId::Start ? kStart : kEnd);
}
