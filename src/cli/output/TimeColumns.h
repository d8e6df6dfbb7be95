#pragma once

#include "cli/output/RecordColumns.h"

/// The fields of a time record.
[[nodiscard]] std::span<const RecordColumn> TimeColumns();
/// By date, start and identity.
[[nodiscard]] int CompareTimeDays(const CVORec& a, const CVORec& b);
