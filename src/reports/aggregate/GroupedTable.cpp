#include "reports/aggregate/GroupedTable.h"

#include "calendar/NumberText.h"
#include "platform/host/CRegionalInfo.h"

std::vector<double> GroupedTable::Total() const {
    std::vector<double> total(sums.size(), 0.0);
    for (const ReportRow& row : rows)
        for (std::size_t column = 0; column < total.size(); ++column) total[column] += row.sums[column];
    return total;
}

QString GroupedTable::SumText(std::size_t column, double sum) const {
    return FormatNumber(TheRegion(), sum, sums[column].places);
}
