#include "viewmodel/fields/SpanPad.h"

#include "calendar/ScanText.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"

namespace {

constexpr int kUsualStep = 5;
constexpr int kHours = 24;
constexpr int kMinutes = 60;

QStringList HourLines() {
    QStringList lines{LoadText(Text::SpanHoursNone), LoadText(Text::SpanHoursOne)};
    for (int hours = 2; hours < kHours; ++hours) lines << FormatText<Text::SpanHoursMany>(hours);
    return lines;
}

QStringList MinuteLines(int step) {
    QStringList lines;
    for (int minutes = 0; minutes < kMinutes; minutes += step)
        lines << FormatText<Text::SpanMinutesMany>(minutes);
    return lines;
}

/// A field shows nothing for a part that isn't set.
QString FieldText(int part) {
    return part < 0 ? QString() : FormatText<Text::SpanPart>(part);
}

bool ScanPart(const QString& text, int greatest, int& out) {
    return ScanText(LoadText(Text::PlainInteger), text, {&out}) == 1 && out >= 0 && out <= greatest;
}

}  // namespace

int PickStep(int roundType, int roundMinutes) {
    return roundType != 0 && roundMinutes >= 1 ? roundMinutes : kUsualStep;
}

SpanPad::SpanPad(CTRecord& entry, int step)
    : m_entry(entry), m_step(step), m_hourTexts(HourLines()), m_minuteTexts(MinuteLines(step)) {}

/// The lists start at nothing whatever the fields hold.
void SpanPad::Open(int hours, int minutes) {
    m_entry.Reset();
    m_hour = static_cast<int>(m_hourTexts.indexOf(LoadText(Text::SpanHoursNone)));
    m_minute = static_cast<int>(m_minuteTexts.indexOf(LoadText(Text::SpanMinutesNone)));
    m_typedHours = FieldText(hours);
    m_typedMinutes = FieldText(minutes);
}

void SpanPad::ChooseHour(int line) {
    m_hour = line;
    if (line != kNothingChosen) m_typedHours = FormatText<Text::PlainInteger>(line);
}

void SpanPad::ChooseMinute(int line) {
    m_minute = line;
    if (line != kNothingChosen) m_typedMinutes = FormatText<Text::PlainInteger>(line * m_step);
}

PadState SpanPad::Press(int id) {
    switch (id) {
        case kAccept:
            Accept();
            return PadState::Accepted;
        case kClear:
            m_entry.spans.duration.Reset();
            m_entry.spans.Recompute();
            return PadState::Accepted;
        case kCancel:
            return PadState::Cancelled;
        default:
            return PadState::Open;
    }
}

/// What is typed counts if both fields can be read: 1 and 30 are 1:30. Otherwise both fields are left and the
/// lists count: 25 hours give what the lists say, and a list without a choice gives no length of time at all.
void SpanPad::Accept() {
    int hours = 0;
    int minutes = 0;
    const bool areHoursTyped = ScanPart(m_typedHours, kHours - 1, hours);
    const bool areMinutesTyped = ScanPart(m_typedMinutes, kMinutes - 1, minutes);
    if (!areHoursTyped || !areMinutesTyped) {
        hours = m_hour == kNothingChosen ? -1 : m_hour;
        minutes = m_minute == kNothingChosen ? -1 : m_minute * m_step;
    }
    m_entry.SetDuration(hours, minutes, true);
}

std::optional<EnteredSpan> SpanPad::Span() const {
    const SpanField& span = m_entry.spans.duration;
    if (!span.IsSet()) return {};
    return EnteredSpan{span.hours, span.minutes};
}
