#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QTest>
#include <QTime>

using namespace Qt::Literals::StringLiterals;

/// The commands about single records and about selections, on the real program.
class TestTimeCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void Add_data();
    void Add();
    void AddPrintsAllFieldsInOrder();
    void AddWithoutDateIsToday();
    void Edit_data();
    void WhatLooksLikeASlipIsTold();
    void Edit();
    void EditRefused_data();
    void EditRefused();
    void EditOfTimesWithATimer_data();
    void EditOfTimesWithATimer();
    void ClearRateLeavesTheAmount();
    void Show();
    void Delete();
    void DeleteTakesTheTimer();
    void DeleteOfAnUnknownDeletesNothing();
    void DeleteAsks();
    void DeleteAsksOnATerminal_data();
    void DeleteAsksOnATerminal();
    void Copy();
    void Mark_data();
    void Mark();
    void New();
    void NewCopy();
    void NewSuccessive_data();
    void NewSuccessive();
    void NewIgnoresTheDialogSetting();
    void NewTimer();
    void SettingsActOnEntry();

 private:
    std::unique_ptr<ConsoleHome> m_home;
};

void TestTimeCommands::Add_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("expected");
    QTest::newRow("start and end give the duration")
        << u"--start 09:00 --end 17:00"_s
        << u"{'start': '09:00', 'end': '17:00', 'duration': 480, 'effective': 480}"_s;
    QTest::newRow("the break shortens the effective time")
        << u"--start 09:00 --end 17:30 --break 0:30"_s
        << u"{'duration': 510, 'break': 30, 'effective': 480}"_s;
    QTest::newRow("start and duration give the end")
        << u"--start 23:30 --duration 1:00"_s << u"{'start': '23:30', 'end': '00:30', 'duration': 60}"_s;
    QTest::newRow("end and duration give the start")
        << u"--end 10:00 --duration 1.5"_s << u"{'start': '08:30', 'end': '10:00', 'duration': 90}"_s;
    QTest::newRow("a duration alone")
        << u"--duration 2:15"_s << u"{'start': null, 'end': null, 'duration': 135, 'effective': 135}"_s;
    QTest::newRow("equal times are no duration")
        << u"--start 08:00 --end 08:00"_s << u"{'start': '08:00', 'end': '08:00', 'duration': null}"_s;
    QTest::newRow("a break longer than the duration")
        << u"--duration 2:00 --break 2:30"_s << u"{'duration': 120, 'break': 150, 'effective': null}"_s;
    QTest::newRow("the rate gives the amount") << u"--billable --duration 1:30 --rate 10"_s
                                               << u"{'rate': 10.0, 'amount': 15.0, 'isBillable': true}"_s;
    QTest::newRow("the amount gives the rate")
        << u"--billable --duration 2:00 --amount 30"_s << u"{'rate': 15.0, 'amount': 30.0}"_s;
    QTest::newRow("the fixed order holds whatever the order typed")
        << u"--rate 80 --break 0:30 --end 17:30 --start 9:00 --billable yes --date 2026-11-19"_s
        << u"{'date': '2026-11-19', 'effective': 480, 'rate': 80.0, 'amount': 640.0}"_s;
    QTest::newRow("the end wins over the start where a duration follows")
        << u"--duration 1:00 --start 9:00 --end 17:00"_s
        << u"{'start': '09:00', 'end': '10:00', 'duration': 60}"_s;
    QTest::newRow("billed and billable")
        << u"--billed --billable"_s << u"{'isBillable': true, 'isBilled': true}"_s;
    QTest::newRow("not billable") << u"--billable no"_s << u"{'isBillable': false, 'rate': null}"_s;
    QTest::newRow("the items")
        << u"--item1 A --item2 B --item3 C --item4 D --item5 EUR"_s
        << u"{'item1': 'A', 'item2': 'B', 'item3': 'C', 'item4': 'D', 'item5': 'EUR'}"_s;
    QTest::newRow("an empty text with an equals sign")
        << u"--item1= --item2=a=b"_s << u"{'item1': '', 'item2': 'a=b'}"_s;
    QTest::newRow("12 hours") << u"--start 0:15 --end 12:15"_s
                              << u"{'start': '00:15', 'end': '12:15', 'duration': 720}"_s;
    QTest::newRow("a very long span") << u"--duration 32767:59"_s << u"{'duration': 1966079}"_s;
}

