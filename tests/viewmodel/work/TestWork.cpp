#include "viewmodel/work/Work.h"

#include "WorkRecords.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

namespace {

float RateOf(const CTRecord& record) {
    float rate = 0.0F;
    return record.GetRate(rate) ? rate : -1.0F;
}

}  // namespace

class TestWork final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void words_data() {
        QTest::addColumn<QString>("items");
        QTest::addColumn<QString>("notes");
        QTest::addColumn<QString>("words");
        QTest::newRow("all items, in their order")
            << u"A|Alpha|Design|Office"_s << u""_s << u"A · Alpha · Design · Office"_s;
        QTest::newRow("gaps are left out") << u"A||Design|"_s << u""_s << u"A · Design"_s;
        QTest::newRow("the notes come last") << u"A|||"_s << u"the header"_s << u"A · the header"_s;
        QTest::newRow("of the notes the first line") << u"|||"_s << u"\n first \nsecond"_s << u"first"_s;
        QTest::newRow("nothing") << u"|||"_s << u" \n"_s << u""_s;
    }
    void words() {
        QFETCH(QString, items);
        QFETCH(QString, notes);
        const QStringList texts = items.split(u'|');
        Work work{.items = {texts[0], texts[1], texts[2], texts[3]}, .notes = notes};
        QTEST(WorkWords(work), "words");
    }

    void aRecordAndBack() {
        CTRecord record;
        record.Reset();
        const Work work{.items = {u"A"_s, u"Alpha"_s, u"Design"_s, u"Office"_s}, .notes = u"the header"_s};
        PutWork(work, record);
        QCOMPARE(record.item1, u"A"_s);
        QCOMPARE(record.item4, u"Office"_s);
        QVERIFY(record.item5.isEmpty());
        QCOMPARE(WorkOf(record), work);
        QVERIFY(KindOfWork(record).notes.isEmpty());
        QCOMPARE(ListOfWorkItem(0), 16);
        QCOMPARE(ListOfWorkItem(3), 33);
    }

    void termsFillWhatIsOpen() {
        CTRecord record;
        record.Reset();
        PutTerms({.currency = u"EUR"_s, .isBillable = true, .rate = 80.0F}, record);
        QCOMPARE(record.item5, u"EUR"_s);
        QVERIFY(record.isBillable);
        QCOMPARE(RateOf(record), 80.0F);
        QVERIFY(record.GetAmountText().isEmpty());
        PutTerms({.currency = u"USD"_s, .isBillable = true, .rate = 20.0F}, record);
        QCOMPARE(record.item5, u"EUR"_s);
        QCOMPARE(RateOf(record), 80.0F);
    }

    void billableWithoutARate() {
        CTRecord record;
        record.Reset();
        PutTerms({.currency = {}, .isBillable = true, .rate = {}}, record);
        QVERIFY(record.isBillable);
        QVERIFY(record.GetRateText().isEmpty());
    }
};

TEST_CLASS(TestWork);
#include "TestWork.moc"
