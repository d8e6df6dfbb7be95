#pragma once

#include "changes/CHistory.h"

#include <optional>
#include <vector>

/// What is undone or done again at once: a change, and with the new text of a list item what was carried of
/// it into the settings, which is a transaction of its own.
struct HistoryStep {
    HistoryRow change;
    std::optional<HistoryRow> carried = {};
};

/// The steps of a way, the next one first: they are undone from the newest on, and done again in the order in
/// which they were made. changes: the newest first.
[[nodiscard]] std::vector<HistoryStep> StepsOf(const std::vector<HistoryRow>& changes, CHistory::Way way);
/// Those of the changes that the user knows: without what was carried.
[[nodiscard]] std::vector<HistoryRow> ListedChanges(const std::vector<HistoryRow>& changes);
