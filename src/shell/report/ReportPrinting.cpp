#include "shell/report/ReportPrinting.h"

#include "changes/CProgress.h"
#include "lang/FormatText.h"
#include "platform/host/PaperSize.h"
#include "shell/report/CPagePainter.h"
#include "shell/report/CReportPicture.h"
#include "viewmodel/report/Pagination.h"

#include <QBuffer>
#include <QDialog>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kUnitsPerInch = 96;
/// Below the sheet: a blank line and the one with the number.
constexpr double kFooter = 36;
constexpr double kFooterLine = 18;
constexpr double kMargin = 15;  ///< millimetres
constexpr double kSmallestFit = 0.4;
/// Lines of tables; a pixel of a printer would be too thin to see.
constexpr double kPenWidth = 0.5;
/// A picture leaves some of a sheet to its table.
constexpr double kHighestPicture = 0.6;

/// A page on its way to a device.
class CSheetPrinter {
 public:
    CSheetPrinter(const PrintablePage& page, QPagedPaintDevice& device, CProgress& progress)
        : m_page(page), m_device(device), m_progress(progress) {}

    PrintEnd Print(const SheetRange& range) {
        QPainter painter;
        if (!painter.begin(&m_device)) return PrintEnd::Failed;
        FitToDevice();
        const std::vector<Sheet> sheets = SheetsOf(*m_layout, m_height);
        const int count = static_cast<int>(sheets.size());
        const int last = range.last == 0 ? count : std::min(range.last, count);
        m_progress.Begin(LoadText(Text::ReportPrinting), std::max(0, last - range.first + 1));
        PrintEnd end = PrintEnd::Done;
        for (int number = range.first; number <= last && end == PrintEnd::Done; ++number) {
            if (!m_progress.Advance())
                end = PrintEnd::Cancelled;
            else if (number > range.first && !m_device.newPage())
                end = PrintEnd::Failed;
            else
                PrintSheet(painter, sheets[static_cast<std::size_t>(number - 1)], {number, count});
        }
        m_progress.End();
        if (!painter.end()) end = PrintEnd::Failed;
        return end;
    }

 private:
    struct Numbering {
        int number;
        int count;
    };

    void FitToDevice() {
        m_scale = m_device.logicalDpiX() / kUnitsPerInch;
        const double width = m_device.width() / m_scale;
        const double fit = std::clamp(width / m_page.measures->LeastWidth(), kSmallestFit, 1.0);
        m_scale *= fit;
        m_height = m_device.height() / m_scale - kFooter;
        const auto pictureHeight = [this](double wide) {
            if (!m_page.picture) return 0.0;
            return std::min(m_page.picture->HeightFor(wide, PaperStyle(*m_page.page)),
                            m_height * kHighestPicture);
        };
        m_layout = std::make_unique<CPageLayout>(
            CPageLayout::Parts{m_page.page, m_page.measures, *m_page.measure}, width / fit, pictureHeight);
        while (!m_layout->Advance(QDeadlineTimer(QDeadlineTimer::Forever))) continue;
    }
    void PrintSheet(QPainter& painter, const Sheet& sheet, const Numbering& numbering) {
        CPagePainter::Page page{*m_layout, *m_page.measure, m_page.picture};
        page.penWidth = kPenWidth;
        painter.save();
        painter.scale(m_scale, m_scale);
        PrintNumber(painter, numbering);
        if (sheet.headOf) PrintHead(painter, page, *sheet.headOf);
        painter.translate(0, sheet.headHeight - sheet.from);
        const QRectF part(0, sheet.from, m_layout->Width(), sheet.to - sheet.from);
        // The line above a row lies just outside of it.
        painter.setClipRect(part.adjusted(0, -1, 0, 0));
        CPagePainter visitor(painter, page);
        visitor.ShowLinesBetween(sheet.shownTo, sheet.to);
        WalkPage(*m_layout, part, visitor);
        painter.restore();
    }
    void PrintHead(QPainter& painter, const CPagePainter::Page& page, std::size_t item) const {
        const CPageLayout::Item& what = m_layout->Items()[item];
        const CPageLayout::Table& table = m_layout->TableAt(m_layout->Page().blocks[what.block].index);
        painter.save();
        painter.translate(0, -what.top - table.rowTop[0]);
        CPagePainter visitor(painter, page);
        WalkRow(*m_layout, item, 0, visitor);
        painter.restore();
    }
    void PrintNumber(QPainter& painter, const Numbering& numbering) const {
        const QRectF place(0, m_height + kFooter - kFooterLine, m_layout->Width(), kFooterLine);
        painter.setFont(PaperStyle(*m_page.page).font);
        painter.setPen(Qt::black);
        painter.drawText(place, Qt::AlignCenter,
                         FormatText<Text::ReportPageOf>(numbering.number, numbering.count));
    }

