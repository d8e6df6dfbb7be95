#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "defaults": records kept under names, and new records that start from them.
class TestDefaultCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void ListOfAnEmptyHome();
    void SaveAndShow();
    void SaveFromARecord();
    void SaveReplacesAfterAsking();
    void ModesAreApart();
    void Names_data();
    void Names();
    void Rename_data();
    void Rename();
    void Delete();
    void TheEmptyRecordCantBeChanged_data();
    void TheEmptyRecordCantBeChanged();
    void Refused_data();
    void Refused();
    void NotesThatAreTooLong();
    void NewTimes();
    void NewExpenses();
    void NewFromTheEmptyRecord();

 private:
    [[nodiscard]] Reply Defaults(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"defaults"_s) + words);
    }
    /// The stored names, joined, without that of the empty record.
    [[nodiscard]] QString Stored(const QString& mode = u"time"_s) const {
        QStringList names;
        for (const QJsonValue& name : Defaults({u"list"_s, u"--mode"_s, mode}).Array())
            names.append(name.toString());
        if (!names.isEmpty() && names.last() == u"(empty record)") names.removeLast();
        return names.join(u'|');
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestDefaultCommands::ListOfAnEmptyHome() {
    QCOMPARE(Defaults({u"list"_s}).out, QByteArray("[\"(empty record)\"]\n"));
    QCOMPARE(Defaults({u"list"_s, u"--mode"_s, u"expense"_s}).out, QByteArray("[\"(empty record)\"]\n"));
    const QJsonObject empty = Defaults({u"show"_s, u"(empty record)"_s}).Object();
    QCOMPARE(empty[u"date"].toString(), QDate::currentDate().toString(Qt::ISODate));
    QCOMPARE(empty[u"id"].toString(), QString());
    QVERIFY(empty[u"start"].isNull());
}

void TestDefaultCommands::SaveAndShow() {
    const Reply saved = Defaults(QStringList{u"save"_s, u"Büro 😀"_s} +
                                 Words(u"--date 2026-11-19 --start 9:00 --end 17:00 --item1 Alpha --billable "
                                       "--rate 80"_s));
    QVERIFY2(saved.exit == 0, saved.err.constData());
    QCOMPARE(
        Only(saved.Object(), {u"id"_s, u"date"_s, u"start"_s, u"duration"_s, u"item1"_s, u"amount"_s}),
        FromText(u"{'id': '', 'date': '2026-11-19', 'start': '09:00', 'duration': 480, 'item1': 'Alpha', "
                 "'amount': 640.0}"_s));
    QCOMPARE(Defaults({u"show"_s, u"Büro 😀"_s}).Object(), saved.Object());
    QCOMPARE(Defaults({u"show"_s, u"BÜRO 😀"_s}).Object(), saved.Object());
    QCOMPARE(Stored(), u"Büro 😀"_s);
    QVERIFY(m_home->Run({u"defaults"_s, u"show"_s, u"Büro 😀"_s}).out.contains("Alpha"));
    // A default is no record.
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 0);
}

void TestDefaultCommands::SaveFromARecord() {
    const QString id =
        m_home->AddExpense(Words(u"--distance 10 --rate 2 --item1 Alpha --flag1 --date 2026-01-02"_s));
    const Reply saved = Defaults({u"save"_s, u"Trip"_s, u"--mode"_s, u"expense"_s, u"--from"_s, id});
    QVERIFY2(saved.exit == 0, saved.err.constData());
    QJsonObject record = m_home->ShowExpense(id);
    record.insert(u"id"_s, QString());
    QCOMPARE(Defaults({u"show"_s, u"Trip"_s, u"--mode"_s, u"expense"_s}).Object(), record);
}

void TestDefaultCommands::SaveReplacesAfterAsking() {
    QCOMPARE(Defaults({u"save"_s, u"Standard"_s, u"--item1"_s, u"Alpha"_s}).exit, 0);
    const Reply asked = Defaults({u"save"_s, u"standard"_s, u"--item1"_s, u"Beta"_s});
    QCOMPARE(asked.exit, 1);
    QVERIFY2(asked.err.contains("\"Standard\""), asked.err.constData());
    QCOMPARE(Defaults({u"show"_s, u"Standard"_s}).Object()[u"item1"].toString(), u"Alpha"_s);
    QCOMPARE(Defaults({u"save"_s, u"standard"_s, u"--item1"_s, u"Beta"_s, u"--yes"_s}).exit, 0);
    QCOMPARE(Stored(), u"Standard"_s);
    QCOMPARE(Defaults({u"show"_s, u"Standard"_s}).Object()[u"item1"].toString(), u"Beta"_s);
}

