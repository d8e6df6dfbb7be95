#pragma once

#include "cli/arguments/OptionRow.h"
#include "cli/commands/CListedRecords.h"

#include <QString>
#include <span>

class CArguments;

/// --sort
[[nodiscard]] std::span<const OptionRow> SortOption();
/// The sentence that refuses; empty when the order can be read.
[[nodiscard]] QString ReadSort(RecordKind kind, const CArguments& arguments, ListOrder& order);
