#include "shell/program/AccessibleRoles.h"

#include "lang/LoadText.h"
#include "shell/options/COptionsDialog.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QAccessible>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSizeGrip>
#include <QSplitter>
#include <QTest>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

QAccessible::Role RoleOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->role();
}

/// The options as a screen reader finds them.
struct Fixture {
    TestHome home;
    COptionsDialog dialog{*home.settings};
    QTreeView& view = *dialog.findChild<QTreeView*>(u"optionsTree"_s);
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&view);

    Fixture() {
        dialog.show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(&dialog)); }();
    }
    /// The first cell of a role with a name; null without one.
    [[nodiscard]] QAccessibleInterface* Cell(QAccessible::Role role, const QString& name) const {
        for (int i = 0; i < tree->childCount(); ++i) {
            QAccessibleInterface* child = tree->child(i);
            if (child && child->role() == role && child->text(QAccessible::Name) == name) return child;
        }
        return nullptr;
    }
    static void Do(QAccessibleInterface* cell, const QString& action) {
        cell->actionInterface()->doAction(action);
        QCoreApplication::processEvents();
    }
};

}  // namespace

/// What screen readers find where Qt has no answer or a poor one.
class TestAccessibleRoles final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        InstallAccessibleRoles();
    }

    void partsOfAWindow() {
        QSplitter splitter;
        splitter.addWidget(new QWidget);
        splitter.addWidget(new QWidget);
        QCOMPARE(RoleOf(*splitter.handle(1)), QAccessible::Separator);
        QFrame line;
        line.setFrameShape(QFrame::VLine);
        QCOMPARE(RoleOf(line), QAccessible::Separator);
        QWidget window;
        QSizeGrip grip(&window);
        QCOMPARE(RoleOf(grip), QAccessible::Client);
    }

    void whatQtKnowsIsLeftToIt() {
        QFrame box;
        box.setFrameShape(QFrame::StyledPanel);
        QCOMPARE(RoleOf(box), QAccessible::Border);
        QLabel label;
        label.setFrameShape(QFrame::HLine);
        QCOMPARE(RoleOf(label), QAccessible::StaticText);
        QTreeView tree;
        QCOMPARE(RoleOf(tree), QAccessible::Tree);
    }

    void optionsAreWhatTheyLookLike() {
        const Fixture fixture;
        QCOMPARE(fixture.tree->role(), QAccessible::Tree);
        QVERIFY(fixture.Cell(QAccessible::TreeItem, u"Confirmation dialogs"_s)->state().expanded);
        QAccessibleInterface* box = fixture.Cell(QAccessible::CheckBox, u"Delete"_s);
        QVERIFY(box->state().checkable && box->state().checked && box->state().focusable);
        const QAccessible::State other = fixture.Cell(QAccessible::CheckBox, u"Add list item"_s)->state();
        QVERIFY(other.checkable && !other.checked);
        QVERIFY(fixture.Cell(QAccessible::RadioButton, u"Ask me"_s)->state().checked);
        QVERIFY(!fixture.Cell(QAccessible::RadioButton, u"Do nothing"_s)->state().checked);
        // A value says what it is the value of.
        QVERIFY(fixture.Cell(QAccessible::Cell, u"Amounts: 2 decimal places"_s));
        QVERIFY(fixture.Cell(QAccessible::Cell, u"Last end value: -1"_s));
    }

    void everyCellHasAName() {
        const Fixture fixture;
        int cells = 0;
        for (int i = 0; i < fixture.tree->childCount(); ++i) {
            QAccessibleInterface* cell = fixture.tree->child(i);
            if (!cell) continue;
            ++cells;
            QVERIFY2(!cell->text(QAccessible::Name).isEmpty(), qPrintable(QString::number(i)));
            QCOMPARE(fixture.tree->indexOfChild(cell), i);
            QCOMPARE(cell->parent(), fixture.tree);
            QCOMPARE(fixture.tree->child(i), cell);
        }
        QCOMPARE(cells, 2 * 76);
    }

    void aCheckBoxIsToggledAndKept() {
        const Fixture fixture;
        QAccessibleInterface* box = fixture.Cell(QAccessible::CheckBox, u"Delete"_s);
        Fixture::Do(box, QAccessibleActionInterface::toggleAction());
        QVERIFY(!box->state().checked);
        QVERIFY(fixture.home.settings->confirmDelete);
        fixture.dialog.findChild<QPushButton*>(u"acceptButton"_s)->click();
        QVERIFY(!fixture.home.settings->confirmDelete);
    }

    void aRadioButtonIsPressed() {
        const Fixture fixture;
        QAccessibleInterface* button = fixture.Cell(QAccessible::RadioButton, u"Do nothing"_s);
        Fixture::Do(button, QAccessibleActionInterface::pressAction());
        QVERIFY(button->state().checked);
        QVERIFY(!fixture.Cell(QAccessible::RadioButton, u"Ask me"_s)->state().checked);
    }

    void aValueOpensItsEditor() {
        const Fixture fixture;
        Fixture::Do(fixture.Cell(QAccessible::Cell, u"Amounts: 2 decimal places"_s),
                    QAccessibleActionInterface::pressAction());
        auto* editor = fixture.dialog.findChild<QComboBox*>(u"precisionAmount"_s);
        QVERIFY(editor);
        QCOMPARE(editor->accessibleName(), u"Amounts"_s);
    }

    void aGroupCanOnlyHaveTheFocus() {
        const Fixture fixture;
        QAccessibleInterface* group = fixture.Cell(QAccessible::TreeItem, u"Functionality"_s);
        const QString focus = QAccessibleActionInterface::setFocusAction();
        QCOMPARE(group->actionInterface()->actionNames(), QStringList{focus});
        Fixture::Do(group, QAccessibleActionInterface::toggleAction());
        Fixture::Do(group, focus);
        QVERIFY(fixture.view.hasFocus());
        QVERIFY(group->state().focused);
        QCOMPARE(fixture.tree->focusChild(), group);
        QCOMPARE(fixture.view.currentIndex().data().toString(), u"Functionality"_s);
    }

    void aSearchLeavesWhatItFinds() {
        const Fixture fixture;
        QAccessibleInterface* gone = fixture.Cell(QAccessible::CheckBox, u"Delete"_s);
        auto* search = fixture.dialog.findChild<QLineEdit*>(u"optionsSearch"_s);
        search->setText(u"round"_s);
        QVERIFY(!gone->isValid());
        QVERIFY(!fixture.Cell(QAccessible::CheckBox, u"Delete"_s));
        QVERIFY(fixture.Cell(QAccessible::TreeItem, u"Rounding"_s));
        search->setText(QString());
        QVERIFY(fixture.Cell(QAccessible::CheckBox, u"Delete"_s)->state().checked);
    }
};

TEST_CLASS(TestAccessibleRoles);
#include "TestAccessibleRoles.moc"
