#include "shell/core/CDataTree.h"

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/core/CTreeWatcher.h"
#include "support/TestHome.h"

#include <QTest>
#include <memory>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// "A 2 [x 1, y 1], B 1 [x 1]": the nodes below one, each with its count.
QString Below(const CTreeNode& node) {
    QStringList words;
    for (const CTreeNode* child : node.Children()) {
        const QString below = Below(*child);
        words.append(u"%1 %2"_s.arg(child->Text()).arg(child->Count()) +
                     (below.isEmpty() ? QString() : u" [%1]"_s.arg(below)));
    }
    return words.join(u", "_s);
}

/// A document whose views are a tree: hints reach it while the document is as it is when they are sent.
class Scene final : public CViewNotifier {
 public:
    TestHome home;
    CNoPump pump;
    CVelmarchDoc document{{*home.store, *this, pump, home.clock, *home.settings}};
    CDataTree tree{document, *home.settings};

    /// The captions of the levels.
    explicit Scene(const char* levels = "Client Project") {
        [&] { QVERIFY(document.BeginBatch()); }();
        SetLevels(ColumnHalf::Time, levels);
        Rebuild();
    }
    ~Scene() override { document.Commit(); }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void NotifyViews(Hint hint, const QStringList& ids) override { tree.OnHint(hint, ids); }
    void SetLevels(ColumnHalf half, const char* levels) {
        CTreeColSet& columns = home.settings->TreeColumns();
        QStringList all;
        for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
            all.append(columns.EntryAt(column).caption);
        columns.AssignOrder(half, all, QString::fromLatin1(levels).split(u' ', Qt::SkipEmptyParts));
    }
    void Rebuild() {
        document.BuildVisible();
        document.NotifyViews(Hint::Rebuild);
    }
    /// Words of the tree below its root.
    [[nodiscard]] QString Tree() const { return Below(tree.Root()); }

    static CTRecord Record(const QString& client, const QString& project) {
        CTRecord record;
        record.GenUnique();
        record.item1 = client;
        record.item2 = project;
        return record;
    }
    QString Add(const CVORec& record, bool notify = true) {
        QString id;
        [&] { QVERIFY(document.AddRecord(record, notify, true, false, &id)); }();
        return id;
    }
    QString Add(const char* client, const char* project) {
        return Add(Record(QString::fromUtf8(client), QString::fromUtf8(project)));
    }
    void Change(const QString& id, const QString& client, const QString& project) {
        CTRecord record;
        record.Copy(*document.FindTime(id));
        record.item1 = client;
        record.item2 = project;
        QVERIFY(document.ModifyRecord(record, id, true, true, true, true));
    }
    void Delete(const QString& id) { QVERIFY(document.DeleteRecord(RecordKind::Time, id, true)); }
    /// What a rebuild would make.
    [[nodiscard]] QString Rebuilt() {
        CDataTree fresh(document, *home.settings);
        fresh.Rebuild();
        return Below(fresh.Root());
    }
};

/// Follows a tree by what it is told alone.
class Mirror final : public CTreeWatcher {
 public:
    explicit Mirror(CDataTree& tree) : m_tree(tree) {
        tree.SetWatcher(this);
        AfterReset();
    }
    void BeforeReset() override { m_top = {}; }
    void AfterReset() override { m_top = Copy(m_tree.Root()); }
    void BeforeInsert(const CTreeNode& parent, int row) override {
        m_parent = &At(parent);
        m_row = row;
        QCOMPARE(static_cast<int>(m_parent->below.size()), parent.ChildCount());
    }
    void AfterInsert(const CTreeNode& node) override {
        QCOMPARE(node.Row(), m_row);
        m_parent->below.insert(m_parent->below.begin() + m_row, Copy(node));
    }
    void BeforeRemove(const CTreeNode& node) override {
        Node& parent = At(*node.Parent());
        parent.below.erase(parent.below.begin() + node.Row());
    }
    void AfterRemove(const CTreeNode& parent) override {
        QCOMPARE(static_cast<int>(At(parent).below.size()), parent.ChildCount());
    }
    void CountChanged(const CTreeNode& node) override { At(node).count = node.Count(); }

    [[nodiscard]] QString Words() const { return Words(m_top); }

