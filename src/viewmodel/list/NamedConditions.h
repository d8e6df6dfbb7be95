#pragma once

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"

#include <QString>
#include <QStringList>
#include <vector>

class CCfgStore;
class CVelmarchDoc;

/// One condition of a filter besides its period, in the user's words for the fields.
template <class Filter>
struct NamedCondition {
    QString words;   ///< "Client: Hollis Bakery"
    Filter without;  ///< what is left of the filter when it ends
    Filter alone;    ///< it and the period
};

/// In the order in which the filter tests them; empty for a filter that has its period alone.
[[nodiscard]] std::vector<NamedCondition<TimeFilter>> ConditionsOf(const TimeFilter& filter,
                                                                   const CCfgStore& settings);
[[nodiscard]] std::vector<NamedCondition<ExpenseFilter>> ConditionsOf(const ExpenseFilter& filter,
                                                                      const CCfgStore& settings);

/// The conditions of the mode's filter in words.
[[nodiscard]] QStringList ConditionWords(const CVelmarchDoc& document);
/// Why the filter of the mode leaves nothing: the first condition that no record of the period passes, or all
/// of them where each alone leaves some.
[[nodiscard]] QString WhatLeavesNothing(CVelmarchDoc& document);
