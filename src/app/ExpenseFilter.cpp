#include "app/ExpenseFilter.h"

#include "app/FilterConditions.h"
#include "fields/ExpenseFields.h"
#include "fields/ItemMembers.h"

#include <algorithm>

namespace {

constexpr auto kItems = ItemMembers<CERecord>(kExpenseFields);
constexpr std::array<bool CERecord::*, 5> kFlags = {&CERecord::flag1, &CERecord::flag2, &CERecord::flag3,
                                                    &CERecord::flag4, &CERecord::flag5};

}  // namespace

QString NoteOnAmount(float amount, int comparison) {
    const bool isGreater = comparison == AmountComparison::kGreater;
    const bool isBelow = amount < 0.0F || (amount == 0.0F && comparison == AmountComparison::kLess);
    if (!isBelow || amount == ExpenseFilter::kAnyAmount) return {};
    return LoadText(isGreater ? Text::AmountFindsAll : Text::AmountFindsNothing);
}

ExpenseFilter::ExpenseFilter() {
    ExpenseFilter::Reset();
}

void ExpenseFilter::Reset() {
    PeriodFilter::Reset();
    words.clear();
    items.fill(LoadText(Text::AnyWord));
    amount = kAnyAmount;
    comparison = AmountComparison::kEqual;
    distance = FlagCriterion::kAny;
    flags.fill(FlagCriterion::kAny);
    exported = FlagCriterion::kAny;
}

bool ExpenseFilter::Matches(const CERecord& record, const PeriodContext& context) const {
    return Prepared(*this, context).Matches(record);
}

RowConditions ExpenseFilter::Conditions(const PeriodContext& context) const {
    return ConditionsOf(*this, context, items, kItems);
}

ExpenseFilter::Prepared::Prepared(const ExpenseFilter& filter, const PeriodContext& context)
    : m_tests(filter, context), m_amount(filter.amount), m_comparison(filter.comparison) {
    for (std::size_t i = 0; i < kItems.size(); ++i) m_tests.WantText(kItems[i], filter.items[i]);
    m_tests.WantWords(filter.words);
    m_tests.WantFlag(&CERecord::isDistance, filter.distance);
    for (std::size_t i = 0; i < kFlags.size(); ++i) m_tests.WantFlag(kFlags[i], filter.flags[i]);
    m_tests.WantFlag(&CERecord::isExported, filter.exported);
}

bool ExpenseFilter::Prepared::Matches(const CERecord& record) const {
    return m_tests.MatchesDay(record) && m_tests.MatchesTexts(record) && MatchesAmount(record) &&
           m_tests.MatchesFlags(record) && m_tests.MatchesWords(record);
}

/// An expense without amount counts as 0: wanted are those under 10, and it is among them.
bool ExpenseFilter::Prepared::MatchesAmount(const CERecord& record) const {
    if (m_amount == kAnyAmount) return true;
    const float total = std::max(record.amount.value, 0.0F);
    switch (m_comparison) {
        case AmountComparison::kLess:
            return total < m_amount;
        case AmountComparison::kGreater:
            return total > m_amount;
        case AmountComparison::kEqual:
            return total == m_amount;
        default:
            return false;
    }
}
