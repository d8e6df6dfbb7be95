#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "expense": single records, entered by their rules, on the real program.
class TestExpenseCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void Add_data();
    void Add();
    void AddPrintsAllFieldsInOrder();
    void AddWithoutDateIsToday();
    void AddInARegionWithACommaForTheStop();
    void Edit_data();
    void Edit();
    void Refused_data();
    void ClearOnAPlainAmount();
    void Refused();
    void ANumberThatIsStoredAsAnother_data();
    void ANumberThatIsStoredAsAnother();
    void WhatLooksLikeASlipIsTold();
    void RefusedChangesNothing();
    void LongTexts_data();
    void LongTexts();
    void TheNextTripStartsWhereTheLastOneEnded();
    void NoSuggestionWhereItIsSwitchedOff();
    void TheDateAloneKeepsTheMoney();
    void Show();
    void KindsDontMix();

 private:
    [[nodiscard]] Reply Expense(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"expense"_s) + words);
    }
    [[nodiscard]] int LastReading() const {
        return m_home->RunJson({u"settings"_s, u"get"_s, u"odometerLastEnd"_s}).Object()[u"value"].toInt();
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestExpenseCommands::Add_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("expected");
    QTest::newRow("an amount alone is no distance entry")
        << u"--amount 12.5"_s << u"{'isDistance': false, 'distance': null, 'rate': null, 'amount': 12.5}"_s;
    QTest::newRow("distance and rate give the amount")
        << u"--distance 10 --rate 0.5"_s
        << u"{'isDistance': true, 'distance': 10.0, 'rate': 0.5, 'amount': 5.0}"_s;
    QTest::newRow("a distance alone costs nothing")
        << u"--distance 10"_s << u"{'isDistance': true, 'distance': 10.0, 'rate': null, 'amount': 0.0}"_s;
    QTest::newRow("a rate alone makes a distance entry without a distance")
        << u"--rate 0.5"_s << u"{'isDistance': true, 'distance': null, 'rate': 0.5, 'amount': 0.0}"_s;
    QTest::newRow("a negative rate gives no negative amount")
        << u"--distance 10 --rate -0.5"_s << u"{'rate': -0.5, 'amount': 0.0}"_s;
    QTest::newRow("the amount comes from what was typed, not from its rounded form")
        << u"--distance 100.005 --rate 2"_s << u"{'distance': 100.01, 'amount': 200.01}"_s;
    QTest::newRow("readings give the distance")
        << u"--odometer-start 1000 --odometer-end 1120.5 --rate 0.3"_s
        << u"{'isDistance': true, 'odometerStart': '1000', 'odometerEnd': '1120.5', 'distance': 120.5, "
           "'amount': 36.15}"_s;
    QTest::newRow("an end below the start leaves the distance")
        << u"--distance 7 --odometer-start 1000 --odometer-end 900"_s
        << u"{'distance': 7.0, 'odometerStart': '1000', 'odometerEnd': '900'}"_s;
    QTest::newRow("only an end reading: the start counts as 0")
        << u"--odometer-end 45"_s << u"{'odometerStart': '', 'odometerEnd': '45', 'distance': 45.0}"_s;
    QTest::newRow("only a start reading gives no distance")
        << u"--odometer-start 45"_s << u"{'isDistance': true, 'odometerStart': '45', 'distance': null}"_s;
    QTest::newRow("readings win over a distance, whatever the order typed")
        << u"--odometer-end 150 --odometer-start 100 --rate 2 --distance 7"_s
        << u"{'distance': 50.0, 'amount': 100.0}"_s;
    QTest::newRow("the items")
        << u"--item1 A --item2 B --item3 C --item4 D --item5 EUR"_s
        << u"{'item1': 'A', 'item2': 'B', 'item3': 'C', 'item4': 'D', 'item5': 'EUR'}"_s;
    QTest::newRow("all flags") << u"--flag5 --flag4 yes --flag3 --flag2 --flag1"_s
                               << u"{'flag1': true, 'flag2': true, 'flag3': true, 'flag4': true, "
                                  "'flag5': true}"_s;
    QTest::newRow("the fifth flag stands alone")
        << u"--flag5"_s << u"{'flag1': false, 'flag3': false, 'flag5': true}"_s;
    QTest::newRow("flags that are not set need nothing")
        << u"--flag2 no --flag4 no"_s << u"{'flag2': false}"_s;
    QTest::newRow("money that came back") << u"--amount -20"_s << u"{'amount': -20.0}"_s;
    QTest::newRow("no amount") << QString() << u"{'amount': null, 'isDistance': false}"_s;
    QTest::newRow("a distance entry that says so")
        << u"--distance-entry"_s << u"{'isDistance': true, 'amount': null}"_s;
}