 private:
    struct Node {
        QString text;
        int count = 0;
        std::vector<Node> below;
    };
    static Node Copy(const CTreeNode& node) {
        Node copy{node.Text(), node.Count(), {}};
        for (const CTreeNode* child : node.Children()) copy.below.push_back(Copy(*child));
        return copy;
    }
    static QString Words(const Node& node) {
        QStringList words;
        for (const Node& child : node.below) {
            const QString below = Words(child);
            words.append(u"%1 %2"_s.arg(child.text).arg(child.count) +
                         (below.isEmpty() ? QString() : u" [%1]"_s.arg(below)));
        }
        return words.join(u", "_s);
    }
    Node& At(const CTreeNode& node) {
        return node.Parent() ? At(*node.Parent()).below[static_cast<std::size_t>(node.Row())] : m_top;
    }

    CDataTree& m_tree;
    Node m_top;
    Node* m_parent = nullptr;
    int m_row = 0;
};

}  // namespace

class TestCDataTree final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void nothing();
    void levelsAndCounts();
    void emptyTextsFormNodes();
    void noLevels();
    void defaultLevels();
    void sortedByText();
    void exactTexts();
    void lastRecordTakesItsNodesAlong();
    void unknownTextIsPassedOver();
    void countOfOneEndsTheWalk();
    void flags();
    void expenses();
    void recordsOfTheOtherKind();
    void unchangedValues();
    void filteredRecords();
    void hintsThatComeTwice();
    void changeWithoutAWordBefore();
    void clearEmpties();
    void otherRecordsAreVisible();
    void levelsChangeWithTheNextRebuild();
    void paths();
    void textsOfOneMemory();
    void randomChanges_data();
    void randomChanges();

 private:
    static void RandomChange(Scene& scene, std::mt19937& random, QStringList& ids);
};

void TestCDataTree::nothing() {
    const Scene scene;
    QCOMPARE(scene.tree.Root().Text(), u"All"_s);
    QCOMPARE(scene.tree.Root().Count(), 0);
    QCOMPARE(scene.tree.Root().ChildCount(), 0);
    QCOMPARE(scene.tree.Root().Depth(), 0);
    QCOMPARE(scene.tree.Root().Row(), 0);
}

void TestCDataTree::levelsAndCounts() {
    Scene scene;
    scene.Add("A", "x");
    scene.Add("A", "y");
    scene.Add("B", "x");
    scene.Add("A", "x");
    QCOMPARE(scene.Tree(), u"A 3 [x 2, y 1], B 1 [x 1]"_s);
    QCOMPARE(scene.Rebuilt(), scene.Tree());
    QCOMPARE(scene.tree.Root().Count(), 0);
}

void TestCDataTree::emptyTextsFormNodes() {
    Scene scene;
    scene.Add("", "");
    scene.Add("A", "");
    scene.Add("", "x");
    QCOMPARE(scene.Tree(), u" 2 [ 1, x 1], A 1 [ 1]"_s);
}

void TestCDataTree::noLevels() {
    Scene scene("");
    const QString id = scene.Add("A", "x");
    QCOMPARE(scene.Tree(), QString());
    QVERIFY(scene.tree.Columns().empty());
    scene.Delete(id);
    QCOMPARE(scene.Tree(), QString());
}

void TestCDataTree::defaultLevels() {
    Scene scene("Client Project Activity");
    scene.home.settings->TreeColumns().SetDefaults();
    CTRecord record = Scene::Record(u"A"_s, u"x"_s);
    record.item3 = u"Design"_s;
    record.item4 = u"CC"_s;
    record.item5 = u"EUR"_s;
    scene.Add(record);
    scene.Rebuild();
    QCOMPARE(scene.tree.Columns(), (std::vector{4, 5, 9, 10}));
    QCOMPARE(scene.Tree(), u"A 1 [x 1 [Design 1 [CC 1]]]"_s);
}

/// Whether they come one by one or all at once.
void TestCDataTree::sortedByText() {
    Scene scene("Client");
    for (const char* client : {"b", "A", "\u00c4", "C", "a", "B", "10", "", "c"}) scene.Add(client, "");
    const QString sorted = u" 1, 10 1, A 1, a 1, B 1, b 1, C 1, c 1, \u00c4 1"_s;
    QCOMPARE(scene.Tree(), sorted);
    QCOMPARE(scene.Rebuilt(), sorted);
    int row = 0;
    for (const CTreeNode* child : scene.tree.Root().Children()) {
        QCOMPARE(child->Row(), row++);
        QCOMPARE(child->Depth(), 1);
    }
}

/// Case and blanks count.
void TestCDataTree::exactTexts() {
    Scene scene("Client");
    for (const char* client : {"a", "A", "a ", "a"}) scene.Add(client, "");
    QCOMPARE(scene.Tree(), u"A 1, a 2, a  1"_s);
}

