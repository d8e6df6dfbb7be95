#include "timers/LostTimers.h"

#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "timers/CRecordTimers.h"

void TellLostTimers(CRecordTimers& timers, CPrompt& prompt) {
    if (!timers.AreLost()) return;
    prompt.Tell({.textId = static_cast<int>(Text::TimersLost),
                 .title = LoadText(Text::TickFailedTitle),
                 .text = LoadText(Text::TimersLost),
                 .icon = BoxIcon::Warning,
                 .actionLabel = {}});
    timers.ForgetLoss();
}
