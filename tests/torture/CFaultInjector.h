#pragma once

#include "torture/CVfsShim.h"

#include <QHash>

/// What a call to the system ends with.
enum class Fault {
    DiskError,   ///< EIO, of any call that changes a file or a lock
    Unreadable,  ///< EIO, of calls that read
    DiskFull,    ///< ENOSPC, of calls that need space or find out late that there is none
    NoLocks,     ///< ENOLCK, of locks
    Reader       ///< the store can't be written while another program reads it
};

/// How long it lasts.
enum class Lasting { OneCall, FromThenOn };

/// Makes one call of SQLite to the system fail, or all from one on; and a disk that holds so many bytes.
class CFaultInjector final : public CVfsShim {
 public:
    /// Counting starts anew; the call with this number is the first that fails. 0: none does.
    void Arm(Fault fault, Lasting lasting, int call);
    /// From now on the files may have so many bytes more than they have now, all together.
    void ArmDisk(qint64 bytesLeft);
    /// Nothing fails any more; what was counted can still be read.
    void Disarm();

    /// The calls that the fault could have met since it was armed.
    [[nodiscard]] int Calls() const { return m_calls; }
    /// By how many bytes the files have grown since a disk was armed, at the most.
    [[nodiscard]] qint64 MostGrowth() const { return m_mostGrowth; }

    int OnOpen(const QString& path) override;
    void OnOpened(const QString& path, bool isNew) override;
    int OnRead(const QString& path, qint64 offset) override;
    int OnWrite(const QString& path, qint64 offset, const QByteArray& data) override;
    int OnTruncate(const QString& path, qint64 size) override;
    int OnSync(const QString& path, bool isFirst) override;
    int OnDelete(const QString& path, bool syncsFolder) override;
    int OnLock(const QString& path, int level) override;
    int OnUnlock(const QString& path, int level) override;
    [[nodiscard]] int SystemError() const override { return m_systemError; }

 private:
    enum class Call { Read, Open, Write, Truncate, Sync, Delete, Lock, LockToWrite, Unlock };
    void StartAnew();
    [[nodiscard]] bool Concerns(Call call) const;
    [[nodiscard]] int Meet(Call call);
    [[nodiscard]] int Resize(const QString& path, qint64 size);

    Fault m_fault = Fault::DiskError;
    Lasting m_lasting = Lasting::OneCall;
    bool m_isArmed = false;
    int m_failing = 0;
    int m_calls = 0;
    int m_systemError = 0;

    bool m_isDiskArmed = false;
    qint64 m_bytesLeft = 0;
    qint64 m_growth = 0;
    qint64 m_mostGrowth = 0;
    QHash<QString, qint64> m_sizes;
};
