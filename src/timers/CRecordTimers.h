#pragma once

#include "app/CTimerService.h"
#include "app/Hints.h"
#include "timers/ActiveTimerSet.h"
#include "timers/CDraftStore.h"
#include "timers/TrueTime.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <optional>

class CVelmarchDoc;
class CCfgStore;
class CTRecord;

/// Turns timers into changes of records, and keeps the timer set in the settings: it is saved whenever a
/// timer starts, pauses, stops or is dropped, so a killed process loses none.
///
/// Hints 3 started, 4 paused, 5 stopped are sent from here, once for each timer that did so: callers send
/// none of their own.
///
/// Two programs may keep their timers in the same settings. Each save reads what the other one has written
/// since, inside the same change of the settings, and takes it over (TimerMerge.h); so a console command and
/// a starting window never overwrite one another's timers, and reading needs no lock.
class CRecordTimers final : public CTimerService {
 public:
    CRecordTimers(ActiveTimerSet& timers, CVelmarchDoc& document, CCfgStore& settings);

    /// Runs the timerOnNewTimer action, then starts from the record's duration or from zero. The timer being
    /// started is not exempt from the action. False without such a record, or when the timer runs but could
    /// not be saved.
    bool StartRecordTimer(const QString& recordId);
    /// Writes the count of the last fold, seconds dropped, rounded, into the record's duration, and removes
    /// the timer. There is no fold before it: that is the caller's (FoldAndStore). When the record can't be
    /// written, the timer stays. By true time the record gets that instead, in the same way; false without
    /// it.
    bool StopRecordTimer(const QString& recordId, CountBy by = CountBy::Clock);
    bool PauseRecordTimer(const QString& recordId);
    /// From the last to the first, running and paused ones; the first failure ends it.
    bool StopAllTimers();
    /// From the first to the last, running ones; the first failure ends it.
    bool PauseAllTimers();
    /// For the record dialog: runs the timerOnNewTimer action, then starts from the duration of the record
    /// being edited, stored or not. Sends no hint for this timer.
    void StartDraftTimer(const CTRecord& draft);

    /// Folds all running timers once and stores the fold: before anything pauses, stops or shows timers.
    /// Timers whose record another program has deleted go, as they do when it is deleted here.
    void FoldAndStore();
    /// At the end of the window: the timerOnExit action, then the timers into the profile.
    void SaveTimers();
    /// At the start. False when the stored timers can be read only in part; that part is in the set.
    bool RestoreTimers();
    /// Writes the set when it differs from what was last read or written; part of every change above. False
    /// when it could not be written.
    bool StoreTimers();

    // A new record with a timer, while its dialog is open. The record isn't stored yet, and so is no timer of
    // it: both are persisted as a draft, until Keep.

    /// Whether the record waits to be stored and has, or had, a timer.
    [[nodiscard]] bool IsAwaited(const QString& recordId) const { return m_awaited.contains(recordId); }
    /// Persists the draft of an awaited record with its timer as it stands; false when it could not be.
    [[nodiscard]] bool PersistDraft(const CTRecord& draft);
    /// The same at the end of the window, with its dialog open: the timer pauses, if the timerOnExit action
    /// says anything but to let it run. There is no record into which it could be stopped.
    void PersistDraftAtExit(const CTRecord& draft);
    /// The user has cancelled, or doesn't want it back.
    void DiscardDraft(const QString& recordId);
    /// What an earlier run has left, its timer folded to now. A draft whose record was stored after all is
    /// none: its timer is taken into the set.
    [[nodiscard]] std::optional<StoredDraft> TakeOverDraft();
    /// The record of a draft is being entered again: its timer is in the set from here on.
    void AwaitAgain(const StoredDraft& draft);

    [[nodiscard]] ActiveTimerSet& Set() { return m_timers; }

    [[nodiscard]] TimerState StateOf(const QString& recordId) const override {
        return m_timers.StateOf(recordId);
    }
    bool RunNewTimerAction() override;
    bool StartFromZero(const QString& recordId) override;
    [[nodiscard]] bool Drop(const QString& recordId) override;
    void Keep(const QString& recordId) override;

 private:
    [[nodiscard]] const CTRecord* Fetch(const QString& recordId);
    bool StopOne(const QString& recordId, CountBy by = CountBy::Clock);
    bool PauseOne(const QString& recordId);
    bool StopEach();
    bool PauseEach();
    bool RunAction(int action);
    void RunActionForNewTimer();
    bool DropOrphans();
    [[nodiscard]] ActiveTimerSet Storable() const;
    [[nodiscard]] bool Content(QByteArray& out) const;
    [[nodiscard]] QByteArray StoredTrueTimes() const;
    void TakeOver(const QByteArray& present);
    void Announce(Hint hint, const QString& recordId);

    ActiveTimerSet& m_timers;
    CVelmarchDoc& m_document;
    CCfgStore& m_settings;
    /// Timers of records that the store doesn't have yet; they are saved once it has.
    QSet<QString> m_awaited;
    std::optional<QByteArray> m_stored;  ///< what this process last read or wrote
    CDraftStore m_drafts;
};
