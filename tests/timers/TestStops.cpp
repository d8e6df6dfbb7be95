#include "TimerHome.h"
#include "platform/sqlite/CRowListener.h"
#include "support/TestProgram.h"

#include <QTest>

/// Stops that fail, or are cut off: the record is durable before the timer goes, and nothing is lost or
/// counted twice. The clock stands at 9:00 on 19 November 2026.
class TestStops : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void FailedStopKeepsTheTimer_data();
    void FailedStopKeepsTheTimer();
    void StopWhoseCommitFails();
    void KilledInTheMiddleOfAStop_data();
    void KilledInTheMiddleOfAStop();
    void StopThatCantBeNoted();
    void StopOfATimerThatWasNeverSaved();
    void ANoteIsGoneAfterTheStop();
    void NewTimerActionThatFails();
};

namespace {

constexpr int kMinute = 60;
const QString kSection = QStringLiteral("ActiveTimers");

}  // namespace

void TestStops::FailedStopKeepsTheTimer_data() {
    QTest::addColumn<bool>("isPaused");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("times");
    QTest::newRow("a running one goes on") << false << "00:40:00 running"
                                           << "09:00 AM-09:40 AM 0:40";
    QTest::newRow("a paused one stays paused") << true << "00:30:00 paused"
                                               << "09:00 AM-09:30 AM 0:30";
}

void TestStops::FailedStopKeepsTheTimer() {
    QFETCH(bool, isPaused);
    QFETCH(QString, count);
    QFETCH(QString, times);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    if (isPaused) QVERIFY(home.timers->PauseRecordTimer(id));
    QVERIFY(home.manager.File().Execute("PRAGMA query_only=ON"));
    home.prompt.ExpectTold(Text::ModifyFailed);
    QCOMPARE(home.timers->StopRecordTimer(id).end, TimerOutcome::End::NotInRecord);
    home.prompt.Finish();
    home.clock.Advance(10 * kMinute);
    QVERIFY(home.manager.File().Execute("PRAGMA query_only=OFF"));
    home.timers->FoldAndStore();
    QCOMPARE(home.CountOf(id), count);
    QCOMPARE(home.StoredCountOf(id), count);
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), times);
}

/// Another program reads the store for hours: the stop is told to have failed, and the timer goes on.
void TestStops::StopWhoseCommitFails() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    home.document->LoadRecords(RecordKind::Time);
    home.document->BuildVisible();
    home.manager.Close();
    home.manager.m_busySeconds = 0;
    eActionDisposition source, second;
    QVERIFY(home.manager.InitDataSrc(source, second));
    home.views.seen.clear();
    TimerHome reader(home.Path());
    QVERIFY(reader.store->Query(reader.store->SelectAll(RecordKind::Time)));
    home.prompt.ExpectTold(Text::ModifyCommitFailed);
    QCOMPARE(home.timers->StopRecordTimer(id).end, TimerOutcome::End::NotInRecord);
    home.prompt.Finish();
    QCOMPARE(home.CountOf(id), QStringLiteral("00:30:00 running"));
    QCOMPARE(home.TimerHints(), QString());
    reader.manager.CloseQuery();
    QVERIFY(home.store->Commit());
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM---:-- --:--"));
    QCOMPARE(home.StoredCountOf(id), QStringLiteral("00:30:00 running"));
    // What was never stored isn't shown either.
    const auto* shown =
        static_cast<const CTRecord*>(home.document->VisibleAt(home.document->VisiblePlaceOf(id)));
    QVERIFY(shown && !shown->spans.duration.IsSet());
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:30 AM 0:30"));
}

void TestStops::KilledInTheMiddleOfAStop_data() {
    QTest::addColumn<bool>("isRecordWritten");
    QTest::addColumn<QString>("count");
    QTest::newRow("before the record: the timer goes on") << false << "00:30:00 running";
    QTest::newRow("after the record: the timer has ended") << true << "none";
}

