#include "cli/arguments/FilterArguments.h"

#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <array>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kPeriodOptions[] = {
    {"period", "ID", OptionShape::Value, Text::CliOptPeriod},
    {"day", "DATE", OptionShape::Value, Text::CliOptDay},
    {"from", "DATE", OptionShape::Value, Text::CliOptFrom},
    {"to", "DATE", OptionShape::Value, Text::CliOptTo},
    {"item1", "TEXT", OptionShape::Value, Text::CliOptWithItem1},
    {"item2", "TEXT", OptionShape::Value, Text::CliOptWithItem2},
};
constexpr OptionRow kTimeItems[] = {
    {"item3", "TEXT", OptionShape::Value, Text::CliOptWithItem3},
    {"item4", "TEXT", OptionShape::Value, Text::CliOptWithItem4},
};
constexpr OptionRow kExpenseItems[] = {
    {"item3", "TEXT", OptionShape::Value, Text::CliOptWithExpItem3},
    {"item4", "TEXT", OptionShape::Value, Text::CliOptWithExpItem4},
};
constexpr OptionRow kMatchOptions[] = {
    {"item5", "TEXT", OptionShape::Value, Text::CliOptWithItem5},
    {"whole", "", OptionShape::Flag, Text::CliOptWhole},
    {"case", "", OptionShape::Flag, Text::CliOptCase},
    {"exported", "", OptionShape::YesNo, Text::CliOptWithExported},
    {"text", "WORDS", OptionShape::Value, Text::CliOptWithText},
};
constexpr OptionRow kTimeCriteria[] = {
    {"billable", "", OptionShape::YesNo, Text::CliOptWithBillable},
    {"billed", "", OptionShape::YesNo, Text::CliOptWithBilled},
    {"timers", "", OptionShape::YesNo, Text::CliOptWithTimers},
};
constexpr OptionRow kExpenseCriteria[] = {
    {"flag1", "", OptionShape::YesNo, Text::CliOptWithFlag},
    {"flag2", "", OptionShape::YesNo, Text::CliOptWithFlag},
    {"flag3", "", OptionShape::YesNo, Text::CliOptWithFlag},
    {"flag4", "", OptionShape::YesNo, Text::CliOptWithFlag},
    {"flag5", "", OptionShape::YesNo, Text::CliOptWithFlag},
    {"distance-entries", "", OptionShape::YesNo, Text::CliOptWithDistance},
    {"amount", "=N|<N|>N", OptionShape::Value, Text::CliOptWithAmount},
};

/// One table of several.
template <std::size_t... Sizes>
constexpr auto Joined(const OptionRow (&... tables)[Sizes]) {
    std::array<OptionRow, (Sizes + ...)> joined{};
    auto end = joined.begin();
    ((end = std::ranges::copy(tables, end).out), ...);
    return joined;
}
constexpr auto kTimeOptions = Joined(kPeriodOptions, kTimeItems, kMatchOptions, kTimeCriteria);
constexpr auto kExpenseOptions = Joined(kPeriodOptions, kExpenseItems, kMatchOptions, kExpenseCriteria);

constexpr const char* kItems[] = {"item1", "item2", "item3", "item4", "item5"};

constexpr const char* kFlags[] = {"flag1", "flag2", "flag3", "flag4", "flag5"};

/// A criterion on a flag.
template <class Filter>
struct FlagRow {
    const char* option;
    int Filter::*criterion;
};
constexpr FlagRow<ExpenseFilter> kExpenseFlags[] = {
    {"exported", &ExpenseFilter::exported},
    {"distance-entries", &ExpenseFilter::distance},
};
constexpr FlagRow<TimeFilter> kTimeFlags[] = {
    {"billable", &TimeFilter::billable},
    {"billed", &TimeFilter::billed},
    {"exported", &TimeFilter::exported},
    {"timers", &TimeFilter::timer},
};

FilterProblem Usage(const QString& words) {
    return {ExitCode::Usage, words};
}

FilterProblem NoDate(const char* option, const QString& typed) {
    return Usage(
        FormatText<Text::CliOptionRefused>(QString::fromLatin1(option), FormatText<Text::CliNoDate>(typed)));
}

FilterProblem ReadPreset(const QString& typed, PeriodOption& period) {
    const auto preset = EnteredValues::ReadCount(typed);
    if (!preset || !FindPeriodPreset(*preset))
        return {ExitCode::NotFound, FormatText<Text::CliNoSuchPeriod>(typed)};
    period.preset = preset;
    return {};
}

/// One day, or all days between two.
FilterProblem ReadDays(const char* firstOption, const QString& first, const char* lastOption,
                       const QString& last, const PeriodContext& context, PeriodOption& period) {
    const auto start = EnteredValues::ReadDate(first, context.region, context.clock);
    if (!start) return NoDate(firstOption, first);
    const auto end = EnteredValues::ReadDate(last, context.region, context.clock);
    if (!end) return NoDate(lastOption, last);
    period.days = {*start, *end};
    return {};
}

/// What must be known of a filter beside what it lets pass.
void AddNote(FilterProblem& problem, const QString& note) {
    if (!note.isEmpty()) problem.notes << note;
}

