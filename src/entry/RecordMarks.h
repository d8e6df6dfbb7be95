#pragma once

#include "records/CVORec.h"

class CERecord;
class CTRecord;

/// A mark that the user sets on records. The numbers are those of the mark commands.
enum class RecordMark : int {
    First = 0,           ///< a time record becomes billable
    FirstAndSecond = 1,  ///< billable and billed
    Third = 2,           ///< 2 to 4 are of expenses
    ThirdAndFourth = 3,
    Fifth = 4,
    Exported = 5,
    NotExported = 6
};

/// Whether records of a kind know the mark.
[[nodiscard]] bool IsMarkOf(RecordKind kind, RecordMark mark);

/// Sets a mark. False when the record has it already, or its kind doesn't know it, and nothing was changed: a
/// billable record that is marked first stays as it is, and isn't saved again. The second of a pair decides:
/// a billable record that isn't billed takes FirstAndSecond.
[[nodiscard]] bool SetMark(CVORec& record, RecordMark mark);
