#include "timers/CDraftStore.h"

#include "platform/settings/CProfile.h"
#include "records/ByteStream.h"
#include "records/CVOId.h"
#include "timers/ActiveTimerSet.h"
#include "timers/TrueTimes.h"

namespace {

const QString kSection = QStringLiteral("OpenDraft");
const QString kIdentity = QStringLiteral("Identity");
const QString kRecord = QStringLiteral("Record");
const QString kTimer = QStringLiteral("Timer");
const QString kTrueTime = QStringLiteral("TrueTime");

/// In the form in which all timers are stored.
bool ToStored(const ActiveTimer& timer, const CClock& clock, StoredTimer& out) {
    ActiveTimerSet set(clock);
    set.Put(timer);
    ByteStream stream;
    if (!set.Save(stream)) return false;
    out = {stream.Release(), TrueTimesOf(set)};
    return true;
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

}  // namespace

bool CDraftStore::Write(const QString& id, const QByteArray& record, const StoredTimer& timer) {
    return m_profile.Change([&] {
        return m_profile.WriteText(kSection, kIdentity, id) &&
               m_profile.WriteBinary(kSection, kRecord, record) &&
               m_profile.WriteBinary(kSection, kTimer, timer.timer) &&
               m_profile.WriteBinary(kSection, kTrueTime, timer.trueTime);
    });
}

bool CDraftStore::Persist(const CTRecord& record, const ActiveTimer* timer, const CClock& clock) {
    StoredTimer stored;
    if (timer && !ToStored(*timer, clock, stored)) return false;
    return Write(record.GetId(), record.ToBytes(), stored);
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
    const auto bytes = [this](const QString& entry) {
        return m_profile.GetBinary(kSection, entry).value_or(QByteArray());
    };
    draft.timer = TimerOf({bytes(kTimer), bytes(kTrueTime)}, id, clock);
    return draft;
}
