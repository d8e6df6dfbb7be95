#include "shell/lists/CListsDialog.h"

#include "app/CPulldownCatalogue.h"
#include "changes/ChangesFixture.h"
#include "lang/FormatText.h"
#include "lists/ListPages.h"
#include "shell/frame/ModalUser.h"
#include "shell/lists/CItemView.h"
#include "support/TestProgram.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The window of the pick lists over a scratch home, under keys and clicks.
class ListsHome : public ChangesFixture<> {
 public:
    ListsHome() { Load(); }
    ~ListsHome() { home.prompt.Finish(); }
    ListsHome(const ListsHome&) = delete;
    ListsHome& operator=(const ListsHome&) = delete;

    void Fill(int list, const QStringList& texts) {
        for (const QString& text : texts) QVERIFY(home.catalogue->AddItem(list, text, false));
    }
    void AddTime(const QString& client) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, 19, 2026);
        record.item1 = client;
        QVERIFY(changes.Add(record, Identity::New));
    }
    void Open() {
        dialog = std::make_unique<CListsDialog>(CListsDialog::Context{.catalogue = *home.catalogue,
                                                                      .store = *home.store,
                                                                      .changes = changes,
                                                                      .settings = *home.settings,
                                                                      .prompt = home.prompt});
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <class Widget>
    [[nodiscard]] Widget& Find(const char* name) const {
        auto* widget = dialog->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget) qFatal("no %s", name);
        return *widget;
    }
    [[nodiscard]] QTreeWidget& Lists() const { return Find<QTreeWidget>("lists"); }
    [[nodiscard]] CItemView& Items() const { return Find<CItemView>("items"); }
    [[nodiscard]] QLineEdit& Line() const { return Find<QLineEdit>("itemLine"); }
    [[nodiscard]] QPushButton& Button(const char* name) const { return Find<QPushButton>(name); }
    void Press(const char* name) const {
        QVERIFY2(Button(name).isEnabled(), name);
        QTest::mouseClick(&Button(name), Qt::LeftButton);
    }
    [[nodiscard]] QString Note() const { return Find<QLabel>("itemNote").text(); }
    [[nodiscard]] QString Shown(int section = CItemModel::TextSection) const {
        const QAbstractItemModel& model = *Items().model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) texts += model.index(row, section).data().toString();
        return texts.join(u", "_s);
    }
    void Select(const QString& text) const {
        const QModelIndexList found =
            Items().model()->match(Items().model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly);
        QVERIFY2(!found.isEmpty(), qPrintable(text));
        Items().setCurrentIndex(found.front());
    }
    [[nodiscard]] QString Selected() const { return Items().Selected().join(u", "_s); }
    void Type(const QString& text) const {
        Line().setFocus();
        QTest::keyClicks(&Line(), text);
    }
    void ShowList(int list) const {
        const auto at = std::ranges::find(ListPages(), list) - ListPages().begin();
        Lists().setCurrentItem(Lists().topLevelItem(static_cast<int>(at)));
    }
    [[nodiscard]] QString CountOf(int page) const { return Lists().topLevelItem(page)->text(1); }
    /// Renames what is selected; nothing: the question for the text is cancelled.
    void Rename(const std::optional<QString>& text) const {
        const ModalUser user([&](QDialog& asked) {
            auto* field = asked.findChild<QLineEdit*>(u"textField"_s);
            if (text) field->setText(*text);
            QTest::keyClick(field, text ? Qt::Key_Return : Qt::Key_Escape);
        });
        QTest::keyClick(&Items(), Qt::Key_F2);
        QVERIFY(user.Met());
    }

    std::unique_ptr<CListsDialog> dialog;
};

}  // namespace

class TestCListsDialog : public QObject {
    Q_OBJECT

    std::unique_ptr<ListsHome> t;

 private Q_SLOTS:
    void init() { t = std::make_unique<ListsHome>(); }
    void cleanup() { t.reset(); }

    void ElevenLists() {
        t->Fill(16, {u"A"_s, u"B"_s});
        t->Fill(73, {u"5"_s});
        QVERIFY(t->home.catalogue->SetNames({{110, u"Site"_s}}));
        t->Open();
        QCOMPARE(t->dialog->windowTitle(), LoadText(Text::ItemListsTitle));
        QCOMPARE(t->Lists().topLevelItemCount(), 11);
        QCOMPARE(t->Lists().topLevelItem(0)->text(0), LoadText(Text::FieldClient));
        QCOMPARE(t->Lists().topLevelItem(1)->text(0), u"Site"_s);
        QCOMPARE(t->CountOf(0) + u' ' + t->CountOf(1) + u' ' + t->CountOf(10), u"2 0 1"_s);
        QCOMPARE(t->Lists().topLevelItem(0)->data(1, Qt::AccessibleTextRole).toString(),
                 FormatText<Text::ListWithCount>(LoadText(Text::FieldClient), 2));
        QVERIFY(t->Line().hasFocus());
    }

