#include "app/ExpenseFilter.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

using Change = std::function<void(ExpenseFilter&, CERecord&)>;

}  // namespace

Q_DECLARE_METATYPE(Change)

class TestExpenseFilter final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ResetIsAny();
    void Period_data();
    void Period();
    void Texts_data();
    void Texts();
    void Amount_data();
    void Amount();
    void AmountsToTheCent_data();
    void AmountsToTheCent();
    void Flags_data();
    void Flags();
    void FirstFailureEnds_data();
    void FirstFailureEnds();
    void MillionRecords();

 private:
    [[nodiscard]] PeriodContext Context() const {
        return {.clock = m_clock, .region = m_region, .firstDayOfWeek = 1};
    }

    const CTestClock m_clock;  // Thursday, 19 November 2026
    const CRegionalInfo m_region;
};

void TestExpenseFilter::ResetIsAny() {
    ExpenseFilter filter;
    filter.items[4] = u"x"_s;
    filter.amount = 10.0F;
    filter.comparison = AmountComparison::kLess;
    filter.distance = filter.exported = FlagCriterion::kSet;
    filter.flags.fill(FlagCriterion::kClear);
    filter.matchWhole = filter.matchCase = true;
    QVERIFY(filter.ApplyPreset(1, Context()));
    filter.Reset();
    for (const QString& item : filter.items) QCOMPARE(item, u"(any)"_s);
    QCOMPARE(filter.amount, -1.0F);
    QCOMPARE(filter.comparison, 3);
    QCOMPARE(filter.distance, 100);
    for (const int criterion : filter.flags) QCOMPARE(criterion, 100);
    QCOMPARE(filter.exported, 100);
    QVERIFY(!filter.matchWhole && !filter.matchCase && !filter.isEnabled);
    QCOMPARE(filter.preset, 6);
    QVERIFY(filter.Matches(CERecord(), Context()));
}

void TestExpenseFilter::Period_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<bool>("matches");
    QTest::newRow("the first day counts") << 4 << QDate(2026, 11, 1) << true;
    QTest::newRow("the last day counts") << 4 << QDate(2026, 11, 30) << true;
    QTest::newRow("a day before the first") << 4 << QDate(2026, 10, 31) << false;
    QTest::newRow("a day after the last") << 4 << QDate(2026, 12, 1) << false;
    QTest::newRow("the same day a year before") << 4 << QDate(2025, 11, 19) << false;
    QTest::newRow("next quarter matches nothing, not even today") << 28 << QDate(2026, 11, 19) << false;
    QTest::newRow("an expense without date is in no period") << 14 << QDate() << false;
    QTest::newRow("all takes an expense without date") << 6 << QDate() << true;
}

void TestExpenseFilter::Period() {
    QFETCH(int, preset);
    QFETCH(QDate, date);
    ExpenseFilter filter;
    QCOMPARE(filter.ApplyPreset(preset, Context()), preset != PeriodCode::kAll);
    CERecord record;
    if (date.isValid()) record.date.Set(date.month(), date.day(), date.year());
    QTEST(filter.Matches(record, Context()), "matches");
}

