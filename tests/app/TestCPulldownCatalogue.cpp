#include "DrawnTree.h"
#include "app/CPulldownCatalogue.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

// How the catalogue changes lists and trees. What it makes of what is stored: TestCPulldownCatalogueLoad.

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr DependencySet kTimes = DependencySet::Time;
constexpr DependencySet kExpenses = DependencySet::Expense;

}  // namespace

class TestCPulldownCatalogue : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;

    void Run(const QString& sql) { QVERIFY2(home->manager.File().Execute(sql.toUtf8()), qPrintable(sql)); }
    /// From here on the commit of such a change of an item fails.
    void FailCommits(const QString& change) {
        Run(u"PRAGMA foreign_keys=ON"_s);
        Run(u"CREATE TABLE parent(id INTEGER PRIMARY KEY)"_s);
        Run(u"CREATE TABLE child(id INTEGER REFERENCES parent(id) DEFERRABLE INITIALLY DEFERRED)"_s);
        Run(u"CREATE TRIGGER late AFTER %1 ON item_velmarch BEGIN INSERT INTO child VALUES(1); END"_s.arg(
            change));
    }
    void Refuse(const QString& change) {
        Run(u"CREATE TRIGGER refuse BEFORE %1 BEGIN SELECT RAISE(ABORT,'no'); END"_s.arg(change));
    }
    QStringList Column(const QString& statement) {
        QStringList texts;
        if (!home->store->QueryTexts(statement, texts)) qFatal("the store can't be read");
        return texts;
    }
    QStringList Stored(int list) {
        return Column(u"SELECT text FROM item_velmarch WHERE list=%1"_s.arg(list));
    }
    QStringList StoredNumbers(int list) {
        return Column(u"SELECT value FROM item_velmarch WHERE list=%1"_s.arg(list));
    }
    QStringList Chunks() {
        return Column(u"SELECT identity FROM dependency_velmarch WHERE identity NOT LIKE 'FFFF%'"_s);
    }
    void Add(int list, const QStringList& texts) {
        for (const QString& text : texts) QVERIFY(catalogue->AddItem(list, text, false));
    }
    const CPRecord& Item(int list, const QString& text) {
        const CPRecord* item = catalogue->FindItem(list, text);
        if (!item) qFatal("no such item: %s", qPrintable(text));
        return *item;
    }
    /// Clients A and B, project P; the times' tree is A(P)B(P), the expenses' tree B(P).
    void MakeTrees() {
        Add(16, {u"A"_s, u"B"_s});
        Add(17, {u"P"_s});
        DependencyTree& times = catalogue->Tree(kTimes);
        times.Append(times.Append(times.Root(), Item(16, u"A"_s)), Item(17, u"P"_s));
        times.Append(times.Append(times.Root(), Item(16, u"B"_s)), Item(17, u"P"_s));
        DependencyTree& expenses = catalogue->Tree(kExpenses);
        expenses.Append(expenses.Append(expenses.Root(), Item(16, u"B"_s)), Item(17, u"P"_s));
        QVERIFY(catalogue->SaveTree(kTimes));
        QVERIFY(catalogue->SaveTree(kExpenses));
    }
    QString TreeOf(DependencySet set) { return Drawn(catalogue->Tree(set).Root()); }
    /// Each save of a tree leaves its mark in the store.
    void CountSaves() {
        Run(u"CREATE TABLE saves (number)"_s);
        Run(u"CREATE TRIGGER count_saves AFTER UPDATE ON dependency_velmarch "
            "BEGIN INSERT INTO saves VALUES (new.number); END"_s);
    }
    QStringList Saves() { return Column(u"SELECT number FROM saves ORDER BY number"_s); }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        catalogue = home->catalogue.get();
    }
    void cleanup() {
        home->prompt.Finish();
        home.reset();
    }

    void ProcessWideName() {
        QCOMPARE(thePulldownCatalogue, catalogue);
        home.reset();
        QVERIFY(!thePulldownCatalogue);
        home = std::make_unique<TestHome>();
    }

    // --- Adding

    void AddItem_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("goes to the end") << 16 << u"a"_s << QStringList{u"first"_s, u"a"_s};
        QTest::newRow("a second one of the same text")
            << 16 << u"first"_s << QStringList{u"first"_s, u"first"_s};
        QTest::newRow("apostrophe, percent sign, umlaut, emoji")
            << 17 << u"O'Neil's 50 %s \"Büro\" 😀"_s << QStringList{u"O'Neil's 50 %s \"Büro\" 😀"_s};
        QTest::newRow("255 characters") << 17 << QString(255, u'x') << QStringList{QString(255, u'x')};
        QTest::newRow("a number takes its one spelling") << 34 << u"1.50"_s << QStringList{u"1.5"_s};
        QTest::newRow("an empty name of a field") << 109 << u""_s << QStringList{u""_s};
    }
    void AddItem() {
        QFETCH(int, list);
        QFETCH(QString, text);
        Add(16, {u"first"_s});
        QVERIFY(catalogue->AddItem(list, text, true));
        QTEST(catalogue->Texts(list), "texts");
        QVERIFY(catalogue->Load());
        QTEST(catalogue->Texts(list), "texts");
    }

    void AddItemStoresNumbersAsNumbers() {
        Add(73, {u"1.50"_s});
        QCOMPARE(StoredNumbers(73), QStringList{u"1.5"_s});
        QCOMPARE(Stored(73), QStringList{u""_s});
        QVERIFY(catalogue->HasItem(73, u"1.5"_s));
        QVERIFY(!catalogue->HasItem(73, u"1.50"_s));  // an exact comparison of what it shows
    }

    void AddItemRefused_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("text");
        QTest::newRow("no text") << 16 << QString();
        QTest::newRow("no number in a list of numbers") << 34 << u"much"_s;
        QTest::newRow("an empty number") << 34 << u""_s;
    }
    void AddItemRefused() {
        QFETCH(int, list);
        QFETCH(QString, text);
        QVERIFY(!catalogue->AddItem(list, text, false));
        QVERIFY(catalogue->Texts(list).isEmpty());
        QVERIFY(Stored(list).isEmpty());
    }

    void AddItemTooLong() {
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!catalogue->AddItem(16, QString(256, u'x'), false));
        QVERIFY(catalogue->Texts(16).isEmpty());
    }

    void AddItemWithoutList() {
        home->prompt.ExpectTold(Text::ItemWithoutList);
        QVERIFY(!catalogue->AddItem(200, u"100 %"_s, false));
        QVERIFY(home->prompt.told.last().contains(u"200"_s));
        QVERIFY(home->prompt.told.last().contains(u"100 %"_s));
        QVERIFY(Stored(200).isEmpty());  // it would end every load to come
    }

    void AddItemOfAnIgnoredList() {
        QVERIFY(catalogue->AddItem(143, u"a"_s, false));
        QVERIFY(!catalogue->GetList(143));
        QVERIFY(catalogue->Load());
    }

    void AddItemThatCanNotBeStored() {
        Refuse(u"INSERT ON item_velmarch"_s);
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!catalogue->AddItem(16, u"a"_s, false));
        QVERIFY(catalogue->Texts(16).isEmpty());
        QVERIFY(!home->manager.HasOpenChanges());
    }

    void AddItemAsks_data() {
        QTest::addColumn<bool>("ask");
        QTest::addColumn<bool>("setting");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<bool>("added");
        QTest::newRow("not asked for") << false << true << false << false << true;
        QTest::newRow("switched off") << true << false << false << false << true;
        QTest::newRow("agreed") << true << true << true << true << true;
        QTest::newRow("declined") << true << true << true << false << false;
    }
    void AddItemAsks() {
        QFETCH(bool, ask);
        QFETCH(bool, setting);
        QFETCH(bool, asked);
        QFETCH(bool, yes);
        home->settings->confirmAddListItem = setting;
        if (asked) home->prompt.Expect(Text::AskAddItem, yes ? Answer::Yes : Answer::No);
        QTEST(catalogue->AddItem(16, u"50 % \"off\""_s, ask), "added");
        QTEST(catalogue->HasItem(16, u"50 % \"off\""_s), "added");
        if (asked) QCOMPARE(home->prompt.told.last(), u"Add \"50 % \"off\"\" to the list?"_s);
    }

    void RefusedNumberIsNotAskedAbout() {
        home->settings->confirmAddListItem = true;
        QVERIFY(!catalogue->AddItem(34, u"much"_s, true));
    }

    // --- Renaming

    void RenameItem() {
        Add(16, {u"a"_s, u"b'c"_s, u"d"_s});
        const CPRecord* item = catalogue->FindItem(16, u"b'c"_s);
        QVERIFY(catalogue->RenameItem(16, u"b'c"_s, u"%d 'ü' 😀"_s));
        QCOMPARE(catalogue->Texts(16), QStringList({u"a"_s, u"%d 'ü' 😀"_s, u"d"_s}));
        QCOMPARE(catalogue->FindItem(16, u"%d 'ü' 😀"_s), item);
        QVERIFY(!catalogue->HasItem(16, u"b'c"_s));
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->Texts(16), QStringList({u"a"_s, u"%d 'ü' 😀"_s, u"d"_s}));
    }

    void RenameItemKeepsItInTheTrees() {
        MakeTrees();
        const QStringList chunks = Chunks();
        QVERIFY(catalogue->RenameItem(17, u"P"_s, u"Q"_s));
        QCOMPARE(TreeOf(kTimes), u"A(Q)B(Q)"_s);
        QCOMPARE(Chunks(), chunks);  // the stored trees name identities
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"A(Q)B(Q)"_s);
    }

    void RenameItemInAListOfNumbers() {
        Add(34, {u"80"_s});
        QVERIFY(catalogue->RenameItem(34, u"80.00"_s, u"81.50"_s));
        QCOMPARE(catalogue->Texts(34), QStringList{u"81.5"_s});
        QCOMPARE(StoredNumbers(34), QStringList{u"81.5"_s});
        home->prompt.ExpectTold(Text::ItemNotRenamed);
        QVERIFY(!catalogue->RenameItem(34, u"81.5"_s, u"much"_s));
        QCOMPARE(catalogue->Texts(34), QStringList{u"81.5"_s});
        QCOMPARE(StoredNumbers(34), QStringList{u"81.5"_s});
    }

    /// Nothing waits for a later commit: another program that reads now finds the change.
    void ChangesAreCommitted() {
        const auto storedTexts = [this] {
            TestHome other(home->Path());
            return other.catalogue->Texts(16);
        };
        Add(16, {u"a"_s, u"b"_s});
        QCOMPARE(storedTexts(), QStringList({u"a"_s, u"b"_s}));
        QVERIFY(catalogue->RenameItem(16, u"a"_s, u"c"_s));
        QCOMPARE(storedTexts(), QStringList({u"c"_s, u"b"_s}));
        QVERIFY(catalogue->DeleteItem(16, u"b"_s));
        QCOMPARE(storedTexts(), QStringList{u"c"_s});
        QVERIFY(catalogue->DeleteAllItems(16));
        QCOMPARE(storedTexts(), QStringList());
    }

    void RenameItemThatIsMissing() {
        QVERIFY(!catalogue->RenameItem(16, u"a"_s, u"b"_s));
        QVERIFY(!catalogue->RenameItem(200, u"a"_s, u"b"_s));
    }

    void RenameItemThatAnotherProgramDeleted() {
        Add(16, {u"a"_s});
        Run(u"DELETE FROM item_velmarch"_s);
        home->prompt.ExpectTold(Text::ItemNotRenamed);
        QVERIFY(!catalogue->RenameItem(16, u"a"_s, u"b"_s));
        QCOMPARE(catalogue->Texts(16), QStringList{u"a"_s});
    }

    void RenameItemThatCanNotBeStored() {
        Add(16, {u"a"_s});
        Refuse(u"UPDATE ON item_velmarch"_s);
        home->prompt.ExpectTold(Text::ModifyFailed);
        home->prompt.ExpectTold(Text::ItemNotRenamed);
        QVERIFY(!catalogue->RenameItem(16, u"a"_s, u"b"_s));
        QCOMPARE(catalogue->Texts(16), QStringList{u"a"_s});
        QVERIFY(!home->manager.HasOpenChanges());
    }

    // --- Deleting

    void DeleteItem_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("times");
        QTest::addColumn<QString>("expenses");
        QTest::addColumn<QStringList>("saves");
        QTest::newRow("with what is below, in one tree")
            << 16 << u"A"_s << u"B(P)"_s << u"B(P)"_s << QStringList{u"55"_s};
        QTest::newRow("with what is below, in both trees")
            << 16 << u"B"_s << u"A(P)"_s << u""_s << QStringList{u"55"_s, u"66"_s};
        QTest::newRow("at several places of a tree, saved once")
            << 17 << u"P"_s << u"AB"_s << u"B"_s << QStringList{u"55"_s, u"66"_s};
        QTest::newRow("in no tree") << 16 << u"C"_s << u"A(P)B(P)"_s << u"B(P)"_s << QStringList();
    }
    void DeleteItem() {
        QFETCH(int, list);
        QFETCH(QString, text);
        MakeTrees();
        Add(16, {u"C"_s});
        CountSaves();
        QVERIFY(catalogue->DeleteItem(list, text));
        QVERIFY(!catalogue->HasItem(list, text));
        QTEST(TreeOf(kTimes), "times");
        QTEST(TreeOf(kExpenses), "expenses");
        QTEST(Saves(), "saves");
        QVERIFY(!home->manager.HasOpenChanges());
        QVERIFY(catalogue->Load());
        QVERIFY(!catalogue->HasItem(list, text));
        QTEST(TreeOf(kTimes), "times");
        QTEST(TreeOf(kExpenses), "expenses");
    }

    void DeleteItemOfANumber() {
        Add(34, {u"1.5"_s, u"2"_s});
        QVERIFY(catalogue->DeleteItem(34, u"1.50"_s));
        QCOMPARE(catalogue->Texts(34), QStringList{u"2"_s});
        QVERIFY(!catalogue->DeleteItem(34, u"much"_s));
    }

    void DeleteItemThatIsMissing() {
        QVERIFY(!catalogue->DeleteItem(16, u"a"_s));
        QVERIFY(!catalogue->DeleteItem(200, u"a"_s));
    }

    void DeleteItemThatStandsTwice() {
        Add(16, {u"a"_s, u"b"_s, u"a"_s});
        const CPRecord* second = catalogue->GetList(16)->at(2);
        QVERIFY(catalogue->DeleteItem(16, u"a"_s));
        QCOMPARE(catalogue->Texts(16), QStringList({u"b"_s, u"a"_s}));
        QCOMPARE(catalogue->FindItem(16, u"a"_s), second);
        QVERIFY(catalogue->DeleteItem(16, u"a"_s));
        QVERIFY(!catalogue->HasItem(16, u"a"_s));
        QCOMPARE(Stored(16), QStringList{u"b"_s});
    }

    void DeleteItemThatAnotherProgramDeleted() {
        Add(16, {u"a"_s});
        Run(u"DELETE FROM item_velmarch"_s);
        QVERIFY(catalogue->DeleteItem(16, u"a"_s));
        QVERIFY(catalogue->Texts(16).isEmpty());
    }

    void DeleteItemThatTheStoreKeeps_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("in both trees") << u"B"_s;
        QTest::newRow("in no tree") << u"C"_s;
    }
    void DeleteItemThatTheStoreKeeps() {
        QFETCH(QString, text);
        MakeTrees();
        Add(16, {u"C"_s});
        const QStringList chunks = Chunks();
        Refuse(u"DELETE ON item_velmarch"_s);
        home->prompt.ExpectTold(Text::DeleteFailed);
        home->prompt.ExpectTold(Text::ItemNotDeleted);
        QVERIFY(!catalogue->DeleteItem(16, text));
        QCOMPARE(catalogue->Texts(16), QStringList({u"A"_s, u"B"_s, u"C"_s}));
        QCOMPARE(TreeOf(kTimes), u"A(P)B(P)"_s);
        QCOMPARE(TreeOf(kExpenses), u"B(P)"_s);
        QCOMPARE(Chunks(), chunks);
        QVERIFY(!home->manager.HasOpenChanges());
    }

    /// Without its item the stored tree could never be read again: the item stays.
    void DeleteItemWhoseTreeCanNotBeSaved() {
        MakeTrees();
        const QStringList chunks = Chunks();
        Refuse(u"INSERT ON dependency_velmarch"_s);
        home->prompt.ExpectTold(Text::InsertFailed);
        home->prompt.ExpectTold(Text::DependenciesNotSaved);
        QVERIFY(!catalogue->DeleteItem(16, u"A"_s));
        QCOMPARE(catalogue->Texts(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(Stored(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(TreeOf(kTimes), u"A(P)B(P)"_s);
        QCOMPARE(Chunks(), chunks);
        Run(u"DROP TRIGGER refuse"_s);
        QVERIFY(catalogue->DeleteItem(16, u"A"_s));
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"B(P)"_s);
    }

    void DeleteItemWhoseCommitFails() {
        MakeTrees();
        FailCommits(u"DELETE"_s);
        home->prompt.ExpectTold(Text::CommitFailed);
        home->prompt.ExpectTold(Text::ItemNotDeleted);
        QVERIFY(!catalogue->DeleteItem(16, u"A"_s));
        QCOMPARE(catalogue->Texts(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(Stored(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(TreeOf(kTimes), u"A(P)B(P)"_s);
    }

    void AddedItemWhoseCommitFails() {
        FailCommits(u"INSERT"_s);
        home->prompt.ExpectTold(Text::CommitFailed);
        QVERIFY(!catalogue->AddItem(16, u"A"_s, false));
        QVERIFY(catalogue->Texts(16).isEmpty());
        QVERIFY(Stored(16).isEmpty());
    }

    void DeleteItemAfterLoadListsReadsTheTrees() {
        MakeTrees();
        QVERIFY(catalogue->LoadLists({16}));
        QVERIFY(catalogue->DeleteItem(16, u"B"_s));
        QCOMPARE(TreeOf(kTimes), u"A(P)"_s);
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"A(P)"_s);
        QCOMPARE(TreeOf(kExpenses), u""_s);
    }

    void DeletedItemsMayStillBeLookedAt() {
        MakeTrees();
        const CPRecord* item = catalogue->FindItem(16, u"A"_s);
        QVERIFY(catalogue->DeleteItem(16, u"A"_s));
        QCOMPARE(item->GetText(), u"A"_s);
    }

    void DeleteAllItems() {
        MakeTrees();
        Add(17, {u"Q"_s});
        CountSaves();
        QVERIFY(catalogue->DeleteAllItems(17));
        QVERIFY(catalogue->Texts(17).isEmpty());
        QVERIFY(Stored(17).isEmpty());
        QCOMPARE(catalogue->Texts(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(Saves(), QStringList({u"55"_s, u"66"_s}));
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"AB"_s);
        QCOMPARE(TreeOf(kExpenses), u"B"_s);
        QVERIFY(catalogue->DeleteAllItems(17));  // an empty list
        QVERIFY(!catalogue->DeleteAllItems(200));
    }

    void DeleteAllItemsThatTheStoreKeeps() {
        MakeTrees();
        Refuse(u"DELETE ON item_velmarch"_s);
        home->prompt.ExpectTold(Text::QueryFailed);
        QVERIFY(!catalogue->DeleteAllItems(16));
        QCOMPARE(catalogue->Texts(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(TreeOf(kTimes), u"A(P)B(P)"_s);
    }

    void DeleteAllItemsWhoseTreesCanNotBeSaved() {
        MakeTrees();
        Refuse(u"UPDATE ON dependency_velmarch"_s);
        home->prompt.ExpectTold(Text::ModifyFailed);
        home->prompt.ExpectTold(Text::DependenciesNotUpdated);
        QVERIFY(!catalogue->DeleteAllItems(16));
        QVERIFY(home->prompt.told.last().endsWith(u"The list items stay in their list."_s));
        QCOMPARE(Stored(16), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(TreeOf(kTimes), u"A(P)B(P)"_s);
    }
};

TEST_CLASS(TestCPulldownCatalogue);
#include "TestCPulldownCatalogue.moc"
