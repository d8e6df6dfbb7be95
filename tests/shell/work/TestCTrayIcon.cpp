#include "shell/work/CTrayIcon.h"

#include "lang/LoadText.h"
#include "shell/work/CRecentMenu.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CommandTable.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Fixture {
    bool mayAct = true;
    QString hours = u"5:20 h"_s;
    CTrayIcon icon{[this] { return hours; }, [this] { return mayAct; }};

    [[nodiscard]] QAction& Action(const char* name) {
        auto* action = icon.Menu().findChild<QAction*>(QString::fromLatin1(name));
        if (!action) qFatal("no %s", name);
        return *action;
    }
    [[nodiscard]] QString Tip() const { return icon.findChild<QSystemTrayIcon*>()->toolTip(); }
    void Show(bool isRunning) {
        icon.ShowWorks({{.id = u"1"_s,
                         .work = {.items = {u"A"_s, u"Alpha"_s}, .notes = {}},
                         .isRunning = isRunning,
                         .seconds = 2520,
                         .since = {}}});
    }
};

}  // namespace

class TestCTrayIcon final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void theTip() {
        Fixture fixture;
        QCOMPARE(fixture.Tip(), u"Velmarch\nNo timer runs"_s);
        fixture.Show(true);
        QCOMPARE(fixture.Tip(), u"0:42 A · Alpha\nRunning"_s);
        fixture.Show(false);
        QCOMPARE(fixture.Tip(), u"0:42 A · Alpha\nPaused"_s);
    }

    void whatCanBeDone() {
        Fixture fixture;
        QVERIFY(fixture.Action("trayStart").isEnabled());
        QVERIFY(!fixture.Action("trayPause").isEnabled());
        QVERIFY(!fixture.Action("trayStop").isEnabled());
        fixture.Show(true);
        QVERIFY(fixture.Action("trayStop").isEnabled());
        QCOMPARE(fixture.Action("trayPause").text(), u"&Pause"_s);
        fixture.Show(false);
        QCOMPARE(fixture.Action("trayPause").text(), u"&Continue"_s);
    }

    /// A dialog waits: whoever opens the menu then can only bring the window forward or end the program.
    void notWhileADialogWaits() {
        Fixture fixture;
        fixture.Show(true);
        fixture.mayAct = false;
        Q_EMIT fixture.icon.Menu().aboutToShow();
        for (const char* name : {"trayStart", "trayPause", "trayStop"})
            QVERIFY2(!fixture.Action(name).isEnabled(), name);
        QVERIFY(!fixture.icon.Recent().isEnabled());
        QVERIFY(fixture.Action("trayQuit").isEnabled());
    }

    void todayIsAskedWhenTheMenuOpens() {
        Fixture fixture;
        fixture.hours = u"6:00 h"_s;
        Q_EMIT fixture.icon.Menu().aboutToShow();
        QCOMPARE(fixture.Action("trayToday").text(), u"Today: 6:00 h"_s);
    }

    void itsCommands_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("command");
        QTest::newRow("start") << u"trayStart"_s << Command::kWorkLine;
        QTest::newRow("pause") << u"trayPause"_s << Command::kWorkPause;
        QTest::newRow("stop") << u"trayStop"_s << Command::kWorkStop;
        QTest::newRow("quit") << u"trayQuit"_s << Command::kExit;
    }
    void itsCommands() {
        QFETCH(QString, name);
        Fixture fixture;
        fixture.Show(true);
        QSignalSpy wanted(&fixture.icon, &CTrayIcon::CommandWanted);
        fixture.Action(qPrintable(name)).trigger();
        QCOMPARE(wanted.size(), 1);
        QTEST(wanted.front().front().toInt(), "command");
    }
};

TEST_CLASS(TestCTrayIcon);
#include "TestCTrayIcon.moc"
