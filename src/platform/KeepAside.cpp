#include "platform/KeepAside.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/CClock.h"

namespace {

bool Rename(const QString& from, const QString& to) {
    return ::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                       QFile::encodeName(to).constData(), RENAME_NOREPLACE) == 0;
}

QString NameAside(const QString& path) {
    const SYSTEMTIME now = CSystemClock().GetLocalTime();
    return path + QString::asprintf(".unreadable-%04d%02d%02d-%02d%02d%02d", now.wYear, now.wMonth, now.wDay,
                                    now.wHour, now.wMinute, now.wSecond);
}

}  // namespace

QString KeepAside(const QString& path) {
    const QString name = NameAside(path);
    QString aside = name;
    // Two in one second get different names.
    for (int number = 2; !Rename(path, aside); ++number) {
        if (errno != EEXIST) return {};
        aside = name + u'-' + QString::number(number);
    }
    for (const char* part : {"-journal", "-wal", "-shm"}) {
        const QString suffix = QString::fromLatin1(part);
        if (QFileInfo(path + suffix).size() > 0 && !Rename(path + suffix, aside + suffix)) return {};
    }
    return aside;
}

FolderLock::FolderLock(const QString& path)
    : m_handle(::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(),
                      O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (m_handle < 0) return;
    while (::flock(m_handle, LOCK_EX) != 0 && errno == EINTR) {
    }
}

FolderLock::~FolderLock() {
    if (m_handle >= 0) ::close(m_handle);
}
