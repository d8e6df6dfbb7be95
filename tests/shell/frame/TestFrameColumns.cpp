#include "config/CCfgStore.h"
#include "shell/frame/FrameHome.h"
#include "shell/frame/ModalUser.h"
#include "shell/look/IconTheme.h"
#include "support/TestProgram.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A window with its list in columns.
struct InColumns {
    QTemporaryDir folder;
    Window window{folder.path()};

    InColumns() {
        window.app.Settings().listLayout = 3;
        window.frame->resize(1000, 500);
        window.frame->Refresh();
        window.Add(18, "09:00", "10:00");
        window.Add(19, "08:00", "12:00");
    }
    [[nodiscard]] CColSet& Columns() { return window.app.Settings().ListColumns(); }
    [[nodiscard]] QHeaderView& Header() const { return *window.List().horizontalHeader(); }
    [[nodiscard]] QString Captions() const {
        QStringList captions;
        for (int place = 1; place < Header().count(); ++place)
            captions
                << window.List().model()->headerData(Header().logicalIndex(place), Qt::Horizontal).toString();
        return captions.join(u' ');
    }
    /// The header's menu over a column, by a right click.
    [[nodiscard]] QMenu& MenuOver(int section) const {
        const QPoint at(Header().sectionViewportPosition(section) + 8, Header().height() / 2);
        Q_EMIT Header().customContextMenuRequested(at);
        auto* menu = window.List().findChild<QMenu*>(u"headerMenu"_s);
        [&] { QVERIFY(menu && menu->isVisible()); }();
        return *menu;
    }
    void Choose(int section, const char* action) const {
        QMenu& menu = MenuOver(section);
        auto* chosen = menu.findChild<QAction*>(QString::fromLatin1(action));
        [&] { QVERIFY2(chosen && chosen->isEnabled(), action); }();
        chosen->trigger();
        menu.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// The user takes a column by its header and lets it go over another.
    void Drag(int from, int to) const {
        QWidget* target = Header().viewport();
        const auto middle = [this](int section) {
            return QPoint(Header().sectionViewportPosition(section) + Header().sectionSize(section) / 2, 8);
        };
        const auto move = [target](const QPoint& at) {
            QMouseEvent event(QEvent::MouseMove, at, target->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(target, &event);
        };
        const QPoint end = middle(to) + QPoint(from < to ? 4 : -4, 0);
        QTest::mousePress(target, Qt::LeftButton, {}, middle(from));
        move(middle(from) + QPoint(30, 0));
        move(end);
        QTest::mouseRelease(target, Qt::LeftButton, {}, end);
        QCoreApplication::processEvents();
    }
};

constexpr auto kAtFirst = "Date Start Hours Billable Billed Client Project Activity Cost centre";

}  // namespace

/// The columns of the list under the hands of the user.
class TestFrameColumns final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void DraggedToAnotherPlace_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("captions");
        QTest::newRow("to the right")
            << 1 << 3 << u"Start Hours Date Billable Billed Client Project Activity Cost centre"_s;
        QTest::newRow("to the left")
            << 6 << 2 << u"Date Client Start Hours Billable Billed Project Activity Cost centre"_s;
    }
    /// The order is that of the column set, also for the console and after the next start, and each column
    /// takes its width along.
    void DraggedToAnotherPlace() {
        QFETCH(int, from);
        QFETCH(int, to);
        InColumns list;
        QCOMPARE(list.Captions(), QString::fromLatin1(kAtFirst));
        list.Columns().SetWidth(0, 111);
        list.window.frame->RunCommand(Command::kRebuildViews);
        list.Drag(from, to);
        QTEST(list.Captions(), "captions");
        for (int place = 0; place < list.Header().count(); ++place)
            QCOMPARE(list.Header().visualIndex(place), place);
        QCOMPARE(list.Header().sectionSize(list.Columns().OrderPosition(ColumnHalf::Time, 0) + 1), 111);
        list.window.app.Settings().LoadAll();
        QCOMPARE(list.Columns().OrderPosition(ColumnHalf::Time, 0), from == 1 ? 2 : 0);
    }

    /// A click that sorts, the first one too, moves no column by a pixel.
    void AClickMovesNothing() {
        InColumns list;
        const auto places = [&list] {
            QList<int> edges;
            for (int section = 0; section < list.Header().count(); ++section)
                edges << list.Header().sectionViewportPosition(section);
            return edges;
        };
        const QList<int> before = places();
        for (const int section : {3, 3, 6, 4}) {
            const QPoint at(list.Header().sectionViewportPosition(section) + 12, 8);
            QTest::mouseClick(list.Header().viewport(), Qt::LeftButton, {}, at);
            QCoreApplication::processEvents();
            QCOMPARE(places(), before);
        }
        QCOMPARE(list.window.app.Settings().sortColumnTime, 13);
    }

    void HiddenAndShown() {
        InColumns list;
        list.Choose(4, "hideColumn");
        QCOMPARE(list.Captions(), u"Date Start Hours Billed Client Project Activity Cost centre"_s);
        list.Choose(1, "column12");
        QCOMPARE(list.Captions(), u"Date Start Hours Billed Client Project Activity Cost centre Amount"_s);
        list.Choose(1, "column0");
        QCOMPARE(list.Captions(), u"Start Hours Billed Client Project Activity Cost centre Amount"_s);
        list.window.frame->RunCommand(Command::kRestoreColumns);
        QCOMPARE(list.Captions(), QString::fromLatin1(kAtFirst));
    }

    /// Without a column there would be no header to bring it back.
    void TheLastColumnStays() {
        InColumns list;
        list.Columns().ShowExactly(ColumnHalf::Time, {0});
        list.window.frame->RunCommand(Command::kRebuildViews);
        const QMenu& menu = list.MenuOver(1);
        QVERIFY(!menu.findChild<QAction*>(u"hideColumn"_s)->isEnabled());
        QVERIFY(!menu.findChild<QAction*>(u"column0"_s)->isEnabled());
        QVERIFY(menu.findChild<QAction*>(u"column1"_s)->isEnabled());
    }

    /// A width of the user's stays until the column, or all of them, are fitted again.
    void Fitted() {
        InColumns list;
        const int automatic = list.Header().sectionSize(1);
        list.Columns().SetWidth(0, 300);
        list.Columns().SetWidth(6, 200);
        list.window.frame->RunCommand(Command::kRebuildViews);
        QCOMPARE(list.Header().sectionSize(1), 300);
        list.Choose(1, "fitColumn");
        QVERIFY(list.Header().sectionSize(1) <= automatic);
        QCOMPARE(list.Header().sectionSize(2), 200);
        QVERIFY(list.window.Offers(Command::kFitColumns));
        list.window.frame->RunCommand(Command::kFitColumns);
        QCOMPARE(list.Header().sectionSize(1), automatic);
        QVERIFY(list.Header().sectionSize(2) < 200);
        list.window.frame->RunCommand(Command::kLayoutLines);
        QVERIFY(!list.window.Offers(Command::kFitColumns));
    }

    /// What a click on the header would do is proposed; the other direction can be had as well.
    void SortedInADirection_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("direction");
        QTest::addColumn<int>("column");
        QTest::addColumn<bool>("ascending");
        QTest::newRow("another column, as proposed") << 1 << QString() << 6 << true;
        QTest::newRow("another column, the other way") << 1 << u"sortDescending"_s << 6 << false;
        QTest::newRow("the present one, as proposed") << 0 << QString() << 0 << true;
        QTest::newRow("the present one, as it is") << 0 << u"sortDescending"_s << 0 << false;
    }
    void SortedInADirection() {
        QFETCH(int, row);
        QFETCH(QString, direction);
        InColumns list;
        const ModalUser sorts([&](QDialog& dialog) {
            auto* rows = dialog.findChild<QTreeView*>(u"searchRows"_s);
            rows->setCurrentIndex(rows->model()->index(row, 0));
            if (!direction.isEmpty()) dialog.findChild<QRadioButton*>(direction)->click();
            dialog.accept();
        });
        list.window.frame->RunCommand(Command::kSort);
        QVERIFY(sorts.Met());
        QTEST(static_cast<int>(list.window.app.Settings().sortColumnTime), "column");
        QTEST(bool{list.window.app.Settings().sortAscendingTime}, "ascending");
    }
};

TEST_CLASS(TestFrameColumns);
#include "TestFrameColumns.moc"
