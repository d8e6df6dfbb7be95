#include "reports/aggregate/CSortKeys.h"

#include "reports/aggregate/ReportsFixture.h"

#include <QRandomGenerator>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

using TimeChange = void (*)(CTRecord&);
using ExpenseChange = void (*)(CERecord&);
using Keys = QList<SortKey>;

constexpr int kUp = 1, kDown = -1;

}  // namespace

Q_DECLARE_METATYPE(TimeChange)
Q_DECLARE_METATYPE(ExpenseChange)

/// Each record is called by its notes: a, b, c and so on in the order in which they stand before the sort.
class TestCSortKeys : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadTexts()); }
    void Times_data();
    void Times();
    void Expenses_data();
    void Expenses();
    void ManyRecordsAreInOrder();
    void TheSortIsTheOneFromTheTopDown();
    void AnotherOrderBefore();
    void FewRecords();
};

namespace {

template <class Record>
std::vector<const Record*> SortedRecords(const std::vector<Record>& records, const Keys& keys) {
    CSortKeys sortKeys(Record().Kind(), keys);
    for (const Record& record : records) sortKeys.Add(record);
    std::vector<const Record*> sorted;
    for (const std::uint32_t place : sortKeys.Order()) sorted.push_back(&records[place]);
    return sorted;
}

template <class Record>
QString Sorted(std::vector<Record>& records, const Keys& keys) {
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i].notes = QChar(static_cast<char16_t>(u'a' + i));
    QString names;
    for (const Record* record : SortedRecords(records, keys)) names += record->notes;
    return names;
}

void StartAt(CTRecord& record, int hour, int minute, bool isPm) {
    record.startHour = hour;
    record.startMinute = minute;
    record.startIsPm = isPm;
}

}  // namespace

