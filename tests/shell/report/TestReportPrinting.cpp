#include "shell/report/ReportPrinting.h"

#include "changes/CProgress.h"
#include "lang/FormatText.h"
#include "shell/report/CReportPicture.h"
#include "support/PageSamples.h"
#include "support/TestProgram.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>
#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace PageSamples;

namespace {

/// Lets so many steps go by, then cancels.
class CLimitedProgress final : public CProgress {
 public:
    explicit CLimitedProgress(int steps) : m_left(steps) {}
    int begun = 0;
    int steps = 0;
    int ended = 0;
    void Begin(const QString&, int count) override {
        ++begun;
        steps = count;
    }
    [[nodiscard]] bool Advance() override { return m_left-- > 0; }
    void End() override { ++ended; }

 private:
    int m_left;
};

/// A file of a PDF, looked at by other programs.
struct Printed {
    QTemporaryDir folder;
    QString path = folder.filePath(u"report.pdf"_s);
    CReportView view;
    CNoProgress progress;

    explicit Printed(const QString& body, const CReportPicture* picture = nullptr) {
        view.SetPage(Page(body));
        view.SetPicture(picture);
        const FileOutcome outcome = SavePdf(view, path, u"My report"_s, progress);
        [&] { QVERIFY2(outcome.written, qPrintable(outcome.error)); }();
    }
    [[nodiscard]] static QString Output(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        [&] { QVERIFY2(process.waitForFinished(), qPrintable(program + u" is missing"_s)); }();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    [[nodiscard]] QStringList Sheets() const {
        QStringList sheets = Output(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s}).split(u'\f');
        sheets.removeLast();
        return sheets;
    }
    [[nodiscard]] QString Info() const { return Output(u"pdfinfo"_s, {path}); }
    [[nodiscard]] QImage Picture(int sheet) const {
        const QString number = QString::number(sheet);
        static_cast<void>(
            Output(u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-f"_s, number, u"-l"_s, number, u"-singlefile"_s,
                                   u"-png"_s, path, folder.filePath(u"sheet"_s)}));
        return QImage(folder.filePath(u"sheet.png"_s));
    }
};

QStringList Words(const QString& line) {
    return line.simplified().split(u' ');
}

/// Notes who connects to a port of this machine, and who opens a file.
class CWatched {
 public:
    CWatched() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        QFile file(path);
        [&] {
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(::bind(m_socket, plain, size), 0);
            QCOMPARE(::listen(m_socket, 100), 0);
            QCOMPARE(::getsockname(m_socket, plain, &size), 0);
        }();
        file.close();
        port = ntohs(address.sin_port);
        [&] { QVERIFY(::inotify_add_watch(m_files, QFile::encodeName(path).constData(), IN_OPEN) >= 0); }();
    }
    ~CWatched() {
        ::close(m_socket);
        ::close(m_files);
    }
    CWatched(const CWatched&) = delete;
    CWatched& operator=(const CWatched&) = delete;

    [[nodiscard]] int Requests() const {
        int count = 0;
        for (int one = ::accept(m_socket, nullptr, nullptr); one >= 0;
             one = ::accept(m_socket, nullptr, nullptr)) {
            ::close(one);
            ++count;
        }
        return count;
    }
    [[nodiscard]] bool WasOpened() const {
        char event[4096];
        return ::read(m_files, event, sizeof event) > 0;
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"named.png"_s);
    int port = 0;

 private:
    int m_socket = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    int m_files = ::inotify_init1(IN_NONBLOCK);
};

class CBluePicture final : public CReportPicture {
 public:
    [[nodiscard]] qreal HeightFor(qreal width, const PictureStyle&) const override { return width * 3; }
    void Paint(QPainter& painter, const QRectF& place, const PictureStyle&) const override {
        painter.fillRect(place, Qt::blue);
    }
    [[nodiscard]] QString TipAt(const QPointF&, const QRectF&, const PictureStyle&) const override {
        return {};
    }
    [[nodiscard]] QString Description() const override { return {}; }
};

}  // namespace

