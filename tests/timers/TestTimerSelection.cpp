#include "timers/TimerSelection.h"

#include "TimerHome.h"
#include "support/TestProgram.h"

#include <QTest>

/// The list's timer commands on a selection. The clock stands at 9:00 on 19 November 2026.
class TestTimerSelection : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void StopFromTheListWritesAtOnce();
    void FailedRecordsAreSkipped();
    void PauseTakesTheTimeUntilNow();
    void NothingInExpenseMode();
};

void TestTimerSelection::StopFromTheListWritesAtOnce() {
    TimerHome home;
    home.settings->roundDurationType = 16;
    home.settings->roundDurationMinutes = 15;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(ApplyToSelection({id}, TimerAction::Start, *home.timers));
    home.clock.Advance(31 * 60);  // nobody looked in the meantime
    home.views.seen.clear();
    QVERIFY(ApplyToSelection({id}, TimerAction::Stop, *home.timers));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:45 AM 0:45"));
    QCOMPARE(home.TimerHints(), QStringLiteral("5"));
}

void TestTimerSelection::FailedRecordsAreSkipped() {
    TimerHome home;
    const QString first = home.AddTime(2026, 11, 19);
    const QString last = home.AddTime(2026, 11, 19);
    home.views.seen.clear();
    QVERIFY(ApplyToSelection({first, QString(32, u'0'), last}, TimerAction::Start, *home.timers));
    QCOMPARE(home.TimerHints(), QStringLiteral("3 3"));
    QCOMPARE(home.CountOf(last), QStringLiteral("00:00:00 running"));
    QVERIFY(ApplyToSelection({}, TimerAction::Stop, *home.timers));
    QCOMPARE(home.set->Count(), 2);
}

void TestTimerSelection::PauseTakesTheTimeUntilNow() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(ApplyToSelection({id}, TimerAction::Start, *home.timers));
    home.clock.Advance(61);
    home.views.seen.clear();
    QVERIFY(ApplyToSelection({id}, TimerAction::Pause, *home.timers));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:01:01 paused"));
    QCOMPARE(home.TimerHints(), QStringLiteral("4"));
}

void TestTimerSelection::NothingInExpenseMode() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    const RecordModeScope mode(RecordMode::Expense);
    QVERIFY(ApplyToSelection({id}, TimerAction::Start, *home.timers));
    QCOMPARE(home.set->Count(), 0);
}

TEST_CLASS(TestTimerSelection);
#include "TestTimerSelection.moc"
