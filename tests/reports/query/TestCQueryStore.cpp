#include "reports/query/CQueryStore.h"

#include "reports/ReportFixture.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kTimeKey = u"TimeQueries"_s, kExpenseKey = u"ExpenseQueries"_s;

TimeQuery SomeTimes(const PeriodContext& context) {
    TimeQuery query;
    query.Reset(context);
    query.items = {u"Büro \"1\""_s, u"(any)"_s, u"c"_s, u"d 😀"_s, u"EUR"_s};
    query.billable = 1;
    query.billed = 0;
    query.matchWhole = true;
    query.isPeriodOn = true;
    query.periodRow = 2;
    return query;
}

ExpenseQuery SomeExpenses(const PeriodContext& context) {
    ExpenseQuery query;
    query.Reset(context);
    query.items[3] = u"card"_s;
    query.amount = 100.0F;
    query.comparison = 2;
    query.distance = 0;
    query.flags = {1, 0, 100, 100, 1};
    query.matchCase = true;
    query.startText = u"01/05/2026"_s;
    query.endText = u"01/31/2026"_s;
    return query;
}

}  // namespace

class TestCQueryStore final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void whatIsSavedIsLoaded() {
        const ReportFixture fixture;
        CQueryStore times(fixture.Settings(), RecordMode::Time);
        CQueryStore expenses(fixture.Settings(), RecordMode::Expense);
        const TimeQuery time = SomeTimes(fixture.Periods());
        const ExpenseQuery expense = SomeExpenses(fixture.Periods());
        QVERIFY(times.Save(u"ä/b"_s, time));
        QVERIFY(expenses.Save(u"e"_s, expense));
        QVERIFY(std::get<TimeQuery>(*times.Load(u"ä/b"_s)) == time);
        QVERIFY(std::get<ExpenseQuery>(*expenses.Load(u"e"_s)) == expense);
        // A query of one mode isn't listed in the other.
        QCOMPARE(times.Names(), QStringList{u"ä/b"_s});
        QCOMPARE(expenses.Names(), QStringList{u"e"_s});
        QVERIFY(!times.Load(u"e"_s));
        QCOMPARE(times.Names(), QStringList{u"ä/b"_s});
    }

    /// Worked out by hand, as scripts outside the program read it.
    void theStoredFormOfTimes() {
        const ReportFixture fixture;
        QVERIFY(CQueryStore(fixture.Settings(), RecordMode::Time).Save(u"t"_s, SomeTimes(fixture.Periods())));
        const EntryContent content = fixture.Content(kTimeKey, u"t"_s);
        QCOMPARE(content.Values().size(), std::size_t{13});
        QCOMPARE(*content.FindText(u"Item1"_s), u"Büro \"1\""_s);
        QCOMPARE(*content.FindText(u"Item2"_s), u"(any)"_s);
        QCOMPARE(*content.FindText(u"Item5"_s), u"EUR"_s);
        QCOMPARE(*content.FindText(u"Billable"_s), u"Billable"_s);
        QCOMPARE(*content.FindText(u"Billed"_s), u"Not billed"_s);
        QCOMPARE(*content.FindText(u"StartDate"_s), u"11/19/2026"_s);
        QCOMPARE(*content.FindText(u"MatchCase"_s), u"Off"_s);
        QCOMPARE(*content.FindText(u"MatchWhole"_s), u"On"_s);
        QCOMPARE(*content.FindText(u"PeriodOn"_s), u"On"_s);
        QCOMPARE(*content.FindBytes(u"PeriodRow"_s), QByteArray::fromHex("02000000"));
    }

    void theStoredFormOfExpenses() {
        const ReportFixture fixture;
        CQueryStore queries(fixture.Settings(), RecordMode::Expense);
        QVERIFY(queries.Save(u"e"_s, SomeExpenses(fixture.Periods())));
        const EntryContent content = fixture.Content(kExpenseKey, u"e"_s);
        QCOMPARE(content.Values().size(), std::size_t{19});
        QCOMPARE(*content.FindBytes(u"Amount"_s), QByteArray::fromHex("0000c842"));
        QCOMPARE(*content.FindBytes(u"Comparison"_s), QByteArray::fromHex("02000000"));
        QCOMPARE(*content.FindBytes(u"DistanceEntry"_s), QByteArray::fromHex("00000000"));
        QCOMPARE(*content.FindBytes(u"Flag1"_s), QByteArray::fromHex("01000000"));
        QCOMPARE(*content.FindBytes(u"Flag3"_s), QByteArray::fromHex("02000000"));
        QCOMPARE(*content.FindText(u"EndDate"_s), u"01/31/2026"_s);
        ExpenseQuery any;
        any.Reset(fixture.Periods());
        QVERIFY(queries.Save(u"e"_s, any));
        QCOMPARE(*fixture.Content(kExpenseKey, u"e"_s).FindBytes(u"Amount"_s),
                 QByteArray::fromHex("000080bf"));
    }

    void oneValueThatCantBeRead_data() {
        QTest::addColumn<bool>("isTime");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("isRead");
        const auto text = [](bool isTime, const char* name, const QString& value, bool isRead) {
            QTest::addRow("%s %s: %s", isTime ? "time" : "expense", name, qPrintable(value))
                << isTime << QString::fromLatin1(name) << value << QByteArray() << isRead;
        };
        const auto bytes = [](bool isTime, const char* name, const char* hex, bool isRead) {
            QTest::addRow("%s %s: %s", isTime ? "time" : "expense", name, *hex ? hex : "gone")
                << isTime << QString::fromLatin1(name) << QString() << QByteArray::fromHex(hex) << isRead;
        };
        for (const char* name : {"Item1", "Item2", "Item3", "Item4", "Item5", "Billable", "Billed",
                                 "StartDate", "EndDate", "MatchCase", "MatchWhole", "PeriodOn", "PeriodRow"})
            bytes(true, name, "", false);
        for (const char* name : {"Item1", "Amount", "Comparison", "DistanceEntry", "Flag1", "Flag2", "Flag3",
                                 "Flag4", "Flag5", "EndDate", "PeriodOn", "PeriodRow"})
            bytes(false, name, "", false);
        text(true, "Billable", u"(any)"_s, true);
        text(true, "Billable", u"Not billable"_s, true);
        text(true, "Billable", u"perhaps"_s, false);
        text(true, "MatchCase", u"on"_s, false);
        text(true, "PeriodRow", u"2"_s, false);
        text(true, "StartDate", u"no date"_s, true);
        bytes(true, "Item1", "41000000", false);
        bytes(true, "PeriodRow", "63000000", true);
        bytes(true, "PeriodRow", "0200", false);
        bytes(true, "PeriodRow", "0200000000", false);
        bytes(false, "Amount", "0000c07f", false);  // no number
        bytes(false, "Amount", "0000807f", false);  // without end
        bytes(false, "Comparison", "00000000", false);
        bytes(false, "Comparison", "04000000", false);
        bytes(false, "Flag1", "03000000", false);
        bytes(false, "Flag1", "64000000", false);
    }
    void oneValueThatCantBeRead() {
        QFETCH(bool, isTime);
        QFETCH(QString, name);
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        const ReportFixture fixture;
        CQueryStore queries(fixture.Settings(), isTime ? RecordMode::Time : RecordMode::Expense);
        const StoredQuery query =
            isTime ? StoredQuery(SomeTimes(fixture.Periods())) : StoredQuery(SomeExpenses(fixture.Periods()));
        QVERIFY(queries.Save(u"one"_s, query));
        const QString key = isTime ? kTimeKey : kExpenseKey;
        if (!text.isEmpty()) fixture.PutText(key, u"one"_s, name, text);
        if (!bytes.isEmpty()) fixture.PutBytes(key, u"one"_s, name, bytes);
        if (text.isEmpty() && bytes.isEmpty()) fixture.DropValue(key, u"one"_s, name);
        QTEST(queries.Load(u"one"_s).has_value(), "isRead");
    }

    void whatCantBeStoredIsRefusedBeforeTheFirstValue_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Text>("told");
        QTest::newRow("an empty text") << QString() << Text::ValueRefusedEmpty;
        QTest::newRow("4097 characters") << QString(4097, u'x') << Text::ValueRefusedLarge;
    }
    void whatCantBeStoredIsRefusedBeforeTheFirstValue() {
        QFETCH(QString, text);
        QFETCH(Text, told);
        ReportFixture fixture;
        CQueryStore queries(fixture.Settings(), RecordMode::Time);
        const TimeQuery before = SomeTimes(fixture.Periods());
        QVERIFY(queries.Save(u"one"_s, before));
        TimeQuery query = before;
        query.items[0] = u"other"_s;
        query.items[4] = text;
        fixture.home.prompt.ExpectTold(told);
        QVERIFY(!queries.Save(u"one"_s, query));
        fixture.home.prompt.Finish();
        QVERIFY(std::get<TimeQuery>(*queries.Load(u"one"_s)) == before);
    }

    void aSaveThatFailsKeepsTheFormerQuery() {
        ReportFixture fixture;
        CQueryStore queries(fixture.Settings(), RecordMode::Time);
        const TimeQuery before = SomeTimes(fixture.Periods());
        QVERIFY(queries.Save(u"one"_s, before));
        TimeQuery query = before;
        query.items[0] = u"other"_s;
        QVERIFY(
            fixture.home.tree.File().Execute("CREATE TRIGGER no BEFORE INSERT ON entries WHEN NEW.name = "
                                             "'PeriodRow' BEGIN SELECT RAISE(FAIL, 'no'); END"));
        QVERIFY(!queries.Save(u"one"_s, query));
        QVERIFY(std::get<TimeQuery>(*queries.Load(u"one"_s)) == before);
    }

    void aRenamedQueryKeepsEveryValue() {
        const ReportFixture fixture;
        CQueryStore queries(fixture.Settings(), RecordMode::Time);
        QVERIFY(queries.Save(u"one"_s, SomeTimes(fixture.Periods())));
        fixture.PutText(kTimeKey, u"one"_s, u"Later"_s, u"of another version"_s);
        const EntryContent before = fixture.Content(kTimeKey, u"one"_s);
        QVERIFY(bool(RunEntryRequest(*queries.RenameRequest(u"one"_s, u"two"_s), fixture.Settings())));
        QCOMPARE(queries.Names(), QStringList{u"two"_s});
        QVERIFY(fixture.Content(kTimeKey, u"two"_s) == before);
        // A damaged one, too.
        fixture.DropValue(kTimeKey, u"two"_s, u"Item1"_s);
        QVERIFY(bool(RunEntryRequest(*queries.RenameRequest(u"two"_s, u"three"_s), fixture.Settings())));
        QCOMPARE(queries.Names(), QStringList{u"three"_s});
    }
};

TEST_CLASS(TestCQueryStore);
#include "TestCQueryStore.moc"
