#include "shell/list/CRecordListView.h"

#include "records/CTRecord.h"
#include "shell/list/CRecordLineDelegate.h"
#include "shell/look/ListColours.h"
#include "viewmodel/list/CRecordListModel.h"
#include "support/TestHome.h"
#include "timers/ActiveTimerSet.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A list of records on the screen, latest first.
struct Scene {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    CRecordListView view{model, *home.settings};

    explicit Scene(int records, int layout = 4) {
        for (int i = 0; i < records; ++i) {
            CTRecord record;
            record.Reset();
            record.date.Set(11, 1 + i % 28, 2026);
            record.SetStart(9, 0, false);
            record.item1 = u"Client %1"_s.arg(i);
            [&] { QVERIFY(home.document->AddRecord(record, false, true, true)); }();
        }
        [&] { QVERIFY(home.document->Commit()); }();
        home.document->BuildVisible();
        Layout(layout);
        view.resize(500, 400);
        view.show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(&view)); }();
    }
    void Layout(int layout) {
        home.settings->listLayout = layout;
        model.Rebuild();
        view.ApplyLayout();
    }
    [[nodiscard]] QPoint At(int row, int x) const {
        return {x, view.rowViewportPosition(row) + view.rowHeight(row) / 2};
    }
    void Click(int row, int x, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys, At(row, x));
    }
    /// The user takes hold of a section's right edge.
    void DragEdge(int section, int by) {
        QWidget* header = view.horizontalHeader()->viewport();
        const QPoint edge(view.columnViewportPosition(section) + view.columnWidth(section) - 1, 5);
        const QPoint end = edge + QPoint(by, 0);
        QTest::mousePress(header, Qt::LeftButton, {}, edge);
        QMouseEvent drag(QEvent::MouseMove, end, header->mapToGlobal(end), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(header, &drag);
        QTest::mouseRelease(header, Qt::LeftButton, {}, end);
    }
    [[nodiscard]] QList<int> SelectedRows() const {
        QList<int> rows;
        for (const QString& id : view.SelectedIds()) rows.append(model.RowsOf({id}).front());
        return rows;
    }
    [[nodiscard]] QColor Ground(int row) {
        const QImage picture = view.viewport()->grab().toImage();
        // Right of all texts, above the grid line.
        return picture.pixelColor(view.viewport()->width() - 3, view.rowViewportPosition(row) + 2);
    }
};

}  // namespace

