#include "viewmodel/list/CShownRows.h"

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A list, last day first, and those of its rows that are shown. What the document announces reaches the list
/// at once.
struct Fixture {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel list{*home.document, timers, *home.settings};
    CShownRows shown{list};
    QAbstractItemModelTester tester{&shown, QAbstractItemModelTester::FailureReportingMode::QtTest};

    /// "Bakery oven": client and project.
    QString Add(int day, const QString& client, const QString& notes = {}) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        record.item1 = client;
        record.notes = notes;
        QString id;
        [&] { QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id)); }();
        Deliver();
        return id;
    }
    void Change(const QString& id, int day, const QString& client) {
        CTRecord record;
        record.Copy(*home.document->FindTime(id));
        record.date.Set(11, day, 2026);
        record.item1 = client;
        [&] { QVERIFY(home.document->ModifyRecord(record, id, {Notify::Yes, Commit::Now})); }();
        Deliver();
    }
    void Deliver() {
        const auto seen = std::exchange(home.views.seen, {});
        for (const auto& [hint, ids] : seen) list.OnHint(hint, ids);
    }
    void Rebuild() {
        home.document->BuildVisible();
        home.views.seen.clear();
        list.OnHint(Hint::Rebuild, {});
    }
    /// The days of the month down the rows that are shown.
    [[nodiscard]] QString Days() const {
        QStringList days;
        for (int row = 0; row < shown.rowCount(); ++row)
            days.append(QString::number(home.document->FindTime(list.IdAt(shown.ListRowOf(row)))->date.day));
        return days.join(u' ');
    }
};

/// Rows of the days 9 to 1; the odd ones are the bakery's.
struct NineDays : Fixture {
    QStringList ids;
    NineDays() {
        for (int day = 1; day <= 9; ++day)
            ids.append(Add(day, day % 2 == 1 ? u"Hollis Bakery"_s : u"Site"_s, u"day%1"_s.arg(day)));
        Rebuild();
    }
};

}  // namespace

