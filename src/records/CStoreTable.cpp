#include "records/CStoreTable.h"

#include "lang/LoadText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CStoredRows.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

/// A name as it stands in a statement: in quotation marks, those inside doubled.
QByteArray Quoted(const QString& name) {
    QString inner = name;
    return (u'"' + inner.replace(u'"', QStringLiteral("\"\"")) + u'"').toUtf8();
}

QByteArray SqlType(FieldType type) {
    switch (type) {
        case FieldType::Integer:
            return "INTEGER";
        case FieldType::Float:
            return "REAL";
        case FieldType::Text:
        case FieldType::LongText:
            break;
    }
    return "TEXT";
}

QByteArray CreateSql(const QString& name, std::span<const FieldDef> fields) {
    QByteArray sql = "CREATE TABLE IF NOT EXISTS " + Quoted(name) + " (";
    for (const FieldDef& field : fields) {
        sql += Quoted(LoadText(field.nameId)) + ' ' + SqlType(field.type);
        sql += (field.flags & kKeyFlag) != 0 ? " PRIMARY KEY) WITHOUT ROWID" : ", ";
    }
    return sql;
}

bool HasField(std::span<const FieldDef> fields, Text name) {
    return std::any_of(fields.begin(), fields.end(),
                       [&](const FieldDef& field) { return field.nameId == name; });
}

/// An index over the days of a table, empty for a table without date.
QByteArray IndexSql(const QString& name, std::span<const FieldDef> fields) {
    QByteArrayList columns;
    for (const Text part : {Text::ColumnYear, Text::ColumnMonth, Text::ColumnDay}) {
        if (!HasField(fields, part)) return {};
        columns += Quoted(LoadText(part));
    }
    return "CREATE INDEX IF NOT EXISTS " + Quoted(name + QStringLiteral("_days")) + " ON " + Quoted(name) +
           " (" + columns.join(", ") + ')';
}

/// A text that stays as it is until the statement has run.
void BindText(sqlite3_stmt* statement, int place, const QByteArray& utf8) {
    sqlite3_bind_text(statement, place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_STATIC);
}

/// The texts stay bound until the statement is handed out again, which unbinds it; nothing reads them any
/// more.
bool Step(CSqliteFile& file, sqlite3_stmt* statement) {
    const bool isDone = sqlite3_step(statement) == SQLITE_DONE;
    if (!isDone) file.NoteError();
    sqlite3_reset(statement);
    return isDone;
}

}  // namespace

bool CStoreTable::Make(CSqliteFile& file, const QString& name, std::span<const FieldDef> fields) {
    const QByteArray index = IndexSql(name, fields);
    if (!file.Begin()) return false;
    if (file.Execute(CreateSql(name, fields)) && (index.isEmpty() || file.Execute(index))) {
        auto made = Look(file, name.toUtf8());
        if (made && (made->m_hasChecks || made->m_checks->Make(file)) && file.Commit()) return true;
    }
    file.Rollback();
    return false;
}

bool CStoreTable::MakeChecks(CSqliteFile& file) {
    if (m_hasChecks) return true;
    if (!file.Begin()) return false;
    m_hasChecks = m_checks->Make(file) && file.Commit();
    if (!m_hasChecks) file.Rollback();
    return m_hasChecks;
}

std::optional<QByteArrayList> CStoreTable::Names(CSqliteFile& file) {
    sqlite3_stmt* statement =
        file.Prepare(QByteArray("SELECT name FROM sqlite_schema WHERE type='table' AND name NOT GLOB '") +
                     RowChecks::kPattern + '\'');
    if (!statement) return std::nullopt;
    QByteArrayList names;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW)
        names += QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    if (step != SQLITE_DONE) file.NoteError();
    sqlite3_reset(statement);
    return step == SQLITE_DONE ? std::optional(names) : std::nullopt;
}

std::optional<CStoreTable> CStoreTable::Look(CSqliteFile& file, const QByteArray& name) {
    sqlite3_stmt* statement = file.Prepare("SELECT * FROM " + Quoted(QString::fromUtf8(name)) + " WHERE 0");
    if (!statement) return std::nullopt;
    const int count = sqlite3_column_count(statement);
    std::vector<QString> columns;
    columns.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) columns.push_back(QString::fromUtf8(sqlite3_column_name(statement, i)));
    CStoreTable table(std::move(columns));
    table.Compose(name);
    const std::optional<bool> hasChecks = table.m_checks->AreThere(file);
    if (!hasChecks) return std::nullopt;
    table.m_hasChecks = *hasChecks;
    return table;
}

