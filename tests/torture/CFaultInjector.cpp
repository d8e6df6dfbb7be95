#include "torture/CFaultInjector.h"

#include <QFileInfo>
#include <algorithm>
#include <cerrno>

void CFaultInjector::Arm(Fault fault, Lasting lasting, int call) {
    StartAnew();
    m_fault = fault;
    m_lasting = lasting;
    m_failing = call;
    m_isArmed = true;
}

void CFaultInjector::ArmDisk(qint64 bytesLeft) {
    StartAnew();
    m_bytesLeft = bytesLeft;
    m_isDiskArmed = true;
}

void CFaultInjector::Disarm() {
    m_isArmed = m_isDiskArmed = false;
    m_systemError = 0;
}

void CFaultInjector::StartAnew() {
    Disarm();
    m_calls = 0;
    m_growth = m_mostGrowth = 0;
    m_sizes.clear();
}

bool CFaultInjector::Concerns(Call call) const {
    const bool isLock = call == Call::Lock || call == Call::LockToWrite || call == Call::Unlock;
    switch (m_fault) {
        case Fault::DiskError:
            return call != Call::Read;
        case Fault::Unreadable:
            return call == Call::Read;
        case Fault::DiskFull:
            return !isLock && call != Call::Delete && call != Call::Read;
        case Fault::NoLocks:
            return isLock;
        case Fault::Reader:
            return call == Call::LockToWrite;
    }
    return false;
}

namespace {

/// What SQLite's own layer answers for a call that ended with this errno. It takes a lock that can't be had
/// for one that another program has.
int CodeOf(int error, int ofCall) {
    const bool isTaken = error == ENOLCK || error == EAGAIN;
    if (isTaken && ofCall == SQLITE_IOERR_LOCK) return SQLITE_BUSY;
    return error == ENOSPC && ofCall == SQLITE_IOERR_WRITE ? SQLITE_FULL : ofCall;
}

int ErrnoOf(Fault fault) {
    switch (fault) {
        case Fault::DiskError:
        case Fault::Unreadable:
            return EIO;
        case Fault::DiskFull:
            return ENOSPC;
        case Fault::NoLocks:
            return ENOLCK;
        case Fault::Reader:
            return EAGAIN;
    }
    return EIO;
}

}  // namespace

int CFaultInjector::Meet(Call call) {
    constexpr int kCodes[] = {SQLITE_IOERR_READ,     SQLITE_CANTOPEN,    SQLITE_IOERR_WRITE,
                              SQLITE_IOERR_TRUNCATE, SQLITE_IOERR_FSYNC, SQLITE_IOERR_DELETE,
                              SQLITE_IOERR_LOCK,     SQLITE_IOERR_LOCK,  SQLITE_IOERR_UNLOCK};
    if (!m_isArmed || !Concerns(call)) return SQLITE_OK;
    ++m_calls;
    const bool fails =
        m_lasting == Lasting::OneCall ? m_calls == m_failing : m_failing > 0 && m_calls >= m_failing;
    m_systemError = fails ? ErrnoOf(m_fault) : 0;
    if (!fails) return SQLITE_OK;
    return CodeOf(m_systemError, kCodes[static_cast<std::size_t>(call)]);
}

/// A file that shrinks gives its bytes back.
int CFaultInjector::Resize(const QString& path, qint64 size) {
    if (!m_isDiskArmed) return SQLITE_OK;
    if (!m_sizes.contains(path)) m_sizes.insert(path, QFileInfo(path).size());
    const qint64 more = size - m_sizes[path];
    if (more > 0 && m_growth + more > m_bytesLeft) {
        m_systemError = ENOSPC;
        return SQLITE_FULL;
    }
    m_systemError = 0;
    m_growth += more;
    m_mostGrowth = std::max(m_mostGrowth, m_growth);
    m_sizes[path] = size;
    return SQLITE_OK;
}

int CFaultInjector::OnOpen(const QString&) {
    return Meet(Call::Open);
}

void CFaultInjector::OnOpened(const QString& path, bool) {
    m_sizes.remove(path);
}

int CFaultInjector::OnRead(const QString&, qint64) {
    return Meet(Call::Read);
}

int CFaultInjector::OnWrite(const QString& path, qint64 offset, const QByteArray& data) {
    const int refused =
        Resize(path, m_isDiskArmed ? std::max(QFileInfo(path).size(), offset + data.size()) : 0);
    return refused != SQLITE_OK ? refused : Meet(Call::Write);
}

int CFaultInjector::OnTruncate(const QString& path, qint64 size) {
    const int refused = Resize(path, size);
    return refused != SQLITE_OK ? refused : Meet(Call::Truncate);
}

int CFaultInjector::OnSync(const QString&, bool) {
    return Meet(Call::Sync);
}

int CFaultInjector::OnDelete(const QString& path, bool) {
    const int refused = Resize(path, 0);
    return refused != SQLITE_OK ? refused : Meet(Call::Delete);
}

int CFaultInjector::OnLock(const QString&, int level) {
    return Meet(level == SQLITE_LOCK_EXCLUSIVE ? Call::LockToWrite : Call::Lock);
}

int CFaultInjector::OnUnlock(const QString&, int) {
    return Meet(Call::Unlock);
}
