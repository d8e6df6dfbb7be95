#include "exchange/import/CRecordLines.h"

#include "exchange/text/SplitFields.h"
#include "lang/LoadText.h"
#include "records/RecordFactory.h"

CRecordLines::CRecordLines(CTextSource& source, RecordKind kind, const LineForm& form)
    : m_reader(source, form.delimiters), m_kind(kind), m_form(form), m_values(form) {}

CRecordLines::Next CRecordLines::Read() {
    switch (ReadLine()) {
        case CLineReader::Next::End:
            return Next::End;
        case CLineReader::Next::Failed:
            return Next::Failed;
        case CLineReader::Next::Undecodable:
            return Next::Undecodable;
        case CLineReader::Next::Line:
            break;
    }
    if (m_line.isEmpty()) return Next::End;
    if (m_skipsFirstField) m_line = WithoutFirstField(m_line, m_form.delimiters);
    m_record = NewRecord(m_kind);
    m_code = m_reader.IsTooLong() ? LineCode::TooLong : m_values.Read(m_line, *m_record);
    return m_code == LineCode::Parsed && FitsTheStore(*m_record) ? Next::Record : Next::Refused;
}

CLineReader::Next CRecordLines::ReadLine() {
    const CLineReader::Next next = m_reader.ReadLine(m_line);
    const bool isHead = next == CLineReader::Next::Line && m_reader.Number() == 1 && PassHead();
    return isHead ? m_reader.ReadLine(m_line) : next;
}

bool CRecordLines::PassHead() {
    m_skipsFirstField = m_line.startsWith(HeadWith(Text::HeadOfNumbers));
    return m_skipsFirstField || m_line.startsWith(HeadWith(Text::ColumnCaptionDate));
}

QString CRecordLines::HeadWith(Text caption) const {
    const auto& [qualifier, separator, lineEnd] = m_form.delimiters;
    return qualifier + LoadText(caption) + qualifier + separator;
}

RefusedLine CRecordLines::AsRefused() const {
    return {m_reader.Number(), m_line.left(RefusedLine::kShown), m_code};
}
