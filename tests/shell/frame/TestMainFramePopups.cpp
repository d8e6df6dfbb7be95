#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"
#include "shell/commands/CPeriodButton.h"
#include "shell/controls/CCalendarPopup.h"
#include "shell/frame/CMainFrame.h"
#include "shell/frame/FrameHome.h"
#include "shell/look/IconTheme.h"
#include "shell/tree/CDataTreeView.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Asks for the menu of a view at a place of it, with the right button or with the menu key.
void AskForMenu(QAbstractItemView& view, QContextMenuEvent::Reason reason, const QPoint& at) {
    QContextMenuEvent event(reason, at, view.viewport()->mapToGlobal(at));
    QApplication::sendEvent(view.viewport(), &event);
}

/// The menu on the screen, empty for none.
QMenu* OpenMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// What a menu offers, "-" for a line, in parentheses what can't be chosen now.
QStringList Offered(const QMenu& menu) {
    QStringList rows;
    for (const QAction* action : menu.actions()) {
        const QString text = action->text().remove(u'&');
        if (action->isSeparator())
            rows.append(u"-"_s);
        else
            rows.append(action->isEnabled() ? text : u'(' + text + u')');
    }
    return rows;
}

QAction* ActionOf(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions())
        if (action->text().remove(u'&') == text) return action;
    return nullptr;
}

struct Fixture {
    QTemporaryDir folder;
    Window window{folder.path()};

    /// Three records of three days, the latest first in the list.
    Fixture() {
        window.frame->Refresh();
        for (const int day : {17, 18, 19}) window.Add(day);
        window.frame->RunCommand(32778);
    }
    [[nodiscard]] CDataTreeView& Tree() const { return *window.frame->findChild<CDataTreeView*>(); }
    [[nodiscard]] QPoint MiddleOf(int row) const {
        return window.List().visualRect(window.List().model()->index(row, 1)).center();
    }
    /// Chooses "Day..." and gives the calendar that opens.
    [[nodiscard]] CCalendarPopup* OpenCalendar() const {
        Q_EMIT window.frame->findChild<CPeriodButton*>()->DayWanted();
        auto* popup = qobject_cast<CCalendarPopup*>(QApplication::activePopupWidget());
        [&] { QVERIFY(popup); }();
        return popup;
    }
};

}  // namespace

