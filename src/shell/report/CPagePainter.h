#pragma once

#include "shell/report/CFontMeasure.h"
#include "viewmodel/report/PageWalk.h"

#include <QColor>
#include <cstdint>
#include <limits>
#include <vector>

class CPageLayout;
class QPainter;
class CReportPicture;

/// What is marked on a page on the screen.
struct PageMarks {
    std::uint32_t selectionBegin = 0;
    std::uint32_t selectionEnd = 0;
    QColor selection;
    QColor selectedText;
    const std::vector<std::uint32_t>* found = nullptr;  ///< where found texts begin, ascending
    std::uint32_t foundLength = 0;
};

/// Paints parts of a page. The painter's units are those of the layout.
class CPagePainter final : public CPageVisitor {
 public:
    struct Page {
        const CPageLayout& layout;
        CFontMeasure& measure;
        const CReportPicture* picture = nullptr;
        PageMarks marks{};
        double penWidth = 0;  ///< of the lines of tables; 0: one pixel of the device
    };

    CPagePainter(QPainter& painter, const Page& page) : m_painter(painter), m_page(page) {}

    /// From now on only lines that end below the first height and above the second are painted.
    void ShowLinesBetween(double above, double below);

    void OnLine(const PageLine& line, const QPointF& place) override;
    void OnCell(const PageTable& table, const QRectF& place, PageColour background) override;
    void OnRule(const QRectF& place) override;
    void OnPicture(const QRectF& place) override;

 private:
    void PaintFound(const PageLine& line, const QPointF& place);
    void PaintText(std::uint32_t begin, std::uint32_t end, std::uint32_t style, const QPointF& place);
    void PaintPart(std::uint32_t begin, std::uint32_t end, std::uint32_t style, const QPointF& place);
    void Fill(const PageLine& line, const QPointF& place, std::uint32_t begin, std::uint32_t end,
              const QColor& colour);

    QPainter& m_painter;
    Page m_page;
    double m_above = std::numeric_limits<double>::lowest();
    double m_below = std::numeric_limits<double>::max();
};

/// How a picture is painted on the paper of a page.
[[nodiscard]] struct PictureStyle PaperStyle(const ReportPage& page);
