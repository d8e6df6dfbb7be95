#include "timers/CTimerPanel.h"

#include "TimerHome.h"
#include "entry/TimeEntryRules.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

/// A record dialog without widgets: edits a copy of a record, notes what the panel asks of it.
class PanelFixture {
 public:
    explicit PanelFixture(TimerHome& timerHome, const QString& id) : home(timerHome) {
        if (!home.store->ReadRecord(draft, id)) draft.SetId(id);
        CTimerPanel::Dialog dialog;
        dialog.setFromTimer = [this](int hours, int minutes, int seconds, bool fromTimer) {
            shown.append(
                QString::asprintf("%d:%02d:%02d%s", hours, minutes, seconds, fromTimer ? "" : " final"));
            TimeEntryRules::SetFromTimer(draft, hours, minutes, fromTimer, *home.settings);
        };
        dialog.startTick = [this] {
            if (tickError == 0) isTicking = true;
            return tickError;
        };
        dialog.stopTick = [this] { isTicking = false; };
        dialog.repaintButtons = [this] { ++repaints; };
        panel = std::make_unique<CTimerPanel>(draft, *home.timers, *home.document, home.prompt, dialog);
    }
    /// "09:00 AM-09:30 AM 0:30" of the record being edited.
    [[nodiscard]] QString DraftTimes() const {
        return TimeTextOfRecord(draft, 3) + u'-' + TimeTextOfRecord(draft, 4) + u' ' +
               draft.spans.duration.clockText;
    }

    TimerHome& home;
    CTRecord draft;
    QStringList shown;
    int tickError = 0;
    bool isTicking = false;
    int repaints = 0;
    std::unique_ptr<CTimerPanel> panel;
};

constexpr int kMinute = 60;

}  // namespace

/// The clock stands at 9:00 on 19 November 2026.
class TestCTimerPanel : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Open_data();
    void Open();
    void OpenAfterTheClockWentBack();
    void StartAndTick();
    void StartGoesOnFromTheEditedDuration();
    void StartOnARunningTimerDoesNothing();
    void StartRunsTheActionOnOthers();
    void FailedTick();
    void Pause();
    void Stop_data();
    void Stop();
    void StopAfterAFlight_data();
    void StopAfterAFlight();
    void WhatCantBeSavedIsTold();
    void StartThatFails();
    void WithoutATimer();
    void CancelLeavesTheTimerRunning();
    void StopThenCancelDropsTheCount();
    void KilledBetweenTheStopAndTheEndOfTheDialog_data();
    void KilledBetweenTheStopAndTheEndOfTheDialog();
    void TheWindowLeavesAfterAStop();
    void StartAfterAStop();
    void TimerOfANewRecordGoesWithIt();
};

void TestCTimerPanel::Open_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<bool>("ticks");
    QTest::addColumn<int>("repaints");
    QTest::addColumn<QString>("text");
    QTest::newRow("no timer") << 4 << QStringList() << false << 0 << "--:--";
    QTest::newRow("running") << 2 << QStringList{QStringLiteral("0:10:05")} << true << 1 << "00:10:05";
    QTest::newRow("paused") << 1 << QStringList{QStringLiteral("0:00:00")} << false << 1 << "00:00:00";
}

void TestCTimerPanel::Open() {
    QFETCH(int, state);
    QFETCH(QStringList, shown);
    QFETCH(bool, ticks);
    QFETCH(int, repaints);
    QFETCH(QString, text);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    if (state != 4) QVERIFY(home.timers->StartRecordTimer(id));
    if (state == 1) QVERIFY(home.timers->PauseRecordTimer(id));
    home.clock.Advance(10 * kMinute + 5);
    PanelFixture fixture(home, id);
    fixture.panel->PanelOpen();
    QCOMPARE(fixture.shown, shown);
    QCOMPARE(fixture.isTicking, ticks);
    QCOMPARE(fixture.repaints, repaints);
    QCOMPARE(fixture.panel->DurationText(), text);
    QCOMPARE(static_cast<int>(fixture.panel->State()), state);
}

void TestCTimerPanel::OpenAfterTheClockWentBack() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(-kMinute);
    PanelFixture fixture(home, id);
    fixture.panel->PanelOpen();
    QCOMPARE(fixture.shown, QStringList());
    QVERIFY(!fixture.isTicking);
    QCOMPARE(fixture.repaints, 1);
}

