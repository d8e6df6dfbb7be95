#include "lists/CDependencyEditor.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using Node = CDependencyEditor::Node;

/// "A(P Q(write)) B": children in brackets behind their parent.
QString Drawn(const Node& node) {
    QStringList children;
    for (const Node* child = node.FirstChild(); child; child = child->Next()) children += Drawn(*child);
    const QString below = children.join(u' ');
    if (!node.Item()) return below;
    return node.Item()->GetText() + (below.isEmpty() ? QString() : u'(' + below + u')');
}

}  // namespace

class TestCDependencyEditor : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;

    void Fill(int list, const QStringList& texts) {
        for (const QString& text : texts) QVERIFY(catalogue->AddItem(list, text, false));
    }
    CDependencyEditor Editor(RecordMode mode = RecordMode::Time) { return {*catalogue, mode}; }
    /// The node of a path, which has to be there.
    static Node& At(const CDependencyEditor& editor, const QStringList& path = {}) {
        Node* node = editor.Tree().Walk(path);
        if (!node) qFatal("there is no %s", qPrintable(path.join(u'/')));
        return *node;
    }
    [[nodiscard]] QString Stored(DependencySet set = DependencySet::Time) const {
        return Drawn(catalogue->Tree(set).Root());
    }

 private Q_SLOTS:
    void init();
    void cleanup();
    void OpensSorted();
    void NextListOf();
    void NextListOfAnItemThatStandsElsewhere();
    void Candidates();
    void AddSorts();
    void AddTwice();
    void AddWhatIsNoCandidate_data();
    void AddWhatIsNoCandidate();
    void AddAll();
    void AddAllOfAHugeList();
    void NothingBelowTheLastDepth();
    void NumbersOfExpenses();
    void AddAllOfAListThatHoldsATextTwice();
    void Remove();
    void RemoveWhatIsStored();
    void Move();
    void MoveWhereItDoesNotFit_data();
    void MoveWhereItDoesNotFit();
    void WhatIsUnsaved();
    void NewItem_data();
    void NewItem();
    void RenameItem_data();
    void RenameItem();
    void RenamePutsInOrder();
    void RenameThatFails();
    void DeleteItem();
    void DeleteItemOfTheOtherMode();
    void DeleteItemThatIsNone();
    void AcceptAndSave();
    void AcceptWithoutChange();
    void GivenUp();
    void ItemsStayWhenGivenUp();
};

void TestCDependencyEditor::init() {
    home = std::make_unique<TestHome>();
    catalogue = home->catalogue.get();
    Fill(16, {u"B"_s, u"A"_s, u"c"_s});
    Fill(17, {u"P"_s, u"Q"_s});
    Fill(32, {u"write"_s});
}

void TestCDependencyEditor::cleanup() {
    home.reset();
}

void TestCDependencyEditor::OpensSorted() {
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    Node& c = tree.Append(tree.Root(), *catalogue->FindItem(16, u"c"_s));
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"B"_s));
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"A"_s));
    tree.Append(c, *catalogue->FindItem(17, u"Q"_s));
    tree.Append(c, *catalogue->FindItem(17, u"P"_s));
    const CDependencyEditor editor = Editor();
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c(P Q)"_s);
    QCOMPARE(Stored(), u"c(Q P) B A"_s);
    QVERIFY(!editor.IsChanged());
    QCOMPARE(Drawn(Editor(RecordMode::Expense).Tree().Root()), QString());
}

void TestCDependencyEditor::NextListOf() {
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Add(At(editor), u"A"_s));
    QVERIFY(editor.Add(At(editor, {u"A"_s}), u"P"_s));
    QVERIFY(editor.Add(At(editor, {u"A"_s, u"P"_s}), u"write"_s));
    QCOMPARE(editor.NextListOf(At(editor)), 16);
    QCOMPARE(editor.NextListOf(At(editor, {u"A"_s})), 17);
    QCOMPARE(editor.NextListOf(At(editor, {u"A"_s, u"P"_s})), 32);
    QCOMPARE(editor.NextListOf(At(editor, {u"A"_s, u"P"_s, u"write"_s})), 33);
    const CDependencyEditor expenses = Editor(RecordMode::Expense);
    QCOMPARE(expenses.NextListOf(At(expenses)), 16);
}

