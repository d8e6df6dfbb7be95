#include "app/DependencyTree.h"

#include "records/CPRecord.h"
#include "support/TestProgram.h"

#include <QStringList>
#include <QTest>
#include <deque>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace {

using Node = DependencyTree::Node;

/// Items by their texts, each made when it is first asked for.
class Items {
 public:
    const CPRecord& operator[](const QString& text) {
        CPRecord& item = m_items[text];
        if (item.text.isEmpty()) item.SetText(text);
        return item;
    }

 private:
    std::map<QString, CPRecord> m_items;
};

DependencyTree::ItemTest IsItem(const CPRecord& item) {
    return [&item](const CPRecord& one) { return &one == &item; };
}

/// "a(b c(d)) e": children in brackets behind their parent.
QString Drawn(const Node& node) {
    QStringList children;
    for (const Node* child = node.FirstChild(); child; child = child->Next()) children.append(Drawn(*child));
    const QString below = children.join(u' ');
    if (!node.Item()) return below;
    return node.Item()->GetText() + (below.isEmpty() ? QString() : u'(' + below + u')');
}

QString Drawn(const DependencyTree& tree) {
    return Drawn(tree.Root());
}

/// The same from the last child to the first: the chain holds in both directions.
QString DrawnBackwards(const Node& node) {
    QStringList children;
    for (const Node* child = node.LastChild(); child; child = child->Previous())
        children.prepend(DrawnBackwards(*child));
    const QString below = children.join(u' ');
    if (!node.Item()) return below;
    return node.Item()->GetText() + (below.isEmpty() ? QString() : u'(' + below + u')');
}

}  // namespace

class TestDependencyTree : public QObject {
    Q_OBJECT

    Items items;

    /// a(b c(d)) e(c)
    DependencyTree Sample() {
        DependencyTree tree;
        Node& a = tree.Append(tree.Root(), items[u"a"_s]);
        tree.Append(a, items[u"b"_s]);
        Node& c = tree.Append(a, items[u"c"_s]);
        tree.Append(c, items[u"d"_s]);
        Node& e = tree.Append(tree.Root(), items[u"e"_s]);
        tree.Append(e, items[u"c"_s]);
        return tree;
    }

 private Q_SLOTS:
    void NewTreeIsEmpty() {
        const DependencyTree tree;
        QVERIFY(tree.IsEmpty());
        QVERIFY(!tree.Root().Item());
        QVERIFY(!tree.Root().Parent());
        QCOMPARE(tree.Root().Depth(), 0);
        QVERIFY(!DependencyTree::NextOf(tree.Root()));
        QCOMPARE(tree.Walk({}), &tree.Root());
    }

    void AppendAndPrepend() {
        DependencyTree tree;
        tree.Append(tree.Root(), items[u"b"_s]);
        tree.Append(tree.Root(), items[u"c"_s]);
        tree.Prepend(tree.Root(), items[u"a"_s]);
        QCOMPARE(Drawn(tree), u"a b c"_s);
        QCOMPARE(DrawnBackwards(tree.Root()), u"a b c"_s);
        QVERIFY(!tree.IsEmpty());
    }

    void MoveTakesTheBranchAlong() {
        DependencyTree tree = Sample();  // a(b c(d)) e(c)
        Node* c = tree.Walk({u"a"_s, u"c"_s});
        DependencyTree::Move(*c, *tree.Walk({u"e"_s}));
        QCOMPARE(Drawn(tree), u"a(b) e(c c(d))"_s);
        QCOMPARE(DrawnBackwards(tree.Root()), u"a(b) e(c c(d))"_s);
        QCOMPARE(c->Parent()->Item(), &items[u"e"_s]);
        DependencyTree::Move(*c, tree.Root());
        QCOMPARE(Drawn(tree), u"a(b) e(c) c(d)"_s);
        DependencyTree::Move(tree.Root(), *c);  // stays
        QCOMPARE(DrawnBackwards(tree.Root()), u"a(b) e(c) c(d)"_s);
    }

    void Places() {
        const DependencyTree tree = Sample();
        const Node* d = tree.Walk({u"a"_s, u"c"_s, u"d"_s});
        QVERIFY(d);
        QCOMPARE(d->Item(), &items[u"d"_s]);
        QCOMPARE(d->Depth(), 3);
        QCOMPARE(d->Parent()->Item(), &items[u"c"_s]);
        QCOMPARE(DrawnBackwards(tree.Root()), u"a(b c(d)) e(c)"_s);
    }

