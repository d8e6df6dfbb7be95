#include "viewmodel/tree/CDataTree.h"

#include "support/TestProgram.h"
#include "viewmodel/tree/DataTreeFixture.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Fixture = DataTreeFixture;

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
    const Fixture fixture;
    QCOMPARE(fixture.tree.Root().Text(), u"All"_s);
    QCOMPARE(fixture.tree.Root().Count(), 0);
    QCOMPARE(fixture.tree.Root().ChildCount(), 0);
    QCOMPARE(fixture.tree.Root().Depth(), 0);
    QCOMPARE(fixture.tree.Root().Row(), 0);
}

void TestCDataTree::levelsAndCounts() {
    Fixture fixture;
    fixture.Add("A", "x");
    fixture.Add("A", "y");
    fixture.Add("B", "x");
    fixture.Add("A", "x");
    QCOMPARE(fixture.Tree(), u"A 3 [x 2, y 1], B 1 [x 1]"_s);
    QCOMPARE(fixture.Rebuilt(), fixture.Tree());
    QCOMPARE(fixture.tree.Root().Count(), 0);
}

void TestCDataTree::emptyTextsFormNodes() {
    Fixture fixture;
    fixture.Add("", "");
    fixture.Add("A", "");
    fixture.Add("", "x");
    QCOMPARE(fixture.Tree(), u" 2 [ 1, x 1], A 1 [ 1]"_s);
}

void TestCDataTree::noLevels() {
    Fixture fixture("");
    const QString id = fixture.Add("A", "x");
    QCOMPARE(fixture.Tree(), QString());
    QVERIFY(fixture.tree.Columns().empty());
    fixture.Delete(id);
    QCOMPARE(fixture.Tree(), QString());
}

void TestCDataTree::defaultLevels() {
    Fixture fixture("Client Project Activity");
    fixture.home.settings->TreeColumns().SetDefaults();
    CTRecord record = Fixture::Record(u"A"_s, u"x"_s);
    record.item3 = u"Design"_s;
    record.item4 = u"CC"_s;
    record.item5 = u"EUR"_s;
    fixture.Add(record);
    fixture.Rebuild();
    QCOMPARE(fixture.tree.Columns(), (std::vector{4, 5, 9, 10}));
    QCOMPARE(fixture.Tree(), u"A 1 [x 1 [Design 1 [CC 1]]]"_s);
}

/// Whether they come one by one or all at once.
void TestCDataTree::sortedByText() {
    Fixture fixture("Client");
    for (const char* client : {"b", "A", "\u00c4", "C", "a", "B", "10", "", "c"}) fixture.Add(client, "");
    const QString sorted = u" 1, 10 1, A 1, a 1, B 1, b 1, C 1, c 1, \u00c4 1"_s;
    QCOMPARE(fixture.Tree(), sorted);
    QCOMPARE(fixture.Rebuilt(), sorted);
    int row = 0;
    for (const CTreeNode* child : fixture.tree.Root().Children()) {
        QCOMPARE(child->Row(), row++);
        QCOMPARE(child->Depth(), 1);
    }
}

/// Case and blanks count.
void TestCDataTree::exactTexts() {
    Fixture fixture("Client");
    for (const char* client : {"a", "A", "a ", "a"}) fixture.Add(client, "");
    QCOMPARE(fixture.Tree(), u"A 1, a 2, a  1"_s);
}

void TestCDataTree::lastRecordTakesItsNodesAlong() {
    Fixture fixture("Client Project Activity");
    const QString alone = fixture.Add("A", "x");
    fixture.Add("B", "x");
    const QString second = fixture.Add("B", "y");
    fixture.Delete(alone);
    QCOMPARE(fixture.Tree(), u"B 2 [x 1 [ 1], y 1 [ 1]]"_s);
    fixture.Delete(second);
    QCOMPARE(fixture.Tree(), u"B 1 [x 1 [ 1]]"_s);
}

/// A text that isn't there is passed over, and the next one is looked for at the same node.
void TestCDataTree::unknownTextIsPassedOver() {
    Fixture fixture;
    fixture.Add("A", "x");
    fixture.Add("A", "x");
    fixture.Add("x", "q");
    fixture.Add("x", "q");
    fixture.tree.RemoveRecord(Fixture::Record(u"Z"_s, u"x"_s));
    QCOMPARE(fixture.Tree(), u"A 2 [x 2], x 1 [q 2]"_s);
    fixture.tree.RemoveRecord(Fixture::Record(u"A"_s, u"Z"_s));
    QCOMPARE(fixture.Tree(), u"A 1 [x 2], x 1 [q 2]"_s);
    fixture.tree.RemoveRecord(Fixture::Record(u"Z"_s, u"Z"_s));
    QCOMPARE(fixture.Tree(), u"A 1 [x 2], x 1 [q 2]"_s);
}

