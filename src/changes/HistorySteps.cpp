#include "changes/HistorySteps.h"

#include <algorithm>

namespace {

/// Whether what was carried belongs to a change that was made just before.
bool IsCarriedBy(const HistoryRow& carried, const HistoryRow& change) {
    const bool isOfItem = change.kind == ChangeKind::Merge || change.kind == ChangeKind::Rename ||
                          change.kind == ChangeKind::Replace;
    return carried.kind == ChangeKind::Carry && isOfItem && carried.IsDone() == change.IsDone();
}

bool IsOnWay(const HistoryRow& row, CHistory::Way way) {
    return way == CHistory::Way::Undo ? row.IsDone() : row.state == ChangeState::Undone;
}

}  // namespace

std::vector<HistoryStep> StepsOf(const std::vector<HistoryRow>& changes, CHistory::Way way) {
    std::vector<HistoryStep> steps;
    std::optional<HistoryRow> carried;
    const auto endCarried = [&] {
        if (carried) steps.push_back({*carried});
        carried.reset();
    };
    for (const HistoryRow& row : changes) {
        if (!IsOnWay(row, way)) continue;
        if (carried && IsCarriedBy(*carried, row)) {
            steps.push_back({row, carried});
            carried.reset();
            continue;
        }
        endCarried();
        if (row.kind == ChangeKind::Carry)
            carried = row;
        else
            steps.push_back({row});
    }
    endCarried();
    if (way == CHistory::Way::Redo) std::ranges::reverse(steps);
    return steps;
}

std::vector<HistoryRow> ListedChanges(const std::vector<HistoryRow>& changes) {
    std::vector<HistoryRow> listed;
    for (std::size_t at = 0; at < changes.size(); ++at)
        if (at + 1 == changes.size() || !IsCarriedBy(changes[at], changes[at + 1]))
            listed.push_back(changes[at]);
    return listed;
}
