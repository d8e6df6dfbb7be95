#include "viewmodel/fields/TimePad.h"

#include "calendar/CalendarMath.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CTRecord.h"

namespace {

constexpr int kFirstHour = 1025;         ///< 12 in 12 hours, 0 in 24
constexpr int kFirstMinute = 1037;       ///< :00
constexpr int kFirstEveningHour = 1049;  ///< 12 in 24 hours
constexpr int kButtons = 12;
constexpr int kMinuteStep = 5;

std::vector<int> Ids(int first) {
    std::vector<int> ids;
    ids.reserve(kButtons);
    for (int place = 0; place < kButtons; ++place) ids.push_back(first + place);
    return ids;
}

/// How a field of a record is written, read and named in the title.
struct FieldRow {
    TimeField field;
    void (CTRecord::*set)(int hour, int minute, bool isPm);
    bool (CTRecord::*get)(int& hour, int& minute, bool& isPm) const;
    void (CTRecord::*clear)();
};
constexpr FieldRow kFields[] = {
    {TimeField::Start, &CTRecord::SetStart, &CTRecord::GetStart, &CTRecord::ClearStart},
    {TimeField::End, &CTRecord::SetEnd, &CTRecord::GetEnd, &CTRecord::ClearEnd},
};

const FieldRow& RowOf(TimeField field) {
    return kFields[field == TimeField::Start ? 0 : 1];
}

}  // namespace

/// A run of twelve buttons (two for AM and PM), the group in which one is lit, and what a tap does.
struct TimePad::ButtonRow {
    int first;
    int count;
    int TimePad::*lit;
    Tap tap;
};

std::vector<TimePad::ButtonRow> TimePad::ButtonRows(bool is24Hour) {
    if (is24Hour)
        return {{kFirstHour, kButtons, &TimePad::m_litHour, &TimePad::TapMorningHour},
                {kFirstEveningHour, kButtons, &TimePad::m_litHour, &TimePad::TapEveningHour},
                {kFirstMinute, kButtons, &TimePad::m_litMinute, &TimePad::TapMinute}};
    return {{kFirstHour, kButtons, &TimePad::m_litHour, &TimePad::TapHour12},
            {kFirstMinute, kButtons, &TimePad::m_litMinute, &TimePad::TapMinute},
            {kAm, 2, &TimePad::m_litHalf, &TimePad::TapHalf}};
}

TimePad::TimePad(const TimePicking& picking, CTimeControl& control, bool is24Hour)
    : m_picking(picking), m_control(control), m_is24Hour(is24Hour) {}

void TimePad::Open(const std::optional<DateTimeVal>& time) {
    m_picking.entry.Reset();
    m_litHour = m_litMinute = m_litHalf = 0;
    if (time) {
        Put({time->hour12, time->minute, time->isPm != 0});
        m_litHour = HourIdOfTime();
        m_litMinute = time->minute % kMinuteStep == 0 ? MinuteIdOfTime() : 0;
        if (!m_is24Hour) m_litHalf = time->isPm != 0 ? kPm : kAm;
    }
    ShowInControl();
}

PadState TimePad::Press(int id) {
    if (id == kAccept) return PadState::Accepted;
    if (id == kCancel) return PadState::Cancelled;
    if (id == kNow) return TakeNow();
    if (id == kClear) {
        (m_picking.entry.*RowOf(m_picking.field).clear)();
        return PadState::Accepted;
    }
    for (const ButtonRow& row : ButtonRows(m_is24Hour)) {
        if (id < row.first || id >= row.first + row.count) continue;
        (this->*row.tap)(id - row.first);
        this->*row.lit = id;
        ShowInControl();
    }
    return PadState::Open;
}

TimePad::Parts TimePad::EntryParts() const {
    Parts parts;
    (m_picking.entry.*RowOf(m_picking.field).get)(parts.hour, parts.minute, parts.isPm);
    return parts;
}

void TimePad::Put(const Parts& parts) {
    (m_picking.entry.*RowOf(m_picking.field).set)(parts.hour, parts.minute, parts.isPm);
}

/// Place 0 is 12; minute and half of the day stay.
void TimePad::TapHour12(int place) {
    Parts parts = EntryParts();
    parts.hour = place == 0 ? kButtons : place;
    Put(parts);
}

/// Hour 0 goes to the record as it stands; the record's repair of times makes it 12, midnight here.
void TimePad::TapMorningHour(int place) {
    Put({place, EntryParts().minute, false});
}