void TestTimeCommands::Add() {
    QFETCH(QString, fields);
    QFETCH(QString, expected);
    const Reply reply = m_home->RunJson(QStringList{u"time"_s, u"add"_s} + Words(fields));
    QCOMPARE(reply.exit, 0);
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(reply.Object(), wanted.keys()), wanted);
    const QJsonObject stored = m_home->Show(reply.Object()[u"id"].toString());
    QCOMPARE(stored, reply.Object());
}

void TestTimeCommands::AddPrintsAllFieldsInOrder() {
    const Reply reply = m_home->RunJson(
        {u"time"_s, u"add"_s, u"--date"_s, u"2026-11-19"_s, u"--start"_s, u"09:00"_s, u"--end"_s, u"17:30"_s,
         u"--break"_s, u"30.0"_s.left(0) + u"0:30"_s, u"--billable"_s, u"--rate"_s, u"80"_s});
    const QByteArray id = reply.Object()[u"id"].toString().toLatin1();
    QCOMPARE(id.size(), 32);
    QCOMPARE(reply.out,
             "{\"id\": \"" + id +
                 "\", \"date\": \"2026-11-19\", \"start\": \"09:00\", \"end\": \"17:30\", "
                 "\"duration\": 510, \"break\": 30, \"effective\": 480, "
                 "\"item1\": \"\", \"item2\": \"\", \"item3\": \"\", \"item4\": \"\", \"item5\": \"\", "
                 "\"rate\": 80.0, \"amount\": 640.0, \"isBillable\": true, \"isBilled\": false, "
                 "\"isExported\": false, \"notes\": \"\", \"timer\": null}\n");
}

void TestTimeCommands::AddWithoutDateIsToday() {
    const QDate before = QDate::currentDate();
    const QString date = m_home->RunJson({u"time"_s, u"add"_s}).Object()[u"date"].toString();
    const QDate after = QDate::currentDate();
    QVERIFY(date == before.toString(Qt::ISODate) || date == after.toString(Qt::ISODate));
}

void TestTimeCommands::Edit_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a new start, the end stays") << u"--start 8:00 --end 10:00"_s << u"--start 9:00"_s
                                                << u"{'start': '09:00', 'end': '10:00', 'duration': 60}"_s;
    QTest::newRow("a new duration moves the end") << u"--start 8:00 --end 10:00"_s << u"--duration 3:00"_s
                                                  << u"{'start': '08:00', 'end': '11:00', 'duration': 180}"_s;
    QTest::newRow("a longer break lowers the amount")
        << u"--start 8:00 --end 9:30 --billable --rate 10"_s << u"--break 0:30"_s
        << u"{'amount': 10.0, 'rate': 10.0}"_s;
    QTest::newRow("no longer billable")
        << u"--billable --duration 1:00 --rate 10 --billed"_s << u"--billable no"_s
        << u"{'isBillable': false, 'isBilled': false, 'rate': null, 'amount': null}"_s;
    QTest::newRow("clear the end") << u"--start 8:00 --end 9:30"_s << u"--clear end"_s
                                   << u"{'start': '08:00', 'end': null, 'duration': 90}"_s;
    QTest::newRow("clear two fields")
        << u"--item1 A --notes B"_s << u"--clear item1 --clear notes"_s << u"{'item1': '', 'notes': ''}"_s;
    QTest::newRow("clear the duration, the times stay")
        << u"--start 8:00 --end 9:30"_s << u"--clear duration"_s
        << u"{'start': '08:00', 'end': '09:30', 'duration': null, 'effective': null}"_s;
    QTest::newRow("clear the break") << u"--duration 2:00 --break 0:30"_s << u"--clear break"_s
                                     << u"{'break': null, 'effective': 120}"_s;
    QTest::newRow("a yes-or-no field in front of the identity")
        << u"--item1 A"_s << u"--billable"_s << u"{'isBillable': true, 'item1': 'A'}"_s;
    QTest::newRow("a new date") << u"--date 2026-11-19"_s << u"--date 2027-01-01"_s
                                << u"{'date': '2027-01-01'}"_s;
    QTest::newRow("nothing to change") << u"--item1 A"_s << QString() << u"{'item1': 'A'}"_s;
}

