#include "viewmodel/report/CPageMeasures.h"

#include "viewmodel/report/CTextMeasure.h"
#include "viewmodel/report/PageLines.h"

#include <algorithm>
#include <utility>

namespace {

/// Rows between two looks at the clock.
constexpr std::size_t kRowsAtOnce = 32;

}  // namespace

CPageMeasures::CPageMeasures(std::shared_ptr<const ReportPage> page, CTextMeasure& measure)
    : m_page(std::move(page)),
      m_measure(measure),
      m_texts(m_page->blocks.size()),
      m_columns(m_page->tables.size()),
      m_table(m_page->tables.size()) {
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_columns[i].resize(std::max<std::uint32_t>(m_page->tables[i].columns, 1));
}

double CPageMeasures::GapOf(const PageTable& table) {
    return table.spacing + (table.hasLines ? 1 : 0);
}

double CPageMeasures::FrameOf(const PageTable& table) {
    const int columns = std::max(1, static_cast<int>(table.columns));
    return GapOf(table) * (columns + 1) + 2.0 * table.padding * columns;
}

bool CPageMeasures::Advance(QDeadlineTimer deadline) {
    while (m_table > 0) {
        const auto table = static_cast<std::uint32_t>(m_table - 1);
        const std::vector<PageRow>& rows = m_page->tables[table].rows;
        for (std::size_t i = 0; i < kRowsAtOnce && m_row < rows.size(); ++i) MeasureRow(table, rows[m_row++]);
        if (m_row >= rows.size()) {
            --m_table;
            m_row = 0;
        }
        if (deadline.hasExpired()) return false;
    }
    if (!m_isDone) MeasureBody();
    m_isDone = true;
    return true;
}

double CPageMeasures::Progress() const {
    if (m_table == 0) return 1;
    const double rows = std::max<double>(1, static_cast<double>(m_page->tables[m_table - 1].rows.size()));
    const double left = static_cast<double>(m_table) - static_cast<double>(m_row) / rows;
    return 1 - left / static_cast<double>(m_page->tables.size());
}

void CPageMeasures::MeasureRow(std::uint32_t table, const PageRow& row) {
    for (std::uint32_t i = 0; i < row.cellCount; ++i) {
        const PageCell& cell = m_page->cells[row.firstCell + i];
        Column& column = m_columns[table][i];
        for (std::uint32_t block = cell.firstBlock; block < cell.firstBlock + cell.blockCount; ++block) {
            const Column asked = MeasureBlock(block);
            column.least = std::max(column.least, asked.least);
            column.natural = std::max({column.natural, std::min(asked.natural, kWidestColumn), asked.least});
        }
    }
}

CPageMeasures::Column CPageMeasures::MeasureBlock(std::uint32_t block) {
    const PageBlock& what = m_page->blocks[block];
    if (what.kind == PageBlockKind::Text) {
        const TextWidths widths = WidthsOf(*m_page, what, m_measure);
        m_texts[block] = {static_cast<float>(widths.natural), widths.hasBreaks};
        return {std::min(widths.least, kLongestWord), widths.natural};
    }
    if (what.kind == PageBlockKind::Rule) return {};
    const double frame = FrameOf(m_page->tables[what.index]);
    Column whole{frame, frame};
    for (const Column& column : m_columns[what.index]) {
        whole.least += column.least;
        whole.natural += column.natural;
    }
    return whole;
}

/// Texts between the tables are broken wherever there is a need, so they ask for no more than a column.
void CPageMeasures::MeasureBody() {
    for (std::uint32_t i = 0; i < m_page->bodyCount; ++i) {
        const std::uint32_t block = m_page->firstBody + i;
        const Column asked = MeasureBlock(block);
        const bool isTable = m_page->blocks[block].kind == PageBlockKind::Table;
        m_whole.least = std::max(m_whole.least, isTable ? asked.least : 0);
        m_whole.natural =
            std::max(m_whole.natural, isTable ? asked.natural : std::min(asked.natural, kWidestColumn));
    }
    m_whole.least += 2.0 * m_page->margin;
    m_whole.natural += 2.0 * m_page->margin;
}
