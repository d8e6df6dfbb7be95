#pragma once

#include "config/EntryContent.h"
#include "reports/query/StoredQuery.h"

#include <optional>

// A stored query as the values of its entry, in the order in which they are written.

[[nodiscard]] EntryContent ContentOf(const TimeQuery& query);
[[nodiscard]] EntryContent ContentOf(const ExpenseQuery& query);
/// Nothing when a value is missing, of another type, or holds what none holds that the program writes: read
/// as something else, a query would match more than it says.
[[nodiscard]] std::optional<TimeQuery> TimeQueryOf(const EntryContent& content);
[[nodiscard]] std::optional<ExpenseQuery> ExpenseQueryOf(const EntryContent& content);
