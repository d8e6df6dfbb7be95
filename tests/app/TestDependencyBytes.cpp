#include "app/DependencyBytes.h"

#include "records/CPRecord.h"
#include "support/TestProgram.h"

#include <QTest>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace {

using Node = DependencyTree::Node;

/// Items A to D; the identity of A is sixteen bytes 0xAA, and so on.
class Items {
 public:
    Items() {
        for (const char16_t letter : u"ABCD"_s.toStdU16String()) {
            CPRecord& item = m_items[QString(32, QChar(letter))];
            item.SetText(QString(QChar(letter)));
            item.SetId(QString(32, QChar(letter)));
        }
    }
    const CPRecord& operator[](char16_t letter) const { return m_items.at(QString(32, QChar(letter))); }
    [[nodiscard]] ItemLookup Lookup() const {
        return [this](const QString& id) {
            const auto item = m_items.find(id);
            return item == m_items.end() ? nullptr : &item->second;
        };
    }

 private:
    std::map<QString, CPRecord> m_items;
};

/// Bytes from a drawing: < begins a group, a letter is a whole item, ) ends a group; blanks don't count.
QByteArray Bytes(const QString& drawing) {
    QByteArray bytes;
    for (const QChar c : drawing) {
        if (c == u'<')
            bytes += '\x15';
        else if (c == u')')
            bytes += ')';
        else if (c != u' ')
            bytes += QByteArray("3\x10") + QByteArray::fromHex(QByteArray(32, c.toLatin1())) + '=';
    }
    return bytes;
}

QString Drawn(const Node& node) {
    QString children;
    for (const Node* child = node.FirstChild(); child; child = child->Next()) children += Drawn(*child);
    if (!node.Item()) return children;
    return node.Item()->GetText() + (children.isEmpty() ? QString() : u'(' + children + u')');
}

QString DrawnOrFailed(const std::optional<DependencyTree>& tree) {
    return tree ? Drawn(tree->Root()) : u"failed"_s;
}

}  // namespace

class TestDependencyBytes : public QObject {
    Q_OBJECT

    const Items items;

    QString Read(const QByteArray& bytes) { return DrawnOrFailed(TreeFromBytes(bytes, items.Lookup())); }

 private Q_SLOTS:
    /// One tree worked out by hand: A with children B and C, then D. Siblings go from the last to the first.
    void HandMadeBytes() {
        DependencyTree tree;
        Node& a = tree.Append(tree.Root(), items[u'A']);
        tree.Append(a, items[u'B']);
        tree.Append(a, items[u'C']);
        tree.Append(tree.Root(), items[u'D']);
        const QByteArray expected = QByteArray::fromHex(
            "15"
            "3310DDDDDDDDDDDDDDDDDDDDDDDDDDDDDDDD3D"
            "3310AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA3D"
            "15"
            "3310CCCCCCCCCCCCCCCCCCCCCCCCCCCCCCCC3D"
            "3310BBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBB3D"
            "29"
            "29");
        QCOMPARE(TreeToBytes(tree), expected);
        QCOMPARE(Read(expected), u"A(BC)D"_s);
    }

    void Read_data() {
        QTest::addColumn<QString>("bytes");
        QTest::addColumn<QString>("tree");
        QTest::newRow("nothing is an empty tree") << u""_s << u""_s;
        QTest::newRow("one item") << u"<A)"_s << u"A"_s;
        QTest::newRow("the last sibling comes first") << u"<CBA)"_s << u"ABC"_s;
        QTest::newRow("an item behind one with children") << u"<B<C)A)"_s << u"AB(C)"_s;
        QTest::newRow("three deep") << u"<A<B<C)))"_s << u"A(B(C))"_s;
        QTest::newRow("the same item at two places") << u"<B<D)A<D))"_s << u"A(D)B(D)"_s;
        QTest::newRow("an item below itself") << u"<A<A))"_s << u"A(A)"_s;
        QTest::newRow("the data ends before the groups do") << u"<A<B"_s << u"A(B)"_s;
        QTest::newRow("the data ends where a group begins") << u"<A<"_s << u"A"_s;
        QTest::newRow("a group without items") << u"<)"_s << u""_s;
        QTest::newRow("an item outside a group") << u"A"_s << u"failed"_s;
        QTest::newRow("an end without a group") << u")"_s << u"failed"_s;
        QTest::newRow("an end too many") << u"<A))"_s << u"failed"_s;
        QTest::newRow("an item behind the end") << u"<A)B"_s << u"failed"_s;
        QTest::newRow("a second group of the root") << u"<A)<B)"_s << u"failed"_s;
        QTest::newRow("a second group of an item") << u"<A<B)<C))"_s << u"failed"_s;
        QTest::newRow("a group within a group, without item") << u"<<A))"_s << u"failed"_s;
        QTest::newRow("an item that nobody knows") << u"<AE)"_s << u"failed"_s;
    }
    void Read() {
        QFETCH(QString, bytes);
        QTEST(Read(Bytes(bytes)), "tree");
    }

