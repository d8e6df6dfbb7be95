#include "viewmodel/commands/FilterCommands.h"

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The field of a condition by the names of the filters' members; empty: none.
QString MemberOf(int command, TimeFilter filter, const CPulldownCatalogue& lists) {
    const QStringList choices = FilterChoices(*FindFilterCommand(command), lists) << u"x"_s;
    const TimeFilter before = filter;
    if (!ApplyChoice(*FindFilterCommand(command), filter, choices, 1)) return {};
    for (std::size_t i = 0; i < filter.items.size(); ++i)
        if (filter.items[i] != before.items[i]) return u"item%1"_s.arg(i + 1);
    if (filter.billable != before.billable) return u"billable"_s;
    if (filter.billed != before.billed) return u"billed"_s;
    return filter.exported != before.exported ? u"exported"_s : u"nothing"_s;
}
QString MemberOf(int command, ExpenseFilter filter, const CPulldownCatalogue& lists) {
    const QStringList choices = FilterChoices(*FindFilterCommand(command), lists) << u"x"_s;
    const ExpenseFilter before = filter;
    if (!ApplyChoice(*FindFilterCommand(command), filter, choices, 1)) return {};
    for (std::size_t i = 0; i < filter.items.size(); ++i)
        if (filter.items[i] != before.items[i]) return u"item%1"_s.arg(i + 1);
    for (std::size_t i = 0; i < filter.flags.size(); ++i)
        if (filter.flags[i] != before.flags[i]) return u"flag%1"_s.arg(i + 1);
    return filter.exported != before.exported ? u"exported"_s : u"nothing"_s;
}

const FilterCommandRow& RowOf(int command) {
    return *FindFilterCommand(command);
}

}  // namespace

