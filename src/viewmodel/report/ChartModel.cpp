#include "viewmodel/report/ChartModel.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateText.h"
#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "viewmodel/report/ChartStretches.h"

#include <QHash>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr std::size_t kMostBars = 20;
constexpr std::size_t kMostLines = 5;
/// So many values are told in words; nobody listens to more, and the table has them all.
constexpr qsizetype kMostInWords = 50;

/// Texts side by side: "Client A · Alpha". In place of an empty one it is said that it is empty.
QString Joined(const QStringList& texts) {
    QString joined;
    for (const QString& text : texts) {
        const QString shown = text.isEmpty() ? LoadText(Text::TreeEmptyText) : text;
        joined = joined.isEmpty() ? shown : FormatText<Text::ChartJoin>(joined, shown);
    }
    return joined;
}

/// "Effective by Client · Project"; without keys the sum alone.
QString TitleBy(const QString& sum, const QStringList& keys) {
    return keys.isEmpty() ? sum : FormatText<Text::ChartSumBy>(sum, Joined(keys));
}

QStringList Without(QStringList texts, int place) {
    texts.removeAt(place);
    return texts;
}

/// Small enough that the difference of two of them is a number as well.
double Drawable(double number) {
    constexpr double kMost = 1e300;
    return std::isfinite(number) ? std::clamp(number, -kMost, kMost) : 0.0;
}

/// Which of many are shown by themselves, and where each of them finds its place among those.
struct Places {
    std::vector<std::size_t> shown;  ///< ascending
    std::vector<std::size_t> of;     ///< for all; what isn't shown shares the place behind the last

    [[nodiscard]] int Others() const { return static_cast<int>(of.size() - shown.size()); }
    /// With one for the others, where there are any.
    [[nodiscard]] std::size_t Count() const { return shown.size() + (Others() > 0 ? 1 : 0); }
};

/// The ones farthest from 0; of equals the first.
Places Farthest(const std::vector<double>& numbers, std::size_t most) {
    std::vector<std::size_t> shown(numbers.size());
    std::iota(shown.begin(), shown.end(), std::size_t{0});
    if (shown.size() > most) {
        const auto end = shown.begin() + static_cast<std::ptrdiff_t>(most);
        std::nth_element(shown.begin(), end, shown.end(), [&numbers](std::size_t a, std::size_t b) {
            const double one = std::abs(Drawable(numbers[a])), other = std::abs(Drawable(numbers[b]));
            return one != other ? one > other : a < b;
        });
        shown.erase(end, shown.end());
        std::sort(shown.begin(), shown.end());
    }
    Places places{.shown = shown, .of = std::vector(numbers.size(), shown.size())};
    for (std::size_t place = 0; place < shown.size(); ++place) places.of[shown[place]] = place;
    return places;
}

/// Makes values and texts of a chart from its source.
class CChartMaker {
 public:
    CChartMaker(const ChartSource& source, const ChartCalendar& calendar)
        : m_source(source), m_calendar(calendar) {
        m_model.region = calendar.region;
        m_model.places = source.places;
    }
    [[nodiscard]] ChartModel Bars();
    [[nodiscard]] ChartModel Lines(const std::vector<int>& days);
    /// The day of each group; none when one of them has none, or when all have the same.
    [[nodiscard]] std::vector<int> Days() const;

 private:
    [[nodiscard]] QString TitleOf(ChartStep step) const;
    void WriteDays(const ChartStretches& stretches);
    void WriteLines(const Places& places, const std::vector<std::vector<double>>& sums);
    [[nodiscard]] std::vector<std::size_t> NameLines();
    [[nodiscard]] std::vector<double> SumsOf(const std::vector<std::size_t>& lines) const;
    [[nodiscard]] QString DayText(int dayNumber) const;
    [[nodiscard]] ChartValue Value(double sum) const { return {Drawable(sum), m_model.NumberText(sum)}; }

    const ChartSource& m_source;
    const ChartCalendar& m_calendar;
    ChartModel m_model;
    QStringList m_names;  ///< of the lines, shown or not
};

QString CChartMaker::DayText(int dayNumber) const {
    const CalendarDay day = FromDayNumber(dayNumber);
    return LongDateText(m_calendar.region, day.month, day.day, day.year);
}

std::vector<int> CChartMaker::Days() const {
    if (!m_source.dateKey || m_source.groups.empty()) return {};
    std::vector<int> days;
    days.reserve(m_source.groups.size());
    for (const ChartGroup& group : m_source.groups) {
        SYSTEMTIME date;
        if (!ParseDate(m_calendar.region, group.keys.at(*m_source.dateKey), date)) return {};
        days.push_back(DayNumber(date.wMonth, date.wDay, date.wYear));
    }
    const auto [first, last] = std::minmax_element(days.begin(), days.end());
    return *first == *last ? std::vector<int>() : days;
}

ChartModel CChartMaker::Bars() {
    m_model.title = TitleBy(m_source.sumCaption, m_source.keyCaptions);
    std::vector<double> sums;
    for (const ChartGroup& group : m_source.groups) sums.push_back(group.sum);
    const Places places = Farthest(sums, kMostBars);
    std::vector<double> shown(places.Count(), 0.0);
    for (std::size_t group = 0; group < sums.size(); ++group) shown[places.of[group]] += sums[group];
    for (const std::size_t group : places.shown) m_model.labels.append(Joined(m_source.groups[group].keys));
    m_model.hasOtherBar = places.Others() > 0;
    if (m_model.hasOtherBar) m_model.labels.append(FormatText<Text::ChartOther>(places.Others()));
    ChartSeries& bars = m_model.series.emplace_back();
    bars.name = m_source.sumCaption;
    for (const double sum : shown) bars.values.push_back(Value(sum));
    return m_model;
}

