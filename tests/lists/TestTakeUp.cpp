#include "lists/CDependencyEditor.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>
#include <functional>

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

Node& At(const CDependencyEditor& editor, const QStringList& path = {}) {
    Node* node = editor.Tree().Walk(path);
    if (!node) qFatal("there is no %s", qPrintable(path.join(u'/')));
    return *node;
}

/// What a program does to a tree.
using Edit = std::function<void(CDependencyEditor& editor)>;

void Nothing(CDependencyEditor&) {}

}  // namespace

/// A tree that is edited while another program writes to the store: A(P) B is stored at first, C and Q are
/// items that hang nowhere.
class TestTakeUp final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

    void DoOutside(const Edit& edit) const {
        const TestHome other(home->Path());
        CDependencyEditor editor(*other.catalogue, RecordMode::Time);
        edit(editor);
        editor.Accept();
        QVERIFY(other.catalogue->SaveTree(DependencySet::Time));
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        for (const QString& text : {u"A"_s, u"B"_s, u"C"_s})
            QVERIFY(home->catalogue->AddItem(16, text, false));
        for (const QString& text : {u"P"_s, u"Q"_s}) QVERIFY(home->catalogue->AddItem(17, text, false));
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        QCOMPARE(editor.Add(At(editor), {u"A"_s, u"B"_s}), 2);
        QVERIFY(editor.Add(At(editor, {u"A"_s}), u"P"_s));
        editor.Accept();
        QVERIFY(home->catalogue->SaveTree(DependencySet::Time));
    }
    void cleanup() { home.reset(); }

    void BothProgramsKeepWhatTheyDid_data() {
        QTest::addColumn<Edit>("here");
        QTest::addColumn<Edit>("outside");
        QTest::addColumn<QString>("drawn");
        const auto add = [](const QStringList& path, const QString& text) -> Edit {
            return [=](CDependencyEditor& editor) { QVERIFY(editor.Add(At(editor, path), text)); };
        };
        const auto remove = [](const QStringList& path) -> Edit {
            return [=](CDependencyEditor& editor) { QVERIFY(editor.Remove(At(editor, path))); };
        };
        const auto erase = [](int list, const QString& text) -> Edit {
            return [=](CDependencyEditor& editor) { QVERIFY(editor.DeleteItem(list, text)); };
        };
        const Edit none = Nothing;
        QTest::newRow("nothing here") << none << add({}, u"C"_s) << u"A(P) B C"_s;
        QTest::newRow("nothing outside") << add({u"B"_s}, u"Q"_s) << none << u"A(P) B(Q)"_s;
        QTest::newRow("each adds") << add({u"A"_s}, u"Q"_s) << add({}, u"C"_s) << u"A(P Q) B C"_s;
        QTest::newRow("both add the same") << add({u"A"_s}, u"Q"_s) << add({u"A"_s}, u"Q"_s) << u"A(P Q) B"_s;
        QTest::newRow("each removes") << remove({u"B"_s}) << remove({u"A"_s, u"P"_s}) << u"A"_s;
        QTest::newRow("both remove the same") << remove({u"B"_s}) << remove({u"B"_s}) << u"A(P)"_s;
        QTest::newRow("a branch goes under which something came")
            << remove({u"A"_s}) << add({u"A"_s}, u"Q"_s) << u"B"_s;
        QTest::newRow("what something came under goes")
            << add({u"A"_s}, u"Q"_s) << remove({u"A"_s}) << u"B"_s;
        QTest::newRow("an item is deleted that was added")
            << add({}, u"C"_s) << erase(16, u"C"_s) << u"A(P) B"_s;
        QTest::newRow("a moved branch") << Edit([](CDependencyEditor& editor) {
            QVERIFY(editor.Move(At(editor, {u"A"_s, u"P"_s}), At(editor, {u"B"_s})));
        }) << add({u"A"_s}, u"Q"_s) << u"A(Q) B(P)"_s;
    }
    void BothProgramsKeepWhatTheyDid() {
        QFETCH(Edit, here);
        QFETCH(Edit, outside);
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        here(editor);
        DoOutside(outside);
        QVERIFY(editor.TakeUp());
        QTEST(Drawn(editor.Tree().Root()), "drawn");
        editor.Accept();
        QVERIFY(home->catalogue->SaveTree(DependencySet::Time));
        const TestHome next(home->Path());
        QTEST(Drawn(next.catalogue->Tree(DependencySet::Time).Root()), "drawn");
    }

    /// What was taken up once is nothing new the next time.
    void Twice() {
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        QVERIFY(editor.Remove(At(editor, {u"B"_s})));
        DoOutside([](CDependencyEditor& other) { QVERIFY(other.Add(At(other), u"C"_s)); });
        QVERIFY(editor.TakeUp());
        QVERIFY(editor.Remove(At(editor, {u"C"_s})));
        DoOutside([](CDependencyEditor& other) { QVERIFY(other.Remove(At(other, {u"A"_s, u"P"_s}))); });
        QVERIFY(editor.TakeUp());
        QCOMPARE(Drawn(editor.Tree().Root()), u"A"_s);
    }

    void ItemsFromOutsideAreCandidates() {
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        DoOutside([](CDependencyEditor& other) { QVERIFY(other.NewItem(16, u"D"_s)); });
        QCOMPARE(editor.Candidates(At(editor)), QStringList{u"C"_s});
        QVERIFY(editor.TakeUp());
        QCOMPARE(editor.Candidates(At(editor)), QStringList({u"C"_s, u"D"_s}));
    }

    /// The same nodes: a dialog goes on with those it knows.
    void NothingHappenedOutside() {
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        const Node* a = &At(editor, {u"A"_s});
        QVERIFY(editor.NewItem(16, u"D"_s));  // written by this program
        QVERIFY(!home->catalogue->IsStale());
        QVERIFY(editor.TakeUp());
        QCOMPARE(&At(editor, {u"A"_s}), a);
    }

    /// What a store can hold is no limit here either: the way to a place isn't kept with each place.
    void ATreeOfAnyDepth() {
        constexpr int kDepth = 20000;
        Node* node = &home->catalogue->Tree(DependencySet::Time).Root();
        for (int i = 0; i < kDepth; ++i)
            node = &home->catalogue->Tree(DependencySet::Time)
                        .Append(*node, *home->catalogue->FindItem(17, u"Q"_s));
        QVERIFY(home->catalogue->SaveTree(DependencySet::Time));
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        QVERIFY(editor.Add(At(editor), u"C"_s));
        { QVERIFY(TestHome(home->Path()).catalogue->AddItem(16, u"D"_s, false)); }
        QVERIFY(editor.TakeUp());
        QVERIFY(editor.Tree().Walk({u"C"_s}));
        QVERIFY(editor.Tree().Walk(QStringList(kDepth, u"Q"_s)));
    }

    void ItemsThatCannotBeRead() {
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        QVERIFY(editor.Add(At(editor), u"C"_s));
        {
            TestHome other(home->Path());
            QVERIFY(other.manager.File().Execute("INSERT INTO item_velmarch VALUES(999,1,'x',0,'" +
                                                 QByteArray(32, 'A') + "')"));
        }
        home->prompt.ExpectTold(Text::StoredItemWithoutList);
        QVERIFY(!editor.TakeUp());
        QVERIFY(editor.Tree().IsEmpty());
        QVERIFY(home->catalogue->IsStale());
    }

    /// Damage that the user doesn't give up leaves nothing to edit.
    void ATreeThatCannotBeRead() {
        CDependencyEditor editor(*home->catalogue, RecordMode::Time);
        {
            TestHome other(home->Path());
            QVERIFY(other.manager.File().Execute("DELETE FROM item_velmarch WHERE text='A'"));
        }
        home->prompt.Expect(Text::AskResetTree, Answer::No);
        QVERIFY(!editor.TakeUp());
        QVERIFY(editor.Tree().IsEmpty());
    }
};

TEST_CLASS(TestTakeUp);
#include "TestTakeUp.moc"