void TestExpenseCommands::Add() {
    QFETCH(QString, fields);
    QFETCH(QString, expected);
    const Reply reply = Expense(QStringList(u"add"_s) + Words(fields));
    QVERIFY2(reply.exit == 0, reply.err.constData());
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(reply.Object(), wanted.keys()), wanted);
    QCOMPARE(m_home->ShowExpense(reply.Object()[u"id"].toString()), reply.Object());
}

void TestExpenseCommands::AddPrintsAllFieldsInOrder() {
    const Reply reply =
        Expense(Words(u"add --date 2026-11-19 --odometer-start 1000 --odometer-end 1120.5 "
                      "--rate 0.3 --item5 EUR --flag1 --notes there"_s));
    const QByteArray id = reply.Object()[u"id"].toString().toLatin1();
    QCOMPARE(id.size(), 32);
    QCOMPARE(reply.out,
             "{\"id\": \"" + id +
                 "\", \"date\": \"2026-11-19\", \"item1\": \"\", \"item2\": \"\", \"item3\": \"\", "
                 "\"item4\": \"\", \"item5\": \"EUR\", \"isDistance\": true, \"distance\": 120.5, "
                 "\"rate\": 0.3, \"amount\": 36.15, \"odometerStart\": \"1000\", "
                 "\"odometerEnd\": \"1120.5\", \"flag1\": true, \"flag2\": false, "
                 "\"flag3\": false, \"flag4\": false, \"flag5\": false, \"isExported\": false, "
                 "\"notes\": \"there\"}\n");
}

void TestExpenseCommands::AddWithoutDateIsToday() {
    const QDate before = QDate::currentDate();
    const QString date = Expense({u"add"_s}).Object()[u"date"].toString();
    QVERIFY(date == before.toString(Qt::ISODate) || date == QDate::currentDate().toString(Qt::ISODate));
}

