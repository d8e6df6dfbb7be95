#include "timers/TimerOutcome.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "timers/ActiveTimer.h"
#include "timers/TimerTexts.h"

namespace {

void Warn(Text id, const QString& words, CPrompt& prompt) {
    prompt.Tell({.textId = static_cast<int>(id),
                 .title = LoadText(Text::TickFailedTitle),
                 .text = words,
                 .icon = BoxIcon::Warning,
                 .actionLabel = {}});
}

}  // namespace

void TellIfUnsaved(const TimerOutcome& outcome, const QString& why, CPrompt& prompt) {
    if (outcome.end == TimerOutcome::End::NotSaved)
        Warn(Text::TimersNotSaved, FormatText<Text::TimersNotSaved>(why), prompt);
}

void TellWithoutTimer(CPrompt& prompt) {
    Warn(Text::AddedWithoutTimer, LoadText(Text::AddedWithoutTimer), prompt);
}

void TellOrphan(const ActiveTimer& orphan, CPrompt& prompt) {
    Warn(Text::TimerWithoutRecord,
         FormatText<Text::TimerWithoutRecord>(orphan.recordId, TimerCountText(orphan)), prompt);
}
