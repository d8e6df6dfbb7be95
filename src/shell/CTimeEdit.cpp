#include "shell/CTimeEdit.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "shell/CPickPopup.h"
#include "shell/core/TypedTimes.h"

namespace {

constexpr int kMinutesOfDay = 24 * 60;

int MinutesOf(const DateTimeVal& time) {
    return time.Hour24() * 60 + time.minute;
}

QStringList HourCaptions(bool is24Hour) {
    QStringList captions;
    for (int hour24 = 0; hour24 < 24; ++hour24) {
        int hour12 = 0;
        bool isPm = false;
        Hour12Of(hour24, hour12, isPm);
        captions << (is24Hour ? FormatText<Text::PickedHour24>(hour24)
                              : FormatText<Text::PickedHour12>(hour12,
                                                               LoadText(isPm ? Text::PmWord : Text::AmWord)));
    }
    return captions;
}

}  // namespace

CTimeEdit::CTimeEdit(const CRegionalInfo& region, const CClock& clock, int step, QWidget* parent)
    : CPickEdit(LoadText(Text::TimeForms), parent), m_region(region), m_clock(clock), m_step(step) {}

void CTimeEdit::SetTime(const std::optional<DateTimeVal>& time) {
    m_time = time;
    ShowText(time ? TextOf(*time) : QString());
}

int CTimeEdit::UnreadableTextId() const {
    return static_cast<int>(Text::TimeUnreadable);
}

QString CTimeEdit::WhyUnreadable() const {
    return FormatText<Text::TimeUnreadable>(text());
}

QString CTimeEdit::TextOf(const DateTimeVal& time) const {
    return FormatTimeOfDay(m_region, time.hour12, time.minute, time.isPm != 0);
}

bool CTimeEdit::ReadText() {
    DateTimeVal time;
    const Typed read = ReadTypedTime(text(), m_clock, time);
    if (read == Typed::Nothing) m_time.reset();
    if (read == Typed::Value) m_time = time;
    return read != Typed::Unreadable;
}

/// An empty field starts at the present time, brought down to a step: at 9:07 the first Up gives 9:10.
DateTimeVal CTimeEdit::TimeOrNow() const {
    if (m_time) return *m_time;
    DateTimeVal now;
    if (now.SetTimeFromClock(m_clock.GetLocalTime())) now.minute -= now.minute % m_step;
    return now;
}

void CTimeEdit::EnterMinutes(int minutesOfDay) {
    const int minutes = (minutesOfDay % kMinutesOfDay + kMinutesOfDay) % kMinutesOfDay;
    DateTimeVal time;
    if (time.SetTime24(minutes / 60, minutes % 60)) EnterText(TextOf(time));
}

/// To the next multiple of the step, wrapping at midnight; a large step is an hour.
void CTimeEdit::StepBy(int steps, bool isLarge) {
    const int now = MinutesOf(TimeOrNow());
    if (isLarge) {
        EnterMinutes(now + 60 * steps);
        return;
    }
    const int over = now % 60 % m_step;
    const bool isDownToMultiple = steps < 0 && over > 0;
    EnterMinutes(isDownToMultiple ? now - over : now - over + steps * m_step);
}

QWidget* CTimeEdit::MakePopup() {
    const DateTimeVal start = TimeOrNow();
    const CPickPopup::Choice choice{HourCaptions(m_region.is24Hour), m_step, start.Hour24(), start.minute,
                                    true};
    auto* popup = new CPickPopup(choice, this);
    connect(popup, &CPickPopup::Picked, this,
            [this](int hour, int minute) { EnterMinutes(hour * 60 + minute); });
    connect(popup, &CPickPopup::Cleared, this, [this] { EnterText({}); });
    connect(popup, &CPickPopup::NowWanted, this, [this] {
        DateTimeVal now;
        if (now.SetTimeFromClock(m_clock.GetLocalTime())) EnterText(TextOf(now));
    });
    return popup;
}
