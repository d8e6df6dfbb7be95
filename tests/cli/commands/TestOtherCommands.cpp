#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QDate>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "day", "period", "texts", "demo", the help and the version.
class TestOtherCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void Day_data();
    void Day();
    void DayInTheRegion();
    void PeriodList();
    void PeriodShow();
    void Texts();
    void DemoFill();
    void DemoFillOnlyWhereNothingIs();
    void Version_data();
    void Version();
    void Help_data();
    void Help();
    void HelpNamesEveryCommand();

 private:
    std::unique_ptr<ConsoleHome> m_home;
};

void TestOtherCommands::Day_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("a Thursday in November")
        << u"2026-11-19"_s
        << QByteArray(
               R"({"date": "2026-11-19", "dayNumber": 2461364, "dayOfYear": 323, "weekday": "Thursday", )"
               R"("weeks": {"iso": 47, "simple": 47, "firstSunday": 47, "firstMonday": 47}})");
    QTest::newRow("New Year's Day in the last week of the year before")
        << u"2005-01-01"_s
        << QByteArray(
               R"({"date": "2005-01-01", "dayNumber": 2453372, "dayOfYear": 1, "weekday": "Saturday", )"
               R"("weeks": {"iso": 53, "simple": 1, "firstSunday": 1, "firstMonday": 1}})");
    QTest::newRow("the day that counts as the first")
        << u"2000-12-31"_s
        << QByteArray(R"({"date": "2000-12-31", "dayNumber": 2451910, "dayOfYear": 1, "weekday": "Sunday", )"
                      R"("weeks": {"iso": 52, "simple": 1, "firstSunday": 54, "firstMonday": 53}})");
}

void TestOtherCommands::Day() {
    QFETCH(QString, date);
    const Reply reply = ConsoleHome::RunBare({u"--json"_s, u"day"_s, date});
    QCOMPARE(reply.exit, 0);
    QTEST(reply.out.trimmed(), "written");
}

void TestOtherCommands::DayInTheRegion() {
    const Reply german =
        ConsoleHome::RunBare({u"--json"_s, u"day"_s, u"19.11.26"_s}, {u"LC_ALL=de_DE.UTF-8"_s});
    QCOMPARE(german.Object()[u"date"].toString(), u"2026-11-19"_s);
    QCOMPARE(ConsoleHome::RunBare({u"day"_s, u"19.11.26"_s}, {u"LC_ALL=en_US.UTF-8"_s}).exit, 2);
    QCOMPARE(ConsoleHome::RunBare({u"--json"_s, u"day"_s, u"today"_s}).Object()[u"date"].toString(),
             QDate::currentDate().toString(Qt::ISODate));
}

void TestOtherCommands::PeriodList() {
    const QJsonArray all = ConsoleHome::RunBare({u"period"_s, u"list"_s, u"--json"_s}).Array();
    QList<int> presets;
    for (const QJsonValue& row : all) presets.append(row[u"preset"].toInt());
    QCOMPARE(presets, (QList<int>{1,  2,  3,  4,  16, 10, 11, 12, 13, 14, 15, 17,
                                  18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29}));
    QCOMPARE(all[0][u"name"].toString(), u"Today"_s);
}

void TestOtherCommands::PeriodShow() {
    const int year = QDate::currentDate().year();
    QCOMPARE(
        m_home->RunJson({u"period"_s, u"show"_s, u"23"_s}).out,
        QStringLiteral(
            "{\"preset\": 23, \"name\": \"Last year\", \"start\": \"%1-01-01\", \"end\": \"%1-12-31\"}\n")
            .arg(year - 1)
            .toUtf8());
    QCOMPARE(
        m_home->RunJson({u"period"_s, u"show"_s, u"20"_s}).out,
        QByteArray("{\"preset\": 20, \"name\": \"Last month to date\", \"start\": null, \"end\": null}\n"));
    for (const QString& id : {u"0"_s, u"5"_s, u"6"_s, u"7"_s, u"30"_s, u"-1"_s, u"x"_s})
        QVERIFY2(m_home->RunJson({u"period"_s, u"show"_s, id}).exit != 0, qPrintable(id));
}

void TestOtherCommands::Texts() {
    const Reply plain = ConsoleHome::RunBare({u"texts"_s});
    QCOMPARE(plain.exit, 0);
    QCOMPARE(plain.Object()[u"25662"].toString(), u"Velmarch"_s);
    QCOMPARE(plain.Object()[u"25444"].toString(), u"Thursday"_s);
    QCOMPARE(ConsoleHome::RunBare({u"texts"_s, u"--json"_s}).out, plain.out);
}