void TestCDataTree::lastRecordTakesItsNodesAlong() {
    Scene scene("Client Project Activity");
    const QString alone = scene.Add("A", "x");
    scene.Add("B", "x");
    const QString second = scene.Add("B", "y");
    scene.Delete(alone);
    QCOMPARE(scene.Tree(), u"B 2 [x 1 [ 1], y 1 [ 1]]"_s);
    scene.Delete(second);
    QCOMPARE(scene.Tree(), u"B 1 [x 1 [ 1]]"_s);
}

/// A text that isn't there is passed over, and the next one is looked for at the same node.
void TestCDataTree::unknownTextIsPassedOver() {
    Scene scene;
    scene.Add("A", "x");
    scene.Add("A", "x");
    scene.Add("x", "q");
    scene.Add("x", "q");
    scene.tree.RemoveRecord(Scene::Record(u"Z"_s, u"x"_s));
    QCOMPARE(scene.Tree(), u"A 2 [x 2], x 1 [q 2]"_s);
    scene.tree.RemoveRecord(Scene::Record(u"A"_s, u"Z"_s));
    QCOMPARE(scene.Tree(), u"A 1 [x 2], x 1 [q 2]"_s);
    scene.tree.RemoveRecord(Scene::Record(u"Z"_s, u"Z"_s));
    QCOMPARE(scene.Tree(), u"A 1 [x 2], x 1 [q 2]"_s);
}

/// A child that would come to 0 goes with all below it, however many those count.
void TestCDataTree::countOfOneEndsTheWalk() {
    Scene scene;
    scene.Add("A", "x");
    scene.Add("A", "x");
    scene.tree.RemoveRecord(Scene::Record(u"A"_s, u"Z"_s));
    QCOMPARE(scene.Tree(), u"A 1 [x 2]"_s);
    scene.tree.RemoveRecord(Scene::Record(u"A"_s, u"Z"_s));
    QCOMPARE(scene.Tree(), QString());
    QVERIFY(!scene.tree.Find({u"A"_s, u"x"_s}));
    scene.Add("A", "x");
    QCOMPARE(scene.Tree(), u"A 1 [x 1]"_s);
}

/// Billed and other records lie under one text.
void TestCDataTree::flags() {
    Scene scene("Billable Billed");
    CTRecord billed = Scene::Record(u"A"_s, u"x"_s);
    billed.SetBillable(true);
    billed.isBilled = true;
    CTRecord billable = Scene::Record(u"A"_s, u"x"_s);
    billable.SetBillable(true);
    for (const CTRecord& record : {billed, billable, Scene::Record(u"A"_s, u"x"_s)}) scene.Add(record);
    QCOMPARE(scene.Tree(), u"Billable 2 [Billed 2], Not billable 1 [Billed 1]"_s);
}

void TestCDataTree::expenses() {
    Scene scene;
    scene.SetLevels(ColumnHalf::Expense, "Distance Client Reimbursed");
    CERecord trip, other;
    trip.GenUnique();
    trip.isDistance = trip.flag4 = true;
    trip.item1 = u"A"_s;
    other.GenUnique();
    scene.Add(trip);
    scene.Add(other);
    scene.Add("A", "x");
    scene.document.SwitchMode(RecordMode::Expense);
    QCOMPARE(scene.tree.Columns(), (std::vector{22, 19, 30}));
    QCOMPARE(scene.Tree(),
             u"Distance entry 1 [A 1 [Reimbursed 1]], No distance entry 1 [ 1 [Not reimbursed 1]]"_s);
    other.GenUnique();
    scene.Add(other);
    QVERIFY(scene.document.DeleteRecord(RecordKind::Expense, trip.GetId(), true));
    QCOMPARE(scene.Tree(), u"No distance entry 2 [ 2 [Not reimbursed 2]]"_s);
    scene.document.SwitchMode(RecordMode::Time);
    QCOMPARE(scene.Tree(), u"A 1 [x 1]"_s);
}

/// The document announces an expense although times are shown.
void TestCDataTree::recordsOfTheOtherKind() {
    Scene scene;
    scene.Add("A", "x");
    CERecord expense;
    expense.GenUnique();
    scene.Add(expense);
    scene.tree.AddRecord(expense);
    scene.tree.RemoveRecord(expense);
    QCOMPARE(scene.Tree(), u"A 1 [x 1]"_s);
}

