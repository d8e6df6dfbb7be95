#include "shell/core/CellText.h"

#include "config/Settings.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "timers/ActiveTimerSet.h"

#include <QTest>

namespace {

/// 19 November 2026, 09:00 to 17:30 less half an hour, every other field filled.
CTRecord FullRecord() {
    CTRecord record;
    record.Reset();
    record.GenUnique();
    record.date.Set(11, 19, 2026);
    record.SetStart(9, 0, false);
    record.SetEnd(5, 30, true);
    record.SetBreak(0, 30);
    record.item1 = QStringLiteral("Client A");
    record.item2 = QStringLiteral("Alpha & Söhne");
    record.item3 = QStringLiteral("Design");
    record.item4 = QStringLiteral("CC 4");
    record.item5 = QStringLiteral("EUR");
    record.notes = QStringLiteral("two\nlines");
    record.SetBillable(true);
    record.SetRate(80.0F);
    return record;
}

}  // namespace

class TestCellText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void cellText_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("text");
        QTest::newRow("date, two digits of the year") << 0 << QStringLiteral("11/19/26");
        QTest::newRow("duration, decimal") << 1 << QStringLiteral("8.5000");
        QTest::newRow("break, decimal") << 2 << QStringLiteral("0.5000");
        QTest::newRow("net, decimal") << 3 << QStringLiteral("8.0000");
        QTest::newRow("client") << 4 << QStringLiteral("Client A");
        QTest::newRow("project") << 5 << QStringLiteral("Alpha & Söhne");
        QTest::newRow("start") << 6 << QStringLiteral("09:00 AM");
        QTest::newRow("end") << 7 << QStringLiteral("05:30 PM");
        QTest::newRow("rate, three places") << 8 << QStringLiteral("80.000");
        QTest::newRow("activity") << 9 << QStringLiteral("Design");
        QTest::newRow("cost centre") << 10 << QStringLiteral("CC 4");
        QTest::newRow("currency") << 11 << QStringLiteral("EUR");
        QTest::newRow("amount, two places") << 12 << QStringLiteral("640.00");
        QTest::newRow("a flag has no text") << 13 << QString();
        QTest::newRow("notes") << 15 << QStringLiteral("two\nlines");
    }
    void cellText() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        QFETCH(int, column);
        QTEST(TimeCellText(FullRecord(), column, *home.settings, timers), "text");
    }

    void formats_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("year");
        QTest::addColumn<int>("span");
        QTest::addColumn<QString>("text");
        QTest::newRow("full year") << 0 << 0 << 0 << QStringLiteral("11/19/2026");
        QTest::newRow("short year") << 0 << 1 << 0 << QStringLiteral("11/19/26");
        QTest::newRow("no year") << 0 << 2 << 0 << QStringLiteral("11/19");
        QTest::newRow("hours and minutes") << 1 << 1 << 1 << QStringLiteral("8:30");
        QTest::newRow("net in hours and minutes") << 3 << 1 << 1 << QStringLiteral("8:00");
    }
    void formats() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        QFETCH(int, column);
        QFETCH(int, year);
        QFETCH(int, span);
        home.settings->yearDisplayFormat = year;
        home.settings->spanDisplayFormat = span;
        QTEST(TimeCellText(FullRecord(), column, *home.settings, timers), "text");
    }

    void nothingSet() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        CTRecord record;
        record.Reset();
        for (const int format : {0, 1}) {
            home.settings->spanDisplayFormat = format;
            for (const int column : {1, 2, 3})
                QCOMPARE(TimeCellText(record, column, *home.settings, timers), QStringLiteral("--:--"));
        }
        QCOMPARE(TimeCellText(record, 6, *home.settings, timers), QStringLiteral("--:--"));
        QCOMPARE(TimeCellText(record, 8, *home.settings, timers), QString());
        QCOMPARE(TimeCellText(record, 12, *home.settings, timers), QString());
    }

    /// The count stands in for the duration while a timer is there, running or paused; the other spans stay.
    void timerCount() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        const CTRecord record = FullRecord();
        timers.Start(record.GetId(), true, 1, 42, 0);
        home.clock.Advance(17);
        timers.FoldAll();
        QCOMPARE(TimeCellText(record, 1, *home.settings, timers), QStringLiteral("01:42:17"));
        QCOMPARE(TimeCellText(record, 3, *home.settings, timers), QStringLiteral("8.0000"));
        QVERIFY(timers.Pause(record.GetId()));
        QCOMPARE(TimeCellText(record, 1, *home.settings, timers), QStringLiteral("01:42:17"));
        QVERIFY(timers.Stop(record.GetId()));
        QCOMPARE(TimeCellText(record, 1, *home.settings, timers), QStringLiteral("8.5000"));
    }

    void inWords() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        const QString words = RecordInWords(FullRecord(), *home.settings, timers);
        QVERIFY(words.startsWith(
            QStringLiteral("Date: 11/19/26, Start: 09:00 AM, Hours: 8.5000, Billable: yes")));
        QVERIFY(words.contains(QStringLiteral("Billed: no")));
        QCOMPARE(FlagInWords(FullRecord(), 16), QStringLiteral("Exported: no"));
        QVERIFY(FlagOf(FullRecord(), 15));
    }
};

QTEST_GUILESS_MAIN(TestCellText)
#include "TestCellText.moc"
