#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Counts equal rows of numbers: of a million records that lie below a few thousand nodes of the lowest
/// level, each takes one look-up in place of one for every level.
class CTreeLeaves {
 public:
    /// levels: numbers in a row, at least 1.
    explicit CTreeLeaves(std::size_t levels) : m_levels(levels) {}

    /// Counts a row; true when it is the first of its kind.
    bool Count(std::span<const std::uint32_t> row);
    /// Rows of different numbers.
    [[nodiscard]] std::size_t Kinds() const { return m_counts.size(); }
    [[nodiscard]] int CountOf(std::size_t kind) const { return m_counts[kind]; }

 private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t kind = kFree;
    };
    [[nodiscard]] bool IsKind(std::size_t kind, std::span<const std::uint32_t> row) const;
    void Grow();

    std::size_t m_levels;
    std::vector<Slot> m_slots;          ///< empty, or a power of two
    std::vector<std::uint32_t> m_rows;  ///< one kind behind the other
    std::vector<int> m_counts;          ///< in order of their coming
};
