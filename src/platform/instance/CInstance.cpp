#include "platform/instance/CInstance.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/host/ErrorText.h"

namespace {

/// The lock's file lies in the home and stays there: what counts is the kernel's lock on it, which ends with
/// the process, however it ends.
QByteArray LockPath(QString name, const QString& home) {
    name.replace(u'/', u'_');
    return QFile::encodeName(home + QStringLiteral("/.") + name);
}

/// Whether only the folder stands in the way, not something that lies in the place of the lock's file.
bool IsReadOnly(const QString& home, const QByteArray& path) {
    struct stat status {};
    return ::lstat(path.constData(), &status) != 0 && QFileInfo(home).isDir() &&
           ::faccessat(AT_FDCWD, QFile::encodeName(home).constData(), W_OK, AT_EACCESS) != 0;
}

QString WhyNotLocked(const QByteArray& path, int error) {
    const QString file = QFile::decodeName(path);
    if (error == ELOOP || error == EISDIR)
        return QStringLiteral("%1 is a link or a folder. Delete it.").arg(file);
    if (error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL)
        return QStringLiteral(
                   "The file system on which %1 lies doesn't let files be locked. Move its folder to "
                   "another disk.")
            .arg(file);
    return QStringLiteral(
               "%1 can't be locked: %2. Check who owns it and its folder and whether they are "
               "writable.")
        .arg(file, ErrorText(error));
}

struct flock WholeFile() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

}  // namespace

CInstance::CInstance() = default;

CInstance::~CInstance() {
    Release();
}

CInstance::Outcome CInstance::Take(const QString& name, const QString& home) {
    Release();
    const QByteArray path = LockPath(name, home);
    m_handle = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    // A lock of the open file, not of the process: it can be asked for without taking it, and closing another
    // handle of the file doesn't lose it.
    struct flock lock = WholeFile();
    if (m_handle >= 0 && ::fcntl(m_handle, F_OFD_SETLK, &lock) == 0) return Outcome::Taken;
    const int error = errno;
    const bool isLocked = m_handle >= 0 && (error == EAGAIN || error == EACCES);
    Release();
    if (isLocked) return Outcome::AlreadyExists;
    m_error = WhyNotLocked(path, error);
    return IsReadOnly(home, path) ? Outcome::ReadOnly : Outcome::Failed;
}

void CInstance::Release() {
    if (m_handle >= 0) ::close(std::exchange(m_handle, -1));
}

bool CInstance::IsHeld(const QString& name, const QString& home) {
    const int handle =
        ::open(LockPath(name, home).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (handle < 0) return false;
    struct flock lock = WholeFile();
    const bool asked = ::fcntl(handle, F_OFD_GETLK, &lock) == 0;
    ::close(handle);
    return asked && lock.l_type != F_UNLCK;
}