void TestCTimerPanel::StartAndTick() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    PanelFixture fixture(home, id);
    home.views.seen.clear();
    QVERIFY(fixture.panel->PanelStart());
    QVERIFY(fixture.isTicking);
    home.clock.Advance(90);
    fixture.panel->PanelTick();
    QCOMPARE(fixture.shown, (QStringList{QStringLiteral("0:00:00"), QStringLiteral("0:01:30")}));
    QCOMPARE(fixture.panel->DurationText(), QStringLiteral("00:01:30"));
    QCOMPARE(fixture.DraftTimes(), QStringLiteral("09:00 AM-09:01 AM 0:01"));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM---:-- --:--"));
    QCOMPARE(home.TimerHints(), QStringLiteral("3"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:00:00 running"));
}

void TestCTimerPanel::StartGoesOnFromTheEditedDuration() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("08:00"), QStringLiteral("10:00"));
    PanelFixture fixture(home, id);
    fixture.draft.SetDuration(1, 30, false);  // the stored record has 2:00
    QVERIFY(fixture.panel->PanelStart());
    QCOMPARE(fixture.shown, QStringList{QStringLiteral("1:30:00")});
}

void TestCTimerPanel::StartOnARunningTimerDoesNothing() {
    TimerHome home;
    const QString other = home.AddTime(2026, 11, 19);
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(other));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.settings->timerOnNewTimer = 2;
    PanelFixture fixture(home, id);
    home.views.seen.clear();
    QVERIFY(fixture.panel->PanelStart());
    QCOMPARE(fixture.repaints, 0);
    QCOMPARE(home.TimerHints(), QString());
    QCOMPARE(home.CountOf(other), QStringLiteral("00:00:00 running"));
}

void TestCTimerPanel::StartRunsTheActionOnOthers() {
    TimerHome home;
    home.settings->timerOnNewTimer = 1;
    const QString other = home.AddTime(2026, 11, 19);
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(other));
    home.clock.Advance(5 * kMinute);
    PanelFixture fixture(home, id);
    QVERIFY(fixture.panel->PanelStart());
    QCOMPARE(home.CountOf(other), QStringLiteral("00:05:00 paused"));
}

void TestCTimerPanel::FailedTick() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    PanelFixture fixture(home, id);
    fixture.tickError = 8;
    home.prompt.ExpectTold(Text::TickFailed);
    home.views.seen.clear();
    QVERIFY(!fixture.panel->PanelStart());
    QVERIFY2(home.prompt.told.last().contains(u'8'), qPrintable(home.prompt.told.last()));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 running"));
    QCOMPARE(home.TimerHints(), QString());
    home.prompt.ExpectTold(Text::TickFailed);
    fixture.panel->PanelOpen();
}

