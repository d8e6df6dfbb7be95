#include "lists/CListEditor.h"

#include "app/CPulldownCatalogue.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

using Added = CListEditor::Added;
using Renamed = CListEditor::Renamed;

/// Adding, deleting and renaming items as their window does it.
class TestCListEditor : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;
    std::unique_ptr<CListEditor> editor;

    [[nodiscard]] QString Items(int list = 16) const { return catalogue->Texts(list).join(u' '); }
    /// As another program finds them.
    [[nodiscard]] QString Stored(int list = 16) const {
        return TestHome(home->Path()).catalogue->Texts(list).join(u' ');
    }
    void Refuse(const QByteArray& change) {
        QVERIFY(home->manager.File().Execute("CREATE TRIGGER refuse BEFORE " + change +
                                             " BEGIN SELECT RAISE(ABORT,'no'); END"));
    }
    void Expect(const QList<Text>& told) {
        for (const Text text : told) home->prompt.ExpectTold(text);
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        catalogue = home->catalogue.get();
        editor = std::make_unique<CListEditor>(CListEditor::Context{.catalogue = *catalogue,
                                                                    .store = *home->store,
                                                                    .settings = *home->settings,
                                                                    .prompt = home->prompt});
        for (const QString& text : {u"A"_s, u"B"_s, u"C"_s}) QVERIFY(catalogue->AddItem(16, text, false));
        QVERIFY(catalogue->AddItem(34, u"1.5"_s, false));
    }
    void cleanup() {
        home->prompt.Finish();
        editor.reset();
        home.reset();
    }

    void Open() {
        QVERIFY(editor->Open(16));
        home->prompt.ExpectTold(Text::ItemListUnknown);
        QVERIFY(!editor->Open(12));
        QCOMPARE(home->prompt.told.back(), FormatText<Text::ItemListUnknown>(12));
    }

    void Add_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Added>("added");
        QTest::addColumn<QString>("items");
        QTest::addColumn<QList<Text>>("told");
        QTest::newRow("goes to the end, unasked")
            << 16 << u"AA"_s << Added::Done << u"A B C AA"_s << QList<Text>();
        QTest::newRow("nothing was typed")
            << 16 << u""_s << Added::NotYet << u"A B C"_s << QList<Text>{Text::NoItemTyped};
        QTest::newRow("the list has it") << 16 << u"B"_s << Added::Refused << u"A B C"_s << QList<Text>();
        QTest::newRow("a number that the list has")
            << 34 << u"1.50"_s << Added::Refused << u"1.5"_s << QList<Text>();
        QTest::newRow("no number") << 34 << u"much"_s << Added::Refused << u"1.5"_s << QList<Text>();
        QTest::newRow("255 characters count")
            << 17 << QString(300, u'x') << Added::Done << QString(255, u'x') << QList<Text>();
    }
    void Add() {
        QFETCH(int, list);
        QFETCH(QString, typed);
        QFETCH(QString, items);
        QFETCH(QList<Text>, told);
        home->settings->confirmAddListItem = true;
        Expect(told);
        QTEST(editor->Add(list, typed), "added");
        QCOMPARE(Items(list), items);
        QCOMPARE(Stored(list), items);
    }

    void AddThatCanNotBeStored() {
        Refuse("INSERT ON item_velmarch");
        Expect({Text::InsertFailed});
        QCOMPARE(editor->Add(16, u"D"_s), Added::NotYet);
        QCOMPARE(Items(), u"A B C"_s);
    }

    void WhyRefused() {
        QCOMPARE(editor->WhyRefused(16, u"A"_s), FormatText<Text::ItemIsThere>(u"A"_s));
        QCOMPARE(editor->WhyRefused(34, u"1.50"_s), FormatText<Text::ItemIsThere>(u"1.5"_s));
        QCOMPARE(editor->WhyRefused(34, u"much"_s), FormatText<Text::ItemIsNoNumber>(u"much"_s));
        const QString coded = LoadText(Text::CodedPrefix) + u"x"_s;
        QCOMPARE(editor->WhyRefused(16, coded), FormatText<Text::ItemIsReserved>(coded));
    }

    void Delete_data() {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<bool>("asks");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QString>("left");
        QTest::newRow("one, agreed") << QStringList{u"B"_s} << true << Answer::Yes << u"A C"_s;
        QTest::newRow("one, not agreed") << QStringList{u"B"_s} << true << Answer::No << u"A B C"_s;
        QTest::newRow("one, without a question") << QStringList{u"B"_s} << false << Answer::No << u"A C"_s;
        QTest::newRow("two, agreed") << QStringList{u"A"_s, u"C"_s} << true << Answer::Yes << u"B"_s;
        QTest::newRow("two, not agreed") << QStringList{u"A"_s, u"C"_s} << true << Answer::No << u"A B C"_s;
        QTest::newRow("two, without a question")
            << QStringList{u"A"_s, u"C"_s} << false << Answer::No << u"B"_s;
    }
    void Delete() {
        QFETCH(QStringList, texts);
        QFETCH(bool, asks);
        QFETCH(Answer, answer);
        QFETCH(QString, left);
        home->settings->confirmDeleteListItem = asks;
        const bool isOne = texts.size() == 1;
        if (asks) home->prompt.Expect(isOne ? Text::AskDeleteItem : Text::AskDeleteItems, answer);
        QCOMPARE(editor->Delete(16, texts), left != u"A B C"_s);
        QCOMPARE(Items(), left);
        QCOMPARE(Stored(), left);
        if (asks)
            QCOMPARE(home->prompt.told.back(), isOne ? FormatText<Text::AskDeleteItem>(texts.front())
                                                     : FormatText<Text::AskDeleteItems>(2));
    }

    void DeleteWithNothingSelected() {
        Expect({Text::NoItemToDelete});
        QVERIFY(!editor->Delete(16, {}));
    }

    /// A store may hold an item without a text; it has no line that could be deleted.
    void DeleteAnEmptyLine() {
        QVERIFY(!editor->Delete(16, {QString()}));
        QCOMPARE(Items(), u"A B C"_s);
    }

    void DeleteThatCanNotBeStored() {
        home->settings->confirmDeleteListItem = false;
        Refuse("DELETE ON item_velmarch");
        Expect({Text::DeleteFailed, Text::ItemNotDeleted});
        QVERIFY(!editor->Delete(16, {u"B"_s}));
        QCOMPARE(Items(), u"A B C"_s);
        QCOMPARE(Stored(), u"A B C"_s);
    }

    /// It is asked whatever confirmDeleteListItem says.
    void DeleteAll() {
        home->settings->confirmDeleteListItem = false;
        home->prompt.Expect(Text::AskDeleteAllItems, Answer::No);
        QVERIFY(!editor->DeleteAll(16, u"Client"_s));
        QCOMPARE(Items(), u"A B C"_s);
        QVERIFY(home->prompt.told.back().startsWith(LoadText(Text::AskDeleteAllItems)));
        QVERIFY(home->prompt.told.back().endsWith(FormatText<Text::ItemsInList>(u"Client"_s, 3)));
        home->prompt.Expect(Text::AskDeleteAllItems, Answer::Yes);
        QVERIFY(editor->DeleteAll(16, u"Client"_s));
        QCOMPARE(Items(), QString());
        QCOMPARE(Stored(), QString());
        QCOMPARE(Items(34), u"1.5"_s);
    }

    void Rename_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<Renamed>("renamed");
        QTest::addColumn<QString>("items");
        QTest::newRow("a new text") << 16 << u"B"_s << u"E"_s << Renamed::Done << u"A E C"_s;
        QTest::newRow("an empty text") << 16 << u"B"_s << u""_s << Renamed::No << u"A B C"_s;
        QTest::newRow("an empty line") << 16 << u""_s << u"E"_s << Renamed::No << u"A B C"_s;
        QTest::newRow("no change") << 16 << u"B"_s << u"B"_s << Renamed::No << u"A B C"_s;
        QTest::newRow("a text that the list has") << 16 << u"B"_s << u"C"_s << Renamed::Kept << u"A B C"_s;
        QTest::newRow("another case is another text")
            << 16 << u"B"_s << u"b"_s << Renamed::Done << u"A b C"_s;
        QTest::newRow("the same number in another spelling")
            << 34 << u"1.5"_s << u"1.50"_s << Renamed::Kept << u"1.5"_s;
        QTest::newRow("another number") << 34 << u"1.5"_s << u"2.0"_s << Renamed::Done << u"2"_s;
    }
    void Rename() {
        QFETCH(int, list);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, items);
        QTEST(editor->Rename({list, from, to}), "renamed");
        QCOMPARE(Items(list), items);
        QCOMPARE(Stored(list), items);
    }

    /// What the store has to say, and once that the item stays.
    void RenameThatFailsIsToldOnce() {
        Refuse("UPDATE ON item_velmarch");
        Expect({Text::ModifyFailed, Text::ItemStaysAsItWas});
        QCOMPARE(editor->Rename({16, u"B"_s, u"E"_s}), Renamed::Failed);
        QCOMPARE(Items(), u"A B C"_s);
    }

    void RenameOfAnItemThatIsGone() {
        Expect({Text::ItemStaysAsItWas});
        QCOMPARE(editor->Rename({16, u"Z"_s, u"E"_s}), Renamed::Failed);
    }

    void OfferMerge_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("to");
        QTest::addColumn<std::optional<Answer>>("answer");
        QTest::addColumn<QString>("items");
        using Asked = std::optional<Answer>;
        QTest::newRow("agreed") << 16 << u"C"_s << Asked(Answer::Yes) << u"B C"_s;
        QTest::newRow("not agreed") << 16 << u"C"_s << Asked(Answer::No) << u"A B C"_s;
        QTest::newRow("into no item") << 16 << u"E"_s << Asked() << u"A B C"_s;
        QTest::newRow("into itself") << 16 << u"A"_s << Asked() << u"A B C"_s;
    }
    void OfferMerge() {
        QFETCH(int, list);
        QFETCH(QString, to);
        QFETCH(std::optional<Answer>, answer);
        QFETCH(QString, items);
        if (answer) home->prompt.Expect(Text::AskMergeItems, *answer);
        QCOMPARE(editor->OfferMerge({list, u"A"_s, to}), items != u"A B C"_s);
        QCOMPARE(Items(list), items);
        QCOMPARE(Stored(list), items);
        if (answer)
            QCOMPARE(home->prompt.told.back(), FormatText<Text::AskMergeItems>(u"A"_s, to, u"A"_s, to));
    }

    void OfferMergeOfNumbers() {
        QVERIFY(catalogue->AddItem(34, u"2"_s, false));
        QVERIFY(!editor->OfferMerge({34, u"1.5"_s, u"1.50"_s}));
        home->prompt.Expect(Text::AskMergeItems, Answer::Yes);
        QVERIFY(editor->OfferMerge({34, u"1.5"_s, u"2.00"_s}));
        QCOMPARE(Items(34), u"2"_s);
    }

    /// What another program did since is there before the own change, and stays.
    void AnotherProgramMeanwhile() {
        {
            const TestHome other(home->Path());
            CPulldownCatalogue& its = *other.catalogue;
            QVERIFY(its.AddItem(16, u"D"_s, false) && its.DeleteItem(16, u"C"_s));
            DependencyTree& tree = its.Tree(DependencySet::Time);
            tree.Append(tree.Root(), *its.FindItem(16, u"D"_s));
            tree.Append(tree.Root(), *its.FindItem(16, u"B"_s));
            QVERIFY(its.SaveTree(DependencySet::Time));
        }
        QCOMPARE(editor->Add(16, u"D"_s), Added::Refused);
        home->settings->confirmDeleteListItem = false;
        QVERIFY(editor->Delete(16, {u"B"_s}));
        const TestHome other(home->Path());
        QCOMPARE(other.catalogue->Texts(16).join(u' '), u"A D"_s);
        QVERIFY(other.catalogue->Tree(DependencySet::Time).Walk({u"D"_s}));
        QVERIFY(!other.catalogue->Tree(DependencySet::Time).Walk({u"B"_s}));
    }
};

TEST_CLASS(TestCListEditor);
#include "TestCListEditor.moc"
