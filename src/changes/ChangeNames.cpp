#include "changes/ChangeNames.h"

#include "changes/HistoryTables.h"
#include "lang/LoadText.h"
#include "records/RowCapture.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr RowEvent kEvents[] = {RowEvent::Added, RowEvent::Modified, RowEvent::Deleted};

int CountOf(const RowCapture& rows, HistoryTable table, RowEvent event) {
    return rows.Count(static_cast<int>(table), event);
}

int RecordsOf(const RowCapture& rows, RowEvent event) {
    return CountOf(rows, HistoryTable::Time, event) + CountOf(rows, HistoryTable::Expense, event);
}

template <class Count>
int SumOfEvents(const Count& count) {
    int sum = 0;
    for (const RowEvent event : kEvents) sum += count(event);
    return sum;
}

/// What changes are called: one of something, or several.
struct NameRow {
    ChangeKind kind;
    Text one;
    Text many;
};
constexpr NameRow kNames[] = {
    {ChangeKind::Other, Text::ChangeOfOne, Text::ChangeOfMany},
    {ChangeKind::Add, Text::ChangeAddOne, Text::ChangeAddMany},
    {ChangeKind::Edit, Text::ChangeEditOne, Text::ChangeEditMany},
    {ChangeKind::Delete, Text::ChangeDeleteOne, Text::ChangeDeleteMany},
    {ChangeKind::Copy, Text::ChangeCopyOne, Text::ChangeCopyMany},
    {ChangeKind::Mark, Text::ChangeMarkOne, Text::ChangeMarkMany},
    {ChangeKind::Replace, Text::ChangeReplaceOne, Text::ChangeReplaceMany},
    {ChangeKind::Import, Text::ChangeImportOne, Text::ChangeImportMany},
    {ChangeKind::Restore, Text::ChangeRestoreOne, Text::ChangeRestoreMany},
    {ChangeKind::TimerStop, Text::ChangeTimerStopOne, Text::ChangeTimerStopMany},
    {ChangeKind::ItemAdd, Text::ChangeItemAddOne, Text::ChangeItemAddMany},
    {ChangeKind::ItemEdit, Text::ChangeItemEditOne, Text::ChangeItemEditMany},
    {ChangeKind::ItemDelete, Text::ChangeItemDeleteOne, Text::ChangeItemDeleteMany},
    {ChangeKind::Tree, Text::ChangeTreeOne, Text::ChangeTreeMany},
    {ChangeKind::Labels, Text::ChangeLabelsOne, Text::ChangeLabelsMany},
    {ChangeKind::Demo, Text::ChangeDemoOne, Text::ChangeDemoMany},
};

/// A list has one item renamed where one goes and another one comes in one change.
ChangeKind KindOfItems(const RowCapture& rows) {
    const int added = CountOf(rows, HistoryTable::Item, RowEvent::Added);
    const int gone = CountOf(rows, HistoryTable::Item, RowEvent::Deleted);
    const int modified = CountOf(rows, HistoryTable::Item, RowEvent::Modified);
    if (modified > 0 || (added > 0 && gone > 0)) return ChangeKind::ItemEdit;
    return added > 0 ? ChangeKind::ItemAdd : ChangeKind::ItemDelete;
}

ChangeKind KindOfRecords(const RowCapture& rows) {
    for (const RowEvent event : kEvents)
        if (RecordsOf(rows, event) > 0 &&
            SumOfEvents([&](RowEvent one) { return RecordsOf(rows, one); }) == RecordsOf(rows, event))
            return event == RowEvent::Added      ? ChangeKind::Add
                   : event == RowEvent::Modified ? ChangeKind::Edit
                                                 : ChangeKind::Delete;
    return ChangeKind::Other;
}

}  // namespace

QString ChangeName(ChangeKind kind, int count) {
    const auto* row = std::ranges::find(kNames, kind, &NameRow::kind);
    if (row == std::end(kNames)) row = kNames;
    return QString::asprintf(LoadText(count == 1 ? row->one : row->many).toUtf8().constData(), count);
}

CountedChange DescribeChange(ChangeKind named, const RowCapture& rows) {
    const int records = SumOfEvents([&](RowEvent event) { return RecordsOf(rows, event); });
    const int items = SumOfEvents([&](RowEvent event) { return CountOf(rows, HistoryTable::Item, event); });
    if (named != ChangeKind::Other) return {named, records > 0 ? records : items};
    if (records > 0) return {KindOfRecords(rows), records};
    return items > 0 ? CountedChange{KindOfItems(rows), items} : CountedChange{ChangeKind::Tree, 1};
}
