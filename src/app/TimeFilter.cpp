#include "app/TimeFilter.h"

#include "app/CTimerDesk.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"

#include <algorithm>

namespace {

constexpr std::array<QString CTRecord::*, 5> kItems = {&CTRecord::item1, &CTRecord::item2, &CTRecord::item3,
                                                       &CTRecord::item4, &CTRecord::item5};

/// Orders days as a comparison of year, then month, then day does, for every value that a record can hold.
std::int64_t DayKey(int month, int day, int year) {
    return (std::int64_t{year} * 65536 + month) * 65536 + day;
}

/// A criterion that is neither any, set nor clear lets nothing pass.
bool MatchesFlag(int criterion, bool flag) {
    return criterion == (flag ? FlagCriterion::kSet : FlagCriterion::kClear);
}

}  // namespace

TimeFilter::TimeFilter() {
    TimeFilter::Reset();
}

void TimeFilter::Reset() {
    PeriodFilter::Reset();
    items.fill(LoadText(Text::AnyWord));
    billable = FlagCriterion::kAny;
    billed = FlagCriterion::kAny;
    exported = FlagCriterion::kAny;
    timer = FlagCriterion::kAny;
}

bool TimeFilter::Matches(const CTRecord& record, const PeriodSurroundings& around,
                         const CTimerDesk* timers) const {
    return Prepared(*this, around, timers).Matches(record);
}

TimeFilter::Prepared::Prepared(const TimeFilter& filter, const PeriodSurroundings& around,
                               const CTimerDesk* timers)
    : m_timers(timers),
      m_matchWhole(filter.matchWhole),
      m_matchCase(filter.matchCase),
      m_timer(filter.timer) {
    DateTimeVal start;
    DateTimeVal end;
    if (filter.Dates(start, end, around))
        m_days = {DayKey(start.month, start.day, start.year), DayKey(end.month, end.day, end.year)};
    for (std::size_t i = 0; i < kItems.size(); ++i) {
        const QString& wanted = filter.items[i];
        if (wanted != LoadText(Text::AnyWord))
            m_texts.push_back({kItems[i], m_matchCase ? wanted : wanted.toLower()});
    }
    const FlagTest flags[] = {{&CTRecord::isBillable, filter.billable},
                              {&CTRecord::isBilled, filter.billed},
                              {&CTRecord::isExported, filter.exported}};
    for (const FlagTest& test : flags)
        if (test.wanted != FlagCriterion::kAny) m_flags.push_back(test);
}

bool TimeFilter::Prepared::Matches(const CTRecord& record) const {
    if (m_days) {
        const std::int64_t day = DayKey(record.date.month, record.date.day, record.date.year);
        if (day < m_days->first || day > m_days->second) return false;
    }
    for (const TextTest& test : m_texts)
        if (!MatchesText(test, record)) return false;
    for (const FlagTest& test : m_flags)
        if (!MatchesFlag(test.wanted, record.*test.flag)) return false;
    return MatchesTimer(record);
}

bool TimeFilter::Prepared::MatchesText(const TextTest& test, const CTRecord& record) const {
    const QString& text = record.*test.field;
    const QString compared = m_matchCase ? text : text.toLower();
    return m_matchWhole ? compared == test.wanted : compared.contains(test.wanted);
}

bool TimeFilter::Prepared::MatchesTimer(const CTRecord& record) const {
    if (m_timer == FlagCriterion::kAny) return true;
    return MatchesFlag(m_timer, m_timers && m_timers->HasTimer(record.GetId()));
}
