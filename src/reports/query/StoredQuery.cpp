#include "reports/query/StoredQuery.h"

#include "calendar/NumberText.h"
#include "calendar/PeriodPresets.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <charconv>

namespace {

DateTimeVal DateOf(const QString& text, const PeriodContext& context) {
    DateTimeVal date;
    if (!date.ParseDateText(text, context.region, context.clock)) date.SetToday(context.clock);
    return date;
}

bool IsDate(const QString& text, const PeriodContext& context) {
    DateTimeVal date;
    return date.ParseDateText(text, context.region, context.clock);
}

void ResetFields(QueryFields& query, const PeriodContext& context) {
    query.items.fill(LoadText(Text::AnyWord));
    DateTimeVal today;
    today.SetToday(context.clock);
    query.startText = query.endText = FormatDate(context.region, today.month, today.day, today.year);
}

void ApplyPeriod(const QueryFields& query, const PeriodContext& context, PeriodFilter& filter) {
    const auto preset = PresetOfRow(query.periodRow);
    if (!query.isPeriodOn)
        filter.EnablePeriod(false);
    else if (preset)
        (void)filter.ApplyPreset(*preset, context);  // false only for what is no preset
    else
        filter.SetRange(DateOf(query.startText, context), DateOf(query.endText, context), context);
}

template <class Filter>
void ApplyFields(const QueryFields& query, const PeriodContext& context, Filter& filter) {
    filter.Reset();
    ApplyPeriod(query, context, filter);
    filter.items = query.items;
    filter.matchCase = query.matchCase;
    filter.matchWhole = query.matchWhole;
}

}  // namespace

void TimeQuery::Reset(const PeriodContext& context) {
    *this = {};
    ResetFields(*this, context);
}

void ExpenseQuery::Reset(const PeriodContext& context) {
    *this = {};
    ResetFields(*this, context);
}

void ApplyQuery(const TimeQuery& query, const PeriodContext& context, TimeFilter& filter) {
    ApplyFields(query, context, filter);
    filter.billable = query.billable;
    filter.billed = query.billed;
}

void ApplyQuery(const ExpenseQuery& query, const PeriodContext& context, ExpenseFilter& filter) {
    ApplyFields(query, context, filter);
    filter.amount = query.amount;
    filter.comparison = query.comparison;
    filter.distance = query.distance;
    filter.flags = query.flags;
}

std::optional<int> PresetOfRow(int row) {
    const auto presets = PeriodPresets();
    if (row < 1 || row > static_cast<int>(presets.size())) return std::nullopt;
    return presets[static_cast<std::size_t>(row) - 1].preset;
}

int RowOfPreset(int preset) {
    const auto presets = PeriodPresets();
    const auto at = std::ranges::find(presets, preset, &PeriodPresetRow::preset);
    return at == presets.end() ? 0 : static_cast<int>(at - presets.begin()) + 1;
}

QStringList UnreadDates(const QueryFields& query, const PeriodContext& context) {
    QStringList unread;
    if (!query.isPeriodOn || PresetOfRow(query.periodRow)) return unread;
    for (const QString& text : {query.startText, query.endText})
        if (!IsDate(text, context)) unread.append(text);
    unread.removeDuplicates();
    return unread;
}

QString NoteOnDates(const QueryFields& query, const PeriodContext& context) {
    if (!query.isPeriodOn || PresetOfRow(query.periodRow)) return {};
    return NoteOnRange(DateOf(query.startText, context), DateOf(query.endText, context), context);
}

QStringList NotesOn(const StoredQuery& query, const PeriodContext& context) {
    QStringList notes;
    notes << std::visit([&context](const QueryFields& fields) { return NoteOnDates(fields, context); },
                        query);
    if (const auto* expenses = std::get_if<ExpenseQuery>(&query))
        notes << NoteOnAmount(expenses->amount, expenses->comparison);
    notes.removeAll(QString());
    return notes;
}

bool CanAskFor(const ExpenseQuery& query, std::size_t flag) {
    const bool isDependent = flag == 1 || flag == 3;
    return !isDependent || query.flags[flag - 1] == FlagCriterion::kSet;
}

void DropDependents(ExpenseQuery& query) {
    for (std::size_t flag = 0; flag < query.flags.size(); ++flag)
        if (!CanAskFor(query, flag)) query.flags[flag] = FlagCriterion::kAny;
}

/// As many digits as the number needs: what is shown can be stored again as it was.
QString AmountDigits(float amount) {
    std::array<char, 64> digits{};
    const auto* const end = std::to_chars(digits.begin(), digits.end(), amount, std::chars_format::fixed).ptr;
    return QString::fromLatin1(digits.data(), end - digits.data());
}

QString AmountText(float amount) {
    if (amount == ExpenseFilter::kAnyAmount) return LoadText(Text::AnyWord);
    return AmountDigits(amount).replace(u'.', QChar(TheRegion().decimalChar));
}

float AmountOfText(const QString& text) {
    if (text == LoadText(Text::AnyWord)) return ExpenseFilter::kAnyAmount;
    float amount = 0.0F;
    return ParseFloat(TheRegion(), text, amount) ? amount : 0.0F;
}

QString NoteOnAmountText(const QString& text, int comparison) {
    float amount = 0.0F;
    if (text == LoadText(Text::AnyWord)) return {};
    if (!ParseFloat(TheRegion(), text, amount)) return LoadText(Text::AmountCountsAsZero);
    // The number that stands for any amount lets each pass, however it compares.
    if (amount == ExpenseFilter::kAnyAmount) return LoadText(Text::AmountFindsAll);
    return NoteOnAmount(amount, comparison);
}
