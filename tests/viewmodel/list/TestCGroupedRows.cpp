#include "viewmodel/list/CGroupedRows.h"

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/CShownRows.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A list, last day first, in groups of days. What the document announces reaches the list at once.
struct Fixture {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel list{*home.document, timers, *home.settings};
    CShownRows found{list};
    CGroupedRows rows{list, found, *home.settings};
    QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::QtTest};

    explicit Fixture(std::initializer_list<int> days = {}) {
        home.settings->listGroups = 1;
        home.clock.Set(2026, 11, 19, 12, 0);
        for (const int day : days) (void)Add(day);
        Rebuild();
        rows.Begin(false);
    }
    QString Add(int day, const QString& client = {}, int minutes = 0, float amount = 0.0F,
                const QString& currency = {}) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        record.item1 = client;
        record.item5 = currency;
        if (minutes > 0) record.spans.effective.Set(minutes / 60, minutes % 60);
        if (amount > 0.0F) record.amount.Set(amount);
        QString id;
        [&] { QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id)); }();
        Deliver();
        return id;
    }
    void Change(int listRow, const std::function<void(CTRecord&)>& change) {
        const QString id = list.IdAt(listRow);
        CTRecord record;
        record.Copy(*home.document->FindTime(id));
        change(record);
        [&] { QVERIFY(home.document->ModifyRecord(record, id, {Notify::Yes, Commit::Now})); }();
        Deliver();
    }
    void Remove(int listRow) {
        const QString id = list.IdAt(listRow);
        [&] { QVERIFY(home.document->DeleteRecord(RecordKind::Time, id, Notify::Yes)); }();
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
    /// "[Thu] 19 19 [Wed]": heads by the first day of their groups, records by their days; "+" when folded.
    [[nodiscard]] QString Picture() const {
        QStringList places;
        for (int row = 0; row < rows.rowCount(); ++row) {
            if (rows.IsHead(row)) {
                places << (rows.HeadAt(row).isFolded ? u"+"_s : QString()) +
                              QString::number(rows.FirstDayOf(row) % 32) + u':';
                continue;
            }
            const QString id = rows.index(row, 0).data(CRecordListModel::IdRole).toString();
            places << QString::number(home.document->FindTime(id)->date.day);
        }
        return places.join(u' ');
    }
    [[nodiscard]] QString Sums(int day) const {
        const int head = rows.HeadOfDay((2026 * 16 + 11) * 32 + static_cast<std::uint32_t>(day));
        const GroupHead words = rows.HeadAt(head);
        return QStringList{words.count, words.hours, words.money}.join(u" | "_s);
    }
};

}  // namespace

