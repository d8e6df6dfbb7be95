#include "viewmodel/commands/CommandTable.h"

#include "calendar/PeriodFilter.h"
#include "entry/QuickEntry.h"
#include "lang/LoadText.h"
#include "shell/frame/CFrameCommands.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/MenuTable.h"

#include <QSet>
#include <QTest>
#include <algorithm>

Q_DECLARE_METATYPE(CommandState)

namespace {

const CommandRow* RowOf(int id) {
    for (const CommandRow& row : CommandTable())
        if (row.id == id) return &row;
    return nullptr;
}

/// A window with all there is, the tree beside the list.
CommandState Everything(int selected) {
    CommandState state;
    state.selected = selected;
    state.listed = 10;
    state.treeShown = true;
    state.hasRegionalSettings = true;
    return state;
}

QSet<int>& Covered() {
    static QSet<int> covered;
    return covered;
}

}  // namespace

class TestCommandTable final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    /// One number stands twice: the layout of large icons and the period "last year".
    void numbers() {
        QHash<int, int> seen;
        for (const CommandRow& row : CommandTable()) ++seen[row.id];
        for (auto id = seen.begin(); id != seen.end(); ++id) QCOMPARE(id.value(), id.key() == 32823 ? 2 : 1);
    }

    /// Keys of the list may stand again at a command of the report: only one of the two is in front.
    void shortcutsStandOnce() {
        QSet<QString> seen;
        QStringList shared;
        const CommandState list{.listIsActive = true, .reportIsActive = false, .isFinding = true};
        const CommandState report{.listIsActive = false, .reportIsActive = true, .isFinding = true};
        for (const CommandRow& row : CommandTable())
            for (const QString& keys : ShortcutsOf(row)) {
                const bool isEither = !IsOffered(row, list) || !IsOffered(row, report);
                QVERIFY2(!seen.contains(keys) || isEither, qPrintable(keys));
                if (seen.contains(keys)) shared.append(keys);
                seen.insert(keys);
            }
        QCOMPARE(shared, QStringList{QStringLiteral("Ctrl+F")});
        for (const CommandState& state : {list, report})
            QCOMPARE(IsOffered(*FindCommand(Command::kFind), state),
                     !IsOffered(*FindCommand(Command::kReportFind), state));
        QVERIFY(seen.contains(QStringLiteral("Ctrl+N")) && seen.contains(QStringLiteral("F9")));
    }

    void everyRowIsComplete() {
        for (const CommandRow& row : CommandTable()) {
            QVERIFY2(!LoadText(row.caption).isEmpty(), row.name);
            QVERIFY2(!LoadText(row.tip).isEmpty(), row.name);
            QVERIFY2(row.icon[0] != '\0', row.name);
            QVERIFY2(CFrameCommands::HasHandler(row.run), row.name);
            QVERIFY2((row.check == CheckStyle::None) == (row.checked == nullptr), row.name);
        }
    }

    /// Within one menu no two entries share the letter behind "&".
    void mnemonicsStandOnceInAMenu() {
        QHash<int, QSet<QChar>> seen;
        const auto note = [&seen](Menu menu, Text caption) {
            const QString text = LoadText(caption);
            const qsizetype at = text.indexOf(u'&');
            if (at < 0) return true;
            QSet<QChar>& letters = seen[static_cast<int>(menu)];
            const QChar letter = text[at + 1].toLower();
            if (letters.contains(letter)) return false;
            letters.insert(letter);
            return true;
        };
        for (const CommandRow& row : CommandTable()) QVERIFY2(note(row.menu, row.caption), row.name);
        for (const MenuRow& row : MenuTable())
            if (row.parent != row.menu)
                QVERIFY2(note(row.parent, row.caption), qPrintable(LoadText(row.caption)));
        QSet<QChar> bar;
        for (const MenuRow& row : MenuTable())
            if (row.parent == row.menu)
                bar.insert(LoadText(row.caption)[LoadText(row.caption).indexOf(u'&') + 1].toLower());
        QCOMPARE(bar.size(), 9);
    }

    /// Each command in six situations: time and expense mode, with none, one and two records selected. The
    /// window has everything, the list has rows, no tree node is selected, there is no timer.
    void offeredBySelection_data() {
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("expense");
        const auto rows = [](std::initializer_list<int> ids, const char* time, const char* expense) {
            for (const int id : ids)
                QTest::addRow("%d", id) << QString::fromLatin1(time) << QString::fromLatin1(expense);
        };
        constexpr const char *kAll = "012", *kOne = "1", *kSome = "12", *kNever = "";
        // quick entry
        rows({40002, 40147, 32852, 32856, 32857}, kAll, kAll);
        rows({32853, 32858}, kAll, kNever);
        rows({32854, 32855, 32859, 32860, 32865, 32866, 32867}, kOne, kNever);
        rows({32861, 32862, 32863}, kNever, kNever);
        rows({32864}, kOne, kOne);
        // records
        rows({103}, kOne, kOne);
        rows({101, 102, 32838, 40055, 32841, 32842, 32814}, kSome, kSome);
        rows({32839, 40058, 32840}, kNever, kSome);
        rows({32813, 57665}, kAll, kAll);
        // mode, list, tree, bars
        rows({40011, 40012, 32825, 32826, 32783, 32823, 32784, 40052, 40287, 32829, 32780, 32778}, kAll,
             kAll);
        // in the layout of columns alone
        rows({40286}, kNever, kNever);
        rows({40280, 40281, 40282, 40283}, kAll, kAll);
        rows({40284}, kNever, kNever);
        rows({32771, 32772, 32773, 40122}, kAll, kAll);
        rows({40068}, kNever, kNever);
        rows({59392, 32812, 32774, 32817, 32879}, kAll, kAll);
        // periods
        rows({32844, 32845}, kNever, kNever);
        rows({32798, 32799, 32800, 32801, 32802, 32803, 40285, 32789, 32790, 32791, 32792, 32793, 32794,
              32795, 32796, 32797, 32811, 32819, 32820, 32822, 32824, 32843, 32847, 32848, 32849, 32850},
             kAll, kAll);
        // filters
        rows({114, 32810, 32804, 32805, 32832, 32833, 32837}, kAll, kAll);
        rows({40260}, kAll, kAll);
        rows({40250, 40251, 40261}, kNever, kNever);
        rows({32806, 32807}, kAll, kNever);
        rows({32808, 32809, 32834, 32835, 32836}, kNever, kAll);
        rows({32851, 32868, 32869}, kNever, kNever);
        // reports, with none in front
        rows({32818, 32821, 32785, 32788, 32846, 32816, 32787, 32881, 32884, 32786}, kAll, kAll);
        rows({40067, 32890, 32815, 40210, 40211, 40212, 40220, 40221, 40222, 40223, 40224, 40225, 40226,
              40227, 40228, 40229, 40230},
             kNever, kNever);
        // backup
        rows({32830, 32831, 40201}, kAll, kAll);
        // timers, lists, tools
        rows({40112}, kSome, kNever);
        rows({40111, 40113}, kNever, kNever);
        rows({40270, 40271, 40276}, kAll, kAll);
        rows({40272}, kOne, kNever);
        rows({40273, 40274, 40275}, kNever, kNever);
        rows({32891, 32777, 40200, 40066, 32781, 40240, 40290, 40291, 57664, 40100, 40009, 32886}, kAll,
             kAll);
        rows({40008, 32892, 40069, 40006, 40070}, kAll, kAll);
    }
    void offeredBySelection() {
        const int id = QByteArray(QTest::currentDataTag()).toInt();
        const auto offered = [id](bool timeMode) {
            QString selections;
            for (int selected = 0; selected < 3; ++selected) {
                CommandState state = Everything(selected);
                state.timeMode = timeMode;
                const CommandRow* row = RouteCommand(id, state);
                if (row && IsOffered(*row, state)) selections += QString::number(selected);
            }
            return selections;
        };
        QTEST(offered(true), "time");
        QTEST(offered(false), "expense");
        Covered().insert(id);
    }
    /// The table above forgets no command.
    void everyCommandWasLookedAt() {
        for (const CommandRow& row : CommandTable())
            QVERIFY2(Covered().contains(row.id), qPrintable(QString::number(row.id)));
    }

    void whenOffered_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<CommandState>("state");
        QTest::addColumn<bool>("offered");
        CommandState timer = Everything(0), running = timer, step = timer, busy = timer, note = timer;
        CommandState node = timer, leaf = timer, hidden = timer, expense = timer, timerOfExpenses = timer;
        CommandState withoutRegional = timer, changed = timer, undone = timer, search = timer;
        changed.undo = QStringLiteral("add a record");
        undone.redo = QStringLiteral("add a record");
        search.isFinding = true;
        CommandState grouped = timer;
        const CommandState even = timer;
        grouped.hasGroups = true;
        withoutRegional.hasRegionalSettings = false;
        CommandState report = timer, text = timer, chart = timer;
        report.listIsActive = false;
        report.reportIsActive = report.reportHasTable = report.canRunAgain = true;
        text = report;
        text.reportHasSelection = true;
        chart = report;
        chart.reportHasChart = chart.chartShown = true;
        timer.anyTimer = true;
        running.anyTimer = running.anyRunning = true;
        step.canStep = true;
        busy.busy = true;
        note.listed = 0;
        node.treeHasNode = node.treeCanExpand = true;
        leaf.treeHasNode = true;
        hidden.treeShown = false;
        hidden.treeHasNode = hidden.treeCanExpand = true;
        expense.timeMode = false;
        expense.treeHasNode = true;
        timerOfExpenses.timeMode = false;
        timerOfExpenses.anyTimer = timerOfExpenses.anyRunning = true;
        CommandState paused = Everything(2), runs = paused, hasNone = paused, runsInExpenses = paused;
        paused.selectedHasTimer = true;
        runs.selectedHasTimer = runs.selectedRuns = true;
        hasNone.anyTimer = hasNone.anyRunning = true;
        runsInExpenses = runs;
        runsInExpenses.timeMode = false;
        QTest::newRow("stop with a paused timer") << 40111 << paused << true;
        QTest::newRow("stop with a timer of another record") << 40111 << hasNone << false;
        QTest::newRow("stop in expense mode") << 40111 << runsInExpenses << false;
        QTest::newRow("pause with a running timer") << 40113 << runs << true;
        QTest::newRow("pause with a paused timer") << 40113 << paused << false;
        QTest::newRow("start without a timer") << 40112 << hasNone << true;
        QTest::newRow("stop all with a paused timer") << 32868 << timer << true;
        QTest::newRow("stop all in expense mode") << 32868 << timerOfExpenses << false;
        QTest::newRow("pause all with a paused timer") << 32869 << timer << false;
        QTest::newRow("pause all with a running timer") << 32869 << running << true;
        QTest::newRow("pause all in expense mode") << 32869 << timerOfExpenses << false;
        QTest::newRow("timers as filter with one") << 32851 << timer << true;
        QTest::newRow("timers as filter in expense mode") << 32851 << timerOfExpenses << false;
        QTest::newRow("back where the period steps") << 32844 << step << true;
        QTest::newRow("forward where the period steps") << 32845 << step << true;
        QTest::newRow("nothing while records are read") << 40147 << busy << false;
        QTest::newRow("no filter while records are read") << 32804 << busy << false;
        QTest::newRow("but leaving") << 57665 << busy << true;
        QTest::newRow("select all without rows") << 32813 << note << false;
        QTest::newRow("from the tree with a node") << 32861 << node << true;
        QTest::newRow("from the tree with timestamp") << 32862 << node << true;
        QTest::newRow("from the tree with timer") << 32863 << node << true;
        QTest::newRow("from the tree in expense mode") << 32861 << expense << true;
        QTest::newRow("from the tree with timestamp in expense mode") << 32862 << expense << true;
        QTest::newRow("from the tree with timer in expense mode") << 32863 << expense << false;
        QTest::newRow("expand a node with nodes beneath it") << 40068 << node << true;
        QTest::newRow("expand a node without") << 40068 << leaf << false;
        QTest::newRow("expand in a hidden tree") << 40068 << hidden << false;
        QTest::newRow("put a hidden tree beside the list") << 32772 << hidden << false;
        QTest::newRow("put a hidden tree above the list") << 32773 << hidden << false;
        QTest::newRow("show a hidden tree") << 32771 << hidden << true;
        QTest::newRow("regional settings of the desktop") << 32781 << timer << true;
        QTest::newRow("of a desktop without them") << 32781 << withoutRegional << false;
        QTest::newRow("undo of a change") << 40250 << changed << true;
        QTest::newRow("redo of nothing undone") << 40251 << changed << false;
        QTest::newRow("redo of what was undone") << 40251 << undone << true;
        QTest::newRow("find everywhere in the search") << 40261 << search << true;
        for (const int id : {32818, 32821, 32846, 32816, 32881, 32884})
            QTest::addRow("%d with a report in front", id) << id << report << false;
        for (const int id : {32785, 32786, 32787, 32788, 114})
            QTest::addRow("%d with a report in front", id) << id << report << true;
        for (const int id : {32825, 32826, 32783, 32784, 32778})
            QTest::addRow("%d is the list's", id) << id << report << false;
        for (const int id :
             {40067, 32890, 32815, 40220, 40221, 40223, 40224, 40225, 40226, 40227, 40228, 40229, 40230})
            QTest::addRow("%d on the report in front", id) << id << report << true;
        QTest::newRow("copy without a selection") << 40222 << report << false;
        QTest::newRow("copy") << 40222 << text << true;
        QTest::newRow("a chart of a report without one") << 40210 << report << false;
        QTest::newRow("a chart") << 40210 << chart << true;
        QTest::newRow("save a chart that is shown") << 40211 << chart << true;
        QTest::newRow("another sum where there is one only") << 40212 << chart << false;
        QTest::newRow("from the hidden tree's node") << 32861 << hidden << true;
        QTest::newRow("fold where there are groups") << 40284 << grouped << true;
        QTest::newRow("fold in an even list") << 40284 << even << false;
    }
    void whenOffered() {
        QFETCH(int, id);
        QFETCH(CommandState, state);
        const CommandRow* row = RouteCommand(id, state);
        QVERIFY(row);
        QTEST(IsOffered(*row, state), "offered");
    }

    void clashingNumber() {
        CommandState state;
        state.listLayout = 1;
        state.preset = 23;
        const CommandRow* inFront = RouteCommand(32823, state);
        QCOMPARE(inFront->run, Run::Layout);
        QVERIFY(IsChecked(*inFront, state));
        state.listIsActive = false;
        const CommandRow* behind = RouteCommand(32823, state);
        QCOMPARE(behind->run, Run::PeriodPreset);
        QCOMPARE(behind->argument, 23);
        QCOMPARE(RouteCommand(4711, state), nullptr);
    }

    void checks() {
        CommandState state;
        state.preset = 1;
        state.listLayout = 3;
        state.bar2Shown = false;
        QVERIFY(IsChecked(*RowOf(32798), state));
        QVERIFY(!IsChecked(*RowOf(32799), state));
        QVERIFY(!IsChecked(*RowOf(32802), state));
        QVERIFY(IsChecked(*RowOf(32826), state));
        QVERIFY(!IsChecked(*RowOf(32783), state));
        QVERIFY(IsChecked(*RowOf(59392), state));
        QVERIFY(!IsChecked(*RowOf(32812), state));
        state.preset = 6;
        QVERIFY(IsChecked(*RowOf(32802), state));
        state.preset = 5;
        QVERIFY(IsChecked(*RowOf(32803), state));
    }

    /// The table of periods and that of commands name the same numbers.
    void periods() {
        for (const PeriodPresetRow& preset : PeriodPresets()) {
            CommandState state;
            state.listIsActive = false;
            const CommandRow* row = RouteCommand(preset.command, state);
            QVERIFY(row);
            QCOMPARE(row->argument, preset.preset);
            QCOMPARE(row->caption, preset.name);
        }
    }

    void quickCommands_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("flags");
        const std::pair<int, int> kRows[] = {{40002, 1},  {40147, 1},  {32852, 17}, {32853, 81}, {32854, 33},
                                             {32855, 97}, {32856, 2},  {32857, 18}, {32858, 82}, {32859, 34},
                                             {32860, 98}, {32861, 4},  {32862, 20}, {32863, 84}, {32864, 24},
                                             {32865, 88}, {32866, 40}, {32867, 104}};
        for (const auto& [id, flags] : kRows) QTest::addRow("%d", id) << id << flags;
    }
    void quickCommands() {
        QFETCH(int, id);
        QFETCH(int, flags);
        QCOMPARE(RowOf(id)->run, Run::QuickEntry);
        QCOMPARE(RowOf(id)->argument, flags);
    }

    void marks_data() {
        QTest::addColumn<int>("mark");
        const std::pair<int, int> kRows[] = {{32838, 0}, {40055, 1}, {32839, 2}, {40058, 3},
                                             {32840, 4}, {32841, 5}, {32842, 6}};
        for (const auto& [id, mark] : kRows) QTest::addRow("%d", id) << mark;
    }
    void marks() {
        const CommandRow* row = RowOf(QByteArray(QTest::currentDataTag()).toInt());
        QCOMPARE(row->run, Run::Mark);
        QTEST(row->argument, "mark");
    }

    void checksOfModeTreeAndFilter() {
        CommandState state = Everything(0);
        const auto checked = [&state](int id) { return IsChecked(*RowOf(id), state); };
        QVERIFY(checked(40011) && !checked(40012));
        state.timeMode = false;
        QVERIFY(!checked(40011) && checked(40012));
        QVERIFY(checked(32771) && checked(32772) && !checked(32773));
        state.treeStacked = true;
        QVERIFY(!checked(32772) && checked(32773));
        // with the tree hidden neither place is
        state.treeShown = false;
        QVERIFY(!checked(32771) && !checked(32772) && !checked(32773));
        QVERIFY(!checked(32891));
        state.useDependencies = true;
        QVERIFY(checked(32891));
        state.filters = {32805, 32837};
        for (const int id : {32804, 32806, 32807, 32808, 32809, 32832, 32833, 32834, 32835, 32836})
            QVERIFY2(!checked(id), qPrintable(QString::number(id)));
        QVERIFY(checked(32805) && checked(32837));
    }

    void menusInTheirOrder() {
        QStringList captions;
        for (const MenuRow& row : MenuTable())
            if (row.parent == row.menu) captions << QString(LoadText(row.caption)).remove(u'&');
        QCOMPARE(captions.join(u' '),
                 QStringLiteral("Record View Period Filter Timer Lists Report Tools Help"));
    }
    /// Each submenu stands behind a command of its parent.
    void submenusHaveTheirPlace() {
        for (const MenuRow& row : MenuTable())
            if (row.parent != row.menu) QCOMPARE(RowOf(row.afterCommand)->menu, row.parent);
    }
    void menusUnderButtons() {
        QCOMPARE(MenuUnderButton(40147), Menu::New);
        QCOMPARE(MenuUnderButton(40055), Menu::Mark);
        QCOMPARE(MenuUnderButton(40210), Menu::ReportChart);
        QCOMPARE(MenuUnderButton(101), Menu::Help);
    }
};

TEST_CLASS(TestCommandTable);
#include "TestCommandTable.moc"
