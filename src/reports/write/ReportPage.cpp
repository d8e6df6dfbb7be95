#include "reports/write/ReportPage.h"

#include "lang/LoadText.h"
#include "reports/aggregate/ReportResult.h"
#include "reports/definition/ReportKinds.h"
#include "reports/write/CHTMLWriter.h"

#include <algorithm>

namespace {

constexpr PageColour kWhite = 0xFFFFFF;
constexpr PageColour kHead = 0xE2F1F1;
constexpr PageColour kStripe = 0xF7F7F7;
constexpr PageColour kFrame = 0xCCCCCC;
constexpr PageColour kTitle = 0x999999;

constexpr int kMargin = 5;
constexpr int kTitleSize = 5;
constexpr int kSize = 2;

enum class Weight { Plain, Strong };

class CPage {
 public:
    explicit CPage(CHTMLWriter& writer) : m_writer(writer), m_face(LoadText(Text::PageFace)) {}

    void Put(const QString& text, Weight weight, int size = kSize, PageColour colour = 0) {
        m_writer.Text(text,
                      {.face = m_face, .size = size, .isStrong = weight == Weight::Strong, .colour = colour});
    }
    void PutCell(const QString& text, CellAlign align, PageColour background, Weight weight) {
        m_writer.OpenCell(m_share, align, background);
        Put(text, weight);
        m_writer.CloseCell();
    }
    /// With so many columns.
    void OpenTable(std::size_t columns) {
        m_share = 100 / std::max(static_cast<int>(columns), 1);
        m_writer.OpenTable({.cellPadding = 3, .border = 1, .background = kWhite, .borderColour = kFrame});
    }

 private:
    CHTMLWriter& m_writer;
    QString m_face;
    int m_share = 100;  ///< of the width, for each column
};

/// The first row is white, the second one isn't.
PageColour StripeOf(std::size_t row) {
    return row % 2 == 1 ? kStripe : kWhite;
}

void WriteTitle(CHTMLWriter& writer, const ReportResult& result) {
    CPage page(writer);
    writer.OpenTable({.background = kWhite, .borderColour = kWhite});
    const auto putRow = [&](const QString& text, int size, PageColour colour) {
        writer.OpenRow(kWhite);
        writer.OpenCell(100, CellAlign::Left, kWhite);
        page.Put(text, Weight::Strong, size, colour);
        writer.CloseCell();
        writer.CloseRow();
    };
    putRow(result.definition.title, kTitleSize, kTitle);
    putRow(LoadText(Text::ReportDate) + result.date, kSize, 0);
    writer.CloseTable();
    writer.LineBreak(1);
}

[[nodiscard]] bool WriteTables(CHTMLWriter& writer, const ReportResult& result, CListingRows& rows) {
    if (result.listing && !WriteListing(writer, *result.listing, rows)) return false;
    if (result.definition.kind == ReportKind::Compound) writer.LineBreak(1);
    if (result.grouped) WriteGrouped(writer, *result.grouped);
    if (result.summary) WriteSummary(writer, *result.summary);
    return true;
}

void WriteHead(CHTMLWriter& writer, CPage& page, const GroupedTable& table) {
    writer.OpenRow(kWhite);
    for (const GroupedColumn& key : table.keys)
        page.PutCell(key.caption, CellAlign::Left, kHead, Weight::Strong);
    for (const GroupedColumn& sum : table.sums)
        page.PutCell(sum.caption, CellAlign::Right, kHead, Weight::Strong);
    writer.CloseRow();
}

void WriteGroup(CHTMLWriter& writer, CPage& page, const GroupedTable& table, std::size_t row) {
    const PageColour background = StripeOf(row);
    writer.OpenRow(background);
    for (const QString& key : table.rows[row].keys)
        page.PutCell(key, CellAlign::Left, background, Weight::Plain);
    for (std::size_t sum = 0; sum < table.sums.size(); ++sum)
        page.PutCell(table.SumText(sum, table.rows[row].sums[sum]), CellAlign::Right, background,
                     Weight::Plain);
    writer.CloseRow();
}

void WriteTotal(CHTMLWriter& writer, CPage& page, const GroupedTable& table) {
    writer.OpenRow(kWhite);
    page.PutCell(LoadText(Text::ReportTotal), CellAlign::Left, kHead, Weight::Strong);
    for (std::size_t key = 1; key < table.keys.size(); ++key)
        page.PutCell({}, CellAlign::Left, kHead, Weight::Plain);
    const std::vector<double> total = table.Total();
    for (std::size_t sum = 0; sum < total.size(); ++sum)
        page.PutCell(table.SumText(sum, total[sum]), CellAlign::Right, kHead, Weight::Plain);
    writer.CloseRow();
}

void WriteSection(CHTMLWriter& writer, const ReportSection& section) {
    CPage page(writer);
    page.Put(section.caption, Weight::Strong);
    writer.LineBreak(2);
    page.OpenTable(2);
    for (const auto& column : section.columns) {
        writer.OpenRow(kWhite);
        page.PutCell(column->caption, CellAlign::Left, kStripe, Weight::Strong);
        page.PutCell(column->Text(), CellAlign::Right, kWhite, Weight::Plain);
        writer.CloseRow();
    }
    writer.CloseTable();
}

}  // namespace

void WriteGrouped(CHTMLWriter& writer, const GroupedTable& table) {
    if (table.rows.empty()) return;
    CPage page(writer);
    page.OpenTable(table.ColumnCount());
    WriteHead(writer, page, table);
    for (std::size_t row = 0; row < table.rows.size(); ++row) WriteGroup(writer, page, table, row);
    WriteTotal(writer, page, table);
    writer.CloseTable();
}

bool WriteListing(CHTMLWriter& writer, const CListing& listing, CListingRows& rows) {
    CPage page(writer);
    page.OpenTable(listing.Columns().size());
    writer.OpenRow(kWhite);
    for (const ListingColumn& column : listing.Columns())
        page.PutCell(column.caption, CellAlign::Left, kHead, Weight::Strong);
    writer.CloseRow();
    std::size_t row = 0;
    const bool isWhole = rows.ForEachRow([&](const QStringList& cells) {
        const PageColour background = StripeOf(row++);
        writer.OpenRow(background);
        for (const QString& cell : cells) page.PutCell(cell, CellAlign::Left, background, Weight::Plain);
        writer.CloseRow();
        return writer.IsTaken();
    });
    if (isWhole) writer.CloseTable();
    return isWhole;
}

void WriteSummary(CHTMLWriter& writer, const ReportSectionList& summary) {
    for (const auto& section : summary.sections) {
        if (section != summary.sections.front()) writer.LineBreak(1);
        WriteSection(writer, *section);
    }
}

bool WriteReportPage(CHTMLWriter& writer, const ReportResult& result, CListingRows& rows) {
    writer.BeginDocument(kMargin, 0, 0);
    WriteTitle(writer, result);
    CPage page(writer);
    const CReportDef& report = result.definition;
    if (!report.header.isEmpty()) {
        page.Put(report.header, Weight::Plain);
        writer.LineBreak(2);
    }
    if (!IsReportKind(report.kind) || !WriteTables(writer, result, rows)) return false;
    if (!report.footer.isEmpty()) {
        writer.LineBreak(1);
        page.Put(report.footer, Weight::Plain);
    }
    writer.EndDocument();
    return writer.IsTaken();
}
