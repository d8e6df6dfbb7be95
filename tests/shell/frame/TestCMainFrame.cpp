#include "shell/frame/CMainFrame.h"

#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"
#include "platform/sqlite/CSqliteFile.h"
#include "shell/frame/FrameHome.h"
#include "shell/frame/ModalUser.h"
#include "shell/list/CEmptyNote.h"
#include "shell/look/IconTheme.h"
#include "shell/tree/CDataTreeView.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QAbstractItemView>
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Hears what the views hear, after them.
class Listener final : public CViewListener {
 public:
    explicit Listener(CViewHub& hub) : m_hub(hub) { m_hub.Attach(*this); }
    ~Listener() override { m_hub.Detach(*this); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    void OnHint(Hint hint, const QStringList&) override { heard << static_cast<int>(hint); }

    QList<int> heard;

 private:
    CViewHub& m_hub;
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
        QCOMPARE(window.dialogs.edited, 1);
        QCOMPARE(window.Rows(), 1);
        QCOMPARE(window.List().SelectedCount(), 1);
        QCOMPARE(window.app.Document().FindTime(window.List().SelectedIds().front())->item1, u"Client A"_s);
        window.dialog = [](CTRecord&) { return false; };
        QTest::keyClick(window.frame.get(), Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(window.dialogs.edited, 2);
        QCOMPARE(window.Rows(), 1);
    }

    /// Timestamp with timer, without a dialog: one key, and the list counts.
    void timestampWithTimer() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.app.Settings().dialogOnQuickEntry = false;
        window.frame->Refresh();
        QTest::keyClick(window.frame.get(), Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(window.dialogs.edited, 0);
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
        QCOMPARE(window.dialogs.edited, 2);
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

    /// Records that go take the selection with them, and the list says so itself: within the notice that they
    /// are about to go, before the others hear of it.
    void deletedRecordsTakeTheSelectionAlong_data() {
        QTest::addColumn<int>("records");
        QTest::newRow("one") << 1;
        QTest::newRow("so many that the list starts anew") << 100;
    }
    void deletedRecordsTakeTheSelectionAlong() {
        QFETCH(int, records);
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString staying = window.Add(1);
        for (int i = 0; i < records; ++i) window.Add(2 + i % 20);
        window.app.Settings().confirmDelete = false;
        QStringList going = window.List().SelectedIds();
        window.List().selectAll();
        going = window.List().SelectedIds();
        going.removeOne(staying);
        window.List().SelectIds(going);
        Listener listener(window.hub);
        window.frame->RunCommand(102);
        QCOMPARE(listener.heard, (QList<int>{11, 12, 2}));
        QCOMPARE(window.Rows(), 1);
        QCOMPARE(window.List().SelectedCount(), 0);
        QCOMPARE(window.Status("statusCount"), u"1 record"_s);
    }

    /// A record that goes without the user's doing clears what is selected elsewhere, too.
    void oneGoingClearsEverySelection() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString going = window.Add(18), staying = window.Add(19);
        window.List().SelectIds({staying});
        Listener listener(window.hub);
        QVERIFY(window.app.Document().DeleteRecord(RecordKind::Time, going, Notify::Yes));
        QCOMPARE(listener.heard, (QList<int>{11, 12, 2}));
        QCOMPARE(window.List().SelectedCount(), 0);
    }

    /// Another layout is the list's own affair: nothing else is made anew.
    void layoutsBearARadioCheck_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("layout");
        QTest::addColumn<int>("style");
        QTest::newRow("large icons are kept as icons") << 32823 << 1 << 0;
        QTest::newRow("a plain list is kept as a list") << 32825 << 2 << 3;
        QTest::newRow("columns are kept as rows") << 32826 << 3 << 1;
        QTest::newRow("lines are kept as rows") << 32783 << 4 << 1;
    }
    void layoutsBearARadioCheck() {
        QFETCH(int, command);
        QFETCH(int, layout);
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString id = window.Add(19);
        window.frame->RunCommand(layout == 4 ? 32825 : 32783);
        window.List().SelectIds({id});
        Listener listener(window.hub);
        window.frame->RunCommand(command);
        QCOMPARE(window.app.Settings().listLayout, layout);
        for (const int each : {32823, 32825, 32826, 32783})
            QCOMPARE(window.frame->findChild<CActions*>()->Action(each)->isChecked(), each == command);
        QCOMPARE(window.List().SelectedIds(), QStringList{id});
        for (const int hint : listener.heard) QCOMPARE(hint, 11);
        window.frame->PersistEverything();
        QTEST(window.app.Profile().GetInt(u"List"_s, u"Style"_s, -1), "style");
    }

