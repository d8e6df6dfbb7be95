#pragma once

#include "shell/report/CPagePainter.h"
#include "shell/report/CReportView.h"
#include "viewmodel/report/Pagination.h"

#include <QSizeF>
#include <memory>
#include <vector>

class CPageLayout;

/// A page parted into sheets of paper. The sheets are numbered, nothing on them is cut in half, and a page
/// that is too wide is made smaller. Each sheet is painted when it is asked for.
class CPrintSheets {
 public:
    /// paper: what of a sheet can be printed on, in units of 1/96 inch.
    CPrintSheets(const PrintablePage& page, const QSizeF& paper);
    ~CPrintSheets();

    [[nodiscard]] int Count() const { return static_cast<int>(m_sheets.size()); }
    /// number: from 1. The painter's units are those of the paper.
    void Paint(QPainter& painter, int number) const;

 private:
    void PaintContent(QPainter& painter, const Sheet& sheet) const;
    void PaintHead(QPainter& painter, std::size_t item) const;
    void PaintNumber(QPainter& painter, int number) const;
    [[nodiscard]] CPagePainter::Page Painted() const;

    PrintablePage m_page;
    double m_scale = 1;   ///< of what is wider than the paper
    double m_height = 0;  ///< of a sheet without its number, in units of the layout
    std::unique_ptr<CPageLayout> m_layout;
    std::vector<Sheet> m_sheets;
};
