#include "viewmodel/tree/CTreeLeaves.h"

#include <algorithm>
#include <utility>

namespace {

std::uint32_t HashOf(std::span<const std::uint32_t> row) {
    std::uint64_t hash = 0;
    for (const std::uint32_t number : row) hash = (hash ^ number) * 0x9E3779B97F4A7C15U + (hash >> 29U);
    return static_cast<std::uint32_t>(hash >> 32U);
}

}  // namespace

bool CTreeLeaves::Count(std::span<const std::uint32_t> row) {
    if ((m_counts.size() + 1) * 2 > m_slots.size()) Grow();
    const std::uint32_t hash = HashOf(row);
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = hash & mask;
    for (; m_slots[at].kind != kFree; at = (at + 1) & mask)
        if (m_slots[at].hash == hash && IsKind(m_slots[at].kind, row)) {
            ++m_counts[m_slots[at].kind];
            return false;
        }
    m_slots[at] = {hash, static_cast<std::uint32_t>(m_counts.size())};
    m_rows.insert(m_rows.end(), row.begin(), row.end());
    m_counts.push_back(1);
    return true;
}

bool CTreeLeaves::IsKind(std::size_t kind, std::span<const std::uint32_t> row) const {
    return std::equal(row.begin(), row.end(), m_rows.begin() + static_cast<std::ptrdiff_t>(kind * m_levels));
}

void CTreeLeaves::Grow() {
    constexpr std::size_t kFirstSize = 1024;
    const std::vector<Slot> former =
        std::exchange(m_slots, std::vector<Slot>(m_slots.empty() ? kFirstSize : m_slots.size() * 2));
    const std::size_t mask = m_slots.size() - 1;
    for (const Slot& slot : former) {
        if (slot.kind == kFree) continue;
        std::size_t at = slot.hash & mask;
        while (m_slots[at].kind != kFree) at = (at + 1) & mask;
        m_slots[at] = slot;
    }
}
