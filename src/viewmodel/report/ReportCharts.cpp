#include "viewmodel/report/ReportCharts.h"

#include "fields/FieldId.h"
#include "lang/FormatText.h"
#include "reports/aggregate/GroupedTable.h"
#include "reports/aggregate/ReportSection.h"

#include <algorithm>

namespace {

ChartSource SourceOf(const GroupedTable& table, std::size_t sum) {
    ChartSource source;
    source.sumCaption = table.sums[sum].caption;
    source.places = table.sums[sum].places;
    for (std::size_t key = 0; key < table.keys.size(); ++key) {
        source.keyCaptions.append(table.keys[key].caption);
        if (table.keys[key].field == FieldId::Date) source.dateKey = static_cast<int>(key);
    }
    source.groups.reserve(table.rows.size());
    for (const ReportRow& row : table.rows) source.groups.push_back({row.keys, row.sums[sum]});
    return source;
}

/// The captions of what a section counts.
QStringList CaptionsOf(const ReportSection& section) {
    QStringList captions;
    QString above;
    for (const auto& column : section.columns) {
        const QString caption = PlainCaption(*column);
        const bool belongsAbove = caption != column->caption;
        if (!belongsAbove) above = caption;
        captions.append(belongsAbove ? FormatText<Text::ChartJoin>(above, caption) : caption);
    }
    return captions;
}

ChartSource SourceOf(const ReportSectionList& summary, std::size_t column, const QString& caption) {
    ChartSource source;
    source.sumCaption = caption;
    for (const auto& section : summary.sections) {
        const ReportColumn& counted = *section->columns[column];
        // A count is written whole however large it is.
        source.places = std::max(counted.Places(), 0);
        source.groups.push_back({{section->caption}, counted.Value()});
    }
    return source;
}

}  // namespace

std::vector<ReportChart> ChartsOf(const GroupedTable& table, const ChartCalendar& calendar) {
    std::vector<ReportChart> charts;
    if (table.rows.empty()) return charts;
    for (std::size_t sum = 0; sum < table.sums.size(); ++sum)
        charts.push_back({.sum = NumberOf(table.sums[sum].field),
                          .caption = table.sums[sum].caption,
                          .model = MakeChart(SourceOf(table, sum), calendar)});
    return charts;
}

std::vector<ReportChart> ChartsOf(const ReportSectionList& summary, const ChartCalendar& calendar) {
    std::vector<ReportChart> charts;
    if (summary.sections.empty()) return charts;
    const QStringList captions = CaptionsOf(*summary.sections.front());
    for (qsizetype column = 0; column < captions.size(); ++column) {
        const ChartSource source = SourceOf(summary, static_cast<std::size_t>(column), captions[column]);
        charts.push_back({.sum = static_cast<int>(column),
                          .caption = captions[column],
                          .model = MakeChart(source, calendar)});
    }
    return charts;
}
