#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Texts of the command line go into the pick lists as those of a dialog do.
class TestEnteredItems : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void Kept_data();
    void Kept();
    void AnEditKeepsWhatItEnters();
    void NothingIsKeptTwice();
    void WhatIsSwitchedOffIsNotKept_data();
    void WhatIsSwitchedOffIsNotKept();
    void ARefusedRecordKeepsNothing();

 private:
    [[nodiscard]] QString Texts(const QString& list) const {
        QStringList texts;
        for (const QJsonValue& text : m_home->RunJson({u"items"_s, u"list"_s, list}).Array())
            texts.append(text.toString());
        return texts.join(u'|');
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestEnteredItems::Kept_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("texts");
    QTest::newRow("the client of a time record") << u"time add --item1 Alpha"_s << u"16"_s << u"Alpha"_s;
    QTest::newRow("the project") << u"time add --item2 One"_s << u"17"_s << u"One"_s;
    QTest::newRow("the activity") << u"time add --item3 Work"_s << u"32"_s << u"Work"_s;
    QTest::newRow("the cost centre") << u"time add --item4 Dept"_s << u"33"_s << u"Dept"_s;
    QTest::newRow("the currency") << u"time add --item5 EUR"_s << u"72"_s << u"EUR"_s;
    QTest::newRow("a typed rate") << u"time add --billable --duration 1:00 --rate 80.50"_s << u"34"_s
                                  << u"80.5"_s;
    QTest::newRow("a computed rate isn't typed")
        << u"time add --billable --duration 2:00 --amount 30"_s << u"34"_s << QString();
    QTest::newRow("amounts are not kept unless that is wanted")
        << u"time add --billable --amount 30"_s << u"73"_s << QString();
    QTest::newRow("notes have no list") << u"time add --notes Alpha"_s << u"16"_s << QString();
    QTest::newRow("the client of an expense") << u"expense add --item1 Alpha"_s << u"16"_s << u"Alpha"_s;
    QTest::newRow("the description") << u"expense add --item3 Taxi"_s << u"68"_s << u"Taxi"_s;
    QTest::newRow("the payment") << u"expense add --item4 Cash"_s << u"71"_s << u"Cash"_s;
    QTest::newRow("a kind of payment by its code is in no list")
        << u"expense add --item4 [CA]"_s << u"71"_s << QString();
    QTest::newRow("a distance") << u"expense add --distance 12.50"_s << u"69"_s << u"12.50"_s;
    QTest::newRow("a distance that was driven isn't typed")
        << u"expense add --odometer-end 50"_s << u"69"_s << QString();
    QTest::newRow("a rate of distances") << u"expense add --rate 0.30"_s << u"70"_s << u"0.3"_s;
}

void TestEnteredItems::Kept() {
    QFETCH(QString, line);
    QFETCH(QString, list);
    const Reply reply = m_home->RunJson(Words(line));
    QVERIFY2(reply.exit == 0, reply.err.constData());
    QTEST(Texts(list), "texts");
}

void TestEnteredItems::AnEditKeepsWhatItEnters() {
    const QString id = m_home->Add({u"--item1"_s, u"Alpha"_s});
    QCOMPARE(m_home->Run({u"--yes"_s, u"items"_s, u"clear"_s, u"16"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, id, u"--item2"_s, u"One"_s}).exit, 0);
    QCOMPARE(Texts(u"16"_s), QString());
    QCOMPARE(Texts(u"17"_s), u"One"_s);
}

void TestEnteredItems::NothingIsKeptTwice() {
    for (int i = 0; i < 3; ++i) m_home->Add({u"--item1"_s, u"O'Brien 😀"_s});
    m_home->AddExpense({u"--item1"_s, u"O'Brien 😀"_s});
    QCOMPARE(Texts(u"16"_s), u"O'Brien 😀"_s);
}

void TestEnteredItems::WhatIsSwitchedOffIsNotKept_data() {
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("texts");
    QTest::newRow("clients") << u"keepTimeList109"_s << u"0"_s << u"time add --item1 Alpha"_s << u"16"_s
                             << QString();
    QTest::newRow("clients of expenses, asked of times")
        << u"keepExpenseList131"_s << u"0"_s << u"time add --item1 Alpha"_s << u"16"_s << u"Alpha"_s;
    QTest::newRow("distances") << u"keepDistance"_s << u"0"_s << u"expense add --distance 5"_s << u"69"_s
                               << QString();
    QTest::newRow("amounts switched on")
        << u"keepExpenseList136"_s << u"1"_s << u"expense add --amount 12.50"_s << u"73"_s << u"12.5"_s;
    QTest::newRow("amounts of times switched on")
        << u"keepTimeList115"_s << u"1"_s << u"time add --billable --amount 12.50"_s << u"73"_s << u"12.5"_s;
}

void TestEnteredItems::WhatIsSwitchedOffIsNotKept() {
    QFETCH(QString, setting);
    QFETCH(QString, value);
    QFETCH(QString, line);
    QFETCH(QString, list);
    QCOMPARE(m_home->Run({u"settings"_s, u"set"_s, setting, value}).exit, 0);
    QCOMPARE(m_home->Run(Words(line)).exit, 0);
    QTEST(Texts(list), "texts");
}

void TestEnteredItems::ARefusedRecordKeepsNothing() {
    QCOMPARE(m_home->Run(Words(u"time add --item1 Alpha --start 25:00"_s)).exit, 2);
    QCOMPARE(m_home->Run(Words(u"expense add --item1 Alpha --flag2"_s)).exit, 2);
    QCOMPARE(Texts(u"16"_s), QString());
}

TEST_CLASS(TestEnteredItems);
#include "TestEnteredItems.moc"
