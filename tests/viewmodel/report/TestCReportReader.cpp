#include "viewmodel/report/CReportReader.h"

#include "support/PageSamples.h"
#include "support/TestProgram.h"
#include "viewmodel/report/PageEntities.h"
#include "viewmodel/report/PageTag.h"

#include <QElapsedTimer>
#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace PageSamples;

namespace {

const PageStyle& StyleAt(const ReportPage& page, const QString& text) {
    const auto at = static_cast<std::uint32_t>(page.text.indexOf(text));
    std::uint32_t style = 0;
    ForEachStretch(page, at, at + 1, [&style](const PageStretch& stretch) { style = stretch.style; });
    return page.styles[style];
}

QString Shape(const ReportPage& page) {
    QStringList tables;
    for (const PageTable& table : page.tables) {
        QStringList rows;
        for (const PageRow& row : table.rows) rows.append(QString::number(row.cellCount));
        tables.append(rows.join(u','));
    }
    return tables.join(u'|');
}

}  // namespace

class TestCReportReader : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void text_data();
    void text();
    void shape_data();
    void shape();
    void theLookOfTexts();
    void tables();
    void tablesInTables();
    void head_data();
    void head();
    void colours_data();
    void colours();
    void entities_data();
    void entities();
    void hostileTextsStayLinear_data();
    void hostileTextsStayLinear();
    void partsOfAPageMakeTheSame();
};

void TestCReportReader::text_data() {
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << u""_s << u""_s;
    QTest::newRow("a plain text") << u"Hello"_s << u"Hello"_s;
    QTest::newRow("white space is one blank, none at the edges") << u"  a \n\t b  "_s << u"a b"_s;
    QTest::newRow("a blank that doesn't break keeps its place")
        << u"a&nbsp; &nbsp;b"_s << u"a\u00a0 \u00a0b"_s;
    QTest::newRow("line breaks") << u"a<br>b<br><br>c"_s << u"a\nb\n\nc"_s;
    QTest::newRow("cells and rows") << Table({Row({Cell(u"a"_s), Cell(u"b"_s)}),
                                              Row({Cell(u"c"_s), Cell(u"d"_s)})})
                                    << u"a\tb\nc\td"_s;
    QTest::newRow("an empty cell") << Table({Row({Cell(u"a"_s), Cell(QString()), Cell(u"c"_s)})})
                                   << u"a\t\tc"_s;
    QTest::newRow("texts around a table") << u"a"_s + Table({Row({Cell(u"b"_s)})}) + u"c"_s << u"a\nb\nc"_s;
    QTest::newRow("the head is no text") << u"<title>T</title><style>p {}</style><p>a"_s << u"a"_s;
    QTest::newRow("a script is neither run nor shown") << u"a<script>alert('</b>')</script>b"_s << u"ab"_s;
    QTest::newRow("a script without an end loses its tag only") << u"a<script>b<br>c"_s << u"ab\nc"_s;
    QTest::newRow("a comment") << u"a<!-- <br> -->b"_s << u"ab"_s;
    QTest::newRow("a comment without an end") << u"a<!-- b"_s << u"a b"_s;
    QTest::newRow("less than") << u"3 < 4 <5 <- <"_s << u"3 < 4 <5 <- <"_s;
    QTest::newRow("a tag that doesn't end before the next one") << u"a <b c<br>d"_s << u"a <b c\nd"_s;
    QTest::newRow("a tag that never ends") << u"a <font size=1"_s << u"a <font size=1"_s;
    QTest::newRow("unknown tags") << u"<x-y z=\"1\">a</x-y><img src=\"http://h/p.png\">b<a href='x'>c</a>"_s
                                  << u"abc"_s;
    QTest::newRow("paragraphs begin a line, and make no empty ones")
        << u"<div><p>a</p><p>b</p></div>c"_s << u"a\nb\nc"_s;
    QTest::newRow("lone closing tags") << u"</table></td>a</tr></font></b></body>b</html>"_s << u"ab"_s;
    QTest::newRow("control characters") << QString(u"a\u0001b\u0085c"_s) << u"a\ufffdb\ufffdc"_s;
    QTest::newRow("a pair of surrogates") << u"a&#x1F600;b\U0001F600"_s << u"a\U0001F600b\U0001F600"_s;
    QTest::newRow("capital letters") << u"<TABLE><TR><TD>a<BR>b</TD></TR></TABLE>"_s << u"a\nb"_s;
    QTest::newRow("a rule") << u"a<hr>b"_s << u"a\nb"_s;
}

