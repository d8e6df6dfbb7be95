#include "calendar/DateTimeVal.h"
#include "calendar/IsoDays.h"
#include "support/TestProgram.h"

#include <QTest>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();

using Operation = DateTimeVal& (DateTimeVal::*)(int);

constexpr Operation kAddDays = &DateTimeVal::AddDays;
constexpr Operation kSubtractDays = &DateTimeVal::SubtractDays;
constexpr Operation kAddMonths = &DateTimeVal::AddMonths;
constexpr Operation kSubtractMonths = &DateTimeVal::SubtractMonths;
constexpr Operation kAddYears = &DateTimeVal::AddYears;
constexpr Operation kSubtractYears = &DateTimeVal::SubtractYears;
constexpr Operation kAddHours = &DateTimeVal::AddHours;
constexpr Operation kSubtractHours = &DateTimeVal::SubtractHours;
constexpr Operation kAddMinutes = &DateTimeVal::AddMinutes;
constexpr Operation kSubtractMinutes = &DateTimeVal::SubtractMinutes;

}  // namespace

Q_DECLARE_METATYPE(Operation)

class TestDateTimeArithmetic final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Dates_data();
    void Dates();
    void Times_data();
    void Times();
    void AbsurdNumbers_data();
    void AbsurdNumbers();
};

void TestDateTimeArithmetic::Dates_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("date");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, Operation operation, const char* date, int n, const char* result) {
        QTest::newRow(name) << operation << QString::fromLatin1(date) << n << QString::fromLatin1(result);
    };
    row("a day over a month end", kAddDays, "2026-11-30", 1, "2026-12-01");
    row("a day over a year end", kAddDays, "2026-12-31", 1, "2027-01-01");
    row("a day into 29 February", kAddDays, "2024-02-28", 1, "2024-02-29");
    row("a day over February of a common year", kAddDays, "2023-02-28", 1, "2023-03-01");
    row("28 days", kAddDays, "2003-02-01", 28, "2003-03-01");
    row("31 February counts on into March", kAddDays, "2003-02-31", 0, "2003-03-03");
    row("a negative number of days", kAddDays, "2026-01-01", -1, "2025-12-31");
    row("a day back over a year end", kSubtractDays, "2027-01-01", 1, "2026-12-31");
    row("a day back into a leap day", kSubtractDays, "2024-03-01", 1, "2024-02-29");
    row("a month that is shorter", kAddMonths, "2003-01-31", 1, "2003-02-28");
    row("a month that is shorter, leap year", kAddMonths, "2004-01-31", 1, "2004-02-29");
    row("a month over the year end", kAddMonths, "2026-12-15", 1, "2027-01-15");
    row("twelve months", kAddMonths, "2026-12-15", 12, "2027-12-15");
    row("thirteen months", kAddMonths, "2026-12-15", 13, "2028-01-15");
    row("24 months from January", kAddMonths, "2026-01-15", 24, "2028-01-15");
    row("no month", kAddMonths, "2026-12-15", 0, "2026-12-15");
    row("a month back that is shorter", kSubtractMonths, "2003-03-31", 1, "2003-02-28");
    row("a month back that is shorter, leap year", kSubtractMonths, "2004-03-31", 1, "2004-02-29");
    row("a month back over the year end", kSubtractMonths, "2003-01-15", 1, "2002-12-15");
    row("twelve months back", kSubtractMonths, "2026-12-15", 12, "2025-12-15");
    row("thirteen months back", kSubtractMonths, "2026-01-15", 13, "2024-12-15");
    row("24 months back", kSubtractMonths, "2026-12-15", 24, "2024-12-15");
    row("a year after a leap day", kAddYears, "2004-02-29", 1, "2005-02-28");
    row("four years after a leap day", kAddYears, "2004-02-29", 4, "2008-02-29");
    row("a year before a leap day", kSubtractYears, "2004-02-29", 1, "2003-02-28");
    row("a year before an ordinary day", kSubtractYears, "2026-11-19", 1, "2025-11-19");
}

void TestDateTimeArithmetic::Dates() {
    QFETCH(Operation, operation);
    QFETCH(QString, date);
    QFETCH(int, n);
    DateTimeVal value = DayOf(date);
    QVERIFY(value.SetTime(11, 45, true));
    DateTimeVal& self = (value.*operation)(n);
    QCOMPARE(&self, &value);
    QTEST(IsoOf(value), "result");
    QCOMPARE(TimeTextOf(value), u"11:45 PM"_s);
    QVERIFY(value.IsValid());
}

