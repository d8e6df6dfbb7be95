#include "calendar/PassedTime.h"

#include <QDateTime>
#include <QTimeZone>

namespace {

QTime TimeOf(const DateTimeVal& time) {
    return {time.Hour24(), time.minute};
}

}  // namespace

const QTimeZone& LocalZone() {
    static const QTimeZone kZone = QTimeZone::systemTimeZone();
    return kZone;
}

bool GoesPastMidnight(const DateTimeVal& start, const DateTimeVal& end) {
    return TimeOf(end) <= TimeOf(start);
}

std::optional<int> MinutesPassed(const DateTimeVal& start, const DateTimeVal& end, const QTimeZone& zone) {
    const QDate day(start.year, start.month, start.day);
    if (!day.isValid() || !TimeOf(start).isValid() || !TimeOf(end).isValid()) return {};
    const QDateTime from(day, TimeOf(start), zone);
    const QDateTime to(day.addDays(GoesPastMidnight(start, end) ? 1 : 0), TimeOf(end), zone);
    return static_cast<int>(from.secsTo(to) / 60);
}
