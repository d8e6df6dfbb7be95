#include "timers/TrueTimeQuestion.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "timers/ActiveTimerSet.h"
#include "timers/TimerTexts.h"

std::optional<CountBy> AskCountBy(const ActiveTimer* timer, CPrompt& prompt) {
    const auto difference = timer ? DifferenceOf(*timer) : std::nullopt;
    if (!difference) return CountBy::Clock;
    const Answer answer = prompt.Ask(
        {.textId = static_cast<int>(Text::AskTrueTime),
         .title = LoadText(Text::AskTrueTimeTitle),
         .text = FormatText<Text::AskTrueTime>(HoursText(difference->counted), HoursText(difference->passed)),
         .icon = BoxIcon::Question,
         .buttons = Buttons::YesNoCancel,
         .defaultAnswer = Answer::Cancel,
         .actionLabel = LoadText(Text::TakeTrueTime),
         .otherLabel = LoadText(Text::KeepClockCount)});
    if (answer == Answer::Yes) return CountBy::TrueTime;
    return answer == Answer::No ? std::optional(CountBy::Clock) : std::nullopt;
}

StopChoice AskCountsBy(const QStringList& recordIds, const ActiveTimerSet& timers, CPrompt& prompt) {
    StopChoice choice;
    for (const QString& id : recordIds) {
        const auto by = AskCountBy(timers.Find(id), prompt);
        if (by) (*by == CountBy::TrueTime ? choice.byTrueTime : choice.byClock).append(id);
    }
    return choice;
}
