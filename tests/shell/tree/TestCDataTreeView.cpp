#include "shell/tree/CDataTreeView.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/look/IconTheme.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/tree/CDataTreeModel.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QStyledItemDelegate>
#include <QTest>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A tree on screen over a document whose hints reach it.
class Fixture final : public CViewListener {
 public:
    TestHome home;
    CNoPump pump;
    CVelmarchDoc document{{*home.store, *this, pump, home.clock, *home.settings}};
    CDataTreeView view{document, *home.settings, home.prompt};
    int rebuilds = 0;

    Fixture() {
        [&] { QVERIFY(document.Store().BeginBatch()); }();
        Rebuild();
    }
    ~Fixture() override { static_cast<void>(document.Store().Commit()); }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    void OnHint(Hint hint, const QStringList& ids) override {
        if (hint == Hint::Rebuild) ++rebuilds;
        view.OnHint(hint, ids);
    }
    void Rebuild() {
        document.BuildVisible();
        document.NotifyViews(Hint::Rebuild);
    }
    QString Add(const QString& client, const QString& project, int day = 21) {
        CTRecord record;
        record.date.Set(11, day, 2026);
        record.item1 = client;
        record.item2 = project;
        QString id;
        [&] { QVERIFY(document.AddRecord(record, {Notify::Yes, Commit::Later, Identity::New}, &id)); }();
        return id;
    }
    [[nodiscard]] QAbstractItemModel& Model() const { return *view.model(); }
    [[nodiscard]] QModelIndex Root() const { return Model().index(0, 0, {}); }
    /// The node at the end of a path of texts; invalid when there is none.
    [[nodiscard]] QModelIndex At(const QStringList& path) const {
        QModelIndex at = Root();
        for (const QString& text : path) {
            QModelIndex next;
            for (int row = 0; row < Model().rowCount(at); ++row)
                if (Model().index(row, 0, at).data().toString() == text) next = Model().index(row, 0, at);
            if (!next.isValid()) return {};
            at = next;
        }
        return at;
    }
    [[nodiscard]] QString CountAt(const QStringList& path) const {
        return At(path).siblingAtColumn(CDataTreeModel::CountSection).data().toString();
    }
    void Select(const QStringList& path) { view.setCurrentIndex(At(path)); }
};

}  // namespace

