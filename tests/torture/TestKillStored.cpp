#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Kills the console program at random moments while it stores a definition or a query, whose values all hold
/// the same word. Afterwards all of them hold the one that was acknowledged last, or one of those that were
/// being stored since: never some the one and some the other.
class TestKillStored : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ItIsTheOldOneOrTheNewOne_data();
    void ItIsTheOldOneOrTheNewOne();

 private:
    [[nodiscard]] std::optional<QJsonObject> Run(const QString& command, int killAfterMs = -1);
    [[nodiscard]] int TimeOf(const QString& command);

    std::unique_ptr<QTemporaryDir> m_home;
    int m_kills = 0;
};

/// What the program printed; nothing when it didn't end by itself with exit code 0.
std::optional<QJsonObject> TestKillStored::Run(const QString& command, int killAfterMs) {
    QProcess program;
    program.setProgram(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"));
    program.setArguments(QStringList{u"--home"_s, m_home->path(), u"--json"_s, u"--yes"_s} +
                         command.split(u' '));
    program.start();
    if (killAfterMs >= 0 && !program.waitForFinished(killAfterMs)) {
        program.kill();
        ++m_kills;
    }
    program.waitForFinished(60000);
    if (program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0) return std::nullopt;
    return QJsonDocument::fromJson(program.readAllStandardOutput()).object();
}

int TestKillStored::TimeOf(const QString& command) {
    QElapsedTimer since;
    since.start();
    (void)Run(command);
    return static_cast<int>(since.elapsed()) + 1;
}

void TestKillStored::ItIsTheOldOneOrTheNewOne_data() {
    QTest::addColumn<QString>("save");  // %1: the word
    QTest::addColumn<QString>("show");
    QTest::addColumn<QStringList>("values");
    QTest::newRow("definition") << u"report save It --kind listing --title %1 --header %1 --footer %1"_s
                                << u"report show It"_s << QStringList{u"title"_s, u"header"_s, u"footer"_s};
    QTest::newRow("changed definition")
        << u"report edit It --title %1 --header %1 --footer %1"_s << u"report show It"_s
        << QStringList{u"title"_s, u"header"_s, u"footer"_s};
    QTest::newRow("query") << u"query save It --item1 %1 --item2 %1 --item3 %1 --item4 %1 --item5 %1"_s
                           << u"query show It"_s
                           << QStringList{u"item1"_s, u"item2"_s, u"item3"_s, u"item4"_s, u"item5"_s};
}

void TestKillStored::ItIsTheOldOneOrTheNewOne() {
    QFETCH(QString, save);
    QFETCH(QString, show);
    QFETCH(QStringList, values);
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(Run(u"report save It --kind listing --title 0 --header 0 --footer 0"_s));
    QRandomGenerator random(4711);
    const int killWithinMs = 2 * TimeOf(save.arg(0));
    const int wanted = qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS") ? 300 : 15;
    QSet<QString> allowed{u"0"_s};
    m_kills = 0;
    for (int number = 1; m_kills < wanted; ++number) {
        const QString word = QString::number(number);
        if (Run(save.arg(word), random.bounded(killWithinMs))) allowed.clear();
        allowed.insert(word);
        const auto shown = Run(show);
        QVERIFY(shown);
        const QString found = (*shown)[values.first()].toString();
        QVERIFY2(allowed.contains(found), qPrintable(u"%1 after %2"_s.arg(found, word)));
        for (const QString& value : values) QCOMPARE((*shown)[value].toString(), found);
        allowed = {found};  // what is seen once must stay
    }
    QVERIFY(Run(u"doctor"_s));
}

TEST_CLASS(TestKillStored);
#include "TestKillStored.moc"
