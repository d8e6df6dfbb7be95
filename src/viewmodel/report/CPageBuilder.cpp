#include "viewmodel/report/CPageBuilder.h"

#include <algorithm>
#include <utility>

namespace {

/// Tags of text that are open at a time, and styles of a page. What goes beyond them looks like what is
/// before it.
constexpr std::size_t kMostTags = 64;
constexpr std::size_t kMostStyles = 256;
/// What a cell or row that is opened again may hold, as it is copied each time.
constexpr std::uint32_t kMostReopened = 64;
constexpr int kMostSpacing = 50;
constexpr int kMostMargin = 100;
constexpr QStringView kMarginProperty = u"margin:";
constexpr qsizetype kLongestFace = 100;

PageTable TableOf(const CPageTag& tag) {
    PageTable table;
    if (tag.Attribute(u"width").endsWith(u'%')) table.widthPercent = tag.Number(u"width", 1, 100).value_or(0);
    table.spacing = tag.Number(u"cellspacing", 0, kMostSpacing).value_or(2);
    table.padding = tag.Number(u"cellpadding", 0, kMostSpacing).value_or(1);
    table.hasLines = tag.Number(u"border", 0, 1).value_or(0) > 0;
    table.background = tag.Colour(u"bgcolor");
    if (const PageColour colour = tag.Colour(u"bordercolor"); colour != kNoColour) table.lineColour = colour;
    return table;
}

}  // namespace

CPageBuilder::CPageBuilder() : m_page(std::make_unique<ReportPage>()) {
    m_flows.emplace_back();
}

void CPageBuilder::Open(const CPageTag& tag) {
    switch (tag.Kind()) {
        case PageTagKind::Break:
            return BreakLine();
        case PageTagKind::Block:
            return BreakSoftly();
        case PageTagKind::Rule:
            return AddRule();
        case PageTagKind::Table:
            return OpenTableTag(tag);
        case PageTagKind::Row:
            return OpenRow(tag);
        case PageTagKind::Cell:
        case PageTagKind::HeadCell:
            return OpenCell(tag);
        case PageTagKind::Font:
        case PageTagKind::Strong:
        case PageTagKind::Emphasis:
            return OpenStyle(tag);
        case PageTagKind::Body:
            return OpenBody(tag);
        default:
            return;
    }
}

void CPageBuilder::Close(const CPageTag& tag) {
    switch (tag.Kind()) {
        case PageTagKind::Block:
            return BreakSoftly();
        case PageTagKind::Table:
            if (m_ignoredTables == 0) return CloseTable();
            --m_ignoredTables;
            return BreakSoftly();
        case PageTagKind::Row:
            return m_ignoredTables == 0 ? CloseRow() : BreakSoftly();
        case PageTagKind::Cell:
        case PageTagKind::HeadCell:
            return m_ignoredTables == 0 ? CloseCell() : AddSpace();
        case PageTagKind::Font:
        case PageTagKind::Strong:
        case PageTagKind::Emphasis:
            return CloseStyle(tag.Kind());
        default:
            return;
    }
}

std::unique_ptr<ReportPage> CPageBuilder::Finish() {
    while (!m_tables.empty()) CloseTable();
    EndText();
    m_page->firstBody = static_cast<std::uint32_t>(m_page->blocks.size());
    m_page->bodyCount = static_cast<std::uint32_t>(Current().blocks.size());
    m_page->blocks.insert(m_page->blocks.end(), Current().blocks.begin(), Current().blocks.end());
    return std::move(m_page);
}

/// The first margin of "margin: 5px 5px 5px 5px" counts on all sides.
void CPageBuilder::OpenBody(const CPageTag& tag) {
    const QStringView style = tag.Attribute(u"style");
    const qsizetype at = style.indexOf(kMarginProperty, 0, Qt::CaseInsensitive);
    if (at < 0) return;
    const std::optional<int> margin = NumberAtFront(style.mid(at + kMarginProperty.size()), 0, kMostMargin);
    m_page->margin = margin.value_or(m_page->margin);
}

// --- Texts and their style

void CPageBuilder::OpenStyle(const CPageTag& tag) {
    if (m_tags.size() - Current().outerTags >= kMostTags) {
        ++m_ignoredTags;
        return;
    }
    PageStyle style = m_page->styles[m_style];
    m_tags.push_back({tag.Kind(), m_style});
    if (tag.Kind() == PageTagKind::Strong || tag.Kind() == PageTagKind::HeadCell) style.strong = true;
    if (tag.Kind() == PageTagKind::Emphasis) style.emphasis = true;
    if (tag.Kind() == PageTagKind::Font) {
        style.size = tag.Number(u"size", 1, 7).value_or(style.size);
        if (const PageColour colour = tag.Colour(u"color"); colour != kNoColour) style.colour = colour;
        if (m_page->face.isEmpty()) m_page->face = tag.Attribute(u"face").left(kLongestFace).toString();
    }
    SetStyle(StyleIndex(style));
}

