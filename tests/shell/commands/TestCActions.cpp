#include "shell/commands/CActions.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "shell/commands/CPeriodButton.h"
#include "shell/look/IconTheme.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/BarButtons.h"
#include "viewmodel/commands/MenuTable.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

CommandState Everything(bool timeMode = true) {
    CommandState state;
    state.timeMode = timeMode;
    state.selected = 1;
    state.listed = 3;
    state.treeShown = true;
    return state;
}

/// Menus, bars and keys in a window of their own.
struct Fixture {
    QMainWindow window;
    CActions actions{window};
    Fixture() {
        actions.Update(Everything());
        window.resize(1600, 400);
        window.show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(&window)); }();
    }
    [[nodiscard]] QMenu& Of(Menu menu) const {
        return *window.findChild<QMenu*>(u"menu%1"_s.arg(static_cast<int>(menu)));
    }
    /// What stands on a bar: numbers of commands, | for dividing lines, P for the period.
    [[nodiscard]] static QString OnBar(const QToolBar& bar) {
        QStringList buttons;
        for (const QAction* action : bar.actions()) {
            const QWidget* widget = bar.widgetForAction(const_cast<QAction*>(action));
            buttons << (action->isSeparator()                       ? u"|"_s
                        : widget->objectName() == u"periodButton"_s ? u"P"_s
                                                                    : widget->objectName().mid(6));
        }
        return buttons.join(u' ');
    }
    [[nodiscard]] QToolButton* Button(int command) const {
        return window.findChild<QToolButton*>(u"button%1"_s.arg(command));
    }
};

QString Letters(const QMenu& menu) {
    QString letters;
    for (const QAction* action : menu.actions()) {
        const QString text = QString(action->text()).replace(u"&&"_s, u"  "_s);
        const qsizetype mark = text.indexOf(u'&');
        if (mark >= 0) letters += text[mark + 1].toUpper();
    }
    return letters;
}

}  // namespace