void TestCTimerPanel::Pause() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    PanelFixture fixture(home, id);
    QVERIFY(fixture.panel->PanelStart());
    home.clock.Advance(12 * kMinute + 7);
    home.views.seen.clear();
    QVERIFY(fixture.panel->PanelPause());
    QVERIFY(!fixture.isTicking);
    QCOMPARE(fixture.shown.last(), QStringLiteral("0:12:07"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:12:07 paused"));
    QCOMPARE(home.TimerHints(), QStringLiteral("4"));
    QVERIFY(fixture.panel->PanelPause());
    QCOMPARE(home.TimerHints(), QString());
}

void TestCTimerPanel::Stop_data() {
    QTest::addColumn<bool>("pauseFirst");
    QTest::addColumn<bool>("accumulate");
    QTest::addColumn<int>("roundMinutes");
    QTest::addColumn<QString>("times");
    QTest::newRow("running") << false << false << 0 << "09:00 AM-09:34 AM 0:34";
    QTest::newRow("paused") << true << false << 0 << "09:00 AM-09:34 AM 0:34";
    QTest::newRow("rounded up to a quarter") << false << false << 15 << "09:00 AM-09:45 AM 0:45";
    QTest::newRow("a count is never added to itself") << false << true << 0 << "09:00 AM-09:34 AM 0:34";
}

void TestCTimerPanel::Stop() {
    QFETCH(bool, pauseFirst);
    QFETCH(bool, accumulate);
    QFETCH(int, roundMinutes);
    QFETCH(QString, times);
    TimerHome home;
    home.settings->roundDurationType = 16;
    home.settings->roundDurationMinutes = roundMinutes;
    home.settings->accumulateOnReentry = accumulate;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    PanelFixture fixture(home, id);
    QVERIFY(fixture.panel->PanelStart());
    home.clock.Advance(34 * kMinute + 50);
    fixture.panel->PanelTick();
    if (pauseFirst) QVERIFY(fixture.panel->PanelPause());
    home.views.seen.clear();
    QVERIFY(fixture.panel->PanelStop());
    QCOMPARE(fixture.shown.last(), QStringLiteral("0:34:00 final"));
    QVERIFY(!fixture.isTicking);
    QCOMPARE(fixture.DraftTimes(), times);
    QCOMPARE(home.TimerHints(), QStringLiteral("5"));
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    QVERIFY(!fixture.panel->PanelStop());
    home.timers->EndStopInDialog(id);
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
}

void TestCTimerPanel::StopAfterAFlight_data() {
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("last");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("the time that has passed") << static_cast<int>(Answer::Yes) << "7:00:00 final" << false;
    QTest::newRow("the count") << static_cast<int>(Answer::No) << "1:00:00 final" << false;
    QTest::newRow("neither: the timer runs on") << static_cast<int>(Answer::Cancel) << "0:00:00" << true;
}

/// Seven hours, six of them lost to the time zones.
void TestCTimerPanel::StopAfterAFlight() {
    QFETCH(int, answer);
    QFETCH(bool, goesOn);
    TimerHome home;
    PanelFixture fixture(home, home.AddTime(2026, 11, 19));
    QVERIFY(fixture.panel->PanelStart());
    QVERIFY(!fixture.panel->Difference());
    home.clock.Advance(7 * 60 * kMinute);
    home.clock.ShiftZone(-6 * 60 * kMinute);
    home.prompt.Expect(Text::AskTrueTime, static_cast<Answer>(answer));
    QVERIFY(fixture.panel->PanelStop());
    QTEST(fixture.shown.last(), "last");
    QCOMPARE(fixture.panel->State() == TimerState::Running, goesOn);
    QCOMPARE(fixture.isTicking, goesOn);
    QCOMPARE(fixture.panel->Difference().has_value(), goesOn);
}

/// The timer does what it was told; that a restart would know nothing of it is said each time.
void TestCTimerPanel::WhatCantBeSavedIsTold() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    PanelFixture fixture(home, id);
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    for (int i = 0; i < 3; ++i) home.prompt.ExpectTold(Text::TimersNotSaved);
    QVERIFY(fixture.panel->PanelStart());
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 running"));
    QVERIFY(fixture.panel->PanelPause());
    QCOMPARE(home.CountOf(id), QStringLiteral("00:00:00 paused"));
    QVERIFY(fixture.panel->PanelStart());
    home.prompt.Finish();
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(fixture.panel->PanelStop());
}

/// Another timer can't be stopped into its record, as the setting wants it: that was told, and nothing
/// starts.
void TestCTimerPanel::StartThatFails() {
    TimerHome home;
    home.settings->timerOnNewTimer = 2;
    const QString other = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(other));
    PanelFixture fixture(home, id);
    QVERIFY(home.manager.File().Execute("PRAGMA query_only=ON"));
    home.prompt.ExpectTold(Text::ModifyFailed);
    QVERIFY(!fixture.panel->PanelStart());
    home.prompt.Finish();
    QVERIFY(home.manager.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(!fixture.isTicking);
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    QCOMPARE(home.CountOf(other), QStringLiteral("00:00:00 running"));
}

void TestCTimerPanel::WithoutATimer() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"), QStringLiteral("10:30"));
    PanelFixture fixture(home, id);
    home.views.seen.clear();
    QVERIFY(!fixture.panel->PanelPause());
    QVERIFY(!fixture.panel->PanelStop());
    fixture.panel->PanelTick();
    fixture.panel->PanelClose();
    QCOMPARE(fixture.shown, QStringList());
    QCOMPARE(fixture.repaints, 0);
    QCOMPARE(home.TimerHints(), QString());
    QCOMPARE(fixture.panel->DurationText(), QStringLiteral("01:30"));
}

