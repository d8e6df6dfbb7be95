#pragma once

#include "fields/FieldRow.h"
#include "lang/Text.h"

#include <QString>
#include <span>

class FieldLabels;
struct Settings;

/// One column of the records of a kind in text files.
struct TextColumn {
    const FieldRow* field;
    Text head{};  ///< none: what the field is called
};

/// In the order of the files, time records 15, expenses 17; the notes come last.
[[nodiscard]] std::span<const TextColumn> TextColumnsOf(RecordKind kind);
/// By what columns are called.
struct ColumnNames {
    const FieldLabels& labels;
    const Settings& settings;
};
[[nodiscard]] QString HeadOf(const TextColumn& column, const ColumnNames& names);

/// What means something for distance entries only: distance, odometer readings and the rate of an expense.
[[nodiscard]] bool IsOfDistanceEntry(const TextColumn& column);
/// What stands in the column for a record. A length or a time that isn't set is "--:--", a number that isn't
/// set nothing; a distance stands as it is stored.
[[nodiscard]] QString TextIn(const TextColumn& column, const CVORec& record);
