#include "calendar/DateTimeVal.h"
#include "calendar/IsoDays.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

}  // namespace

class TestDateTimeVal final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void NewValue();
    void CopyFrom();
    void SetDate_data();
    void SetDate();
    void SetTime_data();
    void SetTime();
    void SetTime24_data();
    void SetTime24();
    void OneVerdictForBoth();
    void SetFromClock();
    void SetFromBrokenClock();
    void CompareDates_data();
    void CompareDates();
    void CompareTimes_data();
    void CompareTimes();
    void WeekRange_data();
    void WeekRange();
    void MonthRange_data();
    void MonthRange();
    void Quarters_data();
    void Quarters();
    void QuarterRanges_data();
    void QuarterRanges();
    void ToPicker();
};

void TestDateTimeVal::NewValue() {
    DateTimeVal value;
    QCOMPARE(IsoOf(value), u"0000-00-00"_s);
    QCOMPARE(value.hour12, 0);
    QVERIFY(!value.IsValid());
    QVERIFY(!value.ValidateDate());
    QVERIFY(!value.ValidateTime());
}

void TestDateTimeVal::CopyFrom() {
    DateTimeVal source = DayOf(u"2026-11-19"_s);
    QVERIFY(source.SetTime(11, 45, true));
    DateTimeVal target;
    target.CopyFrom(source);
    QCOMPARE(IsoOf(target), u"2026-11-19"_s);
    QCOMPARE(TimeTextOf(target), u"11:45 PM"_s);
    QVERIFY2(!target.IsValid(), "the verdict isn't copied");

    DateTimeVal valid = DayOf(u"2024-02-29"_s);
    valid.CopyFrom(DateTimeVal());
    QCOMPARE(IsoOf(valid), u"0000-00-00"_s);
    QVERIFY2(valid.IsValid(), "nor is the verdict of an invalid value");
}

void TestDateTimeVal::SetDate_data() {
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("date");
    const auto year = [](const char* name, int entered, const char* date) {
        QTest::newRow(name) << 5 << 6 << entered << true << QString::fromLatin1(date);
    };
    const auto refused = [](const char* name, int month, int day) {
        QTest::newRow(name) << month << day << 2026 << false << u"0000-00-00"_s;
    };
    year("a full year", 2026, "2026-05-06");
    year("year 1000 stays", 1000, "1000-05-06");
    year("999 means 1999", 999, "1999-05-06");
    year("900 means 1900", 900, "1900-05-06");
    year("899 means 2899", 899, "2899-05-06");
    year("100 means 2100", 100, "2100-05-06");
    year("99 means 1999", 99, "1999-05-06");
    year("50 means 1950", 50, "1950-05-06");
    year("49 means 2049", 49, "2049-05-06");
    year("0 means 2000", 0, "2000-05-06");
    year("-1 means 1999", -1, "1999-05-06");
    year("the greatest year stays", kMost, "2147483647-05-06");
    year("the least year goes up by 2000", kLeast, "-2147481648-05-06");
    QTest::newRow("31 February passes") << 2 << 31 << 2003 << true << u"2003-02-31"_s;
    QTest::newRow("31 April passes") << 4 << 31 << 2003 << true << u"2003-04-31"_s;
    refused("month 0", 0, 1);
    refused("month 13", 13, 1);
    refused("a negative month", -1, 1);
    refused("day 0", 1, 0);
    refused("day 32", 1, 32);
    refused("a negative day", 1, -1);
    refused("absurd values", kMost, kLeast);
}

void TestDateTimeVal::SetDate() {
    QFETCH(int, month);
    QFETCH(int, day);
    QFETCH(int, year);
    QFETCH(bool, valid);
    DateTimeVal value = TimeOf(u"11:45 PM"_s);
    QCOMPARE(value.SetDate(month, day, year), valid);
    QCOMPARE(value.IsValid(), valid);
    QTEST(IsoOf(value), "date");
    QCOMPARE(TimeTextOf(value), u"0:00 AM"_s);
}

