#include "platform/sqlite/CSqliteFile.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtEndian>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/host/CLockWait.h"
#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CRowListener.h"
#include "platform/sqlite/CStatementCache.h"
#include "platform/sqlite/LockProbe.h"
#include "platform/sqlite/RowHook.h"
#include "platform/sqlite/SqliteErrors.h"

namespace {

constexpr char kMemory[] = ":memory:";

bool ReadNumber(sqlite3* db, const char* sql, std::int64_t& number) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) return false;
    const bool read = sqlite3_step(statement) == SQLITE_ROW;
    if (read) number = sqlite3_column_int64(statement, 0);
    return sqlite3_finalize(statement) == SQLITE_OK && read;
}

/// Makes the empty file, readable by its owner alone; a file that another program has just made will do.
bool MakeFile(const QByteArray& path) {
    const int handle = ::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (handle < 0) return errno == EEXIST;
    return ::close(handle) == 0;
}

/// False for a file that can't be written, and for one in a folder where no journal can be made.
bool IsWritable(const QString& path) {
    const auto may = [](const QString& what) {
        return ::faccessat(AT_FDCWD, QFile::encodeName(what).constData(), W_OK, AT_EACCESS) == 0;
    };
    return may(path) && may(QFileInfo(path).path());
}

/// The errno behind a failure. After a failed read or write SQLite's own answer is that of the clean-up that
/// followed; the file itself remembers the real one.
int SystemError(sqlite3* db, int primaryCode) {
    int error = 0;
    if (primaryCode == SQLITE_IOERR) sqlite3_file_control(db, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
    return error != 0 ? error : sqlite3_system_errno(db);
}

/// The settings of every connection that change nothing in the file.
constexpr char kConnectionSettings[] =
    "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA synchronous=EXTRA;";

}  // namespace

/// What stands in the header of a file.
struct CSqliteFile::Identity {
    std::int64_t applicationId = 0;
    std::int64_t version = 0;
    std::int64_t schemaVersion = 0;  ///< counts the changes of the tables
    /// Nothing was ever made in it: an empty file, or one whose first transaction was cut off.
    [[nodiscard]] bool IsBlank() const { return applicationId == 0 && version == 0 && schemaVersion == 0; }
};

CSqliteFile::CSqliteFile() = default;

CSqliteFile::~CSqliteFile() {
    Close();
}

OpenOutcome CSqliteFile::Open(const QString& path, const SqliteFileKind& kind, bool create) {
    Close();
    m_error.clear();
    m_errorCode = 0;
    m_isMemory = path == QLatin1String(kMemory);
    m_path = m_isMemory ? path : QFileInfo(path).absoluteFilePath();
    if (!m_isMemory) {
        if (const std::optional<OpenOutcome> refused = Examine(create)) return *refused;
    }
    m_readOnly = !m_isMemory && !IsWritable(m_path);
    if (!Connect(kind)) return Fail();
    return Identify(kind, create);
}

/// Looks at what lies at the path before SQLite touches it, and makes the file when that is wanted. Opening
/// a pipe would hang, opening a folder says nothing useful.
std::optional<OpenOutcome> CSqliteFile::Examine(bool create) {
    const QByteArray name = QFile::encodeName(m_path);
    struct stat status {};
    if (::stat(name.constData(), &status) == 0) {
        if (S_ISREG(status.st_mode)) return std::nullopt;
        const char* what = S_ISDIR(status.st_mode) ? "a folder" : "no ordinary file";
        return Refuse(OpenOutcome::Foreign, QStringLiteral("%1 is %2, so no data can be kept there. Rename "
                                                           "it or move it away.")
                                                .arg(m_path, QLatin1String(what)));
    }
    if (errno == ENOENT && !create) {
        return Refuse(OpenOutcome::Missing, QStringLiteral("%1 does not exist.").arg(m_path));
    }
    if (errno == ENOENT && MakeFile(name)) return std::nullopt;
    return Refuse(OpenOutcome::Failed, SqliteSentence(SQLITE_CANTOPEN, errno, m_path, QString()));
}

