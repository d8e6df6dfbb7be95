#include "timers/TimerImage.h"

#include "records/ByteStream.h"
#include "timers/ActiveTimerSet.h"
#include "timers/TrueTimes.h"

std::optional<StoredTimer> ToStored(const ActiveTimer& timer, const CClock& clock) {
    ActiveTimerSet set(clock);
    set.Put(timer);
    ByteStream stream;
    if (!set.Save(stream)) return std::nullopt;
    return StoredTimer{stream.Release(), TrueTimesOf(set)};
}

std::optional<ActiveTimer> TimerOf(const StoredTimer& stored, const QString& id, const CClock& clock) {
    ActiveTimerSet set(clock);
    ByteStream stream;
    stream.Attach(stored.timer);
    set.Load(stream);  // what can't be read is no timer
    TakeTrueTimes(stored.trueTime, set);
    const ActiveTimer* timer = set.Find(id);
    return timer ? std::optional(*timer) : std::nullopt;
}

QByteArray TimerImageOf(const ActiveTimer& timer, const CClock& clock) {
    const auto stored = ToStored(timer, clock);
    if (!stored || stored->timer.isEmpty()) return {};
    ByteStream stream;
    stream.PutBuffer(stored->timer);
    if (!stored->trueTime.isEmpty()) stream.PutBuffer(stored->trueTime);
    return stream.Release();
}

QHash<QString, QByteArray> TimerImagesOf(const ActiveTimerSet& timers) {
    QHash<QString, QByteArray> images;
    for (int place = 0; place < timers.Count(); ++place)
        images.insert(timers.IdAt(place), TimerImageOf(timers.At(place), timers.Clock()));
    return images;
}

std::optional<ActiveTimer> TimerOfImage(const QByteArray& image, const QString& id, const CClock& clock) {
    ByteStream stream;
    stream.Attach(image);
    StoredTimer stored;
    if (!stream.GetBuffer(stored.timer)) return std::nullopt;
    if (!stream.AtEnd() && !stream.GetBuffer(stored.trueTime)) return std::nullopt;
    return TimerOf(stored, id, clock);
}