void TestDateTimeVal::SetTime_data() {
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<bool>("isPm");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("time");
    const auto good = [](const char* name, int hour, int minute, bool isPm, const char* time) {
        QTest::newRow(name) << hour << minute << isPm << true << QString::fromLatin1(time);
    };
    const auto refused = [](const char* name, int hour, int minute) {
        QTest::newRow(name) << hour << minute << true << false << u"0:00 AM"_s;
    };
    good("the first hour", 1, 0, false, "1:00 AM");
    good("the last minute", 12, 59, true, "12:59 PM");
    refused("hour 0", 0, 0);
    refused("hour 13", 13, 0);
    refused("the hour of no time", NoTimeHour, 0);
    refused("minute 60", 1, 60);
    refused("a negative minute", 1, -1);
    refused("a negative hour", -1, 0);
    refused("absurd values", kMost, kLeast);
}

void TestDateTimeVal::SetTime() {
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(bool, isPm);
    QFETCH(bool, valid);
    DateTimeVal value = DayOf(u"2026-11-19"_s);
    QCOMPARE(value.SetTime(hour, minute, isPm), valid);
    QCOMPARE(value.IsValid(), valid);
    QTEST(TimeTextOf(value), "time");
    QCOMPARE(IsoOf(value), u"2026-11-19"_s);
}

void TestDateTimeVal::SetTime24_data() {
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<QString>("time");  // empty: refused
    QTest::newRow("midnight") << 0 << 0 << u"12:00 AM"_s;
    QTest::newRow("before noon") << 11 << 59 << u"11:59 AM"_s;
    QTest::newRow("noon") << 12 << 0 << u"12:00 PM"_s;
    QTest::newRow("one o'clock") << 13 << 5 << u"1:05 PM"_s;
    QTest::newRow("the last minute") << 23 << 59 << u"11:59 PM"_s;
    QTest::newRow("24:00 is no time") << 24 << 0 << QString();
    QTest::newRow("nor is 25:00") << 25 << 0 << QString();
    QTest::newRow("a negative hour") << -1 << 0 << QString();
    QTest::newRow("minute 60") << 9 << 60 << QString();
}

void TestDateTimeVal::SetTime24() {
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(QString, time);
    DateTimeVal value = TimeOf(u"3:33 PM"_s);
    QCOMPARE(value.SetTime24(hour, minute), !time.isEmpty());
    QCOMPARE(value.IsValid(), !time.isEmpty());
    QCOMPARE(TimeTextOf(value), time.isEmpty() ? u"0:00 AM"_s : time);
}

void TestDateTimeVal::OneVerdictForBoth() {
    DateTimeVal value;
    QVERIFY(!value.SetDate(13, 1, 2026));
    QVERIFY(value.SetTime(9, 0, false));
    QVERIFY2(value.IsValid(), "the time's verdict takes the place of the date's");
    QVERIFY(value.SetDate(1, 1, 2026));
    QVERIFY(!value.SetTime(13, 0, false));
    QVERIFY(!value.IsValid());
    QCOMPARE(IsoOf(value), u"2026-01-01"_s);
}

void TestDateTimeVal::SetFromClock() {
    const CTestClock clock(2024, 2, 29, 0, 15, 30);
    DateTimeVal value;
    QVERIFY(value.SetNow(clock));
    QCOMPARE(IsoOf(value), u"2024-02-29"_s);
    QCOMPARE(TimeTextOf(value), u"12:15 AM"_s);
    QVERIFY(value.SetToday(CTestClock(2026, 12, 31, 23, 59)));
    QCOMPARE(IsoOf(value), u"2026-12-31"_s);
    QCOMPARE(TimeTextOf(value), u"0:00 AM"_s);
    QVERIFY(value.SetTimeFromClock(CTestClock(2026, 1, 1, 23, 59).GetLocalTime()));
    QCOMPARE(TimeTextOf(value), u"11:59 PM"_s);
}

void TestDateTimeVal::SetFromBrokenClock() {
    class BrokenClock final : public CClock {
     public:
        explicit BrokenClock(const SYSTEMTIME& time) : m_time(time) {}
        [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return m_time; }

     private:
        SYSTEMTIME m_time;
    };
    DateTimeVal value;
    QVERIFY(!value.SetNow(BrokenClock(SYSTEMTIME{})));  // no date, but 00:00 is a time
    SYSTEMTIME late{};
    late.wYear = 2026;
    late.wMonth = 1;
    late.wDay = 1;
    late.wHour = 24;
    QVERIFY(!value.SetNow(BrokenClock(late)));
    QVERIFY(!value.SetTimeFromClock(late));
}

