#pragma once

#include "platform/host/CRegionalInfo.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

/// A group of a report with one of its sums.
struct ChartGroup {
    QStringList keys;  ///< as the table shows them
    double sum = 0.0;
};

/// What a chart is made from: one sum of all groups of a report, in the order of its table.
struct ChartSource {
    QString sumCaption;
    QStringList keyCaptions;
    std::optional<int> dateKey;  ///< which of the keys is the date
    int places = -1;             ///< decimal places of the sum
    std::vector<ChartGroup> groups;
};

/// How days are written, and where weeks begin.
struct ChartCalendar {
    const CRegionalInfo& region;
    int firstDayOfWeek = 0;  ///< 0 is Sunday
};

/// What is shown of one group, or of one stretch of days.
struct ChartValue {
    double number = 0.0;  ///< 0 in place of what is no finite number
    QString text;         ///< as the table writes it
};

/// Values of a kind: one for each label of the chart.
struct ChartSeries {
    QString name;
    bool isOther = false;  ///< all that have no place of their own
    std::vector<ChartValue> values;
};

enum class ChartForm {
    Bars,   ///< a bar for each group
    Lines,  ///< over days, weeks, months or years
};

/// The least and the greatest of numbers and 0.
struct ChartRange {
    double low = 0.0;
    double high = 0.0;
};

/// What a chart shows, without its form on a screen.
struct ChartModel {
    ChartForm form = ChartForm::Bars;
    QString title;
    CRegionalInfo region;
    int places = -1;
    QStringList labels;               ///< of the bars, or of the first day of each stretch
    QStringList spans;                ///< of lines: the same with the last day, where it is another one
    std::vector<ChartSeries> series;  ///< bars have one
    bool hasOtherBar = false;         ///< the last bar stands for several groups

    [[nodiscard]] bool IsEmpty() const { return labels.isEmpty(); }
    /// What an axis has to reach. The bar for several groups counts no more than the farthest of the others,
    /// since next to the sum of a thousand groups no single one would be seen.
    [[nodiscard]] ChartRange Range() const;
    /// A number as those of the chart are written.
    [[nodiscard]] QString NumberText(double number) const;
    /// One value in words: "Client A: 12.50", "11/16/2026 to 11/22/2026 · Client A: 12.50".
    [[nodiscard]] QString TextOf(std::size_t series, qsizetype label) const;
    /// The title and the values in words, the first of them when there are many.
    [[nodiscard]] QString Description() const;
};

/// Bars in the order of the table; beyond 20 groups the 20 farthest from 0 and one for all others. With a
/// date among the keys, and more than one day, lines: by the day up to 60 days, by the week up to three
/// years, by the month up to thirty, else by the year; a day without a group counts as 0. The other keys
/// together make a line each; beyond 5 the 5 farthest from 0 and one for all others. A group without a day
/// makes it bars.
[[nodiscard]] ChartModel MakeChart(const ChartSource& source, const ChartCalendar& calendar);
