#include "lang/FormatText.h"
#include "platform/settings/CProfile.h"
#include "shell/frame/FrameHome.h"
#include "shell/frame/ModalUser.h"
#include "shell/list/CEmptyNote.h"
#include "shell/look/IconTheme.h"
#include "shell/record/DialogUser.h"
#include "shell/report/CReportPane.h"
#include "shell/report/CReportView.h"
#include "shell/tree/CDataTreeView.h"
#include "support/TestProgram.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kSummary = Command::kSummary;

/// What is to be seen of the window.
struct Seen {
    bool tree = false;
    bool bar1 = false;
    bool bar2 = false;
    bool bar3 = false;
    bool statusBar = false;
    bool operator==(const Seen&) const = default;
};
QByteArray Words(const Seen& seen) {
    QByteArray words;
    for (const auto& [is, word] :
         {std::pair(seen.tree, "tree "), std::pair(seen.bar1, "bar1 "), std::pair(seen.bar2, "bar2 "),
          std::pair(seen.bar3, "bar3 "), std::pair(seen.statusBar, "status")})
        if (is) words += word;
    return words;
}
Seen Look(const Window& window) {
    const auto shows = [&window](const char* name) { return window.Find<QWidget>(name)->isVisible(); };
    return {window.frame->findChild<CDataTreeView*>()->isVisible(), shows("toolBar101"), shows("toolBar102"),
            shows("toolBar103"), shows("statusBar")};
}
QString InFront(const Window& window) {
    return window.Find<QStackedWidget>("pane1")->currentWidget()->objectName();
}

}  // namespace