void TestCSortKeys::Times_data() {
    QTest::addColumn<QList<TimeChange>>("records");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("sorted");
    using Records = QList<TimeChange>;
    const Records days = {[](CTRecord& r) { r.date.Set(3, 1, 2026); },
                          [](CTRecord& r) { r.date.Set(12, 31, 2025); }, [](CTRecord&) {},
                          [](CTRecord& r) { r.date.Set(2, 28, 2026); }};
    QTest::newRow("by day; one without a day goes first") << days << Keys{{FieldId::Date, kUp}} << u"cbda"_s;
    QTest::newRow("by day, the latest first") << days << Keys{{FieldId::Date, kDown}} << u"adbc"_s;
    QTest::newRow("without keys the order stands") << days << Keys{} << u"abcd"_s;
    QTest::newRow("a direction of 0 sorts nothing") << days << Keys{{FieldId::Date, 0}} << u"abcd"_s;
    QTest::newRow("31 February is 3 March")
        << Records{[](CTRecord& r) { r.date.Set(3, 3, 2026); }, [](CTRecord& r) { r.date.Set(2, 31, 2026); },
                   [](CTRecord& r) { r.date.Set(3, 2, 2026); }}
        << Keys{{FieldId::Date, kUp}} << u"cab"_s;

    const Records texts = {[](CTRecord& r) { r.item1 = u"beta"_s; },
                           [](CTRecord& r) { r.item1 = u"ALPHA"_s; },
                           [](CTRecord& r) { r.item1 = u"Beta"_s; },
                           [](CTRecord& r) { r.item1 = u"alpha"_s; }, [](CTRecord&) {}};
    QTest::newRow("texts without regard to case; equal ones keep their order")
        << texts << Keys{{FieldId::TimeItem1, kUp}} << u"ebdac"_s;
    QTest::newRow("texts downward; equal ones keep their order")
        << texts << Keys{{FieldId::TimeItem1, kDown}} << u"acbde"_s;
    QTest::newRow("letters go by their numbers: ä behind z")
        << Records{[](CTRecord& r) { r.item1 = u"Ärzte"_s; }, [](CTRecord& r) { r.item1 = u"zoo"_s; }}
        << Keys{{FieldId::TimeItem1, kUp}} << u"ba"_s;
    QTest::newRow("each item has its own text")
        << Records{[](CTRecord& r) { r.item5 = u"b"_s; }, [](CTRecord& r) { r.item5 = u"a"_s; }}
        << Keys{{FieldId::TimeItem5, kUp}} << u"ba"_s;
    QTest::newRow("notes sort nothing") << texts << Keys{{FieldId::TimeNotes, kDown}} << u"abcde"_s;

    const Records spans = {[](CTRecord& r) { r.spans.duration.Set(2, 0); },
                           [](CTRecord& r) { r.spans.duration.Set(1, 30); },
                           [](CTRecord& r) { r.spans.duration.Set(10, 0); }};
    QTest::newRow("spans by their minutes") << spans << Keys{{FieldId::Duration, kUp}} << u"bac"_s;
    QTest::newRow("one without a span equals all others")
        << Records{[](CTRecord& r) { r.spans.duration.Set(2, 0); }, [](CTRecord&) {},
                   [](CTRecord& r) { r.spans.duration.Set(1, 0); }}
        << Keys{{FieldId::Duration, kUp}} << u"cab"_s;
    QTest::newRow("without a span the next key decides")
        << Records{[](CTRecord& r) {
                       r.spans.duration.Set(2, 0);
                       r.item1 = u"b"_s;
                   },
                   [](CTRecord& r) { r.item1 = u"a"_s; }}
        << Keys{{FieldId::Duration, kUp}, {FieldId::TimeItem1, kUp}} << u"ba"_s;
    QTest::newRow("breaks") << Records{[](CTRecord& r) { r.spans.breakTime.Set(0, 30); },
                                       [](CTRecord& r) { r.spans.breakTime.Set(0, 15); }}
                            << Keys{{FieldId::Break, kUp}} << u"ba"_s;
    QTest::newRow("net times") << Records{[](CTRecord& r) { r.spans.effective.Set(0, 30); },
                                          [](CTRecord& r) { r.spans.effective.Set(0, 15); }}
                               << Keys{{FieldId::Effective, kUp}} << u"ba"_s;

    const Records starts = {[](CTRecord&) {}, [](CTRecord& r) { StartAt(r, 12, 30, true); },
                            [](CTRecord& r) { StartAt(r, 11, 0, true); },
                            [](CTRecord& r) { StartAt(r, 9, 15, false); },
                            [](CTRecord& r) { StartAt(r, 12, 10, false); }};
    QTest::newRow("half past noon comes after eleven at night, ten past midnight at noon, no start last")
        << starts << Keys{{FieldId::Start, kUp}} << u"decba"_s;
    QTest::newRow("no start goes first downward") << starts << Keys{{FieldId::Start, kDown}} << u"abced"_s;
    QTest::newRow("ends") << Records{[](CTRecord& r) { r.endHour = 5; }, [](CTRecord& r) { r.endHour = 4; }}
                          << Keys{{FieldId::End, kUp}} << u"ba"_s;

    const Records money = {[](CTRecord& r) { r.rate.Set(20.0F); }, [](CTRecord&) {},
                           [](CTRecord& r) { r.rate.Set(0.0F); }, [](CTRecord& r) { r.rate.Set(20.0F); }};
    QTest::newRow("rates as numbers; none is -1") << money << Keys{{FieldId::TimeRate, kUp}} << u"bcad"_s;
    QTest::newRow("rates downward") << money << Keys{{FieldId::TimeRate, kDown}} << u"adcb"_s;
    QTest::newRow("amounts") << Records{[](CTRecord& r) { r.amount.Set(9.0F); },
                                        [](CTRecord& r) { r.amount.Set(10.0F); },
                                        [](CTRecord& r) { r.amount.Set(8.0F); }}
                             << Keys{{FieldId::TimeAmount, kUp}} << u"cab"_s;

    const Records flags = {[](CTRecord&) {}, [](CTRecord& r) { r.isBillable = true; }, [](CTRecord&) {},
                           [](CTRecord& r) { r.isBillable = true; }};
    QTest::newRow("a set flag goes first") << flags << Keys{{FieldId::Billable, kUp}} << u"bdac"_s;
    QTest::newRow("a set flag goes last downward") << flags << Keys{{FieldId::Billable, kDown}} << u"acbd"_s;
    QTest::newRow("billed") << Records{[](CTRecord&) {}, [](CTRecord& r) { r.isBilled = true; }}
                            << Keys{{FieldId::Billed, kUp}} << u"ba"_s;

    const Records two = {[](CTRecord& r) {
                             r.item1 = u"b"_s;
                             r.date.Set(1, 1, 2026);
                         },
                         [](CTRecord& r) {
                             r.item1 = u"a"_s;
                             r.date.Set(1, 1, 2026);
                         },
                         [](CTRecord& r) {
                             r.item1 = u"A"_s;
                             r.date.Set(1, 2, 2026);
                         },
                         [](CTRecord& r) {
                             r.item1 = u"B"_s;
                             r.date.Set(1, 2, 2026);
                         }};
    QTest::newRow("the second key decides where the first is equal")
        << two << Keys{{FieldId::TimeItem1, kUp}, {FieldId::Date, kDown}} << u"cbda"_s;
    QTest::newRow("three keys") << two
                                << Keys{{FieldId::Billable, kUp},
                                        {FieldId::Billed, kUp},
                                        {FieldId::TimeItem1, kUp}}
                                << u"bcad"_s;
    QTest::newRow("a direction of 2 decides, but nothing is less")
        << two << Keys{{FieldId::TimeItem1, 2}, {FieldId::Date, kUp}} << u"abcd"_s;
    QTest::newRow("a key of expenses sorts nothing")
        << two << Keys{{FieldId::ExpenseItem1, kUp}} << u"abcd"_s;
}

