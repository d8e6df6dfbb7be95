#include "calendar/IsoDays.h"
#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestPeriodFilter final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void EnablePeriod();
    void Reset();
    void SetSingleDate_data();
    void SetSingleDate();
    void SetRange_data();
    void SetRange();
    void CanStep_data();
    void CanStep();
    void Step_data();
    void Step();
    void StepFebruaryForwardAndBack();
    void StepOntoToday();
    void StepKeepsPresetUntilAppliedAgain();
    void Dates_data();
    void Dates();
    void DisplayForm_data();
    void DisplayForm();

 private:
    /// Today is Thursday, 19 November 2026; weeks start on Monday; full years are shown.
    [[nodiscard]] PeriodContext Context(int yearDisplayFormat = 0) const {
        return {.clock = m_clock,
                .region = m_region,
                .firstDayOfWeek = 1,
                .yearDisplayFormat = yearDisplayFormat};
    }

    const CTestClock m_clock;
    const CRegionalInfo m_region;  // month/day/year
};

void TestPeriodFilter::EnablePeriod() {
    PeriodFilter filter;
    filter.EnablePeriod(true);
    QVERIFY(filter.isEnabled);
    QCOMPARE(filter.preset, 0);
    QCOMPARE(filter.displayName, u"Period"_s);
    filter.EnablePeriod(false);
    QVERIFY(!filter.isEnabled);
    QCOMPARE(filter.preset, 6);
    QCOMPARE(filter.displayName, u"All"_s);
}

void TestPeriodFilter::Reset() {
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(2, Context()));
    filter.matchWhole = true;
    filter.matchCase = true;
    filter.Reset();
    QVERIFY(!filter.isEnabled);
    QVERIFY(!filter.matchWhole);
    QVERIFY(!filter.matchCase);
    QCOMPARE(filter.preset, 6);
    QCOMPARE(filter.displayName, u"All"_s);
    QCOMPARE(filter.startText, u"(any)"_s);
    QCOMPARE(filter.endText, u"(any)"_s);
}

void TestPeriodFilter::SetSingleDate_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isDate");
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("name");
    QTest::newRow("another day") << u"11/20/2026"_s << true << 5 << u"11/20/2026"_s << u"11/20/2026"_s;
    QTest::newRow("today turns into its preset")
        << u"11/19/2026"_s << true << 1 << u"11/19/2026"_s << u"Today"_s;
    QTest::newRow("today written otherwise stays a single date")
        << u"11/19/26"_s << true << 5 << u"11/19/26"_s << u"11/19/2026"_s;
    QTest::newRow("31 February stands") << u"2/31/2026"_s << true << 5 << u"2/31/2026"_s << u"02/31/2026"_s;
    QTest::newRow("no date changes nothing") << u"soon"_s << false << 4 << u"11/01/2026"_s << u"This month"_s;
    QTest::newRow("an empty text changes nothing")
        << QString() << false << 4 << u"11/01/2026"_s << u"This month"_s;
    QTest::newRow("month 13 changes nothing")
        << u"13/1/2026"_s << false << 4 << u"11/01/2026"_s << u"This month"_s;
}

void TestPeriodFilter::SetSingleDate() {
    QFETCH(QString, text);
    QFETCH(bool, isDate);
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(4, Context()));
    QCOMPARE(filter.SetSingleDate(text, Context()), isDate);
    QTEST(filter.preset, "preset");
    QTEST(filter.startText, "date");
    QTEST(filter.displayName, "name");
    QVERIFY(filter.isEnabled);
    if (isDate) QCOMPARE(filter.endText, filter.startText);
}

void TestPeriodFilter::SetRange_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("name");
    QTest::newRow("a range") << u"2026-01-05"_s << u"2026-02-03"_s << 7 << u"01/05/2026 02/03/2026"_s
                             << u"01/05/26 - 02/03/26"_s;
    QTest::newRow("over a year end") << u"2025-12-31"_s << u"2026-01-01"_s << 7 << u"12/31/2025 01/01/2026"_s
                                     << u"12/31/25 - 01/01/26"_s;
    QTest::newRow("the same day twice is a single date")
        << u"2026-01-05"_s << u"2026-01-05"_s << 5 << u"01/05/2026 01/05/2026"_s << u"01/05/26"_s;
    QTest::newRow("a start after the end is the single date of the end")
        << u"2026-02-03"_s << u"2026-01-05"_s << 5 << u"01/05/2026 01/05/2026"_s << u"01/05/26"_s;
    QTest::newRow("today twice is today")
        << u"2026-11-19"_s << u"2026-11-19"_s << 1 << u"11/19/2026 11/19/2026"_s << u"Today"_s;
}

