#include "shell/controls/CDateEdit.h"

#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "shell/controls/CCalendarPopup.h"
#include "viewmodel/fields/TypedTimes.h"

namespace {

QString TodayText(const CRegionalInfo& region, const CClock& clock) {
    const SYSTEMTIME today = clock.GetLocalTime();
    return FormatDate(region, today.wMonth, today.wDay, today.wYear);
}

}  // namespace

CDateEdit::CDateEdit(const CRegionalInfo& region, const CClock& clock, int firstDayOfWeek, QWidget* parent)
    : CPickEdit(FormatText<Text::DateForms>(TodayText(region, clock)), parent),
      m_region(region),
      m_clock(clock),
      m_firstDayOfWeek(firstDayOfWeek) {}

void CDateEdit::SetDate(const std::optional<DateTimeVal>& date) {
    m_date = date;
    ShowText(date ? TextOf(*date) : QString());
}

int CDateEdit::UnreadableTextId() const {
    return static_cast<int>(Text::DateUnreadable);
}

QString CDateEdit::WhyUnreadable() const {
    return FormatText<Text::DateUnreadable>(text(), TodayText(m_region, m_clock));
}

QString CDateEdit::TextOf(const DateTimeVal& date) const {
    return FormatDate(m_region, date.month, date.day, date.year);
}

bool CDateEdit::ReadText() {
    DateTimeVal date;
    const Typed read = ReadTypedDate(text(), m_region, m_clock, date);
    if (read == Typed::Nothing) m_date.reset();
    if (read == Typed::Value) m_date = date;
    return read != Typed::Unreadable;
}

DateTimeVal CDateEdit::DateOrToday() const {
    if (m_date) return *m_date;
    DateTimeVal today;
    const SYSTEMTIME now = m_clock.GetLocalTime();
    return today.SetDate(now.wMonth, now.wDay, now.wYear) ? today : DateTimeVal();
}

void CDateEdit::StepBy(int steps, bool isLarge) {
    DateTimeVal date = DateOrToday();
    // The first step into an empty field shows today.
    if (!m_date) steps = 0;
    if (isLarge)
        EnterText(TextOf(steps < 0 ? date.SubtractMonths(-steps) : date.AddMonths(steps)));
    else
        EnterText(TextOf(steps < 0 ? date.SubtractDays(-steps) : date.AddDays(steps)));
}

QWidget* CDateEdit::MakePopup() {
    auto* popup = new CCalendarPopup(DateOrToday(), m_firstDayOfWeek, this);
    connect(popup, &CCalendarPopup::Picked, this, [this](const DateTimeVal& day) { EnterText(TextOf(day)); });
    connect(popup, &CCalendarPopup::TodayWanted, this, [this] { EnterText(TodayText(m_region, m_clock)); });
    return popup;
}