class TestCGroupedRows final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void HeadsAboveDays() {
        Fixture t{17, 19, 18, 17};
        QCOMPARE(t.Picture(), u"19: 19 18: 18 17: 17 17"_s);
        t.list.SortByHeader(1);
        QCOMPARE(t.Picture(), u"17: 17 17 18: 18 19: 19"_s);
        t.home.settings->listGroups = 2;
        t.Rebuild();
        QCOMPARE(t.Picture(), u"15: 17 17 18 19"_s);
        t.home.settings->listGroups = 3;
        t.Rebuild();
        QCOMPARE(t.Picture(), u"1: 17 17 18 19"_s);
    }

    void TodaysHeadIsAlwaysThere() {
        Fixture t{18, 17};
        QCOMPARE(t.Picture(), u"19: 18: 18 17: 17"_s);
        QCOMPARE(t.Sums(19), u"no records |  | "_s);
        (void)t.Add(19);
        QCOMPARE(t.Picture(), u"19: 19 18: 18 17: 17"_s);
        t.Remove(0);
        QCOMPARE(t.Picture(), u"19: 18: 18 17: 17"_s);
        t.Remove(0);
        t.Remove(0);
        QCOMPARE(t.Picture(), QString());  // an empty list has something else to say
        (void)t.Add(12);
        QCOMPARE(t.Picture(), u"19: 12: 12"_s);
    }

    void NotOutsideThePeriod() {
        Fixture t{18, 17};
        QVERIFY(t.home.document->Filter().ApplyPreset(PeriodCode::kYesterday,
                                                      t.home.document->GetPeriodContext()));
        t.Rebuild();
        QCOMPARE(t.Picture(), u"18: 18"_s);
    }

    /// By another column the records of a day stand apart: no heads.
    void OnlyWhileSortedByDate() {
        Fixture t{18, 19};
        const auto position = std::ranges::find(t.list.VisibleColumns(), Column::kItem1);
        t.list.SortByHeader(static_cast<int>(position - t.list.VisibleColumns().begin()) + 1);
        QCOMPARE(t.rows.rowCount(), 2);
        QVERIFY(!t.rows.IsHead(0));
        t.list.SortByHeader(1);
        QCOMPARE(t.Picture(), u"18: 18 19: 19"_s);
    }

    /// Hours of all currencies, amounts by currency; after each change those of the records as they are.
    void Sums() {
        Fixture t;
        (void)t.Add(18, u"A"_s, 90, 100.0F, u"EUR"_s);
        (void)t.Add(18, u"B"_s, 45, 10.5F, u"USD"_s);
        (void)t.Add(17, u"A"_s, 30);
        QCOMPARE(t.Sums(18), u"2 records | 2.2500 h | EUR 100.00 · USD 10.50"_s);
        QCOMPARE(t.Sums(17), u"1 record | 0.5000 h | "_s);
        t.home.settings->spanDisplayFormat = 1;
        t.Rebuild();
        QCOMPARE(t.Sums(18), u"2 records | 2:15 h | EUR 100.00 · USD 10.50"_s);
        t.Change(0, [](CTRecord& record) { record.spans.effective.Set(3, 0); });
        QVERIFY(t.Sums(18) != u"2 records | 2:15 h | EUR 100.00 · USD 10.50"_s);
        t.Remove(1);
        QVERIFY(t.Sums(18).startsWith(u"1 record"_s));
        (void)t.Add(17, u"A"_s, 60);
        QCOMPARE(t.Sums(17), u"2 records | 1:30 h | "_s);
    }

    /// The head says so at once when its records change, and not for each second of a timer.
    void HeadIsToldOfChanges() {
        Fixture t{19, 18};
        QSignalSpy changed(&t.rows, &QAbstractItemModel::dataChanged);
        const auto heads = [&] {
            QStringList rows;
            for (const QList<QVariant>& change : changed)
                rows << QString::number(change[0].toModelIndex().row());
            changed.clear();
            return rows.join(u' ');
        };
        t.Change(1, [](CTRecord& record) { record.item1 = u"Other"_s; });
        QCOMPARE(heads(), u"3 2"_s);
        t.list.TouchTimers(0, 0);
        QVERIFY(!heads().contains(u'0'));
        t.Remove(1);
        QVERIFY(!heads().isEmpty());
    }

    void ComingAndGoing() {
        Fixture t{19, 17};
        QSignalSpy reset(&t.rows, &QAbstractItemModel::modelReset);
        (void)t.Add(18);
        QCOMPARE(t.Picture(), u"19: 19 18: 18 17: 17"_s);
        (void)t.Add(17);
        (void)t.Add(30);
        QCOMPARE(t.Picture(), u"30: 30 19: 19 18: 18 17: 17 17"_s);
        t.Remove(2);
        QCOMPARE(t.Picture(), u"30: 30 19: 19 17: 17 17"_s);
        t.Change(1, [](CTRecord& record) { record.date.Set(11, 20, 2026); });
        QCOMPARE(t.Picture(), u"30: 30 20: 20 19: 17: 17 17"_s);
        t.Change(0, [](CTRecord& record) { record.date.Set(11, 1, 2026); });
        QCOMPARE(t.Picture(), u"20: 20 19: 17: 17 17 1: 1"_s);
        QCOMPARE(reset.count(), 0);
    }

    /// Without a new sort, rows stay where they are, and so a day can have several heads.
    void WithoutResort() {
        Fixture t{19, 17};
        t.home.settings->resortOnChange = false;
        (void)t.Add(18);
        (void)t.Add(18);
        QCOMPARE(t.Picture(), u"19: 19 17: 17 18: 18 18"_s);
        (void)t.Add(19);
        QCOMPARE(t.Picture(), u"19: 19 17: 17 18: 18 18 19: 19"_s);
        t.Change(2, [](CTRecord& record) { record.date.Set(11, 17, 2026); });
        QCOMPARE(t.Picture(), u"19: 19 17: 17 17 18: 18 19: 19"_s);
        t.Remove(3);
        QCOMPARE(t.Picture(), u"19: 19 17: 17 17 19: 19"_s);
    }

    void ManyAtOnce() {
        Fixture t{19, 17};
        QStringList ids;
        for (int i = 0; i < 100; ++i) {
            CTRecord record;
            record.Reset();
            record.date.Set(10, 1 + i % 28, 2026 - i % 5);
            QString id;
            QVERIFY(t.home.document->AddRecord(record, {Notify::Later, Commit::Later, Identity::New}, &id));
            ids << id;
        }
        t.list.OnHint(Hint::Added, ids);
        QCOMPARE(t.list.rowCount(), 102);
        int records = 0;
        for (int row = 0; row < t.rows.rowCount(); ++row)
            if (!t.rows.IsHead(row)) ++records;
        QCOMPARE(records, 102);
        QCOMPARE(t.rows.SourceRowOf(1), 0);
        t.list.OnHint(Hint::AboutToGo, ids);
        QCOMPARE(t.Picture(), u"19: 19 17: 17"_s);
    }

    void Folding() {
        Fixture t{19, 18, 18, 17};
        const QPersistentModelIndex record(t.rows.index(6, 0));
        t.rows.SetFolded(2, true);
        QCOMPARE(t.Picture(), u"19: 19 +18: 17: 17"_s);
        QCOMPARE(record.row(), 4);
        QCOMPARE(t.rows.RowOf(1), -1);
        QCOMPARE(t.rows.HeadOfSource(1), 2);
        t.Rebuild();
        QCOMPARE(t.Picture(), u"19: 19 +18: 17: 17"_s);
        (void)t.Add(18);
        QCOMPARE(t.Picture(), u"19: 19 +18: 17: 17"_s);
        QVERIFY(t.Sums(18).startsWith(u"3 records"_s));
        t.Remove(1);
        t.rows.Show({2});
        QCOMPARE(t.Picture(), u"19: 19 18: 18 18 17: 17"_s);
        t.rows.SetAllFolded(true);
        QVERIFY(t.rows.AreAllFolded());
        QCOMPARE(t.Picture(), u"+19: +18: +17:"_s);
        t.rows.SetAllFolded(false);
        QVERIFY(!t.rows.IsAnyFolded());
        QCOMPARE(t.rows.rowCount(), 7);
        t.rows.SetFolded(0, true);
        t.home.settings->listGroups = 2;
        t.Rebuild();
        t.home.settings->listGroups = 1;
        t.Rebuild();
        QVERIFY(!t.rows.IsAnyFolded());
    }

    /// What was found is seen, whatever was folded before; at the end it is folded again.
    void FindingUnfolds() {
        Fixture t;
        (void)t.Add(18, u"Bakery"_s);
        (void)t.Add(18, u"Site"_s);
        (void)t.Add(17, u"Bakery"_s);
        t.rows.SetFolded(1, true);
        QCOMPARE(t.Picture(), u"19: +18: 17: 17"_s);
        t.found.Find(u"bakery"_s);
        t.rows.Begin(true);
        QCOMPARE(t.Picture(), u"18: 18 17: 17"_s);
        t.rows.SetFolded(2, true);
        t.found.Find(u"baker"_s);
        QCOMPARE(t.Picture(), u"18: 18 +17:"_s);
        (void)t.Add(12, u"Bakery"_s);
        QCOMPARE(t.Picture(), u"18: 18 +17: 12: 12"_s);
        t.found.Find({});
        t.rows.Begin(false);
        QCOMPARE(t.Picture(), u"19: +18: 17: 17 12: 12"_s);
        t.rows.End();
        QCOMPARE(t.rows.rowCount(), 0);
    }

    /// Who points to a record or a head still does after a sort.
    void PointersFollow() {
        Fixture t{19, 18, 18, 17};
        const QPersistentModelIndex head(t.rows.index(2, 1)), record(t.rows.index(6, 0));
        const QString id = record.data(CRecordListModel::IdRole).toString();
        t.list.SortByHeader(1);
        QCOMPARE(t.Picture(), u"17: 17 18: 18 18 19: 19"_s);
        QCOMPARE(head.row(), 2);
        QCOMPARE(head.column(), 1);
        QCOMPARE(record.row(), 1);
        QCOMPARE(record.data(CRecordListModel::IdRole).toString(), id);
    }

    /// A head is no record: nothing to select, no identity; it speaks, and its words say all that it shows.
    void HeadsAreNoRecords() {
        Fixture t;
        (void)t.Add(18, u"A"_s, 90, 100.0F, u"EUR"_s);
        const QModelIndex head = t.rows.index(1, 0), record = t.rows.index(2, 0);
        QCOMPARE(head.data(CRecordListModel::OrderRole).toInt(), -1);
        QCOMPARE(record.data(CRecordListModel::OrderRole).toInt(), 0);
        QVERIFY(!head.flags().testFlag(Qt::ItemIsSelectable) && head.flags().testFlag(Qt::ItemIsEnabled));
        QVERIFY(record.flags().testFlag(Qt::ItemIsSelectable));
        QVERIFY(head.data(CRecordListModel::IdRole).toString().isEmpty());
        QVERIFY(!t.rows.mapToSource(head).isValid());
        QCOMPARE(head.data(Qt::AccessibleTextRole).toString(),
                 u"Yesterday, Wednesday 11/18/26, 1 record, 1.5000 h, EUR 100.00, unfolded"_s);
        t.rows.SetFolded(1, true);
        QVERIFY(t.rows.index(1, 0).data(Qt::AccessibleTextRole).toString().endsWith(u", folded"_s));
        QCOMPARE(t.rows.RecordsIn(0, 1), 0);
    }
};

TEST_CLASS(TestCGroupedRows);
#include "TestCGroupedRows.moc"