void TestExpenseCommands::AddInARegionWithACommaForTheStop() {
    const Reply reply = ConsoleHome::RunBare(
        QStringList{u"--home"_s, m_home->Path(), u"--json"_s} +
            Words(u"expense add --odometer-start 1000 --odometer-end 1120,5 --rate 0,3"_s),
        {u"LC_ALL=de_DE.UTF-8"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(Only(reply.Object(), {u"distance"_s, u"amount"_s, u"odometerEnd"_s}),
             FromText(u"{'distance': 120.5, 'amount': 36.15, 'odometerEnd': '1120,5'}"_s));
}

void TestExpenseCommands::Edit_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a new rate, a new amount")
        << u"--distance 10 --rate 0.5"_s << u"--rate 2"_s << u"{'distance': 10.0, 'amount': 20.0}"_s;
    QTest::newRow("a distance by hand has no readings")
        << u"--odometer-start 100 --odometer-end 150 --rate 1"_s << u"--distance 60"_s
        << u"{'distance': 60.0, 'odometerStart': '', 'odometerEnd': '', 'amount': 60.0}"_s;
    QTest::newRow("a new end reading")
        << u"--odometer-start 100 --odometer-end 150 --rate 1"_s << u"--odometer-end 180"_s
        << u"{'odometerStart': '100', 'distance': 80.0, 'amount': 80.0}"_s;
    QTest::newRow("a plain amount becomes a distance entry")
        << u"--amount 50"_s << u"--distance 10 --rate 2"_s
        << u"{'isDistance': true, 'distance': 10.0, 'amount': 20.0}"_s;
    QTest::newRow("a distance entry becomes a plain amount and keeps its distance")
        << u"--distance 10 --rate 2"_s << u"--distance-entry no --amount 5"_s
        << u"{'isDistance': false, 'distance': 10.0, 'rate': 2.0, 'amount': 5.0}"_s;
    QTest::newRow("no distance entry any more: the computed amount goes")
        << u"--distance 10 --rate 2"_s << u"--distance-entry no"_s
        << u"{'isDistance': false, 'amount': null}"_s;
    QTest::newRow("clear the rate, the amount stays")
        << u"--distance 10 --rate 2"_s << u"--clear rate"_s << u"{'rate': null, 'amount': 20.0}"_s;
    QTest::newRow("clear the amount, the rate stays")
        << u"--distance 10 --rate 2"_s << u"--clear amount"_s << u"{'rate': 2.0, 'amount': null}"_s;
    QTest::newRow("clear the distance") << u"--distance 10 --rate 2"_s << u"--clear distance"_s
                                        << u"{'isDistance': true, 'distance': null, 'amount': 0.0}"_s;
    QTest::newRow("clear a reading, the distance stays")
        << u"--odometer-start 100 --odometer-end 150"_s << u"--clear odometer-start"_s
        << u"{'odometerStart': '', 'odometerEnd': '150', 'distance': 50.0}"_s;
    QTest::newRow("clear a reading while the other is entered anew")
        << u"--odometer-start 10 --odometer-end 20"_s << u"--odometer-start 15 --clear odometer-end"_s
        << u"{'odometerStart': '15', 'odometerEnd': '', 'distance': 10.0}"_s;
    QTest::newRow("turning the first flag off clears the second")
        << u"--flag1 --flag2 --flag3 --flag4"_s << u"--flag1 no"_s
        << u"{'flag1': false, 'flag2': false, 'flag3': true, 'flag4': true}"_s;
    QTest::newRow("clearing the third flag clears the fourth")
        << u"--flag3 --flag4"_s << u"--clear flag3"_s << u"{'flag3': false, 'flag4': false}"_s;
    QTest::newRow("the second flag on a record that has the first")
        << u"--flag1"_s << u"--flag2"_s << u"{'flag2': true}"_s;
    QTest::newRow("clear two fields")
        << u"--item1 A --notes B"_s << u"--clear item1 --clear notes"_s << u"{'item1': '', 'notes': ''}"_s;
    QTest::newRow("nothing to change") << u"--item1 A"_s << QString() << u"{'item1': 'A'}"_s;
}

void TestExpenseCommands::Edit() {
    QFETCH(QString, stored);
    QFETCH(QString, fields);
    QFETCH(QString, expected);
    const QString id = m_home->AddExpense(Words(stored));
    const Reply reply = Expense(QStringList(u"edit"_s) + Words(fields) + QStringList(id));
    QVERIFY2(reply.exit == 0, reply.err.constData());
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(reply.Object(), wanted.keys()), wanted);
    QCOMPARE(m_home->ShowExpense(id), reply.Object());
}

void TestExpenseCommands::Refused_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("an amount for a distance entry")
        << u"--distance 10 --amount 5"_s
        << QByteArray("--amount: The amount of a distance entry is computed");
    QTest::newRow("an amount beside a reading")
        << u"--odometer-end 10 --amount 5"_s << QByteArray("--amount");
    QTest::newRow("the second flag without the first")
        << u"--flag2"_s << QByteArray("--flag2: This needs --flag1.");
    QTest::newRow("the fourth flag without the third") << u"--flag4 yes"_s << QByteArray("--flag3");
    QTest::newRow("the second flag while the first is turned off")
        << u"--flag1 no --flag2"_s << QByteArray("--flag1");
    QTest::newRow("a plain amount with a distance")
        << u"--distance-entry no --distance 4"_s << QByteArray("--distance");
    QTest::newRow("a comma between other than groups of digits")
        << u"--amount 1,5"_s << QByteArray("\"1,5\" is no number");
    QTest::newRow("no number") << u"--amount ten"_s << QByteArray("\"ten\" is no number");
    QTest::newRow("a number with something behind it") << u"--distance 10km"_s << QByteArray("\"10km\"");
    QTest::newRow("an absurd rate") << u"--rate 1e99"_s << QByteArray("\"1e99\"");
    QTest::newRow("what stands for none") << u"--amount -1"_s << QByteArray("\"-1\"");
    QTest::newRow("a reading that is none") << u"--odometer-end far"_s << QByteArray("\"far\"");
    QTest::newRow("a negative reading") << u"--odometer-start -5"_s << QByteArray("\"-5\"");
    QTest::newRow("a day that isn't") << u"--date 2026-02-30"_s << QByteArray("2026-02-30");
    QTest::newRow("neither yes nor no") << u"--flag1 perhaps"_s << QByteArray("perhaps");
    QTest::newRow("a field of time records") << u"--start 9:00"_s << QByteArray("--start");
    QTest::newRow("billable is the first flag here") << u"--billable"_s << QByteArray("--billable");
    QTest::newRow("a field twice") << u"--amount 1 --amount 2"_s << QByteArray("--amount is given twice");
}

