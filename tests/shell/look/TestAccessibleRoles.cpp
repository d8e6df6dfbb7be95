#include "shell/look/AccessibleRoles.h"

#include "lang/LoadText.h"
#include "shell/options/COptionsDialog.h"
#include "support/TestHome.h"

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
struct Scene {
    TestHome home;
    COptionsDialog dialog{*home.settings};
    QTreeView& view = *dialog.findChild<QTreeView*>(u"optionsTree"_s);
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(&view);

    Scene() {
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
        const Scene scene;
        QCOMPARE(scene.tree->role(), QAccessible::Tree);
        QVERIFY(scene.Cell(QAccessible::TreeItem, u"Confirmation dialogs"_s)->state().expanded);
        QAccessibleInterface* box = scene.Cell(QAccessible::CheckBox, u"Delete"_s);
        QVERIFY(box->state().checkable && box->state().checked && box->state().focusable);
        const QAccessible::State other = scene.Cell(QAccessible::CheckBox, u"Add list item"_s)->state();
        QVERIFY(other.checkable && !other.checked);
        QVERIFY(scene.Cell(QAccessible::RadioButton, u"Ask me"_s)->state().checked);
        QVERIFY(!scene.Cell(QAccessible::RadioButton, u"Do nothing"_s)->state().checked);
        // A value says what it is the value of.
        QVERIFY(scene.Cell(QAccessible::Cell, u"Amounts: 2 decimal places"_s));
        QVERIFY(scene.Cell(QAccessible::Cell, u"Last end value: -1"_s));
    }

    void everyCellHasAName() {
        const Scene scene;
        int cells = 0;
        for (int i = 0; i < scene.tree->childCount(); ++i) {
            QAccessibleInterface* cell = scene.tree->child(i);
            if (!cell) continue;
            ++cells;
            QVERIFY2(!cell->text(QAccessible::Name).isEmpty(), qPrintable(QString::number(i)));
            QCOMPARE(scene.tree->indexOfChild(cell), i);
            QCOMPARE(cell->parent(), scene.tree);
            QCOMPARE(scene.tree->child(i), cell);
        }
        QCOMPARE(cells, 2 * 72);
    }

    void aCheckBoxIsToggledAndKept() {
        const Scene scene;
        QAccessibleInterface* box = scene.Cell(QAccessible::CheckBox, u"Delete"_s);
        Scene::Do(box, QAccessibleActionInterface::toggleAction());
        QVERIFY(!box->state().checked);
        QVERIFY(scene.home.settings->confirmDelete);
        scene.dialog.findChild<QPushButton*>(u"acceptButton"_s)->click();
        QVERIFY(!scene.home.settings->confirmDelete);
    }

    void aRadioButtonIsPressed() {
        const Scene scene;
        QAccessibleInterface* button = scene.Cell(QAccessible::RadioButton, u"Do nothing"_s);
        Scene::Do(button, QAccessibleActionInterface::pressAction());
        QVERIFY(button->state().checked);
        QVERIFY(!scene.Cell(QAccessible::RadioButton, u"Ask me"_s)->state().checked);
    }

    void aValueOpensItsEditor() {
        const Scene scene;
        Scene::Do(scene.Cell(QAccessible::Cell, u"Amounts: 2 decimal places"_s),
                  QAccessibleActionInterface::pressAction());
        auto* editor = scene.dialog.findChild<QComboBox*>(u"precisionAmount"_s);
        QVERIFY(editor);
        QCOMPARE(editor->accessibleName(), u"Amounts"_s);
    }

    void aGroupCanOnlyHaveTheFocus() {
        const Scene scene;
        QAccessibleInterface* group = scene.Cell(QAccessible::TreeItem, u"Functionality"_s);
        const QString focus = QAccessibleActionInterface::setFocusAction();
        QCOMPARE(group->actionInterface()->actionNames(), QStringList{focus});
        Scene::Do(group, QAccessibleActionInterface::toggleAction());
        Scene::Do(group, focus);
        QVERIFY(scene.view.hasFocus());
        QVERIFY(group->state().focused);
        QCOMPARE(scene.tree->focusChild(), group);
        QCOMPARE(scene.view.currentIndex().data().toString(), u"Functionality"_s);
    }

    void aSearchLeavesWhatItFinds() {
        const Scene scene;
        QAccessibleInterface* gone = scene.Cell(QAccessible::CheckBox, u"Delete"_s);
        auto* search = scene.dialog.findChild<QLineEdit*>(u"optionsSearch"_s);
        search->setText(u"round"_s);
        QVERIFY(!gone->isValid());
        QVERIFY(!scene.Cell(QAccessible::CheckBox, u"Delete"_s));
        QVERIFY(scene.Cell(QAccessible::TreeItem, u"Rounding"_s));
        search->setText(QString());
        QVERIFY(scene.Cell(QAccessible::CheckBox, u"Delete"_s)->state().checked);
    }
};

QTEST_MAIN(TestAccessibleRoles)
#include "TestAccessibleRoles.moc"
