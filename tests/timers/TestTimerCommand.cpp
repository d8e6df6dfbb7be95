#include "timers/TimerCommand.h"

#include "TimerHome.h"
#include "support/TestProgram.h"
#include "timers/TimerImage.h"

#include <QJsonDocument>
#include <QTest>

/// Timer commands as console and window hand them over. The clock stands at 9:00 on 19 November 2026.
class TestTimerCommand : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void StartPauseStop();
    void StopTakesTheTimeUntilNow();
    void StatusFoldsAndStores();
    void StopAllAndPauseAll();
    void Refused_data();
    void Refused();
    void UnsavedTimersAreAnError();
    void PutBackAsItWas();
    void RequestsAsTheyTravel_data();
    void RequestsAsTheyTravel();
    void TheReplyAsItTravels();

 private:
    static InstanceReply Send(TimerHome& home, const QString& action, const QString& id = {}) {
        return RunTimerMessage({{QStringLiteral("action"), action}, {QStringLiteral("id"), id}}, *home.timers,
                               *home.document);
    }
    /// "running 60, paused 5" or "exit 4".
    static QString Answer(TimerHome& home, const char* action, const QString& id = {}) {
        const InstanceReply reply = Send(home, QString::fromLatin1(action), id);
        if (!reply) return QStringLiteral("exit %1").arg(static_cast<int>(reply.reason));
        QStringList timers;
        for (const TimerReading& timer : TimersIn(reply))
            timers.append(StateName(timer) + u' ' + QString::number(timer.seconds));
        return timers.join(QStringLiteral(", "));
    }
};

void TestTimerCommand::StartPauseStop() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QCOMPARE(Answer(home, "start", id), QStringLiteral("running 0"));
    QCOMPARE(TimersIn(Send(home, QStringLiteral("status"))).at(0).recordId, id);
    home.clock.Advance(75);
    QCOMPARE(Answer(home, "pause", id), QStringLiteral("paused 75"));
    home.clock.Advance(1000);
    QCOMPARE(Answer(home, "start", id), QStringLiteral("running 75"));
    home.clock.Advance(60);
    QCOMPARE(Answer(home, "stop", id), QString());
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:02 AM 0:02"));
}

void TestTimerCommand::StopTakesTheTimeUntilNow() {
    QString id;
    TimerHome first;
    id = first.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QCOMPARE(Answer(first, "start", id), QStringLiteral("running 0"));
    TimerHome later(first.Path());  // another run of the program
    later.clock.Set(2026, 11, 19, 9, 30);
    QVERIFY(later.timers->RestoreTimers());
    QCOMPARE(Answer(later, "stop", id), QString());
    QCOMPARE(later.TimesOf(id), QStringLiteral("09:00 AM-09:30 AM 0:30"));
}

void TestTimerCommand::StatusFoldsAndStores() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QCOMPARE(Answer(home, "status"), QString());
    QCOMPARE(Answer(home, "start", id), QStringLiteral("running 0"));
    home.clock.Advance(3 * 3600 + 5);
    QCOMPARE(Answer(home, "status"), QStringLiteral("running 10805"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("03:00:05 running"));
}

void TestTimerCommand::StopAllAndPauseAll() {
    TimerHome home;
    const QString first = home.AddTime(2026, 11, 19);
    const QString second = home.AddTime(2026, 11, 19);
    QCOMPARE(Answer(home, "start", first), QStringLiteral("running 0"));
    home.clock.Advance(60);
    QCOMPARE(Answer(home, "start", second), QStringLiteral("running 60, running 0"));
    home.clock.Advance(60);
    QCOMPARE(Answer(home, "pause-all"), QStringLiteral("paused 120, paused 60"));
    QCOMPARE(Answer(home, "stop-all"), QString());
    QCOMPARE(home.TimesOf(first), QStringLiteral("--:-----:-- 0:02"));
    QCOMPARE(home.TimesOf(second), QStringLiteral("--:-----:-- 0:01"));
    QCOMPARE(Answer(home, "stop-all"), QString());
}

void TestTimerCommand::Refused_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("id");  // empty: a stored record without a timer
    QTest::addColumn<int>("exitCode");
    const QString unknown = QString(32, u'0');
    QTest::newRow("start of an unknown record") << "start" << unknown << 4;
    QTest::newRow("pause of an unknown record") << "pause" << unknown << 4;
    QTest::newRow("stop of an unknown record") << "stop" << unknown << 4;
    QTest::newRow("an identity that is none") << "stop"
                                              << "x'; DROP TABLE time --" << 4;
    QTest::newRow("pause without a timer") << "pause"
                                           << "" << 1;
    QTest::newRow("stop without a timer") << "stop"
                                          << "" << 1;
    QTest::newRow("an unknown action") << "reset %s %n"
                                       << "" << 1;
    QTest::newRow("no action") << ""
                               << "" << 1;
}

