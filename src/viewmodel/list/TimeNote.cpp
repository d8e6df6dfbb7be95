#include "viewmodel/list/TimeNote.h"

#include "calendar/PassedTime.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "timers/TimerTexts.h"
#include "timers/TrueTime.h"

#include <QTimeZone>

namespace {

DateTimeVal TimeOf(const CTRecord& record, bool (CTRecord::*get)(int&, int&, bool&) const) {
    DateTimeVal time;
    int hour = 0, minute = 0;
    bool isPm = false;
    if ((record.*get)(hour, minute, isPm)) time.SetTime(hour, minute, isPm);
    return time;
}

/// Of a record with start, end and a duration between them.
QString NoteOnTimes(const CTRecord& record, const QTimeZone& zone) {
    const SpanField& duration = record.spans.duration;
    if (!record.HasStart() || !record.HasEnd() || !duration.IsSet()) return {};
    // A timer that was stopped within its first minute.
    if (duration.hours == 0 && duration.minutes == 0) return {};
    DateTimeVal start = TimeOf(record, &CTRecord::GetStart);
    const DateTimeVal end = TimeOf(record, &CTRecord::GetEnd);
    start.month = record.date.month;
    start.day = record.date.day;
    start.year = record.date.year;
    const auto passed = MinutesPassed(start, end, zone);
    if (passed && passed != MinutesPassed(start, end, QTimeZone::utc()))
        return FormatText<Text::NightOfClockChange>(duration.clockText, HoursText(*passed * 60));
    return GoesPastMidnight(start, end) ? FormatText<Text::PastMidnight>(duration.clockText) : QString();
}

}  // namespace

QString TimeNote(const CTRecord& record, const ActiveTimer* timer, const QTimeZone& zone) {
    if (!timer) return NoteOnTimes(record, zone);
    const auto difference = DifferenceOf(*timer);
    return difference
               ? FormatText<Text::TrueTimeTip>(HoursText(difference->counted), HoursText(difference->passed))
               : QString();
}
