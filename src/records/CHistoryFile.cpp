#include "records/CHistoryFile.h"

#include "platform/host/Quarantine.h"
#include "platform/sqlite/CCheckSum.h"

#include <sqlite3.h>

#include <QFileInfo>
#include <algorithm>
#include <chrono>

namespace {

/// A change waits no longer than this for somebody who reads the history.
constexpr int kBusySeconds = 1;
constexpr SqliteFileKind kKind{
    .applicationId = 0x564D4849U /* "VMHI" */, .version = 1, .busySeconds = kBusySeconds};

/// Blocks of one row of the history have numbers of their own, which follow from its number.
constexpr std::int64_t kMostParts = 256;

/// How often it is looked whether there are too many changes.
constexpr std::int64_t kLook = 32;

constexpr char kTables[] =
    "CREATE TABLE IF NOT EXISTS changes(row INTEGER PRIMARY KEY, number INTEGER NOT NULL, time TEXT NOT NULL,"
    " kind INTEGER NOT NULL, count INTEGER NOT NULL, state INTEGER NOT NULL,"
    " event INTEGER NOT NULL, target INTEGER NOT NULL, key BLOB NOT NULL, target_sum INTEGER NOT NULL,"
    " sum INTEGER NOT NULL, sure INTEGER NOT NULL, names TEXT NOT NULL DEFAULT '');"
    "CREATE INDEX IF NOT EXISTS changes_open ON changes(sure, state) WHERE sure=0 OR state=1;"
    "CREATE TABLE IF NOT EXISTS parts(id INTEGER PRIMARY KEY, ops BLOB NOT NULL, sum INTEGER NOT NULL);";

/// The first histories had no names.
constexpr char kAddNames[] = "ALTER TABLE changes ADD COLUMN names TEXT NOT NULL DEFAULT ''";

constexpr char kSelectRows[] =
    "SELECT row, number, time, kind, count, state, event, target, key, target_sum, sum, sure, names "
    "FROM changes ";

/// Between the names of a change.
constexpr QChar kBetweenNames(0x1F);

/// What is checked of a row: all that never changes. Without names it is what it was before there were any.
std::int64_t SumOf(const HistoryRow& row) {
    CCheckSum sum;
    sum.AddInteger(row.number);
    sum.AddText(row.time.toUtf8());
    for (const int value : {static_cast<int>(row.kind), row.count, static_cast<int>(row.state),
                            static_cast<int>(row.last.event), row.last.table})
        sum.AddInteger(value);
    sum.AddBlob(row.last.key);
    sum.AddInteger(row.last.sum);
    if (const QByteArray names = row.names.join(kBetweenNames).toUtf8(); !names.isEmpty()) sum.AddText(names);
    return sum.Value();
}

std::int64_t SumOf(const QByteArray& part) {
    CCheckSum sum;
    sum.AddBlob(part);
    return sum.Value();
}

QByteArray BlobAt(sqlite3_stmt* statement, int column) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return {bytes, sqlite3_column_bytes(statement, column)};
}

void BindBlob(sqlite3_stmt* statement, int place, const QByteArray& bytes) {
    sqlite3_bind_blob(statement, place, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_STATIC);
}

