#include "records/CVORecordset.h"

#include "lang/FormatText.h"
#include "records/CStoreTable.h"

#include <algorithm>

bool CVORecordset::SetFieldValue(const QString& name, const VARIANT& value) {
    if (!m_table) return false;
    const std::vector<QString>& columns = m_table->Columns();
    std::size_t column = m_nextColumn;
    if (column >= columns.size() || columns[column] != name)
        column = static_cast<std::size_t>(std::find(columns.begin(), columns.end(), name) - columns.begin());
    if (column == columns.size() || IsTooLong(column, value)) return false;
    m_written[column] = value;
    m_nextColumn = column + 1;
    return true;
}

bool CVORecordset::GetRows(RowTable& out, std::size_t most) {
    return m_cursor.Take(out, most);
}

void CVORecordset::StartRow(const CStoreTable& table, std::span<const FieldDef> fields) {
    m_table = &table;
    m_fields = fields;
    m_written.assign(table.Columns().size(), {});
    m_nextColumn = 0;
    m_errorCode = 0;
    m_errorTexts = {};
}

/// Nothing is cut off in silence: a text that doesn't fit is refused.
bool CVORecordset::IsTooLong(std::size_t column, const VARIANT& value) {
    const auto* text = std::get_if<QString>(&value);
    const int most = m_fields[column].length;
    if (!text || text->size() <= most) return false;
    m_errorCode = RowError::kTooLong;
    m_errorTexts = {
        FormatText<Text::TextTooLong>(m_table->Columns()[column], static_cast<int>(text->size()), most)};
    return true;
}
