#include "cli/output/FieldOutput.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "cli/output/CJsonText.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"

#include <array>
#include <cstdio>
#include <tuple>

namespace {

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

/// A whole length in minutes, -1 without one.
qint64 MinutesOf(const SpanField& span) {
    return span.IsSet() ? qint64{span.hours} * 60 + span.minutes : -1;
}

/// Money or a distance. A distance may be there without the expense being a distance entry (any more).
std::optional<float> NumberOf(const CVORec& record, const FieldRow& field) {
    const auto& number = ValueOf<DecimalField>(record, field);
    float value = number.value;
    const bool isThere = field.form == FieldForm::Distance ? number.isSet : number.GetMoney(value);
    return isThere ? std::optional(value) : std::nullopt;
}

QString DateWords(const RecordDate& date) {
    return date.IsSet() ? IsoDate(date.year, date.month, date.day) : QString();
}

QString TimeWords(const CVORec& record, const FieldRow& field) {
    const std::optional<ClockTime> time = TimeOf(record, field);
    return time ? FormatTimeOfDay(TheRegion(), time->hour, time->minute, time->isPm) : QString();
}

void WriteTime(CJsonText& json, int minute) {
    if (minute < 0) return json.Null();
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d", minute / 60, minute % 60);
    json.Text(QString::fromLatin1(text.data()));
}

void WriteNumber(CJsonText& json, const CVORec& record, const FieldRow& field) {
    const std::optional<float> value = NumberOf(record, field);
    value ? json.Number(double{*value}, ValueOf<DecimalField>(record, field).precision) : json.Null();
}

int CompareTexts(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded : a.compare(b);
}

int CompareDates(const RecordDate& a, const RecordDate& b) {
    return Order(std::tie(a.year, a.month, a.day), std::tie(b.year, b.month, b.day));
}

}  // namespace

int MinuteOf(const CVORec& record, const FieldRow& field) {
    const std::optional<ClockTime> time = TimeOf(record, field);
    return time ? Hour24Of(time->hour, time->isPm) * 60 + time->minute : -1;
}

void WriteFieldJson(CJsonText& json, const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Text:
        case FieldForm::Notes:
        case FieldForm::Reading:
            return json.Text(ValueOf<QString>(record, field));
        case FieldForm::Flag:
            return json.Flag(FlagOf(record, field));
        case FieldForm::Money:
        case FieldForm::Distance:
            return WriteNumber(json, record, field);
        case FieldForm::Date:
            return json.TextOrNull(DateWords(ValueOf<RecordDate>(record, field)));
        case FieldForm::TimeOfDay:
            return WriteTime(json, MinuteOf(record, field));
        case FieldForm::Span:
            break;
    }
    const qint64 minutes = MinutesOf(SpanOf(record, field));
    minutes < 0 ? json.Null() : json.Integer(minutes);
}

QString FieldWords(const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Flag:
            return FlagOf(record, field) ? LoadText(Text::YesWord) : QString();
        case FieldForm::Date:
            return DateWords(ValueOf<RecordDate>(record, field));
        case FieldForm::TimeOfDay:
            return TimeWords(record, field);
        case FieldForm::Span:
            return SpanOf(record, field).IsSet() ? SpanOf(record, field).clockText : QString();
        default:
            return TextOf(record, field);
    }
}

int CompareFields(const CVORec& a, const CVORec& b, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Text:
        case FieldForm::Notes:
        case FieldForm::Reading:
            return CompareTexts(ValueOf<QString>(a, field), ValueOf<QString>(b, field));
        case FieldForm::Flag:
            return Order(FlagOf(a, field), FlagOf(b, field));
        case FieldForm::Money:
        case FieldForm::Distance:
            return Order(NumberOf(a, field), NumberOf(b, field));
        case FieldForm::Date:
            return CompareDates(ValueOf<RecordDate>(a, field), ValueOf<RecordDate>(b, field));
        case FieldForm::TimeOfDay:
            return Order(MinuteOf(a, field), MinuteOf(b, field));
        case FieldForm::Span:
            break;
    }
    return Order(MinutesOf(SpanOf(a, field)), MinutesOf(SpanOf(b, field)));
}

QString IsoDate(int year, int month, int day) {
    std::array<char, 48> text{};  // a list asks for this in each line
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day);
    return QString::fromLatin1(text.data());
}
