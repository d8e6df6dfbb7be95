#include "shell/report/CPrintSheets.h"

#include "lang/FormatText.h"
#include "shell/report/CReportPicture.h"
#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/CPageMeasures.h"
#include "viewmodel/report/PageWalk.h"

#include <QPainter>
#include <algorithm>

namespace {

/// Below the sheet: a blank line and the one with the number.
constexpr double kFooter = 36;
constexpr double kFooterLine = 18;
constexpr double kSmallestFit = 0.4;
/// Lines of tables; a pixel of a printer would be too thin to see.
constexpr double kPenWidth = 0.5;
/// A picture leaves some of a sheet to its table.
constexpr double kHighestPicture = 0.6;

}  // namespace

CPrintSheets::CPrintSheets(const PrintablePage& page, const QSizeF& paper)
    : m_page(page),
      m_scale(std::clamp(paper.width() / page.measures->LeastWidth(), kSmallestFit, 1.0)),
      m_height(paper.height() / m_scale - kFooter) {
    const auto pictureHeight = [this](double width) {
        if (!m_page.picture) return 0.0;
        return std::min(m_page.picture->HeightFor(width, PaperStyle(*m_page.page)),
                        m_height * kHighestPicture);
    };
    m_layout =
        std::make_unique<CPageLayout>(CPageLayout::Parts{m_page.page, m_page.measures, *m_page.measure},
                                      paper.width() / m_scale, pictureHeight);
    while (!m_layout->Advance(QDeadlineTimer(QDeadlineTimer::Forever))) continue;
    m_sheets = SheetsOf(*m_layout, m_height);
}

CPrintSheets::~CPrintSheets() = default;

void CPrintSheets::Paint(QPainter& painter, int number) const {
    const Sheet& sheet = m_sheets[static_cast<std::size_t>(number - 1)];
    painter.save();
    painter.scale(m_scale, m_scale);
    PaintNumber(painter, number);
    if (sheet.headOf) PaintHead(painter, *sheet.headOf);
    PaintContent(painter, sheet);
    painter.restore();
}

CPagePainter::Page CPrintSheets::Painted() const {
    CPagePainter::Page page{*m_layout, *m_page.measure, m_page.picture};
    page.penWidth = kPenWidth;
    return page;
}

void CPrintSheets::PaintContent(QPainter& painter, const Sheet& sheet) const {
    painter.translate(0, sheet.headHeight - sheet.from);
    const QRectF part(0, sheet.from, m_layout->Width(), sheet.to - sheet.from);
    // The line above a row lies just outside of it.
    painter.setClipRect(part.adjusted(0, -1, 0, 0), Qt::IntersectClip);
    CPagePainter visitor(painter, Painted());
    visitor.ShowLinesBetween(sheet.shownTo, sheet.to);
    WalkPage(*m_layout, part, visitor);
}

void CPrintSheets::PaintHead(QPainter& painter, std::size_t item) const {
    const CPageLayout::Item& what = m_layout->Items()[item];
    const CPageLayout::Table& table = m_layout->TableAt(m_layout->Page().blocks[what.block].index);
    painter.save();
    painter.translate(0, -what.top - table.rowTop[0]);
    CPagePainter visitor(painter, Painted());
    WalkRow(*m_layout, item, 0, visitor);
    painter.restore();
}

void CPrintSheets::PaintNumber(QPainter& painter, int number) const {
    const QRectF place(0, m_height + kFooter - kFooterLine, m_layout->Width(), kFooterLine);
    painter.setFont(PaperStyle(*m_page.page).font);
    painter.setPen(Qt::black);
    painter.drawText(place, Qt::AlignCenter, FormatText<Text::ReportPageOf>(number, Count()));
}
