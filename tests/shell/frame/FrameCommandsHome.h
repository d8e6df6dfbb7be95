#pragma once

#include "app/CVelmarchApp.h"
#include "changes/CProgress.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/commands/CActions.h"
#include "shell/frame/CFrameCommands.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/ScriptedDialogs.h"
#include "shell/list/CConditionStrip.h"
#include "shell/list/CListFindBar.h"
#include "shell/list/CRecordListView.h"
#include "shell/report/CReportPane.h"
#include "shell/work/CWorkBar.h"
#include "support/CNotedLauncher.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/tree/CTreeControl.h"

#include <QMainWindow>
#include <QTest>

/// Cancels where it is told to.
class NotedProgress final : public CProgress {
 public:
    void Begin(const QString& what, int) override { begun << what; }
    bool Advance() override { return begun.size() != cancelIn; }
    void End() override { ++ended; }

    QStringList begun;
    qsizetype cancelIn = 0;  ///< the work that is cancelled, from 1
    qsizetype ended = 0;
};

/// Notes what is asked of the window.
class NotedControl final : public CFrameControl {
 public:
    QWidget& Window() override { return window; }
    void ToggleWorkBar() override { asked << QStringLiteral("work bar"); }
    void ToggleBar1() override { asked << QStringLiteral("bar 1"); }
    void ToggleBar2() override { asked << QStringLiteral("bar 2"); }
    void ToggleStatusBar() override { asked << QStringLiteral("status bar"); }
    void SwitchMode(RecordMode to) override { asked << QStringLiteral("mode %1").arg(static_cast<int>(to)); }
    void Refresh() override { asked << QStringLiteral("refresh"); }
    void ReadLists() override { asked << QStringLiteral("lists"); }
    void FollowList() override { asked << QStringLiteral("follow"); }
    void RebuildList() override { asked << QStringLiteral("list"); }
    void PickDay() override { asked << QStringLiteral("day"); }
    CommandState State() const override { return state(); }
    void RunCommand(int command) override { ran << command; }
    void ShowReport() override { asked << QStringLiteral("report"); }
    void CloseReport() override { asked << QStringLiteral("close report"); }
    void Say(const QString& what) override { said << what; }
    void ComeForward() override { asked << QStringLiteral("forward"); }
    void Leave() override { asked << QStringLiteral("leave"); }

    QMainWindow window;
    QStringList asked;
    QStringList said;
    QList<int> ran;
    std::function<CommandState()> state;
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

    bool Says(int column) const override { return said.contains(column); }

    QList<int> said;
    bool isShown = true;
    bool isStacked = false;
    bool hasNode = false;
    int expanded = 0;
};

/// The commands over a scratch home, in a mode of its own.
struct Fixture {
    TestHome home;
    RecordModeScope mode;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    CRecordListModel model{*home.document, set, *home.settings};
    CRecordListView view{model, *home.settings};
    CListFindBar findBar;
    CConditionStrip conditions;
    CWorkBar workBar;
    CReportPane report{home.settings->Profile()};
    NotedProgress progress;
    NotedControl control;
    Tree tree;
    CActions actions{control.window};
    CNotedLauncher launcher;
    ScriptedDialogs dialogs;
    CTRecord timeEntry;
    CERecord expenseEntry;
    std::unique_ptr<CFrameCommands> commands;

    explicit Fixture(RecordMode wanted = RecordMode::Time) : mode(wanted) {
        std::swap(theTimeEntry, m_timeEntry);
        std::swap(theExpenseEntry, m_expenseEntry);
        home.document->LoadCurrentMode();
        home.document->BuildVisible();
        control.state = [this] { return State(); };
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

    [[nodiscard]] CFrameCommands::Context Context() { return ContextWith(actions); }
    [[nodiscard]] CFrameCommands::Context ContextWith(CActions& madeActions) {
        return {.document = *home.document,
                .timers = timers,
                .settings = *home.settings,
                .catalogue = *home.catalogue,
                .prompt = home.prompt,
                .progress = progress,
                .launcher = launcher,
                .clock = home.clock,
                .model = model,
                .view = view,
                .findBar = findBar,
                .conditions = conditions,
                .workBar = workBar,
                .report = report,
                .tree = tree,
                .actions = madeActions,
                .control = control,
                .dialogs = dialogs,
                .home = home.Path()};
    }
    [[nodiscard]] CommandState State() const {
        CommandState state;
        state.selected = view.SelectedCount();
        state.listed = model.rowCount();
        commands->Describe(state);
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
        [&] { QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id)); }();
        return id;
    }
    [[nodiscard]] const CTRecord& OnlyTime() const {
        const QStringList ids = model.AllIds();
        if (ids.size() != 1) qFatal("not one record");
        return *home.document->FindTime(ids.front());
    }

 private:
    // What is installed: these two meanwhile, those from before at the end.
    CTRecord* m_timeEntry = &timeEntry;
    CERecord* m_expenseEntry = &expenseEntry;
};
