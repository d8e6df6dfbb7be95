#include "cli/output/RecordColumns.h"

#include "cli/output/ColumnParts.h"
#include "cli/output/ExpenseColumns.h"
#include "cli/output/TimeColumns.h"

#include <algorithm>
#include <array>
#include <cstdio>

std::span<const RecordColumn> RecordColumns(RecordKind kind) {
    return kind == RecordKind::Time ? TimeColumns() : ExpenseColumns();
}

const RecordColumn* FindRecordColumn(RecordKind kind, const QString& name) {
    const std::span<const RecordColumn> columns = RecordColumns(kind);
    const auto found = std::ranges::find_if(
        columns, [&](const RecordColumn& column) { return name == QLatin1String(column.name); });
    return found == columns.end() ? nullptr : &*found;
}

int CompareDays(const CVORec& a, const CVORec& b) {
    return a.Kind() == RecordKind::Time ? CompareTimeDays(a, b) : CompareExpenseDays(a, b);
}

QString IsoDate(int year, int month, int day) {
    std::array<char, 48> text{};  // a list asks for this in each line
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day);
    return QString::fromLatin1(text.data());
}