/// Which filter command sets which condition, and what picking does.
class TestFilterCommands final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void init() { home = std::make_unique<TestHome>(); }

    void Conditions_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("ofTime");
        QTest::addColumn<QString>("ofExpenses");
        QTest::newRow("32804") << 16 << "item1"
                               << "item1";
        QTest::newRow("32805") << 17 << "item2"
                               << "item2";
        QTest::newRow("32806") << 32 << "item3"
                               << "";
        QTest::newRow("32807") << 33 << "item4"
                               << "";
        QTest::newRow("32808") << 68 << ""
                               << "item3";
        QTest::newRow("32809") << 71 << ""
                               << "item4";
        QTest::newRow("32832") << 0 << "billable"
                               << "flag1";
        QTest::newRow("32833") << 0 << "billed"
                               << "flag2";
        QTest::newRow("32834") << 0 << ""
                               << "flag3";
        QTest::newRow("32835") << 0 << ""
                               << "flag4";
        QTest::newRow("32836") << 0 << ""
                               << "flag5";
        QTest::newRow("32837") << 0 << "exported"
                               << "exported";
    }
    void Conditions() {
        const int command = QByteArray(QTest::currentDataTag()).toInt();
        QVERIFY(FindFilterCommand(command));
        QTEST(RowOf(command).list, "list");
        QTEST(MemberOf(command, TimeFilter(), *home->catalogue), "ofTime");
        QTEST(MemberOf(command, ExpenseFilter(), *home->catalogue), "ofExpenses");
    }
    void OtherCommandsSetNone() {
        QCOMPARE(FilterCommands().size(), 12U);
        QCOMPARE(FindFilterCommand(32810), nullptr);
        QCOMPARE(FindFilterCommand(114), nullptr);
    }

    void ChoicesOfAList() {
        QVERIFY(home->catalogue->AddItem(16, u"Zebra & Sons"_s, false));
        QVERIFY(home->catalogue->AddItem(16, u"\U0001F600 Smile"_s, false));
        QVERIFY(home->catalogue->AddItem(17, u"Alpha"_s, false));
        QCOMPARE(FilterChoices(RowOf(32804), *home->catalogue),
                 (QStringList{u"(any)"_s, u"Zebra & Sons"_s, u"\U0001F600 Smile"_s}));
        QCOMPARE(FilterChoices(RowOf(32806), *home->catalogue), QStringList{u"(any)"_s});
    }
    void ChoicesOfAFlag() {
        QCOMPARE(FilterChoices(RowOf(32837), *home->catalogue), (QStringList{u"(any)"_s, u"Yes"_s, u"No"_s}));
    }

    void PickedTextIsComparedWholeAndByCase() {
        const QStringList choices{u"(any)"_s, u"Client A"_s, u"Client B"_s};
        TimeFilter filter;
        QVERIFY(ApplyChoice(RowOf(32804), filter, choices, 2));
        QCOMPARE(filter.items[0], u"Client B"_s);
        QVERIFY(filter.matchWhole && filter.matchCase);
        ExpenseFilter expenses;
        QVERIFY(ApplyChoice(RowOf(32808), expenses, choices, 1));
        QCOMPARE(expenses.items[2], u"Client A"_s);
        QVERIFY(expenses.matchWhole && expenses.matchCase);
    }
    void AnyTextTakesTheConditionAway() {
        const QStringList choices{u"(any)"_s, u"Client A"_s};
        TimeFilter filter;
        filter.items[0] = u"client"_s;
        filter.items[1] = u"pro"_s;
        QVERIFY(ApplyChoice(RowOf(32804), filter, choices, 0));
        QCOMPARE(filter.items[0], u"(any)"_s);
        // "pro" goes on finding "Project"
        QCOMPARE(filter.items[1], u"pro"_s);
        QVERIFY(!filter.matchWhole && !filter.matchCase);
    }
    void FlagsAreAnyYesOrNo_data() {
        QTest::addColumn<int>("choice");
        QTest::addColumn<int>("value");
        QTest::newRow("any") << 0 << 100;
        QTest::newRow("yes") << 1 << 1;
        QTest::newRow("no") << 2 << 0;
    }
    void FlagsAreAnyYesOrNo() {
        QFETCH(int, choice);
        const QStringList choices = FilterChoices(RowOf(32833), *home->catalogue);
        TimeFilter filter;
        filter.billed = 7;
        QVERIFY(ApplyChoice(RowOf(32833), filter, choices, choice));
        QTEST(filter.billed, "value");
        QVERIFY(!filter.matchWhole && !filter.matchCase);
        QCOMPARE(PresentChoice(RowOf(32833), filter, choices), choice);
    }

    void OpensOnThePresentCondition() {
        const QStringList choices{u"(any)"_s, u"Client A"_s, u"Client B"_s};
        TimeFilter filter;
        QCOMPARE(PresentChoice(RowOf(32804), filter, choices), 0);
        filter.items[0] = u"Client B"_s;
        QCOMPARE(PresentChoice(RowOf(32804), filter, choices), 2);
        // neither part of an item nor a text of the tree that is no item is a row
        filter.items[0] = u"Client"_s;
        QCOMPARE(PresentChoice(RowOf(32804), filter, choices), -1);
        filter.items[0].clear();
        QCOMPARE(PresentChoice(RowOf(32804), filter, choices), -1);
        QCOMPARE(PresentChoice(RowOf(32808), filter, choices), -1);
        filter.billable = 42;
        QCOMPARE(PresentChoice(RowOf(32832), filter, choices), -1);
    }
    void NoChoiceChangesNothing() {
        const QStringList choices{u"(any)"_s, u"Client A"_s};
        TimeFilter filter;
        QVERIFY(!ApplyChoice(RowOf(32804), filter, choices, -1));
        QVERIFY(!ApplyChoice(RowOf(32804), filter, choices, 2));
        QVERIFY(!ApplyChoice(RowOf(32809), filter, choices, 1));
        QVERIFY(SetFilterCommands(filter).isEmpty());
        QVERIFY(!filter.matchWhole);
    }

    void CommandsThatAreSet() {
        TimeFilter filter;
        QCOMPARE(SetFilterCommands(filter), QSet<int>());
        filter.items[3] = u""_s;
        filter.exported = 0;
        QCOMPARE(SetFilterCommands(filter), (QSet<int>{32807, 32837}));
        // the fifth item has no command
        filter.items[4] = u"EUR"_s;
        QCOMPARE(SetFilterCommands(filter).size(), 2);
        ExpenseFilter expenses;
        QCOMPARE(SetFilterCommands(expenses), QSet<int>());
        expenses.items[3] = u"Cash"_s;
        expenses.flags[4] = 1;
        expenses.distance = 1;
        QCOMPARE(SetFilterCommands(expenses), (QSet<int>{32809, 32836}));
    }

    /// What a pick shows: the records with just this text.
    void PicksTheRecords() {
        CTRecord record;
        record.item1 = u"Client A"_s;
        CTRecord other;
        other.item1 = u"client a"_s;
        TimeFilter filter;
        QVERIFY(ApplyChoice(RowOf(32804), filter, {u"(any)"_s, u"Client A"_s}, 1));
        const PeriodContext context = home->document->GetPeriodContext();
        QVERIFY(filter.Matches(record, context, nullptr));
        QVERIFY(!filter.Matches(other, context, nullptr));
    }

    void OfTheMode_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("inTimeMode");
        QTest::addColumn<bool>("inExpenseMode");
        QTest::newRow("client") << 32804 << true << true;
        QTest::newRow("activity") << 32806 << true << false;
        QTest::newRow("description") << 32808 << false << true;
        QTest::newRow("billable") << 32832 << true << true;
        QTest::newRow("a flag of expenses") << 32836 << false << true;
        QTest::newRow("exported") << 32837 << true << true;
        QTest::newRow("timers") << 32851 << true << false;
        QTest::newRow("what is no filter") << 40147 << true << true;
        QTest::newRow("a dividing line") << 0 << true << true;
    }
    void OfTheMode() {
        QFETCH(int, command);
        QTEST(IsFilterOfMode(command, true), "inTimeMode");
        QTEST(IsFilterOfMode(command, false), "inExpenseMode");
    }
};

TEST_CLASS(TestFilterCommands);
#include "TestFilterCommands.moc"
