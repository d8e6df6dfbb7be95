#include "platform/settings/SettingsChecks.h"

#include <sqlite3.h>

#include <algorithm>
#include <initializer_list>

#include "platform/settings/SettingsColumns.h"
#include "platform/sqlite/CSqliteFile.h"

namespace {

constexpr char kMakeAside[] =
    "CREATE TABLE IF NOT EXISTS put_aside(key INTEGER, name TEXT, type TEXT, value)";
constexpr char kCopyAside[] =
    "INSERT INTO put_aside SELECT key, name, type, value FROM entries WHERE key = ?1 AND name = ?2";
constexpr char kAside[] = "SELECT DISTINCT key, name FROM put_aside ORDER BY key, name";
constexpr char kHasAside[] = "SELECT 1 FROM sqlite_schema WHERE name = 'put_aside'";
constexpr char kDropEntry[] = "DELETE FROM entries WHERE key = ?1 AND name = ?2";
/// Of a value that is gone, only its checksum is left.
constexpr char kDropCheck[] = "DELETE FROM entries_checks WHERE key = ?1 AND name = ?2";

bool RunOn(CSqliteFile& file, const char* sql, const EntryPlace& entry) {
    sqlite3_stmt* statement = file.Prepare(sql);
    if (statement == nullptr) return false;
    sqlite3_bind_int64(statement, 1, entry.key);
    BindText(statement, 2, entry.name);
    const bool isDone = sqlite3_step(statement) == SQLITE_DONE;
    if (!isDone) file.NoteError();
    sqlite3_reset(statement);
    return isDone;
}

/// A statement whose rows are keys and names; nothing when it can't be read to its end.
std::optional<std::vector<EntryPlace>> PlacesOf(CSqliteFile& file, const QByteArray& sql) {
    sqlite3_stmt* statement = file.Prepare(sql);
    if (statement == nullptr) return std::nullopt;
    std::vector<EntryPlace> places;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW)
        places.push_back({sqlite3_column_int64(statement, 0), ColumnText(statement, 1)});
    if (step != SQLITE_DONE) file.NoteError();
    sqlite3_reset(statement);
    return step == SQLITE_DONE ? std::optional(places) : std::nullopt;
}

}  // namespace

const RowChecks& EntryChecks() {
    static const RowChecks kChecks("entries", {{"key", "INTEGER"}, {"name", "TEXT"}},
                                   {"key", "name", "type", "value"});
    return kChecks;
}

std::optional<std::vector<EntryPlace>> DamagedEntries(CSqliteFile& file) {
    const std::optional<bool> areThere = EntryChecks().AreThere(file);
    if (!areThere) return std::nullopt;
    return *areThere ? PlacesOf(file, EntryChecks().FaultsSql()) : std::optional(std::vector<EntryPlace>());
}

std::vector<EntryPlace> EntriesAside(CSqliteFile& file) {
    sqlite3_stmt* statement = file.Prepare(kHasAside);
    if (statement == nullptr) return {};
    const bool areThere = sqlite3_step(statement) == SQLITE_ROW;
    sqlite3_reset(statement);
    return areThere ? PlacesOf(file, kAside).value_or(std::vector<EntryPlace>()) : std::vector<EntryPlace>();
}

QStringList NamesOf(CSqliteFile& file, const std::vector<EntryPlace>& entries) {
    QStringList names;
    for (const EntryPlace& entry : entries) {
        QString key;
        if (sqlite3_stmt* statement = file.Prepare("SELECT name FROM keys WHERE id = ?1")) {
            sqlite3_bind_int64(statement, 1, entry.key);
            if (sqlite3_step(statement) == SQLITE_ROW) key = ColumnText(statement, 0);
            sqlite3_reset(statement);
        }
        names += key.isEmpty() ? entry.name : key + u'/' + entry.name;
    }
    return names;
}

bool PutAside(CSqliteFile& file, const std::vector<EntryPlace>& entries) {
    const auto move = [&](const EntryPlace& entry) {
        return RunOn(file, kCopyAside, entry) && RunOn(file, kDropEntry, entry) &&
               RunOn(file, kDropCheck, entry);
    };
    if (file.Begin() && file.Execute(kMakeAside) && std::ranges::all_of(entries, move) && file.Commit())
        return true;
    file.Rollback();
    return false;
}
