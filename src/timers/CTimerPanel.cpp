#include "timers/CTimerPanel.h"

#include "app/CVelmarchDoc.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CTRecord.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerTexts.h"
#include "timers/TrueTimeQuestion.h"

#include <utility>

CTimerPanel::CTimerPanel(const CTRecord& record, CRecordTimers& timers, CVelmarchDoc& document,
                         CPrompt& prompt, Dialog dialog)
    : m_record(record),
      m_timers(timers),
      m_document(document),
      m_prompt(prompt),
      m_dialog(std::move(dialog)) {}

TimerState CTimerPanel::State() const {
    return m_timers.StateOf(m_record.GetId());
}

std::optional<TimeDifference> CTimerPanel::Difference() const {
    const ActiveTimer* timer = m_timers.Set().Find(m_record.GetId());
    return timer ? DifferenceOf(*timer) : std::nullopt;
}

QString CTimerPanel::DurationText() const {
    return LiveDurationText(m_timers.Set().Find(m_record.GetId()), m_record.spans.duration);
}

void CTimerPanel::ShowCounts(bool fromTimer) {
    int hours = 0, minutes = 0, seconds = 0;
    if (!m_timers.Set().GetElapsed(m_record.GetId(), hours, minutes, seconds)) return;
    m_dialog.setFromTimer(hours, minutes, seconds, fromTimer);
}

bool CTimerPanel::StartTick() {
    const int error = m_dialog.startTick();
    if (error == 0) return true;
    MessageBox box;
    box.textId = static_cast<int>(Text::TickFailed);
    box.title = LoadText(Text::TickFailedTitle);
    box.text = FormatText<Text::TickFailed>(error);
    box.icon = BoxIcon::Warning;
    m_prompt.Tell(box);
    return false;
}

void CTimerPanel::Save() {
    if (!m_timers.StoreTimers()) TellIfUnsaved({TimerOutcome::End::NotSaved}, m_timers.SaveError(), m_prompt);
}

void CTimerPanel::Finish(Hint hint) {
    m_dialog.repaintButtons();
    m_document.NotifyViews(hint, {m_record.GetId()});
}

void CTimerPanel::PanelOpen() {
    ActiveTimer* timer = m_timers.Set().Find(m_record.GetId());
    if (!timer) return;
    if (timer->state == TimerState::Paused) ShowCounts(true);
    // After a fold that failed (the clock was set back) nothing is shown and nothing ticks.
    if (timer->state == TimerState::Running && timer->UpdateElapsed(m_timers.Set().Clock())) {
        ShowCounts(true);
        StartTick();
    }
    m_dialog.repaintButtons();
}

bool CTimerPanel::PanelStart() {
    if (State() == TimerState::Running) return true;
    const TimerOutcome started = m_timers.StartDraftTimer(m_record);
    TellIfUnsaved(started, m_timers.SaveError(), m_prompt);
    if (State() != TimerState::Running) return false;
    ShowCounts(true);
    if (!StartTick()) return false;
    Finish(Hint::TimerStarted);
    return true;
}

bool CTimerPanel::PanelPause() {
    if (State() == TimerState::None) return false;
    if (State() != TimerState::Running) return true;
    m_timers.FoldAndStore();
    m_dialog.stopTick();
    m_timers.Set().Pause(m_record.GetId());
    Save();
    ShowCounts(true);
    Finish(Hint::TimerPaused);
    return true;
}

bool CTimerPanel::PanelStop() {
    if (State() == TimerState::Stopped) return true;
    if (State() == TimerState::None) return false;
    m_timers.FoldAndStore();
    const auto by = AskCountBy(m_timers.Set().Find(m_record.GetId()), m_prompt);
    if (!by) return true;
    if (State() == TimerState::Running) m_dialog.stopTick();
    int hours = 0, minutes = 0, seconds = 0;
    m_timers.Set().GetElapsed(m_record.GetId(), hours, minutes, seconds);
    const ActiveTimer* timer = m_timers.Set().Find(m_record.GetId());
    if (timer && *by == CountBy::TrueTime) static_cast<void>(timer->trueCount.GetElapsed(hours, minutes));
    if (m_timers.StopInDialog(m_record.GetId())) m_dialog.setFromTimer(hours, minutes, 0, false);
    static_cast<void>(m_timers.NoteStopInDialog(m_record));  // what can't be saved is told next
    Save();
    Finish(Hint::TimerStopped);
    return true;
}

void CTimerPanel::PanelTick() {
    ActiveTimer* timer = m_timers.Set().Find(m_record.GetId());
    if (timer && timer->UpdateElapsed(m_timers.Set().Clock())) ShowCounts(true);
}

void CTimerPanel::PanelClose() {
    const bool isRunning = State() == TimerState::Running;
    if (isRunning || State() == TimerState::Paused) ShowCounts(true);
    if (isRunning) m_dialog.stopTick();
}
