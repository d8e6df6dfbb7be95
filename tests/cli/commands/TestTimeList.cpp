#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "time list": filters, order, sums. The records are the same for all rows.
class TestTimeList : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void Filter_data();
    void Filter();
    void Sort_data();
    void Sort();
    void Sums();
    void Limit();
    void Period_data();
    void Period();
    void AnEmptyHome();
    void WithoutEnoughMemory();
    void Refused_data();
    void Refused();
    void Table();

 private:
    /// The notes of the listed records, joined.
    QString Notes(const QJsonObject& list) const;
    std::unique_ptr<ConsoleHome> m_home;
};

void TestTimeList::initTestCase() {
    m_home = std::make_unique<ConsoleHome>();
    const QStringList rows{
        u"--notes a --date 2026-11-19 --start 13:00 --end 14:00 --item1 Müller --item5 EUR --billable --rate 100"_s,
        u"--notes b --date 2026-11-19 --start 9:00 --end 12:00 --item1 müller&Co --item5 EUR"_s,
        u"--notes c --date 2026-11-18 --duration 0:20 --item1 Smith --item2 Alpha --item5 USD --billable "
        u"--billed "
        "--amount 7.5"_s,
        u"--notes d --date 2026-12-31 --item2 alpha"_s,
    };
    for (const QString& row : rows) QCOMPARE(m_home->Add(row.split(u' ')).size(), 32);
    const QString last = m_home->RunJson({u"time"_s, u"list"_s, u"--day"_s, u"2026-12-31"_s})
                             .Object()[u"records"][0][u"id"]
                             .toString();
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"mark"_s, last, u"--as"_s, u"exported"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, last}).exit, 0);
    QCOMPARE(m_home->Run({u"timer"_s, u"pause"_s, last}).exit, 0);
}

QString TestTimeList::Notes(const QJsonObject& list) const {
    QString notes;
    for (const QJsonValue& record : list[u"records"].toArray()) notes += record[u"notes"].toString();
    return notes;
}

void TestTimeList::Filter_data() {
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("notes");
    QTest::newRow("all, by day and start") << QString() << u"cbad"_s;
    QTest::newRow("a day") << u"--day 2026-11-19"_s << u"ba"_s;
    QTest::newRow("a day without records") << u"--day 2026-11-20"_s << QString();
    QTest::newRow("from and to, both included") << u"--from 2026-11-18 --to 2026-11-19"_s << u"cba"_s;
    QTest::newRow("to the last day of the year") << u"--from 2026-11-20 --to 2026-12-31"_s << u"d"_s;
    QTest::newRow("a start after the end is the day of the end")
        << u"--from 2026-12-31 --to 2026-11-18"_s << u"c"_s;
    QTest::newRow("a text that occurs") << u"--item1 mül"_s << u"ba"_s;
    QTest::newRow("a text with its capitals") << u"--item1 Mül --case"_s << u"a"_s;
    QTest::newRow("a whole text") << u"--item1 müller --whole"_s << u"a"_s;
    QTest::newRow("a whole text with its capitals") << u"--item1 müller --whole --case"_s << QString();
    QTest::newRow("two texts") << u"--item1 smith --item2 alpha"_s << u"c"_s;
    QTest::newRow("billable") << u"--billable yes"_s << u"ca"_s;
    QTest::newRow("billable, bare") << u"--billable"_s << u"ca"_s;
    QTest::newRow("not billable") << u"--billable no"_s << u"bd"_s;
    QTest::newRow("billed") << u"--billed yes"_s << u"c"_s;
    QTest::newRow("exported") << u"--exported yes"_s << u"d"_s;
    QTest::newRow("not exported") << u"--exported no"_s << u"cba"_s;
    QTest::newRow("with a timer") << u"--timers yes"_s << u"d"_s;
    QTest::newRow("without a timer") << u"--timers no"_s << u"cba"_s;
    QTest::newRow("a letter of notes and of a currency") << u"--text D"_s << u"cd"_s;
    QTest::newRow("a word in any text") << u"--text=ALPH"_s << u"cd"_s;
    QTest::newRow("a word of the currency") << u"--text eur"_s << u"ba"_s;
    QTest::newRow("case and whole texts are not for words") << u"--text MÜL --whole --case"_s << u"ba"_s;
    QTest::newRow("a word that isn't there") << u"--text gamma"_s << QString();
    QTest::newRow("a word without its accents") << u"--text mull"_s << u"ba"_s;
    QTest::newRow("words and a day") << u"--text müller --day 2026-11-19 --billable no"_s << u"b"_s;
    QTest::newRow("everything at once") << u"--day 2026-11-19 --item5 eur --billable --billed no"_s << u"a"_s;
    QTest::newRow("a percent sign is no pattern") << u"--item1 %"_s << QString();
    QTest::newRow("an apostrophe is text") << u"--item1 '"_s << QString();
}