void TestCSortKeys::Times() {
    QFETCH(QList<TimeChange>, records);
    QFETCH(Keys, keys);
    std::vector<CTRecord> times;
    for (const TimeChange change : records) change(times.emplace_back());
    QTEST(Sorted(times, keys), "sorted");
}

void TestCSortKeys::Expenses_data() {
    QTest::addColumn<QList<ExpenseChange>>("records");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("sorted");
    using Records = QList<ExpenseChange>;
    QTest::newRow("days") << Records{[](CERecord& r) { r.date.Set(2, 1, 2026); },
                                     [](CERecord& r) { r.date.Set(1, 1, 2026); }}
                          << Keys{{FieldId::Date, kUp}} << u"ba"_s;
    QTest::newRow("amounts, also below zero; none is -1")
        << Records{[](CERecord& r) { r.amount.Set(5.0F); }, [](CERecord&) {},
                   [](CERecord& r) { r.amount.Set(-3.0F); }}
        << Keys{{FieldId::ExpenseAmount, kUp}} << u"cba"_s;
    QTest::newRow("texts") << Records{[](CERecord& r) { r.item3 = u"b"_s; },
                                      [](CERecord& r) { r.item3 = u"A"_s; }}
                           << Keys{{FieldId::ExpenseItem3, kUp}} << u"ba"_s;
    QTest::newRow("distances as numbers, not as texts")
        << Records{[](CERecord& r) { r.distance.Set(10.0F); }, [](CERecord& r) { r.distance.Set(9.0F); },
                   [](CERecord&) {}}
        << Keys{{FieldId::Distance, kUp}} << u"cba"_s;
    const Records flags = {[](CERecord&) {}, [](CERecord& r) { r.flag1 = r.flag5 = true; }};
    QTest::newRow("the first flag") << flags << Keys{{FieldId::Flag1, kUp}} << u"ba"_s;
    QTest::newRow("the second flag") << Records{[](CERecord&) {}, [](CERecord& r) { r.flag2 = true; }}
                                     << Keys{{FieldId::Flag2, kUp}} << u"ba"_s;
    QTest::newRow("the third flag") << Records{[](CERecord&) {}, [](CERecord& r) { r.flag3 = true; }}
                                    << Keys{{FieldId::Flag3, kUp}} << u"ba"_s;
    QTest::newRow("the fourth flag") << Records{[](CERecord&) {}, [](CERecord& r) { r.flag4 = true; }}
                                     << Keys{{FieldId::Flag4, kUp}} << u"ba"_s;
    QTest::newRow("the fifth flag can be chosen and sorts nothing")
        << flags << Keys{{FieldId::Flag5, kUp}} << u"ab"_s;
    QTest::newRow("the rate can be chosen and sorts nothing")
        << Records{[](CERecord& r) { r.rate.Set(2.0F); }, [](CERecord& r) { r.rate.Set(1.0F); }}
        << Keys{{FieldId::ExpenseRate, kUp}} << u"ab"_s;
    QTest::newRow("a key of times sorts nothing") << flags << Keys{{FieldId::Duration, kDown}} << u"ab"_s;
}

