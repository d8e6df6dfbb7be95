#include "shell/tree/CDataTreeView.h"

#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "shell/look/IconTheme.h"
#include "viewmodel/tree/CDataTreeModel.h"
#include "support/TestHome.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QStyledItemDelegate>
#include <QTest>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A tree on screen over a document whose hints reach it.
class Scene final : public CViewNotifier {
 public:
    TestHome home;
    CNoPump pump;
    CVelmarchDoc document{{*home.store, *this, pump, home.clock, *home.settings}};
    CDataTreeView view{document, *home.settings, home.prompt};
    int rebuilds = 0;

    Scene() {
        [&] { QVERIFY(document.BeginBatch()); }();
        Rebuild();
    }
    ~Scene() override { document.Commit(); }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void NotifyViews(Hint hint, const QStringList& ids) override {
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
        [&] { QVERIFY(document.AddRecord(record, true, true, true, &id)); }();
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
        Scene scene;
        scene.Add(u"B"_s, u"x"_s);
        scene.Add(u"A"_s, u"y"_s);
        scene.Add(u"A"_s, u"x"_s);
        QCOMPARE(scene.Root().data().toString(), u"All"_s);
        QCOMPARE(scene.CountAt({}), QString());
        QCOMPARE(scene.At({u"A"_s}).row(), 0);
        QCOMPARE(scene.CountAt({u"A"_s}), u"2"_s);
        QCOMPARE(scene.CountAt({u"A"_s, u"y"_s}), u"1"_s);
        QCOMPARE(scene.CountAt({u"B"_s}), u"1"_s);
        QVERIFY(scene.view.isExpanded(scene.Root()));
        QCOMPARE(scene.At({u"A"_s}).data(Qt::AccessibleTextRole).toString(), u"A: 2"_s);
    }

