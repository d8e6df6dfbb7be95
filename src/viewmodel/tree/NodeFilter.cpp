#include "viewmodel/tree/NodeFilter.h"

#include "app/CVelmarchDoc.h"

namespace {

void WantExactTexts(NodeFilter& filter) {
    std::visit([](PeriodFilter& present) { present.matchWhole = present.matchCase = true; }, filter);
}

}  // namespace

NodeFilter FilterInForce(const CVelmarchDoc& document) {
    if (theRecordMode == RecordMode::Time) return document.Filter();
    return document.FilterOfExpenses();
}

void PutInForce(const NodeFilter& filter, CVelmarchDoc& document) {
    if (const auto* ofTimes = std::get_if<TimeFilter>(&filter)) document.Filter() = *ofTimes;
    if (const auto* ofExpenses = std::get_if<ExpenseFilter>(&filter))
        document.FilterOfExpenses() = *ofExpenses;
}

NodeFilter NarrowedTo(const TreePath& path, NodeFilter filter) {
    std::visit([&path](auto& present) { ApplyPath(path, present); }, filter);
    WantExactTexts(filter);
    return filter;
}

bool IsOfRoot(NodeFilter filter) {
    // Without a condition it doesn't matter how texts would be compared.
    WantExactTexts(filter);
    return filter == NarrowedTo({}, filter);
}
