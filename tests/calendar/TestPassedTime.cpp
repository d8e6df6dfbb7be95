#include "calendar/PassedTime.h"

#include "support/TestProgram.h"

#include <QTest>
#include <QTimeZone>

/// What passes between two times of day, in Berlin: the clocks go forward on 29 March 2026 at 2:00, and back
/// on 25 October at 3:00.
class TestPassedTime : public QObject {
    Q_OBJECT

    static DateTimeVal Time(int month, int day, int hour, int minute) {
        DateTimeVal time;
        time.SetDate(month, day, 2026);
        time.SetTime24(hour, minute);
        return time;
    }

 private Q_SLOTS:
    void Minutes_data() {
        QTest::addColumn<int>("month");
        QTest::addColumn<int>("day");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("end");
        QTest::addColumn<int>("minutes");
        QTest::newRow("a day like any other") << 11 << 19 << 9 << 17 << 480;
        QTest::newRow("past midnight") << 11 << 19 << 22 << 6 << 480;
        QTest::newRow("the same hour of the next day") << 11 << 19 << 9 << 9 << 1440;
        QTest::newRow("the night in which the clocks go forward") << 3 << 28 << 22 << 6 << 420;
        QTest::newRow("the night in which they go back") << 10 << 24 << 22 << 6 << 540;
        QTest::newRow("the morning of that night") << 10 << 25 << 1 << 6 << 360;
        QTest::newRow("the end of the year") << 12 << 31 << 23 << 1 << 120;
    }
    void Minutes() {
        QFETCH(int, month);
        QFETCH(int, day);
        QFETCH(int, start);
        QFETCH(int, end);
        QFETCH(int, minutes);
        const auto passed =
            MinutesPassed(Time(month, day, start, 0), Time(month, day, end, 0), QTimeZone("Europe/Berlin"));
        QVERIFY(passed);
        QCOMPARE(*passed, minutes);
    }
    void WithoutADate() {
        DateTimeVal start, end;
        start.SetTime24(9, 0);
        end.SetTime24(10, 0);
        QVERIFY(!MinutesPassed(start, end, QTimeZone::utc()));
    }
    void PastMidnight() {
        QVERIFY(GoesPastMidnight(Time(11, 19, 22, 0), Time(11, 19, 6, 0)));
        QVERIFY(GoesPastMidnight(Time(11, 19, 9, 0), Time(11, 19, 9, 0)));
        QVERIFY(!GoesPastMidnight(Time(11, 19, 0, 0), Time(11, 19, 0, 1)));
    }
};

TEST_CLASS(TestPassedTime);
#include "TestPassedTime.moc"
