#include "timers/CRecordTimers.h"

#include "app/CVelmarchDoc.h"
#include "app/HomeFiles.h"
#include "calendar/NumberText.h"
#include "config/CCfgStore.h"
#include "records/CTRecord.h"
#include "records/NamedChange.h"
#include "timers/StopNote.h"
#include "timers/TimerImage.h"
#include "timers/TimerMerge.h"
#include "timers/TrueTimes.h"

#include <utility>
#include <vector>

namespace {

/// What happens to other timers, by timerOnNewTimer and timerOnExit.
namespace Action {
constexpr int kNothing = 0;
constexpr int kPause = 1;
constexpr int kStop = CRecordTimers::kStopOnNewTimer;
}  // namespace Action

const QString kSection = QStringLiteral("ActiveTimers");
const QString kEntry = QStringLiteral("Content");
const QString kTrueTimes = QStringLiteral("TrueTimes");
const QString kPausedAtExit = QStringLiteral("PausedAtExit");
const QString kNote = QStringLiteral("Stopping");
const QString kUnreadable = QStringLiteral("Unreadable");

using End = TimerOutcome::End;

}  // namespace

CRecordTimers::CRecordTimers(ActiveTimerSet& timers, CVelmarchDoc& document, CCfgStore& settings)
    : m_timers(timers), m_document(document), m_settings(settings), m_drafts(settings.Profile()) {}

const CTRecord* CRecordTimers::Fetch(const QString& recordId) {
    return static_cast<const CTRecord*>(m_document.FetchRecord(RecordKind::Time, recordId));
}

void CRecordTimers::Announce(Hint hint, const QString& recordId) {
    m_document.NotifyViews(hint, {recordId});
}

// --- One timer

TimerOutcome CRecordTimers::StartRecordTimer(const QString& recordId) {
    if (!Fetch(recordId)) return {End::NoRecord};
    if (const TimerOutcome action = RunActionForNewTimer(); !action) return Saved(action);
    // The action may have stopped this very timer: the duration is then the one that it wrote.
    const CTRecord* record = Fetch(recordId);
    if (!record) return Saved({End::NoRecord});
    const SpanField& duration = record->spans.duration;
    if (duration.IsSet())
        m_timers.Start(recordId, true, duration.hours, duration.minutes, 0);
    else
        m_timers.Start(recordId, false, 0, 0, 0);
    Announce(Hint::TimerStarted, recordId);
    return Started();
}

/// Timers that were lost before are no news any more.
TimerOutcome CRecordTimers::Started() {
    const TimerOutcome saved = Saved({});
    if (saved) static_cast<void>(NoteTimersLost(m_settings.Profile(), false));
    return saved;
}

TimerOutcome CRecordTimers::StartDraftTimer(const CTRecord& draft) {
    const QString id = draft.GetId();
    if (const TimerOutcome action = RunActionForNewTimer(); !action) return Saved(action);
    const SpanField& duration = draft.spans.duration;
    const bool isNew = m_timers.StateOf(id) == TimerState::None && !Fetch(id);
    if (isNew) m_awaited.insert(id);
    m_timers.Start(id, duration.IsSet(), duration.hours, duration.minutes, 0);
    if (IsStoppedInDialog(id)) m_stoppedInDialog.reset();
    return Started();
}

/// Saves what was done so far, also where it ended early.
TimerOutcome CRecordTimers::Saved(const TimerOutcome& outcome) {
    const bool isSaved = StoreTimers();
    return outcome && !isSaved ? TimerOutcome{End::NotSaved} : outcome;
}

/// The stop is in the record then. Where the timer can't be taken out of the settings by now, the note beside
/// it says that it has ended.
TimerOutcome CRecordTimers::StopRecordTimer(const QString& recordId, CountBy by) {
    const TimerOutcome outcome = StopOne(recordId, by);
    if (outcome) static_cast<void>(StoreTimers());
    return outcome;
}