void TestCReportReader::text() {
    QFETCH(QString, html);
    QFETCH(QString, text);
    QCOMPARE(ReadReport(html)->text, text);
    QCOMPARE(ReadReport(Page(html))->text, text);
}

void TestCReportReader::shape_data() {
    QTest::addColumn<QString>("note");  // the second of three cells in the first of two rows
    QTest::addColumn<QString>("shape");
    QTest::newRow("a plain text") << u"n"_s << u"3,3"_s;
    QTest::newRow("the end of a cell") << u"n</td>more"_s << u"3,3"_s;
    QTest::newRow("the end of a row") << u"n</tr>more"_s << u"3,3"_s;
    QTest::newRow("all ends of styles") << u"</font></strong></em></b></i>"_s << u"3,3"_s;
    QTest::newRow("the end of the table: two tables, nothing is lost") << u"n</table>more"_s << u"2|1,3"_s;
    QTest::newRow("a table inside") << u"<table><tr><td>x</td></tr></table>"_s << u"3,3|1"_s;
    QTest::newRow("text in a table and in no cell")
        << u"<table>x<tr>y<td>z</td></tr></table>"_s << u"3,3|1,2"_s;
    QTest::newRow("tags in a tag") << u"<td<td>"_s << u"4,3"_s;
}

void TestCReportReader::shape() {
    QFETCH(QString, note);
    QFETCH(QString, shape);
    const auto page = ReadReport(Table(
        {Row({Cell(u"a"_s), Cell(note), Cell(u"b"_s)}), Row({Cell(u"c"_s), Cell(u"d"_s), Cell(u"e"_s)})}));
    QCOMPARE(Shape(*page), shape);
    for (const QString& text : {u"a"_s, u"b"_s, u"c"_s, u"e"_s}) QVERIFY(page->text.contains(text));
}

void TestCReportReader::theLookOfTexts() {
    const auto page = ReadReport(
        Page(u"<font face=\"Tahoma, Arial\" color=\"#999999\" size=\"5\"><strong>title</strong></font>"
             u"<br>plain<em>slanted<strong>both</em>still</strong>"
             u"<font color=red size=9>large<font>inner</font>outer</font>end"_s));
    QCOMPARE(page->face, u"Tahoma, Arial"_s);
    QCOMPARE(page->margin, 5);
    QCOMPARE(StyleAt(*page, u"title"_s), (PageStyle{5, true, false, 0xFF999999}));
    QCOMPARE(StyleAt(*page, u"plain"_s), PageStyle());
    QCOMPARE(StyleAt(*page, u"slanted"_s), (PageStyle{3, false, true, kBlack}));
    QCOMPARE(StyleAt(*page, u"both"_s), (PageStyle{3, true, true, kBlack}));
    QCOMPARE(StyleAt(*page, u"large"_s), (PageStyle{7, false, false, 0xFFFF0000}));
    QCOMPARE(StyleAt(*page, u"inner"_s), (PageStyle{7, false, false, 0xFFFF0000}));
    QCOMPARE(StyleAt(*page, u"outer"_s), (PageStyle{7, false, false, 0xFFFF0000}));
    QCOMPARE(StyleAt(*page, u"end"_s), PageStyle());
}

