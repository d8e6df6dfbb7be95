#include "viewmodel/list/CWorkedTotals.h"

#include "app/CVelmarchDoc.h"
#include "records/CTRecord.h"

namespace {

DateTimeVal DayOf(const CTRecord& record) {
    DateTimeVal day;
    if (record.date.IsSet()) (void)day.SetDate(record.date.month, record.date.day, record.date.year);
    return day;
}

}  // namespace

/// A window may be open for days: what comes next tells that another one has begun.
void CWorkedTotals::OnHint(Hint hint, const QStringList& ids) {
    if (m_isKnown && hint != Hint::Clear) NoteDays();
    switch (hint) {
        case Hint::Clear:
            m_isKnown = false;
            m_week.clear();
            return;
        case Hint::AboutToGo:
        case Hint::AboutToChange:
        case Hint::Deleted:
            for (const QString& id : ids) m_week.remove(id);
            return;
        case Hint::Added:
        case Hint::Changed:
            for (const QString& id : ids) Take(id);
            return;
        case Hint::Rebuild:
            NoteDays();
            return;
        default:
            return;
    }
}

/// A new day, or another first day of the week, is another week to look for.
void CWorkedTotals::NoteDays() {
    const PeriodContext context = m_document.GetPeriodContext();
    DateTimeVal today, first, last;
    (void)today.SetToday(context.clock);
    today.WeekRange(context.firstDayOfWeek, first, last);
    const bool isSame = m_isKnown && today.IsSameDate(m_today) && first.IsSameDate(m_first);
    m_today = today;
    m_first = first;
    m_last = last;
    if (!isSame) TakeAll();
}

void CWorkedTotals::TakeAll() {
    m_week.clear();
    TimeFilter week;
    week.SetRange(m_first, m_last, m_document.GetPeriodContext());
    for (const CVORec* record : m_document.CollectPassing(week)) Take(*record);
    m_isKnown = true;
}

void CWorkedTotals::Take(const QString& id) {
    m_week.remove(id);
    if (const CVORec* record = m_document.FindLoaded(id)) Take(*record);
}

void CWorkedTotals::Take(const CVORec& record) {
    if (record.Kind() != RecordKind::Time || !m_first.IsValid()) return;
    const auto& time = static_cast<const CTRecord&>(record);
    const DateTimeVal day = DayOf(time);
    float hours = 0.0F;
    const bool isThisWeek = day.IsValid() && !day.IsEarlierDate(m_first) && !day.IsLaterDate(m_last);
    if (isThisWeek && time.spans.effective.GetDecimal(hours))
        m_week.insert(record.GetId(), {day, static_cast<double>(hours)});
}

double CWorkedTotals::Today() const {
    double hours = 0.0;
    for (const Worked& worked : m_week)
        if (worked.day.IsSameDate(m_today)) hours += worked.hours;
    return hours;
}

double CWorkedTotals::ThisWeek() const {
    double hours = 0.0;
    for (const Worked& worked : m_week) hours += worked.hours;
    return hours;
}