/// A distance entry that became a plain amount has kept what it was made of.
void TestExpenseCommands::ClearOnAPlainAmount() {
    const QString id = m_home->AddExpense(Words(u"--distance 5 --rate 2"_s));
    QCOMPARE(Expense(QStringList{u"edit"_s, id} + Words(u"--distance-entry no --amount 7"_s)).exit, 0);
    QCOMPARE(Expense(QStringList{u"edit"_s, id} + Words(u"--clear rate --clear distance"_s)).exit, 0);
    QCOMPARE(Only(m_home->ShowExpense(id), {u"isDistance"_s, u"distance"_s, u"rate"_s, u"amount"_s}),
             FromText(u"{'isDistance': false, 'distance': null, 'rate': null, 'amount': 7.0}"_s));
}

void TestExpenseCommands::Refused() {
    QFETCH(QString, fields);
    QFETCH(QByteArray, words);
    const Reply reply = Expense(QStringList(u"add"_s) + Words(fields));
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains(words), reply.err.constData());
    QVERIFY(reply.out.isEmpty());
}

/// A script hears of a number that is stored as another one; what is exact is stored in silence.
void TestExpenseCommands::ANumberThatIsStoredAsAnother_data() {
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QByteArray>("note");
    QTest::newRow("more digits than are kept")
        << u"16777217"_s << QByteArray("\"16777217\" is kept as 1677721");
    QTest::newRow("seven digits") << u"12345.67"_s << QByteArray();
    QTest::newRow("digits in groups") << u"1,234.50"_s << QByteArray();
    QTest::newRow("rounded to the places of amounts") << u"12.345"_s << QByteArray();
}

void TestExpenseCommands::ANumberThatIsStoredAsAnother() {
    QFETCH(QString, amount);
    QFETCH(QByteArray, note);
    const Reply reply = Expense({u"add"_s, u"--amount"_s, amount});
    QCOMPARE(reply.exit, 0);
    QVERIFY2(note.isEmpty() ? reply.err.isEmpty() : reply.err.contains(note), reply.err.constData());
}

void TestExpenseCommands::WhatLooksLikeASlipIsTold() {
    const QByteArray told = "The distance -3.00 is below zero.";
    const Reply reply = Expense(Words(u"add --distance -3 --rate 2"_s));
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains(told), reply.err.constData());
    const QString id = reply.Object()[u"id"].toString();
    QVERIFY(!Expense({u"edit"_s, id, u"--notes"_s, u"x"_s}).err.contains(told));
    QVERIFY(
        Expense(Words(u"add --odometer-start 20 --odometer-end 10"_s)).err.contains("no distance follows"));
}

void TestExpenseCommands::RefusedChangesNothing() {
    const QString id = m_home->AddExpense(Words(u"--distance 10 --rate 2 --item1 Old"_s));
    const QJsonObject before = m_home->ShowExpense(id);
    for (const QString& fields : {u"--item1 New --amount 5"_s, u"--item1 New --flag2"_s,
                                  u"--item1 New --clear date"_s, u"--item1 New --clear item1"_s}) {
        QCOMPARE(Expense(QStringList{u"edit"_s, id} + Words(fields)).exit, 2);
        QCOMPARE(m_home->ShowExpense(id), before);
    }
}

void TestExpenseCommands::LongTexts_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("exit");
    QTest::newRow("255 characters") << u"item1"_s << QString(255, u'x') << 0;
    QTest::newRow("256 characters") << u"item1"_s << QString(256, u'x') << 2;
    QTest::newRow("256 in the currency") << u"item5"_s << QString(256, u'x') << 2;
    QTest::newRow("notes of 32,000") << u"notes"_s << QString(32000, u'n') << 0;
    QTest::newRow("notes of 32,001") << u"notes"_s << QString(32001, u'n') << 2;
    QTest::newRow("quotes and percent signs") << u"item3"_s << u"'\"%s%n\\"_s << 0;
    QTest::newRow("emoji") << u"item4"_s << u"😀 日本語 Ü"_s << 0;
}

