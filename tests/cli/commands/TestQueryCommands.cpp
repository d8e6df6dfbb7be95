#include "cli/commands/EntryCommandTest.h"
#include "support/TestProgram.h"

#include <QDate>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Iso(const QDate& day) {
    return day.toString(Qt::ISODate);
}

QDate Sunday() {
    const QDate today = QDate::currentDate();
    return today.addDays(-(today.dayOfWeek() % 7));
}

}  // namespace

/// "query": what lists and reports are narrowed by, kept under names; lists by one.
class TestQueryCommands : public EntryCommandTest {
    Q_OBJECT

 public:
    TestQueryCommands() : EntryCommandTest(u"query"_s) {}

 private Q_SLOTS:
    void init() { NewHome(); }

    void WholeJsonOfTimes();
    void WholeJsonOfExpenses();
    void NothingGivenIsAny();
    void StoredPeriods_data();
    void StoredPeriods();
    void Amounts_data();
    void Amounts();
    void Refused_data();
    void Refused();
    void SaveAsksBeforeItReplaces();
    void ListInTheOrderOfMaking();
    void Rename();
    void RenameAsksBeforeItReplaces();
    void Delete();
    void TheReservedName_data();
    void TheReservedName();
    void UnknownNames_data();
    void UnknownNames();
    void ListByAQuery();
    void TheQueryStandsAlone_data();
    void TheQueryStandsAlone();
    void PeriodOfAList_data();
    void PeriodOfAList();
    void DamagedQuery();
    void ADateThatCantBeRead();
    void ForPeople();

 private:
    [[nodiscard]] QString Names(const QString& mode = u"time"_s) const {
        QStringList names;
        for (const QJsonValue& name : Command(u"list --mode "_s + mode).Array()) names << name.toString();
        return names.join(u'|');
    }
};

void TestQueryCommands::WholeJsonOfTimes() {
    const Reply saved = Command(u"save Mine --item1 Ä --item3 c --whole --case --billable yes --billed no"_s);
    QVERIFY2(saved.exit == 0, saved.err.constData());
    QCOMPARE(
        saved.out,
        QByteArray("{\"mode\": \"time\", \"name\": \"Mine\", \"reserved\": false, \"item1\": \"Ä\", "
                   "\"item2\": null, \"item3\": \"c\", \"item4\": null, \"item5\": null, \"whole\": true, "
                   "\"case\": true, \"isBillable\": true, \"isBilled\": false, \"period\": null}\n"));
    QCOMPARE(Command(u"show Mine"_s).out, saved.out);
    QCOMPARE(Command(u"show MINE"_s).out, saved.out);
    QCOMPARE(Command(u"show Mine --mode expense"_s).exit, 4);
}

void TestQueryCommands::WholeJsonOfExpenses() {
    const Reply saved = Command(
        u"save big --mode expense --item2 acme --amount >100 --distance-entries yes "
        "--flag1 yes --flag2 no --flag5 --from 2026-11-15 --to 2026-11-21"_s);
    QVERIFY2(saved.exit == 0, saved.err.constData());
    QCOMPARE(saved.out,
             QByteArray("{\"mode\": \"expense\", \"name\": \"big\", \"reserved\": false, \"item1\": null, "
                        "\"item2\": \"acme\", \"item3\": null, \"item4\": null, \"item5\": null, \"whole\": "
                        "false, \"case\": false, \"isDistance\": true, \"flag1\": true, \"flag2\": false, "
                        "\"flag3\": null, \"flag4\": null, \"flag5\": true, \"amount\": {\"comparison\": "
                        "\">\", \"value\": 100.0}, \"period\": {\"row\": 0, \"preset\": null, \"name\": "
                        "\"Custom range\", \"start\": \"2026-11-15\", \"end\": \"2026-11-21\"}}\n"));
    QCOMPARE(Command(u"show big --mode expense"_s).out, saved.out);
}

