#pragma once

#include "changes/EntryOps.h"
#include "records/HistoryRow.h"

#include <QString>
#include <QStringList>
#include <vector>

class RowCapture;
struct SYSTEMTIME;

/// What a change is called: "delete 3 records (Hollis Bakery)", "rename "Beta" to "Gamma" in Project".
[[nodiscard]] QString ChangeName(const HistoryRow& change);

/// What a change is, of how many it is one, and their names. Of a change of the store as it was made: kind
/// and names as they were given, or what its rows say.
[[nodiscard]] HistoryRow DescribeChange(ChangeKind named, const QStringList& names, const RowCapture& rows);
/// The same of a change of what the settings hold under names.
[[nodiscard]] HistoryRow DescribeEntries(const std::vector<RowOp>& ops);
/// False for what the program stores by itself.
[[nodiscard]] bool IsOfUser(const EntryName& name);
/// What an entry is to the user: "report "Week"".
[[nodiscard]] QString EntryWords(const EntryName& name);

/// "2026-11-22T16:05:00"
[[nodiscard]] QString HistoryTime(const SYSTEMTIME& time);
