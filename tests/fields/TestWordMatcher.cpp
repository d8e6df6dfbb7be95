#include "fields/WordMatcher.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestWordMatcher final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void HasAll_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("found");
        QTest::newRow("no words") << u""_s << true;
        QTest::newRow("blanks alone") << u"   "_s << true;
        QTest::newRow("parts of words in any order") << u"sons cli"_s << true;
        QTest::newRow("the last letters") << u"d."_s << true;
        QTest::newRow("longer than the text") << u"Client Müller & Sons Ltd. and more"_s << false;
        QTest::newRow("umlauts in any case") << u"MÜLLER"_s << true;
        QTest::newRow("one of two isn't there") << u"client daughters"_s << false;
        QTest::newRow("a percent sign is no pattern") << u"%"_s << false;
        QTest::newRow("a character of two units") << u"\U0001F382"_s << true;
        QTest::newRow("half of a beginning that comes twice") << u"aab"_s << true;
        QTest::newRow("letters beyond the first plane in any case") << u"\U00010400"_s << true;
    }
    void HasAll() {
        QFETCH(QString, words);
        QTEST(WordMatcher(words).HasAll(u"Client Müller & Sons aaab \U0001F382 \U00010428 Ltd."_s), "found");
    }

    /// Each word has its own bit, so that words found in different texts can be put together.
    void TheWordsThatAreThere() {
        const WordMatcher matcher(u"alpha beta gamma"_s);
        QCOMPARE(matcher.All(), WordMatcher::Words{7});
        QCOMPARE(matcher.In(u"Beta"_s), WordMatcher::Words{2});
        QCOMPARE(matcher.In(u"gamma, ALPHA"_s), WordMatcher::Words{5});
        QCOMPARE(matcher.In({}), WordMatcher::Words{0});
        QVERIFY(!matcher.IsEmpty());
        QVERIFY(WordMatcher(u" "_s).IsEmpty());
    }

    void ManyWords() {
        QStringList words;
        for (int i = 0; i < 70; ++i) words.append(u"w%1"_s.arg(i));
        const WordMatcher matcher(words.join(u' '));
        QCOMPARE(matcher.All(), ~WordMatcher::Words{0});
        QVERIFY(matcher.HasAll(words.join(u'-')));
        words.removeAt(40);
        QVERIFY(!matcher.HasAll(words.join(u'-')));
    }

    void Places_data() {
        using Places = std::vector<WordMatcher::Place>;
        QTest::addColumn<QString>("words");
        QTest::addColumn<Places>("places");
        QTest::newRow("no words") << u""_s << Places{};
        QTest::newRow("one") << u"NET"_s << Places{{1, 3}};
        QTest::newRow("in order, whatever the order of the words") << u"work pl"_s << Places{{4, 4}, {9, 2}};
        QTest::newRow("words that touch are one place") << u"net work"_s << Places{{1, 7}};
        QTest::newRow("words that overlap are one place") << u"netw twor"_s << Places{{1, 6}};
        QTest::newRow("all places of a word") << u"n"_s << Places{{1, 1}, {12, 1}};
        QTest::newRow("one that isn't there") << u"x"_s << Places{};
    }
    void Places() {
        QFETCH(QString, words);
        QTEST(WordMatcher(words).PlacesIn(u"*Network plan"_s), "places");
    }
};

TEST_CLASS(TestWordMatcher);
#include "TestWordMatcher.moc"