void CStoreTable::Compose(const QByteArray& table) {
    const QByteArray name = Quoted(QString::fromUtf8(table));
    QByteArrayList columns;
    QByteArrayList names;
    QByteArrayList places;
    QByteArrayList sets;
    for (const QString& column : m_columns) {
        columns += column.toUtf8();
        names += Quoted(column);
        places += "?";
        sets += Quoted(column) + "=?";
    }
    const QByteArray ofKey = " WHERE " + Quoted(KeyColumn()) + "=?";
    m_insert = "INSERT INTO " + name + " (" + names.join(',') + ") VALUES (" + places.join(',') + ')';
    m_modify = "UPDATE " + name + " SET " + sets.join(',') + ofKey;
    m_checks.emplace(table, std::vector<RowChecks::Key>{{columns.back(), "TEXT"}}, columns);
}

bool CStoreTable::Fits(std::span<const FieldDef> fields) const {
    if (fields.data() == m_fitting) return true;
    const bool fits = std::equal(
        m_columns.begin(), m_columns.end(), fields.begin(), fields.end(),
        [](const QString& column, const FieldDef& field) { return column == LoadText(field.nameId); });
    if (fits) m_fitting = fields.data();
    return fits;
}

bool CStoreTable::Prepare(CSqliteFile& file, Adding& adding) const {
    adding.m_failed = nullptr;
    adding.m_insert = file.Prepare(m_insert);
    adding.m_putCheck = m_hasChecks && adding.m_insert ? file.Prepare(m_checks->PutSql()) : nullptr;
    return adding.m_insert && (adding.m_putCheck || !m_hasChecks);
}

void CStoreTable::Adding::Run(const CStoredRows& rows) {
    const auto step = [this](sqlite3_stmt* statement) {
        if (sqlite3_step(statement) != SQLITE_DONE) m_failed = statement;
        if (!m_failed) sqlite3_reset(statement);
    };
    for (std::size_t row = 0; row < rows.Count() && !m_failed; ++row) {
        rows.Bind(row, m_insert);
        step(m_insert);
        if (!m_putCheck || m_failed) continue;
        rows.BindKey(row, m_putCheck, 1);
        sqlite3_bind_int64(m_putCheck, 2, rows.Sum(row));
        step(m_putCheck);
    }
}

/// The connection knows the last failure until its statement is reset. A row whose checksum can't be written
/// isn't left behind in a batch that goes on: the batch is undone, as SQLite does by itself after other
/// failures of the disk.
bool CStoreTable::Finish(CSqliteFile& file, Adding& adding) const {
    sqlite3_stmt* failed = adding.m_failed;
    if (!failed) return true;
    file.NoteError();
    sqlite3_reset(failed);
    if (failed == adding.m_putCheck) file.Undo();
    return false;
}

bool CStoreTable::Insert(CSqliteFile& file, const CStoredRows& rows) const {
    Adding adding;
    if (!Prepare(file, adding)) return false;
    adding.Run(rows);
    return Finish(file, adding);
}

bool CStoreTable::Modify(CSqliteFile& file, const QString& key, const CStoredRows& row, bool& found) const {
    sqlite3_stmt* statement = file.Prepare(m_modify);
    if (!statement) return false;
    const QByteArray of = key.toUtf8();
    row.Bind(0, statement);
    BindText(statement, static_cast<int>(m_columns.size()) + 1, of);
    if (!Step(file, statement)) return false;
    found = sqlite3_changes(file.Handle()) > 0;
    return !found || PutCheck(file, row);
}

bool CStoreTable::PutCheck(CSqliteFile& file, const CStoredRows& row) const {
    if (!m_hasChecks) return true;
    if (sqlite3_stmt* statement = file.Prepare(m_checks->PutSql())) {
        row.BindKey(0, statement, 1);
        sqlite3_bind_int64(statement, 2, row.Sum(0));
        if (Step(file, statement)) return true;
    }
    file.Undo();
    return false;
}

/// What can't be compared is no fault of the row: the failure shows where the row itself is read.
bool CStoreTable::IsAsWritten(CSqliteFile& file, const QString& key) const {
    if (!m_hasChecks) return true;
    sqlite3_stmt* statement = file.Prepare(m_checks->CompareSql());
    if (!statement) return true;
    const QByteArray of = key.toUtf8();
    BindText(statement, 1, of);
    const bool isOther = sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_int(statement, 0) == 0;
    sqlite3_reset(statement);
    return !isOther;
}

bool CStoreTable::FindFaults(CSqliteFile& file, QStringList& keys) const {
    if (!m_hasChecks) return true;
    sqlite3_stmt* statement = file.Prepare(m_checks->FaultsSql());
    if (!statement) return false;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW)
        keys += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    if (step != SQLITE_DONE) file.NoteError();
    sqlite3_reset(statement);
    return step == SQLITE_DONE;
}
