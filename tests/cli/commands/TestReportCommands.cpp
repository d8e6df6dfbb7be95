#include "cli/commands/EntryCommandTest.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "report" without its runs: the definitions that are kept under names.
class TestReportCommands : public EntryCommandTest {
    Q_OBJECT

 public:
    TestReportCommands() : EntryCommandTest(u"report"_s) {}

 private Q_SLOTS:
    void init() { NewHome(); }

    void FieldsOfTimes();
    void FieldsOfExpenses();
    void WholeJson();
    void ResetState();
    void FieldsByNumberOrName();
    void Refused_data();
    void Refused();
    void TextsUpToTheLongest();
    void SaveAsksBeforeItReplaces();
    void Edit_data();
    void Edit();
    void EditKeepsTheRest();
    void Rename();
    void Delete();
    void TheReservedName_data();
    void TheReservedName();
    void TheReservedQueryIsntOffered();
    void OneNameInSomeKinds();
    void ListByKind();
    void UnknownNames_data();
    void UnknownNames();
    void ADamagedDefinition();
    void WithoutType();
    void ForPeople();

 private:
    /// "grouped Name, listing Other".
    [[nodiscard]] QString Listed(const QString& options = QString()) const {
        QStringList names;
        for (const QJsonValue& one : Command(u"list "_s + options).Array())
            names << one[u"kind"].toString() + u' ' + one[u"name"].toString();
        return names.join(u", "_s);
    }
};

void TestReportCommands::FieldsOfTimes() {
    QCOMPARE(m_home->Run(Words(u"labels set 109 Customer"_s)).exit, 0);
    const Reply reply = Command(u"fields"_s);
    QCOMPARE(reply.Array().size(), 16);
    QVERIFY2(
        reply.out.startsWith("[\n{\"id\": 5000, \"name\": \"date\", \"caption\": \"Date\", \"group\": true, "
                             "\"sum\": false, \"sort\": true, \"column\": true},\n{\"id\": 109, \"name\": "
                             "\"item1\", \"caption\": \"Customer\","),
        reply.out.constData());
    QStringList rows;
    for (const QJsonValue& field : reply.Array())
        rows << u"%1 %2 %3%4%5%6"_s.arg(field[u"id"].toInt())
                    .arg(field[u"name"].toString())
                    .arg(int(field[u"group"].toBool()))
                    .arg(int(field[u"sum"].toBool()))
                    .arg(int(field[u"sort"].toBool()))
                    .arg(int(field[u"column"].toBool()));
    QCOMPARE(rows,
             (QStringList{u"5000 date 1011"_s, u"109 item1 1011"_s, u"110 item2 1011"_s, u"111 item3 1011"_s,
                          u"112 item4 1011"_s, u"113 rate 1011"_s, u"114 item5 1011"_s,
                          u"117 isBillable 1011"_s, u"118 isBilled 1011"_s, u"115 amount 0111"_s,
                          u"5003 break 0111"_s, u"5001 duration 0111"_s, u"5002 effective 0111"_s,
                          u"5005 start 0011"_s, u"5006 end 0011"_s, u"116 notes 0001"_s}));
}

void TestReportCommands::FieldsOfExpenses() {
    const auto captions = [this] {
        QStringList captions;
        for (const QJsonValue& field : Command(u"fields --mode expense"_s).Array())
            captions << field[u"caption"].toString();
        return captions;
    };
    QCOMPARE(captions(),
             (QStringList{u"Date"_s, u"Client"_s, u"Project"_s, u"Description"_s, u"Payment"_s, u"Currency"_s,
                          u"Billable"_s, u"Billed"_s, u"Reimbursable"_s, u"Reimbursed"_s, u"Personal"_s,
                          u"Rate"_s, u"miles"_s, u"Amount"_s, u"Notes"_s}));
}

