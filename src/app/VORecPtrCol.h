#pragma once

#include "records/CVORec.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

/// All loaded records of one kind, owned, found by identity in constant time (a million records: well under a
/// microsecond). The order of iteration is promised to nobody.
class VORecPtrCol {
 public:
    VORecPtrCol();
    ~VORecPtrCol();
    VORecPtrCol(const VORecPtrCol&) = delete;
    VORecPtrCol& operator=(const VORecPtrCol&) = delete;

    /// Walks all records: for (CVORec* r = c.GetFirst(); r; r = c.GetNext()). No change during a walk.
    [[nodiscard]] CVORec* GetFirst();
    [[nodiscard]] CVORec* GetNext();
    /// Stores under the record's identity. What stood there before isn't destroyed but handed back.
    std::unique_ptr<CVORec> Add(std::unique_ptr<CVORec> record);
    /// Destroys the object of that identity and stores the new one; false, and the record is handed back,
    /// when it is absent.
    [[nodiscard]] bool Replace(std::unique_ptr<CVORec>& record);
    [[nodiscard]] bool Remove(const QString& id);
    [[nodiscard]] CVORec* Find(const QString& id) const;
    [[nodiscard]] bool Contains(const QString& id) const { return Find(id) != nullptr; }
    void RemoveAll();
    [[nodiscard]] std::size_t Count() const { return m_count; }
    void Reserve(std::size_t records);

 private:
    struct Slot {
        std::uint64_t hash = 0;
        CVORec* record = nullptr;
    };
    [[nodiscard]] std::size_t Locate(const QString& id, std::uint64_t hash) const;
    void Grow(std::size_t slots);

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
    std::size_t m_used = 0;  ///< with the graves of removed records
    std::size_t m_walk = 0;
};
