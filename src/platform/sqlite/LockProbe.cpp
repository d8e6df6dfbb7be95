#include "platform/sqlite/LockProbe.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The call with which SQLite itself locks.
auto LockingCall() {
    using Call = int (*)(int, int, ...);
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    const sqlite3_syscall_ptr call =
        vfs && vfs->iVersion >= 3 && vfs->xGetSystemCall ? vfs->xGetSystemCall(vfs, "fcntl") : nullptr;
    return call ? reinterpret_cast<Call>(call) : &::fcntl;
}

bool IsRefusal(int error) {
    return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS;
}

}  // namespace

bool LacksLocks(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int handle = ::open(folder.constData(), O_RDWR | O_TMPFILE | O_CLOEXEC, 0600);
    if (handle < 0) return false;
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_len = 1;
    const bool isRefused = LockingCall()(handle, F_SETLK, &lock) != 0 && IsRefusal(errno);
    ::close(handle);
    return isRefused;
}