void TestQueryCommands::NothingGivenIsAny() {
    const QJsonObject query = Command(u"save all --mode expense"_s).Object();
    for (const QString& name :
         {u"item1"_s, u"isDistance"_s, u"flag1"_s, u"flag4"_s, u"amount"_s, u"period"_s})
        QVERIFY2(query.contains(name) && query[name].isNull(), qPrintable(name));
    QVERIFY(Command(u"save all"_s).Object()[u"isBillable"].isNull());
    // The word for any is any.
    QVERIFY(Command(u"save any --item1 (any)"_s).Object()[u"item1"].isNull());
}

void TestQueryCommands::StoredPeriods_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    const QString today = Iso(QDate::currentDate()), first = u"2026-01-05"_s, last = u"2026-01-31"_s;
    QTest::newRow("a preset is stored as its row")
        << u"--period 2"_s << 2 << 2 << u"This week"_s << Iso(Sunday()) << Iso(Sunday().addDays(6));
    QTest::newRow("the fifth row is preset 16")
        << u"--period 16"_s << 5 << 16 << u"Yesterday"_s << Iso(QDate::currentDate().addDays(-1))
        << Iso(QDate::currentDate().addDays(-1));
    QTest::newRow("a preset without days")
        << u"--period 20"_s << 15 << 20 << u"Last month to date"_s << QString() << QString();
    QTest::newRow("a day") << u"--day 2026-01-05"_s << 0 << 0 << u"Custom range"_s << first << first;
    QTest::newRow("today as a day") << u"--day today"_s << 0 << 0 << u"Custom range"_s << today << today;
    QTest::newRow("two days") << u"--from 2026-01-05 --to 2026-01-31"_s << 0 << 0 << u"Custom range"_s
                              << first << last;
    QTest::newRow("swapped days are the day of the end")
        << u"--from 2026-01-31 --to 2026-01-05"_s << 0 << 0 << u"Custom range"_s << first << first;
}
void TestQueryCommands::StoredPeriods() {
    QFETCH(QString, options);
    QFETCH(int, preset);
    QFETCH(QString, start);
    QFETCH(QString, end);
    const Reply saved = Command(u"save one "_s + options);
    QVERIFY2(saved.exit == 0, saved.err.constData());
    const QJsonObject period = saved.Object()[u"period"].toObject();
    QTEST(period[u"row"].toInt(-1), "row");
    QCOMPARE(period[u"preset"], preset == 0 ? QJsonValue(QJsonValue::Null) : QJsonValue(preset));
    QTEST(period[u"name"].toString(), "name");
    QCOMPARE(period[u"start"], start.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(start));
    QCOMPARE(period[u"end"], end.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(end));
    QCOMPARE(Command(u"show one"_s).out, saved.out);
}

void TestQueryCommands::Amounts_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("equal") << u"=12.5"_s << QByteArray("{\"comparison\": \"=\", \"value\": 12.5}");
    QTest::newRow("less") << u"<0.1"_s << QByteArray("{\"comparison\": \"<\", \"value\": 0.1}");
    QTest::newRow("its digits, not those of its bits")
        << u">12345.67"_s << QByteArray("{\"comparison\": \">\", \"value\": 12345.67}");
    QTest::newRow("below zero") << u">-20"_s << QByteArray("{\"comparison\": \">\", \"value\": -20.0}");
}
void TestQueryCommands::Amounts() {
    QFETCH(QString, typed);
    QFETCH(QByteArray, json);
    const Reply saved =
        m_home->RunJson({u"query"_s, u"save"_s, u"one"_s, u"--mode"_s, u"expense"_s, u"--amount"_s, typed});
    QVERIFY2(saved.out.contains("\"amount\": " + json), saved.out.constData());
}

