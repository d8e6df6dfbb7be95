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
        QTest::newRow("without the accent") << u"muller"_s << true;
        QTest::newRow("with an accent that isn't there") << u"clïent"_s << true;
        QTest::newRow("an accent on its own letter") << u"mu\u0308ller"_s << true;
        QTest::newRow("an accent alone") << u"\u0308"_s << false;
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

    void Accents_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("found");
        QTest::newRow("each on a letter of its own") << u"müller"_s << u"Mu\u0308ller"_s << true;
        QTest::newRow("two on one letter") << u"nu"_s << u"N\u01D8"_s << true;
        QTest::newRow("one composed, one not") << u"\u01D8"_s << u"u\u0308\u0301"_s << true;
        QTest::newRow("the ring of a letter") << u"angstrom"_s << u"\u212Bngstr\u00F6m"_s << true;
        QTest::newRow("a Greek letter") << u"αθηνα"_s << u"Αθήνα"_s << true;
        QTest::newRow("a stroke is no accent") << u"lodz"_s << u"Łódź"_s << false;
        QTest::newRow("a letter of another script keeps its mark") << u"\u304B"_s << u"\u304C"_s << false;
        QTest::newRow("another letter between") << u"mler"_s << u"Müller"_s << false;
    }
    void Accents() {
        QFETCH(QString, word);
        QFETCH(QString, text);
        QTEST(WordMatcher(word).HasAll(text), "found");
    }

    /// What is marked in a list takes the accents along.
    void PlacesWithAccents() {
        using Places = std::vector<WordMatcher::Place>;
        QCOMPARE(WordMatcher(u"mu"_s).PlacesIn(u"a Mu\u0308ller"_s), (Places{{2, 3}}));
        QCOMPARE(WordMatcher(u"mull"_s).PlacesIn(u"Müller"_s), (Places{{0, 4}}));
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
