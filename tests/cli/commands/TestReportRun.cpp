#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList kGrouped = Words(u"report run --kind grouped --group item1 --sum effective,amount"_s);
const QStringList kListing = Words(u"report run --kind listing --columns notes"_s);

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

/// "report run": what it covers, what it writes, how it ends. The records are the same for all rows; each is
/// called by its notes.
class TestReportRun : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void Records_data();
    void Records();
    void Refused_data();
    void Refused();
    void TheWholeAnswer();
    void ASummary();
    void TheLastRunIsStored();
    void ASummaryStoresNothing();
    void AStoredDefinition();
    void OptionsBesideANameHoldForThisRun();
    void TheRecordsOfADefinition_data();
    void TheRecordsOfADefinition();
    void ADefinitionWithoutGroups();
    void ThePageInAFileIsThatOfStandardOutput();
    void AFileStaysWhereThereIsNothing();
    void AFileThatCannotBeWritten();
    void AFileOfTheHomeIsRefused_data();
    void AFileOfTheHomeIsRefused();
    void ADiskThatIsFullLeavesTheOldPage();
    void AKillLeavesTheOldPageOrTheNewOne();
    void PageAndAnswerTogether();
    void Table_data();
    void Table();
    void ExpensesOnOnePage();
    void AnotherCodePage();
    void HostileTextsStayTexts();
    void MoreThanIsHeldInMemory();
    void GroupsStandInTheOrderOfTheList_data();
    void GroupsStandInTheOrderOfTheList();

 private:
    [[nodiscard]] QString Notes(const Reply& reply) const;
    [[nodiscard]] QStringList Ids(const QString& notes) const;
    std::unique_ptr<ConsoleHome> m_home;
    QHash<QChar, QString> m_ids;
};

void TestReportRun::initTestCase() {
    m_home = std::make_unique<ConsoleHome>();
    const QStringList rows{
        u"--notes a --date 2026-11-19 --start 13:00 --end 14:00 --item1 Acme --billable --rate 100"_s,
        u"--notes b --date 2026-11-19 --start 9:00 --end 12:00 --item1 acme"_s,
        u"--notes c --date 2026-11-18 --duration 0:30 --item1 Smith --billable --amount 7.5"_s,
        u"--notes d --date 2026-12-31 --item1 Acme"_s,
    };
    for (const QString& row : rows) m_ids.insert(row[8], m_home->Add(Words(row)));
    m_home->AddExpense(Words(u"--notes x --date 2026-11-19 --amount 12.5 --flag1"_s));
    QCOMPARE(m_home->Run(Words(u"query save smith --item1 smith"_s)).exit, 0);
    QCOMPARE(m_home->Run(Words(u"query save nobody --item1 nobody"_s)).exit, 0);
}

QString TestReportRun::Notes(const Reply& reply) const {
    QString notes;
    for (const QJsonValue& row : reply.Object()[u"listing"][u"rows"].toArray()) notes += row[0].toString();
    return notes;
}

QStringList TestReportRun::Ids(const QString& notes) const {
    QStringList ids;
    for (const QChar note : notes) ids += m_ids.value(note);
    return ids;
}

void TestReportRun::Records_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("notes");
    QTest::newRow("all, by day and start") << QString() << u"cbad"_s;
    QTest::newRow("a filter") << u"--item1 acme --to 2026-11-30 --from 2026-11-01"_s << u"ba"_s;
    QTest::newRow("a stored query") << u"--query smith"_s << u"c"_s;
    QTest::newRow("sorted by day, downward: those of a day stand as in the list")
        << u"--sort date:desc"_s << u"dbac"_s;
    QTest::newRow("sorted by a text without its case") << u"--sort item1"_s << u"badc"_s;
    QTest::newRow("sorted by two fields") << u"--sort item1:desc,date:desc"_s << u"cdba"_s;
    QTest::newRow("sorted by number of the field") << u"--sort 115:desc"_s << u"acbd"_s;
    QTest::newRow("a filter and a sort") << u"--item1 acme --sort start"_s << u"bad"_s;
}

