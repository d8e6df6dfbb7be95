#include "reports/aggregate/CListing.h"

#include "app/CFieldCatalogue.h"
#include "app/ShownFields.h"
#include "fields/FieldTable.h"
#include "reports/definition/CReportDef.h"

CListing::CListing(RecordKind kind, const QList<SortKey>& fields, const CFieldCatalogue& catalogue) {
    for (const SortKey& key : fields) {
        const int number = NumberOf(key.fieldId);
        m_columns.push_back({.field = key.fieldId,
                             .caption = catalogue.GetFieldTitle(number),
                             .row = FindField(kind, number)});
    }
}

void CListing::ReadCells(const CVORec& record, QStringList& cells) const {
    cells.resize(static_cast<qsizetype>(m_columns.size()));
    qsizetype cell = 0;
    for (const ListingColumn& column : m_columns)
        cells[cell++] = column.row ? ShownDisplay(record, *column.row).value_or(QString()) : QString();
}
