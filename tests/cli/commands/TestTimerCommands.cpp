#include "cli/home/ConsoleHome.h"

#include "platform/settings/CSettingsTree.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The timers of a home without a window. The clock is the machine's, so what has passed is stated in bounds.
class TestTimerCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }
    void StartPauseStop();
    void StopWritesTheDuration();
    void ShowFoldsTheCount();
    void StopAllAndPauseAll();
    void ANewTimerPausesTheOthers();
    void Drop();
    void Refused_data();
    void Refused();
    void StatusOfNone();
    void StatusTellsTheTrueTime();
    void AStopByTheClockOffersTheTrueTime();
    void AStopByTrueTime();
    void StopAllTellsWhichDiffer();
    void ATimerWithoutARecordIsNamed();
    void ATrueTimeThatIsNotKnown();

 private:
    /// A record whose timer was started in London; what follows happens five hours east of it.
    QString StartedBeforeAFlight() const {
        const QString id = m_home->Add({});
        m_home->RunShell(u"TZ=UTC0 $cli timer start "_s + id);
        return id;
    }
    Reply InTheEast(const QString& words) const { return m_home->RunShell(u"TZ=EAST-5 $cli "_s + words); }
    Reply Timer(const QStringList& words) const { return m_home->RunJson(QStringList(u"timer"_s) + words); }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestTimerCommands::StartPauseStop() {
    const QString id = m_home->Add({});
    const Reply started = Timer({u"start"_s, id});
    QCOMPARE(started.exit, 0);
    QVERIFY2(
        started.out.startsWith("[{\"id\": \"" + id.toLatin1() + "\", \"state\": \"running\", \"seconds\": "),
        started.out.constData());
    QCOMPARE(Timer({u"pause"_s, id}).Array()[0][u"state"].toString(), u"paused"_s);
    QCOMPARE(m_home->Show(id)[u"timer"][u"state"].toString(), u"paused"_s);
    QCOMPARE(Timer({u"start"_s, id}).Array()[0][u"state"].toString(), u"running"_s);
    const Reply stopped = Timer({u"stop"_s, id});
    QCOMPARE(stopped.exit, 0);
    QCOMPARE(stopped.Object()[u"id"].toString(), id);
    QVERIFY(stopped.Object()[u"timer"].isNull());
    QCOMPARE(Timer({u"status"_s}).Array(), QJsonArray());
}

void TestTimerCommands::StopWritesTheDuration() {
    const QString id = m_home->Add({u"--start"_s, u"9:00"_s, u"--duration"_s, u"1:30"_s});
    Timer({u"start"_s, id});
    QVERIFY(m_home->Show(id)[u"timer"][u"seconds"].toInt() >= 90 * 60);
    const QJsonObject stopped = Timer({u"stop"_s, id}).Object();
    QCOMPARE(Only(stopped, {u"start"_s, u"end"_s, u"duration"_s}),
             FromText(u"{'start': '09:00', 'end': '10:30', 'duration': 90}"_s));
}

void TestTimerCommands::ShowFoldsTheCount() {
    const QString id = m_home->Add({});
    Timer({u"start"_s, id});
    QTest::qWait(2100);
    const int shown = m_home->Show(id)[u"timer"][u"seconds"].toInt();
    QVERIFY2(shown >= 2 && shown < 60, QByteArray::number(shown).constData());
    const int listed =
        m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"records"][0][u"timer"][u"seconds"].toInt();
    QVERIFY(listed >= shown);
    QVERIFY(Timer({u"pause"_s, id}).Array()[0][u"seconds"].toInt() >= listed);
}

void TestTimerCommands::StopAllAndPauseAll() {
    const QString a = m_home->Add({}), b = m_home->Add({});
    Timer({u"start"_s, a});
    Timer({u"start"_s, b});
    const QJsonArray paused = Timer({u"pause-all"_s}).Array();
    QCOMPARE(paused.size(), 2);
    QCOMPARE(paused[0][u"state"].toString(), u"paused"_s);
    QCOMPARE(paused[1][u"state"].toString(), u"paused"_s);
    QCOMPARE(Timer({u"stop-all"_s}).Array(), QJsonArray());
    QCOMPARE(m_home->Show(a)[u"duration"].toInt(-1), 0);
    QCOMPARE(m_home->Show(b)[u"duration"].toInt(-1), 0);
}

void TestTimerCommands::ANewTimerPausesTheOthers() {
    m_home->Run({u"settings"_s, u"set"_s, u"timerOnNewTimer"_s, u"1"_s});
    const QString a = m_home->Add({}), b = m_home->Add({});
    Timer({u"start"_s, a});
    const QJsonArray timers = Timer({u"start"_s, b}).Array();
    QCOMPARE(timers[0][u"state"].toString(), u"paused"_s);
    QCOMPARE(timers[1][u"state"].toString(), u"running"_s);
    const QJsonObject made = m_home->RunJson({u"time"_s, u"new"_s, u"--timer"_s}).Object();
    QCOMPARE(made[u"timer"][u"state"].toString(), u"running"_s);
    QCOMPARE(Timer({u"status"_s}).Array()[1][u"state"].toString(), u"paused"_s);
}

void TestTimerCommands::Drop() {
    const QString id = m_home->Add({});
    Timer({u"start"_s, id});
    QCOMPARE(Timer({u"drop"_s, id}).Array(), QJsonArray());
    QVERIFY(m_home->Show(id)[u"duration"].isNull());
    QCOMPARE(Timer({u"drop"_s, id}).exit, 4);
}

