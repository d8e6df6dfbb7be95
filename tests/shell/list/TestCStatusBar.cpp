#include "shell/list/CStatusBar.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "shell/frame/FrameHome.h"
#include "shell/look/IconTheme.h"
#include "support/TestProgram.h"

#include <QLabel>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr const char* kLabels[] = {"statusMode", "statusPeriod", "statusCount",
                                   "statusSums", "statusToday",  "statusWeek"};

/// A picture is there or not, whatever it shows.
bool HasPicture(const Window& window, const char* name) {
    return !window.Find<QLabel>(name)->pixmap(Qt::ReturnByValue).isNull();
}

QImage PictureOf(const Window& window, const char* name) {
    return window.Find<QLabel>(name)->pixmap(Qt::ReturnByValue).toImage();
}

}  // namespace

/// The status bar in its window. The clock stands at 9:00 on 19 November 2026.
class TestCStatusBar final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void selectionOrList() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        QCOMPARE(window.Status("statusMode"), u"Time"_s);
        QCOMPARE(window.Status("statusPeriod"), u"This month"_s);
        window.Add(18);
        const QString id = window.Add(19, "09:00", "11:30");
        QCOMPARE(window.Status("statusCount"), u"2 records"_s);
        QCOMPARE(window.Status("statusSums"), u"3.5000 h"_s);
        const QImage ofList = PictureOf(window, "statusSumsPicture");
        QVERIFY(!ofList.isNull());
        window.List().SelectIds({id});
        QCOMPARE(window.Status("statusCount"), u"1 of 2 selected"_s);
        QCOMPARE(window.Status("statusSums"), u"2.5000 h"_s);
        const QImage ofSelection = PictureOf(window, "statusSumsPicture");
        QVERIFY(ofSelection != ofList);
        QVERIFY(window.Find<CElidedLabel>("statusSums")->toolTip().contains(u"selected"_s));
        window.List().selectAll();
        QCOMPARE(window.Status("statusSums"), u"3.5000 h"_s);
        QCOMPARE(PictureOf(window, "statusSumsPicture"), ofSelection);
        QVERIFY(window.Find<CElidedLabel>("statusSums")->toolTip().contains(u"selected"_s));
        window.List().SelectNone();
        QCOMPARE(window.Status("statusSums"), u"3.5000 h"_s);
        QCOMPARE(PictureOf(window, "statusSumsPicture"), ofList);
    }

    /// In short, with the hours of each currency, the sums stand in the tip.
    void theShortFormIsInTheTip() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(18);
        window.Add(19, "09:00", "11:30");
        for (const char* label : {"statusCount", "statusSums"})
            QCOMPARE(window.Find<CElidedLabel>(label)->toolTip(), u"Of all listed records: (2)  3.5000"_s);
    }

    /// The week began on Sunday, the 15th.
    void todayAndThisWeek() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.app.Settings().spanDisplayFormat = 1;
        QCOMPARE(window.Status("statusToday"), u"Today 0.0000 h"_s);
        window.Add(14);
        window.Add(15);
        window.Add(19, "09:00", "11:30");
        QCOMPARE(window.Status("statusToday"), u"Today 2:30 h"_s);
        QCOMPARE(window.Status("statusWeek"), u"Week 3:30 h"_s);
        window.frame->SwitchMode(RecordMode::Expense);
        QCOMPARE(window.Status("statusToday") + window.Status("statusWeek"), QString());
        window.frame->SwitchMode(RecordMode::Time);
        QCOMPARE(window.Status("statusWeek"), u"Week 3:30 h"_s);
    }

    void emptyListHasNoTextAndNoPicture() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        QCOMPARE(window.Status("statusCount"), QString());
        QCOMPARE(window.Status("statusSums"), QString());
        QVERIFY(!HasPicture(window, "statusSumsPicture"));
        QVERIFY(HasPicture(window, "statusModePicture"));
    }

    void recordsWithoutDurationAndAmountHaveACountAlone() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19, "", "");
        QCOMPARE(window.Status("statusCount"), u"1 record"_s);
        QCOMPARE(window.Status("statusSums"), QString());
        QVERIFY(!HasPicture(window, "statusSumsPicture"));
    }

    /// Which parts a hint has shown anew; a part that was cleared is new as well.
    void hints_data() {
        QTest::addColumn<int>("hint");
        QTest::addColumn<QString>("parts");
        const QString all = u"statusMode statusPeriod statusCount statusSums statusToday statusWeek"_s;
        QTest::newRow("records added: all") << 0 << all;
        QTest::newRow("records changed: all") << 1 << all;
        QTest::newRow("records deleted: all") << 2 << all;
        QTest::newRow("a timer started: nothing") << 3 << QString();
        QTest::newRow("a timer paused: nothing") << 4 << QString();
        QTest::newRow("a timer stopped: nothing") << 5 << QString();
        QTest::newRow("rebuild: all") << 6 << all;
        QTest::newRow("a report comes: nothing") << 7 << QString();
        QTest::newRow("clear: all") << 9 << all;
        QTest::newRow("another selection: number and sums alone") << 11 << u"statusCount statusSums"_s;
        QTest::newRow("records about to go: nothing") << 12 << QString();
        QTest::newRow("records about to change: nothing") << 14 << QString();
    }
    void hints() {
        QFETCH(int, hint);
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString id = window.Add(19);
        for (const char* label : kLabels) window.Find<CElidedLabel>(label)->SetFullText(u"stale"_s);
        const bool hasIds = hint < 6 || hint > 11;
        window.Find<CStatusBar>("statusBar")
            ->OnHint(static_cast<Hint>(hint), hasIds ? QStringList{id} : QStringList());
        QStringList parts;
        for (const char* label : kLabels)
            if (window.Status(label) != u"stale"_s) parts << QString::fromLatin1(label);
        QTEST(parts.join(u' '), "parts");
    }

    /// The tip of a button of a report, say, over which the mouse rests when the report is closed.
    void aMessageThatCameWhileTheBarWasHidden() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        auto* bar = window.Find<CStatusBar>("statusBar");
        bar->hide();
        bar->showMessage(u"Make a new record"_s);
        bar->show();
        QCOMPARE(bar->currentMessage(), u"Make a new record"_s);
        QVERIFY(!window.Find<QWidget>("statusMode")->isVisible());
        QTRY_COMPARE(bar->currentMessage(), QString());
        QVERIFY(window.Find<QWidget>("statusMode")->isVisible());
    }

    void clearEmptiesEveryPart() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.Find<CStatusBar>("statusBar")->OnHint(Hint::Clear, {});
        for (const char* label : kLabels) QCOMPARE(window.Status(label), QString());
        QVERIFY(!HasPicture(window, "statusModePicture") && !HasPicture(window, "statusSumsPicture"));
    }

    /// What all listed records add up to is known from their last change on: a new selection doesn't add them
    /// up again. Here nobody tells of a change, so the sum before it stands until someone does.
    void aSelectionAddsUpItsOwnRecordsAlone() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString id = window.Add(18);
        const QString other = window.Add(19, "09:00", "11:30");
        window.app.Document().FindTime(id)->SetDurationOnly(5, 0);
        window.List().SelectIds({other});
        QCOMPARE(window.Status("statusSums"), u"2.5000 h"_s);
        window.List().SelectNone();
        QCOMPARE(window.Status("statusSums"), u"3.5000 h"_s);
        window.List().selectAll();
        QCOMPARE(window.Status("statusSums"), u"3.5000 h"_s);
        window.List().SelectIds({id});
        QCOMPARE(window.Status("statusSums"), u"5.0000 h"_s);
        window.List().SelectNone();
        window.hub.NotifyViews(Hint::Changed, {id});
        QCOMPARE(window.Status("statusSums"), u"7.5000 h"_s);
    }

    /// They are added up as they are read; the user hears of it once, and can look it up in the tip.
    void distancesThatArentReadWhole() {
        QTemporaryDir folder;
        Window window(folder.path());
        CERecord expense;
        expense.date.Set(11, 12, 2026);
        expense.amount.Set(10.0F);
        expense.item5 = u"EUR"_s;
        expense.TakeStoredDistance(u"12,35"_s);
        QVERIFY(window.app.Document().AddRecord(
            expense,
            {.notify = Notify::No, .commit = Commit::Now, .identity = Identity::New, .hold = Hold::No}));
        window.frame->Refresh();
        const auto* bar = window.Find<CStatusBar>("statusBar");
        QCOMPARE(bar->currentMessage(), QString());
        window.frame->SwitchMode(RecordMode::Expense);
        const QString told = u"can't be read whole here: 1, the first of 11/12/2026"_s;
        QVERIFY(bar->currentMessage().contains(told));
        QVERIFY(window.Find<CElidedLabel>("statusSums")->toolTip().contains(told));
        window.Find<CStatusBar>("statusBar")->clearMessage();
        window.frame->Refresh();
        QCOMPARE(bar->currentMessage(), QString());
        QVERIFY(window.Find<CElidedLabel>("statusSums")->toolTip().contains(told));
        window.frame->SwitchMode(RecordMode::Time);
    }

    /// In the font of the list, the mode bold.
    void fontOfTheList() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        FontRecord font;
        font.tenthsOfPoint = 170;
        font.face = u"Sans Serif"_s;
        window.app.Settings().SetListFont(font);
        window.hub.NotifyViews(Hint::Rebuild, {});
        for (const char* label : kLabels) {
            const QFont shown = window.Find<CElidedLabel>(label)->font();
            QCOMPARE(shown.pointSizeF(), 17.0);
            QCOMPARE(static_cast<int>(shown.weight()), QByteArray(label) == "statusMode" ? 700 : 400);
        }
    }

    /// 19 November 2026 is day 323; by the simple rule it lies in week 47.
    void period_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("text");
        QTest::newRow("today: day and week") << 32798 << u"Today (323, 47)"_s;
        QTest::newRow("yesterday") << 32789 << u"Yesterday (322, 46)"_s;
        QTest::newRow("this week: the week of its first day") << 32799 << u"This week (46)"_s;
        QTest::newRow("this week to date") << 32790 << u"This week to date (46)"_s;
        QTest::newRow("last week") << 32796 << u"Last week (45)"_s;
        QTest::newRow("last week to date: none") << 32797 << u"Last week to date"_s;
        QTest::newRow("next week") << 32843 << u"Next week (47)"_s;
        QTest::newRow("two weeks: none") << 32800 << u"Last and this week"_s;
        QTest::newRow("a month: none") << 32801 << u"This month"_s;
        QTest::newRow("all") << 32802 << u"All"_s;
    }
    void period() {
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

    /// 18 November 2026, a Wednesday, is day 322; the Sunday before it is day 319. The year began on a
    /// Thursday.
    void weekNumbers_data() {
        QTest::addColumn<QString>("day");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("numbers");
        QTest::newRow("ISO 8601") << u"11/18/2026"_s << 0 << u"(322, 47)"_s;
        QTest::newRow("simple: the second week starts on the 8th") << u"11/18/2026"_s << 1 << u"(322, 46)"_s;
        QTest::newRow("the second week starts on the first Sunday") << u"11/15/2026"_s << 2 << u"(319, 47)"_s;
        QTest::newRow("the second week starts on the first Monday") << u"11/15/2026"_s << 3 << u"(319, 46)"_s;
        QTest::newRow("no such type: the day once more") << u"11/18/2026"_s << 4 << u"(322, 322)"_s;
    }
    void weekNumbers() {
        QFETCH(QString, day);
        QFETCH(int, type);
        QFETCH(QString, numbers);
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.app.Settings().weekNumberType = type;
        CPeriodCommands(window.app.Document()).Day(day);
        QVERIFY2(window.Status("statusPeriod").endsWith(u' ' + numbers),
                 qPrintable(window.Status("statusPeriod")));
    }
};

TEST_CLASS(TestCStatusBar);
#include "TestCStatusBar.moc"
