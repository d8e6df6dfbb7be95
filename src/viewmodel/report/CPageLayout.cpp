#include "viewmodel/report/CPageLayout.h"

#include "viewmodel/report/CTextMeasure.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double kRuleHeight = 17;
constexpr std::uint32_t kRowsAtOnce = 64;
/// A text that just fits is not broken because a float is a little less than its double.
constexpr double kTolerance = 0.01;

using Columns = std::vector<CPageMeasures::Column>;

/// What columns get when none gets more than a limit and none goes beyond its bounds.
template <class WidthAt>
std::vector<double> UpToLimit(const Columns& columns, double width, double most, WidthAt&& widthAt) {
    double low = 0, high = most;
    constexpr int kSteps = 50;
    for (int step = 0; step < kSteps; ++step) {
        const double limit = (low + high) / 2;
        double sum = 0;
        for (const CPageMeasures::Column& column : columns) sum += widthAt(column, limit);
        (sum > width ? high : low) = limit;
    }
    std::vector<double> shares;
    for (const CPageMeasures::Column& column : columns) shares.push_back(widthAt(column, low));
    return shares;
}

/// Shares a width out. Where there is enough each column has what it asks for and its part of the rest. Where
/// there isn't, the widest ones get less, so that short texts stay on a line; where even words don't fit, the
/// longest are cut.
std::vector<double> Shared(const Columns& columns, double width) {
    double least = 0, natural = 0, most = 0;
    for (const CPageMeasures::Column& column : columns) {
        least += column.least;
        natural += column.natural;
        most = std::max(most, column.natural);
    }
    std::vector<double> shares(columns.size(), width / static_cast<double>(columns.size()));
    if (natural <= 0) return shares;
    if (natural <= width) {
        for (std::size_t i = 0; i < columns.size(); ++i) shares[i] = columns[i].natural * width / natural;
        return shares;
    }
    if (least > width)
        return UpToLimit(columns, width, most, [](const CPageMeasures::Column& column, double limit) {
            return std::min(column.least, limit);
        });
    return UpToLimit(columns, width, most, [](const CPageMeasures::Column& column, double limit) {
        return std::clamp(limit, column.least, column.natural);
    });
}

/// A text whose last word is strong names the table below it.
bool IsCaption(const ReportPage& page, const PageBlock& block) {
    if (block.kind != PageBlockKind::Text) return false;
    std::uint32_t end = block.end;
    while (end > block.begin && page.text[end - 1].isSpace()) --end;
    bool isStrong = false;
    if (end > block.begin)
        ForEachStretch(page, end - 1, end,
                       [&](const PageStretch& part) { isStrong = page.styles[part.style].strong; });
    return isStrong;
}

}  // namespace

CPageLayout::CPageLayout(const Parts& parts, double width, const PictureHeight& picture)
    : m_parts(parts),
      m_picture(picture),
      m_width(width),
      m_tables(parts.page->tables.size()),
      m_placed(parts.page->tables.size()) {
    for (std::uint32_t style = 0; style < Page().styles.size(); ++style)
        m_lineHeights.push_back(parts.measure.SizeOf(style).height);
}

bool CPageLayout::Advance(QDeadlineTimer deadline) {
    if (!ShareSome(deadline) || !PlaceSome(deadline)) return false;
    if (!m_isDone) PlaceItems();
    m_isDone = true;
    return true;
}

double CPageLayout::Progress() const {
    if (m_isDone || m_tables.empty()) return 1;
    const auto done = static_cast<double>(m_shared + m_tables.size() - m_placed);
    return done / (2 * static_cast<double>(m_tables.size()));
}

bool CPageLayout::ShareSome(QDeadlineTimer deadline) {
    while (m_shared < m_tables.size()) {
        ShareColumns(static_cast<std::uint32_t>(m_shared++));
        if (deadline.hasExpired()) return false;
    }
    return true;
}

bool CPageLayout::PlaceSome(QDeadlineTimer deadline) {
    while (m_placed > 0) {
        const auto table = static_cast<std::uint32_t>(m_placed - 1);
        const auto rows = static_cast<std::uint32_t>(Page().tables[table].rows.size());
        const auto placed = static_cast<std::uint32_t>(m_tables[table].rowTop.size() - 1);
        for (std::uint32_t row = placed; row < std::min(rows, placed + kRowsAtOnce); ++row)
            PlaceRow(table, row);
        if (placed + kRowsAtOnce >= rows) --m_placed;
        if (deadline.hasExpired()) return false;
    }
    return true;
}

void CPageLayout::ShareColumns(std::uint32_t index) {
    const PageTable& table = Page().tables[index];
    const std::vector<CPageMeasures::Column>& columns = m_parts.measures->ColumnsOf(index);
    const double available =
        table.parent == PageTable::kOutermost ? ContentWidth() : ContentOf(table.parent, table.parentColumn);
    const double frame = CPageMeasures::FrameOf(table);
    double wanted = available * table.widthPercent / 100;
    if (table.widthPercent == 0) {
        wanted = frame;
        for (const CPageMeasures::Column& column : columns) wanted += column.natural;
        wanted = std::min(wanted, available);
    }
    Table& placed = m_tables[index];
    const double gap = CPageMeasures::GapOf(table);
    double left = gap;
    for (const double share : Shared(columns, std::max(1.0, wanted - frame))) {
        placed.columnLeft.push_back(left);
        left += share + 2.0 * table.padding + gap;
    }
    placed.columnLeft.push_back(left);
    placed.width = left;
    placed.rowTop.reserve(table.rows.size() + 1);
    placed.rowTop.push_back(gap);
}