/// Between record and settings, which are two files. The other timer stays as it is.
void TestStops::KilledInTheMiddleOfAStop() {
    QFETCH(bool, isRecordWritten);
    QFETCH(QString, count);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    const QString other = home.AddTime(2026, 11, 19);
    for (const QString& started : {id, other}) QVERIFY(home.timers->StartRecordTimer(started));
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    // What the settings hold while the record is being written is there for good.
    class Kill final : public CRowListener {
     public:
        explicit Kill(TimerHome& home) : m_home(home) {}
        void OnBegin(CSqliteFile&) override {}
        void OnRow(const CChangedRow&) override {}
        void OnCommit(CSqliteFile&) override { QVERIFY(m_home.tree.File().Execute("PRAGMA query_only=ON")); }
        void OnEnd(bool) override {}

     private:
        TimerHome& m_home;
    } kill(home);
    CTRecord before;
    QVERIFY(home.store->ReadRecord(before, id));
    home.manager.File().Watch(&kill);
    QVERIFY(home.timers->StopRecordTimer(id));
    home.manager.File().Watch(nullptr);
    if (!isRecordWritten) QVERIFY(home.store->ModifyRecord(before, id, Commit::Now));
    TimerHome next(home.Path());
    next.clock.Advance(30 * kMinute);
    QVERIFY(next.timers->RestoreTimers());
    QCOMPARE(next.CountOf(id), count);
    QCOMPARE(next.CountOf(other), QStringLiteral("00:30:00 running"));
    next.timers->FoldAndStore();
    QVERIFY(next.timers->IsSettled());
    QCOMPARE(next.StoredCountOf(id), count);
    // The note is gone with it: the same duration in the record later on ends nothing.
    QVERIFY(!next.timers->HasTimer(id) ? bool(next.timers->StartRecordTimer(id)) : true);
    QVERIFY(next.StoredCountOf(id) != QStringLiteral("none"));
}

void TestStops::StopThatCantBeNoted() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    QCOMPARE(home.timers->StopRecordTimer(id).end, TimerOutcome::End::NotSaved);
    QCOMPARE(home.timers->StopAllTimers().end, TimerOutcome::End::NotSaved);
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM---:-- --:--"));
    QCOMPARE(home.CountOf(id), QStringLiteral("00:30:00 running"));
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:30 AM 0:30"));
}

/// Its hours exist in memory only, so they go into the record whatever the settings say.
void TestStops::StopOfATimerThatWasNeverSaved() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    QVERIFY(home.tree.File().Execute("PRAGMA query_only=ON"));
    QCOMPARE(home.timers->StartRecordTimer(id).end, TimerOutcome::End::NotSaved);
    home.clock.Advance(30 * kMinute);
    home.timers->FoldAndStore();
    QVERIFY(home.timers->StopRecordTimer(id));
    QCOMPARE(home.TimesOf(id), QStringLiteral("09:00 AM-09:30 AM 0:30"));
}

void TestStops::ANoteIsGoneAfterTheStop() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(home.timers->StartRecordTimer(id));
        QVERIFY(home.timers->StopRecordTimer(id));
        QVERIFY(home.profile->GetBinary(kSection, QStringLiteral("Stopping")).value_or("x").isEmpty());
    }
}

/// The other timer can't be stopped into its record: it goes on, and the new one isn't started.
void TestStops::NewTimerActionThatFails() {
    TimerHome home;
    home.settings->timerOnNewTimer = 2;
    const QString other = home.AddTime(2026, 11, 19, QStringLiteral("09:00"));
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(other));
    home.clock.Advance(30 * kMinute);
    QVERIFY(home.manager.File().Execute("PRAGMA query_only=ON"));
    home.prompt.ExpectTold(Text::ModifyFailed);
    QCOMPARE(home.timers->StartRecordTimer(id).end, TimerOutcome::End::NotInRecord);
    home.prompt.Finish();
    QVERIFY(home.manager.File().Execute("PRAGMA query_only=OFF"));
    QCOMPARE(home.CountOf(other), QStringLiteral("00:30:00 running"));
    QCOMPARE(home.CountOf(id), QStringLiteral("none"));
    QVERIFY(home.timers->StartRecordTimer(id));
    QCOMPARE(home.TimesOf(other), QStringLiteral("09:00 AM-09:30 AM 0:30"));
}

TEST_CLASS(TestStops);
#include "TestStops.moc"