void TestDefaultCommands::ModesAreApart() {
    QCOMPARE(Defaults({u"save"_s, u"Mine"_s}).exit, 0);
    QCOMPARE(Defaults({u"save"_s, u"Mine"_s, u"--mode"_s, u"expense"_s, u"--amount"_s, u"5"_s}).exit, 0);
    QCOMPARE(Defaults({u"delete"_s, u"Mine"_s, u"--yes"_s}).exit, 0);
    QCOMPARE(Stored(), QString());
    QCOMPARE(Stored(u"expense"_s), u"Mine"_s);
    QCOMPARE(Defaults({u"show"_s, u"Mine"_s, u"--mode"_s, u"expense"_s}).Object()[u"amount"].toDouble(), 5.0);
}

void TestDefaultCommands::Names_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("exit");
    QTest::newRow("slashes, as in a path") << u"a/b\\c"_s << 0;
    QTest::newRow("quotes and percent signs") << u"'\"%s%n"_s << 0;
    QTest::newRow("emoji") << u"😀"_s << 0;
    QTest::newRow("blanks") << u"  "_s << 0;
    QTest::newRow("255 characters") << QString(255, u'x') << 0;
    QTest::newRow("256 characters") << QString(256, u'x') << 2;
    QTest::newRow("nothing") << QString() << 2;
}

void TestDefaultCommands::Names() {
    QFETCH(QString, name);
    const Reply reply = Defaults({u"save"_s, name, u"--item1"_s, u"A"_s});
    QTEST(reply.exit, "exit");
    QCOMPARE(Stored(), reply.exit == 0 ? name : QString());
    if (reply.exit != 0) return;
    QCOMPARE(Defaults({u"show"_s, name}).Object()[u"item1"].toString(), u"A"_s);
    QCOMPARE(Defaults({u"delete"_s, name, u"--yes"_s}).exit, 0);
    QCOMPARE(Stored(), QString());
}

void TestDefaultCommands::Rename_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a new name") << u"One"_s << u"Three"_s << 0 << u"Two|Three"_s;
    QTest::newRow("other letters") << u"one"_s << u"ONE"_s << 0 << u"Two|ONE"_s;
    QTest::newRow("the same name") << u"One"_s << u"One"_s << 0 << u"One|Two"_s;
    QTest::newRow("a name that is taken") << u"One"_s << u"TWO"_s << 1 << u"One|Two"_s;
    QTest::newRow("a name that is reserved") << u"One"_s << u"(Empty Record)"_s << 1 << u"One|Two"_s;
    QTest::newRow("an unknown one") << u"Three"_s << u"Four"_s << 4 << u"One|Two"_s;
    QTest::newRow("to nothing") << u"One"_s << QString() << 2 << u"One|Two"_s;
    QTest::newRow("to 256 characters") << u"One"_s << QString(256, u'x') << 2 << u"One|Two"_s;
}

void TestDefaultCommands::Rename() {
    QFETCH(QString, name);
    QFETCH(QString, to);
    for (const QString& stored : {u"One"_s, u"Two"_s})
        QCOMPARE(Defaults({u"save"_s, stored, u"--item1"_s, stored}).exit, 0);
    const Reply reply = Defaults({u"rename"_s, name, to});
    QTEST(reply.exit, "exit");
    QTEST(Stored(), "stored");
    if (reply.exit == 0) QCOMPARE(Defaults({u"show"_s, to}).Object()[u"item1"].toString(), u"One"_s);
}

void TestDefaultCommands::Delete() {
    QCOMPARE(Defaults({u"save"_s, u"Mine"_s}).exit, 0);
    const Reply asked = Defaults({u"delete"_s, u"Mine"_s});
    QCOMPARE(asked.exit, 1);
    QCOMPARE(asked.out, QByteArray("{\"deleted\": 0}\n"));
    QVERIFY2(asked.err.contains("\"Mine\""), asked.err.constData());
    m_home->Run({u"settings"_s, u"set"_s, u"confirmDelete"_s, u"0"_s});
    QCOMPARE(Defaults({u"delete"_s, u"mine"_s}).out, QByteArray("{\"deleted\": 1}\n"));
    QCOMPARE(Defaults({u"delete"_s, u"Mine"_s}).exit, 4);
    QCOMPARE(Defaults({u"show"_s, u"Mine"_s}).exit, 4);
}

void TestDefaultCommands::TheEmptyRecordCantBeChanged_data() {
    QTest::addColumn<QStringList>("words");
    QTest::newRow("save") << QStringList{u"save"_s, u"(empty record)"_s};
    QTest::newRow("save, in other letters") << QStringList{u"save"_s, u"(Empty Record)"_s};
    QTest::newRow("rename") << QStringList{u"rename"_s, u"(empty record)"_s, u"Mine"_s};
    QTest::newRow("delete") << QStringList{u"delete"_s, u"(empty record)"_s};
}