void TestDateTimeVal::CompareDates_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("other");
    QTest::addColumn<int>("order");  // -1 earlier, 0 the same, 1 later
    QTest::newRow("the same day") << u"2026-11-19"_s << u"2026-11-19"_s << 0;
    QTest::newRow("a day before") << u"2026-11-18"_s << u"2026-11-19"_s << -1;
    QTest::newRow("a month after with a smaller day") << u"2026-12-01"_s << u"2026-11-30"_s << 1;
    QTest::newRow("a year after with a smaller month") << u"2027-01-01"_s << u"2026-12-31"_s << 1;
    QTest::newRow("fields count, not day numbers") << u"2003-02-31"_s << u"2003-03-01"_s << -1;
}

void TestDateTimeVal::CompareDates() {
    QFETCH(QString, date);
    QFETCH(QString, other);
    QFETCH(int, order);
    const DateTimeVal a = DayOf(date);
    const DateTimeVal b = DayOf(other);
    QCOMPARE(a.IsEarlierDate(b), order < 0);
    QCOMPARE(a.IsSameDate(b), order == 0);
    QCOMPARE(a.IsLaterDate(b), order > 0);
    QCOMPARE(b.IsEarlierDate(a), order > 0);
}

void TestDateTimeVal::CompareTimes_data() {
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("other");
    QTest::addColumn<int>("order");
    QTest::newRow("12:30 AM is earlier than 1:00 AM") << u"12:30 AM"_s << u"1:00 AM"_s << -1;
    QTest::newRow("12:30 PM is later than 11:59 AM") << u"12:30 PM"_s << u"11:59 AM"_s << 1;
    QTest::newRow("12:30 PM is earlier than 1:00 PM") << u"12:30 PM"_s << u"1:00 PM"_s << -1;
    QTest::newRow("midnight before the last minute") << u"12:00 AM"_s << u"11:59 PM"_s << -1;
    QTest::newRow("equal hours go by minutes") << u"9:29 AM"_s << u"9:30 AM"_s << -1;
    QTest::newRow("both at 12 go by minutes") << u"12:30 AM"_s << u"12:29 AM"_s << 1;
    QTest::newRow("equal times are neither") << u"12:00 PM"_s << u"12:00 PM"_s << 0;
    QTest::newRow("evening after morning with a smaller hour") << u"1:00 PM"_s << u"9:00 AM"_s << 1;
    QTest::newRow("later hour with a smaller minute") << u"10:00 AM"_s << u"9:59 AM"_s << 1;
}

void TestDateTimeVal::CompareTimes() {
    QFETCH(QString, time);
    QFETCH(QString, other);
    QFETCH(int, order);
    const DateTimeVal a = TimeOf(time);
    const DateTimeVal b = TimeOf(other);
    QCOMPARE(a.IsEarlierTime(b), order < 0);
    QCOMPARE(a.IsLaterTime(b), order > 0);
    QCOMPARE(b.IsEarlierTime(a), order > 0);
    QCOMPARE(b.IsLaterTime(a), order < 0);
}

void TestDateTimeVal::WeekRange_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<int>("firstDay");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::newRow("a Thursday, weeks from Monday")
        << u"2026-11-19"_s << 1 << u"2026-11-16"_s << u"2026-11-22"_s;
    QTest::newRow("a Thursday, weeks from Sunday")
        << u"2026-11-19"_s << 0 << u"2026-11-15"_s << u"2026-11-21"_s;
    QTest::newRow("a Thursday, weeks from Thursday")
        << u"2026-11-19"_s << 4 << u"2026-11-19"_s << u"2026-11-25"_s;
    QTest::newRow("a Thursday, weeks from Friday")
        << u"2026-11-19"_s << 5 << u"2026-11-13"_s << u"2026-11-19"_s;
    QTest::newRow("a Sunday, weeks from Monday")
        << u"2026-11-22"_s << 1 << u"2026-11-16"_s << u"2026-11-22"_s;
    QTest::newRow("a Sunday, weeks from Sunday")
        << u"2026-11-22"_s << 0 << u"2026-11-22"_s << u"2026-11-28"_s;
    QTest::newRow("a Sunday, weeks from Saturday")
        << u"2026-11-22"_s << 6 << u"2026-11-21"_s << u"2026-11-27"_s;
    QTest::newRow("over the year end") << u"2027-01-01"_s << 1 << u"2026-12-28"_s << u"2027-01-03"_s;
    QTest::newRow("over a leap day") << u"2024-02-29"_s << 1 << u"2024-02-26"_s << u"2024-03-03"_s;
}

