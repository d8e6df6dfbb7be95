#pragma once

#include "platform/host/SafeFile.h"
#include "shell/report/CReportView.h"

#include <QByteArray>
#include <QPageLayout>
#include <QString>

class CProgress;
class QPagedPaintDevice;
class QWidget;

/// What printing came to.
enum class [[nodiscard]] PrintEnd{
    Done,
    Cancelled,  ///< by the user; a printer prints nothing
    Failed      ///< the printer or file refused
};

/// Sheets to leave out, as a dialog asks for them.
struct SheetRange {
    int first = 1;
    int last = 0;  ///< 0: to the end
};

/// The paper of the user's region, upright, with margins.
[[nodiscard]] QPageLayout PaperLayout();

/// Prints a page on a device with a layout of its own. The sheets are numbered, nothing on them is cut in
/// half, and a page that is too wide is made smaller.
PrintEnd PrintPage(const PrintablePage& page, QPagedPaintDevice& device, CProgress& progress,
                   const SheetRange& range = {});

/// The page as a PDF whose text can be searched; empty when it was cancelled or can't be made.
[[nodiscard]] PrintEnd MakePdf(const PrintablePage& page, const QString& title, CProgress& progress,
                               QByteArray& pdf);
/// Writes the PDF: the whole file, or the old one stays. The error says so when the user cancelled.
[[nodiscard]] FileOutcome SavePdf(CReportView& view, const QString& path, const QString& title,
                                  CProgress& progress);

/// Asks for a printer and prints; Cancelled also when the user closes the dialog.
PrintEnd RunPrint(CReportView& view, QWidget& parent, const QString& title, CProgress& progress);
/// Shows the sheets before they are printed, which is asked for there; Cancelled when it wasn't.
PrintEnd RunPrintPreview(CReportView& view, QWidget& parent, const QString& title, CProgress& progress);