void TestReportCommands::WholeJson() {
    QCOMPARE(m_home->Run(Words(u"query save Week --period 2"_s)).exit, 0);
    const Reply saved =
        m_home->RunJson(QStringList{u"report"_s, u"save"_s, u"By client"_s, u"--title"_s, u"T \"1\""_s} +
                        Words(u"--kind compound --group 109,110 --sum 5002,115 --columns date,notes "
                              "--sort date:desc,start --header H --footer F --query WEEK"_s));
    QVERIFY2(saved.exit == 0, saved.err.constData());
    QCOMPARE(saved.out,
             QByteArray("{\"mode\": \"time\", \"kind\": \"compound\", \"name\": \"By client\", \"reserved\": "
                        "false, \"type\": \"compound\", \"selection\": \"query\", \"useStoredQuery\": true, "
                        "\"queryName\": \"Week\", \"group\": [109, 110], \"sum\": [5002, 115], \"sort\": "
                        "[{\"id\": 5000, \"direction\": -1}, {\"id\": 5005, \"direction\": 1}], \"columns\": "
                        "[5000, 116], \"title\": \"T \\\"1\\\"\", \"header\": \"H\", \"footer\": \"F\"}\n"));
    QCOMPARE(m_home->RunJson({u"report"_s, u"show"_s, u"By client"_s}).out, saved.out);
    QCOMPARE(m_home->RunJson({u"report"_s, u"show"_s, u"by CLIENT"_s, u"--kind"_s, u"compound"_s}).out,
             saved.out);
}

void TestReportCommands::ResetState() {
    QCOMPARE(
        Command(u"save one --kind listing --mode expense"_s).Object(),
        FromText(u"{'mode': 'expense', 'kind': 'listing', 'name': 'one', 'reserved': false, 'type': "
                 "'listing', 'selection': 'listed', 'useStoredQuery': false, 'queryName': '', 'group': "
                 "[], 'sum': [], 'sort': [], 'columns': [], 'title': '', 'header': '', 'footer': ''}"_s));
}

void TestReportCommands::FieldsByNumberOrName() {
    const QJsonObject report = Command(
                                   u"save one --mode expense --kind grouped --group item1,139,5007 "
                                   "--sum amount,distance --sort flag3:asc"_s)
                                   .Object();
    QCOMPARE(report[u"group"].toArray(), (QJsonArray{131, 139, 5007}));
    QCOMPARE(report[u"sum"].toArray(), (QJsonArray{136, 5004}));
    QCOMPARE(report[u"sort"][0][u"id"].toInt(), 141);
}

void TestReportCommands::Refused_data() {
    AddRefusedColumns();
    auto* const row = &AddRefused;
    row("", 2, "--kind: grouped, listing, compound");
    row("--kind summary", 2, "Allowed: grouped, listing, compound");
    row("--kind Listing", 2, "Allowed: grouped, listing, compound");
    row("--kind grouped", 2, "Choose at least one field to group by.");
    row("--kind compound --sum 115", 2, "Choose at least one field to group by.");
    row("--kind grouped --group 109", 2, "Choose at least one field to add up.");
    row("--kind compound --group 109 --sum=", 2, "Choose at least one field to add up.");
    row("--kind listing --group 109", 2, "--group: a listing report has no place for it");
    row("--kind listing --sum 115", 2, "--sum: a listing report");
    row("--kind grouped --columns 109", 2, "--columns: a grouped report");
    row("--kind listing --columns 9999", 2, "Allowed: 5000 date, 109 item1");
    row("--kind listing --columns 131", 2, "\"131\" can't be used there");
    row("--kind listing --columns date,,item1", 2, "\"\" can't be used there");
    row("--kind listing --columns date,date", 2, "\"date\" stands there twice");
    row("--kind listing --columns date,5000", 2, "\"5000\" stands there twice");
    row("--kind listing --columns date:desc", 2, "\"date:desc\" can't be used there");
    row("--kind listing --sort notes", 2, "\"notes\" can't be used there");
    row("--kind listing --sort date:up", 2, "\"date:up\" can't be used there");
    row("--kind grouped --group start --sum 115", 2, "\"start\" can't be used there");
    row("--kind grouped --group date --sum rate", 2, "\"rate\" can't be used there");
    row("--kind listing --select all", 2, "Allowed: selected, listed, query");
    row("--kind listing --select query --query Week", 2, "--query or --select");
    row("--kind listing --query Week", 4, "no stored query called \"Week\"");
    row("--kind listing --item1 Acme", 2, "--item1");
    row("--kind listing --period 2", 2, "--period");
    row("--kind listing --mode x", 2, "\"x\"");
}
void TestReportCommands::Refused() {
    QFETCH(QString, options);
    QFETCH(QByteArray, words);
    QFETCH(int, exitCode);
    CheckRefused(Command(u"save one "_s + options), exitCode, words);
    QCOMPARE(Listed(), QString());
}

