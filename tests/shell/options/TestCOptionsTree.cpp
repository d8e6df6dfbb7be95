#include "shell/options/COptionsTree.h"

#include "shell/options/COptionsDialog.h"
#include "support/TestHome.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <QtTest>

/// The editors of the options' values: when they come, when they go, and what becomes of what is in them.
class TestCOptionsTree : public QObject {
    Q_OBJECT

 private:
    /// A dialog of options in front.
    struct Scene {
        TestHome home;
        COptionsDialog dialog{*home.settings};
        COptionsTree* tree = dialog.findChild<COptionsTree*>(QStringLiteral("optionsTree"));

        Scene() {
            dialog.show();
            [&] { QVERIFY(QTest::qWaitForWindowActive(&dialog)); }();
            tree->setFocus();
        }
        /// The row of a setting, found by the words below one another.
        void Select(const QStringList& path) const {
            QModelIndex at;
            for (const QString& words : path) {
                const auto found = tree->model()->match(tree->model()->index(0, 0, at), Qt::DisplayRole,
                                                        words, 1, Qt::MatchExactly);
                if (found.isEmpty()) qFatal("no row %s", qPrintable(words));
                at = found.front();
            }
            tree->setCurrentIndex(at);
            QCoreApplication::processEvents();
        }
        void SelectEndMinutes() const {
            Select({QStringLiteral("Preferences, formatting"), QStringLiteral("Rounding"),
                    QStringLiteral("End time"), QStringLiteral("Minutes")});
        }
        void SelectFirstDay() const {
            Select({QStringLiteral("Preferences, formatting"), QStringLiteral("First day of week")});
        }
        void SelectCopy() const { Select({QStringLiteral("Confirmation dialogs"), QStringLiteral("Copy")}); }
        [[nodiscard]] QSpinBox* EndMinutes() const {
            return dialog.findChild<QSpinBox*>(QStringLiteral("roundEndMinutes"));
        }
        [[nodiscard]] QComboBox* FirstDay() const {
            return dialog.findChild<QComboBox*>(QStringLiteral("firstDayOfWeek"));
        }
        /// What the row in front shows beside its words.
        [[nodiscard]] QString Value() const {
            return tree->currentIndex().siblingAtColumn(1).data().toString();
        }
        /// Editors that went are gone for good.
        static void Tidy() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    };

 private Q_SLOTS:
    void ADigitGoesToTheNumberOfTheRow() {
        const Scene scene;
        scene.SelectEndMinutes();
        QTest::keyClick(scene.tree, Qt::Key_1);
        QVERIFY(scene.EndMinutes()->hasFocus());
        QTest::keyClick(scene.EndMinutes(), Qt::Key_5);
        QCOMPARE(scene.EndMinutes()->text(), QStringLiteral("15"));
        scene.SelectCopy();
        scene.tree->setFocus();
        QTest::keyClick(scene.tree, Qt::Key_1);  // nothing to enter there
        QVERIFY(scene.tree->hasFocus());
    }

    void TheSelectedRowHasItsEditorBesideItsWords() {
        const Scene scene;
        scene.SelectEndMinutes();
        QVERIFY(scene.EndMinutes());
        QVERIFY(scene.EndMinutes()->isVisible());
        const QRect words = scene.tree->visualRect(scene.tree->currentIndex());
        QVERIFY(scene.EndMinutes()->x() >= words.right());
        QCOMPARE(scene.EndMinutes()->font(), scene.tree->font());
        QCOMPARE(scene.EndMinutes()->value(), 0);
        QVERIFY(!scene.EndMinutes()->findChild<QLineEdit*>()->hasSelectedText());
        scene.SelectFirstDay();
        QVERIFY(scene.FirstDay());
        QCOMPARE(scene.FirstDay()->currentText(), QStringLiteral("Sunday"));
        Scene::Tidy();
        QVERIFY(!scene.EndMinutes());
        scene.SelectCopy();
        Scene::Tidy();
        QVERIFY(!scene.FirstDay());
    }

    void ThePassingKeyboardStaysInTheTree() {
        const Scene scene;
        scene.SelectFirstDay();
        QVERIFY(scene.tree->hasFocus());
        QTest::keyClick(scene.tree, Qt::Key_Down);
        QCOMPARE(scene.tree->currentIndex().data().toString(), QStringLiteral("Timespan display format"));
        QCOMPARE(scene.home.settings->firstDayOfWeek, 0);
    }

