#pragma once

#include "records/CVORec.h"
#include "records/MemberColumns.h"

#include <QString>
#include <vector>

class CRecordStore;
struct RowConditions;

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
