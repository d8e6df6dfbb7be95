#include "timers/CRecordTimers.h"

#include "TimerHome.h"
#include "platform/sqlite/CRowListener.h"
#include "support/TestProgram.h"
#include "timers/LostTimers.h"
#include "timers/TimerTexts.h"

#include <QTest>

/// Timers and the records that they are written into. The clock stands at 9:00 on 19 November 2026.
class TestCRecordTimers : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void StartRecordTimer_data();
    void StartRecordTimer();
    void OperationsOnAnUnknownRecord();
    void StopRecordTimer_data();
    void StopRecordTimer();
    void StopTakesTheCountOfTheLastFold();
    void StopMovesATime_data();
    void StopMovesATime();
    void StopWithoutATimer();
    void PauseWritesNothingIntoTheRecord();
    void StopAllAndPauseAll_data();
    void StopAllAndPauseAll();
    void StoppingAllHoldsOffRefreshes();
    void NewTimerAction_data();
    void NewTimerAction();
    void StartStopsItsOwnTimerFirst();
    void SavedAtOnce();
    void SaveTimersAtTheEnd_data();
    void SaveTimersAtTheEnd();
    void NoTimersWriteAnEmptyValue();
    void RestoreGoesOn_data();
    void RestoreGoesOn();
    void RestoreOfADamagedValue();
    void LostTimersAreToldOnce();
    void DamagedWhileTheProgramRuns();
    void FailedSave();
    void TwoProgramsLoseNoTimer();
    void TimerOfANewRecordWaitsForIt();
    void DropTakesATimerOutWithoutARecord();
    void OrphansGo();
    void OrphansStayWhileTheStoreCantBeAsked();
};

namespace {

constexpr int kMinute = 60;
const QString kSection = QStringLiteral("ActiveTimers");
const QString kEntry = QStringLiteral("Content");

}  // namespace

void TestCRecordTimers::StartRecordTimer_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("count");
    QTest::newRow("a record without times starts from zero") << ""
                                                             << ""
                                                             << "00:00:00 running";
    QTest::newRow("a record with a start only starts from zero") << "08:00"
                                                                 << ""
                                                                 << "00:00:00 running";
    QTest::newRow("a record of 1:30 goes on from it") << "08:00"
                                                      << "09:30"
                                                      << "01:30:00 running";
}

void TestCRecordTimers::StartRecordTimer() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, count);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, start, end);
    QVERIFY(home.timers->StartRecordTimer(id));
    QCOMPARE(home.CountOf(id), count);
    QCOMPARE(home.TimerHints(), QStringLiteral("3"));
    QCOMPARE(home.StoredCountOf(id), count);
}

void TestCRecordTimers::OperationsOnAnUnknownRecord() {
    TimerHome home;
    for (const QString& id : {QString(32, u'A'), QStringLiteral("'; --"), QString()}) {
        QVERIFY(!home.timers->StartRecordTimer(id));
        QVERIFY(!home.timers->StopRecordTimer(id));
        QVERIFY(!home.timers->PauseRecordTimer(id));
    }
    QCOMPARE(home.set->Count(), 0);
    QCOMPARE(home.TimerHints(), QString());
}

void TestCRecordTimers::StopRecordTimer_data() {
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("roundType");
    QTest::addColumn<int>("roundMinutes");
    QTest::addColumn<QString>("times");
    const auto row = [](const char* situation, int seconds, int type, int minutes, const char* times) {
        QTest::newRow(situation) << seconds << type << minutes << QString::fromLatin1(times);
    };
    row("half an hour", 30 * kMinute, 0, 0, "09:00 AM-09:30 AM 0:30");
    row("the seconds never reach the record", 59 * kMinute + 59, 0, 0, "09:00 AM-09:59 AM 0:59");
    row("rounded up to a quarter", 31 * kMinute, 16, 15, "09:00 AM-09:45 AM 0:45");
    row("rounded to the nearest quarter", 34 * kMinute, 32, 15, "09:00 AM-09:30 AM 0:30");
    row("less than a minute", 59, 0, 0, "09:00 AM-09:00 AM 0:00");
}