void BindText(sqlite3_stmt* statement, int place, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(statement, place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

QString TextAt(sqlite3_stmt* statement, int column) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
}

void BindRow(sqlite3_stmt* statement, const HistoryRow& row) {
    int place = 0;
    const auto bind = [&](std::int64_t value) { sqlite3_bind_int64(statement, ++place, value); };
    bind(row.row);
    bind(row.number);
    BindText(statement, ++place, row.time);
    for (const int value : {static_cast<int>(row.kind), row.count, static_cast<int>(row.state),
                            static_cast<int>(row.last.event), row.last.table})
        bind(value);
    BindBlob(statement, ++place, row.last.key);
    bind(row.last.sum);
    bind(SumOf(row));
    BindText(statement, ++place, row.names.join(kBetweenNames));
}

/// The rows that a row takes the place of: with a new change all that was undone before, which can't be done
/// again; with one that can't be done again those that came after it, too. Rows that were written later stay:
/// a row of the settings may be found true long after others were written.
QByteArray WhatGoesWith(const HistoryRow& row) {
    const QByteArray number = QByteArray::number(static_cast<qint64>(row.number));
    const QByteArray place = QByteArray::number(static_cast<qint64>(row.row));
    if (row.IsNew()) return "WHERE sure=1 AND state=1 AND row<" + place;
    if (row.state == ChangeState::Gone) return "WHERE number>=" + number + " AND row<=" + place;
    return "WHERE number=" + number + " AND row<" + place;
}

/// Ends the use of a statement however the scope is left.
class Use {
 public:
    explicit Use(sqlite3_stmt* statement) : m_statement(statement) {}
    ~Use() {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

 private:
    sqlite3_stmt* m_statement;
};

}  // namespace

// --- Opening

bool CHistoryFile::Open(Missing missing) {
    const bool isInPlace = m_file.IsOpen() && m_file.IsStillInPlace() && !IsForReadingOnly(missing);
    const bool isBad = isInPlace && m_file.IsDamaged();
    if (isInPlace && !isBad) return true;
    m_file.Close();
    if (isBad) return OpenInTurn(Bad::Yes);
    if (missing == Missing::Leave && !QFileInfo::exists(m_path)) {
        m_error.clear();
        return false;
    }
    const OpenOutcome outcome = m_file.Open(m_path, kKind, true);
    return IsUnreadable(outcome) ? OpenInTurn(Bad::No) : Use(outcome, missing);
}

/// A history that may only be read is of use to somebody who looks, and of none to somebody who writes.
bool CHistoryFile::IsForReadingOnly(Missing missing) const {
    return missing == Missing::Make && m_file.IsReadOnly();
}

bool CHistoryFile::IsUnreadable(OpenOutcome outcome) {
    return outcome == OpenOutcome::Damaged || outcome == OpenOutcome::Foreign;
}

/// Of several programs that find the same bad file one puts it aside; the others find the new one.
bool CHistoryFile::OpenInTurn(Bad bad) {
    const FolderLock turn(m_path, std::chrono::seconds(kBusySeconds));
    if (!turn.IsHeld()) return Fail();
    OpenOutcome outcome = m_file.Open(m_path, kKind, true);
    if (bad == Bad::Yes || IsUnreadable(outcome)) {
        m_file.Close();
        m_keptAside = PutInQuarantine(QFileInfo(m_path).absoluteFilePath());
        if (m_keptAside.isEmpty()) return Fail();
        outcome = m_file.Open(m_path, kKind, true);
    }
    return Use(outcome, Missing::Make);
}

bool CHistoryFile::Use(OpenOutcome outcome, Missing missing) {
    const bool isOpen = outcome == OpenOutcome::Created || outcome == OpenOutcome::Existed ||
                        outcome == OpenOutcome::ReadOnly;
    if (isOpen && !IsForReadingOnly(missing) && MakeTables()) return true;
    return Fail();
}

bool CHistoryFile::MakeTables() {
    if (!m_file.Execute("PRAGMA synchronous=NORMAL")) return false;
    if (m_file.Execute("SELECT names FROM changes LIMIT 0; SELECT ops FROM parts LIMIT 0")) return true;
    return !m_file.IsReadOnly() && m_file.Begin() && m_file.Execute(kTables) &&
           (m_file.Execute("SELECT names FROM changes LIMIT 0") || m_file.Execute(kAddNames)) &&
           m_file.Commit();
}

/// Notes why, and leaves the file closed, so that the next use looks anew. Without words of its own a failure
/// bears the file's name: no words mean that there is no history.
bool CHistoryFile::Fail() {
    m_error = m_file.Error().isEmpty() ? m_path : m_file.Error();
    m_file.Close();
    return false;
}

std::int64_t CHistoryFile::Version() {
    return Number("PRAGMA data_version").value_or(0);
}

// --- Reading

std::optional<HistoryRow> CHistoryFile::RowOf(sqlite3_stmt* statement) {
    int column = 0;
    const auto next = [&] { return sqlite3_column_int64(statement, column++); };
    HistoryRow row;
    row.row = next();
    row.number = next();
    row.time = TextAt(statement, column++);
    row.kind = static_cast<ChangeKind>(next());
    row.count = static_cast<int>(next());
    row.state = static_cast<ChangeState>(next());
    row.last.event = static_cast<RowEvent>(next());
    row.last.table = static_cast<int>(next());
    row.last.key = BlobAt(statement, column++);
    row.last.sum = next();
    const std::int64_t sum = next();
    row.isSure = next() != 0;
    if (const QString names = TextAt(statement, column++); !names.isEmpty())
        row.names = names.split(kBetweenNames);
    return sum == SumOf(row) ? std::optional(row) : std::nullopt;
}

std::optional<std::vector<HistoryRow>> CHistoryFile::Select(const QByteArray& conditions) {
    sqlite3_stmt* statement = m_file.Prepare(kSelectRows + conditions);
    if (statement == nullptr) {
        static_cast<void>(Fail());
        return std::nullopt;
    }
    std::optional<std::vector<HistoryRow>> rows(std::in_place);
    int step = SQLITE_ROW;
    {
        const ::Use use(statement);
        while (rows && (step = sqlite3_step(statement)) == SQLITE_ROW) {
            const auto row = RowOf(statement);
            if (row)
                rows->push_back(*row);
            else
                rows.reset();
        }
        if (rows && step != SQLITE_DONE) m_file.NoteError();
    }
    if (!rows) m_file.NoteDamage();
    if (rows && step == SQLITE_DONE) return rows;
    // A row that isn't as it was written: the next use puts the file aside.
    m_error = rows ? m_file.Error() : QString();
    return std::nullopt;
}

std::optional<std::vector<HistoryRow>> CHistoryFile::Rows() {
    return Select("ORDER BY number DESC, row DESC");
}

std::optional<std::vector<HistoryRow>> CHistoryFile::UnsureRows() {
    return Select("WHERE sure=0 ORDER BY row");
}

std::optional<std::vector<QByteArray>> CHistoryFile::Parts(std::int64_t row) {
    sqlite3_stmt* statement =
        m_file.Prepare("SELECT ops, sum FROM parts WHERE id BETWEEN ? AND ? ORDER BY id");
    if (statement == nullptr) return std::nullopt;
    const ::Use use(statement);
    sqlite3_bind_int64(statement, 1, row * kMostParts);
    sqlite3_bind_int64(statement, 2, row * kMostParts + kMostParts - 1);
    std::vector<QByteArray> parts;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        parts.push_back(BlobAt(statement, 0));
        if (SumOf(parts.back()) == sqlite3_column_int64(statement, 1)) continue;
        m_file.NoteDamage();
        return std::nullopt;
    }
    if (step == SQLITE_DONE) return parts;
    m_file.NoteError();
    m_error = m_file.Error();
    return std::nullopt;
}

