#include "viewmodel/report/PageWalk.h"

#include "viewmodel/report/CPageLayout.h"

#include <algorithm>

namespace {

/// Blocks below one another in a width.
struct Stack {
    std::uint32_t first;
    std::uint32_t count;
    bool isRight;
};

class CWalk {
 public:
    CWalk(const CPageLayout& layout, const QRectF& part, CPageVisitor& visitor)
        : m_layout(layout), m_part(part), m_visitor(visitor) {}

    void Block(std::uint32_t block, bool isRight, const QRectF& place) {
        const PageBlock& what = m_layout.Page().blocks[block];
        if (what.kind == PageBlockKind::Text) return Text(block, isRight, place);
        if (what.kind == PageBlockKind::Rule) return m_visitor.OnRule(place);
        Rows(what.index, place.topLeft());
    }
    void Row(std::uint32_t index, std::uint32_t number, const QPointF& corner) {
        const PageTable& table = m_layout.Page().tables[index];
        const PageRow& row = table.rows[number];
        for (std::uint32_t i = 0; i < row.cellCount; ++i) {
            const QRectF place = m_layout.CellRect(index, number, i).translated(corner);
            if (!Touches(place)) continue;
            const PageCell& cell = m_layout.Page().cells[row.firstCell + i];
            m_visitor.OnCell(table, place, Background(table, row, cell));
            Blocks({cell.firstBlock, cell.blockCount, cell.isRight},
                   place.adjusted(table.padding, table.padding, -table.padding, -table.padding));
        }
    }

 private:
    /// Lines between cells lie just outside of them.
    [[nodiscard]] bool Touches(const QRectF& place) const {
        return place.adjusted(-1, -1, 1, 1).intersects(m_part);
    }
    [[nodiscard]] static PageColour Background(const PageTable& table, const PageRow& row,
                                               const PageCell& cell) {
        if (cell.background != kNoColour) return cell.background;
        return row.background != kNoColour ? row.background : table.background;
    }
    void Rows(std::uint32_t index, const QPointF& corner) {
        const auto count = static_cast<std::uint32_t>(m_layout.Page().tables[index].rows.size());
        const CPageLayout::Table& table = m_layout.TableAt(index);
        for (std::uint32_t row = m_layout.RowBelow(index, m_part.top() - corner.y()); row < count; ++row) {
            if (table.rowTop[row] + corner.y() >= m_part.bottom()) return;
            Row(index, row, corner);
        }
    }
    void Blocks(const Stack& stack, const QRectF& place) {
        double top = place.top();
        for (std::uint32_t block = stack.first; block < stack.first + stack.count; ++block) {
            const double height = m_layout.BlockHeight(block, place.width());
            const QRectF where(place.left(), top, place.width(), height);
            if (Touches(where)) Block(block, stack.isRight, where);
            top += height;
        }
    }
    void Text(std::uint32_t block, bool isRight, const QRectF& place) {
        double top = place.top();
        for (const PageLine& line : m_layout.Lines(block, place.width())) {
            const double left = isRight ? place.right() - line.width : place.left();
            if (top + line.height >= m_part.top() && top <= m_part.bottom())
                m_visitor.OnLine(line, QPointF(left, top));
            top += line.height;
        }
    }

    const CPageLayout& m_layout;
    QRectF m_part;
    CPageVisitor& m_visitor;
};

QRectF PlaceOf(const CPageLayout& layout, const CPageLayout::Item& item) {
    return {layout.Left(), item.top, layout.ContentWidth(), item.height};
}

}  // namespace

void WalkPage(const CPageLayout& layout, const QRectF& part, CPageVisitor& visitor) {
    const std::vector<CPageLayout::Item>& items = layout.Items();
    CWalk walk(layout, part, visitor);
    for (std::size_t i = layout.ItemBelow(part.top()); i < items.size() && items[i].top < part.bottom();
         ++i) {
        const QRectF place = PlaceOf(layout, items[i]);
        if (items[i].isPicture)
            visitor.OnPicture(place);
        else
            walk.Block(items[i].block, false, place);
    }
}

void WalkRow(const CPageLayout& layout, std::size_t item, std::uint32_t row, CPageVisitor& visitor) {
    const CPageLayout::Item& what = layout.Items()[item];
    const QRectF place = PlaceOf(layout, what);
    CWalk walk(layout, place, visitor);
    walk.Row(layout.Page().blocks[what.block].index, row, place.topLeft());
}
