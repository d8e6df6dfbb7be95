#include "reports/write/CsvTable.h"

#include "reports/aggregate/ReportResult.h"
#include "reports/write/CTextSink.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// A piece that is handed on.
constexpr qsizetype kPiece = 1 << 16;

class CLines {
 public:
    explicit CLines(CTextSink& sink) : m_sink(sink) {}

    [[nodiscard]] bool Put(const QStringList& cells) {
        qsizetype column = 0;
        for (const QString& cell : cells) {
            if (column++ > 0) m_gathered += u',';
            PutCell(cell);
        }
        m_gathered += u"\r\n"_s;
        return m_gathered.size() < kPiece || Finish();
    }
    [[nodiscard]] bool Finish() {
        const bool isTaken = m_gathered.isEmpty() || m_sink.Take(m_gathered);
        m_gathered.clear();
        return isTaken;
    }

 private:
    void PutCell(const QString& cell) {
        const bool isPlain =
            !cell.contains(u'"') && !cell.contains(u',') && !cell.contains(u'\n') && !cell.contains(u'\r');
        if (isPlain) {
            m_gathered += cell;
            return;
        }
        m_gathered += u'"' + QString(cell).replace(u'"', u"\"\""_s) + u'"';
    }

    CTextSink& m_sink;
    QString m_gathered;
};

bool PutListing(CLines& lines, const CListing& listing, CListingRows& rows) {
    QStringList captions;
    for (const ListingColumn& column : listing.Columns()) captions += column.caption;
    return lines.Put(captions) && rows.ForEachRow([&](const QStringList& cells) { return lines.Put(cells); });
}

bool PutGrouped(CLines& lines, const GroupedTable& table) {
    if (table.rows.empty()) return true;
    QStringList captions;
    for (const GroupedColumn& column : table.keys) captions += column.caption;
    for (const GroupedColumn& column : table.sums) captions += column.caption;
    bool isTaken = lines.Put(captions);
    for (const ReportRow& row : table.rows) {
        QStringList cells = row.keys;
        for (std::size_t sum = 0; sum < table.sums.size(); ++sum) cells += table.SumText(sum, row.sums[sum]);
        isTaken = isTaken && lines.Put(cells);
    }
    return isTaken;
}

bool PutSummary(CLines& lines, const ReportSectionList& summary) {
    bool isTaken = true;
    for (const auto& section : summary.sections)
        for (const auto& column : section->columns)
            isTaken = isTaken && lines.Put({section->caption, PlainCaption(*column), column->Text()});
    return isTaken;
}

bool PutTable(CLines& lines, const ReportResult& result, CListingRows& rows) {
    if (result.listing) return PutListing(lines, *result.listing, rows);
    if (result.grouped) return PutGrouped(lines, *result.grouped);
    return !result.summary || PutSummary(lines, *result.summary);
}

}  // namespace

bool WriteCsv(CTextSink& sink, const ReportResult& result, CListingRows& rows) {
    CLines lines(sink);
    return PutTable(lines, result, rows) && lines.Finish();
}
