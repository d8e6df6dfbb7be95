#include "timers/ActiveTimerSet.h"

#include <QtEndian>
#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr qsizetype kIdCharacters = 32;
constexpr qsizetype kClockBytes = 16;

bool IsActive(TimerState state) {
    return state == TimerState::Paused || state == TimerState::Running;
}

/// The eight fields in their order, little-endian, 16 bits each.
QByteArray ClockBytes(const SYSTEMTIME& time) {
    const std::array fields{time.wYear, time.wMonth,  time.wDayOfWeek, time.wDay,
                            time.wHour, time.wMinute, time.wSecond,    time.wMilliseconds};
    QByteArray bytes(kClockBytes, '\0');
    for (std::size_t i = 0; i < fields.size(); ++i) qToLittleEndian(fields[i], bytes.data() + i * 2);
    return bytes;
}

SYSTEMTIME ClockOf(const QByteArray& bytes) {
    const auto field = [&bytes](std::ptrdiff_t i) {
        return qFromLittleEndian<std::uint16_t>(bytes.constData() + i * 2);
    };
    return {field(0), field(1), field(2), field(3), field(4), field(5), field(6), field(7)};
}

std::optional<ActiveTimer> ReadEntry(ByteStream& stream) {
    ActiveTimer entry;
    entry.recordId = stream.GetString();
    entry.hours = static_cast<std::uint16_t>(stream.GetInt());
    entry.minutes = static_cast<std::uint16_t>(stream.GetInt());
    entry.seconds = static_cast<std::uint16_t>(stream.GetInt());
    entry.state = static_cast<TimerState>(stream.GetInt());
    QByteArray clock;
    const bool isRead = stream.GetBuffer(clock) && !stream.IsBroken();
    if (!isRead || clock.size() != kClockBytes || entry.recordId.size() != kIdCharacters) return std::nullopt;
    entry.lastUpdate = ClockOf(clock);
    return entry;
}

}  // namespace

ActiveTimerSet::ActiveTimerSet(const CClock& clock) : m_clock(clock) {}

// --- Looking up

int ActiveTimerSet::IndexOf(const QString& recordId) const {
    return m_places.value(recordId, -1);
}

ActiveTimer* ActiveTimerSet::Find(const QString& recordId) {
    const int index = IndexOf(recordId);
    return index < 0 ? nullptr : &m_timers[static_cast<std::size_t>(index)];
}

const ActiveTimer* ActiveTimerSet::Find(const QString& recordId) const {
    const int index = IndexOf(recordId);
    return index < 0 ? nullptr : &At(index);
}

TimerState ActiveTimerSet::StateOf(const QString& recordId) const {
    return StateAt(IndexOf(recordId));
}

TimerState ActiveTimerSet::StateAt(int index) const {
    return index < 0 || index >= Count() ? TimerState::None : At(index).state;
}

QString ActiveTimerSet::IdAt(int index) const {
    return index < 0 || index >= Count() ? QString() : At(index).recordId;
}

bool ActiveTimerSet::GetElapsed(const QString& recordId, int& hours, int& minutes, int& seconds) const {
    const ActiveTimer none;
    const ActiveTimer* timer = Find(recordId);
    const ActiveTimer& counts = timer ? *timer : none;
    hours = counts.hours;
    minutes = counts.minutes;
    seconds = counts.seconds;
    return timer != nullptr;
}

bool ActiveTimerSet::AnyRunning() const {
    return std::ranges::any_of(m_timers,
                               [](const auto& timer) { return timer.state == TimerState::Running; });
}

bool ActiveTimerSet::AnyActive() const {
    return std::ranges::any_of(m_timers, [](const auto& timer) { return IsActive(timer.state); });
}

// --- Changing

bool ActiveTimerSet::Start(const QString& recordId, bool useInitial, int hours, int minutes, int seconds) {
    ActiveTimer* timer = Find(recordId);
    if (!timer) {
        ActiveTimer entry;
        entry.recordId = recordId;
        Put(entry);
        timer = Find(recordId);
    }
    const auto count = [](int value) { return static_cast<std::uint16_t>(value); };
    timer->Begin(m_clock, useInitial, count(hours), count(minutes), count(seconds));
    return true;
}

bool ActiveTimerSet::Pause(const QString& recordId) {
    ActiveTimer* timer = Find(recordId);
    if (!timer || timer->state != TimerState::Running) return false;
    timer->UpdateElapsed(m_clock);
    timer->state = TimerState::Paused;
    return true;
}

bool ActiveTimerSet::Stop(const QString& recordId) {
    ActiveTimer* timer = Find(recordId);
    if (!timer) return false;
    if (timer->state == TimerState::Stopped) return true;
    timer->UpdateElapsed(m_clock);
    timer->state = TimerState::Stopped;
    Remove(IndexOf(recordId));
    return true;
}

void ActiveTimerSet::Remove(int index) {
    if (index < 0 || index >= Count()) return;
    m_places.remove(At(index).recordId);
    m_timers.erase(m_timers.begin() + index);
    for (int i = index; i < Count(); ++i) m_places[At(i).recordId] = i;
}

void ActiveTimerSet::Put(const ActiveTimer& entry) {
    if (ActiveTimer* timer = Find(entry.recordId)) {
        *timer = entry;
        return;
    }
    m_places.insert(entry.recordId, Count());
    m_timers.push_back(entry);
}

void ActiveTimerSet::Clear() {
    m_timers.clear();
    m_places.clear();
}

void ActiveTimerSet::FoldAll() {
    for (ActiveTimer& timer : m_timers) timer.UpdateElapsed(m_clock);
}

// --- Stored form

bool ActiveTimerSet::Save(ByteStream& stream) const {
    for (const ActiveTimer& timer : m_timers) {
        if (!IsActive(timer.state)) continue;
        if (timer.recordId.size() != kIdCharacters) return false;
        stream.PutString(timer.recordId);
        stream.PutInt(timer.hours);
        stream.PutInt(timer.minutes);
        stream.PutInt(timer.seconds);
        stream.PutInt(static_cast<std::int32_t>(timer.state));
        stream.PutBuffer(ClockBytes(timer.lastUpdate));
    }
    return true;
}

bool ActiveTimerSet::Load(ByteStream& stream) {
    while (!stream.AtEnd()) {
        const auto entry = ReadEntry(stream);
        if (!entry) return false;
        if (IsActive(entry->state)) Put(*entry);
    }
    return true;
}
