#include "exchange/text/SplitFields.h"

#include "records/SharedTexts.h"

#include <algorithm>

namespace {

class CFieldScanner {
 public:
    CFieldScanner(const QString& line, const Delimiters& delimiters)
        : m_line(line), m_delimiters(delimiters) {}

    [[nodiscard]] bool IsAtEnd() const { return m_place >= m_line.size(); }
    [[nodiscard]] QString Field() { return IsAt(m_delimiters.qualifier) ? QualifiedField() : PlainField(); }
    /// False where something else than a separator or the end of the line comes.
    [[nodiscard]] bool PassSeparator() {
        if (m_delimiters.separator.isEmpty() || IsAtEnd()) return true;
        if (!IsAt(m_delimiters.separator)) return false;
        ++m_place;
        return true;
    }
    [[nodiscard]] QString Rest();
    /// What wasn't scanned, as it stands.
    [[nodiscard]] QString Left() const { return m_line.mid(m_place); }

 private:
    [[nodiscard]] bool IsAt(const QString& delimiter) const { return IsAt(m_place, delimiter); }
    [[nodiscard]] bool IsAt(qsizetype place, const QString& delimiter) const {
        return !delimiter.isEmpty() && place < m_line.size() && m_line[place] == delimiter.front();
    }
    [[nodiscard]] QString QualifiedField();
    [[nodiscard]] QString PlainField();
    [[nodiscard]] qsizetype ClosingQualifier(qsizetype from) const;
    [[nodiscard]] QString UpTo(qsizetype end, qsizetype next);

    const QString& m_line;
    const Delimiters& m_delimiters;
    qsizetype m_place = 0;
};

/// The field, and the scanner goes on behind it. The same few days, times and items come in every line.
QString CFieldScanner::UpTo(qsizetype end, qsizetype next) {
    QString field = SharedText(QStringView(m_line).sliced(m_place, end - m_place));
    m_place = next;
    return field;
}

/// The next one that a separator or the end of the line follows; the very next where no separator could tell.
qsizetype CFieldScanner::ClosingQualifier(qsizetype from) const {
    const auto& [qualifier, separator, lineEnd] = m_delimiters;
    const bool isAny = separator.isEmpty() || separator == qualifier;
    qsizetype place = m_line.indexOf(qualifier, from);
    while (place >= 0 && !isAny && place + 1 < m_line.size() && !IsAt(place + 1, separator))
        place = m_line.indexOf(qualifier, place + 1);
    return place;
}

QString CFieldScanner::QualifiedField() {
    ++m_place;
    const qsizetype closing = ClosingQualifier(m_place);
    return closing < 0 ? UpTo(m_line.size(), m_line.size()) : UpTo(closing, closing + 1);
}

/// Without a separator the next qualifier ends it.
QString CFieldScanner::PlainField() {
    const QString& end = m_delimiters.separator.isEmpty() ? m_delimiters.qualifier : m_delimiters.separator;
    const qsizetype found = end.isEmpty() ? -1 : m_line.indexOf(end, m_place);
    const qsizetype place = found < 0 ? m_line.size() : found;
    return UpTo(place, place);
}

/// The last field of a limited number, with separators and qualifiers in it as they stand. Lines that end in
/// a separator don't keep it.
QString CFieldScanner::Rest() {
    if (IsAt(m_delimiters.qualifier)) ++m_place;
    QString rest = Left();
    m_place = m_line.size();
    for (const QString& delimiter : {m_delimiters.separator, m_delimiters.qualifier})
        if (!delimiter.isEmpty() && rest.endsWith(delimiter)) rest.chop(1);
    return rest;
}

}  // namespace

LineCode SplitFields(const QString& line, int mostFields, const Delimiters& delimiters, QStringList& fields) {
    CFieldScanner scanner(line, delimiters);
    const qsizetype first = fields.size();
    while (!scanner.IsAtEnd()) {
        if (mostFields > 0 && fields.size() - first == mostFields - 1) {
            fields.append(scanner.Rest());
            return LineCode::Parsed;
        }
        fields.append(scanner.Field());
        if (!scanner.PassSeparator()) return LineCode::NoSeparator;
    }
    return LineCode::Parsed;
}

QString WithoutFirstField(const QString& line, const Delimiters& delimiters) {
    CFieldScanner scanner(line, delimiters);
    static_cast<void>(scanner.Field());
    // A line that goes on with something else fails when the rest of it is taken apart.
    static_cast<void>(scanner.PassSeparator());
    return scanner.Left();
}