bool CSqliteFile::Connect(const SqliteFileKind& kind) {
    const int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (m_readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) |
                      (m_isMemory ? SQLITE_OPEN_CREATE : 0);
    const int opened = sqlite3_open_v2(QFile::encodeName(m_path).constData(), &m_db, flags, nullptr);
    if (opened != SQLITE_OK) {
        // Where not even a handle could be made, there is none to ask why.
        if (m_db == nullptr) NoteErrorCode(opened);
        return false;
    }
    m_lockWait = std::make_unique<CLockWait>(m_path, std::chrono::seconds(kind.busySeconds));
    sqlite3_busy_handler(m_db, &CSqliteFile::OnBusy, this);
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    m_statements = std::make_unique<CStatementCache>(m_db);
    if (CCheckSum::Register(m_db) != SQLITE_OK) return false;
    m_readOnly = sqlite3_db_readonly(m_db, "main") == 1;
    if (m_listener != nullptr) HookRows(m_db, m_listener);
    struct stat status {};
    if (!m_isMemory && ::stat(QFile::encodeName(m_path).constData(), &status) == 0) {
        m_device = status.st_dev;
        m_inode = status.st_ino;
    }
    return Execute(kConnectionSettings);
}

/// SQLite's busy handler: 0 gives up. Where no file can be locked waiting is no use.
int CSqliteFile::OnBusy(void* self, int count) {
    auto& file = *static_cast<CSqliteFile*>(self);
    if (file.m_isLent) return 0;
    if (count == 0) file.m_lacksLocks = LacksLocks(file.m_path);
    return !file.m_lacksLocks && file.m_lockWait->Wait(count) ? 1 : 0;
}

/// All of it in one look: between two looks another program may make the file, and half of what it writes
/// would look like a third one's.
bool CSqliteFile::ReadIdentity(Identity& identity) {
    const bool isOwnLook = !InTransaction();
    if (isOwnLook && !Execute("BEGIN")) return false;
    const bool isRead = ReadNumber(m_db, "PRAGMA application_id", identity.applicationId) &&
                        ReadNumber(m_db, "PRAGMA user_version", identity.version) &&
                        ReadNumber(m_db, "PRAGMA schema_version", identity.schemaVersion);
    if (!isRead) NoteError();
    if (isOwnLook) sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    return isRead;
}

/// Whose file it is. Nothing is written before that is known.
OpenOutcome CSqliteFile::Identify(const SqliteFileKind& kind, bool create) {
    Identity identity;
    if (!ReadIdentity(identity)) return Fail();
    bool created = false;
    if (identity.IsBlank()) {
        if (!create) {
            return Refuse(OpenOutcome::Foreign,
                          QStringLiteral("%1 is empty. Restore it from a backup.").arg(m_path));
        }
        if (!Stamp(kind, created) || !ReadIdentity(identity)) return Fail();
    }
    if (static_cast<std::uint32_t>(identity.applicationId) != kind.applicationId) {
        return Refuse(
            OpenOutcome::Foreign,
            QStringLiteral("%1 belongs to another program. Rename it or move it away.").arg(m_path));
    }
    if (identity.version > kind.version) {
        return Refuse(OpenOutcome::Newer, QStringLiteral("%1 was made by a newer version of this program. "
                                                         "Update the program to use it.")
                                              .arg(m_path));
    }
    if (m_readOnly) return OpenOutcome::ReadOnly;
    if (!UseRollbackJournal()) return Fail();
    return created ? OpenOutcome::Created : OpenOutcome::Existed;
}

/// Writes application and version into a blank file. Of two programs that create it at once one finds it
/// done.
bool CSqliteFile::Stamp(const SqliteFileKind& kind, bool& created) {
    Identity identity;
    if (!UseRollbackJournal() || !Begin()) return false;
    if (!ReadIdentity(identity)) {
        Rollback();
        return false;
    }
    created = identity.IsBlank();
    if (!created) return Commit();
    const QByteArray id = QByteArray::number(static_cast<std::int32_t>(kind.applicationId));
    if (Execute("PRAGMA application_id=" + id) &&
        Execute("PRAGMA user_version=" + QByteArray::number(kind.version)) && Commit()) {
        return true;
    }
    Rollback();
    return false;
}

/// Answers the mode that is then in force; a file that another tool left in another mode keeps it as long as
/// a program has it open.
bool CSqliteFile::UseRollbackJournal() {
    if (m_isMemory) return true;
    sqlite3_stmt* statement = Prepare("PRAGMA journal_mode=TRUNCATE");
    if (statement == nullptr) return false;
    const int step = sqlite3_step(statement);
    const bool inForce =
        step == SQLITE_ROW &&
        qstrcmp(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)), "truncate") == 0;
    if (!inForce) NoteErrorCode(step == SQLITE_ROW ? SQLITE_BUSY : step);
    sqlite3_reset(statement);
    return inForce;
}

