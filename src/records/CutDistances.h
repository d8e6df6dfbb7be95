#pragma once

#include "records/FieldValues.h"

#include <QString>

class CVORec;

/// Whether less is read of an expense than the store holds: "12,35", stored where the comma is the decimal
/// character, is read as 12 where it isn't. False for records without a distance.
[[nodiscard]] bool HasCutDistance(const CVORec& record);

/// Counts such expenses. Their numbers are taken as they are read; the user must know of it.
class CutDistances {
 public:
    void Add(const CVORec& record) {
        if (HasCutDistance(record)) Note(record);
    }
    [[nodiscard]] int Count() const { return m_count; }
    /// How many and from which day on; empty without any.
    [[nodiscard]] QString Words() const;

 private:
    void Note(const CVORec& record);

    int m_count = 0;
    RecordDate m_first;  ///< not set: there is none, or none of them has a day
};
