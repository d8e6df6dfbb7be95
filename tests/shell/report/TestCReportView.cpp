#include "shell/report/CReportView.h"

#include "lang/LoadText.h"
#include "shell/program/AccessibleRoles.h"
#include "shell/report/CReportPicture.h"
#include "support/PageSamples.h"
#include "support/TestProgram.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;
using namespace PageSamples;

namespace {

/// A view on screen with a page that is shown.
struct Fixture {
    CReportView view;

    explicit Fixture(const QString& body, QSize size = {600, 400}) {
        view.resize(size);
        view.SetPage(Page(body));
        view.show();
        view.setFocus();
        [&] {
            QVERIFY(QTest::qWaitForWindowActive(&view));
            QTRY_VERIFY(view.IsPrepared());
        }();
    }
    [[nodiscard]] QImage Grab() {
        return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    [[nodiscard]] int Top() const { return view.verticalScrollBar()->value(); }
    [[nodiscard]] std::uint32_t At(const QString& text) const {
        return static_cast<std::uint32_t>(view.Text().indexOf(text));
    }
    [[nodiscard]] QPoint Point(const QString& text) { return view.PlaceOf(At(text)).center() + QPoint(1, 0); }
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
    }
};

int Count(const QImage& image, QRgb colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour;
    return count;
}

/// A red picture a tenth as high as it is wide.
class CRedPicture final : public CReportPicture {
 public:
    double share = 0.1;
    [[nodiscard]] qreal HeightFor(qreal width, const PictureStyle&) const override { return width * share; }
    void Paint(QPainter& painter, const QRectF& place, const PictureStyle&) const override {
        painter.fillRect(place, Qt::red);
    }
    [[nodiscard]] QString TipAt(const QPointF& point, const QRectF& place,
                                const PictureStyle&) const override {
        return point.x() < place.center().x() ? u"left"_s : QString();
    }
    [[nodiscard]] QString Description() const override { return u"It is red."_s; }
};

}  // namespace

class TestCReportView : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        InstallAccessibleRoles();
    }
    void theColoursOfThePage();
    void thePaperIsWhiteOnADarkPalette();
    void scrollingByKeys();
    void selectingByMouse();
    void selectingByKeys();
    void copying();
    void doubleClickTakesAWord();
    void menu();
    void finding();
    void findingOnAPageThatIsNotReadYet();
    void zooming();
    void shrinking();
    void aPageThatIsTooWideIsMadeSmaller();
    void whatStandsAtTheTopStaysThere();
    void anotherPageBeginsAtItsTop();
    void aLongPageIsPreparedInParts();
    void thePicture();
    void screenReaders();
    void scriptsThatJoin();
};

void TestCReportView::theColoursOfThePage() {
    Fixture fixture(u"<font color=\"#00FF00\" size=\"7\"><strong>WWWW</strong></font>"_s +
                    Table({Row({Cell(Font(u"x"_s))})}));
    const QImage image = fixture.Grab();
    QVERIFY(Count(image, qRgb(0, 255, 0)) > 100);
    QVERIFY(Count(image, qRgb(0xF7, 0xF7, 0xF7)) > 1000);
    // Four lines of the table: two as long as the page is wide, two as high as the row.
    const int lines = Count(image, qRgb(0xCC, 0xCC, 0xCC));
    QVERIFY2(lines > 2 * 560 && lines < 2 * 600 + 100, qPrintable(QString::number(lines)));
    QCOMPARE(image.pixel(2, 399), qRgb(255, 255, 255));
}

void TestCReportView::thePaperIsWhiteOnADarkPalette() {
    Fixture fixture(u"text"_s);
    QPalette dark(QColor(30, 30, 30));
    fixture.view.setPalette(dark);
    QCOMPARE(fixture.Grab().pixel(300, 300), qRgb(255, 255, 255));
    QVERIFY(Count(fixture.Grab(), qRgb(0, 0, 0)) > 5);
}

