#include "shell/CMainFrame.h"

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/CActions.h"
#include "shell/CElidedLabel.h"
#include "shell/CEmptyNote.h"
#include "shell/CEventPump.h"
#include "shell/CRecordListView.h"
#include "shell/IconTheme.h"
#include "shell/ModalUser.h"
#include "shell/core/CRecordListModel.h"
#include "shell/core/CViewHub.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "timers/CRecordTimers.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The window over a home, wired as the program wires it; the record dialog is a function of the test.
struct Window {
    CTestClock clock;
    CScriptedPrompt prompt;
    CEventPump pump;
    CViewHub hub;
    CVelmarchApp app{{clock, prompt, pump, hub}};
    std::unique_ptr<ActiveTimerSet> set;
    std::unique_ptr<CRecordTimers> timers;
    std::unique_ptr<CMainFrame> frame;
    std::function<bool(CTRecord&)> dialog = [](CTRecord&) { return true; };
    int dialogs = 0;

    enum class Mode { Time, AsStored };
    explicit Window(const QString& home, Mode mode = Mode::Time) {
        [&] {
            QVERIFY(app.ResolveHome(home));
            QVERIFY(app.OpenSettings());
            QVERIFY(app.OpenStore());
        }();
        if (mode == Mode::Time) theRecordMode = RecordMode::Time;
        set = std::make_unique<ActiveTimerSet>(clock);
        timers = std::make_unique<CRecordTimers>(*set, app.Document(), app.Settings());
        app.Document().SetTimers(timers.get());
        frame = std::make_unique<CMainFrame>(CMainFrame::Surroundings{
            app, *timers, hub, prompt, pump, clock,
            [this](QWidget*, CVORec& record) {
                ++dialogs;
                return record.Kind() == RecordKind::Expense || dialog(static_cast<CTRecord&>(record));
            },
            [](QWidget*) { return true; }, [](QWidget*, CVORec&, bool) { return true; }});
        frame->show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(frame.get())); }();
    }
    ~Window() {
        frame->KeepEverything();
        app.Document().SetTimers(nullptr);
        frame.reset();
        app.CloseSettings();
    }
    template <class Widget>
    [[nodiscard]] Widget* Find(const char* name) const {
        auto* widget = frame->findChild<Widget*>(QString::fromLatin1(name));
        [&] { QVERIFY2(widget, name); }();
        return widget;
    }
    [[nodiscard]] CRecordListView& List() const { return *Find<CRecordListView>("recordList"); }
    [[nodiscard]] int Rows() const { return List().model()->rowCount(); }
    [[nodiscard]] QString Status(const char* part) const { return Find<CElidedLabel>(part)->FullText(); }
    [[nodiscard]] bool Offers(int command) const {
        return frame->findChild<CActions*>()->Action(command)->isEnabled();
    }
    QString Add(int day, const char* start = "09:00", const char* end = "10:00") {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        DateTimeVal time;
        if (time.ParseTimeText(QString::fromLatin1(start), true)) record.SetStart(time);
        if (time.ParseTimeText(QString::fromLatin1(end), true)) record.SetEnd(time);
        QString id;
        [&] { QVERIFY(app.Document().AddRecord(record, true, false, true, &id)); }();
        return id;
    }
};

}  // namespace

