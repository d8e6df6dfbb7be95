#pragma once

#include "app/CTimerService.h"
#include "app/Hints.h"
#include "timers/ActiveTimerSet.h"
#include "timers/CDraftStore.h"
#include "timers/TimerOutcome.h"
#include "timers/TrueTime.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <utility>

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
    /// started is not exempt from the action. When the action fails, it isn't started.
    TimerOutcome StartRecordTimer(const QString& recordId);
    /// Writes the count of the last fold, seconds dropped, rounded, into the record's duration, and removes
    /// the timer. There is no fold before it: that is the caller's (FoldAndStore). The record is durable
    /// before the timer goes; when it can't be written, the timer stays as it was, running or paused. A
    /// program that is killed in between leaves both, and a note of the stop by which the next one to read
    /// the timers sees that this one has ended (StopNote). By true time the record gets that instead, in the
    /// same way; without it that is no timer.
    TimerOutcome StopRecordTimer(const QString& recordId, CountBy by = CountBy::Clock);
    TimerOutcome PauseRecordTimer(const QString& recordId);
    /// From the last to the first, running and paused ones; the first failure ends it.
    TimerOutcome StopAllTimers();
    /// From the first to the last, running ones; the first failure ends it.
    TimerOutcome PauseAllTimers();
    /// For the record dialog: runs the timerOnNewTimer action, then starts from the duration of the record
    /// being edited, stored or not. Sends no hint for this timer. When the action fails, it isn't started.
    TimerOutcome StartDraftTimer(const CTRecord& draft);

    /// Folds all running timers once and stores the fold: before anything pauses, stops or shows timers.
    /// Timers whose record another program has deleted go, as they do when it is deleted here.
    void FoldAndStore();
    /// At the end of the window: the timerOnExit action, then the timers into the profile.
    void SaveTimers();
    /// Those of them that ran until that action paused them, and are paused still; each is given once.
    [[nodiscard]] QStringList TakePausedAtExit();
    /// Paused timers count on from now. It is as if they had never been paused, so nothing happens to others.
    TimerOutcome GoOn(const QStringList& recordIds);
    /// At the start. False when the stored timers can be read only in part; that part is in the set. A timer
    /// whose stop is in its record already isn't.
    bool RestoreTimers();
    /// Timers are gone with damaged settings, or what is stored of them can be read in part only, and no
    /// timer was started since.
    [[nodiscard]] bool AreLost() const;
    /// The user knows it.
    void ForgetLoss();
    /// Puts a timer back that went with a change of its record, which was undone: it goes on from where it
    /// was, whatever a new timer would do to the others. Takes the place of one that the record has. False
    /// when it could not be saved.
    [[nodiscard]] bool PutBack(const ActiveTimer& timer);
    /// Who is to hear of timers that are taken away, as there is no record of theirs (any more): they are the
    /// only place where their count stands.
    using Tell = std::function<void(const ActiveTimer& orphan)>;
    void OnOrphan(Tell tell) { m_tellOrphan = std::move(tell); }
    /// What was read is what is stored: no timer was left out for a stop that had been cut off.
    [[nodiscard]] bool IsSettled() const { return m_storedNote.isEmpty(); }
    /// Writes the set when it differs from what was last read or written; part of every change above. False
    /// when it could not be written.
    bool StoreTimers();
    /// Why they could not be saved.
    [[nodiscard]] const QString& SaveError() const;

    // The timer of a stored record, stopped in the dialog of the record: the set has it no more, and what it
    // has counted is in the dialog alone. Until that ends the settings keep the timer, paused, with a note of
    // the stop, so that a program that is killed meanwhile loses nothing of it.

    /// Takes the timer out of the set, folded. False without one.
    [[nodiscard]] bool StopInDialog(const QString& recordId);
    [[nodiscard]] bool IsStoppedInDialog(const QString& recordId) const {
        return m_stoppedInDialog && m_stoppedInDialog->timer.recordId == recordId;
    }
    /// What the dialog has made of the record: once it is stored like that, the timer has ended. False when
    /// that could not be saved.
    [[nodiscard]] bool NoteStopInDialog(const CTRecord& entered);
    /// The record was stored, or the user has cancelled: the settings let go of the timer.
    void EndStopInDialog(const QString& recordId);

    // A new record with a timer, while its dialog is open. The record isn't stored yet, and so is no timer of
    // it: both are persisted as a draft, until Keep.

    /// Whether the record waits to be stored and has, or had, a timer.
    [[nodiscard]] bool IsAwaited(const QString& recordId) const { return m_awaited.contains(recordId); }
    /// Persists the draft of an awaited record with its timer as it stands; false when it could not be.
    [[nodiscard]] bool PersistDraft(const CTRecord& draft);
    /// The same at the end of the window, with its dialog open: the timer pauses, if the timerOnExit action
    /// says anything but to let it run. There is no record into which it could be stopped. A timer of a
    /// stored record that was stopped in the dialog is back, paused, as nobody has decided about it.
    void PersistDraftAtExit(const CTRecord& draft);
    /// The user has cancelled, or doesn't want it back; a timer that was stopped in the dialog is gone.
    void DiscardDraft(const QString& recordId);
    /// What an earlier run has left, its timer folded to now; one after the other, without those that were
    /// offered already. A draft whose record was stored after all is none: its timer is taken into the set.
    [[nodiscard]] std::optional<StoredDraft> TakeOverDraft(const QStringList& offered = {});
    /// The record of a draft is being entered again: its timer is in the set from here on.
    void AwaitAgain(const StoredDraft& draft);

    [[nodiscard]] ActiveTimerSet& Set() { return m_timers; }

    static constexpr int kStopOnNewTimer = 2;  ///< the setting timerOnNewTimer: the others are stopped

    [[nodiscard]] TimerState StateOf(const QString& recordId) const override {
        return m_timers.StateOf(recordId);
    }
    [[nodiscard]] bool RunNewTimerAction() override;
    [[nodiscard]] bool StartFromZero(const QString& recordId) override;
    [[nodiscard]] bool Drop(const QString& recordId) override;
    [[nodiscard]] bool Keep(const QString& recordId) override;

 private:
    [[nodiscard]] const CTRecord* Fetch(const QString& recordId);
    TimerOutcome StopOne(const QString& recordId, CountBy by = CountBy::Clock);
    [[nodiscard]] CTRecord Stopped(const CTRecord& record, int hours, int minutes) const;
    [[nodiscard]] bool NoteStop(const CTRecord& stopped);
    void ForgetStop(const QString& recordId);
    void Settle(const QByteArray& note);
    TimerOutcome PauseOne(const QString& recordId);
    TimerOutcome StopEach();
    TimerOutcome PauseEach();
    TimerOutcome RunAction(int action);
    TimerOutcome RunActionForNewTimer();
    bool DropOrphans();
    /// What is stored of the timers.
    struct Stored {
        QByteArray content;
        QByteArray note;
    };
    /// A timer that was stopped in a dialog, as the settings keep it.
    struct StoppedInDialog {
        ActiveTimer timer;
        QByteArray note;
    };
    [[nodiscard]] QByteArray Note() const;
    [[nodiscard]] Stored Present() const;
    [[nodiscard]] ActiveTimerSet Read(const QByteArray& content) const;
    [[nodiscard]] ActiveTimerSet Storable() const;
    [[nodiscard]] bool Content(QByteArray& out) const;
    [[nodiscard]] QByteArray StoredTrueTimes() const;
    [[nodiscard]] QStringList RunningIds() const;
    [[nodiscard]] bool PutAsideUnreadable(const QByteArray& content);
    [[nodiscard]] TimerOutcome Started();
    [[nodiscard]] bool Write(QByteArray& content);
    void TakeOver(const Stored& present);
    [[nodiscard]] TimerOutcome Saved(const TimerOutcome& outcome);
    void Announce(Hint hint, const QString& recordId);

    ActiveTimerSet& m_timers;
    CVelmarchDoc& m_document;
    CCfgStore& m_settings;
    /// Timers of records that the store doesn't have yet; they are saved once it has.
    QSet<QString> m_awaited;
    std::optional<QByteArray> m_stored;  ///< what this process last read or wrote
    bool m_isCut = false;                ///< it can be read in part only
    QByteArray m_storedNote;             ///< the same of the note of a stop
    QByteArray m_note;                   ///< of the stop that is being made; empty without one
    std::optional<StoppedInDialog> m_stoppedInDialog;
    CDraftStore m_drafts;
    Tell m_tellOrphan;
};