    /// The nodes stay the same ones, each with what hangs below it.
    void SortChildren() {
        DependencyTree tree;
        for (const QString& text : {u"b"_s, u"C"_s, u"a"_s, u"c"_s, u"B"_s})
            tree.Append(tree.Append(tree.Root(), items[text]), items[u"below "_s + text]);
        const Node* c = tree.Root().FirstChild()->Next();
        DependencyTree::SortChildren(tree.Root());
        QCOMPARE(Drawn(tree), u"a(below a) b(below b) B(below B) C(below C) c(below c)"_s);
        QCOMPARE(DrawnBackwards(tree.Root()), Drawn(tree));
        QCOMPARE(c->Item()->GetText(), u"C"_s);
        QCOMPARE(c->FirstChild()->Item()->GetText(), u"below C"_s);
        Node& none = *tree.Root().FirstChild()->FirstChild();
        DependencyTree::SortChildren(none);
        QVERIFY(!none.FirstChild());
    }

    void SortedByText_data() {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("sorted");
        QTest::newRow("ascending") << QStringList{u"a"_s, u"b"_s, u"c"_s} << u"a b c"_s;
        QTest::newRow("descending") << QStringList{u"c"_s, u"b"_s, u"a"_s} << u"a b c"_s;
        QTest::newRow("into the middle") << QStringList{u"a"_s, u"c"_s, u"b"_s} << u"a b c"_s;
        QTest::newRow("the case of letters doesn't count")
            << QStringList{u"Beta"_s, u"alpha"_s, u"gamma"_s} << u"alpha Beta gamma"_s;
        QTest::newRow("equal ones in the order of their coming")
            << QStringList{u"b"_s, u"B"_s, u"a"_s} << u"a b B"_s;
        QTest::newRow("numbers as texts") << QStringList{u"10"_s, u"9"_s} << u"10 9"_s;
    }
    void SortedByText() {
        QFETCH(QStringList, texts);
        DependencyTree tree;
        for (const QString& text : texts) tree.Append(tree.Root(), items[text]);
        DependencyTree::SortChildren(tree.Root());
        QTEST(Drawn(tree), "sorted");
        QTEST(DrawnBackwards(tree.Root()), "sorted");
    }

    void Remove_data() {
        QTest::addColumn<QStringList>("path");
        QTest::addColumn<QString>("left");
        QTest::newRow("a leaf") << QStringList{u"a"_s, u"b"_s} << u"a(c(d)) e(c)"_s;
        QTest::newRow("the last of its siblings, with what is below")
            << QStringList{u"a"_s, u"c"_s} << u"a(b) e(c)"_s;
        QTest::newRow("a whole branch") << QStringList{u"a"_s} << u"e(c)"_s;
        QTest::newRow("the last branch") << QStringList{u"e"_s} << u"a(b c(d))"_s;
        QTest::newRow("the root stays") << QStringList() << u"a(b c(d)) e(c)"_s;
    }
    void Remove() {
        QFETCH(QStringList, path);
        DependencyTree tree = Sample();
        Node* node = tree.Walk(path);
        QVERIFY(node);
        tree.Remove(*node);
        QTEST(Drawn(tree), "left");
        QTEST(DrawnBackwards(tree.Root()), "left");
    }