void TestCSortKeys::Expenses() {
    QFETCH(QList<ExpenseChange>, records);
    QFETCH(Keys, keys);
    std::vector<CERecord> expenses;
    for (const ExpenseChange change : records) change(expenses.emplace_back());
    QTEST(Sorted(expenses, keys), "sorted");
}

/// 2,000 records by text, day and amount: as std::stable_sort has them, since these comparisons are an order.
void TestCSortKeys::ManyRecordsAreInOrder() {
    QRandomGenerator random(42);
    std::vector<CTRecord> records(2000);
    for (CTRecord& record : records) {
        record.item2 = QString(QChar(static_cast<char16_t>(u'a' + random.bounded(5))));
        record.date.Set(1, 1 + random.bounded(28), 2026);
        record.amount.Set(static_cast<float>(random.bounded(4)));
        record.GenUnique();
    }
    std::vector<const CTRecord*> expected;
    for (const CTRecord& record : records) expected.push_back(&record);
    std::ranges::stable_sort(expected, {}, [](const CTRecord* record) {
        return std::tuple(record->item2, -record->date.day, record->amount.value);
    });
    const Keys keys = {{FieldId::TimeItem2, kUp}, {FieldId::Date, kDown}, {FieldId::TimeAmount, kUp}};
    QVERIFY(SortedRecords(records, keys) == expected);
}

/// Spans 3, none, 2, 1: the left half is (3, none), the right one (1, 2). 1 goes before 3, so does 2; a sort
/// that compared each with its neighbour alone would leave them behind the one without a span.
/// Five of them, 5 none 4 3 none: the left half has three, since (0 + 4) / 2 is its last place.
void TestCSortKeys::TheSortIsTheOneFromTheTopDown() {
    const auto sortedSpans = [](const QList<int>& hours) {
        std::vector<CTRecord> records(static_cast<std::size_t>(hours.size()));
        for (std::size_t i = 0; i < records.size(); ++i)
            records[i].spans.duration.Set(hours[static_cast<qsizetype>(i)], 0);
        return Sorted(records, {{FieldId::Duration, kUp}});
    };
    QCOMPARE(sortedSpans({3, -1, 2, 1}), u"dcab"_s);
    QCOMPARE(sortedSpans({5, -1, 4, 3, -1}), u"dcabe"_s);
    QCOMPARE(sortedSpans({4, 3, -1, 1, 2}), u"debac"_s);
}

void TestCSortKeys::AnotherOrderBefore() {
    CSortKeys keys(RecordKind::Time, {{FieldId::Billable, kUp}});
    CTRecord billable, other;
    billable.isBillable = true;
    for (const CTRecord* record : {&other, &billable, &other, &billable}) keys.Add(*record);
    const std::vector<std::uint32_t> before = {3, 2, 1, 0};
    const std::vector<std::uint32_t> expected = {3, 1, 2, 0};
    QVERIFY(keys.Order(before) == expected);
}

void TestCSortKeys::FewRecords() {
    std::vector<CTRecord> none, one(1);
    QCOMPARE(Sorted(none, {{FieldId::Date, kUp}}), QString());
    QCOMPARE(Sorted(one, {{FieldId::Date, kUp}}), u"a"_s);
}

TEST_CLASS(TestCSortKeys);
#include "TestCSortKeys.moc"
