#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "expense list": filters, order, sums. The records are the same for all rows.
class TestExpenseList : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void Filter_data();
    void Filter();
    void Sort_data();
    void Sort();
    void Sums();
    void Limit();
    void AnEmptyHome();
    void Refused_data();
    void Refused();
    void Table();
    void TimesAreNotAmongThem();

 private:
    [[nodiscard]] Reply List(const QString& options) const {
        return m_home->RunJson(QStringList{u"expense"_s, u"list"_s} + Words(options));
    }
    /// The notes of the listed records, joined.
    [[nodiscard]] static QString Notes(const QJsonObject& list);
    std::unique_ptr<ConsoleHome> m_home;
};

void TestExpenseList::initTestCase() {
    m_home = std::make_unique<ConsoleHome>();
    const QStringList rows{
        u"--notes a --date 2026-11-19 --item1 Müller --item5 EUR --amount 100 --flag1"_s,
        u"--notes b --date 2026-11-19 --item1 müller&Co --item5 EUR --distance 50 --rate 0.3 --flag1 --flag2"_s,
        u"--notes c --date 2026-11-18 --item1 Smith --item3 Taxi --item4 Cash --item5 USD --amount 7.5 "
        "--flag3 --flag4"_s,
        u"--notes d --date 2026-12-31 --item2 alpha --flag5"_s,
    };
    for (const QString& row : rows) QCOMPARE(m_home->AddExpense(Words(row)).size(), 32);
    const QString last = List(u"--day 2026-12-31"_s).Object()[u"records"][0][u"id"].toString();
    QCOMPARE(m_home->Run({u"--yes"_s, u"expense"_s, u"mark"_s, last, u"--as"_s, u"exported"_s}).exit, 0);
    m_home->Add({});
}

QString TestExpenseList::Notes(const QJsonObject& list) {
    QString notes;
    for (const QJsonValue& record : list[u"records"].toArray()) notes += record[u"notes"].toString();
    return notes;
}

void TestExpenseList::Filter_data() {
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("notes");
    QTest::newRow("all, by day and identity") << QString() << u"cabd"_s;
    QTest::newRow("a day") << u"--day 2026-11-19"_s << u"ab"_s;
    QTest::newRow("from and to, both included") << u"--from 2026-11-18 --to 2026-11-19"_s << u"cab"_s;
    QTest::newRow("a text that occurs") << u"--item1 mül"_s << u"ab"_s;
    QTest::newRow("a whole text with its capitals") << u"--item1 Müller --whole --case"_s << u"a"_s;
    QTest::newRow("the third and the fourth item") << u"--item3 taxi --item4 cash"_s << u"c"_s;
    QTest::newRow("the first flag") << u"--flag1"_s << u"ab"_s;
    QTest::newRow("the first flag without the second") << u"--flag1 yes --flag2 no"_s << u"a"_s;
    QTest::newRow("the third flag") << u"--flag3 yes"_s << u"c"_s;
    QTest::newRow("the fourth flag") << u"--flag4 no"_s << u"abd"_s;
    QTest::newRow("the fifth flag") << u"--flag5"_s << u"d"_s;
    QTest::newRow("exported") << u"--exported"_s << u"d"_s;
    QTest::newRow("not exported") << u"--exported no"_s << u"cab"_s;
    QTest::newRow("distance entries") << u"--distance-entries"_s << u"b"_s;
    QTest::newRow("all but distance entries") << u"--distance-entries no"_s << u"cad"_s;
    QTest::newRow("an amount") << u"--amount =15"_s << u"b"_s;
    QTest::newRow("an amount with decimals") << u"--amount =7.50"_s << u"c"_s;
    QTest::newRow("above an amount") << u"--amount >15"_s << u"a"_s;
    QTest::newRow("a word in any text") << u"--text TAXI"_s << u"c"_s;
    QTest::newRow("a word and a flag") << u"--text müll --flag2"_s << u"b"_s;
    QTest::newRow("a number is no text") << u"--text 7.5"_s << QString();
    QTest::newRow("everything at once") << u"--day 2026-11-19 --item5 eur --flag1 --amount <50"_s << u"b"_s;
    QTest::newRow("a percent sign is no pattern") << u"--item1 %"_s << QString();
    QTest::newRow("an apostrophe is text") << u"--item1 '"_s << QString();
}