    void selectingANodeNarrowsTheListAndKeepsTheTree() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"A"_s, u"y"_s);
        scene.Add(u"B"_s, u"x"_s);
        const int before = scene.rebuilds;
        scene.Select({u"A"_s, u"y"_s});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        QCOMPARE(scene.rebuilds, before + 1);
        QVERIFY(scene.document.Filter().matchWhole && scene.document.Filter().matchCase);
        QVERIFY(scene.At({u"B"_s}).isValid());
        scene.Select({u"B"_s});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        scene.Select({u"A"_s});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{2});
    }

    /// Screen readers select a row without moving the cursor to it.
    void aNodeSelectedByAScreenReaderNarrowsTheList() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"A"_s, u"y"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&scene.view));
        QAccessibleTableInterface* rows =
            QAccessible::queryAccessibleInterface(&scene.view)->tableInterface();
        QCOMPARE(rows->cellAt(2, 0)->text(QAccessible::Name), u"B: 1"_s);
        const int before = scene.rebuilds;
        QVERIFY(rows->selectRow(2));
        QCOMPARE(scene.view.currentIndex(), scene.At({u"B"_s}));
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        QCOMPARE(scene.rebuilds, before + 1);
        QVERIFY(rows->selectRow(1));
        QCOMPARE(scene.document.VisibleCount(), std::size_t{2});
        QCOMPARE(scene.view.selectionModel()->selectedRows().size(), 1);
        QVERIFY(rows->selectRow(0));
        QCOMPARE(scene.document.VisibleCount(), std::size_t{3});
        QVERIFY(!scene.view.HasNode());
    }

    void theRootClearsTheConditionsAndKeepsThePeriod() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s, 21);
        scene.Add(u"B"_s, u"x"_s, 21);
        scene.Add(u"B"_s, u"x"_s, 20);
        QVERIFY(scene.document.Filter().SetSingleDate(u"11/21/2026"_s, scene.document.PeriodNeeds()));
        const int preset = scene.document.Filter().preset;
        scene.Rebuild();
        scene.Select({u"B"_s});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        scene.Select({});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{2});
        QCOMPARE(scene.document.Filter().preset, preset);
        QVERIFY(!scene.view.HasNode());
    }

    void recordsThatComeWhileNarrowedAreCountedIn() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.Add(u"B"_s, u"y"_s);
        scene.Select({u"A"_s});
        const QString id = scene.Add(u"A"_s, u"z"_s);
        QCOMPARE(scene.CountAt({u"A"_s}), u"2"_s);
        QCOMPARE(scene.CountAt({u"B"_s}), u"2"_s);
        QVERIFY(scene.document.DeleteRecord(RecordKind::Time, id, true));
        QCOMPARE(scene.CountAt({u"A"_s}), u"1"_s);
        QVERIFY(!scene.At({u"A"_s, u"z"_s}).isValid());
        QCOMPARE(scene.CountAt({u"B"_s}), u"2"_s);
    }

    void whatIsOpenAndSelectedOutlivesARebuild() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.view.expand(scene.At({u"B"_s}));
        scene.Select({u"A"_s});
        scene.document.NotifyViews(Hint::Clear);
        const int before = scene.rebuilds;
        scene.document.Filter().Reset();
        scene.Rebuild();
        QCOMPARE(scene.rebuilds, before + 1);  // taking the selection up filters nothing
        QVERIFY(scene.view.isExpanded(scene.At({u"B"_s})));
        QVERIFY(!scene.view.isExpanded(scene.At({u"A"_s})));
        QCOMPARE(scene.view.currentIndex(), scene.At({u"A"_s}));
        QCOMPARE(scene.document.VisibleCount(), std::size_t{2});
    }

    void aClickOnTheSelectedNodeNarrowsAgain() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.view.show();
        const auto click = [&scene] {
            const QPoint at = scene.view.visualRect(scene.At({u"A"_s})).center();
            QTest::mouseClick(scene.view.viewport(), Qt::LeftButton, {}, at);
        };
        click();
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        scene.document.ResetTimeFilter();
        scene.document.NotifyViews(Hint::Rebuild);
        QCOMPARE(scene.document.VisibleCount(), std::size_t{2});
        QCOMPARE(scene.view.currentIndex(), scene.At({u"A"_s}));
        click();
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        const int before = scene.rebuilds;
        click();
        QCOMPARE(scene.rebuilds, before);
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
        Scene scene;
        const QString id = scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.view.expand(scene.At({u"A"_s}));
        scene.Select({u"A"_s});
        const int before = scene.rebuilds;
        CTRecord record;
        record.Copy(*scene.document.FindTime(id));
        record.item1 = client;
        QVERIFY(scene.document.ModifyRecord(record, id, true, true, true, true));
        QTEST(scene.view.currentIndex().data().toString(), "selected");
        QCOMPARE(scene.view.selectionModel()->selectedRows().size(), client == u"A"_s ? 1 : 0);
        QCOMPARE(scene.view.isExpanded(scene.At({u"A"_s})), client == u"A"_s);
        QVERIFY(!scene.view.isExpanded(scene.At({client})) || client == u"A"_s);
        QVERIFY(scene.document.IsVisible(id));
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        QCOMPARE(scene.rebuilds, before);
        QCOMPARE(scene.CountAt({client}), client == u"B"_s ? u"2"_s : u"1"_s);
        scene.Select({client});
        QVERIFY(scene.document.IsVisible(id));
    }

    void theLastRecordOfTheSelectedNodeIsDeleted() {
        Scene scene;
        const QString id = scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.Select({u"A"_s, u"x"_s});
        const int before = scene.rebuilds;
        QVERIFY(scene.document.DeleteRecord(RecordKind::Time, id, true));
        QVERIFY(!scene.At({u"A"_s}).isValid());
        QVERIFY(!scene.view.HasNode());
        QCOMPARE(scene.rebuilds, before);
        QCOMPARE(scene.document.VisibleCount(), std::size_t{0});
        scene.Select({u"B"_s});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
    }

    /// Before its text, where an ordinary tree has none.
    void nodesHaveAPicture() {
        ChooseIconTheme();
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.view.show();
        const auto node = [&scene] {
            return scene.view.viewport()->grab(scene.view.visualRect(scene.At({u"A"_s}))).toImage();
        };
        const QImage pictured = node();
        QStyledItemDelegate ordinary;
        scene.view.setItemDelegate(&ordinary);
        QVERIFY(node() != pictured);
    }

    void withoutLevelsTheRootAloneIsThereAndClearsTheConditions() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.Add(u"B"_s, u"x"_s);
        scene.home.settings->TreeColumns().ShowExactly(ColumnHalf::Time, {});
        scene.document.Filter().items[0] = u"B"_s;
        scene.Rebuild();
        QCOMPARE(scene.Model().rowCount(scene.Root()), 0);
        QCOMPARE(scene.document.VisibleCount(), std::size_t{1});
        scene.Select({});
        QCOMPARE(scene.document.VisibleCount(), std::size_t{2});
        QVERIFY(!scene.view.HasNode());
        QVERIFY(!scene.view.CanExpand());
    }

    void expandAllTogglesTheNodeAndAllBelow() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        scene.home.prompt.ExpectTold(Text::SelectTreeNode);
        scene.view.ExpandAll();
        scene.Select({u"A"_s});
        QVERIFY(scene.view.CanExpand());
        scene.view.ExpandAll();
        QVERIFY(scene.view.isExpanded(scene.At({u"A"_s})));
        QVERIFY(scene.view.isExpanded(scene.At({u"A"_s, u"x"_s})));
        scene.view.ExpandAll();
        QVERIFY(!scene.view.isExpanded(scene.At({u"A"_s})));
    }

    void aRecordTakesTheValuesOfTheNode() {
        Scene scene;
        scene.Add(u"A"_s, u"x"_s);
        CTRecord record;
        scene.Select({});
        QVERIFY(!scene.view.FillRecord(record));
        scene.Select({u"A"_s, u"x"_s});
        QVERIFY(scene.view.FillRecord(record));
        QCOMPARE(record.item1, u"A"_s);
        QCOMPARE(record.item2, u"x"_s);
    }

    /// The keyboard gives the root the cursor; nobody has chosen it, so conditions from elsewhere stay.
    void keyboardAloneChoosesNothing() {
        Scene scene;
        scene.Add(u"Alder"_s, u"Bridge"_s);
        scene.document.Filter().items[0] = u"Alder"_s;
        scene.view.show();
        QVERIFY(QTest::qWaitForWindowActive(&scene.view));
        QCOMPARE(scene.document.Filter().items[0], u"Alder"_s);
        scene.view.clearFocus();
        scene.view.setFocus();
        QCOMPARE(scene.document.Filter().items[0], u"Alder"_s);
    }

    /// Under a checker of item models: any mixture of changes leaves the tree as a rebuild would make it.
    void randomChanges() {
        Scene scene;
        const QAbstractItemModelTester tester(&scene.Model(),
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
                ids.append(scene.Add(name(), name()));
                continue;
            }
            const QString id = ids[pick(static_cast<int>(ids.size()))];
            if (what == 1) {
                QVERIFY(scene.document.DeleteRecord(RecordKind::Time, id, true));
                ids.removeOne(id);
                continue;
            }
            CTRecord record;
            record.Copy(*scene.document.FindTime(id));
            record.item1 = name();
            QVERIFY(scene.document.ModifyRecord(record, id, true, true, true, true));
        }
        QHash<QString, int> counts;
        for (const QString& id : ids) ++counts[scene.document.FindTime(id)->item1];
        QCOMPARE(scene.Model().rowCount(scene.Root()), static_cast<int>(counts.size()));
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            QCOMPARE(scene.CountAt({it.key()}), QString::number(it.value()));
    }
};

QTEST_MAIN(TestCDataTreeView)
#include "TestCDataTreeView.moc"
