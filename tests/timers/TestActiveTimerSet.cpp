#include "timers/ActiveTimerSet.h"

#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

const QString kA = QString(32, u'A');
const QString kB = QString(32, u'B');
const QString kC = QString(32, u'C');

QString Count(const ActiveTimerSet& set, const QString& id) {
    int hours = -1, minutes = -1, seconds = -1;
    const bool found = set.GetElapsed(id, hours, minutes, seconds);
    return QString::asprintf("%d:%02d:%02d%s", hours, minutes, seconds, found ? "" : " none");
}

/// "32 characters A" as it lies in a stream: tag 2, 64 bytes.
QByteArray IdItem(char letter) {
    QByteArray item = QByteArray::fromHex("0200000040000000");
    for (int i = 0; i < 32; ++i) item += QByteArray(1, letter) + '\0';
    return item;
}

/// Tag 1, 4 bytes.
QByteArray NumberItem(const char* littleEndian) {
    return QByteArray::fromHex("0100000004000000") + QByteArray::fromHex(littleEndian);
}

/// Tag 6, 16 bytes: 2026, 11, Thursday, 19, 9:05:07.000.
QByteArray ClockItem() {
    return QByteArray::fromHex("0600000010000000") + QByteArray::fromHex("ea070b00040013000900050007000000");
}

QByteArray Entry(char letter, const char* hours, const char* state) {
    return IdItem(letter) + NumberItem(hours) + NumberItem("1e000000") + NumberItem("05000000") +
           NumberItem(state) + ClockItem();
}

QByteArray Saved(const ActiveTimerSet& set) {
    ByteStream stream;
    return set.Save(stream) ? stream.Release() : QByteArray("failed");
}

bool Load(ActiveTimerSet& set, const QByteArray& bytes) {
    ByteStream stream;
    stream.Attach(bytes);
    return set.Load(stream);
}

}  // namespace

class TestActiveTimerSet : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void UnknownIdentity();
    void StartOfARunningTimer();
    void StartGoesOnFromADuration();
    void ResumeAddsNothingForThePause();
    void Pause();
    void Stop();
    void RemoveClosesTheGap();
    void AnyRunningAndActive();
    void StoredBytes();
    void SaveSkipsAndRefuses();
    void LoadReadsWhatWasSaved();
    void LoadReplacesAndAdds();
    void LoadOfBadBytes_data();
    void LoadOfBadBytes();
    void ThousandTimersTick();
};

void TestActiveTimerSet::UnknownIdentity() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    QCOMPARE(static_cast<int>(set.StateOf(kA)), 4);
    QCOMPARE(set.IndexOf(kA), -1);
    QCOMPARE(set.Find(kA), nullptr);
    QCOMPARE(Count(set, kA), QStringLiteral("0:00:00 none"));
    QVERIFY(!set.Pause(kA));
    QVERIFY(!set.Stop(kA));
    QCOMPARE(static_cast<int>(set.StateAt(0)), 4);
    QCOMPARE(set.IdAt(-1), QString());
    set.Remove(0);
    QCOMPARE(set.Count(), 0);
}

void TestActiveTimerSet::StartOfARunningTimer() {
    CTestClock clock;
    ActiveTimerSet set(clock);
    QVERIFY(set.Start(kA, false, 0, 0, 0));
    clock.Advance(60);
    set.FoldAll();
    const SYSTEMTIME folded = set.Find(kA)->lastUpdate;
    clock.Advance(60);
    QVERIFY(set.Start(kA, true, 5, 5, 5));
    QCOMPARE(Count(set, kA), QStringLiteral("0:01:00"));
    QCOMPARE(set.Find(kA)->lastUpdate, folded);
    QCOMPARE(set.Count(), 1);
}

void TestActiveTimerSet::StartGoesOnFromADuration() {
    CTestClock clock;
    ActiveTimerSet set(clock);
    QVERIFY(set.Start(kA, true, 1, 30, 0));
    QCOMPARE(Count(set, kA), QStringLiteral("1:30:00"));
    clock.Advance(61);
    set.FoldAll();
    QCOMPARE(Count(set, kA), QStringLiteral("1:31:01"));
}

void TestActiveTimerSet::ResumeAddsNothingForThePause() {
    CTestClock clock;
    ActiveTimerSet set(clock);
    set.Start(kA, false, 0, 0, 0);
    clock.Advance(120);
    QVERIFY(set.Pause(kA));
    clock.Advance(600);
    set.Start(kA, true, 9, 9, 9);
    clock.Advance(30);
    set.FoldAll();
    QCOMPARE(Count(set, kA), QStringLiteral("0:02:30"));
}

void TestActiveTimerSet::Pause() {
    CTestClock clock;
    ActiveTimerSet set(clock);
    set.Start(kA, false, 0, 0, 0);
    clock.Advance(75);
    QVERIFY(set.Pause(kA));
    QCOMPARE(static_cast<int>(set.StateOf(kA)), 1);
    QCOMPARE(Count(set, kA), QStringLiteral("0:01:15"));
    clock.Advance(75);
    QVERIFY(!set.Pause(kA));
    set.FoldAll();
    QCOMPARE(Count(set, kA), QStringLiteral("0:01:15"));
}

void TestActiveTimerSet::Stop() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    set.Start(kA, false, 0, 0, 0);
    set.Start(kB, false, 0, 0, 0);
    set.Pause(kB);
    QVERIFY(set.Stop(kA));
    QVERIFY(set.Stop(kB));
    QVERIFY(!set.Stop(kA));
    QCOMPARE(set.Count(), 0);
    ActiveTimer stopped;
    stopped.recordId = kC;
    set.Put(stopped);
    QVERIFY(set.Stop(kC));
    QCOMPARE(set.Count(), 1);  // one that is stopped already stays
}

