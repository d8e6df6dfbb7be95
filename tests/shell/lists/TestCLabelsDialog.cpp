#include "shell/lists/CLabelsDialog.h"

#include "app/CPulldownCatalogue.h"
#include "lang/LoadText.h"
#include "shell/frame/ModalUser.h"
#include "shell/lists/CLabelPreview.h"
#include "shell/lists/CLabelView.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A cell of the tables: row and column.
using Cell = std::pair<int, int>;

}  // namespace

/// The dialog of field names, driven by keys and clicks.
class TestCLabelsDialog final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    std::unique_ptr<CLabelsDialog> dialog;

    [[nodiscard]] CLabelView& Table(const char* name) const {
        auto* view = dialog->findChild<CLabelView*>(QString::fromLatin1(name));
        if (!view) qFatal("no table %s", name);
        return *view;
    }
    [[nodiscard]] CLabelView& Times() const { return Table("timeLabels"); }
    [[nodiscard]] CLabelView& Expenses() const { return Table("expenseLabels"); }
    static QModelIndex At(const CLabelView& table, Cell cell) {
        return table.model()->index(cell.first, cell.second);
    }
    [[nodiscard]] QString Shown(Cell cell) const { return At(Times(), cell).data().toString(); }
    [[nodiscard]] QString Own(int field) const { return home->catalogue->Labels().Own(field); }
    /// The line in which a name is edited at present; null without one.
    static QLineEdit* Editor(const CLabelView& table) {
        for (auto* line : table.findChildren<QLineEdit*>(u"nameEditor"_s))
            if (line->isVisible()) return line;
        return nullptr;
    }
    static void GoTo(CLabelView& table, Cell cell) {
        table.setFocus();
        table.setCurrentIndex(At(table, cell));
    }
    static QPoint MiddleOf(const CLabelView& table, Cell cell) {
        return table.visualRect(At(table, cell)).center();
    }
    static void DoubleClick(CLabelView& table, Cell cell) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, MiddleOf(table, cell));
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, MiddleOf(table, cell));
    }
    /// Types over a name and ends with a key.
    static void Enter(CLabelView& table, Cell cell, const QString& name, Qt::Key end = Qt::Key_Return) {
        GoTo(table, cell);
        QTest::keyClick(&table, Qt::Key_F2);
        QVERIFY(Editor(table));
        Editor(table)->selectAll();
        QTest::keyClicks(Editor(table), name);
        QTest::keyClick(Editor(table), end);
        QTRY_VERIFY(!Editor(table) || Editor(table)->text() != name);
    }
    [[nodiscard]] QPushButton* Button(const char* name) const {
        return dialog->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    /// Presses a button of a set and answers what it asks; which changes were shown.
    QStringList Press(const char* button, const QString& question, const QString& title, const char* answer) {
        QStringList shown;
        const ModalUser user([&](QDialog& asked) {
            QCOMPARE(asked.objectName(), u"labelPreview"_s);
            QCOMPARE(asked.windowTitle(), title);
            QCOMPARE(asked.findChild<QLabel*>(u"question"_s)->text(), question);
            const auto* list = asked.findChild<QTreeWidget*>();
            for (int i = 0; i < list->topLevelItemCount(); ++i) {
                const QTreeWidgetItem& line = *list->topLevelItem(i);
                shown << line.text(0) + u" | "_s + line.text(1) + u" | "_s + line.text(2);
            }
            QTest::mouseClick(asked.findChild<QPushButton*>(QString::fromLatin1(answer)), Qt::LeftButton);
        });
        QTest::mouseClick(Button(button), Qt::LeftButton);
        [&] { QVERIFY(user.Met()); }();
        return shown;
    }
    /// The tables by the other kind of records, each field with both of its names; own ones alone.
    [[nodiscard]] QString OwnNames(RecordMode mode) const {
        QStringList names;
        for (const LabelRow& row : LabelRows(mode))
            if (!Own(row.first).isEmpty() || !Own(row.second).isEmpty())
                names << Own(row.first) + u'/' + Own(row.second);
        return names.join(u' ');
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        dialog = std::make_unique<CLabelsDialog>(*home->catalogue, *home->profile);
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }
    void cleanup() {
        dialog.reset();
        home.reset();
    }

    void BothTablesAreThere() {
        QCOMPARE(Times().model()->rowCount(), 10);
        QCOMPARE(Expenses().model()->rowCount(), 12);
        QVERIFY(Times().hasFocus());
        QCOMPARE(dialog->windowTitle(), u"Names of fields"_s);
        QVERIFY(dialog->findChild<QLabel*>(u"areStored"_s)->text().contains(u"Cancel"_s));
    }

    void EditingBegins_data() {
        QTest::addColumn<QString>("by");
        QTest::addColumn<Cell>("cell");
        QTest::addColumn<int>("edited");
        QTest::newRow("F2 on a name") << u"F2"_s << Cell(3, 2) << 2;
        QTest::newRow("F2 on a heading") << u"F2"_s << Cell(3, 1) << 1;
        QTest::newRow("F2 on a field") << u"F2"_s << Cell(3, 0) << 2;
        QTest::newRow("Enter on a name") << u"Return"_s << Cell(0, 2) << 2;
        QTest::newRow("Enter on a field") << u"Return"_s << Cell(0, 0) << 2;
        QTest::newRow("Enter on the number pad") << u"Enter"_s << Cell(9, 1) << 1;
        QTest::newRow("a double click on a name") << u"click"_s << Cell(1, 2) << 2;
        QTest::newRow("a double click on a field") << u"click"_s << Cell(1, 0) << 2;
        QTest::newRow("the menu") << u"menu"_s << Cell(2, 1) << 1;
    }
    void EditingBegins() {
        QFETCH(QString, by);
        QFETCH(Cell, cell);
        QFETCH(int, edited);
        GoTo(Times(), cell);
        if (by == u"click"_s)
            DoubleClick(Times(), cell);
        else if (by == u"menu"_s)
            Times().findChild<QAction*>(u"editName"_s)->trigger();
        else
            QTest::keyClick(&Times(), static_cast<Qt::Key>(QKeySequence(by)[0].key()));
        QTRY_VERIFY(Editor(Times()));
        QCOMPARE(Times().currentIndex(), At(Times(), {cell.first, edited}));
        QVERIFY(dialog->isVisible());
    }
    /// What is typed takes the place of what was there, as in a sheet of cells.
    void TypingBeginsToo() {
        GoTo(Times(), {0, 2});
        QTest::keyClick(&Times(), Qt::Key_P);
        QTRY_VERIFY(Editor(Times()));
        QTest::keyClicks(Editor(Times()), u"atient"_s);
        QTest::keyClick(Editor(Times()), Qt::Key_Return);
        QTRY_COMPARE(Own(109), u"patient"_s);
    }
    /// The default is a hint in the empty line, and no text that would be stored.
    void TheEditorShowsTheOwnName() {
        GoTo(Times(), {0, 2});
        QTest::keyClick(&Times(), Qt::Key_F2);
        QCOMPARE(Editor(Times())->text(), QString());
        QCOMPARE(Editor(Times())->placeholderText(), u"Client"_s);
        QCOMPARE(Editor(Times())->accessibleName(), u"Client: Field name"_s);
        QCOMPARE(Editor(Times())->maxLength(), 255);
        QTest::keyClick(Editor(Times()), Qt::Key_Return);
        QTRY_VERIFY(!Editor(Times()));
        QVERIFY(!dialog->IsChanged());
    }

    void NamesAreStoredAsTheyAreEntered() {
        Enter(Times(), {0, 2}, u"Patient"_s);
        QCOMPARE(Shown({0, 2}), u"Patient"_s);
        Enter(Expenses(), {11, 1}, u"Private"_s);
        QVERIFY(dialog->isVisible());
        QVERIFY(dialog->IsChanged());
        TestHome next(home->Path());
        QCOMPARE(next.catalogue->Labels().Own(109), u"Patient"_s);
        QCOMPARE(next.catalogue->Labels().Own(128), u"Private"_s);
    }
    void EscapeEndsTheEditorAlone() {
        GoTo(Times(), {0, 2});
        QTest::keyClick(&Times(), Qt::Key_F2);
        QTest::keyClicks(Editor(Times()), u"Patient"_s);
        QTest::keyClick(Editor(Times()), Qt::Key_Escape);
        QTRY_VERIFY(!Editor(Times()));
        QVERIFY(dialog->isVisible());
        QCOMPARE(Own(109), QString());
    }
    /// From heading to name to the next heading, past the fields; from the last one to the first.
    void TabGoesOn() {
        Enter(Times(), {0, 1}, u"Patients"_s, Qt::Key_Tab);
        QTRY_COMPARE(Times().currentIndex(), At(Times(), {0, 2}));
        QTRY_VERIFY(Editor(Times()));
        QTest::keyClicks(Editor(Times()), u"Patient"_s);
        QTest::keyClick(Editor(Times()), Qt::Key_Tab);
        QTRY_COMPARE(Times().currentIndex(), At(Times(), {1, 1}));
        QTRY_VERIFY(Editor(Times()));
        QTest::keyClick(Editor(Times()), Qt::Key_Backtab);
        QTRY_COMPARE(Times().currentIndex(), At(Times(), {0, 2}));
        QCOMPARE(Own(99), u"Patients"_s);
        QCOMPARE(Own(109), u"Patient"_s);
    }
    void TabAtTheEnds() {
        Enter(Times(), {9, 2}, u"Paid"_s, Qt::Key_Tab);
        QTRY_COMPARE(Times().currentIndex(), At(Times(), {0, 1}));
        QTRY_VERIFY(Editor(Times()));
        QTest::keyClick(Editor(Times()), Qt::Key_Backtab);
        QTRY_COMPARE(Times().currentIndex(), At(Times(), {9, 2}));
        QCOMPARE(Own(118), u"Paid"_s);
    }
    /// Without an editor Tab leaves the table, so that the dialog can be used by keys alone.
    void TabLeavesTheTable() {
        GoTo(Times(), {0, 2});
        QVERIFY(Times().selectionModel()->hasSelection());
        QVERIFY(!Expenses().selectionModel()->hasSelection());
        QTest::keyClick(&Times(), Qt::Key_Tab);
        QVERIFY(Expenses().hasFocus());
        QVERIFY(!Times().selectionModel()->hasSelection());
        QVERIFY(Expenses().selectionModel()->hasSelection());
    }

    void ClearingANameBringsTheDefaultBack_data() {
        QTest::addColumn<QString>("by");
        QTest::newRow("Delete") << u"key"_s;
        QTest::newRow("the menu") << u"menu"_s;
        QTest::newRow("an emptied line") << u"line"_s;
    }
    void ClearingANameBringsTheDefaultBack() {
        QFETCH(QString, by);
        Enter(Times(), {0, 2}, u"Patient"_s);
        GoTo(Times(), {0, 2});
        if (by == u"key"_s) QTest::keyClick(&Times(), Qt::Key_Delete);
        if (by == u"menu"_s) Times().findChild<QAction*>(u"clearName"_s)->trigger();
        if (by == u"line"_s) {
            QTest::keyClick(&Times(), Qt::Key_F2);
            QCOMPARE(Editor(Times())->text(), u"Patient"_s);
            Editor(Times())->clear();
            QTest::keyClick(Editor(Times()), Qt::Key_Return);
        }
        QTRY_COMPARE(Own(109), QString());
        QCOMPARE(Shown({0, 2}), u"Client"_s);
        QCOMPARE(home->catalogue->Labels().GetLabel(109), u"Client"_s);
    }
    void DeleteInTheLineIsTheLines() {
        Enter(Times(), {0, 2}, u"Patient"_s);
        GoTo(Times(), {0, 2});
        QTest::keyClick(&Times(), Qt::Key_F2);
        Editor(Times())->setCursorPosition(0);
        QTest::keyClick(Editor(Times()), Qt::Key_Delete);
        QCOMPARE(Editor(Times())->text(), u"atient"_s);
        QCOMPARE(Own(109), u"Patient"_s);
    }

    void CancelTakesNothingBack() {
        Enter(Times(), {0, 2}, u"Patient"_s);
        QTest::mouseClick(Button("cancelButton"), Qt::LeftButton);
        QVERIFY(!dialog->isVisible());
        TestHome next(home->Path());
        QCOMPARE(next.catalogue->Labels().Own(109), u"Patient"_s);
    }

    /// Who shows names is told after OK, and after Cancel too when a name was stored.
    void WhetherViewsMustBeTold_data() {
        QTest::addColumn<bool>("enters");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("told");
        QTest::newRow("OK") << true << u"acceptButton"_s << true;
        QTest::newRow("OK without a change") << false << u"acceptButton"_s << true;
        QTest::newRow("Cancel after a change") << true << u"cancelButton"_s << true;
        QTest::newRow("Cancel without one") << false << u"cancelButton"_s << false;
    }
    void WhetherViewsMustBeTold() {
        QFETCH(bool, enters);
        QFETCH(QString, button);
        dialog.reset();
        const ModalUser user([&](QDialog& opened) {
            auto* table = opened.findChild<CLabelView*>(u"timeLabels"_s);
            if (enters) QVERIFY(table->model()->setData(At(*table, {0, 2}), u"Patient"_s));
            QTest::mouseClick(opened.findChild<QPushButton*>(button), Qt::LeftButton);
        });
        QTEST(RunLabelsDialog(nullptr, *home->catalogue, *home->profile), "told");
        QVERIFY(user.Met());
    }

    void TheStoreRefuses() {
        Enter(Times(), {0, 2}, u"Patient"_s);
        QVERIFY(home->manager.File().Execute(
            "CREATE TRIGGER refuse BEFORE INSERT ON item_velmarch BEGIN SELECT RAISE(ABORT, 'no'); END"));
        home->prompt.ExpectTold(Text::InsertFailed);
        Enter(Times(), {0, 2}, u"Guest"_s);
        QCOMPARE(Shown({0, 2}), u"Patient"_s);
        home->prompt.ExpectTold(Text::InsertFailed);
        Press("preset1Button", u"Use the names of a law office? Your own names of fields are taken away."_s,
              u"Field names"_s, "acceptButton");
        QCOMPARE(Shown({0, 2}), u"Patient"_s);
        QCOMPARE(Shown({1, 2}), u"Project"_s);
        home->prompt.Finish();
    }

    void ASetShowsFirstWhatItChanges() {
        Enter(Times(), {2, 2}, u"Task"_s);
        const QStringList shown = Press(
            "preset2Button", u"Use the names of a field service? Your own names of fields are taken away."_s,
            u"Field names"_s, "cancelButton");
        QVERIFY(shown.contains(u"Time: Client, list heading | Client | Customer"_s));
        QVERIFY(shown.contains(u"Time: Activity, field name | Task | Job"_s));
        QVERIFY(shown.contains(u"Expenses: Payment, field name | Payment | Paid by"_s));
        QCOMPARE(Own(111), u"Task"_s);
        QCOMPARE(Shown({0, 1}), u"Client"_s);
    }
    /// A set removes the names of fields that it doesn't give.
    void ASetTakesThePlaceOfAllNames() {
        Enter(Times(), {5, 2}, u"Money"_s);
        Enter(Expenses(), {9, 1}, u"Back"_s);
        const QStringList shown = Press(
            "preset2Button", u"Use the names of a field service? Your own names of fields are taken away."_s,
            u"Field names"_s, "acceptButton");
        QVERIFY(shown.contains(u"Time: Currency, field name | Money | Currency"_s));
        QCOMPARE(OwnNames(RecordMode::Time),
                 u"Customer/Customer Site/Site Job/Job Vehicles/Vehicle Notes/Notes Billable/Billable "
                 "Billed/Billed"_s);
        QCOMPARE(OwnNames(RecordMode::Expense),
                 u"Customer/Customer Job/Job Materials/Material Paid by/Paid by Amount/Amount Notes/Notes "
                 "Billable/Billable Billed/Billed"_s);
        QCOMPARE(Shown({0, 2}), u"Customer"_s);
        QCOMPARE(Shown({5, 2}), u"Currency"_s);
        QVERIFY(dialog->IsChanged());
    }
    void AllNamesGo() {
        Enter(Times(), {0, 2}, u"Patient"_s);
        const QString question = u"Take all your own names of fields away?"_s;
        QCOMPARE(Press("resetButton", question, u"Field names"_s, "cancelButton"),
                 QStringList{u"Time: Client, field name | Patient | Client"_s});
        QCOMPARE(Shown({0, 2}), u"Patient"_s);
        Press("resetButton", question, u"Field names"_s, "acceptButton");
        QCOMPARE(Shown({0, 2}), u"Client"_s);
        QCOMPARE(Press("resetButton", question, u"Field names"_s, "acceptButton"), QStringList());
    }
    /// Return, with the keyboard on the list as well as at first, is the harmless answer.
    void TheQuestionIsHarmless_data() {
        QTest::addColumn<bool>("inList");
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Return") << false << Qt::Key_Return;
        QTest::newRow("Escape") << false << Qt::Key_Escape;
        QTest::newRow("Return in the list") << true << Qt::Key_Return;
    }
    void TheQuestionIsHarmless() {
        QFETCH(bool, inList);
        QFETCH(Qt::Key, key);
        const ModalUser user([&](QDialog& asked) {
            auto* list = asked.findChild<QTreeWidget*>();
            if (inList) list->setFocus();
            QTest::keyClick(inList ? static_cast<QWidget*>(list) : &asked, key);
            QTRY_VERIFY(!asked.isVisible());
        });
        QTest::mouseClick(Button("preset1Button"), Qt::LeftButton);
        QVERIFY(user.Met());
        QVERIFY(!dialog->IsChanged());
    }
    void SizesAreRemembered() {
        dialog->resize(760, 560);
        dialog->accept();
        CLabelsDialog again(*home->catalogue, *home->profile);
        QCOMPARE(again.size(), QSize(760, 560));
    }
};

TEST_CLASS(TestCLabelsDialog);
#include "TestCLabelsDialog.moc"
