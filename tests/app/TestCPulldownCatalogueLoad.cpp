#include "DrawnTree.h"
#include "app/CPulldownCatalogue.h"
#include "app/DependencyBytes.h"
#include "records/CDRecord.h"
#include "records/StoreTransaction.h"
#include "support/RandomTexts.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QTest>

// What the catalogue makes of what is stored. How it changes: TestCPulldownCatalogue.

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr DependencySet kTimes = DependencySet::Time;
constexpr DependencySet kExpenses = DependencySet::Expense;

}  // namespace

class TestCPulldownCatalogueLoad : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;

    void Run(const QString& sql) { QVERIFY2(home->manager.File().Execute(sql.toUtf8()), qPrintable(sql)); }
    /// A row as another program would leave it.
    QString Store(CPRecord item, int list) {
        item.listId = list;
        item.GenUnique();
        if (!home->store->InsertRecord(item, Commit::Now)) qFatal("an item can't be stored");
        return item.GetId();
    }
    QString Store(const QString& text, int list) { return Store(CPRecord(text), list); }
    void StoreRow(const QString& id, DependencySet set, const QByteArray& data, bool isPacked) {
        CDRecord row;
        row.SetPacked(isPacked);
        row.number = static_cast<int>(set);
        row.data = data;
        row.SetId(id);
        QVERIFY(home->store->InsertRecord(row, Commit::Now));
    }
    QString TreeOf(DependencySet set) { return Drawn(catalogue->Tree(set).Root()); }
    QStringList DependencyRows() {
        QStringList rows;
        (void)home->store->QueryTexts(
            u"SELECT identity||number||block FROM dependency_velmarch ORDER BY identity"_s, rows);
        return rows;
    }
    /// Items A, B, C of clients, and in both stored sets A(B)C; loaded.
    void StoreTrees() {
        for (const char16_t letter : {u'A', u'B', u'C'}) Store(QString(QChar(letter)), 16);
        QVERIFY(catalogue->Load());
        for (const DependencySet set : kDependencySets) {
            DependencyTree& tree = catalogue->Tree(set);
            auto& a = tree.Append(tree.Root(), *catalogue->FindItem(16, u"A"_s));
            tree.Append(a, *catalogue->FindItem(16, u"B"_s));
            tree.Append(tree.Root(), *catalogue->FindItem(16, u"C"_s));
            QVERIFY(catalogue->SaveTree(set));
        }
    }
    /// Does it to the chunk of the times' tree.
    void Damage(const QString& block) {
        Run(u"UPDATE dependency_velmarch SET block=%1 WHERE number=55 AND identity NOT LIKE 'FFFF%'"_s.arg(
            block));
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        catalogue = home->catalogue.get();
    }
    void cleanup() {
        home->prompt.Finish();
        home.reset();
    }

    // --- Items

    void LoadEmptyStore() {
        QVERIFY(catalogue->Load());
        QVERIFY(catalogue->GetList(16)->empty());
        QVERIFY(catalogue->Tree(kTimes).IsEmpty());
        QVERIFY(DependencyRows().isEmpty());
        QVERIFY(catalogue->Labels().IsFilled());
    }

    /// 10,000 texts in three lists: after a restart each is there, exact, and found by itself alone.
    void ManyTextsAfterARestart() {
        constexpr int kLists[] = {16, 17, 72};
        const QStringList texts = RandomTexts(10000, 7);
        QVERIFY(home->store->BeginBatch());
        for (qsizetype i = 0; i < texts.size(); ++i) {
            CPRecord item(texts[i]);
            item.listId = kLists[i % 3];
            item.GenUnique();
            QVERIFY(home->store->InsertRecord(item, Commit::Later));
        }
        QVERIFY(home->store->Commit());
        const TestHome next(home->Path());
        for (int place = 0; place < 3; ++place) {
            QStringList expected;
            for (qsizetype i = place; i < texts.size(); i += 3) expected.append(texts[i]);
            QCOMPARE(next.catalogue->Texts(kLists[place]), expected);
        }
        for (qsizetype i = 0; i < texts.size(); ++i) {
            QVERIFY(next.catalogue->HasItem(kLists[i % 3], texts[i]));
            QVERIFY(!next.catalogue->HasItem(kLists[(i + 1) % 3], texts[i]));
        }
    }

    void LoadSortsItemsIntoTheirLists() {
        Store(u"Client B"_s, 16);
        Store(u"Client A"_s, 16);
        Store(u"Project"_s, 17);
        Store(CPRecord(80.5F), 34);
        const QString id = Store(u"O'Brien & Söhne 100% \"😀\""_s, 72);
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->Texts(16), QStringList({u"Client B"_s, u"Client A"_s}));
        QCOMPARE(catalogue->Texts(17), QStringList{u"Project"_s});
        QCOMPARE(catalogue->Texts(34), QStringList{u"80.5"_s});
        QCOMPARE(catalogue->Texts(72), QStringList{u"O'Brien & Söhne 100% \"😀\""_s});
        QVERIFY(catalogue->FindById(id) == catalogue->FindItem(72, u"O'Brien & Söhne 100% \"😀\""_s));
        QCOMPARE(catalogue->Texts(145), QStringList());
        QVERIFY(!catalogue->GetList(145));
    }

    void LoadAgainForgetsWhatIsGone() {
        Store(u"a"_s, 16);
        QVERIFY(catalogue->Load());
        Run(u"DELETE FROM item_velmarch"_s);
        Store(u"b"_s, 16);
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->Texts(16), QStringList{u"b"_s});
        QVERIFY(!catalogue->HasItem(16, u"a"_s));
    }

    /// Only what another program writes: what this one does is in memory, too.
    void StaleOnceAnotherProgramHasWritten() {
        QVERIFY(catalogue->Load());
        QVERIFY(catalogue->AddItem(16, u"a"_s, false));
        QVERIFY(!catalogue->IsStale());
        {
            const TestHome other(home->Path());
            QVERIFY(!catalogue->IsStale());  // that only reads
            QVERIFY(other.catalogue->AddItem(16, u"b"_s, false));
        }
        QVERIFY(catalogue->IsStale());
        QVERIFY(catalogue->Load());
        QVERIFY(!catalogue->IsStale());
    }

    /// In an open change nobody else can write: what is read then holds until its end.
    void StaleWithinAChange() {
        QVERIFY(catalogue->Load());
        { QVERIFY(TestHome(home->Path()).catalogue->AddItem(16, u"b"_s, false)); }
        const StoreTransaction hold(*home->store);
        QVERIFY(hold.IsOpen());
        QVERIFY(catalogue->IsStale());
        QVERIFY(catalogue->Load());
        QVERIFY(!catalogue->IsStale());
    }

    void StaleAfterALoadThatFailed() {
        QVERIFY(catalogue->Load());
        Store(u"x"_s, 999);
        home->prompt.ExpectTold(Text::StoredItemWithoutList);
        QVERIFY(!catalogue->Load());
        QVERIFY(catalogue->IsStale());
    }

    void LoadLeavesIgnoredListsOut() {
        Store(u"a"_s, 143);
        Store(u"b"_s, 144);
        Store(u"c"_s, 16);
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->Texts(16), QStringList{u"c"_s});
        QVERIFY(!catalogue->GetList(143));
    }

    void LoadRowByRowWhereTheBulkPathFails() {
        for (int i = 0; i < 5; ++i) Store(QString::number(i), 16);
        Run(u"ALTER TABLE item_velmarch ADD COLUMN extra"_s);
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->Texts(16), QStringList({u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    }

    void LoadStopsAtAnItemWithoutList_data() {
        QTest::addColumn<bool>("bulk");
        QTest::newRow("in one go") << true;
        QTest::newRow("row by row") << false;
    }
    void LoadStopsAtAnItemWithoutList() {
        QFETCH(bool, bulk);
        StoreTrees();
        Store(u"100 % lost"_s, 200);
        Store(u"behind"_s, 17);
        Store(u"Customer"_s, 109);
        if (!bulk) Run(u"ALTER TABLE item_velmarch ADD COLUMN extra"_s);
        home->prompt.ExpectTold(Text::StoredItemWithoutList);
        QVERIFY(!catalogue->Load());
        QVERIFY(home->prompt.told.last().contains(u"200"_s));
        QVERIFY(home->prompt.told.last().contains(u"100 % lost"_s));
        QCOMPARE(catalogue->Texts(16).size(), 3);
        QVERIFY(catalogue->Texts(17).isEmpty());
        QVERIFY(catalogue->Tree(kTimes).IsEmpty());  // the later steps don't run
        QVERIFY(!catalogue->Labels().IsFilled());
        QVERIFY(!catalogue->TextsOf(103));
        // and nothing is written over what wasn't read
        const QStringList stored = DependencyRows();
        QVERIFY(!catalogue->LoadTree(kTimes));
        QVERIFY(!catalogue->SaveTree(kTimes));
        home->prompt.ExpectTold(Text::ItemNotDeleted);
        QVERIFY(!catalogue->DeleteItem(16, u"A"_s));
        QCOMPARE(DependencyRows(), stored);
    }

    void LoadWithoutTable() {
        Run(u"DROP TABLE item_velmarch"_s);
        home->prompt.ExpectTold(Text::QueryFailed);
        home->prompt.ExpectTold(Text::QueryFailed);  // both ways were tried
        QVERIFY(!catalogue->Load());
    }

    void LoadLists() {
        Store(u"client"_s, 16);
        Store(u"project"_s, 17);
        Store(CPRecord(1.5F), 73);
        Store(u"Customer"_s, 109);
        QVERIFY(catalogue->LoadLists({16, 73}));
        QCOMPARE(catalogue->Texts(16), QStringList{u"client"_s});
        QCOMPARE(catalogue->Texts(73), QStringList{u"1.5"_s});
        QVERIFY(catalogue->Texts(17).isEmpty());
        QVERIFY(!catalogue->Labels().IsFilled());
        QCOMPARE(catalogue->Labels().GetLabel(109), u"Client"_s);
    }

    void LoadListsReadsNoTrees() {
        StoreTrees();
        const QStringList stored = DependencyRows();
        QVERIFY(catalogue->LoadLists({16}));
        QVERIFY(catalogue->Tree(kTimes).IsEmpty());
        QVERIFY(!catalogue->LoadTree(kTimes));
        QVERIFY(!catalogue->SaveTree(kTimes));
        QCOMPARE(DependencyRows(), stored);
    }

    void FillLabels() {
        Store(u"Customer"_s, 109);
        Store(u"second"_s, 109);
        Store(u""_s, 110);
        Store(u"Paid"_s, 118);
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->Labels().GetLabel(109), u"Customer"_s);
        QCOMPARE(catalogue->Labels().GetLabel(110), u"Project"_s);  // an empty name falls back
        QCOMPARE(catalogue->TextsOf(32804)->tip, u"Customer"_s);
        QCOMPARE(catalogue->TextsOf(40055)->status, u"Mark the selected records as Paid"_s);
        QVERIFY(!catalogue->TextsOf(1045));
        QVERIFY(catalogue->AddItem(112, u"Place"_s, false));
        catalogue->FillLabels();
        QCOMPARE(catalogue->TextsOf(32807)->tip, u"Place"_s);
    }

    // --- Dependencies

    void TreesSurviveALoad() {
        StoreTrees();
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"A(B)C"_s);
        QCOMPARE(TreeOf(kExpenses), u"A(B)C"_s);
    }

    void TwoSetsAreIndependent() {
        StoreTrees();
        catalogue->Tree(kTimes).Clear();
        QVERIFY(catalogue->SaveTree(kTimes));
        catalogue->Tree(kExpenses).Clear();
        QVERIFY(catalogue->LoadTree(kExpenses));
        QVERIFY(catalogue->LoadTree(kTimes));
        QCOMPARE(TreeOf(kTimes), u""_s);
        QCOMPARE(TreeOf(kExpenses), u"A(B)C"_s);
    }

    void OldFormIsConvertedOnce() {
        const QString a = Store(u"A"_s, 16), b = Store(u"B"_s, 17), c = Store(u"C"_s, 17);
        const auto item = [](const QString& id) { return "3\x10" + IdentityToBytes(id) + "="; };
        // the last sibling first: A(BC)
        const QByteArray bytes = "\x15" + item(a) + "\x15" + item(c) + item(b) + "))";
        StoreRow(u"FFFF26110BDC7162F073A5BC94A40001"_s, kTimes, bytes, true);
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"A(BC)"_s);
        const QStringList converted = DependencyRows();
        QCOMPARE(converted.size(), 3);  // the old root, the new one, a chunk
        QVERIFY(converted[2].startsWith(u"FFFF26110BDC7162F073A5BC94A40010"_s));
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kTimes), u"A(BC)"_s);
        QCOMPARE(DependencyRows(), converted);
    }

    void OldFormThatCanNotBeConvertedIsReadAllTheSame() {
        const QString a = Store(u"A"_s, 16);
        StoreRow(u"FFFF26110BDC7162F073A5BC94A40002"_s, kExpenses,
                 "\x15"
                 "3\x10" +
                     IdentityToBytes(a) + "=)",
                 true);
        Run(u"CREATE TRIGGER refuse BEFORE INSERT ON dependency_velmarch BEGIN SELECT RAISE(ABORT,'no'); END"_s);
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(catalogue->Load());
        QCOMPARE(TreeOf(kExpenses), u"A"_s);
        QCOMPARE(DependencyRows().size(), 1);
        QVERIFY(catalogue->Labels().IsFilled());
    }

    void DamagedTree_data() {
        QTest::addColumn<QString>("block");
        QTest::addColumn<bool>("isTold");
        QTest::addColumn<Answer>("answer");
        for (const auto& [name, answer] : {std::pair("yes", Answer::Yes), std::pair("no", Answer::No)}) {
            QTest::addRow("one changed digit, %s", name)
                << u"substr(block,1,40)||'0'||substr(block,42)"_s << true << answer;
            QTest::addRow("a character that is no digit, %s", name)
                << u"'x'||substr(block,2)"_s << true << answer;
            QTest::addRow("too short, %s", name) << u"'00'"_s << true << answer;
            // the MD5 of "z" (RFC 1321's method, by md5sum) with "z" behind it: sound, and no tree
            QTest::addRow("an unexpected byte, %s", name)
                << u"'FBADE9E36A3F36D3D676C1B808451DD77A'"_s << false << answer;
        }
    }
    void DamagedTree() {
        QFETCH(QString, block);
        QFETCH(bool, isTold);
        QFETCH(Answer, answer);
        StoreTrees();
        Store(u"Customer"_s, 109);
        Damage(block);
        const QStringList damaged = DependencyRows();
        if (isTold) home->prompt.ExpectTold(Text::ReadFailed);
        home->prompt.Expect(Text::AskResetTree, answer);
        QVERIFY(catalogue->Load());  // a damaged tree takes neither lists nor the other tree with it
        QCOMPARE(TreeOf(kTimes), u""_s);
        QCOMPARE(TreeOf(kExpenses), u"A(B)C"_s);
        QCOMPARE(catalogue->Texts(16).size(), 3);
        QCOMPARE(catalogue->Labels().GetLabel(109), u"Customer"_s);

        DependencyTree& tree = catalogue->Tree(kTimes);
        tree.Append(tree.Root(), *catalogue->FindItem(16, u"B"_s));
        if (answer == Answer::Yes) {
            QCOMPARE(DependencyRows().size(), 3);  // two roots and the chunk of the other set
            QVERIFY(catalogue->SaveTree(kTimes));
            QVERIFY(catalogue->Load());
            QCOMPARE(TreeOf(kTimes), u"B"_s);
        } else {
            QCOMPARE(DependencyRows(), damaged);
            QVERIFY(!catalogue->SaveTree(kTimes));
            QCOMPARE(DependencyRows(), damaged);
            QVERIFY(catalogue->SaveTree(kExpenses));
        }
    }

    void DamageIsAskedAboutWithNoAsDefault() {
        class Boxes final : public CPrompt {
         public:
            Answer Ask(const MessageBox& box) override {
                asked = box;
                return box.defaultAnswer;
            }
            void Tell(const MessageBox&) override {}
            std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }
            MessageBox asked;
        } boxes;
        StoreTrees();
        Damage(u"'G'"_s);
        CPulldownCatalogue other({home->manager, boxes, *home->settings, u"velmarch"_s});
        QVERIFY(other.Load());
        QCOMPARE(boxes.asked.textId, 26142);
        QCOMPARE(boxes.asked.title, u"Dependencies"_s);
        QCOMPARE(boxes.asked.icon, BoxIcon::Warning);
        QCOMPARE(boxes.asked.buttons, Buttons::YesNo);
        QCOMPARE(boxes.asked.defaultAnswer, Answer::No);
    }

    void TreeWithAnItemThatIsGone() {
        StoreTrees();
        Run(u"DELETE FROM item_velmarch WHERE text='B'"_s);
        home->prompt.Expect(Text::AskResetTree, Answer::No);
        home->prompt.Expect(Text::AskResetTree, Answer::Yes);
        QVERIFY(catalogue->Load());
        QVERIFY(!catalogue->SaveTree(kTimes));
        QVERIFY(catalogue->SaveTree(kExpenses));
    }

    void DamagedTreeThatCanNotBeEmptied() {
        StoreTrees();
        Damage(u"'G'"_s);
        const QStringList damaged = DependencyRows();
        Run(u"CREATE TRIGGER refuse BEFORE UPDATE ON dependency_velmarch BEGIN SELECT RAISE(ABORT,'no'); END"_s);
        home->prompt.ExpectTold(Text::ReadFailed);
        home->prompt.Expect(Text::AskResetTree, Answer::Yes);
        home->prompt.ExpectTold(Text::ModifyFailed);
        QVERIFY(catalogue->Load());
        QVERIFY(!catalogue->SaveTree(kTimes));
        QCOMPARE(DependencyRows(), damaged);
    }

    void StoreThatCanNotBeReadEndsTheLoad() {
        Store(u"a"_s, 16);
        Run(u"DROP TABLE dependency_velmarch"_s);
        home->prompt.ExpectTold(Text::ReadQueryFailed);
        QVERIFY(!catalogue->Load());
        QCOMPARE(catalogue->Texts(16), QStringList{u"a"_s});
        QVERIFY(!catalogue->Labels().IsFilled());
        QVERIFY(!catalogue->SaveTree(kTimes));
    }

    /// A lifetime of items: what is asked for with every key stroke doesn't walk them.
    void FiftyThousandItems() {
        constexpr int kItems = 50000;
        QVERIFY(home->manager.BeginBatch());
        for (int i = 0; i < kItems; ++i) {
            CPRecord item(u"item %1"_s.arg(i));
            item.listId = 16;
            item.GenUnique();
            QVERIFY(home->store->InsertRecord(item, Commit::Later));
        }
        QVERIFY(home->store->Commit());
        QVERIFY(catalogue->Load());
        QCOMPARE(catalogue->GetList(16)->size(), std::size_t{kItems});
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < kItems; ++i) QVERIFY(catalogue->HasItem(16, u"item %1"_s.arg(i)));
        QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    }
};

TEST_CLASS(TestCPulldownCatalogueLoad);
#include "TestCPulldownCatalogueLoad.moc"
