#include "platform/host/SafeFile.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/host/CFileCalls.h"
#include "platform/host/ErrorText.h"

namespace {

/// A file handle that is closed at the end of its scope.
class Handle {
 public:
    explicit Handle(int handle) : m_handle(handle) {}
    ~Handle() {
        if (m_handle >= 0) (void)theFileCalls->Close(m_handle);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] bool IsOpen() const { return m_handle >= 0; }
    [[nodiscard]] int Get() const { return m_handle; }
    /// Closing can report a late failure to write.
    [[nodiscard]] bool Close() {
        const int handle = m_handle;
        m_handle = -1;
        return theFileCalls->Close(handle) == 0;
    }

 private:
    int m_handle;
};

struct Advice {
    int error;
    const char* sentence;
};
constexpr Advice kAdvice[] = {
    {ENOSPC, "The disk is full. Free some space or choose another folder."},
    {EDQUOT, "Your disk quota is used up. Free some space or choose another folder."},
    {EFBIG, "The file would be larger than is allowed here. Choose another folder."},
    {EROFS, "The disk is read-only. Choose another folder."},
    {EACCES, "You may not write in this folder. Choose another one."},
    {EPERM, "You may not write in this folder. Choose another one."},
    {ENOENT, "The folder does not exist. Create it or choose another one."},
    {ENOTDIR, "The folder does not exist. Create it or choose another one."},
    {ENAMETOOLONG, "The name is too long. Choose a shorter one."},
    {EIO, "The disk reports an error. Choose another disk."},
};

FileOutcome Failure(const QString& path, int error) {
    QString advice = ErrorText(error) + u'.';
    for (const Advice& row : kAdvice) {
        if (row.error == error) advice = QString::fromLatin1(row.sentence);
    }
    return {false, QStringLiteral("%1 could not be written. %2").arg(path, advice)};
}

/// The new file is there, but its name isn't sure: a caller that deletes something because it was written has
/// to leave it.
FileOutcome Unconfirmed(const QString& path) {
    return {false, QStringLiteral("%1 was written, but the disk could not confirm it: after a power failure "
                                  "it may be as it was before. Check the disk and write it again.")
                       .arg(path)};
}

/// An empty text when the target may be replaced. A link is replaced, but not one that stands for a device
/// or a pipe, as /dev/stdout does.
QString Objection(const QString& path, const QByteArray& name, int folder) {
    struct stat own {};
    if (::fstatat(folder, name.constData(), &own, AT_SYMLINK_NOFOLLOW) != 0) return {};
    if (S_ISDIR(own.st_mode)) return QStringLiteral("%1 is a folder. Choose a file name.").arg(path);
    struct stat target {};
    if (::fstatat(folder, name.constData(), &target, 0) != 0) return {};  // a link to nothing
    if (S_ISREG(target.st_mode) || S_ISDIR(target.st_mode)) return {};
    return QStringLiteral("%1 is not an ordinary file. Choose another name.").arg(path);
}

/// A name of its own, independent of the target's, which may be as long as a name can be.
QByteArray TemporaryName() {
    std::random_device random;
    const auto number = (static_cast<quint64>(random()) << 32) | random();
    return ".velmarch-" + QByteArray::number(number, 16) + ".tmp";
}

bool WriteAll(int handle, QByteArrayView content) {
    while (!content.isEmpty()) {
        const ssize_t written =
            theFileCalls->Write(handle, content.data(), static_cast<std::size_t>(content.size()));
        if (written < 0 && errno == EINTR) continue;
        if (written == 0) errno = ENOSPC;
        if (written <= 0) return false;
        content = content.sliced(written);
    }
    return true;
}

/// Everything up to the closed, synced temporary file; on failure errno says why.
bool WriteTemporary(int folder, const QByteArray& name, QByteArrayView content, FileAudience audience) {
    const mode_t mode = audience == FileAudience::OwnerOnly ? 0600 : 0666;
    Handle file(theFileCalls->Create(folder, name.constData(), mode));
    return file.IsOpen() && WriteAll(file.Get(), content) && theFileCalls->Sync(file.Get()) == 0 &&
           file.Close();
}

/// Some file systems can't sync a folder and say so by these two; there is nothing more to be done there.
bool SyncFolder(int folder) {
    return theFileCalls->Sync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace

FileOutcome WriteWholeFile(const QString& path, QByteArrayView content, FileAudience audience) {
    const qsizetype separator = path.lastIndexOf(u'/');
    const QString folderPath = separator < 0 ? QStringLiteral(".") : path.left(separator + 1);
    const QByteArray name = QFile::encodeName(path.mid(separator + 1));
    if (name.isEmpty() || name == "." || name == "..") {
        return {false, QStringLiteral("\"%1\" is no file name. Choose a file name.").arg(path)};
    }
    const Handle folder(theFileCalls->OpenFolder(QFile::encodeName(folderPath).constData()));
    if (!folder.IsOpen()) return Failure(path, errno);
    if (const QString objection = Objection(path, name, folder.Get()); !objection.isEmpty()) {
        return {false, objection};
    }
    const QByteArray temporary = TemporaryName();
    if (!WriteTemporary(folder.Get(), temporary, content, audience) ||
        theFileCalls->Rename(folder.Get(), temporary.constData(), name.constData()) != 0) {
        const int error = errno;
        theFileCalls->Unlink(folder.Get(), temporary.constData());
        return Failure(path, error);
    }
    if (!SyncFolder(folder.Get())) return Unconfirmed(path);
    return {true, {}};
}
