#include "platform/settings/CSettingsTree.h"

#include <sqlite3.h>

#include <QFileInfo>

#include "platform/host/Quarantine.h"
#include "platform/settings/SettingsChecks.h"
#include "platform/settings/SettingsColumns.h"
#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/SqliteErrors.h"

namespace {

constexpr std::int64_t kRoot = 1;

/// Numbers of keys are never used again, so an open key can't come to mean another one.
constexpr char kTables[] = R"sql(
CREATE TABLE IF NOT EXISTS keys(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    UNIQUE(parent, name));
CREATE TABLE IF NOT EXISTS entries(
    key INTEGER NOT NULL,
    name TEXT NOT NULL,
    type TEXT NOT NULL,
    value NOT NULL,
    PRIMARY KEY(key, name),
    CHECK(CASE type
        WHEN 'integer' THEN typeof(value) = 'integer' AND value BETWEEN -2147483648 AND 2147483647
        WHEN 'text' THEN typeof(value) = 'text'
        WHEN 'binary' THEN typeof(value) = 'blob'
        ELSE 0 END)) WITHOUT ROWID;
INSERT OR IGNORE INTO keys(id, parent, name) VALUES(1, 0, '');
)sql";

/// What every statement here relies on.
constexpr char kProbe[] =
    "SELECT id, parent, name FROM keys LIMIT 0; SELECT key, name, type, value FROM entries LIMIT 0";

/// The keys below ?1 with ?1 itself, whatever circle somebody may have made of them by hand.
constexpr char kBelow[] =
    "(WITH RECURSIVE below(id) AS (SELECT ?1 UNION SELECT keys.id FROM keys JOIN below ON parent = below.id) "
    "SELECT id FROM below)";

/// Beside why the file can't be used.
constexpr char kFolderLocked[] =
    "It is to be put aside, but another program has locked its folder. Try again when that is done.";

/// A statement in use: reset at the end, so that no read lock outlives its reading.
class Use {
 public:
    explicit Use(sqlite3_stmt* statement) : m_statement(statement) {}
    ~Use() { sqlite3_reset(m_statement); }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

 private:
    sqlite3_stmt* m_statement;
};

bool IsUnreadable(OpenOutcome outcome) {
    return outcome == OpenOutcome::Damaged || outcome == OpenOutcome::Foreign;
}

bool IsUsable(OpenOutcome outcome) {
    return outcome == OpenOutcome::Created || outcome == OpenOutcome::Existed ||
           outcome == OpenOutcome::ReadOnly;
}

}  // namespace

CSettingsTree::CSettingsTree() : m_file(std::make_unique<CSqliteFile>()) {}

CSettingsTree::~CSettingsTree() = default;

bool CSettingsTree::Open(const QString& path, int busySeconds) {
    m_keptAside.clear();
    m_reason.clear();
    m_damagedValues.clear();
    OpenOutcome outcome = OpenFile(path, busySeconds);
    if (IsUnreadable(outcome) || MayPass(outcome)) outcome = OpenInTurn(path, busySeconds, outcome);
    // If there is no file the program goes on with defaults; what it writes is forgotten at its end.
    const bool isUsable = m_isFromFile = IsUsable(outcome);
    const QString reason = m_reason;
    if (!isUsable) static_cast<void>(OpenFile(QStringLiteral(":memory:"), busySeconds));
    m_error = m_reason = reason;
    return isUsable;
}

OpenOutcome CSettingsTree::OpenFile(const QString& path, int busySeconds) {
    SqliteFileKind kind = kFileKind;
    kind.busySeconds = busySeconds;
    const OpenOutcome outcome = MakeTables(m_file->Open(path, kind, true));
    if (outcome == OpenOutcome::ReadOnly) m_reason = SqliteSentence(SQLITE_READONLY, 0, m_file->Path(), {});
    if (!IsUsable(outcome)) m_reason = m_file->Error();
    if (outcome == OpenOutcome::Damaged && m_file->ErrorCode() == SQLITE_OK) {
        m_reason = SqliteSentence(SQLITE_CORRUPT, 0, m_file->Path(), {});  // only the check has seen it
    }
    return outcome;
}

