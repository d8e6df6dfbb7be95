#include "platform/host/SafeFile.h"

#include <QFile>
#include <cerrno>
#include <random>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/host/CFileCalls.h"
#include "platform/host/ErrorText.h"

namespace {

/// Small pieces are written together.
constexpr qsizetype kPiece = 1 << 16;

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

/// Some file systems can't sync a folder and say so by these two; there is nothing more to be done there.
bool SyncFolder(int folder) {
    return theFileCalls->Sync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
}

}  // namespace

CSafeFile::CSafeFile(const QString& path, FileAudience audience) : m_path(path) {
    if (!Open(audience)) m_temporary.clear();
}

CSafeFile::~CSafeFile() {
    static_cast<void>(Close());
    if (!m_temporary.isEmpty()) theFileCalls->Unlink(m_folder, m_temporary.constData());
    if (m_folder >= 0) static_cast<void>(theFileCalls->Close(m_folder));
}

/// The first failure is the one that counts.
bool CSafeFile::Fail(const QString& words) {
    if (m_error.isEmpty()) m_error = words;
    return false;
}

bool CSafeFile::FailByError() {
    return Fail(Failure(m_path, errno).error);
}

bool CSafeFile::Open(FileAudience audience) {
    const qsizetype separator = m_path.lastIndexOf(u'/');
    const QString folder = separator < 0 ? QStringLiteral(".") : m_path.left(separator + 1);
    m_name = QFile::encodeName(m_path.mid(separator + 1));
    if (m_name.isEmpty() || m_name == "." || m_name == "..")
        return Fail(QStringLiteral("\"%1\" is no file name. Choose a file name.").arg(m_path));
    m_folder = theFileCalls->OpenFolder(QFile::encodeName(folder).constData());
    if (m_folder < 0) return FailByError();
    if (const QString objection = Objection(m_path, m_name, m_folder); !objection.isEmpty())
        return Fail(objection);
    m_temporary = TemporaryName();
    const mode_t mode = audience == FileAudience::OwnerOnly ? 0600 : 0666;
    m_file = theFileCalls->Create(m_folder, m_temporary.constData(), mode);
    return m_file >= 0 || FailByError();
}

bool CSafeFile::Write(QByteArrayView bytes) {
    if (!m_error.isEmpty()) return false;
    if (m_gathered.size() + bytes.size() >= kPiece && !Flush()) return false;
    if (bytes.size() >= kPiece) return WriteAll(m_file, bytes) || FailByError();
    m_gathered.append(bytes.data(), bytes.size());
    return true;
}

bool CSafeFile::Flush() {
    if (!m_error.isEmpty()) return false;
    const bool isWritten = WriteAll(m_file, m_gathered) || FailByError();
    m_gathered.clear();
    return isWritten;
}

bool CSafeFile::WriteAt(qint64 place, QByteArrayView bytes) {
    if (!Flush()) return false;
    while (!bytes.isEmpty()) {
        const ssize_t written =
            theFileCalls->WriteAt(m_file, bytes.data(), static_cast<std::size_t>(bytes.size()), place);
        if (written < 0 && errno == EINTR) continue;
        if (written == 0) errno = ENOSPC;
        if (written <= 0) return FailByError();
        bytes = bytes.sliced(written);
        place += written;
    }
    return true;
}

/// Closing can report a late failure to write.
bool CSafeFile::Close() {
    const int file = std::exchange(m_file, -1);
    return file < 0 || theFileCalls->Close(file) == 0;
}

/// Reads from the disk, as far as the system lets go of what it holds in memory.
bool CSafeFile::IsAsWanted(const Check& check) {
    if (!check) return true;
    static_cast<void>(::posix_fadvise(m_file, 0, 0, POSIX_FADV_DONTNEED));
    QFile written;
    if (!written.open(m_file, QIODevice::ReadOnly, QFileDevice::DontCloseHandle) || !written.seek(0))
        return Fail(written.errorString());
    const QString wrong = check(written);
    return wrong.isEmpty() || Fail(wrong);
}

FileOutcome CSafeFile::Finish(const Check& check) {
    const bool isWhole = Flush() && (theFileCalls->Sync(m_file) == 0 || FailByError()) && IsAsWanted(check) &&
                         (Close() || FailByError());
    if (!isWhole) return {false, m_error};
    if (theFileCalls->Rename(m_folder, m_temporary.constData(), m_name.constData()) != 0) {
        FailByError();
        return {false, m_error};
    }
    m_temporary.clear();
    if (!SyncFolder(m_folder)) return Unconfirmed(m_path);
    return {true, {}};
}

FileOutcome WriteWholeFile(const QString& path, QByteArrayView content, FileAudience audience) {
    CSafeFile file(path, audience);
    static_cast<void>(file.Write(content));  // Finish tells what failed
    return file.Finish();
}