void TestOtherCommands::DemoFill() {
    const Reply reply = m_home->RunJson({u"demo"_s, u"fill"_s, u"200"_s, u"--seed"_s, u"7"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.out, QByteArray("{\"times\": 180, \"expenses\": 20}\n"));
    QVERIFY(reply.err.isEmpty());
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 180);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
    const ConsoleHome other;
    QCOMPARE(other.Run({u"demo"_s, u"fill"_s, u"200"_s, u"--seed"_s, u"7"_s}).exit, 0);
    QCOMPARE(other.RunJson({u"time"_s, u"list"_s}).Object()[u"sums"],
             m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"sums"]);
}

void TestOtherCommands::DemoFillOnlyWhereNothingIs() {
    m_home->Add({});
    const Reply reply = m_home->RunJson({u"demo"_s, u"fill"_s, u"10"_s});
    QCOMPARE(reply.exit, 1);
    QVERIFY(reply.err.contains("empty home"));
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1);
    for (const QString& count : {u"0"_s, u"-1"_s, u"many"_s, u"99999999"_s, u"1.5"_s})
        QCOMPARE(m_home->RunJson({u"demo"_s, u"fill"_s, count}).exit, 2);
    QCOMPARE(m_home->RunJson({u"demo"_s, u"fill"_s, u"1"_s, u"--seed"_s, u"x"_s}).exit, 2);
}

void TestOtherCommands::Version_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("alone") << QStringList{u"--version"_s};
    QTest::newRow("after a group") << QStringList{u"time"_s, u"--version"_s};
    QTest::newRow("after a command") << QStringList{u"time"_s, u"edit"_s, u"--version"_s};
}

void TestOtherCommands::Version() {
    QFETCH(QStringList, arguments);
    const Reply reply = ConsoleHome::RunBare(arguments);
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.out, QByteArray("velmarch-cli 8.03.0105\n"));
}

void TestOtherCommands::Help_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("usage");
    QTest::newRow("alone") << QStringList{u"--help"_s} << QByteArray("GROUP COMMAND\n");
    QTest::newRow("short") << QStringList{u"-h"_s} << QByteArray("GROUP COMMAND\n");
    QTest::newRow("of a group") << QStringList{u"timer"_s, u"--help"_s} << QByteArray("timer COMMAND\n");
    QTest::newRow("of a command") << QStringList{u"time"_s, u"mark"_s, u"--help"_s}
                                  << QByteArray("time mark ID... [OPTIONS]\n");
    QTest::newRow("of a group that is a command")
        << QStringList{u"day"_s, u"--help"_s} << QByteArray("day DATE\n");
}

void TestOtherCommands::Help() {
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, usage);
    const Reply reply = ConsoleHome::RunBare(arguments);
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.out.startsWith("Usage: velmarch-cli [GLOBAL OPTIONS] " + usage), reply.out.constData());
    QVERIFY(reply.out.contains("--json"));
    QVERIFY(reply.err.isEmpty());
}

/// The man page and the completion know what the program knows.
void TestOtherCommands::HelpNamesEveryCommand() {
    const QByteArray help = ConsoleHome::RunBare({u"--help"_s}).out;
    for (const char* page : {"velmarch-cli.1", "velmarch-cli.bash"}) {
        QFile file(QStringLiteral(TEST_SOURCE_DIR "/../../packaging/") + QString::fromLatin1(page));
        QVERIFY2(file.open(QFile::ReadOnly), page);
        const QByteArray text = file.readAll().replace("\\-", "-");
        const QList<QByteArray> lines = help.split('\n');
        int commands = 0;
        for (const QByteArray& line : lines) {
            if (!line.startsWith("  ") || line.startsWith("  --")) continue;
            const QList<QByteArray> words = line.mid(2, 26).trimmed().split(' ');
            ++commands;
            QVERIFY2(text.contains(words[0]), line.constData());
            if (words.size() > 1 && words[1] == words[1].toLower() && !words[1].startsWith('['))
                QVERIFY2(text.contains(words[1]), line.constData());
        }
        QCOMPARE(commands, 79);
    }
}

TEST_CLASS(TestOtherCommands);
#include "TestOtherCommands.moc"