/// While another program puts a bad file aside there is none for a moment, or a new one that it has not
/// finished: who looks just then finds nothing to open, or nothing to write.
bool CSettingsTree::MayPass(OpenOutcome outcome) const {
    const int code = m_file->ErrorCode() & 0xff;
    const bool isPassing = code == SQLITE_CANTOPEN || code == SQLITE_READONLY;
    return outcome == OpenOutcome::ReadOnly || (outcome == OpenOutcome::Failed && isPassing);
}

/// Several programs may find the same bad file at once: each looks again when it is its turn, so that nobody
/// moves a fresh file away. before: what the first look came to.
OpenOutcome CSettingsTree::OpenInTurn(const QString& path, int busySeconds, OpenOutcome before) {
    const FolderLock turn(path, std::chrono::seconds(busySeconds));
    // Nothing is moved out of turn. Why the file was no use stands in m_reason already.
    if (!turn.IsHeld()) {
        if (IsUnreadable(before)) m_reason += QLatin1Char(' ') + QString::fromLatin1(kFolderLocked);
        return IsUsable(before) ? before : OpenOutcome::Locked;
    }
    m_reason.clear();
    const OpenOutcome outcome = OpenFile(path, busySeconds);
    if (!IsUnreadable(outcome)) return outcome;
    m_file->Close();
    m_keptAside = PutInQuarantine(QFileInfo(path).absoluteFilePath());
    return m_keptAside.isEmpty() ? OpenOutcome::Failed : OpenFile(path, busySeconds);
}

/// Makes what is missing of the tables, and finds out whether they can be read: a file with other tables
/// under our name, or with damage in them, is unreadable. The check costs little, the file is small, and
/// comes first: nothing is written to a file that is to be put in quarantine.
OpenOutcome CSettingsTree::MakeTables(OpenOutcome opened) {
    if (!IsUsable(opened)) return opened;
    const bool isSound = m_file->IntegrityReport().isEmpty();
    if (!isSound && m_file->ErrorCode() == SQLITE_OK) return OpenOutcome::Damaged;
    const bool isThere = isSound && (opened == OpenOutcome::ReadOnly || Exists(Root()));
    const bool isMade = isThere ? m_file->Execute(kProbe)
                                : isSound && m_file->Begin() && m_file->Execute(kTables) &&
                                      m_file->Execute(kProbe) && m_file->Commit();
    if (isMade && CheckValues(opened)) return opened;
    m_file->Rollback();
    return m_file->ErrorCode() == SQLITE_ERROR ? OpenOutcome::Foreign : OutcomeOf(m_file->ErrorCode());
}

/// Puts damaged values out of use, and gives those a checksum that have none: of a file that an earlier
/// version made, or that was changed by hand. Where that can't be written, on a full disk for instance, they
/// are used without.
bool CSettingsTree::CheckValues(OpenOutcome opened) {
    const auto damaged = DamagedEntries(*m_file);
    if (!damaged) return false;
    if (!damaged->empty()) m_damagedValues = NamesOf(*m_file, *damaged);
    const std::optional<bool> areThere = EntryChecks().AreThere(*m_file);
    m_hasChecks = areThere.value_or(false);
    if (opened == OpenOutcome::ReadOnly) return areThere.has_value();
    if (!damaged->empty() && !PutAside(*m_file, *damaged)) return false;
    if (m_hasChecks && !EntryChecks().AreMissing(*m_file).value_or(false)) return true;
    const bool isFilled = m_file->Begin() && EntryChecks().Make(*m_file) && m_file->Commit();
    if (!isFilled) m_file->Rollback();
    m_hasChecks = m_hasChecks || isFilled;
    return !m_file->IsDamaged();
}

/// The columns of entries, their type and value with a third one behind: whether they are as they were
/// written.
QByteArray CSettingsTree::SelectValues(const char* columns) const {
    const QByteArray sum = QByteArray(CCheckSum::kFunction) + "(key, name, type, value)";
    const QByteArray check =
        "(SELECT c.sum FROM entries_checks AS c WHERE c.key = e.key AND c.name = e.name)";
    return QByteArray("SELECT ") + columns + ", " +
           (m_hasChecks ? "coalesce(" + check + ", " + sum + ") = " + sum : QByteArray("1")) +
           " FROM entries AS e WHERE key = ?1";
}

