#include "platform/sqlite/FileCopy.h"

#include <sqlite3.h>

#include <QFile>
#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/host/CLockWait.h"
#include "platform/sqlite/SqliteErrors.h"

namespace {

/// Where SQLite locks a file; a reader has a share of these bytes, and nobody writes to the file then.
constexpr off_t kSharedFirst = 0x40000002;
constexpr off_t kSharedSize = 510;

constexpr std::size_t kPiece = 1U << 20U;

class Handle {
 public:
    explicit Handle(int handle) : m_handle(handle) {}
    ~Handle() {
        if (m_handle >= 0) ::close(m_handle);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] int Get() const { return m_handle; }

 private:
    int m_handle;
};

Handle OpenToRead(const QString& path) {
    return Handle(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
}

/// Takes a reader's share until the handle is closed. A file system without locks has nobody to wait for.
bool ShareLock(int handle, const QString& path, int seconds) {
    struct flock lock {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = kSharedFirst;
    lock.l_len = kSharedSize;
    CLockWait wait(path, std::chrono::seconds(seconds));
    for (int count = 0; ::fcntl(handle, F_OFD_SETLK, &lock) != 0; ++count) {
        if (errno != EAGAIN && errno != EACCES && errno != EINTR) return true;
        if (!wait.Wait(count)) return false;
    }
    return true;
}

bool WriteAll(int handle, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(handle, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

/// What the disk can't read becomes zeros, so that all other pages stay in their places.
bool CopyBytes(int from, const QString& path) {
    const Handle to(
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    struct stat status {};
    if (to.Get() < 0 || ::fstat(from, &status) != 0) return false;
    const auto piece = std::make_unique<char[]>(kPiece);
    constexpr std::size_t kUnreadable = 512;
    for (off_t at = 0; at < status.st_size;) {
        const auto left = static_cast<std::size_t>(status.st_size - at);
        ssize_t read = ::pread(from, piece.get(), std::min(kPiece, left), at);
        if (read < 0 && errno == EINTR) continue;
        if (read == 0) break;
        if (read < 0) {
            read = ::pread(from, piece.get(), std::min(kUnreadable, left), at);
            if (read <= 0) {
                read = static_cast<ssize_t>(std::min(kUnreadable, left));
                std::fill_n(piece.get(), read, '\0');
            }
        }
        if (!WriteAll(to.Get(), piece.get(), static_cast<std::size_t>(read))) return false;
        at += read;
    }
    return true;
}

/// SQLite undoes a change that was cut off as soon as it reads; whether it can read the rest doesn't matter.
void UndoOpenChange(const QString& path) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READWRITE, nullptr) ==
        SQLITE_OK)
        sqlite3_exec(db, "SELECT count(*) FROM sqlite_schema", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

QString Failure(const QString& path) {
    return SqliteSentence(SQLITE_CANTOPEN, errno, path, qt_error_string(errno));
}

}  // namespace

QString CopyDatabase(const QString& from, const QString& to, int seconds) {
    const Handle source = OpenToRead(from);
    if (source.Get() < 0) return Failure(from);
    if (!ShareLock(source.Get(), from, seconds)) return SqliteSentence(SQLITE_BUSY, 0, from, {});
    const QString suffix = QStringLiteral("-journal");
    const Handle journal = OpenToRead(from + suffix);
    if (!CopyBytes(source.Get(), to)) return Failure(to);
    if (journal.Get() >= 0 && !CopyBytes(journal.Get(), to + suffix)) return Failure(to + suffix);
    UndoOpenChange(to);
    return {};
}
