#include "changes/HistoryTables.h"

#include "app/HomeFiles.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/HistoryRow.h"
#include "records/MemberColumns.h"

#include <bit>

namespace {

int PlaceOf(ColumnSet column) {
    return std::countr_zero(column);
}

/// The columns of an item but its identity.
const std::vector<int> kItemColumns{0, 1, 2, 3};

}  // namespace

const QByteArrayList& HistoryTables() {
    static const QByteArrayList kTables = [] {
        QByteArrayList names;
        for (const Text prefix : {Text::TimeTablePrefix, Text::ExpenseTablePrefix, Text::ItemTablePrefix,
                                  Text::DependencyTablePrefix})
            names.append((LoadText(prefix) + DataSourceName()).toLower().toUtf8());
        return names;
    }();
    return kTables;
}

const std::vector<CapturedTable>& CapturedTables() {
    static const std::vector<CapturedTable> kCaptured{
        {HistoryTables()[0], {PlaceOf(ColumnsOf(&CTRecord::item1)), PlaceOf(ColumnsOf(&CTRecord::item2))}},
        {HistoryTables()[1], {PlaceOf(ColumnsOf(&CERecord::item1)), PlaceOf(ColumnsOf(&CERecord::item2))}},
        {HistoryTables()[2], kItemColumns},
        {HistoryTables()[3], {}}};
    return kCaptured;
}

bool IsOfSettings(const HistoryRow& row) {
    return static_cast<HistoryTable>(row.last.table) == HistoryTable::Entry;
}