/// What hangs under an item goes by the item's list; one of no list of the chain has nothing below it.
void TestCDependencyEditor::NextListOfAnItemThatStandsElsewhere() {
    Fill(72, {u"EUR"_s});
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    tree.Append(tree.Root(), *catalogue->FindItem(32, u"write"_s));
    tree.Append(tree.Root(), *catalogue->FindItem(72, u"EUR"_s));
    const CDependencyEditor editor = Editor();
    QCOMPARE(editor.NextListOf(At(editor, {u"write"_s})), 33);
    QCOMPARE(editor.NextListOf(At(editor, {u"EUR"_s})), -1);
    QCOMPARE(editor.Candidates(At(editor, {u"EUR"_s})), QStringList());
}

void TestCDependencyEditor::Candidates() {
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.Candidates(At(editor)), QStringList({u"B"_s, u"A"_s, u"c"_s}));
    QVERIFY(editor.Add(At(editor), u"A"_s));
    QCOMPARE(editor.Candidates(At(editor)), QStringList({u"B"_s, u"c"_s}));
    QCOMPARE(editor.Candidates(At(editor, {u"A"_s})), QStringList({u"P"_s, u"Q"_s}));
    Fill(16, {u"a"_s});  // another text, as case counts
    QCOMPARE(editor.Candidates(At(editor)), QStringList({u"B"_s, u"c"_s, u"a"_s}));
}

void TestCDependencyEditor::AddSorts() {
    CDependencyEditor editor = Editor();
    for (const QString& text : {u"c"_s, u"A"_s, u"B"_s}) QVERIFY(editor.Add(At(editor), text));
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c"_s);
    QVERIFY(editor.IsChanged());
    QVERIFY(catalogue->HasItem(16, u"A"_s));
    QCOMPARE(Stored(), QString());
}

void TestCDependencyEditor::AddTwice() {
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Add(At(editor), u"A"_s));
    QVERIFY(!editor.Add(At(editor), u"A"_s));
    QVERIFY(editor.Add(At(editor), u"B"_s));
    // Under several parents is fine: each is a node of its own.
    QVERIFY(editor.Add(At(editor, {u"A"_s}), u"P"_s));
    QVERIFY(editor.Add(At(editor, {u"B"_s}), u"P"_s));
    QCOMPARE(Drawn(editor.Tree().Root()), u"A(P) B(P)"_s);
}

void TestCDependencyEditor::AddWhatIsNoCandidate_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("of another list") << u"P"_s;
    QTest::newRow("of no list") << u"nobody"_s;
    QTest::newRow("in other case") << u"a"_s;
    QTest::newRow("empty") << QString();
}

void TestCDependencyEditor::AddWhatIsNoCandidate() {
    QFETCH(QString, text);
    CDependencyEditor editor = Editor();
    QVERIFY(!editor.Add(At(editor), text));
    QVERIFY(!editor.IsChanged());
}

void TestCDependencyEditor::AddAll() {
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Add(At(editor), u"B"_s));
    QCOMPARE(editor.AddAll(At(editor)), 2);
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c"_s);
    QCOMPARE(editor.AddAll(At(editor)), 0);
    QCOMPARE(editor.AddAll(At(editor, {u"c"_s})), 2);
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c(P Q)"_s);
}

void TestCDependencyEditor::AddAllOfAHugeList() {
    constexpr int kItems = 20000;
    QVERIFY(home->manager.File().Execute(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<20000) INSERT INTO "
        "item_velmarch "
        "SELECT 16, 1, printf('%05d', (i * 7919) % 20000), 0, printf('%032X', i) FROM n"));
    QVERIFY(catalogue->Load());
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.AddAll(At(editor)), kItems + 3);
    QCOMPARE(editor.Tree().Root().FirstChild()->Item()->GetText(), u"00000"_s);
    QCOMPARE(editor.Tree().Root().LastChild()->Item()->GetText(), u"c"_s);
    QCOMPARE(editor.Candidates(At(editor)), QStringList());
}

void TestCDependencyEditor::NothingBelowTheLastDepth() {
    Fill(33, {u"1"_s});
    Fill(34, {u"80"_s});
    CDependencyEditor editor = Editor();
    QStringList path;
    for (const QString& text : {u"A"_s, u"P"_s, u"write"_s, u"1"_s, u"80"_s}) {
        QVERIFY(editor.Add(At(editor, path), text));
        path += text;
    }
    QCOMPARE(editor.NextListOf(At(editor, path)), -1);
    QCOMPARE(editor.Candidates(At(editor, path)), QStringList());
    QCOMPARE(editor.AddAll(At(editor, path)), 0);
    QVERIFY(!editor.Add(At(editor, path), u"A"_s));
}