void TestCReportView::scrollingByKeys() {
    Fixture fixture(Listing(500, 3));
    QCOMPARE(fixture.Top(), 0);
    fixture.Key(Qt::Key_PageDown);
    const int page = fixture.Top();
    QVERIFY(page > 300 && page < 400);
    fixture.Key(Qt::Key_Space);
    QCOMPARE(fixture.Top(), 2 * page);
    fixture.Key(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(fixture.Top(), page);
    fixture.Key(Qt::Key_Down);
    QVERIFY(fixture.Top() > page);
    fixture.Key(Qt::Key_End);
    QCOMPARE(fixture.Top(), fixture.view.verticalScrollBar()->maximum());
    QVERIFY(fixture.view.viewport()->rect().contains(fixture.Point(u"r499c2"_s)));
    fixture.Key(Qt::Key_Home);
    QCOMPARE(fixture.Top(), 0);
}

void TestCReportView::selectingByMouse() {
    Fixture fixture(Listing(500, 3));
    const QSignalSpy changed(&fixture.view, &CReportView::SelectionChanged);
    QTest::mousePress(fixture.view.viewport(), Qt::LeftButton, {},
                      fixture.view.PlaceOf(fixture.At(u"r2c1"_s)).center());
    QTest::mouseMove(fixture.view.viewport(), fixture.view.PlaceOf(fixture.At(u"r3c1"_s) + 4).center());
    QCOMPARE(fixture.view.SelectedText(), u"r2c1\tr2c2\nr3c0\tr3c1"_s);
    QVERIFY(!changed.isEmpty());
    QVERIFY(Count(fixture.Grab(), fixture.view.palette().color(QPalette::Active, QPalette::Highlight).rgb()) >
            500);
    // Below the view the page scrolls, and what comes into sight is selected.
    QTest::mouseMove(fixture.view.viewport(), QPoint(300, 420));
    QTRY_VERIFY(fixture.Top() > 0);
    QTest::mouseRelease(fixture.view.viewport(), Qt::LeftButton, {}, QPoint(300, 420));
    QVERIFY(fixture.view.SelectedText().count(u'\n') > 10);
    QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(!fixture.view.HasSelection());
    QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, Qt::ShiftModifier, QPoint(550, 50));
    QVERIFY(fixture.view.HasSelection());
}

