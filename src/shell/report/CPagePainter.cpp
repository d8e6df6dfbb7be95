#include "shell/report/CPagePainter.h"

#include "shell/report/CReportPicture.h"
#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/PagePositions.h"

#include <QPainter>
#include <algorithm>

namespace {

/// Found texts on white paper; what is found now is the selection.
constexpr QColor kFound(255, 226, 110);
constexpr QColor kRule(153, 153, 153);
constexpr double kTolerance = 0.001;

}  // namespace

PictureStyle PaperStyle(const ReportPage& page) {
    constexpr PageStyle kText{.size = 2};
    return {FontOfStyle(page, kText), Qt::white, Qt::black};
}

void CPagePainter::ShowLinesBetween(double above, double below) {
    m_above = above;
    m_below = below;
}

void CPagePainter::OnLine(const PageLine& line, const QPointF& place) {
    const double bottom = place.y() + line.height;
    if (bottom <= m_above + kTolerance || bottom > m_below + kTolerance) return;
    PaintFound(line, place);
    const PageMarks& marks = m_page.marks;
    const std::uint32_t begin = std::max(line.begin, marks.selectionBegin);
    const std::uint32_t end = std::min(line.end, marks.selectionEnd);
    if (begin < end) Fill(line, place, begin, end, marks.selection);
    const ReportPage& page = m_page.layout.Page();
    double left = place.x();
    ForEachStretch(page, line.begin, line.end, [&](const PageStretch& stretch) {
        PaintText(stretch.begin, stretch.end, stretch.style, QPointF(left, place.y() + line.ascent));
        left += m_page.measure.WidthOf(page.Part(stretch.begin, stretch.end), stretch.style);
    });
}

/// What is selected has a colour of its own.
void CPagePainter::PaintText(std::uint32_t begin, std::uint32_t end, std::uint32_t style,
                             const QPointF& place) {
    const PageMarks& marks = m_page.marks;
    const std::uint32_t from = std::clamp(marks.selectionBegin, begin, end);
    const std::uint32_t to = std::clamp(marks.selectionEnd, from, end);
    const ReportPage& page = m_page.layout.Page();
    double left = place.x();
    const auto paint = [&](std::uint32_t first, std::uint32_t last, const QColor& colour) {
        if (first >= last) return;
        m_painter.setPen(colour);
        PaintPart(first, last, style, QPointF(left, place.y()));
        left += m_page.measure.WidthOf(page.Part(first, last), style);
    };
    const QColor colour = QColor::fromRgb(page.styles[style].colour);
    if (marks.selectionBegin >= marks.selectionEnd) return paint(begin, end, colour);
    paint(begin, from, colour);
    paint(from, to, marks.selectedText);
    paint(to, end, colour);
}

void CPagePainter::PaintPart(std::uint32_t begin, std::uint32_t end, std::uint32_t style,
                             const QPointF& place) {
    m_painter.setFont(m_page.measure.FontOf(style));
    m_painter.drawText(place, m_page.layout.Page().Part(begin, end).toString());
}

void CPagePainter::PaintFound(const PageLine& line, const QPointF& place) {
    const PageMarks& marks = m_page.marks;
    if (!marks.found || marks.foundLength == 0) return;
    const std::uint32_t from = line.begin < marks.foundLength ? 0 : line.begin - marks.foundLength + 1;
    for (auto at = std::ranges::lower_bound(*marks.found, from); at != marks.found->end() && *at < line.end;
         ++at)
        Fill(line, place, std::max(*at, line.begin), std::min(*at + marks.foundLength, line.end), kFound);
}

void CPagePainter::Fill(const PageLine& line, const QPointF& place, std::uint32_t begin, std::uint32_t end,
                        const QColor& colour) {
    const double left = OffsetInLine(m_page.layout, m_page.measure, line, begin);
    const double right = OffsetInLine(m_page.layout, m_page.measure, line, end);
    m_painter.fillRect(QRectF(place.x() + left, place.y(), right - left, line.height), colour);
}

/// Cells that touch share the line between them.
void CPagePainter::OnCell(const PageTable& table, const QRectF& place, PageColour background) {
    const double half = table.hasLines ? 0.5 : 0;
    const QRectF whole = place.adjusted(-half, -half, half, half);
    if (background != kNoColour) m_painter.fillRect(whole, QColor::fromRgb(background));
    if (!table.hasLines) return;
    QPen pen(QColor::fromRgb(table.lineColour), m_page.penWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    m_painter.setPen(pen);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(whole);
}

void CPagePainter::OnRule(const QRectF& place) {
    m_painter.setPen(QPen(kRule, m_page.penWidth));
    m_painter.drawLine(QPointF(place.left(), place.center().y()), QPointF(place.right(), place.center().y()));
}

void CPagePainter::OnPicture(const QRectF& place) {
    if (!m_page.picture) return;
    m_painter.save();
    m_painter.setClipRect(place, Qt::IntersectClip);
    m_page.picture->Paint(m_painter, place, PaperStyle(m_page.layout.Page()));
    m_painter.restore();
}
