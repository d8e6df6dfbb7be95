#include "viewmodel/list/CRowGroups.h"

#include "support/TestProgram.h"
#include "viewmodel/list/DayOrder.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

std::uint32_t November(int day) {
    return day == 0 ? 0 : DayOrder(2026, 11, day);
}

/// Rows of the days given, by day of the month; the list knows more rows than the groups while there is a
/// gap.
struct Rows {
    std::vector<int> days;
    CRowGroups groups;

    explicit Rows(std::vector<int> daysOfRows, int today = 0, bool isAscending = false,
                  ListGroups by = ListGroups::Days)
        : days(std::move(daysOfRows)) {
        Part(today, isAscending, by);
    }
    void Part(int today, bool isAscending, ListGroups by) {
        groups.Part({.groups = by, .firstDayOfWeek = 1, .isAscending = isAscending, .today = November(today)},
                    static_cast<int>(days.size()),
                    [this](int row) { return November(days[static_cast<std::size_t>(row)]); });
    }
    /// What the list announces, and how many places come with it; -1 when only a new parting does.
    int Insert(int row, int day, int count = 1) {
        days.insert(days.begin() + row, static_cast<std::size_t>(count), day);
        groups.OpenGap(row, count);
        const auto places = groups.PlacesToTake(count, November(day));
        if (!places) return -1;
        groups.Take(count, November(day));
        return places->count;
    }
    int Remove(int row, int count = 1) {
        const auto places = groups.PlacesToDrop(row, count);
        if (!places) return -1;
        groups.Drop(row, count);
        days.erase(days.begin() + row, days.begin() + row + count);
        groups.CloseGap();
        return places->count;
    }
    /// "19: 0 1 +18:": heads by day of the month, folded ones with a plus, and the rows between them.
    [[nodiscard]] QString Picture() const {
        QStringList places;
        for (int place = 0; place < groups.Count(); ++place) {
            const int row = groups.RowAt(place);
            if (row < 0) {
                const auto& group = groups.Groups()[static_cast<std::size_t>(groups.GroupAt(place))];
                places << (group.isFolded ? u"+"_s : QString()) + QString::number(group.firstDay % 32) + u':';
            } else {
                places << QString::number(row);
            }
        }
        return places.join(u' ');
    }
    /// The places of a row and back are the same, of every row that is shown.
    void CheckPlaces() const {
        int shown = 0;
        for (int row = 0; row < static_cast<int>(days.size()); ++row) {
            const int place = groups.PlaceOf(row);
            if (place < 0) continue;
            ++shown;
            QCOMPARE(groups.RowAt(place), row);
            QVERIFY(!groups.IsHead(place));
        }
        QCOMPARE(groups.RowsIn(0, groups.Count() - 1), shown);
    }
};

}  // namespace