void TestCReportView::selectingByKeys() {
    Fixture fixture(Listing(500, 3));
    const std::uint32_t begin = fixture.At(u"r1c0"_s);
    fixture.view.Select(begin, begin);
    fixture.Key(Qt::Key_Right, Qt::ShiftModifier);
    fixture.Key(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(fixture.view.SelectedText(), u"r1"_s);
    fixture.Key(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(fixture.view.SelectedText(), u"r"_s);
    fixture.Key(Qt::Key_Left, Qt::ShiftModifier);
    fixture.Key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(fixture.view.SelectedText(), u"r1c0\tr1c1\tr1c2\n"_s);
    fixture.Key(Qt::Key_Up, Qt::ShiftModifier);
    QVERIFY(!fixture.view.HasSelection());
    fixture.Key(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(fixture.view.SelectedText(), u"r1c0\tr1c1\tr1c2"_s);
    fixture.Key(Qt::Key_Home, Qt::ShiftModifier);
    QVERIFY(!fixture.view.HasSelection());
    fixture.Key(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(fixture.view.SelectedText().endsWith(u"r499c2"_s));
    QVERIFY(fixture.Top() > 1000);
    fixture.Key(Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(fixture.view.SelectedText().startsWith(u"Head0"_s));
    QCOMPARE(fixture.Top(), 0);
}

void TestCReportView::copying() {
    Fixture fixture(Table(
        {Row({Cell(Font(u"a &amp; b"_s)), Cell(Font(u"&nbsp;"_s))}), Row({Cell(u"c"_s), Cell(u"d"_s)})}));
    QApplication::clipboard()->setText(u"before"_s);
    fixture.Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"before"_s);
    fixture.Key(Qt::Key_A, Qt::ControlModifier);
    fixture.Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"a & b\t\nc\td"_s);
}

void TestCReportView::doubleClickTakesAWord() {
    Fixture fixture(u"one <b>tw</b>o, three"_s);
    QTest::mouseDClick(fixture.view.viewport(), Qt::LeftButton, {}, fixture.Point(u"wo"_s));
    QCOMPARE(fixture.view.SelectedText(), u"two"_s);
}

void TestCReportView::menu() {
    Fixture fixture(u"one two"_s);
    const auto choose = [&](const QString& caption, bool isEnabled) {
        bool wasThere = false;
        QTimer::singleShot(0, &fixture.view, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu) return;
            for (QAction* action : menu->actions())
                if (action->text() == caption && action->isEnabled() == isEnabled) {
                    wasThere = true;
                    if (isEnabled) action->trigger();
                }
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, {10, 10}, fixture.view.mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(fixture.view.viewport(), &event);
        return wasThere;
    };
    QVERIFY(choose(LoadText(Text::ReportViewCopy), false));
    QVERIFY(choose(LoadText(Text::ReportViewSelectAll), true));
    QCOMPARE(fixture.view.SelectedText(), u"one two"_s);
    QVERIFY(choose(LoadText(Text::ReportViewCopy), true));
    QCOMPARE(QApplication::clipboard()->text(), u"one two"_s);
}

void TestCReportView::finding() {
    Fixture fixture(Listing(500, 3));
    FoundText found = fixture.view.Find(u"R400C"_s, {});
    QCOMPARE(found.number, 1);
    QCOMPARE(found.count, 3);
    QCOMPARE(fixture.view.SelectedText(), u"r400c"_s);
    QVERIFY(fixture.view.viewport()->rect().contains(fixture.Point(u"r400c"_s)));
    // The two others are marked.
    QVERIFY(Count(fixture.Grab(), qRgb(255, 226, 110)) > 200);
    QCOMPARE(fixture.view.Find(u"R400C"_s, {}).number, 2);
    QCOMPARE(fixture.view.Find(u"R400C"_s, {.backwards = true}).number, 1);
    QCOMPARE(fixture.view.Find(u"R400C"_s, {.backwards = true}).number, 3);
    QCOMPARE(fixture.view.Find(u"R400C"_s, {.matchCase = true}).count, 0);
    QCOMPARE(fixture.view.Find(u"r0c0\tr0c1"_s, {}).number, 1);
    QCOMPARE(fixture.Top(), 0);
    fixture.view.ClearFind();
    fixture.view.Select(0, 0);
    QCOMPARE(Count(fixture.Grab(), qRgb(255, 226, 110)), 0);
}

void TestCReportView::findingOnAPageThatIsNotReadYet() {
    CReportView view;
    view.resize(600, 400);
    view.SetPage(Page(Listing(3'000, 3)));
    QCOMPARE(view.Find(u"r2999c2"_s, {}).number, 1);
    view.show();
    QTRY_VERIFY(view.IsSettled());
    QVERIFY(view.viewport()->rect().contains(view.PlaceOf(view.Cursor()).center()));
}

void TestCReportView::zooming() {
    Fixture fixture(Listing(100, 2));
    const QSignalSpy changed(&fixture.view, &CReportView::ZoomChanged);
    const int height = fixture.view.PlaceOf(0).height();
    fixture.Key(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(fixture.view.ZoomPercent(), 110);
    fixture.Key(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(fixture.view.ZoomPercent(), 100);
    fixture.Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(fixture.view.ZoomPercent(), 90);
    QCOMPARE(changed.count(), 3);
    for (int i = 0; i < 20; ++i) fixture.view.ZoomIn();
    QCOMPARE(fixture.view.ZoomPercent(), 400);
    QTRY_VERIFY(fixture.view.PlaceOf(0).height() >= 4 * height - 4);
    for (int i = 0; i < 20; ++i) fixture.view.ZoomOut();
    QCOMPARE(fixture.view.ZoomPercent(), 50);
    QWheelEvent wheel({10, 10}, fixture.view.mapToGlobal(QPointF(10, 10)), {}, {0, 120}, {},
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(fixture.view.viewport(), &wheel);
    QCOMPARE(fixture.view.ZoomPercent(), 67);
}

void TestCReportView::shrinking() {
    Fixture fixture(
        Table({Row({Cell(Font(u"several words "_s.repeated(4))), Cell(Font(u"several words "_s.repeated(4))),
                    Cell(Font(u"several words "_s.repeated(4)))})}));
    QVERIFY(fixture.view.ShrinksToFit());
    QCOMPARE(fixture.view.horizontalScrollBar()->maximum(), 0);
    const int high = fixture.view.PlaceOf(0).height();
    QVERIFY(fixture.view.PlaceOf(fixture.At(u"several"_s) + 50).top() >=
            fixture.view.PlaceOf(0).top() + high - 2);
    fixture.view.SetShrinkToFit(false);
    QTRY_VERIFY(fixture.view.horizontalScrollBar()->maximum() > 0);
    QCOMPARE(fixture.view.PlaceOf(50).top(), fixture.view.PlaceOf(0).top());
    fixture.view.SetShrinkToFit(true);
    QTRY_COMPARE(fixture.view.horizontalScrollBar()->maximum(), 0);
}

void TestCReportView::aPageThatIsTooWideIsMadeSmaller() {
    QStringList cells;
    for (int i = 0; i < 10; ++i) cells.append(Cell(Font(u"Wordwithout%1"_s.arg(i))));
    Fixture fixture(Table({Row(cells)}), {900, 300});
    const int tall = fixture.view.PlaceOf(0).height();
    fixture.view.resize(600, 300);
    QTRY_VERIFY(fixture.view.PlaceOf(0).height() < tall);
    QCOMPARE(fixture.view.horizontalScrollBar()->maximum(), 0);
    QCOMPARE(fixture.view.PlaceOf(fixture.At(u"Wordwithout9"_s) + 11).top(), fixture.view.PlaceOf(0).top());
    fixture.view.resize(100, 300);
    QTRY_VERIFY(fixture.view.PlaceOf(fixture.At(u"Wordwithout9"_s) + 11).top() >
                fixture.view.PlaceOf(0).top());
}

void TestCReportView::whatStandsAtTheTopStaysThere() {
    Fixture fixture(Table({Row({Cell(Font(u"many words "_s.repeated(400)))})}) + Listing(300, 3));
    fixture.view.ScrollTo(fixture.At(u"r200c0"_s));
    const std::uint32_t top = fixture.view.PositionUnder({0, 0});
    fixture.view.resize(350, 400);
    const auto isAtTop = [&] { return qAbs(fixture.view.PlaceOf(top).top()) < 30; };
    QTRY_VERIFY(isAtTop());
    fixture.view.ZoomIn();
    QTRY_VERIFY(isAtTop());
}

void TestCReportView::anotherPageBeginsAtItsTop() {
    Fixture fixture(Listing(300, 3));
    const QSignalSpy prepared(&fixture.view, &CReportView::Prepared);
    fixture.Key(Qt::Key_End);
    fixture.view.SelectAll();
    fixture.view.SetPage(Page(Listing(200, 2)));
    QVERIFY(!fixture.view.HasSelection());
    QTRY_COMPARE(prepared.count(), 1);
    QCOMPARE(fixture.Top(), 0);
    fixture.view.Clear();
    QTRY_COMPARE(prepared.count(), 2);
    QCOMPARE(fixture.view.Text(), QString());
    QCOMPARE(Count(fixture.Grab(), qRgb(255, 255, 255)), fixture.Grab().width() * fixture.Grab().height());
    fixture.Key(Qt::Key_A, Qt::ControlModifier);
    fixture.Key(Qt::Key_Right, Qt::ShiftModifier);
    fixture.Key(Qt::Key_PageDown, Qt::ShiftModifier);
    QVERIFY(!fixture.view.HasSelection());
}

void TestCReportView::aLongPageIsPreparedInParts() {
    CReportView view;
    view.resize(600, 400);
    view.show();
    view.SetPage(Page(Listing(20'000, 5)));
    int turns = 0;
    for (; !view.IsPrepared() && turns < 10'000; ++turns)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    QVERIFY(view.IsPrepared());
    QVERIFY2(turns >= 2, qPrintable(QString::number(turns)));
    // A page that comes before the last one is there takes its place.
    view.SetPage(Page(Listing(20'000, 5)));
    QCoreApplication::processEvents();
    view.SetPage(u"short"_s);
    QTRY_VERIFY(view.IsPrepared());
    QCOMPARE(view.Text(), u"short"_s);
}

void TestCReportView::thePicture() {
    CRedPicture picture;
    Fixture fixture(u"title"_s + Listing(3, 2), {600, 400});
    fixture.view.SetPicture(&picture);
    QTRY_VERIFY(Count(fixture.Grab(), qRgb(255, 0, 0)) > 30'000);
    QVERIFY(fixture.view.Description().startsWith(u"It is red."_s));
    const QPoint left(100, 50), right(500, 50);
    for (const QPoint& point : {left, right}) {
        QHelpEvent help(QEvent::ToolTip, point, fixture.view.viewport()->mapToGlobal(point));
        QApplication::sendEvent(fixture.view.viewport(), &help);
        QTRY_COMPARE(QToolTip::isVisible() && QToolTip::text().contains(u"left"_s), point == left);
    }
    picture.share = 0.2;
    fixture.view.UpdatePicture();
    QTRY_VERIFY(Count(fixture.Grab(), qRgb(255, 0, 0)) > 60'000);
    fixture.view.SetPicture(nullptr);
    QTRY_COMPARE(Count(fixture.Grab(), qRgb(255, 0, 0)), 0);
}

void TestCReportView::screenReaders() {
    Fixture fixture(Listing(100, 2));
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&fixture.view);
    QCOMPARE(access->role(), QAccessible::Document);
    QCOMPARE(access->text(QAccessible::Name), LoadText(Text::ReportViewName));
    QCOMPARE(access->text(QAccessible::Description), u"A report of 101 lines"_s);
    QVERIFY(access->state().readOnly && access->state().selectableText && !access->state().busy);
    QAccessibleTextInterface* text = access->textInterface();
    QVERIFY(text);
    QCOMPARE(text->characterCount(), static_cast<int>(fixture.view.Text().size()));
    QCOMPARE(text->text(0, 11), u"Head0\tHead1"_s);
    int begin = -1, end = -1;
    QCOMPARE(text->textAtOffset(0, QAccessible::LineBoundary, &begin, &end).trimmed(), u"Head0\tHead1"_s);
    text->setSelection(0, 6, 11);
    QCOMPARE(fixture.view.SelectedText(), u"Head1"_s);
    QCOMPARE(text->selectionCount(), 1);
    text->selection(0, &begin, &end);
    QCOMPARE(begin, 6);
    QCOMPARE(end, 11);
    const QRect place = text->characterRect(6);
    QVERIFY(place.width() > 0);
    QCOMPARE(text->offsetAtPoint(place.topLeft() + QPoint(1, place.height() / 2)), 6);
    text->removeSelection(0);
    QCOMPARE(text->selectionCount(), 0);
    text->setCursorPosition(static_cast<int>(fixture.At(u"r99c1"_s)));
    QCOMPARE(text->cursorPosition(), static_cast<int>(fixture.At(u"r99c1"_s)));
    QVERIFY(fixture.Top() > 0);
    text->scrollToSubstring(0, 5);
    QCOMPARE(fixture.Top(), 0);
}

/// Letters that join, marks that stand on others, what goes from right to left, and pairs of surrogates.
void TestCReportView::scriptsThatJoin() {
    const QString texts =
        u"\u0645\u0631\u062d\u0628\u0627 e\u0301 \u05e9\u05dc\u05d5\u05dd \U0001F468\u200D\U0001F469 \u4e2d\u6587 "_s;
    Fixture fixture(Table({Row({Cell(Font(texts.repeated(50))), Cell(Font(u"\u0645"_s.repeated(2000)))})}),
                    {300, 300});
    QVERIFY(fixture.view.verticalScrollBar()->maximum() > 0);
    for (int y = 5; y < 300; y += 7)
        QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, QPoint(20 + y % 200, y));
    fixture.view.SelectAll();
    QVERIFY(!fixture.Grab().isNull());
    QVERIFY(fixture.view.SelectedText().startsWith(texts.trimmed()));
}

TEST_CLASS(TestCReportView);
#include "TestCReportView.moc"
