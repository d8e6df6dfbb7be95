#include "viewmodel/report/CPageLayout.h"

#include "support/CEvenMeasure.h"
#include "support/PageSamples.h"
#include "support/TestProgram.h"
#include "viewmodel/report/CReportReader.h"
#include "viewmodel/report/PagePositions.h"
#include "viewmodel/report/PageWalk.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace PageSamples;

namespace {

/// A page laid out, each character ten units wide and each line twenty high.
struct Laid {
    std::shared_ptr<const ReportPage> page;
    CEvenMeasure measure;
    std::shared_ptr<CPageMeasures> measures;
    std::unique_ptr<CPageLayout> layout;

    Laid(const QString& html, double width, const CPageLayout::PictureHeight& picture = {})
        : page(ReadReport(Page(html))), measures(std::make_shared<CPageMeasures>(page, measure)) {
        while (!measures->Advance(QDeadlineTimer(0))) continue;
        layout = std::make_unique<CPageLayout>(CPageLayout::Parts{page, measures, measure}, width, picture);
        while (!layout->Advance(QDeadlineTimer(0))) continue;
    }
    [[nodiscard]] QStringList Lines(double width) const {
        QStringList lines;
        const std::uint32_t block = page->firstBody;
        for (const PageLine& line : layout->Lines(block, width))
            lines.append(page->Part(line.begin, line.end).toString());
        return lines;
    }
};

/// Everything on the page as text: "text@x,y".
class CNotes final : public CPageVisitor {
 public:
    explicit CNotes(const ReportPage& page) : m_page(page) {}
    QStringList lines;
    QStringList pictures;
    int cells = 0;

    void OnLine(const PageLine& line, const QPointF& place) override {
        lines.append(
            u"%1@%2,%3"_s.arg(m_page.Part(line.begin, line.end).toString()).arg(place.x()).arg(place.y()));
    }
    void OnCell(const PageTable&, const QRectF&, PageColour) override { ++cells; }
    void OnRule(const QRectF& place) override { lines.append(u"rule@%1"_s.arg(place.y())); }
    void OnPicture(const QRectF& place) override {
        pictures.append(
            u"%1,%2,%3,%4"_s.arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height()));
    }

 private:
    const ReportPage& m_page;
};

QStringList Seen(const Laid& laid, const QRectF& part) {
    CNotes notes(*laid.page);
    WalkPage(*laid.layout, part, notes);
    return notes.lines;
}
QStringList All(const Laid& laid) {
    return Seen(laid, QRectF(0, 0, laid.layout->Width(), laid.layout->Height()));
}

}  // namespace

class TestCPageLayout : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void lines_data();
    void lines();
    void columns_data();
    void columns();
    void whereThingsStand();
    void tablesInTables();
    void thePictureStandsAboveTheFirstTableWithLines();
    void onlyWhatIsSeenIsVisited();
    void positions_data();
    void positions();
    void everyPositionIsFoundAgain();
    void aPageWithoutAnything();
    void manyRows();
};

