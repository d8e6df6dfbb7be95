#include "shell/CFrameCommands.h"

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/CActions.h"
#include "shell/CFrameDoor.h"
#include "shell/CRecordListView.h"
#include "shell/ModalUser.h"
#include "shell/core/BarButtons.h"
#include "shell/core/CProgress.h"
#include "shell/core/CRecordListModel.h"
#include "shell/core/CTreeDoor.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"

#include <QCheckBox>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

class NoProgress final : public CProgress {
 public:
    void Begin(const QString&, int) override {}
    bool Advance() override { return true; }
    void End() override {}
};

/// Notes what is asked of the window.
class Door final : public CFrameDoor {
 public:
    QWidget& Window() override { return window; }
    void ToggleBar1() override { asked << u"bar 1"_s; }
    void ToggleBar2() override { asked << u"bar 2"_s; }
    void ToggleStatusBar() override { asked << u"status bar"_s; }
    void Refresh() override { asked << u"refresh"_s; }
    void KeepLayout() override { asked << u"keep"_s; }
    void PickDay() override { asked << u"day"_s; }
    void Leave() override { asked << u"leave"_s; }

    QMainWindow window;
    QStringList asked;
};

class Tree final : public CTreeDoor {
 public:
    bool IsShown() const override { return isShown; }
    void Show(bool shown) override { isShown = shown; }
    bool IsStacked() const override { return isStacked; }
    void Stack(bool stacked) override { isStacked = stacked; }
    bool HasNode() const override { return hasNode; }
    bool CanExpand() const override { return hasNode; }
    void ExpandAll() override { ++expanded; }
    bool FillRecord(CVORec& record) const override {
        if (!hasNode) return false;
        if (record.Kind() == RecordKind::Time)
            static_cast<CTRecord&>(record).item1 = u"From the tree"_s;
        else
            static_cast<CERecord&>(record).item1 = u"From the tree"_s;
        return true;
    }

    bool isShown = true;
    bool isStacked = false;
    bool hasNode = false;
    int expanded = 0;
};

/// The commands over a scratch home, with all that a window can have. The mode is that of the scene.
struct Scene {
    TestHome home;
    RecordModeScope mode;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    CRecordListModel model{*home.document, set, *home.settings};
    CRecordListView view{model, *home.settings};
    NoProgress progress;
    Door door;
    Tree tree;
    CActions actions{door.window};
    CTRecord timeEntry;
    CERecord expenseEntry;
    std::function<bool(CVORec&)> dialog = [](CVORec&) { return true; };
    int dialogs = 0;
    QList<int> ran;
    QStringList called;
    std::unique_ptr<CFrameCommands> commands;

    explicit Scene(RecordMode wanted = RecordMode::Time) : mode(wanted) {
        std::swap(theTimeEntry, m_timeEntry);
        std::swap(theExpenseEntry, m_expenseEntry);
        home.document->LoadCurrentMode();
        home.document->BuildVisible();
        commands = std::make_unique<CFrameCommands>(Around());
        home.views.seen.clear();
    }
    ~Scene() {
        commands.reset();
        std::swap(theTimeEntry, m_timeEntry);
        std::swap(theExpenseEntry, m_expenseEntry);
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    [[nodiscard]] CFrameCommands::Around Bare() {
        return {.document = *home.document,
                .timers = timers,
                .settings = *home.settings,
                .prompt = home.prompt,
                .progress = progress,
                .clock = home.clock,
                .model = model,
                .view = view,
                .door = door,
                .home = home.Path()};
    }
    [[nodiscard]] CFrameCommands::Around Around() {
        CFrameCommands::Around around = Bare();
        around.editRecord = [this](CVORec& record) {
            ++dialogs;
            return dialog(record);
        };
        around.options = [] { return true; };
        around.switchMode = [this](RecordMode to) { called << u"mode %1"_s.arg(static_cast<int>(to)); };
        around.tree = &tree;
        around.fillFromDefaults = [this](CVORec& record) {
            called << u"defaults"_s;
            if (record.Kind() == RecordKind::Time) static_cast<CTRecord&>(record).item2 = u"A default"_s;
            return defaultsAreChosen;
        };
        around.runDefaults = [this] { called << u"dialog of defaults"_s; };
        around.catalogue = home.catalogue.get();
        around.actions = &actions;
        around.state = [this] { return State(); };
        around.runCommand = [this](int command) { ran << command; };
        return around;
    }
    [[nodiscard]] CommandState State() const {
        CommandState state;
        commands->Describe(state);
        state.selected = view.SelectedCount();
        state.listed = model.rowCount();
        return state;
    }
    /// As a menu does it: the row that the state says.
    void Run(int command) {
        const CommandRow* row = RouteCommand(command, State());
        QVERIFY(row);
        QVERIFY2(IsOffered(*row, State()), row->name);
        commands->Run(*row);
    }
    [[nodiscard]] bool Offers(int command) const { return IsOffered(*FindCommand(command), State()); }
    [[nodiscard]] bool Checks(int command) const { return IsChecked(*FindCommand(command), State()); }
    /// The list shows what the document does, all of it selected.
    void SelectAll() {
        model.Rebuild();
        view.ApplyLayout();
        view.selectAll();
    }
    [[nodiscard]] QList<int> Hints() const {
        QList<int> hints;
        for (const auto& [hint, ids] : home.views.seen) hints << static_cast<int>(hint);
        return hints;
    }
    QString AddExpense(const QString& item1) {
        CERecord record;
        record.Reset();
        record.date.Set(11, 19, 2026);
        record.item1 = item1;
        QString id;
        [&] { QVERIFY(home.document->AddRecord(record, true, false, true, &id)); }();
        return id;
    }
    [[nodiscard]] const CTRecord& OnlyTime() const {
        const QStringList ids = model.AllIds();
        if (ids.size() != 1) qFatal("not one record");
        return *home.document->FindTime(ids.front());
    }

    bool defaultsAreChosen = true;

 private:
    // What is installed: these two meanwhile, those from before at the end.
    CTRecord* m_timeEntry = &timeEntry;
    CERecord* m_expenseEntry = &expenseEntry;
};

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
        QCOMPARE(scene.door.asked, (QStringList{u"keep"_s, u"refresh"_s}));
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