void TestQueryCommands::Refused_data() {
    AddRefusedColumns();
    auto* const row = &AddRefused;
    row("--exported yes", 2, "no place for --exported");
    row("--timers no", 2, "no place for --timers");
    row("--text x", 2, "no place for --text");
    row("--mode expense --exported no", 2, "no place for --exported");
    row("--mode expense --timers", 2, "no place for --timers");
    row("--mode expense --flag2", 2, "--flag2 needs --flag1 yes");
    row("--mode expense --flag1 no --flag2 yes", 2, "--flag2 needs --flag1 yes");
    row("--mode expense --flag4 no --flag1", 2, "--flag4 needs --flag3 yes");
    row("--flag1", 2, "--flag1");
    row("--amount =5", 2, "--amount");
    row("--mode expense --billable", 2, "--billable");
    row("--item1=", 2, "--item1: the text is empty");
    row("--query x", 2, "--query");
    row("--sort date", 2, "--sort");
    row("--limit 1", 2, "--limit");
    row("--mode days", 2, "\"days\"");
    row("--mode expense --amount 5", 2, "\"5\"");
    row("--period 99", 4, "99");
    row("--period 2 --day today", 2, "--day");
    row("--from today", 2, "--to");
    row("--day 2026-02-30", 2, "2026-02-30");
}
void TestQueryCommands::Refused() {
    QFETCH(QString, options);
    QFETCH(QByteArray, words);
    QFETCH(int, exitCode);
    CheckRefused(Command(u"save one "_s + options), exitCode, words);
    QCOMPARE(Names() + Names(u"expense"_s), QString());
}

void TestQueryCommands::SaveAsksBeforeItReplaces() {
    QCOMPARE(Command(u"save Week --item1 a"_s).exit, 0);
    CheckAsks(Command(u"save WEEK --item1 b"_s), "Replace it?");
    QCOMPARE(Names(), u"Week"_s);
    QCOMPARE(Command(u"save Week --item1 b --yes"_s).Object()[u"item1"].toString(), u"b"_s);
    QCOMPARE(Command(u"show Week"_s).Object()[u"item1"].toString(), u"b"_s);
    QCOMPARE(Names(), u"Week"_s);
    // As typed, beside the other.
    QCOMPARE(Command(u"save WEEK --item1 c --yes"_s).exit, 0);
    QCOMPARE(Names(), u"Week|WEEK"_s);
    QCOMPARE(Command(u"show WEEK"_s).Object()[u"item1"].toString(), u"c"_s);
    QCOMPARE(m_home->Run({u"query"_s, u"save"_s, QString()}).exit, 2);
    QCOMPARE(m_home->Run({u"query"_s, u"save"_s, QString(256, u'x')}).exit, 2);
    QCOMPARE(m_home->Run({u"query"_s, u"save"_s, QString(255, u'x')}).exit, 0);
}

void TestQueryCommands::ListInTheOrderOfMaking() {
    QCOMPARE(Command(u"list"_s).out, QByteArray("[]\n"));
    for (const QString& name : {u"b"_s, u"a/\\'\""_s, u"ä 😀"_s})
        QCOMPARE(m_home->Run({u"query"_s, u"save"_s, name}).exit, 0);
    QCOMPARE(Command(u"list"_s).out, QByteArray("[\"b\", \"a/\\\\'\\\"\", \"ä 😀\"]\n"));
    QCOMPARE(Names(u"expense"_s), QString());
    QCOMPARE(m_home->Run({u"query"_s, u"list"_s}).out, QByteArray("b\na/\\'\"\nä 😀\n"));
}

void TestQueryCommands::Rename() {
    QCOMPARE(Command(u"save one --item1 a --period 2"_s).exit, 0);
    const Reply renamed = Command(u"rename ONE two"_s);
    QCOMPARE(renamed.exit, 0);
    QCOMPARE(renamed.Object()[u"name"].toString(), u"two"_s);
    QCOMPARE(renamed.Object()[u"period"].toObject()[u"row"].toInt(), 2);
    QCOMPARE(Names(), u"two"_s);
    QCOMPARE(Command(u"rename two two"_s).exit, 0);
    QCOMPARE(Command(u"rename two TWO"_s).exit, 0);  // it isn't another one
    QCOMPARE(Names(), u"TWO"_s);
    QCOMPARE(m_home->Run({u"query"_s, u"rename"_s, u"TWO"_s, QString()}).exit, 2);
}

