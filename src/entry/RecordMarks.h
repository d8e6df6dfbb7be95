#pragma once

class CTRecord;

/// A mark that the user sets on records. The numbers are those of the mark commands; 2 to 4 are of expenses.
enum class RecordMark : int { First = 0, FirstAndSecond = 1, Exported = 5, NotExported = 6 };

/// Sets a mark on a time record: the first one is billable, the second billed. False when the record has it
/// already and nothing was changed: a billable record that is marked first stays as it is, and isn't saved
/// again.
[[nodiscard]] bool SetMark(CTRecord& record, RecordMark mark);
