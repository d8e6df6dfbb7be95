#include "records/CTRecord.h"
#include "shell/list/CRecordListView.h"
#include "shell/list/GroupHeadLine.h"
#include "shell/look/ListColours.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CGroupedRows.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A list in groups of days, latest first: three records a day back from 18 November, none today.
struct Fixture {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    CRecordListView view{model, *home.settings};

    explicit Fixture(int days, int layout = 3) {
        for (int i = 0; i < days * 3; ++i) (void)Add(18 - i / 3, i % 3);
        home.settings->listLayout = layout;
        home.settings->listGroups = 1;
        Rebuild();
        view.resize(700, 500);
        view.show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(&view)); }();
    }
    QString Add(int day, int hour) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        record.SetStart(9 - hour, 0, false);
        record.spans.effective.Set(1, 30);
        record.item1 = u"Client %1"_s.arg(day * 10 + hour);
        QString id;
        [&] {
            QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Now, Identity::New}, &id));
        }();
        return id;
    }
    void Rebuild() {
        home.document->BuildVisible();
        model.Rebuild();
        view.ApplyLayout();
    }
    [[nodiscard]] CGroupedRows& Groups() const { return *view.Groups(); }
    void Click(int row, int x = 200, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys,
                          {x, view.rowViewportPosition(row) + view.rowHeight(row) / 2});
    }
    /// The row that has the keyboard, and how many records are selected.
    [[nodiscard]] QString Place() const {
        return u"%1 %2"_s.arg(view.currentIndex().row()).arg(view.SelectedCount());
    }
    [[nodiscard]] int Rows() const { return view.model()->rowCount(); }
};

}  // namespace