void TestCDependencyEditor::NumbersOfExpenses() {
    Fill(68, {u"Trip"_s});
    Fill(70, {u"0.50"_s});
    Fill(69, {u"12"_s});
    CDependencyEditor editor = Editor(RecordMode::Expense);
    QVERIFY(editor.Add(At(editor), u"A"_s));
    QVERIFY(editor.Add(At(editor, {u"A"_s}), u"P"_s));
    QVERIFY(editor.Add(At(editor, {u"A"_s, u"P"_s}), u"Trip"_s));
    Node& trip = At(editor, {u"A"_s, u"P"_s, u"Trip"_s});
    QCOMPARE(editor.Candidates(trip), QStringList{u"0.5"_s});
    QVERIFY(editor.Add(trip, u"0.5"_s));
    QVERIFY(editor.Add(*trip.FirstChild(), u"12"_s));
    QCOMPARE(Drawn(editor.Tree().Root()), u"A(P(Trip(0.5(12))))"_s);
}

/// As another program may have left it.
void TestCDependencyEditor::AddAllOfAListThatHoldsATextTwice() {
    QVERIFY(home->manager.File().Execute(
        "INSERT INTO item_velmarch SELECT 16, 1, 'A', 0, '0123456789ABCDEF0123456789ABCDEF'"));
    QVERIFY(catalogue->Load());
    QCOMPARE(catalogue->Texts(16).count(u"A"_s), 2);
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.AddAll(At(editor)), 3);
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c"_s);
}

void TestCDependencyEditor::Remove() {
    CDependencyEditor editor = Editor();
    QVERIFY(!editor.Remove(At(editor)));
    QVERIFY(!editor.IsChanged());
    QCOMPARE(editor.AddAll(At(editor)), 3);
    QCOMPARE(editor.AddAll(At(editor, {u"A"_s})), 2);
    QVERIFY(editor.Remove(At(editor, {u"A"_s})));
    QCOMPARE(Drawn(editor.Tree().Root()), u"B c"_s);
    QCOMPARE(catalogue->Texts(16), QStringList({u"B"_s, u"A"_s, u"c"_s}));
    QCOMPARE(catalogue->Texts(17), QStringList({u"P"_s, u"Q"_s}));
    QCOMPARE(editor.Candidates(At(editor)), QStringList{u"A"_s});
}

void TestCDependencyEditor::RemoveWhatIsStored() {
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"A"_s));
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Remove(At(editor, {u"A"_s})));
    QVERIFY(editor.IsChanged());
    editor.Accept();
    QCOMPARE(Stored(), QString());
}

/// With all that stands below it, to its place by its text.
void TestCDependencyEditor::Move() {
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.AddAll(At(editor)), 3);
    QCOMPARE(editor.AddAll(At(editor, {u"A"_s})), 2);
    QVERIFY(editor.Add(At(editor, {u"A"_s, u"P"_s}), u"write"_s));
    QVERIFY(editor.Add(At(editor, {u"B"_s}), u"Q"_s));
    Node& p = At(editor, {u"A"_s, u"P"_s});
    QVERIFY(editor.Move(p, At(editor, {u"B"_s})));
    QCOMPARE(Drawn(editor.Tree().Root()), u"A(Q) B(P(write) Q) c"_s);
    QCOMPARE(&At(editor, {u"B"_s, u"P"_s}), &p);
}

void TestCDependencyEditor::MoveWhereItDoesNotFit_data() {
    QTest::addColumn<QStringList>("from");
    QTest::addColumn<QStringList>("to");
    QTest::newRow("the root") << QStringList() << QStringList{u"A"_s};
    QTest::newRow("to where it stands") << QStringList{u"A"_s, u"P"_s} << QStringList{u"A"_s};
    QTest::newRow("to another level") << QStringList{u"A"_s, u"P"_s} << QStringList();
    QTest::newRow("below itself") << QStringList{u"A"_s} << QStringList{u"A"_s, u"P"_s};
    QTest::newRow("beside the same item") << QStringList{u"A"_s, u"Q"_s} << QStringList{u"B"_s};
}

void TestCDependencyEditor::MoveWhereItDoesNotFit() {
    QFETCH(QStringList, from);
    QFETCH(QStringList, to);
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    for (const auto& [client, project] : {std::pair(u"A"_s, u"P"_s), {u"A"_s, u"Q"_s}, {u"B"_s, u"Q"_s}}) {
        Node* node = tree.Walk({client});
        if (!node) node = &tree.Append(tree.Root(), *catalogue->FindItem(16, client));
        tree.Append(*node, *catalogue->FindItem(17, project));
    }
    CDependencyEditor editor = Editor();
    QVERIFY(!editor.CanMove(At(editor, from), At(editor, to)));
    QVERIFY(!editor.Move(At(editor, from), At(editor, to)));
    QCOMPARE(Drawn(editor.Tree().Root()), u"A(P Q) B(Q)"_s);
    QVERIFY(!editor.IsChanged());
}