void TestReportCommands::TextsUpToTheLongest() {
    const auto save = [this](qsizetype length) {
        return m_home->RunJson({u"report"_s, u"save"_s, u"one"_s, u"--kind"_s, u"listing"_s, u"--footer"_s,
                                QString(length, u'ä')});
    };
    const Reply refused = save(4097);
    QCOMPARE(refused.exit, 2);
    QVERIFY2(refused.err.contains("--footer") && refused.err.contains("4096"), refused.err.constData());
    QCOMPARE(Listed(), QString());
    QCOMPARE(save(4096).Object()[u"footer"].toString().size(), 4096);
}

void TestReportCommands::SaveAsksBeforeItReplaces() {
    QCOMPARE(Command(u"save Mine --kind listing --title a"_s).exit, 0);
    CheckAsks(Command(u"save MINE --kind listing --title b"_s),
              "There is a definition called \"Mine\" already.");
    QCOMPARE(Listed(), u"listing Mine"_s);
    QCOMPARE(Command(u"save Mine --kind listing --header h --yes"_s).exit, 0);
    const QJsonObject replaced = Command(u"show Mine"_s).Object();
    QCOMPARE(replaced[u"header"].toString(), u"h"_s);
    QCOMPARE(replaced[u"title"].toString(), QString());
    // As typed, beside the other. Another kind, or mode, is none of its business.
    QCOMPARE(Command(u"save MINE --kind listing --yes"_s).exit, 0);
    QCOMPARE(Command(u"save mine --kind grouped --group 109 --sum 115"_s).exit, 0);
    QCOMPARE(Command(u"save mine --kind listing --mode expense"_s).exit, 0);
    QCOMPARE(Listed(), u"grouped mine, listing Mine, listing MINE"_s);
    QCOMPARE(m_home->Run({u"report"_s, u"save"_s, QString(), u"--kind"_s, u"listing"_s}).exit, 2);
}

void TestReportCommands::Edit_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("changed");
    QTest::newRow("a text") << Words(u"--title new"_s) << u"{'title': 'new'}"_s;
    QTest::newRow("an empty text") << QStringList{u"--title"_s, QString()} << u"{'title': ''}"_s;
    QTest::newRow("an empty order") << QStringList{u"--sort"_s, QString()} << u"{'sort': []}"_s;
    QTest::newRow("an empty choice of columns") << QStringList{u"--columns="_s} << u"{'columns': []}"_s;
    QTest::newRow("groups") << Words(u"--group date"_s) << u"{'group': [5000]}"_s;
    QTest::newRow("the list") << Words(u"--select listed"_s)
                              << u"{'selection': 'listed', 'useStoredQuery': false}"_s;
    QTest::newRow("a query to be asked for") << Words(u"--select query"_s) << u"{'useStoredQuery': false}"_s;
    QTest::newRow("no query") << QStringList{u"--query="_s}
                              << u"{'useStoredQuery': false, 'queryName': ''}"_s;
    QTest::newRow("nothing") << QStringList() << u"{}"_s;
}
void TestReportCommands::Edit() {
    QFETCH(QStringList, options);
    QFETCH(QString, changed);
    QCOMPARE(m_home->Run(Words(u"query save Week --period 2"_s)).exit, 0);
    const Reply saved = Command(
        u"save one --kind compound --group 109 --sum 115 --columns date --sort start:desc "
        "--title t --query Week"_s);
    QJsonObject expected = saved.Object();
    const QJsonObject changes = FromText(changed);
    for (const QString& key : changes.keys()) expected[key] = changes[key];
    const Reply edited = m_home->RunJson(QStringList{u"report"_s, u"edit"_s, u"ONE"_s} + options);
    QVERIFY2(edited.exit == 0, edited.err.constData());
    QCOMPARE(edited.Object(), expected);
    QCOMPARE(Command(u"show one"_s).Object(), expected);
    QCOMPARE(Listed(), u"compound one"_s);
}

void TestReportCommands::EditKeepsTheRest() {
    QCOMPARE(Command(u"save one --kind grouped --group 109 --sum 115 --title t"_s).exit, 0);
    const QByteArray before = Command(u"show one"_s).out;
    for (const QString& options :
         {u"--group="_s, u"--sum="_s, u"--columns date"_s, u"--group 9999"_s, u"--title new --sort x"_s}) {
        QCOMPARE(Command(u"edit one "_s + options).exit, 2);
        QCOMPARE(Command(u"show one"_s).out, before);
    }
}

