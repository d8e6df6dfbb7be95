#include "records/CStoreTable.h"

#include "lang/LoadText.h"
#include "platform/host/Utf8Text.h"
#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CSqliteFile.h"

#include <sqlite3.h>

#include <QVarLengthArray>
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

/// The units of the texts among some values.
qsizetype UnitsOf(std::span<const VARIANT> values) {
    qsizetype units = 0;
    for (const VARIANT& value : values)
        if (const auto* text = std::get_if<QString>(&value)) units += text->size();
    return units;
}

/// Binds values to a statement, one place after the other, and sums them up as the store holds them. The
/// bytes of the texts lie end to end in one piece of memory, as long as this lives: a piece for each text
/// would cost as much as storing it.
class CBinder {
 public:
    /// units: of all texts to come.
    CBinder(sqlite3_stmt* statement, qsizetype units)
        : m_statement(statement), m_texts(units * kMostUtf8PerUnit), m_end(m_texts.data()) {}

    void Bind(const VARIANT& value) {
        ++m_place;
        std::visit([this](const auto& held) { BindHeld(held); }, value);
    }
    [[nodiscard]] std::int64_t Sum() const { return m_sum.Value(); }

 private:
    void BindHeld(std::monostate) {
        sqlite3_bind_null(m_statement, m_place);
        m_sum.AddNull();
    }
    void BindHeld(const QString& text) {
        const QByteArrayView bytes(m_end, WriteUtf8(text, m_end));
        m_end += bytes.size();
        sqlite3_bind_text(m_statement, m_place, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
        m_sum.AddText(bytes);
    }
    void BindHeld(double number) {
        sqlite3_bind_double(m_statement, m_place, number);
        m_sum.AddReal(number);
    }
    void BindHeld(float number) { BindHeld(static_cast<double>(number)); }
    void BindHeld(std::int32_t number) {
        sqlite3_bind_int(m_statement, m_place, number);
        m_sum.AddInteger(number);
    }
    void BindHeld(std::int16_t number) { BindHeld(std::int32_t{number}); }

    sqlite3_stmt* m_statement;
    QVarLengthArray<char, 2048> m_texts;
    char* m_end;
    int m_place = 0;
    CCheckSum m_sum;
};

/// The texts stay bound until the statement is handed out again, which unbinds it; nothing reads them any
/// more.
bool Step(CSqliteFile& file, sqlite3_stmt* statement) {
    const bool isDone = sqlite3_step(statement) == SQLITE_DONE;
    if (!isDone) file.NoteError();
    sqlite3_reset(statement);
    return isDone;
}

/// Runs a statement of the table, binding the values from the first place on and the key behind them. The
/// checksum of the values as they are stored; nothing when it fails.
std::optional<std::int64_t> Run(CSqliteFile& file, const QByteArray& sql, const std::vector<VARIANT>& values,
                                const QString& key) {
    sqlite3_stmt* statement = file.Prepare(sql);
    if (!statement) return std::nullopt;
    CBinder binder(statement, UnitsOf(values) + key.size());
    for (const VARIANT& value : values) binder.Bind(value);
    const std::int64_t sum = binder.Sum();
    if (static_cast<int>(values.size()) < sqlite3_bind_parameter_count(statement)) binder.Bind(key);
    return Step(file, statement) ? std::optional(sum) : std::nullopt;
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

/// The key of a row is its last value.
bool CStoreTable::Insert(CSqliteFile& file, const std::vector<VARIANT>& values) const {
    const auto sum = Run(file, m_insert, values, {});
    return sum && PutCheck(file, values.back(), *sum);
}

bool CStoreTable::Modify(CSqliteFile& file, const QString& key, const std::vector<VARIANT>& values,
                         bool& found) const {
    const auto sum = Run(file, m_modify, values, key);
    if (!sum) return false;
    found = sqlite3_changes(file.Handle()) > 0;
    return !found || PutCheck(file, values.back(), *sum);
}

/// A row whose checksum can't be written isn't left behind in a batch that goes on: the batch is undone, as
/// SQLite does by itself after other failures of the disk.
bool CStoreTable::PutCheck(CSqliteFile& file, const VARIANT& key, std::int64_t sum) const {
    if (!m_hasChecks) return true;
    if (sqlite3_stmt* statement = file.Prepare(m_checks->PutSql())) {
        CBinder binder(statement, UnitsOf({&key, 1}));
        binder.Bind(key);
        sqlite3_bind_int64(statement, 2, sum);
        if (Step(file, statement)) return true;
    }
    if (file.InTransaction()) (void)file.Execute("ROLLBACK");
    return false;
}

/// What can't be compared is no fault of the row: the failure shows where the row itself is read.
bool CStoreTable::IsAsWritten(CSqliteFile& file, const QString& key) const {
    if (!m_hasChecks) return true;
    sqlite3_stmt* statement = file.Prepare(m_checks->CompareSql());
    if (!statement) return true;
    CBinder binder(statement, key.size());
    binder.Bind(key);
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
