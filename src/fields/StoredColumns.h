#pragma once

#include "fields/FieldRow.h"
#include "records/MemberColumns.h"

/// The columns of the record's table from which a field is read.
[[nodiscard]] ColumnSet StoredColumnsOf(const FieldRow& field);
