#include "viewmodel/list/CRecordListModel.h"

#include "config/ColumnTable.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "timers/ActiveTimerSet.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

namespace {

/// A home with a list over it. What the document announces reaches the list when Deliver is called.
struct Scene {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};

    void Deliver() {
        const auto seen = std::exchange(home.views.seen, {});
        for (const auto& [hint, ids] : seen) model.OnHint(hint, ids);
    }
    void Rebuild() {
        home.views.seen.clear();
        home.document->BuildVisible();
        model.OnHint(Hint::Rebuild, {});
    }
    void HideAll() {
        CColSet& columns = home.settings->ListColumns();
        QStringList captions;
        for (int column = 0; column < 17; ++column) captions.append(columns.EntryAt(column).caption);
        columns.AssignOrder(ColumnHalf::Time, captions, {});
    }
    QString Add(int day, const char* start = "", const char* end = "") {
        return home.AddTime(2026, 11, day, QString::fromLatin1(start), QString::fromLatin1(end));
    }
    void AddExpense(int day, float amount, bool isDistance) {
        CERecord record;
        record.GenUnique();
        record.date.Set(11, day, 2026);
        record.amount.Set(amount);
        record.isDistance = isDistance;
        QVERIFY(home.document->AddRecord(record, false, false, false));
        home.document->FlushPending(Hint::Added);
        home.views.seen.clear();
    }
    /// The days of the month down the list.
    QString Days() const {
        QStringList days;
        for (int row = 0; row < model.rowCount(); ++row)
            days.append(QString::number(home.document->FindTime(model.IdAt(row))->date.day));
        return days.join(u' ');
    }
    void Change(const QString& id, int day) {
        CTRecord record;
        record.Reset();
        record.Copy(*home.document->FindTime(id));
        record.date.Set(11, day, 2026);
        QVERIFY(home.document->ModifyRecord(record, id, true, false, true, true));
        Deliver();
    }
};

}  // namespace

