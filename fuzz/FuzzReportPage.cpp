// The page of a report, with whatever users' texts bring along: read at once and in parts, laid out, looked
// up and parted into sheets. Each character is ten units wide.
#include "Fuzz.h"
#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/CReportReader.h"
#include "viewmodel/report/CTextMeasure.h"
#include "viewmodel/report/PagePositions.h"
#include "viewmodel/report/PageWalk.h"
#include "viewmodel/report/Pagination.h"

#include <algorithm>

namespace {

class CEvenMeasure final : public CTextMeasure {
 public:
    [[nodiscard]] double WidthOf(QStringView text, std::uint32_t) override {
        return 10.0 * static_cast<double>(text.size());
    }
    [[nodiscard]] LineSize SizeOf(std::uint32_t style) override { return {15, 20.0 + style % 3}; }
    [[nodiscard]] qsizetype Fitting(QStringView text, std::uint32_t, double width) override {
        return std::clamp<qsizetype>(static_cast<qsizetype>(width / 10), 0, text.size());
    }
};

/// Counts the lines that are visited.
class CCount final : public CPageVisitor {
 public:
    qsizetype lines = 0;
    void OnLine(const PageLine& line, const QPointF&) override {
        Demand(line.begin <= line.end, "a line has a beginning and an end");
        ++lines;
    }
    void OnCell(const PageTable&, const QRectF& place, PageColour) override {
        Demand(place.width() >= 0 && place.height() >= 0, "a cell has a size");
    }
    void OnRule(const QRectF&) override {}
    void OnPicture(const QRectF&) override {}
};

void DemandSound(const ReportPage& page, qsizetype length) {
    const auto size = static_cast<std::uint32_t>(page.text.size());
    Demand(page.text.size() <= length, "a text is no longer than its page");
    for (const PageBlock& block : page.blocks) {
        Demand(block.begin <= block.end && block.end <= size, "a block is a part of the text");
        if (block.kind == PageBlockKind::Text) Demand(block.index < page.runs.size(), "a text has a style");
        if (block.kind == PageBlockKind::Table) Demand(block.index < page.tables.size(), "a table is there");
    }
    for (const PageCell& cell : page.cells) {
        Demand(cell.blockCount > 0, "a cell has a block");
        Demand(cell.firstBlock + cell.blockCount <= page.blocks.size(), "a cell's blocks are there");
    }
    for (std::size_t i = 0; i < page.tables.size(); ++i) {
        std::size_t depth = 1;
        for (std::uint32_t at = page.tables[i].parent; at != PageTable::kOutermost;
             at = page.tables[at].parent) {
            Demand(at < i, "a table comes behind the one around it");
            ++depth;
        }
        Demand(depth <= CPageBuilder::kDeepest, "tables aren't deeper than they may be");
        for (const PageRow& row : page.tables[i].rows)
            Demand(
                row.firstCell + row.cellCount <= page.cells.size() && row.cellCount <= page.tables[i].columns,
                "a row's cells are there");
    }
}

void DemandSame(const QString& html, const ReportPage& whole) {
    CReportReader reader(html);
    while (!reader.Advance(3)) continue;
    const std::unique_ptr<ReportPage> page = reader.TakePage();
    Demand(page->text == whole.text, "read in parts the text is the same");
    Demand(page->cells.size() == whole.cells.size(), "so are the cells");
}

void LayOut(const std::shared_ptr<const ReportPage>& page, double width) {
    CEvenMeasure measure;
    const auto measures = std::make_shared<CPageMeasures>(page, measure);
    const QDeadlineTimer never(QDeadlineTimer::Forever);
    Demand(measures->Advance(never), "a page can be measured");
    CPageLayout layout({page, measures, measure}, width, [](double wide) { return wide / 3; });
    Demand(layout.Advance(never), "and laid out");
    CCount count;
    WalkPage(layout, QRectF(0, 0, width, layout.Height()), count);
    for (int i = 0; i < 8; ++i) {
        const QPointF point(width * i / 8, layout.Height() * (7 - i) / 8);
        const std::uint32_t position = PositionAt(layout, measure, point);
        Demand(position <= page->text.size(), "a point has a position");
        static_cast<void>(PlaceOfPosition(layout, measure, position));
    }
    double shownTo = 0;
    for (const Sheet& sheet : SheetsOf(layout, 200)) {
        Demand(sheet.shownTo == shownTo && sheet.to >= sheet.from,
               "a sheet goes on where the one before ends");
        Demand(sheet.to - sheet.from + sheet.headHeight < 201, "and isn't higher than the paper");
        shownTo = sheet.to;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CInput input(data, size);
    const double width = 50 + 4 * input.Byte();
    const QString html = QString::fromUtf8(input.Rest());
    const std::shared_ptr<const ReportPage> page = ReadReport(html);
    // Each block and each cell may take a sign that parts it from the next.
    DemandSound(*page, html.size() + 2);
    DemandSame(html, *page);
    LayOut(page, width);
    return 0;
}
