#include "timers/TrueTimes.h"

#include "records/ByteStream.h"
#include "timers/ActiveTimerSet.h"

#include <QHash>
#include <QtEndian>
#include <array>
#include <optional>

namespace {

constexpr qsizetype kNumberBytes = 8;
constexpr qsizetype kNumbers = 3;  ///< milliseconds, UTC, since boot

QByteArray NumberBytes(const TrueCount& count) {
    const std::array<std::int64_t, kNumbers> numbers{count.milliseconds, count.last.utc,
                                                     count.last.sinceBoot};
    QByteArray bytes(kNumbers * kNumberBytes, '\0');
    for (std::size_t i = 0; i < numbers.size(); ++i)
        qToLittleEndian(numbers[i], bytes.data() + i * static_cast<std::size_t>(kNumberBytes));
    return bytes;
}

/// A timer as it is stored among the timers; empty when it isn't stored.
QByteArray StoredForm(const ActiveTimer& timer, const CClock& clock) {
    ActiveTimerSet one(clock);
    one.Put(timer);
    ByteStream stream;
    return one.Save(stream) ? stream.Release() : QByteArray();
}

struct Entry {
    QByteArray timer;
    TrueCount count;
};

std::optional<Entry> ReadEntry(ByteStream& stream) {
    Entry entry;
    QByteArray numbers;
    if (!stream.GetBuffer(entry.timer) || !stream.GetBuffer(numbers)) return std::nullopt;
    if (!stream.GetBuffer(entry.count.last.boot) || numbers.size() != kNumbers * kNumberBytes)
        return std::nullopt;
    const auto number = [&numbers](std::ptrdiff_t i) {
        return qFromLittleEndian<std::int64_t>(numbers.constData() + i * kNumberBytes);
    };
    entry.count.isKnown = true;
    entry.count.milliseconds = number(0);
    entry.count.last.utc = number(1);
    entry.count.last.sinceBoot = number(2);
    if (entry.count.last.utc < 0 || entry.count.last.sinceBoot < 0) return std::nullopt;
    entry.count.Fold(entry.count.last);  // nothing has passed: only whether it is a count
    return entry;
}

}  // namespace

QByteArray TrueTimesOf(const ActiveTimerSet& timers) {
    ByteStream stream;
    for (int i = 0; i < timers.Count(); ++i) {
        const ActiveTimer& timer = timers.At(i);
        const QByteArray form = StoredForm(timer, timers.Clock());
        if (!timer.trueCount.isKnown || form.isEmpty()) continue;
        stream.PutBuffer(form);
        stream.PutBuffer(NumberBytes(timer.trueCount));
        stream.PutBuffer(timer.trueCount.last.boot);
    }
    return stream.Release();
}

void TakeTrueTimes(const QByteArray& stored, ActiveTimerSet& timers) {
    QHash<QByteArray, TrueCount> counts;
    ByteStream stream;
    stream.Attach(stored);
    while (!stream.AtEnd()) {
        const auto entry = ReadEntry(stream);
        if (!entry) break;
        counts.insert(entry->timer, entry->count);
    }
    for (int i = 0; i < timers.Count(); ++i) {
        ActiveTimer& timer = *timers.Find(timers.IdAt(i));
        const auto count = counts.constFind(StoredForm(timer, timers.Clock()));
        if (count != counts.cend()) timer.trueCount = *count;
    }
}
