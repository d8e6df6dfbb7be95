#include "viewmodel/list/RowCompare.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "viewmodel/list/DayOrder.h"

#include <bit>

namespace {

using Form = CompareForm;

/// Minutes since midnight and one, 0 for what is no time of day.
std::uint64_t TimeOrder(const CVORec& record, const FieldRow& field) {
    const std::optional<ClockTime> clock = TimeOf(record, field);
    DateTimeVal time;
    if (!clock || !time.SetTime(clock->hour, clock->minute, clock->isPm)) return 0;
    return static_cast<std::uint64_t>(Hour24Of(clock->hour, clock->isPm) * 60 + clock->minute) + 1;
}

std::uint64_t StartOrder(const CVORec& record) {
    return record.Kind() == RecordKind::Time ? TimeOrder(record, *FieldOfColumn(Column::kStart)) : 0;
}

constexpr std::uint64_t kMinutes = 2048;  ///< more than a day has

/// The day before the start; on the same day, what has no start goes first.
std::uint64_t DateOrder(const CVORec& record, const FieldRow& field) {
    const auto& day = ValueOf<RecordDate>(record, field);
    DateTimeVal date;
    if (!date.SetDate(day.month, day.day, day.year)) return 0;
    return std::uint64_t{DayOrder(day.year, day.month, day.day)} * kMinutes + StartOrder(record);
}

/// A number's bits so turned that the less number has the less bits; never 0.
std::uint64_t NumberOrder(double number) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;
    const double value = number == 0.0 ? 0.0 : number;  // -0 is 0
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

std::uint64_t SpanOrder(const SpanField& span) {
    float hours = 0.0F;
    return span.GetDecimal(hours) ? NumberOrder(static_cast<double>(hours)) : 0;
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

/// Of a field that isn't compared by its text.
std::uint64_t OrderOf(const CVORec& record, const FieldRow& field, const CRegionalInfo& region) {
    switch (CompareFormOf(field.form)) {
        case Form::DateAndStart:
            return DateOrder(record, field);
        case Form::Span:
            return SpanOrder(SpanOf(record, field));
        case Form::TimeOfDay:
            return TimeOrder(record, field);
        case Form::Number:
            return TextNumberOrder(TextOf(record, field), region);
        case Form::Flag:
            return FlagOf(record, field) ? 1U : 0U;
        case Form::Text:
            break;
    }
    return 0;
}

}  // namespace

std::uint32_t DayOfOrder(std::uint64_t order) {
    return static_cast<std::uint32_t>(order / kMinutes);
}

CompareForm CompareFormOf(int column) {
    return CompareFormOf(FieldOfColumn(column)->form);
}

QString RowText(const CVORec& record, int column) {
    const FieldRow& field = *FieldOfColumn(column);
    return KindOf(field) == record.Kind() ? TextOf(record, field) : QString();
}

RowKey MakeRowKey(const CVORec& record, int column, const CRegionalInfo& region) {
    const FieldRow& field = *FieldOfColumn(column);
    if (KindOf(field) != record.Kind()) return {};
    if (CompareFormOf(field.form) == Form::Text) return {0, TextOf(record, field).toCaseFolded()};
    return {OrderOf(record, field, region), {}};
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
