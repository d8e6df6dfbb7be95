#include "viewmodel/report/ChartStretches.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"

#include <algorithm>
#include <limits>

namespace {

int StartOfDay(int day, int) {
    return day;
}

int StartOfWeek(int day, int firstDayOfWeek) {
    const CalendarDay date = FromDayNumber(day);
    DateTimeVal within, start, end;
    within.SetDate(date.month, date.day, date.year);
    within.WeekRange(firstDayOfWeek, start, end);
    return DayNumber(start.month, start.day, start.year);
}

int StartOfMonth(int day, int) {
    const CalendarDay date = FromDayNumber(day);
    return DayNumber(date.month, 1, date.year);
}

int StartOfYear(int day, int) {
    return DayNumber(1, 1, FromDayNumber(day).year);
}

struct StepRow {
    ChartStep step;
    int mostDays;  ///< from the first to the last
    int length;    ///< so many days after its start a stretch has ended, and the next one hasn't
    int (*startOf)(int day, int firstDayOfWeek);
};
constexpr StepRow kSteps[] = {
    {ChartStep::Day, 60, 1, StartOfDay},
    {ChartStep::Week, 1100, 7, StartOfWeek},
    {ChartStep::Month, 11000, 31, StartOfMonth},
    {ChartStep::Year, std::numeric_limits<int>::max(), 366, StartOfYear},
};

}  // namespace

std::size_t ChartStretches::Of(int day) const {
    const auto behind = std::upper_bound(starts.begin(), starts.end(), day);
    return static_cast<std::size_t>(behind - starts.begin()) - 1;
}

int ChartStretches::LastDayOf(std::size_t stretch) const {
    return (stretch + 1 < starts.size() ? starts[stretch + 1] : end) - 1;
}

ChartStretches MakeStretches(int firstDay, int lastDay, int firstDayOfWeek) {
    const int days = lastDay - firstDay + 1;
    const StepRow& row =
        *std::find_if(std::begin(kSteps), std::end(kSteps),
                      [days](const StepRow& candidate) { return days <= candidate.mostDays; });
    ChartStretches stretches{.step = row.step, .starts = {}, .end = row.startOf(firstDay, firstDayOfWeek)};
    while (stretches.end <= lastDay) {
        stretches.starts.push_back(stretches.end);
        stretches.end = row.startOf(stretches.end + row.length, firstDayOfWeek);
    }
    return stretches;
}
