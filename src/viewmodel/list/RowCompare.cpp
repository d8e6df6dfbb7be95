#include "viewmodel/list/RowCompare.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "config/ColumnTable.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "viewmodel/list/CellText.h"

#include <array>
#include <bit>

namespace {

using Form = CompareForm;

constexpr std::array<CompareForm, Column::kCount> kForms = {
    Form::DateAndStart, Form::Span,   Form::Span,      Form::Span,  // 0 to 3: date and the three spans
    Form::Text,         Form::Text,   Form::TimeOfDay, Form::TimeOfDay, Form::Number,
    Form::Text,         Form::Text,   Form::Text,  // 4 to 11: items, start, end, rate
    Form::Number,       Form::Flag,   Form::Flag,      Form::Flag,
    Form::Flag,  // 12 to 16: amount, flags, notes
    Form::DateAndStart, Form::Number, Form::Text,      Form::Text,      Form::Text,
    Form::Flag,  // 17 to 22: expenses from the date on
    Form::Text,  // 23: the distance as the text that it is stored as, so 10 goes before 9
    Form::Number,       Form::Text,   Form::Text,      Form::Flag,      Form::Flag,
    Form::Flag,         Form::Flag,   Form::Flag,      Form::Flag,      Form::Flag,  // 24 to 33
};

const CTRecord& TimeOf(const CVORec& record) {
    return static_cast<const CTRecord&>(record);
}
const CERecord& ExpenseOf(const CVORec& record) {
    return static_cast<const CERecord&>(record);
}
bool IsTime(const CVORec& record) {
    return record.Kind() == RecordKind::Time;
}

/// Minutes since midnight and one, 0 for no time.
std::uint64_t MinuteOrder(int hour, int minute, bool isPm) {
    DateTimeVal time;
    return time.SetTime(hour, minute, isPm)
               ? static_cast<std::uint64_t>(Hour24Of(hour, isPm) * 60 + minute) + 1
               : 0;
}

std::uint64_t StartOrder(const CTRecord& record) {
    return MinuteOrder(record.startHour, record.startMinute, record.startIsPm);
}

/// The day before the start; on the same day, what has no start goes first.
std::uint64_t DateOrder(const RecordDate& day, std::uint64_t start) {
    constexpr std::uint64_t kMinutes = 2048;
    DateTimeVal date;
    if (!date.SetDate(day.month, day.day, day.year)) return 0;
    const auto number =
        (static_cast<std::uint64_t>(day.year) * 16 + static_cast<std::uint64_t>(day.month)) * 32 +
        static_cast<std::uint64_t>(day.day);
    return number * kMinutes + start;
}

/// A number's bits so turned that the less number has the less bits; never 0.
std::uint64_t NumberOrder(double number) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;
    const double value = number == 0.0 ? 0.0 : number;  // -0 is 0
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

std::uint64_t SpanOrder(const CTRecord& record, int column) {
    const SpanField& span = column == Column::kDuration ? record.spans.duration
                            : column == Column::kBreak  ? record.spans.breakTime
                                                        : record.spans.effective;
    float hours = 0.0F;
    return span.GetDecimal(hours) ? NumberOrder(static_cast<double>(hours)) : 0;
}

std::uint64_t TimeOrder(const CTRecord& record, int column) {
    return column == Column::kStart ? StartOrder(record)
                                    : MinuteOrder(record.endHour, record.endMinute, record.endIsPm);
}

std::uint64_t TextNumberOrder(const QString& text, const CRegionalInfo& region) {
    double number = 0.0;
    return ParseDouble(region, text, number) ? NumberOrder(number) : 0;
}

int Sign(std::uint64_t a, std::uint64_t b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

/// Neither has a value: equal. Of two unequal ones, or two values, only "less" counts.
int CompareLess(std::uint64_t a, std::uint64_t b) {
    if (a == 0 && b == 0) return 0;
    return a < b ? -1 : 1;
}

int CompareSpans(std::uint64_t a, std::uint64_t b, int direction) {
    const bool bothThere = a != 0 && b != 0;
    return bothThere ? direction * CompareLess(a, b) : CompareLess(a, b);
}

}  // namespace

CompareForm CompareFormOf(int column) {
    return kForms[static_cast<std::size_t>(column)];
}

QString RowText(const CVORec& record, int column) {
    return IsTime(record) ? ItemText(TimeOf(record), column) : ItemText(ExpenseOf(record), column);
}

RowKey MakeRowKey(const CVORec& record, int column, const CRegionalInfo& region) {
    if (HalfOf(column) != HalfOf(record.Kind())) return {};
    switch (CompareFormOf(column)) {
        case Form::DateAndStart:
            return {IsTime(record) ? DateOrder(TimeOf(record).date, StartOrder(TimeOf(record)))
                                   : DateOrder(ExpenseOf(record).date, 0),
                    {}};
        case Form::Span:
            return {SpanOrder(TimeOf(record), column), {}};
        case Form::Text:
            return {0, RowText(record, column).toCaseFolded()};
        case Form::TimeOfDay:
            return {TimeOrder(TimeOf(record), column), {}};
        case Form::Number:
            return {TextNumberOrder(RowText(record, column), region), {}};
        case Form::Flag:
            return {FlagOf(record, column) ? 1U : 0U, {}};
    }
    return {};
}

int CompareRows(CompareForm form, const RowKey& a, const RowKey& b, bool ascending) {
    if (form == Form::Text) return ascending ? a.text.compare(b.text) : b.text.compare(a.text);
    return CompareOrders(form, a.order, b.order, ascending);
}

int CompareOrders(CompareForm form, std::uint64_t a, std::uint64_t b, bool ascending) {
    const int direction = ascending ? 1 : -1;
    switch (form) {
        case Form::DateAndStart:
        case Form::Text:
        case Form::TimeOfDay:
            return direction * Sign(a, b);
        case Form::Span:
            return CompareSpans(a, b, direction);
        case Form::Number:
            return direction * CompareLess(a, b);
        case Form::Flag:
            return a != b ? direction : -direction;
    }
    return 0;
}
