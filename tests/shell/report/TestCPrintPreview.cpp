#include "shell/report/CPrintPreview.h"

#include "lang/FormatText.h"
#include "shell/record/DialogUser.h"
#include "shell/report/ReportPrinting.h"
#include "support/PageSamples.h"
#include "support/TestProgram.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace PageSamples;

namespace {

/// The sheets of a page, shown.
struct Preview : DialogUser {
    CReportView view;
    std::unique_ptr<CPrintPreview> dialog;

    explicit Preview(const QString& body) {
        view.SetPage(Page(body));
        dialog = std::make_unique<CPrintPreview>(view.Printable(), PaperLayout());
        Look(*dialog);
        dialog->show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(dialog.get())); }();
    }
    [[nodiscard]] CSheetsView& Sheets() const { return *Find<CSheetsView>("printSheets"); }
    [[nodiscard]] QString Number() const { return Find<QLabel>("sheetNumber")->text(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(&Sheets(), key, modifiers);
    }
    /// What the screen shows, and how much of it is neither paper nor what lies beside it.
    [[nodiscard]] QImage Shown() const { return Sheets().viewport()->grab().toImage(); }
    [[nodiscard]] int Ink() const {
        const QImage shown = Shown();
        int ink = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x) ink += qGray(shown.pixel(x, y)) < 100 ? 1 : 0;
        return ink;
    }
};

QString NumberText(int number, int count) {
    return FormatText<Text::ReportPageOf>(number, count);
}

}  // namespace

class TestCPrintPreview final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void aShortPage() {
        const Preview t(Listing(3, 2));
        QCOMPARE(t.Sheets().Count(), 1);
        QCOMPARE(t.Number(), NumberText(1, 1));
        QVERIFY(t.Ink() > 100);
    }

    void anEmptyPage() {
        const Preview t({});
        QCOMPARE(t.Sheets().Count(), 1);
        QCOMPARE(t.Number(), NumberText(1, 1));
    }

    /// However many there are.
    void onlySheetsInSightArePainted() {
        const Preview t(Listing(20000, 2));
        CSheetsView& sheets = t.Sheets();
        QVERIFY(sheets.Count() > 300);
        QVERIFY(t.Ink() > 100);
        t.Key(Qt::Key_End);
        QCOMPARE(sheets.SheetInSight(), sheets.Count());
        QCOMPARE(t.Number(), NumberText(sheets.Count(), sheets.Count()));
        QVERIFY(t.Ink() > 100);
        t.Key(Qt::Key_Home);
        QCOMPARE(t.Number(), NumberText(1, sheets.Count()));
        QVERIFY2(sheets.PaintedCount() < 30, qPrintable(QString::number(sheets.PaintedCount())));
    }

    /// Each shows what stands on it: the rows of the second sheet go on where the first one ends.
    void sheetsDiffer() {
        const Preview t(Listing(200, 2));
        const QImage first = t.Shown();
        t.Key(Qt::Key_End);
        QVERIFY(t.Shown() != first);
        t.Key(Qt::Key_Home);
        QCOMPARE(t.Shown(), first);
    }

    void pageByPageWithTheKeys() {
        const Preview t(Listing(200, 2));
        const int before = t.Sheets().verticalScrollBar()->value();
        t.Key(Qt::Key_PageDown);
        QVERIFY(t.Sheets().verticalScrollBar()->value() > before);
        t.Key(Qt::Key_PageUp);
        QCOMPARE(t.Sheets().verticalScrollBar()->value(), before);
    }

    void zoomKeepsTheSheetInSight() {
        const Preview t(Listing(2000, 2));
        CSheetsView& sheets = t.Sheets();
        QCOMPARE(sheets.horizontalScrollBar()->maximum(), 0);
        sheets.verticalScrollBar()->setValue(sheets.verticalScrollBar()->maximum() / 2);
        const int number = sheets.SheetInSight();
        const int whole = sheets.verticalScrollBar()->maximum();
        t.Press("zoomInButton");
        t.Press("zoomInButton");
        QCOMPARE(sheets.SheetInSight(), number);
        QVERIFY(sheets.verticalScrollBar()->maximum() > whole);
        QVERIFY(sheets.horizontalScrollBar()->maximum() > 0);
        t.Press("zoomOutButton");
        t.Press("zoomOutButton");
        QCOMPARE(sheets.SheetInSight(), number);
        QCOMPARE(sheets.verticalScrollBar()->maximum(), whole);
        for (int i = 0; i < 100; ++i) t.Key(Qt::Key_Minus, Qt::ControlModifier);
        QVERIFY(sheets.verticalScrollBar()->maximum() < whole);
        QVERIFY(t.Shown().width() > 0);
    }

    void zoomKeys_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<int>("change");  // of the size: 1 larger, -1 smaller
        const Qt::KeyboardModifiers control = Qt::ControlModifier;
        QTest::newRow("plus") << Qt::Key_Plus << control << 1;
        QTest::newRow("plus on keyboards that need Shift for it")
            << Qt::Key_Plus << (control | Qt::ShiftModifier) << 1;
        QTest::newRow("plus without its Shift") << Qt::Key_Equal << control << 1;
        QTest::newRow("minus") << Qt::Key_Minus << control << -1;
        QTest::newRow("none without Ctrl") << Qt::Key_Plus << Qt::KeyboardModifiers() << 0;
    }
    void zoomKeys() {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(int, change);
        const Preview t(Listing(200, 2));
        const auto length = [&t] { return t.Sheets().verticalScrollBar()->maximum(); };
        const int before = length();
        t.Key(key, modifiers);
        QCOMPARE(length() > before ? 1 : length() < before ? -1 : 0, change);
        t.Key(Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(length(), before);
    }

    /// A wide table is easier to read so; the printer gets the paper that was looked at.
    void landscape() {
        const Preview t(Listing(200, 2));
        CSheetsView& sheets = t.Sheets();
        const int upright = sheets.Count();
        t.Key(Qt::Key_End);
        t.Find<QCheckBox>("landscape")->click();
        QCOMPARE(t.dialog->Paper().orientation(), QPageLayout::Landscape);
        QVERIFY(sheets.Count() > upright);
        QCOMPARE(t.Number(), NumberText(1, sheets.Count()));
        QVERIFY(t.Ink() > 100);
        t.Find<QCheckBox>("landscape")->click();
        QCOMPARE(sheets.Count(), upright);
        QCOMPARE(t.dialog->Paper().orientation(), QPageLayout::Portrait);
    }

    void printIsAskedFor() {
        const Preview t(Listing(3, 2));
        const QSignalSpy wanted(t.dialog.get(), &CPrintPreview::PrintWanted);
        t.Press("printButton");
        QCOMPARE(wanted.size(), 1);
        QVERIFY(t.dialog->isVisible());
        t.Press("closeButton");
        QVERIFY(!t.dialog->isVisible());
    }

    void byKeyboard() {
        const Preview t(Listing(3, 2));
        QCOMPARE(t.Unnamed(), QString());
        VERIFY_MNEMONICS(t, 5);
        VERIFY_SMALL_SCREEN(*t.dialog);
        QCOMPARE(t.dialog->focusWidget()->objectName(), u"printSheets"_s);
        QTest::keyClick(t.dialog->focusWidget(), Qt::Key_Escape);
        QVERIFY(!t.dialog->isVisible());
    }
};

TEST_CLASS(TestCPrintPreview);
#include "TestCPrintPreview.moc"