void TestExpenseFilter::Texts_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char* name, bool matches, const Change& change) {
        QTest::newRow(name) << change << matches;
    };
    row("words in an item and in the notes", true, [](ExpenseFilter& f, CERecord& r) {
        f.words = u"yeast ACM"_s;
        r.item2 = u"Acme"_s;
        r.notes = u"yeast"_s;
    });
    row("one of two words is nowhere, whatever counts for items", false, [](ExpenseFilter& f, CERecord& r) {
        f.words = u"yeast acme"_s;
        f.matchWhole = true;
        r.notes = u"yeast"_s;
    });
    row("a part in other letters", true, [](ExpenseFilter& f, CERecord& r) {
        f.items[0] = u"MÜLL"_s;
        r.item1 = u"Frau müller"_s;
    });
    row("no part of the item", false, [](ExpenseFilter& f, CERecord& r) {
        f.items[0] = u"Bolt"_s;
        r.item1 = u"Acme"_s;
    });
    row("a part, but case counts", false, [](ExpenseFilter& f, CERecord& r) {
        f.items[0] = u"acm"_s;
        r.item1 = u"Acme"_s;
        f.matchCase = true;
    });
    row("a part where the whole counts", false, [](ExpenseFilter& f, CERecord& r) {
        f.items[0] = u"Acm"_s;
        r.item1 = u"Acme"_s;
        f.matchWhole = true;
    });
    row("the whole in other letters", true, [](ExpenseFilter& f, CERecord& r) {
        f.items[0] = u"ACME"_s;
        r.item1 = u"Acme"_s;
        f.matchWhole = true;
    });
    row("the second item", true, [](ExpenseFilter& f, CERecord& r) { f.items[1] = r.item2 = u"x"_s; });
    row("the third item", true, [](ExpenseFilter& f, CERecord& r) { f.items[2] = r.item3 = u"x"_s; });
    row("the fourth item", true, [](ExpenseFilter& f, CERecord& r) { f.items[3] = r.item4 = u"x"_s; });
    row("the fifth item", true, [](ExpenseFilter& f, CERecord& r) { f.items[4] = r.item5 = u"x"_s; });
    row("another item than the one asked", false,
        [](ExpenseFilter& f, CERecord& r) { f.items[4] = r.item4 = u"x"_s; });
    row("one of two items fails", false, [](ExpenseFilter& f, CERecord& r) {
        f.items[0] = f.items[4] = u"x"_s;
        r.item1 = u"x"_s;
    });
}

void TestExpenseFilter::Texts() {
    QFETCH(Change, change);
    ExpenseFilter filter;
    CERecord record;
    change(filter, record);
    QTEST(filter.Matches(record, Context()), "matches");
}

void TestExpenseFilter::Amount_data() {
    QTest::addColumn<float>("amount");
    QTest::addColumn<int>("comparison");
    QTest::addColumn<float>("wanted");
    QTest::addColumn<bool>("matches");
    QTest::newRow("equal") << 12.1F << 3 << 12.1F << true;
    QTest::newRow("equal, but it is more") << 12.11F << 3 << 12.1F << false;
    QTest::newRow("less") << 9.99F << 1 << 10.0F << true;
    QTest::newRow("less, but it is the same") << 10.0F << 1 << 10.0F << false;
    QTest::newRow("greater") << 10.01F << 2 << 10.0F << true;
    QTest::newRow("greater, but it is the same") << 10.0F << 2 << 10.0F << false;
    QTest::newRow("without amount it counts as 0: less than 10") << -1.0F << 1 << 10.0F << true;
    QTest::newRow("without amount it equals 0") << -1.0F << 3 << 0.0F << true;
    QTest::newRow("a negative amount counts as 0") << -7.5F << 3 << 0.0F << true;
    QTest::newRow("a negative amount isn't less than a negative one") << -7.5F << 1 << -5.0F << false;
    QTest::newRow("-1 is any, whatever the comparison") << 3.0F << 1 << -1.0F << true;
    QTest::newRow("-1 is any, with a comparison that is none") << 3.0F << 0 << -1.0F << true;
    QTest::newRow("a comparison that is none lets nothing pass") << 3.0F << 0 << 3.0F << false;
    QTest::newRow("nor does another") << 3.0F << 4 << 3.0F << false;
}

void TestExpenseFilter::Amount() {
    QFETCH(float, amount);
    QFETCH(int, comparison);
    QFETCH(float, wanted);
    CERecord record;
    record.amount.Set(amount);
    ExpenseFilter filter;
    filter.amount = wanted;
    filter.comparison = comparison;
    QTEST(filter.Matches(record, Context()), "matches");
}

void TestExpenseFilter::AmountsToTheCent_data() {
    QTest::addColumn<float>("amount");
    QTest::newRow("a tenth") << 0.1F;
    QTest::newRow("a price") << 19.99F;
    QTest::newRow("a third, rounded") << 33.33F;
    QTest::newRow("thousands") << 1234.56F;
    QTest::newRow("tens of thousands") << 65535.99F;
}