void TestPeriodFilter::SetRange() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    PeriodFilter filter;
    filter.SetRange(DayOf(start), DayOf(end), Context(1));
    QVERIFY(filter.isEnabled);
    QTEST(filter.preset, "preset");
    QTEST(filter.startText + u' ' + filter.endText, "texts");
    QTEST(filter.displayName, "name");
    const bool isSwapped = start > end;
    QCOMPARE(
        NoteOnRange(DayOf(start), DayOf(end), Context(1)),
        isSwapped ? QStringLiteral("The start lies after the end, so only 01/05/2026 is taken.") : QString());
}

void TestPeriodFilter::CanStep_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<bool>("steps");
    for (const int preset : {1, 2, 3, 4, 5, 7, 16, 17, 19, 25, 27})
        QTest::addRow("preset %d steps", preset) << preset << true;
    for (const int preset : {0, 6, 8, 10, 11, 12, 13, 14, 15, 18, 20, 21, 22, 23, 24, 26, 28, 29})
        QTest::addRow("preset %d doesn't", preset) << preset << false;
}

void TestPeriodFilter::CanStep() {
    QFETCH(int, preset);
    QFETCH(bool, steps);
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(4, Context()));
    filter.preset = preset;
    QCOMPARE(filter.CanStep(), steps);
    const QString before = filter.startText;
    QCOMPARE(PeriodFilter(filter).StepBack(Context()), steps);
    QCOMPARE(filter.StepForward(Context()), steps);
    QCOMPARE(filter.startText != before, steps);
}

void TestPeriodFilter::Step_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("steps");  // negative: back
    QTest::addColumn<int>("newPreset");
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* name, int preset, int steps, int newPreset, const char* texts,
                        const char* shown) {
        QTest::newRow(name) << preset << steps << newPreset << QString::fromLatin1(texts)
                            << QString::fromLatin1(shown);
    };
    row("today forward is tomorrow as a single date", 1, 1, 5, "11/20/2026 11/20/2026", "11/20/2026");
    row("today back is yesterday as a single date", 1, -1, 5, "11/18/2026 11/18/2026", "11/18/2026");
    row("yesterday forward is today", 16, 1, 1, "11/19/2026 11/19/2026", "Today");
    row("yesterday back", 16, -1, 5, "11/17/2026 11/17/2026", "11/17/2026");
    row("this week forward", 2, 1, 2, "11/23/2026 11/29/2026", "11/23/2026 - 11/29/2026");
    row("this week back", 2, -1, 2, "11/09/2026 11/15/2026", "11/09/2026 - 11/15/2026");
    row("last week forward", 17, 1, 17, "11/16/2026 11/22/2026", "11/16/2026 - 11/22/2026");
    row("next week back", 25, -1, 25, "11/16/2026 11/22/2026", "11/16/2026 - 11/22/2026");
    row("two weeks forward", 3, 1, 3, "11/23/2026 12/06/2026", "11/23/2026 - 12/06/2026");
    row("two weeks back", 3, -1, 3, "10/26/2026 11/08/2026", "10/26/2026 - 11/08/2026");
    row("this month forward", 4, 1, 4, "12/01/2026 12/31/2026", "12/01/2026 - 12/31/2026");
    row("this month back", 4, -1, 4, "10/01/2026 10/31/2026", "10/01/2026 - 10/31/2026");
    row("this month over the year end", 4, 2, 4, "01/01/2027 01/31/2027", "01/01/2027 - 01/31/2027");
    row("this month into February of a common year", 4, 3, 4, "02/01/2027 02/28/2027",
        "02/01/2027 - 02/28/2027");
    row("this month over February", 4, 4, 4, "03/01/2027 03/31/2027", "03/01/2027 - 03/31/2027");
    row("last month back", 19, -1, 19, "09/01/2026 09/30/2026", "09/01/2026 - 09/30/2026");
    row("next month forward", 27, 1, 27, "01/01/2027 01/31/2027", "01/01/2027 - 01/31/2027");
}

