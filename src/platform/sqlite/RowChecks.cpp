#include "platform/sqlite/RowChecks.h"

#include <sqlite3.h>

#include <functional>

#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CSqliteFile.h"

namespace {

QByteArray Quoted(QByteArray name) {
    return '"' + name.replace('"', "\"\"") + '"';
}

/// Every column as the function writes it, with something between them.
QByteArray Joined(const QByteArrayList& columns, const char* between,
                  const std::function<QByteArray(const QByteArray& column, int number)>& written) {
    QByteArrayList parts;
    for (const QByteArray& column : columns)
        parts += written(Quoted(column), static_cast<int>(parts.size()) + 1);
    return parts.join(between);
}

QByteArray Plain(const QByteArray& column, int) {
    return column;
}

QByteArray Place(const QByteArray&, int number) {
    return '?' + QByteArray::number(number);
}

QByteArray OfRow(const QByteArray& column, int) {
    return "r." + column;
}

QByteArray SameInBoth(const QByteArray& column, int) {
    return "r." + column + "=c." + column;
}

QByteArray IsBound(const QByteArray& column, int number) {
    return "r." + column + "=?" + QByteArray::number(number);
}

QByteArray IsOld(const QByteArray& column, int) {
    return column + "=OLD." + column;
}

QByteArray TriggerSql(const QByteArray& table, const QByteArray& checks, const QByteArrayList& keys,
                      const char* event) {
    const QByteArray name = Quoted(checks + '_' + QByteArray(event).toLower());
    return "CREATE TRIGGER IF NOT EXISTS " + name + " AFTER " + event + " ON " + Quoted(table) +
           " BEGIN DELETE FROM " + Quoted(checks) + " WHERE " + Joined(keys, " AND ", IsOld) + "; END;";
}

/// Whether a statement gives a row.
std::optional<bool> HasRow(CSqliteFile& file, const QByteArray& sql) {
    sqlite3_stmt* statement = file.Prepare(sql);
    if (statement == nullptr) return std::nullopt;
    const int step = sqlite3_step(statement);
    const bool isAsked = step == SQLITE_ROW || step == SQLITE_DONE;
    if (!isAsked) file.NoteError();
    sqlite3_reset(statement);
    return isAsked ? std::optional(step == SQLITE_ROW) : std::nullopt;
}

}  // namespace

RowChecks::RowChecks(const QByteArray& table, const std::vector<Key>& keys, const QByteArrayList& columns)
    : m_name(NameOf(table)) {
    QByteArrayList names, declared;
    for (const Key& key : keys) {
        names += key.name;
        declared += Quoted(key.name) + ' ' + key.type;
    }
    const QByteArray rows = " FROM " + Quoted(table) + " AS r";
    const QByteArray checks = Quoted(m_name);
    const QByteArray list = Joined(names, ", ", Plain);
    const QByteArray sum = QByteArray(CCheckSum::kFunction) + '(' + Joined(columns, ", ", OfRow) + ')';
    const QByteArray keysAndSum =
        checks + " (" + list + ", sum) SELECT " + Joined(names, ", ", OfRow) + ", " + sum + rows;
    m_put = "INSERT OR REPLACE INTO " + checks + " (" + list + ", sum) VALUES (" +
            Joined(names, ", ", Place) + ", ?" + QByteArray::number(names.size() + 1) + ')';
    const QByteArray same = Joined(names, " AND ", SameInBoth);
    const QByteArray both = rows + " CROSS JOIN " + checks + " AS c ON " + same + " WHERE ";
    const QByteArray isBound = Joined(names, " AND ", IsBound);

    m_make = "CREATE TABLE IF NOT EXISTS " + checks + " (" + declared.join(", ") +
             ", sum INTEGER NOT NULL, PRIMARY KEY(" + list + ")) WITHOUT ROWID;" +
             TriggerSql(table, m_name, names, "UPDATE") + TriggerSql(table, m_name, names, "DELETE");
    m_missing = "SELECT 1" + rows + " WHERE NOT EXISTS (SELECT 1 FROM " + checks + " AS c WHERE " + same +
                ") LIMIT 1";
    m_fill = "INSERT OR IGNORE INTO " + keysAndSum;
    m_note = "INSERT OR REPLACE INTO " + keysAndSum + " WHERE " + isBound;
    m_compare = "SELECT c.sum=" + sum + both + isBound;
    m_faults = "SELECT " + Joined(names, ", ", OfRow) + both + "c.sum<>" + sum + " UNION ALL SELECT " + list +
               " FROM " + checks + " AS c WHERE NOT EXISTS (SELECT 1" + rows + " WHERE " + same + ')';
}

std::optional<bool> RowChecks::AreThere(CSqliteFile& file) const {
    return HasRow(file, "SELECT 1 FROM sqlite_schema WHERE type='table' AND name='" +
                            QByteArray(m_name).replace('\'', "''") + '\'');
}

std::optional<bool> RowChecks::AreMissing(CSqliteFile& file) const {
    return HasRow(file, m_missing);
}

bool RowChecks::Make(CSqliteFile& file) const {
    return file.Execute(m_make) && Fill(file);
}

bool RowChecks::Fill(CSqliteFile& file) const {
    return file.Execute(m_fill);
}
