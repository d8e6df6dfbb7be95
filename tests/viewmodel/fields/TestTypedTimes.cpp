#include "viewmodel/fields/TypedTimes.h"

#include "calendar/NumberText.h"
#include "lang/LoadText.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QtTest>

/// Forms in which times, spans and dates are typed.
class TestTypedTimes : public QObject {
    Q_OBJECT

 private:
    /// Thursday, 19 November 2026, 2:07 PM.
    CTestClock m_clock{2026, 11, 19, 14, 7};

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void ReadTypedTime_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");
        QTest::newRow("an hour") << "9"
                                 << "09:00 AM";
        QTest::newRow("an hour and minutes without a colon") << "930"
                                                             << "09:30 AM";
        QTest::newRow("four digits") << "2130"
                                     << "09:30 PM";
        QTest::newRow("three digits with an hour only") << "900"
                                                        << "09:00 AM";
        QTest::newRow("a colon") << "9:05"
                                 << "09:05 AM";
        QTest::newRow("a full stop") << "9.05"
                                     << "09:05 AM";
        QTest::newRow("an h") << "9h30"
                              << "09:30 AM";
        QTest::newRow("blanks around") << "  9:30  "
                                       << "09:30 AM";
        QTest::newRow("a colon on the way to minutes") << "9:"
                                                       << "09:00 AM";
        QTest::newRow("afternoon by its word") << "9:00 pm"
                                               << "09:00 PM";
        QTest::newRow("afternoon by one letter") << "9p"
                                                 << "09:00 PM";
        QTest::newRow("afternoon with dots") << "9 p.m."
                                             << "09:00 PM";
        QTest::newRow("capital letters") << "9:15PM"
                                         << "09:15 PM";
        QTest::newRow("noon by the clock of 24 hours") << "12"
                                                       << "12:00 PM";
        QTest::newRow("midnight with its word") << "12 am"
                                                << "12:00 AM";
        QTest::newRow("midnight by the clock of 24 hours") << "0:15"
                                                           << "12:15 AM";
        QTest::newRow("the last minute") << "23:59"
                                         << "11:59 PM";
        QTest::newRow("the word for now") << "now"
                                          << "02:07 PM";
        QTest::newRow("the key for now") << "n"
                                         << "02:07 PM";
        QTest::newRow("nothing") << ""
                                 << "nothing";
        QTest::newRow("blanks only") << "   "
                                     << "nothing";
        QTest::newRow("24 hours") << "24:00"
                                  << "unreadable";
        QTest::newRow("60 minutes") << "9:60"
                                    << "unreadable";
        QTest::newRow("13 PM") << "13 pm"
                               << "unreadable";
        QTest::newRow("0 AM") << "0:30 am"
                              << "unreadable";
        QTest::newRow("a word") << "noon"
                                << "unreadable";
        QTest::newRow("a word behind") << "9 xm"
                                       << "unreadable";
        QTest::newRow("five digits") << "12345"
                                     << "unreadable";
        QTest::newRow("a sign") << "-9"
                                << "unreadable";
        QTest::newRow("digits of another script") << QStringLiteral("\u0669") << "unreadable";
    }
    void ReadTypedTime() {
        QFETCH(QString, typed);
        DateTimeVal time;
        const Typed read = ::ReadTypedTime(typed, m_clock, time);
        QString shown = FormatTimeOfDay(CRegionalInfo(), time.hour12, time.minute, time.isPm != 0);
        if (read == Typed::Nothing) shown = QStringLiteral("nothing");
        if (read == Typed::Unreadable) shown = QStringLiteral("unreadable");
        QTEST(shown, "expected");
    }

    void ReadTypedSpan_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("decimalChar");
        QTest::addColumn<QString>("expected");
        QTest::newRow("hours and minutes") << "1:30"
                                           << "."
                                           << "1:30";
        QTest::newRow("minutes with a colon") << ":45"
                                              << "."
                                              << "0:45";
        QTest::newRow("a colon on the way to minutes") << "1:"
                                                       << "."
                                                       << "1:0";
        QTest::newRow("minutes") << "90m"
                                 << "."
                                 << "1:30";
        QTest::newRow("minutes in words") << "90 min"
                                          << "."
                                          << "1:30";
        QTest::newRow("hours with their letter") << "2h"
                                                 << "."
                                                 << "2:0";
        QTest::newRow("hours and minutes with letters") << "1h30m"
                                                        << "."
                                                        << "1:30";
        QTest::newRow("hours with their letter, then minutes") << "1h 05"
                                                               << "."
                                                               << "1:5";
        QTest::newRow("decimal hours") << "1.5"
                                       << "."
                                       << "1:30";
        QTest::newRow("decimal hours with their letter") << "1.5h"
                                                         << "."
                                                         << "1:30";
        QTest::newRow("a third of an hour is rounded to minutes") << "0.33"
                                                                  << "."
                                                                  << "0:20";
        QTest::newRow("decimal hours with the region's comma") << "1,5"
                                                               << ","
                                                               << "1:30";
        QTest::newRow("a full stop in a region with a comma") << "1.5"
                                                              << ","
                                                              << "1:30";
        QTest::newRow("a comma in a region with a full stop") << "1,5"
                                                              << "."
                                                              << "unreadable";
        QTest::newRow("both marks") << "1.5,2"
                                    << ","
                                    << "unreadable";
        QTest::newRow("a bare number is hours") << "8"
                                                << "."
                                                << "8:0";
        QTest::newRow("zero is a length") << "0"
                                          << "."
                                          << "0:0";
        QTest::newRow("the longest") << "23:59"
                                     << "."
                                     << "23:59";
        QTest::newRow("nothing") << ""
                                 << "."
                                 << "nothing";
        QTest::newRow("a day") << "24"
                               << "."
                               << "unreadable";
        QTest::newRow("a day in hours and minutes") << "24:00"
                                                    << "."
                                                    << "unreadable";
        QTest::newRow("a day in minutes") << "1440m"
                                          << "."
                                          << "unreadable";
        QTest::newRow("what rounds to a day") << "23.999"
                                              << "."
                                              << "unreadable";
        QTest::newRow("60 minutes") << "1:60"
                                    << "."
                                    << "unreadable";
        QTest::newRow("60 minutes with letters") << "1h60"
                                                 << "."
                                                 << "unreadable";
        QTest::newRow("a colon alone") << ":"
                                       << "."
                                       << "unreadable";
        QTest::newRow("a mark alone") << "."
                                      << "."
                                      << "unreadable";
        QTest::newRow("a sign") << "-1"
                                << "."
                                << "unreadable";
        QTest::newRow("a word") << "long"
                                << "."
                                << "unreadable";
        QTest::newRow("days") << "1d"
                              << "."
                              << "unreadable";
    }
    void ReadTypedSpan() {
        QFETCH(QString, typed);
        QFETCH(QString, decimalChar);
        CRegionalInfo region;
        region.decimalChar = decimalChar.front().unicode();
        region.usesDotDecimal = decimalChar == QLatin1String(".");
        int hours = 0;
        int minutes = 0;
        const Typed read = ::ReadTypedSpan(typed, region, hours, minutes);
        QString shown = QStringLiteral("%1:%2").arg(hours).arg(minutes);
        if (read == Typed::Nothing) shown = QStringLiteral("nothing");
        if (read == Typed::Unreadable) shown = QStringLiteral("unreadable");
        QTEST(shown, "expected");
    }

    void ReadTypedDate_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("expected");
        QTest::newRow("month, day, year") << "3/4/2026" << 0 << "2026-3-4";
        QTest::newRow("day, month, year") << "3.4.2026" << 1 << "2026-4-3";
        QTest::newRow("year, month, day") << "2026-3-4" << 2 << "2026-3-4";
        QTest::newRow("year in front in another order") << "2026-03-04" << 1 << "2026-3-4";
        QTest::newRow("two digits of a year") << "3/4/26" << 0 << "2026-3-4";
        QTest::newRow("two digits of a year in front") << "26-3-4" << 2 << "2026-3-4";
        QTest::newRow("a year of the last century") << "3/4/50" << 0 << "1950-3-4";
        QTest::newRow("without a year") << "3/4" << 0 << "2026-3-4";
        QTest::newRow("without a year, day first") << "3.4." << 1 << "2026-4-3";
        QTest::newRow("a day of this month") << "7" << 0 << "2026-11-7";
        QTest::newRow("copied from Arabic writing")
            << "\u200F19\u200F/11\u200F/2026\u200F" << 1 << "2026-11-19";
        QTest::newRow("the word for today") << "today" << 0 << "2026-11-19";
        QTest::newRow("the key for today") << "T" << 0 << "2026-11-19";
        QTest::newRow("29 February of a leap year") << "2/29/2024" << 0 << "2024-2-29";
        QTest::newRow("29 February of a common year") << "2/29/2026" << 0 << "unreadable";
        QTest::newRow("31 February") << "2/31/2026" << 0 << "unreadable";
        QTest::newRow("31 April") << "31.4.2026" << 1 << "unreadable";
        QTest::newRow("month 13") << "13/1/2026" << 0 << "unreadable";
        QTest::newRow("day 31 of a month of 30") << "31" << 0 << "unreadable";
        QTest::newRow("day 0") << "0" << 0 << "unreadable";
        QTest::newRow("letters behind") << "3/4/2026x" << 0 << "unreadable";
        QTest::newRow("five digits of a year") << "3/4/20260" << 0 << "unreadable";
        QTest::newRow("a word") << "someday" << 0 << "unreadable";
        QTest::newRow("nothing") << " " << 0 << "nothing";
    }
    void ReadTypedDate() {
        QFETCH(QString, typed);
        QFETCH(int, order);
        CRegionalInfo region;
        region.dateOrder = order;
        DateTimeVal date;
        const Typed read = ::ReadTypedDate(typed, region, m_clock, date);
        QString shown = QStringLiteral("%1-%2-%3").arg(date.year).arg(date.month).arg(date.day);
        if (read == Typed::Nothing) shown = QStringLiteral("nothing");
        if (read == Typed::Unreadable) shown = QStringLiteral("unreadable");
        QTEST(shown, "expected");
    }
};

TEST_CLASS(TestTypedTimes);
#include "TestTypedTimes.moc"
