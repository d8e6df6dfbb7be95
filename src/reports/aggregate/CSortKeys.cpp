#include "reports/aggregate/CSortKeys.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "platform/host/CRegionalInfo.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace {

constexpr double kUnset = std::numeric_limits<double>::quiet_NaN();

/// The fifth flag of expenses and their rate can be chosen and sort nothing, and that is wanted.
KeyForm FormOf(const FieldRow* field) {
    if (!field || field->id == FieldId::Flag5 || field->id == FieldId::ExpenseRate) return KeyForm::None;
    switch (field->form) {
        case FieldForm::Date:
        case FieldForm::TimeOfDay:
        case FieldForm::Money:
        case FieldForm::Flag:
            return KeyForm::Number;
        case FieldForm::Text:
            return KeyForm::Text;
        case FieldForm::Span:
            return KeyForm::Span;
        case FieldForm::Distance:
            return KeyForm::Distance;
        case FieldForm::Notes:
        case FieldForm::Reading:
            break;
    }
    return KeyForm::None;
}

/// A record without a day goes before all others.
double DayOf(const RecordDate& date) {
    return date.IsSet() ? DayNumber(date.month, date.day, date.year)
                        : -std::numeric_limits<double>::infinity();
}

/// The hour of the clock face, and 12 more in the afternoon: half past noon comes after 11 in the evening,
/// and no time at all, which is hour 50, after both. Wanted.
double MinutesOf(const CVORec& record, const FieldRow& field) {
    const auto& time = static_cast<const CTRecord&>(record);
    const bool isStart = field.id == FieldId::Start;
    const int hour = isStart ? time.startHour : time.endHour;
    const int minute = isStart ? time.startMinute : time.endMinute;
    const bool isPm = isStart ? time.startIsPm : time.endIsPm;
    return (hour + (isPm ? 12 : 0)) * 60.0 + minute;
}

double SpanMinutes(const SpanField& span) {
    return span.IsSet() ? span.hours * 60.0 + span.minutes : kUnset;
}

/// A flag that is set goes first.
double NumberOf(const CVORec& record, const FieldRow& field) {
    switch (field.form) {
        case FieldForm::Date:
            return DayOf(ValueOf<RecordDate>(record, field));
        case FieldForm::TimeOfDay:
            return MinutesOf(record, field);
        case FieldForm::Flag:
            return FlagOf(record, field) ? 0.0 : 1.0;
        default:
            return double{ValueOf<DecimalField>(record, field).value};
    }
}

int CompareNumbers(double a, double b) {
    if (a == b) return 0;
    return a < b ? -1 : 1;
}

}  // namespace

CSortKeys::CSortKeys(RecordKind kind, const QList<SortKey>& keys) {
    for (const SortKey& key : keys) {
        const FieldRow* field = FindField(kind, ::NumberOf(key.fieldId));
        const KeyForm form = FormOf(field);
        if (form != KeyForm::None && key.direction != 0)
            m_columns.push_back({.field = field, .form = form, .direction = key.direction});
    }
}

void CSortKeys::Reserve(std::size_t records) {
    for (Column& column : m_columns) column.values.reserve(records);
}

void CSortKeys::Add(const CVORec& record) {
    for (Column& column : m_columns) AddTo(column, record);
    ++m_count;
}

void CSortKeys::AddTo(Column& column, const CVORec& record) {
    switch (column.form) {
        case KeyForm::Text:
            return AddText(column, TextOf(record, *column.field));
        case KeyForm::Span:
            return column.values.push_back(SpanMinutes(SpanOf(record, *column.field)));
        case KeyForm::Distance: {
            double parsed = kUnset;
            (void)ParseDouble(TheRegion(), TextOf(record, *column.field), parsed);
            column.values.push_back(parsed);
            return column.stored.push_back(double{static_cast<const CERecord&>(record).GetDistance()});
        }
        default:
            return column.values.push_back(NumberOf(record, *column.field));
    }
}

/// Equal texts are folded once, equal folded ones have one number.
void CSortKeys::AddText(Column& column, const QString& text) {
    auto known = column.texts.constFind(text);
    if (known == column.texts.constEnd()) {
        const QString folded = text.toCaseFolded();
        auto number = column.folded.constFind(folded);
        if (number == column.folded.constEnd())
            number = column.folded.insert(folded, static_cast<std::uint32_t>(column.folded.size()));
        known = column.texts.insert(text, *number);
    }
    column.values.push_back(*known);
}