void TestTimeCommands::Edit() {
    QFETCH(QString, stored);
    QFETCH(QString, fields);
    QFETCH(QString, expected);
    const QString id = m_home->Add(Words(stored));
    const Reply reply = m_home->RunJson(QStringList{u"time"_s, u"edit"_s} + Words(fields) + QStringList{id});
    QCOMPARE(reply.exit, 0);
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(reply.Object(), wanted.keys()), wanted);
    QCOMPARE(m_home->Show(id), reply.Object());
}

void TestTimeCommands::EditRefused_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("a rate without billable")
        << u"--rate 5"_s << QByteArray("--rate: The record isn't billable");
    QTest::newRow("an amount without billable") << u"--amount 5"_s << QByteArray("--amount");
    QTest::newRow("billed without billable") << u"--billed"_s << QByteArray("--billed");
    QTest::newRow("one bad field stops the good ones")
        << u"--item1 New --start 25:00"_s << QByteArray("25:00");
    QTest::newRow("set and cleared at once") << u"--start 9:00 --clear start"_s << QByteArray("--start");
    QTest::newRow("the date can't be cleared")
        << u"--clear date"_s << QByteArray("\"date\" can't be cleared");
    QTest::newRow("no such field") << u"--clear colour"_s << QByteArray("\"colour\"");
}

void TestTimeCommands::EditRefused() {
    QFETCH(QString, fields);
    QFETCH(QByteArray, words);
    const QString id = m_home->Add({u"--item1"_s, u"Old"_s, u"--start"_s, u"8:00"_s});
    const QJsonObject before = m_home->Show(id);
    const Reply reply = m_home->RunJson(QStringList{u"time"_s, u"edit"_s, id} + Words(fields));
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains(words), reply.err.constData());
    QVERIFY(reply.out.isEmpty());
    QCOMPARE(m_home->Show(id), before);
}

void TestTimeCommands::EditOfTimesWithATimer_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<int>("exit");
    QTest::newRow("start") << u"--start 9:00"_s << 1;
    QTest::newRow("end") << u"--end 9:00"_s << 1;
    QTest::newRow("duration") << u"--duration 1:00"_s << 1;
    QTest::newRow("break") << u"--break 1:00"_s << 1;
    QTest::newRow("clearing the start") << u"--clear start"_s << 1;
    QTest::newRow("text and start: nothing changes") << u"--item1 New --start 9:00"_s << 1;
    QTest::newRow("a text") << u"--item1 New"_s << 0;
    QTest::newRow("a date") << u"--date 2026-01-01"_s << 0;
}

void TestTimeCommands::EditOfTimesWithATimer() {
    QFETCH(QString, fields);
    const QString id = m_home->Add({u"--start"_s, u"8:00"_s});
    QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, id}).exit, 0);
    QCOMPARE(m_home->Run({u"timer"_s, u"pause"_s, id}).exit, 0);
    const QJsonObject before = m_home->Show(id);
    const Reply reply = m_home->RunJson(QStringList{u"time"_s, u"edit"_s, id} + Words(fields));
    QTEST(reply.exit, "exit");
    QCOMPARE(m_home->Show(id) == before, reply.exit == 1);
}

void TestTimeCommands::ClearRateLeavesTheAmount() {
    const QString id = m_home->Add(Words(u"--billable --duration 2:00 --rate 10"_s));
    const QJsonObject changed = m_home->RunJson({u"time"_s, u"edit"_s, id, u"--clear"_s, u"rate"_s}).Object();
    QCOMPARE(Only(changed, {u"rate"_s, u"amount"_s}), FromText(u"{'rate': null, 'amount': 20.0}"_s));
}