class TestReportPrinting : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void cleanup() { qunsetenv("LC_ALL"); }
    void eachSheetHasHeadAndNumber();
    void aWidePageIsMadeSmaller();
    void theTextsCanBeSearched();
    void paperOfTheRegion();
    void thePicture();
    void cancelling();
    void aFileThatCannotBeWritten();
    void someSheets();
    void nothingIsFetched();
    void theDialogs();
};

void TestReportPrinting::eachSheetHasHeadAndNumber() {
    const Printed printed(u"<strong>Hours</strong>"_s + Listing(300, 3));
    const QStringList sheets = printed.Sheets();
    QVERIFY2(sheets.size() > 5 && sheets.size() < 15, qPrintable(QString::number(sheets.size())));
    QStringList rows;
    for (qsizetype i = 0; i < sheets.size(); ++i) {
        const QStringList lines = sheets[i].split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.filter(u"Head0"_s).size(), 1);
        QCOMPARE(Words(lines[i == 0 ? 1 : 0]), (QStringList{u"Head0"_s, u"Head1"_s, u"Head2"_s}));
        QCOMPARE(lines.last().simplified(), u"Page %1 of %2"_s.arg(i + 1).arg(sheets.size()));
        for (const QString& line : lines)
            if (line.contains(u"c0"_s)) rows.append(line.simplified());
    }
    QCOMPARE(rows.size(), 300);
    for (int row = 0; row < 300; ++row) QCOMPARE(rows[row], u"r%1c0 r%1c1 r%1c2"_s.arg(row));
    QVERIFY(printed.Info().contains(u"My report"_s));
}

void TestReportPrinting::aWidePageIsMadeSmaller() {
    QStringList cells;
    for (int i = 0; i < 14; ++i) cells.append(Cell(Font(u"Unbreakable%1"_s.arg(i))));
    const QString sheet = Printed(Table({Row(cells)})).Sheets().value(0);
    for (int i = 0; i < 14; ++i) QVERIFY2(sheet.contains(u"Unbreakable%1"_s.arg(i)), qPrintable(sheet));
}

void TestReportPrinting::theTextsCanBeSearched() {
    const Printed printed(Table({Row({Cell(Font(u"Gr\u00fc\u00dfe &amp; \u20ac 12.50"_s)),
                                      Cell(Font(u"\u041f\u0440\u0438\u0432\u0435\u0442"_s))})}));
    const QString text = printed.Sheets().value(0).simplified();
    QVERIFY2(text.contains(u"Gr\u00fc\u00dfe & \u20ac 12.50"_s), qPrintable(text));
    QVERIFY(text.contains(u"\u041f\u0440\u0438\u0432\u0435\u0442"_s));
}

void TestReportPrinting::paperOfTheRegion() {
    qputenv("LC_ALL", "en_US.UTF-8");
    QVERIFY(Printed(u"x"_s).Info().contains(u"612 x 792"_s));
    qputenv("LC_ALL", "de_DE.UTF-8");
    QVERIFY(Printed(u"x"_s).Info().contains(u"A4"_s));
}

/// A picture that asks for more than a sheet gets a part of one, and is whole on it.
void TestReportPrinting::thePicture() {
    const CBluePicture picture;
    const Printed printed(u"title"_s + Listing(3, 2), &picture);
    QCOMPARE(printed.Sheets().size(), 1);
    const QImage image = printed.Picture(1);
    int blue = 0;
    for (int y = 0; y < image.height(); ++y)
        blue += image.pixelColor(image.width() / 2, y) == QColor(Qt::blue) ? 1 : 0;
    QVERIFY2(blue > image.height() / 3 && blue < image.height() * 2 / 3, qPrintable(QString::number(blue)));
}

void TestReportPrinting::cancelling() {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"old.pdf"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("old");
    file.close();
    CReportView view;
    view.SetPage(Page(Listing(500, 2)));
    CLimitedProgress progress(3);
    const FileOutcome outcome = SavePdf(view, path, u"T"_s, progress);
    QVERIFY(!outcome.written);
    QCOMPARE(outcome.error, LoadText(Text::ReportCancelledPdf));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "old");
    QCOMPARE(progress.begun, 1);
    QCOMPARE(progress.ended, 1);
    QVERIFY(progress.steps > 5);
}

