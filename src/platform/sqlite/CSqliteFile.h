#pragma once

#include "platform/sqlite/OpenOutcome.h"

#include <QByteArrayView>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/host/CWaitBudget.h"

struct sqlite3;
struct sqlite3_stmt;
class CLockWait;
class CRowListener;
class CStatementCache;

/// What identifies a file of ours and how it is to be opened.
struct SqliteFileKind {
    std::uint32_t applicationId = 0;     ///< PRAGMA application_id
    int version = 1;                     ///< PRAGMA user_version; a larger one in the file means Newer
    int busySeconds = kMostWaitSeconds;  ///< how long to wait for one lock of another program at most
};

/// One connection to an SQLite file, always opened in the same safe way: rollback journal (TRUNCATE,
/// synchronous EXTRA: an acknowledged commit survives a power cut), untrusted schema, cell size checks, no
/// memory map, random waits on locks. Failures are values; the last one's code and sentence stay readable.
class CSqliteFile {
 public:
    CSqliteFile();
    ~CSqliteFile();
    CSqliteFile(const CSqliteFile&) = delete;
    CSqliteFile& operator=(const CSqliteFile&) = delete;

    /// Opens the file; it is open afterwards if the outcome is Created, Existed or ReadOnly. Two programs
    /// that create a file at once both succeed, one of them with Existed; the tables are then the caller's to
    /// make, IF NOT EXISTS and in one transaction. The path ":memory:" makes a database that is gone at the
    /// end.
    [[nodiscard]] OpenOutcome Open(const QString& path, const SqliteFileKind& kind, bool create);
    void Close();
    [[nodiscard]] bool IsOpen() const { return m_db != nullptr; }
    [[nodiscard]] bool IsReadOnly() const { return m_readOnly; }

    /// Runs statements that return no rows.
    [[nodiscard]] bool Execute(const QByteArray& sql);
    /// A prepared statement, kept and handed out again for the same text; null on failure. Reset and unbound.
    [[nodiscard]] sqlite3_stmt* Prepare(const QByteArray& sql);

    /// BEGIN IMMEDIATE; nothing when a transaction is open already. False when SQLite has undone the one
    /// before by itself (WasUndone).
    [[nodiscard]] bool Begin();
    /// A transaction for reading alone, until Rollback: all of it sees one moment. A damaged file can be
    /// read, too.
    [[nodiscard]] bool BeginRead();
    /// Nothing when no transaction was begun. False also when SQLite has undone the transaction by itself
    /// after a failed statement. After another failure it may still be open: the caller rolls it back.
    ///
    /// True means that the changes are in the file, false that they aren't: a commit can report an error of
    /// the disk although its last step, the end of the journal, is done.
    [[nodiscard]] bool Commit();
    void Rollback();
    /// Undoes the transaction and leaves it at that: WasUndone from now on.
    void Undo();
    [[nodiscard]] bool InTransaction() const;
    /// A statement has failed in such a way that SQLite has undone the whole transaction by itself, a full
    /// disk for instance. What follows would be written by itself, without what came before: nothing may be
    /// before Rollback.
    [[nodiscard]] bool WasUndone() const { return m_began && !InTransaction(); }
    /// The last commit is in the file, but the disk could not confirm it: a power failure may take it back.
    [[nodiscard]] bool IsUnconfirmed() const { return m_isUnconfirmed; }
    /// A transaction is open, and nothing was changed in it so far.
    [[nodiscard]] bool IsUntouched() const;

    /// False once the file on disk isn't the opened one any more (moved, deleted, replaced).
    [[nodiscard]] bool IsStillInPlace() const;
    /// The full check; an empty text when the file is sound, otherwise what is wrong. ErrorCode() is 0 then
    /// if the check has found it, otherwise it says why the check could not be made.
    [[nodiscard]] QString IntegrityReport();

    /// Damage was met in the file, by any statement, or is known from elsewhere: nothing is written to it any
    /// more, since a change of a damaged tree may take more with it. Every transaction fails.
    [[nodiscard]] bool IsDamaged() const { return m_isDamaged; }
    void NoteDamage();
    /// Called when damage is met for the first time.
    void OnDamage(const std::function<void()>& listener) { m_onDamage = listener; }

    /// Within a transaction another thread may run its statements, while this one doesn't use the file:
    /// nobody is waited for then, as whoever waits serves messages. What would have to wait stays in memory
    /// until the commit.
    void Lend(bool isLent) { m_isLent = isLent; }

    /// Who hears of transactions and of the rows that they change, from the next transaction on; null:
    /// nobody. Must outlive the file, or take itself away before.
    void Watch(CRowListener* listener);

    /// Takes code and sentence of the connection's last failure (after a step that failed, for instance).
    void NoteError();
    [[nodiscard]] int ErrorCode() const { return m_errorCode; }     ///< SQLite's extended result code
    [[nodiscard]] const QString& Error() const { return m_error; }  ///< in words, with what to do
    [[nodiscard]] sqlite3* Handle() const { return m_db; }
    [[nodiscard]] const QString& Path() const { return m_path; }

 private:
    struct Identity;
    [[nodiscard]] std::optional<OpenOutcome> Examine(bool create);
    [[nodiscard]] bool Connect(const SqliteFileKind& kind);
    [[nodiscard]] bool ReadIdentity(Identity& identity);
    [[nodiscard]] OpenOutcome Identify(const SqliteFileKind& kind, bool create);
    [[nodiscard]] bool Stamp(const SqliteFileKind& kind, bool& created);
    [[nodiscard]] bool UseRollbackJournal();
    [[nodiscard]] OpenOutcome Fail();
    [[nodiscard]] OpenOutcome Refuse(OpenOutcome outcome, const QString& sentence);
    [[nodiscard]] bool Run(const QByteArray& sql);
    [[nodiscard]] std::uint32_t ChangeCounter() const;
    [[nodiscard]] bool IsCommitInFile() const;
    [[nodiscard]] bool RunCommit();
    void TellEnd(bool isDurable);
    [[nodiscard]] bool ConfirmCommit();
    [[nodiscard]] bool RefuseWithinWait();
    void NoteErrorCode(int code);
    static int OnBusy(void* self, int count);
    [[nodiscard]] bool RefuseDamaged();

    sqlite3* m_db = nullptr;
    std::unique_ptr<CStatementCache> m_statements;
    std::unique_ptr<CLockWait> m_lockWait;
    QString m_path;
    QString m_error;
    int m_errorCode = 0;
    bool m_readOnly = false;
    bool m_began = false;
    bool m_isDamaged = false;
    std::function<void()> m_onDamage;
    bool m_isUnconfirmed = false;
    std::int64_t m_changesBefore = 0;   ///< of the connection, when the transaction began
    std::uint32_t m_counterBefore = 0;  ///< of the file, at the same moment
    CRowListener* m_listener = nullptr;
    bool m_isHeard = false;  ///< the listener has heard of the beginning of the transaction
    bool m_isMemory = false;
    bool m_isLent = false;
    bool m_lacksLocks = false;  ///< the file system refuses every lock
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
};
