#include "records/RecordColumns.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CRecordStore.h"
#include "records/CTRecord.h"
#include "records/RowConditions.h"

#include <QStringList>

ColumnSet IdentityColumn(const CVORec& record) {
    return ColumnSet{1} << (record.GetFieldDefs().size() - 1);
}

std::vector<FieldDef> ChosenFields(const CVORec& record, ColumnSet columns) {
    std::vector<FieldDef> chosen;
    const std::span<const FieldDef> fields = record.GetFieldDefs();
    for (std::size_t column = 0; column < fields.size(); ++column)
        if ((columns >> column & 1U) != 0) chosen.push_back(fields[column]);
    return chosen;
}

QString SelectColumns(const CRecordStore& store, const CVORec& record, ColumnSet columns,
                      const RowConditions& conditions) {
    QStringList names;
    for (const FieldDef& field : ChosenFields(record, columns)) names += LoadText(field.nameId);
    QString select = LoadText(Text::SqlSelectFrom);
    return select.replace(u'*', names.join(u',')) + store.TableName(record.Kind()) + conditions.Where();
}

bool Fits(const RowTable& rows, const CVORec& record, ColumnSet columns) {
    const std::vector<FieldDef> fields = ChosenFields(record, columns);
    if (rows.ColumnCount() != static_cast<int>(fields.size())) return false;
    for (int column = 0; column < rows.ColumnCount(); ++column)
        if (rows.TypeOf(column) != ColumnTypeOf(fields[static_cast<std::size_t>(column)].type)) return false;
    return true;
}

void LoadColumns(CVORec& record, const RowTable& rows, std::size_t row, ColumnSet columns) {
    if (record.Kind() == RecordKind::Time)
        LoadTimeColumns(static_cast<CTRecord&>(record), rows, row, columns);
    else
        LoadExpenseColumns(static_cast<CERecord&>(record), rows, row, columns);
}
