#include "viewmodel/list/TimeNote.h"

#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CTRecord.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"

#include <QTest>
#include <QTimeZone>

using namespace Qt::Literals::StringLiterals;

/// What is said of a time that the clock doesn't show.
class TestTimeNote : public QObject {
    Q_OBJECT

    const RegionScope m_region{CRegionalInfo()};

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void OfARecord_data() {
        QTest::addColumn<int>("month");
        QTest::addColumn<int>("day");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("end");
        QTest::addColumn<QString>("note");
        QTest::newRow("within a day") << 11 << 19 << 9 << 17 << QString();
        QTest::newRow("past midnight") << 11 << 19 << 22 << 6 << u"Past midnight: 8:00 are counted."_s;
        QTest::newRow("the clocks go forward")
            << 3 << 28 << 22 << 6 << u"The clocks change in this time: 8:00 are counted, and 7:00 pass."_s;
        QTest::newRow("the clocks go back, within a day")
            << 10 << 25 << 1 << 5 << u"The clocks change in this time: 4:00 are counted, and 5:00 pass."_s;
        QTest::newRow("no start") << 11 << 19 << -1 << 6 << QString();
    }
    void OfARecord() {
        QFETCH(int, month);
        QFETCH(int, day);
        QFETCH(int, start);
        QFETCH(int, end);
        CTRecord record;
        record.date.Set(month, day, 2026);
        DateTimeVal time;
        if (start >= 0) {
            time.SetTime24(start, 0);
            record.SetStart(time);
        }
        time.SetTime24(end, 0);
        record.SetEnd(time);
        QTEST(TimeNote(record, nullptr, QTimeZone("Europe/Berlin")), "note");
    }

    /// Of a timer that was stopped within its first minute.
    void OfNoTimeAtAll() {
        CTRecord record;
        record.date.Set(11, 19, 2026);
        DateTimeVal time;
        QVERIFY(time.SetTime24(9, 7));
        record.SetStart(time);
        record.SetDuration(0, 0, false);
        QVERIFY(record.HasEnd());
        QCOMPARE(TimeNote(record, nullptr, QTimeZone("Europe/Berlin")), QString());
    }

    /// A timer was left alone for three days.
    void OfATimer() {
        CTestClock clock;
        ActiveTimerSet timers(clock);
        CTRecord record;
        record.GenUnique();
        timers.Start(record.GetId(), false, 0, 0, 0);
        clock.Advance(59);
        timers.FoldAll();
        const ActiveTimer* timer = timers.Find(record.GetId());
        QCOMPARE(TimeNote(record, timer, QTimeZone::utc()), QString());
        clock.Advance(3 * 24 * 3600);
        timers.FoldAll();
        QCOMPARE(
            TimeNote(record, timer, QTimeZone::utc()),
            u"The clock was changed while this timer ran, or a day went by: it counts 0:00, but 72:00 have "
            "truly passed."_s);
    }
};

TEST_CLASS(TestTimeNote);
#include "TestTimeNote.moc"