void TestDateTimeArithmetic::Times_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("time");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, Operation operation, const char* time, int n, const char* result) {
        QTest::newRow(name) << operation << QString::fromLatin1(time) << n << QString::fromLatin1(result);
    };
    row("an hour into the afternoon", kAddHours, "11:30 AM", 1, "12:30 PM");
    row("an hour from noon", kAddHours, "12:30 PM", 1, "1:30 PM");
    row("an hour past midnight", kAddHours, "11:30 PM", 1, "12:30 AM");
    row("an hour from midnight", kAddHours, "12:30 AM", 1, "1:30 AM");
    row("24 hours come back", kAddHours, "9:00 PM", 24, "9:00 PM");
    row("only one day is taken off: 38 hours from midnight", kAddHours, "12:00 AM", 38, "2:00 PM");
    row("38 hours from one o'clock leave the range", kAddHours, "11:00 PM", 38, "25:00 PM");
    row("an hour back into the morning", kSubtractHours, "12:30 PM", 1, "11:30 AM");
    row("an hour back past midnight", kSubtractHours, "12:30 AM", 1, "11:30 PM");
    row("back to midnight exactly", kSubtractHours, "9:15 AM", 9, "12:15 AM");
    row("back one hour too many", kSubtractHours, "9:15 AM", 10, "11:15 PM");
    row("90 minutes past midnight", kAddMinutes, "11:45 PM", 90, "1:15 AM");
    row("minutes up to the full hour", kAddMinutes, "11:45 AM", 15, "12:00 PM");
    row("minutes within the hour", kAddMinutes, "11:45 AM", 14, "11:59 AM");
    row("no minutes", kAddMinutes, "11:45 AM", 0, "11:45 AM");
    row("24 hours of minutes", kAddMinutes, "11:45 AM", 1440, "11:45 AM");
    row("minutes back within the hour", kSubtractMinutes, "11:45 AM", 45, "11:00 AM");
    row("minutes back into the hour before", kSubtractMinutes, "11:45 AM", 46, "10:59 AM");
    row("exactly an hour back", kSubtractMinutes, "11:45 AM", 60, "10:45 AM");
    row("90 minutes back", kSubtractMinutes, "11:45 AM", 90, "10:15 AM");
    row("90 minutes back from half past", kSubtractMinutes, "11:30 AM", 90, "10:00 AM");
    row("110 minutes back borrow an hour", kSubtractMinutes, "11:45 AM", 110, "9:55 AM");
    row("minutes back past midnight", kSubtractMinutes, "12:10 AM", 20, "11:50 PM");
    row("minutes back past noon", kSubtractMinutes, "12:10 PM", 20, "11:50 AM");
}

void TestDateTimeArithmetic::Times() {
    QFETCH(Operation, operation);
    QFETCH(QString, time);
    QFETCH(int, n);
    DateTimeVal value = DayOf(u"2026-12-31"_s);
    const DateTimeVal clock = TimeOf(time);
    QVERIFY(value.SetTime(clock.hour12, clock.minute, clock.isPm != 0));
    QCOMPARE(&(value.*operation)(n), &value);
    QTEST(TimeTextOf(value), "result");
    QVERIFY2(value.IsValid(), "the verdict stays");
    QCOMPARE(IsoOf(value), u"2026-12-31"_s);
}

void TestDateTimeArithmetic::AbsurdNumbers_data() {
    QTest::addColumn<Operation>("operation");
    QTest::newRow("days") << kAddDays;
    QTest::newRow("days back") << kSubtractDays;
    QTest::newRow("months") << kAddMonths;
    QTest::newRow("months back") << kSubtractMonths;
    QTest::newRow("years") << kAddYears;
    QTest::newRow("years back") << kSubtractYears;
    QTest::newRow("hours") << kAddHours;
    QTest::newRow("hours back") << kSubtractHours;
    QTest::newRow("minutes") << kAddMinutes;
    QTest::newRow("minutes back") << kSubtractMinutes;
}

/// The sanitizers watch these: nothing overflows, and it ends at once.
void TestDateTimeArithmetic::AbsurdNumbers() {
    QFETCH(Operation, operation);
    for (const int n : {kMost, kLeast}) {
        DateTimeVal value = DayOf(u"2024-02-29"_s);
        value.SetTime(11, 45, true);
        const DateTimeVal before = value;
        (value.*operation)(n);
        QVERIFY(IsoOf(value) != IsoOf(before) || TimeTextOf(value) != TimeTextOf(before));
        for (const int extreme : {kMost, kLeast}) {
            value.month = value.day = value.year = value.hour12 = value.minute = extreme;
            (value.*operation)(n);
        }
    }
}

TEST_CLASS(TestDateTimeArithmetic);
#include "TestDateTimeArithmetic.moc"
