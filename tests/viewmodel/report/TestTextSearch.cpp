#include "viewmodel/report/TextSearch.h"

#include "support/TestProgram.h"
#include "viewmodel/report/CReportReader.h"
#include "viewmodel/report/PageText.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Looking for a text, and what is taken out of one.
class TestTextSearch : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void places_data();
    void places();
    void oneAfterTheOther();
    void anotherTextBeginsAtTheSelection();
    void copied_data();
    void copied();
    void words_data();
    void words();
};

void TestTextSearch::places_data() {
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<QList<int>>("places");
    QTest::newRow("each once") << u"abcabc"_s << u"bc"_s << false << QList<int>{1, 4};
    QTest::newRow("they don't lie over one another") << u"aaaa"_s << u"aa"_s << false << QList<int>{0, 2};
    QTest::newRow("without case") << u"Äpfel äPFEL"_s << u"äpfel"_s << false << QList<int>{0, 6};
    QTest::newRow("with case") << u"Äpfel äpfel"_s << u"äpfel"_s << true << QList<int>{6};
    QTest::newRow("nothing is found nowhere") << u"abc"_s << QString() << false << QList<int>();
    QTest::newRow("not there") << u"abc"_s << u"d"_s << false << QList<int>();
}

void TestTextSearch::places() {
    QFETCH(QString, in);
    QFETCH(QString, text);
    QFETCH(bool, matchCase);
    TextSearch search;
    const FoundText found = search.Next(in, text, {.matchCase = matchCase}, 0, 0);
    QList<int> places;
    for (const std::uint32_t place : search.Places()) places.append(static_cast<int>(place));
    QTEST(places, "places");
    QCOMPARE(found.count, static_cast<int>(places.size()));
    QCOMPARE(found.number, places.isEmpty() ? 0 : 1);
}

void TestTextSearch::oneAfterTheOther() {
    TextSearch search;
    std::uint32_t begin = 0, end = 0;
    const auto go = [&](bool backwards) {
        const FoundText found = search.Next(u"x--x--x"_s, u"x"_s, {.backwards = backwards}, begin, end);
        begin = search.Places()[static_cast<std::size_t>(found.number - 1)];
        end = begin + search.Length();
        return found.number;
    };
    QCOMPARE(go(false), 1);
    QCOMPARE(go(false), 2);
    QCOMPARE(go(false), 3);
    QCOMPARE(go(false), 1);
    QCOMPARE(go(true), 3);
    QCOMPARE(go(true), 2);
    search.Clear();
    QVERIFY(search.Places().empty());
    QCOMPARE(search.Length(), 0U);
}

void TestTextSearch::anotherTextBeginsAtTheSelection() {
    TextSearch search;
    const QString in = u"ab abc abcd"_s;
    QCOMPARE(search.Next(in, u"ab"_s, {}, 3, 5).number, 2);
    QCOMPARE(search.Next(in, u"abc"_s, {}, 3, 5).number, 1);
    QCOMPARE(search.Next(in, u"abcd"_s, {}, 3, 6).number, 1);
    QCOMPARE(search.Next(in, u"AB"_s, {.matchCase = true}, 3, 6).number, 0);
    QCOMPARE(search.Next(in, u"ab"_s, {}, 11, 11).number, 1);
}

void TestTextSearch::copied_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("copied");
    QTest::newRow("an empty cell") << u"a\t\u00a0\tb\n\u00a0"_s << u"a\t\tb\n"_s;
    QTest::newRow("a blank inside") << u"a\u00a0b"_s << u"a b"_s;
    QTest::newRow("blanks before a caption") << u"\u00a0\u00a0\u00a0Expense\t1"_s << u"   Expense\t1"_s;
}

void TestTextSearch::copied() {
    QFETCH(QString, text);
    ReportPage page;
    page.text = text;
    QTEST(CopiedText(page, 0, static_cast<std::uint32_t>(text.size())), "copied");
}

void TestTextSearch::words_data() {
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("word");
    QTest::newRow("at its beginning") << 0 << u"one"_s;
    QTest::newRow("inside") << 1 << u"one"_s;
    QTest::newRow("at its end") << 3 << u"one"_s;
    QTest::newRow("a sign between") << 4 << u"+"_s;
    QTest::newRow("an umlaut") << 6 << u"zwölf"_s;
    QTest::newRow("at the end of the text") << 11 << u"zwölf"_s;
    QTest::newRow("beyond it") << 99 << u"zwölf"_s;
}

void TestTextSearch::words() {
    QFETCH(int, position);
    const QString text = u"one + zwölf"_s;
    const TextRange word = WordAt(text, static_cast<std::uint32_t>(position));
    QTEST(text.mid(word.begin, word.end - word.begin), "word");
}

TEST_CLASS(TestTextSearch);
#include "TestTextSearch.moc"
