#pragma once

#include "fields/FieldRow.h"

#include <memory>
#include <vector>

/// A record that was edited, as it was at three moments; all are of one kind.
struct EditedRecord {
    const CVORec& began;      ///< as it was stored when the editing began
    const CVORec& untouched;  ///< the same with what its timer has counted since: nothing entered
    const CVORec& entered;    ///< as the user has left it
};

/// What a record shall hold that others have changed while it was edited.
struct MergedRecord {
    /// Which side a field is taken from that was entered here and changed there, to different values.
    enum class Side { Entered, Stored };

    std::unique_ptr<CVORec> record;
    /// Those fields, in the order of the table, where the two differ; empty: nobody has to be asked.
    std::vector<const FieldRow*> clashes;
};

/// Brings together what was entered and what is stored by now, field by field: one that wasn't entered takes
/// the stored value, one that wasn't changed in the store takes the entered one. Fields that are bound to one
/// another come from one side. A rate or an amount that only followed the times wasn't entered, and follows
/// the times that are taken.
[[nodiscard]] MergedRecord MergeRecords(const EditedRecord& edited, const CVORec& stored,
                                        MergedRecord::Side side);

/// Whether two records of a kind hold the same in every field; their identities don't matter.
[[nodiscard]] bool HaveSameContent(const CVORec& one, const CVORec& other);
