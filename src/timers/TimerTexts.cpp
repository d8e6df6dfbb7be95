#include "timers/TimerTexts.h"

#include "lang/FormatText.h"
#include "records/FieldValues.h"
#include "timers/ActiveTimer.h"

QString TimerCountText(const ActiveTimer& timer) {
    return FormatText<Text::TimerCount>(timer.hours, timer.minutes, timer.seconds);
}

QString TimerCountText(std::int64_t seconds) {
    return FormatText<Text::TimerCount>(static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60),
                                        static_cast<int>(seconds % 60));
}

QString HoursText(std::int64_t seconds) {
    return FormatText<Text::SpanClock>(static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60));
}

QString LiveDurationText(const ActiveTimer* timer, const SpanField& duration) {
    if (timer && (timer->state == TimerState::Running || timer->state == TimerState::Paused))
        return TimerCountText(*timer);
    if (!duration.IsSet()) return LoadText(Text::NoTime);
    return FormatText<Text::PanelDuration>(duration.hours, duration.minutes);
}