void TestReportRun::Records() {
    QFETCH(QString, options);
    const Reply reply = m_home->RunJson(kListing + Words(options));
    QCOMPARE(reply.exit, 0);
    QTEST(Notes(reply), "notes");
    QStringList ids;
    for (const QJsonValue& id : reply.Object()[u"records"].toArray()) ids += id.toString();
    QCOMPARE(ids, Ids(Notes(reply)));
    QCOMPARE(reply.Object()[u"count"].toInt(), ids.size());

    const Reply chosen = m_home->RunJson(kListing + QStringList{u"--ids"_s, Ids(u"ac"_s).join(u',')});
    QCOMPARE(Notes(chosen), u"ac"_s);
}

void TestReportRun::Refused_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("words");
    const auto row = [](const char* name, const char* line, int exit, const char* words) {
        QTest::newRow(name) << QString::fromLatin1(line) << exit << QString::fromLatin1(words);
    };
    row("neither name nor kind", "", 2, "--kind");
    row("no such kind", "--kind pie", 2, "summary");
    row("no such name", "nothing", 4, "nothing");
    row("a summary has no name", "any --kind summary", 2, "summary");
    row("no field to group by", "--kind grouped --sum amount", 2, "group");
    row("no field to add up", "--kind compound --group item1 --columns date", 2, "add up");
    row("neither: the group is asked for first", "--kind grouped", 2, "group by");
    row("a summary has no columns", "--kind summary --columns date", 2, "--columns");
    row("a field of the other mode", "--kind listing --columns distance", 2, "distance");
    row("a criterion of the other mode", "--kind listing --columns date --flag1", 2, "flag1");
    row("a filter and a query", "--kind listing --columns date --query smith --billable", 2, "one way");
    row("identities and a filter", "--kind listing --columns date --ids A --billable", 2, "one way");
    row("identities and a query", "--kind summary --query smith --ids A", 2, "one way");
    row("no such format", "--kind summary --format pdf", 2, "csv");
    row("two tables", "--kind compound --columns date --group item1 --sum amount --format csv", 2, "two");
    row("no such record", "--kind summary --ids 00000000000000000000000000000000", 4, "no record");
    row("no such query", "--kind summary --query gone", 4, "gone");
    row("nothing selected", "--kind listing --columns date --select selected", 1, "selected");
    row("no identities", "--kind summary --ids ,", 1, "selected");
    row("an empty list", "--kind summary --item1 nobody", 1, "in the list");
    row("a query that nothing matches", "--kind summary --query nobody", 1, "matches");
}

void TestReportRun::Refused() {
    QFETCH(QString, line);
    const Reply reply = m_home->Run(Words(u"report run "_s + line));
    QTEST(reply.exit, "exit");
    QCOMPARE(reply.out, QByteArray());
    QFETCH(QString, words);
    QVERIFY2(reply.err.contains(words.toUtf8()), reply.err.constData());
}

void TestReportRun::TheWholeAnswer() {
    const Reply reply = m_home->RunJson(
        Words(u"report run --kind compound --columns date,duration --group item1 --sum 5002,115 --sort item1 "
              "--title T --header H --footer F --item1 acme"_s));
    QCOMPARE(reply.exit, 0);
    QJsonObject answer = reply.Object();
    QCOMPARE(answer.take(u"records").toArray().size(), 3);
    QCOMPARE(answer.take(u"date").toString(), QDate::currentDate().toString(Qt::ISODate));
    QCOMPARE(answer,
             FromText(u"{'mode': 'time', 'kind': 'compound', 'name': null, 'title': 'T', 'header': 'H', "
                      "'footer': 'F', 'count': 3, 'listing': {'columns': [{'id': 5000, 'caption': 'Date'}, "
                      "{'id': 5001, 'caption': 'Duration'}], 'rows': [['11/19/2026', '3.0000'], "
                      "['11/19/2026', '1.0000'], ['12/31/2026', '--:--']]}, "
                      "'grouped': {'columns': [{'id': 109, 'caption': 'Client', 'sum': false}, "
                      "{'id': 5002, 'caption': 'Net time', 'sum': true}, "
                      "{'id': 115, 'caption': 'Amount', 'sum': true}], "
                      "'rows': [{'keys': ['acme'], 'sums': [3.0, 0.0], 'texts': ['3.0000', '0.00']}, "
                      "{'keys': ['Acme'], 'sums': [1.0, 100.0], 'texts': ['1.0000', '100.00']}], "
                      "'total': {'sums': [4.0, 100.0], 'texts': ['4.0000', '100.00']}}, 'summary': null}"_s));
    QVERIFY(reply.out.contains("\"sums\": [4.0, 100.0]"));
}

