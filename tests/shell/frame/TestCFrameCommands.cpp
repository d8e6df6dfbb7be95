#include "shell/frame/CFrameCommands.h"

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "shell/frame/FrameCommandsHome.h"
#include "shell/frame/ModalUser.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/BarButtons.h"
#include "viewmodel/guide/CGuide.h"

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
    void RegionalSettingsWhereTheDesktopHasThem() {
        Fixture fixture;
        QVERIFY(!fixture.Offers(32781));
        fixture.launcher.programs = {u"gnome-control-center"_s};
        fixture.commands = std::make_unique<CFrameCommands>(fixture.Context());
        fixture.Run(32781);
        QCOMPARE(fixture.launcher.started, u"gnome-control-center region"_s);
        fixture.launcher.starts = false;
        fixture.home.prompt.ExpectTold(Text::RegionalNotStarted);
        fixture.Run(32781);
    }
    void DescribesTheFilterOfTheMode() {
        Fixture fixture(RecordMode::Expense);
        fixture.home.document->Filter().ApplyPreset(10, fixture.home.document->GetPeriodContext());
        fixture.home.document->FilterOfExpenses().ApplyPreset(2, fixture.home.document->GetPeriodContext());
        fixture.home.document->Filter().items[0] = u"Client A"_s;
        fixture.home.document->FilterOfExpenses().flags[2] = 1;
        CommandState state = fixture.State();
        QVERIFY(!state.timeMode);
        QCOMPARE(state.preset, 2);
        QVERIFY(state.canStep);
        QCOMPARE(state.filters, QSet<int>{32834});
        theRecordMode = RecordMode::Time;
        state = fixture.State();
        QVERIFY(state.timeMode && !state.canStep);
        QCOMPARE(state.preset, 10);
        QCOMPARE(state.filters, QSet<int>{32804});
    }

    void NewRecordOfEachKind() {
        Fixture time;
        time.Run(40147);
        QCOMPARE(time.dialogs.edited, 1);
        QCOMPARE(time.home.document->RecordCount(), 1U);
        Fixture expense(RecordMode::Expense);
        expense.dialogs.edit = [](CVORec& record) {
            static_cast<CERecord&>(record).item3 = u"Taxi"_s;
            return record.Kind() == RecordKind::Expense;
        };
        expense.Run(40147);
        expense.SelectAll();
        const QString id = expense.view.SelectedIds().value(0);
        QCOMPARE(expense.home.document->FindExpense(id)->item3, u"Taxi"_s);
    }
    void NewRecordFromDefaults() {
        Fixture fixture;
        fixture.Run(32856);
        QCOMPARE(fixture.dialogs.called, QStringList{u"defaults"_s});
        fixture.SelectAll();
        QCOMPARE(fixture.OnlyTime().item2, u"A default"_s);
        fixture.dialogs.defaultsAreChosen = false;
        fixture.Run(32857);
        QCOMPARE(fixture.home.document->RecordCount(), 1U);
        QCOMPARE(fixture.dialogs.edited, 1);
    }
    void NewRecordFromTheTree() {
        Fixture fixture;
        QVERIFY(!fixture.Offers(32861));
        fixture.tree.hasNode = true;
        fixture.home.settings->dialogOnQuickEntry = false;
        fixture.Run(32863);
        QCOMPARE(fixture.dialogs.edited, 0);
        fixture.SelectAll();
        QCOMPARE(fixture.OnlyTime().item1, u"From the tree"_s);
        QVERIFY(fixture.set.AnyRunning());
        Fixture expense(RecordMode::Expense);
        expense.tree.hasNode = true;
        QVERIFY(!expense.Offers(32863));
        expense.Run(32861);
        expense.SelectAll();
        QCOMPARE(expense.home.document->FindExpense(expense.view.SelectedIds().value(0))->item1,
                 u"From the tree"_s);
    }
    /// What would be entered could not be stored: no dialog opens for it.
    void NoNewRecordInADamagedStore() {
        Fixture fixture;
        fixture.home.manager.File().NoteDamage();
        fixture.home.prompt.ExpectTold(Text::DamagedStoreStays);
        fixture.Run(40147);
        fixture.home.prompt.Finish();
        QCOMPARE(fixture.dialogs.edited, 0);
        QCOMPARE(fixture.home.document->RecordCount(), 0U);
    }
    void CopyOfAnExpenseWithTimestamp() {
        Fixture fixture(RecordMode::Expense);
        fixture.AddExpense(u"Client A"_s);
        fixture.SelectAll();
        fixture.Run(32864);
        QCOMPARE(fixture.home.document->RecordCount(), 2U);
    }

    void EditOneOfEachKind() {
        Fixture time;
        const QString id = time.home.AddTime(2026, 11, 19, u"09:00"_s, u"10:00"_s);
        time.dialogs.edit = [&time](CVORec& record) {
            static_cast<CTRecord&>(record).notes = u"edited"_s;
            return &record == &time.timeEntry;  // the one working record of time
        };
        time.SelectAll();
        time.Run(103);
        QCOMPARE(time.home.document->FindTime(id)->notes, u"edited"_s);
        Fixture expense(RecordMode::Expense);
        const QString other = expense.AddExpense(u"Client A"_s);
        expense.dialogs.edit = [](CVORec& record) {
            static_cast<CERecord&>(record).notes = u"edited"_s;
            return true;
        };
        expense.SelectAll();
        expense.Run(103);
        QCOMPARE(expense.home.document->FindExpense(other)->notes, u"edited"_s);
        QCOMPARE(expense.home.document->FindExpense(other)->item1, u"Client A"_s);
        expense.dialogs.edit = [](CVORec& record) {
            static_cast<CERecord&>(record).notes = u"dropped"_s;
            return false;
        };
        expense.commands->Records().Edit(other);
        QCOMPARE(expense.dialogs.edited, 2);
        QCOMPARE(expense.home.document->FindExpense(other)->notes, u"edited"_s);
    }
    /// Others change the record while it is in its dialog; the dialog comes back with what they did.
    void EditWhatOthersChangeMeanwhile() {
        Fixture fixture;
        const QString id = fixture.home.AddTime(2026, 11, 19, u"09:00"_s, u"10:00"_s);
        QStringList shown;
        fixture.dialogs.edit = [&](CVORec& edited) {
            auto& record = static_cast<CTRecord&>(edited);
            shown << record.item1 + u'/' + record.item2;
            if (shown.size() > 1) return true;
            record.item1 = u"entered"_s;
            const TestHome other(fixture.home.Path());
            CTRecord stored;
            if (!other.store->ReadRecord(stored, id)) return false;
            stored.item1 = u"from outside"_s;
            stored.item2 = u"outside"_s;
            return other.store->ModifyRecord(stored, id, Commit::Now);
        };
        fixture.home.prompt.Expect(Text::AskChangedOnBothSides, Answer::Cancel);
        fixture.commands->Records().Edit(id);
        QCOMPARE(shown, (QStringList{u"/"_s, u"entered/outside"_s}));
        QCOMPARE(fixture.home.document->FindTime(id)->item1, u"entered"_s);
        QCOMPARE(fixture.home.document->FindTime(id)->item2, u"outside"_s);
    }
    /// The console marks an expense as billed while its amount is entered: nobody has to be asked.
    void EditAnExpenseThatIsMarkedMeanwhile() {
        Fixture fixture(RecordMode::Expense);
        const QString id = fixture.AddExpense(u"Client A"_s);
        fixture.dialogs.edit = [&](CVORec& edited) {
            static_cast<CERecord&>(edited).amount.Set(30.0F);
            const TestHome other(fixture.home.Path());
            CERecord stored;
            if (!other.store->ReadRecord(stored, id)) return false;
            stored.flag1 = stored.flag2 = true;
            return other.store->ModifyRecord(stored, id, Commit::Now);
        };
        fixture.commands->Records().Edit(id);
        QCOMPARE(fixture.dialogs.edited, 1);
        const CERecord& expense = *fixture.home.document->FindExpense(id);
        QCOMPARE(expense.GetAmountText(), u"30.00"_s);
        QVERIFY(expense.flag1 && expense.flag2);
    }
    /// The command isn't offered for two; running it all the same ends in a message.
    void EditTwo() {
        Fixture fixture;
        fixture.home.AddTime(2026, 11, 18);
        fixture.home.AddTime(2026, 11, 19);
        fixture.SelectAll();
        QVERIFY(!fixture.Offers(103));
        fixture.home.prompt.ExpectTold(Text::SelectOneRecord);
        fixture.commands->Run(*FindCommand(103));
        QCOMPARE(fixture.dialogs.edited, 0);
        fixture.home.prompt.Finish();
    }

    /// Each timer of the selection tells of itself at once; a stop changes its record first.
    void TimersOfTheSelection() {
        Fixture fixture;
        const QString first = fixture.home.AddTime(2026, 11, 18), second = fixture.home.AddTime(2026, 11, 19);
        fixture.home.settings->timerOnNewTimer = 0;
        fixture.SelectAll();
        fixture.home.views.seen.clear();
        fixture.Run(40112);
        QCOMPARE(fixture.Hints(), (QList<int>{3, 3}));
        QCOMPARE(fixture.home.views.seen[0].second, QStringList{second});  // the latest stands first
        QCOMPARE(fixture.home.views.seen[1].second, QStringList{first});
        fixture.home.views.seen.clear();
        fixture.Run(40113);
        QCOMPARE(fixture.Hints(), (QList<int>{4, 4}));
        fixture.home.views.seen.clear();
        fixture.Run(40111);
        QCOMPARE(fixture.Hints(), (QList<int>{14, 1, 5, 14, 1, 5}));
        QVERIFY(!fixture.set.AnyActive());
    }

    /// Seven hours by flight, of which the clock shows one.
    void AStopByTrueTime() {
        Fixture fixture;
        const QString id = fixture.home.AddTime(2026, 11, 19);
        fixture.SelectAll();
        fixture.Run(40112);
        fixture.home.clock.Advance(7 * 3600);
        fixture.home.clock.ShiftZone(-6 * 3600);
        fixture.home.prompt.Expect(Text::AskTrueTime, Answer::Cancel);
        fixture.Run(32868);
        QVERIFY(fixture.set.AnyRunning());
        fixture.home.prompt.Expect(Text::AskTrueTime, Answer::Yes);
        fixture.Run(40111);
        QVERIFY(!fixture.set.AnyActive());
        QCOMPARE(fixture.home.document->FindTime(id)->spans.duration.clockText, u"7:00"_s);
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
        Fixture fixture(RecordMode::Expense);
        const QString id = fixture.AddExpense(u"Client A"_s);
        fixture.home.settings->confirmMark = false;
        fixture.SelectAll();
        fixture.Run(command);
        const CERecord& record = *fixture.home.document->FindExpense(id);
        const bool flags[] = {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5};
        QString shown;
        for (int i = 0; i < 5; ++i) shown += flags[i] ? QString::number(i + 1) : u"-"_s;
        QTEST(shown, "flags");
    }
    void DeleteAndCopyExpenses() {
        Fixture fixture(RecordMode::Expense);
        fixture.AddExpense(u"Client A"_s);
        fixture.AddExpense(u"Client B"_s);
        fixture.home.settings->confirmCopy = fixture.home.settings->confirmDelete = false;
        fixture.SelectAll();
        fixture.Run(101);
        QCOMPARE(fixture.home.document->RecordCount(), 4U);
        fixture.SelectAll();
        fixture.Run(102);
        QCOMPARE(fixture.home.document->RecordCount(), 0U);
    }

    void ModeDefaultsAndTree() {
        Fixture fixture;
        fixture.Run(40012);
        fixture.Run(40011);
        fixture.Run(32777);
        QCOMPARE(fixture.control.asked, (QStringList{u"mode 2"_s, u"mode 1"_s}));
        QCOMPARE(fixture.dialogs.called, QStringList{u"dialog of defaults"_s});
        QVERIFY(fixture.Checks(32771) && fixture.Checks(32772));
        fixture.Run(32773);
        QVERIFY(fixture.tree.isStacked && fixture.Checks(32773));
        fixture.Run(32772);
        QVERIFY(!fixture.tree.isStacked);
        fixture.tree.hasNode = true;
        fixture.Run(40068);
        QCOMPARE(fixture.tree.expanded, 1);
        fixture.Run(32771);
        QVERIFY(!fixture.tree.isShown && !fixture.Checks(32772) && !fixture.Offers(32773));
        fixture.Run(32771);
        QVERIFY(fixture.tree.isShown);
    }
    void WhatTheWindowDoesItself() {
        Fixture fixture;
        for (const int command : {59392, 32812, 32774, 32780, 32803, 57665}) fixture.Run(command);
        QCOMPARE(fixture.control.asked,
                 (QStringList{u"bar 1"_s, u"bar 2"_s, u"status bar"_s, u"refresh"_s, u"day"_s, u"leave"_s}));
        fixture.control.asked.clear();
        fixture.Run(40066);
        QCOMPARE(fixture.control.asked, QStringList{u"refresh"_s});
        fixture.control.asked.clear();
        fixture.Run(32825);
        QCOMPARE(fixture.home.settings->listLayout, 2);
        QCOMPARE(fixture.control.asked, QStringList{u"list"_s});
        QVERIFY(fixture.Hints().isEmpty());
        fixture.Run(32778);
        QCOMPARE(fixture.Hints(), QList<int>{6});
    }
    /// After the options what the columns are wide on screen is saved with them.
    /// What was stored shows at once; a guide that the end of the program cut off has changed nothing.
    void TheFirstStepsAreTakenUp_data() {
        QTest::addColumn<bool>("isDone");
        QTest::addColumn<QStringList>("asked");
        QTest::newRow("done") << true << QStringList(u"refresh"_s);
        QTest::newRow("cut off") << false << QStringList();
    }
    void TheFirstStepsAreTakenUp() {
        QFETCH(bool, isDone);
        Fixture fixture;
        fixture.dialogs.guide = [isDone](CGuide& guide) { return isDone && guide.Store(guide.Proposal()); };
        fixture.Run(Command::kGuide);
        QTEST(fixture.control.asked, "asked");
        QCOMPARE(fixture.control.said, isDone ? QStringList(LoadText(Text::GuideStored)) : QStringList());
    }

    /// In whichever mode the guide was opened.
    void TheFirstTimerIsBroughtIntoSight() {
        Fixture fixture(RecordMode::Expense);
        fixture.dialogs.guide = [](CGuide& guide) {
            GuideDraft draft = guide.Proposal();
            draft.client = u"Hollis Bakery"_s;
            draft.startsTimer = true;
            return guide.Store(draft);
        };
        fixture.Run(Command::kGuide);
        QVERIFY(fixture.set.AnyRunning());
        QVERIFY(fixture.control.asked.contains(u"mode 1"_s));
    }

    void OptionsSaveTheWidths() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        fixture.home.AddTime(2026, 11, 19);
        fixture.SelectAll();
        fixture.view.horizontalHeader()->resizeSection(1, 141);
        fixture.timeEntry.notes = u"left over"_s;
        fixture.Run(40066);
        QCOMPARE(fixture.timeEntry.notes, QString());
        const TestHome next(fixture.home.Path());
        QCOMPARE(next.settings->ListColumns().EntryAt(0).width, 141);
    }

    void FilterByAText() {
        Fixture fixture;
        QVERIFY(fixture.home.catalogue->AddItem(16, u"Client A"_s, false));
        QVERIFY(fixture.home.catalogue->AddItem(16, u"Client B"_s, false));
        fixture.home.document->Filter().ApplyPreset(2, fixture.home.document->GetPeriodContext());
        QString title;
        {
            const ModalUser cancels([&title](QDialog& dialog) {
                title = dialog.windowTitle();
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            fixture.Run(32804);
            QVERIFY(cancels.Met());
        }
        QCOMPARE(title, u"Filter: Client"_s);
        QVERIFY(fixture.Hints().isEmpty() && !fixture.Checks(32804));
        {
            const ModalUser picks = Picks(u"b"_s);
            fixture.Run(32804);
        }
        const TimeFilter& filter = fixture.home.document->Filter();
        QCOMPARE(filter.items[0], u"Client B"_s);
        QVERIFY(filter.matchWhole && filter.matchCase);
        QCOMPARE(filter.preset, 2);
        QCOMPARE(fixture.Hints(), QList<int>{6});
        QVERIFY(fixture.Checks(32804));
        {
            const ModalUser picks = Picks(u"any"_s);
            fixture.Run(32804);
        }
        QCOMPARE(filter.items[0], u"(any)"_s);
        QVERIFY(!fixture.Checks(32804));
    }
    void FilterExpenses() {
        Fixture fixture(RecordMode::Expense);
        QVERIFY(fixture.home.catalogue->AddItem(71, u"Cash"_s, false));
        {
            const ModalUser picks = Picks(u"cash"_s);
            fixture.Run(32809);
        }
        QCOMPARE(fixture.home.document->FilterOfExpenses().items[3], u"Cash"_s);
        {
            const ModalUser picks = Picks(u"No"_s);
            fixture.Run(32836);
        }
        QCOMPARE(fixture.home.document->FilterOfExpenses().flags[4], 0);
        QVERIFY(fixture.Checks(32809) && fixture.Checks(32836) && !fixture.Checks(32837));
        QCOMPARE(fixture.home.document->Filter().items[3], u"(any)"_s);
        fixture.Run(32810);
        QVERIFY(!fixture.Checks(32809) && !fixture.Checks(32836));
    }
    /// A list without items says so.
    void FilterByAnEmptyList() {
        Fixture fixture;
        QString rows, note;
        const ModalUser looks([&](QDialog& dialog) {
            rows = QString::number(dialog.findChild<QTreeView*>(u"searchRows"_s)->model()->rowCount());
            note = dialog.findChild<QLabel*>(u"pickNote"_s)->text();
            dialog.reject();
        });
        fixture.Run(32806);
        QCOMPARE(rows, u"1"_s);
        QCOMPARE(note, LoadText(Text::PickNoItems));
    }
    void PeriodOfExpenses() {
        Fixture fixture(RecordMode::Expense);
        fixture.Run(32798);
        QCOMPARE(fixture.home.document->FilterOfExpenses().preset, 1);
        QVERIFY(fixture.home.document->Filter().preset != 1);
        fixture.Run(32844);
        QCOMPARE(fixture.home.document->FilterOfExpenses().startText, u"11/18/2026"_s);
        fixture.Run(32802);
        QCOMPARE(fixture.home.document->FilterOfExpenses().preset, 6);
    }

    void UseDependenciesIsKeptAtOnce() {
        QTemporaryDir folder;
        Fixture fixture;
        QVERIFY(!fixture.Checks(32891));
        fixture.Run(32891);
        QVERIFY(fixture.Checks(32891));
        fixture.home.settings->KeepStoreUntouched();
        const TestHome next(fixture.home.Path());
        QVERIFY(next.settings->useDependencies);
        fixture.Run(32891);
        QVERIFY(!fixture.home.settings->useDependencies);
    }
    /// Also where two columns are called alike; picked again, it turns round.
    void SortByThePickedColumn() {
        Fixture fixture;
        fixture.home.settings->ListColumns().SetColumn(ColumnHalf::Time, 7, {u"Client"_s, 90, 7, true});
        fixture.model.Rebuild();
        const auto pick = [&fixture](int present) {
            const ModalUser picks([present](QDialog& dialog) {
                auto* rows = dialog.findChild<QTreeView*>(u"searchRows"_s);
                QCOMPARE(dialog.windowTitle(), u"Sort"_s);
                QCOMPARE(rows->currentIndex().row(), present);
                rows->setCurrentIndex(rows->model()->index(6, 0));
                QTest::keyClick(rows, Qt::Key_Return);
            });
            fixture.Run(32784);
        };
        pick(0);
        QCOMPARE(fixture.home.settings->sortColumnTime, 5);
        QVERIFY(fixture.home.settings->sortAscendingTime);
        pick(6);
        QVERIFY(!fixture.home.settings->sortAscendingTime);
        const ModalUser cancels([](QDialog& dialog) { dialog.reject(); });
        fixture.Run(32784);
        QVERIFY(!fixture.home.settings->sortAscendingTime);
    }
    void ListColumnsRebuild() {
        Fixture fixture;
        fixture.home.settings->listLayout = 3;
        fixture.home.AddTime(2026, 11, 19);
        fixture.SelectAll();
        fixture.home.views.seen.clear();
        fixture.view.horizontalHeader()->resizeSection(2, 142);
        {
            const ModalUser accepts([](QDialog& dialog) {
                auto* shown = dialog.findChild<QListWidget*>(u"shownColumns"_s);
                shown->setCurrentRow(0);
                QTest::keyClick(shown, Qt::Key_Space);
                dialog.accept();
            });
            fixture.Run(40052);
        }
        QVERIFY(!fixture.home.settings->ListColumns().IsVisible(0));
        QCOMPARE(fixture.home.settings->ListColumns().EntryAt(6).width, 142);
        QCOMPARE(fixture.Hints(), QList<int>{6});
        {
            const ModalUser cancels([](QDialog& dialog) { dialog.reject(); });
            fixture.Run(40122);
        }
        QCOMPARE(fixture.Hints(), QList<int>{6});
        const ModalUser accepts([](QDialog& dialog) { dialog.accept(); });
        fixture.Run(40122);
        QCOMPARE(fixture.Hints(), (QList<int>{6, 6}));
    }
    void ListFontIsSaved() {
        Fixture fixture;
        {
            const ModalUser accepts([](QDialog& dialog) {
                auto& fonts = static_cast<QFontDialog&>(dialog);
                QFont font = fonts.currentFont();
                font.setPointSize(21);
                fonts.setCurrentFont(font);
                fonts.accept();
            });
            fixture.Run(32829);
        }
        QCOMPARE(fixture.home.settings->ListFont().tenthsOfPoint, 210);
        QCOMPARE(fixture.Hints(), QList<int>{6});
        const TestHome next(fixture.home.Path());
        QCOMPARE(next.settings->ListFont().tenthsOfPoint, 210);
    }

    void ButtonsAreChosenAndRestored() {
        Fixture fixture;
        QCOMPARE(fixture.actions.Bars().Buttons(Bar::Filters), FactoryButtons(Bar::Filters));
        {
            const ModalUser accepts([](QDialog& dialog) {
                auto* onBar = dialog.findChild<QListWidget*>(u"barButtons"_s);
                while (onBar->count() > 2) {
                    onBar->setCurrentRow(2);
                    QTest::keyClick(onBar, Qt::Key_Space);
                }
                dialog.accept();
            });
            fixture.Run(32879);
        }
        QCOMPARE(fixture.actions.Bars().Buttons(Bar::Filters), (QList<int>{32844, 32845}));
        QCOMPARE(fixture.actions.Bars().Buttons(Bar::Records), FactoryButtons(Bar::Records));
        QMainWindow window;
        CActions actions(window);
        const CFrameCommands nextStart(fixture.ContextWith(actions));
        QCOMPARE(actions.Bars().Buttons(Bar::Filters), (QList<int>{32844, 32845}));
    }
    void PaletteRunsWhatIsFound() {
        Fixture fixture;
        {
            const ModalUser finds([](QDialog& dialog) {
                QTest::keyClicks(dialog.findChild<QLineEdit*>(u"searchLine"_s), u"this week"_s);
                dialog.accept();
            });
            fixture.Run(40200);
        }
        QCOMPARE(fixture.control.ran, QList<int>{32799});
        const ModalUser cancels([](QDialog& dialog) { dialog.reject(); });
        fixture.Run(40200);
        QCOMPARE(fixture.control.ran, QList<int>{32799});
    }
};

TEST_CLASS(TestCFrameCommands);
#include "TestCFrameCommands.moc"
