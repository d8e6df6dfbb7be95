#include "cli/output/RecordOutput.h"

#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kWidestColumn = 40;

void WriteRecordLines(COutput& out, const RecordRow& row) {
    const std::span<const RecordColumn> columns = RecordColumns(row.record.Kind());
    qsizetype width = 0;
    for (const RecordColumn& column : columns) width = std::max(width, column.Caption().size());
    for (const RecordColumn& column : columns) {
        const QString text = column.TextOf(row);
        if (!text.isEmpty()) out.PutLine(column.Caption().leftJustified(width + 2) + text);
    }
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

struct ListedColumn {
    const RecordColumn* column;
    qsizetype width;
};

std::vector<ListedColumn> FilledColumns(const std::vector<RecordRow>& rows) {
    std::vector<ListedColumn> listed;
    for (const RecordColumn& column : RecordColumns(rows.front().record.Kind())) {
        if (!column.IsListed()) continue;
        qsizetype widest = 0;
        for (const RecordRow& row : rows) widest = std::max(widest, column.TextOf(row).size());
        if (widest == 0) continue;
        const qsizetype width = std::max(widest, column.Caption().size());
        listed.push_back({&column, std::min(width, kWidestColumn)});
    }
    return listed;
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

void WriteRecordTable(COutput& out, const std::vector<RecordRow>& rows) {
    if (rows.empty()) return;
    const std::vector<ListedColumn> columns = FilledColumns(rows);
    QString head;
    for (const auto& [column, width] : columns)
        head += Cell(column->Caption(), width, column->IsNumber()) + u"  "_s;
    out.PutLine(Trimmed(head));
    for (const RecordRow& row : rows) {
        QString line;
        for (const auto& [column, width] : columns)
            line += Cell(column->TextOf(row), width, column->IsNumber()) + u"  "_s;
        out.PutLine(Trimmed(line));
        if (out.IsBroken()) return;
    }
}