TimerOutcome CRecordTimers::StopOne(const QString& recordId, CountBy by) {
    const CTRecord* record = Fetch(recordId);
    if (!record) return {End::NoRecord};
    int hours = 0, minutes = 0, seconds = 0;
    if (!m_timers.GetElapsed(recordId, hours, minutes, seconds)) return {End::NoTimer};
    if (by == CountBy::TrueTime && !m_timers.Find(recordId)->trueCount.GetElapsed(hours, minutes))
        return {End::NoTimer};
    const CTRecord stopped = Stopped(*record, hours, minutes);
    if (!NoteStop(stopped)) return {End::NotSaved};
    if (!m_timers.Find(recordId)) return {End::NoTimer};  // another program was quicker
    const NamedChange named(m_document.Store(), ChangeKind::TimerStop);
    if (CStoreJournal* journal = m_document.Store().Manager().Journal())
        journal->NoteTimer(recordId, TimerImageOf(*m_timers.Find(recordId), m_timers.Clock()));
    if (!m_document.ModifyRecord(stopped, recordId, {Notify::Yes, Commit::Now})) {
        ForgetStop(recordId);
        return {End::NotInRecord};
    }
    m_note.clear();
    m_timers.Stop(recordId);
    Announce(Hint::TimerStopped, recordId);
    return {};
}

CTRecord CRecordTimers::Stopped(const CTRecord& record, int hours, int minutes) const {
    CTRecord stopped;
    stopped.Copy(record);
    RoundMinutes(hours, minutes, m_settings.roundDurationMinutes, m_settings.roundDurationType, nullptr);
    const bool isStartKept = stopped.HasStart() && stopped.HasEnd() && m_settings.lockStartOnDurationEdit;
    stopped.SetDuration(hours, minutes, !isStartKept);
    return stopped;
}

/// A timer that was never saved needs no note: it can't be left behind.
bool CRecordTimers::NoteStop(const CTRecord& stopped) {
    if (!Read(m_stored.value_or(QByteArray())).Find(stopped.GetId())) return true;
    m_note = StopNote::Of(stopped).ToBytes();
    const bool isNoted = StoreTimers();
    if (!isNoted || !m_timers.Find(stopped.GetId())) m_note.clear();
    return isNoted;
}

/// The record could not be written: the timer was not touched, and the views show again what is stored.
void CRecordTimers::ForgetStop(const QString& recordId) {
    m_note.clear();
    static_cast<void>(StoreTimers());  // a note that stays finds the record as it was, and says nothing
    if (m_document.IsVisible(recordId))
        static_cast<void>(m_document.RefreshRecords(RecordKind::Time, {recordId}));
}

TimerOutcome CRecordTimers::PauseRecordTimer(const QString& recordId) {
    const TimerOutcome outcome = PauseOne(recordId);
    return outcome ? Saved(outcome) : outcome;
}

TimerOutcome CRecordTimers::PauseOne(const QString& recordId) {
    if (!m_awaited.contains(recordId) && !Fetch(recordId)) return {End::NoRecord};
    if (!m_timers.Pause(recordId)) return {End::NoTimer};
    Announce(Hint::TimerPaused, recordId);
    return {};
}

bool CRecordTimers::PutBack(const ActiveTimer& timer) {
    m_timers.Put(timer);
    Announce(timer.state == TimerState::Running ? Hint::TimerStarted : Hint::TimerPaused, timer.recordId);
    return StoreTimers();
}

// --- All of them

/// As with one of them, what is stopped is in its record whether the timers can be saved or not.
TimerOutcome CRecordTimers::StopAllTimers() {
    const TimerOutcome stopped = StopEach();
    static_cast<void>(StoreTimers());
    return stopped;
}

TimerOutcome CRecordTimers::StopEach() {
    const CVelmarchDoc::ChangeScope changing(m_document);
    for (int i = m_timers.Count() - 1; i >= 0; --i) {
        const QString id = m_timers.IdAt(i);
        const TimerState state = m_timers.StateAt(i);
        if (state != TimerState::Running && state != TimerState::Paused) continue;
        if (m_awaited.contains(id)) continue;  // there is no record yet to stop it into
        if (const TimerOutcome stopped = StopOne(id); !stopped) return stopped;
    }
    return {};
}

TimerOutcome CRecordTimers::PauseAllTimers() {
    return Saved(PauseEach());
}