void TestQueryCommands::RenameAsksBeforeItReplaces() {
    QCOMPARE(Command(u"save one --item1 a"_s).exit, 0);
    QCOMPARE(Command(u"save two --item1 b --whole"_s).exit, 0);
    CheckAsks(Command(u"rename one two"_s), "Replace it?");
    QCOMPARE(Names(), u"one|two"_s);
    QCOMPARE(Command(u"rename one two --yes"_s).Object()[u"item1"].toString(), u"a"_s);
    QCOMPARE(Names(), u"two"_s);
    QCOMPARE(Command(u"show two"_s).Object()[u"whole"].toBool(true), false);
}

void TestQueryCommands::Delete() {
    QCOMPARE(Command(u"save one"_s).exit, 0);
    QCOMPARE(Command(u"save two"_s).exit, 0);
    QCOMPARE(Command(u"delete one"_s).out, QByteArray("{\"deleted\": 0}\n"));
    CheckDelete({u"one"_s, u"two"_s}, "Delete \"one\" from the stored queries?");
    QCOMPARE(Names(), QString());
}

void TestQueryCommands::TheReservedName_data() {
    QTest::addColumn<QStringList>("command");
    QTest::newRow("save") << QStringList{u"save"_s, u"(last used)"_s};
    QTest::newRow("save, other capitals") << QStringList{u"save"_s, u"(LAST Used)"_s};
    QTest::newRow("rename") << QStringList{u"rename"_s, u"(last used)"_s, u"x"_s};
    QTest::newRow("rename to it") << QStringList{u"rename"_s, u"one"_s, u"(Last used)"_s};
    QTest::newRow("delete") << QStringList{u"delete"_s, u"(last used)"_s, u"--yes"_s};
}
void TestQueryCommands::TheReservedName() {
    QFETCH(QStringList, command);
    QCOMPARE(Command(u"save one --item1 a"_s).exit, 0);
    Change("UPDATE keys SET name = '(last used)' WHERE name = 'one'");
    QCOMPARE(Command(u"save one --item1 b"_s).exit, 0);
    const Reply reply = Command(command);
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("ast"), reply.err.constData());
    QCOMPARE(Names(), u"(last used)|one"_s);
    const QJsonObject shown = m_home->RunJson({u"query"_s, u"show"_s, u"(last used)"_s}).Object();
    QCOMPARE(shown[u"reserved"].toBool(), true);
    QCOMPARE(shown[u"item1"].toString(), u"a"_s);
}

void TestQueryCommands::UnknownNames_data() {
    QTest::addColumn<QString>("command");
    for (const char* command : {"query show no", "query rename no new", "query delete no",
                                "time list --query no", "expense list --query one"})
        QTest::newRow(command) << QString::fromLatin1(command);
}
void TestQueryCommands::UnknownNames() {
    QFETCH(QString, command);
    QCOMPARE(Command(u"save one"_s).exit, 0);
    CheckRefused(m_home->RunJson(Words(command)), 4, "There is no stored query called");
    QCOMPARE(Names() + Names(u"expense"_s), u"one"_s);  // to look for one makes none
}

void TestQueryCommands::ListByAQuery() {
    const QString inWeek = m_home->Add(Words(u"--date "_s + Iso(Sunday()) + u" --item1 Acme"_s));
    m_home->Add(Words(u"--date "_s + Iso(Sunday().addDays(-1)) + u" --item1 Acme"_s));
    m_home->Add(Words(u"--date "_s + Iso(Sunday()) + u" --item1 Beta"_s));
    QCOMPARE(Command(u"save mine --period 2 --item1 acm"_s).exit, 0);
    const QJsonObject list =
        m_home->RunJson(Words(u"time list --query mine --sort date:desc --limit 5"_s)).Object();
    QCOMPARE(list[u"count"].toInt(), 1);
    QCOMPARE(list[u"records"][0][u"id"].toString(), inWeek);
    const QString trip = m_home->AddExpense(Words(u"--date 2026-01-05 --amount 120 --flag1"_s));
    m_home->AddExpense(Words(u"--date 2026-01-05 --amount 100 --flag1"_s));
    m_home->AddExpense(Words(u"--date 2026-01-05 --amount 120"_s));
    QCOMPARE(Command(u"save mine --mode expense --amount >100 --flag1"_s).exit, 0);
    const QJsonObject expenses = m_home->RunJson(Words(u"expense list --query MINE"_s)).Object();
    QCOMPARE(expenses[u"count"].toInt(), 1);
    QCOMPARE(expenses[u"records"][0][u"id"].toString(), trip);
    QVERIFY(expenses[u"period"].isNull());
}

