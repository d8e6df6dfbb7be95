// What changes of definitions, queries and defaults are called.
#include "changes/ChangeNames.h"
#include "config/CNamedEntries.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <iterator>

namespace {

/// What lies below some keys of the settings; what lies below all others is a definition of a report.
enum class Entries { Reports, Queries, Defaults };

Entries EntriesOf(const QString& key) {
    const auto isOneOf = [&key](Text one, Text other) {
        return key == LoadText(one) || key == LoadText(other);
    };
    if (isOneOf(Text::KeyTimeDefaults, Text::KeyExpenseDefaults)) return Entries::Defaults;
    return isOneOf(Text::KeyTimeQueries, Text::KeyExpenseQueries) ? Entries::Queries : Entries::Reports;
}

struct KindRow {
    Entries entries;
    ChangeKind save;
    ChangeKind remove;
    ChangeKind rename;
};
constexpr KindRow kKinds[] = {
    {Entries::Reports, ChangeKind::ReportSave, ChangeKind::ReportDelete, ChangeKind::ReportRename},
    {Entries::Queries, ChangeKind::QuerySave, ChangeKind::QueryDelete, ChangeKind::QueryRename},
    {Entries::Defaults, ChangeKind::DefaultSave, ChangeKind::DefaultDelete, ChangeKind::DefaultRename},
};

const KindRow& KindsOf(const EntryName& name) {
    return *std::ranges::find(kKinds, EntriesOf(name.key), &KindRow::entries);
}

}  // namespace

/// No default is stored under the name of what was used last by the program itself.
bool IsOfUser(const EntryName& name) {
    return EntriesOf(name.key) == Entries::Defaults || !CNamedEntries::IsReserved(name.entry);
}

QString EntryWords(const EntryName& name) {
    switch (EntriesOf(name.key)) {
        case Entries::Defaults:
            return FormatText<Text::HistoryDefaultName>(name.entry);
        case Entries::Queries:
            return FormatText<Text::HistoryQueryName>(name.entry);
        case Entries::Reports:
            break;
    }
    return FormatText<Text::HistoryReportName>(name.entry);
}

/// One that goes while another one comes has another name now.
HistoryRow DescribeEntries(const std::vector<RowOp>& ops) {
    HistoryRow change;
    change.kind = ChangeKind::Stored;
    change.count = static_cast<int>(ops.size());
    const EntryName first = EntryNameOf(ops.front()).value_or(EntryName{});
    const EntryName last = EntryNameOf(ops.back()).value_or(EntryName{});
    if (ops.size() > 2 || first.key != last.key) return change;
    const bool isGone = ops.front().event == RowEvent::Deleted;
    const bool isRename = ops.size() == 2 && isGone && ops.back().event != RowEvent::Deleted;
    if (ops.size() == 2 && !isRename) return change;
    const KindRow& kinds = KindsOf(first);
    change.kind = isRename ? kinds.rename : isGone ? kinds.remove : kinds.save;
    change.names = isRename ? QStringList{first.entry, last.entry} : QStringList{first.entry};
    return change;
}