TimerOutcome CRecordTimers::PauseEach() {
    const CVelmarchDoc::ChangeScope changing(m_document);
    for (int i = 0; i < m_timers.Count(); ++i) {
        if (m_timers.StateAt(i) != TimerState::Running) continue;
        if (const TimerOutcome paused = PauseOne(m_timers.IdAt(i)); !paused) return paused;
    }
    return {};
}

TimerOutcome CRecordTimers::RunAction(int action) {
    if (action == Action::kPause) return PauseEach();
    if (action == Action::kStop) return StopEach();
    return {};
}

TimerOutcome CRecordTimers::RunActionForNewTimer() {
    if (m_settings.timerOnNewTimer == Action::kNothing) return {};
    DropOrphans();
    m_timers.FoldAll();
    return RunAction(m_settings.timerOnNewTimer);
}

// --- Folds

void CRecordTimers::FoldAndStore() {
    const bool dropped = DropOrphans();
    if (m_timers.Count() == 0 && !dropped && IsSettled()) return;
    m_timers.FoldAll();
    StoreTimers();
}

/// Another program may have deleted the record of a timer. Such a timer could never be stopped and would end
/// every walk over all of them. Where the store can't be asked, all stay.
bool CRecordTimers::DropOrphans() {
    std::vector<ActiveTimer> orphans;
    for (int i = m_timers.Count() - 1; i >= 0; --i) {
        const QString id = m_timers.IdAt(i);
        if (m_awaited.contains(id) || Fetch(id)) continue;
        if (m_document.Store().m_lastError != 0) break;
        orphans.push_back(m_timers.At(i));
        m_timers.Remove(i);
    }
    for (ActiveTimer& orphan : orphans) {
        orphan.UpdateElapsed(m_timers.Clock());
        if (m_tellOrphan) m_tellOrphan(orphan);
    }
    return !orphans.empty();
}

// --- Kept in the settings

ActiveTimerSet CRecordTimers::Storable() const {
    ActiveTimerSet kept(m_timers.Clock());
    for (int i = 0; i < m_timers.Count(); ++i)
        if (!m_awaited.contains(m_timers.IdAt(i))) kept.Put(m_timers.At(i));
    if (m_stoppedInDialog) kept.Put(m_stoppedInDialog->timer);
    return kept;
}

/// A stop that is being made comes before one that waits for its dialog.
QByteArray CRecordTimers::Note() const {
    return m_note.isEmpty() && m_stoppedInDialog ? m_stoppedInDialog->note : m_note;
}

bool CRecordTimers::Content(QByteArray& out) const {
    ByteStream stream;
    if (!Storable().Save(stream)) return false;
    out = stream.Release();
    return true;
}

bool CRecordTimers::StoreTimers() {
    QByteArray content;
    if (!Content(content)) return false;
    if (m_stored == content && m_storedNote == Note()) return true;
    if (!m_settings.Profile().Change([&] { return Write(content); })) return false;
    m_stored = content;
    m_isCut = false;
    m_storedNote = Note();
    return true;
}

const QString& CRecordTimers::SaveError() const {
    return m_settings.Tree().Error();
}

CRecordTimers::Stored CRecordTimers::Present() const {
    const CProfile& profile = m_settings.Profile();
    return {profile.GetBinary(kSection, kEntry).value_or(QByteArray()),
            profile.GetBinary(kSection, kNote).value_or(QByteArray())};
}

/// content: changes with what another program has written since.
bool CRecordTimers::Write(QByteArray& content) {
    const Stored present = Present();
    // Timers that can't be read aren't timers that another program has dropped.
    if (m_settings.Profile().IsDamaged()) return false;
    if (present.content != m_stored.value_or(QByteArray()) || present.note != m_storedNote) {
        TakeOver(present);
        if (!Content(content)) return false;
    }
    CProfile& profile = m_settings.Profile();
    return (!m_isCut || PutAsideUnreadable(present.content)) &&
           profile.WriteBinary(kSection, kEntry, content) &&
           profile.WriteBinary(kSection, kTrueTimes, TrueTimesOf(Storable())) &&
           (present.note == Note() || profile.WriteBinary(kSection, kNote, Note()));
}

