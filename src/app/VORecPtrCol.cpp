#include "app/VORecPtrCol.h"

#include <QHashFunctions>
#include <utility>

namespace {

constexpr std::size_t kFirstSize = 64;

/// Entries, those of removed records included, take at most five eighths of the slots: runs of taken slots
/// stay short.
constexpr std::size_t RoomIn(std::size_t slots) {
    return slots / 8 * 5;
}

static_assert(sizeof(std::size_t) == sizeof(std::uint64_t), "qHash gives the 64 bits that an entry keeps");
constexpr std::size_t kSeed = 0x5E1C7A2093D44C7F;

std::uint64_t HashOf(const QString& id) {
    return qHash(id, kSeed);
}

/// The slots are chosen by the low bits, so the high ones tell their records apart.
std::uint32_t HighHalf(std::uint64_t hash) {
    return static_cast<std::uint32_t>(hash >> 32U);
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

CVORec* VORecPtrCol::WalkFrom(std::size_t entry) {
    while (entry < m_entries.size() && !m_entries[entry].record) ++entry;
    m_walk = entry;
    return entry < m_entries.size() ? m_entries[entry].record : nullptr;
}

std::unique_ptr<CVORec> VORecPtrCol::Add(std::unique_ptr<CVORec> record) {
    const std::uint64_t hash = HashOf(record->GetId());
    const std::size_t present = SlotOf(record->GetId(), hash);
    if (present != kNotFound) {
        Entry& entry = m_entries[m_slots[present].entry];
        entry.place = kNoPlace;
        return std::unique_ptr<CVORec>(std::exchange(entry.record, record.release()));
    }
    if (m_entries.size() + 1 > RoomIn(m_slots.size())) MakeRoom();
    m_entries.push_back({hash, record.release(), kNoPlace});
    Link(static_cast<std::uint32_t>(m_entries.size() - 1));
    ++m_count;
    return nullptr;
}

bool VORecPtrCol::Replace(std::unique_ptr<CVORec>& record) {
    Entry* entry = Locate(record->GetId());
    if (!entry) return false;
    record.reset(std::exchange(entry->record, record.release()));
    return true;
}

std::unique_ptr<CVORec> VORecPtrCol::Take(const QString& id) {
    const std::size_t at = SlotOf(id, HashOf(id));
    if (at == kNotFound) return nullptr;
    Entry& entry = m_entries[std::exchange(m_slots[at].entry, kGrave)];
    std::unique_ptr<CVORec> taken(std::exchange(entry.record, nullptr));
    --m_count;
    return taken;
}

CVORec* VORecPtrCol::Find(const QString& id) const {
    const Entry* entry = Locate(id);
    return entry ? entry->record : nullptr;
}

void VORecPtrCol::RemoveAll() {
    for (const Entry& entry : m_entries) delete entry.record;
    m_entries = {};
    m_slots = {};
    m_count = m_walk = 0;
}

void VORecPtrCol::Reserve(std::size_t records) {
    std::size_t slots = kFirstSize;
    while (RoomIn(slots) < records) slots *= 2;
    if (slots > m_slots.size()) Rebuild(slots);
}

std::uint32_t VORecPtrCol::PlaceOf(const QString& id) const {
    const Entry* entry = Locate(id);
    return entry ? entry->place : kNoPlace;
}

void VORecPtrCol::SetPlace(const QString& id, std::uint32_t place) {
    if (Entry* entry = Locate(id)) entry->place = place;
}

std::size_t VORecPtrCol::SlotOf(const QString& id, std::uint64_t hash) const {
    if (m_slots.empty()) return kNotFound;
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask; m_slots[at].entry != kFree; at = (at + 1) & mask) {
        const Slot& slot = m_slots[at];
        if (slot.entry != kGrave && slot.hash == HighHalf(hash) &&
            m_entries[slot.entry].record->GetId() == id)
            return at;
    }
    return kNotFound;
}

VORecPtrCol::Entry* VORecPtrCol::Locate(const QString& id) {
    const std::size_t at = SlotOf(id, HashOf(id));
    return at == kNotFound ? nullptr : &m_entries[m_slots[at].entry];
}

const VORecPtrCol::Entry* VORecPtrCol::Locate(const QString& id) const {
    const std::size_t at = SlotOf(id, HashOf(id));
    return at == kNotFound ? nullptr : &m_entries[m_slots[at].entry];
}

/// Puts an entry into the next free slot of its run.
void VORecPtrCol::Link(std::uint32_t entry) {
    const std::uint64_t hash = m_entries[entry].hash;
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = hash & mask;
    while (m_slots[at].entry != kFree) at = (at + 1) & mask;
    m_slots[at] = {HighHalf(hash), entry};
}

/// Doubles the table, except where it is mostly graves: then it is built anew in its size.
void VORecPtrCol::MakeRoom() {
    if (m_slots.empty())
        Rebuild(kFirstSize);
    else
        Rebuild(m_count > RoomIn(m_slots.size()) / 2 ? m_slots.size() * 2 : m_slots.size());
}

void VORecPtrCol::Rebuild(std::size_t slots) {
    std::erase_if(m_entries, [](const Entry& entry) { return !entry.record; });
    m_entries.reserve(RoomIn(slots));
    m_slots.assign(slots, {});
    for (std::uint32_t entry = 0; entry < m_entries.size(); ++entry) Link(entry);
}
