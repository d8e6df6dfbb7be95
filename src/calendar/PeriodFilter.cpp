#include "calendar/PeriodFilter.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateText.h"
#include "calendar/NumberText.h"
#include "calendar/PeriodPresets.h"
#include "lang/FormatText.h"

#include <algorithm>

namespace {

QString DateWithYear(const CRegionalInfo& region, const DateTimeVal& date) {
    return FormatDate(region, date.month, date.day, date.year);
}

/// A text that is no date gives today.
DateTimeVal DateOf(const QString& text, const PeriodContext& context) {
    DateTimeVal date;
    (void)date.ParseDateText(text, context.region, context.clock);
    return date;
}

QString RangeName(const DateTimeVal& start, const DateTimeVal& end, const PeriodContext& context) {
    return DisplayDate(context.region, start, context.yearDisplayFormat) + LoadText(Text::PeriodTo) +
           DisplayDate(context.region, end, context.yearDisplayFormat);
}

void PutDates(PeriodFilter& filter, const PresetDates& dates, const PeriodContext& context) {
    filter.startText = DateWithYear(context.region, dates.start);
    filter.endText = DateWithYear(context.region, dates.end);
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

bool Step(PeriodFilter& filter, int direction, const PeriodContext& context) {
    const StepRow* const row = FindStep(filter.preset);
    if (!row) return false;
    PresetDates dates{DateOf(filter.startText, context), DateOf(filter.endText, context)};
    if (!row->step) {
        const bool fromEnd = direction > 0 && filter.preset == PeriodCode::kRange;
        DateTimeVal beside = fromEnd ? dates.end : dates.start;
        return filter.SetSingleDate(DateWithYear(context.region, beside.AddDays(direction)), context);
    }
    row->step(dates, direction);
    PutDates(filter, dates, context);
    filter.displayName = RangeName(dates.start, dates.end, context);
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

bool PeriodFilter::ApplyPreset(int id, const PeriodContext& context) {
    const PeriodPresetRow* const row = FindPeriodPreset(id);
    if (!row) return false;
    isEnabled = true;
    displayName = LoadText(row->name);
    preset = id;
    DateTimeVal today;
    today.SetToday(context.clock);
    PresetDates dates;
    const PresetOutcome outcome = ComputePreset(id, today, context.firstDayOfWeek, dates);
    if (outcome == PresetOutcome::NoDates) return true;
    if (outcome == PresetOutcome::Failed && id != PeriodCode::kToday)
        return ApplyPreset(PeriodCode::kToday, context);
    PutDates(*this, dates, context);
    return true;
}

bool PeriodFilter::SetSingleDate(const QString& text, const PeriodContext& context) {
    DateTimeVal date;
    if (!date.ParseDateText(text, context.region, context.clock)) return false;
    DateTimeVal today;
    today.SetToday(context.clock);
    if (text == DateWithYear(context.region, today)) return ApplyPreset(PeriodCode::kToday, context);
    // the caller may hand in one of our own texts
    const QString chosen = text;  // NOLINT(performance-unnecessary-copy-initialization)
    EnablePeriod(true);
    preset = PeriodCode::kSingleDate;
    startText = chosen;
    endText = chosen;
    displayName = DisplayDate(context.region, date, context.yearDisplayFormat);
    return true;
}

void PeriodFilter::SetRange(const DateTimeVal& start, const DateTimeVal& end, const PeriodContext& context) {
    if (!start.IsEarlierDate(end)) {
        // Equal dates are the single day; a start after the end is the single day of the end.
        (void)SetSingleDate(DateWithYear(context.region, end), context);
        return;
    }
    EnablePeriod(true);
    preset = PeriodCode::kRange;
    PutDates(*this, {start, end}, context);
    displayName = RangeName(start, end, context);
}

QString NoteOnRange(const DateTimeVal& start, const DateTimeVal& end, const PeriodContext& context) {
    if (!end.IsEarlierDate(start)) return {};
    return FormatText<Text::PeriodEndsSwapped>(DateWithYear(context.region, end));
}

bool PeriodFilter::CanStep() const {
    return FindStep(preset) != nullptr;
}

bool PeriodFilter::StepBack(const PeriodContext& context) {
    return Step(*this, -1, context);
}

bool PeriodFilter::StepForward(const PeriodContext& context) {
    return Step(*this, 1, context);
}

bool PeriodFilter::Dates(DateTimeVal& start, DateTimeVal& end, const PeriodContext& context) const {
    if (!isEnabled) return false;
    start = DateOf(startText, context);
    end = DateOf(endText, context);
    return true;
}

QString DisplayDate(const CRegionalInfo& region, const DateTimeVal& date, int yearDisplayFormat) {
    if (date.month < 1 || date.day < 1 || date.year < 1) return {};
    if (yearDisplayFormat == 1) return ShortDateText(region, date.month, date.day, date.year);
    if (yearDisplayFormat == 2) return DayText(region, date.month, date.day);
    return LongDateText(region, date.month, date.day, date.year);
}