void TestCReportReader::tables() {
    const auto page =
        ReadReport(Table({Row({Cell(u"<font size=7><strong>a"_s), Cell(u"<i>b"_s, u"right"_s)})}));
    const PageTable& table = page->tables.front();
    QCOMPARE(table.widthPercent, 100);
    QCOMPARE(table.padding, 3);
    QCOMPARE(table.spacing, 0);
    QVERIFY(table.hasLines);
    QCOMPARE(table.background, 0xFFFFFFFFU);
    QCOMPARE(table.lineColour, 0xFFCCCCCCU);
    QCOMPARE(table.columns, 2U);
    QCOMPARE(table.rows.front().background, 0xFFFFFFFFU);
    QCOMPARE(page->cells[0].background, 0xFFF7F7F7U);
    QVERIFY(!page->cells[0].isRight);
    QVERIFY(page->cells[1].isRight);
    // What a cell leaves open ends with it.
    QCOMPARE(StyleAt(*page, u"b"_s), (PageStyle{3, false, true, kBlack}));
}

/// Notes may hold anything: a ninth table in tables keeps its texts and loses its frame.
void TestCReportReader::tablesInTables() {
    constexpr std::size_t kDeepest = 8;
    QString html = u"in"_s;
    for (int depth = 0; depth < 12; ++depth) html = Table({Row({Cell(html)})});
    const auto page = ReadReport(Page(html));
    QCOMPARE(page->tables.size(), kDeepest);
    QVERIFY(page->text.contains(u"in"_s));
}

void TestCReportReader::head_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<bool>("hasHead");
    QTest::newRow("a listing") << Listing(2, 2) << true;
    QTest::newRow("a title above a date, both strong")
        << Table({Row({Cell(Strong(u"T"_s))}), Row({Cell(Strong(u"D"_s))})}) << false;
    QTest::newRow("captions beside values") << Table({Row({Cell(Strong(u"A"_s)), Cell(Font(u"1"_s))}),
                                                      Row({Cell(Strong(u"B"_s)), Cell(Font(u"2"_s))})})
                                            << false;
    QTest::newRow("a head alone") << Table({Row({Cell(Strong(u"A"_s))})}) << false;
    QTest::newRow("cells that are heads") << u"<table><tr><th>A<tr><td>b</table>"_s << true;
}

void TestCReportReader::head() {
    QFETCH(QString, table);
    QFETCH(bool, hasHead);
    QCOMPARE(ReadReport(table)->tables.front().hasHead, hasHead);
}

void TestCReportReader::colours_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<PageColour>("colour");
    QTest::newRow("six digits") << u"#F1F1E2"_s << 0xFFF1F1E2U;
    QTest::newRow("three digits, each twice") << u"#CBA"_s << 0xFFCCBBAAU;
    QTest::newRow("black as it is written") << u"#000"_s << 0xFF000000U;
    QTest::newRow("four digits: thirds of two, zeros behind") << u"#FF00"_s << 0xFFFF0000U;
    QTest::newRow("five digits") << u"#F1F1E"_s << 0xFFF1F1E0U;
    QTest::newRow("one digit") << u"#F"_s << 0xFF0F0000U;
    QTest::newRow("a name") << u" Red "_s << 0xFFFF0000U;
    QTest::newRow("no colour") << u"what"_s << kNoColour;
    QTest::newRow("no digits") << u"#"_s << kNoColour;
    QTest::newRow("too many digits") << u"#1234567"_s << kNoColour;
    QTest::newRow("digits that are none count as 0") << u"#GG0011"_s << 0xFF000011U;
}

void TestCReportReader::colours() {
    QFETCH(QString, text);
    QFETCH(PageColour, colour);
    QCOMPARE(ColourOfText(text), colour);
}