class TestCActions final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// Whatever the width, the same buttons stand in the same order, each once.
    void RowsKeepTheOrder() {
        Fixture fixture;
        const auto all = [&fixture] {
            QStringList buttons;
            for (const char* name : {"toolBar102", "toolBar102.2", "toolBar102.3"})
                if (const auto* bar = fixture.window.findChild<QToolBar*>(QString::fromLatin1(name)))
                    if (!bar->actions().isEmpty()) buttons << Fixture::OnBar(*bar);
            return buttons.join(u' ');
        };
        const QString inOne = all();
        fixture.actions.Bars().Wrap(400);
        QVERIFY(fixture.actions.Bars().RowsOf(Bar::Filters) > 1);
        QCOMPARE(all(), inOne);
        fixture.actions.Bars().Wrap(250);
        QCOMPARE(all(), inOne);
        fixture.actions.Bars().Wrap(1600);
        QCOMPARE(fixture.actions.Bars().RowsOf(Bar::Filters), 1U);
        QCOMPARE(all(), inOne);
    }

    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void MenusInTheirOrder() {
        const Fixture fixture;
        QStringList captions;
        for (const QAction* action : fixture.window.menuBar()->actions())
            captions << action->text().remove(u'&');
        QCOMPARE(captions.join(u' '), u"Record View Period Filter Timer Lists Report Tools Help"_s);
    }

    /// Each menu, with the names of fields of both modes, and with names that all begin alike.
    void MnemonicsComeOnceInAMenu_data() {
        QTest::addColumn<bool>("timeMode");
        QTest::addColumn<QString>("name");
        QTest::newRow("time") << true << QString();
        QTest::newRow("expenses") << false << QString();
        QTest::newRow("names that begin alike") << true << u"Texts of %1"_s;
        QTest::newRow("the same name for all") << true << u"Remarks"_s;
        QTest::newRow("names with the sign of mnemonics") << true << u"R&D & more %1"_s;
    }
    void MnemonicsComeOnceInAMenu() {
        QFETCH(bool, timeMode);
        QFETCH(QString, name);
        FieldLabels labels;
        for (int field = 109; field <= 142 && !name.isEmpty(); ++field)
            labels.Set(field, name.contains(u'%') ? name.arg(field) : name);
        Fixture fixture;
        fixture.actions.ShowNamesOf(labels);
        fixture.actions.Update(Everything(timeMode));
        for (const MenuRow& row : MenuTable()) {
            const QString letters = Letters(fixture.Of(row.menu));
            const QSet<QChar> different(letters.begin(), letters.end());
            QVERIFY2(different.size() == letters.size(),
                     qPrintable(LoadText(row.caption) + u": "_s + letters));
        }
        // of fourteen entries most have one, of "Remarks" as many as it has letters
        QVERIFY(Letters(fixture.Of(Menu::Filter)).size() >= 9);
    }

    void FieldsByTheNamesOfTheUser() {
        FieldLabels labels;
        labels.Set(109, u"Customer & Co"_s);
        labels.Set(131, u"Payer"_s);
        labels.Set(118, u"Paid"_s);
        Fixture fixture;
        fixture.actions.ShowNamesOf(labels);
        fixture.actions.Update(Everything(true));
        const auto menuText = [&fixture](int command) {
            return fixture.actions.Action(command)->text().replace(u"&&"_s, u"+"_s).remove(u'&');
        };
        QCOMPARE(menuText(32804), u"Customer + Co"_s);
        QCOMPARE(menuText(40055), u"Paid"_s);
        QCOMPARE(menuText(32833), u"Paid"_s);
        QCOMPARE(menuText(32837), u"Exported"_s);
        QCOMPARE(fixture.Button(32804)->toolTip(), u"Customer & Co"_s);
        QCOMPARE(fixture.Button(40055)->accessibleName(), u"Mark as Paid"_s);
        fixture.actions.Update(Everything(false));
        QCOMPARE(menuText(32804), u"Payer"_s);
        QCOMPARE(menuText(40055), u"Billed"_s);
        QCOMPARE(fixture.Button(32804)->toolTip(), u"Payer"_s);
    }
    /// A field that was renamed meanwhile, and a state that has changed, show when the menu opens.
    void MenuAsksBeforeItOpens() {
        FieldLabels labels;
        CommandState state = Everything();
        Fixture fixture;
        fixture.actions.ShowNamesOf(labels);
        connect(&fixture.actions, &CActions::StateWanted, this,
                [&fixture, &state] { fixture.actions.Update(state); });
        labels.Set(110, u"Order"_s);
        state.treeHasNode = state.treeCanExpand = true;
        state.filters = {32805};
        QVERIFY(!fixture.actions.Action(40068)->isEnabled());
        Q_EMIT fixture.Of(Menu::Filter).aboutToShow();
        QCOMPARE(fixture.actions.Action(32805)->text().remove(u'&'), u"Order"_s);
        QVERIFY(fixture.actions.Action(32805)->isChecked());
        QVERIFY(!fixture.actions.Action(32804)->isChecked());
        QVERIFY(fixture.actions.Action(40068)->isEnabled());
    }

    /// One mode, one layout, one period: choices, of which each follows the state alone.
    void ChoicesFollowTheState() {
        Fixture fixture;
        CommandState state = Everything();
        state.preset = 4;
        state.listLayout = 3;
        fixture.actions.Update(state);
        const auto checked = [&fixture](int command) { return fixture.actions.Action(command)->isChecked(); };
        QVERIFY(checked(32801) && checked(32826) && checked(40011) && checked(32772));
        QVERIFY(fixture.actions.Action(32801)->actionGroup()->isExclusive());
        // chosen, but the state stays: the mark does so too
        fixture.actions.Action(32798)->trigger();
        fixture.actions.Update(state);
        QVERIFY(checked(32801) && !checked(32798));
        // large icons have the number of "last year": the period keeps its mark
        state.listLayout = 1;
        fixture.actions.Update(state);
        QVERIFY(checked(32823) && checked(32801) && !checked(32826));
        // a range chosen elsewhere is no row of the menu
        state.preset = 7;
        fixture.actions.Update(state);
        QVERIFY(!checked(32801));
        state.timeMode = false;
        fixture.actions.Update(state);
        QVERIFY(!checked(40011) && checked(40012));
    }

    void TipsAndStatus() {
        const Fixture fixture;
        QCOMPARE(fixture.Button(103)->toolTip(), u"Edit (Return)"_s);
        QCOMPARE(fixture.actions.Action(103)->statusTip(), u"Edit the selected record"_s);
        QCOMPARE(fixture.Button(102)->accessibleName(), u"Delete"_s);
        for (const CommandRow& row : CommandTable())
            QVERIFY2(!fixture.actions.Action(row.id)->statusTip().isEmpty(), row.name);
    }
    void MarkupInANameIsNoMarkup() {
        FieldLabels labels;
        labels.Set(109, u"<b>Bold</b>"_s);
        Fixture fixture;
        fixture.actions.ShowNamesOf(labels);
        fixture.actions.Update(Everything());
        QCOMPARE(fixture.Button(32804)->toolTip(), u"<span>&lt;b&gt;Bold&lt;/b&gt;</span>"_s);
    }

    void BarsAtFirst() {
        const Fixture fixture;
        QVERIFY(Fixture::OnBar(fixture.window.findChild<CActions*>()->Bars().Records())
                    .startsWith(u"40147 | 101 103"_s));
        QVERIFY(Fixture::OnBar(fixture.window.findChild<CActions*>()->Bars().Filters())
                    .startsWith(u"32844 P 32845 |"_s));
        QCOMPARE(fixture.Button(40147)->menu(), &fixture.Of(Menu::New));
        QCOMPARE(fixture.Button(40055)->menu(), &fixture.Of(Menu::Mark));
        QCOMPARE(fixture.Button(101)->menu(), nullptr);
    }
    void ChosenButtons_data() {
        QTest::addColumn<QList<int>>("buttons");
        QTest::addColumn<QString>("expected");
        QTest::newRow("period between its arrows")
            << QList<int>{32810, 32844, 32845} << "32810 32844 P 32845";
        QTest::newRow("arrows in another order") << QList<int>{32845, 32810, 32844} << "P 32845 32810 32844";
        QTest::newRow("back alone") << QList<int>{0, 32844, 32810} << "| 32844 P 32810";
        QTest::newRow("back alone at the end") << QList<int>{32810, 32844} << "32810 32844 P";
        QTest::newRow("no arrows") << QList<int>{32804, 0} << "P 32804 |";
        QTest::newRow("no buttons") << QList<int>{} << "P";
    }
    void ChosenButtons() {
        QFETCH(QList<int>, buttons);
        Fixture fixture;
        // once more and back: nothing comes twice, nothing is lost
        fixture.actions.Bars().SetButtons(Bar::Filters, buttons);
        fixture.actions.Bars().SetButtons(Bar::Filters, FactoryButtons(Bar::Filters));
        fixture.actions.Bars().SetButtons(Bar::Filters, buttons);
        QTEST(Fixture::OnBar(fixture.actions.Bars().Filters()), "expected");
        QCOMPARE(fixture.actions.Bars().Buttons(Bar::Filters), buttons);
        QTRY_VERIFY(fixture.actions.Bars().PeriodButton().isVisible());
    }
    void ButtonsWorkAfterTheChoice() {
        Fixture fixture;
        fixture.actions.Bars().SetButtons(Bar::Records, {102, 40147});
        QSignalSpy triggered(&fixture.actions, &CActions::Triggered);
        QTest::mouseClick(fixture.Button(102), Qt::LeftButton);
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(triggered.front().front().toInt(), 102);
        QCOMPARE(fixture.Button(40147)->menu(), &fixture.Of(Menu::New));
        QCOMPARE(fixture.Button(102)->accessibleName(), u"Delete"_s);
        // what has no button keeps its key
        QTest::keyClick(&fixture.window, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(triggered.back().front().toInt(), 101);
    }
    void EveryCommandHasAnIcon() {
        const Fixture fixture;
        for (const CommandRow& row : CommandTable())
            QVERIFY2(!QIcon::fromTheme(QString::fromLatin1(row.icon)).isNull(), row.icon);
    }
};

TEST_CLASS(TestCActions);
#include "TestCActions.moc"