void TestCRecordTimers::StopRecordTimer() {
    QFETCH(int, seconds);
    QFETCH(int, roundType);
    QFETCH(int, roundMinutes);
    QFETCH(QString, times);
    TimerHome home;
    home.settings->roundDurationType = roundType;
    home.settings->roundDurationMinutes = roundMinutes;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(seconds);
    home.timers->FoldAndStore();
    home.views.seen.clear();
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), times);
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    QCOMPARE(home.views.seen.size(), 3);  // about to change, changed, stopped
    QCOMPARE(home.TimerHints(), QStringLiteral("5"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
}

void TestCRecordTimers::StopTakesTheCountOfTheLastFold() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(20 * kMinute);
    home.timers->FoldAndStore();
    home.clock.Advance(40 * kMinute);
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:20 AM 0:20"));
}

void TestCRecordTimers::StopMovesATime_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("isStartLocked");
    QTest::addColumn<QString>("times");
    QTest::newRow("a start only") << "08:00"
                                  << "" << true << "08:00 AM-08:30 AM 0:30";
    QTest::newRow("a start only, start not locked") << "08:00"
                                                    << "" << false << "08:00 AM-08:30 AM 0:30";
    QTest::newRow("an end only") << ""
                                 << "08:00" << true << "07:30 AM-08:00 AM 0:30";
    QTest::newRow("both times: the end moves") << "06:00"
                                               << "07:00" << true << "06:00 AM-07:30 AM 1:30";
    QTest::newRow("both times, start not locked: the start moves")
        << "06:00"
        << "07:00" << false << "05:30 AM-07:00 AM 1:30";
    QTest::newRow("no times") << ""
                              << "" << true << "--:-----:-- 0:30";
}

void TestCRecordTimers::StopMovesATime() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(bool, isStartLocked);
    QFETCH(QString, times);
    TimerHome home;
    home.settings->lockStartOnDurationEdit = isStartLocked;
    const QString id = home.AddTime(2026, 11, 19, start, end);
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), times);
}

void TestCRecordTimers::StopWithoutATimer() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"), QStringLiteral("10:00"));
    QVERIFY(!home.timers->StopRecordTimer(id));
    QVERIFY(!home.timers->PauseRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-10:00 AM 1:00"));
    QCOMPARE(home.TimerHints(), QString());
}

void TestCRecordTimers::PauseWritesNothingIntoTheRecord() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(10 * kMinute);
    home.views.seen.clear();
    QVERIFY(home.timers->PauseRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM---:-- --:--"));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:10:00 paused"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:10:00 paused"));
    QCOMPARE(home.views.seen.size(), 1);
    QCOMPARE(home.TimerHints(), QStringLiteral("4"));
    QVERIFY(!home.timers->PauseRecordTimer(id));
}

void TestCRecordTimers::StopAllAndPauseAll_data() {
    QTest::addColumn<bool>("stop");
    QTest::addColumn<QString>("firstCount");
    QTest::addColumn<QString>("secondCount");
    QTest::addColumn<QString>("firstTimes");
    QTest::addColumn<QString>("hints");
    QTest::newRow("stop all stops paused ones as well") << true << "none"
                                                        << "none"
                                                        << "09:00 AM-09:20 AM 0:20"
                                                        << "5 5";
    QTest::newRow("pause all leaves paused ones as they are") << false << "00:20:00 paused"
                                                              << "00:10:00 paused"
                                                              << "09:00 AM---:-- --:--"
                                                              << "4";
}

void TestCRecordTimers::StopAllAndPauseAll() {
    QFETCH(bool, stop);
    QFETCH(QString, firstCount);
    QFETCH(QString, secondCount);
    QFETCH(QString, firstTimes);
    QFETCH(QString, hints);
    TimerHome home;
    const QString first = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    const QString second = home.AddTime(2026, 11, 19, QStringLiteral("08:00"));
    QVERIFY(home.timers->StartRecordTimer(first));
    QVERIFY(home.timers->StartRecordTimer(second));
    home.clock.Advance(10 * kMinute);
    QVERIFY(home.timers->PauseRecordTimer(second));
    home.clock.Advance(10 * kMinute);
    home.timers->FoldAndStore();
    home.views.seen.clear();
    QVERIFY(stop ? home.timers->StopAllTimers() : home.timers->PauseAllTimers());
    QCOMPARE(home.CountOf(first), firstCount);
    QCOMPARE(home.CountOf(second), secondCount);
    QCOMPARE(home.StoredCountOf(first), firstCount);
    QCOMPARE(home.StoredCountOf(second), secondCount);
    QCOMPARE(home.TimesOf(first), firstTimes);
    QCOMPARE(home.TimerHints(), hints);
}

