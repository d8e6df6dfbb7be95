#include "timers/CRecordTimers.h"

#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "config/CCfgStore.h"
#include "records/CTRecord.h"
#include "timers/TimerMerge.h"
#include "timers/TrueTimes.h"

namespace {

/// What happens to other timers, by timerOnNewTimer and timerOnExit.
namespace Action {
constexpr int kNothing = 0;
constexpr int kPause = 1;
constexpr int kStop = 2;
}  // namespace Action

const QString kSection = QStringLiteral("ActiveTimers");
const QString kEntry = QStringLiteral("Content");
const QString kTrueTimes = QStringLiteral("TrueTimes");

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

bool CRecordTimers::StartRecordTimer(const QString& recordId) {
    if (!Fetch(recordId)) return false;
    RunActionForNewTimer();
    // The action may have stopped this very timer: the duration is then the one that it wrote.
    const CTRecord* record = Fetch(recordId);
    if (!record) return false;
    const SpanField& duration = record->spans.duration;
    if (duration.IsSet())
        m_timers.Start(recordId, true, duration.hours, duration.minutes, 0);
    else
        m_timers.Start(recordId, false, 0, 0, 0);
    Announce(Hint::TimerStarted, recordId);
    return StoreTimers();
}

void CRecordTimers::StartDraftTimer(const CTRecord& draft) {
    const QString id = draft.GetId();
    RunActionForNewTimer();
    const SpanField& duration = draft.spans.duration;
    const bool isNew = m_timers.StateOf(id) == TimerState::None && !Fetch(id);
    if (isNew) m_awaited.insert(id);
    m_timers.Start(id, duration.IsSet(), duration.hours, duration.minutes, 0);
    StoreTimers();
}

bool CRecordTimers::StopRecordTimer(const QString& recordId, CountBy by) {
    return StopOne(recordId, by) && StoreTimers();
}

bool CRecordTimers::StopOne(const QString& recordId, CountBy by) {
    const CTRecord* record = Fetch(recordId);
    if (!record) return false;
    int hours = 0, minutes = 0, seconds = 0;
    if (!m_timers.GetElapsed(recordId, hours, minutes, seconds)) return false;
    const ActiveTimer former = *m_timers.Find(recordId);
    if (by == CountBy::TrueTime && !former.trueCount.GetElapsed(hours, minutes)) return false;
    if (!m_timers.Stop(recordId)) return false;

    CTRecord changed;
    changed.Copy(*record);
    RoundMinutes(hours, minutes, m_settings.roundDurationMinutes, m_settings.roundDurationType, nullptr);
    const bool isStartKept = changed.HasStart() && changed.HasEnd() && m_settings.lockStartOnDurationEdit;
    changed.SetDuration(hours, minutes, !isStartKept);
    if (!m_document.ModifyRecord(changed, recordId, {Notify::Yes, Commit::Now})) {
        m_timers.Put(former);  // the count isn't lost with the record's change: the stop can be repeated
        return false;
    }
    Announce(Hint::TimerStopped, recordId);
    return true;
}

bool CRecordTimers::PauseRecordTimer(const QString& recordId) {
    return PauseOne(recordId) && StoreTimers();
}

bool CRecordTimers::PauseOne(const QString& recordId) {
    if (!m_awaited.contains(recordId) && !Fetch(recordId)) return false;
    if (!m_timers.Pause(recordId)) return false;
    Announce(Hint::TimerPaused, recordId);
    return true;
}

// --- All of them

bool CRecordTimers::StopAllTimers() {
    const bool stopped = StopEach();
    return StoreTimers() && stopped;
}

bool CRecordTimers::StopEach() {
    const CVelmarchDoc::ChangeScope changing(m_document);
    for (int i = m_timers.Count() - 1; i >= 0; --i) {
        const QString id = m_timers.IdAt(i);
        const TimerState state = m_timers.StateAt(i);
        if (state != TimerState::Running && state != TimerState::Paused) continue;
        if (m_awaited.contains(id)) continue;  // there is no record yet to stop it into
        if (!StopOne(id)) return false;
    }
    return true;
}

bool CRecordTimers::PauseAllTimers() {
    const bool paused = PauseEach();
    return StoreTimers() && paused;
}

bool CRecordTimers::PauseEach() {
    const CVelmarchDoc::ChangeScope changing(m_document);
    for (int i = 0; i < m_timers.Count(); ++i)
        if (m_timers.StateAt(i) == TimerState::Running && !PauseOne(m_timers.IdAt(i))) return false;
    return true;
}

bool CRecordTimers::RunAction(int action) {
    if (action == Action::kPause) return PauseEach();
    if (action == Action::kStop) return StopEach();
    return true;
}

void CRecordTimers::RunActionForNewTimer() {
    if (m_settings.timerOnNewTimer == Action::kNothing) return;
    DropOrphans();
    m_timers.FoldAll();
    RunAction(m_settings.timerOnNewTimer);
}

// --- Folds

void CRecordTimers::FoldAndStore() {
    const bool dropped = DropOrphans();
    if (m_timers.Count() == 0 && !dropped) return;
    m_timers.FoldAll();
    StoreTimers();
}

/// Another program may have deleted the record of a timer. Such a timer could never be stopped and would end
/// every walk over all of them. Where the store can't be asked, all stay.
bool CRecordTimers::DropOrphans() {
    bool dropped = false;
    for (int i = m_timers.Count() - 1; i >= 0; --i) {
        const QString id = m_timers.IdAt(i);
        if (m_awaited.contains(id) || Fetch(id)) continue;
        if (m_document.Store().m_lastError != 0) break;
        m_timers.Remove(i);
        dropped = true;
    }
    return dropped;
}

// --- Kept in the settings

ActiveTimerSet CRecordTimers::Storable() const {
    ActiveTimerSet kept(m_timers.Clock());
    for (int i = 0; i < m_timers.Count(); ++i)
        if (!m_awaited.contains(m_timers.IdAt(i))) kept.Put(m_timers.At(i));
    return kept;
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
    if (m_stored == content) return true;
    CProfile& profile = m_settings.Profile();
    const bool written = profile.Change([&] {
        const QByteArray present = profile.GetBinary(kSection, kEntry).value_or(QByteArray());
        if (present != m_stored.value_or(QByteArray())) {
            TakeOver(present);
            if (!Content(content)) return false;
        }
        return profile.WriteBinary(kSection, kEntry, content) &&
               profile.WriteBinary(kSection, kTrueTimes, TrueTimesOf(Storable()));
    });
    if (written) m_stored = content;
    return written;
}

void CRecordTimers::TakeOver(const QByteArray& present) {
    const auto read = [this](const QByteArray& content) {
        ActiveTimerSet set(m_timers.Clock());
        ByteStream stream;
        stream.Attach(content);
        set.Load(stream);
        TakeTrueTimes(StoredTrueTimes(), set);
        return set;
    };
    MergeTimers(m_timers, read(m_stored.value_or(QByteArray())), read(present));
}

void CRecordTimers::SaveTimers() {
    FoldAndStore();
    RunAction(m_settings.timerOnExit);
    StoreTimers();
}

bool CRecordTimers::RestoreTimers() {
    const auto content = m_settings.Profile().GetBinary(kSection, kEntry);
    m_stored = content;
    if (!content) return true;
    ByteStream stream;
    stream.Attach(*content);
    const bool isWhole = m_timers.Load(stream);
    TakeTrueTimes(StoredTrueTimes(), m_timers);
    return isWhole;
}

QByteArray CRecordTimers::StoredTrueTimes() const {
    return m_settings.Profile().GetBinary(kSection, kTrueTimes).value_or(QByteArray());
}

// --- For the rules of entry

bool CRecordTimers::RunNewTimerAction() {
    if (m_settings.timerOnNewTimer == Action::kNothing) return true;
    FoldAndStore();
    const bool done = RunAction(m_settings.timerOnNewTimer);
    return StoreTimers() && done;
}

bool CRecordTimers::StartFromZero(const QString& recordId) {
    if (!Fetch(recordId)) m_awaited.insert(recordId);
    return m_timers.Start(recordId, false, 0, 0, 0) && StoreTimers();
}

bool CRecordTimers::Drop(const QString& recordId) {
    m_awaited.remove(recordId);
    const int index = m_timers.IndexOf(recordId);
    if (index < 0) return true;
    m_timers.Remove(index);
    return StoreTimers();
}

void CRecordTimers::Keep(const QString& recordId) {
    if (!m_awaited.remove(recordId)) return;
    StoreTimers();
    DiscardDraft(recordId);
}

// --- A new record that isn't stored yet

bool CRecordTimers::PersistDraft(const CTRecord& draft) {
    const QString& id = draft.GetId();
    return !IsAwaited(id) || m_drafts.Persist(draft, m_timers.Find(id), m_timers.Clock());
}

void CRecordTimers::PersistDraftAtExit(const CTRecord& draft) {
    if (m_settings.timerOnExit != Action::kNothing) m_timers.Pause(draft.GetId());
    static_cast<void>(PersistDraft(draft));  // there is nobody left to be told
}

/// A draft that can't be taken away is offered once more, which does no harm.
void CRecordTimers::DiscardDraft(const QString& recordId) {
    static_cast<void>(m_drafts.Discard(recordId));
}

std::optional<StoredDraft> CRecordTimers::TakeOverDraft() {
    auto draft = m_drafts.Read(m_timers.Clock());
    if (!draft) return {};
    if (draft->timer) draft->timer->UpdateElapsed(m_timers.Clock());
    const QString id = draft->record.GetId();
    if (!Fetch(id)) return draft;
    if (draft->timer && m_timers.StateOf(id) == TimerState::None) m_timers.Put(*draft->timer);
    StoreTimers();
    DiscardDraft(id);
    return {};
}

void CRecordTimers::AwaitAgain(const StoredDraft& draft) {
    m_awaited.insert(draft.record.GetId());
    if (draft.timer) m_timers.Put(*draft.timer);
}