void CPageBuilder::CloseStyle(PageTagKind kind) {
    if (m_ignoredTags > 0) {
        --m_ignoredTags;
        return;
    }
    for (std::size_t at = m_tags.size(); at > Current().outerTags; --at)
        if (m_tags[at - 1].kind == kind) {
            SetStyle(m_tags[at - 1].styleBefore);
            m_tags.resize(at - 1);
            return;
        }
}

std::uint32_t CPageBuilder::StyleIndex(const PageStyle& style) {
    std::vector<PageStyle>& styles = m_page->styles;
    const auto known = std::ranges::find(styles, style);
    if (known == styles.end() && styles.size() >= kMostStyles) return m_style;
    if (known != styles.end()) return static_cast<std::uint32_t>(known - styles.begin());
    styles.push_back(style);
    return static_cast<std::uint32_t>(styles.size() - 1);
}

void CPageBuilder::SetStyle(std::uint32_t style) {
    m_isStyleNew = m_isStyleNew || style != m_style;
    m_style = style;
}

void CPageBuilder::Append(QChar sign) {
    if (m_isStyleNew) {
        if (m_page->runs.empty() || m_page->runs.back().begin != Position())
            m_page->runs.push_back({Position(), m_style});
        else
            m_page->runs.back().style = m_style;
        m_isStyleNew = false;
    }
    m_page->text += sign;
}

void CPageBuilder::Add(QChar sign) {
    NeedCell();
    BeginText();
    if (m_hasSpace && !Current().isLineEmpty) Append(u' ');
    m_hasSpace = false;
    Current().isLineEmpty = false;
    Append(sign);
    if (m_tables.empty()) return;
    const bool isStrong = m_page->styles[m_style].strong;
    m_tables.back().hasStrong |= isStrong;
    m_tables.back().hasPlain |= !isStrong;
}

// --- Blocks

/// A text that the last block isn't part of begins behind a line feed.
void CPageBuilder::Separate() {
    const bool isFirst = Current().blocks.empty();
    if (!isFirst && !m_page->text.endsWith(u'\n')) m_page->text += u'\n';
}

void CPageBuilder::BeginText() {
    if (Current().isInText) return;
    Separate();
    m_isStyleNew = true;
    Current().blocks.push_back(
        {Position(), Position(), static_cast<std::uint32_t>(m_page->runs.size()), PageBlockKind::Text});
    m_page->runs.push_back({Position(), m_style});
    Current().isInText = true;
    Current().isLineEmpty = true;
    m_hasSpace = false;
}

void CPageBuilder::EndText() {
    m_hasSpace = false;
    if (!Current().isInText) return;
    Current().blocks.back().end = Position();
    Current().isInText = false;
}

void CPageBuilder::BreakLine() {
    NeedCell();
    BeginText();
    Append(u'\n');
    Current().isLineEmpty = true;
    m_hasSpace = false;
}

void CPageBuilder::BreakSoftly() {
    if (Current().isInText && !Current().isLineEmpty) BreakLine();
}

void CPageBuilder::AddRule() {
    NeedCell();
    EndText();
    Separate();
    Current().blocks.push_back({Position(), Position(), 0, PageBlockKind::Rule});
}

// --- Tables

void CPageBuilder::OpenTableTag(const CPageTag& tag) {
    if (m_tables.size() < kDeepest && m_ignoredTables == 0) return StartTable(TableOf(tag));
    ++m_ignoredTables;
    BreakSoftly();
}

void CPageBuilder::StartTable(const PageTable& like) {
    if (!m_tables.empty()) NeedCell();
    EndText();
    Separate();
    const auto index = static_cast<std::uint32_t>(m_page->tables.size());
    Current().blocks.push_back({Position(), Position(), index, PageBlockKind::Table});
    m_page->tables.push_back(like);
    PageTable& table = m_page->tables.back();
    table.rows.clear();
    table.columns = 0;
    table.hasHead = false;
    table.parent = m_tables.empty() ? PageTable::kOutermost : m_tables.back().table;
    table.parentColumn = m_tables.empty() ? 0 : static_cast<std::uint32_t>(m_tables.back().cells.size());
    m_tables.emplace_back().table = index;
}

void CPageBuilder::CloseTable() {
    if (m_tables.empty()) return;
    CloseRow();
    m_tables.pop_back();
    Current().blocks.back().end = Position();
    m_hasSpace = false;
}

void CPageBuilder::OpenRow(const CPageTag& tag) {
    if (m_ignoredTables > 0) return BreakSoftly();
    if (m_tables.empty() && !m_page->tables.empty()) StartTable(PageTable(m_page->tables.back()));
    if (m_tables.empty()) return BreakSoftly();
    CloseRow();
    StartRow(tag.Colour(u"bgcolor"));
}

