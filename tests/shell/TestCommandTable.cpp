#include "shell/core/CommandTable.h"

#include "calendar/PeriodFilter.h"
#include "entry/QuickEntry.h"
#include "lang/LoadText.h"
#include "shell/CFrameCommands.h"

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

CommandState Selected(int count) {
    CommandState state;
    state.selected = count;
    state.listed = 10;
    return state;
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

    void shortcutsStandOnce() {
        QSet<QString> seen;
        for (const CommandRow& row : CommandTable())
            for (const QString& keys : ShortcutsOf(row)) {
                QVERIFY2(!seen.contains(keys), qPrintable(keys));
                seen.insert(keys);
            }
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
        QCOMPARE(bar.size(), 7);
    }

    void whenOffered_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<CommandState>("state");
        QTest::addColumn<bool>("offered");
        CommandState expense = Selected(1), timer, running, step, busy = Selected(1), note = Selected(0);
        expense.timeMode = false;
        timer.anyTimer = true;
        running.anyTimer = running.anyRunning = true;
        step.canStep = true;
        busy.busy = true;
        note.listIsActive = false;
        note.listed = 0;
        QTest::newRow("a new record always") << 40147 << Selected(0) << true;
        QTest::newRow("a timestamp always") << 32852 << expense << true;
        QTest::newRow("a timestamp with timer in time mode") << 32853 << Selected(0) << true;
        QTest::newRow("a timestamp with timer not in expense mode") << 32853 << expense << false;
        QTest::newRow("successive needs one record") << 32854 << Selected(1) << true;
        QTest::newRow("successive with none") << 32854 << Selected(0) << false;
        QTest::newRow("successive with two") << 32854 << Selected(2) << false;
        QTest::newRow("successive with timer, one") << 32855 << Selected(1) << true;
        QTest::newRow("copy with timestamp, one, expense mode too") << 32864 << expense << true;
        QTest::newRow("copy with timestamp and timer not in expense mode") << 32865 << expense << false;
        QTest::newRow("copy behind, one") << 32866 << Selected(1) << true;
        QTest::newRow("copy behind with timer, two") << 32867 << Selected(2) << false;
        QTest::newRow("edit one") << 103 << Selected(1) << true;
        QTest::newRow("edit none") << 103 << Selected(0) << false;
        QTest::newRow("edit two") << 103 << Selected(2) << false;
        QTest::newRow("delete two") << 102 << Selected(2) << true;
        QTest::newRow("delete none") << 102 << Selected(0) << false;
        QTest::newRow("copy one") << 101 << Selected(1) << true;
        QTest::newRow("mark one") << 32838 << Selected(1) << true;
        QTest::newRow("mark none") << 40055 << Selected(0) << false;
        QTest::newRow("start timers of the selection") << 40112 << Selected(2) << true;
        QTest::newRow("start timers of nothing") << 40112 << Selected(0) << false;
        QTest::newRow("stop timers in expense mode") << 40111 << expense << false;
        QTest::newRow("stop all without a timer") << 32868 << Selected(0) << false;
        QTest::newRow("stop all with a paused timer") << 32868 << timer << true;
        QTest::newRow("pause all with a paused timer") << 32869 << timer << false;
        QTest::newRow("pause all with a running timer") << 32869 << running << true;
        QTest::newRow("timers as filter without one") << 32851 << Selected(0) << false;
        QTest::newRow("timers as filter with one") << 32851 << timer << true;
        QTest::newRow("back where the period steps") << 32844 << step << true;
        QTest::newRow("forward where it doesn't") << 32845 << Selected(0) << false;
        QTest::newRow("nothing while records are read") << 40147 << busy << false;
        QTest::newRow("but leaving") << 57665 << busy << true;
        QTest::newRow("select all without rows") << 32813 << note << false;
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
        const std::pair<int, int> kRows[] = {{40147, 1},  {32852, 17}, {32853, 81}, {32854, 33}, {32855, 97},
                                             {32864, 24}, {32865, 88}, {32866, 40}, {32867, 104}};
        for (const auto& [id, flags] : kRows) QTest::addRow("%d", id) << id << flags;
    }
    void quickCommands() {
        QFETCH(int, id);
        QFETCH(int, flags);
        QCOMPARE(RowOf(id)->run, Run::QuickEntry);
        QCOMPARE(RowOf(id)->argument, flags);
    }

    /// What isn't built has no row: the tree, expenses, reports, import and export, lists, filter dialog.
    void unbuiltCommandsAreNotShown() {
        for (const int id :
             {32771, 40011, 40012, 40006, 40008, 40009, 32886, 114, 32818, 32830, 32831, 32856, 32861})
            QCOMPARE(RowOf(id), nullptr);
    }
};

QTEST_GUILESS_MAIN(TestCommandTable)
#include "TestCommandTable.moc"