void TestTimeList::Filter() {
    QFETCH(QString, filter);
    const Reply reply =
        m_home->RunJson(QStringList{u"time"_s, u"list"_s} + filter.split(u' ', Qt::SkipEmptyParts));
    QCOMPARE(reply.exit, 0);
    QTEST(Notes(reply.Object()), "notes");
    QCOMPARE(reply.Object()[u"count"].toInt(), reply.Object()[u"records"].toArray().size());
    QCOMPARE(reply.Object()[u"mode"].toString(), u"time"_s);
}

void TestTimeList::Sort_data() {
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("notes");
    QTest::newRow("by date") << u"date"_s << u"cbad"_s;
    QTest::newRow("by date, last first") << u"date:desc"_s << u"dbac"_s;
    QTest::newRow("by start: without one first") << u"start:asc"_s << u"cdba"_s;
    QTest::newRow("by duration, longest first") << u"duration:desc"_s << u"bacd"_s;
    QTest::newRow("by amount, none first") << u"amount"_s << u"bdca"_s;
    QTest::newRow("by client, capitals don't count") << u"item1"_s << u"dabc"_s;
    QTest::newRow("by a flag") << u"isBillable:desc"_s << u"cabd"_s;
    QTest::newRow("by notes") << u"notes:desc"_s << u"dcba"_s;
    QTest::newRow("by identity, which is the order of adding") << u"id"_s << u"abcd"_s;
}

void TestTimeList::Sort() {
    QFETCH(QString, order);
    QTEST(Notes(m_home->RunJson({u"time"_s, u"list"_s, u"--sort"_s, order}).Object()), "notes");
}

void TestTimeList::Sums() {
    const QByteArray out = m_home->RunJson({u"time"_s, u"list"_s}).out;
    QVERIFY2(out.endsWith("\"sums\": [{\"key\": \"\", \"amount\": 0.0, \"hours\": 0.0}, "
                          "{\"key\": \"EUR\", \"amount\": 100.0, \"hours\": 4.0}, "
                          "{\"key\": \"USD\", \"amount\": 7.5, \"hours\": 0.3333}]}\n"),
             out.constData());
}

void TestTimeList::Limit() {
    const QJsonObject list =
        m_home->RunJson({u"time"_s, u"list"_s, u"--sort"_s, u"notes"_s, u"--limit"_s, u"2"_s}).Object();
    QCOMPARE(Notes(list), u"ab"_s);
    QCOMPARE(list[u"count"].toInt(), 4);
    QCOMPARE(list[u"sums"].toArray().size(), 3);
    QCOMPARE(Notes(m_home->RunJson({u"time"_s, u"list"_s, u"--limit"_s, u"100"_s}).Object()), u"cbad"_s);
}

void TestTimeList::Period_data() {
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("period");
    const QDate today = QDate::currentDate();
    const QString iso = today.toString(Qt::ISODate);
    QTest::newRow("none") << QString() << u"null"_s;
    QTest::newRow("a day")
        << u"--day 2026-02-03"_s
        << u"{'preset': 5, 'name': '02/03/26', 'start': '2026-02-03', 'end': '2026-02-03'}"_s;
    QTest::newRow("a range") << u"--from 2026-02-03 --to 2026-02-04"_s
                             << u"{'preset': 7, 'name': '02/03/26 - 02/04/26', 'start': '2026-02-03', 'end': "
                                "'2026-02-04'}"_s;
    QTest::newRow("the day of today is the preset")
        << u"--day today"_s << u"{'preset': 1, 'name': 'Today', 'start': '%1', 'end': '%1'}"_s.arg(iso);
    QTest::newRow("this year")
        << u"--period 14"_s
        << u"{'preset': 14, 'name': 'This year', 'start': '%1-01-01', 'end': '%1-12-31'}"_s.arg(today.year());
    QTest::newRow("the preset that sets no days")
        << u"--period 20"_s << u"{'preset': 20, 'name': 'Last month to date', 'start': null, 'end': null}"_s;
}