class TestCMainFrame final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void emptyListSaysWhy() {
        QTemporaryDir folder;
        Window window(folder.path());
        QCOMPARE(window.Find<QLabel>("emptySentence")->text(), LoadText(Text::EmptyLoading));
        window.frame->Refresh();
        QCOMPARE(window.Find<QLabel>("emptySentence")->text(), LoadText(Text::EmptyNoRecords));
        QCOMPARE(window.Find<QPushButton>("emptyButton")->text(), u"New record"_s);
        window.Add(19);
        QVERIFY(window.List().isVisible());
        window.frame->RunCommand(32789);  // yesterday
        QVERIFY(window.Find<QLabel>("emptySentence")->text().contains(u"Yesterday"_s));
        QTest::mouseClick(window.Find<QPushButton>("emptyButton"), Qt::LeftButton);
        QCOMPARE(window.Rows(), 1);
        QCOMPARE(window.app.Document().Filter().preset, 6);
        TimeFilter filter = window.app.Document().Filter();
        filter.items[0] = u"nobody"_s;
        CPeriodCommands(window.app.Document()).ApplyFilter(filter);
        QCOMPARE(window.Find<QPushButton>("emptyButton")->text(), u"Clear filter"_s);
        QTest::mouseClick(window.Find<QPushButton>("emptyButton"), Qt::LeftButton);
        QCOMPARE(window.Rows(), 1);
    }

    void newRecordThroughTheDialog() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.dialog = [](CTRecord& record) {
            record.item1 = u"Client A"_s;
            return true;
        };
        QTest::keyClick(window.frame.get(), Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(window.dialogs, 1);
        QCOMPARE(window.Rows(), 1);
        QCOMPARE(window.List().SelectedCount(), 1);
        QCOMPARE(window.app.Document().FindTime(window.List().SelectedIds().front())->item1, u"Client A"_s);
        window.dialog = [](CTRecord&) { return false; };
        QTest::keyClick(window.frame.get(), Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(window.dialogs, 2);
        QCOMPARE(window.Rows(), 1);
    }

    /// Timestamp with timer, without a dialog: one key, and the list counts.
    void timestampWithTimer() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.app.Settings().dialogOnQuickEntry = false;
        window.frame->Refresh();
        QTest::keyClick(window.frame.get(), Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(window.dialogs, 0);
        QCOMPARE(window.Rows(), 1);
        QVERIFY(window.set->AnyRunning());
        QVERIFY(window.Offers(32868));
        window.clock.Advance(90);
        QTRY_VERIFY_WITH_TIMEOUT(window.List().model()->index(0, 1).data().toString().contains(u"00:01:30"_s),
                                 3000);
        QTest::keyClick(window.frame.get(), Qt::Key_F9);
        QVERIFY(!window.set->AnyActive());
        QVERIFY(!window.Offers(32868));
        const CTRecord* record = window.app.Document().FindTime(window.List().SelectedIds().front());
        QCOMPARE(record->spans.duration.minutes, 1);
    }

    void editAndFail() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString id = window.Add(19);
        window.List().SelectIds({id});
        window.dialog = [](CTRecord& record) {
            record.notes = u"edited"_s;
            return true;
        };
        QTest::keyClick(&window.List(), Qt::Key_Return);
        QCOMPARE(window.app.Document().FindTime(id)->notes, u"edited"_s);
        QTest::keyClick(&window.List(), Qt::Key_F2);
        QCOMPARE(window.dialogs, 2);
        window.dialog = [](CTRecord& record) {
            record.notes = u"dropped"_s;
            return false;
        };
        QTest::keyClick(&window.List(), Qt::Key_F2);
        QCOMPARE(window.app.Document().FindTime(id)->notes, u"edited"_s);
    }

    void deleteByKey() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(18);
        const QString id = window.Add(19);
        QTest::keyClick(&window.List(), Qt::Key_Delete);  // nothing is selected
        window.List().SelectIds({id});
        window.prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
        QTest::keyClick(&window.List(), Qt::Key_Delete);
        QCOMPARE(window.Rows(), 1);
        QVERIFY(!window.app.Document().FindTime(id));
        QCOMPARE(window.List().SelectedCount(), 0);
        window.prompt.Finish();
    }

    void commandsFollowTheSelection() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        QVERIFY(window.Offers(40147) && !window.Offers(103) && !window.Offers(102));
        window.Add(18);
        window.Add(19);
        window.List().selectAll();
        QVERIFY(!window.Offers(103) && window.Offers(102) && window.Offers(40112));
        window.List().SelectIds({window.List().SelectedIds().front()});
        QVERIFY(window.Offers(103) && window.Offers(32854));
        window.List().SelectNone();
        QVERIFY(!window.Offers(103) && !window.Offers(102));
    }

    void statusBar() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        QCOMPARE(window.Status("statusMode"), u"Time"_s);
        QCOMPARE(window.Status("statusPeriod"), u"This month"_s);
        QCOMPARE(window.Status("statusSums"), QString());
        window.Add(18);
        const QString id = window.Add(19, "09:00", "11:30");
        QCOMPARE(window.Status("statusSums"), u"(2)  3.5000"_s);
        window.List().SelectIds({id});
        QCOMPARE(window.Status("statusSums"), u"(1)  2.5000"_s);
        window.List().SelectNone();
        QCOMPARE(window.Status("statusSums"), u"(2)  3.5000"_s);
    }

    /// 19 November 2026 is day 323; by the simple rule it lies in week 47.
    void statusPeriod_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("text");
        QTest::newRow("today: day and week") << 32798 << u"Today (323, 47)"_s;
        QTest::newRow("yesterday") << 32789 << u"Yesterday (322, 46)"_s;
        QTest::newRow("this week: the week of its first day") << 32799 << u"This week (46)"_s;
        QTest::newRow("next week") << 32843 << u"Next week (47)"_s;
        QTest::newRow("two weeks: none") << 32800 << u"Last and this week"_s;
        QTest::newRow("a month: none") << 32801 << u"This month"_s;
        QTest::newRow("all") << 32802 << u"All"_s;
    }
    void statusPeriod() {
        QFETCH(int, command);
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.frame->RunCommand(command);
        QTEST(window.Status("statusPeriod"), "text");
        window.app.Settings().showDayWeekNumbers = false;
        window.hub.NotifyViews(Hint::Rebuild, {});
        QVERIFY(!window.Status("statusPeriod").contains(u'('));
    }

    /// The number 32823 is the layout of large icons while the list is in front, else "last year".
    void clashingCommand() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.frame->RunCommand(32823);
        QCOMPARE(window.app.Document().Filter().preset, 23);
        QCOMPARE(window.app.Settings().listLayout, 4);
        window.frame->RunCommand(32802);
        window.Add(19);
        window.frame->RunCommand(32823);
        QCOMPARE(window.app.Settings().listLayout, 1);
        QCOMPARE(window.app.Document().Filter().preset, 6);
        window.frame->RunCommand(32783);
        QCOMPARE(window.app.Settings().listLayout, 4);
    }

    void stepThroughPeriods() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(18);
        window.Add(19);
        QTest::keyClick(window.frame.get(), Qt::Key_Home, Qt::AltModifier);
        QCOMPARE(window.Rows(), 1);
        QTest::keyClick(window.frame.get(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(window.app.Document().Filter().startText, u"11/18/2026"_s);
        QVERIFY(window.Offers(32844));
        window.frame->RunCommand(32802);
        QVERIFY(!window.Offers(32844) && !window.Offers(32845));
    }

    /// Bars, layout, period, sort and timers of the last time.
    void nextStart() {
        QTemporaryDir folder;
        QString id;
        {
            Window window(folder.path());
            window.frame->Refresh();
            id = window.Add(19);
            window.frame->RunCommand(32812);
            window.frame->RunCommand(32774);
            window.frame->RunCommand(32826);
            window.frame->RunCommand(32798);
            window.frame->resize(800, 500);
            window.List().SelectIds({id});
            window.frame->RunCommand(40112);
            QVERIFY(window.set->AnyRunning());
        }
        Window window(folder.path());
        window.frame->Refresh();
        QVERIFY(window.Find<QToolBar>("toolBar101")->isVisible());
        QVERIFY(!window.Find<QToolBar>("toolBar102")->isVisible());
        QVERIFY(!window.Find<QWidget>("statusBar")->isVisible());
        QCOMPARE(window.app.Document().Filter().preset, 1);
        QCOMPARE(window.app.Settings().listLayout, 3);
        QCOMPARE(window.frame->size(), QSize(800, 500));
        QCOMPARE(window.set->StateOf(id), TimerState::Paused);  // as timerOnExit says by default
    }

    /// A rebuild keeps what is selected.
    void refreshKeepsThePlace() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(18);
        const QString id = window.Add(17);
        window.List().SelectIds({id});
        window.frame->RunCommand(32780);
        QCOMPARE(window.List().SelectedIds(), QStringList{id});
        window.frame->RunCommand(32826);
        QCOMPARE(window.List().SelectedIds(), QStringList{id});
        window.frame->RunCommand(32798);
        QCOMPARE(window.List().SelectedCount(), 0);
    }

    void eachModeHasItsRecordsAndItsPeriod() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        CERecord expense;
        expense.date.Set(11, 18, 2026);
        expense.amount.Set(12.5F);
        QVERIFY(window.app.Document().AddRecord(expense, true, false, true));
        QCOMPARE(window.Rows(), 1);
        QTest::keyClick(window.frame.get(), Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(window.Rows(), 1);
        QCOMPARE(window.Status("statusMode"), LoadText(Text::ModeExpense));
        QCOMPARE(window.Status("statusPeriod"), LoadText(Text::PeriodAll));
        window.List().selectAll();
        QVERIFY(window.Offers(32839));
        QVERIFY(!window.Offers(32853));  // an expense has no timer
        window.frame->RunCommand(32798);
        QCOMPARE(window.app.Document().FilterOfExpenses().preset, 1);
        QCOMPARE(window.app.Document().Filter().preset, 4);
        QTest::keyClick(window.frame.get(), Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(window.Status("statusMode"), LoadText(Text::ModeTime));
        QCOMPARE(window.Rows(), 1);
        QVERIFY(!window.Offers(32839));
    }

    void theModeOutlivesARestart() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            window.frame->Refresh();
            window.frame->SwitchMode(RecordMode::Expense);
        }
        Window again(folder.path(), Window::Mode::AsStored);
        again.frame->Refresh();
        QCOMPARE(again.Status("statusMode"), LoadText(Text::ModeExpense));
    }

    void theTreeIsBesideTheListAboveItOrHidden() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            window.frame->Refresh();
            auto* tree = window.Find<QWidget>("dataTree");
            QVERIFY(tree->isVisible());
            QVERIFY(window.Offers(32773));
            window.frame->RunCommand(32773);
            QCOMPARE(window.Find<QSplitter>("panes")->orientation(), Qt::Vertical);
            window.frame->RunCommand(32771);
            QVERIFY(tree->isHidden());
            QVERIFY(!window.Offers(32772));
            QVERIFY(!window.Offers(32773));
        }
        Window again(folder.path());
        QVERIFY(again.Find<QWidget>("dataTree")->isHidden());
        QCOMPARE(again.Find<QSplitter>("panes")->orientation(), Qt::Vertical);
        again.frame->RunCommand(32771);
        QVERIFY(again.Find<QWidget>("dataTree")->isVisible());
    }

    void aNarrowWindowHidesTheTreeUntilItIsAskedFor() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        auto* tree = window.Find<QWidget>("dataTree");
        window.frame->resize(500, 400);
        QTRY_VERIFY(tree->isHidden());
        window.frame->RunCommand(32771);
        QVERIFY(tree->isVisible());
        window.frame->resize(1000, 700);
        QTRY_VERIFY(tree->isVisible());
    }

    void aNewRecordFromTheTreeHasItsValues() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.dialog = [](CTRecord& record) {
            record.item1 = u"Client A"_s;
            return true;
        };
        QTest::keyClick(window.frame.get(), Qt::Key_N, Qt::ControlModifier);
        QVERIFY(!window.Offers(32861));
        auto* tree = window.Find<QTreeView>("dataTree");
        const QModelIndex root = tree->model()->index(0, 0);
        tree->setCurrentIndex(tree->model()->index(0, 0, root));
        QVERIFY(window.Offers(32861));
        QString seen;
        window.dialog = [&seen](CTRecord& record) {
            seen = record.item1;
            return true;
        };
        window.frame->RunCommand(32861);
        QCOMPARE(seen, u"Client A"_s);
        QCOMPARE(window.Rows(), 2);
    }

    void smallWindow() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        QCOMPARE(window.frame->minimumSize(), QSize(480, 360));
        window.frame->resize(480, 360);
        QTRY_COMPARE(window.frame->width(), 480);
        // The second bar goes below the first instead of being cut.
        QTRY_VERIFY(window.Find<QToolBar>("toolBar102")->y() > window.Find<QToolBar>("toolBar101")->y());
        window.frame->resize(1500, 700);
        QTRY_COMPARE(window.Find<QToolBar>("toolBar102")->y(), window.Find<QToolBar>("toolBar101")->y());
    }

    void everythingHasAName() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        for (const QToolButton* button : window.frame->findChildren<QToolButton*>()) {
            // Screen readers find the menus themselves, however narrow the window is.
            if (button->objectName() == u"qt_menubar_ext_button"_s) continue;
            QVERIFY2(!button->objectName().isEmpty(), qPrintable(button->text()));
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
            if (button->objectName().startsWith(u"qt_"_s)) continue;
            QVERIFY2(!button->icon().isNull(), qPrintable(button->objectName()));
        }
        QVERIFY(!window.List().accessibleName().isEmpty());
        const auto told = [&window](const char* name) { return window.Find<QLabel>(name)->accessibleName(); };
        QCOMPARE(told("statusMode"), u"What is shown: Time"_s);
        QCOMPARE(told("statusPeriod"), u"Period shown: "_s + window.Status("statusPeriod"));
        QVERIFY(told("statusSums").startsWith(u"Number and sums: Of "_s));
    }

    void sortByAColumn() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19, "10:00", "11:00");
        window.Add(18, "08:00", "09:00");
        const ModalUser sorts([](QDialog& dialog) {
            auto* box = dialog.findChild<QComboBox*>(u"sortColumn"_s);
            QVERIFY(!box->accessibleName().isEmpty() && !box->view()->accessibleName().isEmpty());
            box->setCurrentText(u"Start"_s);
            dialog.accept();
        });
        window.frame->RunCommand(Command::kSort);
        QVERIFY(sorts.Met());
        const auto first = window.List().model()->index(0, 1).data(Qt::AccessibleTextRole).toString();
        QVERIFY2(first.contains(u"Start: 08:00 AM"_s), qPrintable(first));
    }

    /// Those that other buttons took the place of at the start are gone, not hidden.
    void eachButtonIsThereOnce() {
        QTemporaryDir folder;
        const Window window(folder.path());
        for (const char* name : {"button103", "button40147", "button32844", "periodButton"})
            QCOMPARE(window.frame->findChildren<QToolButton*>(QString::fromLatin1(name)).size(), 1);
    }

    /// A load that is under way ends when the window is closed.
    void closeWhileLoading() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.frame->close();
        QVERIFY(!window.pump.Pump());
    }
};

QTEST_MAIN(TestCMainFrame)
#include "TestCMainFrame.moc"
