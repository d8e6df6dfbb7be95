#include "support/CTestClock.h"

#include "support/TestProgram.h"

#include <QTest>

/// What other tests rely on when they move the clock.
class TestCTestClock final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void StandsStill();
    void Advance_data();
    void Advance();
};

void TestCTestClock::StandsStill() {
    const CTestClock clock;
    QCOMPARE(clock.GetLocalTime(), (SYSTEMTIME{2026, 11, 4, 19, 9, 0, 0, 0}));
}

void TestCTestClock::Advance_data() {
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("dayOfWeek");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("secondOfDay");
    QTest::newRow("a second") << 1 << 6 << 28 << 86399;
    QTest::newRow("over midnight into a leap day") << 2 << 0 << 29 << 0;
    QTest::newRow("back") << -86398 << 6 << 28 << 0;
}

void TestCTestClock::Advance() {
    QFETCH(int, seconds);
    CTestClock clock(2032, 2, 28, 23, 59, 58);
    clock.Advance(seconds);
    const SYSTEMTIME now = clock.GetLocalTime();
    QTEST(int{now.wDayOfWeek}, "dayOfWeek");
    QTEST(int{now.wDay}, "day");
    QTEST(now.wHour * 3600 + now.wMinute * 60 + now.wSecond, "secondOfDay");
}

TEST_CLASS(TestCTestClock);
#include "TestCTestClock.moc"
