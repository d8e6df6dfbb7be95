#include "viewmodel/report/Pagination.h"

#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/PageWalk.h"

#include <algorithm>

namespace {

/// Heights are sums of fractions.
constexpr double kTolerance = 0.001;
/// A head takes at most so much of a sheet, or it stands on the first one only.
constexpr double kLargestHead = 0.4;

/// Where a sheet ends and the next one begins. Between the two there are only lines that didn't fit.
struct Cut {
    double to;
    double next;
};

/// Finds the highest top among the lines that a height cuts through.
class CLineFinder final : public CPageVisitor {
 public:
    explicit CLineFinder(double at) : m_at(at), m_top(at) {}
    [[nodiscard]] double Top() const { return m_top; }

    void OnLine(const PageLine& line, const QPointF& place) override {
        if (place.y() < m_at - kTolerance && place.y() + line.height > m_at + kTolerance)
            m_top = std::min(m_top, place.y());
    }
    void OnCell(const PageTable&, const QRectF&, PageColour) override {}
    void OnRule(const QRectF&) override {}
    void OnPicture(const QRectF&) override {}

 private:
    double m_at;
    double m_top;
};

/// Whether a line, rule or picture ends below a height.
class CRest final : public CPageVisitor {
 public:
    explicit CRest(double shownTo) : m_shownTo(shownTo + kTolerance) {}
    [[nodiscard]] bool HasAny() const { return m_hasAny; }

    void OnLine(const PageLine& line, const QPointF& place) override {
        m_hasAny = m_hasAny || (line.begin < line.end && place.y() + line.height > m_shownTo);
    }
    void OnCell(const PageTable&, const QRectF&, PageColour) override {}
    void OnRule(const QRectF& place) override { m_hasAny = m_hasAny || place.bottom() > m_shownTo; }
    void OnPicture(const QRectF& place) override { OnRule(place); }

 private:
    double m_shownTo;
    bool m_hasAny = false;
};

class CPaginator {
 public:
    CPaginator(const CPageLayout& layout, double height) : m_layout(layout), m_height(height) {}

    [[nodiscard]] std::vector<Sheet> Run() {
        std::vector<Sheet> sheets;
        double from = 0, shownTo = 0;
        do {
            Sheet sheet{.from = from, .shownTo = shownTo, .headOf = HeadAt(from)};
            if (sheet.headOf) sheet.headHeight = HeadHeight(*sheet.headOf);
            const Cut cut = CutOf(from, from + m_height - sheet.headHeight);
            sheet.to = cut.to;
            sheets.push_back(sheet);
            from = cut.next;
            shownTo = cut.to;
        } while (HasMore(from, shownTo));
        return sheets;
    }

 private:
    /// Whether anything is left to be shown; the frame of a table is nothing by itself.
    [[nodiscard]] bool HasMore(double from, double shownTo) const {
        constexpr double kLittle = 100;
        const double left = m_layout.Height() - m_layout.Page().margin - from;
        if (left <= kTolerance || left > kLittle) return left > kTolerance;
        CRest rest(shownTo);
        WalkPage(m_layout, QRectF(0, from, m_layout.Width(), left), rest);
        return rest.HasAny();
    }
    [[nodiscard]] const PageTable* TableOf(const CPageLayout::Item& item) const {
        if (item.isPicture) return nullptr;
        const PageBlock& block = m_layout.Page().blocks[item.block];
        return block.kind == PageBlockKind::Table ? &m_layout.Page().tables[block.index] : nullptr;
    }
    [[nodiscard]] const CPageLayout::Table& Placed(const CPageLayout::Item& item) const {
        return m_layout.TableAt(m_layout.Page().blocks[item.block].index);
    }
    [[nodiscard]] double HeadHeight(std::size_t item) const {
        const CPageLayout::Table& table = Placed(m_layout.Items()[item]);
        return table.rowTop[1] - table.rowTop[0];
    }
    /// The item in whose rows behind the head a height lies.
    [[nodiscard]] std::optional<std::size_t> HeadAt(double at) const {
        const std::size_t item = m_layout.ItemBelow(at + kTolerance);
        if (item >= m_layout.Items().size()) return std::nullopt;
        const CPageLayout::Item& what = m_layout.Items()[item];
        const PageTable* table = TableOf(what);
        if (!table || !table->hasHead || HeadHeight(item) > m_height * kLargestHead) return std::nullopt;
        if (at < what.top + Placed(what).rowTop[1] - kTolerance) return std::nullopt;
        return item;
    }
    [[nodiscard]] Cut CutOf(double from, double limit) const {
        if (m_layout.Height() <= limit + kTolerance) return {m_layout.Height(), m_layout.Height()};
        const std::size_t index = m_layout.ItemBelow(limit);
        if (index >= m_layout.Items().size()) return {limit, limit};
        const CPageLayout::Item& item = m_layout.Items()[index];
        if (item.top >= limit - kTolerance) return {limit, limit};
        if (const PageTable* table = TableOf(item)) return CutTable(*table, item, from, limit);
        const bool isText = !item.isPicture && m_layout.Page().blocks[item.block].kind == PageBlockKind::Text;
        if (!isText && item.top > std::max<double>(from, m_layout.Page().margin) + kTolerance)
            return {item.top, item.top};
        return CutLines(from, limit);
    }
    /// Above the row that doesn't fit; a head goes with the row below it. A row that doesn't fit on a sheet
    /// of its own either begins here, unless half of the sheet is full.
    [[nodiscard]] Cut CutTable(const PageTable& table, const CPageLayout::Item& item, double from,
                               double limit) const {
        const std::uint32_t index = m_layout.Page().blocks[item.block].index;
        const std::uint32_t row = m_layout.RowBelow(index, limit - item.top - kTolerance);
        const std::vector<double>& tops = m_layout.TableAt(index).rowTop;
        const std::size_t fitting = std::min<std::size_t>(row, table.rows.size() - 1);
        const bool isWhole = row == 0 || (row == 1 && table.hasHead);
        const double top = item.top + (isWhole ? 0 : tops[fitting]);
        const double used = top - std::max<double>(from, m_layout.Page().margin);
        const double needed = tops[fitting + 1] - tops[fitting] + HeadOf(table, tops);
        if (used > kTolerance && (needed <= m_height || used > m_height / 2)) return {top, top};
        return CutLines(from, limit);
    }
    [[nodiscard]] static double HeadOf(const PageTable& table, const std::vector<double>& tops) {
        return table.hasHead ? tops[1] - tops[0] : 0;
    }
    [[nodiscard]] Cut CutLines(double from, double limit) const {
        CLineFinder finder(limit);
        WalkPage(m_layout, QRectF(0, limit - kTolerance, m_layout.Width(), 2 * kTolerance), finder);
        return finder.Top() > from + kTolerance ? Cut{limit, finder.Top()} : Cut{limit, limit};
    }

    const CPageLayout& m_layout;
    double m_height;
};

}  // namespace

std::vector<Sheet> SheetsOf(const CPageLayout& layout, double height) {
    return CPaginator(layout, height).Run();
}