void TestCTimerPanel::CancelLeavesTheTimerRunning() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    PanelFixture fixture(home, id);
    fixture.panel->PanelOpen();
    home.clock.Advance(kMinute);
    fixture.panel->PanelTick();
    fixture.panel->PanelClose();
    QVERIFY(!fixture.isTicking);
    QCOMPARE(fixture.shown.last(), QStringLiteral("0:01:00"));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:01:00 running"));
    home.clock.Advance(kMinute);
    home.timers->FoldAndStore();
    QCOMPARE(home.CountOf(id), QStringLiteral("00:02:00 running"));
}

void TestCTimerPanel::StopThenCancelDropsTheCount() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    PanelFixture fixture(home, id);
    fixture.panel->PanelOpen();
    home.clock.Advance(10 * kMinute);
    QVERIFY(fixture.panel->PanelStop());
    fixture.panel->PanelClose();
    home.timers->DiscardDraft(id);
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM---:-- --:--"));
}

void TestCTimerPanel::KilledBetweenTheStopAndTheEndOfTheDialog_data() {
    QTest::addColumn<bool>("isStored");
    QTest::addColumn<QString>("count");
    QTest::newRow("before OK: the count waits, paused") << false << "00:10:00 paused";
    QTest::newRow("after the record was stored: the timer has ended") << true << "none";
}

/// The timer is gone for all that the window shows, but what it counted is in the dialog alone.
void TestCTimerPanel::KilledBetweenTheStopAndTheEndOfTheDialog() {
    QFETCH(bool, isStored);
    QFETCH(QString, count);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    PanelFixture fixture(home, id);
    fixture.panel->PanelOpen();
    home.clock.Advance(10 * kMinute);
    QVERIFY(fixture.panel->PanelStop());
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    if (isStored) {
        // Entered after the stop: this is what the record gets.
        fixture.draft.SetDuration(0, 20, true);
        QVERIFY(home.timers->NoteStopInDialog(fixture.draft));
        QVERIFY(home.store->ModifyRecord(fixture.draft, id, Commit::Now));
    }
    QCOMPARE(home.StoredCountOf(id), count);
    home.timers->EndStopInDialog(id);
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("none"));
}

void TestCTimerPanel::TheWindowLeavesAfterAStop() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    PanelFixture fixture(home, id);
    home.clock.Advance(10 * kMinute);
    QVERIFY(fixture.panel->PanelStop());
    home.timers->PersistDraftAtExit(fixture.draft);
    home.timers->SaveTimers();
    QCOMPARE(home.CountOf(id), QStringLiteral("00:10:00 paused"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:10:00 paused"));
}

void TestCTimerPanel::StartAfterAStop() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    PanelFixture fixture(home, id);
    home.clock.Advance(10 * kMinute);
    QVERIFY(fixture.panel->PanelStop());
    home.clock.Advance(5 * kMinute);
    QVERIFY(fixture.panel->PanelStart());
    home.clock.Advance(kMinute);
    home.timers->FoldAndStore();
    home.timers->EndStopInDialog(id);
    QCOMPARE(home.CountOf(id), QStringLiteral("00:11:00 running"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:11:00 running"));
}

void TestCTimerPanel::TimerOfANewRecordGoesWithIt() {
    TimerHome home;
    CVOId id;
    id.GenUnique();
    PanelFixture fixture(home, id.GetId());
    QVERIFY(fixture.panel->PanelStart());
    QCOMPARE(home.StoredCountOf(id.GetId()), QStringLiteral("none"));
    home.clock.Advance(kMinute);
    QVERIFY(fixture.panel->PanelPause());
    QVERIFY(fixture.panel->PanelStart());
    QCOMPARE(home.CountOf(id.GetId()), QStringLiteral("00:01:00 running"));
    QVERIFY(home.timers->Drop(id.GetId()));  // the dialog was cancelled
    QCOMPARE(home.set->Count(), 0);
}

TEST_CLASS(TestCTimerPanel);
#include "TestCTimerPanel.moc"