void TestExpenseCommands::LongTexts() {
    QFETCH(QString, field);
    QFETCH(QString, text);
    const Reply reply = Expense({u"add"_s, u"--"_s + field, text});
    QTEST(reply.exit, "exit");
    if (reply.exit == 0) QCOMPARE(reply.Object()[field].toString(), text);
}

void TestExpenseCommands::TheNextTripStartsWhereTheLastOneEnded() {
    QCOMPARE(LastReading(), -1);
    m_home->AddExpense(Words(u"--odometer-start 1000 --odometer-end 1120.5"_s));
    QCOMPARE(LastReading(), 1120);
    const QJsonObject next = Expense(Words(u"add --odometer-end 1200"_s)).Object();
    QCOMPARE(Only(next, {u"odometerStart"_s, u"distance"_s}),
             FromText(u"{'odometerStart': '1120', 'distance': 80.0}"_s));
    // A user who says where the trip began is believed, even that it wasn't read.
    const QJsonObject other =
        Expense({u"add"_s, u"--odometer-start="_s, u"--odometer-end"_s, u"30"_s}).Object();
    QCOMPARE(other[u"distance"].toDouble(), 30.0);
    QCOMPARE(LastReading(), 30);
    // A refused entry leaves the reading alone.
    QCOMPARE(Expense(Words(u"add --odometer-end 99 --flag2"_s)).exit, 2);
    QCOMPARE(LastReading(), 30);
}

void TestExpenseCommands::NoSuggestionWhereItIsSwitchedOff() {
    m_home->AddExpense(Words(u"--odometer-start 1000 --odometer-end 1120"_s));
    m_home->Run({u"settings"_s, u"set"_s, u"odometerSuggestStart"_s, u"0"_s});
    const QJsonObject next = Expense(Words(u"add --odometer-end 1200"_s)).Object();
    QCOMPARE(Only(next, {u"odometerStart"_s, u"distance"_s}),
             FromText(u"{'odometerStart': '', 'distance': 1200.0}"_s));
}

/// Money that isn't touched isn't computed anew: here the rate was taken away and its amount stayed.
void TestExpenseCommands::TheDateAloneKeepsTheMoney() {
    const QString id = m_home->AddExpense(Words(u"--distance 10 --rate 2"_s));
    QCOMPARE(Expense({u"edit"_s, id, u"--clear"_s, u"rate"_s}).exit, 0);
    const QJsonObject edited = Expense(Words(u"edit --date 2026-01-02 "_s + id)).Object();
    QCOMPARE(edited[u"amount"].toDouble(), 20.0);
    QCOMPARE(edited[u"date"].toString(), u"2026-01-02"_s);
}

void TestExpenseCommands::Show() {
    const QString id = m_home->AddExpense(Words(u"--date 2026-11-19 --item3 Taxi --amount 12.5 --flag5"_s));
    const Reply lines = m_home->Run({u"expense"_s, u"show"_s, id.toLower()});
    QCOMPARE(lines.exit, 0);
    QVERIFY2(lines.out.simplified().contains("Description Taxi"), lines.out.constData());
    QVERIFY(lines.out.contains("12.50") && lines.out.contains("2026-11-19"));
    QVERIFY(!lines.out.contains("Odometer"));
}

void TestExpenseCommands::KindsDontMix() {
    const QString expense = m_home->AddExpense({}), time = m_home->Add({});
    const Reply reply = Expense({u"show"_s, time});
    QCOMPARE(reply.exit, 4);
    QVERIFY2(reply.err.contains("velmarch-cli expense list"), reply.err.constData());
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, expense}).exit, 4);
    QCOMPARE(Expense({u"edit"_s, time, u"--item1"_s, u"A"_s}).exit, 4);
    QCOMPARE(m_home->Run({u"--yes"_s, u"expense"_s, u"delete"_s, expense, time}).exit, 4);
    QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, expense}).exit, 4);
    QCOMPARE(Expense({u"show"_s, u"x' OR '1'='1"_s}).exit, 4);
    QCOMPARE(Expense({u"show"_s, expense}).exit, 0);
}

TEST_CLASS(TestExpenseCommands);
#include "TestExpenseCommands.moc"