/// Each stop may bring up a message, and what another program changed meanwhile is shown after the last one.
void TestCRecordTimers::StoppingAllHoldsOffRefreshes() {
    class Journal final : public CRowListener {
     public:
        explicit Journal(const CVelmarchDoc& document) : m_document(document) {}
        void OnBegin(CSqliteFile&) override {}
        void OnRow(const CChangedRow&) override {}
        void OnCommit(CSqliteFile&) override { changing.append(m_document.IsBeingChanged()); }
        void OnEnd(bool) override {}
        QList<bool> changing;

     private:
        const CVelmarchDoc& m_document;
    };
    TimerHome home;
    for (const int day : {18, 19}) QVERIFY(home.timers->StartRecordTimer(home.AddTime(2026, 11, day)));
    Journal journal(*home.document);
    home.manager.File().Watch(&journal);
    QVERIFY(home.timers->StopAllTimers());
    home.manager.File().Watch(nullptr);
    QCOMPARE(journal.changing, (QList<bool>{true, true}));
    QVERIFY(!home.document->IsBeingChanged());
}

void TestCRecordTimers::NewTimerAction_data() {
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("otherCount");
    QTest::addColumn<QString>("otherTimes");
    QTest::addColumn<QString>("hints");
    QTest::newRow("0: the other goes on") << 0 << "00:00:00 running"
                                          << "09:00 AM---:-- --:--"
                                          << "3";
    QTest::newRow("1: the other is paused, with all its time") << 1 << "00:30:00 paused"
                                                               << "09:00 AM---:-- --:--"
                                                               << "4 3";
    QTest::newRow("2: the other is stopped, with all its time") << 2 << "none"
                                                                << "09:00 AM-09:30 AM 0:30"
                                                                << "5 3";
}

void TestCRecordTimers::NewTimerAction() {
    QFETCH(int, action);
    QFETCH(QString, otherCount);
    QFETCH(QString, otherTimes);
    QFETCH(QString, hints);
    TimerHome home;
    home.settings->timerOnNewTimer = action;
    const QString other = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(other));
    home.clock.Advance(30 * kMinute);
    home.views.seen.clear();
    QVERIFY(home.timers->StartRecordTimer(id));
    QCOMPARE(home.CountOf(other), otherCount);
    QCOMPARE(home.TimesOf(other), otherTimes);
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 running"));
    QCOMPARE(home.TimerHints(), hints);
    QCOMPARE(home.StoredCountOf(other), otherCount);
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:00:00 running"));
}

void TestCRecordTimers::StartStopsItsOwnTimerFirst() {
    TimerHome home;
    home.settings->timerOnNewTimer = 2;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(45 * kMinute);
    QVERIFY(home.timers->StartRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:45 AM 0:45"));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:45:00 running"));
}

void TestCRecordTimers::SavedAtOnce() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:00:00 running"));
    home.clock.Advance(5 * kMinute);
    home.timers->FoldAndStore();
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:05:00 running"));
    QVERIFY(home.timers->PauseRecordTimer(id));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:05:00 paused"));
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
}

void TestCRecordTimers::SaveTimersAtTheEnd_data() {
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("runningStored");
    QTest::addColumn<QString>("pausedStored");
    QTest::addColumn<QString>("times");
    QTest::newRow("0: both as they are") << 0 << "00:30:00 running"
                                         << "00:10:00 paused"
                                         << "09:00 AM---:-- --:--";
    QTest::newRow("1: the running one is stored as paused") << 1 << "00:30:00 paused"
                                                            << "00:10:00 paused"
                                                            << "09:00 AM---:-- --:--";
    QTest::newRow("2: both are stopped") << 2 << "none"
                                         << "none"
                                         << "09:00 AM-09:30 AM 0:30";
}

