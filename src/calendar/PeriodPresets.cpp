#include "calendar/PeriodPresets.h"

#include <algorithm>
#include <array>

namespace {

/// One of the two dates of a preset.
using PresetDate = DateTimeVal (*)(const DateTimeVal& today, int firstDayOfWeek);

template <int Days>
DateTimeVal Day(const DateTimeVal& today, int) {
    return DateTimeVal(today).AddDays(Days);
}

PresetDates WeekFrom(const DateTimeVal& today, int firstDayOfWeek, int weeks) {
    PresetDates week;
    today.WeekRange(firstDayOfWeek, week.start, week.end);
    week.start.AddDays(7 * weeks);
    week.end.AddDays(7 * weeks);
    return week;
}

template <int Weeks>
DateTimeVal WeekFirst(const DateTimeVal& today, int firstDayOfWeek) {
    return WeekFrom(today, firstDayOfWeek, Weeks).start;
}

template <int Weeks>
DateTimeVal WeekLast(const DateTimeVal& today, int firstDayOfWeek) {
    return WeekFrom(today, firstDayOfWeek, Weeks).end;
}

DateTimeVal MonthsFrom(DateTimeVal today, int months) {
    return months < 0 ? today.SubtractMonths(-months) : today.AddMonths(months);
}

template <int Months>
DateTimeVal MonthFirst(const DateTimeVal& today, int) {
    DateTimeVal first;
    (void)MonthsFrom(today, Months).FirstOfMonth(first);
    return first;
}

/// By LastOfMonth: every February ends on the 29th.
template <int Months>
DateTimeVal MonthLast(const DateTimeVal& today, int) {
    DateTimeVal last;
    (void)MonthsFrom(today, Months).LastOfMonth(last);
    return last;
}

/// The quarter before, this one or the next, by QuarterRange: quarters 1, 2 and 4 are all October to
/// December, only the year before and after count.
PresetDates QuarterFrom(const DateTimeVal& today, int quarters) {
    int quarter = today.QuarterOf() + quarters;
    int year = today.year;
    if (quarter < 1) {
        quarter = 1;
        --year;
    } else if (quarter > 4) {
        quarter = 1;
        ++year;
    }
    PresetDates range;
    QuarterRange(range.start, range.end, quarter, year);
    return range;
}

template <int Quarters>
DateTimeVal QuarterFirst(const DateTimeVal& today, int) {
    return QuarterFrom(today, Quarters).start;
}

template <int Quarters>
DateTimeVal QuarterLast(const DateTimeVal& today, int) {
    return QuarterFrom(today, Quarters).end;
}

template <int Years>
DateTimeVal YearFirst(const DateTimeVal& today, int) {
    DateTimeVal first;
    first.SetDate(1, 1, today.year + Years);
    return first;
}

template <int Years>
DateTimeVal YearLast(const DateTimeVal& today, int) {
    DateTimeVal last;
    last.SetDate(12, 31, today.year + Years);
    return last;
}

constexpr auto kToday = Day<0>;

struct PresetComputation {
    int preset;
    PresetDate start;
    PresetDate end;
};

/// Preset 28 (next quarter) ends today, before it starts, and so matches nothing; preset 13 does the same in
/// the first half of a year. Preset 20 (last month to date) has no computation. All three are wanted.
constexpr PresetComputation kComputations[] = {
    {1, kToday, kToday},
    {2, WeekFirst<0>, WeekLast<0>},
    {3, WeekFirst<-1>, WeekLast<0>},
    {4, MonthFirst<0>, MonthLast<0>},
    {10, WeekFirst<0>, kToday},
    {11, MonthFirst<0>, kToday},
    {12, QuarterFirst<0>, QuarterLast<0>},
    {13, QuarterFirst<0>, kToday},
    {14, YearFirst<0>, YearLast<0>},
    {15, YearFirst<0>, kToday},
    {16, Day<-1>, Day<-1>},
    {17, WeekFirst<-1>, WeekLast<-1>},
    {18, WeekFirst<-1>, kToday},
    {19, MonthFirst<-1>, MonthLast<-1>},
    {21, QuarterFirst<-1>, QuarterLast<-1>},
    {22, QuarterFirst<-1>, kToday},
    {23, YearFirst<-1>, YearLast<-1>},
    {24, YearFirst<-1>, kToday},
    {25, WeekFirst<1>, WeekLast<1>},
    {26, Day<1>, Day<29>},
    {27, MonthFirst<1>, MonthLast<1>},
    {28, QuarterFirst<1>, kToday},
    {29, YearFirst<1>, YearLast<1>},
};

constexpr std::array<PeriodPresetRow, 24> kPresets = {{
    {1, 32798, Text::PeriodToday, Text::TokenToday},
    {2, 32799, Text::PeriodThisWeek, Text::TokenThisWeek},
    {3, 32800, Text::PeriodTwoWeeks, Text::TokenTwoWeeks},
    {4, 32801, Text::PeriodThisMonth, Text::TokenThisMonth},
    {16, 32789, Text::PeriodYesterday, Text::TokenYesterday},
    {10, 32790, Text::PeriodWeekToDate, Text::TokenWeekToDate},
    {11, 32791, Text::PeriodMonthToDate, Text::TokenMonthToDate},
    {12, 32792, Text::PeriodThisQuarter, Text::TokenThisQuarter},
    {13, 32793, Text::PeriodQuarterToDate, Text::TokenQuarterToDate},
    {14, 32794, Text::PeriodThisYear, Text::TokenThisYear},
    {15, 32795, Text::PeriodYearToDate, Text::TokenYearToDate},
    {17, 32796, Text::PeriodLastWeek, Text::TokenLastWeek},
    {18, 32797, Text::PeriodLastWeekToDate, Text::TokenLastWeekToDate},
    {19, 32811, Text::PeriodLastMonth, Text::TokenLastMonth},
    {20, 32819, Text::PeriodLastMonthToDate, Text::TokenLastMonthToDate},
    {21, 32820, Text::PeriodLastQuarter, Text::TokenLastQuarter},
    {22, 32822, Text::PeriodLastQuarterToDate, Text::TokenLastQuarterToDate},
    {23, 32823, Text::PeriodLastYear, Text::TokenLastYear},
    {24, 32824, Text::PeriodLastYearToDate, Text::TokenLastYearToDate},
    {25, 32843, Text::PeriodNextWeek, Text::TokenNextWeek},
    {26, 32847, Text::PeriodNextFourWeeks, Text::TokenNextFourWeeks},
    {27, 32848, Text::PeriodNextMonth, Text::TokenNextMonth},
    {28, 32849, Text::PeriodNextQuarter, Text::TokenNextQuarter},
    {29, 32850, Text::PeriodNextYear, Text::TokenNextYear},
}};

}  // namespace

std::span<const PeriodPresetRow> PeriodPresets() {
    return kPresets;
}

const PeriodPresetRow* FindPeriodPreset(int preset) {
    const auto at = std::ranges::find(kPresets, preset, &PeriodPresetRow::preset);
    return at == kPresets.end() ? nullptr : &*at;
}

PresetOutcome ComputePreset(int preset, const DateTimeVal& today, int firstDayOfWeek, PresetDates& out) {
    const auto* const row = std::ranges::find(kComputations, preset, &PresetComputation::preset);
    if (row == std::ranges::end(kComputations)) return PresetOutcome::NoDates;
    if (!today.IsValid()) return PresetOutcome::Failed;
    out = {row->start(today, firstDayOfWeek), row->end(today, firstDayOfWeek)};
    return PresetOutcome::Done;
}