class TestCRecordListModel final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void emptyList() {
        Scene scene;
        scene.Rebuild();
        QCOMPARE(scene.model.rowCount(), 0);
        QCOMPARE(scene.model.Layout(), ListLayout::Lines);
        QCOMPARE(scene.model.columnCount(), 2);
    }

    /// A layout that isn't one of the four becomes the one of lines, in the settings too.
    void layouts_data() {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("layout");
        QTest::addColumn<int>("columns");
        QTest::newRow("icons") << 1 << 1 << 2;
        QTest::newRow("plain list") << 2 << 2 << 2;
        QTest::newRow("columns: the state and nine") << 3 << 3 << 10;
        QTest::newRow("lines") << 4 << 4 << 2;
        QTest::newRow("0 becomes 4") << 0 << 4 << 2;
        QTest::newRow("5 becomes 4") << 5 << 4 << 2;
        QTest::newRow("-1 becomes 4") << -1 << 4 << 2;
    }
    void layouts() {
        QFETCH(int, stored);
        Scene scene;
        scene.home.settings->listLayout = stored;
        scene.Rebuild();
        QTEST(static_cast<int>(scene.model.Layout()), "layout");
        QTEST(scene.home.settings->listLayout, "layout");
        QTEST(scene.model.columnCount(), "columns");
    }

    void defaultOrderIsLatestFirst() {
        Scene scene;
        scene.Add(18);
        scene.Add(20);
        scene.Add(19);
        scene.Rebuild();
        QCOMPARE(scene.Days(), QStringLiteral("20 19 18"));
        QCOMPARE(scene.model.SortColumn(), 0);
        QVERIFY(!scene.model.SortsAscending());
    }

    void headerTurnsTheOrder() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        for (const int day : {18, 20, 19}) scene.Add(day);
        scene.Rebuild();
        scene.model.SortByHeader(1);
        QCOMPARE(scene.Days(), QStringLiteral("18 19 20"));
        scene.model.SortByHeader(1);
        QCOMPARE(scene.Days(), QStringLiteral("20 19 18"));
        scene.model.SortByHeader(3);
        QCOMPARE(scene.home.settings->sortColumnTime, 1);
        QVERIFY(scene.home.settings->sortAscendingTime);
        scene.model.SortByHeader(0);
        scene.model.SortByHeader(10);
        QCOMPARE(scene.home.settings->sortColumnTime, 1);
    }

    /// Sorted by a hidden column, the first visible one sorts, in the stored direction, and is stored.
    void storedColumnIsHidden_data() {
        QTest::addColumn<int>("stored");
        QTest::newRow("notes, hidden") << 15;
        QTest::newRow("an expense column") << 17;
        QTest::newRow("no column") << 600;
        QTest::newRow("negative") << -1;
    }
    void storedColumnIsHidden() {
        QFETCH(int, stored);
        Scene scene;
        scene.home.settings->sortColumnTime = stored;
        scene.home.settings->sortAscendingTime = true;
        for (const int day : {18, 20, 19}) scene.Add(day);
        scene.Rebuild();
        QCOMPARE(scene.home.settings->sortColumnTime, 0);
        QCOMPARE(scene.Days(), QStringLiteral("18 19 20"));
    }

    void noVisibleColumn() {
        Scene scene;
        scene.HideAll();
        scene.home.settings->listLayout = 3;
        scene.Rebuild();
        for (const int day : {18, 20, 19}) scene.Add(day);
        scene.Deliver();
        QCOMPARE(scene.Days(), QStringLiteral("18 20 19"));
        scene.model.SortByHeader(1);
        QCOMPARE(scene.Days(), QStringLiteral("18 20 19"));
        QCOMPARE(scene.model.SortColumn(), 600);
        QCOMPARE(scene.model.columnCount(), 1);
    }

    void addedRows_data() {
        QTest::addColumn<bool>("resort");
        QTest::addColumn<QString>("days");
        QTest::newRow("find their place") << true << QStringLiteral("20 19 18 17");
        QTest::newRow("stay at the end") << false << QStringLiteral("20 18 19 17");
    }
    void addedRows() {
        QFETCH(bool, resort);
        Scene scene;
        scene.home.settings->resortOnChange = resort;
        scene.Add(18);
        scene.Add(20);
        scene.Rebuild();
        scene.Add(19);
        scene.Add(17);
        scene.Deliver();
        QTEST(scene.Days(), "days");
    }

    void changedRows_data() {
        QTest::addColumn<bool>("resort");
        QTest::addColumn<QString>("days");
        QTest::newRow("move to their place") << true << QStringLiteral("21 20 18");
        QTest::newRow("stay where they are") << false << QStringLiteral("20 21 18");
    }
    void changedRows() {
        QFETCH(bool, resort);
        Scene scene;
        scene.home.settings->resortOnChange = resort;
        scene.Add(18);
        scene.Add(20);
        const QString id = scene.Add(19);
        scene.Rebuild();
        scene.Change(id, 21);
        QTEST(scene.Days(), "days");
        QCOMPARE(scene.model.RowsOf({id}).size(), 1U);
    }

    /// A row that moves takes selection and current row along.
    void selectionGoesAlong() {
        Scene scene;
        scene.Add(18);
        scene.Add(20);
        const QString id = scene.Add(19);
        scene.Rebuild();
        QItemSelectionModel selection(&scene.model);
        selection.select(scene.model.index(scene.model.RowsOf({id}).front(), 0),
                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
        scene.Change(id, 10);
        QCOMPARE(selection.selectedRows().size(), 1);
        QCOMPARE(scene.model.IdAt(selection.selectedRows().front().row()), id);
        scene.model.SortByHeader(1);
        QCOMPARE(scene.model.IdAt(selection.selectedRows().front().row()), id);
    }

    /// The order turns round, and each selected row is where its record is.
    void selectedRowsGoAlongWithASort() {
        Scene scene;
        const QString first = scene.Add(18), last = scene.Add(21);
        scene.Add(19);
        scene.Add(20);
        scene.Rebuild();
        QItemSelectionModel selection(&scene.model);
        for (const QString& id : {first, last})
            selection.select(scene.model.index(scene.model.RowsOf({id}).front(), 0),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
        selection.setCurrentIndex(scene.model.index(1, 1), QItemSelectionModel::NoUpdate);
        scene.model.SortByHeader(1);
        QCOMPARE(scene.Days(), QStringLiteral("18 19 20 21"));
        QVERIFY(selection.isRowSelected(0) && selection.isRowSelected(3));
        QCOMPARE(selection.selectedRows().size(), 2);
        QCOMPARE(selection.currentIndex(), scene.model.index(2, 1));
    }

    /// Equal durations contradict themselves; a changed row stays among its equals.
    void equalDurationsDontJump() {
        Scene scene;
        QStringList ids;
        for (int i = 0; i < 5; ++i) ids.append(scene.Add(10 + i, "09:00", "10:00"));
        scene.home.settings->sortColumnTime = 1;
        scene.home.settings->sortAscendingTime = false;
        scene.Rebuild();
        const QString id = scene.model.IdAt(2);
        scene.Change(id, 25);
        QCOMPARE(scene.model.IdAt(2), id);
    }

    void removedRows() {
        Scene scene;
        const QString gone = scene.Add(19);
        scene.Add(18);
        scene.Add(20);
        scene.Rebuild();
        scene.model.OnHint(Hint::AboutToGo, {gone});
        QCOMPARE(scene.Days(), QStringLiteral("20 18"));
        scene.model.OnHint(Hint::AboutToGo, {gone});
        QCOMPARE(scene.model.rowCount(), 2);
    }

    /// A million rows are to be 64 MB at most, whatever was done to them since: they are filled, added to,
    /// sorted, thinned out and filtered.
    void rowsAreSmall() {
        Scene scene;
        const auto isSmall = [&scene] {
            return scene.model.BytesOfRows() >=
                       sizeof(void*) * static_cast<std::size_t>(scene.model.rowCount()) &&
                   scene.model.BytesOfRows() < 64 * static_cast<std::size_t>(scene.model.rowCount());
        };
        QStringList ids;
        for (int i = 0; i < 2000; ++i) {
            CTRecord record;
            record.date.Set(11, 1 + i % 19, 2026);
            QVERIFY(scene.home.document->AddRecord(record, false, true, true, &ids.emplaceBack()));
        }
        QVERIFY(scene.home.document->Commit());
        scene.Rebuild();
        QVERIFY(isSmall());
        for (int i = 0; i < 3; ++i) {
            scene.Add(19);
            scene.Deliver();
            QVERIFY(isSmall());
        }
        scene.home.settings->resortOnChange = false;
        scene.Add(19);
        scene.Deliver();
        QVERIFY(isSmall());
        scene.model.SortByHeader(2);
        QVERIFY(isSmall());
        scene.home.document->Filter().ApplyPreset(1, scene.home.document->PeriodNeeds());
        scene.Rebuild();
        QVERIFY(scene.model.rowCount() > 50 && scene.model.rowCount() < 200);
        QVERIFY(isSmall());
        scene.home.document->Filter().EnablePeriod(false);
        scene.Rebuild();
        scene.model.OnHint(Hint::AboutToGo, ids.mid(0, 1900));
        QCOMPARE(scene.model.rowCount(), 104);
        QVERIFY(isSmall());
        scene.model.OnHint(Hint::Clear, {});
        QCOMPARE(scene.model.BytesOfRows(), 0U);
    }

    /// What others are told of leaves the rows as they are.
    void hintsOfOthers() {
        Scene scene;
        const QString id = scene.Add(19);
        scene.Rebuild();
        QSignalSpy reset(&scene.model, &QAbstractItemModel::modelReset);
        QSignalSpy changed(&scene.model, &QAbstractItemModel::dataChanged);
        QSignalSpy removed(&scene.model, &QAbstractItemModel::rowsRemoved);
        for (const int hint : {2, 7, 11, 14}) scene.model.OnHint(static_cast<Hint>(hint), {id});
        QCOMPARE(reset.count() + changed.count() + removed.count(), 0);
        QCOMPARE(scene.model.rowCount(), 1);
    }

    /// A record without a duration is first in both directions of that column.
    void withoutADurationFirst() {
        Scene scene;
        scene.Add(18, "09:00", "10:00");
        scene.Add(19);
        scene.Add(20, "09:00", "12:00");
        scene.home.settings->sortColumnTime = 1;
        for (const bool ascending : {true, false}) {
            scene.home.settings->sortAscendingTime = ascending;
            scene.Rebuild();
            QCOMPARE(scene.Days(), ascending ? QStringLiteral("19 18 20") : QStringLiteral("19 20 18"));
        }
    }

    /// Many at once, with rows between them that stay.
    void removedManyRows() {
        Scene scene;
        QStringList gone;
        for (int i = 0; i < 200; ++i) {
            const QString id = scene.Add(1 + i % 28);
            if (i % 2) gone.append(id);
        }
        scene.Rebuild();
        scene.model.OnHint(Hint::AboutToGo, gone);
        QCOMPARE(scene.model.rowCount(), 100);
        for (const QString& id : scene.model.AllIds()) QVERIFY(!gone.contains(id));
    }

    /// By the places of records, and by their identities where one is gone or the places were given anew.
    void rowsOfRecords() {
        Scene scene;
        const QString first = scene.Add(20), second = scene.Add(19), third = scene.Add(18);
        scene.Rebuild();
        using Rows = std::vector<int>;
        QCOMPARE(scene.model.RowsOf({}), Rows());
        QCOMPARE(scene.model.RowsOf({third, first}), (Rows{0, 2}));
        QCOMPARE(scene.model.RowsOf({third, QStringLiteral("unknown")}), Rows{2});
        QVERIFY(scene.home.document->DeleteRecord(RecordKind::Time, second, false));
        QCOMPARE(scene.model.RowsOf({second}), Rows{1});
        QCOMPARE(scene.model.RowsOf({second, third}), (Rows{1, 2}));
        scene.home.document->BuildVisible();
        QCOMPARE(scene.model.RowsOf({third, first}), (Rows{0, 2}));
        scene.home.settings->resortOnChange = false;
        const QString fourth = scene.Add(17);
        scene.home.views.seen.clear();
        scene.model.OnHint(Hint::Added, {fourth});
        QCOMPARE(scene.model.RowsOf({fourth}), Rows{3});
        QCOMPARE(scene.model.RowsOf({first, fourth}), (Rows{0, 3}));
    }

    void clearEmpties() {
        Scene scene;
        scene.Add(19);
        scene.Rebuild();
        scene.model.OnHint(Hint::Clear, {});
        QCOMPARE(scene.model.rowCount(), 0);
    }

    /// The batch's records are gone from memory while their rows are still there: nothing dangles.
    void changedBehindTheList() {
        Scene scene;
        const QString id = scene.Add(19);
        scene.Rebuild();
        CTRecord record;
        record.Reset();
        record.Copy(*scene.home.document->FindTime(id));
        record.item1 = QStringLiteral("new");
        QVERIFY(scene.home.document->ModifyRecord(record, id, false, false, true, true));
        QVERIFY(scene.model.data(scene.model.index(0, 1)).toString().contains(QStringLiteral("new")));
        scene.home.document->FlushPending(Hint::Changed);
        QVERIFY(scene.home.document->DeleteRecord(RecordKind::Time, id, false));
        QVERIFY(!scene.model.data(scene.model.index(0, 1)).isValid());
    }

    void timerHintsShowTheState() {
        Scene scene;
        const QString id = scene.Add(19);
        scene.Rebuild();
        const auto image = [&] {
            return scene.model.data(scene.model.index(0, 0), CRecordListModel::ImageRole).toInt();
        };
        const auto told = [&](int role) {
            return scene.model.data(scene.model.index(0, 0), role).toString();
        };
        QCOMPARE(image(), 3);
        QVERIFY(told(Qt::AccessibleTextRole).startsWith(QStringLiteral("Date: 11/19/26, ")));
        QCOMPARE(told(Qt::ToolTipRole), QString());
        QSignalSpy changed(&scene.model, &QAbstractItemModel::dataChanged);
        scene.timers.Start(id, false, 0, 0, 0);
        scene.model.OnHint(Hint::TimerStarted, {id});
        QCOMPARE(image(), 5);
        QVERIFY(told(Qt::AccessibleTextRole).startsWith(QStringLiteral("The timer runs, Date: 11/19/26, ")));
        QCOMPARE(told(Qt::ToolTipRole), QStringLiteral("The timer runs"));
        scene.timers.Pause(id);
        scene.model.OnHint(Hint::TimerPaused, {id});
        QCOMPARE(image(), 6);
        QVERIFY(told(Qt::AccessibleTextRole).startsWith(QStringLiteral("The timer is paused, Date: ")));
        QCOMPARE(told(Qt::ToolTipRole), QStringLiteral("The timer is paused"));
        scene.timers.Stop(id);
        scene.model.OnHint(Hint::TimerStopped, {id});
        QCOMPARE(image(), 3);
        QCOMPARE(changed.count(), 3);
    }

    void cells() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        const QString id = scene.Add(19, "09:00", "17:00");
        scene.Rebuild();
        CRecordListModel& model = scene.model;
        QCOMPARE(model.data(model.index(0, 1)).toString(), QStringLiteral("11/19/26"));
        QCOMPARE(model.data(model.index(0, 2)).toString(), QStringLiteral("09:00 AM"));
        QCOMPARE(model.data(model.index(0, 3)).toString(), QStringLiteral("8.0000"));
        QCOMPARE(model.data(model.index(0, 4), CRecordListModel::ImageRole).toInt(), 0);
        QCOMPARE(model.data(model.index(0, 4), Qt::AccessibleTextRole).toString(),
                 QStringLiteral("Billable: no"));
        QVERIFY(!model.data(model.index(0, 1), CRecordListModel::ImageRole).isValid());
        QCOMPARE(model.data(model.index(0, 1), CRecordListModel::IdRole).toString(), id);
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Date"));
        QVERIFY(model.data(model.index(0, 3), Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
        QCOMPARE(model.ModelColumnOf(Column::kDuration), 3);
        scene.home.settings->listLayout = 2;
        scene.Rebuild();
        QCOMPARE(model.data(model.index(0, 1)).toString(), QStringLiteral("11/19/26"));
    }

    /// A filter keeps records out; a new record is shown whatever it says, until the next rebuild.
    void filterAndAdd() {
        Scene scene;
        scene.Add(19);
        scene.home.document->Filter().ApplyPreset(1, scene.home.document->PeriodNeeds());
        scene.Rebuild();
        QCOMPARE(scene.Days(), QStringLiteral("19"));
        scene.Add(1);
        scene.Deliver();
        QCOMPARE(scene.Days(), QStringLiteral("19 1"));
        scene.Rebuild();
        QCOMPARE(scene.Days(), QStringLiteral("19"));
    }

    /// The list's own columns, in their order, under their captions.
    void columnsOfTheSettings() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        CColSet& columns = scene.home.settings->ListColumns();
        columns.SetColumn(ColumnHalf::Time, QStringLiteral("Rate"),
                          {QStringLiteral("Per hour"), 50, 0, true});
        columns.MoveUp(ColumnHalf::Time, 2);
        scene.Rebuild();
        QCOMPARE(scene.model.VisibleColumns(), (std::vector{6, 0, 1, 13, 14, 4, 5, 9, 10, 8}));
        QCOMPARE(scene.model.columnCount(), 11);
        QCOMPARE(scene.model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Start"));
        QCOMPARE(scene.model.headerData(10, Qt::Horizontal).toString(), QStringLiteral("Per hour"));
        QCOMPARE(scene.model.CaptionOf(8), QStringLiteral("Per hour"));
    }

    void expenses() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        scene.AddExpense(18, 9.5F, false);
        scene.AddExpense(20, 100.0F, true);
        scene.AddExpense(19, 10.0F, false);
        scene.Add(5);
        scene.home.document->SwitchMode(RecordMode::Expense);
        scene.Deliver();
        CRecordListModel& model = scene.model;
        QCOMPARE(model.VisibleColumns(), (std::vector{17, 18, 27, 28, 19, 20, 21, 25}));
        const auto column = [&model](int at, int role) {
            QStringList texts;
            for (int row = 0; row < model.rowCount(); ++row)
                texts.append(model.data(model.index(row, at), role).toString());
            return texts.join(u' ');
        };
        QCOMPARE(column(1, Qt::DisplayRole), QStringLiteral("11/20/26 11/19/26 11/18/26"));
        QCOMPARE(column(0, CRecordListModel::ImageRole), QStringLiteral("9 8 8"));
        QCOMPARE(column(3, CRecordListModel::ImageRole), QStringLiteral("0 0 0"));
        QCOMPARE(column(0, Qt::ToolTipRole), QStringLiteral("Distance entry  "));
        // The first cell tells the whole record, also among columns.
        const auto told = [&model](int row) {
            return model.data(model.index(row, 0), Qt::AccessibleTextRole).toString();
        };
        QVERIFY(told(0).startsWith(QStringLiteral("Distance entry, Date: 11/20/26, Amount: 100.00")));
        QVERIFY(told(1).startsWith(QStringLiteral("Date: 11/19/26, Amount: 10.00")));
        QCOMPARE(model.headerData(5, Qt::Horizontal).toString(), QStringLiteral("Client"));
        QVERIFY(model.data(model.index(0, 2), Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
        model.SortByHeader(2);
        QCOMPARE(column(2, Qt::DisplayRole), QStringLiteral("9.50 10.00 100.00"));
        QCOMPARE(scene.home.settings->sortColumnExpense, 18);
        QVERIFY(scene.home.settings->sortAscendingExpense);
        QCOMPARE(scene.home.settings->sortColumnTime, 0);
        QVERIFY(!scene.home.settings->sortAscendingTime);
        scene.home.document->SwitchMode(RecordMode::Time);
        scene.Deliver();
        QCOMPARE(scene.Days(), QStringLiteral("5"));
        QCOMPARE(model.SortColumn(), 0);
    }

    void storedColumnOfExpensesIsHidden_data() {
        QTest::addColumn<int>("stored");
        QTest::newRow("notes, hidden") << 32;
        QTest::newRow("a column of time records") << 16;
        QTest::newRow("behind the last") << 34;
    }
    void storedColumnOfExpensesIsHidden() {
        QFETCH(int, stored);
        Scene scene;
        scene.home.settings->sortColumnExpense = stored;
        scene.home.settings->sortAscendingExpense = true;
        for (const int day : {20, 18, 19}) scene.AddExpense(day, 1.0F, false);
        scene.home.document->SwitchMode(RecordMode::Expense);
        scene.Deliver();
        QCOMPARE(scene.home.settings->sortColumnExpense, 17);
        QCOMPARE(scene.model.TextOf(0, 17), QStringLiteral("11/18/26"));
    }

    /// The document has other visible records, and nobody has told the list yet: a sort keeps its rows.
    void sortBetweenFilterAndHint() {
        Scene scene;
        for (const int day : {18, 20, 19, 17}) scene.Add(day);
        scene.Rebuild();
        scene.home.document->Filter().ApplyPreset(1, scene.home.document->PeriodNeeds());
        scene.home.document->BuildVisible();
        scene.model.SortByHeader(1);
        QCOMPARE(scene.model.rowCount(), 4);
        QStringList ids = scene.model.AllIds();
        ids.removeDuplicates();
        QCOMPARE(ids.size(), 4);
        scene.model.OnHint(Hint::Rebuild, {});
        QCOMPARE(scene.Days(), QStringLiteral("19"));
    }

    /// What the layout of lines asks of a row, and of one that is gone.
    void textsOfARow() {
        Scene scene;
        const QString id = scene.Add(19, "09:00", "17:00");
        scene.Rebuild();
        QCOMPARE(scene.model.TextOf(0, 6), QStringLiteral("09:00 AM"));
        QVERIFY(!scene.model.IsFlagSet(0, 13));
        QCOMPARE(scene.model.FlagInWordsOf(0, 13), QStringLiteral("Billable: no"));
        QVERIFY(scene.home.document->DeleteRecord(RecordKind::Time, id, false));
        QCOMPARE(scene.model.TextOf(0, 6), QString());
        QVERIFY(!scene.model.IsFlagSet(0, 13));
        QCOMPARE(scene.model.FlagInWordsOf(0, 13), QString());
    }

    /// Sorting by each visible column, both ways, over records of all sorts neither crashes nor loses a row.
    void sortByEverything() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        for (int i = 0; i < 60; ++i)
            scene.Add(1 + i % 7, i % 3 ? "09:00" : "", i % 3 == 1 ? "10:00" : i % 3 == 2 ? "11:30" : "");
        CColSet& columns = scene.home.settings->ListColumns();
        for (int column = 0; column < 17; ++column) {
            const QString caption = columns.EntryAt(column).caption;
            if (!columns.IsVisible(column))
                columns.SetColumn(ColumnHalf::Time, caption, {caption, 50, 0, true});
        }
        scene.Rebuild();
        for (int position = 1; position <= 17; ++position)
            for (int turn = 0; turn < 2; ++turn) {
                scene.model.SortByHeader(position);
                const QStringList ids = scene.model.AllIds();
                QCOMPARE(QSet<QString>(ids.begin(), ids.end()).size(), 60);
                scene.Add(3, "12:00", "13:00");
                scene.Deliver();
                scene.model.OnHint(Hint::AboutToGo, {scene.model.AllIds().last()});
            }
    }
};

QTEST_GUILESS_MAIN(TestCRecordListModel)
#include "TestCRecordListModel.moc"