void TestCRecordTimers::SaveTimersAtTheEnd() {
    QFETCH(int, action);
    QFETCH(QString, runningStored);
    QFETCH(QString, pausedStored);
    QFETCH(QString, times);
    TimerHome home;
    home.settings->timerOnExit = action;
    const QString running = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    const QString paused = home.AddTime(2026, 11, 19, QStringLiteral("08:00"));
    QVERIFY(home.timers->StartRecordTimer(running));
    QVERIFY(home.timers->StartRecordTimer(paused));
    home.clock.Advance(10 * kMinute);
    QVERIFY(home.timers->PauseRecordTimer(paused));
    home.clock.Advance(20 * kMinute);
    home.timers->SaveTimers();
    QCOMPARE(home.StoredCountOf(running), runningStored);
    QCOMPARE(home.StoredCountOf(paused), pausedStored);
    QCOMPARE(home.TimesOf(running), times);
}

void TestCRecordTimers::NoTimersWriteAnEmptyValue() {
    TimerHome home;
    QVERIFY(!home.profile->GetBinary(kSection, kEntry));
    home.timers->FoldAndStore();
    QVERIFY(!home.profile->GetBinary(kSection, kEntry));
    home.timers->SaveTimers();
    QCOMPARE(home.profile->GetBinary(kSection, kEntry), std::optional(QByteArray("")));
    TimerHome next(home.Path());
    QVERIFY(next.timers->RestoreTimers());
    QCOMPARE(next.set->Count(), 0);
}

void TestCRecordTimers::RestoreGoesOn_data() {
    QTest::addColumn<bool>("pause");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("hour");
    QTest::addColumn<QString>("count");
    QTest::newRow("a running timer takes the absence in") << false << 19 << 11 << "02:00:00 running";
    QTest::newRow("a paused one stays paused") << true << 19 << 11 << "00:00:00 paused";
    QTest::newRow("the next day at a later time: the clock times only")
        << false << 20 << 10 << "01:00:00 running";
    QTest::newRow("the next day at an earlier time: nothing") << false << 20 << 8 << "00:00:00 running";
}

void TestCRecordTimers::RestoreGoesOn() {
    QFETCH(bool, pause);
    QFETCH(int, day);
    QFETCH(int, hour);
    QFETCH(QString, count);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    if (pause) QVERIFY(home.timers->PauseRecordTimer(id));
    TimerHome next(home.Path());
    next.clock.Set(2026, 11, day, hour, 0);
    QVERIFY(next.timers->RestoreTimers());
    next.timers->FoldAndStore();
    QCOMPARE(next.CountOf(id), count);
}

void TestCRecordTimers::RestoreOfADamagedValue() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    const QByteArray good = home.profile->GetBinary(kSection, kEntry).value_or(QByteArray());
    QVERIFY(home.profile->WriteBinary(kSection, kEntry, good + "damage"));
    TimerHome next(home.Path());
    QVERIFY(!next.timers->RestoreTimers());
    QVERIFY(next.timers->AreLost());
    QCOMPARE(next.CountOf(id), QStringLiteral("00:00:00 running"));
    // With the next change they are stored anew, and nothing of the old ones is thrown away.
    next.timers->FoldAndStore();
    QCOMPARE(next.profile->GetBinary(kSection, QStringLiteral("Unreadable")), good + "damage");
    TimerHome later(home.Path());
    QVERIFY(later.timers->RestoreTimers());
    QVERIFY(later.timers->AreLost());
    QVERIFY(later.timers->PauseAllTimers());
    QVERIFY(later.timers->AreLost());
    QVERIFY(later.timers->StartRecordTimer(home.AddTime(2026, 11, 19)));
    QVERIFY(!later.timers->AreLost());
}

/// A window says it to a person, who then knows it.
void TestCRecordTimers::LostTimersAreToldOnce() {
    TimerHome home;
    TellLostTimers(*home.timers, home.prompt);
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    const QByteArray good = home.profile->GetBinary(kSection, kEntry).value_or(QByteArray());
    QVERIFY(home.profile->WriteBinary(kSection, kEntry, good + "damage"));
    TimerHome next(home.Path());
    QVERIFY(!next.timers->RestoreTimers());
    next.prompt.ExpectTold(Text::TimersLost);
    TellLostTimers(*next.timers, next.prompt);
    TellLostTimers(*next.timers, next.prompt);
    next.prompt.Finish();
    TimerHome later(home.Path());
    QVERIFY(later.timers->RestoreTimers());
    QVERIFY(!later.timers->AreLost());
}