    void ItemsOfTheChosenList() {
        t->Fill(16, {u"B"_s, u"A"_s});
        t->Fill(34, {u"80"_s});
        t->AddTime(u"A"_s);
        t->Open();
        QCOMPARE(t->Shown(), u"B, A"_s);
        QCOMPARE(t->Shown(CItemModel::UseSection),
                 LoadText(Text::ItemUsedByNone) + u", "_s + LoadText(Text::ItemUsedByOne));
        QCOMPARE(t->Note(), FormatText<Text::ItemsAll>(2));
        t->ShowList(34);
        QCOMPARE(t->Shown(), u"80"_s);
        QCOMPARE(t->Items().accessibleName(), FormatText<Text::ItemsOf>(LoadText(Text::FieldRate)));
        QCOMPARE(t->Note(), LoadText(Text::ItemOne));
        t->ShowList(17);
        QCOMPARE(t->Note(), LoadText(Text::ListHasNoItems));
        QVERIFY(!t->Button("deleteAllButton").isEnabled());
    }

    void TypingNarrows() {
        t->Fill(16, {u"Acme"_s, u"Zoo"_s, u"Acme north"_s});
        t->Open();
        t->Select(u"Acme north"_s);
        t->Type(u"acm"_s);
        QCOMPARE(t->Shown(), u"Acme, Acme north"_s);
        QCOMPARE(t->Note(), FormatText<Text::ItemsShown>(2, 3));
        QCOMPARE(t->Selected(), u"Acme north"_s);
        t->Type(u"x"_s);
        QCOMPARE(t->Note(), LoadText(Text::NoItemHasLetters));
        t->ShowList(17);
        QCOMPARE(t->Line().text(), QString());
    }

    void KeysMoveInTheItemsWhileOneTypes() {
        t->Fill(16, {u"A"_s, u"B"_s});
        t->Open();
        QTest::keyClick(&t->Line(), Qt::Key_Down);
        QCOMPARE(t->Selected(), u"A"_s);
        QTest::keyClick(&t->Line(), Qt::Key_Down);
        QCOMPARE(t->Selected(), u"B"_s);
        QVERIFY(t->Line().hasFocus());
    }

