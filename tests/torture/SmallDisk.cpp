#include "torture/SmallDisk.h"

#include <QFile>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

constexpr qint64 kPage = 4096;

QByteArray Filling(const QString& folder) {
    return QFile::encodeName(folder + QStringLiteral("/filling"));
}

}  // namespace

SmallDisk::SmallDisk(const QString& folder)
    : m_folder(folder),
      m_isThere(::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=4m,mode=700") ==
                0) {}

SmallDisk::~SmallDisk() {
    if (m_isThere) ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
}

bool SmallDisk::LeaveFree(int pages) {
    struct statvfs space {};
    if (::statvfs(QFile::encodeName(m_folder).constData(), &space) != 0) return false;
    const qint64 rest = static_cast<qint64>(space.f_bavail * space.f_bsize) - pages * kPage;
    const int file = ::open(Filling(m_folder).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const bool isFilled = rest >= 0 && file >= 0 && ::posix_fallocate(file, 0, rest) == 0;
    return file >= 0 && ::close(file) == 0 && isFilled;
}

void SmallDisk::Empty() {
    ::unlink(Filling(m_folder).constData());
}
