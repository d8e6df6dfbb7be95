#include "timers/CDraftStore.h"

#include "platform/settings/CProfile.h"
#include "records/ByteStream.h"
#include "records/CVOId.h"
#include "timers/ActiveTimerSet.h"

namespace {

const QString kSection = QStringLiteral("OpenDraft");
const QString kIdentity = QStringLiteral("Identity");
const QString kRecord = QStringLiteral("Record");
const QString kTimer = QStringLiteral("Timer");

/// In the form in which all timers are stored.
bool TimerBytes(const ActiveTimer& timer, const CClock& clock, QByteArray& out) {
    ActiveTimerSet set(clock);
    set.Put(timer);
    ByteStream stream;
    if (!set.Save(stream)) return false;
    out = stream.Release();
    return true;
}

std::optional<ActiveTimer> TimerOf(const QByteArray& bytes, const QString& id, const CClock& clock) {
    ActiveTimerSet set(clock);
    ByteStream stream;
    stream.Attach(bytes);
    set.Load(stream);  // what can't be read is no timer
    const ActiveTimer* timer = set.Find(id);
    return timer ? std::optional(*timer) : std::nullopt;
}

}  // namespace

bool CDraftStore::Write(const QString& id, const QByteArray& record, const QByteArray& timer) {
    return m_profile.Change([&] {
        return m_profile.WriteText(kSection, kIdentity, id) &&
               m_profile.WriteBinary(kSection, kRecord, record) &&
               m_profile.WriteBinary(kSection, kTimer, timer);
    });
}

bool CDraftStore::Persist(const CTRecord& record, const ActiveTimer* timer, const CClock& clock) {
    QByteArray timerBytes;
    if (timer && !TimerBytes(*timer, clock, timerBytes)) return false;
    return Write(record.GetId(), record.ToBytes(), timerBytes);
}

bool CDraftStore::Discard(const QString& recordId) {
    return m_profile.GetText(kSection, kIdentity) != recordId || Write({}, {}, {});
}

std::optional<StoredDraft> CDraftStore::Read(const CClock& clock) const {
    const QString id = m_profile.GetText(kSection, kIdentity).value_or(QString());
    const auto record = m_profile.GetBinary(kSection, kRecord);
    StoredDraft draft;
    if (!IsIdentity(id) || !record || !draft.record.FromBytes(*record, false)) return {};
    draft.record.SetId(id);
    draft.timer = TimerOf(m_profile.GetBinary(kSection, kTimer).value_or(QByteArray()), id, clock);
    return draft;
}
