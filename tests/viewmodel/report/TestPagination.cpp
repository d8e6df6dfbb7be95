#include "viewmodel/report/Pagination.h"

#include "support/CEvenMeasure.h"
#include "support/PageSamples.h"
#include "support/TestProgram.h"
#include "viewmodel/report/CPageLayout.h"
#include "viewmodel/report/CReportReader.h"
#include "viewmodel/report/PageWalk.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace PageSamples;

namespace {

/// What a sheet shows: its lines that end on it, whole.
class CShown final : public CPageVisitor {
 public:
    CShown(const ReportPage& page, const Sheet& sheet) : m_page(page), m_sheet(sheet) {}
    QStringList lines;
    int halves = 0;

    void OnLine(const PageLine& line, const QPointF& place) override {
        const double bottom = place.y() + line.height;
        if (bottom <= m_sheet.shownTo + 0.001 || bottom > m_sheet.to + 0.001) return;
        if (place.y() < m_sheet.from - 0.001) ++halves;
        lines.append(m_page.Part(line.begin, line.end).toString());
    }
    void OnCell(const PageTable&, const QRectF&, PageColour) override {}
    void OnRule(const QRectF&) override {}
    void OnPicture(const QRectF& place) override {
        if (place.top() < m_sheet.from || place.bottom() > m_sheet.to) ++halves;
    }

 private:
    const ReportPage& m_page;
    const Sheet& m_sheet;
};

/// A page on sheets of a height; each line is twenty high, a row of one line 27, its table's upper line one.
struct Printed {
    std::shared_ptr<const ReportPage> page;
    CEvenMeasure measure;
    std::unique_ptr<CPageLayout> layout;
    std::vector<Sheet> sheets;
    std::vector<QStringList> lines;
    int halves = 0;

    Printed(const QString& html, double height, const CPageLayout::PictureHeight& picture = {},
            double width = 600)
        : page(ReadReport(Page(html))) {
        const auto measures = std::make_shared<CPageMeasures>(page, measure);
        [&] { QVERIFY(measures->Advance(QDeadlineTimer(QDeadlineTimer::Forever))); }();
        layout = std::make_unique<CPageLayout>(CPageLayout::Parts{page, measures, measure}, width, picture);
        [&] { QVERIFY(layout->Advance(QDeadlineTimer(QDeadlineTimer::Forever))); }();
        sheets = SheetsOf(*layout, height);
        for (const Sheet& sheet : sheets) {
            CShown shown(*page, sheet);
            WalkPage(*layout, QRectF(0, sheet.from, width, sheet.to - sheet.from), shown);
            lines.push_back(shown.lines);
            halves += shown.halves;
        }
    }
    [[nodiscard]] QStringList Firsts() const {
        QStringList firsts;
        for (const QStringList& sheet : lines) firsts.append(sheet.value(0));
        return firsts;
    }
    [[nodiscard]] QStringList Together() const {
        QStringList all;
        for (const QStringList& sheet : lines) all += sheet;
        return all;
    }
};

}  // namespace

class TestPagination : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void sheets_data();
    void sheets();
    void theHeadStandsOnEachSheet();
    void aHeadStandsOnNoSheetAlone();
    void nothingIsCutOrLost_data();
    void nothingIsCutOrLost();
    void thePictureStaysWhole();
};

void TestPagination::sheets_data() {
    QTest::addColumn<QString>("html");
    QTest::addColumn<double>("height");
    QTest::addColumn<QStringList>("firsts");
    const QString rows = Table({Row({Cell(u"a"_s)}), Row({Cell(u"b"_s)}), Row({Cell(u"c"_s)})});
    QTest::newRow("an empty page is one sheet") << QString() << 100.0 << QStringList{QString()};
    QTest::newRow("all on one sheet") << rows << 92.0 << QStringList{u"a"_s};
    QTest::newRow("its margin alone makes no second sheet") << rows << 88.0 << QStringList{u"a"_s};
    QTest::newRow("the last row doesn't fit") << rows << 86.0 << QStringList{u"a"_s, u"c"_s};
    QTest::newRow("a row on each") << rows << 40.0 << QStringList{u"a"_s, u"b"_s, u"c"_s};
    QTest::newRow("texts part between lines") << u"a<br>b<br>c<br>d"_s << 50.0 << QStringList{u"a"_s, u"c"_s};
    QTest::newRow("a table that fits no more begins on the next one")
        << u"a<br>b<br>"_s + rows << 60.0 << QStringList{u"a"_s, u"a"_s, u"c"_s};
    QTest::newRow("a row higher than a sheet parts between its lines")
        << Table({Row({Cell(u"a<br>b<br>c<br>d<br>e<br>f"_s)})}) << 60.0
        << QStringList{u"a"_s, u"c"_s, u"f"_s};
    const QString high = Table({Row({Cell(u"1<br>2<br>3<br>4<br>5<br>6"_s)})});
    QTest::newRow("such a row begins below what fills less than half of a sheet")
        << u"a<br>"_s + high << 80.0 << QStringList{u"a"_s, u"3"_s};
    QTest::newRow("below more than half of a sheet it begins on the next one")
        << u"a<br>b<br>c<br>"_s + high << 80.0 << QStringList{u"a"_s, u"1"_s, u"4"_s};
    QTest::newRow("the frame below the last line makes no sheet")
        << Table({Row({Cell(u"a<br>b<br>c<br>d<br>e"_s)})}) << 60.0 << QStringList{u"a"_s, u"c"_s};
}

