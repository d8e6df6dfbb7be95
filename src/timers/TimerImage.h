#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <optional>

class ActiveTimer;
class ActiveTimerSet;
class CClock;

/// A timer as it is stored, and its true count beside it; empty without one.
struct StoredTimer {
    QByteArray timer;
    QByteArray trueTime;
};

/// In the form in which all timers are stored. Nothing for one that isn't.
[[nodiscard]] std::optional<StoredTimer> ToStored(const ActiveTimer& timer, const CClock& clock);
/// The timer of a record; nothing where it can't be read.
[[nodiscard]] std::optional<ActiveTimer> TimerOf(const StoredTimer& stored, const QString& id,
                                                 const CClock& clock);

/// The same in one piece, for a timer that may be put back: a byte stream of one or two buffers. Empty for
/// one that isn't stored.
[[nodiscard]] QByteArray TimerImageOf(const ActiveTimer& timer, const CClock& clock);
[[nodiscard]] QHash<QString, QByteArray> TimerImagesOf(const ActiveTimerSet& timers);
[[nodiscard]] std::optional<ActiveTimer> TimerOfImage(const QByteArray& image, const QString& id,
                                                      const CClock& clock);