std::optional<std::int64_t> CHistoryFile::Number(const QByteArray& sql) {
    sqlite3_stmt* statement = m_file.Prepare(sql);
    if (statement == nullptr) return std::nullopt;
    const ::Use use(statement);
    if (sqlite3_step(statement) == SQLITE_ROW) return sqlite3_column_int64(statement, 0);
    m_file.NoteError();
    return std::nullopt;
}

HistoryHealth CHistoryFile::Examine(const QString& path) {
    CHistoryFile history(path);
    CSqliteFile& file = history.m_file;
    HistoryHealth health{.outcome = file.Open(path, kKind, false), .error = {}};
    const bool isOpen = health.outcome == OpenOutcome::Existed || health.outcome == OpenOutcome::ReadOnly;
    health.error = isOpen ? file.IntegrityReport() : file.Error();
    if (isOpen && health.error.isEmpty()) history.CountFaults(health);
    return health;
}

void CHistoryFile::CountFaults(HistoryHealth& health) {
    sqlite3_stmt* rows = m_file.Prepare(kSelectRows);
    sqlite3_stmt* parts = m_file.Prepare("SELECT ops, sum FROM parts");
    if (rows == nullptr || parts == nullptr) {
        health.error = m_file.Error();
        return;
    }
    while (sqlite3_step(rows) == SQLITE_ROW) ++(RowOf(rows) ? health.changes : health.faults);
    while (sqlite3_step(parts) == SQLITE_ROW)
        if (SumOf(BlobAt(parts, 0)) != sqlite3_column_int64(parts, 1)) ++health.faults;
    sqlite3_reset(rows);
    sqlite3_reset(parts);
}