void TestPagination::sheets() {
    QFETCH(QString, html);
    QFETCH(double, height);
    const Printed printed(html, height);
    QTEST(printed.Firsts(), "firsts");
    QCOMPARE(printed.halves, 0);
}

void TestPagination::theHeadStandsOnEachSheet() {
    const Printed printed(u"text"_s + Listing(20, 2), 200);
    QVERIFY(!printed.sheets.front().headOf.has_value());
    // 200 less the head of 27 is room for 6 rows of 27; the first sheet has a line, the table's line and the
    // head.
    QCOMPARE(printed.Firsts(), (QStringList{u"text"_s, u"r5c0"_s, u"r11c0"_s, u"r17c0"_s}));
    for (std::size_t i = 1; i < printed.sheets.size(); ++i) {
        QCOMPARE(printed.sheets[i].headOf, std::optional<std::size_t>(1));
        QCOMPARE(printed.sheets[i].headHeight, 27.0);
        QVERIFY(printed.sheets[i].to - printed.sheets[i].from + 27 <= 200);
    }
    const Printed titles(
        Table({Row({Cell(Strong(u"T"_s))}), Row({Cell(Strong(u"D"_s))}), Row({Cell(Strong(u"E"_s))})}), 40);
    QVERIFY(!titles.sheets.back().headOf.has_value());
    const Printed high(Listing(3, 1), 60);
    QVERIFY2(!high.sheets.back().headOf.has_value(), "a head that takes half of the sheet isn't repeated");
}

void TestPagination::aHeadStandsOnNoSheetAlone() {
    // Margin 5, three lines 60, the head ends at 93 and the first row at 120.
    for (const double height : {94.0, 100.0, 119.0}) {
        const Printed printed(u"a<br>b<br>c"_s + Listing(5, 1), height);
        QCOMPARE(printed.lines[0], (QStringList{u"a"_s, u"b"_s, u"c"_s}));
        QCOMPARE(printed.lines[1].value(0), u"Head0"_s);
        QCOMPARE(printed.lines[1].value(1), u"r0c0"_s);
    }
}

void TestPagination::nothingIsCutOrLost_data() {
    QTest::addColumn<QString>("html");
    QTest::newRow("a listing") << Listing(100, 3);
    QTest::newRow("long texts in cells")
        << Table({Row({Cell(u"word "_s.repeated(300)), Cell(u"b"_s)}), Row({Cell(u"c"_s), Cell(u"d"_s)})});
    QTest::newRow("texts around") << u"head "_s.repeated(500) + Listing(30, 2) + u"foot "_s.repeated(500);
    QTest::newRow("tables in a cell")
        << Table({Row({Cell(Listing(30, 2)), Cell(Listing(25, 1) + u"x<br>"_s.repeated(20))})});
    QTest::newRow("rules") << u"<hr>x"_s.repeated(100);
}

void TestPagination::nothingIsCutOrLost() {
    QFETCH(QString, html);
    for (const double height : {61.0, 100.0, 333.3, 900.0}) {
        const Printed printed(html, height);
        QCOMPARE(printed.halves, 0);
        const Printed whole(html, 1e9);
        QStringList shown = printed.Together(), all = whole.Together();
        shown.sort();
        all.sort();
        QCOMPARE(shown, all);
        for (const Sheet& sheet : printed.sheets)
            QVERIFY(sheet.to - sheet.from + sheet.headHeight <= height + 0.01);
    }
}

void TestPagination::thePictureStaysWhole() {
    for (const double height : {150.0, 151.0, 180.0, 260.0}) {
        const Printed printed(u"a<br>b<br>c"_s + Listing(10, 2), height, [](double) { return 140; });
        QCOMPARE(printed.halves, 0);
    }
}

TEST_CLASS(TestPagination);
#include "TestPagination.moc"
