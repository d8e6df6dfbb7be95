#include "exchange/text/CLineReader.h"

#include <algorithm>

CLineReader::CLineReader(CTextSource& source, const Delimiters& delimiters)
    : m_source(source),
      m_qualifier(delimiters.qualifier.isEmpty() ? QChar() : delimiters.qualifier.front()),
      m_lineEnd(delimiters.lineEnd.isEmpty() ? QChar() : delimiters.lineEnd.front()),
      m_hasQualifier(!delimiters.qualifier.isEmpty()),
      m_endsAtCr(m_lineEnd == u'\n') {}

CLineReader::Next CLineReader::ReadLine(QString& line) {
    line.resize(0);  // and the next line takes the room of this one
    m_length = 0;
    ++m_number;
    bool isQuoted = false;
    while (HasCharacter()) {
        const qsizetype end = EndOfRun(isQuoted);
        Take(QStringView(m_piece).sliced(m_place, end - m_place), line);
        m_place = end;
        if (m_place == m_piece.size()) continue;
        // Behind a CR whatever it is: the line feed of a CR LF as a rule.
        if (m_piece[m_place++] == u'\r' && m_endsAtCr && HasCharacter()) ++m_place;
        return Next::Line;
    }
    return m_next == CTextSource::Next::End && m_length > 0 ? Next::Line : EndOfText();
}

/// Where what is left of the piece ends its line, or else the end of the piece.
qsizetype CLineReader::EndOfRun(bool& isQuoted) const {
    const QStringView piece = m_piece;
    for (qsizetype place = m_place;;) {
        const qsizetype end = NextEnd(place);
        const QStringView run = piece.sliced(place, std::min(end + 1, piece.size()) - place);
        if (m_hasQualifier && std::ranges::count(run, m_qualifier) % 2 != 0) isQuoted = !isQuoted;
        if (!isQuoted || end == piece.size()) return end;
        place = end + 1;
    }
}

/// The next character that may end a line, or the end of the piece.
qsizetype CLineReader::NextEnd(qsizetype from) const {
    const QStringView rest = QStringView(m_piece).sliced(from);
    const qsizetype found = rest.indexOf(m_lineEnd);
    const qsizetype end = found < 0 ? rest.size() : found;
    const qsizetype cr = m_endsAtCr ? rest.first(end).indexOf(u'\r') : -1;
    return from + (cr < 0 ? end : cr);
}

/// Of a line that is too long the beginning stays.
void CLineReader::Take(QStringView run, QString& line) {
    constexpr qsizetype kShown = 100;
    const bool wasTooLong = IsTooLong();
    m_length += run.size();
    if (wasTooLong) return;
    line.append(IsTooLong() ? run.first(std::min(kShown, run.size())) : run);
    if (IsTooLong()) line.truncate(kShown);
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
