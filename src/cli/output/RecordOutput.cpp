#include "cli/output/RecordOutput.h"

#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/CaptionedLines.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kWidestColumn = 40;

void WriteRecordLines(COutput& out, const RecordRow& row) {
    std::vector<CaptionedLine> lines;
    for (const RecordColumn& column : RecordColumns(row.record.Kind()))
        lines.push_back({column.Caption(), column.TextOf(row)});
    PutLines(out, lines);
}

/// At most so many characters; none is cut in half.
QString Cut(const QString& text, qsizetype width) {
    if (text.size() <= width) return text;
    const qsizetype kept = width - (text[width - 2].isHighSurrogate() ? 2 : 1);
    return text.left(kept) + u'…';
}

QString Cell(const QString& text, qsizetype width, bool isNumber) {
    const QString fitting = Cut(text, width);
    return isNumber ? fitting.rightJustified(width) : fitting.leftJustified(width);
}

QString Trimmed(QString line) {
    while (line.endsWith(u' ')) line.chop(1);
    return line;
}

}  // namespace

void WriteRecordJson(CJsonText& json, const RecordRow& row) {
    json.BeginObject();
    for (const RecordColumn& column : RecordColumns(row.record.Kind())) {
        json.Key(column.Name());
        column.WriteJson(json, row);
    }
    json.EndObject();
}

void WriteRecord(COutput& out, const RecordRow& row) {
    if (!out.isJson) return WriteRecordLines(out, row);
    CJsonText json(out);
    WriteRecordJson(json, row);
    out.Put("\n");
}

qsizetype CRecordTable::ListedColumn::Width() const {
    return std::min(std::max(widest, column->Caption().size()), kWidestColumn);
}

CRecordTable::CRecordTable(RecordKind kind) {
    for (const RecordColumn& column : RecordColumns(kind))
        if (column.IsListed()) m_columns.push_back({&column});
}

void CRecordTable::Measure(const RecordRow& row) {
    for (ListedColumn& listed : m_columns)
        if (listed.widest < kWidestColumn)
            listed.widest = std::max(listed.widest, listed.column->TextOf(row).size());
}

void CRecordTable::WriteHead(COutput& out) const {
    QString head;
    for (const ListedColumn& listed : m_columns)
        if (listed.widest > 0)
            head += Cell(listed.column->Caption(), listed.Width(), listed.column->IsNumber()) + u"  "_s;
    if (!head.isEmpty()) out.PutLine(Trimmed(head));
}

void CRecordTable::WriteLine(COutput& out, const RecordRow& row) const {
    QString line;
    for (const ListedColumn& listed : m_columns)
        if (listed.widest > 0)
            line += Cell(listed.column->TextOf(row), listed.Width(), listed.column->IsNumber()) + u"  "_s;
    out.PutLine(Trimmed(line));
}