void TestReportRun::ASummary() {
    const QJsonObject answer = m_home->RunJson(Words(u"report run --kind summary --mode expense"_s)).Object();
    QCOMPARE(answer[u"kind"].toString(), u"summary"_s);
    QCOMPARE(answer[u"title"].toString(), u"Summary"_s);
    QVERIFY(answer[u"listing"].isNull() && answer[u"grouped"].isNull());
    const QJsonArray sections = answer[u"summary"].toArray();
    QCOMPARE(sections.size(), 4);
    QCOMPARE(sections[0][u"rows"][1].toObject(),
             FromText(u"{'caption': 'Expense', 'value': 1, 'text': '1'}"_s));
    QCOMPARE(sections[3][u"rows"][3].toObject(),
             FromText(u"{'caption': 'Amount', 'value': 12.5, 'text': '12.50'}"_s));
}

/// Before the run, so also where it fails then.
void TestReportRun::TheLastRunIsStored() {
    QCOMPARE(m_home->Run(kGrouped + Words(u"--title kept --item1 nobody"_s)).exit, 1);
    const QStringList show = Words(u"report show --kind grouped"_s) + QStringList(u"(last used)"_s);
    QCOMPARE(m_home->RunJson(show).Object()[u"title"].toString(), u"kept"_s);
    QCOMPARE(m_home->Run(kGrouped).exit, 0);
    QCOMPARE(m_home->RunJson(show).Object()[u"title"].toString(), u"Totals"_s);
    const Reply again =
        m_home->RunJson(Words(u"report run --kind grouped"_s) + QStringList(u"(last used)"_s));
    QCOMPARE(again.Object()[u"name"].toString(), u"(last used)"_s);
    QCOMPARE(again.Object()[u"grouped"][u"rows"].toArray().size(), 3);
}

void TestReportRun::ASummaryStoresNothing() {
    const QByteArray before = m_home->RunJson(Words(u"report list"_s)).out;
    QCOMPARE(m_home->Run(Words(u"report run --kind summary --title T"_s)).exit, 0);
    QCOMPARE(m_home->RunJson(Words(u"report list"_s)).out, before);
}

void TestReportRun::AStoredDefinition() {
    QCOMPARE(m_home->Run(Words(u"report save mine --kind listing --columns notes --sort date:desc"_s)).exit,
             0);
    const Reply reply = m_home->RunJson(Words(u"report run mine"_s));
    QCOMPARE(Notes(reply), u"dbac"_s);
    QCOMPARE(reply.Object()[u"name"].toString(), u"mine"_s);
    QCOMPARE(reply.Object()[u"title"].toString(), QString());
}

void TestReportRun::OptionsBesideANameHoldForThisRun() {
    QCOMPARE(m_home->Run(Words(u"report save other --kind listing --columns notes --title stored"_s)).exit,
             0);
    const Reply reply =
        m_home->RunJson(Words(u"report run other --sort date:desc --title once --billable"_s));
    QCOMPARE(Notes(reply), u"ac"_s);
    QCOMPARE(reply.Object()[u"title"].toString(), u"once"_s);
    const QJsonObject stored = m_home->RunJson(Words(u"report show other"_s)).Object();
    QCOMPARE(stored[u"title"].toString(), u"stored"_s);
    QVERIFY(stored[u"sort"].toArray().isEmpty());
}

