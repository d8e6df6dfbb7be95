#pragma once

#include "fields/FieldId.h"

#include <QString>
#include <QStringList>
#include <cstddef>
#include <vector>

/// A column of a grouped report.
struct GroupedColumn {
    FieldId field = FieldId::None;
    QString caption{};
    int places = -1;  ///< decimal places of a sum; below 0: up to six significant digits
};

/// A group: what its records show in the fields that they are grouped by, and its sums.
struct ReportRow {
    QStringList keys{};        ///< in the order of the keys' columns
    std::vector<double> sums;  ///< in the order of the sums' columns
};

/// In the order in which each group first appears.
using ReportRowSet = std::vector<ReportRow>;

/// What a grouped report shows: the numbers and texts of its page, its table for a spreadsheet, its chart.
struct GroupedTable {
    std::vector<GroupedColumn> keys{};
    std::vector<GroupedColumn> sums{};
    ReportRowSet rows{};

    [[nodiscard]] std::size_t ColumnCount() const { return keys.size() + sums.size(); }
    /// The sums of all rows.
    [[nodiscard]] std::vector<double> Total() const;
    /// A sum of the column as the page shows it.
    [[nodiscard]] QString SumText(std::size_t column, double sum) const;
};
