#include "changes/DemoData.h"

#include "calendar/CalendarMath.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The bytes of all stored records of a kind in the order of their identities.
QList<QByteArray> ContentOf(TestHome& home, RecordKind kind) {
    QList<QByteArray> content;
    if (!home.store->Query(home.store->SelectAll(kind) + u" ORDER BY identity"_s)) return content;
    QString id;
    for (auto record = NewRecord(kind); home.store->NextRecord(*record, id, true); record = NewRecord(kind))
        content.append(record->ToBytes());
    home.manager.CloseQuery();
    return content;
}

int DayOf(const RecordDate& date) {
    return DayNumber(date.month, date.day, date.year);
}

}  // namespace

class TestDemoData : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ShareOut_data() {
        QTest::addColumn<int>("records");
        QTest::addColumn<int>("times");
        QTest::addColumn<int>("expenses");
        QTest::newRow("none") << 0 << 0 << 0;
        QTest::newRow("one") << 1 << 1 << 0;
        QTest::newRow("the tenth is an expense") << 10 << 9 << 1;
        QTest::newRow("25") << 25 << 23 << 2;
        QTest::newRow("a million") << 1000000 << 900000 << 100000;
    }
    void ShareOut() {
        QFETCH(int, records);
        const DemoCounts counts = ::ShareOut(records);
        QTEST(counts.times, "times");
        QTEST(counts.expenses, "expenses");
    }

    void Fill_data() {
        QTest::addColumn<int>("times");
        QTest::addColumn<int>("expenses");
        QTest::newRow("nothing but list items") << 0 << 0;
        QTest::newRow("one") << 1 << 0;
        QTest::newRow("a few") << 45 << 5;
        QTest::newRow("more than a batch") << 10500 << 20;
    }
    void Fill() {
        QFETCH(int, times);
        QFETCH(int, expenses);
        TestHome home;
        QCOMPARE(FillWithDemoData(*home.document, home.clock, {times, expenses}, 1), DemoOutcome::Filled);
        QVERIFY(!home.manager.HasOpenChanges());
        QCOMPARE(ContentOf(home, RecordKind::Time).size(), times);
        QCOMPARE(ContentOf(home, RecordKind::Expense).size(), expenses);
        QVERIFY(ContentOf(home, RecordKind::PulldownItem).size() > 60);
    }

    void RecordsArePlausible() {
        TestHome home;
        QCOMPARE(FillWithDemoData(*home.document, home.clock, {2000, 0}, 7), DemoOutcome::Filled);
        QVERIFY(home.store->Query(home.store->SelectAll(RecordKind::Time) + u" ORDER BY identity"_s));
        CTRecord record;
        QString id;
        int last = 0;
        int withTimes = 0;
        while (home.store->NextRecord(record, id, true)) {
            const int day = DayOf(record.date);
            QVERIFY(day >= last);
            QVERIFY(day <= DayNumber(11, 19, 2026));  // the clock of the test
            last = day;
            QVERIFY(record.spans.duration.IsSet());
            QVERIFY(!record.item1.isEmpty() && !record.item2.isEmpty());
            float amount = 0;
            QCOMPARE(record.GetAmount(amount), record.isBillable);
            withTimes += record.HasStart() && record.HasEnd() ? 1 : 0;
        }
        QCOMPARE(last, DayNumber(11, 19, 2026));
        QVERIFY(withTimes > 1600 && withTimes < 2000);
    }

    /// 30 years of working days hold at most 7,800 days, so records beyond five a day share them.
    void ManyRecordsStayWithinALifetime() {
        TestHome home;
        QCOMPARE(FillWithDemoData(*home.document, home.clock, {60000, 0}, 1), DemoOutcome::Filled);
        QVERIFY(home.store->Query(home.store->SelectAll(RecordKind::Time) + u" ORDER BY identity"_s));
        CTRecord record;
        QString id;
        QVERIFY(home.store->NextRecord(record, id, false));
        QVERIFY(record.date.year >= 1996);
        home.manager.CloseQuery();
    }

    void TheSameSeedGivesTheSameRecords_data() {
        QTest::addColumn<std::uint32_t>("seed");
        QTest::addColumn<bool>("same");
        QTest::newRow("the same seed") << std::uint32_t{1} << true;
        QTest::newRow("another seed") << std::uint32_t{2} << false;
    }
    void TheSameSeedGivesTheSameRecords() {
        QFETCH(std::uint32_t, seed);
        TestHome first, second;
        QCOMPARE(FillWithDemoData(*first.document, first.clock, {90, 10}, 1), DemoOutcome::Filled);
        QCOMPARE(FillWithDemoData(*second.document, second.clock, {90, 10}, seed), DemoOutcome::Filled);
        QTEST(ContentOf(first, RecordKind::Time) == ContentOf(second, RecordKind::Time), "same");
        QTEST(ContentOf(first, RecordKind::Expense) == ContentOf(second, RecordKind::Expense), "same");
    }

    void AStoreThatHoldsSomethingIsLeftAlone_data() {
        QTest::addColumn<RecordKind>("kind");
        QTest::newRow("a time record") << RecordKind::Time;
        QTest::newRow("an expense") << RecordKind::Expense;
        QTest::newRow("a list item") << RecordKind::PulldownItem;
    }
    void AStoreThatHoldsSomethingIsLeftAlone() {
        QFETCH(RecordKind, kind);
        TestHome home;
        const std::unique_ptr<CVORec> present = NewRecord(kind);
        present->GenUnique();
        QVERIFY(home.store->InsertRecord(*present, Commit::Now));
        QCOMPARE(FillWithDemoData(*home.document, home.clock, {10, 10}, 1), DemoOutcome::NotEmpty);
        QCOMPARE(ContentOf(home, RecordKind::Time).size(), kind == RecordKind::Time ? 1 : 0);
    }

    void ProgressIsToldPerBatch() {
        TestHome home;
        QList<int> told;
        QCOMPARE(FillWithDemoData(*home.document, home.clock, {20000, 5}, 1,
                                  [&told](int written) { told.append(written); }),
                 DemoOutcome::Filled);
        QCOMPARE(told, QList<int>({10000, 20000, 20005}));
    }
};

TEST_CLASS(TestDemoData);
#include "TestDemoData.moc"