void CChartMaker::WriteDays(const ChartStretches& stretches) {
    for (std::size_t stretch = 0; stretch < stretches.starts.size(); ++stretch) {
        const QString first = DayText(stretches.starts[stretch]);
        const QString last = DayText(stretches.LastDayOf(stretch));
        m_model.labels.append(first);
        m_model.spans.append(first == last ? first : FormatText<Text::ChartSpan>(first, last));
    }
}

/// The line that each group belongs to: its keys without the date. With no other key there is but one line,
/// called as the sum.
std::vector<std::size_t> CChartMaker::NameLines() {
    QHash<QString, std::size_t> known;
    std::vector<std::size_t> lines;
    for (const ChartGroup& group : m_source.groups) {
        const QStringList keys = Without(group.keys, *m_source.dateKey);
        // By what no text of a record holds, so that "a · b" and "c" aren't "a" and "b · c".
        const QString key = keys.join(QChar(QChar::Null));
        const auto next = static_cast<std::size_t>(m_names.size());
        const std::size_t line = *known.insert(key, known.value(key, next));
        if (line == next) m_names.append(keys.isEmpty() ? m_source.sumCaption : Joined(keys));
        lines.push_back(line);
    }
    return lines;
}

std::vector<double> CChartMaker::SumsOf(const std::vector<std::size_t>& lines) const {
    std::vector<double> sums(static_cast<std::size_t>(m_names.size()), 0.0);
    for (std::size_t group = 0; group < lines.size(); ++group)
        sums[lines[group]] += m_source.groups[group].sum;
    return sums;
}

QString CChartMaker::TitleOf(ChartStep step) const {
    const QString& sum = m_source.sumCaption;
    switch (step) {
        case ChartStep::Day:
            return FormatText<Text::ChartPerDay>(sum);
        case ChartStep::Week:
            return FormatText<Text::ChartPerWeek>(sum);
        case ChartStep::Month:
            return FormatText<Text::ChartPerMonth>(sum);
        case ChartStep::Year:
            break;
    }
    return FormatText<Text::ChartPerYear>(sum);
}

void CChartMaker::WriteLines(const Places& places, const std::vector<std::vector<double>>& sums) {
    for (std::size_t line = 0; line < sums.size(); ++line) {
        ChartSeries& series = m_model.series.emplace_back();
        series.isOther = line == places.shown.size();
        series.name = series.isOther ? FormatText<Text::ChartOther>(places.Others())
                                     : m_names[static_cast<qsizetype>(places.shown[line])];
        for (const double sum : sums[line]) series.values.push_back(Value(sum));
    }
}

ChartModel CChartMaker::Lines(const std::vector<int>& days) {
    const auto [first, last] = std::minmax_element(days.begin(), days.end());
    const ChartStretches stretches = MakeStretches(*first, *last, m_calendar.firstDayOfWeek);
    m_model.form = ChartForm::Lines;
    m_model.title = TitleBy(TitleOf(stretches.step), Without(m_source.keyCaptions, *m_source.dateKey));
    WriteDays(stretches);
    const std::vector<std::size_t> lines = NameLines();
    const Places places = Farthest(SumsOf(lines), kMostLines);
    std::vector sums(places.Count(), std::vector<double>(stretches.starts.size(), 0.0));
    for (std::size_t group = 0; group < lines.size(); ++group)
        sums[places.of[lines[group]]][stretches.Of(days[group])] += m_source.groups[group].sum;
    WriteLines(places, sums);
    return m_model;
}

}  // namespace

ChartRange ChartModel::Range() const {
    ChartRange range;
    const auto include = [&range](double number) {
        range = {.low = std::min(range.low, number), .high = std::max(range.high, number)};
    };
    for (const ChartSeries& line : series) {
        const auto named = line.values.end() - (hasOtherBar ? 1 : 0);
        std::for_each(line.values.begin(), named, [&](const ChartValue& value) { include(value.number); });
    }
    const double farthest = std::max(-range.low, range.high);
    if (hasOtherBar) include(std::clamp(series.front().values.back().number, -farthest, farthest));
    return range;
}

QString ChartModel::NumberText(double number) const {
    return FormatNumber(region, number, places);
}

QString ChartModel::TextOf(std::size_t place, qsizetype label) const {
    const ChartSeries& values = series[place];
    const QString& text = values.values[static_cast<std::size_t>(label)].text;
    if (form == ChartForm::Bars) return FormatText<Text::ChartValue>(labels[label], text);
    const QString name =
        series.size() > 1 ? FormatText<Text::ChartJoin>(spans[label], values.name) : spans[label];
    return FormatText<Text::ChartValue>(name, text);
}

QString ChartModel::Description() const {
    const auto lines = static_cast<qsizetype>(series.size());
    const qsizetype count = labels.size() * lines;
    QStringList words;
    for (qsizetype value = 0; value < std::min(count, kMostInWords); ++value)
        words.append(TextOf(static_cast<std::size_t>(value % lines), value / lines));
    if (count > kMostInWords)
        words.append(FormatText<Text::ChartMoreValues>(static_cast<int>(count - kMostInWords)));
    return FormatText<Text::ChartDescription>(title, words.join(QStringLiteral("; ")));
}

ChartModel MakeChart(const ChartSource& source, const ChartCalendar& calendar) {
    CChartMaker maker(source, calendar);
    const std::vector<int> days = maker.Days();
    return days.empty() ? maker.Bars() : maker.Lines(days);
}
