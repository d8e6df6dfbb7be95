#pragma once

#include "records/CTRecord.h"
#include "timers/ActiveTimer.h"

#include <optional>

class CProfile;

/// A new time record that was being entered, and its timer.
struct StoredDraft {
    CTRecord record;
    std::optional<ActiveTimer> timer;  ///< none when it was stopped in the dialog
};

/// A timer as it is stored, and its true count beside it; empty without one.
struct StoredTimer {
    QByteArray timer;
    QByteArray trueTime;
};

/// The one draft of a new time record whose timer was started before the record is stored, in the profile: a
/// program that is killed meanwhile loses neither. Its stored form is in docs/settings-tree.md.
class CDraftStore {
 public:
    explicit CDraftStore(CProfile& profile) : m_profile(profile) {}

    /// In place of the one before. timer: null without one. False when it could not be written.
    [[nodiscard]] bool Persist(const CTRecord& record, const ActiveTimer* timer, const CClock& clock);
    /// The draft of this record isn't stored any more; another one stays. Writes nothing when there is none.
    [[nodiscard]] bool Discard(const QString& recordId);
    /// What is stored; nothing when nothing is, or it can't be read.
    [[nodiscard]] std::optional<StoredDraft> Read(const CClock& clock) const;

 private:
    [[nodiscard]] bool Write(const QString& id, const QByteArray& record, const StoredTimer& timer);

    CProfile& m_profile;
};