void TestReportRun::TheRecordsOfADefinition_data() {
    QTest::addColumn<QString>("definition");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("notes");
    QTest::newRow("those of the list: all") << u"--select listed"_s << QString() << u"cbad"_s;
    QTest::newRow("a query that is asked for: all") << u"--select query"_s << QString() << u"cbad"_s;
    QTest::newRow("a stored query") << u"--query smith"_s << QString() << u"c"_s;
    QTest::newRow("the filter goes before it")
        << u"--query smith"_s << u"--item1 acme --billable"_s << u"a"_s;
    QTest::newRow("another query goes before it") << u"--select selected"_s << u"--query smith"_s << u"c"_s;
}

void TestReportRun::TheRecordsOfADefinition() {
    QFETCH(QString, definition);
    QFETCH(QString, options);
    const QStringList save =
        Words(u"--yes report save chosen --kind listing --columns notes "_s + definition);
    QCOMPARE(m_home->Run(save).exit, 0);
    QTEST(Notes(m_home->RunJson(Words(u"report run chosen "_s + options))), "notes");
}

/// The page is written with what it has.
void TestReportRun::ADefinitionWithoutGroups() {
    QCOMPARE(
        m_home->Run(Words(u"report save bare --kind grouped --group item1 --sum amount --footer end"_s)).exit,
        0);
    const Reply reply = m_home->Run(Words(u"report run bare --group"_s) + QStringList(QString()));
    QCOMPARE(reply.exit, 0);
    QVERIFY(reply.err.contains("no field to group by"));
    QVERIFY(reply.out.contains("end</font>") && reply.out.endsWith("</html>\n"));
    const Reply json = m_home->RunJson(Words(u"report run bare --sum"_s) + QStringList(QString()));
    QVERIFY(json.err.contains("no field to add up"));
    QVERIFY(json.Object()[u"grouped"].isNull());
}

void TestReportRun::ThePageInAFileIsThatOfStandardOutput() {
    const QString path = m_home->File(u"page.html"_s);
    const Reply shown = m_home->Run(kGrouped);
    const Reply saved = m_home->Run(kGrouped + QStringList{u"--out"_s, path});
    QCOMPARE(saved.exit, 0);
    QCOMPARE(saved.out, QByteArray());
    QVERIFY(shown.out.startsWith("<!DOCTYPE html>"));
    QCOMPARE(ContentOf(path), shown.out);
}

void TestReportRun::AFileStaysWhereThereIsNothing() {
    const QString path = m_home->File(u"old.html"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    file.close();
    QCOMPARE(m_home->Run(kGrouped + QStringList{u"--item1"_s, u"nobody"_s, u"--out"_s, path}).exit, 1);
    QCOMPARE(ContentOf(path), QByteArray("old"));
    QCOMPARE(m_home->Run(kGrouped + QStringList{u"--out"_s, path}).exit, 0);
    QVERIFY(ContentOf(path).startsWith("<!DOCTYPE"));
}

void TestReportRun::AFileThatCannotBeWritten() {
    const Reply reply = m_home->RunJson(kGrouped + QStringList{u"--out"_s, m_home->File(u"no/such/page"_s)});
    QCOMPARE(reply.exit, 1);
    QCOMPARE(reply.out, QByteArray());
    QVERIFY(reply.err.contains("does not exist"));
    QCOMPARE(m_home->Run(kGrouped + QStringList{u"--out"_s, m_home->Path()}).exit, 1);
    QVERIFY(QDir(m_home->Path()).entryList({u".velmarch-*"_s}, QDir::Files | QDir::Hidden).isEmpty());
}

void TestReportRun::AFileOfTheHomeIsRefused_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("the records") << u"velmarch.store"_s;
    QTest::newRow("the settings by a longer way") << u"./velmarch.settings"_s;
}

void TestReportRun::AFileOfTheHomeIsRefused() {
    QFETCH(QString, name);
    const QString path = m_home->Path() + u'/' + name;
    const QByteArray before = ContentOf(path);
    const Reply reply = m_home->Run(kGrouped + QStringList{u"--out"_s, path});
    QCOMPARE(reply.exit, 2);
    QVERIFY(reply.err.contains("belongs to the records"));
    QCOMPARE(ContentOf(path), before);
}

