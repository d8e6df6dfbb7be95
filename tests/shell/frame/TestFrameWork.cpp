#include "shell/frame/CFrameWork.h"

#include "lang/LoadText.h"
#include "shell/frame/CFrameTray.h"
#include "shell/frame/FrameCommandsHome.h"
#include "shell/frame/FrameHome.h"
#include "shell/work/CRecentMenu.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The window over a home of its own; the clock stands at 9:00.
struct Home {
    QTemporaryDir folder;
    Window window{folder.path()};

    Home() {
        window.frame->Refresh();
        window.frame->activateWindow();
    }
    [[nodiscard]] CWorkBar& Bar() const { return *window.Find<CWorkBar>("workBar"); }
    void StartLine(const QString& line) const {
        window.frame->RunCommand(Command::kWorkLine);
        QTest::keyClicks(&Bar().Line(), line);
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : &Bar().Line(), Qt::Key_Return);
    }
    QString AddWork(int day, const QString& client, float rate, const QString& notes = {}) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        record.item1 = client;
        record.item5 = u"EUR"_s;
        record.notes = notes;
        record.SetBillable(true);
        static_cast<void>(record.SetRate(rate));
        record.SetDuration(1, 0, true);
        QString id;
        [&] {
            QVERIFY(window.app.Document().AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id));
        }();
        return id;
    }
    [[nodiscard]] QString Words() const { return window.Find<QToolButton>("workWords")->text(); }
    /// The one that was started last.
    [[nodiscard]] const CTRecord& Newest() {
        const ActiveTimerSet& set = *window.set;
        return *window.app.Document().FindTime(set.IdAt(set.Count() - 1));
    }
};

/// 0 without one.
float RateOf(const CTRecord& record) {
    float rate = 0.0F;
    static_cast<void>(record.GetRate(rate));
    return rate;
}

}  // namespace