void TestQueryCommands::TheQueryStandsAlone_data() {
    QTest::addColumn<QString>("options");
    for (const char* options : {"--item1 a", "--whole", "--case", "--period 2", "--day today",
                                "--from today --to today", "--billable", "--exported no", "--timers"})
        QTest::newRow(options) << QString::fromLatin1(options);
}
void TestQueryCommands::TheQueryStandsAlone() {
    QFETCH(QString, options);
    QCOMPARE(Command(u"save one"_s).exit, 0);
    CheckRefused(m_home->RunJson(Words(u"time list --query one "_s + options)), 2, "--query stands alone");
}

void TestQueryCommands::PeriodOfAList_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("preset");
    QTest::newRow("a preset") << u"--period 2"_s << 2;
    QTest::newRow("two days") << u"--from 2026-01-05 --to 2026-01-31"_s << 7;
    QTest::newRow("one day") << u"--day 2026-01-05"_s << 5;
    QTest::newRow("today") << u"--day today"_s << 1;
    QTest::newRow("none") << QString() << 0;
}
void TestQueryCommands::PeriodOfAList() {
    QFETCH(QString, options);
    QFETCH(int, preset);
    QCOMPARE(Command(u"save one "_s + options).exit, 0);
    const QJsonObject list = m_home->RunJson(Words(u"time list --query one"_s)).Object();
    if (preset == 0)
        QVERIFY(list.contains(u"period") && list[u"period"].isNull());
    else
        QCOMPARE(list[u"period"].toObject()[u"preset"].toInt(), preset);
}

void TestQueryCommands::DamagedQuery() {
    QCOMPARE(Command(u"save one --item1 a"_s).exit, 0);
    Change("DELETE FROM entries WHERE name = 'MatchWhole'");
    CheckUnusable({u"query show one"_s, u"time list --query one"_s}, "one");
    QCOMPARE(Names(), u"one"_s);
    const Reply renamed = Command(u"rename one two"_s);
    QCOMPARE(renamed.exit, 0);
    QVERIFY2(renamed.err.contains("\"two\" can't be used"), renamed.err.constData());
    QCOMPARE(Names(), u"two"_s);
    QCOMPARE(Command(u"delete two --yes"_s).exit, 0);
}

/// The list goes on as the program does with such a date, but not without a word: it is another period.
void TestQueryCommands::ADateThatCantBeRead() {
    QCOMPARE(Command(u"save one --from 2026-01-05 --to 2026-01-31"_s).exit, 0);
    Change("UPDATE entries SET value = '31.01.2026' WHERE name = 'EndDate'");
    const Reply reply = m_home->RunJson(Words(u"time list --query one"_s));
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("\"31.01.2026\""), reply.err.constData());
    QCOMPARE(reply.Object()[u"period"].toObject()[u"end"].toString(), Iso(QDate::currentDate()));
    QVERIFY(Command(u"show one"_s).err.contains("\"31.01.2026\""));
}

void TestQueryCommands::ForPeople() {
    QCOMPARE(m_home->Run(Words(u"labels set 109 Customer"_s)).exit, 0);
    const Reply shown = m_home->Run(
        Words(u"query save one --item1 Acme --billed no --whole --from 2026-01-05 --to 2026-01-31"_s));
    QCOMPARE(shown.out, QByteArray("Customer  Acme\n"
                                   "Billed    no\n"
                                   "Period    Custom range (2026-01-05 to 2026-01-31)\n"
                                   "Texts     whole\n"));
    QCOMPARE(m_home->Run(Words(u"query save two"_s)).out, QByteArray("Everything matches.\n"));
    QCOMPARE(m_home->Run(Words(u"query save big --mode expense --amount <5 --flag1"_s)).out,
             QByteArray("Billable  yes\nAmount    less than 5\n"));
}

TEST_CLASS(TestQueryCommands);
#include "TestQueryCommands.moc"
