// The page of a report on screen and as PDF, in the report view alone under the offscreen platform. Prints
// "name value", a line each: bench-report-view ROWS, ten columns.

#include "ProcessorTime.h"
#include "changes/CProgress.h"
#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "shell/report/CReportView.h"
#include "shell/report/ReportPrinting.h"

#include <sys/resource.h>
#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kColumns = 10;
constexpr int kRounds = 3;
const QSize kWindow(1000, 680);

/// Keeps the compiler from dropping a result.
volatile double theResult;

/// Texts as records have them: a few words, some of which come again and again.
QString TextOf(int row, int column) {
    switch (column % 5) {
        case 0:
            return QStringLiteral("11/%1/2026").arg(row % 28 + 1);
        case 1:
            return QStringLiteral("Client %1").arg(row % 97);
        case 2:
            return QStringLiteral("Project %1 of %2").arg(row % 13).arg(row % 97);
        case 3:
            return QStringLiteral("%1.%2").arg(row % 900).arg(row % 100, 2, 10, QLatin1Char('0'));
        default:
            return row % 7 == 0
                       ? QStringLiteral("notes about what was done and what is left to do, no %1").arg(row)
                       : QStringLiteral("Design");
    }
}

void AppendCell(QString& page, const QString& text, bool isHead) {
    page += QStringLiteral(
        "<td align=\"left\" bgcolor=\"#F7F7F7\"><font face=\"Tahoma, Verdana, Arial\" "
        "color=\"#000\" size=\"2\">");
    page += isHead ? QStringLiteral("<strong>") + text + QStringLiteral("</strong>") : text;
    page += QStringLiteral("</font></td>");
}

QString MakePage(int rows) {
    QString page = QStringLiteral(
        "<!DOCTYPE html>\n<html>\n<head></head>\n<body style=\"margin: 5px 5px 5px 5px\">\n<table "
        "width=\"100%\" "
        "cellSpacing=0 cellPadding=3 border=1 bgcolor=\"#FFFFFF\" bordercolor=\"#CCCCCC\">");
    for (int row = -1; row < rows; ++row) {
        page += QStringLiteral("<tr bgcolor=\"#FFFFFF\">");
        for (int column = 0; column < kColumns; ++column)
            AppendCell(page, row < 0 ? QStringLiteral("Column %1").arg(column) : TextOf(row, column),
                       row < 0);
        page += QStringLiteral("</tr>\n");
    }
    return page + QStringLiteral("</table>\n</body>\n</html>\n");
}

/// The best of some rounds by the processor's time; the clock's is the same where nothing else runs.
template <class Work>
double Best(Work&& work) {
    double best = 0;
    for (int round = 0; round < kRounds; ++round) {
        const double took = Took(work);
        best = round == 0 ? took : std::min(best, took);
    }
    return best;
}

void Print(const char* name, double value) {
    std::printf("%s %.3f\n", name, value);
    std::fflush(stdout);
}

/// Until the first screen is painted. The longest turn of the event loop is how long the window stood still.
double ShowPage(CReportView& view, const QString& page, double& longest) {
    return Took([&] {
        view.SetPage(page);
        while (!view.IsPrepared())
            longest =
                std::max(longest, Took([] { QCoreApplication::processEvents(QEventLoop::AllEvents, 1); }));
        longest = std::max(longest, Took([&view] { view.viewport()->repaint(); }));
    });
}

void MeasureScreen(CReportView& view, const QString& page) {
    double first = 0, longest = 0;
    for (int round = 0; round < kRounds; ++round) {
        double turn = 0;
        const double took = ShowPage(view, page, turn);
        first = round == 0 ? took : std::min(first, took);
        longest = round == 0 ? turn : std::min(longest, turn);
    }
    Print("first_us", first);
    Print("longest_us", longest);
}

void Press(CReportView& view, Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &event);
    view.viewport()->repaint();
}

void MeasureMoves(CReportView& view, int rows) {
    Print("end_us", Best([&] {
              Press(view, Qt::Key_Home);
              Press(view, Qt::Key_End);
          }));
    Press(view, Qt::Key_Home);
    Print("page_us", Best([&] { Press(view, Qt::Key_PageDown); }));
    const QString last = QStringLiteral("to do, no %1").arg((rows - 1) / 7 * 7);
    Print("find_us", Best([&] {
              view.ClearFind();
              theResult = view.Find(last, {}).count;
              view.viewport()->repaint();
          }));
    Print("resize_us", Best([&] {
              view.resize(view.width() - 40, view.height());
              while (!view.IsSettled()) QCoreApplication::processEvents();
              view.viewport()->repaint();
          }));
}

/// Each character of the page looked at, the width of each text asked of Qt once, and a screen of them
/// painted.
void MeasureFloor(const QString& page, int rows) {
    const QFontMetricsF metrics{QFont()};
    Print("first_floor_us", Best([&] {
              double width = static_cast<double>(page.count(QLatin1Char('<')));
              for (int row = 0; row < rows; ++row)
                  for (int column = 0; column < kColumns; ++column)
                      width = std::max(width, metrics.horizontalAdvance(TextOf(row, column)));
              theResult = width;
          }));
    Print("find_floor_us",
          Best([&] { theResult = static_cast<double>(page.count(QStringLiteral("to do, no 7"))); }));
}

/// The same texts, each at a place of its own, and nothing else.
double PlainPdf(int rows) {
    return Took([rows] {
        QByteArray pdf;
        QBuffer buffer(&pdf);
        theResult = buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        QPainter painter(&writer);
        constexpr int kRowsOfSheet = 45;
        for (int row = 0; row < rows; ++row) {
            if (row > 0 && row % kRowsOfSheet == 0) theResult = writer.newPage();
            for (int column = 0; column < kColumns; ++column)
                painter.drawText(column * writer.width() / kColumns,
                                 (row % kRowsOfSheet + 1) * writer.height() / (kRowsOfSheet + 1),
                                 TextOf(row, column));
        }
    });
}

void MeasurePdf(CReportView& view, int rows) {
    CNoProgress progress;
    QByteArray pdf;
    Print("pdf_us",
          Took([&] { theResult = static_cast<int>(MakePdf(view.Printable(), QString(), progress, pdf)); }));
    Print("pdf_floor_us", PlainPdf(rows));
    Print("pdf_bytes", static_cast<double>(pdf.size()));
}

void PrintMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    Print("memory_bytes", static_cast<double>(usage.ru_maxrss) * 1024);
}

int Measure(int rows) {
    CReportView view;
    view.resize(kWindow);
    view.show();
    QCoreApplication::processEvents();
    const QString page = MakePage(rows);
    Print("page_characters", static_cast<double>(page.size()));
    MeasureScreen(view, page);
    MeasureMoves(view, rows);
    PrintMemory();
    MeasureFloor(page, rows);
    MeasurePdf(view, rows);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const int rows = argc == 2 ? std::atoi(argv[1]) : 0;
    if (rows <= 0 || !LoadLanguageLibrary(FolderOf(ModulePath()))) {
        std::fputs("usage: bench-report-view ROWS\n", stderr);
        return 2;
    }
    return Measure(rows);
}
