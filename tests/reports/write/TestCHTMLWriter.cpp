#include "reports/write/CHTMLWriter.h"

#include "lang/LoadText.h"
#include "reports/write/CTextSink.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kFont = u"<font face=\"Arial\" color=\"#000\" size=\"2\">"_s;

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The code page of another locale for a scope.
class CodePageScope {
 public:
    explicit CodePageScope(const char* locale) : m_former(qgetenv("LC_ALL")) { qputenv("LC_ALL", locale); }
    ~CodePageScope() { qputenv("LC_ALL", m_former); }
    CodePageScope(const CodePageScope&) = delete;
    CodePageScope& operator=(const CodePageScope&) = delete;

 private:
    QByteArray m_former;
};

class CPieces final : public CTextSink {
 public:
    explicit CPieces(int most = 1000000) : m_most(most) {}
    [[nodiscard]] bool Take(const QString& piece) override {
        pieces += piece;
        return pieces.size() < m_most;
    }
    QStringList pieces;

 private:
    int m_most;
};

}  // namespace

class TestCHTMLWriter : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Colours_data();
    void Colours();
    void Texts_data();
    void Texts();
    void TheHeadLetsNothingRun();
    void TheBodyHasItsMargins();
    void LineBreaks_data();
    void LineBreaks();
    void ATable();
    void Cells();
    void ARule();
    void ClearEmptiesThePage();
    void PiecesMakeThePage();
    void ARefusedPieceEndsIt();
    void AnEmptyPageMakesNoFile();
    void ThePageIsSaved();
    void AnotherCodePageIsNamed();
    void AFolderIsRefused();
};

void TestCHTMLWriter::Colours_data() {
    QTest::addColumn<PageColour>("colour");
    QTest::addColumn<QString>("text");
    QTest::newRow("black") << PageColour{0x000000} << u"#000"_s;
    QTest::newRow("parts below 16 lose their zero") << PageColour{0x0A0B0C} << u"#CBA"_s;
    QTest::newRow("red comes first") << PageColour{0xE2F1F1} << u"#F1F1E2"_s;
    QTest::newRow("white") << PageColour{0xFFFFFF} << u"#FFFFFF"_s;
    QTest::newRow("a part of 16 has two digits") << PageColour{0x000010} << u"#1000"_s;
    QTest::newRow("what is above the three bytes doesn't count") << PageColour{0xFF112233} << u"#332211"_s;
}

void TestCHTMLWriter::Colours() {
    QFETCH(PageColour, colour);
    QTEST(ColourText(colour), "text");
}

void TestCHTMLWriter::Texts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isStrong");
    QTest::addColumn<bool>("isEmphasis");
    QTest::addColumn<QString>("html");
    const auto row = [](const char* name, const QString& text, const char* style, const QString& html) {
        const QByteArray looks(style);
        QTest::newRow(name) << text << looks.contains('s') << looks.contains('e')
                            << kFont + html + u"</font>"_s;
    };
    row("plain", u"a b"_s, "", u"a b"_s);
    row("strong", u"a"_s, "s", u"<strong>a</strong>"_s);
    row("emphasis", u"a"_s, "e", u"<em>a</em>"_s);
    row("both", u"a"_s, "se", u"<strong><em>a</em></strong>"_s);
    row("an empty text is a blank", QString(), "", u"&nbsp;"_s);
    row("also a strong one", QString(), "s", u"<strong>&nbsp;</strong>"_s);
    row("markup stays markup", u"a < b & <i>c</i>"_s, "", u"a < b & <i>c</i>"_s);
    row("blanks in front of a caption", u"&nbsp;&nbsp;&nbsp;Expense"_s, "s",
        u"<strong>&nbsp;&nbsp;&nbsp;Expense</strong>"_s);
    row("percent signs and what looks like an argument", u"100 %1 %s"_s, "", u"100 %1 %s"_s);
}

/// A second run of the same look is the same, and another look isn't.
void TestCHTMLWriter::Texts() {
    QFETCH(QString, text);
    QFETCH(bool, isStrong);
    QFETCH(bool, isEmphasis);
    CHTMLWriter writer;
    for (int run = 0; run < 2; ++run) {
        writer.Clear();
        writer.Text(text, {.face = u"Arial"_s, .isStrong = isStrong, .isEmphasis = isEmphasis});
        QTEST(writer.GetHtml(), "html");
    }
    writer.Clear();
    writer.Text(u"x"_s, {.face = u"Tahoma"_s, .size = 5, .colour = 0x999999});
    QCOMPARE(writer.GetHtml(), u"<font face=\"Tahoma\" color=\"#999999\" size=\"5\">x</font>"_s);
}

void TestCHTMLWriter::TheHeadLetsNothingRun() {
    CHTMLWriter writer;
    writer.BeginDocument(5, 0, 0);
    writer.EndDocument();
    const QString page = writer.GetHtml();
    QVERIFY(page.startsWith(u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">"_s));
    QVERIFY(
        page.contains(u"<meta http-equiv=\"Content-Security-Policy\" "
                      "content=\"default-src 'none'; style-src 'unsafe-inline'\">"_s));
    QVERIFY(page.contains(u"<title></title>"_s));
    QVERIFY(page.endsWith(u"</body>\n</html>\n"_s));
    writer.Clear();
    writer.documentTitle = u"Hours"_s;
    writer.BeginDocument(5, 0, 0);
    QVERIFY(writer.GetHtml().contains(u"<title>Hours</title>"_s));
}