void TestCDataTree::unchangedValues() {
    Scene scene;
    const QString id = scene.Add("A", "x");
    scene.Add("A", "y");
    scene.Change(id, u"A"_s, u"x"_s);
    QCOMPARE(scene.Tree(), u"A 2 [x 1, y 1]"_s);
    scene.Change(id, u"B"_s, u"x"_s);
    QCOMPARE(scene.Tree(), u"A 1 [y 1], B 1 [x 1]"_s);
}

/// Records that the filter keeps out are not counted, whatever happens to them; new ones are.
void TestCDataTree::filteredRecords() {
    Scene scene;
    const QString out = scene.Add("A", "x");
    const QString in = scene.Add("B", "x");
    scene.document.Filter().items[0] = u"B"_s;
    scene.Rebuild();
    QCOMPARE(scene.Tree(), u"B 1 [x 1]"_s);
    scene.Change(out, u"A"_s, u"y"_s);
    QCOMPARE(scene.Tree(), u"B 1 [x 1]"_s);
    scene.Change(in, u"C"_s, u"x"_s);  // stays visible until the next rebuild
    scene.Add("A", "z");
    QCOMPARE(scene.Tree(), u"A 1 [z 1], C 1 [x 1]"_s);
    scene.Delete(out);
    QCOMPARE(scene.Tree(), scene.Rebuilt());
}

/// The frame announces a selection that goes, and the document each record of it.
void TestCDataTree::hintsThatComeTwice() {
    Scene scene;
    const QString gone = scene.Add("A", "x");
    scene.Add("A", "x");
    scene.document.NotifyViews(Hint::AboutToGo, {gone});
    scene.document.NotifyViews(Hint::AboutToGo, {gone, u"unknown"_s});
    QCOMPARE(scene.Tree(), u"A 1 [x 1]"_s);
    scene.Delete(gone);
    QCOMPARE(scene.Tree(), u"A 1 [x 1]"_s);
    const QString changed = scene.Add("A", "x");
    scene.document.NotifyViews(Hint::AboutToChange, {changed});
    scene.Change(changed, u"B"_s, u"x"_s);
    scene.document.NotifyViews(Hint::Added, {changed});
    QCOMPARE(scene.Tree(), u"A 1 [x 1], B 1 [x 1]"_s);
}

void TestCDataTree::changeWithoutAWordBefore() {
    Scene scene;
    QStringList ids;
    for (int i = 0; i < 5; ++i) ids.append(scene.Add("A", "x"));
    for (const QString& id : ids) {
        CTRecord record;
        record.Copy(*scene.document.FindTime(id));
        record.item1 = u"B"_s;
        QVERIFY(scene.document.ModifyRecord(record, id, false, true, true, true));
    }
    scene.document.FlushPending(Hint::Changed);
    QCOMPARE(scene.Tree(), u"B 5 [x 5]"_s);
}

void TestCDataTree::clearEmpties() {
    Scene scene;
    scene.Add("A", "x");
    scene.document.NotifyViews(Hint::Clear);
    QCOMPARE(scene.Tree(), QString());
    QCOMPARE(scene.tree.Root().Text(), u"All"_s);
}

/// The filter has changed, and the next word is of a single record: the tree is right all the same.
void TestCDataTree::otherRecordsAreVisible() {
    Scene scene;
    const QString first = scene.Add("A", "x");
    scene.Add("B", "x");
    const QString third = scene.Add("B", "y");
    scene.document.Filter().items[0] = u"B"_s;
    scene.document.BuildVisible();
    scene.Delete(third);
    QCOMPARE(scene.Tree(), u"B 1 [x 1]"_s);
    scene.document.ResetTimeFilter();
    scene.Change(first, u"C"_s, u"x"_s);
    QCOMPARE(scene.Tree(), u"B 1 [x 1], C 1 [x 1]"_s);
}

void TestCDataTree::levelsChangeWithTheNextRebuild() {
    Scene scene;
    scene.Add("A", "x");
    scene.SetLevels(ColumnHalf::Time, "Project");
    scene.Add("B", "x");
    QCOMPARE(scene.Tree(), u"A 1 [x 1], B 1 [x 1]"_s);
    scene.Rebuild();
    QCOMPARE(scene.Tree(), u"x 2"_s);
}

