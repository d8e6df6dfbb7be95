#include "timers/CDraftStore.h"

#include "platform/settings/CProfile.h"
#include "records/CVOId.h"
#include "timers/TimerImage.h"

namespace {

const QString kSection = QStringLiteral("OpenDraft");
const QString kRecord = QStringLiteral("Record");
const QString kTimer = QStringLiteral("Timer");
const QString kTrueTime = QStringLiteral("TrueTime");
/// Programs before this one knew a single draft: its values bear no identity, which was one of its own.
const QString kOnlyIdentity = QStringLiteral("Identity");
const QString kOnly;

/// What stands behind the names of the values of a record's draft.
QString MarkOf(const QString& recordId) {
    return u'-' + recordId;
}

}  // namespace

bool CDraftStore::Persist(const CTRecord& record, const ActiveTimer* timer, const CClock& clock) {
    StoredTimer stored;
    if (timer) {
        const auto form = ToStored(*timer, clock);
        if (!form) return false;
        stored = *form;
    }
    const QString mark = MarkOf(record.GetId());
    return m_profile.Change([&] {
        return m_profile.WriteBinary(kSection, kRecord + mark, record.ToBytes()) &&
               m_profile.WriteBinary(kSection, kTimer + mark, stored.timer) &&
               m_profile.WriteBinary(kSection, kTrueTime + mark, stored.trueTime);
    });
}

bool CDraftStore::Remove(const QString& mark) {
    for (const QString& value : {kRecord, kTimer, kTrueTime})
        if (!m_profile.Remove(kSection, value + mark)) return false;
    return true;
}

bool CDraftStore::Discard(const QString& recordId) {
    const QString mark = MarkOf(recordId);
    const bool isOnly = m_profile.GetText(kSection, kOnlyIdentity) == recordId;
    if (!isOnly && !m_profile.GetBinary(kSection, kRecord + mark)) return true;
    return m_profile.Change([&] {
        return Remove(mark) && (!isOnly || (Remove(kOnly) && m_profile.Remove(kSection, kOnlyIdentity)));
    });
}

std::optional<StoredDraft> CDraftStore::ReadOne(const QString& id, const QString& mark,
                                                const CClock& clock) const {
    const auto record = m_profile.GetBinary(kSection, kRecord + mark);
    StoredDraft draft;
    if (!IsIdentity(id) || !record || !draft.record.FromBytes(*record, false)) return {};
    draft.record.SetId(id);
    const auto bytes = [&](const QString& value) {
        return m_profile.GetBinary(kSection, value + mark).value_or(QByteArray());
    };
    draft.timer = TimerOf({bytes(kTimer), bytes(kTrueTime)}, id, clock);
    return draft;
}

std::vector<StoredDraft> CDraftStore::Read(const CClock& clock) const {
    std::vector<StoredDraft> drafts;
    const auto add = [&](const QString& id, const QString& mark) {
        if (auto draft = ReadOne(id, mark, clock)) drafts.push_back(std::move(*draft));
    };
    for (const auto& [name, value] : m_profile.Section(kSection)) {
        const QString id = name.section(u'-', 1);
        if (name == kRecord + MarkOf(id)) add(id, MarkOf(id));
    }
    const QString only = m_profile.GetText(kSection, kOnlyIdentity).value_or(QString());
    if (!only.isEmpty() && !m_profile.GetBinary(kSection, kRecord + MarkOf(only))) add(only, kOnly);
    return drafts;
}