double CPageLayout::ContentOf(std::uint32_t table, std::uint32_t column) const {
    const std::vector<double>& left = m_tables[table].columnLeft;
    const PageTable& what = Page().tables[table];
    return left[column + 1] - left[column] - CPageMeasures::GapOf(what) - 2.0 * what.padding;
}

void CPageLayout::PlaceRow(std::uint32_t index, std::uint32_t number) {
    const PageTable& table = Page().tables[index];
    const PageRow& row = table.rows[number];
    double height = 0;
    for (std::uint32_t i = 0; i < row.cellCount; ++i) {
        const PageCell& cell = Page().cells[row.firstCell + i];
        const double width = ContentOf(index, i);
        double content = 0;
        for (std::uint32_t block = 0; block < cell.blockCount; ++block)
            content += BlockHeight(cell.firstBlock + block, width);
        height = std::max(height, content);
    }
    std::vector<double>& tops = m_tables[index].rowTop;
    tops.push_back(tops.back() + height + 2.0 * table.padding + CPageMeasures::GapOf(table));
}

double CPageLayout::BlockHeight(std::uint32_t block, double width) const {
    switch (Page().blocks[block].kind) {
        case PageBlockKind::Text:
            return TextHeight(block, width);
        case PageBlockKind::Table:
            return m_tables[Page().blocks[block].index].Height();
        default:
            return kRuleHeight;
    }
}

/// Most texts are a single line of one style.
double CPageLayout::TextHeight(std::uint32_t block, double width) const {
    const PageBlock& text = Page().blocks[block];
    const CPageMeasures::Text& measured = m_parts.measures->TextOf(block);
    const bool isPlain = Page().EndOfRun(text.index, text) == text.end;
    if (isPlain && !measured.hasBreaks && static_cast<double>(measured.natural) <= width + kTolerance)
        return m_lineHeights[Page().runs[text.index].style];
    double height = 0;
    for (const PageLine& line : Lines(block, width)) height += line.height;
    return height;
}

std::vector<PageLine> CPageLayout::Lines(std::uint32_t block, double width) const {
    return LinesOf(Page(), Page().blocks[block], width + kTolerance, m_parts.measure);
}

/// Before the first table that has lines, as the one with the title has none, and above its caption, where it
/// has one.
std::uint32_t CPageLayout::BlockBelowPicture() const {
    const auto block = [this](std::uint32_t i) -> const PageBlock& {
        return Page().blocks[Page().firstBody + i];
    };
    std::uint32_t place = 0;
    while (place < Page().bodyCount &&
           (block(place).kind != PageBlockKind::Table || !Page().tables[block(place).index].hasLines))
        ++place;
    const bool isThere = place < Page().bodyCount;
    return isThere && place > 0 && IsCaption(Page(), block(place - 1)) ? place - 1 : place;
}

void CPageLayout::PlaceItems() {
    double top = Page().margin;
    const std::uint32_t belowPicture = BlockBelowPicture();
    for (std::uint32_t i = 0; i < Page().bodyCount; ++i) {
        if (i == belowPicture) PlacePicture(top);
        const std::uint32_t block = Page().firstBody + i;
        m_items.push_back({top, BlockHeight(block, ContentWidth()), block, false});
        top += m_items.back().height;
    }
    if (belowPicture == Page().bodyCount) PlacePicture(top);
    m_height = top + Page().margin;
}

void CPageLayout::PlacePicture(double& top) {
    const double height = m_picture ? m_picture(ContentWidth()) : 0;
    if (height <= 0) return;
    m_pictureItem = m_items.size();
    m_items.push_back({top, height, 0, true});
    top += height;
}

std::size_t CPageLayout::ItemBelow(double top) const {
    const auto endsAbove = [](const Item& item, double at) { return item.top + item.height <= at; };
    return static_cast<std::size_t>(std::lower_bound(m_items.begin(), m_items.end(), top, endsAbove) -
                                    m_items.begin());
}

std::optional<std::size_t> CPageLayout::ItemWith(std::uint32_t position) const {
    if (Page().bodyCount == 0) return std::nullopt;
    const auto first = Page().blocks.begin() + Page().firstBody;
    const auto behind =
        std::upper_bound(first + 1, first + Page().bodyCount, position,
                         [](std::uint32_t at, const PageBlock& block) { return at < block.begin; });
    const auto number = static_cast<std::size_t>(behind - first - 1);
    return m_pictureItem && *m_pictureItem <= number ? number + 1 : number;
}

std::uint32_t CPageLayout::RowBelow(std::uint32_t table, double top) const {
    const std::vector<double>& tops = m_tables[table].rowTop;
    const auto found = std::upper_bound(tops.begin() + 1, tops.end(), top);
    return static_cast<std::uint32_t>(found - tops.begin() - 1);
}

QRectF CPageLayout::CellRect(std::uint32_t table, std::uint32_t row, std::uint32_t column) const {
    const Table& placed = m_tables[table];
    const double gap = CPageMeasures::GapOf(Page().tables[table]);
    return {QPointF(placed.columnLeft[column], placed.rowTop[row]),
            QPointF(placed.columnLeft[column + 1] - gap, placed.rowTop[row + 1] - gap)};
}
