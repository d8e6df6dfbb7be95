#pragma once

#include "fields/FieldRow.h"

#include <span>

/// The fields of a kind of records, time or expense, in the order in which JSON names them.
[[nodiscard]] std::span<const FieldRow> FieldsOf(RecordKind kind);
/// Null for a number that names no field. The date, which both kinds have, is the time record's.
[[nodiscard]] const FieldRow* FindField(int number);
/// Null when records of that kind have no such field.
[[nodiscard]] const FieldRow* FindField(RecordKind kind, int number);
/// The field that a column of the list or the tree shows; null for a number that is no column.
[[nodiscard]] const FieldRow* FieldOfColumn(int column);
