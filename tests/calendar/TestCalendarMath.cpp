#include "calendar/CalendarMath.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QDate>
#include <QTest>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

/// A clock reading from "23:59" or "23:59:30".
SYSTEMTIME ClockAt(const QString& text) {
    const auto field = [&text](int at) {
        return static_cast<std::uint16_t>(text.section(u':', at, at).toInt());
    };
    SYSTEMTIME out;
    out.wHour = field(0);
    out.wMinute = field(1);
    out.wSecond = field(2);
    return out;
}

}  // namespace

class TestCalendarMath final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void DayNumberOf_data();
    void DayNumberOf();
    void DayNumberAgreesWithTheOtherCalendar();
    void LengthOfMonth_data();
    void LengthOfMonth();
    void LeapYears_data();
    void LeapYears();
    void DayOfYearOf_data();
    void DayOfYearOf();
    void WeekdayNames_data();
    void WeekdayNames();
    void MinutesBetween_data();
    void MinutesBetween();
    void SecondsBetween_data();
    void SecondsBetween();
    void NormaliseTime_data();
    void NormaliseTime();
    void HalfDays_data();
    void HalfDays();
    void AbsurdDates_data();
    void AbsurdDates();
};

void TestCalendarMath::DayNumberOf_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("dayNumber");
    QTest::newRow("1 January 2000") << QDate(2000, 1, 1) << 2451545;
    QTest::newRow("the first Gregorian day") << QDate(1582, 10, 15) << 2299161;
    QTest::newRow("the epoch of Unix") << QDate(1970, 1, 1) << 2440588;
    QTest::newRow("29 February of a leap year") << QDate(2024, 2, 29) << 2460370;
    QTest::newRow("the day after it") << QDate(2024, 3, 1) << 2460371;
    QTest::newRow("year end") << QDate(2026, 12, 31) << 2461406;
    QTest::newRow("New Year's Day") << QDate(2027, 1, 1) << 2461407;
}

void TestCalendarMath::DayNumberOf() {
    QFETCH(QDate, date);
    QFETCH(int, dayNumber);
    QCOMPARE(DayNumber(date.month(), date.day(), date.year()), dayNumber);
    QCOMPARE(FromDayNumber(dayNumber), (CalendarDay{date.month(), date.day(), date.year()}));
}

void TestCalendarMath::DayNumberAgreesWithTheOtherCalendar() {
    QCOMPARE(DayNumber(2, 31, 2003), DayNumber(3, 3, 2003));  // a day past the month's end counts on
    for (QDate date(1600, 1, 1); date.year() < 2400; date = date.addDays(1)) {
        const int dayNumber = DayNumber(date.month(), date.day(), date.year());
        QCOMPARE(qint64{dayNumber}, date.toJulianDay());
        QCOMPARE(FromDayNumber(dayNumber), (CalendarDay{date.month(), date.day(), date.year()}));
        QCOMPARE(DayOfWeek(date.month(), date.day(), date.year()), date.dayOfWeek() % 7);
    }
}

void TestCalendarMath::LengthOfMonth_data() {
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("days");
    QTest::newRow("January") << 1 << 2026 << 31;
    QTest::newRow("February of a common year") << 2 << 2026 << 28;
    QTest::newRow("February of a leap year") << 2 << 2024 << 29;
    QTest::newRow("February of 1900") << 2 << 1900 << 28;
    QTest::newRow("February of 2000") << 2 << 2000 << 29;
    QTest::newRow("year 0 counts as a leap year") << 2 << 0 << 29;
    QTest::newRow("April") << 4 << 2026 << 30;
    QTest::newRow("June") << 6 << 2026 << 30;
    QTest::newRow("September") << 9 << 2026 << 30;
    QTest::newRow("November") << 11 << 2026 << 30;
    QTest::newRow("December") << 12 << 2026 << 31;
    QTest::newRow("no month") << 0 << 2026 << 0;
    QTest::newRow("a thirteenth month") << 13 << 2026 << 0;
    QTest::newRow("a negative month") << -1 << 2026 << 0;
}

void TestCalendarMath::LengthOfMonth() {
    QFETCH(int, month);
    QFETCH(int, year);
    QTEST(DaysInMonth(month, year), "days");
}

void TestCalendarMath::LeapYears_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("isLeap");
    QTest::newRow("divisible by 4") << 2024 << true;
    QTest::newRow("a common year") << 2026 << false;
    QTest::newRow("divisible by 100") << 2100 << false;
    QTest::newRow("divisible by 400") << 2000 << true;
    QTest::newRow("year 0") << 0 << true;
}