void TestReportPrinting::aFileThatCannotBeWritten() {
    CReportView view;
    view.SetPage(Page(u"x"_s));
    CNoProgress progress;
    const QTemporaryDir folder;
    const FileOutcome outcome = SavePdf(view, folder.path(), u"T"_s, progress);
    QVERIFY(!outcome.written);
    QVERIFY(!outcome.error.isEmpty());
}

void TestReportPrinting::someSheets() {
    CReportView view;
    view.SetPage(Page(Listing(300, 2)));
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"part.pdf"_s);
    QPdfWriter writer(path);
    writer.setPageLayout(PaperLayout());
    CLimitedProgress progress(100);
    QCOMPARE(PrintPage(view.Printable(), writer, progress, {2, 3}), PrintEnd::Done);
    QCOMPARE(progress.steps, 2);
    const QString text = Printed::Output(u"pdftotext"_s, {path, u"-"_s});
    QVERIFY(text.contains(u"Page 2 of "_s) && text.contains(u"Page 3 of "_s));
    QVERIFY(!text.contains(u"Page 1 of "_s) && !text.contains(u"Page 4 of "_s));
}

/// Pictures, styles, links, frames and scripts that a text names stay names: on the screen, in print and in a
/// PDF.
void TestReportPrinting::nothingIsFetched() {
    const CWatched watched;
    QString body;
    for (const QString& address : {u"http://127.0.0.1:%1/x"_s.arg(watched.port), u"file://"_s + watched.path})
        for (const QString& markup :
             {u"<img src=\"%1\">"_s, u"<link rel=stylesheet href=\"%1\">"_s,
              u"<script src=\"%1\"></script>"_s, u"<iframe src=\"%1\"></iframe>"_s,
              u"<style>@import url(%1); body {background: url(%1)}</style>"_s,
              u"<table background=\"%1\"><tr><td style=\"background: url('%1')\">x</td></tr></table>"_s,
              u"<a href=\"%1\" ping=\"%1\">x</a>"_s, u"<object data=\"%1\"></object>"_s,
              u"<embed src=\"%1\">"_s, u"<meta http-equiv=refresh content=\"0; url=%1\">"_s,
              u"<font face=\"url(%1)\">x</font>"_s, u"<video src=\"%1\" poster=\"%1\" autoplay></video>"_s,
              u"<base href=\"%1\"><img src=a.png>"_s})
            body += markup.arg(address);
    Printed printed(Table({Row({Cell(body)})}));
    printed.view.show();
    QTRY_VERIFY(printed.view.IsPrepared());
    QVERIFY(!printed.view.grab().isNull());
    QPrinter printer;
    printer.setOutputFileName(printed.folder.filePath(u"print.pdf"_s));
    QCOMPARE(PrintPage(printed.view.Printable(), printer, printed.progress), PrintEnd::Done);
    QTest::qWait(100);
    QCOMPARE(watched.Requests(), 0);
    QVERIFY(!watched.WasOpened());
    // The watch itself works.
    QFile file(watched.path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(watched.WasOpened());
}

void TestReportPrinting::theDialogs() {
    CReportView view;
    view.SetPage(Page(Listing(200, 2)));
    view.show();
    CLimitedProgress progress(1000);
    QString seen;
    const auto closeIt = [&] {
        QTimer::singleShot(200, &view, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            seen = dialog->objectName() + u": "_s + dialog->windowTitle();
            dialog->reject();
        });
    };
    closeIt();
    QCOMPARE(RunPrint(view, view, u"My report"_s, progress), PrintEnd::Cancelled);
    QCOMPARE(seen, u"reportPrintDialog: My report"_s);
    QCOMPARE(progress.begun, 0);
    closeIt();
    QCOMPARE(RunPrintPreview(view, view, u"My report"_s, progress), PrintEnd::Cancelled);
    QCOMPARE(seen, u"reportPreviewDialog: "_s + LoadText(Text::ReportPreviewTitle));
    QCOMPARE(progress.begun, 0);
}

TEST_CLASS(TestReportPrinting);
#include "TestReportPrinting.moc"
