#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>

class CRecordTimers;

/// The timers of records that are being deleted or brought back, wherever they are owned.
class CTimersOfRecords {
 public:
    virtual ~CTimersOfRecords() = default;
    /// Those of the records that have a timer.
    [[nodiscard]] virtual QStringList Timed(const QStringList& ids) = 0;
    /// What it takes to put back the timers of records, by record; none for a record without one.
    [[nodiscard]] virtual QHash<QString, QByteArray> Images(const QStringList& ids) = 0;
    /// Takes out timers whose records are gone, without a fold. False when it could not be saved; such timers
    /// go with the next fold at the latest.
    [[nodiscard]] virtual bool Drop(const QStringList& ids) = 0;
    /// Puts one back as it was: a running one has been counting all the time. False when it could not be
    /// saved, or isn't one.
    [[nodiscard]] virtual bool PutBack(const QString& id, const QByteArray& image) = 0;
};

/// Timers that this program owns.
class COwnTimers final : public CTimersOfRecords {
 public:
    explicit COwnTimers(CRecordTimers& timers) : m_timers(timers) {}
    [[nodiscard]] QStringList Timed(const QStringList& ids) override;
    [[nodiscard]] QHash<QString, QByteArray> Images(const QStringList& ids) override;
    [[nodiscard]] bool Drop(const QStringList& ids) override;
    [[nodiscard]] bool PutBack(const QString& id, const QByteArray& image) override;

 private:
    CRecordTimers& m_timers;
};
