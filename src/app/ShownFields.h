#pragma once

#include "records/MemberColumns.h"

#include <QString>
#include <optional>

class CVORec;
struct FieldRow;

// What a field of a record shows, whatever place shows it: the catalogue by its numbers, reports by the
// field's row, which walks over many records find once. The field is one of the record's kind.

/// Nothing when the field has no text form.
[[nodiscard]] std::optional<QString> ShownText(const CVORec& record, const FieldRow& field);
/// Nothing when the field has no number form. A value that is unset counts as 0, and so does an amount below
/// zero of an expense, and the distance of an expense that is no distance entry.
[[nodiscard]] std::optional<double> ShownNumber(const CVORec& record, const FieldRow& field);
/// The text, or the number with six significant digits.
[[nodiscard]] std::optional<QString> ShownDisplay(const CVORec& record, const FieldRow& field);
/// The columns of the store from which all of these are read.
[[nodiscard]] ColumnSet ShownColumns(const FieldRow& field);