/// What was entered is found again: it was rounded when it was stored.
void TestExpenseFilter::AmountsToTheCent() {
    QFETCH(float, amount);
    CERecord record;
    record.amount.Set(amount);
    ExpenseFilter filter;
    filter.amount = amount;
    QVERIFY(filter.Matches(record, Context()));
}

void TestExpenseFilter::Flags_data() {
    QTest::addColumn<int>("place");
    QTest::newRow("distance entry") << 0;
    QTest::newRow("first mark") << 1;
    QTest::newRow("second mark") << 2;
    QTest::newRow("third mark") << 3;
    QTest::newRow("fourth mark") << 4;
    QTest::newRow("fifth mark") << 5;
    QTest::newRow("exported") << 6;
}

/// Each of the seven flags is asked by its own criterion.
void TestExpenseFilter::Flags() {
    QFETCH(int, place);
    CERecord with, without;
    bool* const flags[] = {&with.isDistance, &with.flag1, &with.flag2,     &with.flag3,
                           &with.flag4,      &with.flag5, &with.isExported};
    *flags[place] = true;
    for (const int criterion : {100, 1, 0, 2}) {
        ExpenseFilter filter;
        int* const criteria[] = {&filter.distance, &filter.flags[0], &filter.flags[1], &filter.flags[2],
                                 &filter.flags[3], &filter.flags[4], &filter.exported};
        *criteria[place] = criterion;
        QCOMPARE(filter.Matches(with, Context()), criterion == 100 || criterion == 1);
        QCOMPARE(filter.Matches(without, Context()), criterion == 100 || criterion == 0);
    }
}

void TestExpenseFilter::FirstFailureEnds_data() {
    QTest::addColumn<Change>("spoil");
    QTest::newRow("the date") << Change([](ExpenseFilter&, CERecord& r) { r.date.Set(1, 1, 2020); });
    QTest::newRow("an item") << Change([](ExpenseFilter&, CERecord& r) { r.item3 = u"bus"_s; });
    QTest::newRow("the amount") << Change([](ExpenseFilter& f, CERecord&) { f.amount = 8.0F; });
    QTest::newRow("a flag") << Change([](ExpenseFilter& f, CERecord&) { f.flags[4] = 1; });
}

/// All criteria hold together; one that fails is enough.
void TestExpenseFilter::FirstFailureEnds() {
    QFETCH(Change, spoil);
    CERecord record;
    record.date.Set(11, 19, 2026);
    record.item3 = u"taxi"_s;
    record.amount.Set(7.0F);
    record.flag3 = true;
    ExpenseFilter filter;
    QVERIFY(filter.ApplyPreset(1, Context()));
    filter.items[2] = u"taxi"_s;
    filter.amount = 7.0F;
    filter.flags[2] = FlagCriterion::kSet;
    QVERIFY(filter.Matches(record, Context()));
    spoil(filter, record);
    QVERIFY(!filter.Matches(record, Context()));
}

/// A lifetime of expenses by this month: a walk of well under a second.
void TestExpenseFilter::MillionRecords() {
    std::vector<CERecord> days(365);
    for (int i = 0; i < 365; ++i) days[static_cast<std::size_t>(i)].date.Set(1 + i / 31, 1 + i % 31, 2026);
    ExpenseFilter filter;
    QVERIFY(filter.ApplyPreset(4, Context()));
    const ExpenseFilter::Prepared prepared(filter, Context());
    int matching = 0;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1'000'000; ++i)
        matching += prepared.Matches(days[static_cast<std::size_t>(i % 365)]) ? 1 : 0;
    const qint64 took = timer.elapsed();
    // November is 30 of the 365 days (place 310 to 339), 2739 whole rounds and 265 days of another.
    QCOMPARE(matching, 2739 * 30);
    QVERIFY2(took < 1000, qPrintable(QString::number(took)));
}

TEST_CLASS(TestExpenseFilter);
#include "TestExpenseFilter.moc"