class TestCShownRows final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Find_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("days");
        QTest::newRow("no words: no rows, the list itself is shown") << u"  "_s << QString();
        QTest::newRow("a word, in the order of the list") << u"bakery"_s << u"9 7 5 3 1"_s;
        QTest::newRow("any case, any order, items and notes") << u"DAY3 holl"_s << u"3"_s;
        QTest::newRow("all of them") << u"k day"_s << u"9 7 5 3 1"_s;
        QTest::newRow("nothing") << u"taxi"_s << QString();
    }
    void Find() {
        QFETCH(QString, words);
        NineDays fixture;
        fixture.shown.Find(words);
        QTEST(fixture.Days(), "days");
        QCOMPARE(fixture.shown.IsFinding(), !words.trimmed().isEmpty());
    }

    /// Letter by letter on and back again: each time what a search from the start gives.
    void LetterByLetter() {
        NineDays fixture;
        const QString typed = u"day1 bak"_s;
        for (qsizetype end : {1, 2, 3, 4, 5, 6, 8, 4, 3, 0, 8}) {
            fixture.shown.Find(typed.left(end));
            CShownRows anew(fixture.list);
            anew.Find(typed.left(end));
            QCOMPARE(fixture.shown.rowCount(), anew.rowCount());
        }
        QCOMPARE(fixture.Days(), u"1"_s);
    }

    void RowsOfTheList() {
        NineDays fixture;
        fixture.shown.Find(u"site"_s);
        QCOMPARE(fixture.Days(), u"8 6 4 2"_s);
        QCOMPARE(fixture.shown.ListRowOf(1), 3);
        QCOMPARE(fixture.shown.ShownRowOf(3), 1);
        QCOMPARE(fixture.shown.ShownRowOf(2), -1);
        QCOMPARE(fixture.shown.ShownRowOf(8), -1);
        const QModelIndex cell = fixture.shown.index(1, 1);
        QCOMPARE(cell.data(CRecordListModel::IdRole).toString(), fixture.list.IdAt(3));
        QCOMPARE(cell.data(CRecordListModel::ListRowRole).toInt(), 3);
    }

    /// A record that is added is shown whatever it says, in its place, until the words change.
    void Added() {
        NineDays fixture;
        fixture.shown.Find(u"bakery"_s);
        QSignalSpy inserted(&fixture.shown, &QAbstractItemModel::rowsInserted);
        fixture.Add(6, u"Harbour"_s);
        QCOMPARE(fixture.Days(), u"9 7 6 5 3 1"_s);
        QCOMPARE(inserted.count(), 1);
        fixture.shown.Find(u"baker"_s);
        QCOMPARE(fixture.Days(), u"9 7 5 3 1"_s);
    }

    void Removed() {
        NineDays fixture;
        fixture.shown.Find(u"bakery"_s);
        fixture.list.OnHint(Hint::AboutToGo, {fixture.ids[3], fixture.ids[4], fixture.ids[8]});
        QCOMPARE(fixture.Days(), u"7 3 1"_s);
        QCOMPARE(fixture.shown.ListRowOf(2), 5);
    }

    /// One that got the words is found by the next ones, which go on from the former.
    void Changed() {
        NineDays fixture;
        fixture.shown.Find(u"bak"_s);
        fixture.Change(fixture.ids[7], 8, u"Bakery"_s);
        QCOMPARE(fixture.Days(), u"9 7 5 3 1"_s);
        fixture.shown.Find(u"bake"_s);
        QCOMPARE(fixture.Days(), u"9 8 7 5 3 1"_s);
    }

    /// What is pointed to goes along, to the first place and back.
    void Moved() {
        NineDays fixture;
        fixture.shown.Find(u"bakery"_s);
        const QPersistentModelIndex five = fixture.shown.index(2, 1);
        fixture.Change(fixture.ids[4], 30, u"Hollis Bakery"_s);
        QCOMPARE(fixture.Days(), u"30 9 7 3 1"_s);
        QCOMPARE(five.row(), 0);
    }

    void Sorted() {
        NineDays fixture;
        fixture.shown.Find(u"bakery"_s);
        const QPersistentModelIndex nine = fixture.shown.index(0, 1);
        fixture.list.SortByHeader(1);
        QCOMPARE(fixture.Days(), u"1 3 5 7 9"_s);
        QCOMPARE(nine.row(), 4);
    }

    void RebuiltAndCleared() {
        NineDays fixture;
        fixture.shown.Find(u"bakery"_s);
        fixture.Change(fixture.ids[8], 9, u"Site"_s);
        fixture.Rebuild();
        QCOMPARE(fixture.Days(), u"7 5 3 1"_s);
        fixture.list.OnHint(Hint::Clear, {});
        QCOMPARE(fixture.shown.rowCount(), 0);
        QVERIFY(!fixture.shown.hasChildren());
        fixture.Rebuild();
        QCOMPARE(fixture.Days(), u"7 5 3 1"_s);
    }

    /// Rows that aren't shown tell nothing.
    void OfShownRowsOnly() {
        NineDays fixture;
        fixture.shown.Find(u"bakery"_s);
        QSignalSpy changed(&fixture.shown, &QAbstractItemModel::dataChanged);
        fixture.list.OnHint(Hint::TimerStarted, {fixture.ids[1]});
        QCOMPARE(changed.count(), 0);
        fixture.list.OnHint(Hint::TimerStarted, {fixture.ids[2]});
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0][0].toModelIndex().row(), 3);
    }

    void WithoutWordsItFollowsNothing() {
        NineDays fixture;
        fixture.Add(12, u"Bakery"_s);
        fixture.list.OnHint(Hint::AboutToGo, {fixture.ids[0]});
        fixture.list.SortByHeader(1);
        QCOMPARE(fixture.shown.rowCount(), 0);
        fixture.shown.Find(u"bakery"_s);
        QCOMPARE(fixture.Days(), u"3 5 7 9 12"_s);
    }
};

TEST_CLASS(TestCShownRows);
#include "TestCShownRows.moc"