/// A limit of the size of files stands in for the disk.
void TestReportRun::ADiskThatIsFullLeavesTheOldPage() {
    const ConsoleHome home;
    QCOMPARE(home.Run(Words(u"demo fill 3000"_s)).exit, 0);
    QVERIFY(QDir(home.Path()).mkdir(u"pages"_s));
    const QString page = home.File(u"pages/page.html"_s);
    const QString run = u"$cli report run --kind listing --columns date,item1,notes --out "_s + page;
    QCOMPARE(home.RunShell(run + u" --day 2000-01-01; echo old > "_s + page).exit, 0);
    const Reply reply = home.RunShell(u"trap '' XFSZ; ulimit -f 64; "_s + run);
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("page.html could not be written"), reply.err.constData());
    QCOMPARE(ContentOf(page), QByteArray("old\n"));
    QCOMPARE(QDir(home.File(u"pages"_s)).entryList(QDir::Files | QDir::Hidden), QStringList(u"page.html"_s));
}

void TestReportRun::AKillLeavesTheOldPageOrTheNewOne() {
    const ConsoleHome home;
    QCOMPARE(home.Run(Words(u"demo fill 3000"_s)).exit, 0);
    const QString page = home.File(u"page.html"_s);
    const QString run = u"$cli report run --kind listing --columns date,item1,notes --out "_s + page;
    for (const char* wait : {"0.01", "0.03", "0.05", "0.08", "0.12", "0.2"}) {
        QVERIFY(home.RunShell(u"echo old > "_s + page).exit == 0);
        (void)home.RunShell(run + u" & sleep "_s + QString::fromLatin1(wait) + u"; kill -9 $!; wait $!"_s);
        const QByteArray content = ContentOf(page);
        QVERIFY2(content == "old\n" || content.endsWith("</html>\n"), content.right(100).constData());
    }
}

void TestReportRun::PageAndAnswerTogether() {
    const QString path = m_home->File(u"both.html"_s);
    const Reply reply = m_home->RunJson(kListing + QStringList{u"--out"_s, path});
    QCOMPARE(Notes(reply), u"cbad"_s);
    QCOMPARE(ContentOf(path), m_home->Run(kListing).out);
}

void TestReportRun::Table_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("csv");
    QTest::newRow("a listing") << u"--kind listing --columns notes,amount --sort amount:desc"_s
                               << QByteArray("Notes,Amount\r\na,100.00\r\nc,7.50\r\nb,\r\nd,\r\n");
    QTest::newRow("groups") << u"--kind grouped --group item1 --sum amount"_s
                            << QByteArray("Client,Amount\r\nSmith,7.50\r\nacme,0.00\r\nAcme,100.00\r\n");
    QTest::newRow("a summary")
        << u"--kind summary --mode expense"_s
        << QByteArray(
               "Billable,Entries,1\r\nBillable,Expense,1\r\nBillable,Mileage,0\r\n"
               "Billable,Amount,12.50\r\nBillable,Expense,12.50\r\nBillable,Mileage,0.00\r\n");
}

void TestReportRun::Table() {
    QFETCH(QString, line);
    QFETCH(QByteArray, csv);
    const Reply reply = m_home->Run(Words(u"report run --format csv "_s + line));
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.out.left(csv.size()), csv);
    QVERIFY(line.contains(u"summary"_s) || reply.out == csv);
}

void TestReportRun::ExpensesOnOnePage() {
    const Reply reply = m_home->Run(
        Words(u"report run --mode expense --kind listing --columns date,amount,flag1,notes --query"_s) +
        QStringList(QString()));
    QCOMPARE(reply.exit, 0);
    QVERIFY(reply.out.contains(">12.5</font>"));
    QVERIFY(reply.out.contains(">yes</font>"));
}

/// The page is in the system's code page and says so; what that lacks is told.
void TestReportRun::AnotherCodePage() {
    const QStringList arguments =
        QStringList{u"--home"_s, m_home->Path()} + kListing + QStringList{u"--title"_s, u"Grüße Ω"_s};
    const Reply reply = ConsoleHome::RunBare(arguments, {u"LC_ALL=de_DE.ISO-8859-1"_s});
    QCOMPARE(reply.exit, 0);
    QVERIFY(
        reply.out.contains("<strong>Gr\xFC\xDF"
                           "e ?</strong>"));
    QVERIFY(reply.out.contains("charset=\"iso-8859-1\""));
    QVERIFY(reply.err.contains("lacks: 1"));
}