/// What couldn't be read of the timers may be needed by a person yet.
bool CRecordTimers::PutAsideUnreadable(const QByteArray& content) {
    CProfile& profile = m_settings.Profile();
    return profile.WriteBinary(kSection, kUnreadable, content) && NoteTimersLost(profile, true);
}

bool CRecordTimers::AreLost() const {
    return m_isCut || AreTimersLost(m_settings.Profile());
}

/// Timers that can't be read are put aside, so that nobody meets them once more.
void CRecordTimers::ForgetLoss() {
    if (!m_isCut || StoreTimers()) static_cast<void>(NoteTimersLost(m_settings.Profile(), false));
}

ActiveTimerSet CRecordTimers::Read(const QByteArray& content) const {
    ActiveTimerSet set(m_timers.Clock());
    ByteStream stream;
    stream.Attach(content);
    set.Load(stream);
    TakeTrueTimes(StoredTrueTimes(), set);
    return set;
}

void CRecordTimers::TakeOver(const Stored& present) {
    const ActiveTimerSet theirs = Read(present.content);
    MergeTimers(m_timers, Read(m_stored.value_or(QByteArray())), theirs);
    if (m_stoppedInDialog && !theirs.Find(m_stoppedInDialog->timer.recordId)) m_stoppedInDialog.reset();
    if (present.note != m_storedNote) Settle(present.note);
}

/// A program was killed while it stopped a timer, or is about to write the record. Where the record has the
/// stop, the timer has ended.
void CRecordTimers::Settle(const QByteArray& note) {
    const auto stop = StopNote::FromBytes(note);
    if (!stop || !m_timers.Find(stop->recordId)) return;
    const CTRecord* record = Fetch(stop->recordId);
    if (record && stop->IsIn(*record)) m_timers.Remove(m_timers.IndexOf(stop->recordId));
}

void CRecordTimers::SaveTimers() {
    FoldAndStore();
    const QStringList running = m_settings.timerOnExit == Action::kPause ? RunningIds() : QStringList();
    static_cast<void>(RunAction(m_settings.timerOnExit));  // a timer that can't be stopped is saved as it is
    StoreTimers();
    // Unsaved it is no offer at the next start, and no more.
    if (!running.isEmpty())
        static_cast<void>(
            m_settings.Profile().WriteBinary(kSection, kPausedAtExit, running.join(u' ').toLatin1()));
}

QStringList CRecordTimers::RunningIds() const {
    QStringList ids;
    for (int i = 0; i < m_timers.Count(); ++i)
        if (m_timers.StateAt(i) == TimerState::Running && !m_awaited.contains(m_timers.IdAt(i)))
            ids.append(m_timers.IdAt(i));
    return ids;
}

QStringList CRecordTimers::TakePausedAtExit() {
    const auto stored = m_settings.Profile().GetBinary(kSection, kPausedAtExit);
    if (!stored) return {};
    static_cast<void>(m_settings.Profile().Remove(kSection, kPausedAtExit));
    QStringList paused;
    for (const QString& id : QString::fromLatin1(*stored).split(u' ', Qt::SkipEmptyParts))
        if (m_timers.StateOf(id) == TimerState::Paused && Fetch(id)) paused.append(id);
    return paused;
}

TimerOutcome CRecordTimers::GoOn(const QStringList& recordIds) {
    const CVelmarchDoc::ChangeScope changing(m_document);
    for (const QString& id : recordIds) {
        if (m_timers.StateOf(id) != TimerState::Paused) continue;
        m_timers.Start(id, false, 0, 0, 0);
        Announce(Hint::TimerStarted, id);
    }
    return Started();
}

bool CRecordTimers::RestoreTimers() {
    const auto content = m_settings.Profile().GetBinary(kSection, kEntry);
    m_stored = content;
    m_storedNote = Present().note;
    m_isCut = false;
    if (!content) return true;
    ByteStream stream;
    stream.Attach(*content);
    m_isCut = !m_timers.Load(stream);
    TakeTrueTimes(StoredTrueTimes(), m_timers);
    Settle(m_storedNote);
    return !m_isCut;
}

