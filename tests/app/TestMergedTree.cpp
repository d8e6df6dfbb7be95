#include "app/MergedTree.h"

#include "records/CPRecord.h"
#include "support/TestProgram.h"

#include <QTest>
#include <map>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Drawn(const DependencyTree::Node& node) {
    QString children;
    for (const auto* child = node.FirstChild(); child; child = child->Next()) children += Drawn(*child);
    if (!node.Item()) return children;
    return node.Item()->GetText() + (children.isEmpty() ? QString() : u'(' + children + u')');
}

/// Items of one letter, and trees of them as they are drawn: "A(PQ)B".
class Letters {
 public:
    const CPRecord& operator[](QChar letter) {
        std::unique_ptr<CPRecord>& item = m_items[letter];
        if (!item) item = std::make_unique<CPRecord>(QString(letter));
        return *item;
    }
    DependencyTree Tree(const QString& drawn) {
        DependencyTree tree;
        DependencyTree::Node* parent = &tree.Root();
        for (const QChar c : drawn) {
            if (c == u'(')
                parent = parent->LastChild();
            else if (c == u')')
                parent = parent->Parent();
            else
                tree.Append(*parent, (*this)[c]);
        }
        return tree;
    }

 private:
    std::map<QChar, std::unique_ptr<CPRecord>> m_items;
};

}  // namespace

/// What becomes of a tree when item X goes into item K.
class TestMergedTree : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void MergedTree_data();
    void MergedTree();
    void AnyDepth();
};

void TestMergedTree::MergedTree_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("an empty tree") << u""_s << u""_s;
    QTest::newRow("the item isn't there") << u"B(P)A"_s << u"B(P)A"_s;
    QTest::newRow("the kept item takes its place, in order") << u"A(P)X(Q)Z"_s << u"A(P)K(Q)Z"_s;
    QTest::newRow("at a place where the order changes") << u"LMX(Q)"_s << u"K(Q)LM"_s;
    QTest::newRow("beside the kept one") << u"K(P)X(Q)"_s << u"K(PQ)"_s;
    QTest::newRow("in front of the kept one, in its order") << u"X(Q)K(P)"_s << u"K(PQ)"_s;
    QTest::newRow("what stands below both comes once") << u"K(P(r)Q)X(P(s)T)"_s << u"K(P(rs)QT)"_s;
    QTest::newRow("under several parents") << u"A(X(p))B(KX(p))"_s << u"A(K(p))B(K(p))"_s;
    QTest::newRow("under the kept one") << u"K(X(p))"_s << u"K(K(p))"_s;
    QTest::newRow("other children stay in their order") << u"X(QP)"_s << u"K(QP)"_s;
}

void TestMergedTree::MergedTree() {
    QFETCH(QString, before);
    Letters letters;
    const DependencyTree tree = letters.Tree(before);
    const DependencyTree merged = ::MergedTree(tree, letters[u'X'], letters[u'K']);
    QTEST(Drawn(merged.Root()), "after");
    QCOMPARE(Drawn(tree.Root()), before);
}

/// Without recursion: 100,000 items below one another.
void TestMergedTree::AnyDepth() {
    Letters letters;
    DependencyTree tree;
    DependencyTree::Node* node = &tree.Root();
    for (int i = 0; i < 100000; ++i) node = &tree.Append(*node, letters[u'X']);
    const DependencyTree merged = ::MergedTree(tree, letters[u'X'], letters[u'K']);
    QVERIFY(!merged.Holds([&](const CPRecord& item) { return &item == &letters[u'X']; }));
    int count = 0;
    for (node = DependencyTree::NextOf(merged.Root()); node; node = DependencyTree::NextOf(*node)) ++count;
    QCOMPARE(count, 100000);
}

TEST_CLASS(TestMergedTree);
#include "TestMergedTree.moc"
