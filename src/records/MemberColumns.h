#pragma once

#include "records/ColumnSet.h"
#include "records/FieldValues.h"

#include <QString>
#include <cstddef>

class CERecord;
class CTRecord;
class RowTable;

/// The columns from which a member is read.
[[nodiscard]] ColumnSet ColumnsOf(QString CTRecord::*member);
[[nodiscard]] ColumnSet ColumnsOf(bool CTRecord::*member);
[[nodiscard]] ColumnSet ColumnsOf(DecimalField CTRecord::*member);
[[nodiscard]] ColumnSet ColumnsOf(RecordDate CTRecord::*member);
/// The net time needs those of both others.
[[nodiscard]] ColumnSet ColumnsOf(SpanField SpanSet::*member);
/// Of the start or the end, by its getter.
[[nodiscard]] ColumnSet ColumnsOf(bool (CTRecord::*getTime)(int&, int&, bool&) const);
[[nodiscard]] ColumnSet ColumnsOf(QString CERecord::*member);
[[nodiscard]] ColumnSet ColumnsOf(bool CERecord::*member);
[[nodiscard]] ColumnSet ColumnsOf(DecimalField CERecord::*member);
[[nodiscard]] ColumnSet ColumnsOf(RecordDate CERecord::*member);

// Of a row that has some columns alone; what belongs to others stays as it is.

void LoadTimeColumns(CTRecord& record, const RowTable& rows, std::size_t row, ColumnSet columns);
void LoadExpenseColumns(CERecord& record, const RowTable& rows, std::size_t row, ColumnSet columns);