void TestTimeCommands::WhatLooksLikeASlipIsTold() {
    const Reply moved = m_home->RunJson(
        {u"time"_s, u"add"_s, u"--start"_s, u"9:00"_s, u"--end"_s, u"10:00"_s, u"--duration"_s, u"3:00"_s});
    QCOMPARE(moved.exit, 0);
    QVERIFY2(moved.err.contains("The duration takes the end from 10:00 AM to 12:00 PM."),
             moved.err.constData());
    const Reply agreed = m_home->RunJson(
        {u"time"_s, u"add"_s, u"--start"_s, u"9:00"_s, u"--end"_s, u"12:00"_s, u"--duration"_s, u"3:00"_s});
    QCOMPARE(agreed.err, QByteArray());
    const Reply backwards =
        m_home->RunJson({u"time"_s, u"add"_s, u"--start"_s, u"9:00"_s, u"--end"_s, u"8:00"_s});
    QCOMPARE(backwards.exit, 0);
    QVERIFY2(backwards.err.contains("there are no hours"), backwards.err.constData());
}

void TestTimeCommands::Show() {
    const QString id = m_home->Add(Words(u"--date 2026-11-19 --item1 Client --start 9:00"_s));
    const Reply lines = m_home->Run({u"time"_s, u"show"_s, id.toLower()});
    QCOMPARE(lines.exit, 0);
    QVERIFY2(lines.out.contains("Client       Client\n"), lines.out.constData());
    QVERIFY(lines.out.contains("2026-11-19"));
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, u"0123456789ABCDEF0123456789ABCDEF"_s}).exit, 4);
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, u"x' OR '1'='1"_s}).exit, 4);
}

void TestTimeCommands::Delete() {
    const QString a = m_home->Add({}), b = m_home->Add({}), kept = m_home->Add({});
    const Reply reply = m_home->RunJson({u"--yes"_s, u"time"_s, u"delete"_s, a, b, a});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.out, QByteArray("{\"deleted\": 2}\n"));
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, a}).exit, 4);
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, b}).exit, 4);
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, kept}).exit, 0);
}

void TestTimeCommands::DeleteTakesTheTimer() {
    const QString gone = m_home->Add({}), kept = m_home->Add({});
    m_home->Run({u"timer"_s, u"start"_s, gone});
    m_home->Run({u"timer"_s, u"start"_s, kept});
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"delete"_s, gone}).exit, 0);
    const QJsonArray timers = m_home->RunJson({u"timer"_s, u"status"_s}).Array();
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers[0][u"id"].toString(), kept);
}

void TestTimeCommands::DeleteOfAnUnknownDeletesNothing() {
    const QString id = m_home->Add({});
    const QString unknown = u"00000000000000000000000000000000"_s;
    const Reply reply = m_home->RunJson({u"--yes"_s, u"time"_s, u"delete"_s, id, unknown});
    QCOMPARE(reply.exit, 4);
    QVERIFY(reply.err.contains(unknown.toLatin1()));
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, id}).exit, 0);
}

void TestTimeCommands::DeleteAsks() {
    const QString id = m_home->Add({});
    const Reply reply = m_home->RunJson({u"time"_s, u"delete"_s, id});
    QCOMPARE(reply.exit, 1);
    QCOMPARE(reply.Object(), FromText(u"{'deleted': 0}"_s));
    QVERIFY2(reply.err.contains("--yes"), reply.err.constData());
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, id}).exit, 0);
    m_home->Run({u"settings"_s, u"set"_s, u"confirmDelete"_s, u"0"_s});
    QCOMPARE(m_home->RunJson({u"time"_s, u"delete"_s, id}).Object(), FromText(u"{'deleted': 1}"_s));
}

