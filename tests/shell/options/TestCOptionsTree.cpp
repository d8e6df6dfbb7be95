#include "shell/options/COptionsTree.h"

#include "shell/options/COptionsDialog.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

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
    struct Fixture {
        TestHome home;
        COptionsDialog dialog{*home.settings};
        COptionsTree* tree = dialog.findChild<COptionsTree*>(QStringLiteral("optionsTree"));

        Fixture() {
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
        const Fixture fixture;
        fixture.SelectEndMinutes();
        QTest::keyClick(fixture.tree, Qt::Key_1);
        QVERIFY(fixture.EndMinutes()->hasFocus());
        QTest::keyClick(fixture.EndMinutes(), Qt::Key_5);
        QCOMPARE(fixture.EndMinutes()->text(), QStringLiteral("15"));
        fixture.SelectCopy();
        fixture.tree->setFocus();
        QTest::keyClick(fixture.tree, Qt::Key_1);  // nothing to enter there
        QVERIFY(fixture.tree->hasFocus());
    }

    void TheSelectedRowHasItsEditorBesideItsWords() {
        const Fixture fixture;
        fixture.SelectEndMinutes();
        QVERIFY(fixture.EndMinutes());
        QVERIFY(fixture.EndMinutes()->isVisible());
        const QRect words = fixture.tree->visualRect(fixture.tree->currentIndex());
        QVERIFY(fixture.EndMinutes()->x() >= words.right());
        QCOMPARE(fixture.EndMinutes()->font(), fixture.tree->font());
        QCOMPARE(fixture.EndMinutes()->value(), 0);
        QVERIFY(!fixture.EndMinutes()->findChild<QLineEdit*>()->hasSelectedText());
        fixture.SelectFirstDay();
        QVERIFY(fixture.FirstDay());
        QCOMPARE(fixture.FirstDay()->currentText(), QStringLiteral("Sunday"));
        Fixture::Tidy();
        QVERIFY(!fixture.EndMinutes());
        fixture.SelectCopy();
        Fixture::Tidy();
        QVERIFY(!fixture.FirstDay());
    }

    void ThePassingKeyboardStaysInTheTree() {
        const Fixture fixture;
        fixture.SelectFirstDay();
        QVERIFY(fixture.tree->hasFocus());
        QTest::keyClick(fixture.tree, Qt::Key_Down);
        QCOMPARE(fixture.tree->currentIndex().data().toString(), QStringLiteral("Timespan display format"));
        QCOMPARE(fixture.home.settings->firstDayOfWeek, 0);
    }

    void EnterTheEditor_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"Space", "F2", "Tab", "click"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }
    void EnterTheEditor() {
        QFETCH(QString, way);
        const Fixture fixture;
        fixture.SelectEndMinutes();
        if (way == QStringLiteral("click")) {
            const QPoint at = fixture.tree->visualRect(fixture.tree->currentIndex()).center();
            QTest::mouseClick(fixture.tree->viewport(), Qt::LeftButton, {}, at);
        } else {
            QTest::keySequence(fixture.tree, QKeySequence(way));
        }
        QCoreApplication::processEvents();
        QVERIFY(fixture.EndMinutes());
        QVERIFY(fixture.EndMinutes()->hasFocus());
        QTest::keyClicks(fixture.EndMinutes(), QStringLiteral("45"));
        QCOMPARE(fixture.EndMinutes()->value(), 45);
    }

    void WhatIsTypedGoesToTheRowWhenAnotherIsSelected() {
        Fixture fixture;
        fixture.SelectEndMinutes();
        fixture.EndMinutes()->setFocus();
        fixture.EndMinutes()->selectAll();
        QTest::keyClicks(fixture.EndMinutes(), QStringLiteral("15"));
        fixture.SelectCopy();
        fixture.SelectEndMinutes();
        QCOMPARE(fixture.Value(), QStringLiteral("15"));
        fixture.dialog.accept();
        QCOMPARE(fixture.home.settings->roundEndMinutes, 15);
    }

    void ScrollingHandsTheValueOverAndTakesTheEditorAway() {
        Fixture fixture;
        fixture.dialog.resize(400, 300);
        fixture.SelectEndMinutes();
        fixture.EndMinutes()->setFocus();
        fixture.EndMinutes()->selectAll();
        QTest::keyClicks(fixture.EndMinutes(), QStringLiteral("20"));
        fixture.tree->verticalScrollBar()->setValue(0);
        Fixture::Tidy();
        QVERIFY(!fixture.EndMinutes());
        QCOMPARE(fixture.Value(), QStringLiteral("20"));
        QVERIFY(fixture.tree->hasFocus());
        // The row is still the selected one, and Space brings its editor again.
        QTest::keyClick(fixture.tree, Qt::Key_Space);
        QCoreApplication::processEvents();
        QVERIFY(fixture.EndMinutes());
        QCOMPARE(fixture.EndMinutes()->value(), 20);
    }

    void EscapeTakesBackWhatWasTyped() {
        Fixture fixture;
        fixture.SelectEndMinutes();
        fixture.EndMinutes()->setFocus();
        fixture.EndMinutes()->selectAll();
        QTest::keyClicks(fixture.EndMinutes(), QStringLiteral("25"));
        QTest::keyClick(fixture.EndMinutes(), Qt::Key_Escape);
        QVERIFY(fixture.dialog.isVisible());
        QVERIFY(fixture.tree->hasFocus());
        QCOMPARE(fixture.EndMinutes()->value(), 0);
        fixture.dialog.accept();
        QCOMPARE(fixture.home.settings->roundEndMinutes, 0);
    }

    void ReturnInAnEditorAcceptsTheDialogWithItsValue() {
        Fixture fixture;
        fixture.SelectEndMinutes();
        fixture.EndMinutes()->setFocus();
        fixture.EndMinutes()->selectAll();
        QTest::keyClicks(fixture.EndMinutes(), QStringLiteral("30"));
        QTest::keyClick(fixture.EndMinutes(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(fixture.dialog.result(), int(QDialog::Accepted));
        QCOMPARE(fixture.home.settings->roundEndMinutes, 30);
    }

    void TheWheelOverAnEditorChangesNothing() {
        Fixture fixture;
        fixture.SelectFirstDay();
        const QPointF at = fixture.FirstDay()->rect().center();
        QWheelEvent wheel(at, fixture.FirstDay()->mapToGlobal(at), {}, QPoint(0, -120), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(fixture.FirstDay(), &wheel);
        fixture.dialog.accept();
        QCOMPARE(fixture.home.settings->firstDayOfWeek, 0);
    }

    void ASearchHandsTheValueOver() {
        Fixture fixture;
        fixture.SelectEndMinutes();
        fixture.EndMinutes()->setFocus();
        fixture.EndMinutes()->selectAll();
        QTest::keyClicks(fixture.EndMinutes(), QStringLiteral("10"));
        auto* search = fixture.dialog.findChild<QLineEdit*>(QStringLiteral("optionsSearch"));
        search->setText(QStringLiteral("copy"));
        QCoreApplication::processEvents();
        search->clear();
        fixture.SelectEndMinutes();
        QCOMPARE(fixture.Value(), QStringLiteral("10"));
    }
};

TEST_CLASS(TestCOptionsTree);
#include "TestCOptionsTree.moc"