void TestCPageLayout::lines_data() {
    QTest::addColumn<QString>("html");
    QTest::addColumn<double>("width");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("it fits to the unit") << u"one two"_s << 70.0 << QStringList{u"one two"_s};
    QTest::newRow("broken at the blank") << u"one two"_s << 69.0 << QStringList{u"one"_s, u"two"_s};
    QTest::newRow("a blank that doesn't break")
        << u"one&nbsp;two four"_s << 70.0 << QStringList{u"one\u00a0two"_s, u"four"_s};
    QTest::newRow("a word is cut") << u"a abcdefgh b"_s << 30.0
                                   << QStringList{u"a"_s, u"abc"_s, u"def"_s, u"gh"_s, u"b"_s};
    QTest::newRow("one character stands on a line at least")
        << u"abc"_s << 1.0 << QStringList{u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("a pair isn't parted")
        << u"\U0001F600\U0001F600"_s << 1.0 << QStringList{u"\U0001F600"_s, u"\U0001F600"_s};
    QTest::newRow("line breaks") << u"a<br><br>b<br>"_s << 100.0 << QStringList{u"a"_s, QString(), u"b"_s};
    QTest::newRow("a break alone is a line") << u"<br>"_s << 100.0 << QStringList{QString()};
    QTest::newRow("styles change inside of a line") << u"a<b>b</b> c"_s << 100.0 << QStringList{u"ab c"_s};
    QTest::newRow("blanks at an end take no place")
        << u"ab cd ef"_s << 50.0 << QStringList{u"ab cd"_s, u"ef"_s};
}

void TestCPageLayout::lines() {
    QFETCH(QString, html);
    QFETCH(double, width);
    const Laid laid(html, 1000);
    QTEST(laid.Lines(width), "lines");
}

void TestCPageLayout::columns_data() {
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("firstWidth");
    QTest::addColumn<double>("secondWidth");
    // Two columns of a table take 3 lines of 1 unit and 4 times 3 units of padding, the page margins of 5 on
    // each side: 25.
    QTest::newRow("room for all: shared out by what they ask for")
        << u"aaaa"_s << u"b"_s << 125.0 << 80.0 << 20.0;
    QTest::newRow("broken where it can be") << u"aa aa aa"_s << u"bb"_s << 85.0 << 40.0 << 20.0;
    QTest::newRow("a short text stays on its line beside a long one")
        << u"aa aa aa aa aa aa"_s << u"b b"_s << 125.0 << 70.0 << 30.0;
    QTest::newRow("words are cut") << u"aaaaaa"_s << u"bb"_s << 65.0 << 20.0 << 20.0;
    QTest::newRow("the longest word first") << u"aaaaaa"_s << u"b"_s << 65.0 << 30.0 << 10.0;
    QTest::newRow("a word longer than two inches and a half asks for no more")
        << u"a"_s.repeated(30) << u"bb bb bb"_s << 305.0 << 240.0 << 40.0;
    QTest::newRow("nothing in them") << QString() << QString() << 125.0 << 50.0 << 50.0;
    QTest::newRow("a long text asks for five inches")
        << u"aaaaaaaaa "_s.repeated(100) << u"aaaaaaaa"_s << 585.0 << 480.0 << 80.0;
}

void TestCPageLayout::columns() {
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(double, width);
    QFETCH(double, firstWidth);
    QFETCH(double, secondWidth);
    const Laid laid(Table({Row({Cell(first), Cell(second)})}), width);
    const QRectF one = laid.layout->CellRect(0, 0, 0), two = laid.layout->CellRect(0, 0, 1);
    QVERIFY2(qAbs(one.width() - 6 - firstWidth) < 0.001, qPrintable(QString::number(one.width() - 6)));
    QVERIFY2(qAbs(two.width() - 6 - secondWidth) < 0.001, qPrintable(QString::number(two.width() - 6)));
    QVERIFY(qAbs(two.left() - one.right() - 1) < 0.001);
    QVERIFY(qAbs(laid.layout->TableAt(0).width - (width - 10)) < 0.001);
}

void TestCPageLayout::whereThingsStand() {
    const Laid laid(
        u"above"_s +
            Table({Row({Cell(u"a"_s), Cell(u"b"_s, u"right"_s)}), Row({Cell(u"c<br>d"_s), Cell(u"e"_s)})}) +
            u"<hr>below"_s,
        225);
    // Margin 5; a line of 20; the line of the table 1, padding 3. Columns of 100 each and 6 padding.
    QCOMPARE(All(laid), (QStringList{u"above@5,5"_s, u"a@9,29"_s, u"b@206,29"_s, u"c@9,56"_s, u"d@9,76"_s,
                                     u"e@116,56"_s, u"rule@100"_s, u"below@5,117"_s}));
    QCOMPARE(laid.layout->Height(), 142.0);
    QCOMPARE(laid.measures->NaturalWidth(), 60.0);
    QCOMPARE(laid.measures->LeastWidth(), 45.0);
}

void TestCPageLayout::tablesInTables() {
    const Laid laid(
        Table({Row({Cell(u"x"_s + Table({Row({Cell(u"in"_s), Cell(u"side"_s)})}) + u"y"_s), Cell(u"z"_s)})}),
        500);
    QCOMPARE(All(laid).size(), 5);
    const double outer = laid.layout->CellRect(0, 0, 0).width() - 6;
    QVERIFY(qAbs(laid.layout->TableAt(1).width - outer) < 0.001);
    QCOMPARE(laid.layout->CellRect(0, 0, 0).height(), 6 + 20 + 28 + 20.0);
    const Laid narrow(u"<table><tr><td>ab<td>cd</table>"_s, 500);
    // No width of its own: as wide as its texts, with three gaps of 2 and four paddings of 1.
    QCOMPARE(narrow.layout->TableAt(0).width, 50.0);
}

void TestCPageLayout::thePictureStandsAboveTheFirstTableWithLines() {
    const auto quarter = [](double width) { return width / 4; };
    const auto pictures = [&](const QString& html, const CPageLayout::PictureHeight& height) {
        const Laid laid(html, 410, height);
        CNotes notes(*laid.page);
        WalkPage(*laid.layout, QRectF(0, 0, 410, laid.layout->Height()), notes);
        return notes.pictures;
    };
    const QString title = Table({Row({Cell(u"T"_s)})}, 0, 0);
    QCOMPARE(pictures(title + Listing(2, 2) + Listing(2, 2), quarter), QStringList{u"5,25,400,100"_s});
    QCOMPARE(pictures(title, quarter), QStringList{u"5,25,400,100"_s});
    // A caption stays with its table, what is written above the tables stays above the picture.
    QCOMPARE(pictures(title + u"<br><b>Billable</b><br><br>"_s + Listing(2, 2), quarter),
             QStringList{u"5,25,400,100"_s});
    QCOMPARE(pictures(title + u"For <b>June</b> only"_s + Listing(2, 2), quarter),
             QStringList{u"5,45,400,100"_s});
    QCOMPARE(pictures(title + Listing(2, 2), [](double) { return 0.0; }), QStringList());
    QCOMPARE(pictures(title + Listing(2, 2), {}), QStringList());
}

void TestCPageLayout::onlyWhatIsSeenIsVisited() {
    const Laid laid(Listing(10'000, 3), 600);
    const double middle = laid.layout->Height() / 2;
    CNotes notes(*laid.page);
    WalkPage(*laid.layout, QRectF(0, middle, 600, 270), notes);
    QVERIFY(notes.cells >= 30 && notes.cells <= 36);
    QVERIFY(Seen(laid, QRectF(0, middle, 600, 270)).first().startsWith(u"r49"_s));
    QCOMPARE(Seen(laid, QRectF(0, laid.layout->Height() - 20, 600, 20)).last().section(u'@', 0, 0),
             u"r9999c2"_s);
}

void TestCPageLayout::positions_data() {
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QString>("behind");  // what the text goes on with
    QTest::newRow("left above everything") << QPointF(-10, -10) << u"above"_s;
    QTest::newRow("inside of a word, before the middle of a letter") << QPointF(5 + 14, 10) << u"bove"_s;
    QTest::newRow("behind the middle") << QPointF(5 + 16, 10) << u"ove"_s;
    QTest::newRow("right of a line") << QPointF(400, 10) << u"\naa"_s;
    QTest::newRow("in a cell") << QPointF(9 + 11, 35) << u"a\tbb"_s;
    QTest::newRow("between two lines of a cell") << QPointF(9, 75.9) << u"cc\nd"_s;
    QTest::newRow("in the second line") << QPointF(9, 76.1) << u"dd"_s;
    QTest::newRow("below a short cell") << QPointF(117, 90) << u"ee"_s;
    QTest::newRow("in a cell at the right edge") << QPointF(204, 35) << u"b\ncc"_s;
    QTest::newRow("below everything") << QPointF(500, 1000) << u""_s;
}

void TestCPageLayout::positions() {
    QFETCH(QPointF, point);
    QFETCH(QString, behind);
    Laid laid(u"above"_s +
                  Table({Row({Cell(u"aa"_s), Cell(u"bb"_s, u"right"_s)}),
                         Row({Cell(u"cc<br>dd"_s), Cell(u"ee"_s)})}) +
                  u"below"_s,
              225);
    const QString text = laid.page->text.mid(PositionAt(*laid.layout, laid.measure, point));
    QVERIFY2(behind.isEmpty() ? text.isEmpty() : text.startsWith(behind), qPrintable(text));
}

void TestCPageLayout::everyPositionIsFoundAgain() {
    Laid laid(
        u"above &amp; <b>strong</b> text<hr>"_s + Listing(4, 3) +
            Table({Row({Cell(u"x"_s + Listing(2, 2) + u"y<br>z"_s), Cell(u"right side"_s, u"right"_s)})}),
        300, [](double) { return 50; });
    for (std::uint32_t position = 0; position < laid.page->text.size(); ++position) {
        const auto place = PlaceOfPosition(*laid.layout, laid.measure, position);
        QVERIFY(place.has_value());
        const std::uint32_t found =
            PositionAt(*laid.layout, laid.measure, place->caret.center() + QPointF(0.1, 0));
        const QChar sign = laid.page->text[position];
        // A blank at which a line is broken belongs to the end of that line.
        if (sign != u' ' && sign != u'\t' && sign != u'\n') QCOMPARE(found, position);
    }
}

void TestCPageLayout::aPageWithoutAnything() {
    Laid laid({}, 100);
    QCOMPARE(laid.layout->Height(), 10.0);
    QCOMPARE(PositionAt(*laid.layout, laid.measure, {5, 5}), 0U);
    QVERIFY(!PlaceOfPosition(*laid.layout, laid.measure, 0).has_value());
    QVERIFY(All(laid).isEmpty());
    Laid picture({}, 100, [](double) { return 20; });
    QCOMPARE(PositionAt(*picture.layout, picture.measure, {5, 5}), 0U);
    Laid rows(u"<table><tr></tr></table><table></table>"_s, 100);
    QVERIFY(All(rows).isEmpty());
    QCOMPARE(PositionAt(*rows.layout, rows.measure, {5, 5}), 0U);
}

/// Work goes on in parts: with a deadline that is over, each step does some of it and no more.
void TestCPageLayout::manyRows() {
    const std::shared_ptr<const ReportPage> page = ReadReport(Listing(5'000, 4));
    CEvenMeasure measure;
    const auto measures = std::make_shared<CPageMeasures>(page, measure);
    int steps = 1;
    double progress = 0;
    for (; !measures->Advance(QDeadlineTimer(0)); ++steps) {
        QVERIFY(measures->Progress() >= progress);
        progress = measures->Progress();
    }
    QVERIFY(steps > 50);
    CPageLayout layout({page, measures, measure}, 500, {});
    for (steps = 1; !layout.Advance(QDeadlineTimer(0)); ++steps) continue;
    QVERIFY(steps > 50);
    QCOMPARE(layout.TableAt(0).Height(), 1 + 5'001 * 27.0);
}

TEST_CLASS(TestCPageLayout);
#include "TestCPageLayout.moc"
