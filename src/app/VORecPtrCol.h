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
    void SetPlaceHere(std::uint32_t place) { m_slots[m_walk].place = place; }

 private:
    /// A slot without a record is free, or a grave: then its record was removed, and searches go on behind
    /// it.
    struct Slot {
        std::uint64_t hash = 0;
        CVORec* record = nullptr;
        std::uint32_t place = kNoPlace;
        bool isGrave = false;
    };
    static constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

    [[nodiscard]] std::size_t Locate(const QString& id) const;
    [[nodiscard]] CVORec* WalkFrom(std::size_t slot);
    void MakeRoom();
    void Rebuild(std::size_t slots);

    std::vector<Slot> m_slots;  ///< empty, or a power of two
    std::size_t m_count = 0;
    std::size_t m_used = 0;  ///< records and graves
    std::size_t m_walk = 0;
};
