#include "DrawnTree.h"
#include "app/CPulldownCatalogue.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

// How the catalogue changes several items as one: deleting some, and making one of two.

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr DependencySet kTimes = DependencySet::Time;
constexpr DependencySet kExpenses = DependencySet::Expense;

}  // namespace

class TestCataloguePairs : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;

    void Run(const QString& sql) { QVERIFY2(home->manager.File().Execute(sql.toUtf8()), qPrintable(sql)); }
    void Refuse(const QString& change) {
        Run(u"CREATE TRIGGER refuse BEFORE %1 BEGIN SELECT RAISE(ABORT,'no'); END"_s.arg(change));
    }
    [[nodiscard]] QString TreeOf(DependencySet set) const { return Drawn(catalogue->Tree(set).Root()); }
    DependencyTree::Node& Hang(DependencySet set, DependencyTree::Node& under, int list,
                               const QString& text) {
        return catalogue->Tree(set).Append(under, *catalogue->FindItem(list, text));
    }
    /// What another program finds.
    [[nodiscard]] QString Stored() const {
        const TestHome other(home->Path());
        return other.catalogue->Texts(16).join(u' ') + u" | "_s +
               Drawn(other.catalogue->Tree(kTimes).Root()) + u" | "_s +
               Drawn(other.catalogue->Tree(kExpenses).Root());
    }
    [[nodiscard]] QString InMemory() const {
        return catalogue->Texts(16).join(u' ') + u" | "_s + TreeOf(kTimes) + u" | "_s + TreeOf(kExpenses);
    }

 private Q_SLOTS:
    /// The times' tree is A(P)B(PQ)C, that of expenses B(Q).
    void init() {
        home = std::make_unique<TestHome>();
        catalogue = home->catalogue.get();
        for (const QString& text : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
            QVERIFY(catalogue->AddItem(16, text, false));
        for (const QString& text : {u"P"_s, u"Q"_s}) QVERIFY(catalogue->AddItem(17, text, false));
        DependencyTree::Node& times = catalogue->Tree(kTimes).Root();
        Hang(kTimes, Hang(kTimes, times, 16, u"A"_s), 17, u"P"_s);
        DependencyTree::Node& b = Hang(kTimes, times, 16, u"B"_s);
        Hang(kTimes, b, 17, u"P"_s);
        Hang(kTimes, b, 17, u"Q"_s);
        Hang(kTimes, times, 16, u"C"_s);
        DependencyTree::Node& expenses = catalogue->Tree(kExpenses).Root();
        Hang(kExpenses, Hang(kExpenses, expenses, 16, u"B"_s), 17, u"Q"_s);
        QVERIFY(catalogue->SaveTree(kTimes) && catalogue->SaveTree(kExpenses));
    }
    void cleanup() {
        home->prompt.Finish();
        home.reset();
    }

    void DeleteItems_data() {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<bool>("isDone");
        QTest::addColumn<QString>("left");
        QTest::newRow("in no tree") << QStringList{u"D"_s} << true << u"A B C | A(P)B(PQ)C | B(Q)"_s;
        QTest::newRow("in one tree and in none")
            << QStringList{u"A"_s, u"D"_s} << true << u"B C | B(PQ)C | B(Q)"_s;
        QTest::newRow("in both trees") << QStringList{u"B"_s, u"C"_s} << true << u"A D | A(P) | "_s;
        QTest::newRow("one that isn't there")
            << QStringList{u"A"_s, u"Z"_s} << true << u"B C D | B(PQ)C | B(Q)"_s;
        QTest::newRow("none that is there")
            << QStringList{u"Z"_s} << false << u"A B C D | A(P)B(PQ)C | B(Q)"_s;
    }
    void DeleteItems() {
        QFETCH(QStringList, texts);
        QFETCH(QString, left);
        QTEST(catalogue->DeleteItems(16, texts), "isDone");
        QCOMPARE(InMemory(), left);
        QCOMPARE(Stored(), left);
        QCOMPARE(catalogue->HasItem(16, u"D"_s), left.contains(u'D'));
    }

    void DeleteItemsAsOneChange_data() {
        QTest::addColumn<QString>("refused");
        QTest::addColumn<QList<Text>>("told");
        QTest::newRow("the second row stays")
            << u"DELETE ON item_velmarch WHEN (SELECT count(*) FROM item_velmarch WHERE list=16)=3"_s
            << QList<Text>{Text::DeleteFailed, Text::ItemsNotDeleted};
        QTest::newRow("a tree can't be written")
            << u"UPDATE ON dependency_velmarch"_s
            << QList<Text>{Text::ModifyFailed, Text::DependenciesNotUpdated};
    }
    void DeleteItemsAsOneChange() {
        QFETCH(QString, refused);
        QFETCH(QList<Text>, told);
        const QString before = InMemory();
        Refuse(refused);
        for (const Text text : told) home->prompt.ExpectTold(text);
        QVERIFY(!catalogue->DeleteItems(16, {u"A"_s, u"D"_s}));
        QCOMPARE(InMemory(), before);
        QCOMPARE(Stored(), before);
    }

    void MergeItems_data() {
        QTest::addColumn<QString>("gone");
        QTest::addColumn<QString>("kept");
        QTest::addColumn<QString>("left");
        QTest::newRow("in no tree") << u"D"_s << u"A"_s << u"A B C | A(P)B(PQ)C | B(Q)"_s;
        QTest::newRow("in both trees") << u"B"_s << u"A"_s << u"A C D | A(PQ)C | A(Q)"_s;
        QTest::newRow("into one without a place") << u"A"_s << u"D"_s << u"B C D | B(PQ)CD(P) | B(Q)"_s;
    }
    void MergeItems() {
        QFETCH(QString, gone);
        QFETCH(QString, kept);
        QFETCH(QString, left);
        QVERIFY(catalogue->MergeItems(16, gone, kept));
        QCOMPARE(InMemory(), left);
        QCOMPARE(Stored(), left);
        QVERIFY(!catalogue->HasItem(16, gone));
    }

    void MergeItemsThatAreNone_data() {
        QTest::addColumn<QString>("gone");
        QTest::addColumn<QString>("kept");
        QTest::newRow("the first isn't there") << u"Z"_s << u"A"_s;
        QTest::newRow("the second isn't there") << u"A"_s << u"Z"_s;
        QTest::newRow("both are the same") << u"A"_s << u"A"_s;
    }
    void MergeItemsThatAreNone() {
        QFETCH(QString, gone);
        QFETCH(QString, kept);
        const QString before = InMemory();
        home->prompt.ExpectTold(Text::ItemsNotMerged);
        QVERIFY(!catalogue->MergeItems(16, gone, kept));
        QCOMPARE(InMemory(), before);
        QCOMPARE(Stored(), before);
    }

    void MergeItemsAsOneChange_data() {
        QTest::addColumn<QString>("refused");
        QTest::addColumn<Text>("told");
        QTest::newRow("the item stays") << u"DELETE ON item_velmarch"_s << Text::DeleteFailed;
        QTest::newRow("a tree can't be written") << u"UPDATE ON dependency_velmarch"_s << Text::ModifyFailed;
    }
    void MergeItemsAsOneChange() {
        QFETCH(QString, refused);
        QFETCH(Text, told);
        const QString before = InMemory();
        Refuse(refused);
        home->prompt.ExpectTold(told);
        home->prompt.ExpectTold(Text::ItemsNotMerged);
        QVERIFY(!catalogue->MergeItems(16, u"B"_s, u"A"_s));
        QCOMPARE(InMemory(), before);
        QCOMPARE(Stored(), before);
    }

    void TryRenameItemTellsNothingItself() {
        QVERIFY(catalogue->TryRenameItem(16, u"A"_s, u"E"_s));
        QCOMPARE(InMemory(), u"E B C D | E(P)B(PQ)C | B(Q)"_s);
        QVERIFY(!catalogue->TryRenameItem(16, u"Z"_s, u"F"_s));
        Refuse(u"UPDATE ON item_velmarch"_s);
        home->prompt.ExpectTold(Text::ModifyFailed);
        QVERIFY(!catalogue->TryRenameItem(16, u"E"_s, u"F"_s));
        QCOMPARE(InMemory(), u"E B C D | E(P)B(PQ)C | B(Q)"_s);
    }
};

TEST_CLASS(TestCataloguePairs);
#include "TestCataloguePairs.moc"