void TestTimeList::Period() {
    QFETCH(QString, filter);
    QFETCH(QString, period);
    const Reply reply =
        m_home->RunJson(QStringList{u"time"_s, u"list"_s} + filter.split(u' ', Qt::SkipEmptyParts));
    QCOMPARE(reply.exit, 0);
    QVERIFY(reply.Object().contains(u"period"_s));
    QCOMPARE(reply.Object()[u"period"].toObject(), FromText(period));
}

void TestTimeList::AnEmptyHome() {
    const ConsoleHome home;
    QCOMPARE(
        home.RunJson({u"time"_s, u"list"_s}).out,
        QByteArray("{\"mode\": \"time\", \"period\": null, \"count\": 0, \"records\": [], \"sums\": []}\n"));
}

/// Put in order by a column all records are held. What memory is needed to start depends on the machine, so
/// the limit is looked for above it.
void TestTimeList::WithoutEnoughMemory() {
#ifdef __SANITIZE_ADDRESS__
    QSKIP("a program that is checked for its memory doesn't start below a limit of it");
#endif
    const ConsoleHome home;
    QCOMPARE(home.Run({u"--quiet"_s, u"demo"_s, u"fill"_s, u"60000"_s}).exit, 0);
    bool hasTold = false;
    for (int limit = 40000; !hasTold && limit < 400000; limit += 8000) {
        const Reply reply = home.RunShell(
            u"ulimit -v %1; $cli time list --sort notes > %2"_s.arg(limit).arg(home.File(u"list"_s)));
        const bool isRefused = reply.exit == 1 && reply.err.contains("not enough memory");
        QVERIFY2(isRefused || reply.exit == 0 || reply.exit == 127, reply.err.constData());
        hasTold = isRefused && !reply.err.contains("can't be opened");
    }
    QVERIFY(hasTold);
    QCOMPARE(home.RunShell(u"$cli --json doctor"_s).exit, 0);
}

void TestTimeList::Refused_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("exit");
    QTest::newRow("an unknown period") << u"--period 99"_s << 4;
    QTest::newRow("a period that is no number") << u"--period week"_s << 4;
    QTest::newRow("two periods") << u"--period 2 --day today"_s << 2;
    QTest::newRow("from without to") << u"--from today"_s << 2;
    QTest::newRow("a day that isn't") << u"--day 2026-02-30"_s << 2;
    QTest::newRow("an unknown column") << u"--sort colour"_s << 2;
    QTest::newRow("an unknown direction") << u"--sort date:up"_s << 2;
    QTest::newRow("the timer is no order") << u"--sort timer"_s << 2;
    QTest::newRow("no word to look for") << u"--text="_s << 2;
    QTest::newRow("a limit of none") << u"--limit 0"_s << 2;
    QTest::newRow("a limit below none") << u"--limit -1"_s << 2;
    QTest::newRow("a stored query, which there isn't") << u"--query Mine"_s << 4;
    QTest::newRow("a filter of expenses") << u"--flag1 yes"_s << 2;
}

void TestTimeList::Refused() {
    QFETCH(QString, options);
    const Reply reply = m_home->RunJson(QStringList{u"time"_s, u"list"_s} + options.split(u' '));
    QTEST(reply.exit, "exit");
    QVERIFY(reply.out.isEmpty());
    QVERIFY(reply.err.startsWith("velmarch-cli: "));
}

void TestTimeList::Table() {
    const Reply reply = m_home->Run({u"time"_s, u"list"_s, u"--day"_s, u"2026-11-19"_s});
    const QList<QByteArray> lines = reply.out.trimmed().split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines[0].startsWith("ID "));
    QVERIFY(lines[1].contains("09:00 AM") && lines[1].contains("müller&Co"));
    QCOMPARE(lines[3], QByteArray("11/19/26: 2 records"));
    QCOMPARE(lines[4], QByteArray("  4.0000 hours  100.00 EUR"));
}

TEST_CLASS(TestTimeList);
#include "TestTimeList.moc"
