#include "shell/core/EmptyReason.h"

#include "app/TimeFilter.h"
#include "lang/LoadText.h"

#include <algorithm>

bool HasConditions(const TimeFilter& filter) {
    const QString& any = LoadText(Text::AnyWord);
    const bool onText = std::any_of(filter.items.begin(), filter.items.end(),
                                    [&any](const QString& item) { return item != any; });
    return onText || filter.billable != FlagCriterion::kAny || filter.billed != FlagCriterion::kAny ||
           filter.exported != FlagCriterion::kAny || filter.timer != FlagCriterion::kAny;
}

EmptyReason WhyEmpty(std::size_t listed, std::size_t loaded, bool loading, const TimeFilter& filter) {
    if (loading) return EmptyReason::Loading;
    if (listed > 0) return EmptyReason::NotEmpty;
    if (loaded == 0) return EmptyReason::NoRecords;
    return HasConditions(filter) ? EmptyReason::Filtered : EmptyReason::InPeriod;
}