class TestCDataTreeView final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void textsAndCounts() {
        Fixture fixture;
        fixture.Add(u"B"_s, u"x"_s);
        fixture.Add(u"A"_s, u"y"_s);
        fixture.Add(u"A"_s, u"x"_s);
        QCOMPARE(fixture.Root().data().toString(), u"All"_s);
        QCOMPARE(fixture.CountAt({}), QString());
        QCOMPARE(fixture.At({u"A"_s}).row(), 0);
        QCOMPARE(fixture.CountAt({u"A"_s}), u"2"_s);
        QCOMPARE(fixture.CountAt({u"A"_s, u"y"_s}), u"1"_s);
        QCOMPARE(fixture.CountAt({u"B"_s}), u"1"_s);
        QVERIFY(fixture.view.isExpanded(fixture.Root()));
        QCOMPARE(fixture.At({u"A"_s}).data(Qt::AccessibleTextRole).toString(), u"A: 2"_s);
    }

    void selectingANodeNarrowsTheListAndKeepsTheTree() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"A"_s, u"y"_s);
        fixture.Add(u"B"_s, u"x"_s);
        const int before = fixture.rebuilds;
        fixture.Select({u"A"_s, u"y"_s});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        QCOMPARE(fixture.rebuilds, before + 1);
        QVERIFY(fixture.document.Filter().matchWhole && fixture.document.Filter().matchCase);
        QVERIFY(fixture.At({u"B"_s}).isValid());
        fixture.Select({u"B"_s});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        fixture.Select({u"A"_s});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{2});
    }

    /// Screen readers select a row without moving the cursor to it.
    void aNodeSelectedByAScreenReaderNarrowsTheList() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"A"_s, u"y"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view));
        QAccessibleTableInterface* rows =
            QAccessible::queryAccessibleInterface(&fixture.view)->tableInterface();
        QCOMPARE(rows->cellAt(2, 0)->text(QAccessible::Name), u"B: 1"_s);
        const int before = fixture.rebuilds;
        QVERIFY(rows->selectRow(2));
        QCOMPARE(fixture.view.currentIndex(), fixture.At({u"B"_s}));
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        QCOMPARE(fixture.rebuilds, before + 1);
        QVERIFY(rows->selectRow(1));
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{2});
        QCOMPARE(fixture.view.selectionModel()->selectedRows().size(), 1);
        QVERIFY(rows->selectRow(0));
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{3});
        QVERIFY(!fixture.view.HasNode());
    }

    void theRootClearsTheConditionsAndKeepsThePeriod() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s, 21);
        fixture.Add(u"B"_s, u"x"_s, 21);
        fixture.Add(u"B"_s, u"x"_s, 20);
        QVERIFY(
            fixture.document.Filter().SetSingleDate(u"11/21/2026"_s, fixture.document.GetPeriodContext()));
        const int preset = fixture.document.Filter().preset;
        fixture.Rebuild();
        fixture.Select({u"B"_s});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        fixture.Select({});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{2});
        QCOMPARE(fixture.document.Filter().preset, preset);
        QVERIFY(!fixture.view.HasNode());
    }

    void recordsThatComeWhileNarrowedAreCountedIn() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.Add(u"B"_s, u"y"_s);
        fixture.Select({u"A"_s});
        const QString id = fixture.Add(u"A"_s, u"z"_s);
        QCOMPARE(fixture.CountAt({u"A"_s}), u"2"_s);
        QCOMPARE(fixture.CountAt({u"B"_s}), u"2"_s);
        QVERIFY(fixture.document.DeleteRecord(RecordKind::Time, id, Notify::Yes));
        QCOMPARE(fixture.CountAt({u"A"_s}), u"1"_s);
        QVERIFY(!fixture.At({u"A"_s, u"z"_s}).isValid());
        QCOMPARE(fixture.CountAt({u"B"_s}), u"2"_s);
    }

    /// All records are read again: the other nodes stay as well, with their counts.
    void whatIsOpenAndSelectedOutlivesARebuild() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.Add(u"B"_s, u"y"_s);
        fixture.view.expand(fixture.At({u"B"_s}));
        fixture.Select({u"A"_s});
        const int before = fixture.rebuilds;
        fixture.document.LoadCurrentMode();
        fixture.Rebuild();
        QCOMPARE(fixture.rebuilds, before + 1);  // taking the selection up filters nothing
        QVERIFY(fixture.view.isExpanded(fixture.At({u"B"_s})));
        QVERIFY(!fixture.view.isExpanded(fixture.At({u"A"_s})));
        QCOMPARE(fixture.view.currentIndex(), fixture.At({u"A"_s}));
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        QCOMPARE(fixture.CountAt({u"B"_s}), u"2"_s);
        QCOMPARE(fixture.CountAt({u"B"_s, u"y"_s}), u"1"_s);
    }

    void theSelectedNodeIsWhatTheListShows_data() {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QStringList>("clients");
        const QStringList both{u"A"_s, u"B"_s};
        QTest::newRow("another period: the node goes on holding") << u"period"_s << u"A"_s << both;
        QTest::newRow("no condition any more: everything") << u"none"_s << u"All"_s << both;
        QTest::newRow("a condition more: no node") << u"billable"_s << QString() << QStringList{u"A"_s};
        QTest::newRow("another client by a command: no node") << u"B"_s << QString() << QStringList{u"B"_s};
    }
    /// A node was selected, and then the filter is changed elsewhere.
    void theSelectedNodeIsWhatTheListShows() {
        QFETCH(QString, filter);
        QFETCH(QStringList, clients);
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.Select({u"A"_s});
        TimeFilter& conditions = fixture.document.Filter();
        if (filter == u"period"_s)
            QVERIFY(conditions.SetSingleDate(u"11/21/2026"_s, fixture.document.GetPeriodContext()));
        if (filter == u"none"_s) conditions.Reset();
        if (filter == u"billable"_s) conditions.billable = FlagCriterion::kClear;
        if (filter == u"B"_s) conditions.items[0] = u"B"_s;
        fixture.Rebuild();
        QTEST(fixture.view.currentIndex().data().toString(), "selected");
        QCOMPARE(fixture.view.HasNode(), filter == u"period"_s);
        QStringList shown;
        for (int row = 0; row < fixture.Model().rowCount(fixture.Root()); ++row)
            shown << fixture.Model().index(row, 0, fixture.Root()).data().toString();
        QCOMPARE(shown, clients);
    }

    /// Each mode has a filter of its own, and so a node of its own.
    void theSelectedNodeOfEachMode() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        CERecord expense;
        expense.GenUnique();
        expense.item1 = u"A"_s;
        QVERIFY(fixture.document.AddRecord(expense, {Notify::Yes, Commit::Later}));
        fixture.Select({u"A"_s});
        fixture.document.SwitchMode(RecordMode::Expense);
        QCOMPARE(fixture.view.currentIndex(), fixture.Root());
        fixture.Select({u"A"_s});
        fixture.document.FilterOfExpenses().Reset();
        fixture.document.SwitchMode(RecordMode::Time);
        QCOMPARE(fixture.view.currentIndex(), fixture.At({u"A"_s}));
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        QVERIFY(fixture.At({u"B"_s}).isValid());
        fixture.document.SwitchMode(RecordMode::Expense);
        QCOMPARE(fixture.view.currentIndex(), fixture.Root());
        fixture.document.SwitchMode(RecordMode::Time);
    }

    /// The path of the selected node goes through columns that are no levels any more.
    void theLevelsChangeWhileANodeIsSelected() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"A"_s);
        fixture.Select({u"A"_s});
        fixture.home.settings->TreeColumns().ShowExactly(ColumnHalf::Time, {Column::kItem2});
        fixture.Rebuild();
        QVERIFY(!fixture.view.HasNode());
        QVERIFY(fixture.view.selectionModel()->selectedRows().isEmpty());
    }

    void aClickOnTheSelectedNodeNarrowsAgain() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.view.show();
        const auto click = [&fixture] {
            const QPoint at = fixture.view.visualRect(fixture.At({u"A"_s})).center();
            QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, at);
        };
        click();
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        fixture.document.ResetTimeFilter();
        fixture.document.NotifyViews(Hint::Rebuild);
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{2});
        QCOMPARE(fixture.view.currentIndex(), fixture.Root());
        click();
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        const int before = fixture.rebuilds;
        click();
        QCOMPARE(fixture.rebuilds, before);
    }

    void theOnlyRecordOfTheSelectedNodeIsEdited_data() {
        QTest::addColumn<QString>("client");
        QTest::addColumn<QString>("selected");
        QTest::newRow("its client stays: so does the selection, and the node open") << u"A"_s << u"A"_s;
        QTest::newRow("it goes to another client: nothing is selected") << u"C"_s << QString();
        QTest::newRow("it goes to one that is there") << u"B"_s << QString();
    }
    /// In each case the list goes on showing the record.
    void theOnlyRecordOfTheSelectedNodeIsEdited() {
        QFETCH(QString, client);
        Fixture fixture;
        const QString id = fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.view.expand(fixture.At({u"A"_s}));
        fixture.Select({u"A"_s});
        const int before = fixture.rebuilds;
        CTRecord record;
        record.Copy(*fixture.document.FindTime(id));
        record.item1 = client;
        QVERIFY(fixture.document.ModifyRecord(record, id, {Notify::Yes, Commit::Later}));
        QTEST(fixture.view.currentIndex().data().toString(), "selected");
        QCOMPARE(fixture.view.selectionModel()->selectedRows().size(), client == u"A"_s ? 1 : 0);
        QCOMPARE(fixture.view.isExpanded(fixture.At({u"A"_s})), client == u"A"_s);
        QVERIFY(!fixture.view.isExpanded(fixture.At({client})) || client == u"A"_s);
        QVERIFY(fixture.document.IsVisible(id));
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        QCOMPARE(fixture.rebuilds, before);
        QCOMPARE(fixture.CountAt({client}), client == u"B"_s ? u"2"_s : u"1"_s);
        fixture.Select({client});
        QVERIFY(fixture.document.IsVisible(id));
    }

    void theLastRecordOfTheSelectedNodeIsDeleted() {
        Fixture fixture;
        const QString id = fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.Select({u"A"_s, u"x"_s});
        const int before = fixture.rebuilds;
        QVERIFY(fixture.document.DeleteRecord(RecordKind::Time, id, Notify::Yes));
        QVERIFY(!fixture.At({u"A"_s}).isValid());
        QVERIFY(!fixture.view.HasNode());
        QCOMPARE(fixture.rebuilds, before);
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{0});
        fixture.Select({u"B"_s});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
    }

    /// Before its text, where an ordinary tree has none.
    void nodesHaveAPicture() {
        ChooseIconTheme();
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.view.show();
        const auto node = [&fixture] {
            return fixture.view.viewport()->grab(fixture.view.visualRect(fixture.At({u"A"_s}))).toImage();
        };
        const QImage pictured = node();
        QStyledItemDelegate ordinary;
        fixture.view.setItemDelegate(&ordinary);
        QVERIFY(node() != pictured);
    }

    void withoutLevelsTheRootAloneIsThereAndClearsTheConditions() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.Add(u"B"_s, u"x"_s);
        fixture.home.settings->TreeColumns().ShowExactly(ColumnHalf::Time, {});
        fixture.document.Filter().items[0] = u"B"_s;
        fixture.Rebuild();
        QCOMPARE(fixture.Model().rowCount(fixture.Root()), 0);
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{1});
        fixture.Select({});
        QCOMPARE(fixture.document.VisibleCount(), std::size_t{2});
        QVERIFY(!fixture.view.HasNode());
        QVERIFY(!fixture.view.CanExpand());
    }

    void expandAllTogglesTheNodeAndAllBelow() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        fixture.view.setCurrentIndex({});
        fixture.home.prompt.ExpectTold(Text::SelectTreeNode);
        fixture.view.ExpandAll();
        fixture.Select({u"A"_s});
        QVERIFY(fixture.view.CanExpand());
        fixture.view.ExpandAll();
        QVERIFY(fixture.view.isExpanded(fixture.At({u"A"_s})));
        QVERIFY(fixture.view.isExpanded(fixture.At({u"A"_s, u"x"_s})));
        fixture.view.ExpandAll();
        QVERIFY(!fixture.view.isExpanded(fixture.At({u"A"_s})));
    }

    void aRecordTakesTheValuesOfTheNode() {
        Fixture fixture;
        fixture.Add(u"A"_s, u"x"_s);
        CTRecord record;
        fixture.Select({});
        QVERIFY(!fixture.view.FillRecord(record));
        fixture.Select({u"A"_s, u"x"_s});
        QVERIFY(fixture.view.FillRecord(record));
        QCOMPARE(record.item1, u"A"_s);
        QCOMPARE(record.item2, u"x"_s);
    }

    /// The keyboard gives the root the cursor; nobody has chosen it, so conditions from elsewhere stay.
    void keyboardAloneChoosesNothing() {
        Fixture fixture;
        fixture.Add(u"Alder"_s, u"Bridge"_s);
        fixture.document.Filter().items[0] = u"Alder"_s;
        fixture.view.show();
        QVERIFY(QTest::qWaitForWindowActive(&fixture.view));
        QCOMPARE(fixture.document.Filter().items[0], u"Alder"_s);
        fixture.view.clearFocus();
        fixture.view.setFocus();
        QCOMPARE(fixture.document.Filter().items[0], u"Alder"_s);
    }

    /// Under a checker of item models: any mixture of changes leaves the tree as a rebuild would make it.
    void randomChanges() {
        Fixture fixture;
        const QAbstractItemModelTester tester(&fixture.Model(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        std::mt19937 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same changes each time
        const auto pick = [&random](int below) {
            return static_cast<int>(random() % static_cast<unsigned>(below));
        };
        const auto name = [&pick] { return QString(QChar(u'A' + pick(4))); };
        QStringList ids;
        for (int step = 0; step < 400; ++step) {
            const int what = ids.isEmpty() ? 0 : pick(3);
            if (what == 0) {
                ids.append(fixture.Add(name(), name()));
                continue;
            }
            const QString id = ids[pick(static_cast<int>(ids.size()))];
            if (what == 1) {
                QVERIFY(fixture.document.DeleteRecord(RecordKind::Time, id, Notify::Yes));
                ids.removeOne(id);
                continue;
            }
            CTRecord record;
            record.Copy(*fixture.document.FindTime(id));
            record.item1 = name();
            QVERIFY(fixture.document.ModifyRecord(record, id, {Notify::Yes, Commit::Later}));
        }
        QHash<QString, int> counts;
        for (const QString& id : ids) ++counts[fixture.document.FindTime(id)->item1];
        QCOMPARE(fixture.Model().rowCount(fixture.Root()), static_cast<int>(counts.size()));
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            QCOMPARE(fixture.CountAt({it.key()}), QString::number(it.value()));
    }
};

TEST_CLASS(TestCDataTreeView);
#include "TestCDataTreeView.moc"
