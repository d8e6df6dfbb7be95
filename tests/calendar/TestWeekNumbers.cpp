#include "calendar/CalendarMath.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QDate>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// One day as data/calendar-1980-2100.txt says it, seven digits; see data/make_calendar.py.
struct KnownDay {
    int weekday;
    int weekIso;
    int weekFirstSunday;
    int weekFirstMonday;

    explicit KnownDay(const QByteArray& digits)
        : weekday(digits.left(1).toInt()),
          weekIso(digits.mid(1, 2).toInt()),
          weekFirstSunday(digits.mid(3, 2).toInt()),
          weekFirstMonday(digits.mid(5, 2).toInt()) {}
};
constexpr int kDigits = 7;

/// 31 December 2000: the last day of a 400-year cycle is day 1, and so in the first simple week.
constexpr int kOddDay = 2451910;

int JulianDay(int year, int month, int day) {
    return static_cast<int>(QDate(year, month, day).toJulianDay());
}

}  // namespace

class TestWeekNumbers final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void EveryDayOfTheKnownCalendar();
    void Weeks_data();
    void Weeks();
    void Label_data();
    void Label();
};

void TestWeekNumbers::EveryDayOfTheKnownCalendar() {
    QFile file(QStringLiteral(TEST_SOURCE_DIR) + u"/data/calendar-1980-2100.txt"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    int days = 0;
    while (!file.atEnd()) {
        const QList<QByteArray> fields = file.readLine().trimmed().split(' ');
        const int year = fields[0].toInt();
        for (int i = 0; i * kDigits < fields[2].size(); ++i, ++days) {
            const KnownDay known(fields[2].mid(i * kDigits, kDigits));
            const int dayNumber = fields[1].toInt() + i;
            const CalendarDay day = FromDayNumber(dayNumber);
            const QByteArray where = QByteArray::number(day.year) + ' ' + QByteArray::number(i + 1);
            QCOMPARE(day.year, year);
            QCOMPARE(DayNumber(day.month, day.day, day.year), dayNumber);
            QVERIFY2(DayOfWeek(day.month, day.day, day.year) == known.weekday, where);
            QVERIFY2(WeekIso(dayNumber) == known.weekIso, where);
            QVERIFY2(WeekFirstSunday(dayNumber) == known.weekFirstSunday, where);
            QVERIFY2(WeekFirstMonday(dayNumber) == known.weekFirstMonday, where);
            QVERIFY2(DayOfYear(dayNumber) == (dayNumber == kOddDay ? 1 : i + 1), where);
        }
    }
    QCOMPARE(days, 44195);
}

void TestWeekNumbers::Weeks_data() {
    QTest::addColumn<int>("dayNumber");
    QTest::addColumn<int>("iso");
    QTest::addColumn<int>("simple");
    QTest::addColumn<int>("firstSunday");
    QTest::addColumn<int>("firstMonday");
    QTest::newRow("1 January 2005, a Saturday, lies in ISO week 53")
        << JulianDay(2005, 1, 1) << 53 << 1 << 1 << 1;
    QTest::newRow("31 December 2003, a Wednesday, lies in ISO week 1")
        << JulianDay(2003, 12, 31) << 1 << 53 << 53 << 53;
    QTest::newRow("7 January ends the first simple week") << JulianDay(2026, 1, 7) << 2 << 1 << 2 << 2;
    QTest::newRow("8 January starts the second") << JulianDay(2026, 1, 8) << 2 << 2 << 2 << 2;
    QTest::newRow("the last day of a 400-year cycle is in simple week 1") << kOddDay << 52 << 1 << 54 << 53;
    QTest::newRow("1 January that is a Sunday") << JulianDay(2023, 1, 1) << 52 << 1 << 1 << 1;
    QTest::newRow("the Monday after it starts no week") << JulianDay(2023, 1, 2) << 1 << 1 << 1 << 1;
    QTest::newRow("8 January, the second Sunday") << JulianDay(2023, 1, 8) << 1 << 2 << 2 << 1;
    QTest::newRow("9 January, the second Monday") << JulianDay(2023, 1, 9) << 2 << 2 << 2 << 2;
    QTest::newRow("1 January that is a Monday") << JulianDay(2024, 1, 1) << 1 << 1 << 1 << 1;
    QTest::newRow("the Monday a week later") << JulianDay(2024, 1, 8) << 2 << 2 << 2 << 2;
    QTest::newRow("31 December of a leap year") << JulianDay(2024, 12, 31) << 1 << 53 << 53 << 53;
}

void TestWeekNumbers::Weeks() {
    QFETCH(int, dayNumber);
    QTEST(WeekIso(dayNumber), "iso");
    QTEST(WeekSimple(dayNumber), "simple");
    QTEST(WeekFirstSunday(dayNumber), "firstSunday");
    QTEST(WeekFirstMonday(dayNumber), "firstMonday");
}

void TestWeekNumbers::Label_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<bool>("showDay");
    QTest::addColumn<int>("rule");
    QTest::addColumn<QString>("label");
    const QDate november(2026, 11, 19);  // day 323, a Thursday; 46 weeks lie behind it
    const QDate oddDay(2000, 12, 31);    // the four rules differ on it
    QTest::newRow("ISO week with the day") << november << true << 0 << u"(323, 47)"_s;
    QTest::newRow("ISO week alone") << november << false << 0 << u"(47)"_s;
    QTest::newRow("rule 0 is ISO") << oddDay << false << 0 << u"(52)"_s;
    QTest::newRow("rule 1 is simple") << oddDay << false << 1 << u"(1)"_s;
    QTest::newRow("rule 2 counts from the first Sunday") << oddDay << false << 2 << u"(54)"_s;
    QTest::newRow("rule 3 counts from the first Monday") << oddDay << false << 3 << u"(53)"_s;
    QTest::newRow("the odd day is day 1") << oddDay << true << 2 << u"(1, 54)"_s;
    QTest::newRow("an unknown rule with the day shows the day twice")
        << november << true << 4 << u"(323, 323)"_s;
    QTest::newRow("an unknown rule alone") << november << false << 4 << u"(0)"_s;
    QTest::newRow("a negative rule") << november << false << -1 << u"(0)"_s;
}

void TestWeekNumbers::Label() {
    QFETCH(QDate, date);
    QFETCH(bool, showDay);
    QFETCH(int, rule);
    QTEST(DayWeekLabel(date.month(), date.day(), date.year(), showDay, rule), "label");
}

TEST_CLASS(TestWeekNumbers);
#include "TestWeekNumbers.moc"