void TestCHTMLWriter::TheBodyHasItsMargins() {
    CHTMLWriter writer;
    writer.BeginDocument(5, 1, 2);
    QVERIFY(writer.GetHtml().endsWith(u"<body style=\"margin: 5px 5px 5px 5px; padding: 1px 2px\">\n"_s));
}

void TestCHTMLWriter::LineBreaks_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("html");
    QTest::newRow("two") << 2 << u"<br>\n<br>\n"_s;
    QTest::newRow("none") << 0 << QString();
    QTest::newRow("fewer than none") << -1 << QString();
}

void TestCHTMLWriter::LineBreaks() {
    QFETCH(int, count);
    CHTMLWriter writer;
    writer.LineBreak(count);
    QTEST(writer.GetHtml(), "html");
}

void TestCHTMLWriter::ATable() {
    CHTMLWriter writer;
    writer.OpenTable({.widthPercent = 90,
                      .cellSpacing = 1,
                      .cellPadding = 3,
                      .border = 2,
                      .background = 0xFFFFFF,
                      .borderColour = 0xCCCCCC});
    writer.CloseTable();
    QCOMPARE(writer.GetHtml(),
             u"<table width=\"90%\" cellSpacing=1 cellPadding=3 border=2 bgcolor=\"#FFFFFF\" "
             "bordercolor=\"#CCCCCC\"></table>\n"_s);
}

/// Cells carry no width.
void TestCHTMLWriter::Cells() {
    CHTMLWriter writer;
    writer.OpenRow(0xE2F1F1);
    writer.OpenCell(33, CellAlign::Left, 0);
    writer.CloseCell();
    writer.OpenCell(50, CellAlign::Left, 0);
    writer.CloseCell();
    writer.OpenCell(50, CellAlign::Right, 0xF7F7F7);
    writer.CloseCell();
    writer.CloseRow();
    QCOMPARE(writer.GetHtml(),
             u"<tr bgcolor=\"#F1F1E2\"><td align=\"left\" bgcolor=\"#000\"></td><td align=\"left\" "
             "bgcolor=\"#000\"></td><td align=\"right\" bgcolor=\"#F7F7F7\"></td></tr>\n"_s);
}

void TestCHTMLWriter::ARule() {
    CHTMLWriter writer;
    writer.Rule();
    QCOMPARE(writer.GetHtml(), u"<hr>"_s);
}

void TestCHTMLWriter::ClearEmptiesThePage() {
    CHTMLWriter writer;
    writer.Rule();
    writer.Clear();
    QCOMPARE(writer.GetHtml(), QString());
}

void TestCHTMLWriter::PiecesMakeThePage() {
    CPieces sink;
    CHTMLWriter writer(sink), whole;
    for (CHTMLWriter* one : {&writer, &whole}) {
        one->BeginDocument(5, 0, 0);
        for (int row = 0; row < 2000; ++row) {
            one->OpenRow(0);
            one->OpenCell(100, CellAlign::Left, 0);
            one->Text(u"row %1 \U0001F552"_s.arg(row), {.face = u"Arial"_s});
            one->CloseCell();
            one->CloseRow();
        }
        one->EndDocument();
    }
    QVERIFY(writer.IsTaken());
    QVERIFY(sink.pieces.size() > 2);
    for (const QString& piece : sink.pieces) QVERIFY(piece.size() < 2 * 65536);
    QCOMPARE(sink.pieces.join(QString()), whole.GetHtml());
    QCOMPARE(writer.GetHtml(), QString());
}

void TestCHTMLWriter::ARefusedPieceEndsIt() {
    CPieces sink(1);
    CHTMLWriter writer(sink);
    writer.EndDocument();
    QVERIFY(!writer.IsTaken());
    writer.EndDocument();
    QCOMPARE(sink.pieces.size(), 1);
}

void TestCHTMLWriter::AnEmptyPageMakesNoFile() {
    const QTemporaryDir folder;
    QVERIFY(CHTMLWriter().SaveToFile(folder.filePath(u"page.html"_s)).written);
    QVERIFY(!QFile::exists(folder.filePath(u"page.html"_s)));
}

void TestCHTMLWriter::ThePageIsSaved() {
    const CodePageScope scope("C.UTF-8");
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"page.html"_s);
    CHTMLWriter writer;
    writer.BeginDocument(5, 0, 0);
    writer.Text(u"Grüße \U0001F552"_s, {.face = u"Arial"_s});
    writer.EndDocument();
    QVERIFY(writer.SaveToFile(path).written);
    QCOMPARE(ContentOf(path), writer.GetHtml().toUtf8());
}

/// A browser would read the umlaut wrongly under the name of another code page.
void TestCHTMLWriter::AnotherCodePageIsNamed() {
    const CodePageScope scope("de_DE.ISO-8859-1");
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"page.html"_s);
    CHTMLWriter writer;
    writer.BeginDocument(5, 0, 0);
    writer.Text(u"Grüße"_s, {.face = u"Arial"_s});
    writer.EndDocument();
    QVERIFY(writer.SaveToFile(path).written);
    QCOMPARE(ContentOf(path), writer.GetHtml().replace(u"utf-8"_s, u"iso-8859-1"_s).toLatin1());
}

void TestCHTMLWriter::AFolderIsRefused() {
    const QTemporaryDir folder;
    CHTMLWriter writer;
    writer.Rule();
    const FileOutcome outcome = writer.SaveToFile(folder.path());
    QVERIFY(!outcome.written);
    QVERIFY(outcome.error.contains(folder.path()));
}

TEST_CLASS(TestCHTMLWriter);
#include "TestCHTMLWriter.moc"
