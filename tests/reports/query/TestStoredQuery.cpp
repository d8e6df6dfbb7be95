#include "reports/query/StoredQuery.h"

#include "reports/ReportFixture.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kAny = u"(any)"_s;

TimeFilter FilterOf(const TimeQuery& query, const PeriodContext& context) {
    TimeFilter filter;
    ApplyQuery(query, context, filter);
    return filter;
}

TimeQuery WithPeriod(const PeriodContext& context, int row, const QString& start, const QString& end) {
    TimeQuery query;
    query.Reset(context);
    query.isPeriodOn = true;
    query.periodRow = row;
    query.startText = start;
    query.endText = end;
    return query;
}

}  // namespace

class TestStoredQuery final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void resetIsAnyOfEverything() {
        const ReportFixture fixture;
        TimeQuery time{{.matchCase = true, .isPeriodOn = true, .periodRow = 3}, 1, 0};
        time.Reset(fixture.Periods());
        QCOMPARE(time.items, (std::array<QString, 5>{kAny, kAny, kAny, kAny, kAny}));
        QCOMPARE(time.startText, u"11/19/2026"_s);
        QCOMPARE(time.endText, u"11/19/2026"_s);
        QVERIFY(!time.matchCase && !time.matchWhole && !time.isPeriodOn);
        QCOMPARE(time.periodRow, 0);
        QCOMPARE(time.billable, 100);
        QCOMPARE(time.billed, 100);
        ExpenseQuery expense;
        expense.amount = 5;
        expense.comparison = 1;
        expense.flags.fill(0);
        expense.Reset(fixture.Periods());
        QCOMPARE(expense.amount, -1.0F);
        QCOMPARE(expense.comparison, 3);
        QCOMPARE(expense.distance, 100);
        QCOMPARE(expense.flags, (std::array<int, 5>{100, 100, 100, 100, 100}));
        ExpenseFilter filter;
        ApplyQuery(expense, fixture.Periods(), filter);
        QVERIFY(filter == ExpenseFilter());
        QVERIFY(FilterOf(time, fixture.Periods()) == TimeFilter());
    }

    void criteriaOfTimes() {
        const ReportFixture fixture;
        TimeQuery query;
        query.Reset(fixture.Periods());
        query.items = {u"a"_s, kAny, u"c"_s, u"d"_s, u"e"_s};
        query.billable = 1;
        query.billed = 0;
        query.matchCase = true;
        query.matchWhole = true;
        const TimeFilter filter = FilterOf(query, fixture.Periods());
        QCOMPARE(filter.items, query.items);
        QCOMPARE(filter.billable, 1);
        QCOMPARE(filter.billed, 0);
        QCOMPARE(filter.exported, 100);
        QVERIFY(filter.matchCase && filter.matchWhole && !filter.isEnabled);
    }

    void criteriaOfExpenses() {
        const ReportFixture fixture;
        ExpenseQuery query;
        query.Reset(fixture.Periods());
        query.items[4] = u"EUR"_s;
        query.amount = 12.5F;
        query.comparison = 2;
        query.distance = 0;
        query.flags = {1, 0, 100, 100, 1};
        ExpenseFilter filter;
        filter.exported = 1;
        ApplyQuery(query, fixture.Periods(), filter);
        QCOMPARE(filter.items[4], u"EUR"_s);
        QCOMPARE(filter.amount, 12.5F);
        QCOMPARE(filter.comparison, 2);
        QCOMPARE(filter.distance, 0);
        QCOMPARE(filter.flags, (std::array<int, 5>{1, 0, 100, 100, 1}));
        QCOMPARE(filter.exported, 100);
    }

    void thePeriod_data() {
        QTest::addColumn<bool>("isOn");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<int>("preset");
        QTest::addColumn<QString>("startText");
        QTest::addColumn<QString>("endText");
        const QString from = u"01/05/2026"_s, to = u"01/31/2026"_s;
        QTest::newRow("off") << false << 2 << from << to << 6 << kAny << kAny;
        QTest::newRow("this week") << true << 2 << from << to << 2 << u"11/15/2026"_s << u"11/21/2026"_s;
        QTest::newRow("the fifth row is yesterday")
            << true << 5 << from << to << 16 << u"11/18/2026"_s << u"11/18/2026"_s;
        QTest::newRow("the last row is next year")
            << true << 24 << from << to << 29 << u"01/01/2027"_s << u"12/31/2027"_s;
        QTest::newRow("two dates") << true << 0 << from << to << 7 << from << to;
        QTest::newRow("the same date twice") << true << 0 << from << from << 5 << from << from;
        QTest::newRow("today twice") << true << 0 << u"11/19/2026"_s << u"11/19/2026"_s << 1
                                     << u"11/19/2026"_s << u"11/19/2026"_s;
        QTest::newRow("swapped: the day of the end") << true << 0 << to << from << 5 << from << from;
        QTest::newRow("a row that isn't there") << true << 25 << from << to << 7 << from << to;
        QTest::newRow("a row below 0") << true << -1 << from << to << 7 << from << to;
        QTest::newRow("a date that can't be read is today")
            << true << 0 << from << u"31.01.2026"_s << 7 << from << u"11/19/2026"_s;
    }
    void thePeriod() {
        QFETCH(bool, isOn);
        QFETCH(int, row);
        QFETCH(QString, start);
        QFETCH(QString, end);
        const ReportFixture fixture;
        TimeQuery query = WithPeriod(fixture.Periods(), row, start, end);
        query.isPeriodOn = isOn;
        const TimeFilter filter = FilterOf(query, fixture.Periods());
        QCOMPARE(filter.isEnabled, isOn);
        QTEST(filter.preset, "preset");
        QTEST(filter.startText, "startText");
        QTEST(filter.endText, "endText");
    }

    void aPeriodByItsNameIsThatOfTheDayOfUse() {
        ReportFixture fixture;
        const TimeQuery week = WithPeriod(fixture.Periods(), 2, u"11/15/2026"_s, u"11/21/2026"_s);
        const TimeQuery range = WithPeriod(fixture.Periods(), 0, u"11/15/2026"_s, u"11/21/2026"_s);
        fixture.home.clock.Set(2026, 11, 26, 9, 0);
        QCOMPARE(FilterOf(week, fixture.Periods()).startText, u"11/22/2026"_s);
        QCOMPARE(FilterOf(week, fixture.Periods()).endText, u"11/28/2026"_s);
        QCOMPARE(FilterOf(range, fixture.Periods()).startText, u"11/15/2026"_s);
        QCOMPARE(FilterOf(range, fixture.Periods()).endText, u"11/21/2026"_s);
    }

    void rowsAndPresets() {
        QVERIFY(!PresetOfRow(0) && !PresetOfRow(25) && !PresetOfRow(-1));
        QCOMPARE(PresetOfRow(1), 1);
        QCOMPARE(PresetOfRow(5), 16);
        QCOMPARE(RowOfPreset(16), 5);
        QCOMPARE(RowOfPreset(29), 24);
        QCOMPARE(RowOfPreset(7), 0);
    }

    void datesThatCantBeRead() {
        const ReportFixture fixture;
        const PeriodContext periods = fixture.Periods();
        QCOMPARE(UnreadDates(WithPeriod(periods, 0, u"01/05/2026"_s, u"31.1.2026"_s), periods),
                 QStringList{u"31.1.2026"_s});
        QCOMPARE(UnreadDates(WithPeriod(periods, 0, u"x"_s, u"x"_s), periods), QStringList{u"x"_s});
        QVERIFY(UnreadDates(WithPeriod(periods, 0, u"01/05/2026"_s, u"01/31/2026"_s), periods).isEmpty());
        QVERIFY(UnreadDates(WithPeriod(periods, 2, u"x"_s, u"y"_s), periods).isEmpty());
        TimeQuery off = WithPeriod(periods, 0, u"x"_s, u"y"_s);
        off.isPeriodOn = false;
        QVERIFY(UnreadDates(off, periods).isEmpty());
    }

    void theSecondMarkGoesWithTheFirst_data() {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::newRow("set") << 1 << 0;
        QTest::newRow("clear") << 0 << 100;
        QTest::newRow("any") << 100 << 100;
    }
    void theSecondMarkGoesWithTheFirst() {
        QFETCH(int, first);
        ExpenseQuery query;
        query.flags = {first, 0, first, 0, 0};
        QCOMPARE(CanAskFor(query, 1), first == 1);
        QCOMPARE(CanAskFor(query, 3), first == 1);
        QVERIFY(CanAskFor(query, 0) && CanAskFor(query, 2) && CanAskFor(query, 4));
        DropDependents(query);
        QTEST(query.flags[1], "second");
        QTEST(query.flags[3], "second");
        QCOMPARE(query.flags[4], 0);
    }

    void theAmountBox_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<float>("amount");
        QTest::addColumn<QString>("shown");
        QTest::newRow("any") << kAny << -1.0F << kAny;
        QTest::newRow("a number") << u"12,50"_s << 12.5F << u"12,5"_s;
        QTest::newRow("all its digits come back") << u"12345,67"_s << 12345.67F << u"12345,67"_s;
        QTest::newRow("below zero") << u"-20"_s << -20.0F << u"-20"_s;
        QTest::newRow("no number is 0") << u"x"_s << 0.0F << u"0"_s;
        QTest::newRow("nothing is 0") << QString() << 0.0F << u"0"_s;
        QTest::newRow("-1 is any") << u"-1"_s << -1.0F << kAny;
    }
    void theAmountBox() {
        QFETCH(QString, typed);
        CRegionalInfo region;
        region.decimalChar = u',';
        region.usesDotDecimal = false;
        const TestHome home(region);
        const float amount = AmountOfText(typed);
        QTEST(amount, "amount");
        QTEST(AmountText(amount), "shown");
    }
};

TEST_CLASS(TestStoredQuery);
#include "TestStoredQuery.moc"
