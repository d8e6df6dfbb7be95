#include "entry/UnlikelyValues.h"

#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <optional>

namespace {

constexpr int kHoursOfDay = 24;
constexpr int kStart = 3;
constexpr int kEnd = 4;

bool IsLongerThanADay(const SpanField& span) {
    return span.hours > kHoursOfDay || (span.hours == kHoursOfDay && span.minutes > 0);
}

std::optional<double> ReadingOf(const QString& text) {
    double reading = 0.0;
    return ParseDouble(TheRegion(), text, reading) ? std::optional(reading) : std::nullopt;
}

}  // namespace

QStringList UnlikelyIn(const CTRecord& record) {
    const auto& [duration, breakTime, effective] = record.spans;
    QStringList words;
    if (IsLongerThanADay(duration)) words += FormatText<Text::NoteDurationLong>(duration.clockText);
    if (record.HasStart() && record.HasEnd() && !duration.IsSet())
        words +=
            FormatText<Text::NoteNoHours>(TimeTextOfRecord(record, kStart), TimeTextOfRecord(record, kEnd));
    if (duration.IsSet() && breakTime.IsSet() && !effective.IsSet())
        words += FormatText<Text::BreakExceedsDuration>(breakTime.clockText, duration.clockText);
    return words;
}

QStringList UnlikelyIn(const CERecord& record) {
    if (!record.isDistance) return {};
    QStringList words;
    if (record.GetDistance() < 0.0F) words += FormatText<Text::NoteDistanceNegative>(record.distance.text);
    const auto start = ReadingOf(record.odometerStart), end = ReadingOf(record.odometerEnd);
    for (const QString* reading : {&record.odometerStart, &record.odometerEnd})
        if (ReadingOf(*reading).value_or(0.0) < 0.0) words += FormatText<Text::NoteReadingNegative>(*reading);
    if (start && end && *end < *start)
        words += FormatText<Text::NoteOdometerBackwards>(record.odometerEnd, record.odometerStart);
    return words;
}
