#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "expense": selections, quick commands, and a day of both, on the real program.
class TestExpenseSelections : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void Delete();
    void Copy();
    void Mark_data();
    void Mark();
    void New_data();
    void New();
    void NewFromAnother();
    void ADay();
    void ALargeAmountIsFound();

 private:
    [[nodiscard]] Reply Expense(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"expense"_s) + words);
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestExpenseSelections::Delete() {
    const QString a = m_home->AddExpense({}), b = m_home->AddExpense({}), kept = m_home->AddExpense({});
    QCOMPARE(Expense({u"delete"_s, a}).exit, 1);
    QCOMPARE(m_home->RunJson({u"--yes"_s, u"expense"_s, u"delete"_s, a, b, a}).out,
             QByteArray("{\"deleted\": 2}\n"));
    QCOMPARE(Expense({u"show"_s, b}).exit, 4);
    QCOMPARE(Expense({u"show"_s, kept}).exit, 0);
}

void TestExpenseSelections::Copy() {
    const QString id = m_home->AddExpense(Words(u"--distance 10 --rate 2 --item1 A --flag1"_s));
    const QJsonArray copies = m_home->RunJson({u"--yes"_s, u"expense"_s, u"copy"_s, id}).Array();
    QCOMPARE(copies.size(), 1);
    QJsonObject original = m_home->ShowExpense(id), copy = m_home->ShowExpense(copies[0].toString());
    QVERIFY(original[u"id"] != copy[u"id"]);
    original.remove(u"id"_s);
    copy.remove(u"id"_s);
    QCOMPARE(copy, original);
}

void TestExpenseSelections::Mark_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("mark");
    QTest::addColumn<int>("changed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first") << QString() << u"first"_s << 1 << u"{'flag1': true, 'flag2': false}"_s;
    QTest::newRow("first and second")
        << QString() << u"first-second"_s << 1 << u"{'flag1': true, 'flag2': true}"_s;
    QTest::newRow("third") << QString() << u"third"_s << 1 << u"{'flag3': true, 'flag4': false}"_s;
    QTest::newRow("third and fourth")
        << QString() << u"third-fourth"_s << 1 << u"{'flag3': true, 'flag4': true}"_s;
    QTest::newRow("the fourth on one that has the third")
        << u"--flag3"_s << u"third-fourth"_s << 1 << u"{'flag3': true, 'flag4': true}"_s;
    QTest::newRow("fifth") << QString() << u"fifth"_s << 1 << u"{'flag5': true, 'flag1': false}"_s;
    QTest::newRow("fifth again") << u"--flag5"_s << u"fifth"_s << 0 << u"{'flag5': true}"_s;
    QTest::newRow("exported") << QString() << u"exported"_s << 1 << u"{'isExported': true}"_s;
    QTest::newRow("not exported, which it isn't")
        << QString() << u"not-exported"_s << 0 << u"{'isExported': false}"_s;
}

void TestExpenseSelections::Mark() {
    QFETCH(QString, stored);
    QFETCH(QString, mark);
    QFETCH(int, changed);
    QFETCH(QString, expected);
    const QString id = m_home->AddExpense(Words(stored));
    const Reply reply = m_home->RunJson({u"--yes"_s, u"expense"_s, u"mark"_s, id, u"--as"_s, mark});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object()[u"changed"].toInt(), changed);
    const QJsonObject wanted = FromText(expected);
    QCOMPARE(Only(m_home->ShowExpense(id), wanted.keys()), wanted);
}

void TestExpenseSelections::New_data() {
    QTest::addColumn<QString>("options");
    QTest::newRow("blank") << QString();
    QTest::newRow("stamped") << u"--timestamp"_s;
    QTest::newRow("with a timer, which it can't have") << u"--timestamp --timer"_s;
    QTest::newRow("from the empty record") << u"--from defaults:(empty_record)"_s;
}

