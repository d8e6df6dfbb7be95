#pragma once

#include "records/RecordColumns.h"

// What LoadColumns does for each kind of records; the row has these columns.

void LoadTimeColumns(CTRecord& record, const RowTable& rows, std::size_t row, ColumnSet columns);
void LoadExpenseColumns(CERecord& record, const RowTable& rows, std::size_t row, ColumnSet columns);