/// What a dialog that is called off would lose: not what is stored at once.
void TestCDependencyEditor::WhatIsUnsaved() {
    CDependencyEditor editor = Editor();
    QVERIFY(editor.NewItem(16, u"D"_s));
    QCOMPARE(editor.RenameItem(16, u"D"_s, u"E"_s), CDependencyEditor::Renamed::Done);
    QVERIFY(editor.DeleteItem(16, u"E"_s));
    QVERIFY(editor.IsChanged() && !editor.HasUnsaved());
    QVERIFY(editor.Add(At(editor), u"A"_s));
    QVERIFY(editor.HasUnsaved());
}

void TestCDependencyEditor::NewItem_data() {
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("added");
    QTest::newRow("a new text") << 16 << u"D"_s << true;
    QTest::newRow("one that is there") << 16 << u"A"_s << false;
    QTest::newRow("empty") << 16 << QString() << false;
    QTest::newRow("coded") << 16 << u"[x"_s << false;
    QTest::newRow("a number") << 34 << u"80"_s << true;
    QTest::newRow("no number in a list of numbers") << 34 << u"eighty"_s << false;
    QTest::newRow("no list") << -1 << u"D"_s << false;
}

/// Without a question, whatever confirmAddListItem says: the user has just typed it.
void TestCDependencyEditor::NewItem() {
    QFETCH(int, list);
    QFETCH(QString, text);
    QFETCH(bool, added);
    home->settings->confirmAddListItem = true;
    if (list == -1) home->prompt.ExpectTold(Text::ItemWithoutList);
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.NewItem(list, text), added);
    TestHome next(home->Path());
    QCOMPARE(next.catalogue->HasItem(list, text), added || text == u"A"_s);
    QVERIFY(!editor.IsChanged());
}

void TestCDependencyEditor::RenameItem_data() {
    QTest::addColumn<QString>("newText");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("drawn");
    const auto row = [](const char* name, const QString& text, CDependencyEditor::Renamed result,
                        const QString& drawn) {
        QTest::newRow(name) << text << static_cast<int>(result) << drawn;
    };
    using enum CDependencyEditor::Renamed;
    row("every place shows the new text", u"R"_s, Done, u"A(Q R) B(R)"_s);
    row("the same text", u"P"_s, Kept, u"A(P Q) B(P)"_s);
    row("a text that is there", u"Q"_s, Kept, u"A(P Q) B(P)"_s);
    row("empty", QString(), Kept, u"A(P Q) B(P)"_s);
    row("coded", u"[P] P"_s, Kept, u"A(P Q) B(P)"_s);
}

void TestCDependencyEditor::RenameItem() {
    QFETCH(QString, newText);
    QFETCH(int, result);
    QFETCH(QString, drawn);
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Add(At(editor), u"A"_s) && editor.Add(At(editor), u"B"_s));
    QVERIFY(editor.AddAll(At(editor, {u"A"_s})) == 2 && editor.Add(At(editor, {u"B"_s}), u"P"_s));
    QCOMPARE(static_cast<int>(editor.RenameItem(17, u"P"_s, newText)), result);
    QCOMPARE(Drawn(editor.Tree().Root()), drawn);
}

/// The nodes stay the same ones: a dialog goes on with those it knows.
void TestCDependencyEditor::RenamePutsInOrder() {
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.AddAll(At(editor)), 3);
    const Node* a = &At(editor, {u"A"_s});
    QCOMPARE(editor.AddAll(At(editor, {u"A"_s})), 2);
    QCOMPARE(editor.RenameItem(16, u"A"_s, u"Z"_s), CDependencyEditor::Renamed::Done);
    QCOMPARE(Drawn(editor.Tree().Root()), u"B c Z(P Q)"_s);
    QCOMPARE(&At(editor, {u"Z"_s}), a);
    QCOMPARE(a->Previous()->Item()->GetText(), u"c"_s);
    QVERIFY(!a->Next());
    QCOMPARE(editor.Tree().Root().LastChild(), a);
    QVERIFY(editor.Add(At(editor, {u"B"_s}), u"Q"_s));
}

void TestCDependencyEditor::RenameThatFails() {
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Add(At(editor), u"A"_s));
    QCOMPARE(editor.RenameItem(16, u"nobody"_s, u"Z"_s), CDependencyEditor::Renamed::Failed);
    QCOMPARE(Drawn(editor.Tree().Root()), u"A"_s);
}

