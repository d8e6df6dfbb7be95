#include "lang/LoadText.h"
#include "shell/frame/FrameHome.h"
#include "shell/look/IconTheme.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

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
};

TEST_CLASS(TestWindowBars);
#include "TestWindowBars.moc"
