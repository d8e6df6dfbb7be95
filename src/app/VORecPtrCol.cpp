#include "app/VORecPtrCol.h"

#include <QHashFunctions>
#include <utility>

namespace {

constexpr std::size_t kFirstSize = 64;

/// Records and graves take at most five eighths of the slots: runs of taken slots stay short.
constexpr std::size_t RoomIn(std::size_t slots) {
    return slots / 8 * 5;
}

static_assert(sizeof(std::size_t) == sizeof(std::uint64_t), "qHash gives the 64 bits that a slot keeps");
constexpr std::size_t kSeed = 0x5E1C7A2093D44C7F;

std::uint64_t HashOf(const QString& id) {
    return qHash(id, kSeed);
}

}  // namespace

VORecPtrCol::~VORecPtrCol() {
    RemoveAll();
}

CVORec* VORecPtrCol::GetFirst() {
    return WalkFrom(0);
}

CVORec* VORecPtrCol::GetNext() {
    return WalkFrom(m_walk + 1);
}

CVORec* VORecPtrCol::WalkFrom(std::size_t slot) {
    while (slot < m_slots.size() && !m_slots[slot].record) ++slot;
    m_walk = slot;
    return slot < m_slots.size() ? m_slots[slot].record : nullptr;
}

std::unique_ptr<CVORec> VORecPtrCol::Add(std::unique_ptr<CVORec> record) {
    const std::size_t present = Locate(record->GetId());
    if (present != kNotFound) {
        Slot& slot = m_slots[present];
        slot.place = kNoPlace;
        return std::unique_ptr<CVORec>(std::exchange(slot.record, record.release()));
    }
    if (m_used + 1 > RoomIn(m_slots.size())) MakeRoom();
    const std::uint64_t hash = HashOf(record->GetId());
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = hash & mask;
    while (m_slots[at].record || m_slots[at].isGrave) at = (at + 1) & mask;
    m_slots[at] = {hash, record.release(), kNoPlace, false};
    ++m_count;
    ++m_used;
    return nullptr;
}

bool VORecPtrCol::Replace(std::unique_ptr<CVORec>& record) {
    const std::size_t at = Locate(record->GetId());
    if (at == kNotFound) return false;
    record.reset(std::exchange(m_slots[at].record, record.release()));
    return true;
}

std::unique_ptr<CVORec> VORecPtrCol::Take(const QString& id) {
    const std::size_t at = Locate(id);
    if (at == kNotFound) return nullptr;
    std::unique_ptr<CVORec> taken(m_slots[at].record);
    m_slots[at] = {0, nullptr, kNoPlace, true};
    --m_count;
    return taken;
}

CVORec* VORecPtrCol::Find(const QString& id) const {
    const std::size_t at = Locate(id);
    return at == kNotFound ? nullptr : m_slots[at].record;
}

void VORecPtrCol::RemoveAll() {
    for (const Slot& slot : m_slots) delete slot.record;
    m_slots = {};
    m_count = m_used = m_walk = 0;
}

void VORecPtrCol::Reserve(std::size_t records) {
    std::size_t slots = kFirstSize;
    while (RoomIn(slots) < records) slots *= 2;
    if (slots > m_slots.size()) Rebuild(slots);
}

/// Doubles the table, except where it is mostly graves: then it is built anew in its size.
void VORecPtrCol::MakeRoom() {
    if (m_slots.empty())
        Rebuild(kFirstSize);
    else
        Rebuild(m_count > RoomIn(m_slots.size()) / 2 ? m_slots.size() * 2 : m_slots.size());
}

std::uint32_t VORecPtrCol::PlaceOf(const QString& id) const {
    const std::size_t at = Locate(id);
    return at == kNotFound ? kNoPlace : m_slots[at].place;
}

void VORecPtrCol::SetPlace(const QString& id, std::uint32_t place) {
    const std::size_t at = Locate(id);
    if (at != kNotFound) m_slots[at].place = place;
}

std::size_t VORecPtrCol::Locate(const QString& id) const {
    if (m_count == 0) return kNotFound;
    const std::uint64_t hash = HashOf(id);
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot& slot = m_slots[at];
        if (slot.record && slot.hash == hash && slot.record->GetId() == id) return at;
        if (!slot.record && !slot.isGrave) return kNotFound;
    }
}

void VORecPtrCol::Rebuild(std::size_t slots) {
    std::vector<Slot> former(slots);
    former.swap(m_slots);
    const std::size_t mask = slots - 1;
    for (const Slot& slot : former) {
        if (!slot.record) continue;
        std::size_t at = slot.hash & mask;
        while (m_slots[at].record) at = (at + 1) & mask;
        m_slots[at] = slot;
    }
    m_used = m_count;
}
