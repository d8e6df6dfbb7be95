#include "viewmodel/list/GroupTitle.h"

#include "config/Settings.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"
#include "viewmodel/list/DayOrder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestGroupTitle final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    /// Today is Thursday, 19 November 2026, in week 47 by ISO 8601.
    void Title_data() {
        QTest::addColumn<int>("groups");
        QTest::addColumn<unsigned>("firstDay");
        QTest::addColumn<QString>("title");
        QTest::newRow("a day") << 1 << DayOrder(2026, 11, 17) << u"Tuesday 11/17/26"_s;
        QTest::newRow("today") << 1 << DayOrder(2026, 11, 19) << u"Today, Thursday 11/19/26"_s;
        QTest::newRow("yesterday") << 1 << DayOrder(2026, 11, 18) << u"Yesterday, Wednesday 11/18/26"_s;
        QTest::newRow("tomorrow") << 1 << DayOrder(2026, 11, 20) << u"Friday 11/20/26"_s;
        QTest::newRow("29 February") << 1 << DayOrder(2024, 2, 29) << u"Thursday 02/29/24"_s;
        QTest::newRow("this week") << 2 << DayOrder(2026, 11, 16)
                                   << u"This week, Week 47, 11/16/26 – 11/22/26"_s;
        QTest::newRow("a week over the end of the year, which is the 53rd")
            << 2 << DayOrder(2026, 12, 28) << u"Week 53, 12/28/26 – 01/03/27"_s;
        QTest::newRow("the first week begins in the old year")
            << 2 << DayOrder(2025, 12, 29) << u"Week 1, 12/29/25 – 01/04/26"_s;
        QTest::newRow("this month") << 3 << DayOrder(2026, 11, 1) << u"This month, November 2026"_s;
        QTest::newRow("a month") << 3 << DayOrder(2025, 12, 1) << u"December 2025"_s;
        for (const int groups : {1, 2, 3})
            QTest::addRow("no date, %d", groups) << groups << 0U << u"Without a date"_s;
    }
    void Title() {
        QFETCH(int, groups);
        QFETCH(unsigned, firstDay);
        const RegionScope region{CRegionalInfo()};
        Settings settings;
        settings.firstDayOfWeek = 1;
        settings.weekNumberType = 0;
        QTEST(GroupTitle(firstDay, ListGroupsOf(groups), DayOrder(2026, 11, 19), settings), "title");
    }

    /// 1 January 2026 is a Thursday. Weeks from Sunday on; the year is left out or given in full.
    void FollowsTheSettings() {
        const RegionScope region{CRegionalInfo()};
        Settings settings;
        settings.firstDayOfWeek = 0;
        settings.weekNumberType = 2;
        settings.yearDisplayFormat = 2;
        const auto title = [&](std::uint32_t day, ListGroups groups) {
            return GroupTitle(FirstDayOfGroup(day, groups, settings.firstDayOfWeek), groups,
                              DayOrder(2026, 6, 1), settings);
        };
        QCOMPARE(title(DayOrder(2026, 1, 4), ListGroups::Weeks), u"Week 2, 01/04 – 01/10"_s);
        settings.yearDisplayFormat = 0;
        QCOMPARE(title(DayOrder(2026, 1, 4), ListGroups::Days), u"Sunday 01/04/2026"_s);
        settings.weekNumberType = 9;
        QCOMPARE(title(DayOrder(2026, 1, 4), ListGroups::Weeks), u"01/04/2026 – 01/10/2026"_s);
    }

    void FirstDays() {
        QCOMPARE(FirstDayOfGroup(DayOrder(2026, 11, 19), ListGroups::Days, 1), DayOrder(2026, 11, 19));
        QCOMPARE(FirstDayOfGroup(DayOrder(2026, 11, 19), ListGroups::Weeks, 1), DayOrder(2026, 11, 16));
        QCOMPARE(FirstDayOfGroup(DayOrder(2026, 11, 16), ListGroups::Weeks, 1), DayOrder(2026, 11, 16));
        QCOMPARE(FirstDayOfGroup(DayOrder(2026, 11, 15), ListGroups::Weeks, 1), DayOrder(2026, 11, 9));
        QCOMPARE(FirstDayOfGroup(DayOrder(2026, 11, 15), ListGroups::Weeks, 0), DayOrder(2026, 11, 15));
        QCOMPARE(FirstDayOfGroup(DayOrder(2027, 1, 1), ListGroups::Weeks, 1), DayOrder(2026, 12, 28));
        QCOMPARE(FirstDayOfGroup(DayOrder(2024, 2, 29), ListGroups::Months, 1), DayOrder(2024, 2, 1));
        QCOMPARE(FirstDayOfGroup(0, ListGroups::Months, 1), 0U);
        QCOMPARE(ListGroupsOf(7), ListGroups::None);
        QCOMPARE(ListGroupsOf(-1), ListGroups::None);
        QCOMPARE(ListGroupsOf(2), ListGroups::Weeks);
    }
};

TEST_CLASS(TestGroupTitle);
#include "TestGroupTitle.moc"
