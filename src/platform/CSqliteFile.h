#pragma once

#include <QByteArrayView>
#include <QString>
#include <cstdint>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

/// How opening a database file ended.
enum class OpenOutcome {
    Created,  ///< the file was absent and has been made
    Existed,
    Missing,   ///< absent, and creating was not asked for
    ReadOnly,  ///< readable, but not writable
    Locked,    ///< another program held it for too long
    Damaged,
    Foreign,  ///< no database, or another program's
    Newer,    ///< made by a newer version of the program
    Failed    ///< anything else: see Error()
};

/// What identifies a file of ours and how it is to be opened.
struct SqliteFileKind {
    std::uint32_t applicationId = 0;  ///< PRAGMA application_id
    int version = 1;                  ///< PRAGMA user_version; a larger one in the file means Newer
    int busySeconds = 30;             ///< how long to wait for another program's lock, in short random sleeps
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

    [[nodiscard]] OpenOutcome Open(const QString& path, const SqliteFileKind& kind, bool create);
    void Close();
    [[nodiscard]] bool IsOpen() const { return m_db != nullptr; }
    [[nodiscard]] bool IsReadOnly() const { return m_readOnly; }

    /// Runs statements that return no rows.
    [[nodiscard]] bool Execute(const QByteArray& sql);
    /// A prepared statement, kept and handed out again for the same text; null on failure. Reset and unbound.
    [[nodiscard]] sqlite3_stmt* Prepare(const QByteArray& sql);

    /// BEGIN IMMEDIATE; nothing when a transaction is open already.
    [[nodiscard]] bool Begin();
    [[nodiscard]] bool Commit();
    void Rollback();
    [[nodiscard]] bool InTransaction() const;

    /// False once the file on disk isn't the opened one any more (moved, deleted, replaced).
    [[nodiscard]] bool IsStillInPlace() const;
    /// The full check; an empty text when the file is sound, otherwise what is wrong.
    [[nodiscard]] QString IntegrityReport();

    /// Takes code and sentence of the connection's last failure (after a step that failed, for instance).
    void NoteError();
    [[nodiscard]] int ErrorCode() const { return m_errorCode; }     ///< SQLite's extended result code
    [[nodiscard]] const QString& Error() const { return m_error; }  ///< in words, with what to do
    [[nodiscard]] sqlite3* Handle() const { return m_db; }
    [[nodiscard]] const QString& Path() const { return m_path; }

 private:
    class Statements;
    sqlite3* m_db = nullptr;
    std::unique_ptr<Statements> m_statements;
    QString m_path;
    QString m_error;
    int m_errorCode = 0;
    bool m_readOnly = false;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
};
