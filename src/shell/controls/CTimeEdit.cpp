#include "shell/controls/CTimeEdit.h"

#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "shell/controls/CTimePopup.h"
#include "viewmodel/fields/TypedTimes.h"

namespace {

constexpr int kMinutesOfDay = 24 * 60;

int MinutesOf(const DateTimeVal& time) {
    return time.Hour24() * 60 + time.minute;
}

}  // namespace

CTimeEdit::CTimeEdit(const CRegionalInfo& region, const TimePicking& picking, int step, QWidget* parent)
    : CPickEdit(LoadText(Text::TimeForms), parent), m_region(region), m_picking(picking), m_step(step) {}

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
    const Typed read = ReadTypedTime(text(), m_picking.clock, time);
    if (read == Typed::Nothing) m_time.reset();
    if (read == Typed::Value) m_time = time;
    return read != Typed::Unreadable;
}

/// An empty field starts at the present time, brought down to a step: at 9:07 the first Up gives 9:10.
DateTimeVal CTimeEdit::TimeOrNow() const {
    if (m_time) return *m_time;
    DateTimeVal now;
    if (now.SetTimeFromClock(m_picking.clock.GetLocalTime())) now.minute -= now.minute % m_step;
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
    auto* popup = new CTimePopup(m_picking, m_region.is24Hour, m_time, this);
    connect(popup, &CPickPopup::Accepted, this, [this, popup] {
        const auto time = popup->Time();
        EnterText(time ? TextOf(*time) : QString());
    });
    return popup;
}