    const PrintablePage& m_page;
    QPagedPaintDevice& m_device;
    CProgress& m_progress;
    std::unique_ptr<CPageLayout> m_layout;
    double m_scale = 1;
    double m_height = 0;  ///< of a sheet without its number, in units
};

void PrepareDialog(QDialog& dialog, const QString& name, const QString& title) {
    dialog.setObjectName(name);
    dialog.setWindowTitle(title);
}

}  // namespace

QPageLayout PaperLayout() {
    const QPageSize size(PaperOfRegion() == Paper::Letter ? QPageSize::Letter : QPageSize::A4);
    return {size, QPageLayout::Portrait, QMarginsF(kMargin, kMargin, kMargin, kMargin),
            QPageLayout::Millimeter};
}

PrintEnd PrintPage(const PrintablePage& page, QPagedPaintDevice& device, CProgress& progress,
                   const SheetRange& range) {
    return CSheetPrinter(page, device, progress).Print(range);
}

PrintEnd MakePdf(const PrintablePage& page, const QString& title, CProgress& progress, QByteArray& pdf) {
    QBuffer buffer(&pdf);
    if (!buffer.open(QIODevice::WriteOnly)) return PrintEnd::Failed;
    PrintEnd end = PrintEnd::Failed;
    {
        QPdfWriter writer(&buffer);
        writer.setPageLayout(PaperLayout());
        writer.setTitle(title);
        writer.setCreator(u"Velmarch"_s);
        end = PrintPage(page, writer, progress);
    }
    if (end != PrintEnd::Done) pdf.clear();
    return end;
}

FileOutcome SavePdf(CReportView& view, const QString& path, const QString& title, CProgress& progress) {
    QByteArray pdf;
    switch (MakePdf(view.Printable(), title, progress, pdf)) {
        case PrintEnd::Done:
            return WriteWholeFile(path, pdf, FileAudience::UserDefault);
        case PrintEnd::Cancelled:
            return {false, LoadText(Text::ReportCancelledPdf)};
        default:
            return {false, LoadText(Text::ReportPdfUnmade)};
    }
}

PrintEnd RunPrint(CReportView& view, QWidget& parent, const QString& title, CProgress& progress) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(PaperLayout());
    printer.setDocName(title);
    QPrintDialog dialog(&printer, &parent);
    PrepareDialog(dialog, u"reportPrintDialog"_s, title);
    if (dialog.exec() != QDialog::Accepted) return PrintEnd::Cancelled;
    SheetRange range;
    if (printer.printRange() == QPrinter::PageRange)
        range = {std::max(1, printer.fromPage()), std::max(0, printer.toPage())};
    const PrintEnd end = PrintPage(view.Printable(), printer, progress, range);
    if (end == PrintEnd::Cancelled) printer.abort();
    return end;
}

void RunPrintPreview(CReportView& view, QWidget& parent, const QString& title, CProgress& progress) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(PaperLayout());
    printer.setDocName(title);
    QPrintPreviewDialog dialog(&printer, &parent);
    PrepareDialog(dialog, u"reportPreviewDialog"_s, LoadText(Text::ReportPreviewTitle));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* device) {
        static_cast<void>(PrintPage(view.Printable(), *device, progress));
    });
    dialog.exec();
}
