#include "calendar/IsoDays.h"
#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CTestClock ClockOn(const QString& iso) {
    const DateTimeVal day = DayOf(iso);
    return CTestClock(day.year, day.month, day.day);
}

/// Dates in year-month-day order, so that a filter's texts read as the expected ones do.
CRegionalInfo IsoRegion() {
    CRegionalInfo region;
    region.dateOrder = 2;
    region.dateSeparator = u'-';
    return region;
}

}  // namespace

class TestPeriodPresets final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Table_data();
    void Table();
    void TableAsAWhole();
    void DatesOfPresets();
    void EdgeCases_data();
    void EdgeCases();
    void LastMonthToDateKeepsTheDates();
    void NoPreset_data();
    void NoPreset();
    void ClockWithoutDate();

 private:
    const CRegionalInfo m_region = IsoRegion();
};

void TestPeriodPresets::Table_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("nameId");
    QTest::addColumn<int>("tokenId");
    const int rows[][4] = {{1, 32798, 23472, 23315},  {2, 32799, 23130, 23314},  {3, 32800, 23433, 23060},
                           {4, 32801, 23506, 23355},  {16, 32789, 23672, 24707}, {10, 32790, 23666, 24701},
                           {11, 32791, 23667, 24702}, {12, 32792, 23668, 24703}, {13, 32793, 23669, 24704},
                           {14, 32794, 23670, 24705}, {15, 32795, 23671, 24706}, {17, 32796, 23673, 24708},
                           {18, 32797, 23674, 24709}, {19, 32811, 23675, 24710}, {20, 32819, 23676, 24711},
                           {21, 32820, 23677, 24712}, {22, 32822, 23678, 24713}, {23, 32823, 23679, 24714},
                           {24, 32824, 23680, 24715}, {25, 32843, 23681, 24716}, {26, 32847, 23682, 24717},
                           {27, 32848, 23683, 24718}, {28, 32849, 23684, 24719}, {29, 32850, 23685, 24720}};
    for (const auto& row : rows) QTest::addRow("preset %d", row[0]) << row[0] << row[1] << row[2] << row[3];
}

void TestPeriodPresets::Table() {
    QFETCH(int, preset);
    const PeriodPresetRow* const row = FindPeriodPreset(preset);
    QVERIFY(row);
    QTEST(row->command, "command");
    QTEST(static_cast<int>(row->name), "nameId");
    QTEST(static_cast<int>(row->token), "tokenId");
}

void TestPeriodPresets::TableAsAWhole() {
    QList<int> order;
    QSet<QString> tokens;
    for (const PeriodPresetRow& row : PeriodPresets()) {
        order.append(row.preset);
        tokens.insert(LoadText(row.token));
    }
    QCOMPARE(order, QList<int>({1,  2,  3,  4,  16, 10, 11, 12, 13, 14, 15, 17,
                                18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29}));
    QCOMPARE(tokens.size(), 24);
}

