#pragma once

#include "app/CTimerDesk.h"
#include "platform/CClock.h"
#include "records/ByteStream.h"

#include <QHash>
#include <QString>
#include <cstdint>
#include <vector>

/// One timer: a count and the moment up to which it is good. Nothing ticks inside; a fold adds the time since
/// then.
class ActiveTimer {
 public:
    QString recordId;         ///< 32 characters in a stored entry
    std::uint16_t hours = 0;  ///< not limited to 24
    std::uint16_t minutes = 0;
    std::uint16_t seconds = 0;
    TimerState state = TimerState::Stopped;
    SYSTEMTIME lastUpdate;

    void Begin(const CClock& clock, bool useInitial, std::uint16_t h, std::uint16_t m, std::uint16_t s);
    /// Adds the time since the last fold. Only clock times count, not dates; a clock set back adds nothing.
    /// False then.
    bool UpdateElapsed(const CClock& clock);

 private:
    void AddMinutesToCount(int m);
    void AddSecondsToCount(int s);
};

/// All timers of the program, in order of creation, found by record identity (constant time).
class ActiveTimerSet {
 public:
    explicit ActiveTimerSet(const CClock& clock);

    [[nodiscard]] ActiveTimer* Find(const QString& recordId);
    [[nodiscard]] int IndexOf(const QString& recordId) const;
    [[nodiscard]] TimerState StateOf(const QString& recordId) const;
    [[nodiscard]] TimerState StateAt(int index) const;
    [[nodiscard]] QString IdAt(int index) const;
    [[nodiscard]] int Count() const { return static_cast<int>(m_timers.size()); }
    /// The counts as they stand, without a fold; false and zeroes without a timer.
    bool GetElapsed(const QString& recordId, int& hours, int& minutes, int& seconds) const;
    bool Start(const QString& recordId, bool useInitial, int hours, int minutes, int seconds);
    bool Pause(const QString& recordId);
    bool Stop(const QString& recordId);
    void Remove(int index);
    [[nodiscard]] bool AnyRunning() const;
    [[nodiscard]] bool AnyActive() const;
    /// Folds every running timer once.
    void FoldAll();

    [[nodiscard]] bool Save(ByteStream& stream) const;
    bool Load(ByteStream& stream);
    void Put(const ActiveTimer& entry);
    void Clear();
    [[nodiscard]] const CClock& Clock() const { return m_clock; }

 private:
    const CClock& m_clock;
    std::vector<ActiveTimer> m_timers;
    QHash<QString, int> m_places;
};