/// What pops up over the window: the menus of list and tree, and the calendar of the day.
class TestMainFramePopups final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }
    void cleanup() {
        while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    }

    void menuOfTheList_data() {
        QTest::addColumn<int>("selected");
        QTest::addColumn<QStringList>("offered");
        const auto of = [](const char* rows) { return QString::fromLatin1(rows).split(u'|'); };
        QTest::newRow("nothing selected")
            << 0
            << of("New record|Quick entry|-|(Edit...)|(Copy)|(Delete)|(Mark)|-|(Start timer)|(Pause "
                  "timer)|(Stop timer)");
        QTest::newRow("one selected") << 1
                                      << of("New record|Quick entry|-|Edit...|Copy|Delete|Mark|-|Start "
                                            "timer|(Pause timer)|(Stop timer)");
        QTest::newRow("several selected") << 2
                                          << of("New record|Quick entry|-|(Edit...)|Copy|Delete|Mark|-|Start "
                                                "timer|(Pause timer)|(Stop timer)");
    }
    void menuOfTheList() {
        QFETCH(int, selected);
        Fixture fixture;
        fixture.window.List().SelectNone();
        for (int row = 0; row < selected; ++row)
            QTest::mouseClick(fixture.window.List().viewport(), Qt::LeftButton, Qt::ControlModifier,
                              fixture.MiddleOf(row));
        AskForMenu(fixture.window.List(), QContextMenuEvent::Mouse, fixture.MiddleOf(0));
        QVERIFY(OpenMenu());
        QTEST(Offered(*OpenMenu()), "offered");
    }

    /// With the mouse the menu opens where the pointer is, with the key at the row that has the cursor.
    void placeOfTheListMenu() {
        Fixture fixture;
        CRecordListView& list = fixture.window.List();
        AskForMenu(list, QContextMenuEvent::Mouse, QPoint(200, 70));
        QCOMPARE(OpenMenu()->pos(), list.viewport()->mapToGlobal(QPoint(200, 70)));
        OpenMenu()->close();
        list.setCurrentIndex(list.model()->index(1, 0));
        AskForMenu(list, QContextMenuEvent::Keyboard, QPoint(3, 3));
        QCOMPARE(OpenMenu()->pos(),
                 list.viewport()->mapToGlobal(list.visualRect(list.currentIndex()).center()));
    }

    void aRowOfTheListMenuIsCarriedOut() {
        Fixture fixture;
        CRecordListView& list = fixture.window.List();
        list.SelectIds({list.SelectedIds().value(0)});
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, fixture.MiddleOf(1));
        const QString id = list.SelectedIds().value(0);
        AskForMenu(list, QContextMenuEvent::Mouse, fixture.MiddleOf(1));
        QAction* start = ActionOf(*OpenMenu(), u"Start timer"_s);
        QVERIFY(start);
        start->trigger();
        QCOMPARE(fixture.window.set->StateOf(id), TimerState::Running);
        QCOMPARE(fixture.window.set->Count(), 1);
    }

    /// The node under the pointer is selected first; beside the nodes there is no menu.
    void menuOfTheTree() {
        Fixture fixture;
        CDataTreeView& tree = fixture.Tree();
        const QModelIndex root = tree.model()->index(0, 0);
        const QModelIndex first = tree.model()->index(0, 0, root);
        QVERIFY(first.isValid());
        AskForMenu(tree, QContextMenuEvent::Mouse, QPoint(5, tree.viewport()->height() - 2));
        QVERIFY(!OpenMenu());
        AskForMenu(tree, QContextMenuEvent::Mouse, tree.visualRect(first).center());
        QVERIFY(OpenMenu());
        QCOMPARE(tree.currentIndex(), first);
        QCOMPARE(OpenMenu()->pos(), tree.viewport()->mapToGlobal(tree.visualRect(first).center()));
        QCOMPARE(
            Offered(*OpenMenu()),
            QStringList({u"Expand all"_s, u"New from the data tree"_s, u"From the data tree with timestamp"_s,
                         u"From the data tree with timestamp and timer"_s, u"Tree levels..."_s}));
    }

    /// The calendar opens on the first day that the list shows, else on today, and under its button.
    void calendarOpensOnTheDay() {
        Fixture fixture;
        fixture.window.app.Document().Filter().Reset();
        auto* button = fixture.window.frame->findChild<CPeriodButton*>();
        CCalendarPopup* popup = fixture.OpenCalendar();
        const auto* calendar = popup->findChild<QCalendarWidget*>();
        QCOMPARE(calendar->selectedDate(), QDate(2026, 11, 19));
        // The frame around the popup shifts it by its own width.
        const QPoint shift = popup->pos() - button->mapToGlobal(QPoint(0, button->height()));
        QVERIFY2(shift.manhattanLength() <= 8, qPrintable(u"%1, %2"_s.arg(shift.x()).arg(shift.y())));
        popup->close();
        fixture.window.frame->RunCommand(32789);  // yesterday
        QCOMPARE(fixture.OpenCalendar()->findChild<QCalendarWidget*>()->selectedDate(), QDate(2026, 11, 18));
    }

    void aPickedDayIsThePeriod() {
        Fixture fixture;
        auto* calendar = fixture.OpenCalendar()->findChild<QCalendarWidget*>();
        calendar->setSelectedDate(QDate(2026, 11, 17));
        Q_EMIT calendar->activated(calendar->selectedDate());
        const PeriodFilter& filter = fixture.window.app.Document().CurrentFilter();
        QCOMPARE(filter.preset, PeriodCode::kSingleDate);
        QCOMPARE(filter.startText, u"11/17/2026"_s);
        QCOMPARE(filter.endText, u"11/17/2026"_s);
        QCOMPARE(fixture.window.Rows(), 1);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void todayIsAPreset() {
        Fixture fixture;
        QTest::mouseClick(fixture.OpenCalendar()->findChild<QPushButton*>(), Qt::LeftButton);
        QCOMPARE(fixture.window.app.Document().CurrentFilter().preset, PeriodCode::kToday);
        QCOMPARE(fixture.window.Rows(), 1);
    }

    void escapeLeavesThePeriod() {
        Fixture fixture;
        const int preset = fixture.window.app.Document().CurrentFilter().preset;
        QTest::keyClick(fixture.OpenCalendar(), Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(fixture.window.app.Document().CurrentFilter().preset, preset);
        QCOMPARE(fixture.window.Rows(), 3);
    }
};

TEST_CLASS(TestMainFramePopups);
#include "TestMainFramePopups.moc"
