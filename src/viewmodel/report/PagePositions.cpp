#include "viewmodel/report/PagePositions.h"

#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/CTextMeasure.h"

#include <algorithm>

namespace {

/// A block with the place it takes.
struct Placed {
    std::uint32_t block;
    bool isRight;
    QRectF place;
};

class CLookup {
 public:
    explicit CLookup(const CPageLayout& layout) : m_layout(layout), m_page(layout.Page()) {}

    [[nodiscard]] Placed ItemAt(std::size_t item) const {
        const CPageLayout::Item& what = m_layout.Items()[item];
        return {what.block, false, QRectF(m_layout.Left(), what.top, m_layout.ContentWidth(), what.height)};
    }
    /// The text below a block that is nearest to a point.
    [[nodiscard]] Placed TextNear(Placed at, const QPointF& point) const {
        while (m_page.blocks[at.block].kind == PageBlockKind::Table) {
            const std::uint32_t table = m_page.blocks[at.block].index;
            if (m_page.tables[table].rows.empty()) break;
            const std::uint32_t last = static_cast<std::uint32_t>(m_page.tables[table].rows.size() - 1);
            const std::uint32_t row = std::min(last, m_layout.RowBelow(table, point.y() - at.place.top()));
            const PageRow& what = m_page.tables[table].rows[row];
            if (what.cellCount == 0) break;
            const std::vector<double>& lefts = m_layout.TableAt(table).columnLeft;
            const auto behind = std::upper_bound(lefts.begin() + 1, lefts.begin() + what.cellCount,
                                                 point.x() - at.place.left());
            const auto column = static_cast<std::uint32_t>(behind - lefts.begin() - 1);
            at = InCell({table, row, column}, at.place.topLeft(),
                        [&](const Placed& block) { return point.y() < block.place.bottom(); });
        }
        return at;
    }
    /// The text in which a position stands.
    [[nodiscard]] Placed TextWith(Placed at, std::uint32_t position) const {
        while (m_page.blocks[at.block].kind == PageBlockKind::Table) {
            const std::uint32_t table = m_page.blocks[at.block].index;
            const std::vector<PageRow>& rows = m_page.tables[table].rows;
            const auto behind =
                std::upper_bound(rows.begin(), rows.end(), position,
                                 [](auto where, const PageRow& row) { return where < row.begin; });
            if (behind == rows.begin()) break;
            const auto row = static_cast<std::uint32_t>(behind - rows.begin() - 1);
            if (rows[row].cellCount == 0) break;
            at = InCell({table, row, ColumnWith(rows[row], position)}, at.place.topLeft(),
                        [&](const Placed& block) { return position <= m_page.blocks[block.block].end; });
        }
        return at;
    }

 private:
    struct CellAt {
        std::uint32_t table;
        std::uint32_t row;
        std::uint32_t column;
    };
    [[nodiscard]] std::uint32_t ColumnWith(const PageRow& row, std::uint32_t position) const {
        std::uint32_t column = 0;
        while (column + 1 < row.cellCount &&
               m_page.blocks[m_page.cells[row.firstCell + column + 1].firstBlock].begin <= position)
            ++column;
        return column;
    }
    /// The first block of a cell that is wanted, or its last one.
    template <class Wanted>
    [[nodiscard]] Placed InCell(const CellAt& at, const QPointF& corner, Wanted&& isWanted) const {
        const PageTable& table = m_page.tables[at.table];
        const PageCell& cell = m_page.cells[table.rows[at.row].firstCell + at.column];
        const double padding = table.padding;
        const QRectF place = m_layout.CellRect(at.table, at.row, at.column)
                                 .translated(corner)
                                 .adjusted(padding, padding, -padding, -padding);
        Placed block{cell.firstBlock, cell.isRight, place};
        double top = place.top();
        for (std::uint32_t i = 0; i < cell.blockCount; ++i) {
            const double height = m_layout.BlockHeight(cell.firstBlock + i, place.width());
            block = {cell.firstBlock + i, cell.isRight, QRectF(place.left(), top, place.width(), height)};
            if (isWanted(block)) break;
            top += height;
        }
        return block;
    }