void TestActiveTimerSet::RemoveClosesTheGap() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    for (const QString& id : {kA, kB, kC}) set.Start(id, false, 0, 0, 0);
    set.Remove(1);
    QCOMPARE(set.Count(), 2);
    QCOMPARE(set.IdAt(0), kA);
    QCOMPARE(set.IdAt(1), kC);
    QCOMPARE(set.IndexOf(kC), 1);
    QCOMPARE(set.IndexOf(kB), -1);
    QCOMPARE(set.Find(kC)->recordId, kC);
}

void TestActiveTimerSet::AnyRunningAndActive() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    QVERIFY(!set.AnyRunning() && !set.AnyActive());
    set.Start(kA, false, 0, 0, 0);
    QVERIFY(set.AnyRunning() && set.AnyActive());
    set.Pause(kA);
    QVERIFY(!set.AnyRunning() && set.AnyActive());
    set.Stop(kA);
    QVERIFY(!set.AnyRunning() && !set.AnyActive());
}

void TestActiveTimerSet::StoredBytes() {
    CTestClock clock;
    clock.Set(2026, 11, 19, 9, 5, 7);
    ActiveTimerSet set(clock);
    set.Start(kA, true, 258, 30, 5);
    set.Start(kB, true, 1, 30, 5);
    set.Pause(kB);
    QCOMPARE(Saved(set), Entry('A', "02010000", "02000000") + Entry('B', "01000000", "01000000"));
}

void TestActiveTimerSet::SaveSkipsAndRefuses() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    QCOMPARE(Saved(set), QByteArray());
    ActiveTimer entry;
    entry.recordId = QStringLiteral("short");
    entry.state = TimerState::Unused;
    set.Put(entry);
    QCOMPARE(Saved(set), QByteArray());  // other states aren't stored, whatever their identity
    entry.state = TimerState::Paused;
    set.Put(entry);
    QCOMPARE(Saved(set), QByteArray("failed"));
}

void TestActiveTimerSet::LoadReadsWhatWasSaved() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    const QByteArray bytes = Entry('A', "02010000", "02000000") + Entry('B', "01000000", "01000000");
    QVERIFY(Load(set, bytes));
    QCOMPARE(set.Count(), 2);
    QCOMPARE(Count(set, kA), QStringLiteral("258:30:05"));
    QCOMPARE(static_cast<int>(set.StateOf(kB)), 1);
    CTestClock then;
    then.Set(2026, 11, 19, 9, 5, 7);
    QCOMPARE(set.Find(kA)->lastUpdate, then.GetLocalTime());
    QCOMPARE(Saved(set), bytes);
}

void TestActiveTimerSet::LoadReplacesAndAdds() {
    const CTestClock clock;
    ActiveTimerSet set(clock);
    set.Start(kB, true, 7, 0, 0);
    QVERIFY(Load(set, Entry('A', "02000000", "02000000") + Entry('B', "01000000", "01000000") +
                          Entry('C', "03000000", "00000000")));
    QCOMPARE(set.Count(), 2);  // a stopped one is dropped
    QCOMPARE(set.IdAt(0), kB);
    QCOMPARE(Count(set, kB), QStringLiteral("1:30:05"));
    QCOMPARE(Count(set, kA), QStringLiteral("2:30:05"));
}

void TestActiveTimerSet::LoadOfBadBytes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("good");
    QTest::addColumn<int>("timers");
    const QByteArray first = Entry('A', "01000000", "02000000");
    const QByteArray second = Entry('B', "01000000", "02000000");
    QTest::newRow("nothing") << QByteArray() << true << 0;
    QTest::newRow("a whole entry") << first << true << 1;
    QTest::newRow("a cut second entry: the first one stays") << first + second.left(100) << false << 1;
    QTest::newRow("a byte too few") << first + second.chopped(1) << false << 1;
    QTest::newRow("an identity of 31 characters")
        << first + QByteArray::fromHex("020000003e000000") + second.mid(8, 62) + second.mid(72) << false << 1;
    QTest::newRow("a clock of 8 bytes")
        << second.chopped(24) + QByteArray::fromHex("0600000008000000") + QByteArray(8, '\0') << false << 0;
    QTest::newRow("no clock") << second.chopped(24) << false << 0;
    QTest::newRow("another tag in place of the clock's")
        << second.chopped(24) + QByteArray::fromHex("0300000010000000") + QByteArray(16, '\0') << false << 0;
    QTest::newRow("a length that points outside")
        << QByteArray::fromHex("02000000ffffff7f") + QByteArray(64, 'x') << false << 0;
    QTest::newRow("garbage") << QByteArray(300, '\xff') << false << 0;
}

void TestActiveTimerSet::LoadOfBadBytes() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, good);
    QFETCH(int, timers);
    const CTestClock clock;
    ActiveTimerSet set(clock);
    QCOMPARE(Load(set, bytes), good);
    QCOMPARE(set.Count(), timers);
}

void TestActiveTimerSet::ThousandTimersTick() {
    CTestClock clock;
    ActiveTimerSet set(clock);
    QStringList ids;
    for (int i = 0; i < 1000; ++i) ids.append(QStringLiteral("%1").arg(i, 32, 10, QLatin1Char('0')));
    for (const QString& id : ids) set.Start(id, false, 0, 0, 0);
    for (int second = 0; second < 100; ++second) {
        clock.Advance(1);
        for (const QString& id : ids) QVERIFY(set.Find(id)->UpdateElapsed(clock));
    }
    QCOMPARE(Count(set, ids.first()), QStringLiteral("0:01:40"));
    QCOMPARE(Count(set, ids.last()), QStringLiteral("0:01:40"));
}

TEST_CLASS(TestActiveTimerSet);
#include "TestActiveTimerSet.moc"