/// A child that would come to 0 goes with all below it, however many those count.
void TestCDataTree::countOfOneEndsTheWalk() {
    Fixture fixture;
    fixture.Add("A", "x");
    fixture.Add("A", "x");
    fixture.tree.RemoveRecord(Fixture::Record(u"A"_s, u"Z"_s));
    QCOMPARE(fixture.Tree(), u"A 1 [x 2]"_s);
    fixture.tree.RemoveRecord(Fixture::Record(u"A"_s, u"Z"_s));
    QCOMPARE(fixture.Tree(), QString());
    QVERIFY(!fixture.tree.Find({u"A"_s, u"x"_s}));
    fixture.Add("A", "x");
    QCOMPARE(fixture.Tree(), u"A 1 [x 1]"_s);
}

/// Billed and other records lie under one text.
void TestCDataTree::flags() {
    Fixture fixture("Billable Billed");
    CTRecord billed = Fixture::Record(u"A"_s, u"x"_s);
    billed.SetBillable(true);
    billed.isBilled = true;
    CTRecord billable = Fixture::Record(u"A"_s, u"x"_s);
    billable.SetBillable(true);
    for (const CTRecord& record : {billed, billable, Fixture::Record(u"A"_s, u"x"_s)}) fixture.Add(record);
    QCOMPARE(fixture.Tree(), u"Billable 2 [Billed 2], Not billable 1 [Billed 1]"_s);
}

void TestCDataTree::expenses() {
    Fixture fixture;
    fixture.SetLevels(ColumnHalf::Expense, "Distance Client Reimbursed");
    CERecord trip, other;
    trip.GenUnique();
    trip.isDistance = trip.flag4 = true;
    trip.item1 = u"A"_s;
    other.GenUnique();
    fixture.Add(trip);
    fixture.Add(other);
    fixture.Add("A", "x");
    fixture.document.SwitchMode(RecordMode::Expense);
    QCOMPARE(fixture.tree.Columns(), (std::vector{22, 19, 30}));
    QCOMPARE(fixture.Tree(),
             u"Distance entry 1 [A 1 [Reimbursed 1]], No distance entry 1 [ 1 [Not reimbursed 1]]"_s);
    other.GenUnique();
    fixture.Add(other);
    QVERIFY(fixture.document.DeleteRecord(RecordKind::Expense, trip.GetId(), Notify::Yes));
    QCOMPARE(fixture.Tree(), u"No distance entry 2 [ 2 [Not reimbursed 2]]"_s);
    fixture.document.SwitchMode(RecordMode::Time);
    QCOMPARE(fixture.Tree(), u"A 1 [x 1]"_s);
}

/// The document announces an expense although times are shown.
void TestCDataTree::recordsOfTheOtherKind() {
    Fixture fixture;
    fixture.Add("A", "x");
    CERecord expense;
    expense.GenUnique();
    fixture.Add(expense);
    fixture.tree.AddRecord(expense);
    fixture.tree.RemoveRecord(expense);
    QCOMPARE(fixture.Tree(), u"A 1 [x 1]"_s);
}

void TestCDataTree::unchangedValues() {
    Fixture fixture;
    const QString id = fixture.Add("A", "x");
    fixture.Add("A", "y");
    fixture.Change(id, u"A"_s, u"x"_s);
    QCOMPARE(fixture.Tree(), u"A 2 [x 1, y 1]"_s);
    fixture.Change(id, u"B"_s, u"x"_s);
    QCOMPARE(fixture.Tree(), u"A 1 [y 1], B 1 [x 1]"_s);
}

/// Records that the filter keeps out are not counted, whatever happens to them; new ones are.
void TestCDataTree::filteredRecords() {
    Fixture fixture;
    const QString out = fixture.Add("A", "x");
    const QString in = fixture.Add("B", "x");
    fixture.document.Filter().items[0] = u"B"_s;
    fixture.Rebuild();
    QCOMPARE(fixture.Tree(), u"B 1 [x 1]"_s);
    fixture.Change(out, u"A"_s, u"y"_s);
    QCOMPARE(fixture.Tree(), u"B 1 [x 1]"_s);
    fixture.Change(in, u"C"_s, u"x"_s);  // stays visible until the next rebuild
    fixture.Add("A", "z");
    QCOMPARE(fixture.Tree(), u"A 1 [z 1], C 1 [x 1]"_s);
    fixture.Delete(out);
    QCOMPARE(fixture.Tree(), fixture.Rebuilt());
}

