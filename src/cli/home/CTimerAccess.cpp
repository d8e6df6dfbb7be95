#include "cli/home/CTimerAccess.h"

#include "app/CVelmarchDoc.h"
#include "app/HomeFiles.h"
#include "cli/home/CWindowLink.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "timers/GoneRecords.h"
#include "timers/TimerCommand.h"
#include "timers/TimerImage.h"

namespace {

ActiveTimer FromReading(const TimerReading& shown) {
    ActiveTimer timer;
    timer.recordId = shown.recordId;
    timer.hours = static_cast<std::uint16_t>(shown.seconds / 3600);
    timer.minutes = static_cast<std::uint16_t>(shown.seconds / 60 % 60);
    timer.seconds = static_cast<std::uint16_t>(shown.seconds % 60);
    timer.state = shown.isRunning ? TimerState::Running : TimerState::Paused;
    timer.trueCount.isKnown = shown.trueSeconds.has_value();
    timer.trueCount.milliseconds = shown.trueSeconds.value_or(0) * 1000;
    return timer;
}

}  // namespace

CTimerAccess::CTimerAccess(const CClock& clock, CVelmarchDoc& document, CCfgStore& settings,
                           CWindowLink& window)
    : m_document(document),
      m_settings(settings),
      m_window(window),
      m_set(clock),
      m_timers(m_set, document, settings) {}

void CTimerAccess::Read() {
    m_set.Clear();
    CSettingsTree& tree = m_settings.Tree();
    static_cast<void>(tree.TakeReadFailure());
    m_timers.RestoreTimers();  // that it read a part of them only is seen by AreLost
    const bool areThereYet = tree.File().IsReadOnly() && HasTimers(tree.DamagedValues());
    m_areKnown =
        tree.IsFromFile() && !tree.TakeReadFailure() && !m_settings.Profile().IsDamaged() && !areThereYet;
}

void CTimerAccess::Look() {
    Read();
    if (m_areKnown && !m_set.AnyActive() && m_timers.IsSettled()) return;
    if (m_window.IsThere()) {
        const auto reply = m_window.AskShortly(TimerRequest{TimerAction::Status}.ToMessage());
        if (reply && *reply) return TakeOver(*reply);
        m_set.FoldAll();  // shown only: what is stored belongs to the window
        return;
    }
    if (!m_areKnown || (!m_set.AnyRunning() && m_timers.IsSettled())) return;
    const auto fold = [this] {
        m_timers.FoldAndStore();
        return true;
    };
    if (ChangeHere(fold, Writes::Timers) == Changed::Done) return;
    Read();
    m_set.FoldAll();
}

void CTimerAccess::TakeOver(const InstanceReply& reply) {
    m_set.Clear();
    for (const TimerReading& shown : TimersIn(reply)) m_set.Put(FromReading(shown));
    m_areKnown = true;
}

std::optional<TimerShown> CTimerAccess::Shown(const QString& recordId) const {
    const ActiveTimer* timer = m_set.Find(recordId);
    if (!timer) return std::nullopt;
    return TimerShown{.isRunning = timer->state == TimerState::Running,
                      .seconds = timer->Seconds(),
                      .trueSeconds = timer->trueCount.Seconds()};
}

CTimerAccess::Changed CTimerAccess::ChangeHere(const std::function<bool()>& work, Writes writes) {
    bool isOwned = false;
    const bool isOneChange = writes == Writes::Timers;
    const bool isBegun = m_settings.Profile().Change([&] {
        isOwned = m_window.IsThere();  // looked at inside the change: a window that starts now reads after it
        if (isOwned) return false;
        Read();
        return !isOneChange || RunAndSave(work);
    });
    if (isOwned) return Changed::WindowOwns;
    return isBegun && (isOneChange || work()) ? Changed::Done : Changed::Failed;
}

/// The work has stored what it changed; storing it again only tells whether that succeeded.
bool CTimerAccess::RunAndSave(const std::function<bool()>& work) {
    const bool hadTimers = m_set.Count() > 0;
    return work() && ((!hadTimers && m_set.Count() == 0) || m_timers.StoreTimers());
}

CTimerAccess::Writes CTimerAccess::OfNewTimer() const {
    return m_settings.timerOnNewTimer == CRecordTimers::kStopOnNewTimer ? Writes::RecordsToo : Writes::Timers;
}

CTimerAccess::Writes CTimerAccess::WhatIsWritten(TimerAction action) const {
    if (action == TimerAction::Start) return OfNewTimer();
    const bool isStop = action == TimerAction::Stop || action == TimerAction::StopAll;
    return isStop ? Writes::RecordsToo : Writes::Timers;
}

QString CTimerAccess::WhyNotStored() const {
    return FormatText<Text::CliTimersNotStoredWhy>(m_settings.Tree().Error());
}

/// Where settings can't be written the timers can still be shown.
InstanceReply CTimerAccess::RunHere(const TimerRequest& request, Changed& changed) {
    std::optional<InstanceReply> reply;
    changed = ChangeHere(
        [&] {
            reply = RunTimerRequest(request, m_timers, m_document);
            return bool(*reply);
        },
        WhatIsWritten(request.action));
    const bool isShown = request.action == TimerAction::Status;
    if (reply && (!*reply || changed != Changed::Failed || isShown)) return *reply;
    return InstanceReply::Refused(ReplyReason::Failed, WhyNotStored());
}

InstanceReply CTimerAccess::Run(const TimerRequest& request) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (m_window.IsThere()) {
            if (const auto reply = m_window.Ask(request.ToMessage())) return *reply;
            if (m_window.IsThere()) break;
        }
        Changed changed = Changed::Done;
        InstanceReply reply = RunHere(request, changed);
        if (changed != Changed::WindowOwns) return reply;
    }
    return InstanceReply::Refused(ReplyReason::WindowOwns, LoadText(Text::CliWindowOwnsTimers));
}

/// Of timers that can't be read any record may have one.
QStringList CTimerAccess::Timed(const QStringList& ids) {
    Read();
    return m_areKnown ? COwnTimers(m_timers).Timed(ids) : ids;
}

/// As they are stored: what a window counts is stored whenever it starts, pauses or stops one.
QHash<QString, QByteArray> CTimerAccess::Images(const QStringList& ids) {
    Read();
    return COwnTimers(m_timers).Images(ids);
}

QHash<QString, QByteArray> CTimerAccess::AllImages() {
    Read();
    return TimerImagesOf(m_set);
}

bool CTimerAccess::PutBack(const QString& id, const QByteArray& image) {
    return bool(Run({.action = TimerAction::PutBack, .id = id, .image = image}));
}

std::optional<int> CTimerAccess::DropGone() {
    Read();
    const QStringList gone = GoneRecords(m_set, m_document);
    return Drop(gone) ? std::optional(static_cast<int>(gone.size())) : std::nullopt;
}

/// A reply that says it was done is believed. One that came too late, or found the timer gone already, is
/// not: then what is stored decides.
bool CTimerAccess::Drop(const QStringList& ids) {
    QStringList unsure;
    for (const QString& id : ids)
        if (!Run({TimerAction::Drop, id})) unsure.append(id);
    return unsure.isEmpty() || Timed(unsure).isEmpty();
}
