#pragma once

#include "records/CVORec.h"

/// The two sets of dependencies between list items. They are stored under these numbers.
enum class DependencySet : int { Time = 55, Expense = 66 };
inline constexpr DependencySet kDependencySets[] = {DependencySet::Time, DependencySet::Expense};

[[nodiscard]] constexpr DependencySet DependencySetOf(RecordKind kind) {
    return kind == RecordKind::Time ? DependencySet::Time : DependencySet::Expense;
}
