#pragma once

/// The numbers by which settings, labels, reports and files name a field. They are stored as they stand.
/// 109 to 142 are also the lists that hold the user's own names of these fields; from 5000 on they name
/// columns that are computed from a record.
enum class FieldId : int {
    None = 0,  ///< a field that nothing stored names
    TimeItem1 = 109,
    TimeItem2 = 110,
    TimeItem3 = 111,
    TimeItem4 = 112,
    TimeRate = 113,
    TimeItem5 = 114,
    TimeAmount = 115,
    TimeNotes = 116,
    Billable = 117,
    Billed = 118,
    ExpenseItem1 = 131,
    ExpenseItem2 = 132,
    ExpenseItem3 = 133,
    ExpenseItem4 = 134,
    ExpenseItem5 = 135,
    ExpenseAmount = 136,
    ExpenseNotes = 137,
    Flag1 = 138,
    Flag2 = 139,
    Flag5 = 140,
    Flag3 = 141,
    Flag4 = 142,
    TimeExported = 146,
    ExpenseExported = 148,
    Date = 5000,  ///< of both kinds of records
    Duration = 5001,
    Effective = 5002,
    Break = 5003,
    Distance = 5004,
    Start = 5005,
    End = 5006,
    ExpenseRate = 5007,
};

/// The number of a field, for what is named by one. The lists below 131 and the headings are numbers alone.
[[nodiscard]] constexpr int NumberOf(FieldId field) {
    return static_cast<int>(field);
}
