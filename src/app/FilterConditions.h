#pragma once

#include "records/RowConditions.h"

#include <array>

class PeriodFilter;
struct PeriodContext;

/// What a filter asks of days and items, for a statement that leaves out what can't pass. The five texts are
/// wanted in these columns; the word for any: no condition.
[[nodiscard]] RowConditions ConditionsOf(const PeriodFilter& filter, const PeriodContext& context,
                                         const std::array<QString, 5>& items,
                                         const std::array<Text, 5>& columns);
