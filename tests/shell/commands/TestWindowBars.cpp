#include "lang/LoadText.h"
#include "shell/frame/FrameHome.h"
#include "shell/look/IconTheme.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/BarButtons.h"

#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

/// The tool bars in windows of different widths.
class TestWindowBars : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
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

    /// Each bar takes the rows it needs: no button is behind an arrow.
    void barsWrapTheirRows() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.frame->resize(480, 360);
        const auto hidden = [&window](const QString& name) {
            qsizetype count = 0;
            for (const QWidget* widget : window.frame->findChildren<QToolButton*>())
                // The bar of a report is there while one is shown.
                count += widget->parentWidget()->isVisible() && widget->objectName().startsWith(name) &&
                                 widget->isHidden()
                             ? 1
                             : 0;
            return count;
        };
        QTRY_VERIFY(window.Find<QToolBar>("toolBar101.2")->isVisible());
        QTRY_COMPARE(hidden(u"button"_s), 0);
        for (const QToolBar* bar : window.frame->findChildren<QToolBar*>())
            QVERIFY2(!bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s)->isVisible(),
                     qPrintable(bar->objectName()));
        window.frame->RunCommand(Command::kToggleBar1);
        QVERIFY(!window.Find<QToolBar>("toolBar101.2")->isVisible());
        window.frame->RunCommand(Command::kToggleBar1);
        QVERIFY(window.Find<QToolBar>("toolBar101.2")->isVisible());
        window.frame->resize(1500, 700);
        QTRY_VERIFY(!window.frame->findChild<QToolBar*>(u"toolBar101.2"_s));
        QTRY_COMPARE(window.Find<QToolBar>("toolBar102")->y(), window.Find<QToolBar>("toolBar101")->y());
        QTRY_COMPARE(hidden(u"button"_s), 0);
    }

    /// Few buttons stand in one row, the main ones with words, which go before a second row is begun.
    void fewButtonsInOneRow() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        CCommandBars& bars = window.frame->findChild<CActions*>()->Bars();
        for (const Bar bar : {Bar::Records, Bar::Filters}) bars.SetButtons(bar, FewButtons(bar));
        const auto saysWords = [&window](int command) {
            const auto* button = window.frame->findChild<QToolButton*>(u"button%1"_s.arg(command));
            return button && button->toolButtonStyle() == Qt::ToolButtonTextBesideIcon;
        };
        const auto hasOneRow = [&window] {
            return window.Find<QToolBar>("toolBar102")->y() == window.Find<QToolBar>("toolBar101")->y() &&
                   !window.frame->findChild<QToolBar*>(u"toolBar101.2"_s);
        };
        window.frame->resize(900, 600);
        QTRY_COMPARE(window.frame->width(), 900);
        QTRY_VERIFY(hasOneRow());
        for (const int command :
             {Command::kNew, Command::kNewStampTimer, Command::kFilterDialog, Command::kFind})
            QVERIFY2(saysWords(command), qPrintable(QString::number(command)));
        QVERIFY(!saysWords(Command::kEdit));
        QCOMPARE(window.Find<QToolButton>("button40147")->text(), u"New"_s);
        window.frame->resize(560, 400);
        QTRY_VERIFY(!saysWords(Command::kNew));
        QTRY_VERIFY(hasOneRow());
        window.frame->resize(900, 600);
        QTRY_VERIFY(saysWords(Command::kNew));
        QTRY_VERIFY(hasOneRow());
    }

    /// A filter that the records of the mode can't have needs no button.
    void filtersOfTheMode() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        const auto onBar = [&window] {
            QList<int> commands;
            for (const QAction* action : window.Find<QToolBar>("toolBar102")->actions())
                if (const int command = action->objectName().mid(7).section(u'.', 0, 0).toInt())
                    commands << command;
            return commands;
        };
        window.frame->resize(1600, 700);
        QTRY_COMPARE(window.frame->width(), 1600);
        QCOMPARE(onBar(),
                 (QList<int>{32844, 32845, 32810, 32851, 32804, 32805, 32806, 32807, 32832, 32833, 32837}));
        window.frame->SwitchMode(RecordMode::Expense);
        QCOMPARE(onBar(), (QList<int>{32844, 32845, 32810, 32804, 32805, 32808, 32809, 32832, 32833, 32834,
                                      32835, 32836, 32837}));
        window.frame->SwitchMode(RecordMode::Time);
        QVERIFY(onBar().contains(32806));
        // What was chosen for the bar is all there still.
        QCOMPARE(window.frame->findChild<CActions*>()->Bars().Buttons(Bar::Filters),
                 FactoryButtons(Bar::Filters));
    }
};

TEST_CLASS(TestWindowBars);
#include "TestWindowBars.moc"