QByteArray CRecordTimers::StoredTrueTimes() const {
    return m_settings.Profile().GetBinary(kSection, kTrueTimes).value_or(QByteArray());
}

// --- For the rules of entry

bool CRecordTimers::RunNewTimerAction() {
    if (m_settings.timerOnNewTimer == Action::kNothing) return true;
    FoldAndStore();
    return bool(Saved(RunAction(m_settings.timerOnNewTimer)));
}

bool CRecordTimers::StartFromZero(const QString& recordId) {
    if (!Fetch(recordId)) m_awaited.insert(recordId);
    return m_timers.Start(recordId, false, 0, 0, 0) && Started();
}

bool CRecordTimers::Drop(const QString& recordId) {
    m_awaited.remove(recordId);
    EndStopInDialog(recordId);
    const int index = m_timers.IndexOf(recordId);
    if (index < 0) return true;
    m_timers.Remove(index);
    return StoreTimers();
}

/// The draft goes when the timer is safe elsewhere.
bool CRecordTimers::Keep(const QString& recordId) {
    if (!m_awaited.remove(recordId)) return true;
    if (!StoreTimers()) return false;
    DiscardDraft(recordId);
    return true;
}

// --- A timer that is stopped in a dialog

/// What the settings don't have yet can't be left behind in them.
bool CRecordTimers::StopInDialog(const QString& recordId) {
    const ActiveTimer* running = m_timers.Find(recordId);
    if (!running) return false;
    StoppedInDialog stopped{*running, {}};
    stopped.timer.UpdateElapsed(m_timers.Clock());
    stopped.timer.state = TimerState::Paused;
    if (Read(m_stored.value_or(QByteArray())).Find(recordId)) m_stoppedInDialog = stopped;
    return m_timers.Stop(recordId);
}

bool CRecordTimers::NoteStopInDialog(const CTRecord& entered) {
    if (!IsStoppedInDialog(entered.GetId())) return true;
    m_stoppedInDialog->note = StopNote::Of(entered).ToBytes();
    return StoreTimers();
}

/// Where the settings can't be written, the note beside the timer says whether it has ended.
void CRecordTimers::EndStopInDialog(const QString& recordId) {
    if (!IsStoppedInDialog(recordId)) return;
    m_stoppedInDialog.reset();
    static_cast<void>(StoreTimers());
}

// --- A new record that isn't stored yet

bool CRecordTimers::PersistDraft(const CTRecord& draft) {
    const QString& id = draft.GetId();
    return !IsAwaited(id) || m_drafts.Persist(draft, m_timers.Find(id), m_timers.Clock());
}

void CRecordTimers::PersistDraftAtExit(const CTRecord& draft) {
    if (IsStoppedInDialog(draft.GetId())) m_timers.Put(std::exchange(m_stoppedInDialog, {})->timer);
    if (m_settings.timerOnExit != Action::kNothing) m_timers.Pause(draft.GetId());
    static_cast<void>(PersistDraft(draft));  // there is nobody left to be told
}

/// A draft that can't be taken away is offered once more, which does no harm.
void CRecordTimers::DiscardDraft(const QString& recordId) {
    EndStopInDialog(recordId);
    static_cast<void>(m_drafts.Discard(recordId));
}

std::optional<StoredDraft> CRecordTimers::TakeOverDraft(const QStringList& offered) {
    for (StoredDraft& draft : m_drafts.Read(m_timers.Clock())) {
        const QString id = draft.record.GetId();
        if (offered.contains(id)) continue;
        if (draft.timer) draft.timer->UpdateElapsed(m_timers.Clock());
        if (!Fetch(id)) return std::move(draft);
        if (draft.timer && m_timers.StateOf(id) == TimerState::None) m_timers.Put(*draft.timer);
        StoreTimers();
        DiscardDraft(id);
    }
    return {};
}

void CRecordTimers::AwaitAgain(const StoredDraft& draft) {
    m_awaited.insert(draft.record.GetId());
    if (draft.timer) m_timers.Put(*draft.timer);
}
