#include "records/RowAccess.h"

#include "lang/LoadText.h"

#include <utility>

void RowWriter::Put(VARIANT value) {
    m_good = m_good && m_next < m_fields.size() &&
             m_row.SetFieldValue(LoadText(m_fields[m_next].nameId), std::move(value));
    ++m_next;
}

bool TableRow::Fits(std::span<const FieldDef> fields) const {
    if (m_row >= m_rows.RowCount() || m_rows.ColumnCount() != static_cast<int>(fields.size())) return false;
    for (int column = 0; column < m_rows.ColumnCount(); ++column)
        if (m_rows.TypeOf(column) != ColumnTypeOf(fields[static_cast<std::size_t>(column)].type))
            return false;
    return true;
}
