#pragma once

#include <QStringList>

class CTimerService;

/// The timers of records that are being deleted, wherever they are owned.
class CTimersOfRecords {
 public:
    virtual ~CTimersOfRecords() = default;
    /// Those of the records that have a timer.
    [[nodiscard]] virtual QStringList Timed(const QStringList& ids) = 0;
    /// Takes out timers whose records are gone, without a fold. False when it could not be saved; such timers
    /// go with the next fold at the latest.
    [[nodiscard]] virtual bool Drop(const QStringList& ids) = 0;
};

/// Timers that this program owns.
class COwnTimers final : public CTimersOfRecords {
 public:
    explicit COwnTimers(CTimerService& timers) : m_timers(timers) {}
    [[nodiscard]] QStringList Timed(const QStringList& ids) override;
    [[nodiscard]] bool Drop(const QStringList& ids) override;

 private:
    CTimerService& m_timers;
};