class TestCRowGroups final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Parting_data() {
        QTest::addColumn<QList<int>>("days");
        QTest::addColumn<int>("today");
        QTest::addColumn<bool>("ascending");
        QTest::addColumn<QString>("picture");
        QTest::newRow("no rows, no heads, not even today's") << QList<int>{} << 19 << false << QString();
        QTest::newRow("a head above each day") << QList<int>{19, 19, 18} << 0 << false << u"19: 0 1 18: 2"_s;
        QTest::newRow("rows without a date have their own")
            << QList<int>{19, 0, 0} << 0 << false << u"19: 0 0: 1 2"_s;
        QTest::newRow("today's is there when it is empty, above the others")
            << QList<int>{18, 17} << 19 << false << u"19: 18: 0 17: 1"_s;
        QTest::newRow("among them") << QList<int>{20, 18} << 19 << false << u"20: 0 19: 18: 1"_s;
        QTest::newRow("below them") << QList<int>{21, 20} << 19 << false << u"21: 0 20: 1 19:"_s;
        QTest::newRow("ascending it goes to the other end")
            << QList<int>{17, 18} << 19 << true << u"17: 0 18: 1 19:"_s;
        QTest::newRow("ascending, among them") << QList<int>{18, 20} << 19 << true << u"18: 0 19: 20: 1"_s;
        QTest::newRow("today's with rows is there once")
            << QList<int>{19, 18} << 19 << false << u"19: 0 18: 1"_s;
        QTest::newRow("a list that isn't in order has a day more than once")
            << QList<int>{19, 18, 19} << 0 << false << u"19: 0 18: 1 19: 2"_s;
    }
    void Parting() {
        QFETCH(QList<int>, days);
        QFETCH(int, today);
        QFETCH(bool, ascending);
        const Rows rows({days.begin(), days.end()}, today, ascending);
        QTEST(rows.Picture(), "picture");
        rows.CheckPlaces();
    }

    /// Monday is the 16th; the 15th lies in the week before.
    void WeeksAndMonths() {
        QCOMPARE(Rows({22, 19, 16, 15, 9}, 0, false, ListGroups::Weeks).Picture(), u"16: 0 1 2 9: 3 4"_s);
        QCOMPARE(Rows({15}, 22, false, ListGroups::Weeks).Picture(), u"16: 9: 0"_s);
        QCOMPARE(Rows({30, 1}, 12, false, ListGroups::Months).Picture(), u"1: 0 1"_s);
        QCOMPARE(Rows({3, 1, 2}, 9, false, ListGroups::None).Picture(), u"0 1 2"_s);
    }

    void Folding() {
        Rows rows({19, 19, 18, 17, 17}, 20);
        const auto hidden = rows.groups.InsideOf(1);
        QCOMPARE(hidden.first, 2);
        QCOMPARE(hidden.count, 2);
        rows.groups.SetFolded(1, true);
        QCOMPARE(rows.Picture(), u"20: +19: 18: 2 17: 3 4"_s);
        QCOMPARE(rows.groups.PlaceOf(0), -1);
        QCOMPARE(rows.groups.GroupOfRow(0), 1);
        rows.CheckPlaces();
        rows.Part(20, false, ListGroups::Days);
        QCOMPARE(rows.Picture(), u"20: +19: 18: 2 17: 3 4"_s);
        rows.groups.SetFolded(1, false);
        QCOMPARE(rows.Picture(), u"20: 19: 0 1 18: 2 17: 3 4"_s);
        rows.groups.SetAllFolded(true);
        rows.Part(20, false, ListGroups::Days);
        QCOMPARE(rows.Picture(), u"+20: +19: +18: +17:"_s);
        QCOMPARE(rows.groups.RowsIn(0, 3), 0);
    }

    void RowsInAStretch() {
        const Rows rows({19, 19, 18, 17}, 20);  // 20: 19: 0 1 18: 2 17: 3
        QCOMPARE(rows.groups.RowsIn(0, 0), 0);
        QCOMPARE(rows.groups.RowsIn(1, 3), 2);
        QCOMPARE(rows.groups.RowsIn(3, 5), 2);
        QCOMPARE(rows.groups.RowsIn(0, 7), 4);
        QCOMPARE(rows.groups.RowsIn(2, 1), 0);
    }

    void Inserting_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("day");
        QTest::addColumn<int>("places");
        QTest::addColumn<QString>("picture");
        // 22: 0 20: (today) 19: 1 2 +17: 3
        QTest::newRow("before the first of its day") << 1 << 19 << 1 << u"22: 0 20: 19: 1 2 3 +17:"_s;
        QTest::newRow("among them") << 2 << 19 << 1 << u"22: 0 20: 19: 1 2 3 +17:"_s;
        QTest::newRow("behind the last of its day") << 3 << 19 << 1 << u"22: 0 20: 19: 1 2 3 +17:"_s;
        QTest::newRow("the first of today: below the head that is there")
            << 1 << 20 << 1 << u"22: 0 20: 1 19: 2 3 +17:"_s;
        QTest::newRow("a new day, before today's empty group")
            << 1 << 21 << 2 << u"22: 0 21: 1 20: 19: 2 3 +17:"_s;
        QTest::newRow("a new day at the top") << 0 << 23 << 2 << u"23: 0 22: 1 20: 19: 2 3 +17:"_s;
        QTest::newRow("a new day between others") << 3 << 18 << 2 << u"22: 0 20: 19: 1 2 18: 3 +17:"_s;
        QTest::newRow("a new day at the end") << 4 << 16 << 2 << u"22: 0 20: 19: 1 2 +17: 16: 4"_s;
        QTest::newRow("into a folded group: nothing is shown") << 4 << 17 << 0 << u"22: 0 20: 19: 1 2 +17:"_s;
        QTest::newRow("at the end of a list not in order: another group of that day")
            << 4 << 19 << 2 << u"22: 0 20: 19: 1 2 +17: 19: 4"_s;
        QTest::newRow("between the rows of another day: all is parted anew") << 2 << 5 << -1 << QString();
    }
    void Inserting() {
        QFETCH(int, row);
        QFETCH(int, day);
        QFETCH(QString, picture);
        Rows rows({22, 19, 19, 17}, 20);
        rows.groups.SetFolded(3, true);
        QTEST(rows.Insert(row, day), "places");
        if (picture.isEmpty()) return;
        QCOMPARE(rows.Picture(), picture);
        rows.CheckPlaces();
    }

    void TheFirstRowBringsTodaysHeadToo() {
        Rows rows({}, 20);
        QCOMPARE(rows.Insert(0, 19), -1);
    }

    /// Until the new rows are taken the others are where they were, under the numbers that they have now.
    void GapOfNewRows() {
        Rows rows({19, 19, 18});
        rows.groups.OpenGap(1, 2);
        QCOMPARE(rows.Picture(), u"19: 0 3 18: 4"_s);
        QCOMPARE(rows.groups.PlaceOf(1), -1);
        QCOMPARE(rows.groups.PlaceOf(3), 2);
        QCOMPARE(rows.groups.GroupOfRow(2), -1);
        rows.groups.Take(1, November(19));
        QCOMPARE(rows.Picture(), u"19: 0 1 3 18: 4"_s);
        rows.groups.Take(1, November(19));
        QCOMPARE(rows.Picture(), u"19: 0 1 2 3 18: 4"_s);
    }

    void Removing_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("places");
        QTest::addColumn<QString>("picture");
        // 20: 0 (today) 19: 1 2 3 18: 4 +17: 5 6
        QTest::newRow("one of several") << 1 << 1 << 1 << u"20: 0 19: 1 2 18: 3 +17:"_s;
        QTest::newRow("two of several") << 2 << 2 << 2 << u"20: 0 19: 1 18: 2 +17:"_s;
        QTest::newRow("the last of a day takes its head along") << 4 << 1 << 2 << u"20: 0 19: 1 2 3 +17:"_s;
        QTest::newRow("the last of today leaves the head") << 0 << 1 << 1 << u"20: 19: 0 1 2 18: 3 +17:"_s;
        QTest::newRow("of a folded group nothing is seen") << 5 << 1 << 0 << u"20: 0 19: 1 2 3 18: 4 +17:"_s;
        QTest::newRow("a whole folded group: its head") << 5 << 2 << 1 << u"20: 0 19: 1 2 3 18: 4"_s;
        QTest::newRow("of two days: all is parted anew") << 3 << 2 << -1 << QString();
        QTest::newRow("all: no head stays, so all is parted anew") << 0 << 7 << -1 << QString();
    }
    void Removing() {
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(QString, picture);
        Rows rows({20, 19, 19, 19, 18, 17, 17}, 20);
        rows.groups.SetFolded(3, true);
        QTEST(rows.Remove(row, count), "places");
        if (picture.isEmpty()) return;
        QCOMPARE(rows.Picture(), picture);
        rows.CheckPlaces();
    }

    void TheLastWithoutADateTakesItsHeadAlong() {
        Rows rows({19, 0});
        QCOMPARE(rows.Remove(1), 2);
        QCOMPARE(rows.Picture(), u"19: 0"_s);
    }

    void TwoGroupsOfADayDontStandTogether() {
        Rows rows({19, 18, 19, 17});
        QCOMPARE(rows.Remove(1), -1);
    }

    /// Whatever comes and goes, the picture is that of a new parting.
    void ManyChanges() {
        Rows rows({20}, 20);
        unsigned random = 12345;
        const auto next = [&random](int below) {
            random = random * 1103515245U + 12345U;
            return static_cast<int>(random / 65536U % static_cast<unsigned>(below));
        };
        for (int change = 0; change < 2000; ++change) {
            const int day = 1 + next(28);
            int row = 0;
            while (row < static_cast<int>(rows.days.size()) && rows.days[static_cast<std::size_t>(row)] > day)
                ++row;
            const bool removes = next(3) == 0 && rows.days.size() > 1;
            const int places =
                removes ? rows.Remove(next(static_cast<int>(rows.days.size()))) : rows.Insert(row, day);
            QVERIFY(places >= 0);
            if (change % 10 == 0)
                rows.groups.SetFolded(next(static_cast<int>(rows.groups.Groups().size())), next(2) == 0);
            rows.CheckPlaces();
            const QString picture = rows.Picture();
            rows.Part(20, false, ListGroups::Days);
            QCOMPARE(picture, rows.Picture());
        }
    }
};

TEST_CLASS(TestCRowGroups);
#include "TestCRowGroups.moc"
