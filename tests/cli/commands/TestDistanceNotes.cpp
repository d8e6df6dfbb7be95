#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What commands say of distances of which this machine reads only the beginning: "12,35" was stored where
/// the comma is the decimal character. They go on with what they read.
class TestDistanceNotes : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void Told_data();
    void Told();
    void NothingToTell_data();
    void NothingToTell();

 private:
    std::unique_ptr<ConsoleHome> m_home;
};

void TestDistanceNotes::initTestCase() {
    m_home = std::make_unique<ConsoleHome>();
    for (const QString& day : {u"2026-11-19"_s, u"2026-11-12"_s, u"2026-11-05"_s})
        m_home->AddExpense(Words(u"--distance 10 --rate 1 --item1 Acme --date "_s + day));
    m_home->AddExpense(Words(u"--amount 10 --item1 Smith --date 2026-11-01"_s));
    QVERIFY(m_home->Execute(u"velmarch.store"_s,
                            "UPDATE expense_velmarch SET distance='12,35' WHERE day IN (19, 12)"));
}

void TestDistanceNotes::Told_data() {
    QTest::addColumn<QString>("command");
    QTest::newRow("a list") << u"expense list"_s;
    QTest::newRow("a list as JSON") << u"--json expense list"_s;
    QTest::newRow("a list that shows less of them") << u"expense list --limit 1"_s;
    QTest::newRow("a sum") << u"report run --mode expense --kind grouped --group item1 --sum distance"_s;
    QTest::newRow("a sum as JSON")
        << u"--json report run --mode expense --kind grouped --group item1 --sum distance"_s;
    QTest::newRow("a sum and its records")
        << u"report run --mode expense --kind compound --columns date --group item1 --sum distance"_s;
    QTest::newRow("a column") << u"report run --mode expense --kind listing --columns date,distance"_s;
    QTest::newRow("an order") << u"report run --mode expense --kind listing --columns date --sort distance"_s;
}
void TestDistanceNotes::Told() {
    QFETCH(QString, command);
    const Reply reply = m_home->Run(Words(command));
    QCOMPARE(reply.exit, 0);
    const QByteArray told = "can't be read whole here: 2, the first of 11/12/2026.";
    QCOMPARE(reply.err.count(told), 1);
    QVERIFY(reply.err.contains("LC_NUMERIC"));
    QVERIFY(m_home->Run(QStringList(u"--quiet"_s) + Words(command)).err.isEmpty());
}

void TestDistanceNotes::NothingToTell_data() {
    QTest::addColumn<QString>("command");
    QTest::newRow("other records") << u"expense list --to 2026-11-05 --from 2026-11-01"_s;
    QTest::newRow("times") << u"time list"_s;
    QTest::newRow("a sum of amounts")
        << u"report run --mode expense --kind grouped --group item1 --sum amount"_s;
    QTest::newRow("a column of dates") << u"report run --mode expense --kind listing --columns date"_s;
    QTest::newRow("a summary, which adds up no distances") << u"report run --mode expense --kind summary"_s;
}
void TestDistanceNotes::NothingToTell() {
    QFETCH(QString, command);
    const Reply reply = m_home->Run(Words(command));
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.err, QByteArray());
}

TEST_CLASS(TestDistanceNotes);
#include "TestDistanceNotes.moc"
