#include "shell/work/CWorkBar.h"

#include "lang/LoadText.h"
#include "shell/look/IconTheme.h"
#include "shell/work/CElidedButton.h"
#include "shell/work/CRecentMenu.h"
#include "support/TestProgram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

TimedWork Timed(const QString& id, const QString& client, bool isRunning = true, int seconds = 0) {
    return {.id = id,
            .work = {.items = {client}, .notes = {}},
            .isRunning = isRunning,
            .seconds = seconds,
            .since = {}};
}

/// The bar in a window, beside something else that takes the keyboard.
struct Fixture {
    QWidget window;
    CWorkBar* bar = new CWorkBar;
    QLineEdit* other = new QLineEdit;
    std::vector<WorkProposal> proposals;
    std::vector<Work> recent;

    Fixture() {
        auto* row = new QHBoxLayout(&window);
        row->addWidget(bar);
        row->addWidget(other);
        bar->Line().SetProposals([this](const QString&) { return proposals; });
        bar->Recent().SetRecent([this] { return recent; });
        window.resize(800, 60);
        window.show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(&window)); }();
    }
    template <class Widget>
    [[nodiscard]] Widget& Find(const char* name) const {
        auto* widget = bar->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget) qFatal("no %s", name);
        return *widget;
    }
    [[nodiscard]] QToolButton& Button(const char* name) const { return Find<QToolButton>(name); }
    [[nodiscard]] bool ShowsLine() const { return bar->Line().isVisible(); }
    void Type(const QString& text) {
        bar->OpenLine();
        QTest::keyClicks(&bar->Line(), text);
    }
    /// Where keys go while proposals are shown.
    void Press(Qt::Key key) {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : &bar->Line(), key);
    }
};

}  // namespace

