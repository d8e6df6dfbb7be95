#include "platform/host/CFileReader.h"

#include <QFile>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

CFileReader::~CFileReader() {
    if (m_handle >= 0) ::close(m_handle);
}

/// Without waiting: a pipe that nobody writes to would keep the program for ever.
int CFileReader::Open(const QString& path) {
    m_handle = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_handle < 0) return m_error = errno;
    struct stat found {};
    if (::fstat(m_handle, &found) != 0) return m_error = errno;
    if (S_ISDIR(found.st_mode)) return m_error = EISDIR;
    if (!S_ISREG(found.st_mode)) return m_error = ESPIPE;
    m_state = Look().value_or(State{});
    return m_error = 0;
}

std::optional<QByteArray> CFileReader::Read(std::size_t most) {
    QByteArray bytes(static_cast<qsizetype>(most), Qt::Uninitialized);
    ssize_t count = 0;
    do {
        count = ::pread(m_handle, bytes.data(), most, m_place);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        m_error = errno;
        return std::nullopt;
    }
    m_place += count;
    bytes.truncate(count);
    return bytes;
}

bool CFileReader::HasChanged() const {
    return Look() != m_state;
}

std::optional<CFileReader::State> CFileReader::Look() const {
    struct stat found {};
    if (::fstat(m_handle, &found) != 0) return std::nullopt;
    return State{found.st_size, found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}