/// The value at a column of such a statement. One that was damaged since the file was opened is no value, and
/// nothing more is written then: what is made of the rest would take the place of what can still be saved.
std::optional<SettingsValue> CSettingsTree::CheckedValue(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_int(statement, column + 2) == 1) return ColumnValue(statement, column);
    if (!m_file->IsReadOnly()) m_file->NoteDamage();
    m_error = SqliteSentence(SQLITE_CORRUPT, 0, m_file->Path(), {});
    return std::nullopt;
}

/// The statement with the key as ?1 and the name as ?2; null when the key isn't open or it can't be prepared.
sqlite3_stmt* CSettingsTree::Statement(const QByteArray& sql, const CSettingsKey& key, const QString& name) {
    if (!key.IsOpen()) {
        m_error = QStringLiteral("The key of the settings is not open.");
        return nullptr;
    }
    sqlite3_stmt* statement = m_file->Prepare(sql);
    if (statement == nullptr) {
        NoteFailure();
        return nullptr;
    }
    sqlite3_bind_int64(statement, 1, key.m_row);
    if (sqlite3_bind_parameter_count(statement) > 1) BindText(statement, 2, name);
    return statement;
}

/// Whether a row came; done tells whether the statement came to its end without an error.
bool CSettingsTree::NextRow(sqlite3_stmt* statement, bool* done) {
    const int step = sqlite3_step(statement);
    if (done != nullptr) *done = step == SQLITE_DONE;
    if (step == SQLITE_ROW) return true;
    if (step != SQLITE_DONE) {
        m_file->NoteError();
        NoteFailure();
    }
    return false;
}

void CSettingsTree::NoteFailure() {
    m_error = m_file->Error();
    m_hasReadFailed = true;
}

/// Runs a changing statement; false also when it changed nothing. All of them belong to a change: where a
/// failed one has undone it, the next would be durable by itself.
bool CSettingsTree::Run(sqlite3_stmt* statement) {
    if (statement == nullptr || !m_file->InTransaction()) return false;
    const Use use(statement);
    bool done = false;
    if (NextRow(statement, &done) || !done) return false;
    if (sqlite3_changes(m_file->Handle()) > 0) return true;
    m_error = QStringLiteral("There is no such key or value in the settings.");
    return false;
}

CSettingsKey CSettingsTree::Root() {
    return {this, kRoot};
}

bool CSettingsTree::Exists(const CSettingsKey& key) {
    sqlite3_stmt* statement = Statement("SELECT 1 FROM keys WHERE id = ?1", key);
    if (statement == nullptr) return false;
    const Use use(statement);
    return NextRow(statement);
}

CSettingsKey CSettingsTree::CreateKey(const CSettingsKey& parent, const QString& name, Created* created) {
    if (created != nullptr) *created = Created::No;
    CSettingsKey key = OpenKey(parent, name);
    if (key.IsOpen()) return key;
    bool isNew = false;
    const bool made = Change([&] {
        key = OpenKey(parent, name);  // another program may have been quicker
        if (key.IsOpen()) return true;
        isNew = Run(
            Statement("INSERT INTO keys(parent, name) SELECT id, ?2 FROM keys WHERE id = ?1", parent, name));
        key = {this, sqlite3_last_insert_rowid(m_file->Handle())};
        return isNew;
    });
    if (!made) return {};
    if (created != nullptr && isNew) *created = Created::Yes;
    return key;
}

CSettingsKey CSettingsTree::MakeKeyAgain(const CSettingsKey& parent, const QString& name,
                                         std::int64_t place) {
    const bool made = Change([&] {
        sqlite3_stmt* statement = Statement(
            "INSERT INTO keys(id, parent, name) SELECT ?3, id, ?2 FROM keys WHERE id = ?1", parent, name);
        if (statement != nullptr) sqlite3_bind_int64(statement, 3, place);
        return Run(statement);
    });
    return made ? CSettingsKey(this, place) : CSettingsKey();
}