/// The frame announces a selection that goes, and the document each record of it.
void TestCDataTree::hintsThatComeTwice() {
    Fixture fixture;
    const QString gone = fixture.Add("A", "x");
    fixture.Add("A", "x");
    fixture.document.NotifyViews(Hint::AboutToGo, {gone});
    fixture.document.NotifyViews(Hint::AboutToGo, {gone, u"unknown"_s});
    QCOMPARE(fixture.Tree(), u"A 1 [x 1]"_s);
    fixture.Delete(gone);
    QCOMPARE(fixture.Tree(), u"A 1 [x 1]"_s);
    const QString changed = fixture.Add("A", "x");
    fixture.document.NotifyViews(Hint::AboutToChange, {changed});
    fixture.Change(changed, u"B"_s, u"x"_s);
    fixture.document.NotifyViews(Hint::Added, {changed});
    QCOMPARE(fixture.Tree(), u"A 1 [x 1], B 1 [x 1]"_s);
}

void TestCDataTree::changeWithoutAWordBefore() {
    Fixture fixture;
    QStringList ids;
    for (int i = 0; i < 5; ++i) ids.append(fixture.Add("A", "x"));
    for (const QString& id : ids) {
        CTRecord record;
        record.Copy(*fixture.document.FindTime(id));
        record.item1 = u"B"_s;
        QVERIFY(fixture.document.ModifyRecord(record, id, {Notify::Later, Commit::Later}));
    }
    fixture.document.FlushPending(Hint::Changed);
    QCOMPARE(fixture.Tree(), u"B 5 [x 5]"_s);
}

void TestCDataTree::clearEmpties() {
    Fixture fixture;
    fixture.Add("A", "x");
    fixture.document.NotifyViews(Hint::Clear);
    QCOMPARE(fixture.Tree(), QString());
    QCOMPARE(fixture.tree.Root().Text(), u"All"_s);
}

/// The filter has changed, and the next word is of a single record: the tree is right all the same.
void TestCDataTree::otherRecordsAreVisible() {
    Fixture fixture;
    const QString first = fixture.Add("A", "x");
    fixture.Add("B", "x");
    const QString third = fixture.Add("B", "y");
    fixture.document.Filter().items[0] = u"B"_s;
    fixture.document.BuildVisible();
    fixture.Delete(third);
    QCOMPARE(fixture.Tree(), u"B 1 [x 1]"_s);
    fixture.document.ResetTimeFilter();
    fixture.Change(first, u"C"_s, u"x"_s);
    QCOMPARE(fixture.Tree(), u"B 1 [x 1], C 1 [x 1]"_s);
}

void TestCDataTree::levelsChangeWithTheNextRebuild() {
    Fixture fixture;
    fixture.Add("A", "x");
    fixture.SetLevels(ColumnHalf::Time, "Project");
    fixture.Add("B", "x");
    QCOMPARE(fixture.Tree(), u"A 1 [x 1], B 1 [x 1]"_s);
    fixture.Rebuild();
    QCOMPARE(fixture.Tree(), u"x 2"_s);
}

void TestCDataTree::paths() {
    Fixture fixture;
    fixture.Add("A", "x");
    fixture.Add("A", "");
    const CTreeNode* node = fixture.tree.Find({u"A"_s, u"x"_s});
    QVERIFY(node);
    QCOMPARE(CDataTree::PathOf(*node), (QStringList{u"A"_s, u"x"_s}));
    QCOMPARE(node->Depth(), 2);
    const TreePath steps = fixture.tree.StepsTo(*node);
    QCOMPARE(steps.size(), 2U);
    QCOMPARE(steps[0].column, 4);
    QCOMPARE(steps[0].text, u"A"_s);
    QCOMPARE(steps[1].column, 5);
    QCOMPARE(steps[1].text, u"x"_s);
    QCOMPARE(CDataTree::PathOf(fixture.tree.Root()), QStringList());
    QVERIFY(fixture.tree.StepsTo(fixture.tree.Root()).empty());
    QCOMPARE(fixture.tree.Find({}), &fixture.tree.Root());
    QVERIFY(fixture.tree.Find({u"A"_s, QString()}));
    QVERIFY(!fixture.tree.Find({u"x"_s}));
    QVERIFY(!fixture.tree.Find({u"A"_s, u"A"_s}));
    QVERIFY(!fixture.tree.Find({u"A"_s, u"x"_s, u"x"_s}));
}

/// More texts than are known by their address, and a text that takes the address of one that is gone.
void TestCDataTree::textsOfOneMemory() {
    Fixture fixture("Client");
    for (int i = 0; i < 20000; ++i)
        fixture.tree.AddRecord(Fixture::Record(u"C%1"_s.arg(i % 6000), QString()));
    QCOMPARE(fixture.tree.Root().ChildCount(), 6000);
    for (const CTreeNode* child : fixture.tree.Root().Children())
        QCOMPARE(child->Count(), child->Text().mid(1).toInt() < 2000 ? 4 : 3);
}

TEST_CLASS(TestCDataTree);
#include "TestCDataTree.moc"
