#include "shell/report/ReportPrinting.h"

#include "changes/CProgress.h"
#include "lang/FormatText.h"
#include "platform/host/PaperSize.h"
#include "shell/report/CPrintPreview.h"
#include "shell/report/CPrintSheets.h"

#include <QBuffer>
#include <QDialog>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kUnitsPerInch = 96;
constexpr double kMargin = 15;  ///< millimetres

/// Paints the sheets of a range on a device whose painter was begun.
PrintEnd PrintSheets(const CPrintSheets& sheets, const SheetRange& range, QPagedPaintDevice& device,
                     QPainter& painter, CProgress& progress) {
    const int last = range.last == 0 ? sheets.Count() : std::min(range.last, sheets.Count());
    progress.Begin(LoadText(Text::ReportPrinting), std::max(0, last - range.first + 1));
    PrintEnd end = PrintEnd::Done;
    for (int number = range.first; number <= last && end == PrintEnd::Done; ++number) {
        if (!progress.Advance())
            end = PrintEnd::Cancelled;
        else if (number > range.first && !device.newPage())
            end = PrintEnd::Failed;
        else
            sheets.Paint(painter, number);
    }
    progress.End();
    return end;
}

void PrepareDialog(QDialog& dialog, const QString& name, const QString& title) {
    dialog.setObjectName(name);
    dialog.setWindowTitle(title);
}

/// Asks for a printer, which stays as the user left it, and prints.
PrintEnd PrintBy(QPrinter& printer, const PrintablePage& page, QWidget& parent, CProgress& progress) {
    QPrintDialog dialog(&printer, &parent);
    PrepareDialog(dialog, u"reportPrintDialog"_s, printer.docName());
    if (dialog.exec() != QDialog::Accepted) return PrintEnd::Cancelled;
    SheetRange range;
    if (printer.printRange() == QPrinter::PageRange)
        range = {std::max(1, printer.fromPage()), std::max(0, printer.toPage())};
    const PrintEnd end = PrintPage(page, printer, progress, range);
    if (end == PrintEnd::Cancelled) printer.abort();
    return end;
}

void PrepareForPage(QPrinter& printer, const QString& title) {
    printer.setPageLayout(PaperLayout());
    printer.setDocName(title);
}

}  // namespace

QPageLayout PaperLayout() {
    const QPageSize size(PaperOfRegion() == Paper::Letter ? QPageSize::Letter : QPageSize::A4);
    return {size, QPageLayout::Portrait, QMarginsF(kMargin, kMargin, kMargin, kMargin),
            QPageLayout::Millimeter};
}

PrintEnd PrintPage(const PrintablePage& page, QPagedPaintDevice& device, CProgress& progress,
                   const SheetRange& range) {
    QPainter painter;
    if (!painter.begin(&device)) return PrintEnd::Failed;
    const double scale = device.logicalDpiX() / kUnitsPerInch;
    painter.scale(scale, scale);
    const CPrintSheets sheets(page, QSizeF(device.width(), device.height()) / scale);
    const PrintEnd end = PrintSheets(sheets, range, device, painter, progress);
    return painter.end() ? end : PrintEnd::Failed;
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
    PrepareForPage(printer, title);
    return PrintBy(printer, view.Printable(), parent, progress);
}

PrintEnd RunPrintPreview(CReportView& view, QWidget& parent, const QString& title, CProgress& progress) {
    const PrintablePage page = view.Printable();
    QPrinter printer(QPrinter::HighResolution);
    PrepareForPage(printer, title);
    CPrintPreview preview(page, printer.pageLayout(), &parent);
    PrintEnd end = PrintEnd::Cancelled;
    QObject::connect(&preview, &CPrintPreview::PrintWanted, &preview, [&] {
        printer.setPageLayout(preview.Paper());
        end = PrintBy(printer, page, preview, progress);
        if (end != PrintEnd::Cancelled) preview.accept();
    });
    preview.exec();
    return end;
}