void TestPeriodFilter::Step() {
    QFETCH(int, preset);
    QFETCH(int, steps);
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(preset, Context()));
    for (int i = 0; i < std::abs(steps); ++i)
        QVERIFY(steps > 0 ? filter.StepForward(Context()) : filter.StepBack(Context()));
    QTEST(filter.preset, "newPreset");
    QTEST(filter.startText + u' ' + filter.endText, "texts");
    QTEST(filter.displayName, "name");
}

void TestPeriodFilter::StepFebruaryForwardAndBack() {
    const CTestClock february(2003, 2, 14);
    const PeriodContext context{.clock = february, .region = m_region};
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(4, context));
    QCOMPARE(filter.endText, u"02/29/2003"_s);
    QVERIFY(filter.StepForward(context));
    QCOMPARE(filter.startText + u' ' + filter.endText, u"03/01/2003 03/31/2003"_s);
    QVERIFY(filter.StepBack(context));
    QCOMPARE(filter.startText + u' ' + filter.endText, u"02/01/2003 02/28/2003"_s);
}

void TestPeriodFilter::StepOntoToday() {
    PeriodFilter filter;
    QVERIFY(filter.SetSingleDate(u"11/18/2026"_s, Context()));
    QVERIFY(filter.StepForward(Context()));
    QCOMPARE(filter.preset, 1);
    QCOMPARE(filter.displayName, u"Today"_s);

    filter.SetRange(DayOf(u"2026-11-20"_s), DayOf(u"2026-12-24"_s), Context());
    PeriodFilter forward = filter;
    QVERIFY(forward.StepForward(Context()));
    QCOMPARE(forward.startText, u"12/25/2026"_s);
    QCOMPARE(forward.preset, 5);
    QVERIFY(filter.StepBack(Context()));
    QCOMPARE(filter.displayName, u"Today"_s);
}

void TestPeriodFilter::StepKeepsPresetUntilAppliedAgain() {
    PeriodFilter filter;
    QVERIFY(filter.ApplyPreset(2, Context()));
    const PeriodFilter present = filter;
    for (int i = 0; i < 60; ++i) QVERIFY(filter.StepForward(Context()));
    QCOMPARE(filter.startText, u"01/10/2028"_s);
    QVERIFY(filter.ApplyPreset(filter.preset, Context()));
    QCOMPARE(filter.startText, present.startText);
    QCOMPARE(filter.displayName, u"This week"_s);
}

void TestPeriodFilter::Dates_data() {
    QTest::addColumn<bool>("isEnabled");
    QTest::addColumn<QString>("startText");
    QTest::addColumn<QString>("endText");
    QTest::addColumn<QString>("dates");  // empty: none
    QTest::newRow("two dates") << true << u"01/05/2026"_s << u"02/29/2026"_s << u"2026-01-05 2026-02-29"_s;
    QTest::newRow("no period") << false << u"01/05/2026"_s << u"02/03/2026"_s << QString();
    QTest::newRow("a text that is no date means today")
        << true << u"(any)"_s << u"soon"_s << u"2026-11-19 2026-11-19"_s;
}

void TestPeriodFilter::Dates() {
    QFETCH(bool, isEnabled);
    QFETCH(QString, startText);
    QFETCH(QString, endText);
    QFETCH(QString, dates);
    PeriodFilter filter;
    filter.isEnabled = isEnabled;
    filter.startText = startText;
    filter.endText = endText;
    DateTimeVal start;
    DateTimeVal end;
    QCOMPARE(filter.Dates(start, end, Context()), !dates.isEmpty());
    if (!dates.isEmpty()) QCOMPARE(IsoOf(start) + u' ' + IsoOf(end), dates);
}

void TestPeriodFilter::DisplayForm_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("full year") << u"2026-11-19"_s << 0 << u"11/19/2026"_s;
    QTest::newRow("two digits") << u"2026-11-19"_s << 1 << u"11/19/26"_s;
    QTest::newRow("two digits in 2000: no year") << u"2000-11-19"_s << 1 << u"11/19"_s;
    QTest::newRow("no year") << u"2026-11-19"_s << 2 << u"11/19"_s;
    QTest::newRow("an unknown form shows the full year") << u"2026-11-19"_s << 3 << u"11/19/2026"_s;
    QTest::newRow("no date shows nothing") << QString() << 0 << QString();
}

void TestPeriodFilter::DisplayForm() {
    QFETCH(QString, date);
    QFETCH(int, format);
    QTEST(DisplayDate(m_region, DayOf(date), format), "text");
}

TEST_CLASS(TestPeriodFilter);
#include "TestPeriodFilter.moc"
