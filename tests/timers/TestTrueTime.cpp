#include "support/TestProgram.h"
#include "timers/TimerHome.h"
#include "timers/TrueTime.h"
#include "timers/TrueTimes.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What a timer counts by the clock, which is the rule, and the time that has truly passed beside it.
class TestTrueTime : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Counts_data();
    void Counts();
    void Differences_data();
    void Differences();
    void AStopWritesWhatIsAskedFor_data();
    void AStopWritesWhatIsAskedFor();
    void AStopWithoutATrueCountIsRefused();
    void AnotherProgramTakesTheTrueCountOver();
    void ATimerChangedByAnOlderProgramHasNone();
    void TheDraftOfANewRecordHasOneToo();
    void DamagedCounts_data();
    void DamagedCounts();
};

namespace {

constexpr int kMinute = 60;
constexpr int kHour = 3600;
constexpr int kDay = 24 * kHour;

/// One thing that happens while a timer is there.
struct Event {
    enum class What { Pass, Fold, Zone, Clock, Reboot, Pause, Resume, Forget };
    What what;
    int seconds = 0;
};
using Events = QList<Event>;

Event Pass(int seconds) {
    return {Event::What::Pass, seconds};
}
Event Zone(int seconds) {
    return {Event::What::Zone, seconds};
}
Event Clock(int seconds) {
    return {Event::What::Clock, seconds};
}
Event Off(int seconds) {
    return {Event::What::Reboot, seconds};
}
const Event kFold{Event::What::Fold};
const Event kPause{Event::What::Pause};
const Event kResume{Event::What::Resume};
const Event kForget{Event::What::Forget};

/// "4:00:00", "?" for what isn't known.
QString Shown(std::optional<std::int64_t> seconds) {
    if (!seconds) return u"?"_s;
    return QString::asprintf("%d:%02d:%02d", static_cast<int>(*seconds / 3600),
                             static_cast<int>(*seconds / 60 % 60), static_cast<int>(*seconds % 60));
}

void Happen(const Event& event, CTestClock& clock, CRecordTimers& timers, const QString& id) {
    switch (event.what) {
        case Event::What::Pass:
            return clock.Advance(event.seconds);
        case Event::What::Zone:
            return clock.ShiftZone(event.seconds);
        case Event::What::Clock:
            return clock.SetClock(event.seconds);
        case Event::What::Reboot:
            return clock.Reboot(event.seconds);
        case Event::What::Forget:
            return clock.ForgetTrueTime();
        case Event::What::Fold:
            return timers.FoldAndStore();
        case Event::What::Pause:
            timers.FoldAndStore();
            QVERIFY(timers.PauseRecordTimer(id));
            return;
        case Event::What::Resume:
            QVERIFY(timers.StartRecordTimer(id));
            return;
    }
}

}  // namespace

