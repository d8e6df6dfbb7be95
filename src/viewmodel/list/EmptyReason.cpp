#include "viewmodel/list/EmptyReason.h"

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"
#include "lang/LoadText.h"

#include <algorithm>

namespace {

bool IsOnText(const std::array<QString, 5>& items) {
    const QString& any = LoadText(Text::AnyWord);
    return std::ranges::any_of(items, [&any](const QString& item) { return item != any; });
}

bool IsOn(int flag) {
    return flag != FlagCriterion::kAny;
}

}  // namespace

bool HasConditions(const TimeFilter& filter) {
    return IsOnText(filter.items) || IsOn(filter.billable) || IsOn(filter.billed) || IsOn(filter.exported) ||
           IsOn(filter.timer);
}

bool HasConditions(const ExpenseFilter& filter) {
    return IsOnText(filter.items) || filter.amount != -1.0F || IsOn(filter.distance) ||
           IsOn(filter.exported) || std::ranges::any_of(filter.flags, IsOn);
}

EmptyReason WhyEmpty(std::size_t listed, std::size_t loaded, bool loading, bool narrowed) {
    if (loading) return EmptyReason::Loading;
    if (listed > 0) return EmptyReason::NotEmpty;
    if (loaded == 0) return EmptyReason::NoRecords;
    return narrowed ? EmptyReason::Filtered : EmptyReason::InPeriod;
}