void TestCDataTree::paths() {
    Scene scene;
    scene.Add("A", "x");
    scene.Add("A", "");
    const CTreeNode* node = scene.tree.Find({u"A"_s, u"x"_s});
    QVERIFY(node);
    QCOMPARE(CDataTree::PathOf(*node), (QStringList{u"A"_s, u"x"_s}));
    QCOMPARE(node->Depth(), 2);
    const TreePath steps = scene.tree.StepsTo(*node);
    QCOMPARE(steps.size(), 2U);
    QCOMPARE(steps[0].column, 4);
    QCOMPARE(steps[0].text, u"A"_s);
    QCOMPARE(steps[1].column, 5);
    QCOMPARE(steps[1].text, u"x"_s);
    QCOMPARE(CDataTree::PathOf(scene.tree.Root()), QStringList());
    QVERIFY(scene.tree.StepsTo(scene.tree.Root()).empty());
    QCOMPARE(scene.tree.Find({}), &scene.tree.Root());
    QVERIFY(scene.tree.Find({u"A"_s, QString()}));
    QVERIFY(!scene.tree.Find({u"x"_s}));
    QVERIFY(!scene.tree.Find({u"A"_s, u"A"_s}));
    QVERIFY(!scene.tree.Find({u"A"_s, u"x"_s, u"x"_s}));
}

/// More texts than are known by their address, and a text that takes the address of one that is gone.
void TestCDataTree::textsOfOneMemory() {
    Scene scene("Client");
    for (int i = 0; i < 20000; ++i) scene.tree.AddRecord(Scene::Record(u"C%1"_s.arg(i % 6000), QString()));
    QCOMPARE(scene.tree.Root().ChildCount(), 6000);
    for (const CTreeNode* child : scene.tree.Root().Children())
        QCOMPARE(child->Count(), child->Text().mid(1).toInt() < 2000 ? 4 : 3);
}

void TestCDataTree::randomChanges_data() {
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed) QTest::addRow("seed %u", seed) << seed;
}

/// After every change the tree is what a rebuild would make, and whoever listened to it knows it.
void TestCDataTree::randomChanges() {
    QFETCH(unsigned, seed);
    std::mt19937 random(seed);
    Scene scene("Client Project Billable");
    QStringList ids;
    const Mirror mirror(scene.tree);
    for (int change = 0; change < 150; ++change) {
        RandomChange(scene, random, ids);
        QCOMPARE(scene.Tree(), scene.Rebuilt());
        QCOMPARE(mirror.Words(), scene.Tree());
    }
    scene.tree.SetWatcher(nullptr);
}

void TestCDataTree::RandomChange(Scene& scene, std::mt19937& random, QStringList& ids) {
    const auto pick = [&random](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    const QString texts[] = {QString(), u"x"_s, u"y"_s, u"X"_s, u"A"_s, u"B"_s};
    CTRecord record = Scene::Record(texts[pick(6)], texts[pick(6)]);
    record.SetBillable(pick(2) == 0);
    const QString id = ids.isEmpty() ? QString() : ids[pick(static_cast<int>(ids.size()))];
    const bool isThere = !id.isEmpty() && scene.document.FindTime(id);
    if (isThere) record.SetId(id);
    switch (isThere ? pick(8) : 0) {
        case 1:
        case 2:
            QVERIFY(scene.document.ModifyRecord(record, id, true, true, true, true));
            break;
        case 3:  // a mark: announced by the command, flushed later
            scene.document.NotifyViews(Hint::AboutToChange, {id});
            QVERIFY(scene.document.ModifyRecord(record, id, false, true, true, true));
            scene.document.FlushPending(Hint::Changed);
            break;
        case 4:
            QVERIFY(scene.document.DeleteRecord(RecordKind::Time, id, true));
            break;
        case 5:  // a selection
            scene.document.NotifyViews(Hint::AboutToGo, {id});
            QVERIFY(scene.document.DeleteRecord(RecordKind::Time, id, false));
            scene.document.FlushPending(Hint::Deleted);
            break;
        case 6:  // another program
            QVERIFY(pick(3) == 0 ? scene.home.store->DeleteRecord(RecordKind::Time, id)
                                 : scene.home.store->ModifyRecord(record, id, true, true));
            QVERIFY(scene.document.RefreshRecords(RecordKind::Time, {id}));
            break;
        case 7:  // another filter
            scene.document.Filter().Reset();
            if (pick(2) == 0) scene.document.Filter().items[1] = texts[pick(6)];
            scene.Rebuild();
            break;
        default:
            record.GenUnique();
            ids.append(scene.Add(record, false));
            scene.document.FlushPending(Hint::Added);
    }
}

QTEST_GUILESS_MAIN(TestCDataTree)
#include "TestCDataTree.moc"