void TestExpenseSelections::New() {
    QFETCH(QString, options);
    QStringList words = Words(options);
    words.replaceInStrings(u"_"_s, u" "_s);
    const Reply reply = Expense(QStringList(u"new"_s) + words);
    QVERIFY2(reply.exit == 0, reply.err.constData());
    QCOMPARE(reply.Object()[u"date"].toString(), QDate::currentDate().toString(Qt::ISODate));
    QVERIFY(reply.Object()[u"amount"].isNull());
    QCOMPARE(m_home->RunJson({u"timer"_s, u"status"_s}).Array().size(), 0);
}

void TestExpenseSelections::NewFromAnother() {
    const QString id = m_home->AddExpense(Words(u"--date 2026-01-02 --distance 10 --rate 2 --item1 A"_s));
    const QJsonObject copy =
        Expense({u"new"_s, u"--from"_s, u"copy:"_s + id, u"--successive"_s, id}).Object();
    QCOMPARE(Only(copy, {u"item1"_s, u"distance"_s, u"amount"_s}),
             FromText(u"{'item1': 'A', 'distance': 10.0, 'amount': 20.0}"_s));
    QCOMPARE(copy[u"date"].toString(), QDate::currentDate().toString(Qt::ISODate));
    const QString unknown = u"00000000000000000000000000000000"_s;
    QCOMPARE(Expense({u"new"_s, u"--from"_s, u"copy:"_s + unknown}).exit, 4);
    QCOMPARE(Expense({u"new"_s, u"--successive"_s, unknown}).exit, 4);
    QCOMPARE(Expense({u"new"_s, u"--from"_s, u"defaults:Nothing"_s}).exit, 4);
    QCOMPARE(Expense({u"new"_s, u"--from"_s, u"tree"_s}).exit, 2);
    QCOMPARE(m_home->RunJson({u"expense"_s, u"list"_s}).Object()[u"count"].toInt(), 2);
}

/// A day on the road: the way there, a lunch, the way back, and the bill that was sent.
void TestExpenseSelections::ADay() {
    const QString there = m_home->AddExpense(
        Words(u"--date 2026-11-19 --item1 Alpha --item5 EUR --odometer-start 52100 --odometer-end 52180 "
              "--rate 0.3 --flag1"_s));
    m_home->AddExpense(
        Words(u"--date 2026-11-19 --item1 Alpha --item3 Lunch --item5 EUR --amount 18.90 "
              "--flag3"_s));
    const QString back = m_home->AddExpense(
        Words(u"--date 2026-11-19 --item1 Alpha --item5 EUR --odometer-end 52262 --rate 0.3 --flag1"_s));
    QCOMPARE(m_home->ShowExpense(back)[u"distance"].toDouble(), 82.0);
    m_home->AddExpense(Words(u"--date 2026-11-20 --item1 Alpha --item5 EUR --amount 100"_s));
    QCOMPARE(m_home->RunJson({u"--yes"_s, u"expense"_s, u"mark"_s, there, back, u"--as"_s, u"first-second"_s})
                 .Object()[u"changed"]
                 .toInt(),
             2);
    const QJsonObject list = Expense(Words(u"list --day 2026-11-19"_s)).Object();
    QCOMPARE(list[u"count"].toInt(), 3);
    // 24.00 + 18.90 + 24.60
    QCOMPARE(list[u"sums"].toArray(), (QJsonArray{QJsonObject{{u"key"_s, u"EUR"_s}, {u"amount"_s, 67.5}}}));
    QCOMPARE(Expense(Words(u"list --day 2026-11-19 --flag2 no"_s)).Object()[u"count"].toInt(), 1);
}

/// Two places of 100,000 are more than single precision can shift.
void TestExpenseSelections::ALargeAmountIsFound() {
    const QString id = m_home->AddExpense(Words(u"--date 2026-11-19 --amount 100000"_s));
    QCOMPARE(m_home->Run({u"expense"_s, u"edit"_s, id, u"--notes"_s, u"paid"_s}).exit, 0);
    QCOMPARE(m_home->ShowExpense(id)[u"amount"].toDouble(), 100000.0);
    QCOMPARE(Expense(Words(u"list --amount =100000"_s)).Object()[u"count"].toInt(), 1);
}

TEST_CLASS(TestExpenseSelections);
#include "TestExpenseSelections.moc"
