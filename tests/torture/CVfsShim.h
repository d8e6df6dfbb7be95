#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <QString>

/// Stands between SQLite and the system's files while it lives: every database opened meanwhile goes through
/// it. A test sees each use of a file and each lock before it is made and may refuse it with an SQLite
/// result code.
class CVfsShim {
 public:
    CVfsShim();
    virtual ~CVfsShim();
    CVfsShim(const CVfsShim&) = delete;
    CVfsShim& operator=(const CVfsShim&) = delete;

    /// A file is about to be opened.
    virtual int OnOpen(const QString& path) {
        (void)path;
        return SQLITE_OK;
    }
    /// A file was opened; isNew: it wasn't there before.
    virtual void OnOpened(const QString& path, bool isNew) {
        (void)path;
        (void)isNew;
    }
    virtual int OnRead(const QString& path, qint64 offset) {
        (void)path;
        (void)offset;
        return SQLITE_OK;
    }
    virtual int OnWrite(const QString& path, qint64 offset, const QByteArray& data) {
        (void)path;
        (void)offset;
        (void)data;
        return SQLITE_OK;
    }
    virtual int OnTruncate(const QString& path, qint64 size) {
        (void)path;
        (void)size;
        return SQLITE_OK;
    }
    /// isFirst: the first one of a journal since it was opened, which syncs its folder as well.
    virtual int OnSync(const QString& path, bool isFirst) {
        (void)path;
        (void)isFirst;
        return SQLITE_OK;
    }
    virtual int OnDelete(const QString& path, bool syncsFolder) {
        (void)path;
        (void)syncsFolder;
        return SQLITE_OK;
    }

    /// level: SQLITE_LOCK_SHARED and so on.
    virtual int OnLock(const QString& path, int level) {
        (void)path;
        (void)level;
        return SQLITE_OK;
    }
    virtual int OnUnlock(const QString& path, int level) {
        (void)path;
        (void)level;
        return SQLITE_OK;
    }
    /// The errno behind the last refusal; 0: the system's own.
    [[nodiscard]] virtual int SystemError() const { return 0; }

    [[nodiscard]] sqlite3_vfs* Real() { return m_real; }

 private:
    sqlite3_vfs* m_real;
    sqlite3_vfs m_own;
};
