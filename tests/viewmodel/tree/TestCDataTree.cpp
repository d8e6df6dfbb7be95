#include "viewmodel/tree/CDataTree.h"

#include "viewmodel/tree/DataTreeScene.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Scene = DataTreeScene;

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

QTEST_GUILESS_MAIN(TestCDataTree)
#include "TestCDataTree.moc"