CSettingsKey CSettingsTree::OpenKey(const CSettingsKey& parent, const QString& name) {
    sqlite3_stmt* statement = Statement("SELECT id FROM keys WHERE parent = ?1 AND name = ?2", parent, name);
    if (statement == nullptr) return {};
    const Use use(statement);
    if (!NextRow(statement)) return {};
    return {this, sqlite3_column_int64(statement, 0)};
}

bool CSettingsTree::DeleteKey(const CSettingsKey& parent, const QString& name) {
    return Change([&] {
        const CSettingsKey key = OpenKey(parent, name);
        if (!key.IsOpen()) return false;
        Run(Statement(QByteArray("DELETE FROM entries WHERE key IN ") + kBelow, key));
        return Run(Statement(QByteArray("DELETE FROM keys WHERE id IN ") + kBelow, key));
    });
}

std::optional<QStringList> CSettingsTree::EnumKeys(const CSettingsKey& key) {
    if (!Exists(key)) return std::nullopt;
    sqlite3_stmt* statement = Statement("SELECT name FROM keys WHERE parent = ?1 ORDER BY id", key);
    if (statement == nullptr) return std::nullopt;
    const Use use(statement);
    QStringList names;
    bool done = false;
    while (NextRow(statement, &done)) names += ColumnText(statement, 0);
    return done ? std::optional(names) : std::nullopt;
}

std::optional<SettingsValue> CSettingsTree::ReadValue(const CSettingsKey& key, const QString& name) {
    sqlite3_stmt* statement = Statement(SelectValues("type, value") + " AND name = ?2", key, name);
    if (statement == nullptr) return std::nullopt;
    const Use use(statement);
    return NextRow(statement) ? CheckedValue(statement, 0) : std::nullopt;
}

std::optional<std::vector<std::pair<QString, SettingsValue>>> CSettingsTree::ReadValues(
    const CSettingsKey& key) {
    if (!Exists(key)) return std::nullopt;
    sqlite3_stmt* statement = Statement(SelectValues("name, type, value") + " ORDER BY name", key);
    if (statement == nullptr) return std::nullopt;
    const Use use(statement);
    std::vector<std::pair<QString, SettingsValue>> values;
    bool done = false;
    while (NextRow(statement, &done)) {
        if (const auto value = CheckedValue(statement, 1))
            values.emplace_back(ColumnText(statement, 0), *value);
    }
    return done ? std::optional(values) : std::nullopt;
}

bool CSettingsTree::WriteValue(const CSettingsKey& key, const QString& name, const SettingsValue& value) {
    return Change([&] {
        sqlite3_stmt* statement = Statement(
            "INSERT INTO entries(key, name, type, value) SELECT id, ?2, ?3, ?4 FROM keys WHERE id = ?1 "
            "ON CONFLICT(key, name) DO UPDATE SET type = excluded.type, value = excluded.value",
            key, name);
        if (statement != nullptr) BindValue(statement, 3, value);
        return Run(statement) && (!m_hasChecks || Run(Statement(EntryChecks().NoteSql(), key, name)));
    });
}

bool CSettingsTree::DeleteValue(const CSettingsKey& key, const QString& name) {
    return Change(
        [&] { return Run(Statement("DELETE FROM entries WHERE key = ?1 AND name = ?2", key, name)); });
}

void CSettingsTree::RefuseChanges() {
    m_refusal = m_reason.isEmpty() ? m_error : m_reason;
}

bool CSettingsTree::Change(const std::function<bool()>& work) {
    if (m_refusal) {
        m_error = *m_refusal;
        return false;
    }
    if (m_inChange) return m_file->InTransaction() && work();
    if (!m_file->Begin()) {
        m_error = m_file->Error();
        return false;
    }
    m_inChange = true;
    const bool isGood = work();
    m_inChange = false;
    if (isGood && m_file->InTransaction() && m_file->Commit()) return true;
    if (isGood) m_error = m_file->Error();
    m_file->Rollback();
    return false;
}
