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
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

/// The data tree in the frame: where it stands, what the keyboard does, what a new record takes from it.
class TestFrameTree final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
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

    /// What is kept is that the tree is wanted, not that somebody asked for it in a narrow window.
    void aNarrowWindowComesUpWithoutTheTree() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            window.frame->resize(500, 400);
            QTRY_VERIFY(window.Find<QWidget>("dataTree")->isHidden());
        }
        Window again(folder.path());
        again.frame->Refresh();
        auto* tree = again.Find<QWidget>("dataTree");
        QTRY_COMPARE(again.frame->width(), 500);
        QVERIFY(tree->isHidden());
        again.frame->resize(1000, 700);
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
        // A node goes on being selected while the tree is hidden.
        window.frame->RunCommand(32771);
        QVERIFY(tree->isHidden());
        QVERIFY(window.Offers(32861) && window.Offers(32862) && window.Offers(32863));
        window.frame->RunCommand(32861);
        QCOMPARE(window.Rows(), 3);
    }

    void nextPaneGoesToTheTreeAndBack() {
        QTemporaryDir folder;
        Window window(folder.path());
        window.frame->Refresh();
        window.Add(19);
        window.List().setFocus();
        QTest::keyClick(window.frame.get(), Qt::Key_F6);
        QVERIFY(window.Find<CDataTreeView>("dataTree")->hasFocus());
        QTest::keyClick(window.frame.get(), Qt::Key_F6);
        QVERIFY(window.List().hasFocus());
    }
};

TEST_CLASS(TestFrameTree);
#include "TestFrameTree.moc"