/// Values that are damaged while the program runs can't be read, which isn't that they are gone: no timer is
/// dropped for it, and nothing is written.
void TestCRecordTimers::DamagedWhileTheProgramRuns() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    const QString other = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    CSqliteFile file;
    QCOMPARE(file.Open(home.Path() + QStringLiteral("/velmarch.settings"), CSettingsTree::kFileKind, false),
             OpenOutcome::Existed);
    QVERIFY(file.Execute(
        "DROP TRIGGER entries_checks_update; UPDATE entries SET value=x'00' WHERE name='Content'"));
    QCOMPARE(home.timers->StartRecordTimer(other).end, TimerOutcome::End::NotSaved);
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 running"));
    // The next program finds what was found here.
    CSettingsTree next;
    QVERIFY(next.Open(home.Path() + QStringLiteral("/velmarch.settings")));
    QCOMPARE(next.DamagedValues(), QStringList{QStringLiteral("ActiveTimers/Content")});
}

void TestCRecordTimers::FailedSave() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    QVERIFY(!home.timers->StartRecordTimer(id));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 running"));
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(home.timers->StoreTimers());
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:00:00 running"));
}

void TestCRecordTimers::TwoProgramsLoseNoTimer() {
    TimerHome window;
    const QString first = window.AddTime(2026, 11, 19);
    const QString second = window.AddTime(2026, 11, 19);
    const QString third = window.AddTime(2026, 11, 19);
    QVERIFY(window.timers->StartRecordTimer(first));
    {
        TimerHome console(window.Path());
        QVERIFY(console.timers->RestoreTimers());
        QVERIFY(window.timers->StartRecordTimer(second));  // after the console's look
        QVERIFY(console.timers->StopRecordTimer(first));
        QVERIFY(console.timers->StartRecordTimer(third));
    }
    QVERIFY(window.timers->PauseRecordTimer(second));
    QCOMPARE(window.StoredCountOf(first), QStringLiteral("none"));
    QCOMPARE(window.StoredCountOf(second), QStringLiteral("00:00:00 paused"));
    QCOMPARE(window.StoredCountOf(third), QStringLiteral("00:00:00 running"));
    QCOMPARE(window.CountOf(third), QStringLiteral("00:00:00 running"));
}

void TestCRecordTimers::TimerOfANewRecordWaitsForIt() {
    TimerHome home;
    CTRecord record;
    record.GenUnique();
    const QString id = record.GetId();
    QVERIFY(home.timers->StartFromZero(id));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 running"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
    home.timers->FoldAndStore();  // another command in the meantime
    QVERIFY(home.timers->PauseAllTimers());
    QVERIFY(home.timers->StopAllTimers());
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 paused"));
    QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now}));
    QVERIFY(home.timers->Keep(id));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:00:00 paused"));
}

void TestCRecordTimers::DropTakesATimerOutWithoutARecord() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(10 * kMinute);
    QVERIFY(home.timers->Drop(id));
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM---:-- --:--"));
}

void TestCRecordTimers::OrphansGo() {
    TimerHome home;
    const QString gone = home.AddTime(2026, 11, 19);
    const QString left = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(gone));
    QVERIFY(home.timers->StartRecordTimer(left));
    QVERIFY(home.document->DeleteRecord(RecordKind::Time, gone, Notify::Yes));  // by another program, say
    QStringList told;
    home.timers->OnOrphan(
        [&](const ActiveTimer& orphan) { told << orphan.recordId + u' ' + TimerCountText(orphan); });
    home.clock.Advance(10 * kMinute);
    home.timers->FoldAndStore();
    QCOMPARE(told, QStringList{gone + QStringLiteral(" 00:10:00")});
    QCOMPARE(home.CountOf(gone), QStringLiteral("none"));
    QCOMPARE(home.CountOf(left), QStringLiteral("00:10:00 running"));
    QCOMPARE(home.StoredCountOf(gone), QStringLiteral("none"));
}

void TestCRecordTimers::OrphansStayWhileTheStoreCantBeAsked() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    TimerHome next(home.Path());
    QVERIFY(next.timers->RestoreTimers());
    next.manager.Close();
    next.prompt.ExpectTold(Text::ReadQueryFailed);
    next.timers->FoldAndStore();
    QCOMPARE(next.CountOf(id), QStringLiteral("00:00:00 running"));
}

TEST_CLASS(TestCRecordTimers);
#include "TestCRecordTimers.moc"
