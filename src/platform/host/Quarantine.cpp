#include "platform/host/Quarantine.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <cerrno>

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/host/CClock.h"
#include "platform/host/CLockWait.h"

namespace {

bool Rename(const QString& from, const QString& to) {
    return ::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                       QFile::encodeName(to).constData(), RENAME_NOREPLACE) == 0;
}

/// Two in one second get different names.
QString NameAside(const QString& path) {
    const SYSTEMTIME now = CSystemClock().GetLocalTime();
    const QString name = path + QString::asprintf(".unreadable-%04d%02d%02d-%02d%02d%02d", now.wYear,
                                                  now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
    QString free = name;
    for (int number = 2; QFileInfo::exists(free); ++number) free = name + u'-' + QString::number(number);
    return free;
}

}  // namespace

/// The file goes last: once it is gone another program may make a new one at once, and a journal that is
/// there then belongs to that.
QString PutInQuarantine(const QString& path) {
    QString aside = NameAside(path);
    QStringList moved;
    for (const char* part : {"-journal", "-wal", "-shm", ""}) {
        const QString suffix = QString::fromLatin1(part);
        if (!suffix.isEmpty() && QFileInfo(path + suffix).size() == 0) continue;
        if (!Rename(path + suffix, aside + suffix)) {
            for (const QString& back : moved) static_cast<void>(Rename(aside + back, path + back));
            return {};
        }
        moved.append(suffix);
    }
    return aside;
}

FolderLock::FolderLock(const QString& path, std::chrono::seconds limit)
    : m_handle(::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(),
                      O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (m_handle < 0) return;
    CLockWait wait(path, limit);
    for (int count = 0; ::flock(m_handle, LOCK_EX | LOCK_NB) != 0; ++count) {
        if (errno == EINTR) continue;
        m_isHeld = errno != EWOULDBLOCK;
        if (m_isHeld || !wait.Wait(count)) return;
    }
    m_isHeld = true;
}

FolderLock::~FolderLock() {
    if (m_handle >= 0) ::close(m_handle);
}
