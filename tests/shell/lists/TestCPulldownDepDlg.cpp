#include "shell/lists/CPulldownDepDlg.h"

#include "lang/FormatText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "shell/lists/DependencyDialogHome.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;

using Home = DependencyDialogHome;

/// The dialog of dependencies under keys and clicks.
class TestCPulldownDepDlg final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void OpensAtTheRoot() {
        Home t;
        t.Open();
        QCOMPARE(t.dialog->windowTitle(), u"Dependencies of times"_s);
        QCOMPARE(t.SelectedLine(), u"All"_s);
        QVERIFY(t.Tree().isExpanded(t.Line({})));
        QVERIFY(!t.Tree().isExpanded(t.Line(u"A"_s)));
        QCOMPARE(t.Drawn(), u"A(P Q) B"_s);
        QCOMPARE(t.Candidates(), QStringList{u"C"_s});
        QCOMPARE(t.Label("candidateHeading").remove(u'&'), u"Client"_s);
        QCOMPARE(t.Label("levelNote"), u"Level 1 of 5: Client"_s);
        t.Open(RecordMode::Expense);
        QCOMPARE(t.dialog->windowTitle(), u"Dependencies of expenses"_s);
        QCOMPARE(t.Drawn(), QString());
        QCOMPARE(t.Label("dependencyNote"), LoadText(Text::DepEmptyTree));
    }

    /// What the user calls the list.
    void HeadingsAreTheUsersOwn() {
        Home t;
        t.NameField(99, u"Matters & more"_s);
        t.Open();
        QCOMPARE(t.Label("levelNote"), u"Level 1 of 5: Matters & more"_s);
        QVERIFY(t.Line(u"A"_s).data(Qt::ToolTipRole).toString() == u"Matters & more: A"_s);
    }

    void SayWhenTheyAreNotUsed() {
        Home t;
        t.Open();
        QCOMPARE(t.Label("dependencyNote"), LoadText(Text::DepNotOffered));
        t.home.settings->useDependencies = true;
        t.Open();
        QCOMPARE(t.Label("dependencyNote"), QString());
    }

    void CandidatesOfTheSelectedLine_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("candidates");
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("level");
        QTest::newRow("the root") << QString() << QStringList{u"C"_s} << u"Client"_s
                                  << u"Level 1 of 5: Client"_s;
        QTest::newRow("without those that stand there")
            << u"A"_s << QStringList{u"R"_s} << u"Project"_s << u"Level 2 of 5: Project under \"A\""_s;
        QTest::newRow("under a line without any") << u"B"_s << QStringList({u"P"_s, u"Q"_s, u"R"_s})
                                                  << u"Project"_s << u"Level 2 of 5: Project under \"B\""_s;
        QTest::newRow("the third level") << u"A/P"_s << QStringList{u"write"_s} << u"Activity"_s
                                         << u"Level 3 of 5: Activity under \"P\""_s;
    }
    void CandidatesOfTheSelectedLine() {
        QFETCH(QString, line);
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        t.SelectLine(line);
        QTEST(t.Candidates(), "candidates");
        QTEST(t.Label("candidateHeading").remove(u'&'), "heading");
        QTEST(t.Label("levelNote"), "level");
    }

    void NothingBelowTheLastLevel() {
        Home t;
        t.AddItems(33, {u"centre"_s});
        t.AddItems(34, {u"80"_s});
        t.Hang(DependencySet::Time,
               {{16, u"B"_s}, {17, u"P"_s}, {32, u"write"_s}, {33, u"centre"_s}, {34, u"80"_s}});
        t.Open();
        t.SelectLine(u"B/P/write/centre/80"_s);
        QCOMPARE(t.Candidates(), QStringList());
        QCOMPARE(t.Label("candidateHeading"), QString());
        QCOMPARE(t.Label("levelNote"), u"Level 5 is the last: nothing goes under \"80\"."_s);
        QCOMPARE(t.Offered(), QStringList({u"remove"_s, u"renameLine"_s, u"deleteLine"_s}));
    }

    void NothingSelected() {
        Home t;
        t.Open();
        t.Tree().clearSelection();
        QCOMPARE(t.Candidates(), QStringList());
        QCOMPARE(t.Label("candidateHeading"), QString());
        QCOMPARE(t.Label("levelNote"), LoadText(Text::DepLevelNone));
        QCOMPARE(t.Offered(), QStringList());
    }

    void WhatIsOffered() {
        Home t;
        t.Open();
        QCOMPARE(t.Offered(), QStringList({u"addAll"_s, u"expand"_s, u"newItem"_s}));
        t.SelectCandidate(u"C"_s);
        QCOMPARE(t.Offered(), QStringList({u"add"_s, u"addAll"_s, u"expand"_s, u"newItem"_s, u"renameItem"_s,
                                           u"deleteItem"_s}));
        t.SelectLine(u"B"_s);
        QCOMPARE(t.Offered(),
                 QStringList({u"addAll"_s, u"remove"_s, u"newItem"_s, u"renameLine"_s, u"deleteLine"_s}));
        t.List().selectAll();  // one name for several would be none
        QVERIFY(!t.IsEnabled("renameItemButton") && t.IsEnabled("deleteItemButton"));
        t.Press("addAllButton");
        QVERIFY(!t.IsEnabled("addAllButton") && t.IsEnabled("expandButton"));
        QCOMPARE(t.Label("candidateNote"), LoadText(Text::DepNoCandidates));
    }

    void Add_data() {
        QTest::addColumn<QString>("by");
        for (const char* by : {"button", "Return", "double click", "typed"}) QTest::newRow(by) << by;
    }
    void Add() {
        QFETCH(QString, by);
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        t.SelectCandidate(u"Q"_s);
        t.List().setFocus();
        if (by == u"button"_s) t.Press("addButton");
        if (by == u"Return"_s) t.Hit("candidates", Qt::Key_Return);
        if (by == u"double click"_s) {
            const QPoint place = t.List().visualRect(t.List().currentIndex()).center();
            QTest::mouseClick(t.List().viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(t.List().viewport(), Qt::LeftButton, {}, place);
        }
        if (by == u"typed"_s) {
            t.Type("candidateSearch", u"q"_s);
            t.Hit("candidateSearch", Qt::Key_Return);
            QCOMPARE(t.Find<QLineEdit>("candidateSearch")->selectedText(), u"q"_s);
            t.Type("candidateSearch", {});
        }
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.Drawn(), u"A(P Q) B(Q)"_s);
        QCOMPARE(t.Candidates(), QStringList({u"P"_s, u"R"_s}));
        QCOMPARE(t.SelectedLine(), u"B"_s);
        QVERIFY(t.Tree().isExpanded(t.Line(u"B"_s)));
        if (by != u"typed"_s) QCOMPARE(t.SelectedCandidates(), QStringList{u"R"_s});
        QCOMPARE(t.home.catalogue->Tree(DependencySet::Time).Walk({u"B"_s})->FirstChild(), nullptr);
    }

    /// At the end of the list the one before is selected.
    void AddTheLast() {
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        t.SelectCandidate(u"R"_s);
        t.Press("addButton");
        QCOMPARE(t.SelectedCandidates(), QStringList{u"Q"_s});
    }

    void AddSeveral() {
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        t.SelectCandidate(u"P"_s);
        t.Hit("candidates", Qt::Key_Down, Qt::ShiftModifier);
        t.Hit("candidates", Qt::Key_Return);
        QCOMPARE(t.Drawn(), u"A(P Q) B(P Q)"_s);
    }

    void AddAllShown() {
        Home t;
        t.AddItems(17, {u"Quay"_s});
        t.Open();
        t.SelectLine(u"B"_s);
        t.Type("candidateSearch", u"q"_s);
        QCOMPARE(t.Candidates(), QStringList({u"Q"_s, u"Quay"_s}));
        QCOMPARE(t.Find<QPushButton>("addAllButton")->text().remove(u'&'), u"Add all shown"_s);
        t.Press("addAllButton");
        QCOMPARE(t.Drawn(), u"A(P Q) B(Q Quay)"_s);
        QCOMPARE(t.Label("candidateNote"), LoadText(Text::DepNoMatch));
        t.Type("candidateSearch", {});
        QCOMPARE(t.Find<QPushButton>("addAllButton")->text().remove(u'&'), u"Add all"_s);
        t.Hit("candidates", Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(t.Drawn(), u"A(P Q) B(P Q Quay R)"_s);
    }

    void Remove_data() {
        QTest::addColumn<QString>("by");
        for (const char* by : {"button", "Delete"}) QTest::newRow(by) << by;
    }
    /// From the tree with all below it; the lists keep their items.
    void Remove() {
        QFETCH(QString, by);
        Home t;
        t.Open();
        t.SelectLine(u"A"_s);
        by == u"button"_s ? t.Press("removeButton") : t.Hit("dependencyTree", Qt::Key_Delete);
        QCOMPARE(t.Drawn(), u"B"_s);
        QCOMPARE(t.SelectedLine(), u"B"_s);
        QCOMPARE(t.Candidates(), QStringList({u"P"_s, u"Q"_s, u"R"_s}));
        QCOMPARE(t.home.catalogue->Texts(16), QStringList({u"B"_s, u"A"_s, u"C"_s}));
        QCOMPARE(t.home.catalogue->Texts(17), QStringList({u"P"_s, u"Q"_s, u"R"_s}));
        t.SelectLine({});
        t.Hit("dependencyTree", Qt::Key_Delete);  // the root stays
        QCOMPARE(t.Drawn(), u"B"_s);
    }

    void Expand() {
        Home t;
        t.Hang(DependencySet::Time, {{16, u"A"_s}, {17, u"P"_s}, {32, u"write"_s}});
        t.Open();
        t.SelectLine(u"A"_s);
        QCOMPARE(t.Find<QPushButton>("expandButton")->text().remove(u'&'), u"Expand"_s);
        t.Press("expandButton");
        QVERIFY(t.Tree().isExpanded(t.Line(u"A"_s)) && t.Tree().isExpanded(t.Line(u"A/P"_s)));
        QCOMPARE(t.Find<QPushButton>("expandButton")->text().remove(u'&'), u"Collapse"_s);
        t.Hit("dependencyTree", Qt::Key_Return);
        QVERIFY(!t.Tree().isExpanded(t.Line(u"A"_s)) && !t.Tree().isExpanded(t.Line(u"A/P"_s)));
        QVERIFY(t.dialog->isVisible());
        t.SelectLine(u"B"_s);
        QVERIFY(!t.IsEnabled("expandButton"));
    }

    void NewItem_data() {
        QTest::addColumn<QString>("by");
        for (const char* by : {"button", "Insert in the list", "Insert in the tree", "typed"})
            QTest::newRow(by) << by;
    }
    void NewItem() {
        QFETCH(QString, by);
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        QString label;
        {
            const ModalUser user = Home::Answers(u"Pier"_s, &label);
            if (by == u"button"_s) t.Press("newItemButton");
            if (by == u"Insert in the list"_s) t.Hit("candidates", Qt::Key_Insert);
            if (by == u"Insert in the tree"_s) t.Hit("dependencyTree", Qt::Key_Insert);
            if (by == u"typed"_s) {
                t.Type("candidateSearch", u"pier"_s);
                t.Hit("candidateSearch", Qt::Key_Return);
            }
            QVERIFY(user.Met());
        }
        QCOMPARE(label, u"New item: Project"_s);
        QCOMPARE(t.Candidates().last(), u"Pier"_s);
        QCOMPARE(t.SelectedCandidates(), QStringList{u"Pier"_s});
        QCOMPARE(t.Drawn(), u"A(P Q) B"_s);
        const TestHome next(t.home.Path());
        QVERIFY(next.catalogue->HasItem(17, u"Pier"_s));
    }

    void NewItemThatIsNone_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isSaid");
        QTest::newRow("there already") << u"Q"_s << true;
        QTest::newRow("coded") << u"[x"_s << true;
        QTest::newRow("empty") << QString() << false;
    }
    void NewItemThatIsNone() {
        QFETCH(QString, text);
        QFETCH(bool, isSaid);
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        const ModalUser user = Home::Answers(text);
        t.Press("newItemButton");
        QCOMPARE(t.home.catalogue->Texts(17), QStringList({u"P"_s, u"Q"_s, u"R"_s}));
        QCOMPARE(t.Label("dependencyNote"), isSaid ? FormatText<Text::DepItemRefused>(text) : QString());
    }

    void NewItemOfNumbers() {
        Home t;
        t.Hang(DependencySet::Time, {{16, u"B"_s}, {17, u"P"_s}, {32, u"write"_s}, {33, u"centre"_s}});
        t.Open();
        t.SelectLine(u"B/P/write/centre"_s);
        const ModalUser user = Home::Answers(u"80.50"_s);
        t.Press("newItemButton");
        QCOMPARE(t.SelectedCandidates(), QStringList{u"80.5"_s});
    }

    void RenameCandidate() {
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        t.SelectCandidate(u"Q"_s);
        QString label;
        const ModalUser user = Home::Answers(u"Amber"_s, &label);
        t.Hit("candidates", Qt::Key_F2);
        QCOMPARE(label, u"New text: Project"_s);
        QCOMPARE(t.Drawn(), u"A(Amber P) B"_s);
        QCOMPARE(t.Candidates(), QStringList({u"P"_s, u"Amber"_s, u"R"_s}));
        QCOMPARE(t.SelectedCandidates(), QStringList{u"Amber"_s});
        QCOMPARE(t.renamed.size(), 1);
        QCOMPARE(t.renamed[0].list, 17);
        QCOMPARE(t.renamed[0].oldText, u"Q"_s);
        QCOMPARE(t.renamed[0].newText, u"Amber"_s);
        QVERIFY(!t.editor->HasUnsaved());
    }

    void RenameLine() {
        Home t;
        t.Open();
        t.SelectLine(u"A"_s);
        const ModalUser user = Home::Answers(u"Zoo"_s);
        t.Hit("dependencyTree", Qt::Key_F2);
        QCOMPARE(t.Drawn(), u"B Zoo(P Q)"_s);
        QCOMPARE(t.SelectedLine(), u"Zoo"_s);
        QCOMPARE(t.renamed.size(), 1);
    }

    void RenameThatEnds_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isSaid");
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("the same") << u"A"_s << false;
        QTest::newRow("there already") << u"B"_s << true;
    }
    /// The name stays, and no record is asked about.
    void RenameThatEnds() {
        QFETCH(QString, text);
        QFETCH(bool, isSaid);
        Home t;
        t.Open();
        t.SelectLine(u"A"_s);
        const ModalUser user = Home::Answers(text);
        t.Press("renameLineButton");
        QCOMPARE(t.Drawn(), u"A(P Q) B"_s);
        QVERIFY(t.renamed.isEmpty());
        QCOMPARE(t.Label("dependencyNote").isEmpty(), !isSaid);
    }

    void RenameThatFails() {
        Home t;
        t.Open();
        t.SelectLine(u"A"_s);
        QVERIFY(t.home.manager.File().Execute(
            "CREATE TRIGGER refuse BEFORE UPDATE ON item_velmarch BEGIN SELECT RAISE(ABORT,'no'); END"));
        t.home.prompt.ExpectTold(Text::ModifyFailed);
        t.home.prompt.ExpectTold(Text::ItemNotRenamed);
        const ModalUser user = Home::Answers(u"Zoo"_s);
        t.Press("renameLineButton");
        QCOMPARE(t.Drawn(), u"A(P Q) B"_s);
        QVERIFY(t.renamed.isEmpty());
    }

    /// From its list and from every place in both trees, at once.
    void DeleteCandidate() {
        Home t;
        t.Hang(DependencySet::Expense, {{16, u"C"_s}, {17, u"Q"_s}});
        t.Open();
        t.SelectLine(u"B"_s);
        t.SelectCandidate(u"Q"_s);
        t.home.prompt.Expect(Text::DepAskDelete, Answer::No);
        t.Hit("candidates", Qt::Key_Delete);
        QCOMPARE(t.Drawn(), u"A(P Q) B"_s);
        t.home.prompt.Expect(Text::DepAskDelete, Answer::Yes);
        t.Hit("candidates", Qt::Key_Delete);
        QCOMPARE(t.Drawn(), u"A(P) B"_s);
        QCOMPARE(t.Candidates(), QStringList({u"P"_s, u"R"_s}));
        QCOMPARE(t.SelectedCandidates(), QStringList{u"R"_s});
        QVERIFY(t.editor->IsChanged() && !t.editor->HasUnsaved());
        const TestHome next(t.home.Path());
        QVERIFY(!next.catalogue->HasItem(17, u"Q"_s));
        QVERIFY(!next.catalogue->Tree(DependencySet::Time).Walk({u"A"_s, u"Q"_s}));
        QVERIFY(!next.catalogue->Tree(DependencySet::Expense).Walk({u"C"_s, u"Q"_s}));
    }

    void DeleteSeveral() {
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        t.List().selectAll();
        t.home.prompt.Expect(Text::DepAskDeleteSeveral, Answer::Yes);
        t.Press("deleteItemButton");
        QVERIFY(t.home.prompt.told.last().contains(u"Delete 3 items"_s));
        QCOMPARE(t.Drawn(), u"A B"_s);
        QCOMPARE(t.home.catalogue->Texts(17), QStringList());
        QCOMPARE(t.Label("candidateNote"), LoadText(Text::DepNoItems));
    }

    void DeleteLine() {
        Home t;
        t.home.settings->confirmDeleteListItem = false;
        t.Hang(DependencySet::Time, {{16, u"B"_s}, {17, u"P"_s}, {32, u"write"_s}});
        t.Open();
        t.SelectLine(u"A/P"_s);
        t.Hit("dependencyTree", Qt::Key_Delete, Qt::ShiftModifier);
        QCOMPARE(t.Drawn(), u"A(Q) B"_s);
        QCOMPARE(t.home.catalogue->Texts(17), QStringList({u"Q"_s, u"R"_s}));
    }

    void DeleteThatFails() {
        Home t;
        t.home.settings->confirmDeleteListItem = false;
        t.Open();
        t.SelectLine(u"A"_s);
        QVERIFY(t.home.manager.File().Execute(
            "CREATE TRIGGER refuse BEFORE DELETE ON item_velmarch BEGIN SELECT RAISE(ABORT,'no'); END"));
        t.home.prompt.ExpectTold(Text::DeleteFailed);
        t.home.prompt.ExpectTold(Text::ItemNotDeleted);
        t.Press("deleteLineButton");
        QCOMPARE(t.Drawn(), u"A(P Q) B"_s);
        QVERIFY(!t.editor->IsChanged());
    }

    void Menus_data() {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QStringList>("entries");
        QTest::newRow("tree") << u"dependencyTree"_s
                              << QStringList({u"Expand"_s, u"Rename..."_s, u"Delete item..."_s, u"Remove"_s,
                                              u"New item..."_s});
        QTest::newRow("list") << u"candidates"_s
                              << QStringList({u"Add"_s, u"Add all"_s, u"New item..."_s, u"Rename..."_s,
                                              u"Delete item..."_s});
    }
    void Menus() {
        QFETCH(QString, view);
        QFETCH(QStringList, entries);
        Home t;
        t.Open();
        t.SelectLine(u"A"_s);
        Q_EMIT t.Find<QAbstractItemView>(qPrintable(view))->customContextMenuRequested({5, 5});
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList shown;
        for (const QAction* action : menu->actions()) shown << action->text().section(u'\t', 0, 0);
        shown.sort();
        entries.sort();
        QCOMPARE(shown, entries);
        for (QAction* action : menu->actions())
            if (action->text().startsWith(u"Remove"_s)) action->trigger();
        menu->close();
        QCOMPARE(t.Drawn(), view == u"candidates"_s ? u"A(P Q) B"_s : u"B"_s);
    }

    void CancelAsksAboutWhatIsUnsaved() {
        Home t;
        t.Open();
        t.SelectCandidate(u"C"_s);
        t.Press("addButton");
        t.home.prompt.Expect(Text::DepAskDiscard, Answer::No, Text::DepTitleTime);
        t.Press("cancelButton");
        QVERIFY(t.dialog->isVisible());
        t.home.prompt.Expect(Text::DepAskDiscard, Answer::Yes, Text::DepTitleTime);
        QTest::keyClick(t.dialog.get(), Qt::Key_Escape);
        QVERIFY(!t.dialog->isVisible());
        QCOMPARE(t.dialog->result(), int(QDialog::Rejected));
    }

    /// Items that were changed are stored, and the tree isn't touched: there is nothing to ask about.
    void CancelWithoutChanges() {
        Home t;
        t.Open();
        const ModalUser user = Home::Answers(u"D"_s);
        t.Press("newItemButton");
        QTest::keyClick(t.dialog.get(), Qt::Key_Escape);
        QCOMPARE(t.dialog->result(), int(QDialog::Rejected));
        QVERIFY(t.home.catalogue->HasItem(16, u"D"_s));
    }

    void AcceptedWithItsChanges() {
        Home t;
        t.Open();
        t.Press("addAllButton");
        t.Press("acceptButton");
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QVERIFY(t.editor->IsChanged());
    }

    /// What another program stored meanwhile comes in with the next look, and what is open stays so.
    void AnotherProgramMeanwhile() {
        Home t;
        t.Open();
        t.SelectLine(u"A/P"_s);
        {
            const TestHome other(t.home.Path());
            CDependencyEditor edit(*other.catalogue, RecordMode::Time);
            QVERIFY(edit.Add(edit.Tree().Root(), u"C"_s));
            edit.Accept();
            QVERIFY(other.catalogue->SaveTree(DependencySet::Time));
            QVERIFY(other.catalogue->AddItem(32, u"read"_s, false));
        }
        const ModalUser user = Home::Answers(u"think"_s);
        t.Press("newItemButton");
        QCOMPARE(t.Drawn(), u"A(P Q) B C"_s);
        QCOMPARE(t.SelectedLine(), u"P"_s);
        QVERIFY(t.Tree().isExpanded(t.Line(u"A"_s)));
        QCOMPARE(t.Candidates(), QStringList({u"write"_s, u"read"_s, u"think"_s}));
    }

    void ListsThatCannotBeRead() {
        Home t;
        t.Open();
        {
            TestHome other(t.home.Path());
            QVERIFY(other.manager.File().Execute("INSERT INTO item_velmarch VALUES(999,1,'x',0,'" +
                                                 QByteArray(32, 'A') + "')"));
        }
        t.home.prompt.ExpectTold(Text::StoredItemWithoutList);
        t.home.prompt.ExpectTold(Text::DepListsNotRead, Text::DepTitleTime);
        const ModalUser user = Home::Answers(u"D"_s);
        t.Press("newItemButton");
        QVERIFY(!t.dialog->isVisible());
        QCOMPARE(t.dialog->result(), int(QDialog::Rejected));
    }

    void DragAndDrop() {
        Home t;
        t.Open();
        t.SelectLine(u"B"_s);
        const auto drop = [&](QAbstractItemView& from, const QModelIndex& line, QAbstractItemView& onto,
                              const QModelIndex& at) {
            const std::unique_ptr<QMimeData> data(from.model()->mimeData({line}));
            const QPoint place =
                at.isValid() ? onto.visualRect(at).center() : onto.viewport()->rect().center();
            QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
            QCoreApplication::sendEvent(onto.viewport(), &enter);
            QDragMoveEvent move(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
            QCoreApplication::sendEvent(onto.viewport(), &move);
            if (!move.isAccepted()) return false;
            QDropEvent event(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
            QCoreApplication::sendEvent(onto.viewport(), &event);
            return event.isAccepted();
        };
        const auto candidate = [&](const QString& text) {
            return t.List().model()->index(static_cast<int>(t.Candidates().indexOf(text)), 0);
        };
        QVERIFY(!drop(t.List(), candidate(u"R"_s), t.Tree(), t.Line({})));
        QVERIFY(drop(t.List(), candidate(u"R"_s), t.Tree(), t.Line(u"A"_s)));
        QCOMPARE(t.Drawn(), u"A(P Q R) B"_s);
        QVERIFY(t.Tree().isExpanded(t.Line(u"A"_s)));
        QVERIFY(drop(t.Tree(), t.Line(u"A/Q"_s), t.Tree(), t.Line(u"B"_s)));
        QCOMPARE(t.Drawn(), u"A(P R) B(Q)"_s);
        QVERIFY(drop(t.Tree(), t.Line(u"A"_s), t.List(), {}));
        QCOMPARE(t.Drawn(), u"B(Q)"_s);
    }

    void WordsAndKeys() {
        Home t;
        t.Open();
        t.SelectLine(u"A"_s);
        VERIFY_MNEMONICS(t, 11);
        QCOMPARE(t.Unnamed(), QString());
        VERIFY_SMALL_SCREEN(*t.dialog);
    }

    void SizeIsKept() {
        Home t;
        t.Open();
        t.dialog->resize(780, 520);
        QTest::keyClick(t.dialog.get(), Qt::Key_Escape);
        t.Open();
        QCOMPARE(t.dialog->size(), QSize(780, 520));
    }

    /// 10,000 nodes and 50,000 candidates.
    void Large() {
        Home t;
        QVERIFY(t.home.manager.File().Execute(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<50000) INSERT INTO "
            "item_velmarch SELECT 17, 1, printf('item %05d', i), 0, printf('%032X', i) FROM n"));
        QVERIFY(t.home.catalogue->Load());
        DependencyTree& tree = t.home.catalogue->Tree(DependencySet::Time);
        for (const char16_t* client : {u"A", u"B"}) {
            DependencyTree::Node* node = tree.Walk({QString::fromUtf16(client)});
            for (int i = 0; i < 5000; ++i)
                tree.Append(*node, *(*t.home.catalogue->GetList(17))[static_cast<std::size_t>(i) + 3]);
        }
        QElapsedTimer timer;
        timer.start();
        t.Open();
        t.SelectLine(u"B"_s);
        t.Press("expandButton");
        t.Type("candidateSearch", u"4999"_s);
        QCOMPARE(t.Candidates().size(), 14);
        QVERIFY2(timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
    }
};

TEST_CLASS(TestCPulldownDepDlg);
#include "TestCPulldownDepDlg.moc"