    const CPageLayout& m_layout;
    const ReportPage& m_page;
};

double LeftOf(const PageLine& line, const Placed& text) {
    return text.isRight ? text.place.right() - line.width : text.place.left();
}

/// Of the boundaries before and behind the character that a distance falls on, the nearer one.
std::uint32_t NearestBoundary(CTextMeasure& measure, QStringView text, std::uint32_t style, double distance) {
    const qsizetype fitting = measure.Fitting(text, style, distance);
    if (fitting >= text.size()) return static_cast<std::uint32_t>(text.size());
    const bool isPair = text[fitting].isHighSurrogate() && fitting + 1 < text.size();
    const qsizetype next = fitting + (isPair ? 2 : 1);
    const double middle =
        (measure.WidthOf(text.left(fitting), style) + measure.WidthOf(text.left(next), style)) / 2;
    return static_cast<std::uint32_t>(distance > middle ? next : fitting);
}

/// The character boundary nearest to a distance from the left end of a line.
std::uint32_t PositionInLine(const ReportPage& page, CTextMeasure& measure, const PageLine& line,
                             double distance) {
    std::uint32_t position = line.begin;
    double left = 0;
    ForEachStretch(page, line.begin, line.end, [&](const PageStretch& stretch) {
        if (left > distance) return;
        const QStringView text = page.Part(stretch.begin, stretch.end);
        position = stretch.begin + NearestBoundary(measure, text, stretch.style, distance - left);
        left += measure.WidthOf(text, stretch.style);
    });
    return position;
}

}  // namespace

double OffsetInLine(const CPageLayout& layout, CTextMeasure& measure, const PageLine& line,
                    std::uint32_t position) {
    double offset = 0;
    ForEachStretch(layout.Page(), line.begin, std::clamp(position, line.begin, line.end),
                   [&](const PageStretch& stretch) {
                       offset +=
                           measure.WidthOf(layout.Page().Part(stretch.begin, stretch.end), stretch.style);
                   });
    return offset;
}

std::uint32_t PositionAt(const CPageLayout& layout, CTextMeasure& measure, const QPointF& point) {
    if (layout.Items().empty()) return 0;
    std::size_t item = std::min(layout.ItemBelow(point.y()), layout.Items().size() - 1);
    if (layout.Items()[item].isPicture) item = item + 1 < layout.Items().size() ? item + 1 : item - 1;
    if (item >= layout.Items().size() || layout.Items()[item].isPicture) return 0;
    const CLookup lookup(layout);
    const Placed text = lookup.TextNear(lookup.ItemAt(item), point);
    const PageBlock& block = layout.Page().blocks[text.block];
    if (block.kind != PageBlockKind::Text) return block.begin;
    double top = text.place.top();
    const std::vector<PageLine> lines = layout.Lines(text.block, text.place.width());
    const PageLine* found = &lines.back();
    for (const PageLine& line : lines) {
        top += line.height;
        if (point.y() >= top) continue;
        found = &line;
        break;
    }
    return PositionInLine(layout.Page(), measure, *found, point.x() - LeftOf(*found, text));
}

std::optional<PositionPlace> PlaceOfPosition(const CPageLayout& layout, CTextMeasure& measure,
                                             std::uint32_t position) {
    const std::optional<std::size_t> item = layout.ItemWith(position);
    if (!item) return std::nullopt;
    const CLookup lookup(layout);
    const Placed text = lookup.TextWith(lookup.ItemAt(*item), position);
    const PageBlock& block = layout.Page().blocks[text.block];
    if (block.kind != PageBlockKind::Text)
        return PositionPlace{QRectF(text.place.topLeft(), QSizeF(0, text.place.height())), block.begin,
                             block.begin};
    const std::vector<PageLine> lines = layout.Lines(text.block, text.place.width());
    double top = text.place.top();
    std::size_t at = 0;
    while (at + 1 < lines.size() && lines[at + 1].begin <= position) top += lines[at++].height;
    const PageLine& line = lines[at];
    const double left = LeftOf(line, text) + OffsetInLine(layout, measure, line, position);
    return PositionPlace{QRectF(left, top, 0, line.height), line.begin, line.end};
}