void TestCReportReader::entities_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<uint>("sign");
    QTest::addColumn<int>("length");
    QTest::newRow("by name") << u"&amp;x"_s << uint(u'&') << 5;
    QTest::newRow("with case") << u"&Auml;"_s << 0xC4U << 6;
    QTest::newRow("by number") << u"&#8364;"_s << 0x20ACU << 7;
    QTest::newRow("by hexadecimal number") << u"&#xe4;"_s << 0xE4U << 6;
    QTest::newRow("zero is no character") << u"&#0;"_s << 0xFFFDU << 4;
    QTest::newRow("half of a pair") << u"&#xD800;"_s << 0xFFFDU << 8;
    QTest::newRow("beyond the last") << u"&#x110000;"_s << 0xFFFDU << 10;
    QTest::newRow("an unknown name stands as it is") << u"&what;"_s << 0U << 1;
    QTest::newRow("a lone sign") << u"& b;"_s << 0U << 1;
    QTest::newRow("no end") << u"&amp"_s << 0U << 1;
    QTest::newRow("an end too far away") << u"&ampampampampamp;"_s << 0U << 1;
    QTest::newRow("nothing between") << u"&;"_s << 0U << 1;
}

void TestCReportReader::entities() {
    QFETCH(QString, text);
    const PageEntity entity = EntityAt(text);
    QTEST(uint(entity.sign), "sign");
    QTEST(int(entity.length), "length");
}

void TestCReportReader::hostileTextsStayLinear_data() {
    QTest::addColumn<QString>("piece");
    for (const char* piece : {"<",
                              "<table><tr><td>",
                              "</table>",
                              "</td>",
                              "</tr>",
                              "</font>",
                              "<font size=1>",
                              "<b>x</i>",
                              "<!--",
                              "<script>",
                              "<a",
                              "&",
                              "&#",
                              "<td",
                              "<hr></td>",
                              "x</td>",
                              "</tr><td>x",
                              "<table><tr><td>x</table>",
                              "<tr>",
                              "<td>",
                              "<p><div>",
                              "<font color=#123456",
                              "<table ",
                              "<td align=\"",
                              "<style>a</style>",
                              "&#x1F600;",
                              "<br>"})
        QTest::newRow(piece) << QString::fromLatin1(piece);
}

/// 32,000 times, and ten times as often: it takes some ten times as long, not a hundred times.
void TestCReportReader::hostileTextsStayLinear() {
    QFETCH(QString, piece);
    const auto took = [&piece](int times) {
        const QString html = Page(Table({Row({Cell(piece.repeated(times)), Cell(u"behind"_s)})}));
        QElapsedTimer timer;
        timer.start();
        const auto page = ReadReport(html);
        const qint64 milliseconds = timer.elapsed();
        [&] { QVERIFY(!page->blocks.empty()); }();
        return milliseconds;
    };
    constexpr qint64 kTooLittleToCompare = 20;
    const qint64 once = std::max(took(32'000), kTooLittleToCompare);
    const qint64 tenTimes = took(320'000);
    QVERIFY2(tenTimes < 40 * once, qPrintable(u"%1 ms after %2 ms"_s.arg(tenTimes).arg(once)));
}

void TestCReportReader::partsOfAPageMakeTheSame() {
    const QString html = Page(Listing(50, 4) + u"<!-- c -->&euro;<script>x</script>"_s + Listing(3, 2));
    const auto whole = ReadReport(html);
    for (const int step : {1, 2, 7, 100}) {
        CReportReader reader(html);
        int parts = 1;
        double progress = 0;
        while (!reader.Advance(step)) {
            ++parts;
            QVERIFY(reader.Progress() >= progress);
            progress = reader.Progress();
        }
        QVERIFY(parts > 40);
        const auto page = reader.TakePage();
        QCOMPARE(page->text, whole->text);
        QCOMPARE(page->runs.size(), whole->runs.size());
        QCOMPARE(Shape(*page), Shape(*whole));
    }
}

TEST_CLASS(TestCReportReader);
#include "TestCReportReader.moc"