void TestTimeCommands::DeleteAsksOnATerminal_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("deleted");
    QTest::newRow("yes") << u"yes"_s << 1;
    QTest::newRow("the first letter") << u"Y"_s << 1;
    QTest::newRow("no") << u"no"_s << 0;
    QTest::newRow("something else") << u"yesterday"_s << 0;
    QTest::newRow("nothing") << QString() << 0;
}

void TestTimeCommands::DeleteAsksOnATerminal() {
    QFETCH(QString, typed);
    QFETCH(int, deleted);
    const QString id = m_home->Add({});
    const Reply reply =
        m_home->RunShell(u"echo '%1' | script -qec \"$cli time delete %2\" /dev/null"_s.arg(typed, id));
    QVERIFY2(reply.out.contains("Delete this record?"), reply.out.constData());
    QVERIFY2(reply.out.contains("Deleted: " + QByteArray::number(deleted)), reply.out.constData());
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1 - deleted);
}

void TestTimeCommands::Copy() {
    const QString id =
        m_home->Add(Words(u"--date 2026-11-19 --start 9:00 --end 10:00 --item1 A --billable --rate 9"_s));
    const Reply refused = m_home->RunJson({u"time"_s, u"copy"_s, id});
    QCOMPARE(refused.exit, 1);
    QCOMPARE(refused.out, QByteArray("[]\n"));
    const Reply reply = m_home->RunJson({u"--yes"_s, u"time"_s, u"copy"_s, id});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Array().size(), 1);
    const QString copy = reply.Array()[0].toString();
    QVERIFY(copy != id);
    QJsonObject expected = m_home->Show(id);
    expected[u"id"_s] = copy;
    QCOMPARE(m_home->Show(copy), expected);
}

void TestTimeCommands::Mark_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<int>("changed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first") << QString() << u"first"_s << 1 << u"{'isBillable': true, 'isBilled': false}"_s;
    QTest::newRow("first again") << u"--billable"_s << u"first"_s << 0
                                 << u"{'isBillable': true, 'isBilled': false}"_s;
    QTest::newRow("first and second")
        << QString() << u"first-second"_s << 1 << u"{'isBillable': true, 'isBilled': true}"_s;
    QTest::newRow("first and second on a billable one")
        << u"--billable"_s << u"first-second"_s << 1 << u"{'isBillable': true, 'isBilled': true}"_s;
    QTest::newRow("first and second again")
        << u"--billable --billed"_s << u"first-second"_s << 0 << u"{'isBillable': true, 'isBilled': true}"_s;
    QTest::newRow("exported") << QString() << u"exported"_s << 1
                              << u"{'isExported': true, 'isBillable': false}"_s;
    QTest::newRow("not exported, as it is")
        << QString() << u"not-exported"_s << 0 << u"{'isExported': false}"_s;
}

void TestTimeCommands::Mark() {
    QFETCH(QString, stored);
    QFETCH(QString, mark);
    QFETCH(int, changed);
    QFETCH(QString, expected);
    const QString id = m_home->Add(Words(stored));
    const Reply reply = m_home->RunJson({u"--yes"_s, u"time"_s, u"mark"_s, id, u"--as"_s, mark});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object(), (QJsonObject{{u"changed"_s, changed}}));
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(m_home->Show(id), wanted.keys()), wanted);
    if (mark == u"exported") {
        m_home->Run({u"--yes"_s, u"time"_s, u"mark"_s, id, u"--as"_s, u"not-exported"_s});
        QCOMPARE(m_home->Show(id)[u"isExported"].toBool(), false);
    }
}

void TestTimeCommands::New() {
    const QJsonObject blank = m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"blank"_s}).Object();
    QVERIFY(blank[u"start"].isNull());
    QVERIFY(!blank[u"date"].isNull());
    const QTime before = QTime::currentTime();
    const QJsonObject stamped = m_home->RunJson({u"time"_s, u"new"_s, u"--timestamp"_s}).Object();
    const QTime after = QTime::currentTime();
    const QString start = stamped[u"start"].toString();
    QVERIFY(start == before.toString(u"HH:mm"_s) || start == after.toString(u"HH:mm"_s));
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 2);
}