/// A report takes the window, and closing it gives everything back.
class TestReportScreen final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void hidesAndRestores_data() {
        QTest::addColumn<QList<int>>("hidden");
        QTest::newRow("nothing was hidden") << QList<int>();
        QTest::newRow("no tree") << QList<int>{Command::kToggleTree};
        QTest::newRow("no bar 101") << QList<int>{Command::kToggleBar1};
        QTest::newRow("no bar 102") << QList<int>{Command::kToggleBar2};
        QTest::newRow("no status bar") << QList<int>{Command::kToggleStatusBar};
        QTest::newRow("all hidden") << QList<int>{Command::kToggleTree, Command::kToggleBar1,
                                                  Command::kToggleBar2, Command::kToggleStatusBar};
    }
    void hidesAndRestores() {
        QFETCH(QList<int>, hidden);
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        for (const int command : hidden) window.frame->RunCommand(command);
        const Seen before = Look(window);
        const QList<int> sizes = window.Find<QSplitter>("panes")->sizes();
        QVERIFY(!before.bar3);
        window.frame->RunCommand(kSummary);
        QCOMPARE(Words(Look(window)), Words({.bar3 = true}));
        QCOMPARE(InFront(window), u"reportPane"_s);
        // another report over the first one doesn't take what is hidden for what was
        window.frame->RunCommand(Command::kReportAgain);
        window.frame->RunCommand(Command::kReportClose);
        QCOMPARE(Words(Look(window)), Words(before));
        QCOMPARE(InFront(window), u"recordList"_s);
        if (before.tree) QTRY_COMPARE(window.Find<QSplitter>("panes")->sizes(), sizes);
    }

    /// What the user shows meanwhile is as it was before again.
    void whatIsShownMeanwhileGoesBack() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(Command::kToggleBar1);
        const Seen before = Look(window);
        window.frame->RunCommand(kSummary);
        window.frame->RunCommand(Command::kToggleBar1);
        window.frame->RunCommand(Command::kToggleTree);
        QVERIFY(Look(window).bar1 && Look(window).tree);
        QTest::keyClick(window.frame.get(), Qt::Key_Escape);
        QCOMPARE(Words(Look(window)), Words(before));
    }

    /// In a narrow window the tree hides by itself; a report must not make it wanted.
    void aNarrowWindowStaysAsItWas() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->resize(480, 400);
        QTRY_VERIFY(!Look(window).tree);
        window.frame->RunCommand(kSummary);
        window.frame->RunCommand(Command::kReportClose);
        QVERIFY(!Look(window).tree);
        window.frame->resize(1200, 700);
        QTRY_VERIFY(Look(window).tree);
    }

    /// The window leaves with a report in front: the next start finds the layout of before.
    void leavingWithAReportKeepsTheLayout() {
        QTemporaryDir folder;
        Seen before;
        {
            Window window(folder.path());
            window.frame->Refresh();
            window.Add(19);
            window.frame->RunCommand(Command::kToggleBar2);
            before = Look(window);
            window.frame->RunCommand(kSummary);
        }
        Window window(folder.path());
        window.frame->Refresh();
        QCOMPARE(Words(Look(window)), Words(before));
        QCOMPARE(InFront(window), u"recordList"_s);
    }

    void commandsOfTheListAreNotOffered() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.List().SelectIds({window.Add(19)});
        const QList<int> ofList = {Command::kEdit,
                                   Command::kCopy,
                                   Command::kDelete,
                                   Command::kSort,
                                   Command::kSelectAll,
                                   Command::kMarkFirst,
                                   Command::kTimerStart,
                                   Command::kLayoutList,
                                   32818,
                                   32881,
                                   32846};
        const QList<int> ofReport = {Command::kReportSave,    Command::kReportShrink, Command::kReportClose,
                                     Command::kReportFind,    Command::kReportPrint,  Command::kReportPdf,
                                     Command::kReportCsv,     Command::kReportAgain,  Command::kReportZoomIn,
                                     Command::kReportPreview, Command::kReportBrowser};
        const auto offers = [&window](const QList<int>& commands, bool expected) {
            for (const int command : commands)
                QVERIFY2(window.Offers(command) == expected, qPrintable(QString::number(command)));
        };
        offers(ofList, true);
        offers(ofReport, false);
        window.frame->RunCommand(kSummary);
        offers(ofList, false);
        offers(ofReport, true);
        window.frame->RunCommand(Command::kReportClose);
        offers(ofList, true);
        offers(ofReport, false);
    }

    /// Records change behind the report; what they leave is shown when it is closed.
    void theReportStaysWhenRecordsChange() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const QString id = window.Add(19);
        window.frame->RunCommand(kSummary);
        QVERIFY(window.app.Document().DeleteRecord(RecordKind::Time, id, Notify::Yes));
        window.frame->Refresh();
        QCOMPARE(InFront(window), u"reportPane"_s);
        window.frame->RunCommand(Command::kReportClose);
        QCOMPARE(InFront(window), u"emptyNote"_s);
        QCOMPARE(window.Rows(), 0);
    }

    void theListKeepsItsSelection() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(18);
        const QString id = window.Add(19);
        window.List().SelectIds({id});
        window.frame->RunCommand(kSummary);
        window.frame->RunCommand(Command::kReportClose);
        QCOMPARE(window.List().SelectedIds(), QStringList{id});
        QVERIFY(window.List().hasFocus());
    }

    void shrinkingIsRememberedAtOnce() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        CReportView& view = window.Find<CReportPane>("reportPane")->View();
        const auto stored = [&window] {
            return window.app.Profile().GetInt(LoadText(Text::SectionReport), LoadText(Text::EntryShrink),
                                               -1);
        };
        QAction* action = window.frame->findChild<CActions*>()->Action(Command::kReportShrink);
        QVERIFY(view.ShrinksToFit() && action->isChecked());
        window.frame->RunCommand(Command::kReportShrink);
        QVERIFY(!view.ShrinksToFit() && !action->isChecked());
        QCOMPARE(stored(), 0);
        window.frame->RunCommand(Command::kReportShrink);
        QVERIFY(view.ShrinksToFit());
        QCOMPARE(stored(), 1);
    }

    /// The bar wraps like the others, and its buttons have names.
    void theBarOfTheReport() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        for (const QToolButton* button : window.Find<QToolBar>("toolBar103")->findChildren<QToolButton*>())
            if (button->isVisible())
                QVERIFY2(!button->accessibleName().isEmpty(), qPrintable(button->objectName()));
        window.frame->resize(480, 400);
        QTRY_VERIFY(window.frame->findChild<QToolBar*>(u"toolBar103.2"_s) ||
                    window.Find<QToolBar>("toolBar103")->width() <= 480);
        window.frame->RunCommand(Command::kReportClose);
        for (const QToolBar* bar : window.frame->findChildren<QToolBar*>())
            if (bar->objectName().startsWith(u"toolBar103"_s)) QVERIFY(!bar->isVisible());
    }

    void findsFromPlaceToPlace() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        CReportView& view = window.Find<CReportPane>("reportPane")->View();
        QTRY_VERIFY(view.IsPrepared());
        QTest::keyClick(window.frame.get(), Qt::Key_F, Qt::ControlModifier);
        auto* words = window.Find<QLineEdit>("findWords");
        QVERIFY(words->hasFocus());
        QTest::keyClicks(words, u"entries"_s);
        const auto count = view.Text().count(u"entries"_s, Qt::CaseInsensitive);
        QVERIFY(count >= 2);
        const auto places = [&](int number) {
            return FormatText<Text::FindPlaces>(QString::number(number), QString::number(count));
        };
        QCOMPARE(window.Find<QLabel>("findPlaces")->text(), places(1));
        QCOMPARE(view.SelectedText().toLower(), u"entries"_s);
        QTest::keyClick(words, Qt::Key_Return);
        QCOMPARE(window.Find<QLabel>("findPlaces")->text(), places(2));
        QTest::keyClick(words, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(window.Find<QLabel>("findPlaces")->text(), places(1));
        window.Find<QCheckBox>("findCase")->setChecked(true);
        QCOMPARE(window.Find<QLabel>("findPlaces")->text(), LoadText(Text::FindNothing));
        // Escape closes the search first, then the report
        QTest::keyClick(words, Qt::Key_Escape);
        QVERIFY(!words->isVisible());
        QCOMPARE(InFront(window), u"reportPane"_s);
        QTest::keyClick(window.frame.get(), Qt::Key_Escape);
        QCOMPARE(InFront(window), u"recordList"_s);
    }

    void copiesWhatIsSelected() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        CReportView& view = window.Find<CReportPane>("reportPane")->View();
        QTRY_VERIFY(view.IsPrepared());
        QVERIFY(!window.Offers(Command::kReportCopy));
        view.SelectAll();
        QVERIFY(window.Offers(Command::kReportCopy));
    }

    void zoomsInSteps() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        const CReportView& view = window.Find<CReportPane>("reportPane")->View();
        window.frame->RunCommand(Command::kReportZoomIn);
        QVERIFY(view.ZoomPercent() > 100);
        window.frame->RunCommand(Command::kReportZoomNormal);
        QCOMPARE(view.ZoomPercent(), 100);
        window.frame->RunCommand(Command::kReportZoomOut);
        QVERIFY(view.ZoomPercent() < 100);
    }

    void savesThePageAndTheTable() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        const auto saved = [&](int command, const QString& name) {
            const QString path = folder.filePath(name);
            window.prompt.ExpectFile(path);
            window.frame->RunCommand(command);
            [&] {
                QCOMPARE(window.Find<QLabel>("reportNote")->text(), FormatText<Text::ReportSaved>(path));
            }();
            QFile file(path);
            [&] { QVERIFY(file.open(QIODevice::ReadOnly)); }();
            return file.readAll();
        };
        QVERIFY(saved(Command::kReportSave, u"page.html"_s).startsWith("<!DOCTYPE html>"));
        const QByteArray table = saved(Command::kReportCsv, u"table.csv"_s);
        QVERIFY2(table.startsWith("Billable,Entries,0\r\n"), table.constData());
        QVERIFY(saved(Command::kReportPdf, u"page.pdf"_s).startsWith("%PDF"));
        // called off: nothing is said or written
        window.prompt.ExpectFile({});
        window.frame->RunCommand(Command::kReportSave);
    }

    void whatCantBeSavedSaysWhy() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        const QString path = folder.filePath(u"not/there/page.html"_s);
        window.prompt.ExpectFile(path);
        window.frame->RunCommand(Command::kReportSave);
        const QString said = window.Find<QLabel>("reportNote")->text();
        QVERIFY2(said.contains(path) && said.size() > path.size() + 25, qPrintable(said));
    }

    void opensInTheBrowser() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.launcher.programs = {u"xdg-open"_s};
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        window.frame->RunCommand(Command::kReportBrowser);
        QVERIFY2(window.launcher.started.startsWith(u"xdg-open "_s), qPrintable(window.launcher.started));
        QFile page(window.launcher.started.section(u' ', 1));
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY(page.readAll().startsWith("<!DOCTYPE html>"));
        window.launcher.starts = false;
        window.frame->RunCommand(Command::kReportBrowser);
        QVERIFY(!window.Find<QLabel>("reportNote")->text().isEmpty());
    }

    void theChartCanBeHidden() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.frame->RunCommand(kSummary);
        QAction* action = window.frame->findChild<CActions*>()->Action(Command::kReportChart);
        QVERIFY(action->isEnabled() && action->isChecked());
        const QString path = folder.filePath(u"chart.svg"_s);
        window.prompt.ExpectFile(path);
        window.frame->RunCommand(Command::kReportChartSave);
        QVERIFY(QFile::exists(path));
        window.frame->RunCommand(Command::kReportChart);
        QVERIFY(!action->isChecked());
        window.frame->RunCommand(Command::kReportClose);
        window.frame->RunCommand(kSummary);
        QVERIFY(!action->isChecked());
        QVERIFY(!window.Offers(Command::kReportChartSave));
    }
};

TEST_CLASS(TestReportScreen);
#include "TestReportScreen.moc"