class TestFrameWork final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void aLineBecomesARecordThatRuns() {
        Home home;
        home.AddWork(18, u"Acme"_s, 80.0F);
        QVERIFY(home.Bar().Line().isVisible());
        home.StartLine(u"acme, the header"_s);
        const CTRecord& record = home.Newest();
        QCOMPARE(record.item1, u"Acme"_s);
        QCOMPARE(record.notes, u"the header"_s);
        QCOMPARE(record.date.day, 19);
        QCOMPARE(record.startHour, 9);
        QVERIFY(!record.HasEnd());
        QCOMPARE(RateOf(record), 80.0F);
        QCOMPARE(record.item5, u"EUR"_s);
        QCOMPARE(home.window.set->StateOf(record.GetId()), TimerState::Running);
        QVERIFY(!home.Bar().Line().isVisible());
        QCOMPARE(home.Words(), u"Acme · the header"_s);
        QVERIFY(home.window.app.Catalogue().Texts(16).isEmpty());
        QCOMPARE(home.window.dialogs.edited, 0);
    }

    void titleAndTimeFollow() {
        Home home;
        home.StartLine(u"letter"_s);
        QCOMPARE(home.window.frame->windowTitle(), u"0:00 letter · Velmarch"_s);
        home.window.clock.Advance(42 * 60 + 7);
        QTRY_COMPARE(home.window.frame->windowTitle(), u"0:42 letter · Velmarch"_s);
        QCOMPARE(home.window.Find<QLabel>("workCount")->text(), u"00:42:07"_s);
        home.window.frame->RunCommand(Command::kWorkPause);
        QCOMPARE(home.window.frame->windowTitle(), u"Velmarch"_s);
        home.window.frame->RunCommand(Command::kWorkPause);
        QVERIFY(home.window.frame->windowTitle().startsWith(u"0:42"_s));
        home.window.frame->RunCommand(Command::kWorkStop);
        QCOMPARE(home.window.frame->windowTitle(), u"Velmarch"_s);
        QVERIFY(home.Bar().Line().isVisible());
    }

    void pauseDoesNotCountAndStopWrites() {
        Home home;
        home.StartLine(u"letter"_s);
        const QString id = home.Newest().GetId();
        home.window.clock.Advance(20 * 60);
        QTest::mouseClick(home.window.Find<QToolButton>("workPause"), Qt::LeftButton);
        QCOMPARE(home.window.set->StateOf(id), TimerState::Paused);
        home.window.clock.Advance(3600);
        QTest::mouseClick(home.window.Find<QToolButton>("workPause"), Qt::LeftButton);
        home.window.clock.Advance(10 * 60);
        QTest::mouseClick(home.window.Find<QToolButton>("workStop"), Qt::LeftButton);
        const CTRecord& record = *home.window.app.Document().FindTime(id);
        QCOMPARE(record.spans.duration.clockText, u"0:30"_s);
        QCOMPARE(record.endHour, 9);
        QCOMPARE(record.endMinute, 30);
        QCOMPARE(home.window.set->Count(), 0);
    }

    void recentWorkIsBegunAnew() {
        Home home;
        const QString former = home.AddWork(18, u"Acme"_s, 80.0F, u"notes of yesterday"_s);
        home.Bar().Recent().Fill();
        QCOMPARE(home.Bar().Recent().actions().size(), 1);
        home.Bar().Recent().actions().front()->trigger();
        const CTRecord& record = home.Newest();
        QVERIFY(record.GetId() != former);
        QCOMPARE(record.item1, u"Acme"_s);
        QVERIFY(record.notes.isEmpty());
        QCOMPARE(record.date.day, 19);
        QCOMPARE(RateOf(record), 80.0F);
        QCOMPARE(home.window.app.Document().FindTime(former)->date.day, 18);
    }

    void continueTakesTheNotesAlong() {
        Home home;
        const QString former = home.AddWork(18, u"Acme"_s, 80.0F, u"the header"_s);
        QVERIFY(!home.window.Offers(Command::kContinue));
        home.window.List().SelectIds({former});
        home.window.frame->RunCommand(Command::kContinue);
        const CTRecord& record = home.Newest();
        QVERIFY(record.GetId() != former);
        QCOMPARE(record.notes, u"the header"_s);
        QCOMPARE(record.date.day, 19);
        QVERIFY(!record.spans.duration.IsSet());
        QCOMPARE(home.window.List().SelectedIds(), QStringList{record.GetId()});
    }

    void whatIsTimedGoesOnItself() {
        Home home;
        home.StartLine(u"letter"_s);
        const QString id = home.Newest().GetId();
        home.window.List().SelectIds({id});
        home.window.frame->RunCommand(Command::kContinue);
        QCOMPARE(home.window.set->Count(), 1);
        home.window.frame->RunCommand(Command::kWorkPause);
        QCOMPARE(home.window.set->StateOf(id), TimerState::Paused);
        home.window.frame->RunCommand(Command::kContinue);
        QCOMPARE(home.window.set->Count(), 1);
        QCOMPARE(home.window.set->StateOf(id), TimerState::Running);
    }

    void aClickOpensTheRecord() {
        Home home;
        home.StartLine(u"letter"_s);
        home.window.dialog = [](CTRecord& record) {
            record.item1 = u"Acme"_s;
            return true;
        };
        QTest::mouseClick(home.window.Find<QToolButton>("workWords"), Qt::LeftButton);
        QCOMPARE(home.window.dialogs.edited, 1);
        QCOMPARE(home.Words(), u"Acme · letter"_s);
    }

    void anotherOneWhileOneRuns() {
        Home home;
        home.StartLine(u"first"_s);
        home.StartLine(u"second"_s);
        QCOMPARE(home.Words(), u"second"_s);
        QCOMPARE(home.window.Find<QToolButton>("workMore")->text(), u"+ 1 more"_s);
        home.window.frame->RunCommand(Command::kWorkPause);
        QCOMPARE(home.Words(), u"first"_s);
        home.window.frame->RunCommand(Command::kWorkStop);
        QCOMPARE(home.Words(), u"second"_s);
        QCOMPARE(home.window.Find<QToolButton>("workPause")->accessibleName(), u"Continue"_s);
    }

    void otherTimersPauseWhereTheSettingSaysSo() {
        Home home;
        home.window.app.Settings().timerOnNewTimer = 1;
        home.StartLine(u"first"_s);
        const QString first = home.Newest().GetId();
        home.StartLine(u"second"_s);
        QCOMPARE(home.window.set->StateOf(first), TimerState::Paused);
        QCOMPARE(home.Words(), u"second"_s);
    }

    /// What was started shows, pauses, stops there as well.
    void whileExpensesAreShown() {
        Home home;
        home.StartLine(u"letter"_s);
        const QString id = home.Newest().GetId();
        home.window.frame->RunCommand(Command::kExpenseMode);
        QCOMPARE(home.Words(), u"letter"_s);
        home.window.clock.Advance(1800);
        home.window.frame->RunCommand(Command::kWorkPause);
        QCOMPARE(home.window.set->StateOf(id), TimerState::Paused);
        home.window.frame->RunCommand(Command::kWorkStop);
        QCOMPARE(home.window.set->Count(), 0);
        home.StartLine(u"another"_s);
        QCOMPARE(home.window.set->Count(), 1);
        QCOMPARE(home.Words(), u"another"_s);
        home.window.frame->RunCommand(Command::kTimeMode);
        QCOMPARE(home.window.app.Document().FindTime(id)->spans.duration.clockText, u"0:30"_s);
        QCOMPARE(home.Newest().notes, u"another"_s);
    }

    /// To the list, or to what stands in its place.
    void escapeGivesTheKeyboardBack() {
        Home home;
        home.window.frame->RunCommand(Command::kWorkLine);
        QTest::keyClick(&home.Bar().Line(), Qt::Key_Escape);
        QVERIFY(!home.Bar().Line().hasFocus());
        QVERIFY(home.window.Find<QWidget>("pane1")->isAncestorOf(QApplication::focusWidget()));
        home.AddWork(19, u"Acme"_s, 80.0F);
        home.window.frame->RunCommand(Command::kWorkLine);
        QTest::keyClick(&home.Bar().Line(), Qt::Key_Escape);
        QVERIFY(home.window.List().hasFocus());
    }

    void whatIsUndoneLeavesTheBar() {
        Home home;
        home.StartLine(u"letter"_s);
        QVERIFY(
            home.window.app.Document().DeleteRecord(RecordKind::Time, home.Newest().GetId(), Notify::Yes));
        QVERIFY(home.window.timers->Drop(home.window.set->IdAt(0)));
        home.window.frame->RunCommand(Command::kRefresh);
        QVERIFY(home.Bar().Line().isVisible());
        QCOMPARE(home.window.frame->windowTitle(), u"Velmarch"_s);
    }

    void theBarCanBeHidden() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            QVERIFY(window.Find<QToolBar>("workPlace")->isVisible());
            window.frame->RunCommand(Command::kToggleWorkBar);
            QVERIFY(!window.Find<QToolBar>("workPlace")->isVisible());
        }
        Window window(folder.path());
        QVERIFY(!window.Find<QToolBar>("workPlace")->isVisible());
        window.frame->Refresh();
        window.frame->RunCommand(Command::kWorkLine);
        QVERIFY(window.Find<QToolBar>("workPlace")->isVisible());
    }

    void closingKeepsTheWindowWhereThatIsSet() {
        Fixture fixture;
        fixture.control.window.show();
        CFrameTray tray(
            {fixture.control, fixture.commands->Work(), *fixture.home.settings, [] { return u"1:00 h"_s; }});
        QVERIFY(!tray.TakeWindow());
        fixture.home.settings->closeToTray = true;
        // Where there is no notification area nobody could bring the window back.
        tray.Icon().SetShown(false);
        QVERIFY(!tray.TakeWindow());
        tray.Icon().SetShown(true);
        QVERIFY(tray.TakeWindow());
        QVERIFY(!fixture.control.window.isVisible());
        QVERIFY(!QApplication::quitOnLastWindowClosed());
        Q_EMIT tray.Icon().WindowWanted();
        QVERIFY(QApplication::quitOnLastWindowClosed());
        QCOMPARE(fixture.control.asked.last(), u"forward"_s);
        // Somebody else has brought it back, and the user wants it no more.
        QVERIFY(tray.TakeWindow());
        fixture.home.settings->closeToTray = false;
        QVERIFY(!tray.TakeWindow());
        QVERIFY(QApplication::quitOnLastWindowClosed());
        fixture.home.settings->closeToTray = true;
        tray.LetGo();
        QVERIFY(!tray.TakeWindow());
    }

    void startFromTheIconBringsTheWindow() {
        Fixture fixture;
        CFrameTray tray(
            {fixture.control, fixture.commands->Work(), *fixture.home.settings, [] { return u"1:00 h"_s; }});
        Q_EMIT tray.Icon().CommandWanted(Command::kWorkLine);
        QCOMPARE(fixture.control.asked.last(), u"forward"_s);
        QCOMPARE(fixture.control.ran, QList<int>{Command::kWorkLine});
    }

    void theTreeTakesOverTheTermsOfTheClient() {
        Fixture fixture;
        CTRecord record;
        record.Reset();
        record.date.Set(11, 18, 2026);
        record.item1 = u"From the tree"_s;
        record.item5 = u"EUR"_s;
        record.SetBillable(true);
        static_cast<void>(record.SetRate(80.0F));
        QVERIFY(fixture.home.document->AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}));
        fixture.tree.hasNode = true;
        const auto made = [&] {
            CTRecord entered;
            fixture.dialogs.edit = [&entered](CVORec& edited) {
                entered.Copy(static_cast<CTRecord&>(edited));
                return false;
            };
            fixture.Run(32861);
            return std::pair(entered.item5, RateOf(entered));
        };
        QCOMPARE(made(), std::pair(u"EUR"_s, 80.0F));
        fixture.tree.said = {Column::kBillable};
        QCOMPARE(made(), std::pair(u"EUR"_s, 0.0F));
    }
};

TEST_CLASS(TestFrameWork);
#include "TestFrameWork.moc"
