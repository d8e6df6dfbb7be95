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
           IsOn(filter.timer) || !filter.words.isEmpty();
}

bool HasConditions(const ExpenseFilter& filter) {
    return IsOnText(filter.items) || filter.amount != -1.0F || IsOn(filter.distance) ||
           IsOn(filter.exported) || std::ranges::any_of(filter.flags, IsOn) || !filter.words.isEmpty();
}

EmptyReason WhyEmpty(const ListedRecords& records) {
    if (records.isLoading) return EmptyReason::Loading;
    if (records.listed > 0) return EmptyReason::NotEmpty;
    if (records.isStoreDamaged) return EmptyReason::Unreadable;
    if (records.loaded == 0) return EmptyReason::NoRecords;
    if (records.isSearched) return records.isEverywhere ? EmptyReason::NotAnywhere : EmptyReason::NotFound;
    return records.isNarrowed ? EmptyReason::Filtered : EmptyReason::InPeriod;
}