/// Gives up opening after an error of SQLite.
OpenOutcome CSqliteFile::Fail() {
    if (m_errorCode == 0) NoteError();
    const OpenOutcome outcome = OutcomeOf(m_errorCode);
    Close();
    return outcome;
}

/// Gives up opening for a reason of our own.
OpenOutcome CSqliteFile::Refuse(OpenOutcome outcome, const QString& sentence) {
    Close();
    m_error = sentence;
    return outcome;
}

void CSqliteFile::Close() {
    TellEnd(false);
    m_statements.reset();
    sqlite3_close_v2(std::exchange(m_db, nullptr));
    m_lockWait.reset();
    m_readOnly = false;
    m_began = false;
    m_isDamaged = false;
}

/// Within a wait messages are served, and the statement that waits is still running: no other one may begin.
bool CSqliteFile::RefuseWithinWait() {
    if (!theWaitBudget || !theWaitBudget->IsWaiting()) return false;
    NoteErrorCode(SQLITE_BUSY);
    return true;
}

bool CSqliteFile::Execute(const QByteArray& sql) {
    if (RefuseWithinWait()) return false;
    if (m_db != nullptr && sqlite3_exec(m_db, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK) {
        return true;
    }
    NoteError();
    return false;
}

sqlite3_stmt* CSqliteFile::Prepare(const QByteArray& sql) {
    if (RefuseWithinWait()) return nullptr;
    sqlite3_stmt* statement = m_db == nullptr ? nullptr : m_statements->Get(sql);
    if (statement == nullptr) NoteError();
    return statement;
}

bool CSqliteFile::Run(const QByteArray& sql) {
    sqlite3_stmt* statement = Prepare(sql);
    if (statement == nullptr) return false;
    const bool done = sqlite3_step(statement) == SQLITE_DONE;
    if (!done) NoteError();
    sqlite3_reset(statement);
    return done;
}

bool CSqliteFile::Begin() {
    if (RefuseWithinWait() || RefuseDamaged()) return false;
    if (InTransaction()) return true;
    if (m_began) return false;
    m_began = Run("BEGIN IMMEDIATE");
    if (!m_began) return false;
    m_changesBefore = sqlite3_total_changes64(m_db);
    m_counterBefore = ChangeCounter();
    m_isHeard = m_listener != nullptr;
    if (m_isHeard) m_listener->OnBegin(*this);
    // A page that the listener could not read may have ended the transaction, and what follows would be
    // written without one.
    if (InTransaction()) return true;
    m_began = false;
    TellEnd(false);
    return false;
}

void CSqliteFile::Watch(CRowListener* listener) {
    m_listener = listener;
    m_isHeard = false;
    if (m_db != nullptr) HookRows(m_db, listener);
}

void CSqliteFile::TellEnd(bool isDurable) {
    if (std::exchange(m_isHeard, false)) m_listener->OnEnd(isDurable);
}

/// The first look into the file is what sets the moment.
bool CSqliteFile::BeginRead() {
    if (InTransaction()) return true;
    std::int64_t version = 0;
    if (Execute("BEGIN") && ReadNumber(m_db, "PRAGMA schema_version", version)) return true;
    NoteError();
    Rollback();
    return false;
}

void CSqliteFile::NoteDamage() {
    if (std::exchange(m_isDamaged, true)) return;
    if (m_onDamage) m_onDamage();
}

/// Whether damage was met in the file; the error is noted then.
bool CSqliteFile::RefuseDamaged() {
    if (m_isDamaged) NoteErrorCode(SQLITE_CORRUPT);
    return m_isDamaged;
}

bool CSqliteFile::IsUntouched() const {
    return InTransaction() && sqlite3_total_changes64(m_db) == m_changesBefore;
}

bool CSqliteFile::Commit() {
    m_isUnconfirmed = false;
    if (!InTransaction()) return !std::exchange(m_began, false);
    if (RefuseDamaged()) {
        Rollback();
        return false;
    }
    if (m_isHeard) m_listener->OnCommit(*this);
    const bool isDone = RunCommit();
    if (isDone) TellEnd(true);
    return isDone;
}

bool CSqliteFile::RunCommit() {
    if (!Run("COMMIT")) {
        if (InTransaction() || !IsCommitInFile()) return false;
        m_began = false;
        m_isUnconfirmed = !ConfirmCommit();
        return true;
    }
    m_began = false;
    return true;
}

/// The number in the header of the file that grows with every transaction; 0 when it can't be read. Through
/// SQLite's own handle, as closing another one would give up its locks.
std::uint32_t CSqliteFile::ChangeCounter() const {
    constexpr sqlite3_int64 kPlace = 24;
    std::array<unsigned char, 4> bytes{};
    sqlite3_file* file = nullptr;
    const bool isRead =
        sqlite3_file_control(m_db, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) ==
            SQLITE_OK &&
        file != nullptr && file->pMethods != nullptr &&
        file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), kPlace) == SQLITE_OK;
    return isRead ? qFromBigEndian<std::uint32_t>(bytes.data()) : 0;
}

