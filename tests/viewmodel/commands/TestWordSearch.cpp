#include "viewmodel/commands/WordSearch.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestWordSearch final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void AllWords_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("found");
        QTest::newRow("no words") << "" << true;
        QTest::newRow("blanks alone") << "   " << true;
        QTest::newRow("one word") << "client" << true;
        QTest::newRow("parts of words in any order") << "sons cli" << true;
        QTest::newRow("one word isn't there") << "client daughters" << false;
        QTest::newRow("signs are letters like others") << "& ." << true;
        QTest::newRow("a sign that isn't there") << "*" << false;
        QTest::newRow("umlauts in any case") << "MÜLLER" << true;
    }
    void AllWords() {
        QFETCH(QString, words);
        QTEST(HasAllWords(u"Client Müller & Sons Ltd."_s, words), "found");
    }

    void InTheOrderGiven() {
        const QStringList texts{u"Alpha"_s, u"Beta"_s, u"Alphabet"_s, u"Gamma"_s};
        QCOMPARE(FindByWords(texts, u"alpha"_s), (std::vector{0, 2}));
        QCOMPARE(FindByWords(texts, u"a"_s), (std::vector{0, 1, 2, 3}));
        QCOMPARE(FindByWords(texts, u"delta"_s), std::vector<int>());
        QCOMPARE(FindByWords(texts, {}), (std::vector{0, 1, 2, 3}));
    }

    void BestFirst_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("expected");
        const QString all =
            u"New record, Start timer, Restart all, New with timer, Restart, Edit, Timers only"_s;
        QTest::newRow("no words: as given") << "" << all;
        QTest::newRow("what begins so comes first") << "timer"
                                                    << "Timers only, Start timer, New with timer, Edit";
        QTest::newRow("the text itself before what begins so") << "RESTART"
                                                               << "Restart, Restart all";
        QTest::newRow("words that begin before those within") << "start"
                                                              << "Start timer, Restart all, Restart";
        QTest::newRow("in any order") << "timer new"
                                      << "New with timer";
        QTest::newRow("by the place alone") << "edit timer"
                                            << "Edit";
        QTest::newRow("blanks around") << "  new  "
                                       << "New record, New with timer";
        QTest::newRow("nothing") << "xyz"
                                 << "";
    }
    void BestFirst() {
        QFETCH(QString, words);
        const std::vector<PlacedText> texts{
            {u"New record"_s, u"Record"_s},  {u"Start timer"_s, u"Clock"_s},
            {u"Restart all"_s, u"Record"_s}, {u"New with timer"_s, u"Record"_s},
            {u"Restart"_s, u"Record"_s},     {u"Edit"_s, u"Timer"_s},
            {u"Timers only"_s, u"Filter"_s}};
        QStringList found;
        for (const int place : FindBest(texts, words)) found << texts[static_cast<std::size_t>(place)].text;
        QTEST(found.join(u", "_s), "expected");
    }
};

TEST_CLASS(TestWordSearch);
#include "TestWordSearch.moc"