void TestReportCommands::Rename() {
    QCOMPARE(Command(u"save one --kind listing --title a"_s).exit, 0);
    QCOMPARE(Command(u"save two --kind listing --title b"_s).exit, 0);
    QCOMPARE(m_home->RunJson({u"report"_s, u"rename"_s, u"one"_s, QString()}).Object()[u"name"].toString(),
             u"one"_s);
    QCOMPARE(Command(u"rename one one"_s).Object()[u"title"].toString(), u"a"_s);
    QCOMPARE(Listed(), u"listing one, listing two"_s);
    // A definition that is there is replaced without a question.
    const QJsonObject renamed = Command(u"rename ONE two"_s).Object();
    QCOMPARE(renamed[u"name"].toString(), u"two"_s);
    QCOMPARE(renamed[u"title"].toString(), u"a"_s);
    QCOMPARE(Listed(), u"listing two"_s);
    QCOMPARE(Command(u"rename two TWO"_s).exit, 0);
    QCOMPARE(Listed(), u"listing TWO"_s);
    // Neither is the new name compared with the reserved one.
    QCOMPARE(m_home->RunJson({u"report"_s, u"rename"_s, u"TWO"_s, u"(last used)"_s}).exit, 0);
    QCOMPARE(Listed(), u"listing (last used)"_s);
    QVERIFY(Command(u"list"_s).Array()[0][u"reserved"].toBool());
}

void TestReportCommands::Delete() {
    QCOMPARE(Command(u"save one --kind listing"_s).exit, 0);
    QCOMPARE(Command(u"save two --kind listing"_s).exit, 0);
    CheckDelete({u"one"_s, u"two"_s}, "Delete the definition \"one\"?");
    QCOMPARE(Listed(), QString());
}

void TestReportCommands::TheReservedName_data() {
    QTest::addColumn<QStringList>("command");
    const QStringList listing{u"--kind"_s, u"listing"_s};
    for (const QString& name : {u"(last used)"_s, u"(LAST Used)"_s}) {
        QTest::addRow("save %s", qPrintable(name)) << QStringList{u"save"_s, name} + listing;
        QTest::addRow("edit %s", qPrintable(name)) << QStringList{u"edit"_s, name, u"--title"_s, u"x"_s};
        QTest::addRow("rename %s", qPrintable(name)) << QStringList{u"rename"_s, name, u"x"_s};
        QTest::addRow("delete %s", qPrintable(name)) << QStringList{u"delete"_s, name, u"--yes"_s};
    }
}
void TestReportCommands::TheReservedName() {
    QFETCH(QStringList, command);
    QCOMPARE(Command(u"save one --kind listing --title a"_s).exit, 0);
    QCOMPARE(m_home->RunJson({u"report"_s, u"rename"_s, u"one"_s, u"(last used)"_s}).exit, 0);
    const Reply reply = Command(command);
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("holds the report that was run last"), reply.err.constData());
    QCOMPARE(Listed(), u"listing (last used)"_s);
    const QJsonObject shown = m_home->RunJson({u"report"_s, u"show"_s, u"(last used)"_s}).Object();
    QCOMPARE(shown[u"title"].toString(), u"a"_s);
    QVERIFY(shown[u"reserved"].toBool());
}

/// It changes with every use of the filter dialog.
void TestReportCommands::TheReservedQueryIsntOffered() {
    const Reply reply = m_home->RunJson(
        {u"report"_s, u"save"_s, u"one"_s, u"--kind"_s, u"listing"_s, u"--query"_s, u"(Last used)"_s});
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains("can't be tied to it"), reply.err.constData());
}

void TestReportCommands::OneNameInSomeKinds() {
    QCOMPARE(Command(u"save Mine --kind listing --title l"_s).exit, 0);
    QCOMPARE(Command(u"save Mine --kind grouped --group 109 --sum 115 --title g"_s).exit, 0);
    for (const QString& command :
         {u"show Mine"_s, u"edit MINE --title x"_s, u"rename Mine x"_s, u"delete Mine --yes"_s}) {
        const Reply reply = Command(command);
        QCOMPARE(reply.exit, 2);
        QVERIFY2(reply.err.contains("grouped, listing"), reply.err.constData());
    }
    QCOMPARE(Command(u"show Mine --kind listing"_s).Object()[u"title"].toString(), u"l"_s);
    QCOMPARE(Command(u"show Mine --kind compound"_s).exit, 4);
    // Written as it is stored it is found in spite of another one in other letters.
    QCOMPARE(Command(u"rename Mine MINE --kind grouped"_s).exit, 0);
    QCOMPARE(Command(u"show MINE"_s).Object()[u"kind"].toString(), u"grouped"_s);
    QCOMPARE(Command(u"show mine"_s).exit, 2);
}

