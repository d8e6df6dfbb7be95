#pragma once

#include "records/CVORec.h"
#include "records/FieldValues.h"

#include <QString>
#include <cstdint>
#include <vector>

class CERecord;
class CRecordStore;
class CTRecord;
class RowTable;
struct RowConditions;

/// Some columns of a record's table: bit n stands for the nth of its fields. A walk over a lifetime of
/// records that needs a few fields reads a few columns.
using ColumnSet = std::uint32_t;

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
/// Of the identity, which is the last of the fields.
[[nodiscard]] ColumnSet IdentityColumn(const CVORec& record);

/// "SELECT some columns FROM the kind's table" for the rows that fulfil the conditions.
[[nodiscard]] QString SelectColumns(const CRecordStore& store, const CVORec& record, ColumnSet columns,
                                    const RowConditions& conditions);
/// Whether rows have these columns alone, with the types of the record's table.
[[nodiscard]] bool Fits(const RowTable& rows, const CVORec& record, ColumnSet columns);
/// Fills what belongs to these columns from a row that fits; all else of the record stays as it is. For times
/// and expenses.
void LoadColumns(CVORec& record, const RowTable& rows, std::size_t row, ColumnSet columns);

/// The fields of some columns, in their order.
[[nodiscard]] std::vector<FieldDef> ChosenFields(const CVORec& record, ColumnSet columns);