    void EnterTheEditor_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"Space", "F2", "Tab", "click"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }
    void EnterTheEditor() {
        QFETCH(QString, way);
        const Scene scene;
        scene.SelectEndMinutes();
        if (way == QStringLiteral("click")) {
            const QPoint at = scene.tree->visualRect(scene.tree->currentIndex()).center();
            QTest::mouseClick(scene.tree->viewport(), Qt::LeftButton, {}, at);
        } else {
            QTest::keySequence(scene.tree, QKeySequence(way));
        }
        QCoreApplication::processEvents();
        QVERIFY(scene.EndMinutes());
        QVERIFY(scene.EndMinutes()->hasFocus());
        QTest::keyClicks(scene.EndMinutes(), QStringLiteral("45"));
        QCOMPARE(scene.EndMinutes()->value(), 45);
    }

    void WhatIsTypedGoesToTheRowWhenAnotherIsSelected() {
        Scene scene;
        scene.SelectEndMinutes();
        scene.EndMinutes()->setFocus();
        scene.EndMinutes()->selectAll();
        QTest::keyClicks(scene.EndMinutes(), QStringLiteral("15"));
        scene.SelectCopy();
        scene.SelectEndMinutes();
        QCOMPARE(scene.Value(), QStringLiteral("15"));
        scene.dialog.accept();
        QCOMPARE(scene.home.settings->roundEndMinutes, 15);
    }

    void ScrollingHandsTheValueOverAndTakesTheEditorAway() {
        Scene scene;
        scene.dialog.resize(400, 300);
        scene.SelectEndMinutes();
        scene.EndMinutes()->setFocus();
        scene.EndMinutes()->selectAll();
        QTest::keyClicks(scene.EndMinutes(), QStringLiteral("20"));
        scene.tree->verticalScrollBar()->setValue(0);
        Scene::Tidy();
        QVERIFY(!scene.EndMinutes());
        QCOMPARE(scene.Value(), QStringLiteral("20"));
        QVERIFY(scene.tree->hasFocus());
        // The row is still the selected one, and Space brings its editor again.
        QTest::keyClick(scene.tree, Qt::Key_Space);
        QCoreApplication::processEvents();
        QVERIFY(scene.EndMinutes());
        QCOMPARE(scene.EndMinutes()->value(), 20);
    }

    void EscapeTakesBackWhatWasTyped() {
        Scene scene;
        scene.SelectEndMinutes();
        scene.EndMinutes()->setFocus();
        scene.EndMinutes()->selectAll();
        QTest::keyClicks(scene.EndMinutes(), QStringLiteral("25"));
        QTest::keyClick(scene.EndMinutes(), Qt::Key_Escape);
        QVERIFY(scene.dialog.isVisible());
        QVERIFY(scene.tree->hasFocus());
        QCOMPARE(scene.EndMinutes()->value(), 0);
        scene.dialog.accept();
        QCOMPARE(scene.home.settings->roundEndMinutes, 0);
    }

    void ReturnInAnEditorAcceptsTheDialogWithItsValue() {
        Scene scene;
        scene.SelectEndMinutes();
        scene.EndMinutes()->setFocus();
        scene.EndMinutes()->selectAll();
        QTest::keyClicks(scene.EndMinutes(), QStringLiteral("30"));
        QTest::keyClick(scene.EndMinutes(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(scene.dialog.result(), int(QDialog::Accepted));
        QCOMPARE(scene.home.settings->roundEndMinutes, 30);
    }

    void TheWheelOverAnEditorChangesNothing() {
        Scene scene;
        scene.SelectFirstDay();
        const QPointF at = scene.FirstDay()->rect().center();
        QWheelEvent wheel(at, scene.FirstDay()->mapToGlobal(at), {}, QPoint(0, -120), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(scene.FirstDay(), &wheel);
        scene.dialog.accept();
        QCOMPARE(scene.home.settings->firstDayOfWeek, 0);
    }

    void ASearchHandsTheValueOver() {
        Scene scene;
        scene.SelectEndMinutes();
        scene.EndMinutes()->setFocus();
        scene.EndMinutes()->selectAll();
        QTest::keyClicks(scene.EndMinutes(), QStringLiteral("10"));
        auto* search = scene.dialog.findChild<QLineEdit*>(QStringLiteral("optionsSearch"));
        search->setText(QStringLiteral("copy"));
        QCoreApplication::processEvents();
        search->clear();
        scene.SelectEndMinutes();
        QCOMPARE(scene.Value(), QStringLiteral("10"));
    }
};

QTEST_MAIN(TestCOptionsTree)
#include "TestCOptionsTree.moc"
