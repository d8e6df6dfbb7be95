#pragma once

#include "records/CStoreJournal.h"

#include <QString>

class RowCapture;

/// What a change is called: "delete 3 records".
[[nodiscard]] QString ChangeName(ChangeKind kind, int count);

/// What a change is, and of how many records, items or timers it is one.
struct CountedChange {
    ChangeKind kind;
    int count;
};

/// Of a change as it was made: kind as it was named, or what its rows say.
[[nodiscard]] CountedChange DescribeChange(ChangeKind named, const RowCapture& rows);
