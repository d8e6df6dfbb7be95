#pragma once

/// Numbers of the pick lists that hold items of records. They are stored as they stand.
namespace ListId {
inline constexpr int kNone = 0;
inline constexpr int kClient = 16;
inline constexpr int kProject = 17;
inline constexpr int kTimeItem3 = 32;
inline constexpr int kTimeItem4 = 33;
inline constexpr int kTimeRate = 34;
inline constexpr int kExpenseItem3 = 68;
inline constexpr int kDistance = 69;
inline constexpr int kDistanceRate = 70;
inline constexpr int kExpenseItem4 = 71;
inline constexpr int kItem5 = 72;
inline constexpr int kAmount = 73;
}  // namespace ListId

/// The lists of field names: each holds at most one item that matters, the user's own name of a field. Those
/// of the fields' numbers name the field itself, the others head its list.
inline constexpr int kFirstLabel = 99;
inline constexpr int kLastLabel = 142;
/// Accepted from a store and left out: nothing shows them.
[[nodiscard]] constexpr bool IsIgnoredList(int list) {
    return list == 143 || list == 144;
}