/// The same for noon: 0 in the afternoon is 12 PM.
void TimePad::TapEveningHour(int place) {
    Put({place, EntryParts().minute, true});
}

void TimePad::TapMinute(int place) {
    Parts parts = EntryParts();
    parts.minute = place * kMinuteStep;
    Put(parts);
}

void TimePad::TapHalf(int place) {
    Parts parts = EntryParts();
    parts.isPm = kAm + place == kPm;
    Put(parts);
}

/// The scratch record's time, repaired as a record repairs it: no time gives 12:00 AM.
DateTimeVal TimePad::ShownTime() const {
    Parts parts = EntryParts();
    NormaliseTime(parts.hour, parts.minute);
    DateTimeVal time;
    time.SetTime(parts.hour, parts.minute, parts.isPm);
    return time;
}

std::optional<DateTimeVal> TimePad::Time() const {
    if (EntryParts().hour == NoTimeHour) return {};
    return ShownTime();
}

void TimePad::ShowInControl() {
    SYSTEMTIME time;
    ShownTime().ToClockTime(time);
    // A time of the record is one of the day, which no control refuses.
    static_cast<void>(m_control.SetTime(time));
}

bool TimePad::ReadControl() {
    SYSTEMTIME shown{};
    DateTimeVal time;
    if (!m_control.GetTime(shown) || !time.SetTimeFromClock(shown)) return false;
    Put({time.hour12, time.minute, time.isPm != 0});
    return true;
}

void TimePad::ControlChanged() {
    if (ReadControl()) m_litHour = m_litMinute = m_litHalf = 0;
}

/// By way of the control, so that both agree. When it refuses the time, the pad stays open as it was.
PadState TimePad::TakeNow() {
    if (const int error = m_control.SetTime(m_picking.clock.GetLocalTime()); error != 0) {
        Tell(static_cast<int>(Text::ClockTimeRefused), FormatText<Text::ClockTimeRefused>(error));
        return PadState::Open;
    }
    if (ReadControl()) return PadState::Accepted;
    Tell(static_cast<int>(Text::ClockTimeUnreadable), LoadText(Text::ClockTimeUnreadable));
    return PadState::Cancelled;
}

void TimePad::Tell(int textId, const QString& text) {
    m_picking.prompt.Tell({.textId = textId,
                           .title = LoadText(Text::DateControlTitle),
                           .text = text,
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

QString TimePad::Title() const {
    const DateTimeVal time = ShownTime();
    const bool isStart = m_picking.field == TimeField::Start;
    if (m_is24Hour)
        return isStart ? FormatText<Text::PickedStart24>(time.Hour24(), time.minute)
                       : FormatText<Text::PickedEnd24>(time.Hour24(), time.minute);
    const QString& half = LoadText(time.isPm != 0 ? Text::PmWord : Text::AmWord);
    return isStart ? FormatText<Text::PickedStart12>(time.hour12, time.minute, half)
                   : FormatText<Text::PickedEnd12>(time.hour12, time.minute, half);
}

std::vector<int> TimePad::HourIds() const {
    std::vector<int> ids = Ids(kFirstHour);
    if (!m_is24Hour) return ids;
    for (const int id : Ids(kFirstEveningHour)) ids.push_back(id);
    return ids;
}

std::vector<int> TimePad::MinuteIds() {
    return Ids(kFirstMinute);
}

QString TimePad::CaptionOf(int id) const {
    if (id == kAm || id == kPm) return LoadText(id == kAm ? Text::AmWord : Text::PmWord);
    if (id >= kFirstEveningHour) return FormatText<Text::PickedHour24>(id - kFirstEveningHour + kButtons);
    if (id >= kFirstMinute) return FormatText<Text::PickedMinute>((id - kFirstMinute) * kMinuteStep);
    const int hour = id - kFirstHour;
    if (m_is24Hour) return FormatText<Text::PickedHour24>(hour);
    return FormatText<Text::NumberGrid>(hour == 0 ? kButtons : hour);
}

int TimePad::HourIdOfTime() const {
    const DateTimeVal time = ShownTime();
    const bool isEvening = m_is24Hour && time.isPm != 0;
    return (isEvening ? kFirstEveningHour : kFirstHour) + time.hour12 % kButtons;
}

int TimePad::MinuteIdOfTime() const {
    return kFirstMinute + ShownTime().minute / kMinuteStep;
}

int TimePad::HalfIdOfTime() const {
    return ShownTime().isPm != 0 ? kPm : kAm;
}