void TestReportRun::HostileTextsStayTexts() {
    const ConsoleHome home;
    const QString text = u"</td></table><script>alert(1)</script>\"%s%n'&amp;\u202E"_s;
    home.Add({u"--date"_s, u"2026-11-19"_s, u"--item1"_s, text});
    const QStringList run = Words(u"report run --kind grouped --group item1 --sum amount"_s);
    const Reply page = home.Run(run);
    QVERIFY(page.out.contains(text.toUtf8()));
    QVERIFY(page.out.contains("default-src 'none'"));
    QCOMPARE(home.RunJson(run).Object()[u"grouped"][u"rows"][0][u"keys"][0].toString(), text);
    const Reply table = home.Run(run + Words(u"--format csv"_s));
    QVERIFY(table.out.contains(u"</script>\"\"%s%n'&amp;\u202E\",0.00"_s.toUtf8()));
}

/// A long report reads its records again while it writes them; their order is that of the keys all the same.
void TestReportRun::MoreThanIsHeldInMemory() {
    const ConsoleHome home;
    QCOMPARE(home.Run(Words(u"demo fill 6000"_s)).exit, 0);
    const QStringList run = Words(u"report run --kind listing --columns date,start,item1"_s);
    for (const QString& sort : {QString(), u"item1:desc,date"_s}) {
        QStringList arguments = run;
        if (!sort.isEmpty()) arguments += {u"--sort"_s, sort};
        const QJsonObject answer = home.RunJson(arguments).Object();
        const QJsonArray ids = answer[u"records"].toArray(), rows = answer[u"listing"][u"rows"].toArray();
        QVERIFY(ids.size() > 4000);
        QCOMPARE(rows.size(), ids.size());
        for (const qsizetype place : {qsizetype{0}, ids.size() / 2, ids.size() - 1}) {
            const QJsonObject record = home.Show(ids[place].toString());
            QCOMPARE(rows[place][2].toString(), record[u"item1"].toString());
            const QDate day = QDate::fromString(record[u"date"].toString(), Qt::ISODate);
            QCOMPARE(rows[place][0].toString(), day.toString(u"MM/dd/yyyy"_s));
        }
        if (sort.isEmpty()) continue;
        QStringList clients;
        for (const QJsonValue& row : rows) clients += row[2].toString().toCaseFolded();
        QVERIFY(std::is_sorted(clients.crbegin(), clients.crend()));
    }
}

void TestReportRun::GroupsStandInTheOrderOfTheList_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<QStringList>("groups");
    QTest::newRow("all") << QString() << QStringList{u"Smith"_s, u"acme"_s, u"Acme"_s};
    QTest::newRow("of some days") << u"--from 2026-11-19 --to 2026-12-31"_s
                                  << QStringList{u"acme"_s, u"Acme"_s};
    QTest::newRow("with a criterion") << u"--billable"_s << QStringList{u"Smith"_s, u"Acme"_s};
    QTest::newRow("sorted") << u"--sort date:desc"_s << QStringList{u"Acme"_s, u"acme"_s, u"Smith"_s};
}

/// The page, the table and the numbers agree, whichever of them needs to know the records.
void TestReportRun::GroupsStandInTheOrderOfTheList() {
    QFETCH(QString, options);
    QFETCH(QStringList, groups);
    const QStringList run = kGrouped + Words(options);
    QStringList shown;
    const Reply reply = m_home->RunJson(run);
    for (const QJsonValue& row : reply.Object()[u"grouped"][u"rows"].toArray())
        shown += row[u"keys"][0].toString();
    QCOMPARE(shown, groups);
    QStringList lines = QString::fromUtf8(m_home->Run(run + Words(u"--format csv"_s)).out).split(u"\r\n"_s);
    lines.removeFirst();
    lines.removeLast();
    for (QString& line : lines) line = line.section(u',', 0, 0);
    QCOMPARE(lines, groups);
}

TEST_CLASS(TestReportRun);
#include "TestReportRun.moc"