    void ReadBadItem_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray good = Bytes(u"<A)"_s);
        QTest::newRow("an unexpected byte at the start") << QByteArray("A") + good;
        QTest::newRow("an unexpected byte instead of the end") << good.chopped(1) + 'x';
        QTest::newRow("an unexpected byte in a group") << QByteArray("\x15 ") + good.mid(1);
        QTest::newRow("a missing =") << good.chopped(2) + ')';
        QTest::newRow("another byte instead of =") << good.chopped(2) + "-)";
        QTest::newRow("the data ends before =") << good.chopped(2);
        QTest::newRow("the data ends within the identity") << good.first(10);
        QTest::newRow("the data ends behind the length") << good.first(3);
        QTest::newRow("the data ends before the length") << good.first(2);
        QTest::newRow("a length beyond the data") << QByteArray(
                                                         "\x15"
                                                         "3\xff") +
                                                         good.mid(3);
        QTest::newRow("a shorter identity") << QByteArray(
                                                   "\x15"
                                                   "3\x0f") +
                                                   good.mid(4);
        QTest::newRow("an identity of no length") << QByteArray(
                                                         "\x15"
                                                         "3") +
                                                         '\0' + "=)";
    }
    void ReadBadItem() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(Read(bytes), u"failed"_s);
    }

    void OrderSurvivesManyTurns() {
        QByteArray bytes = Bytes(u"<D<B)C<AB<C))A)"_s);
        for (int i = 0; i < 3; ++i) {
            const auto tree = TreeFromBytes(bytes, items.Lookup());
            QCOMPARE(DrawnOrFailed(tree), u"AC(B(C)A)D(B)"_s);
            bytes = TreeToBytes(*tree);
        }
        QCOMPARE(bytes, Bytes(u"<D<B)C<AB<C))A)"_s));
    }

    void WriteEmptyTree() { QCOMPARE(TreeToBytes(DependencyTree()), QByteArray()); }

    void WriteLeavingOut_data() {
        QTest::addColumn<QString>("leftOut");
        QTest::addColumn<QString>("bytes");
        QTest::newRow("nothing") << u""_s << u"<CB<DC)A<B))"_s;
        QTest::newRow("an item at two places, with what is below") << u"B"_s << u"<CA)"_s;
        QTest::newRow("the only child: its group isn't written") << u"DC"_s << u"<BA<B))"_s;
        QTest::newRow("the last sibling") << u"C"_s << u"<B<D)A<B))"_s;
        QTest::newRow("all") << u"ABC"_s << u""_s;
    }
    /// The tree is A(B)B(CD)C.
    void WriteLeavingOut() {
        QFETCH(QString, leftOut);
        const auto tree = TreeFromBytes(Bytes(u"<CB<DC)A<B))"_s), items.Lookup());
        QVERIFY(tree);
        const QByteArray written =
            TreeToBytes(*tree, [&leftOut](const CPRecord& item) { return leftOut.contains(item.text); });
        QFETCH(QString, bytes);
        QCOMPARE(written, Bytes(bytes));
    }

    void DeepPath() {
        constexpr int kDepth = 100000;
        const QByteArray bytes = Bytes(u"<A"_s).repeated(kDepth) + QByteArray(kDepth, ')');
        const auto tree = TreeFromBytes(bytes, items.Lookup());
        QVERIFY(tree);
        const Node* deepest = &tree->Root();
        while (deepest->FirstChild()) deepest = deepest->FirstChild();
        QCOMPARE(deepest->Depth(), kDepth);
        QVERIFY(TreeToBytes(*tree) == bytes);
    }

    void Identities() {
        QCOMPARE(IdentityToBytes(u"0123456789ABCDEF0011223344556677"_s),
                 QByteArray::fromHex("0123456789abcdef0011223344556677"));
        QCOMPARE(IdentityFromBytes(QByteArray("\x01\xab", 2)), u"01AB"_s);
    }
};

TEST_CLASS(TestDependencyBytes);
#include "TestDependencyBytes.moc"
