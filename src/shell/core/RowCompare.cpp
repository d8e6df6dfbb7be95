#include "shell/core/RowCompare.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "config/ColumnTable.h"
#include "records/CTRecord.h"
#include "shell/core/CellText.h"

#include <array>

namespace {

/// Of each column of time records.
constexpr std::array<CompareForm, Column::kFirstExpense> kForms = {
    CompareForm::DateAndStart, CompareForm::Span, CompareForm::Span,      CompareForm::Span,
    CompareForm::Text,         CompareForm::Text, CompareForm::TimeOfDay, CompareForm::TimeOfDay,
    CompareForm::Number,       CompareForm::Text, CompareForm::Text,      CompareForm::Text,
    CompareForm::Number,       CompareForm::Flag, CompareForm::Flag,      CompareForm::Flag,
    CompareForm::Flag,
};

int MinuteOfDay(int hour, int minute, bool isPm) {
    DateTimeVal time;
    return time.SetTime(hour, minute, isPm) ? Hour24Of(hour, isPm) * 60 + minute : -1;
}

int StartMinute(const CTRecord& record) {
    return MinuteOfDay(record.startHour, record.startMinute, record.startIsPm);
}

void PutDate(RowKey& key, const CTRecord& record) {
    DateTimeVal date;
    key.hasValue = date.SetDate(record.date.month, record.date.day, record.date.year);
    key.number = record.date.year * 10000.0 + record.date.month * 100.0 + record.date.day;
    key.minute = StartMinute(record);
}

void PutSpan(RowKey& key, const CTRecord& record, int column) {
    const SpanField& span = column == Column::kDuration ? record.spans.duration
                            : column == Column::kBreak  ? record.spans.breakTime
                                                        : record.spans.effective;
    float hours = 0.0F;
    key.hasValue = span.GetDecimal(hours);
    key.number = static_cast<double>(hours);
}

void PutTime(RowKey& key, const CTRecord& record, int column) {
    const int minute = column == Column::kStart
                           ? StartMinute(record)
                           : MinuteOfDay(record.endHour, record.endMinute, record.endIsPm);
    key.hasValue = minute >= 0;
    key.number = minute;
}

int Sign(double difference) {
    return difference < 0.0 ? -1 : difference > 0.0 ? 1 : 0;
}

/// An absent value goes before a present one; 0 when both are there or both absent.
int AbsentFirst(const RowKey& a, const RowKey& b) {
    return static_cast<int>(a.hasValue) - static_cast<int>(b.hasValue);
}

int CompareDates(const RowKey& a, const RowKey& b) {
    if (!a.hasValue || !b.hasValue) return AbsentFirst(a, b);
    if (const int byDay = Sign(a.number - b.number); byDay != 0) return byDay;
    if (a.minute >= 0 && b.minute >= 0) return Sign(a.minute - b.minute);
    return static_cast<int>(a.minute >= 0) - static_cast<int>(b.minute >= 0);
}

int CompareSpans(const RowKey& a, const RowKey& b, int direction) {
    if (!a.hasValue && !b.hasValue) return 0;
    if (a.hasValue != b.hasValue) return AbsentFirst(a, b);
    return a.number < b.number ? -direction : direction;
}

int CompareTimes(const RowKey& a, const RowKey& b) {
    return a.hasValue && b.hasValue ? Sign(a.number - b.number) : AbsentFirst(a, b);
}

int CompareNumbers(const RowKey& a, const RowKey& b) {
    if (!a.hasValue || !b.hasValue) return AbsentFirst(a, b);
    return a.number < b.number ? -1 : 1;
}

}  // namespace

CompareForm CompareFormOf(int column) {
    return kForms[static_cast<std::size_t>(column)];
}

RowKey MakeRowKey(const CTRecord& record, int column, const CRegionalInfo& region) {
    RowKey key;
    switch (CompareFormOf(column)) {
        case CompareForm::DateAndStart:
            PutDate(key, record);
            break;
        case CompareForm::Span:
            PutSpan(key, record, column);
            break;
        case CompareForm::Text:
            key.text = ItemText(record, column).toCaseFolded();
            break;
        case CompareForm::TimeOfDay:
            PutTime(key, record, column);
            break;
        case CompareForm::Number:
            key.hasValue = ParseDouble(region, ItemText(record, column), key.number);
            break;
        case CompareForm::Flag:
            key.number = FlagOf(record, column) ? 1.0 : 0.0;
            break;
    }
    return key;
}

int CompareRows(CompareForm form, const RowKey& a, const RowKey& b, bool ascending) {
    const int direction = ascending ? 1 : -1;
    switch (form) {
        case CompareForm::DateAndStart:
            return direction * CompareDates(a, b);
        case CompareForm::Span:
            return CompareSpans(a, b, direction);
        case CompareForm::Text:
            return direction * a.text.compare(b.text);
        case CompareForm::TimeOfDay:
            return direction * CompareTimes(a, b);
        case CompareForm::Number:
            return direction * CompareNumbers(a, b);
        case CompareForm::Flag:
            return a.number < b.number || b.number < a.number ? direction : -direction;
    }
    return 0;
}
