#include "viewmodel/program/PeriodMemory.h"

#include "app/TimeFilter.h"
#include "lang/LoadText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CPeriodCommands.h"
#include "viewmodel/list/EmptyReason.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestPeriodMemory final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void roundTrip_data() {
        QTest::addColumn<int>("preset");
        QTest::addColumn<QString>("token");
        QTest::newRow("all") << 6 << u"all"_s;
        QTest::newRow("today") << 1 << u"today"_s;
        QTest::newRow("this week") << 2 << u"this-week"_s;
        QTest::newRow("this month") << 4 << u"this-month"_s;
        QTest::newRow("last year") << 23 << u"last-year"_s;
        QTest::newRow("next year") << 29 << u"next-year"_s;
    }
    void roundTrip() {
        QFETCH(int, preset);
        TestHome home;
        const PeriodContext context = home.document->GetPeriodContext();
        TimeFilter filter;
        if (preset != 6) QVERIFY(filter.ApplyPreset(preset, context));
        StorePeriod(*home.profile, filter);
        QTEST(home.profile->GetText(u"Period"_s, u"Visible"_s).value_or(QString()), "token");
        TimeFilter restored;
        RestorePeriod(*home.profile, restored, context);
        QCOMPARE(restored.preset, preset);
        QCOMPARE(restored.startText, filter.startText);
        QCOMPARE(restored.displayName, filter.displayName);
    }

    void singleDay() {
        TestHome home;
        const PeriodContext context = home.document->GetPeriodContext();
        TimeFilter filter;
        QVERIFY(filter.SetSingleDate(u"11/02/2026"_s, context));
        StorePeriod(*home.profile, filter);
        TimeFilter restored;
        RestorePeriod(*home.profile, restored, context);
        QCOMPARE(restored.preset, 5);
        QCOMPARE(restored.startText, u"11/02/2026"_s);
    }

    void range() {
        TestHome home;
        const PeriodContext context = home.document->GetPeriodContext();
        DateTimeVal first, second;
        QVERIFY(first.SetDate(11, 2, 2026) && second.SetDate(11, 9, 2026));
        TimeFilter filter;
        filter.SetRange(first, second, context);
        StorePeriod(*home.profile, filter);
        TimeFilter restored;
        RestorePeriod(*home.profile, restored, context);
        QCOMPARE(restored.preset, 7);
        QCOMPARE(restored.endText, u"11/09/2026"_s);
    }

    void lostValues_data() {
        QTest::addColumn<QString>("token");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<int>("preset");
        QTest::newRow("nothing stored: this month") << QString() << QString() << QString() << 4;
        QTest::newRow("an unknown token: this month") << u"fortnight"_s << QString() << QString() << 4;
        QTest::newRow("a day without its date: today") << u"day"_s << QString() << QString() << 1;
        QTest::newRow("a day that is none: today") << u"day"_s << u"nonsense"_s << QString() << 1;
        QTest::newRow("a range with one date: today") << u"range"_s << u"11/02/2026"_s << QString() << 1;
        QTest::newRow("a range without the first: today") << u"range"_s << QString() << u"11/02/2026"_s << 1;
    }
    void lostValues() {
        QFETCH(QString, token);
        QFETCH(QString, first);
        QFETCH(QString, second);
        TestHome home;
        if (!token.isEmpty()) home.profile->WriteText(u"Period"_s, u"Visible"_s, token);
        home.profile->WriteText(u"Period"_s, u"FirstDate"_s, first);
        home.profile->WriteText(u"Period"_s, u"SecondDate"_s, second);
        TimeFilter restored;
        RestorePeriod(*home.profile, restored, home.document->GetPeriodContext());
        QTEST(restored.preset, "preset");
    }

    /// A period that was never chosen stores nothing: the earlier one stays.
    void notChosenStoresNothing() {
        TestHome home;
        home.profile->WriteText(u"Period"_s, u"Visible"_s, u"today"_s);
        TimeFilter filter;
        filter.EnablePeriod(true);
        StorePeriod(*home.profile, filter);
        QCOMPARE(home.profile->GetText(u"Period"_s, u"Visible"_s).value_or(QString()), u"today"_s);
    }

    void commands() {
        TestHome home;
        CPeriodCommands period(*home.document);
        home.AddTime(2026, 11, 19);
        home.AddTime(2026, 11, 18);
        home.AddTime(2020, 1, 1);
        home.views.seen.clear();
        period.Preset(1);
        QCOMPARE(home.document->VisibleCount(), 1U);
        QCOMPARE(home.views.seen.size(), 1);
        QCOMPARE(home.views.seen[0].first, Hint::Rebuild);
        period.StepBack();
        QCOMPARE(home.document->Filter().preset, 5);
        QCOMPARE(home.document->Filter().startText, u"11/18/2026"_s);
        period.StepForward();
        QCOMPARE(home.document->Filter().preset, 1);
        period.All();
        QCOMPARE(home.document->VisibleCount(), 3U);
        period.Day(u"01/01/2020"_s);
        QCOMPARE(home.document->VisibleCount(), 1U);
        home.views.seen.clear();
        period.Day(u"no date"_s);
        period.Preset(8);
        QVERIFY(home.views.seen.isEmpty());
    }

    void clearConditionsKeepsThePeriod() {
        TestHome home;
        CPeriodCommands period(*home.document);
        period.Preset(2);
        TimeFilter filter = home.document->Filter();
        filter.items[0] = u"Client A"_s;
        filter.billable = 1;
        filter.matchWhole = true;
        period.ApplyFilter(filter);
        QVERIFY(HasConditions(home.document->Filter()));
        period.ClearConditions();
        QVERIFY(!HasConditions(home.document->Filter()));
        QVERIFY(!home.document->Filter().matchWhole);
        QCOMPARE(home.document->Filter().preset, 2);
        period.WithTimers();
        QCOMPARE(home.document->Filter().timer, 1);
        QCOMPARE(home.document->Filter().preset, 6);
    }

    void whyEmpty() {
        TestHome home;
        TimeFilter filter;
        ListedRecords records{.isLoading = true, .isNarrowed = HasConditions(filter)};
        QCOMPARE(WhyEmpty(records), EmptyReason::Loading);
        records.isLoading = false;
        QCOMPARE(WhyEmpty(records), EmptyReason::NoRecords);
        records.loaded = 5;
        QCOMPARE(WhyEmpty(records), EmptyReason::InPeriod);
        records.isStoreDamaged = true;
        QCOMPARE(WhyEmpty(records), EmptyReason::Unreadable);
        records.listed = 3;
        QCOMPARE(WhyEmpty(records), EmptyReason::NotEmpty);
        filter.exported = 0;
        QCOMPARE(WhyEmpty({.loaded = 5, .isNarrowed = HasConditions(filter)}), EmptyReason::Filtered);
    }
};

TEST_CLASS(TestPeriodMemory);
#include "TestPeriodMemory.moc"
