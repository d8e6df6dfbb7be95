#include "viewmodel/list/CellText.h"

#include "config/Settings.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
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

/// A trip of 120.5 on 19 November 2026, every field filled.
CERecord FullExpense() {
    CERecord record;
    record.GenUnique();
    record.date.Set(11, 19, 2026);
    record.item1 = QStringLiteral("Client A");
    record.item2 = QStringLiteral("Alpha & Söhne");
    record.item3 = QStringLiteral("Site visit");
    record.item4 = QStringLiteral("Card");
    record.item5 = QStringLiteral("EUR");
    record.isDistance = true;
    record.distance.Set(120.5F);
    record.rate.Set(0.3F);
    record.amount.Set(36.15F);
    record.flag2 = record.flag5 = true;
    record.notes = QStringLiteral("two\nlines");
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
        QTest::newRow("net, decimal") << 2 << QStringLiteral("8.0000");
        QTest::newRow("break, decimal") << 3 << QStringLiteral("0.5000");
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
        QTEST(CellText(FullRecord(), column, *home.settings, timers), "text");
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
        QTest::newRow("net in hours and minutes") << 2 << 1 << 1 << QStringLiteral("8:00");
    }
    void formats() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        QFETCH(int, column);
        QFETCH(int, year);
        QFETCH(int, span);
        home.settings->yearDisplayFormat = year;
        home.settings->spanDisplayFormat = span;
        QTEST(CellText(FullRecord(), column, *home.settings, timers), "text");
    }

    void expenseText_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("text");
        QTest::newRow("date, two digits of the year") << 17 << QStringLiteral("11/19/26");
        QTest::newRow("amount, two places") << 18 << QStringLiteral("36.15");
        QTest::newRow("client") << 19 << QStringLiteral("Client A");
        QTest::newRow("project") << 20 << QStringLiteral("Alpha & Söhne");
        QTest::newRow("description") << 21 << QStringLiteral("Site visit");
        QTest::newRow("that it is a trip has no text") << 22 << QString();
        QTest::newRow("distance, two places") << 23 << QStringLiteral("120.50");
        QTest::newRow("rate, three places") << 24 << QStringLiteral("0.300");
        QTest::newRow("payment") << 25 << QStringLiteral("Card");
        QTest::newRow("currency") << 26 << QStringLiteral("EUR");
        QTest::newRow("a flag has no text") << 27 << QString();
        QTest::newRow("nor the fifth") << 31 << QString();
        QTest::newRow("notes") << 32 << QStringLiteral("two\nlines");
        QTest::newRow("exported has no text") << 33 << QString();
        QTest::newRow("a column of time records") << 4 << QString();
    }
    void expenseText() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        QFETCH(int, column);
        QTEST(CellText(FullExpense(), column, *home.settings, timers), "text");
        QCOMPARE(CellText(FullRecord(), 4, *home.settings, timers), QStringLiteral("Client A"));
    }

    void expenseDates() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        const char* const dates[] = {"11/19/2026", "11/19/26", "11/19"};
        for (const int format : {0, 1, 2}) {
            home.settings->yearDisplayFormat = format;
            QCOMPARE(CellText(FullExpense(), 17, *home.settings, timers), QString::fromLatin1(dates[format]));
        }
    }

    void expenseWithNothingSet() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        for (int column = 17; column < 34; ++column) {
            QCOMPARE(CellText(CERecord(), column, *home.settings, timers), QString());
            QVERIFY(!FlagOf(CERecord(), column));
        }
    }

    /// Which flags of a record its columns show.
    void flags() {
        QString time, expense;
        CTRecord record = FullRecord();
        const CERecord trip = FullExpense();
        for (int column = 0; column < 34; ++column) {
            if (FlagOf(record, column)) time += QString::number(column) + u' ';
            if (FlagOf(static_cast<const CVORec&>(trip), column)) expense += QString::number(column) + u' ';
        }
        QCOMPARE(time, QStringLiteral("13 15 "));
        QCOMPARE(expense, QStringLiteral("22 28 31 32 "));
        record.isBilled = record.isExported = true;
        record.notes.clear();
        QVERIFY(FlagOf(record, 14) && FlagOf(record, 16) && !FlagOf(record, 15));
        CERecord other;
        other.flag1 = other.flag3 = other.flag4 = other.isExported = true;
        for (const int column : {27, 29, 30, 33}) QVERIFY(FlagOf(other, column));
        for (const int column : {22, 28, 31, 32}) QVERIFY(!FlagOf(other, column));
    }

    void expenseInWords() {
        TestHome home;
        const ActiveTimerSet timers(home.clock);
        QCOMPARE(RecordInWords(FullExpense(), *home.settings, timers),
                 QStringLiteral("Date: 11/19/26, Amount: 36.15, Billable: no, Billed: yes, Client: Client A, "
                                "Project: Alpha & Söhne, Description: Site visit, Payment: Card"));
    }

    /// The user's own columns, in their order, under their captions.
    void inWordsByTheListsColumns() {
        TestHome home;
        const ActiveTimerSet timers(home.clock);
        CColSet& columns = home.settings->ListColumns();
        columns.SetColumn(ColumnHalf::Time, QStringLiteral("Client"),
                          {QStringLiteral("Customer"), 60, 6, true});
        const QString others = QStringLiteral("Date,Start,Hours,Billed,Project,Activity,Cost centre");
        columns.AssignOrder(ColumnHalf::Time, others.split(u','),
                            QStringLiteral("Customer,Billable,Notes").split(u','));
        QCOMPARE(RecordInWords(FullRecord(), *home.settings, timers),
                 QStringLiteral("Customer: Client A, Billable: yes, Notes: yes"));
    }

    void nothingSet() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        CTRecord record;
        record.Reset();
        for (const int format : {0, 1}) {
            home.settings->spanDisplayFormat = format;
            for (const int column : {1, 2, 3})
                QCOMPARE(CellText(record, column, *home.settings, timers), QStringLiteral("--:--"));
        }
        QCOMPARE(CellText(record, 6, *home.settings, timers), QStringLiteral("--:--"));
        QCOMPARE(CellText(record, 8, *home.settings, timers), QString());
        QCOMPARE(CellText(record, 12, *home.settings, timers), QString());
    }

    /// The count stands in for the duration while a timer is there, running or paused; the other spans stay.
    void timerCount() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        const CTRecord record = FullRecord();
        timers.Start(record.GetId(), true, 1, 42, 0);
        home.clock.Advance(17);
        timers.FoldAll();
        QCOMPARE(CellText(record, 1, *home.settings, timers), QStringLiteral("01:42:17"));
        QCOMPARE(CellText(record, 2, *home.settings, timers), QStringLiteral("8.0000"));
        QVERIFY(timers.Pause(record.GetId()));
        QCOMPARE(CellText(record, 1, *home.settings, timers), QStringLiteral("01:42:17"));
        QVERIFY(timers.Stop(record.GetId()));
        QCOMPARE(CellText(record, 1, *home.settings, timers), QStringLiteral("8.5000"));
    }

    void inWords() {
        TestHome home;
        ActiveTimerSet timers(home.clock);
        const QString words = RecordInWords(FullRecord(), *home.settings, timers);
        QVERIFY(words.startsWith(
            QStringLiteral("Date: 11/19/26, Start: 09:00 AM, Hours: 8.5000, Billable: yes")));
        QVERIFY(words.contains(QStringLiteral("Billed: no")));
        QCOMPARE(FlagInWords(FullRecord(), 16, *home.settings), QStringLiteral("Exported: no"));
        QVERIFY(FlagOf(FullRecord(), 15));
    }
};

TEST_CLASS(TestCellText);
#include "TestCellText.moc"