    /// A drag of a column's edge is kept at once: the next program to open the settings finds it.
    void aDraggedWidthIsKeptAtOnce() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(32826);
        QWidget* header = window.List().horizontalHeader()->viewport();
        const int edge = window.List().columnViewportPosition(2) - 1;
        const int width = window.List().columnWidth(1);
        QTest::mousePress(header, Qt::LeftButton, {}, QPoint(edge, 5));
        QTest::mouseMove(header, QPoint(edge + 17, 5));
        QMouseEvent drag(QEvent::MouseMove, QPointF(edge + 40, 5), header->mapToGlobal(QPointF(edge + 40, 5)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(header, &drag);
        QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(edge + 40, 5));
        QCOMPARE(window.List().columnWidth(1), width + 40);
        window.app.Settings().KeepStoreUntouched();
        const TestHome next(folder.path());
        QCOMPARE(next.settings->ListColumns().EntryAt(0).width, width + 40);
    }

    /// Widths are read where the mode changes, into the columns of the mode that ends; the mode in use shown
    /// anew reads its records and no width.
    void widthsAreReadWhenTheModeChanges() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(32826);
        const CColSet& columns = window.app.Settings().ListColumns();
        const int former = columns.EntryAt(0).width;
        window.List().horizontalHeader()->resizeSection(1, 137);
        window.frame->RunCommand(40011);
        QCOMPARE(window.Rows(), 1);
        QCOMPARE(columns.EntryAt(0).width, former);
        const int formerOfExpenses = columns.EntryAt(17).width;
        window.List().horizontalHeader()->resizeSection(1, 138);
        window.frame->RunCommand(40012);
        QCOMPARE(columns.EntryAt(0).width, 138);
        QCOMPARE(columns.EntryAt(17).width, formerOfExpenses);
    }

    /// The period that comes back is that of the mode that the window was in.
    void thePeriodOfExpensesComesBack() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            window.frame->Refresh();
            window.frame->RunCommand(32799);
            window.frame->SwitchMode(RecordMode::Expense);
            window.frame->RunCommand(32789);
        }
        Window again(folder.path(), Window::Mode::AsStored);
        again.frame->Refresh();
        QCOMPARE(again.app.Document().FilterOfExpenses().preset, 16);
    }

    /// With the note in front nothing is selected, whatever the list has.
    void withoutTheListInFrontNothingOfItIsOffered() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(18);
        window.Add(19);
        window.List().selectAll();
        QVERIFY(window.Offers(102) && window.Offers(40112) && window.Offers(32814));
        window.Find<QStackedWidget>("pane1")->setCurrentIndex(0);
        window.hub.NotifyViews(Hint::SelectionChanged, {});
        window.Find<QStackedWidget>("pane1")->setCurrentIndex(0);
        const CommandState state = window.frame->State();
        QCOMPARE(state.selected, 0);
        for (const int command : {101, 102, 103, 32838, 40055, 32841, 32842, 40111, 40112, 40113, 32813,
                                  32814, 32854, 32864, 32867})
            QVERIFY2(!IsOffered(*RouteCommand(command, state), state), qPrintable(QString::number(command)));
        QCOMPARE(RouteCommand(32823, state)->run, Run::Layout);
    }

    /// The number 32823 is the layout of large icons while the list is the active view, empty or not.
    void clashingCommand() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const int before = window.app.Document().Filter().preset;
        for (const bool isEmpty : {true, false}) {
            if (!isEmpty) window.Add(19);
            window.frame->RunCommand(32823);
            QCOMPARE(window.app.Settings().listLayout, 1);
            QCOMPARE(window.app.Document().Filter().preset, before);
            window.frame->RunCommand(32783);
        }
        QCOMPARE(window.app.Settings().listLayout, 4);
    }

    /// While records are read, and as long as one of the readings within another goes on.
    void theCursorSaysToWait() {
        QTemporaryDir folder;
        Window window(folder.path());
        QVERIFY(!QGuiApplication::overrideCursor());
        bool waited = false;
        class Looks final : public CViewListener {
         public:
            explicit Looks(bool& waited) : m_waited(waited) {}
            void OnHint(Hint hint, const QStringList&) override {
                const QCursor* cursor = QGuiApplication::overrideCursor();
                if (hint == Hint::Rebuild) m_waited = cursor && cursor->shape() == Qt::WaitCursor;
            }

         private:
            bool& m_waited;
        } looks(waited);
        window.hub.Attach(looks);
        window.frame->Refresh();
        QVERIFY(waited);
        QVERIFY(!QGuiApplication::overrideCursor());
        waited = false;
        window.frame->RunCommand(40012);
        QVERIFY(waited);
        QVERIFY(!QGuiApplication::overrideCursor());
        window.frame->RunCommand(40011);
        window.hub.Detach(looks);
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
        QVERIFY(window.app.Document().AddRecord(expense, {Notify::Yes, Commit::Now, Identity::New}));
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

    void everythingHasAName() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        for (const QToolButton* button : window.frame->findChildren<QToolButton*>()) {
            // Screen readers find the menus themselves, however narrow the window is.
            if (button->objectName() == u"qt_menubar_ext_button"_s) continue;
            // Qt's own one, which empties a field.
            if (qobject_cast<const QLineEdit*>(button->parentWidget())) continue;
            QVERIFY2(!button->objectName().isEmpty(), qPrintable(button->text()));
            QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
            if (button->objectName().startsWith(u"qt_"_s)) continue;
            QVERIFY2(!button->icon().isNull() || !button->text().isEmpty(), qPrintable(button->objectName()));
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
            auto* rows = dialog.findChild<QTreeView*>(u"searchRows"_s);
            QVERIFY(!rows->accessibleName().isEmpty());
            rows->setCurrentIndex(rows->model()->index(1, 0));
            QCOMPARE(rows->currentIndex().data().toString(), u"Start"_s);
            dialog.accept();
        });
        window.frame->RunCommand(Command::kSort);
        QVERIFY(sorts.Met());
        const auto first = window.List().model()->index(0, 1).data(Qt::AccessibleTextRole).toString();
        QVERIFY2(first.contains(u"Start: 08:00 AM"_s), qPrintable(first));
    }

    /// A change that can't be stored isn't lost: its dialog comes again with what was entered.
    void failedEditComesBackToTheDialog() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString id = window.Add(19);
        window.List().SelectIds({id});
        CSqliteFile& file = window.app.Document().Store().Manager().File();
        window.dialog = [&](CTRecord& record) {
            record.notes += u"more "_s;
            [&] {
                QVERIFY(file.Execute(window.dialogs.edited == 1 ? "PRAGMA query_only=ON"
                                                                : "PRAGMA query_only=OFF"));
            }();
            return true;
        };
        window.prompt.ExpectTold(Text::CommitFailed);
        window.frame->RunCommand(Command::kEdit);
        QCOMPARE(window.dialogs.edited, 2);
        QCOMPARE(window.app.Document().FindTime(id)->notes, u"more more "_s);
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

TEST_CLASS(TestCMainFrame);
#include "TestCMainFrame.moc"
