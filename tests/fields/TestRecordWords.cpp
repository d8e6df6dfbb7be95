#include "fields/RecordWords.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestRecordWords final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Matches_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("time");
        QTest::addColumn<bool>("expense");
        QTest::newRow("no words") << u" "_s << true << true;
        QTest::newRow("the first item") << u"hollis"_s << true << false;
        QTest::newRow("the fifth item") << u"eur"_s << true << true;
        QTest::newRow("the notes") << u"YEAST"_s << true << false;
        QTest::newRow("one word in an item, another in the notes") << u"yeast bakery"_s << true << false;
        QTest::newRow("words in any order, over items") << u"oven bak"_s << true << false;
        QTest::newRow("one of the words is nowhere") << u"bakery flour"_s << false << false;
        QTest::newRow("notes of an expense") << u"receipt taxi"_s << false << true;
        QTest::newRow("a reading of the odometer is no text") << u"1000"_s << false << false;
    }
    void Matches() {
        CTRecord time;
        time.item1 = u"Hollis Bakery"_s;
        time.item2 = u"Oven"_s;
        time.item5 = u"EUR"_s;
        time.notes = u"Smelled of yeast"_s;
        CERecord expense;
        expense.item3 = u"Taxi"_s;
        expense.item5 = u"EUR"_s;
        expense.notes = u"receipt\nlost"_s;
        expense.odometerStart = u"1000"_s;
        QFETCH(QString, words);
        const RecordWords wanted(words);
        QTEST(wanted.Matches(time), "time");
        QTEST(wanted.Matches(expense), "expense");
    }

    /// Texts that repeat are read once, by where they lie; one that was changed since lies elsewhere.
    void ChangedText() {
        CTRecord record;
        record.item1 = u"Alpha"_s;
        const RecordWords wanted(u"alpha"_s);
        QVERIFY(wanted.Matches(record));
        record.item1[0] = u'B';
        QVERIFY(!wanted.Matches(record));
        record.item1 = u"Alpha"_s;
        QVERIFY(wanted.Matches(record));
    }
};

TEST_CLASS(TestRecordWords);
#include "TestRecordWords.moc"
