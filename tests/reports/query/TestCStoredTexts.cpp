#include "reports/query/CStoredTexts.h"

#include "config/CCfgStore.h"
#include "entry/NamedDefaults.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "reports/ReportFixture.h"
#include "reports/query/CQueryStore.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kClients = 16;

struct Fixture {
    ReportFixture report;
    CTestClock clock{};
    CScriptedPrompt prompt{};
    CStoredTexts texts{report.Settings(), clock, prompt};

    void Save(const QString& name, const QString& client, bool matchCase = false) const {
        TimeQuery query;
        query.Reset(report.Periods());
        query.items[0] = client;
        query.items[1] = u"Beta"_s;
        query.matchCase = matchCase;
        QVERIFY(CQueryStore(report.Settings(), RecordMode::Time).Save(name, query));
    }
    [[nodiscard]] QString Items(const QString& name) const {
        const auto query = CQueryStore(report.Settings(), RecordMode::Time).Load(name);
        const TimeQuery& time = std::get<TimeQuery>(*query);
        return time.items[0] + u'/' + time.items[1];
    }
};

}  // namespace

class TestCStoredTexts final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void queries_data() {
        QTest::addColumn<QString>("client");
        QTest::addColumn<bool>("matchCase");
        QTest::addColumn<QString>("items");
        QTest::newRow("just the old text") << u"Beta"_s << true << u"Gamma/Beta"_s;
        QTest::newRow("in another case, which the query doesn't tell apart")
            << u"BETA"_s << false << u"Gamma/Beta"_s;
        QTest::newRow("in another case, which it does") << u"BETA"_s << true << u"BETA/Beta"_s;
        QTest::newRow("a part of it finds the new one or doesn't, as it may")
            << u"Bet"_s << false << u"Bet/Beta"_s;
        QTest::newRow("another text") << u"Acorn"_s << false << u"Acorn/Beta"_s;
    }

    /// The project of the same text is another item.
    void queries() {
        QFETCH(QString, client);
        QFETCH(bool, matchCase);
        QFETCH(QString, items);
        Fixture fixture;
        fixture.Save(u"Week"_s, client, matchCase);
        QCOMPARE(fixture.texts.Carry(kClients, u"Beta"_s, u"Gamma"_s),
                 std::optional(items.startsWith(u"Gamma") ? 1 : 0));
        QCOMPARE(fixture.Items(u"Week"_s), items);
    }

    /// What was used last follows, too, and nobody counts it.
    void whatWasUsedLast() {
        Fixture fixture;
        fixture.Save(CQueryStore::ReservedName(), u"Beta"_s);
        QCOMPARE(fixture.texts.Carry(kClients, u"Beta"_s, u"Gamma"_s), std::optional(0));
        QCOMPARE(fixture.Items(CQueryStore::ReservedName()), u"Gamma/Beta"_s);
    }

    void defaults() {
        Fixture fixture;
        NamedDefaults times(fixture.report.Settings(), fixture.clock, RecordMode::Time);
        NamedDefaults expenses(fixture.report.Settings(), fixture.clock, RecordMode::Expense);
        CTRecord time;
        time.item1 = time.item2 = u"Beta"_s;
        CERecord expense;
        expense.item1 = u"Beta"_s;
        QVERIFY(times.Write(u"Work"_s, time) && expenses.Write(u"Trip"_s, expense));
        time.item1 = u"beta"_s;  // another text
        QVERIFY(times.Write(u"Other"_s, time));
        QCOMPARE(fixture.texts.Carry(kClients, u"Beta"_s, u"Gamma"_s), std::optional(2));
        QVERIFY(times.Read(u"Work"_s, time) && expenses.Read(u"Trip"_s, expense));
        QCOMPARE(time.item1 + u'/' + time.item2, u"Gamma/Beta"_s);
        QCOMPARE(expense.item1, u"Gamma"_s);
        QVERIFY(times.Read(u"Other"_s, time));
        QCOMPARE(time.item1, u"beta"_s);
    }

    /// Records hold numbers, and queries ask for none.
    void aListOfNumbers() {
        Fixture fixture;
        fixture.Save(u"Week"_s, u"50"_s);
        QCOMPARE(fixture.texts.Carry(34, u"50"_s, u"60"_s), std::optional(0));
        QCOMPARE(fixture.Items(u"Week"_s), u"50/Beta"_s);
    }
};

TEST_CLASS(TestCStoredTexts);
#include "TestCStoredTexts.moc"
