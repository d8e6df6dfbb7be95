#include "app/TimeFilter.h"

#include "app/CTimerService.h"
#include "app/FilterConditions.h"
#include "fields/ItemMembers.h"
#include "fields/TimeFields.h"

namespace {

constexpr auto kItems = ItemMembers<CTRecord>(kTimeFields);

}  // namespace

TimeFilter::TimeFilter() {
    TimeFilter::Reset();
}

void TimeFilter::Reset() {
    PeriodFilter::Reset();
    words.clear();
    items.fill(LoadText(Text::AnyWord));
    billable = FlagCriterion::kAny;
    billed = FlagCriterion::kAny;
    exported = FlagCriterion::kAny;
    timer = FlagCriterion::kAny;
}

bool TimeFilter::Matches(const CTRecord& record, const PeriodContext& context,
                         const CTimerService* timers) const {
    return Prepared(*this, context, timers).Matches(record);
}

RowConditions TimeFilter::Conditions(const PeriodContext& context) const {
    return ConditionsOf(*this, context, items, kItems);
}

TimeFilter::Prepared::Prepared(const TimeFilter& filter, const PeriodContext& context,
                               const CTimerService* timers)
    : m_tests(filter, context), m_timers(timers), m_timer(filter.timer) {
    for (std::size_t i = 0; i < kItems.size(); ++i) m_tests.WantText(kItems[i], filter.items[i]);
    m_tests.WantWords(filter.words);
    m_tests.WantFlag(&CTRecord::isBillable, filter.billable);
    m_tests.WantFlag(&CTRecord::isBilled, filter.billed);
    m_tests.WantFlag(&CTRecord::isExported, filter.exported);
}

bool TimeFilter::Prepared::Matches(const CTRecord& record) const {
    return m_tests.MatchesDay(record) && m_tests.MatchesTexts(record) && m_tests.MatchesFlags(record) &&
           MatchesTimer(record) && m_tests.MatchesWords(record);
}

bool TimeFilter::Prepared::MatchesTimer(const CTRecord& record) const {
    if (m_timer == FlagCriterion::kAny) return true;
    return MatchesFlag(m_timer, m_timers && m_timers->HasTimer(record.GetId()));
}
