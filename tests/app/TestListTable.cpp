#include "app/ListTable.h"

#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

class TestListTable : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void KnownLists() {
        const std::span<const int> known = ::KnownLists();
        QCOMPARE(known.size(), std::size_t{57});
        const QList<int> first(known.begin(), known.begin() + 11);
        QCOMPARE(first, QList<int>({16, 17, 34, 32, 33, 68, 69, 70, 71, 72, 73}));
        QCOMPARE(known[11], 99);
        QCOMPARE(known[42], 130);
        QCOMPARE(known[43], 128);  // for the second time
        QCOMPARE(known[44], 131);
        QCOMPARE(known[55], 142);
        QCOMPARE(known[56], 140);  // for the second time
        QCOMPARE(std::ranges::count(known, 128), 2);
        QCOMPARE(std::ranges::count(known, 140), 2);
    }

    void IsKnownList_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<bool>("isKnown");
        QTest::addColumn<bool>("isIgnored");
        QTest::newRow("clients") << 16 << true << false;
        QTest::newRow("amounts") << 73 << true << false;
        QTest::newRow("the first name of a field") << 99 << true << false;
        QTest::newRow("a list that stands twice") << 128 << true << false;
        QTest::newRow("the last name of a field") << 142 << true << false;
        QTest::newRow("143 is accepted and left out") << 143 << false << true;
        QTest::newRow("144 is accepted and left out") << 144 << false << true;
        QTest::newRow("145 is no list") << 145 << false << false;
        QTest::newRow("the choice of a flag is no list") << 35 << false << false;
        QTest::newRow("18 is no list") << 18 << false << false;
        QTest::newRow("98 is no list") << 98 << false << false;
        QTest::newRow("nothing") << 0 << false << false;
        QTest::newRow("below nothing") << -1 << false << false;
    }
    void IsKnownList() {
        QFETCH(int, list);
        QTEST(::IsKnownList(list), "isKnown");
        QTEST(IsIgnoredList(list), "isIgnored");
    }

    void IsRecordList_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<bool>("ofRecords");
        QTest::addColumn<bool>("ofNumbers");
        QTest::newRow("clients of both kinds") << 16 << true << false;
        QTest::newRow("projects of both kinds") << 17 << true << false;
        QTest::newRow("third item of times") << 32 << true << false;
        QTest::newRow("fourth item of times") << 33 << true << false;
        QTest::newRow("hourly rates are numbers") << 34 << false << true;
        QTest::newRow("third item of expenses") << 68 << true << false;
        QTest::newRow("distances are texts and no field") << 69 << false << false;
        QTest::newRow("distance rates are numbers") << 70 << false << true;
        QTest::newRow("fourth item of expenses") << 71 << true << false;
        QTest::newRow("fifth item of both kinds") << 72 << true << false;
        QTest::newRow("amounts are numbers") << 73 << false << true;
        QTest::newRow("a name of a field") << 109 << false << false;
        QTest::newRow("an unknown list") << 5 << false << false;
    }
    void IsRecordList() {
        QFETCH(int, list);
        QTEST(::IsRecordList(list), "ofRecords");
        QTEST(HoldsNumbers(list), "ofNumbers");
    }

    void FieldsOfLists_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("timeColumn");
        QTest::addColumn<QString>("expense");
        QTest::addColumn<QString>("expenseColumn");
        QTest::newRow("16") << 16 << u"t1"_s << u"item1"_s << u"e1"_s << u"item1"_s;
        QTest::newRow("17") << 17 << u"t2"_s << u"item2"_s << u"e2"_s << u"item2"_s;
        QTest::newRow("72") << 72 << u"t5"_s << u"item5"_s << u"e5"_s << u"item5"_s;
        QTest::newRow("32: times only") << 32 << u"t3"_s << u"item3"_s << QString() << QString();
        QTest::newRow("33: times only") << 33 << u"t4"_s << u"item4"_s << QString() << QString();
        QTest::newRow("68: expenses only") << 68 << QString() << QString() << u"e3"_s << u"item3"_s;
        QTest::newRow("71: expenses only") << 71 << QString() << QString() << u"e4"_s << u"item4"_s;
    }
    void FieldsOfLists() {
        QFETCH(int, list);
        CTRecord time;
        time.item1 = u"t1"_s;
        time.item2 = u"t2"_s;
        time.item3 = u"t3"_s;
        time.item4 = u"t4"_s;
        time.item5 = u"t5"_s;
        CERecord expense;
        expense.item1 = u"e1"_s;
        expense.item2 = u"e2"_s;
        expense.item3 = u"e3"_s;
        expense.item4 = u"e4"_s;
        expense.item5 = u"e5"_s;
        const ListRow* row = FindRecordList(list);
        QVERIFY(row);
        QTEST(row->timeField ? time.*row->timeField : QString(), "time");
        QTEST(row->timeField ? LoadText(CTRecord::ColumnOf(row->timeField)) : QString(), "timeColumn");
        QTEST(row->expenseField ? expense.*row->expenseField : QString(), "expense");
        QTEST(row->expenseField ? LoadText(CERecord::ColumnOf(row->expenseField)) : QString(),
              "expenseColumn");
    }

    void NormaliseNumber_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isNumber");
        QTest::addColumn<QString>("display");
        QTest::addColumn<float>("number");
        QTest::newRow("two spellings of one number: 1.50") << u"1.50"_s << true << u"1.5"_s << 1.5F;
        QTest::newRow("two spellings of one number: 1.5") << u"1.5"_s << true << u"1.5"_s << 1.5F;
        QTest::newRow("a whole number") << u"80"_s << true << u"80"_s << 80.0F;
        QTest::newRow("six digits stay") << u"123.456"_s << true << u"123.456"_s << 123.456F;
        QTest::newRow("the seventh is rounded") << u"123.4567"_s << true << u"123.457"_s << 123.457F;
        QTest::newRow("below nothing") << u"-2.250"_s << true << u"-2.25"_s << -2.25F;
        QTest::newRow("a word is refused") << u"much"_s << false << QString() << 0.0F;
        QTest::newRow("an empty text is refused") << u""_s << false << QString() << 0.0F;
    }
    void NormaliseNumber() {
        QFETCH(QString, typed);
        float number = 0.0F;
        QString display;
        QTEST(::NormaliseNumber(typed, number, display), "isNumber");
        QTEST(display, "display");
        QTEST(number, "number");
    }

    void NormaliseNumberFollowsTheRegion() {
        CRegionalInfo region;
        region.usesDotDecimal = false;
        region.decimalChar = u',';
        const RegionScope scope(region);
        float number = 0.0F;
        QString display;
        QVERIFY(::NormaliseNumber(u"1,50"_s, number, display));
        QCOMPARE(display, u"1,5"_s);
        QCOMPARE(number, 1.5F);
    }
};

TEST_CLASS(TestListTable);
#include "TestListTable.moc"
