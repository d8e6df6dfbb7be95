#include "changes/ChangeNames.h"

#include "app/ListTable.h"
#include "changes/HistoryTables.h"
#include "lang/FormatText.h"
#include "platform/host/SYSTEMTIME.h"
#include "records/CPRecord.h"
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

/// What changes are called without names: one of something, or several.
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
    {ChangeKind::Merge, Text::ChangeMergeOne, Text::ChangeMergeMany},
    {ChangeKind::Rename, Text::ChangeItemEditOne, Text::ChangeItemEditMany},
    {ChangeKind::Stored, Text::ChangeStoredOne, Text::ChangeStoredMany},
    {ChangeKind::Carry, Text::ChangeCarryOne, Text::ChangeCarryMany},
};

QString PlainName(const HistoryRow& change) {
    const auto* row = std::ranges::find(kNames, change.kind, &NameRow::kind);
    if (row == std::end(kNames)) row = kNames;
    return QString::asprintf(LoadText(change.count == 1 ? row->one : row->many).toUtf8().constData(),
                             change.count);
}

// --- With names

template <Text Id>
QString WithOne(const HistoryRow& change) {
    return FormatText<Id>(change.names[0]);
}

template <Text Id>
QString WithTwo(const HistoryRow& change) {
    return FormatText<Id>(change.names[0], change.names[1]);
}

template <Text Id>
QString WithThree(const HistoryRow& change) {
    return FormatText<Id>(change.names[0], change.names[1], change.names[2]);
}

QString Replaced(const HistoryRow& change) {
    if (change.count == 1) return WithTwo<Text::ChangeTextReplacedOne>(change);
    return FormatText<Text::ChangeTextReplacedMany>(change.names[0], change.names[1], change.count);
}

/// With the records that hold the item, if any do.
QString Renamed(const HistoryRow& change) {
    if (change.count == 0) return WithThree<Text::ChangeItemRenamed>(change);
    if (change.count == 1) return WithThree<Text::ChangeItemInRecord>(change);
    return FormatText<Text::ChangeItemInRecords>(change.names[0], change.names[1], change.names[2],
                                                 change.count);
}

/// So many names make the sentence of a kind.
struct SentenceRow {
    ChangeKind kind;
    qsizetype names;
    QString (*sentence)(const HistoryRow& change);
};
constexpr SentenceRow kSentences[] = {
    {ChangeKind::ItemAdd, 2, WithTwo<Text::ChangeItemAdded>},
    {ChangeKind::ItemEdit, 3, WithThree<Text::ChangeItemRenamed>},
    {ChangeKind::ItemDelete, 2, WithTwo<Text::ChangeItemDeleted>},
    {ChangeKind::Merge, 3, WithThree<Text::ChangeItemMerged>},
    {ChangeKind::Rename, 3, Renamed},
    {ChangeKind::Replace, 2, Replaced},
    {ChangeKind::Labels, 2, WithTwo<Text::ChangeLabelNamed>},
    {ChangeKind::ReportSave, 1, WithOne<Text::ChangeReportSaved>},
    {ChangeKind::ReportDelete, 1, WithOne<Text::ChangeReportDeleted>},
    {ChangeKind::ReportRename, 2, WithTwo<Text::ChangeReportRenamed>},
    {ChangeKind::QuerySave, 1, WithOne<Text::ChangeQuerySaved>},
    {ChangeKind::QueryDelete, 1, WithOne<Text::ChangeQueryDeleted>},
    {ChangeKind::QueryRename, 2, WithTwo<Text::ChangeQueryRenamed>},
    {ChangeKind::DefaultSave, 1, WithOne<Text::ChangeDefaultSaved>},
    {ChangeKind::DefaultDelete, 1, WithOne<Text::ChangeDefaultDeleted>},
    {ChangeKind::DefaultRename, 2, WithTwo<Text::ChangeDefaultRenamed>},
};

// --- What rows say

/// What an item shows, of its type, text and number.
QString ItemText(const QStringList& columns) {
    const bool isNumber = columns.value(1).toInt() == static_cast<int>(CPRecord::ValueType::Number);
    return isNumber ? CPRecord(columns.value(3).toFloat()).GetText() : columns.value(2);
}

/// The title of its list; empty for one that isn't of records.
QString ListTitle(const QStringList& columns) {
    const ListRow* row = FindRecordList(columns.value(0).toInt());
    return row ? LoadText(row->title) : QString();
}

/// Of one item: its texts before and after, as far as there are any, and its list.
QStringList NamesOfItem(const RowCapture& rows) {
    const RowNames item = rows.NamesOf(static_cast<int>(HistoryTable::Item));
    const QString list = ListTitle(item.after.isEmpty() ? item.before : item.after);
    if (list.isEmpty()) return {};
    QStringList names;
    if (!item.before.isEmpty()) names.append(ItemText(item.before));
    if (!item.after.isEmpty()) names.append(ItemText(item.after));
    return names << list;
}

/// Client and project of records that all have the same, as they are now or, gone, as they were.
QStringList NamesOfRecords(const RowCapture& rows) {
    const RowNames time = rows.NamesOf(static_cast<int>(HistoryTable::Time));
    const RowNames expense = rows.NamesOf(static_cast<int>(HistoryTable::Expense));
    const auto shown = [](const RowNames& names) {
        return names.after.isEmpty() ? names.before : names.after;
    };
    const bool areBoth = !shown(time).isEmpty() && !shown(expense).isEmpty();
    if (!time.isSame || !expense.isSame || areBoth) return {};
    QStringList names = shown(time) + shown(expense);
    names.removeAll(QString());
    return names;
}

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

/// Records count, and where there are none items; with an item that is renamed or merged, records alone.
int CountFor(ChangeKind kind, int records, int items) {
    const bool isOfItem = kind == ChangeKind::Rename || kind == ChangeKind::Merge;
    return records > 0 || isOfItem ? records : items;
}

}  // namespace

QString ChangeName(const HistoryRow& change) {
    for (const SentenceRow& row : kSentences)
        if (row.kind == change.kind && row.names == change.names.size()) return row.sentence(change);
    if (change.names.isEmpty() || change.kind == ChangeKind::Carry) return PlainName(change);
    return FormatText<Text::ChangeNamed>(PlainName(change), change.names.join(QStringLiteral(", ")));
}

HistoryRow DescribeChange(ChangeKind named, const QStringList& names, const RowCapture& rows) {
    const int records = SumOfEvents([&](RowEvent event) { return RecordsOf(rows, event); });
    const int items = SumOfEvents([&](RowEvent event) { return CountOf(rows, HistoryTable::Item, event); });
    HistoryRow change;
    change.kind = named != ChangeKind::Other ? named
                  : records > 0              ? KindOfRecords(rows)
                  : items > 0                ? KindOfItems(rows)
                                             : ChangeKind::Tree;
    change.count = change.kind == ChangeKind::Tree ? 1 : CountFor(change.kind, records, items);
    change.names = names;
    if (!names.isEmpty()) return change;
    if (named == ChangeKind::Other && records == 0 && items == 1) change.names = NamesOfItem(rows);
    if (records > 0 && named != ChangeKind::Import && named != ChangeKind::Restore)
        change.names = NamesOfRecords(rows);
    return change;
}

QString HistoryTime(const SYSTEMTIME& time) {
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
                             time.wMinute, time.wSecond);
}
