#pragma once

#include "app/CTimerService.h"
#include "app/Hints.h"
#include "timers/TrueTime.h"

#include <QString>
#include <functional>
#include <optional>

class CPrompt;
class CRecordTimers;
class CTRecord;
class CVelmarchDoc;

/// The three buttons Stop, Start and Pause of the record dialog and its live duration, without the widgets.
/// Works on the record that the dialog edits, not on the stored one: what a stop writes is stored when the
/// dialog is accepted. The dialog has a tick of about a second, of its own thread's messages, while its
/// record's timer runs.
class CTimerPanel {
 public:
    /// What the panel needs of the dialog.
    struct Dialog {
        /// Brings a count into the edited record and shows it (TimeEntryRules::SetFromTimer). fromTimer: a
        /// live count, not rounded, shown with seconds; otherwise it is rounded as entered durations are.
        std::function<void(int hours, int minutes, int seconds, bool fromTimer)> setFromTimer;
        /// Starts the tick; 0, or the error number.
        std::function<int()> startTick;
        std::function<void()> stopTick;
        /// The buttons look by the state of the timer.
        std::function<void()> repaintButtons;
    };

    /// All must outlive the panel.
    CTimerPanel(const CTRecord& record, CRecordTimers& timers, CVelmarchDoc& document, CPrompt& prompt,
                Dialog dialog);

    /// The dialog shows its times.
    void PanelOpen();
    /// Nothing happens to a running timer. False when the timer could not be started, which was told, or the
    /// tick could not be: the timer itself runs then.
    bool PanelStart();
    /// False without a timer.
    bool PanelPause();
    /// False without a timer. The stored record stays as it is. Where the count isn't what has truly passed
    /// the user is asked which is meant, or goes on counting.
    bool PanelStop();
    void PanelTick();
    /// The dialog closes, accepted or not. A running timer goes on.
    void PanelClose();

    [[nodiscard]] TimerState State() const;
    /// How the count differs from what has truly passed; nothing where it doesn't.
    [[nodiscard]] std::optional<TimeDifference> Difference() const;
    /// The live duration as the dialog shows it.
    [[nodiscard]] QString DurationText() const;

 private:
    void ShowCounts(bool fromTimer);
    bool StartTick();
    void Save();
    void Finish(Hint hint);

    const CTRecord& m_record;
    CRecordTimers& m_timers;
    CVelmarchDoc& m_document;
    CPrompt& m_prompt;
    Dialog m_dialog;
};
