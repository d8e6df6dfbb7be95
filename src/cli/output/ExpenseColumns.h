#pragma once

#include "cli/output/RecordColumns.h"

/// The fields of an expense.
[[nodiscard]] std::span<const RecordColumn> ExpenseColumns();
/// By date and identity.
[[nodiscard]] int CompareExpenseDays(const CVORec& a, const CVORec& b);
