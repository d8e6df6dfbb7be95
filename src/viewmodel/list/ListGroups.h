#pragma once

#include <cstdint>

/// By what the list is parted while it is sorted by date. Stored as these numbers.
enum class ListGroups : int { None = 0, Days = 1, Weeks = 2, Months = 3 };

/// Of a stored number; one that isn't known is None.
[[nodiscard]] ListGroups ListGroupsOf(std::int32_t stored);

/// The first day of the group that a day belongs to. Days are numbers of DayOrder; 0, no day, is a group of
/// its own. firstDayOfWeek: 0 Sunday to 6 Saturday.
/// Thursday 19 November 2026 by weeks that begin on Monday: 16 November; by months: 1 November.
[[nodiscard]] std::uint32_t FirstDayOfGroup(std::uint32_t day, ListGroups groups, int firstDayOfWeek);
