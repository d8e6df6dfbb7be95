#pragma once

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/commands/CActions.h"
#include "shell/frame/CFrameCommands.h"
#include "shell/frame/CFrameControl.h"
#include "shell/list/CRecordListView.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/program/CProgress.h"
#include "viewmodel/tree/CTreeControl.h"

#include <QMainWindow>
#include <QTest>

class NoProgress final : public CProgress {
 public:
    void Begin(const QString&, int) override {}
    bool Advance() override { return true; }
    void End() override {}
};

/// Notes what is asked of the window.
class Door final : public CFrameControl {
 public:
    QWidget& Window() override { return window; }
    void ToggleBar1() override { asked << QStringLiteral("bar 1"); }
    void ToggleBar2() override { asked << QStringLiteral("bar 2"); }
    void ToggleStatusBar() override { asked << QStringLiteral("status bar"); }
    void Refresh() override { asked << QStringLiteral("refresh"); }
    void RebuildList() override { asked << QStringLiteral("list"); }
    void PickDay() override { asked << QStringLiteral("day"); }
    void Leave() override { asked << QStringLiteral("leave"); }

    QMainWindow window;
    QStringList asked;
};

class Tree final : public CTreeControl {
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
            static_cast<CTRecord&>(record).item1 = QStringLiteral("From the tree");
        else
            static_cast<CERecord&>(record).item1 = QStringLiteral("From the tree");
        return true;
    }

    bool isShown = true;
    bool isStacked = false;
    bool hasNode = false;
    int expanded = 0;
};

/// The commands over a scratch home, with all that a window can have. The mode is that of the scene.
struct Fixture {
    TestHome home;
    RecordModeScope mode;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    CRecordListModel model{*home.document, set, *home.settings};
    CRecordListView view{model, *home.settings};
    NoProgress progress;
    Door control;
    Tree tree;
    CActions actions{control.window};
    CTRecord timeEntry;
    CERecord expenseEntry;
    std::function<bool(CVORec&)> dialog = [](CVORec&) { return true; };
    int dialogs = 0;
    QList<int> ran;
    QStringList called;
    std::unique_ptr<CFrameCommands> commands;

    explicit Fixture(RecordMode wanted = RecordMode::Time) : mode(wanted) {
        std::swap(theTimeEntry, m_timeEntry);
        std::swap(theExpenseEntry, m_expenseEntry);
        home.document->LoadCurrentMode();
        home.document->BuildVisible();
        commands = std::make_unique<CFrameCommands>(Context());
        home.views.seen.clear();
    }
    ~Fixture() {
        commands.reset();
        std::swap(theTimeEntry, m_timeEntry);
        std::swap(theExpenseEntry, m_expenseEntry);
    }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    [[nodiscard]] CFrameCommands::Context Bare() {
        return {.document = *home.document,
                .timers = timers,
                .settings = *home.settings,
                .prompt = home.prompt,
                .progress = progress,
                .clock = home.clock,
                .model = model,
                .view = view,
                .control = control,
                .home = home.Path()};
    }
    [[nodiscard]] CFrameCommands::Context Context() {
        CFrameCommands::Context context = Bare();
        context.editRecord = [this](CVORec& record) {
            ++dialogs;
            return dialog(record);
        };
        context.options = [] { return true; };
        context.switchMode = [this](RecordMode to) {
            called << QStringLiteral("mode %1").arg(static_cast<int>(to));
        };
        context.tree = &tree;
        context.fillFromDefaults = [this](CVORec& record) {
            called << QStringLiteral("defaults");
            if (record.Kind() == RecordKind::Time)
                static_cast<CTRecord&>(record).item2 = QStringLiteral("A default");
            return defaultsAreChosen;
        };
        context.runDefaults = [this] { called << QStringLiteral("dialog of defaults"); };
        context.catalogue = home.catalogue.get();
        context.actions = &actions;
        context.state = [this] { return State(); };
        context.runCommand = [this](int command) { ran << command; };
        return context;
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
