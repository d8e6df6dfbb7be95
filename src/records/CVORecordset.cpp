#include "records/CVORecordset.h"

#include "lang/FormatText.h"
#include "records/CVOId.h"
#include "records/CVORec.h"
#include "records/FieldDef.h"

#include <QStringList>
#include <algorithm>
#include <utility>

bool CVORecordset::TakeRecord(const CVORec& record) {
    m_fields = record.GetFieldDefs();
    m_written.assign(m_fields.size(), {});
    m_nextColumn = 0;
    m_errorCode = 0;
    m_errorTexts = {};
    if (IsIdentity(record.GetId())) return record.WriteFields(*this);
    m_errorCode = RowError::kNoIdentity;
    m_errorTexts = {LoadText(Text::RecordWithoutIdentity)};
    return false;
}

bool CVORecordset::SetFieldValue(const QString& name, VARIANT value) {
    // Mostly the very text of the library: it need not be read.
    const auto isNamed = [&name](const FieldDef& field) {
        const QString& text = LoadText(field.nameId);
        return &text == &name || text == name;
    };
    std::size_t column = m_nextColumn;
    if (column >= m_fields.size() || !isNamed(m_fields[column]))
        column = static_cast<std::size_t>(std::ranges::find_if(m_fields, isNamed) - m_fields.begin());
    if (column == m_fields.size() || IsTooLong(column, value)) return false;
    m_written[column] = std::move(value);
    m_nextColumn = column + 1;
    return true;
}

QString CVORecordset::Words() const {
    QStringList words;
    for (const QString& text : m_errorTexts)
        if (!text.isEmpty() && !words.contains(text)) words += text;
    return words.isEmpty() ? LoadText(Text::UnreadableRow) : words.join(u' ');
}

bool CVORecordset::GetRows(RowTable& out, std::size_t most, Ahead ahead) {
    return m_cursor.Take(out, most, ahead);
}

/// Nothing is cut off in silence: a text that doesn't fit is refused.
bool CVORecordset::IsTooLong(std::size_t column, const VARIANT& value) {
    const auto* text = std::get_if<QString>(&value);
    const int most = m_fields[column].length;
    if (!text || text->size() <= most) return false;
    m_errorCode = RowError::kTooLong;
    m_errorTexts = {FormatText<Text::TextTooLong>(LoadText(m_fields[column].nameId),
                                                  static_cast<int>(text->size()), most)};
    return true;
}
