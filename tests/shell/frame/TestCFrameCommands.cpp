#include "shell/frame/CFrameCommands.h"

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "shell/frame/FrameCommandsHome.h"
#include "shell/frame/ModalUser.h"
#include "viewmodel/commands/BarButtons.h"

#include <QCheckBox>
#include <QFontDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Picks a row of a pick dialog by its words.
ModalUser Picks(const QString& words) {
    return ModalUser([words](QDialog& dialog) {
        auto* search = dialog.findChild<QLineEdit*>(u"searchLine"_s);
        auto* list = dialog.findChild<QTreeView*>(u"searchRows"_s);
        if (search->isVisible()) {
            QTest::keyClicks(search, words);
        } else {
            for (int row = 0; row < list->model()->rowCount(); ++row)
                if (list->model()->index(row, 0).data().toString() == words)
                    list->setCurrentIndex(list->model()->index(row, 0));
        }
        dialog.accept();
    });
}

}  // namespace

/// The commands of the window, carried out without the window.
class TestCFrameCommands final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void WhatIsMissingIsNotOffered() {
        Scene scene;
        const CFrameCommands bare(scene.Bare());
        CommandState state;
        state.selected = 1;
        bare.Describe(state);
        for (const int command :
             {40011, 40012, 32777, 32856, 32861, 32804, 32771, 40068, 40122, 32817, 40200})
            QVERIFY2(!IsOffered(*FindCommand(command), state), qPrintable(QString::number(command)));
        for (const int command : {40147, 103, 40052, 32829, 32891, 32832})
            QVERIFY2(IsOffered(*FindCommand(command), state), qPrintable(QString::number(command)));
        for (const int command : {40011, 40012, 32777, 32856, 32804, 32771, 40122, 32817, 40200})
            QVERIFY2(scene.Offers(command), qPrintable(QString::number(command)));
    }
    void DescribesTheFilterOfTheMode() {
        Scene scene(RecordMode::Expense);
        scene.home.document->Filter().ApplyPreset(10, scene.home.document->PeriodNeeds());
        scene.home.document->FilterOfExpenses().ApplyPreset(2, scene.home.document->PeriodNeeds());
        scene.home.document->Filter().items[0] = u"Client A"_s;
        scene.home.document->FilterOfExpenses().flags[2] = 1;
        CommandState state = scene.State();
        QVERIFY(!state.timeMode);
        QCOMPARE(state.preset, 2);
        QVERIFY(state.canStep);
        QCOMPARE(state.filters, QSet<int>{32834});
        theRecordMode = RecordMode::Time;
        state = scene.State();
        QVERIFY(state.timeMode && !state.canStep);
        QCOMPARE(state.preset, 10);
        QCOMPARE(state.filters, QSet<int>{32804});
    }

    void NewRecordOfEachKind() {
        Scene time;
        time.Run(40147);
        QCOMPARE(time.dialogs, 1);
        QCOMPARE(time.home.document->RecordCount(), 1U);
        Scene expense(RecordMode::Expense);
        expense.dialog = [](CVORec& record) {
            static_cast<CERecord&>(record).item3 = u"Taxi"_s;
            return record.Kind() == RecordKind::Expense;
        };
        expense.Run(40147);
        expense.SelectAll();
        const QString id = expense.view.SelectedIds().value(0);
        QCOMPARE(expense.home.document->FindExpense(id)->item3, u"Taxi"_s);
    }
    void NewRecordFromDefaults() {
        Scene scene;
        scene.Run(32856);
        QCOMPARE(scene.called, QStringList{u"defaults"_s});
        scene.SelectAll();
        QCOMPARE(scene.OnlyTime().item2, u"A default"_s);
        scene.defaultsAreChosen = false;
        scene.Run(32857);
        QCOMPARE(scene.home.document->RecordCount(), 1U);
        QCOMPARE(scene.dialogs, 1);
    }
    void NewRecordFromTheTree() {
        Scene scene;
        QVERIFY(!scene.Offers(32861));
        scene.tree.hasNode = true;
        scene.home.settings->dialogOnQuickEntry = false;
        scene.Run(32863);
        QCOMPARE(scene.dialogs, 0);
        scene.SelectAll();
        QCOMPARE(scene.OnlyTime().item1, u"From the tree"_s);
        QVERIFY(scene.set.AnyRunning());
        Scene expense(RecordMode::Expense);
        expense.tree.hasNode = true;
        QVERIFY(!expense.Offers(32863));
        expense.Run(32861);
        expense.SelectAll();
        QCOMPARE(expense.home.document->FindExpense(expense.view.SelectedIds().value(0))->item1,
                 u"From the tree"_s);
    }
    void CopyOfAnExpenseWithTimestamp() {
        Scene scene(RecordMode::Expense);
        scene.AddExpense(u"Client A"_s);
        scene.SelectAll();
        scene.Run(32864);
        QCOMPARE(scene.home.document->RecordCount(), 2U);
    }

    void EditOneOfEachKind() {
        Scene time;
        const QString id = time.home.AddTime(2026, 11, 19, u"09:00"_s, u"10:00"_s);
        time.dialog = [&time](CVORec& record) {
            static_cast<CTRecord&>(record).notes = u"edited"_s;
            return &record == &time.timeEntry;  // the one working record of time
        };
        time.SelectAll();
        time.Run(103);
        QCOMPARE(time.home.document->FindTime(id)->notes, u"edited"_s);
        Scene expense(RecordMode::Expense);
        const QString other = expense.AddExpense(u"Client A"_s);
        expense.dialog = [](CVORec& record) {
            static_cast<CERecord&>(record).notes = u"edited"_s;
            return true;
        };
        expense.SelectAll();
        expense.Run(103);
        QCOMPARE(expense.home.document->FindExpense(other)->notes, u"edited"_s);
        QCOMPARE(expense.home.document->FindExpense(other)->item1, u"Client A"_s);
        expense.dialog = [](CVORec& record) {
            static_cast<CERecord&>(record).notes = u"dropped"_s;
            return false;
        };
        expense.commands->EditRecord(other);
        QCOMPARE(expense.dialogs, 2);
        QCOMPARE(expense.home.document->FindExpense(other)->notes, u"edited"_s);
    }
    /// The command isn't offered for two; whoever runs it all the same is told.
    void EditTwo() {
        Scene scene;
        scene.home.AddTime(2026, 11, 18);
        scene.home.AddTime(2026, 11, 19);
        scene.SelectAll();
        QVERIFY(!scene.Offers(103));
        scene.home.prompt.ExpectTold(Text::SelectOneRecord);
        scene.commands->Run(*FindCommand(103));
        QCOMPARE(scene.dialogs, 0);
        scene.home.prompt.Finish();
    }

    /// Each timer of the selection tells of itself at once; a stop changes its record first.
    void TimersOfTheSelection() {
        Scene scene;
        const QString first = scene.home.AddTime(2026, 11, 18), second = scene.home.AddTime(2026, 11, 19);
        scene.home.settings->timerOnNewTimer = 0;
        scene.SelectAll();
        scene.home.views.seen.clear();
        scene.Run(40112);
        QCOMPARE(scene.Hints(), (QList<int>{3, 3}));
        QCOMPARE(scene.home.views.seen[0].second, QStringList{second});  // the latest stands first
        QCOMPARE(scene.home.views.seen[1].second, QStringList{first});
        scene.home.views.seen.clear();
        scene.Run(40113);
        QCOMPARE(scene.Hints(), (QList<int>{4, 4}));
        scene.home.views.seen.clear();
        scene.Run(40111);
        QCOMPARE(scene.Hints(), (QList<int>{14, 1, 5, 14, 1, 5}));
        QVERIFY(!scene.set.AnyActive());
    }

    void MarksOfExpenses_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("flags");
        QTest::newRow("first") << 32838 << "1----";
        QTest::newRow("first and second") << 40055 << "12---";
        QTest::newRow("third") << 32839 << "--3--";
        QTest::newRow("third and fourth") << 40058 << "--34-";
        QTest::newRow("fifth") << 32840 << "----5";
    }
    void MarksOfExpenses() {
        QFETCH(int, command);
        Scene scene(RecordMode::Expense);
        const QString id = scene.AddExpense(u"Client A"_s);
        scene.home.settings->confirmMark = false;
        scene.SelectAll();
        scene.Run(command);
        const CERecord& record = *scene.home.document->FindExpense(id);
        const bool flags[] = {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5};
        QString shown;
        for (int i = 0; i < 5; ++i) shown += flags[i] ? QString::number(i + 1) : u"-"_s;
        QTEST(shown, "flags");
    }
    void DeleteAndCopyExpenses() {
        Scene scene(RecordMode::Expense);
        scene.AddExpense(u"Client A"_s);
        scene.AddExpense(u"Client B"_s);
        scene.home.settings->confirmCopy = scene.home.settings->confirmDelete = false;
        scene.SelectAll();
        scene.Run(101);
        QCOMPARE(scene.home.document->RecordCount(), 4U);
        scene.SelectAll();
        scene.Run(102);
        QCOMPARE(scene.home.document->RecordCount(), 0U);
    }

    void ModeDefaultsAndTree() {
        Scene scene;
        scene.Run(40012);
        scene.Run(40011);
        scene.Run(32777);
        QCOMPARE(scene.called, (QStringList{u"mode 2"_s, u"mode 1"_s, u"dialog of defaults"_s}));
        QVERIFY(scene.Checks(32771) && scene.Checks(32772));
        scene.Run(32773);
        QVERIFY(scene.tree.isStacked && scene.Checks(32773));
        scene.Run(32772);
        QVERIFY(!scene.tree.isStacked);
        scene.tree.hasNode = true;
        scene.Run(40068);
        QCOMPARE(scene.tree.expanded, 1);
        scene.Run(32771);
        QVERIFY(!scene.tree.isShown && !scene.Checks(32772) && !scene.Offers(32773));
        scene.Run(32771);
        QVERIFY(scene.tree.isShown);
    }
    void WhatTheWindowDoesItself() {
        Scene scene;
        for (const int command : {59392, 32812, 32774, 32780, 32803, 57665}) scene.Run(command);
        QCOMPARE(scene.door.asked,
                 (QStringList{u"bar 1"_s, u"bar 2"_s, u"status bar"_s, u"refresh"_s, u"day"_s, u"leave"_s}));
        scene.door.asked.clear();
        scene.Run(40066);
        QCOMPARE(scene.door.asked, QStringList{u"refresh"_s});
        scene.door.asked.clear();
        scene.Run(32825);
        QCOMPARE(scene.home.settings->listLayout, 2);
        QCOMPARE(scene.door.asked, QStringList{u"list"_s});
        QVERIFY(scene.Hints().isEmpty());
        scene.Run(32778);
        QCOMPARE(scene.Hints(), QList<int>{6});
    }
    /// After the options what the columns are wide on screen is saved with them.
    void OptionsSaveTheWidths() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        scene.home.AddTime(2026, 11, 19);
        scene.SelectAll();
        scene.view.horizontalHeader()->resizeSection(1, 141);
        scene.timeEntry.notes = u"left over"_s;
        scene.Run(40066);
        QCOMPARE(scene.timeEntry.notes, QString());
        const TestHome next(scene.home.Path());
        QCOMPARE(next.settings->ListColumns().EntryAt(0).width, 141);
    }

    void FilterByAText() {
        Scene scene;
        QVERIFY(scene.home.catalogue->AddItem(16, u"Client A"_s, false));
        QVERIFY(scene.home.catalogue->AddItem(16, u"Client B"_s, false));
        scene.home.document->Filter().ApplyPreset(2, scene.home.document->PeriodNeeds());
        QString title;
        {
            const ModalUser cancels([&title](QDialog& dialog) {
                title = dialog.windowTitle();
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            scene.Run(32804);
            QVERIFY(cancels.Met());
        }
        QCOMPARE(title, u"Filter: Client"_s);
        QVERIFY(scene.Hints().isEmpty() && !scene.Checks(32804));
        {
            const ModalUser picks = Picks(u"b"_s);
            scene.Run(32804);
        }
        const TimeFilter& filter = scene.home.document->Filter();
        QCOMPARE(filter.items[0], u"Client B"_s);
        QVERIFY(filter.matchWhole && filter.matchCase);
        QCOMPARE(filter.preset, 2);
        QCOMPARE(scene.Hints(), QList<int>{6});
        QVERIFY(scene.Checks(32804));
        {
            const ModalUser picks = Picks(u"any"_s);
            scene.Run(32804);
        }
        QCOMPARE(filter.items[0], u"(any)"_s);
        QVERIFY(!scene.Checks(32804));
    }
    void FilterExpenses() {
        Scene scene(RecordMode::Expense);
        QVERIFY(scene.home.catalogue->AddItem(71, u"Cash"_s, false));
        {
            const ModalUser picks = Picks(u"cash"_s);
            scene.Run(32809);
        }
        QCOMPARE(scene.home.document->FilterOfExpenses().items[3], u"Cash"_s);
        {
            const ModalUser picks = Picks(u"No"_s);
            scene.Run(32836);
        }
        QCOMPARE(scene.home.document->FilterOfExpenses().flags[4], 0);
        QVERIFY(scene.Checks(32809) && scene.Checks(32836) && !scene.Checks(32837));
        QCOMPARE(scene.home.document->Filter().items[3], u"(any)"_s);
        scene.Run(32810);
        QVERIFY(!scene.Checks(32809) && !scene.Checks(32836));
    }
    /// A list without items says so.
    void FilterByAnEmptyList() {
        Scene scene;
        QString rows, note;
        const ModalUser looks([&](QDialog& dialog) {
            rows = QString::number(dialog.findChild<QTreeView*>(u"searchRows"_s)->model()->rowCount());
            note = dialog.findChild<QLabel*>(u"pickNote"_s)->text();
            dialog.reject();
        });
        scene.Run(32806);
        QCOMPARE(rows, u"1"_s);
        QCOMPARE(note, LoadText(Text::PickNoItems));
    }
    void PeriodOfExpenses() {
        Scene scene(RecordMode::Expense);
        scene.Run(32798);
        QCOMPARE(scene.home.document->FilterOfExpenses().preset, 1);
        QVERIFY(scene.home.document->Filter().preset != 1);
        scene.Run(32844);
        QCOMPARE(scene.home.document->FilterOfExpenses().startText, u"11/18/2026"_s);
        scene.Run(32802);
        QCOMPARE(scene.home.document->FilterOfExpenses().preset, 6);
    }

    void UseDependenciesIsKeptAtOnce() {
        QTemporaryDir folder;
        Scene scene;
        QVERIFY(!scene.Checks(32891));
        scene.Run(32891);
        QVERIFY(scene.Checks(32891));
        scene.home.settings->KeepStoreUntouched();
        const TestHome next(scene.home.Path());
        QVERIFY(next.settings->useDependencies);
        scene.Run(32891);
        QVERIFY(!scene.home.settings->useDependencies);
    }
    /// Also where two columns are called alike; picked again, it turns round.
    void SortByThePickedColumn() {
        Scene scene;
        scene.home.settings->ListColumns().SetColumn(ColumnHalf::Time, 7, {u"Client"_s, 90, 7, true});
        scene.model.Rebuild();
        const auto pick = [&scene](int present) {
            const ModalUser picks([present](QDialog& dialog) {
                auto* rows = dialog.findChild<QTreeView*>(u"searchRows"_s);
                QCOMPARE(dialog.windowTitle(), u"Sort"_s);
                QCOMPARE(rows->currentIndex().row(), present);
                rows->setCurrentIndex(rows->model()->index(6, 0));
                QTest::keyClick(rows, Qt::Key_Return);
            });
            scene.Run(32784);
        };
        pick(0);
        QCOMPARE(scene.home.settings->sortColumnTime, 5);
        QVERIFY(scene.home.settings->sortAscendingTime);
        pick(6);
        QVERIFY(!scene.home.settings->sortAscendingTime);
        const ModalUser cancels([](QDialog& dialog) { dialog.reject(); });
        scene.Run(32784);
        QVERIFY(!scene.home.settings->sortAscendingTime);
    }
    void ListColumnsRebuild() {
        Scene scene;
        scene.home.settings->listLayout = 3;
        scene.home.AddTime(2026, 11, 19);
        scene.SelectAll();
        scene.home.views.seen.clear();
        scene.view.horizontalHeader()->resizeSection(2, 142);
        {
            const ModalUser accepts([](QDialog& dialog) {
                auto* shown = dialog.findChild<QListWidget*>(u"shownColumns"_s);
                shown->setCurrentRow(0);
                QTest::keyClick(shown, Qt::Key_Space);
                dialog.accept();
            });
            scene.Run(40052);
        }
        QVERIFY(!scene.home.settings->ListColumns().IsVisible(0));
        QCOMPARE(scene.home.settings->ListColumns().EntryAt(6).width, 142);
        QCOMPARE(scene.Hints(), QList<int>{6});
        {
            const ModalUser cancels([](QDialog& dialog) { dialog.reject(); });
            scene.Run(40122);
        }
        QCOMPARE(scene.Hints(), QList<int>{6});
        const ModalUser accepts([](QDialog& dialog) { dialog.accept(); });
        scene.Run(40122);
        QCOMPARE(scene.Hints(), (QList<int>{6, 6}));
    }
    void ListFontIsSaved() {
        Scene scene;
        {
            const ModalUser accepts([](QDialog& dialog) {
                auto& fonts = static_cast<QFontDialog&>(dialog);
                QFont font = fonts.currentFont();
                font.setPointSize(21);
                fonts.setCurrentFont(font);
                fonts.accept();
            });
            scene.Run(32829);
        }
        QCOMPARE(scene.home.settings->ListFont().tenthsOfPoint, 210);
        QCOMPARE(scene.Hints(), QList<int>{6});
        const TestHome next(scene.home.Path());
        QCOMPARE(next.settings->ListFont().tenthsOfPoint, 210);
    }

    void ButtonsAreChosenAndRestored() {
        Scene scene;
        QCOMPARE(scene.actions.Buttons(Bar::Filters), FactoryButtons(Bar::Filters));
        {
            const ModalUser accepts([](QDialog& dialog) {
                auto* onBar = dialog.findChild<QListWidget*>(u"barButtons"_s);
                while (onBar->count() > 2) {
                    onBar->setCurrentRow(2);
                    QTest::keyClick(onBar, Qt::Key_Space);
                }
                dialog.accept();
            });
            scene.Run(32879);
        }
        QCOMPARE(scene.actions.Buttons(Bar::Filters), (QList<int>{32844, 32845}));
        QCOMPARE(scene.actions.Buttons(Bar::Records), FactoryButtons(Bar::Records));
        QMainWindow window;
        CActions actions(window);
        CFrameCommands::Around around = scene.Around();
        around.actions = &actions;
        const CFrameCommands nextStart(around);
        QCOMPARE(actions.Buttons(Bar::Filters), (QList<int>{32844, 32845}));
    }
    void PaletteRunsWhatIsFound() {
        Scene scene;
        {
            const ModalUser finds([](QDialog& dialog) {
                QTest::keyClicks(dialog.findChild<QLineEdit*>(u"searchLine"_s), u"this week"_s);
                dialog.accept();
            });
            scene.Run(40200);
        }
        QCOMPARE(scene.ran, QList<int>{32799});
        const ModalUser cancels([](QDialog& dialog) { dialog.reject(); });
        scene.Run(40200);
        QCOMPARE(scene.ran, QList<int>{32799});
    }
};

QTEST_MAIN(TestCFrameCommands)
#include "TestCFrameCommands.moc"
