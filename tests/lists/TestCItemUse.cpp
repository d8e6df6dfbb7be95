#include "lists/CItemUse.h"

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

class TestCItemUse : public QObject {
    Q_OBJECT

    template <class Record>
    static void Add(TestHome& home, const std::function<void(Record&)>& fill) {
        Record record;
        record.Reset();
        record.GenUnique();
        record.date.Set(11, 19, 2026);
        fill(record);
        QVERIFY(home.store->InsertRecord(record, Commit::Now));
    }
    static int UseOf(TestHome& home, int list, const QString& item) {
        const std::optional<CItemUse> use = CItemUse::Count(*home.store, list);
        return use ? use->Of(item) : -1;
    }

 private Q_SLOTS:
    void NoRecords();
    void OfTexts_data();
    void OfTexts();
    void OfNumbers();
    void ComparesExactly();
    void MoreThanSixteenBits();
    void AStoreThatCanNotBeRead();
};

void TestCItemUse::NoRecords() {
    TestHome home;
    QCOMPARE(UseOf(home, 16, u"Acme"_s), 0);
}

void TestCItemUse::OfTexts_data() {
    QTest::addColumn<int>("list");
    QTest::addColumn<int>("used");
    QTest::newRow("client, of times and expenses") << 16 << 3;
    QTest::newRow("project") << 17 << 3;
    QTest::newRow("activity, of times") << 32 << 2;
    QTest::newRow("cost centre, of times") << 33 << 2;
    QTest::newRow("description, of expenses") << 68 << 1;
    QTest::newRow("payment, of expenses") << 71 << 1;
    QTest::newRow("currency, of both") << 72 << 3;
    QTest::newRow("a list of numbers") << 34 << 0;
}

void TestCItemUse::OfTexts() {
    QFETCH(int, list);
    TestHome home;
    for (int i = 0; i < 2; ++i)
        Add<CTRecord>(home, [](CTRecord& record) {
            record.item1 = record.item2 = record.item3 = record.item4 = record.item5 = u"X y"_s;
        });
    Add<CERecord>(home, [](CERecord& record) {
        record.item1 = record.item2 = record.item3 = record.item4 = record.item5 = u"X y"_s;
    });
    Add<CTRecord>(home, [](CTRecord&) {});
    QTEST(UseOf(home, list, u"X y"_s), "used");
    QCOMPARE(UseOf(home, list, u"X"_s), 0);
}

void TestCItemUse::OfNumbers() {
    TestHome home;
    Add<CTRecord>(home, [](CTRecord& record) {
        record.rate.Set(80.5F);
        record.amount.Set(100.0F);
    });
    Add<CERecord>(home, [](CERecord& record) {
        record.rate.Set(0.3F);
        record.amount.Set(100.0F);
        record.distance.Set(12.5F);
    });
    QCOMPARE(UseOf(home, 34, u"80.5"_s), 1);
    QCOMPARE(UseOf(home, 70, u"0.3"_s), 1);
    QCOMPARE(UseOf(home, 73, u"100"_s), 2);
    QCOMPARE(UseOf(home, 69, u"12.5"_s), 1);
    QCOMPARE(UseOf(home, 69, u"12.50"_s), 1);
    QCOMPARE(UseOf(home, 69, u"to the site"_s), 0);
}

/// As a rename looks for the records: "acme" isn't "Acme".
void TestCItemUse::ComparesExactly() {
    TestHome home;
    for (const QString& text : {u"Acme"_s, u"acme"_s, u"Acme "_s, u"O'Neil 5 %s Büro 😀"_s})
        Add<CTRecord>(home, [&text](CTRecord& record) { record.item1 = text; });
    QCOMPARE(UseOf(home, 16, u"Acme"_s), 1);
    QCOMPARE(UseOf(home, 16, u"O'Neil 5 %s Büro 😀"_s), 1);
}

void TestCItemUse::MoreThanSixteenBits() {
    TestHome home;
    Add<CTRecord>(home, [](CTRecord& record) { record.item1 = u"Acme"_s; });
    QVERIFY(home.manager.File().Execute("CREATE TEMP TABLE one AS SELECT * FROM time_velmarch"));
    QVERIFY(home.manager.File().Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<70000) "
        "INSERT INTO one SELECT one.* FROM one, n WHERE n.i>1"));
    QVERIFY(home.manager.File().Execute("UPDATE one SET identity=printf('%032X', rowid)"));
    QVERIFY(home.manager.File().Execute("DELETE FROM time_velmarch"));
    QVERIFY(home.manager.File().Execute("INSERT INTO time_velmarch SELECT * FROM one"));
    QCOMPARE(UseOf(home, 16, u"Acme"_s), 70000);
}

void TestCItemUse::AStoreThatCanNotBeRead() {
    TestHome home;
    QVERIFY(home.manager.File().Execute("DROP TABLE expense_velmarch"));
    home.prompt.ExpectTold(Text::QueryFailed);
    QCOMPARE(UseOf(home, 16, u"Acme"_s), -1);
    home.prompt.Finish();
}

TEST_CLASS(TestCItemUse);
#include "TestCItemUse.moc"