void TestTimerCommands::Refused_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("id");  // empty: of a record without a timer
    QTest::addColumn<int>("exit");
    const QString unknown = u"00000000000000000000000000000000"_s;
    QTest::newRow("start of an unknown record") << u"start"_s << unknown << 4;
    QTest::newRow("pause of an unknown record") << u"pause"_s << unknown << 4;
    QTest::newRow("stop of an unknown record") << u"stop"_s << unknown << 4;
    QTest::newRow("start of no identity") << u"start"_s << u"'; DROP TABLE time_velmarch; --"_s << 4;
    QTest::newRow("pause without a timer") << u"pause"_s << QString() << 1;
    QTest::newRow("stop without a timer") << u"stop"_s << QString() << 1;
}

void TestTimerCommands::Refused() {
    QFETCH(QString, command);
    QFETCH(QString, id);
    const Reply reply = Timer({command, id.isEmpty() ? m_home->Add({}) : id});
    QTEST(reply.exit, "exit");
    QVERIFY(reply.out.isEmpty());
    QVERIFY(!reply.err.isEmpty());
}

void TestTimerCommands::StatusOfNone() {
    QCOMPARE(Timer({u"status"_s}).out, QByteArray("[]\n"));
    QCOMPARE(m_home->Run({u"timer"_s, u"status"_s}).out, QByteArray("No timers.\n"));
    QCOMPARE(Timer({u"stop-all"_s}).exit, 0);
    QCOMPARE(Timer({u"pause-all"_s}).exit, 0);
}

void TestTimerCommands::StatusTellsTheTrueTime() {
    const QString id = StartedBeforeAFlight();
    const QJsonObject timer = InTheEast(u"--json timer status"_s).Array()[0].toObject();
    const int counted = timer[u"seconds"].toInt(), passed = timer[u"trueSeconds"].toInt(-1);
    QVERIFY2(counted >= 18000 && counted < 18060, QByteArray::number(counted).constData());
    QVERIFY2(passed >= 0 && passed < 60, QByteArray::number(passed).constData());
    const Reply text = InTheEast(u"timer status"_s);
    QVERIFY2(text.out.contains("true time 00:00:"), text.out.constData());
    QVERIFY2(text.out.contains("timer stop --true-time " + id.toLatin1()), text.out.constData());
}

void TestTimerCommands::AStopByTheClockOffersTheTrueTime() {
    const QString id = StartedBeforeAFlight();
    const Reply reply = InTheEast(u"--json timer stop "_s + id);
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object()[u"duration"].toInt(), 300);
    QVERIFY2(reply.err.contains("counted 5:00, but 0:00 have truly passed"), reply.err.constData());
    QVERIFY2(reply.err.contains("time edit " + id.toLatin1() + " --duration 0:00"), reply.err.constData());
    const QString quiet = StartedBeforeAFlight();
    QCOMPARE(InTheEast(u"--quiet timer stop "_s + quiet).err, QByteArray());
}

void TestTimerCommands::AStopByTrueTime() {
    const QString id = StartedBeforeAFlight();
    const Reply reply = InTheEast(u"--json timer stop --true-time "_s + id);
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object()[u"duration"].toInt(-1), 0);
    QVERIFY2(reply.err.contains("The clock counted 5:00"), reply.err.constData());
    // Where the clock is right nothing is said.
    const QString plain = m_home->Add({});
    Timer({u"start"_s, plain});
    QCOMPARE(Timer({u"stop"_s, u"--true-time"_s, plain}).err, QByteArray());
}

void TestTimerCommands::StopAllTellsWhichDiffer() {
    const QString id = StartedBeforeAFlight();
    const Reply reply = InTheEast(u"timer stop-all"_s);
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("time edit " + id.toLatin1()), reply.err.constData());
}

/// Its record is gone, or a bit of its identity is another one: the count stands nowhere else.
void TestTimerCommands::ATimerWithoutARecordIsNamed() {
    const QString id = m_home->Add({});
    Timer({u"start"_s, id});
    sqlite3* store = nullptr;
    QCOMPARE(sqlite3_open(m_home->File(u"velmarch.store"_s).toUtf8().constData(), &store), SQLITE_OK);
    QCOMPARE(sqlite3_exec(store, "DELETE FROM time_velmarch", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(store);
    const Reply reply = Timer({u"status"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Array().size(), 0);
    QVERIFY2(reply.err.contains(id.toLatin1()), reply.err.constData());
    QVERIFY2(reply.err.contains("had counted 00:00:0"), reply.err.constData());
    QCOMPARE(Timer({u"status"_s}).err, QByteArray());
}

void TestTimerCommands::ATrueTimeThatIsNotKnown() {
    const QString id = m_home->Add({});
    Timer({u"start"_s, id});
    {
        CSettingsTree tree;
        QVERIFY(tree.Open(m_home->File(u"velmarch.settings"_s)));
        QVERIFY(tree.File().Execute("DELETE FROM entries WHERE name = 'TrueTimes'"));
    }
    const QJsonObject timer = Timer({u"status"_s}).Array()[0].toObject();
    QVERIFY(timer.contains(u"trueSeconds") && timer[u"trueSeconds"].isNull());
    const Reply reply = Timer({u"stop"_s, u"--true-time"_s, id});
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("isn't known"), reply.err.constData());
    QCOMPARE(Timer({u"status"_s}).Array()[0][u"state"].toString(), u"running"_s);
}

TEST_CLASS(TestTimerCommands);
#include "TestTimerCommands.moc"
