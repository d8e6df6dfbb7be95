#include "records/RowReverter.h"

#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CSqliteFile.h"
#include "platform/sqlite/RowChecks.h"

#include <sqlite3.h>

namespace {

QByteArray Quoted(QByteArray name) {
    return '"' + name.replace('"', "\"\"") + '"';
}

void BindKey(sqlite3_stmt* statement, int place, const QByteArray& key) {
    sqlite3_bind_text(statement, place, key.constData(), static_cast<int>(key.size()), SQLITE_STATIC);
}

}  // namespace

RowReverter::RowReverter(CSqliteFile& file, const QByteArrayList& tables)
    : m_file(file), m_names(tables), m_tables(static_cast<std::size_t>(tables.size())) {}

const RowReverter::Table* RowReverter::Find(int number) {
    if (number < 0 || number >= static_cast<int>(m_tables.size())) return nullptr;
    Table& table = m_tables[static_cast<std::size_t>(number)];
    if (table.isKnown) return &table;
    const QByteArray& name = m_names[number];
    sqlite3_stmt* statement = m_file.Prepare("SELECT * FROM " + Quoted(name) + " WHERE 0");
    if (statement == nullptr) return nullptr;
    QByteArrayList columns;
    for (int column = 0; column < sqlite3_column_count(statement); ++column)
        columns.append(Quoted(sqlite3_column_name(statement, column)));
    Compose(table, name, columns);
    return &table;
}

/// The key is the last column.
void RowReverter::Compose(Table& table, const QByteArray& name, const QByteArrayList& columns) const {
    const QByteArray quoted = Quoted(name), checks = Quoted(RowChecks::NameOf(name));
    const QByteArray ofKey = " WHERE " + columns.back() + "=?";
    QByteArrayList places, sets;
    for (const QByteArray& column : columns) {
        places.append("?");
        sets.append(column + "=?");
    }
    const QByteArray sum = QByteArray(CCheckSum::kFunction) + '(' + columns.join(',') + ')';
    table = {.isKnown = true,
             .columns = static_cast<int>(columns.size()),
             .sum = "SELECT " + sum + " FROM " + quoted + ofKey,
             .insert = "INSERT INTO " + quoted + " VALUES (" + places.join(',') + ')',
             .modify = "UPDATE " + quoted + " SET " + sets.join(',') + ofKey,
             .remove = "DELETE FROM " + quoted + ofKey,
             .note = "INSERT OR REPLACE INTO " + checks + " SELECT " + columns.back() + ", " + sum +
                     " FROM " + quoted + ofKey};
}

RowReverter::End RowReverter::Check(const RowOp& op) {
    const Table* table = Find(op.table);
    sqlite3_stmt* statement = table ? m_file.Prepare(table->sum) : nullptr;
    if (statement == nullptr) return End::Failed;
    BindKey(statement, 1, op.key);
    const int step = sqlite3_step(statement);
    const bool isThere = step == SQLITE_ROW;
    const bool isSame = isThere && sqlite3_column_int64(statement, 0) == op.sum;
    if (!isThere && step != SQLITE_DONE) m_file.NoteError();
    sqlite3_reset(statement);
    if (!isThere && step != SQLITE_DONE) return End::Failed;
    return (op.event == RowEvent::Deleted ? !isThere : isSame) ? End::Done : End::Touched;
}

RowReverter::End RowReverter::Revert(const RowOp& op) {
    if (const End end = Check(op); end != End::Done) return end;
    const Table& table = *Find(op.table);
    if (op.event == RowEvent::Added) return RunWithKey(table.remove, op.key);
    const bool isGone = op.event == RowEvent::Deleted;
    if (const End end = Run(isGone ? table.insert : table.modify, op, table.columns); end != End::Done)
        return end;
    return RunWithKey(table.note, op.key);
}

RowReverter::End RowReverter::Run(const QByteArray& sql, const RowOp& op, int columns) {
    sqlite3_stmt* statement = m_file.Prepare(sql);
    if (statement == nullptr) return End::Failed;
    if (RowOpImage::Bind(op.before, statement, 1) != columns) {
        sqlite3_clear_bindings(statement);
        return End::Touched;  // the table has other columns now
    }
    if (sqlite3_bind_parameter_count(statement) > columns) BindKey(statement, columns + 1, op.key);
    return Step(statement);
}

RowReverter::End RowReverter::RunWithKey(const QByteArray& sql, const QByteArray& key) {
    sqlite3_stmt* statement = m_file.Prepare(sql);
    if (statement == nullptr) return End::Failed;
    BindKey(statement, 1, key);
    return Step(statement);
}

RowReverter::End RowReverter::Step(sqlite3_stmt* statement) {
    const bool isDone = sqlite3_step(statement) == SQLITE_DONE;
    if (!isDone) m_file.NoteError();
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    return isDone ? End::Done : End::Failed;
}
