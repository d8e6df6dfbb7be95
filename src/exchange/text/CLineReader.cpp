#include "exchange/text/CLineReader.h"

CLineReader::CLineReader(CTextSource& source, const Delimiters& delimiters)
    : m_source(source),
      m_qualifier(delimiters.qualifier.isEmpty() ? QChar() : delimiters.qualifier.front()),
      m_lineEnd(delimiters.lineEnd.isEmpty() ? QChar() : delimiters.lineEnd.front()),
      m_hasQualifier(!delimiters.qualifier.isEmpty()),
      m_endsAtCr(m_lineEnd == u'\n') {}

CLineReader::Next CLineReader::ReadLine(QString& line) {
    line.clear();
    m_length = 0;
    ++m_number;
    bool isQuoted = false;
    while (HasCharacter()) {
        const QChar character = m_piece[m_place++];
        if (m_hasQualifier && character == m_qualifier) isQuoted = !isQuoted;
        if (!isQuoted && EndsLine(character)) {
            // Whatever it is: the line feed of a CR LF as a rule.
            if (m_endsAtCr && character == u'\r' && HasCharacter()) ++m_place;
            return Next::Line;
        }
        Take(character, line);
    }
    return m_next == CTextSource::Next::End && m_length > 0 ? Next::Line : EndOfText();
}

void CLineReader::Take(QChar character, QString& line) {
    ++m_length;
    if (!IsTooLong()) line.append(character);
    if (m_length == kLongestLine + 1) line.truncate(100);
}

bool CLineReader::HasCharacter() {
    while (m_place >= m_piece.size() && m_next == CTextSource::Next::Text) {
        m_piece.clear();
        m_place = 0;
        m_next = m_source.Read(m_piece);
    }
    return m_place < m_piece.size();
}

CLineReader::Next CLineReader::EndOfText() const {
    switch (m_next) {
        case CTextSource::Next::Failed:
            return Next::Failed;
        case CTextSource::Next::Undecodable:
            return Next::Undecodable;
        default:
            return Next::End;
    }
}

bool CLineReader::EndsLine(QChar character) const {
    return m_endsAtCr ? character == u'\n' || character == u'\r' : character == m_lineEnd;
}
