#include "exchange/export/CReadBack.h"

#include "exchange/import/RecordLine.h"
#include "exchange/text/CLineReader.h"
#include "exchange/text/SplitFields.h"
#include "lang/FormatText.h"
#include "records/FieldDef.h"

#include <algorithm>
#include <utility>

namespace {

class CTextOfLine final : public CTextSource {
 public:
    explicit CTextOfLine(const QString& line) : m_line(line) {}
    [[nodiscard]] Next Read(QString& text) override {
        if (std::exchange(m_isRead, true)) return Next::End;
        text.append(m_line);
        return Next::Text;
    }

 private:
    const QString& m_line;
    bool m_isRead = false;
};

bool AreDifferent(const Delimiters& delimiters) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    return qualifier != separator && separator != lineEnd && qualifier != lineEnd;
}

}  // namespace

void CReadBack::Note(const QString& line, bool comesBack) {
    ++m_lines;
    if (comesBack) return;
    if (++m_lost > 1) return;
    m_firstLost = m_lines;
    m_firstLine = line.left(RefusedLine::kShown).simplified();
}

/// Between two qualifiers everything else is safe.
bool CReadBack::MayBeLost(const QStringList& fields) const {
    if (!AreDifferent(m_delimiters)) return true;
    const QString& qualifier = m_delimiters.qualifier;
    const auto isUnsafe = [this](const QString& field) {
        return field.contains(m_delimiters.separator) || field.contains(m_delimiters.lineEnd) ||
               field.contains(u'\r');
    };
    return std::ranges::any_of(fields, [&](const QString& field) {
        return qualifier.isEmpty() ? isUnsafe(field) : field.contains(qualifier.front());
    });
}

/// read: without its end.
bool CReadBack::IsOneLine(const QString& line, QString& read) const {
    CTextOfLine text(line);
    CLineReader reader(text, m_delimiters);
    QString next;
    return reader.ReadLine(read) == CLineReader::Next::Line &&
           read.size() + m_delimiters.lineEnd.size() == line.size() &&
           reader.ReadLine(next) == CLineReader::Next::End;
}

void CReadBack::TakeHead(const QString& line) {
    QString read;
    Note(line, IsOneLine(line, read));
}

void CReadBack::TakeRecord(RecordKind kind, const QStringList& fields, const QString& line) {
    QString read;
    QStringList readFields;
    const LineForm form{.delimiters = m_delimiters};
    Note(line, !MayBeLost(fields) || (IsOneLine(line, read) &&
                                      SplitRecordLine(read, kind, form, readFields) == LineCode::Parsed &&
                                      readFields == fields));
}

void CReadBack::TakeItem(const QStringList& fields, const QString& line) {
    QString read;
    QStringList readFields;
    Note(line, !MayBeLost(fields) || (IsOneLine(line, read) &&
                                      SplitFields(read, 0, m_delimiters, readFields) == LineCode::Parsed &&
                                      readFields == fields));
}

QString CReadBack::Words() const {
    return m_lost == 0 ? QString() : FormatText<Text::ExportNotReadBack>(m_lost, m_firstLost, m_firstLine);
}
