#include "viewmodel/list/CRecordListModel.h"

#include "config/ColumnTable.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

namespace {

/// A home with a list over it. What the document announces reaches the list when Deliver is called.
struct Fixture {
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
        QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Now}));
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
        QVERIFY(home.document->ModifyRecord(record, id, {Notify::Yes, Commit::Now}));
        Deliver();
    }
};

}  // namespace

class TestCRecordListModel final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void emptyList() {
        Fixture fixture;
        fixture.Rebuild();
        QCOMPARE(fixture.model.rowCount(), 0);
        QCOMPARE(fixture.model.Layout(), ListLayout::Lines);
        QCOMPARE(fixture.model.columnCount(), 2);
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
        Fixture fixture;
        fixture.home.settings->listLayout = stored;
        fixture.Rebuild();
        QTEST(static_cast<int>(fixture.model.Layout()), "layout");
        QTEST(fixture.home.settings->listLayout, "layout");
        QTEST(fixture.model.columnCount(), "columns");
    }

    void defaultOrderIsLatestFirst() {
        Fixture fixture;
        fixture.Add(18);
        fixture.Add(20);
        fixture.Add(19);
        fixture.Rebuild();
        QCOMPARE(fixture.Days(), QStringLiteral("20 19 18"));
        QCOMPARE(fixture.model.SortColumn(), 0);
        QVERIFY(!fixture.model.SortsAscending());
    }

    void headerTurnsTheOrder() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        for (const int day : {18, 20, 19}) fixture.Add(day);
        fixture.Rebuild();
        fixture.model.SortByHeader(1);
        QCOMPARE(fixture.Days(), QStringLiteral("18 19 20"));
        fixture.model.SortByHeader(1);
        QCOMPARE(fixture.Days(), QStringLiteral("20 19 18"));
        fixture.model.SortByHeader(3);
        QCOMPARE(fixture.home.settings->sortColumnTime, 1);
        QVERIFY(fixture.home.settings->sortAscendingTime);
        fixture.model.SortByHeader(0);
        fixture.model.SortByHeader(10);
        QCOMPARE(fixture.home.settings->sortColumnTime, 1);
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
        Fixture fixture;
        fixture.home.settings->sortColumnTime = stored;
        fixture.home.settings->sortAscendingTime = true;
        for (const int day : {18, 20, 19}) fixture.Add(day);
        fixture.Rebuild();
        QCOMPARE(fixture.home.settings->sortColumnTime, 0);
        QCOMPARE(fixture.Days(), QStringLiteral("18 19 20"));
    }

    void noVisibleColumn() {
        Fixture fixture;
        fixture.HideAll();
        fixture.home.settings->listLayout = 3;
        fixture.Rebuild();
        for (const int day : {18, 20, 19}) fixture.Add(day);
        fixture.Deliver();
        QCOMPARE(fixture.Days(), QStringLiteral("18 20 19"));
        fixture.model.SortByHeader(1);
        QCOMPARE(fixture.Days(), QStringLiteral("18 20 19"));
        QCOMPARE(fixture.model.SortColumn(), 600);
        QCOMPARE(fixture.model.columnCount(), 1);
    }

    void addedRows_data() {
        QTest::addColumn<bool>("resort");
        QTest::addColumn<QString>("days");
        QTest::newRow("find their place") << true << QStringLiteral("20 19 18 17");
        QTest::newRow("stay at the end") << false << QStringLiteral("20 18 19 17");
    }
    void addedRows() {
        QFETCH(bool, resort);
        Fixture fixture;
        fixture.home.settings->resortOnChange = resort;
        fixture.Add(18);
        fixture.Add(20);
        fixture.Rebuild();
        fixture.Add(19);
        fixture.Add(17);
        fixture.Deliver();
        QTEST(fixture.Days(), "days");
    }

    void changedRows_data() {
        QTest::addColumn<bool>("resort");
        QTest::addColumn<QString>("days");
        QTest::newRow("move to their place") << true << QStringLiteral("21 20 18");
        QTest::newRow("stay where they are") << false << QStringLiteral("20 21 18");
    }
    void changedRows() {
        QFETCH(bool, resort);
        Fixture fixture;
        fixture.home.settings->resortOnChange = resort;
        fixture.Add(18);
        fixture.Add(20);
        const QString id = fixture.Add(19);
        fixture.Rebuild();
        fixture.Change(id, 21);
        QTEST(fixture.Days(), "days");
        QCOMPARE(fixture.model.RowsOf({id}).size(), 1U);
    }

    /// A row that moves takes selection and current row along.
    void selectionGoesAlong() {
        Fixture fixture;
        fixture.Add(18);
        fixture.Add(20);
        const QString id = fixture.Add(19);
        fixture.Rebuild();
        QItemSelectionModel selection(&fixture.model);
        selection.select(fixture.model.index(fixture.model.RowsOf({id}).front(), 0),
                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
        fixture.Change(id, 10);
        QCOMPARE(selection.selectedRows().size(), 1);
        QCOMPARE(fixture.model.IdAt(selection.selectedRows().front().row()), id);
        fixture.model.SortByHeader(1);
        QCOMPARE(fixture.model.IdAt(selection.selectedRows().front().row()), id);
    }

    /// The order turns round, and each selected row is where its record is.
    void selectedRowsGoAlongWithASort() {
        Fixture fixture;
        const QString first = fixture.Add(18), last = fixture.Add(21);
        fixture.Add(19);
        fixture.Add(20);
        fixture.Rebuild();
        QItemSelectionModel selection(&fixture.model);
        for (const QString& id : {first, last})
            selection.select(fixture.model.index(fixture.model.RowsOf({id}).front(), 0),
                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
        selection.setCurrentIndex(fixture.model.index(1, 1), QItemSelectionModel::NoUpdate);
        fixture.model.SortByHeader(1);
        QCOMPARE(fixture.Days(), QStringLiteral("18 19 20 21"));
        QVERIFY(selection.isRowSelected(0) && selection.isRowSelected(3));
        QCOMPARE(selection.selectedRows().size(), 2);
        QCOMPARE(selection.currentIndex(), fixture.model.index(2, 1));
    }

    /// Equal durations contradict themselves; a changed row stays among its equals.
    void equalDurationsDontJump() {
        Fixture fixture;
        QStringList ids;
        for (int i = 0; i < 5; ++i) ids.append(fixture.Add(10 + i, "09:00", "10:00"));
        fixture.home.settings->sortColumnTime = 1;
        fixture.home.settings->sortAscendingTime = false;
        fixture.Rebuild();
        const QString id = fixture.model.IdAt(2);
        fixture.Change(id, 25);
        QCOMPARE(fixture.model.IdAt(2), id);
    }

    void removedRows() {
        Fixture fixture;
        const QString gone = fixture.Add(19);
        fixture.Add(18);
        fixture.Add(20);
        fixture.Rebuild();
        fixture.model.OnHint(Hint::AboutToGo, {gone});
        QCOMPARE(fixture.Days(), QStringLiteral("20 18"));
        fixture.model.OnHint(Hint::AboutToGo, {gone});
        QCOMPARE(fixture.model.rowCount(), 2);
    }

    /// A million rows are to be 64 MB at most, whatever was done to them since: they are filled, added to,
    /// sorted, thinned out and filtered.
    void rowsAreSmall() {
        Fixture fixture;
        const auto isSmall = [&fixture] {
            return fixture.model.BytesOfRows() >=
                       sizeof(void*) * static_cast<std::size_t>(fixture.model.rowCount()) &&
                   fixture.model.BytesOfRows() < 64 * static_cast<std::size_t>(fixture.model.rowCount());
        };
        QStringList ids;
        for (int i = 0; i < 2000; ++i) {
            CTRecord record;
            record.date.Set(11, 1 + i % 19, 2026);
            QVERIFY(fixture.home.document->AddRecord(record, {Notify::Later, Commit::Later, Identity::New},
                                                     &ids.emplaceBack()));
        }
        QVERIFY(fixture.home.store->Commit());
        fixture.Rebuild();
        QVERIFY(isSmall());
        for (int i = 0; i < 3; ++i) {
            fixture.Add(19);
            fixture.Deliver();
            QVERIFY(isSmall());
        }
        fixture.home.settings->resortOnChange = false;
        fixture.Add(19);
        fixture.Deliver();
        QVERIFY(isSmall());
        fixture.model.SortByHeader(2);
        QVERIFY(isSmall());
        fixture.home.document->Filter().ApplyPreset(1, fixture.home.document->GetPeriodContext());
        fixture.Rebuild();
        QVERIFY(fixture.model.rowCount() > 50 && fixture.model.rowCount() < 200);
        QVERIFY(isSmall());
        fixture.home.document->Filter().EnablePeriod(false);
        fixture.Rebuild();
        fixture.model.OnHint(Hint::AboutToGo, ids.mid(0, 1900));
        QCOMPARE(fixture.model.rowCount(), 104);
        QVERIFY(isSmall());
        fixture.model.OnHint(Hint::Clear, {});
        QCOMPARE(fixture.model.BytesOfRows(), 0U);
    }

    /// Hints for others leave the rows as they are.
    void hintsOfOthers() {
        Fixture fixture;
        const QString id = fixture.Add(19);
        fixture.Rebuild();
        QSignalSpy reset(&fixture.model, &QAbstractItemModel::modelReset);
        QSignalSpy changed(&fixture.model, &QAbstractItemModel::dataChanged);
        QSignalSpy removed(&fixture.model, &QAbstractItemModel::rowsRemoved);
        for (const int hint : {2, 7, 11, 14}) fixture.model.OnHint(static_cast<Hint>(hint), {id});
        QCOMPARE(reset.count() + changed.count() + removed.count(), 0);
        QCOMPARE(fixture.model.rowCount(), 1);
    }

    /// A record without a duration is first in both directions of that column.
    void withoutADurationFirst() {
        Fixture fixture;
        fixture.Add(18, "09:00", "10:00");
        fixture.Add(19);
        fixture.Add(20, "09:00", "12:00");
        fixture.home.settings->sortColumnTime = 1;
        for (const bool ascending : {true, false}) {
            fixture.home.settings->sortAscendingTime = ascending;
            fixture.Rebuild();
            QCOMPARE(fixture.Days(), ascending ? QStringLiteral("19 18 20") : QStringLiteral("19 20 18"));
        }
    }

    /// Many at once, with rows between them that stay.
    void removedManyRows() {
        Fixture fixture;
        QStringList gone;
        for (int i = 0; i < 200; ++i) {
            const QString id = fixture.Add(1 + i % 28);
            if (i % 2) gone.append(id);
        }
        fixture.Rebuild();
        fixture.model.OnHint(Hint::AboutToGo, gone);
        QCOMPARE(fixture.model.rowCount(), 100);
        for (const QString& id : fixture.model.AllIds()) QVERIFY(!gone.contains(id));
    }

    /// By the places of records, and by their identities where one is gone or the places were given anew.
    void rowsOfRecords() {
        Fixture fixture;
        const QString first = fixture.Add(20), second = fixture.Add(19), third = fixture.Add(18);
        fixture.Rebuild();
        using Rows = std::vector<int>;
        QCOMPARE(fixture.model.RowsOf({}), Rows());
        QCOMPARE(fixture.model.RowsOf({third, first}), (Rows{0, 2}));
        QCOMPARE(fixture.model.RowsOf({third, QStringLiteral("unknown")}), Rows{2});
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Time, second, Notify::Later));
        QCOMPARE(fixture.model.RowsOf({second}), Rows{1});
        QCOMPARE(fixture.model.RowsOf({second, third}), (Rows{1, 2}));
        fixture.home.document->BuildVisible();
        QCOMPARE(fixture.model.RowsOf({third, first}), (Rows{0, 2}));
        fixture.home.settings->resortOnChange = false;
        const QString fourth = fixture.Add(17);
        fixture.home.views.seen.clear();
        fixture.model.OnHint(Hint::Added, {fourth});
        QCOMPARE(fixture.model.RowsOf({fourth}), Rows{3});
        QCOMPARE(fixture.model.RowsOf({first, fourth}), (Rows{0, 3}));
    }

    void clearEmpties() {
        Fixture fixture;
        fixture.Add(19);
        fixture.Rebuild();
        fixture.model.OnHint(Hint::Clear, {});
        QCOMPARE(fixture.model.rowCount(), 0);
    }

    /// The batch's records are gone from memory while their rows are still there: nothing dangles.
    void changedBehindTheList() {
        Fixture fixture;
        const QString id = fixture.Add(19);
        fixture.Rebuild();
        CTRecord record;
        record.Reset();
        record.Copy(*fixture.home.document->FindTime(id));
        record.item1 = QStringLiteral("new");
        QVERIFY(fixture.home.document->ModifyRecord(record, id, {Notify::Later, Commit::Now}));
        QVERIFY(fixture.model.data(fixture.model.index(0, 1)).toString().contains(QStringLiteral("new")));
        fixture.home.document->FlushPending(Hint::Changed);
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Time, id, Notify::Later));
        QVERIFY(!fixture.model.data(fixture.model.index(0, 1)).isValid());
    }

    void timerHintsShowTheState() {
        Fixture fixture;
        const QString id = fixture.Add(19);
        fixture.Rebuild();
        const auto image = [&] {
            return fixture.model.data(fixture.model.index(0, 0), CRecordListModel::ImageRole).toInt();
        };
        const auto told = [&](int role) {
            return fixture.model.data(fixture.model.index(0, 0), role).toString();
        };
        QCOMPARE(image(), 3);
        QVERIFY(told(Qt::AccessibleTextRole).startsWith(QStringLiteral("Date: 11/19/26, ")));
        QCOMPARE(told(Qt::ToolTipRole), QString());
        QSignalSpy changed(&fixture.model, &QAbstractItemModel::dataChanged);
        fixture.timers.Start(id, false, 0, 0, 0);
        fixture.model.OnHint(Hint::TimerStarted, {id});
        QCOMPARE(image(), 5);
        QVERIFY(told(Qt::AccessibleTextRole).startsWith(QStringLiteral("The timer runs, Date: 11/19/26, ")));
        QCOMPARE(told(Qt::ToolTipRole), QStringLiteral("The timer runs"));
        fixture.timers.Pause(id);
        fixture.model.OnHint(Hint::TimerPaused, {id});
        QCOMPARE(image(), 6);
        QVERIFY(told(Qt::AccessibleTextRole).startsWith(QStringLiteral("The timer is paused, Date: ")));
        QCOMPARE(told(Qt::ToolTipRole), QStringLiteral("The timer is paused"));
        fixture.timers.Stop(id);
        fixture.model.OnHint(Hint::TimerStopped, {id});
        QCOMPARE(image(), 3);
        QCOMPARE(changed.count(), 3);
    }

    void cells() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        const QString id = fixture.Add(19, "09:00", "17:00");
        fixture.Rebuild();
        CRecordListModel& model = fixture.model;
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
        fixture.home.settings->listLayout = 2;
        fixture.Rebuild();
        QCOMPARE(model.data(model.index(0, 1)).toString(), QStringLiteral("11/19/26"));
    }

    /// A filter keeps records out; a new record is shown whatever it says, until the next rebuild.
    void filterAndAdd() {
        Fixture fixture;
        fixture.Add(19);
        fixture.home.document->Filter().ApplyPreset(1, fixture.home.document->GetPeriodContext());
        fixture.Rebuild();
        QCOMPARE(fixture.Days(), QStringLiteral("19"));
        fixture.Add(1);
        fixture.Deliver();
        QCOMPARE(fixture.Days(), QStringLiteral("19 1"));
        fixture.Rebuild();
        QCOMPARE(fixture.Days(), QStringLiteral("19"));
    }

    /// The list's own columns, in their order, under their captions.
    void columnsOfTheSettings() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        CColSet& columns = fixture.home.settings->ListColumns();
        columns.SetColumn(ColumnHalf::Time, QStringLiteral("Rate"),
                          {QStringLiteral("Per hour"), 50, 0, true});
        columns.MoveUp(ColumnHalf::Time, 2);
        fixture.Rebuild();
        QCOMPARE(fixture.model.VisibleColumns(), (std::vector{6, 0, 1, 13, 14, 4, 5, 9, 10, 8}));
        QCOMPARE(fixture.model.columnCount(), 11);
        QCOMPARE(fixture.model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Start"));
        QCOMPARE(fixture.model.headerData(10, Qt::Horizontal).toString(), QStringLiteral("Per hour"));
        QCOMPARE(fixture.model.CaptionOf(8), QStringLiteral("Per hour"));
    }

    void expenses() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        fixture.AddExpense(18, 9.5F, false);
        fixture.AddExpense(20, 100.0F, true);
        fixture.AddExpense(19, 10.0F, false);
        fixture.Add(5);
        fixture.home.document->SwitchMode(RecordMode::Expense);
        fixture.Deliver();
        CRecordListModel& model = fixture.model;
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
        QCOMPARE(fixture.home.settings->sortColumnExpense, 18);
        QVERIFY(fixture.home.settings->sortAscendingExpense);
        QCOMPARE(fixture.home.settings->sortColumnTime, 0);
        QVERIFY(!fixture.home.settings->sortAscendingTime);
        fixture.home.document->SwitchMode(RecordMode::Time);
        fixture.Deliver();
        QCOMPARE(fixture.Days(), QStringLiteral("5"));
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
        Fixture fixture;
        fixture.home.settings->sortColumnExpense = stored;
        fixture.home.settings->sortAscendingExpense = true;
        for (const int day : {20, 18, 19}) fixture.AddExpense(day, 1.0F, false);
        fixture.home.document->SwitchMode(RecordMode::Expense);
        fixture.Deliver();
        QCOMPARE(fixture.home.settings->sortColumnExpense, 17);
        QCOMPARE(fixture.model.TextOf(0, 17), QStringLiteral("11/18/26"));
    }

    /// The document has other visible records, and nobody has told the list yet: a sort keeps its rows.
    void sortBetweenFilterAndHint() {
        Fixture fixture;
        for (const int day : {18, 20, 19, 17}) fixture.Add(day);
        fixture.Rebuild();
        fixture.home.document->Filter().ApplyPreset(1, fixture.home.document->GetPeriodContext());
        fixture.home.document->BuildVisible();
        fixture.model.SortByHeader(1);
        QCOMPARE(fixture.model.rowCount(), 4);
        QStringList ids = fixture.model.AllIds();
        ids.removeDuplicates();
        QCOMPARE(ids.size(), 4);
        fixture.model.OnHint(Hint::Rebuild, {});
        QCOMPARE(fixture.Days(), QStringLiteral("19"));
    }

    /// What the layout of lines asks of a row, and of one that is gone.
    void textsOfARow() {
        Fixture fixture;
        const QString id = fixture.Add(19, "09:00", "17:00");
        fixture.Rebuild();
        QCOMPARE(fixture.model.TextOf(0, 6), QStringLiteral("09:00 AM"));
        QVERIFY(!fixture.model.IsFlagSet(0, 13));
        QCOMPARE(fixture.model.FlagInWordsOf(0, 13), QStringLiteral("Billable: no"));
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Time, id, Notify::Later));
        QCOMPARE(fixture.model.TextOf(0, 6), QString());
        QVERIFY(!fixture.model.IsFlagSet(0, 13));
        QCOMPARE(fixture.model.FlagInWordsOf(0, 13), QString());
    }

    /// Sorting by each visible column, both ways, over records of all sorts neither crashes nor loses a row.
    void sortByEverything() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        for (int i = 0; i < 60; ++i)
            fixture.Add(1 + i % 7, i % 3 ? "09:00" : "", i % 3 == 1 ? "10:00" : i % 3 == 2 ? "11:30" : "");
        CColSet& columns = fixture.home.settings->ListColumns();
        for (int column = 0; column < 17; ++column) {
            const QString caption = columns.EntryAt(column).caption;
            if (!columns.IsVisible(column))
                columns.SetColumn(ColumnHalf::Time, caption, {caption, 50, 0, true});
        }
        fixture.Rebuild();
        for (int position = 1; position <= 17; ++position)
            for (int turn = 0; turn < 2; ++turn) {
                fixture.model.SortByHeader(position);
                const QStringList ids = fixture.model.AllIds();
                QCOMPARE(QSet<QString>(ids.begin(), ids.end()).size(), 60);
                fixture.Add(3, "12:00", "13:00");
                fixture.Deliver();
                fixture.model.OnHint(Hint::AboutToGo, {fixture.model.AllIds().last()});
            }
    }
};

TEST_CLASS(TestCRecordListModel);
#include "TestCRecordListModel.moc"
