#pragma once

#include "records/ByteStream.h"
#include "timers/ActiveTimer.h"

#include <QHash>
#include <QString>
#include <vector>

/// All timers of the program, in order of creation, found by record identity in constant time.
///
/// Stored form: entry by entry, six items of a byte stream (see docs/timers.md). Only running and paused
/// timers are stored.
class ActiveTimerSet {
 public:
    explicit ActiveTimerSet(const CClock& clock);

    /// The pointer is good until a timer is made or removed.
    [[nodiscard]] ActiveTimer* Find(const QString& recordId);
    [[nodiscard]] const ActiveTimer* Find(const QString& recordId) const;
    [[nodiscard]] int IndexOf(const QString& recordId) const;
    [[nodiscard]] TimerState StateOf(const QString& recordId) const;
    /// None, or an empty text, for a place that isn't there.
    [[nodiscard]] TimerState StateAt(int index) const;
    [[nodiscard]] QString IdAt(int index) const;
    [[nodiscard]] const ActiveTimer& At(int index) const { return m_timers[static_cast<std::size_t>(index)]; }
    [[nodiscard]] int Count() const { return static_cast<int>(m_timers.size()); }
    /// The counts as they stand, without a fold; false and zeroes without a timer.
    bool GetElapsed(const QString& recordId, int& hours, int& minutes, int& seconds) const;
    /// Always true.
    bool Start(const QString& recordId, bool useInitial, int hours, int minutes, int seconds);
    /// False without a running timer.
    bool Pause(const QString& recordId);
    /// Folds and removes. False without a timer.
    bool Stop(const QString& recordId);
    /// Takes a timer out without a fold.
    void Remove(int index);
    [[nodiscard]] bool AnyRunning() const;
    [[nodiscard]] bool AnyActive() const;
    /// Folds every running timer once.
    void FoldAll();

    /// False, and the stream is of no use, when an identity hasn't 32 characters.
    [[nodiscard]] bool Save(ByteStream& stream) const;
    /// Reads to the end, by Put. False at the first entry that can't be read; what came before it stays.
    bool Load(ByteStream& stream);
    /// Takes the place of a timer of the same record, or adds one.
    void Put(const ActiveTimer& entry);
    void Clear();
    [[nodiscard]] const CClock& Clock() const { return m_clock; }

 private:
    const CClock& m_clock;
    std::vector<ActiveTimer> m_timers;
    QHash<QString, int> m_places;
};