/// start: the local time. The columns counted and passed stand for the rule and for the truth.
void TestTrueTime::Counts_data() {
    QTest::addColumn<QTime>("start");
    QTest::addColumn<Events>("events");
    QTest::addColumn<QString>("counted");
    QTest::addColumn<QString>("passed");
    const auto row = [](const char* name, QTime start, const Events& events, const char* counted,
                        const char* passed) {
        QTest::newRow(name) << start << events << QString::fromLatin1(counted) << QString::fromLatin1(passed);
    };
    // Midnight
    row("an hour by day", {9, 0}, {Pass(kHour)}, "1:00:00", "1:00:00");
    row("fifteen seconds over midnight", {23, 59, 50}, {Pass(15)}, "0:00:15", "0:00:15");
    row("from noon over midnight", {12, 0}, {Pass(23 * kHour)}, "23:00:00", "23:00:00");
    row("a morning over midnight to the morning", {9, 0}, {Pass(23 * kHour)}, "0:00:00", "23:00:00");
    row("an evening over midnight to the next noon", {22, 0}, {Pass(14 * kHour)}, "0:00:00", "14:00:00");
    row("the same, looked at after midnight", {22, 0}, {Pass(3 * kHour), kFold, Pass(11 * kHour)}, "14:00:00",
        "14:00:00");
    // Days
    row("a whole day", {9, 0}, {Pass(kDay)}, "0:00:00", "24:00:00");
    row("a day and an hour", {9, 0}, {Pass(kDay + kHour)}, "1:00:00", "25:00:00");
    row("three days", {9, 0}, {Pass(3 * kDay)}, "0:00:00", "72:00:00");
    row("three days, looked at each noon and midnight", {0, 0},
        {Pass(12 * kHour), kFold, Pass(12 * kHour), kFold, Pass(12 * kHour), kFold, Pass(12 * kHour), kFold,
         Pass(12 * kHour), kFold, Pass(12 * kHour)},
        "72:00:00", "72:00:00");
    row("a month", {9, 0}, {Pass(30 * kDay)}, "0:00:00", "720:00:00");
    // Both nights of the clock change
    row("the clock goes back in the night", {0, 0}, {Pass(2 * kHour), Zone(-kHour), Pass(3 * kHour)},
        "4:00:00", "5:00:00");
    row("the same, looked at on the way", {0, 0},
        {Pass(2 * kHour), kFold, Zone(-kHour), kFold, Pass(3 * kHour)}, "5:00:00", "5:00:00");
    row("the clock goes forward in the night", {0, 0}, {Pass(2 * kHour), Zone(kHour), Pass(2 * kHour)},
        "5:00:00", "4:00:00");
    row("over midnight into the night of the change", {23, 0}, {Pass(4 * kHour), Zone(-kHour), Pass(kHour)},
        "4:00:00", "5:00:00");
    // Flights
    row("a flight west", {12, 0}, {Pass(kHour), Zone(-6 * kHour)}, "19:00:00", "1:00:00");
    row("a flight west that stays in the afternoon", {20, 0}, {Pass(2 * kHour), Zone(-6 * kHour)}, "0:00:00",
        "2:00:00");
    row("a flight east", {9, 0}, {Pass(2 * kHour), Zone(5 * kHour)}, "7:00:00", "2:00:00");
    row("a flight east over midnight", {20, 0}, {Pass(2 * kHour), Zone(7 * kHour)}, "9:00:00", "2:00:00");
    row("there and back", {9, 0}, {Pass(kHour), Zone(-6 * kHour), Pass(kHour), Zone(6 * kHour)}, "2:00:00",
        "2:00:00");
    // The clock is set, or dead
    row("the clock is set forward", {9, 0}, {Pass(30 * kMinute), Clock(2 * kHour), Pass(30 * kMinute)},
        "3:00:00", "1:00:00");
    row("the clock is set back", {9, 0}, {Pass(30 * kMinute), Clock(-kHour), Pass(30 * kMinute)}, "0:00:00",
        "1:00:00");
    row("set back while somebody looks", {9, 0},
        {Pass(30 * kMinute), kFold, Clock(-kHour), kFold, Pass(30 * kMinute)}, "1:00:00", "1:00:00");
    row("the machine is off meanwhile", {9, 0}, {Pass(kHour), kFold, Off(2 * kHour), Pass(kHour)}, "4:00:00",
        "4:00:00");
    row("off, and its clock has lost the time", {9, 0},
        {Pass(kHour), kFold, Off(kHour), Clock(-3 * kHour), Pass(kHour)}, "1:00:00", "1:00:00");
    row("off, lost the time, set right before anybody looked", {9, 0},
        {Pass(kHour), kFold, Off(kHour), Clock(-3 * kHour), Pass(kHour), Clock(3 * kHour), Pass(kHour)},
        "4:00:00", "4:00:00");
    row("off, lost the time, looked at, set right", {9, 0},
        {Pass(kHour), kFold, Off(kHour), Clock(-3 * kHour), kFold, Pass(kHour), Clock(3 * kHour), kFold},
        "5:00:00", "3:00:00");
    row("off, and started anew with a clock that is far ahead", {9, 0},
        {Pass(kHour), kFold, Off(kHour), Clock(2'000'000'000), Pass(kHour)}, "6:33:20", "?");
    // Pauses, and what isn't known
    row("a pause of a day", {9, 0}, {Pass(kHour), kPause, Pass(kDay), kResume, Pass(kHour)}, "2:00:00",
        "2:00:00");
    row("a pause on a flight", {12, 0}, {Pass(kHour), kPause, Zone(-6 * kHour), kResume, Pass(kHour)},
        "2:00:00", "2:00:00");
    row("a clock without true time", {9, 0}, {kPause, kForget, kResume, Pass(kHour)}, "1:00:00", "?");
}

void TestTrueTime::Counts() {
    QFETCH(QTime, start);
    QFETCH(Events, events);
    TimerHome home;
    home.clock.Set(2026, 11, 20, start.hour(), start.minute(), start.second());
    const QString id = home.AddTime(2026, 11, 20);
    QVERIFY(home.timers->StartRecordTimer(id));
    for (const Event& event : events) Happen(event, home.clock, *home.timers, id);
    home.timers->FoldAndStore();
    const ActiveTimer* timer = std::as_const(*home.set).Find(id);
    QVERIFY(timer);
    QTEST(Shown(timer->Seconds()), "counted");
    QTEST(Shown(timer->trueCount.Seconds()), "passed");
}

void TestTrueTime::Differences_data() {
    QTest::addColumn<int>("counted");
    QTest::addColumn<int>("passed");  // -1: not known
    QTest::addColumn<bool>("differs");
    QTest::newRow("the same") << 3600 << 3600 << false;
    QTest::newRow("not yet a minute more") << 3600 << 3659 << false;
    QTest::newRow("a minute more") << 3600 << 3660 << true;
    QTest::newRow("not yet a minute less") << 3600 << 3541 << false;
    QTest::newRow("a minute less") << 3600 << 3540 << true;
    QTest::newRow("nothing counted") << 0 << 259200 << true;
    QTest::newRow("not known") << 3600 << -1 << false;
}

void TestTrueTime::Differences() {
    QFETCH(int, counted);
    QFETCH(int, passed);
    const auto difference =
        DifferenceOf(counted, passed < 0 ? std::nullopt : std::optional<std::int64_t>(passed));
    QTEST(difference.has_value(), "differs");
    if (!difference) return;
    QCOMPARE(difference->counted, counted);
    QCOMPARE(difference->passed, passed);
}

void TestTrueTime::AStopWritesWhatIsAskedFor_data() {
    QTest::addColumn<CountBy>("by");
    QTest::addColumn<QString>("times");
    QTest::newRow("the count of the clock") << CountBy::Clock << u"09:00 AM-01:00 PM 4:00"_s;
    QTest::newRow("the true time") << CountBy::TrueTime << u"09:00 AM-02:00 PM 5:00"_s;
}

/// Five hours from 9:00, the clock set back by one meanwhile.
void TestTrueTime::AStopWritesWhatIsAskedFor() {
    QFETCH(CountBy, by);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19, u"09:00"_s);
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(2 * kHour);
    home.clock.ShiftZone(-kHour);
    home.clock.Advance(3 * kHour);
    home.timers->FoldAndStore();
    QVERIFY(home.timers->StopRecordTimer(id, by));
    QTEST(home.TimesOf(id), "times");
    QCOMPARE(home.CountOf(id), u"none"_s);
}

void TestTrueTime::AStopWithoutATrueCountIsRefused() {
    TimerHome home;
    home.clock.ForgetTrueTime();
    const QString id = home.AddTime(2026, 11, 19, u"09:00"_s);
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(kHour);
    home.timers->FoldAndStore();
    QVERIFY(!home.timers->StopRecordTimer(id, CountBy::TrueTime));
    QCOMPARE(home.CountOf(id), u"01:00:00 running"_s);
    QCOMPARE(home.TimesOf(id), u"09:00 AM---:-- --:--"_s);
}

void TestTrueTime::AnotherProgramTakesTheTrueCountOver() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    home.clock.Advance(kDay);
    home.timers->FoldAndStore();

    TimerHome next(home.Path());
    QVERIFY(next.timers->RestoreTimers());
    const ActiveTimer* timer = std::as_const(*next.set).Find(id);
    QVERIFY(timer);
    QCOMPARE(Shown(timer->Seconds()), u"0:00:00"_s);
    QCOMPARE(Shown(timer->trueCount.Seconds()), u"24:00:00"_s);
}

/// It writes the timers and not what stands beside them.
void TestTrueTime::ATimerChangedByAnOlderProgramHasNone() {
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    const QString section = u"ActiveTimers"_s, entry = u"Content"_s;
    home.clock.Advance(kHour);
    ActiveTimerSet older(home.clock);
    older.Put(*std::as_const(*home.set).Find(id));
    older.FoldAll();
    ByteStream stream;
    QVERIFY(older.Save(stream));
    QVERIFY(home.profile->WriteBinary(section, entry, stream.Release()));

    TimerHome next(home.Path());
    QVERIFY(next.timers->RestoreTimers());
    QCOMPARE(next.CountOf(id), u"01:00:00 running"_s);
    QVERIFY(!std::as_const(*next.set).Find(id)->trueCount.isKnown);
}

void TestTrueTime::TheDraftOfANewRecordHasOneToo() {
    TimerHome home;
    CTRecord record;
    record.GenUnique();
    QVERIFY(home.timers->StartDraftTimer(record));
    home.clock.Advance(kDay);
    home.set->FoldAll();
    QVERIFY(home.timers->PersistDraft(record));

    TimerHome next(home.Path());
    next.clock.Advance(kDay);
    const auto draft = next.timers->TakeOverDraft();
    QVERIFY(draft && draft->timer);
    QCOMPARE(Shown(draft->timer->trueCount.Seconds()), u"24:00:00"_s);
}

void TestTrueTime::DamagedCounts_data() {
    QTest::addColumn<int>("at");  // which byte of the stored value is set to FF
    QTest::addColumn<bool>("isCutOff");
    QTest::newRow("a negative count") << 7 << false;
    QTest::newRow("a count of centuries") << 6 << false;
    QTest::newRow("a negative time of day") << 15 << false;
    QTest::newRow("a negative time since the start") << 23 << false;
    QTest::newRow("half of the value") << 0 << true;
}

/// The numbers are the second buffer of three; the third is the identity of the start, "boot 1".
void TestTrueTime::DamagedCounts() {
    QFETCH(int, at);
    QFETCH(bool, isCutOff);
    TimerHome home;
    const QString id = home.AddTime(2026, 11, 19);
    QVERIFY(home.timers->StartRecordTimer(id));
    QByteArray stored = TrueTimesOf(*home.set);
    TakeTrueTimes(stored, *home.set);
    QVERIFY(std::as_const(*home.set).Find(id)->trueCount.isKnown);

    const qsizetype numbers = stored.size() - (8 + 6) - 24;
    stored[numbers + at] = '\xFF';
    if (isCutOff) stored.truncate(stored.size() / 2);
    home.set->Find(id)->trueCount = {};
    TakeTrueTimes(stored, *home.set);
    QVERIFY(!std::as_const(*home.set).Find(id)->trueCount.isKnown);
}

TEST_CLASS(TestTrueTime);
#include "TestTrueTime.moc"