/// Every preset on chosen days, against dates worked out by data/make_presets.py.
void TestPeriodPresets::DatesOfPresets() {
    QFile file(QStringLiteral(TEST_SOURCE_DIR) + u"/data/presets.csv"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    int rows = 0;
    for (; !file.atEnd(); ++rows) {
        const QStringList row = QString::fromLatin1(file.readLine().trimmed()).split(u',');
        const CTestClock clock = ClockOn(row[1]);
        PeriodFilter filter;
        QVERIFY(filter.ApplyPreset(row[0].toInt(),
                                   {.clock = clock, .region = m_region, .firstDayOfWeek = row[2].toInt()}));
        const QString got = filter.startText + u',' + filter.endText;
        QVERIFY2(got == row[3] + u',' + row[4], qPrintable(row.join(u' ') + u", but got "_s + got));
        QVERIFY(filter.isEnabled);
        QCOMPARE(filter.preset, row[0].toInt());
        QCOMPARE(filter.displayName, LoadText(FindPeriodPreset(filter.preset)->name));
    }
    QCOMPARE(rows, 17 * 23);
}

void TestPeriodPresets::EdgeCases_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("today");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    const auto row = [](const char* name, int preset, const char* today, const char* start, const char* end) {
        QTest::newRow(name) << preset << QString::fromLatin1(today) << QString::fromLatin1(start)
                            << QString::fromLatin1(end);
    };
    row("this week on a Sunday, weeks from Monday", 2, "2026-11-22", "2026-11-16", "2026-11-22");
    row("this month in February 2003 ends on the 29th", 4, "2003-02-14", "2003-02-01", "2003-02-29");
    row("last month in March 2003 ends on the 29th", 19, "2003-03-31", "2003-02-01", "2003-02-29");
    row("next month in January 2003 ends on the 29th", 27, "2003-01-31", "2003-02-01", "2003-02-29");
    row("next four weeks", 26, "2003-01-31", "2003-02-01", "2003-03-01");
    row("this quarter in the first quarter", 12, "2003-02-14", "2003-10-01", "2003-12-31");
    row("this quarter in the third quarter", 12, "2003-08-14", "2003-07-01", "2003-09-30");
    row("last quarter in the first quarter", 21, "2003-02-14", "2002-10-01", "2002-12-31");
    row("last quarter in the second quarter", 21, "2003-05-14", "2003-10-01", "2003-12-31");
    row("last quarter in the fourth quarter", 21, "2003-11-14", "2003-07-01", "2003-09-30");
    row("next quarter in the second quarter ends today", 28, "2003-05-14", "2003-07-01", "2003-05-14");
    row("next quarter in the fourth quarter ends today", 28, "2003-11-14", "2004-10-01", "2003-11-14");
    row("quarter to date in the second quarter", 13, "2003-05-14", "2003-10-01", "2003-05-14");
    row("next week at the year end", 25, "2026-12-31", "2027-01-04", "2027-01-10");
    row("last year", 23, "2024-02-29", "2023-01-01", "2023-12-31");
    row("yesterday on New Year's Day", 16, "2027-01-01", "2026-12-31", "2026-12-31");
}

void TestPeriodPresets::EdgeCases() {
    QFETCH(int, preset);
    QFETCH(QString, today);
    const CTestClock clock = ClockOn(today);
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(preset, {.clock = clock, .region = m_region, .firstDayOfWeek = 1}));
    QTEST(filter.startText, "start");
    QTEST(filter.endText, "end");
}

void TestPeriodPresets::LastMonthToDateKeepsTheDates() {
    const CTestClock clock(2026, 11, 19);
    const PeriodContext context{.clock = clock, .region = m_region};
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(20, context));
    QCOMPARE(filter.displayName, u"Last month to date"_s);
    QCOMPARE(filter.preset, 20);
    QVERIFY(filter.isEnabled);
    QCOMPARE(filter.startText, u"(any)"_s);
    QVERIFY(filter.ApplyPreset(14, context));
    QVERIFY(filter.ApplyPreset(20, context));
    QCOMPARE(filter.startText, u"2026-01-01"_s);
    QCOMPARE(filter.endText, u"2026-12-31"_s);
}

void TestPeriodPresets::NoPreset_data() {
    QTest::addColumn<int>("preset");
    QTest::newRow("not chosen") << 0;
    QTest::newRow("a single date") << 5;
    QTest::newRow("all") << 6;
    QTest::newRow("a range") << 7;
    QTest::newRow("a gap") << 8;
    QTest::newRow("another gap") << 9;
    QTest::newRow("behind the last") << 30;
    QTest::newRow("negative") << -1;
}

void TestPeriodPresets::NoPreset() {
    QFETCH(int, preset);
    const CTestClock clock;
    PeriodFilter filter;
    QVERIFY(!filter.ApplyPreset(preset, {.clock = clock, .region = m_region}));
    QVERIFY(!filter.isEnabled);
    QCOMPARE(filter.preset, 6);
}

/// A month can't be worked out without a date: the filter becomes today, and doesn't ask itself for ever.
void TestPeriodPresets::ClockWithoutDate() {
    class BrokenClock final : public CClock {
     public:
        [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return {}; }
    };
    const BrokenClock clock;
    PeriodFilter filter;
    for (const int preset : {1, 4, 16, 19, 27}) {
        QVERIFY(filter.ApplyPreset(preset, {.clock = clock, .region = m_region}));
        QVERIFY(filter.isEnabled);
    }
    QCOMPARE(filter.preset, 1);
    QCOMPARE(filter.displayName, u"Today"_s);
}

TEST_CLASS(TestPeriodPresets);
#include "TestPeriodPresets.moc"
