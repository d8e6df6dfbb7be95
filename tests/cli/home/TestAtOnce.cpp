#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Several console programs at once on one home: each sees what the others have done, and no change is lost.
class TestAtOnce : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void DifferentFieldsOfOneRecord();
    void AFieldAndAMark();
    void PathsOfTheTree();
    void APathAndTheEndOfAnotherItem();
    void ColumnsOfBothKinds();
    void TheSameNumberOfAList();

 private:
    /// Runs the commands, parted by "|", all at once, so many rounds; "#" is the number of the round.
    void Together(const QString& commands, int rounds = 8) const {
        QString line;
        for (int round = 0; round < rounds; ++round) {
            for (const QString& command : commands.split(u'|'))
                line += u"$cli --quiet "_s + QString(command).replace(u'#', QString::number(round)) +
                        u" > /dev/null & "_s;
            line += u"wait; "_s;
        }
        const Reply reply = m_home->RunShell(line);
        QCOMPARE(reply.exit, 0);
        QVERIFY2(reply.err.isEmpty(), reply.err.constData());
    }
    [[nodiscard]] qsizetype Count(const QStringList& words) const {
        return m_home->RunJson(words).Array().size();
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestAtOnce::DifferentFieldsOfOneRecord() {
    for (int i = 0; i < 6; ++i) {
        const QString id = m_home->AddExpense({u"--amount"_s, u"1"_s});
        Together(
            u"expense edit %1 --item1 A | expense edit %1 --item2 B | expense edit %1 --notes C"_s.arg(id),
            1);
        const QJsonObject record = m_home->ShowExpense(id);
        QCOMPARE(Only(record, {u"item1"_s, u"item2"_s, u"notes"_s}),
                 FromText(u"{'item1': 'A', 'item2': 'B', 'notes': 'C'}"_s));
    }
}

void TestAtOnce::AFieldAndAMark() {
    for (int i = 0; i < 6; ++i) {
        const QString id = m_home->Add({u"--duration"_s, u"1:00"_s});
        Together(u"time edit %1 --item1 A | --yes time mark %1 --as first"_s.arg(id), 1);
        QCOMPARE(Only(m_home->Show(id), {u"item1"_s, u"isBillable"_s}),
                 FromText(u"{'item1': 'A', 'isBillable': true}"_s));
    }
}

void TestAtOnce::PathsOfTheTree() {
    for (const char* text : {"A", "B", "C", "D"})
        QCOMPARE(m_home->Run({u"items"_s, u"add"_s, u"16"_s, QString::fromLatin1(text)}).exit, 0);
    Together(u"tree add time A | tree add time B | tree add time C | tree add time D"_s, 1);
    QCOMPARE(Count({u"tree"_s, u"show"_s, u"time"_s}), 4);
    Together(u"tree remove time A | tree remove time B"_s, 1);
    QCOMPARE(Count({u"tree"_s, u"show"_s, u"time"_s}), 2);
}

/// In either order: the tree never names an item that is gone.
void TestAtOnce::APathAndTheEndOfAnotherItem() {
    for (int round = 0; round < 6; ++round) {
        for (const char* text : {"A", "B"})
            static_cast<void>(m_home->Run({u"items"_s, u"add"_s, u"16"_s, QString::fromLatin1(text)}));
        static_cast<void>(m_home->RunShell(
            u"$cli tree add time A > /dev/null 2>&1 & $cli --yes items delete 16 A > /dev/null & $cli tree add time B > /dev/null & wait"_s));
        const Reply shown = m_home->RunJson({u"tree"_s, u"show"_s, u"time"_s});
        QVERIFY2(shown.exit == 0, shown.err.constData());
        QCOMPARE(shown.Array().size(), 1);
    }
}

void TestAtOnce::ColumnsOfBothKinds() {
    for (int round = 0; round < 6; ++round) {
        Together(u"columns set time %1 | columns set expense %2"_s.arg(round).arg(17 + round), 1);
        for (const auto& [kind, column] :
             {std::pair(u"time"_s, round), std::pair(u"expense"_s, 17 + round)}) {
            QList<int> shown;
            const QJsonArray columns = m_home->RunJson({u"columns"_s, u"list"_s, kind}).Array();
            for (const QJsonValue entry : columns)
                if (entry[u"visible"].toBool()) shown.append(entry[u"column"].toInt());
            QCOMPARE(shown, QList<int>{column});
        }
    }
}

void TestAtOnce::TheSameNumberOfAList() {
    Together(
        u"expense add --item1 Same --distance 10 --rate 0.# | expense add --item1 Same --distance 10 --rate "
        u"0.# | "
        "expense add --item1 Same --distance 10 --rate 0.#"_s,
        6);
    QCOMPARE(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).out, QByteArray("[\"Same\"]\n"));
    QStringList rates;
    for (const QJsonValue& rate : m_home->RunJson({u"items"_s, u"list"_s, u"70"_s}).Array())
        rates.append(rate.toString());
    QCOMPARE(rates.size(), QSet<QString>(rates.begin(), rates.end()).size());
}

TEST_CLASS(TestAtOnce);
#include "TestAtOnce.moc"