// --- Writing

bool CHistoryFile::Begin() {
    if (m_file.Begin()) return true;
    m_error = m_file.Error();
    return false;
}

bool CHistoryFile::Commit() {
    if (m_file.Commit()) return true;
    m_error = m_file.Error();
    return false;
}

bool CHistoryFile::Run(const QByteArray& sql, std::initializer_list<std::int64_t> values) {
    sqlite3_stmt* statement = m_file.Prepare(sql);
    if (statement == nullptr) {
        m_error = m_file.Error();
        return false;
    }
    const ::Use use(statement);
    int place = 0;
    for (const std::int64_t value : values) sqlite3_bind_int64(statement, ++place, value);
    return Step(statement);
}

bool CHistoryFile::Insert(HistoryRow& row, const std::vector<QByteArray>& parts) {
    const auto newest = Number("SELECT coalesce(max(row), 0) FROM changes");
    if (!newest || static_cast<std::int64_t>(parts.size()) > kMostParts) return false;
    row.row = *newest + 1;
    if (row.number == 0) row.number = row.row;
    row.isSure = false;
    sqlite3_stmt* statement =
        m_file.Prepare("INSERT INTO changes VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?)");
    if (statement == nullptr) return false;
    const ::Use use(statement);
    BindRow(statement, row);
    return Step(statement) && InsertParts(row.row, parts);
}

bool CHistoryFile::InsertParts(std::int64_t row, const std::vector<QByteArray>& parts) {
    sqlite3_stmt* statement = m_file.Prepare("INSERT INTO parts VALUES(?, ?, ?)");
    if (statement == nullptr) return false;
    std::int64_t id = row * kMostParts;
    return std::ranges::all_of(parts, [&](const QByteArray& part) {
        const ::Use use(statement);
        sqlite3_bind_int64(statement, 1, id++);
        BindBlob(statement, 2, part);
        sqlite3_bind_int64(statement, 3, SumOf(part));
        return Step(statement);
    });
}

bool CHistoryFile::Step(sqlite3_stmt* statement) {
    if (sqlite3_step(statement) == SQLITE_DONE) return true;
    m_file.NoteError();
    m_error = m_file.Error();
    return false;
}

bool CHistoryFile::Drop(std::int64_t row) {
    return Run("DELETE FROM parts WHERE id BETWEEN ? AND ?",
               {row * kMostParts, row * kMostParts + kMostParts - 1}) &&
           Run("DELETE FROM changes WHERE row=?", {row});
}

bool CHistoryFile::MakeSure(const HistoryRow& row) {
    if (!Run("UPDATE changes SET sure=1 WHERE row=?", {row.row})) return false;
    const auto going = Select(WhatGoesWith(row));
    if (!going) return false;
    for (const HistoryRow& one : *going)
        if (!Drop(one.row)) return false;
    return (row.row % kLook != 0 && !IsFull()) || DropOldest();
}

bool CHistoryFile::IsFull() {
    constexpr std::int64_t kPageSize = 4096;
    const auto pages = Number("PRAGMA page_count"), unused = Number("PRAGMA freelist_count");
    return pages && unused && (*pages - *unused) * kPageSize > kMostBytes;
}

/// By number first, then by size: a few large changes take the place of many small ones.
bool CHistoryFile::DropOldest() {
    const auto last =
        Number("SELECT coalesce((SELECT number FROM changes ORDER BY number DESC LIMIT 1 OFFSET " +
               QByteArray::number(kMostChanges) + "), 0)");
    if (!last) return false;
    while (true) {
        const auto oldest = Select("ORDER BY number, row LIMIT 1");
        if (!oldest) return false;
        if (oldest->empty()) return true;
        if (oldest->front().number > *last && !IsFull()) return true;
        if (!Drop(oldest->front().row)) return false;
    }
}