/// Whether a commit that has reported an error is done all the same. A journal with something in it is played
/// back by the next program that opens the file; without one the file is as it stands, and its counter tells
/// whether it was put back before.
bool CSqliteFile::IsCommitInFile() const {
    if (m_isMemory) return false;
    struct stat journal {};
    const QByteArray name = QFile::encodeName(m_path + QStringLiteral("-journal"));
    const bool isJournalGone =
        ::stat(name.constData(), &journal) == 0 ? journal.st_size == 0 : errno == ENOENT;
    const std::uint32_t counter = ChangeCounter();
    return isJournalGone && counter != 0 && counter != m_counterBefore;
}

/// What was not confirmed is the end of the journal, which a power failure might bring back. Another
/// transaction that changes nothing makes a new one of it.
bool CSqliteFile::ConfirmCommit() {
    std::int64_t version = 0;
    const bool isConfirmed = Run("BEGIN IMMEDIATE") && ReadNumber(m_db, "PRAGMA user_version", version) &&
                             Execute("PRAGMA user_version=" + QByteArray::number(version)) && Run("COMMIT");
    if (InTransaction()) sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    return isConfirmed;
}

/// Keeps the error that led here.
void CSqliteFile::Rollback() {
    m_began = false;
    Undo();
    TellEnd(false);
}

void CSqliteFile::Undo() {
    if (InTransaction()) sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
}

bool CSqliteFile::InTransaction() const {
    return m_db != nullptr && sqlite3_get_autocommit(m_db) == 0;
}

bool CSqliteFile::IsStillInPlace() const {
    if (m_isMemory) return true;
    struct stat status {};
    return m_db != nullptr && ::stat(QFile::encodeName(m_path).constData(), &status) == 0 &&
           status.st_dev == m_device && status.st_ino == m_inode;
}

QString CSqliteFile::IntegrityReport() {
    m_errorCode = 0;
    sqlite3_stmt* statement = Prepare("PRAGMA integrity_check");
    if (statement == nullptr) return m_error;
    QStringList lines;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        lines += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    if (step != SQLITE_DONE) {
        NoteError();
        lines += m_error;
    }
    sqlite3_reset(statement);
    return lines == QStringList(QStringLiteral("ok")) ? QString() : lines.join(u'\n');
}

void CSqliteFile::NoteError() {
    if (m_db == nullptr) {
        m_errorCode = SQLITE_MISUSE;
        m_error = QStringLiteral("%1 is not open.").arg(m_path);
        return;
    }
    NoteErrorCode(sqlite3_extended_errcode(m_db));
}

void CSqliteFile::NoteErrorCode(int code) {
    const int primary = code & 0xFF;
    const bool mayBeGone =
        primary == SQLITE_IOERR || primary == SQLITE_CANTOPEN || primary == SQLITE_READONLY;
    // A folder that was moved away shows as any of these.
    if (mayBeGone && m_inode != 0 && !IsStillInPlace()) code = SQLITE_READONLY_DBMOVED;
    const bool lacksLocks = primary == SQLITE_BUSY && m_lacksLocks;
    const int systemError = lacksLocks ? ENOLCK : SystemError(m_db, primary);
    m_errorCode = lacksLocks ? SQLITE_IOERR_LOCK : code;
    m_error = SqliteSentence(m_errorCode, systemError, m_path, QString::fromUtf8(sqlite3_errmsg(m_db)));
    if (OutcomeOf(m_errorCode) == OpenOutcome::Damaged) NoteDamage();
}