class TestCWorkBar final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void aLineWhileNothingRuns() {
        Fixture fixture;
        QVERIFY(fixture.ShowsLine());
        QCOMPARE(fixture.bar->Line().placeholderText(), u"What are you working on?"_s);
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A"_s)});
        QVERIFY(!fixture.ShowsLine());
        fixture.bar->ShowWorks({});
        QVERIFY(fixture.ShowsLine());
    }

    void whatRuns() {
        Fixture fixture;
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A & B"_s, true, 3725)});
        QCOMPARE(fixture.Find<QLabel>("workCount").text(), u"01:02:05"_s);
        QCOMPARE(fixture.Button("workWords").text(), u"A & B"_s);
        QCOMPARE(fixture.Button("workPause").accessibleName(), u"Pause"_s);
        QVERIFY(!fixture.Button("workMore").isVisible());
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A & B"_s, false, 3725)});
        QCOMPARE(fixture.Button("workPause").accessibleName(), u"Continue"_s);
        QVERIFY(fixture.Button("workWords").accessibleName().contains(u"Paused"_s));
    }

    /// Nothing but the count is touched while it counts, and nothing moves.
    void onlyTheTimeChanges() {
        Fixture fixture;
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A"_s, true, 59)});
        const QRect place = fixture.Find<QLabel>("workCount").geometry();
        const qint64 picture = fixture.Find<QLabel>("workPicture").pixmap().cacheKey();
        for (const int seconds : {60, 3600, 40000})
            fixture.bar->ShowWorks({Timed(u"1"_s, u"A"_s, true, seconds)});
        QCOMPARE(fixture.Find<QLabel>("workCount").text(), u"11:06:40"_s);
        QCOMPARE(fixture.Find<QLabel>("workCount").geometry(), place);
        QCOMPARE(fixture.Find<QLabel>("workPicture").pixmap().cacheKey(), picture);
    }

    void theButtons() {
        Fixture fixture;
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A"_s)});
        QSignalSpy open(fixture.bar, &CWorkBar::OpenWanted), pause(fixture.bar, &CWorkBar::PauseWanted),
            stop(fixture.bar, &CWorkBar::StopWanted), line(fixture.bar, &CWorkBar::LineWanted);
        for (const char* name : {"workWords", "workPause", "workStop", "workElse"})
            QTest::mouseClick(&fixture.Button(name), Qt::LeftButton);
        QCOMPARE(open.size(), 1);
        QCOMPARE(open.front().front().toString(), u"1"_s);
        QCOMPARE(pause.size(), 1);
        QCOMPARE(stop.size(), 1);
        QCOMPARE(line.size(), 1);
    }

    void theOthersAreAMenu() {
        Fixture fixture;
        fixture.bar->ShowWorks(
            {Timed(u"1"_s, u"A"_s), Timed(u"2"_s, u"B & C"_s, true, 60), Timed(u"3"_s, u"D"_s, false)});
        QVERIFY(fixture.Button("workMore").isVisible());
        QCOMPARE(fixture.Button("workMore").text(), u"+ 2 more"_s);
        QMenu& menu = *fixture.Button("workMore").menu();
        Q_EMIT menu.aboutToShow();
        QCOMPARE(menu.actions().size(), 2);
        QCOMPARE(menu.actions()[0]->text(), u"00:01:00  B && C"_s);
        QSignalSpy open(fixture.bar, &CWorkBar::OpenWanted);
        menu.actions()[1]->trigger();
        QCOMPARE(open.front().front().toString(), u"3"_s);
    }

    void theLineInFrontOfWhatRuns() {
        Fixture fixture;
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A"_s)});
        fixture.bar->OpenLine();
        QVERIFY(fixture.ShowsLine());
        QVERIFY(fixture.bar->Line().hasFocus());
        fixture.Type(u"half"_s);
        fixture.bar->ShowWorks({Timed(u"1"_s, u"A"_s, true, 1)});
        QVERIFY(fixture.ShowsLine());
        fixture.Press(Qt::Key_Escape);
        QVERIFY(!fixture.ShowsLine());
        fixture.bar->OpenLine();
        QVERIFY(fixture.bar->Line().text().isEmpty());
        fixture.other->setFocus();
        QVERIFY(!fixture.ShowsLine());
        fixture.Type(u"half"_s);
        fixture.other->setFocus();
        QVERIFY(fixture.ShowsLine());
    }

    void returnStartsTheLine() {
        Fixture fixture;
        QSignalSpy start(&fixture.bar->Line(), &CWorkLine::StartWanted);
        fixture.Type(u"  "_s);
        fixture.Press(Qt::Key_Return);
        QVERIFY(start.isEmpty());
        fixture.Type(u" a letter "_s);
        fixture.Press(Qt::Key_Return);
        QCOMPARE(start.size(), 1);
        QCOMPARE(start.front().front().toString(), u"a letter"_s);
    }

    /// Nothing is taken over unless it is chosen.
    void proposalsAreOffers() {
        Fixture fixture;
        fixture.proposals = {{u"A · Design"_s, true}, {u"Alpha"_s, false}};
        QSignalSpy start(&fixture.bar->Line(), &CWorkLine::StartWanted);
        fixture.Type(u"al"_s);
        QVERIFY(QApplication::activePopupWidget());
        fixture.Press(Qt::Key_Return);
        QCOMPARE(start.takeFirst().front().toString(), u"al"_s);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aChosenWorkStartsAtOnce() {
        Fixture fixture;
        fixture.proposals = {{u"A · Design"_s, true}, {u"Alpha"_s, false}};
        QSignalSpy start(&fixture.bar->Line(), &CWorkLine::StartWanted);
        fixture.Type(u"al"_s);
        fixture.Press(Qt::Key_Down);
        fixture.Press(Qt::Key_Return);
        QCOMPARE(start.size(), 1);
        QCOMPARE(start.front().front().toString(), u"A · Design"_s);
    }

    void aChosenItemGoesIntoTheLine() {
        Fixture fixture;
        fixture.proposals = {{u"A · Design"_s, true}, {u"Alpha"_s, false}};
        QSignalSpy start(&fixture.bar->Line(), &CWorkLine::StartWanted);
        fixture.Type(u"al"_s);
        fixture.Press(Qt::Key_Down);
        fixture.Press(Qt::Key_Down);
        fixture.Press(Qt::Key_Return);
        QVERIFY(start.isEmpty());
        QCOMPARE(fixture.bar->Line().text(), u"Alpha"_s);
        fixture.Press(Qt::Key_Return);
        QCOMPARE(start.front().front().toString(), u"Alpha"_s);
    }

    void tabTakesTheOnlyProposal() {
        Fixture fixture;
        fixture.proposals = {{u"A · Design"_s, true}};
        QSignalSpy start(&fixture.bar->Line(), &CWorkLine::StartWanted);
        fixture.Type(u"de"_s);
        fixture.Press(Qt::Key_Tab);
        QCOMPARE(fixture.bar->Line().text(), u"A · Design"_s);
        QVERIFY(start.isEmpty());
        QVERIFY(fixture.bar->Line().hasFocus());
    }

    void recentWorkByItsDigit_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("withControl");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("Ctrl+1") << int(Qt::Key_1) << true << u"A"_s;
        QTest::newRow("2") << int(Qt::Key_2) << false << u"B & C"_s;
        QTest::newRow("a digit without a line") << int(Qt::Key_3) << true << QString();
    }
    void recentWorkByItsDigit() {
        QFETCH(int, key);
        QFETCH(bool, withControl);
        Fixture fixture;
        fixture.recent = {{.items = {u"A"_s}, .notes = {}}, {.items = {u"B & C"_s}, .notes = {}}};
        QString chosen;
        connect(&fixture.bar->Recent(), &CRecentMenu::Chosen, this,
                [&chosen](const Work& work) { chosen = WorkWords(work); });
        fixture.bar->Recent().popup(fixture.window.mapToGlobal(QPoint(0, 0)));
        QCOMPARE(fixture.bar->Recent().actions()[1]->text(), u"B && C\tCtrl+2"_s);
        QTest::keyClick(&fixture.bar->Recent(), static_cast<Qt::Key>(key),
                        withControl ? Qt::ControlModifier : Qt::NoModifier);
        QTEST(chosen, "chosen");
        QCOMPARE(fixture.bar->Recent().isVisible(), chosen.isEmpty());
    }

    void nothingRecent() {
        Fixture fixture;
        fixture.bar->Recent().Fill();
        QCOMPARE(fixture.bar->Recent().actions().size(), 1);
        QVERIFY(!fixture.bar->Recent().actions().front()->isEnabled());
        fixture.recent.resize(20, {.items = {u"A"_s}, .notes = {}});
        fixture.bar->Recent().Fill();
        QCOMPARE(fixture.bar->Recent().actions().size(), 9);
    }

    /// Long words give way to the buttons.
    void fitsANarrowWindow() {
        Fixture fixture;
        fixture.bar->ShowWorks(
            {Timed(u"1"_s, u"A client with a very long name "_s.repeated(8)), Timed(u"2"_s, u"B"_s)});
        QVERIFY2(fixture.bar->minimumSizeHint().width() <= 460,
                 qPrintable(QString::number(fixture.bar->minimumSizeHint().width())));
    }
};

TEST_CLASS(TestCWorkBar);
#include "TestCWorkBar.moc"