void TestTimerCommand::Refused() {
    QFETCH(QString, action);
    QFETCH(QString, id);
    QFETCH(int, exitCode);
    TimerHome home;
    const QString stored = home.AddTime(2026, 11, 19);
    const InstanceReply reply = Send(home, action, id.isEmpty() ? stored : id);
    QCOMPARE(static_cast<int>(reply.reason), exitCode);
    QVERIFY2(!reply.words.isEmpty() && reply.payload.isEmpty(), qPrintable(reply.words));
    QCOMPARE(home.set->Count(), 0);
}

void TestTimerCommand::UnsavedTimersAreAnError() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    QCOMPARE(Answer(home, "start", id), QStringLiteral("exit 1"));
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=OFF"));
}

/// Nobody pauses the others for it, whatever is done for a new one.
void TestTimerCommand::PutBackAsItWas() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19), other = home.AddTime(2026, 11, 18);
    QCOMPARE(Answer(home, "start", id), QStringLiteral("running 0"));
    home.clock.Advance(75);
    const QByteArray image = TimerImagesOf(home.timers->Set()).value(id);
    QCOMPARE(Answer(home, "stop", id), QString());
    QCOMPARE(Answer(home, "start", other), QStringLiteral("running 0"));
    home.settings->timerOnNewTimer = 1;
    home.clock.Advance(25);
    const auto putBack = [&](const QString& record, const QByteArray& timer) {
        return RunTimerRequest({.action = TimerAction::PutBack, .id = record, .image = timer}, *home.timers,
                               *home.document);
    };
    const InstanceReply reply = putBack(id, image);
    QVERIFY(reply);
    for (const TimerReading& timer : TimersIn(reply)) {
        QVERIFY(timer.isRunning);
        QCOMPARE(timer.seconds, timer.recordId == id ? 100 : 25);
    }
    QCOMPARE(TimersIn(reply).size(), 2U);
    for (const QByteArray& bad : {QByteArray(), QByteArray("x"), image.left(20)})
        QCOMPARE(putBack(id, bad).reason, ReplyReason::NotUnderstood);
    QCOMPARE(putBack(other, image).reason, ReplyReason::NotUnderstood);  // that of another record
    QCOMPARE(putBack(QString(32, u'A'), image).reason, ReplyReason::NotFound);
}

void TestTimerCommand::RequestsAsTheyTravel_data() {
    QTest::addColumn<QByteArray>("json");
    for (const char* json :
         {R"({"action":"start","id":"A"})", R"({"action":"start","fromZero":true,"id":"A"})",
          R"({"action":"pause","id":"A"})", R"({"action":"stop","id":"A"})",
          R"({"action":"stop","id":"A","trueTime":true})", R"({"action":"stop-all"})",
          R"({"action":"pause-all"})", R"({"action":"status"})", R"({"action":"drop","id":"A"})",
          R"({"action":"put-back","id":"A","timer":"AAE="})"})
        QTest::newRow(json) << QByteArray(json);
}

/// What is read is written in the same way.
void TestTimerCommand::RequestsAsTheyTravel() {
    QFETCH(QByteArray, json);
    const auto request = TimerRequest::FromJson(QJsonDocument::fromJson(json).object());
    QVERIFY(request);
    const InstanceMessage message = request->ToMessage();
    QCOMPARE(message.command, InstanceCommand::Timer);
    QCOMPARE(QJsonDocument(message.arguments).toJson(QJsonDocument::Compact), json);
}

void TestTimerCommand::TheReplyAsItTravels() {
    const InstanceReply reply =
        ReplyWith({{QStringLiteral("A"), true, 4711, 4800}, {QStringLiteral("B"), false, 0}},
                  {{QStringLiteral("C"), true, 60, 0}});
    QCOMPARE(QJsonDocument(reply.ToJson()).toJson(QJsonDocument::Compact),
             QByteArray(R"({"ok":true,"stopped":[{"id":"C","seconds":60,"state":"running","trueSeconds":0}],)"
                        R"("timers":[{"id":"A","seconds":4711,"state":"running","trueSeconds":4800},)"
                        R"({"id":"B","seconds":0,"state":"paused","trueSeconds":null}]})"));
    const std::vector<TimerReading> timers = TimersIn(reply);
    QCOMPARE(timers.size(), 2U);
    QCOMPARE(timers[0].trueSeconds, std::optional<std::int64_t>(4800));
    QVERIFY(!timers[1].trueSeconds);
    QCOMPARE(StoppedIn(reply).front().recordId, QStringLiteral("C"));
    QVERIFY(StoppedIn(ReplyWith({})).empty());
}

TEST_CLASS(TestTimerCommand);
#include "TestTimerCommand.moc"