void TestTimeCommands::NewCopy() {
    const QString id = m_home->Add(Words(u"--date 2026-11-19 --start 9:00 --end 11:00 --item1 A"_s));
    const QJsonObject copy =
        m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"copy:"_s + id, u"--successive"_s, id}).Object();
    QCOMPARE(
        Only(copy, {u"date"_s, u"start"_s, u"end"_s, u"duration"_s, u"item1"_s}),
        FromText(
            u"{'date': '2026-11-19', 'start': '11:01', 'end': '13:01', 'duration': 120, 'item1': 'A'}"_s));
    QCOMPARE(m_home->Run({u"time"_s, u"new"_s, u"--from"_s, u"copy:nothing"_s}).exit, 4);
    const Reply named = m_home->Run({u"time"_s, u"new"_s, u"--from"_s, u"defaults:Office"_s});
    QCOMPARE(named.exit, 4);
    QVERIFY2(named.err.contains("defaults list"), named.err.constData());
}

void TestTimeCommands::NewSuccessive_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a minute after the end") << u"--date 2026-11-19 --start 9:00 --end 17:00"_s
                                            << u"{'date': '2026-11-19', 'start': '17:01', 'end': null}"_s;
    QTest::newRow("past midnight the date stays")
        << u"--date 2026-11-19 --start 22:00 --end 23:59"_s << u"{'date': '2026-11-19', 'start': '00:00'}"_s;
    QTest::newRow("after a record without an end")
        << u"--date 2026-11-19 --start 9:00"_s << u"{'date': '2026-11-19', 'start': null}"_s;
}

void TestTimeCommands::NewSuccessive() {
    QFETCH(QString, stored);
    QFETCH(QString, expected);
    const QString id = m_home->Add(Words(stored));
    const Reply reply =
        m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"blank"_s, u"--successive"_s, id});
    QCOMPARE(reply.exit, 0);
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(reply.Object(), wanted.keys()), wanted);
}

void TestTimeCommands::NewIgnoresTheDialogSetting() {
    for (const QString& value : {u"0"_s, u"1"_s}) {
        m_home->Run({u"settings"_s, u"set"_s, u"dialogOnQuickEntry"_s, value});
        QCOMPARE(m_home->RunJson({u"time"_s, u"new"_s, u"--timestamp"_s}).exit, 0);
    }
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 2);
}

void TestTimeCommands::NewTimer() {
    const QString id = m_home->Add(Words(u"--start 9:00 --end 11:00"_s));
    const QJsonObject made =
        m_home->RunJson({u"time"_s, u"new"_s, u"--from"_s, u"copy:"_s + id, u"--timestamp"_s, u"--timer"_s})
            .Object();
    QCOMPARE(made[u"timer"][u"state"].toString(), u"running"_s);
    QVERIFY2(made[u"timer"][u"seconds"].toInt() < 60, "a timer of a new record counts from zero");
    QCOMPARE(made[u"duration"].toInt(), 120);
    QCOMPARE(m_home->RunJson({u"timer"_s, u"status"_s}).Array().size(), 1);
}

void TestTimeCommands::SettingsActOnEntry() {
    m_home->Run({u"settings"_s, u"set"_s, u"roundStartType"_s, u"16"_s});
    m_home->Run({u"settings"_s, u"set"_s, u"roundStartMinutes"_s, u"5"_s});
    QCOMPARE(m_home->Show(m_home->Add({u"--start"_s, u"11:58"_s}))[u"start"].toString(), u"12:00"_s);
    m_home->Run({u"settings"_s, u"set"_s, u"lockDurationOnTimeEdit"_s, u"yes"_s});
    const QString id = m_home->Add(Words(u"--start 8:00 --end 10:00"_s));
    const QJsonObject changed = m_home->RunJson({u"time"_s, u"edit"_s, id, u"--start"_s, u"9:00"_s}).Object();
    QCOMPARE(changed[u"end"].toString(), u"11:00"_s);
}

TEST_CLASS(TestTimeCommands);
#include "TestTimeCommands.moc"