    void RemoveEveryPlaceOfAnItem_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QString>("left");
        QTest::newRow("at two places, the children go with it") << u"c"_s << true << u"a(b) e"_s;
        QTest::newRow("at the top") << u"a"_s << true << u"e(c)"_s;
        QTest::newRow("at the bottom") << u"d"_s << true << u"a(b c) e(c)"_s;
        QTest::newRow("nowhere") << u"x"_s << false << u"a(b c(d)) e(c)"_s;
    }
    void RemoveEveryPlaceOfAnItem() {
        QFETCH(QString, item);
        DependencyTree tree = Sample();
        QTEST(tree.RemoveIf(IsItem(items[item])), "found");
        QTEST(Drawn(tree), "left");
        QTEST(DrawnBackwards(tree.Root()), "left");
    }

    void RemoveAnItemBelowItself() {
        DependencyTree tree;
        Node& outer = tree.Append(tree.Root(), items[u"a"_s]);
        tree.Append(outer, items[u"a"_s]);
        tree.Append(tree.Root(), items[u"a"_s]);
        QVERIFY(tree.RemoveIf(IsItem(items[u"a"_s])));
        QVERIFY(tree.IsEmpty());
    }

    void RemoveIf() {
        DependencyTree tree = Sample();
        const auto isBOrD = [](const CPRecord& item) { return item.text == u"b" || item.text == u"d"; };
        QVERIFY(tree.Holds(isBOrD));
        QVERIFY(tree.RemoveIf(isBOrD));
        QCOMPARE(Drawn(tree), u"a(c) e(c)"_s);
        QVERIFY(!tree.Holds(isBOrD));
        QVERIFY(!tree.RemoveIf(isBOrD));
    }

    void Walk_data() {
        QTest::addColumn<QStringList>("path");
        QTest::addColumn<bool>("found");
        QTest::newRow("the first step") << QStringList{u"e"_s} << true;
        QTest::newRow("to the bottom") << QStringList{u"a"_s, u"c"_s, u"d"_s} << true;
        QTest::newRow("a text that isn't there") << QStringList{u"a"_s, u"x"_s} << false;
        QTest::newRow("a text of another branch") << QStringList{u"e"_s, u"b"_s} << false;
        QTest::newRow("below the bottom") << QStringList{u"a"_s, u"b"_s, u"d"_s} << false;
        QTest::newRow("another case of letters") << QStringList{u"A"_s} << false;
        QTest::newRow("an empty text") << QStringList{u""_s} << false;
    }
    void Walk() {
        QFETCH(QStringList, path);
        const DependencyTree tree = Sample();
        const Node* node = tree.Walk(path);
        QTEST(node != nullptr, "found");
        if (node) QCOMPARE(node->Item()->text, path.last());
    }

    void FindChildTakesTheFirstOfSeveral() {
        CPRecord first(u"twin"_s), second(u"twin"_s);
        DependencyTree tree;
        tree.Append(tree.Root(), first);
        tree.Append(tree.Root(), second);
        QCOMPARE(tree.Root().FindChild(u"twin"_s)->Item(), &first);
    }

    void NumbersAreFoundByWhatTheyShow() {
        const CPRecord rate(1.5F);
        DependencyTree tree;
        tree.Append(tree.Root(), rate);
        QVERIFY(tree.Walk({u"1.5"_s}));
        QVERIFY(!tree.Walk({u"1.50"_s}));
    }

    void NextOfWalksParentsBeforeChildren() {
        const DependencyTree tree = Sample();
        QString walked;
        for (const Node* node = DependencyTree::NextOf(tree.Root()); node;
             node = DependencyTree::NextOf(*node))
            walked += node->Item()->text;
        QCOMPARE(walked, u"abcdec"_s);
    }

    void MovedTreeLeavesAnEmptyOne() {
        DependencyTree from = Sample();
        DependencyTree to(std::move(from));
        QCOMPARE(Drawn(to), u"a(b c(d)) e(c)"_s);
        QVERIFY(from.IsEmpty());  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        from.Append(from.Root(), items[u"x"_s]);
        to = std::move(from);
        QCOMPARE(Drawn(to), u"x"_s);
        QVERIFY(from.IsEmpty());  // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    }

    void Clear() {
        DependencyTree tree = Sample();
        tree.Clear();
        QVERIFY(tree.IsEmpty());
        QVERIFY(!tree.Root().LastChild());
    }

    /// A tree may be as deep as the store can hold: nothing here runs on the program's stack.
    void DeepPath() {
        constexpr int kDepth = 100000;
        DependencyTree tree;
        Node* node = &tree.Root();
        for (int i = 0; i < kDepth; ++i) node = &tree.Append(*node, items[u"a"_s]);
        QCOMPARE(node->Depth(), kDepth);
        Node& deepest = tree.Append(*node, items[u"b"_s]);
        int nodes = 0;
        for (const Node* one = DependencyTree::NextOf(tree.Root()); one; one = DependencyTree::NextOf(*one))
            ++nodes;
        QCOMPARE(nodes, kDepth + 1);
        QVERIFY(tree.Walk(QStringList(kDepth, u"a"_s)) == node);
        QVERIFY(tree.RemoveIf(IsItem(*deepest.Item())));
        QVERIFY(!node->FirstChild());
        DependencyTree moved(std::move(tree));
        QVERIFY(moved.RemoveIf(IsItem(items[u"a"_s])));
        QVERIFY(moved.IsEmpty());
    }

    void ManyChildren() {
        constexpr int kChildren = 50000;
        std::deque<CPRecord> many;
        DependencyTree tree;
        for (int i = 0; i < kChildren; ++i) {
            many.emplace_back(u"%1"_s.arg(i, 6, 10, QChar(u'0')));
            tree.Prepend(tree.Root(), many.back());
        }
        DependencyTree::SortChildren(tree.Root());
        QCOMPARE(tree.Root().LastChild()->Item()->text, u"049999"_s);
        QVERIFY(tree.RemoveIf([](const CPRecord& item) { return item.text != u"012345"; }));
        QCOMPARE(Drawn(tree), u"012345"_s);
    }
};

TEST_CLASS(TestDependencyTree);
#include "TestDependencyTree.moc"
