#include "cli/TimeOutput.h"

#include "cli/CJsonText.h"
#include "cli/COutput.h"
#include "lang/LoadText.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kWidestColumn = 40;

void WriteTimeLines(COutput& out, const TimeRow& row) {
    qsizetype width = 0;
    for (const TimeColumn& column : TimeColumns()) width = std::max(width, LoadText(column.caption).size());
    for (const TimeColumn& column : TimeColumns()) {
        const QString text = column.text(row);
        if (!text.isEmpty()) out.PutLine(LoadText(column.caption).leftJustified(width + 2) + text);
    }
}

QString Cell(const QString& text, qsizetype width, bool isNumber) {
    const QString fitting = text.size() > width ? text.left(width - 1) + u'…' : text;
    return isNumber ? fitting.rightJustified(width) : fitting.leftJustified(width);
}

struct ListedColumn {
    const TimeColumn* column;
    qsizetype width;
};

std::vector<ListedColumn> FilledColumns(const std::vector<TimeRow>& rows) {
    std::vector<ListedColumn> listed;
    for (const TimeColumn& column : TimeColumns()) {
        if (!column.isListed) continue;
        qsizetype widest = 0;
        for (const TimeRow& row : rows) widest = std::max(widest, column.text(row).size());
        if (widest == 0) continue;
        const qsizetype width = std::max(widest, LoadText(column.caption).size());
        listed.push_back({&column, std::min(width, kWidestColumn)});
    }
    return listed;
}

QString Trimmed(QString line) {
    while (line.endsWith(u' ')) line.chop(1);
    return line;
}

}  // namespace

void WriteTimeJson(CJsonText& json, const TimeRow& row) {
    json.BeginObject();
    for (const TimeColumn& column : TimeColumns()) {
        json.Key(column.name);
        column.json(json, row);
    }
    json.EndObject();
}

void WriteTime(COutput& out, const TimeRow& row) {
    if (!out.isJson) return WriteTimeLines(out, row);
    CJsonText json(out);
    WriteTimeJson(json, row);
    out.Put("\n");
}

void WriteTimeTable(COutput& out, const std::vector<TimeRow>& rows) {
    if (rows.empty()) return;
    const std::vector<ListedColumn> columns = FilledColumns(rows);
    QString head;
    for (const auto& [column, width] : columns)
        head += Cell(LoadText(column->caption), width, column->isNumber) + u"  "_s;
    out.PutLine(Trimmed(head));
    for (const TimeRow& row : rows) {
        QString line;
        for (const auto& [column, width] : columns)
            line += Cell(column->text(row), width, column->isNumber) + u"  "_s;
        out.PutLine(Trimmed(line));
        if (out.IsBroken()) return;
    }
}