void TestExpenseList::Filter() {
    QFETCH(QString, filter);
    const Reply reply = List(filter);
    QVERIFY2(reply.exit == 0, reply.err.constData());
    QTEST(Notes(reply.Object()), "notes");
    QCOMPARE(reply.Object()[u"count"].toInt(), reply.Object()[u"records"].toArray().size());
    QCOMPARE(reply.Object()[u"mode"].toString(), u"expense"_s);
}

void TestExpenseList::Sort_data() {
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("notes");
    QTest::newRow("by date, last first") << u"date:desc"_s << u"dabc"_s;
    QTest::newRow("by amount, none first") << u"amount"_s << u"dcba"_s;
    QTest::newRow("by distance, longest first") << u"distance:desc"_s << u"bcad"_s;
    QTest::newRow("by client, capitals don't count") << u"item1"_s << u"dabc"_s;
    QTest::newRow("by a flag") << u"flag3:desc"_s << u"cabd"_s;
    QTest::newRow("by notes") << u"notes:desc"_s << u"dcba"_s;
    QTest::newRow("by identity, which is the order of adding") << u"id"_s << u"abcd"_s;
}

void TestExpenseList::Sort() {
    QFETCH(QString, order);
    QTEST(Notes(List(u"--sort "_s + order).Object()), "notes");
}

void TestExpenseList::Sums() {
    const QByteArray out = List({}).out;
    QVERIFY2(
        out.endsWith("\"sums\": [{\"key\": \"\", \"amount\": 0.0}, {\"key\": \"EUR\", \"amount\": 115.0}, "
                     "{\"key\": \"USD\", \"amount\": 7.5}]}\n"),
        out.constData());
}

void TestExpenseList::Limit() {
    const QJsonObject list = List(u"--sort notes --limit 2"_s).Object();
    QCOMPARE(Notes(list), u"ab"_s);
    QCOMPARE(list[u"count"].toInt(), 4);
    QCOMPARE(list[u"sums"].toArray().size(), 3);
}

void TestExpenseList::AnEmptyHome() {
    const ConsoleHome home;
    QCOMPARE(home.RunJson({u"expense"_s, u"list"_s}).out,
             QByteArray("{\"mode\": \"expense\", \"period\": null, \"count\": 0, \"records\": [], "
                        "\"sums\": []}\n"));
}

void TestExpenseList::Refused_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("exit");
    QTest::newRow("an unknown period") << u"--period 99"_s << 4;
    QTest::newRow("two periods") << u"--period 2 --day today"_s << 2;
    QTest::newRow("an amount without a sign") << u"--amount 15"_s << 2;
    QTest::newRow("an amount with two signs") << u"--amount <=15"_s << 2;
    QTest::newRow("no amount behind the sign") << u"--amount ="_s << 2;
    QTest::newRow("no number behind the sign") << u"--amount >much"_s << 2;
    QTest::newRow("a column of time records") << u"--sort start"_s << 2;
    QTest::newRow("an unknown direction") << u"--sort date:up"_s << 2;
    QTest::newRow("a limit of none") << u"--limit 0"_s << 2;
    QTest::newRow("a filter of time records") << u"--billable yes"_s << 2;
    QTest::newRow("expenses have no timers") << u"--timers yes"_s << 2;
    QTest::newRow("neither yes nor no") << u"--flag1 perhaps"_s << 2;
}

void TestExpenseList::Refused() {
    QFETCH(QString, options);
    const Reply reply = List(options);
    QTEST(reply.exit, "exit");
    QVERIFY(reply.out.isEmpty());
    QVERIFY(reply.err.startsWith("velmarch-cli: "));
}

void TestExpenseList::Table() {
    const Reply reply = m_home->Run({u"expense"_s, u"list"_s, u"--day"_s, u"2026-11-19"_s});
    const QList<QByteArray> lines = reply.out.trimmed().split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines[0].startsWith("ID "));
    QVERIFY2(lines[1].contains("Müller") && lines[1].contains("100.00"), lines[1].constData());
    QCOMPARE(lines[3], QByteArray("11/19/26: 2 records"));
    QCOMPARE(lines[4], QByteArray("  115.00 EUR"));
}

void TestExpenseList::TimesAreNotAmongThem() {
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1);
    QCOMPARE(List({}).Object()[u"count"].toInt(), 4);
}

TEST_CLASS(TestExpenseList);
#include "TestExpenseList.moc"
