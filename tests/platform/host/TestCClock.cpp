#include "platform/host/CClock.h"

#include "support/TestProgram.h"

#include <QDateTime>
#include <QTest>
#include <ctime>

class TestCClock : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void getLocalTime_data();
    void getLocalTime();
};

void TestCClock::getLocalTime_data() {
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<int>("secondsEast");
    QTest::newRow("UTC") << QByteArray("UTC0") << 0;
    QTest::newRow("east of it") << QByteArray("EAST-5:45") << 20700;
    QTest::newRow("west of it") << QByteArray("WEST11") << -39600;
}

void TestCClock::getLocalTime() {
    QFETCH(QByteArray, zone);
    QFETCH(int, secondsEast);
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", zone);
    ::tzset();
    const SYSTEMTIME now = CSystemClock().GetLocalTime();
    const QDateTime utc = QDateTime::currentDateTimeUtc();
    qputenv("TZ", before);
    ::tzset();

    const QDateTime read(QDate(now.wYear, now.wMonth, now.wDay),
                         QTime(now.wHour, now.wMinute, now.wSecond, now.wMilliseconds), Qt::UTC);
    QVERIFY(read.isValid());
    QVERIFY(qAbs(read.addSecs(-secondsEast).msecsTo(utc)) < 5000);
    QCOMPARE(now.wDayOfWeek, static_cast<std::uint16_t>(read.date().dayOfWeek() % 7));
}

TEST_CLASS(TestCClock);
#include "TestCClock.moc"