class TestGroupedList final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void WhereThereAreHeads_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<int>("groups");
        QTest::addColumn<bool>("isGrouped");
        for (const int layout : {1, 2, 3, 4})
            for (const int groups : {0, 1, 2, 3})
                QTest::addRow("layout %d, groups %d", layout, groups)
                    << layout << groups << (layout >= 3 && groups > 0);
    }
    void WhereThereAreHeads() {
        QFETCH(int, layout);
        QFETCH(int, groups);
        Fixture t(2, layout);
        t.home.settings->listGroups = groups;
        t.Rebuild();
        QTEST(t.view.IsGrouped(), "isGrouped");
        QCOMPARE(t.view.ShownCount(), 6);
        QCOMPARE(t.view.ShownIds(), t.model.AllIds());
    }

    /// A click on a header shows and hides the heads; what is selected stays so.
    void SortByAnotherColumn() {
        Fixture t(2);
        t.view.SelectIds({t.model.IdAt(1)});
        const QStringList selected = t.view.SelectedIds();
        t.model.SortByHeader(4);
        t.view.ApplyLayout();
        QVERIFY(!t.view.IsGrouped());
        QCOMPARE(t.view.SelectedIds(), selected);
        t.model.SortByHeader(1);
        t.view.ApplyLayout();
        QVERIFY(t.view.IsGrouped());
        QCOMPARE(t.view.SelectedIds(), selected);
        QCOMPARE(t.view.CurrentId(), selected.front());
        t.view.selectAll();
        t.model.SortByHeader(4);
        t.view.ApplyLayout();
        QCOMPARE(t.view.SelectedCount(), 6);
    }

    /// 19: | 18: 1 2 3 | 17: 5 6 7
    void Keys() {
        Fixture t(2);
        t.view.setFocus();
        t.view.SelectIds({t.model.IdAt(2)});
        QCOMPARE(t.Place(), u"4 1"_s);
        QTest::keyClick(&t.view, Qt::Key_Down);
        QCOMPARE(t.Place(), u"5 0"_s);
        QVERIFY(t.Groups().IsHead(5));
        QCOMPARE(t.view.CurrentId(), QString());
        const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Left, 6},  {Qt::Key_Left, 6},  {Qt::Key_Right, 9},
                                                {Qt::Key_Right, 9}, {Qt::Key_Minus, 6}, {Qt::Key_Plus, 9},
                                                {Qt::Key_Space, 6}, {Qt::Key_Space, 9}, {Qt::Key_Return, 6},
                                                {Qt::Key_Enter, 9}};
        for (const auto& [key, rows] : keys) {
            QTest::keyClick(&t.view, key);
            QCOMPARE(t.Rows(), rows);
            QCOMPARE(t.view.currentIndex().row(), 5);
        }
        QTest::keyClick(&t.view, Qt::Key_Down);
        QCOMPARE(t.Place(), u"6 1"_s);
        QTest::keyClick(&t.view, Qt::Key_Left);
        QCOMPARE(t.Place(), u"5 0"_s);
        QTest::keyClick(&t.view, Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(t.view.SelectedIds(), QStringList{t.model.IdAt(2)});
    }

    /// On a head the keys are the head's, whatever they are shortcuts of; on a record they are not.
    void ShortcutsGiveWay() {
        Fixture t(1);
        const auto isOurs = [&](int key) {
            QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
            event.ignore();
            QApplication::sendEvent(&t.view, &event);
            return event.isAccepted();
        };
        t.view.SelectIds({t.model.IdAt(0)});
        QVERIFY(!isOurs(Qt::Key_Return));
        QTest::keyClick(&t.view, Qt::Key_Up);
        QVERIFY(isOurs(Qt::Key_Return));
        QVERIFY(!isOurs(Qt::Key_Delete));
    }

    void Clicks() {
        Fixture t(2);
        QSignalSpy edit(&t.view, &CRecordListView::EditWanted);
        t.Click(2);
        QCOMPARE(t.Place(), u"2 1"_s);
        t.Click(5);
        QCOMPARE(t.Place(), u"5 1"_s);
        QCOMPARE(t.Rows(), 6);
        t.Click(5, 3);
        QCOMPARE(t.Rows(), 9);
        QTest::mouseDClick(t.view.viewport(), Qt::LeftButton, {},
                           {200, t.view.rowViewportPosition(5) + t.view.rowHeight(5) / 2});
        QCOMPARE(edit.count(), 0);
        const int rows = t.Rows();
        t.Click(1);
        QCOMPARE(t.Rows(), rows - 3);
        QCOMPARE(t.view.SelectedCount(), 0);  // what was selected is folded away
    }

    /// Only records are selected, copied and deleted; a range over a head has none more.
    void SelectionHasRecordsOnly() {
        Fixture t(2);
        t.Click(3);
        t.Click(6, 200, Qt::ShiftModifier);
        QCOMPARE(t.view.SelectedCount(), 3);
        QCOMPARE(t.view.SelectedIds(), (QStringList{t.model.IdAt(1), t.model.IdAt(2), t.model.IdAt(3)}));
        int visited = 0;
        t.view.ForEachSelected([&visited](const CVORec&) { ++visited; });
        QCOMPARE(visited, 3);
        t.view.Fold(1, true);
        QCOMPARE(t.view.SelectedIds(), QStringList{t.model.IdAt(3)});
        t.view.selectAll();
        QCOMPARE(t.view.SelectedCount(), 6);
        QCOMPARE(t.view.SelectedIds(), t.model.AllIds());
    }

    void RowsInSight() {
        Fixture t(2);
        QCOMPARE(t.view.RowsInSight(), (std::pair{0, 8}));
        QCOMPARE(t.view.ListRowsInSight(), (std::vector{0, 1, 2, 3, 4, 5}));
        t.view.Fold(1, true);
        QCOMPARE(t.view.ListRowsInSight(), (std::vector{3, 4, 5}));
        QCOMPARE(t.view.ShownCount(), 6);
    }

    void ARecordThatIsWantedIsUnfolded() {
        Fixture t(2);
        t.view.FoldAll(true);
        QVERIFY(t.view.AreAllFolded());
        QCOMPARE(t.Rows(), 3);
        t.view.SetCurrentId(t.model.IdAt(4));
        QCOMPARE(t.view.currentIndex().row(), 2);
        t.view.SelectIds({t.model.IdAt(4)});
        QCOMPARE(t.view.SelectedIds(), QStringList{t.model.IdAt(4)});
        QCOMPARE(t.Rows(), 6);
        t.view.FoldAll(false);
        QCOMPARE(t.Rows(), 9);
    }

    /// The head that has the keyboard keeps it when the list is read anew, and so do the folds.
    void ARefreshKeepsFoldsAndPlace() {
        Fixture t(3);
        t.view.setFocus();
        t.view.Fold(5, true);
        t.view.SetCurrentId(t.model.IdAt(2));
        QTest::keyClick(&t.view, Qt::Key_Down);
        QCOMPARE(t.Place(), u"5 0"_s);
        t.model.OnHint(Hint::Clear, {});
        t.Rebuild();
        t.view.SetCurrentId({});
        QCOMPARE(t.Place(), u"5 0"_s);
        QCOMPARE(t.Rows(), 10);
    }

    void ADeletedRecordHandsTheKeyboardToTheNext_data() {
        QTest::addColumn<int>("deleted");  // row of the list
        QTest::addColumn<int>("next");     // row of the list before the deletion
        QTest::newRow("the first of a day") << 0 << 1;
        QTest::newRow("the last of a day") << 2 << 3;
        QTest::newRow("the only one of a day") << 3 << 4;
        QTest::newRow("the last of all") << 6 << 5;
    }
    /// Three records of one day, one of the day before, three of the day before that.
    void ADeletedRecordHandsTheKeyboardToTheNext() {
        QFETCH(int, deleted);
        QFETCH(int, next);
        Fixture t(3);
        const auto remove = [&t](int row) {
            const QString id = t.model.IdAt(row);
            t.model.OnHint(Hint::AboutToGo, {id});
            QVERIFY(t.home.document->DeleteRecord(RecordKind::Time, id, Notify::Later));
        };
        remove(5);
        remove(4);
        QCOMPARE(t.model.rowCount(), 7);
        const QString expected = t.model.IdAt(next);
        t.view.SetCurrentId(t.model.IdAt(deleted));
        remove(deleted);
        QCOMPARE(t.view.CurrentId(), expected);
    }

    void Finding() {
        Fixture t(2);
        t.view.FoldAll(true);
        t.view.Find(u"client 17"_s);
        QCOMPARE(t.view.ShownCount(), 3);
        QCOMPARE(t.Rows(), 4);
        t.Click(2, 3);
        QCOMPARE(t.view.SelectedIds(), QStringList{t.view.ShownIds()[1]});
        t.view.Fold(0, true);
        QCOMPARE(t.view.ShownCount(), 3);
        t.view.Find({});
        QVERIFY(t.view.AreAllFolded());
        QCOMPARE(t.view.ShownCount(), 6);
    }

    /// Heads have one line, records as many as their layout has, wherever both go.
    void Heights() {
        Fixture t(4, 4);
        const int head = t.view.rowHeight(0), record = t.view.rowHeight(2);
        QVERIFY(record > head);
        const auto check = [&] {
            for (int row = 0; row < t.Rows(); ++row)
                QCOMPARE(t.view.rowHeight(row), t.Groups().IsHead(row) ? head : record);
        };
        check();
        t.view.Fold(1, true);
        check();
        t.view.Fold(1, false);
        check();
        const QString id = t.Add(16, 5);
        t.model.OnHint(Hint::Added, {id});
        check();
        const QString early = t.Add(2, 1);
        t.model.OnHint(Hint::Added, {early});
        check();
        t.model.OnHint(Hint::AboutToGo, {id});
        check();
        t.model.SortByHeader(1);
        t.view.ApplyLayout();
        check();
        t.view.FoldAll(true);
        check();
        t.Rebuild();
        check();
        t.view.Find(u"client"_s);
        check();
        t.view.FoldAll(false);
        QCOMPARE(t.view.verticalScrollBar()->maximum() > 0, true);
    }

    /// The ground of records alternates as it does without heads.
    void GroundsAreThoseOfTheRecords() {
        Fixture t(1);
        t.view.clearFocus();
        const ListColours colours = MakeListColours(*t.home.settings, QApplication::palette());
        const QImage picture = t.view.viewport()->grab().toImage();
        const auto ground = [&](int row) {
            return picture.pixelColor(t.view.viewport()->width() - 3, t.view.rowViewportPosition(row) + 2);
        };
        QCOMPARE(ground(2), colours.window);
        QCOMPARE(ground(3), colours.alternate);
        QCOMPARE(ground(4), colours.window);
        QCOMPARE(ground(1), colours.head);
    }

    void PlacesOfAHead_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("hoursRight");
        QTest::addColumn<int>("moneyRight");
        QTest::addColumn<bool>("inColumns");
        QTest::newRow("below their captions") << 900 << 600 << 700 << true;
        QTest::newRow("amounts before hours") << 900 << 800 << 700 << true;
        QTest::newRow("no room between them: the left one gives way") << 900 << 600 << 610 << true;
        QTest::newRow("a column beyond the end") << 500 << 400 << 900 << false;
        QTest::newRow("below the title") << 900 << 60 << 700 << false;
        QTest::newRow("narrow") << 200 << 200 << 200 << false;
    }
    void PlacesOfAHead() {
        QFETCH(int, width);
        QFETCH(int, hoursRight);
        QFETCH(int, moneyRight);
        const GroupHead head{.title = u"Thursday 11/19/26"_s,
                             .count = u"3 records"_s,
                             .hours = u"7:30 h"_s,
                             .money = u"EUR 540.00"_s,
                             .isFolded = true};
        const ListColours colours;
        const GroupHeadPlaces places = PlaceGroupHead({.head = head,
                                                       .line = QRect(0, 40, width, 24),
                                                       .hoursRight = hoursRight,
                                                       .moneyRight = moneyRight,
                                                       .font = QApplication::font(),
                                                       .hasKeyboard = false,
                                                       .colours = colours,
                                                       .style = *QApplication::style()});
        QTEST(places.areInColumns, "inColumns");
        if (places.areInColumns) {
            const QRect& last = moneyRight > hoursRight ? places.money : places.hours;
            QCOMPARE(last.right() + 1, std::max(moneyRight, hoursRight) - 4);
        }
        const QFontMetricsF metrics(QApplication::font());
        if (width == 900) {
            QVERIFY(places.hours.width() > metrics.horizontalAdvance(head.hours));
            QVERIFY(places.money.width() > metrics.horizontalAdvance(head.money));
            QVERIFY(places.count.width() > metrics.horizontalAdvance(head.count));
        }
        QList<QRect> texts{places.arrow, places.title, places.count, places.hours, places.money};
        for (int i = 0; i < texts.size(); ++i) {
            if (texts[i].width() <= 0) continue;
            QVERIFY(QRect(0, 40, width, 24).contains(texts[i]));
            for (int other = 0; other < i; ++other)
                if (texts[other].width() > 0) QVERIFY(!texts[other].intersects(texts[i]));
        }
    }
};

TEST_CLASS(TestGroupedList);
#include "TestGroupedList.moc"
