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
    const auto line = [](const QStringList& texts, Text none) {
        return static_cast<int>(texts.indexOf(LoadText(none)));
    };
    m_hours = {line(m_hourTexts, Text::SpanHoursNone), FieldText(hours), hours, false};
    m_minutes = {line(m_minuteTexts, Text::SpanMinutesNone), FieldText(minutes), minutes, false};
    m_isCleared = false;
}

void SpanPad::Choose(Part& part, int line, int value) {
    part.line = line;
    part.isTouched = true;
    if (line != kNothingChosen) part.typed = FormatText<Text::PlainInteger>(value);
}

void SpanPad::Type(Part& part, const QString& text) {
    part.typed = text;
    part.isTouched = true;
}

void SpanPad::ChooseHour(int line) {
    Choose(m_hours, line, line);
}

void SpanPad::ChooseMinute(int line) {
    Choose(m_minutes, line, line * m_step);
}

void SpanPad::TypeHours(const QString& text) {
    Type(m_hours, text);
}

void SpanPad::TypeMinutes(const QString& text) {
    Type(m_minutes, text);
}

PadState SpanPad::Press(int id) {
    switch (id) {
        case kAccept:
            Accept();
            return PadState::Accepted;
        case kClear:
            m_isCleared = true;
            m_entry.spans.duration.Reset();
            m_entry.spans.Recompute();
            return PadState::Accepted;
        case kCancel:
            return PadState::Cancelled;
        default:
            return PadState::Open;
    }
}

/// A part that nobody touched is what it was; beside one that is entered, a part that wasn't set is 0.
bool SpanPad::Read(const Part& part, int greatest, int& out) {
    if (part.isTouched) return ScanPart(part.typed, greatest, out);
    out = part.opened < 0 ? 0 : part.opened;
    return true;
}

/// What is typed counts if both fields can be read: 1 and 30 are 1:30. Otherwise both fields are left and the
/// lists count: 25 hours give what the lists say, and a list without a choice gives no length of time at all.
void SpanPad::Accept() {
    int hours = m_hours.opened;
    int minutes = m_minutes.opened;
    const bool isTouched = m_hours.isTouched || m_minutes.isTouched;
    if (isTouched && (!Read(m_hours, kHours - 1, hours) || !Read(m_minutes, kMinutes - 1, minutes))) {
        hours = m_hours.line == kNothingChosen ? -1 : m_hours.line;
        minutes = m_minutes.line == kNothingChosen ? -1 : m_minutes.line * m_step;
    }
    m_entry.SetDuration(hours, minutes, true);
}

std::optional<EnteredSpan> SpanPad::Span() const {
    const SpanField& span = m_entry.spans.duration;
    if (!span.IsSet()) return {};
    return EnteredSpan{span.hours, span.minutes};
}