    void Add_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("Enter") << static_cast<int>(Qt::Key_Return);
        QTest::newRow("Enter of the number pad") << static_cast<int>(Qt::Key_Enter);
        QTest::newRow("Insert") << static_cast<int>(Qt::Key_Insert);
        QTest::newRow("the button") << 0;
    }
    void Add() {
        QFETCH(int, key);
        t->Fill(16, {u"Acme"_s});
        t->Open();
        t->Type(u"Zoo"_s);
        if (key)
            QTest::keyClick(&t->Line(), static_cast<Qt::Key>(key));
        else
            t->Press("addButton");
        QCOMPARE(t->Shown(), u"Acme, Zoo"_s);
        QCOMPARE(t->Line().text(), QString());
        QCOMPARE(t->Selected(), u"Zoo"_s);
        QCOMPARE(t->CountOf(0), u"2"_s);
        QVERIFY(t->Line().hasFocus());
        QVERIFY(t->dialog->isVisible());
        QCOMPARE(TestHome(t->home.Path()).catalogue->Texts(16), QStringList({u"Acme"_s, u"Zoo"_s}));
    }

    void AddWhatTheListHas() {
        t->Fill(16, {u"Acme"_s, u"Acme north"_s});
        t->Open();
        t->Type(u"Acme"_s);
        QTest::keyClick(&t->Line(), Qt::Key_Return);
        QCOMPARE(t->Shown(), u"Acme, Acme north"_s);
        QCOMPARE(t->Line().text(), u"Acme"_s);
        QCOMPARE(t->Selected(), u"Acme"_s);
        QCOMPARE(t->Note(), FormatText<Text::ItemIsThere>(u"Acme"_s));
    }

    void AddNothing() {
        t->Open();
        QVERIFY(!t->Button("addButton").isEnabled());
        t->home.prompt.ExpectTold(Text::NoItemTyped);
        QTest::keyClick(&t->Line(), Qt::Key_Return);
    }

    void InsertAmongTheItemsGoesToTheLine() {
        t->Fill(16, {u"A"_s});
        t->Open();
        t->Items().setFocus();
        QTest::keyClick(&t->Items(), Qt::Key_Insert);
        QVERIFY(t->Line().hasFocus());
    }

    void AddANumber() {
        t->Open();
        t->ShowList(34);
        t->Type(u"80.50"_s);
        QTest::keyClick(&t->Line(), Qt::Key_Return);
        QCOMPARE(t->Shown(), u"80.5"_s);
        QCOMPARE(t->Selected(), u"80.5"_s);
        t->Type(u"much"_s);
        QTest::keyClick(&t->Line(), Qt::Key_Return);
        QCOMPARE(t->Note(), FormatText<Text::ItemIsNoNumber>(u"much"_s));
    }

    void AddThatCanNotBeStored() {
        t->Open();
        t->Run("CREATE TRIGGER refuse BEFORE INSERT ON item_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        t->home.prompt.ExpectTold(Text::InsertFailed);
        t->Type(u"Zoo"_s);
        QTest::keyClick(&t->Line(), Qt::Key_Return);
        QCOMPARE(t->Line().text(), u"Zoo"_s);
        QCOMPARE(t->Shown(), QString());
    }

    void DeleteWithTheKey() {
        t->Fill(16, {u"A"_s, u"B"_s, u"C"_s});
        t->Open();
        t->Select(u"B"_s);
        t->home.prompt.Expect(Text::AskDeleteItem, Answer::Yes);
        QTest::keyClick(&t->Items(), Qt::Key_Delete);
        QCOMPARE(t->Shown(), u"A, C"_s);
        QCOMPARE(t->Selected(), u"C"_s);
        t->home.prompt.Expect(Text::AskDeleteItem, Answer::Yes);
        t->Press("deleteButton");
        QCOMPARE(t->Shown(), u"A"_s);
        QCOMPARE(t->Selected(), u"A"_s);
        QCOMPARE(t->CountOf(0), u"1"_s);
    }

    void DeleteSeveral() {
        t->Fill(16, {u"A"_s, u"B"_s, u"C"_s});
        t->Open();
        t->Items().selectAll();
        QCOMPARE(t->Note(), FormatText<Text::ItemsSelected>(FormatText<Text::ItemsAll>(3), 3));
        QVERIFY(!t->Button("renameButton").isEnabled());
        t->home.prompt.Expect(Text::AskDeleteItems, Answer::No);
        t->Press("deleteButton");
        QCOMPARE(t->Shown(), u"A, B, C"_s);
        t->Items().selectAll();
        t->home.prompt.Expect(Text::AskDeleteItems, Answer::Yes);
        t->Press("deleteButton");
        QCOMPARE(t->Shown(), QString());
        QCOMPARE(t->Note(), LoadText(Text::ListHasNoItems));
    }

    void KeysWithNothingSelected() {
        t->Fill(16, {u"A"_s});
        t->Open();
        QVERIFY(!t->Button("deleteButton").isEnabled());
        QVERIFY(!t->Button("renameButton").isEnabled());
        t->home.prompt.ExpectTold(Text::NoItemToDelete);
        QTest::keyClick(&t->Items(), Qt::Key_Delete);
        t->home.prompt.ExpectTold(Text::NoItemToRename);
        QTest::keyClick(&t->Items(), Qt::Key_F2);
        QCOMPARE(t->Shown(), u"A"_s);
    }

    void DeleteThatFailsShowsWhatIsStored() {
        t->Fill(16, {u"A"_s});
        t->Open();
        t->Select(u"A"_s);
        t->Run("CREATE TRIGGER refuse BEFORE DELETE ON item_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        t->home.prompt.Expect(Text::AskDeleteItem, Answer::Yes);
        t->home.prompt.ExpectTold(Text::DeleteFailed);
        t->home.prompt.ExpectTold(Text::ItemNotDeleted);
        QTest::keyClick(&t->Items(), Qt::Key_Delete);
        QCOMPARE(t->Shown(), u"A"_s);
        QCOMPARE(t->Selected(), u"A"_s);
    }

    void DeleteAll() {
        t->Fill(16, {u"A"_s, u"B"_s});
        t->Open();
        t->home.prompt.Expect(Text::AskDeleteAllItems, Answer::Yes);
        t->Press("deleteAllButton");
        QCOMPARE(t->Shown(), QString());
        QCOMPARE(t->CountOf(0), u"0"_s);
    }

    void Rename() {
        t->Fill(16, {u"A"_s, u"B"_s});
        t->AddTime(u"B"_s);
        t->Open();
        t->Select(u"B"_s);
        t->Rename({});
        QCOMPARE(t->Shown(), u"A, B"_s);
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::Yes);
        t->home.prompt.ExpectTold(Text::RecordsReplaced);
        t->Rename(u"E"_s);
        QCOMPARE(t->Shown(), u"A, E"_s);
        QCOMPARE(t->Selected(), u"E"_s);
        QCOMPARE(t->Shown(CItemModel::UseSection),
                 LoadText(Text::ItemUsedByNone) + u", "_s + LoadText(Text::ItemUsedByOne));
    }

    void RenameWithoutTheRecords() {
        t->Fill(16, {u"A"_s});
        t->AddTime(u"A"_s);
        t->Open();
        t->Select(u"A"_s);
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::No);
        t->Rename(u"E"_s);
        QCOMPARE(t->Shown(CItemModel::UseSection), LoadText(Text::ItemUsedByNone));
    }

    void RenameToWhatTheListHas() {
        t->Fill(16, {u"A"_s, u"B"_s});
        t->AddTime(u"A"_s);
        t->Open();
        t->Select(u"A"_s);
        t->home.prompt.Expect(Text::AskMergeItems, Answer::No);
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::No);
        t->Rename(u"B"_s);
        QCOMPARE(t->Shown(), u"A, B"_s);
        QCOMPARE(t->Selected(), u"A"_s);
        QCOMPARE(t->Note(), FormatText<Text::ItemIsThere>(u"B"_s));
        t->home.prompt.Expect(Text::AskMergeItems, Answer::Yes);
        t->home.prompt.Expect(Text::AskReplaceInRecords, Answer::Yes);
        t->home.prompt.ExpectTold(Text::RecordsReplaced);
        t->Rename(u"B"_s);
        QCOMPARE(t->Shown(), u"B"_s);
        QCOMPARE(t->Selected(), u"B"_s);
        QCOMPARE(t->Shown(CItemModel::UseSection), LoadText(Text::ItemUsedByOne));
    }

    void RenameThatFailsIsToldOnce() {
        t->Fill(16, {u"A"_s});
        t->Open();
        t->Select(u"A"_s);
        t->Run("CREATE TRIGGER refuse BEFORE UPDATE ON item_velmarch BEGIN SELECT RAISE(ABORT,'no'); END");
        t->home.prompt.ExpectTold(Text::ModifyFailed);
        t->home.prompt.ExpectTold(Text::ItemStaysAsItWas);
        t->Rename(u"E"_s);
        QCOMPARE(t->Shown(), u"A"_s);
        QCOMPARE(t->Selected(), u"A"_s);
    }

    void AMenuOfTheItems() {
        t->Fill(16, {u"A"_s});
        t->Open();
        const auto offered = [this] {
            QStringList names;
            for (const QAction* action : t->Items().actions())
                if (action->isEnabled()) names += action->objectName();
            return names.join(u' ');
        };
        QCOMPARE(offered(), QString());
        t->Select(u"A"_s);
        QCOMPARE(offered(), u"renameButtonAction deleteButtonAction"_s);
        t->home.prompt.Expect(Text::AskDeleteItem, Answer::Yes);
        t->Find<QAction>("deleteButtonAction").trigger();
        QCOMPARE(t->Shown(), QString());
    }

    void TheListAndTheSizeCameBack() {
        t->Open();
        QCOMPARE(t->Lists().currentItem(), t->Lists().topLevelItem(0));
        t->ShowList(70);
        t->dialog->resize(700, 500);
        QTest::keyClick(t->dialog.get(), Qt::Key_Escape);
        QVERIFY(!t->dialog->isVisible());
        t->Open();
        QCOMPARE(t->Lists().currentItem(), t->Lists().topLevelItem(7));
        QCOMPARE(t->dialog->size(), QSize(700, 500));
    }

    void FiftyThousandItems() {
        QByteArray rows =
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<50000) "
            "INSERT INTO item_velmarch(list,value_type,text,value,identity) "
            "SELECT 16,1,'Client '||i,0,printf('%032X',i) FROM n";
        t->Run(rows);
        QVERIFY(t->home.catalogue->Load());
        QElapsedTimer timer;
        timer.start();
        t->Open();
        const qint64 opened = timer.restart();
        t->Type(u"49999"_s);
        const qint64 typed = timer.elapsed();
        QVERIFY2(opened < 1500 && typed < 1500, qPrintable(u"%1 %2 ms"_s.arg(opened).arg(typed)));
        QCOMPARE(t->Shown(), u"Client 49999"_s);
    }
};

TEST_CLASS(TestCListsDialog);
#include "TestCListsDialog.moc"
