#include "timers/ActiveTimer.h"

#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>
#include <vector>

namespace {

/// Gives one reading after the other.
class ReadingsClock final : public CClock {
 public:
    explicit ReadingsClock(std::vector<SYSTEMTIME> readings) : m_readings(std::move(readings)) {}
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return m_readings.at(m_next++); }

 private:
    std::vector<SYSTEMTIME> m_readings;
    mutable std::size_t m_next = 0;
};

SYSTEMTIME At(const QString& text, int day = 19) {
    const QTime time = QTime::fromString(text, QStringLiteral("HH:mm:ss"));
    CTestClock clock;
    clock.Set(2026, 11, day, time.hour(), time.minute(), time.second());
    return clock.GetLocalTime();
}

QString Count(const ActiveTimer& timer) {
    return QString::asprintf("%d:%02d:%02d", timer.hours, timer.minutes, timer.seconds);
}

ActiveTimer Running(int hours, int minutes, int seconds, const QString& since, int day = 19) {
    ActiveTimer timer;
    timer.hours = static_cast<std::uint16_t>(hours);
    timer.minutes = static_cast<std::uint16_t>(minutes);
    timer.seconds = static_cast<std::uint16_t>(seconds);
    timer.state = TimerState::Running;
    timer.lastUpdate = At(since, day);
    return timer;
}

}  // namespace

class TestActiveTimer : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void UpdateElapsed_data();
    void UpdateElapsed();
    void FoldReadsTheClockTwice();
    void FoldLeavesAPausedTimer();
    void ManyFoldsCountAsOne();
    void Begin_data();
    void Begin();
};

void TestActiveTimer::UpdateElapsed_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("since");
    QTest::addColumn<QString>("now");
    QTest::addColumn<int>("nowDay");
    QTest::addColumn<bool>("good");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* situation, const char* before, const char* since, const char* now,
                        int day, bool good, const char* after) {
        QTest::newRow(situation) << QString::fromLatin1(before) << QString::fromLatin1(since)
                                 << QString::fromLatin1(now) << day << good << QString::fromLatin1(after);
    };
    row("one second", "0:00:00", "09:00:00", "09:00:01", 19, true, "0:00:01");
    row("no time at all", "0:00:07", "09:00:00", "09:00:00", 19, true, "0:00:07");
    row("half an hour that nobody looked", "0:00:00", "09:00:00", "09:30:00", 19, true, "0:30:00");
    row("59 seconds and 2 are a minute and 1", "0:00:59", "09:00:00", "09:00:02", 19, true, "0:01:01");
    row("59 minutes carry into the hours", "0:59:59", "09:00:00", "09:00:02", 19, true, "1:00:01");
    row("seconds and minutes carry at once", "1:59:50", "09:00:00", "09:59:55", 19, true, "2:59:45");
    row("hours aren't limited to 24", "30:00:00", "09:00:00", "14:00:00", 19, true, "35:00:00");
    row("over midnight", "0:00:00", "23:59:50", "00:00:05", 20, true, "0:00:15");
    row("from noon to before noon of the next day", "0:00:00", "12:00:00", "11:59:59", 20, true, "23:59:59");
    row("the clock set back adds nothing", "0:10:00", "09:00:30", "09:00:00", 19, false, "0:10:00");
    row("the next morning at a later time counts the clock times only", "0:00:00", "09:00:00", "10:00:00", 20,
        true, "1:00:00");
    row("the next morning at an earlier time adds nothing", "1:00:00", "09:00:00", "08:00:00", 20, false,
        "1:00:00");
}

void TestActiveTimer::UpdateElapsed() {
    QFETCH(QString, before);
    QFETCH(QString, since);
    QFETCH(QString, now);
    QFETCH(int, nowDay);
    QFETCH(bool, good);
    QFETCH(QString, after);
    const QStringList counts = before.split(u':');
    ActiveTimer timer = Running(counts[0].toInt(), counts[1].toInt(), counts[2].toInt(), since);
    const ReadingsClock clock({At(now, nowDay), At(now, nowDay)});
    QCOMPARE(timer.UpdateElapsed(clock), good);
    QCOMPARE(Count(timer), after);
    QCOMPARE(timer.lastUpdate, At(now, nowDay));
}

void TestActiveTimer::FoldReadsTheClockTwice() {
    ActiveTimer timer = Running(0, 0, 0, QStringLiteral("09:00:00"));
    const ReadingsClock clock({At(QStringLiteral("09:00:10")), At(QStringLiteral("09:00:11")),
                               At(QStringLiteral("09:00:20")), At(QStringLiteral("09:00:20"))});
    QVERIFY(timer.UpdateElapsed(clock));
    QCOMPARE(Count(timer), QStringLiteral("0:00:10"));
    QVERIFY(timer.UpdateElapsed(clock));
    QCOMPARE(Count(timer), QStringLiteral("0:00:19"));  // the second between the readings is lost
}

void TestActiveTimer::FoldLeavesAPausedTimer() {
    ActiveTimer timer = Running(0, 5, 0, QStringLiteral("09:00:00"));
    timer.state = TimerState::Paused;
    const ReadingsClock clock({});
    QVERIFY(timer.UpdateElapsed(clock));
    QCOMPARE(Count(timer), QStringLiteral("0:05:00"));
}

void TestActiveTimer::ManyFoldsCountAsOne() {
    CTestClock clock;
    ActiveTimer timer = Running(0, 0, 0, QStringLiteral("09:00:00"));
    for (int second = 0; second < 4000; ++second) {
        clock.Advance(1);
        QVERIFY(timer.UpdateElapsed(clock));
    }
    QCOMPARE(Count(timer), QStringLiteral("1:06:40"));
}

void TestActiveTimer::Begin_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("useInitial");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("since");
    QTest::addColumn<int>("stateAfter");
    QTest::newRow("a stopped timer from zero") << 0 << false << "0:00:00"
                                               << "09:00:00" << 2;
    QTest::newRow("a stopped timer from a duration") << 0 << true << "1:30:00"
                                                     << "09:00:00" << 2;
    QTest::newRow("a paused timer keeps its count") << 1 << true << "0:07:00"
                                                    << "09:00:00" << 2;
    QTest::newRow("a running timer stays as it is") << 2 << true << "0:07:00"
                                                    << "08:00:00" << 2;
    QTest::newRow("another state stays as it is") << 3 << true << "0:07:00"
                                                  << "08:00:00" << 3;
}

void TestActiveTimer::Begin() {
    QFETCH(int, state);
    QFETCH(bool, useInitial);
    QFETCH(QString, count);
    QFETCH(QString, since);
    QFETCH(int, stateAfter);
    const CTestClock clock;  // 9:00
    ActiveTimer timer = Running(0, 7, 0, QStringLiteral("08:00:00"));
    timer.state = static_cast<TimerState>(state);
    timer.Begin(clock, useInitial, 1, 30, 0);
    QCOMPARE(Count(timer), count);
    QCOMPARE(timer.lastUpdate, At(since));
    QCOMPARE(static_cast<int>(timer.state), stateAfter);
}

TEST_CLASS(TestActiveTimer);
#include "TestActiveTimer.moc"