void CPageBuilder::StartRow(PageColour background) {
    OpenTable& open = m_tables.back();
    if (!m_page->tables[open.table].rows.empty()) m_page->text += u'\n';
    open.row = {Position(), 0, 0, background};
    open.cells.clear();
    open.hasStrong = false;
    open.hasPlain = false;
    open.isInRow = true;
}

void CPageBuilder::CloseRow() {
    if (m_tables.empty() || !m_tables.back().isInRow) return;
    CloseCell();
    OpenTable& open = m_tables.back();
    PageTable& table = m_page->tables[open.table];
    open.row.firstCell = static_cast<std::uint32_t>(m_page->cells.size());
    open.row.cellCount = static_cast<std::uint32_t>(open.cells.size());
    m_page->cells.insert(m_page->cells.end(), open.cells.begin(), open.cells.end());
    table.columns = std::max(table.columns, open.row.cellCount);
    table.rows.push_back(open.row);
    open.isInRow = false;
    NoteHead();
}

/// A first row of strong texts over a row with others names the columns. Titles and a column of strong texts
/// do not.
void CPageBuilder::NoteHead() {
    OpenTable& open = m_tables.back();
    PageTable& table = m_page->tables[open.table];
    if (table.rows.size() == 1) open.isFirstStrong = open.hasStrong && !open.hasPlain;
    if (table.rows.size() == 2) table.hasHead = open.isFirstStrong && open.hasPlain;
}

void CPageBuilder::OpenCell(const CPageTag& tag) {
    if (m_ignoredTables > 0) return AddSpace();
    if (m_tables.empty() && !m_page->tables.empty()) StartTable(PageTable(m_page->tables.back()));
    if (m_tables.empty()) return AddSpace();
    CloseCell();
    ReopenRow();
    StartCell(tag.Colour(u"bgcolor"), tag.Attribute(u"align").compare(u"right", Qt::CaseInsensitive) == 0);
    if (tag.Kind() == PageTagKind::HeadCell) OpenStyle(tag);
}

void CPageBuilder::StartCell(PageColour background, bool isRight) {
    if (!m_tables.back().cells.empty()) m_page->text += u'\t';
    OpenFlow({0, 0, background, isRight});
}

void CPageBuilder::OpenFlow(const PageCell& cell) {
    m_tables.back().isInCell = true;
    Flow flow;
    flow.outerTags = m_tags.size();
    flow.outerStyle = m_style;
    flow.outerIgnored = std::exchange(m_ignoredTags, 0);
    flow.cell = cell;
    m_flows.push_back(std::move(flow));
    SetStyle(0);
}

void CPageBuilder::CloseCell() {
    if (m_tables.empty() || !m_tables.back().isInCell) return;
    if (Current().blocks.empty()) BeginText();
    EndText();
    Flow& flow = Current();
    flow.cell.firstBlock = static_cast<std::uint32_t>(m_page->blocks.size());
    flow.cell.blockCount = static_cast<std::uint32_t>(flow.blocks.size());
    m_page->blocks.insert(m_page->blocks.end(), flow.blocks.begin(), flow.blocks.end());
    m_tables.back().cells.push_back(flow.cell);
    m_tables.back().isInCell = false;
    m_tags.resize(std::min(m_tags.size(), flow.outerTags));
    m_ignoredTags = flow.outerIgnored;
    SetStyle(flow.outerStyle);
    m_flows.pop_back();
}

/// The open table gets a row: the last one, where only its end tag came too early, as a cell without a row
/// says.
void CPageBuilder::ReopenRow() {
    OpenTable& open = m_tables.back();
    if (open.isInRow) return;
    PageTable& table = m_page->tables[open.table];
    if (table.rows.empty() || table.rows.back().cellCount > kMostReopened) return StartRow(kNoColour);
    open.row = table.rows.back();
    table.rows.pop_back();
    const auto first = m_page->cells.begin() + static_cast<std::ptrdiff_t>(open.row.firstCell);
    open.cells.assign(first, m_page->cells.end());
    m_page->cells.erase(first, m_page->cells.end());
    open.isInRow = true;
}

/// Text between two cells belongs to the one before it.
void CPageBuilder::ReopenCell() {
    OpenTable& open = m_tables.back();
    if (open.cells.empty() || open.cells.back().blockCount > kMostReopened)
        return StartCell(kNoColour, false);
    const PageCell cell = open.cells.back();
    open.cells.pop_back();
    OpenFlow(cell);
    const auto first = m_page->blocks.begin() + static_cast<std::ptrdiff_t>(cell.firstBlock);
    Current().blocks.assign(first, m_page->blocks.end());
    m_page->blocks.erase(first, m_page->blocks.end());
    Current().isInText = Current().blocks.back().kind == PageBlockKind::Text;
    Current().isLineEmpty = m_page->text.endsWith(u'\n');
    m_isStyleNew = true;
}

void CPageBuilder::NeedCell() {
    if (m_tables.empty() || m_tables.back().isInCell) return;
    ReopenRow();
    ReopenCell();
}
