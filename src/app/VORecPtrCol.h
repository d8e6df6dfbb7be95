#pragma once

#include "records/CVORec.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

/// All loaded records of one kind, owned, found by identity in constant time (a million records: well under a
/// microsecond). The order of iteration is promised to nobody.
///
/// Each record has a place, a number that the owner keeps beside it: the document notes there where in its
/// visible records this one stands, so that a change finds it without a search and without a second map.
class VORecPtrCol {
 public:
    static constexpr std::uint32_t kNoPlace = 0xFFFFFFFF;

    VORecPtrCol() = default;
    ~VORecPtrCol();
    VORecPtrCol(const VORecPtrCol&) = delete;
    VORecPtrCol& operator=(const VORecPtrCol&) = delete;

    /// Walks all records: for (CVORec* r = c.GetFirst(); r; r = c.GetNext()). No change during a walk.
    [[nodiscard]] CVORec* GetFirst();
    [[nodiscard]] CVORec* GetNext();
    /// Stores under the record's identity, without a place. What stood there before isn't destroyed but
    /// handed back.
    std::unique_ptr<CVORec> Add(std::unique_ptr<CVORec> record);
    /// Stores in the place of the object of that identity, which the caller gets back in record; false, and
    /// record unchanged, when it is absent.
    [[nodiscard]] bool Replace(std::unique_ptr<CVORec>& record);
    /// Destroys the record; false when it is absent.
    [[nodiscard]] bool Remove(const QString& id) { return Take(id) != nullptr; }
    /// Removes the record and hands it over; null when it is absent.
    [[nodiscard]] std::unique_ptr<CVORec> Take(const QString& id);
    [[nodiscard]] CVORec* Find(const QString& id) const;
    [[nodiscard]] bool Contains(const QString& id) const { return Find(id) != nullptr; }
    void RemoveAll();
    [[nodiscard]] std::size_t Count() const { return m_count; }
    /// Makes room, so that adding so many records doesn't rebuild the table on the way.
    void Reserve(std::size_t records);

    /// The place of a record, kNoPlace when it has none or is absent.
    [[nodiscard]] std::uint32_t PlaceOf(const QString& id) const;
    void SetPlace(const QString& id, std::uint32_t place);
    /// Sets the place of the record that the walk gave last.
    void SetPlaceHere(std::uint32_t place) { m_entries[m_walk].place = place; }

 private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;
    static constexpr std::uint32_t kGrave = 0xFFFFFFFE;  ///< its record was removed; searches go on behind it
    static constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

    /// The records in order of their adding, so that a walk goes through memory as they were allocated: at a
    /// million records three times as fast as in the order of the slots.
    struct Entry {
        std::uint64_t hash = 0;
        CVORec* record = nullptr;  ///< null after its removal, until the table is rebuilt
        std::uint32_t place = kNoPlace;
    };
    /// Half of the hash, and which entry: eight bytes, so that the table stays small.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = kFree;
    };

    [[nodiscard]] std::size_t SlotOf(const QString& id, std::uint64_t hash) const;
    [[nodiscard]] Entry* Locate(const QString& id);
    [[nodiscard]] const Entry* Locate(const QString& id) const;
    [[nodiscard]] CVORec* WalkFrom(std::size_t entry);
    void Link(std::uint32_t entry);
    void MakeRoom();
    void Rebuild(std::size_t slots);

    std::vector<Entry> m_entries;
    std::vector<Slot> m_slots;  ///< empty, or a power of two
    std::size_t m_count = 0;
    std::size_t m_walk = 0;
};
