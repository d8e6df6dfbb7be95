#include "fields/FieldValue.h"

#include <tuple>

namespace {

bool IsSameDay(const RecordDate& one, const RecordDate& other) {
    return std::tie(one.year, one.month, one.day) == std::tie(other.year, other.month, other.day);
}

bool IsSameSpan(const SpanField& one, const SpanField& other) {
    return one.hours == other.hours && one.minutes == other.minutes;
}

template <class Record, class Value>
void CopyMember(Value Record::*member, CVORec& to, const CVORec& from) {
    static_cast<Record&>(to).*member = static_cast<const Record&>(from).*member;
}

/// The distance has a stored text behind the one that is shown.
void CopyMember(DecimalField CERecord::*member, CVORec& to, const CVORec& from) {
    auto& expense = static_cast<CERecord&>(to);
    const auto& other = static_cast<const CERecord&>(from);
    if (member == &CERecord::distance) return expense.CopyDistance(other);
    expense.*member = other.*member;
}

void CopyMember(SpanField SpanSet::*member, CVORec& to, const CVORec& from) {
    static_cast<CTRecord&>(to).spans.*member = static_cast<const CTRecord&>(from).spans.*member;
}

void CopyMember(GetTimeOfDay member, CVORec& to, const CVORec& from) {
    auto& record = static_cast<CTRecord&>(to);
    const auto& other = static_cast<const CTRecord&>(from);
    if (member == &CTRecord::GetStart)
        std::tie(record.startHour, record.startMinute, record.startIsPm) =
            std::tie(other.startHour, other.startMinute, other.startIsPm);
    else
        std::tie(record.endHour, record.endMinute, record.endIsPm) =
            std::tie(other.endHour, other.endMinute, other.endIsPm);
}

}  // namespace

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

bool HaveSame(const FieldRow& field, const CVORec& one, const CVORec& other) {
    switch (field.form) {
        case FieldForm::Flag:
            return FlagOf(one, field) == FlagOf(other, field);
        case FieldForm::Span:
            return IsSameSpan(SpanOf(one, field), SpanOf(other, field));
        case FieldForm::Date:
            return IsSameDay(ValueOf<RecordDate>(one, field), ValueOf<RecordDate>(other, field));
        case FieldForm::TimeOfDay:
            return TimeOf(one, field) == TimeOf(other, field);
        case FieldForm::Distance:
            return static_cast<const CERecord&>(one).StoredDistance() ==
                   static_cast<const CERecord&>(other).StoredDistance();
        default:
            return TextOf(one, field) == TextOf(other, field);
    }
}

void CopyField(const FieldRow& field, CVORec& to, const CVORec& from) {
    std::visit([&](auto member) { CopyMember(member, to, from); }, field.member);
}
