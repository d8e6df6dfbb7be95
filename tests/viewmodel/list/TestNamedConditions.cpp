#include "viewmodel/list/NamedConditions.h"

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

using ChangeTimes = std::function<void(TimeFilter&)>;
using ChangeExpenses = std::function<void(ExpenseFilter&)>;

template <class Filter>
QString WordsOf(const Filter& filter, const TestHome& home) {
    QStringList words;
    for (const auto& condition : ConditionsOf(filter, *home.settings)) words.append(condition.words);
    return words.join(u" | "_s);
}

}  // namespace

Q_DECLARE_METATYPE(ChangeTimes)
Q_DECLARE_METATYPE(ChangeExpenses)

class TestNamedConditions final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void OfTimes_data() {
        QTest::addColumn<ChangeTimes>("change");
        QTest::addColumn<QString>("words");
        const auto row = [](const char* name, const char* words, const ChangeTimes& change) {
            QTest::newRow(name) << change << QString::fromUtf8(words);
        };
        row("none", "", [](TimeFilter&) {});
        row("a client", "Client: Hollis", [](TimeFilter& f) { f.items[0] = u"Hollis"_s; });
        row("no project", "Project: (empty)", [](TimeFilter& f) { f.items[1].clear(); });
        row("billable, not billed", "Billable: yes | Billed: no", [](TimeFilter& f) {
            f.billed = FlagCriterion::kClear;
            f.billable = FlagCriterion::kSet;
        });
        row("with a timer", "with a timer", [](TimeFilter& f) { f.timer = FlagCriterion::kSet; });
        row("without one", "without a timer", [](TimeFilter& f) { f.timer = FlagCriterion::kClear; });
        row("a flag that is nothing", "Exported: neither yes nor no", [](TimeFilter& f) { f.exported = 7; });
    }
    void OfTimes() {
        QFETCH(ChangeTimes, change);
        const TestHome home;
        TimeFilter filter;
        change(filter);
        QTEST(WordsOf(filter, home), "words");
    }

    void OfExpenses_data() {
        QTest::addColumn<ChangeExpenses>("change");
        QTest::addColumn<QString>("words");
        const auto row = [](const char* name, const char* words, const ChangeExpenses& change) {
            QTest::newRow(name) << change << QString::fromUtf8(words);
        };
        row("none", "", [](ExpenseFilter&) {});
        row("an amount", "Amount is 1,250.00", [](ExpenseFilter& f) { f.amount = 1250.0F; });
        row("above an amount", "Amount above 0.00", [](ExpenseFilter& f) {
            f.amount = 0.0F;
            f.comparison = AmountComparison::kGreater;
        });
        row("below an amount", "Amount below 5.50", [](ExpenseFilter& f) {
            f.amount = 5.5F;
            f.comparison = AmountComparison::kLess;
        });
    }
    void OfExpenses() {
        QFETCH(ChangeExpenses, change);
        const TestHome home;
        ExpenseFilter filter;
        change(filter);
        QTEST(WordsOf(filter, home), "words");
    }

    /// Each condition that there can be has its words, and its end leaves all others.
    void AllOfThem() {
        const TestHome home;
        TimeFilter times;
        times.items.fill(u"x"_s);
        times.words = u"x"_s;
        times.billable = times.billed = times.exported = times.timer = FlagCriterion::kSet;
        const auto ofTimes = ConditionsOf(times, *home.settings);
        QCOMPARE(ofTimes.size(), 10U);
        for (const auto& condition : ofTimes) {
            QCOMPARE(ConditionsOf(condition.without, *home.settings).size(), 9U);
            QCOMPARE(WordsOf(condition.alone, home), condition.words);
        }
        ExpenseFilter expenses;
        expenses.items.fill(u"x"_s);
        expenses.words = u"x"_s;
        expenses.amount = 5.0F;
        expenses.distance = expenses.exported = FlagCriterion::kSet;
        expenses.flags.fill(FlagCriterion::kClear);
        const auto ofExpenses = ConditionsOf(expenses, *home.settings);
        QCOMPARE(ofExpenses.size(), 14U);
        for (const auto& condition : ofExpenses)
            QCOMPARE(ConditionsOf(condition.without, *home.settings).size(), 13U);
    }

    /// The period stays, whichever ends.
    void ThePeriodStays() {
        const TestHome home;
        TimeFilter filter;
        filter.ApplyPreset(4, home.document->GetPeriodContext());
        filter.items[0] = u"Hollis"_s;
        const auto conditions = ConditionsOf(filter, *home.settings);
        QCOMPARE(conditions.size(), 1U);
        QCOMPARE(conditions[0].without.preset, 4);
        QCOMPARE(conditions[0].alone.preset, 4);
        QVERIFY(ConditionsOf(conditions[0].without, *home.settings).empty());
    }

    /// Day 3 is the bakery's, day 4 is billable.
    void WhatLeavesNothing_data() {
        QTest::addColumn<QString>("client");
        QTest::addColumn<int>("billable");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("one condition") << u"Harbour"_s << FlagCriterion::kAny
                                       << u"No record passes this condition: Client: Harbour (All)."_s;
        QTest::newRow("the first of two that leaves nothing")
            << u"Harbour"_s << FlagCriterion::kSet
            << u"No record passes this condition: Client: Harbour (All)."_s;
        QTest::newRow("both together")
            << u"Bakery"_s << FlagCriterion::kSet
            << u"No record passes all of these conditions: Client: Bakery, Billable: yes (All)."_s;
    }
    void WhatLeavesNothing() {
        QFETCH(QString, client);
        QFETCH(int, billable);
        TestHome home;
        for (const int day : {3, 4}) {
            CTRecord record;
            record.Reset();
            record.date.Set(11, day, 2026);
            if (day == 3) record.item1 = u"Bakery"_s;
            if (day == 4) record.SetBillable(true);
            QVERIFY(home.document->AddRecord(record, {Notify::No, Commit::Now, Identity::New}));
        }
        TimeFilter& filter = home.document->Filter();
        filter.items[0] = client;
        filter.billable = billable;
        home.document->BuildVisible();
        QTEST(::WhatLeavesNothing(*home.document), "sentence");
    }
};

TEST_CLASS(TestNamedConditions);
#include "TestNamedConditions.moc"
