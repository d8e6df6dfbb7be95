#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What commands say of criteria that act otherwise than they look. They act all the same.
class TestFilterNotes : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void Told_data();
    void Told();
    void NothingToTell_data();
    void NothingToTell();
    void Found_data();
    void Found();
    void TheNumberThatStandsForAnyIsRefused_data();
    void TheNumberThatStandsForAnyIsRefused();

 private:
    std::unique_ptr<ConsoleHome> m_home;
};

void TestFilterNotes::initTestCase() {
    m_home = std::make_unique<ConsoleHome>();
    m_home->Add(Words(u"--date 2026-11-10"_s));
    m_home->AddExpense(Words(u"--date 2026-11-10 --amount -5.5 --notes minus"_s));
    m_home->AddExpense(Words(u"--date 2026-11-10 --amount 5.5 --notes plus"_s));
    QCOMPARE(m_home->Run(Words(u"query save swapped --from 2026-11-20 --to 2026-11-10"_s)).exit, 0);
    QCOMPARE(m_home->Run(Words(u"query save below --mode expense --amount <0"_s)).exit, 0);
}

void TestFilterNotes::Told_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("words");
    const QByteArray swapped = "The start lies after the end, so only 11/10/2026 is taken.\n";
    const QByteArray nothing = "so this condition finds nothing.\n";
    const QByteArray all = "so every amount passes this condition.\n";
    const auto row = [](const char* command, const QByteArray& words) {
        QTest::newRow(command) << QString::fromUtf8(command) << words;
    };
    row("time list --from 2026-11-20 --to 2026-11-10", swapped);
    row("--json time list --from 2026-11-20 --to 2026-11-10", swapped);
    row("time list --query swapped", swapped);
    row("report run --kind summary --from 2026-11-20 --to 2026-11-10", swapped);
    row("report run --kind summary --query swapped", swapped);
    row("query save --yes again --from 2026-11-20 --to 2026-11-10", swapped);
    row("export records --from 2026-11-20 --to 2026-11-10 --post nothing FILE", swapped);
    row("expense list --amount =-5.5", nothing);
    row("expense list --amount <0", nothing);
    row("expense list --amount <-3", nothing);
    row("expense list --amount >-20", all);
    row("expense list --query below", nothing);
    row("query save --yes again --mode expense --amount =-5", nothing);
}
void TestFilterNotes::Told() {
    QFETCH(QString, command);
    QFETCH(QByteArray, words);
    const Reply reply = m_home->Run(Words(command.replace(u"FILE"_s, m_home->File(u"out.csv"_s))));
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.count(words) == 1, reply.err.constData());
}

void TestFilterNotes::NothingToTell_data() {
    QTest::addColumn<QString>("command");
    for (const char* command : {"time list --from 2026-11-10 --to 2026-11-10", "time list --day 2026-11-10",
                                "time list --from 2026-11-09 --to 2026-11-10", "expense list --amount =0",
                                "expense list --amount >0", "expense list --amount <0.01"})
        QTest::newRow(command) << QString::fromUtf8(command);
}
void TestFilterNotes::NothingToTell() {
    QFETCH(QString, command);
    const Reply reply = m_home->Run(Words(command));
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.err, QByteArray());
}

/// A negative amount counts as 0.
void TestFilterNotes::Found_data() {
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("notes");
    QTest::newRow("equal to what it is") << u"=-5.5"_s << QString();
    QTest::newRow("below 0") << u"<0"_s << QString();
    QTest::newRow("equal to 0") << u"=0"_s << u"minus"_s;
    QTest::newRow("below a little") << u"<0.01"_s << u"minus"_s;
    QTest::newRow("above something lower") << u">-2"_s << u"minusplus"_s;
}
void TestFilterNotes::Found() {
    QFETCH(QString, amount);
    const QJsonObject list =
        m_home->RunJson({u"expense"_s, u"list"_s, u"--sort"_s, u"notes"_s, u"--amount"_s, amount}).Object();
    QString notes;
    for (const QJsonValue& record : list[u"records"].toArray()) notes += record[u"notes"].toString();
    QTEST(notes, "notes");
}

/// Taken as it is, it would let everything pass.
void TestFilterNotes::TheNumberThatStandsForAnyIsRefused_data() {
    QTest::addColumn<QString>("amount");
    QTest::newRow("as it is") << u"=-1"_s;
    QTest::newRow("what becomes it once it is stored") << u"<-1.00000001"_s;
}
void TestFilterNotes::TheNumberThatStandsForAnyIsRefused() {
    QFETCH(QString, amount);
    const Reply reply = m_home->Run({u"expense"_s, u"list"_s, u"--amount"_s, amount});
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains("no condition on the amount"), reply.err.constData());
}

TEST_CLASS(TestFilterNotes);
#include "TestFilterNotes.moc"