void TestDefaultCommands::TheEmptyRecordCantBeChanged() {
    QFETCH(QStringList, words);
    const Reply reply = Defaults(words + QStringList(u"--yes"_s));
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("stands for an empty record"), reply.err.constData());
    QCOMPARE(Stored(), QString());
}

void TestDefaultCommands::Refused_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("exit");
    QTest::newRow("an unknown mode") << u"list --mode both"_s << 2;
    QTest::newRow("no name") << u"save"_s << 2;
    QTest::newRow("a field of expenses in a default of times") << u"save Mine --flag1"_s << 2;
    QTest::newRow("a field of times in a default of expenses")
        << u"save Mine --mode expense --start 9:00"_s << 2;
    QTest::newRow("fields and a record") << u"save Mine --item1 A --from X"_s << 2;
    QTest::newRow("no such record") << u"save Mine --from 00000000000000000000000000000000"_s << 4;
    QTest::newRow("a value that is none") << u"save Mine --start 25:00"_s << 2;
    QTest::newRow("a rate without billable") << u"save Mine --rate 5"_s << 2;
    QTest::newRow("a text that is too long") << u"save Mine --item1 "_s + QString(256, u'x') << 2;
    QTest::newRow("a word too many") << u"show One Two"_s << 2;
    QTest::newRow("an unknown default") << u"show Mine"_s << 4;
    QTest::newRow("an option of the other command") << u"show Mine --item1 A"_s << 2;
}

void TestDefaultCommands::Refused() {
    QFETCH(QString, line);
    const Reply reply = Defaults(Words(line));
    QTEST(reply.exit, "exit");
    QVERIFY(reply.out.isEmpty() && reply.err.startsWith("velmarch-cli: "));
    QCOMPARE(Stored(), QString());
}

void TestDefaultCommands::NotesThatAreTooLong() {
    const Reply reply = Defaults({u"save"_s, u"Long"_s, u"--notes"_s, QString(3000, u'n')});
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("4096"), reply.err.constData());
    QCOMPARE(Stored(), QString());
}

void TestDefaultCommands::NewTimes() {
    QCOMPARE(Defaults(QStringList{u"save"_s, u"Office"_s} +
                      Words(u"--date 2020-01-01 --start 9:00 --end 11:00 --item1 Alpha"_s))
                 .exit,
             0);
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    const QJsonObject plain =
        m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"defaults:office"_s}).Object();
    QCOMPARE(Only(plain, {u"start"_s, u"end"_s, u"duration"_s, u"item1"_s}),
             FromText(u"{'start': '09:00', 'end': '11:00', 'duration': 120, 'item1': 'Alpha'}"_s));
    QCOMPARE(plain[u"date"].toString(), today);
    QCOMPARE(plain[u"id"].toString().size(), 32);
    const QString former = m_home->Add(Words(u"--date 2026-11-19 --end 15:00"_s));
    const QJsonObject next =
        m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"defaults:Office"_s, u"--successive"_s, former})
            .Object();
    // A minute later, and as long as before.
    QCOMPARE(Only(next, {u"date"_s, u"start"_s, u"end"_s}),
             FromText(u"{'date': '2026-11-19', 'start': '15:01', 'end': '17:01'}"_s));
    const QJsonObject timed = m_home
                                  ->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"defaults:Office"_s,
                                             u"--timestamp"_s, u"--timer"_s})
                                  .Object();
    QCOMPARE(timed[u"timer"][u"state"].toString(), u"running"_s);
    QCOMPARE(timed[u"item1"].toString(), u"Alpha"_s);
}

void TestDefaultCommands::NewExpenses() {
    QCOMPARE(
        Defaults(Words(u"save Trip --mode expense --date 2020-01-01 --distance 10 --rate 2 --item1 Alpha"_s))
            .exit,
        0);
    const Reply made = m_home->RunJson({u"expense"_s, u"new"_s, u"--from"_s, u"defaults:TRIP"_s});
    QVERIFY2(made.exit == 0, made.err.constData());
    QCOMPARE(Only(made.Object(), {u"distance"_s, u"amount"_s, u"item1"_s}),
             FromText(u"{'distance': 10.0, 'amount': 20.0, 'item1': 'Alpha'}"_s));
    QCOMPARE(made.Object()[u"date"].toString(), QDate::currentDate().toString(Qt::ISODate));
    // Defaults of time records are others.
    QCOMPARE(m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"defaults:Trip"_s}).exit, 4);
}

void TestDefaultCommands::NewFromTheEmptyRecord() {
    const QJsonObject made =
        m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"defaults:(empty record)"_s}).Object();
    QCOMPARE(made[u"date"].toString(), QDate::currentDate().toString(Qt::ISODate));
    QCOMPARE(made[u"id"].toString().size(), 32);
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1);
    QCOMPARE(m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"defaults:"_s}).exit, 4);
}

TEST_CLASS(TestDefaultCommands);
#include "TestDefaultCommands.moc"