void TestCalendarMath::LeapYears() {
    QFETCH(int, year);
    QTEST(IsLeapYear(year), "isLeap");
}

void TestCalendarMath::DayOfYearOf_data() {
    QTest::addColumn<int>("dayNumber");
    QTest::addColumn<int>("dayOfYear");
    QTest::newRow("31 December 2000 is day 1, and that is wanted") << 2451910 << 1;
    QTest::newRow("30 December 2000") << 2451909 << 365;
    QTest::newRow("1 January 2001") << 2451911 << 1;
    QTest::newRow("31 December of a leap year") << 2460676 << 366;
    QTest::newRow("31 December of a common year") << 2461406 << 365;
    QTest::newRow("29 February") << 2460370 << 60;
}

void TestCalendarMath::DayOfYearOf() {
    QFETCH(int, dayNumber);
    QTEST(DayOfYear(dayNumber), "dayOfYear");
}

void TestCalendarMath::WeekdayNames_data() {
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("name");
    QTest::newRow("0") << 0 << u"Sunday"_s;
    QTest::newRow("1") << 1 << u"Monday"_s;
    QTest::newRow("2") << 2 << u"Tuesday"_s;
    QTest::newRow("3") << 3 << u"Wednesday"_s;
    QTest::newRow("4") << 4 << u"Thursday"_s;
    QTest::newRow("5") << 5 << u"Friday"_s;
    QTest::newRow("6") << 6 << u"Saturday"_s;
    QTest::newRow("no weekday") << 7 << QString();
    QTest::newRow("a negative number") << -1 << QString();
}

void TestCalendarMath::WeekdayNames() {
    QFETCH(int, day);
    QTEST(WeekdayName(day), "name");
}

void TestCalendarMath::MinutesBetween_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<int>("minutes");  // -1: no span
    QTest::addColumn<float>("decimal");
    QTest::newRow("a working day") << u"09:00"_s << u"17:30"_s << 510 << 8.5F;
    QTest::newRow("one minute") << u"09:00"_s << u"09:01"_s << 1 << 0.016666668F;
    QTest::newRow("up to midnight") << u"23:00"_s << u"00:00"_s << 60 << 1.0F;
    QTest::newRow("past midnight") << u"22:00"_s << u"06:15"_s << 495 << 8.25F;
    QTest::newRow("afternoon to the next morning") << u"13:00"_s << u"11:00"_s << 1320 << 22.0F;
    QTest::newRow("noon to the minute before it") << u"12:00"_s << u"11:59"_s << 1439 << 23.983334F;
    QTest::newRow("morning to noon crosses nothing") << u"11:59"_s << u"12:00"_s << 1 << 0.016666668F;
    QTest::newRow("equal times in the morning") << u"09:00"_s << u"09:00"_s << -1 << 0.0F;
    QTest::newRow("equal times at midnight") << u"00:00"_s << u"00:00"_s << -1 << 0.0F;
    QTest::newRow("equal times in the evening") << u"20:00"_s << u"20:00"_s << -1 << 0.0F;
    QTest::newRow("an earlier end in the evening") << u"20:00"_s << u"19:00"_s << -1 << 0.0F;
    QTest::newRow("an earlier end in the morning") << u"11:00"_s << u"08:00"_s << -1 << 0.0F;
    QTest::newRow("seconds aren't looked at") << u"09:00:59"_s << u"09:01:00"_s << 1 << 0.016666668F;
}

void TestCalendarMath::MinutesBetween() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(int, minutes);
    const ClockSpan span = ::MinutesBetween(ClockAt(start), ClockAt(end));
    QCOMPARE(span.known, minutes >= 0);
    QCOMPARE(span.hours * 60 + span.minutes, std::max(minutes, 0));
    QVERIFY(span.minutes < 60);
    QCOMPARE(span.seconds, 0);
    QTEST(span.decimalHours, "decimal");
}

