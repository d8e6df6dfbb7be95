#pragma once

#include "viewmodel/report/ChartModel.h"

#include <QString>
#include <vector>

class ReportSectionList;
struct GroupedTable;

/// A sum of a report with its chart.
struct ReportChart {
    int sum = 0;  ///< the number of its field; in a summary its place among what each section counts
    QString caption;
    ChartModel model;
};

/// A chart for each sum of a table of groups, in their order.
[[nodiscard]] std::vector<ReportChart> ChartsOf(const GroupedTable& table, const ChartCalendar& calendar);
/// A chart for each count and sum of a summary, with a bar for each section. Where blanks stand before a
/// caption it belongs to the one above: "Amount · Mileage".
[[nodiscard]] std::vector<ReportChart> ChartsOf(const ReportSectionList& summary,
                                                const ChartCalendar& calendar);
