#include "lists/CDependencyEditor.h"
#include "platform/sqlite/CSqliteFile.h"
#include "shell/frame/FrameCommandsHome.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kEditDependencies = 32886;

QString Drawn(const DependencyTree& tree) {
    QStringList lines;
    for (const auto* node = DependencyTree::NextOf(tree.Root()); node; node = DependencyTree::NextOf(*node))
        lines << QString(node->Depth() - 1, u'.') + node->Item()->GetText();
    return lines.join(u' ');
}

/// The clients A and B with the project P; nothing hangs under anything.
struct Clients : Fixture {
    explicit Clients(RecordMode mode = RecordMode::Time) : Fixture(mode) {
        [&] {
            for (const QString& text : {u"A"_s, u"B"_s}) QVERIFY(home.catalogue->AddItem(16, text, false));
            QVERIFY(home.catalogue->AddItem(17, u"P"_s, false));
        }();
    }
    /// In the dialog: adds a client, and accepts.
    void WillAdd(const QString& text) {
        dialogs.editDependencies = [text](CDependencyEditor& editor) {
            return editor.Add(editor.Tree().Root(), text);
        };
    }
    [[nodiscard]] QString InUse(DependencySet set = DependencySet::Time) const {
        return Drawn(home.catalogue->Tree(set));
    }
    [[nodiscard]] QString Stored(DependencySet set = DependencySet::Time) const {
        const TestHome next(home.Path());
        return Drawn(next.catalogue->Tree(set));
    }
    void Execute(const QByteArray& sql) {
        [&] { QVERIFY2(home.manager.File().Execute(sql), sql.constData()); }();
    }
};

void WriteOutside(const QString& folder, const std::function<void(CDependencyEditor&)>& edit) {
    const TestHome other(folder);
    CDependencyEditor editor(*other.catalogue, RecordMode::Time);
    edit(editor);
    editor.Accept();
    QVERIFY(other.catalogue->SaveTree(DependencySet::Time));
}

}  // namespace

/// The command that edits dependencies: what it stores, and what it doesn't.
class TestFrameDependencies final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void AcceptedIsStored() {
        Clients fixture;
        fixture.WillAdd(u"A"_s);
        fixture.Run(kEditDependencies);
        QCOMPARE(fixture.dialogs.called, QStringList{u"dependencies"_s});
        QCOMPARE(fixture.InUse(), u"A"_s);
        QCOMPARE(fixture.Stored(), u"A"_s);
    }

    /// Each kind of record has a tree of its own.
    void OfTheMode() {
        Clients fixture(RecordMode::Expense);
        fixture.WillAdd(u"A"_s);
        fixture.Run(kEditDependencies);
        QCOMPARE(fixture.Stored(DependencySet::Expense), u"A"_s);
        QCOMPARE(fixture.Stored(), QString());
    }

    void CalledOff() {
        Clients fixture;
        fixture.dialogs.editDependencies = [](CDependencyEditor& editor) {
            static_cast<void>(editor.Add(editor.Tree().Root(), u"A"_s));
            return false;
        };
        fixture.Run(kEditDependencies);
        QCOMPARE(fixture.InUse(), QString());
        QCOMPARE(fixture.Stored(), QString());
    }

    /// Nothing is written where nothing changed.
    void AcceptedWithoutAChange() {
        Clients fixture;
        fixture.Execute(
            "CREATE TRIGGER refuse BEFORE INSERT ON dependency_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        fixture.Run(kEditDependencies);
        QCOMPARE(fixture.Stored(), QString());
    }

    /// The user is told, and what can be chosen is what is stored.
    void StoreThatRefuses() {
        Clients fixture;
        fixture.WillAdd(u"A"_s);
        fixture.Run(kEditDependencies);
        fixture.Execute(
            "CREATE TRIGGER refuse BEFORE INSERT ON dependency_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        fixture.WillAdd(u"B"_s);
        fixture.home.prompt.ExpectTold(Text::InsertFailed);
        fixture.home.prompt.ExpectTold(Text::DependenciesNotUpdated);
        fixture.Run(kEditDependencies);
        QVERIFY(fixture.home.prompt.told.last().endsWith(LoadText(Text::DependenciesAsStored)));
        QCOMPARE(fixture.InUse(), u"A"_s);
        fixture.Execute("DROP TRIGGER refuse");
        QCOMPARE(fixture.Stored(), u"A"_s);
    }

    /// What another program stored while the dialog was open stays, and what it did before is there at once.
    void AnotherProgramWrites() {
        Clients fixture;
        const QString folder = fixture.home.Path();
        WriteOutside(folder, [](CDependencyEditor& editor) { QVERIFY(editor.NewItem(16, u"D"_s)); });
        fixture.dialogs.editDependencies = [&](CDependencyEditor& editor) {
            WriteOutside(folder, [](CDependencyEditor& other) {
                QVERIFY(other.Add(other.Tree().Root(), u"B"_s));
                QVERIFY(other.DeleteItem(16, u"A"_s));
            });
            return editor.Add(editor.Tree().Root(), QStringList{u"A"_s, u"D"_s}) == 2;
        };
        fixture.Run(kEditDependencies);
        QCOMPARE(fixture.InUse(), u"B D"_s);
        QCOMPARE(fixture.Stored(), u"B D"_s);
    }

    /// Damage is asked about before anything is edited; what isn't given up isn't edited.
    void DamagedDependencies_data() {
        QTest::addColumn<bool>("isGivenUp");
        QTest::newRow("kept as they are") << false;
        QTest::newRow("given up") << true;
    }
    void DamagedDependencies() {
        QFETCH(bool, isGivenUp);
        Clients fixture;
        fixture.WillAdd(u"A"_s);
        fixture.Run(kEditDependencies);
        fixture.Execute("UPDATE dependency_velmarch SET block='xyz'");
        fixture.home.prompt.ExpectTold(Text::ReadFailed);
        fixture.home.prompt.Expect(Text::AskResetTree, Answer::No);
        QVERIFY(fixture.home.catalogue->Load());
        fixture.dialogs.called.clear();
        fixture.WillAdd(u"B"_s);
        fixture.home.prompt.ExpectTold(Text::ReadFailed);
        fixture.home.prompt.Expect(Text::AskResetTree, isGivenUp ? Answer::Yes : Answer::No);
        fixture.Run(kEditDependencies);
        QCOMPARE(fixture.dialogs.called.isEmpty(), !isGivenUp);
        QCOMPARE(fixture.InUse(), isGivenUp ? u"B"_s : QString());
    }

    void ListsThatCannotBeRead() {
        Clients fixture;
        fixture.Execute("INSERT INTO item_velmarch VALUES(999,1,'x',0,'" + QByteArray(32, 'A') + "')");
        fixture.home.prompt.ExpectTold(Text::StoredItemWithoutList);
        QVERIFY(!fixture.home.catalogue->Load());
        fixture.home.prompt.ExpectTold(Text::StoredItemWithoutList);
        fixture.home.prompt.ExpectTold(Text::DepListsNotRead, Text::ListsTitle);
        fixture.Run(kEditDependencies);
        QVERIFY(fixture.dialogs.called.isEmpty());
    }
};

TEST_CLASS(TestFrameDependencies);
#include "TestFrameDependencies.moc"
