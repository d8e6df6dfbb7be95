#include "calendar/PeriodFilter.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateText.h"
#include "calendar/NumberText.h"
#include "calendar/PeriodPresets.h"
#include "lang/LoadText.h"

#include <algorithm>

namespace {

QString DateWithYear(const CRegionalInfo& region, const DateTimeVal& date) {
    return FormatDate(region, date.month, date.day, date.year);
}

/// A text that is no date gives today.
DateTimeVal DateOf(const QString& text, const PeriodSurroundings& around) {
    DateTimeVal date;
    (void)date.ParseDateText(text, around.region, around.clock);
    return date;
}

QString RangeName(const DateTimeVal& start, const DateTimeVal& end, const PeriodSurroundings& around) {
    return DisplayDate(around.region, start, around.yearDisplayFormat) + LoadText(Text::PeriodTo) +
           DisplayDate(around.region, end, around.yearDisplayFormat);
}

void PutDates(PeriodFilter& filter, const PresetDates& dates, const PeriodSurroundings& around) {
    filter.startText = DateWithYear(around.region, dates.start);
    filter.endText = DateWithYear(around.region, dates.end);
}

using StepDates = void (*)(PresetDates& dates, int direction);

template <int Days>
void StepByDays(PresetDates& dates, int direction) {
    dates.start.AddDays(Days * direction);
    dates.end.AddDays(Days * direction);
}

/// The end becomes the true last day of its month: February of a common year ends on the 28th here, although
/// the preset itself says the 29th.
void StepByMonth(PresetDates& dates, int direction) {
    for (DateTimeVal* date : {&dates.start, &dates.end}) {
        if (direction > 0)
            date->AddMonths(1);
        else
            date->SubtractMonths(1);
    }
    dates.start.day = 1;
    dates.end.day = DaysInMonth(dates.end.month, dates.end.year);
}

/// How a preset steps. Without a function: to the single day beside it, behind its end or before its start.
struct StepRow {
    int preset;
    StepDates step;
};
constexpr StepRow kSteps[] = {
    {1, nullptr},       {5, nullptr},        {7, nullptr},        {16, nullptr},
    {2, StepByDays<7>}, {17, StepByDays<7>}, {25, StepByDays<7>}, {3, StepByDays<14>},
    {4, StepByMonth},   {19, StepByMonth},   {27, StepByMonth},
};

const StepRow* FindStep(int preset) {
    const auto* const row = std::ranges::find(kSteps, preset, &StepRow::preset);
    return row == std::ranges::end(kSteps) ? nullptr : row;
}

bool Step(PeriodFilter& filter, int direction, const PeriodSurroundings& around) {
    const StepRow* const row = FindStep(filter.preset);
    if (!row) return false;
    PresetDates dates{DateOf(filter.startText, around), DateOf(filter.endText, around)};
    if (!row->step) {
        const bool fromEnd = direction > 0 && filter.preset == PeriodCode::kRange;
        DateTimeVal beside = fromEnd ? dates.end : dates.start;
        return filter.SetSingleDate(DateWithYear(around.region, beside.AddDays(direction)), around);
    }
    row->step(dates, direction);
    PutDates(filter, dates, around);
    filter.displayName = RangeName(dates.start, dates.end, around);
    return true;
}

}  // namespace

PeriodFilter::PeriodFilter() {
    PeriodFilter::Reset();
}

void PeriodFilter::EnablePeriod(bool enabled) {
    isEnabled = enabled;
    preset = enabled ? PeriodCode::kNotChosen : PeriodCode::kAll;
    displayName = LoadText(enabled ? Text::PeriodNotChosen : Text::PeriodAll);
}

void PeriodFilter::Reset() {
    EnablePeriod(false);
    matchWhole = false;
    matchCase = false;
    startText = LoadText(Text::AnyWord);
    endText = startText;
}

bool PeriodFilter::ApplyPreset(int id, const PeriodSurroundings& around) {
    const PeriodPresetRow* const row = FindPeriodPreset(id);
    if (!row) return false;
    isEnabled = true;
    displayName = LoadText(row->name);
    preset = id;
    DateTimeVal today;
    today.SetToday(around.clock);
    PresetDates dates;
    const PresetOutcome outcome = ComputePreset(id, today, around.firstDayOfWeek, dates);
    if (outcome == PresetOutcome::NoDates) return true;
    if (outcome == PresetOutcome::Failed && id != PeriodCode::kToday)
        return ApplyPreset(PeriodCode::kToday, around);
    PutDates(*this, dates, around);
    return true;
}

bool PeriodFilter::SetSingleDate(const QString& text, const PeriodSurroundings& around) {
    DateTimeVal date;
    if (!date.ParseDateText(text, around.region, around.clock)) return false;
    DateTimeVal today;
    today.SetToday(around.clock);
    if (text == DateWithYear(around.region, today)) return ApplyPreset(PeriodCode::kToday, around);
    // the caller may hand in one of our own texts
    const QString chosen = text;  // NOLINT(performance-unnecessary-copy-initialization)
    EnablePeriod(true);
    preset = PeriodCode::kSingleDate;
    startText = chosen;
    endText = chosen;
    displayName = DisplayDate(around.region, date, around.yearDisplayFormat);
    return true;
}

void PeriodFilter::SetRange(const DateTimeVal& start, const DateTimeVal& end,
                            const PeriodSurroundings& around) {
    if (!start.IsEarlierDate(end)) {
        // Equal dates are the single day; a start after the end is the single day of the end.
        (void)SetSingleDate(DateWithYear(around.region, end), around);
        return;
    }
    EnablePeriod(true);
    preset = PeriodCode::kRange;
    PutDates(*this, {start, end}, around);
    displayName = RangeName(start, end, around);
}

bool PeriodFilter::CanStep() const {
    return FindStep(preset) != nullptr;
}

bool PeriodFilter::StepBack(const PeriodSurroundings& around) {
    return Step(*this, -1, around);
}

bool PeriodFilter::StepForward(const PeriodSurroundings& around) {
    return Step(*this, 1, around);
}

bool PeriodFilter::Dates(DateTimeVal& start, DateTimeVal& end, const PeriodSurroundings& around) const {
    if (!isEnabled) return false;
    start = DateOf(startText, around);
    end = DateOf(endText, around);
    return true;
}

QString DisplayDate(const CRegionalInfo& region, const DateTimeVal& date, int yearDisplayFormat) {
    if (date.month < 1 || date.day < 1 || date.year < 1) return {};
    if (yearDisplayFormat == 1) return ShortDateText(region, date.month, date.day, date.year);
    if (yearDisplayFormat == 2) return DayText(region, date.month, date.day);
    return LongDateText(region, date.month, date.day, date.year);
}