void TestCalendarMath::SecondsBetween_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("known");
    QTest::addColumn<QString>("span");
    QTest::newRow("a minute") << u"09:00:30"_s << u"09:01:30"_s << true << u"0:1:0"_s;
    QTest::newRow("a second less than a minute stands")
        << u"09:00:00"_s << u"09:00:59"_s << true << u"0:0:59"_s;
    QTest::newRow("equal times stand") << u"09:00:00"_s << u"09:00:00"_s << true << u"0:0:0"_s;
    QTest::newRow("equal times in the evening stand") << u"21:00:00"_s << u"21:00:00"_s << true << u"0:0:0"_s;
    QTest::newRow("hours, minutes and seconds") << u"08:15:20"_s << u"10:20:31"_s << true << u"2:5:11"_s;
    QTest::newRow("past midnight") << u"23:59:58"_s << u"00:00:03"_s << true << u"0:0:5"_s;
    QTest::newRow("noon to the next morning") << u"12:00:00"_s << u"11:59:59"_s << true << u"23:59:59"_s;
    QTest::newRow("an end a second earlier") << u"09:00:01"_s << u"09:00:00"_s << false << u"0:0:0"_s;
    QTest::newRow("an earlier end in the evening") << u"20:00:00"_s << u"19:00:00"_s << false << u"0:0:0"_s;
    QTest::newRow("the seconds before noon") << u"11:59:30"_s << u"12:00:05"_s << true << u"0:0:35"_s;
}

void TestCalendarMath::SecondsBetween() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    const ClockSpan span = ::SecondsBetween(ClockAt(start), ClockAt(end));
    QTEST(span.known, "known");
    QTEST(QString::asprintf("%d:%d:%d", span.hours, span.minutes, span.seconds), "span");
}

void TestCalendarMath::NormaliseTime_data() {
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<int>("newHour");
    QTest::addColumn<int>("newMinute");
    QTest::newRow("a good time stays") << 9 << 30 << 9 << 30;
    QTest::newRow("the bounds stay") << 12 << 59 << 12 << 59;
    QTest::newRow("hour 0 becomes 12") << 0 << 0 << 12 << 0;
    QTest::newRow("hour 13 becomes 12") << 13 << 5 << 12 << 5;
    QTest::newRow("the hour of no time becomes 12") << 50 << 0 << 12 << 0;
    QTest::newRow("a negative minute becomes 0") << 1 << -1 << 1 << 0;
    QTest::newRow("minute 60 becomes 59") << 1 << 60 << 1 << 59;
    QTest::newRow("absurd values") << kLeast << kMost << 12 << 59;
}

void TestCalendarMath::NormaliseTime() {
    QFETCH(int, hour);
    QFETCH(int, minute);
    ::NormaliseTime(hour, minute);
    QTEST(hour, "newHour");
    QTEST(minute, "newMinute");
}

void TestCalendarMath::HalfDays_data() {
    QTest::addColumn<int>("hour24");
    QTest::addColumn<int>("hour12");
    QTest::addColumn<bool>("isPm");
    QTest::newRow("midnight is 12 AM") << 0 << 12 << false;
    QTest::newRow("one") << 1 << 1 << false;
    QTest::newRow("eleven") << 11 << 11 << false;
    QTest::newRow("noon is 12 PM") << 12 << 12 << true;
    QTest::newRow("thirteen") << 13 << 1 << true;
    QTest::newRow("the last hour") << 23 << 11 << true;
}

void TestCalendarMath::HalfDays() {
    QFETCH(int, hour24);
    QFETCH(int, hour12);
    QFETCH(bool, isPm);
    int hour = -1;
    bool pm = !isPm;
    Hour12Of(hour24, hour, pm);
    QCOMPARE(hour, hour12);
    QCOMPARE(pm, isPm);
    QCOMPARE(Hour24Of(hour12, isPm), hour24);
}

void TestCalendarMath::AbsurdDates_data() {
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("dayNumber");
    QTest::newRow("the greatest year") << 12 << 31 << kMost << kMost;
    QTest::newRow("the least year") << 1 << 1 << kLeast << kLeast;
    QTest::newRow("all greatest") << kMost << kMost << kMost << kMost;
    QTest::newRow("all least") << kLeast << kLeast << kLeast << kLeast;
}

/// The sanitizers watch these: results are the bounds of an int, nothing overflows on the way.
void TestCalendarMath::AbsurdDates() {
    QFETCH(int, month);
    QFETCH(int, day);
    QFETCH(int, year);
    QTEST(DayNumber(month, day, year), "dayNumber");
    const int weekday = DayOfWeek(month, day, year);
    QVERIFY(weekday >= 0 && weekday <= 6);
    QFETCH(int, dayNumber);
    QVERIFY(std::abs(FromDayNumber(dayNumber).year) > 5000000);
    QVERIFY(DayOfYear(kMost) <= 366);
    QVERIFY(WeekFirstSunday(kMost) <= 54);
    QVERIFY(WeekIso(kMost) <= 53);
    QVERIFY(WeekFirstMonday(kMost) <= 54);
}

TEST_CLASS(TestCalendarMath);
#include "TestCalendarMath.moc"
