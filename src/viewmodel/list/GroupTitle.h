#pragma once

#include "viewmodel/list/ListGroups.h"

#include <QString>

struct Settings;

/// What the head of a group says of its time. firstDay and today are numbers of DayOrder.
/// "Thursday 11/19/26", "Week 47, 11/16/26 – 11/22/26", "November 2026", "Without a date"; in front of
/// today's group "Today", "This week" or "This month", of the day before "Yesterday".
[[nodiscard]] QString GroupTitle(std::uint32_t firstDay, ListGroups groups, std::uint32_t today,
                                 const Settings& settings);