void TestDateTimeVal::WeekRange() {
    QFETCH(QString, date);
    QFETCH(int, firstDay);
    DateTimeVal start;
    DateTimeVal end;
    DayOf(date).WeekRange(firstDay, start, end);
    QTEST(IsoOf(start), "start");
    QTEST(IsoOf(end), "end");
    QVERIFY(start.IsValid() && end.IsValid());
}

void TestDateTimeVal::MonthRange_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::newRow("February of a common year ends on the 29th")
        << u"2003-02-10"_s << u"2003-02-01"_s << u"2003-02-29"_s;
    QTest::newRow("February of a leap year") << u"2004-02-29"_s << u"2004-02-01"_s << u"2004-02-29"_s;
    QTest::newRow("April") << u"2026-04-30"_s << u"2026-04-01"_s << u"2026-04-30"_s;
    QTest::newRow("December") << u"2026-12-01"_s << u"2026-12-01"_s << u"2026-12-31"_s;
}

void TestDateTimeVal::MonthRange() {
    QFETCH(QString, date);
    DateTimeVal first;
    DateTimeVal last;
    QVERIFY(DayOf(date).FirstOfMonth(first));
    QVERIFY(DayOf(date).LastOfMonth(last));
    QTEST(IsoOf(first), "first");
    QTEST(IsoOf(last), "last");
    QVERIFY(!DateTimeVal().FirstOfMonth(first));
    QVERIFY(!DateTimeVal().LastOfMonth(last));
    QCOMPARE(IsoOf(last), u"0000-00-00"_s);
}

void TestDateTimeVal::Quarters_data() {
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("quarter");
    QTest::newRow("January") << 1 << 1;
    QTest::newRow("March") << 3 << 1;
    QTest::newRow("April") << 4 << 2;
    QTest::newRow("June") << 6 << 2;
    QTest::newRow("July") << 7 << 3;
    QTest::newRow("September") << 9 << 3;
    QTest::newRow("October") << 10 << 4;
    QTest::newRow("December") << 12 << 4;
    QTest::newRow("no month") << 0 << 4;
    QTest::newRow("a negative month") << -5 << 4;
    QTest::newRow("a month too large") << 13 << 4;
}

void TestDateTimeVal::Quarters() {
    QFETCH(int, month);
    DateTimeVal value;
    value.month = month;
    QTEST(value.QuarterOf(), "quarter");
}

void TestDateTimeVal::QuarterRanges_data() {
    QTest::addColumn<int>("quarter");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::newRow("quarter 1 is the autumn") << 1 << u"2003-10-01"_s << u"2003-12-31"_s;
    QTest::newRow("quarter 2 is the autumn") << 2 << u"2003-10-01"_s << u"2003-12-31"_s;
    QTest::newRow("quarter 3 is itself") << 3 << u"2003-07-01"_s << u"2003-09-30"_s;
    QTest::newRow("quarter 4 is itself") << 4 << u"2003-10-01"_s << u"2003-12-31"_s;
    QTest::newRow("no quarter is the autumn") << 0 << u"2003-10-01"_s << u"2003-12-31"_s;
}

void TestDateTimeVal::QuarterRanges() {
    QFETCH(int, quarter);
    DateTimeVal start;
    DateTimeVal end;
    QuarterRange(start, end, quarter, 2003);
    QTEST(IsoOf(start), "start");
    QTEST(IsoOf(end), "end");
}

void TestDateTimeVal::ToPicker() {
    DateTimeVal value = DayOf(u"2026-11-19"_s);
    value.SetTime(11, 45, true);
    SYSTEMTIME date{};
    value.ToClockDate(date);
    QCOMPARE(date, (SYSTEMTIME{2026, 11, 1, 19, 5, 5, 5, 5}));
    SYSTEMTIME time{};
    value.ToClockTime(time);
    QCOMPARE(time, (SYSTEMTIME{2003, 1, 1, 1, 23, 45, 5, 5}));
    value.SetTime(12, 0, false);
    value.ToClockTime(time);
    QCOMPARE(int{time.wHour}, 0);
}

TEST_CLASS(TestDateTimeVal);
#include "TestDateTimeVal.moc"
