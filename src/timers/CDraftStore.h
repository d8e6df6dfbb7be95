#pragma once

#include "records/CTRecord.h"
#include "timers/ActiveTimer.h"

#include <optional>
#include <vector>

class CProfile;

/// A new time record that was being entered, and its timer.
struct StoredDraft {
    CTRecord record;
    std::optional<ActiveTimer> timer;  ///< none when it was stopped in the dialog
};

/// The drafts of new time records whose timers were started before the records are stored, in the profile: a
/// program that is killed meanwhile loses neither. Their stored form is in docs/settings-tree.md.
class CDraftStore {
 public:
    explicit CDraftStore(CProfile& profile) : m_profile(profile) {}

    /// In place of an earlier draft of the same record; those of others stay. timer: null without one. False
    /// when it could not be written.
    [[nodiscard]] bool Persist(const CTRecord& record, const ActiveTimer* timer, const CClock& clock);
    /// The draft of this record isn't stored any more. Writes nothing when there is none.
    [[nodiscard]] bool Discard(const QString& recordId);
    /// All that are stored and can be read.
    [[nodiscard]] std::vector<StoredDraft> Read(const CClock& clock) const;

 private:
    /// mark: what stands behind the names of the values.
    [[nodiscard]] bool Remove(const QString& mark);
    [[nodiscard]] std::optional<StoredDraft> ReadOne(const QString& id, const QString& mark,
                                                     const CClock& clock) const;

    CProfile& m_profile;
};