void TestReportCommands::ListByKind() {
    QCOMPARE(Command(u"list"_s).out, QByteArray("[]\n"));
    QCOMPARE(Command(u"save c --kind compound --group 109 --sum 115"_s).exit, 0);
    QCOMPARE(Command(u"save l2 --kind listing"_s).exit, 0);
    QCOMPARE(Command(u"save l1 --kind listing"_s).exit, 0);
    QCOMPARE(Command(u"save g --kind grouped --group 109 --sum 115"_s).exit, 0);
    QCOMPARE(Command(u"save e --kind listing --mode expense"_s).exit, 0);
    QCOMPARE(Listed(), u"grouped g, listing l2, listing l1, compound c"_s);
    QCOMPARE(Listed(u"--kind listing"_s), u"listing l2, listing l1"_s);
    QCOMPARE(Command(u"list --mode expense"_s).out,
             QByteArray("[\n{\"mode\": \"expense\", \"kind\": \"listing\", \"name\": \"e\", \"reserved\": "
                        "false}]\n"));
    QCOMPARE(m_home->Run({u"report"_s, u"list"_s}).out,
             QByteArray("grouped   g\nlisting   l2\nlisting   l1\ncompound  c\n"));
}

void TestReportCommands::UnknownNames_data() {
    QTest::addColumn<QString>("command");
    for (const char* command : {"show no", "edit no --title x", "rename no x", "delete no --yes",
                                "show one --mode expense", "show one --kind grouped"})
        QTest::newRow(command) << QString::fromLatin1(command);
}
void TestReportCommands::UnknownNames() {
    QFETCH(QString, command);
    QCOMPARE(Command(u"save one --kind listing"_s).exit, 0);
    CheckRefused(Command(command), 4, "There is no definition called");
    QCOMPARE(Listed(), u"listing one"_s);
}

/// Its key says one kind, its type another.
void TestReportCommands::ADamagedDefinition() {
    QCOMPARE(Command(u"save one --kind grouped --group 109 --sum 115"_s).exit, 0);
    Change("UPDATE entries SET value = 'nonsense' WHERE name = 'ReportType'");
    const QJsonObject shown = Command(u"show one"_s).Object();
    QCOMPARE(shown[u"kind"].toString(), u"grouped"_s);
    QCOMPARE(shown[u"type"].toString(), u"listing"_s);
    QCOMPARE(Command(u"edit one --title t"_s).Object(), [&] {
        QJsonObject edited = shown;
        edited[u"title"_s] = u"t"_s;
        return edited;
    }());
    QCOMPARE(Listed(), u"grouped one"_s);
    QCOMPARE(Command(u"edit one --group 109"_s).exit, 2);
}

void TestReportCommands::WithoutType() {
    QCOMPARE(Command(u"save one --kind listing"_s).exit, 0);
    Change("DELETE FROM entries WHERE name = 'ReportType'");
    CheckUnusable({u"report show one"_s, u"report edit one --title x"_s, u"report rename one two"_s}, "one");
    QCOMPARE(Listed(), u"listing one"_s);
    QCOMPARE(Command(u"delete one --yes"_s).exit, 0);
}

void TestReportCommands::ForPeople() {
    QCOMPARE(m_home->Run(Words(u"labels set 109 Customer"_s)).exit, 0);
    QCOMPARE(m_home
                 ->Run(Words(u"report save one --kind grouped --group 109 --sum 5002,115 "
                             "--sort date:desc,start --select selected --header h"_s))
                 .out,
             QByteArray("Name        one\n"
                        "Kind        grouped\n"
                        "Records     the selected ones\n"
                        "Grouped by  Customer\n"
                        "Added up    Net time, Amount\n"
                        "Order       Date, descending; Start\n"
                        "Text above  h\n"));
    QVERIFY(m_home->Run(Words(u"report fields"_s))
                .out.contains("\n 109  item1  Customer: group, sort, column\n"));
}

TEST_CLASS(TestReportCommands);
#include "TestReportCommands.moc"