void TestCDependencyEditor::DeleteItem() {
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    for (const QString& client : {u"A"_s, u"B"_s})
        tree.Append(tree.Append(tree.Append(tree.Root(), *catalogue->FindItem(16, client)),
                                *catalogue->FindItem(17, u"P"_s)),
                    *catalogue->FindItem(32, u"write"_s));
    QVERIFY(catalogue->SaveTree(DependencySet::Time));
    CDependencyEditor editor = Editor();
    QVERIFY(editor.Add(At(editor), u"c"_s));
    QVERIFY(editor.Add(At(editor, {u"c"_s}), u"P"_s));
    QVERIFY(editor.DeleteItem(17, u"P"_s));
    QVERIFY(editor.IsChanged());
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c"_s);
    QCOMPARE(Stored(), u"A B"_s);
    QCOMPARE(catalogue->Texts(17), QStringList{u"Q"_s});
    QCOMPARE(editor.Candidates(At(editor, {u"A"_s})), QStringList{u"Q"_s});
    editor.Accept();
    QVERIFY(catalogue->SaveTree(DependencySet::Time));
    TestHome next(home->Path());
    QCOMPARE(Drawn(next.catalogue->Tree(DependencySet::Time).Root()), u"A B c"_s);
}

void TestCDependencyEditor::DeleteItemOfTheOtherMode() {
    DependencyTree& tree = catalogue->Tree(DependencySet::Expense);
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"A"_s));
    QVERIFY(catalogue->SaveTree(DependencySet::Expense));
    CDependencyEditor editor = Editor();
    QVERIFY(editor.DeleteItem(16, u"A"_s));
    QCOMPARE(Stored(DependencySet::Expense), QString());
    QVERIFY(editor.IsChanged());
}

void TestCDependencyEditor::DeleteItemThatIsNone() {
    CDependencyEditor editor = Editor();
    QVERIFY(!editor.DeleteItem(16, u"nobody"_s));
    QVERIFY(!editor.DeleteItem(-1, u"A"_s));
    QVERIFY(!editor.IsChanged());
}

void TestCDependencyEditor::AcceptAndSave() {
    CDependencyEditor editor = Editor();
    QCOMPARE(editor.AddAll(At(editor)), 3);
    QVERIFY(editor.Add(At(editor, {u"c"_s}), u"Q"_s));
    QVERIFY(editor.Add(At(editor, {u"c"_s}), u"P"_s));
    editor.Accept();
    QCOMPARE(Stored(), u"A B c(P Q)"_s);
    QVERIFY(catalogue->SaveTree(DependencySet::Time));
    TestHome next(home->Path());
    QCOMPARE(Drawn(next.catalogue->Tree(DependencySet::Time).Root()), u"A B c(P Q)"_s);
    QCOMPARE(Drawn(editor.Tree().Root()), u"A B c(P Q)"_s);
}

/// A stored tree that isn't sorted stays as it is until something changes.
void TestCDependencyEditor::AcceptWithoutChange() {
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"c"_s));
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"A"_s));
    CDependencyEditor editor = Editor();
    editor.Accept();
    QCOMPARE(Stored(), u"c A"_s);
    QVERIFY(editor.Add(At(editor), u"B"_s));
    editor.Accept();
    QCOMPARE(Stored(), u"A B c"_s);
}

void TestCDependencyEditor::GivenUp() {
    DependencyTree& tree = catalogue->Tree(DependencySet::Time);
    tree.Append(tree.Root(), *catalogue->FindItem(16, u"A"_s));
    {
        CDependencyEditor editor = Editor();
        QVERIFY(editor.Remove(At(editor, {u"A"_s})));
        QVERIFY(editor.Add(At(editor), u"B"_s));
    }
    QCOMPARE(Stored(), u"A"_s);
}

void TestCDependencyEditor::ItemsStayWhenGivenUp() {
    {
        CDependencyEditor editor = Editor();
        QVERIFY(editor.NewItem(16, u"D"_s));
        QCOMPARE(editor.RenameItem(16, u"A"_s, u"Z"_s), CDependencyEditor::Renamed::Done);
        QVERIFY(editor.DeleteItem(16, u"B"_s));
    }
    QCOMPARE(catalogue->Texts(16), QStringList({u"Z"_s, u"c"_s, u"D"_s}));
}

TEST_CLASS(TestCDependencyEditor);
#include "TestCDependencyEditor.moc"