/// In place of the number by which it is known a text gets its place among all of them.
void CSortKeys::RankTexts(Column& column) {
    std::vector<std::pair<QString, std::uint32_t>> texts;
    for (auto text = column.folded.cbegin(); text != column.folded.cend(); ++text)
        texts.emplace_back(text.key(), text.value());
    std::ranges::sort(texts, {}, [](const auto& text) -> const QString& { return text.first; });
    std::vector<double> ranks(texts.size());
    for (std::size_t rank = 0; rank < texts.size(); ++rank)
        ranks[texts[rank].second] = static_cast<double>(rank);
    for (double& value : column.values) value = ranks[static_cast<std::size_t>(value)];
    column.texts.clear();
    column.folded.clear();
}

int CSortKeys::Compare(const Column& column, std::uint32_t a, std::uint32_t b) {
    const double one = column.values[a], other = column.values[b];
    switch (column.form) {
        case KeyForm::Span:
            return std::isnan(one) || std::isnan(other) ? 0 : CompareNumbers(one, other);
        case KeyForm::Distance:
            return std::isnan(one) || std::isnan(other) ? CompareNumbers(column.stored[a], column.stored[b])
                                                        : CompareNumbers(one, other);
        default:
            return CompareNumbers(one, other);
    }
}

/// The first key in which two records differ decides. A direction that is neither 1 nor -1 decides too, but
/// lets neither of them be less.
bool CSortKeys::IsLess(const Item& a, const Item& b) const {
    if (a.first != b.first && m_plain > 0) return a.first < b.first;
    if (a.second != b.second && m_plain > 1) return a.second < b.second;
    for (std::size_t key = m_plain; key < m_columns.size(); ++key) {
        const int compared = Compare(m_columns[key], a.place, b.place);
        if (compared != 0) return m_columns[key].direction == -compared;
    }
    return false;
}

bool CSortKeys::IsPlain(const Column& column) {
    if (column.direction != 1 && column.direction != -1) return false;
    const bool isNumber = column.form == KeyForm::Number || column.form == KeyForm::Text;
    const auto isUnset = [](double value) { return std::isnan(value); };
    return isNumber || (column.form == KeyForm::Span && std::ranges::none_of(column.values, isUnset));
}

std::vector<CSortKeys::Item> CSortKeys::MakeItems(std::span<const std::uint32_t> before) {
    while (m_plain < std::min<std::size_t>(2, m_columns.size()) && IsPlain(m_columns[m_plain])) ++m_plain;
    const auto valueOf = [this](std::size_t key, std::uint32_t place) {
        return key < m_plain ? m_columns[key].values[place] * m_columns[key].direction : 0.0;
    };
    std::vector<Item> items(m_count);
    for (std::uint32_t i = 0; i < m_count; ++i) {
        const std::uint32_t place = before.empty() ? i : before[i];
        items[i] = {.first = valueOf(0, place), .second = valueOf(1, place), .place = place};
    }
    return items;
}

std::vector<std::uint32_t> CSortKeys::OrderBefore(std::span<const std::uint32_t> before) const {
    if (!before.empty()) return {before.begin(), before.end()};
    std::vector<std::uint32_t> order(m_count);
    std::iota(order.begin(), order.end(), 0U);
    return order;
}

/// Values that lie beside the records aren't needed twice: of a lifetime of records they take as much as what
/// is sorted.
void CSortKeys::DropPlainValues() {
    for (std::size_t key = 0; key < m_plain; ++key) std::vector<double>().swap(m_columns[key].values);
}

std::vector<std::uint32_t> CSortKeys::Order(std::span<const std::uint32_t> before) {
    if (m_columns.empty()) return OrderBefore(before);
    for (Column& column : m_columns)
        if (column.form == KeyForm::Text) RankTexts(column);
    std::vector<Item> items = MakeItems(before);
    DropPlainValues();
    if (m_count >= 2) {
        std::vector<Item> left(items.size() / 2 + 1);
        Sort(items, left, 0, items.size() - 1);
    }
    std::vector<std::uint32_t> order(m_count);
    std::ranges::transform(items, order.begin(), &Item::place);
    return order;
}

/// From low to high, both included.
void CSortKeys::Sort(std::vector<Item>& items, std::vector<Item>& left, std::size_t low,
                     std::size_t high) const {
    if (high <= low) return;
    const std::size_t middle = (low + high) / 2;
    Sort(items, left, low, middle);
    Sort(items, left, middle + 1, high);
    Merge(items, left, low, middle, high);
}

/// The left half is put aside; what is written over is never later than what is left of the right half.
void CSortKeys::Merge(std::vector<Item>& items, std::vector<Item>& left, std::size_t low, std::size_t middle,
                      std::size_t high) const {
    const std::size_t count = middle - low + 1;
    std::copy_n(items.begin() + static_cast<std::ptrdiff_t>(low), count, left.begin());
    std::size_t next = 0, right = middle + 1;
    for (std::size_t out = low; next < count; ++out) {
        const bool takeRight = right <= high && IsLess(items[right], left[next]);
        items[out] = takeRight ? items[right++] : left[next++];
    }
}