/// Ends that are swapped give the day of the later option.
FilterProblem ReadPeriod(const CArguments& arguments, const PeriodContext& context, PeriodFilter& filter) {
    PeriodOption period;
    FilterProblem problem = ReadPeriodOption(arguments, context, period);
    if (period.preset) (void)filter.ApplyPreset(*period.preset, context);  // false only for what is no preset
    if (!period.days) return problem;
    const auto& [start, end] = *period.days;
    filter.SetRange(start, end, context);
    AddNote(problem, NoteOnRange(start, end, context));
    return problem;
}

int CriterionOf(const QString& typed) {
    return EnteredValues::ReadYesNo(typed).value_or(true) ? FlagCriterion::kSet : FlagCriterion::kClear;
}

/// What the filters of both kinds have.
template <class Filter>
FilterProblem ReadShared(const CArguments& arguments, const PeriodContext& context, Filter& filter) {
    filter.Reset();
    for (std::size_t i = 0; i < std::size(kItems); ++i)
        if (const auto text = arguments.Value(kItems[i])) filter.items[i] = *text;
    filter.matchWhole = arguments.Has("whole");
    filter.matchCase = arguments.Has("case");
    filter.words = arguments.Value("text").value_or(QString());
    if (arguments.Has("text") && filter.words.trimmed().isEmpty())
        return Usage(FormatText<Text::CliEmptyCriterion>(u"text"_s));
    return ReadPeriod(arguments, context, filter);
}

template <class Filter, std::size_t N>
void ReadFlags(const CArguments& arguments, const FlagRow<Filter> (&flags)[N], Filter& filter) {
    for (const auto& flag : flags)
        if (const auto typed = arguments.Value(flag.option)) filter.*flag.criterion = CriterionOf(*typed);
}

struct ComparisonRow {
    QChar sign;
    int comparison;
};
constexpr ComparisonRow kComparisons[] = {
    {u'=', AmountComparison::kEqual},
    {u'<', AmountComparison::kLess},
    {u'>', AmountComparison::kGreater},
};

/// "=12.50", "<100", ">-20".
FilterProblem ReadAmount(const QString& typed, const PeriodContext& context, ExpenseFilter& filter) {
    const QString text = typed.trimmed();
    const auto row = std::ranges::find_if(
        kComparisons, [&](const ComparisonRow& one) { return text.startsWith(one.sign); });
    const auto number = EnteredValues::ReadSignedNumber(text.mid(1), context.region);
    const auto amount = static_cast<float>(number.value_or(0.0));
    // -1 is how a filter keeps "any amount".
    if (row == std::end(kComparisons) || !number || amount == ExpenseFilter::kAnyAmount)
        return Usage(FormatText<Text::CliAmountCondition>(typed));
    filter.amount = amount;
    filter.comparison = row->comparison;
    return {};
}

}  // namespace

std::span<const OptionRow> FilterOptions(RecordKind kind) {
    if (kind == RecordKind::Time) return kTimeOptions;
    return kExpenseOptions;
}

FilterProblem ReadPeriodOption(const CArguments& arguments, const PeriodContext& context,
                               PeriodOption& period) {
    const auto preset = arguments.Value("period"), day = arguments.Value("day");
    const auto from = arguments.Value("from"), to = arguments.Value("to");
    if (int{preset.has_value()} + int{day.has_value()} + int{from || to} > 1)
        return Usage(LoadText(Text::CliOnePeriod));
    if (preset) return ReadPreset(*preset, period);
    if (day) return ReadDays("day", *day, "day", *day, context, period);
    if (from && to) return ReadDays("from", *from, "to", *to, context, period);
    return from || to ? Usage(LoadText(Text::CliFromAndTo)) : FilterProblem{};
}

FilterProblem ReadFilter(const CArguments& arguments, const PeriodContext& context, TimeFilter& filter) {
    FilterProblem problem = ReadShared(arguments, context, filter);
    ReadFlags(arguments, kTimeFlags, filter);
    return problem;
}

FilterProblem ReadFilter(const CArguments& arguments, const PeriodContext& context, ExpenseFilter& filter) {
    FilterProblem problem = ReadShared(arguments, context, filter);
    ReadFlags(arguments, kExpenseFlags, filter);
    for (std::size_t i = 0; i < std::size(kFlags); ++i)
        if (const auto typed = arguments.Value(kFlags[i])) filter.flags[i] = CriterionOf(*typed);
    const auto amount = arguments.Value("amount");
    if (!amount || problem.exit != ExitCode::Done) return problem;
    if (FilterProblem refused = ReadAmount(*amount, context, filter); refused.exit != ExitCode::Done)
        return refused;
    AddNote(problem, NoteOnAmount(filter.amount, filter.comparison));
    return problem;
}

FilterProblem ReadFilter(RecordKind kind, const CArguments& arguments, CVelmarchDoc& document) {
    return kind == RecordKind::Time
               ? ReadFilter(arguments, document.GetPeriodContext(), document.Filter())
               : ReadFilter(arguments, document.GetPeriodContext(), document.FilterOfExpenses());
}