class TestCRecordListView final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// The first 16 pixels toggle a row and leave the others alone; elsewhere a click selects just its row.
    void checkBoxToggles_data() {
        QTest::addColumn<int>("layout");
        for (const int layout : {1, 2, 3, 4}) QTest::addRow("layout %d", layout) << layout;
    }
    void checkBoxToggles() {
        QFETCH(int, layout);
        Scene scene(5, layout);
        QSignalSpy changed(&scene.view, &CRecordListView::SelectionChanged);
        scene.Click(0, 3);
        scene.Click(2, 15);
        QCOMPARE(scene.SelectedRows(), (QList<int>{0, 2}));
        QCOMPARE(changed.count(), 2);
        scene.Click(0, 0);
        QCOMPARE(scene.SelectedRows(), (QList<int>{2}));
        scene.Click(3, 16);
        QCOMPARE(scene.SelectedRows(), (QList<int>{3}));
        scene.Click(4, 200, Qt::ControlModifier);
        QCOMPARE(scene.SelectedRows(), (QList<int>{3, 4}));
        QCOMPARE(scene.view.SelectedCount(), 2);
    }

    void checkBoxBelowTheRowsIsNothing() {
        Scene scene(1);
        QTest::mouseClick(scene.view.viewport(), Qt::LeftButton, {}, QPoint(5, 390));
        QCOMPARE(scene.view.SelectedCount(), 0);
    }

    /// Quick clicks on a check box toggle each time and edit nothing; elsewhere they edit.
    void doubleClicks() {
        Scene scene(3);
        QSignalSpy edit(&scene.view, &CRecordListView::EditWanted);
        scene.Click(1, 5);
        QTest::mouseDClick(scene.view.viewport(), Qt::LeftButton, {}, scene.At(1, 5));
        QCOMPARE(edit.count(), 0);
        QTest::mouseDClick(scene.view.viewport(), Qt::LeftButton, {}, scene.At(1, 100));
        QCOMPARE(edit.count(), 1);
        QCOMPARE(edit[0][0].toString(), scene.model.IdAt(1));
        QTest::mouseDClick(scene.view.viewport(), Qt::LeftButton, {}, QPoint(100, 395));
        QCOMPARE(edit.count(), 1);
    }

    void keysSelect() {
        Scene scene(10);
        scene.Click(0, 100);
        QTest::keyClick(&scene.view, Qt::Key_Down);
        QCOMPARE(scene.SelectedRows(), (QList<int>{1}));
        QTest::keyClick(&scene.view, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(scene.SelectedRows(), (QList<int>{1, 2}));
        QTest::keyClick(&scene.view, Qt::Key_End);
        QCOMPARE(scene.SelectedRows(), (QList<int>{9}));
        QTest::keyClick(&scene.view, Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(scene.view.SelectedCount(), 10);
        QTest::keyClick(&scene.view, Qt::Key_Down);
        QCOMPARE(scene.SelectedRows(), (QList<int>{1}));
        QTest::keyClick(&scene.view, Qt::Key_Home);
        QCOMPARE(scene.SelectedRows(), (QList<int>{0}));
        scene.view.selectAll();
        QCOMPARE(scene.view.SelectedCount(), 10);
        scene.view.SelectNone();
        QCOMPARE(scene.view.SelectedCount(), 0);
    }

    void selectIds() {
        Scene scene(60);
        const QString last = scene.model.IdAt(59);
        scene.view.SelectIds({last, u"unknown"_s});
        QCOMPARE(scene.view.SelectedIds(), QStringList{last});
        QCOMPARE(scene.view.RowsInSight().second, 59);
        scene.view.SelectIds({});
        QCOMPARE(scene.view.SelectedCount(), 0);
    }

    void rowsInSight() {
        Scene scene(60);
        QCOMPARE(scene.view.RowsInSight().first, 0);
        QVERIFY(scene.view.RowsInSight().second < 59);
        scene.view.scrollToBottom();
        QCOMPARE(scene.view.RowsInSight().second, 59);
        Scene two(2);
        QCOMPARE(two.view.RowsInSight(), (std::pair{0, 1}));
        Scene none(0);
        QVERIFY(none.view.RowsInSight().second < none.view.RowsInSight().first);
    }

    /// Layout of lines: rows 0, 2, 4 have the second ground. Layout of columns: rows 1, 3, 5.
    void alternateGround_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<bool>("firstIsAlternate");
        QTest::newRow("lines") << 4 << true;
        QTest::newRow("columns, the other way round") << 3 << false;
    }
    void alternateGround() {
        QFETCH(int, layout);
        QFETCH(bool, firstIsAlternate);
        Scene scene(4, layout);
        scene.home.settings->alternateRowColour = 0x0000FF;  // red
        scene.view.ApplyLayout();
        const QColor red(255, 0, 0);
        QCOMPARE(scene.Ground(0) == red, firstIsAlternate);
        QCOMPARE(scene.Ground(1) == red, !firstIsAlternate);
        QCOMPARE(scene.Ground(2) == red, firstIsAlternate);
        scene.home.settings->alternateRows = 0;
        QVERIFY(scene.Ground(0) != red && scene.Ground(1) != red);
    }

    /// Large icons and the plain list are drawn as the desktop draws lists.
    void plainLayouts_data() {
        QTest::addColumn<int>("layout");
        QTest::newRow("large icons") << 1;
        QTest::newRow("plain list") << 2;
    }
    void plainLayouts() {
        QFETCH(int, layout);
        Scene scene(4, layout);
        scene.home.settings->alternateRowColour = 0x0000FF;
        scene.home.settings->gridLineColour = 0x00FF00;
        scene.home.settings->lineColour1 = 0xFF0000;
        scene.view.ApplyLayout();
        const QImage picture = scene.view.viewport()->grab().toImage();
        for (int y = 0; y < scene.view.rowViewportPosition(3); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                QVERIFY(colour != QColor(255, 0, 0) && colour != QColor(0, 255, 0) &&
                        colour != QColor(0, 0, 255));
            }
    }

    void gridLine() {
        Scene scene(2);
        scene.home.settings->gridLineColour = 0x00FF00;
        scene.view.ApplyLayout();
        const int y = scene.view.rowViewportPosition(0) + scene.view.rowHeight(0) - 1;
        QCOMPARE(scene.view.viewport()->grab().toImage().pixelColor(250, y), QColor(0, 255, 0));
        scene.home.settings->gridLines = 0;
        QVERIFY(scene.view.viewport()->grab().toImage().pixelColor(250, y) != QColor(0, 255, 0));
    }

    void selectedGround() {
        Scene scene(3);
        scene.view.setFocus();
        scene.Click(1, 100);
        const ListColours colours = MakeListColours(*scene.home.settings, scene.view.palette());
        QTRY_VERIFY(scene.view.hasFocus());
        QCOMPARE(scene.Ground(1), colours.highlight);
        scene.view.clearFocus();
        QCOMPARE(scene.Ground(1), colours.highlightNoFocus);
    }

    /// Each line of text takes the height of the sample, at least 16 pixels; three lines with the defaults.
    void rowHeight() {
        Scene scene(1);
        CRecordLineDelegate lines(*scene.home.settings, scene.model);
        QFont small(u"Sans Serif"_s);
        small.setPixelSize(6);
        lines.SetLines(BuildLines(scene.model.VisibleColumns(), std::vector{5, 7, 9}));
        QCOMPARE(lines.RowHeight(QFontMetrics(small)), 48);
        QFont large = small;
        large.setPixelSize(40);
        QCOMPARE(lines.RowHeight(QFontMetrics(large)),
                 3 * QFontMetrics(large).size(Qt::TextSingleLine, u"x"_s).height());
        lines.SetLines({});
        QCOMPARE(lines.RowHeight(QFontMetrics(small)), 16);
    }

    void headers() {
        Scene scene(3, 3);
        QVERIFY(scene.view.horizontalHeader()->isVisible());
        QCOMPARE(scene.view.horizontalHeader()->sortIndicatorSection(), 1);
        QTest::mouseClick(scene.view.horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(scene.view.columnViewportPosition(2) + 10, 5));
        QCOMPARE(scene.home.settings->sortColumnTime, 6);
        QVERIFY(scene.home.settings->sortAscendingTime);
        QTest::mouseClick(scene.view.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
        QCOMPARE(scene.home.settings->sortColumnTime, 6);
        scene.Layout(4);
        QVERIFY(!scene.view.horizontalHeader()->isVisible());
        QCOMPARE(scene.view.columnWidth(0) + scene.view.columnWidth(1), scene.view.viewport()->width());
    }

    void widthsAreCaptured() {
        Scene scene(3, 3);
        CColSet& columns = scene.home.settings->ListColumns();
        QHeaderView& header = *scene.view.horizontalHeader();
        header.resizeSection(0, 55);
        header.resizeSection(1, 123);
        scene.view.CaptureWidths();
        QCOMPARE(scene.home.settings->iconColumnWidth, 55);
        QCOMPARE(columns.EntryAt(0).width, 123);
        QCOMPARE(columns.EntryAt(6).width,
                 65);  // the others keep their defaults, whatever the font made of them
        header.resizeSection(2, 98);
        scene.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(6).width, 98);
        scene.Layout(4);
        scene.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(6).width, 98);
        scene.Layout(3);
        QCOMPARE(scene.view.columnWidth(0), 55);
        QCOMPARE(scene.view.columnWidth(1), 123);
        QCOMPARE(scene.view.columnWidth(2), 98);
    }

    /// A width follows its column to another place; what the row gives the last one is nobody's wish.
    void widthsFollowTheirColumns() {
        Scene scene(3, 3);
        CColSet& columns = scene.home.settings->ListColumns();
        scene.view.horizontalHeader()->resizeSection(1, 123);
        scene.view.CaptureWidths();
        scene.view.resize(900, 400);
        scene.view.CaptureWidths();
        scene.model.Rebuild();
        columns.MoveDown(ColumnHalf::Time, 1);
        scene.model.Rebuild();
        scene.view.ApplyLayout();
        QCOMPARE(scene.view.columnWidth(2), 123);
        QCOMPARE(columns.EntryAt(10).width, 90);
        columns.AssignOrder(ColumnHalf::Time, {u"Cost centre"_s}, {});
        scene.model.Rebuild();
        scene.view.ApplyLayout();
        columns.SetColumn(ColumnHalf::Time, u"Cost centre"_s, {u"Cost centre"_s, 90, 0, true});
        scene.model.Rebuild();
        scene.view.ApplyLayout();
        for (const int column : {6, 1, 4, 5, 9, 10})
            QCOMPARE(columns.EntryAt(column).width, ColumnTable()[static_cast<std::size_t>(column)].width);
    }

    void damagedWidths() {
        Scene scene(3, 3);
        const std::pair<int, int> widths[] = {{1, 1}, {4, 4}, {2000000000, 10000}};
        for (const auto& [stored, shown] : widths) {
            scene.home.settings->ListColumns().SetWidth(0, stored);
            scene.model.Rebuild();
            scene.view.ApplyLayout();
            QCOMPARE(scene.view.columnWidth(1), shown);
        }
    }

    /// Letting go of a column's edge says so once; a width of nothing has become 5 by then. A click that
    /// sorts changes no width and says nothing.
    void draggedWidths_data() {
        QTest::addColumn<int>("by");
        QTest::addColumn<int>("width");
        QTest::newRow("wider") << 60 << 160;
        QTest::newRow("narrow, but something") << -97 << 3;
        QTest::newRow("to nothing becomes 5") << -100 << 5;
        QTest::newRow("beyond nothing becomes 5") << -130 << 5;
    }
    void draggedWidths() {
        QFETCH(int, by);
        Scene scene(3, 3);
        scene.home.settings->ListColumns().SetWidth(0, 100);
        scene.Layout(3);
        QSignalSpy resized(&scene.view, &CRecordListView::ColumnResized);
        scene.DragEdge(1, by);
        QTEST(scene.view.columnWidth(1), "width");
        QCOMPARE(resized.count(), 1);
        scene.view.CaptureWidths();
        QTEST(scene.home.settings->ListColumns().EntryAt(0).width, "width");
        QTest::mouseClick(scene.view.horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(scene.view.columnViewportPosition(3) + 10, 5));
        QCOMPARE(resized.count(), 1);
    }

    /// The last column fills the row, which nobody has asked for; where the others leave it no more than its
    /// own width, it can be dragged like them.
    void lastColumn() {
        Scene scene(3, 3);
        CColSet& columns = scene.home.settings->ListColumns();
        scene.view.resize(3000, 400);
        QVERIFY(scene.view.columnWidth(9) > 1000);
        scene.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(10).width, 90);
        columns.SetWidth(10, 80);
        scene.view.resize(300, 400);
        scene.Layout(3);
        QCOMPARE(scene.view.columnWidth(9), 80);
        scene.view.horizontalScrollBar()->setValue(scene.view.horizontalScrollBar()->maximum());
        scene.DragEdge(9, -30);
        QCOMPARE(scene.view.columnWidth(9), 50);
        scene.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(10).width, 50);
    }

    /// The state's width counts in each layout, and not when it is nothing.
    void widthOfTheState() {
        Scene scene(3, 2);
        scene.view.horizontalHeader()->resizeSection(0, 47);
        scene.view.CaptureWidths();
        QCOMPARE(scene.home.settings->iconColumnWidth, 47);
        scene.view.horizontalHeader()->resizeSection(0, 0);
        scene.view.CaptureWidths();
        QCOMPARE(scene.home.settings->iconColumnWidth, 47);
        scene.Layout(4);
        QCOMPARE(scene.view.columnWidth(0), 47);
        scene.view.resize(640, 400);
        QCOMPARE(scene.view.columnWidth(1), scene.view.viewport()->width() - 47);
    }

    /// Lines follow the breaks of the columns.
    void breaksOfTheColumns() {
        Scene scene(1);
        const int three = scene.view.rowHeight(0);
        scene.home.settings->ListColumns().SetBreaks(ColumnHalf::Time, {5});
        scene.Layout(4);
        QCOMPARE(scene.view.rowHeight(0) * 3, three * 2);
    }

    /// Every layout draws everything there is, at both scales, empty and full, without a word on the console.
    void drawing_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<double>("scale");
        for (const int layout : {1, 2, 3, 4})
            for (const double scale : {1.0, 2.0})
                QTest::addRow("layout %d at %g", layout, scale) << layout << scale;
    }
    void drawing() {
        QFETCH(int, layout);
        QFETCH(double, scale);
        Scene scene(30, layout);
        scene.timers.Start(scene.model.IdAt(0), true, 1, 42, 17);
        scene.timers.Start(scene.model.IdAt(1), false, 0, 0, 0);
        scene.timers.Pause(scene.model.IdAt(1));
        scene.view.selectRow(2);
        scene.home.settings->gridLineStyle = 99;
        scene.home.settings->gridLineWidth = 3;
        QImage picture(QSizeF(500 * scale, 400 * scale).toSize(), QImage::Format_ARGB32);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::magenta);
        scene.view.render(&picture);
        for (const QPoint at : {QPoint(250, 100), QPoint(20, 200)})
            QVERIFY(picture.pixelColor(at * scale) != QColor(Qt::magenta));
    }

    void coloursFollowThePalette() {
        Settings settings;
        QPalette light, dark;
        light.setColor(QPalette::Base, Qt::white);
        light.setColor(QPalette::Text, Qt::black);
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        dark.setColor(QPalette::Text, QColor(240, 240, 240));
        QCOMPARE(MakeListColours(settings, light).lines[1], QColor(0x70, 0x6F, 0x91));
        QCOMPARE(MakeListColours(settings, light).alternate, QColor(0xF8, 0xF8, 0xF8));
        const ListColours onDark = MakeListColours(settings, dark);
        for (const QColor& line : onDark.lines) QVERIFY(line.lightness() > 128);
        QVERIFY(onDark.alternate.lightness() < 60);
        settings.lineColour2 = 0x0000AA;  // chosen by the user: it stays
        settings.alternateRowColour = 0x123456;
        QCOMPARE(MakeListColours(settings, dark).lines[1], QColor(0xAA, 0, 0));
        QCOMPARE(MakeListColours(settings, dark).alternate, QColor(0x56, 0x34, 0x12));
    }
};

QTEST_MAIN(TestCRecordListView)
#include "TestCRecordListView.moc"
