#include "shell/list/CRecordListView.h"

#include "records/CTRecord.h"
#include "shell/list/CRecordLineDelegate.h"
#include "shell/look/ListColours.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"

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
struct Fixture {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    CRecordListView view{model, *home.settings};

    explicit Fixture(int records, int layout = 4) {
        for (int i = 0; i < records; ++i) {
            CTRecord record;
            record.Reset();
            record.date.Set(11, 1 + i % 28, 2026);
            record.SetStart(9, 0, false);
            record.item1 = u"Client %1"_s.arg(i);
            [&] {
                QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Later, Identity::New}));
            }();
        }
        [&] { QVERIFY(home.store->Commit()); }();
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
        Fixture fixture(5, layout);
        QSignalSpy changed(&fixture.view, &CRecordListView::SelectionChanged);
        fixture.Click(0, 3);
        fixture.Click(2, 15);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{0, 2}));
        QCOMPARE(changed.count(), 2);
        fixture.Click(0, 0);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{2}));
        fixture.Click(3, 16);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{3}));
        fixture.Click(4, 200, Qt::ControlModifier);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{3, 4}));
        QCOMPARE(fixture.view.SelectedCount(), 2);
    }

    void checkBoxBelowTheRowsIsNothing() {
        Fixture fixture(1);
        QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, QPoint(5, 390));
        QCOMPARE(fixture.view.SelectedCount(), 0);
    }

    /// Quick clicks on a check box toggle each time and edit nothing; elsewhere they edit.
    void doubleClicks() {
        Fixture fixture(3);
        QSignalSpy edit(&fixture.view, &CRecordListView::EditWanted);
        fixture.Click(1, 5);
        QTest::mouseDClick(fixture.view.viewport(), Qt::LeftButton, {}, fixture.At(1, 5));
        QCOMPARE(edit.count(), 0);
        QTest::mouseDClick(fixture.view.viewport(), Qt::LeftButton, {}, fixture.At(1, 100));
        QCOMPARE(edit.count(), 1);
        QCOMPARE(edit[0][0].toString(), fixture.model.IdAt(1));
        QTest::mouseDClick(fixture.view.viewport(), Qt::LeftButton, {}, QPoint(100, 395));
        QCOMPARE(edit.count(), 1);
    }

    void keysSelect() {
        Fixture fixture(10);
        fixture.Click(0, 100);
        QTest::keyClick(&fixture.view, Qt::Key_Down);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{1}));
        QTest::keyClick(&fixture.view, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{1, 2}));
        QTest::keyClick(&fixture.view, Qt::Key_End);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{9}));
        QTest::keyClick(&fixture.view, Qt::Key_Home, Qt::ShiftModifier);
        QCOMPARE(fixture.view.SelectedCount(), 10);
        QTest::keyClick(&fixture.view, Qt::Key_Down);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{1}));
        QTest::keyClick(&fixture.view, Qt::Key_Home);
        QCOMPARE(fixture.SelectedRows(), (QList<int>{0}));
        fixture.view.selectAll();
        QCOMPARE(fixture.view.SelectedCount(), 10);
        fixture.view.SelectNone();
        QCOMPARE(fixture.view.SelectedCount(), 0);
    }

    void selectIds() {
        Fixture fixture(60);
        const QString last = fixture.model.IdAt(59);
        fixture.view.SelectIds({last, u"unknown"_s});
        QCOMPARE(fixture.view.SelectedIds(), QStringList{last});
        QCOMPARE(fixture.view.RowsInSight().second, 59);
        fixture.view.SelectIds({});
        QCOMPARE(fixture.view.SelectedCount(), 0);
    }

    void rowsInSight() {
        Fixture fixture(60);
        QCOMPARE(fixture.view.RowsInSight().first, 0);
        QVERIFY(fixture.view.RowsInSight().second < 59);
        fixture.view.scrollToBottom();
        QCOMPARE(fixture.view.RowsInSight().second, 59);
        Fixture two(2);
        QCOMPARE(two.view.RowsInSight(), (std::pair{0, 1}));
        Fixture none(0);
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
        Fixture fixture(4, layout);
        fixture.home.settings->alternateRowColour = 0x0000FF;  // red
        fixture.view.ApplyLayout();
        const QColor red(255, 0, 0);
        QCOMPARE(fixture.Ground(0) == red, firstIsAlternate);
        QCOMPARE(fixture.Ground(1) == red, !firstIsAlternate);
        QCOMPARE(fixture.Ground(2) == red, firstIsAlternate);
        fixture.home.settings->alternateRows = 0;
        QVERIFY(fixture.Ground(0) != red && fixture.Ground(1) != red);
    }

    /// Large icons and the plain list are drawn as the desktop draws lists.
    void plainLayouts_data() {
        QTest::addColumn<int>("layout");
        QTest::newRow("large icons") << 1;
        QTest::newRow("plain list") << 2;
    }
    void plainLayouts() {
        QFETCH(int, layout);
        Fixture fixture(4, layout);
        fixture.home.settings->alternateRowColour = 0x0000FF;
        fixture.home.settings->gridLineColour = 0x00FF00;
        fixture.home.settings->lineColour1 = 0xFF0000;
        fixture.view.ApplyLayout();
        const QImage picture = fixture.view.viewport()->grab().toImage();
        for (int y = 0; y < fixture.view.rowViewportPosition(3); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                QVERIFY(colour != QColor(255, 0, 0) && colour != QColor(0, 255, 0) &&
                        colour != QColor(0, 0, 255));
            }
    }

    void gridLine() {
        Fixture fixture(2);
        fixture.home.settings->gridLineColour = 0x00FF00;
        fixture.view.ApplyLayout();
        const int y = fixture.view.rowViewportPosition(0) + fixture.view.rowHeight(0) - 1;
        QCOMPARE(fixture.view.viewport()->grab().toImage().pixelColor(250, y), QColor(0, 255, 0));
        fixture.home.settings->gridLines = 0;
        QVERIFY(fixture.view.viewport()->grab().toImage().pixelColor(250, y) != QColor(0, 255, 0));
    }

    void gridLineWidth_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("pixels");
        for (const int layout : {3, 4}) {
            QTest::addRow("the thinnest line, layout %d", layout) << layout << 0 << 1;
            QTest::addRow("width 1, layout %d", layout) << layout << 1 << 2;
            QTest::addRow("width 2, layout %d", layout) << layout << 2 << 4;
            QTest::addRow("width 5, layout %d", layout) << layout << 5 << 10;
        }
    }
    /// Twice the width that is set, all of it at the bottom of the row.
    void gridLineWidth() {
        QFETCH(int, layout);
        QFETCH(int, width);
        QFETCH(int, pixels);
        Fixture fixture(2, layout);
        fixture.home.settings->gridLineColour = 0x00FF00;
        fixture.home.settings->gridLineWidth = width;
        fixture.view.ApplyLayout();
        const QImage picture = fixture.view.viewport()->grab().toImage();
        const int top = fixture.view.rowViewportPosition(0), end = top + fixture.view.rowHeight(0);
        QList<int> green;
        for (int y = top; y < end; ++y)
            if (picture.pixelColor(250, y) == QColor(0, 255, 0)) green << y;
        QCOMPARE(green.size(), pixels);
        QCOMPARE(green.last(), end - 1);
        QCOMPARE(green.first(), end - pixels);
    }

    void selectedGround() {
        Fixture fixture(3);
        fixture.view.setFocus();
        fixture.Click(1, 100);
        const ListColours colours = MakeListColours(*fixture.home.settings, fixture.view.palette());
        QTRY_VERIFY(fixture.view.hasFocus());
        QCOMPARE(fixture.Ground(1), colours.highlight);
        fixture.view.clearFocus();
        QCOMPARE(fixture.Ground(1), colours.highlightNoFocus);
    }

    /// Each line of text takes the height of the sample, at least 16 pixels; three lines with the defaults.
    void rowHeight() {
        Fixture fixture(1);
        CRecordLineDelegate lines(*fixture.home.settings, fixture.model);
        QFont small(u"Sans Serif"_s);
        small.setPixelSize(6);
        lines.SetLines(BuildLines(fixture.model.VisibleColumns(), std::vector{5, 7, 9}));
        QCOMPARE(lines.RowHeight(QFontMetrics(small)), 48);
        QFont large = small;
        large.setPixelSize(40);
        QCOMPARE(lines.RowHeight(QFontMetrics(large)),
                 3 * QFontMetrics(large).size(Qt::TextSingleLine, u"x"_s).height());
        lines.SetLines({});
        QCOMPARE(lines.RowHeight(QFontMetrics(small)), 16);
    }

    void headers() {
        Fixture fixture(3, 3);
        QVERIFY(fixture.view.horizontalHeader()->isVisible());
        QCOMPARE(fixture.view.horizontalHeader()->sortIndicatorSection(), 1);
        QTest::mouseClick(fixture.view.horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(fixture.view.columnViewportPosition(2) + 10, 5));
        QCOMPARE(fixture.home.settings->sortColumnTime, 6);
        QVERIFY(fixture.home.settings->sortAscendingTime);
        QTest::mouseClick(fixture.view.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
        QCOMPARE(fixture.home.settings->sortColumnTime, 6);
        fixture.Layout(4);
        QVERIFY(!fixture.view.horizontalHeader()->isVisible());
        QCOMPARE(fixture.view.columnWidth(0) + fixture.view.columnWidth(1), fixture.view.viewport()->width());
    }

    void widthsAreCaptured() {
        Fixture fixture(3, 3);
        CColSet& columns = fixture.home.settings->ListColumns();
        QHeaderView& header = *fixture.view.horizontalHeader();
        header.resizeSection(0, 55);
        header.resizeSection(1, 123);
        fixture.view.CaptureWidths();
        QCOMPARE(fixture.home.settings->iconColumnWidth, 55);
        QCOMPARE(columns.EntryAt(0).width, 123);
        QCOMPARE(columns.EntryAt(6).width,
                 65);  // the others keep their defaults, whatever the font made of them
        header.resizeSection(2, 98);
        fixture.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(6).width, 98);
        fixture.Layout(4);
        fixture.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(6).width, 98);
        fixture.Layout(3);
        QCOMPARE(fixture.view.columnWidth(0), 55);
        QCOMPARE(fixture.view.columnWidth(1), 123);
        QCOMPARE(fixture.view.columnWidth(2), 98);
    }

    /// A width follows its column to another place; what the row gives the last one is nobody's wish.
    void widthsFollowTheirColumns() {
        Fixture fixture(3, 3);
        CColSet& columns = fixture.home.settings->ListColumns();
        fixture.view.horizontalHeader()->resizeSection(1, 123);
        fixture.view.CaptureWidths();
        fixture.view.resize(900, 400);
        fixture.view.CaptureWidths();
        fixture.model.Rebuild();
        columns.MoveDown(ColumnHalf::Time, 1);
        fixture.model.Rebuild();
        fixture.view.ApplyLayout();
        QCOMPARE(fixture.view.columnWidth(2), 123);
        QCOMPARE(columns.EntryAt(10).width, 90);
        columns.AssignOrder(ColumnHalf::Time, {u"Cost centre"_s}, {});
        fixture.model.Rebuild();
        fixture.view.ApplyLayout();
        columns.SetColumn(ColumnHalf::Time, u"Cost centre"_s, {u"Cost centre"_s, 90, 0, true});
        fixture.model.Rebuild();
        fixture.view.ApplyLayout();
        for (const int column : {6, 1, 4, 5, 9, 10})
            QCOMPARE(columns.EntryAt(column).width, ColumnTable()[static_cast<std::size_t>(column)].width);
    }

    void damagedWidths() {
        Fixture fixture(3, 3);
        const std::pair<int, int> widths[] = {{1, 1}, {4, 4}, {2000000000, 10000}};
        for (const auto& [stored, shown] : widths) {
            fixture.home.settings->ListColumns().SetWidth(0, stored);
            fixture.model.Rebuild();
            fixture.view.ApplyLayout();
            QCOMPARE(fixture.view.columnWidth(1), shown);
        }
    }

    /// Letting go of a column's edge says so once; a width of nothing has become 5 by then. A click that
    /// sorts changes no width and says nothing.
    void draggedWidths_data() {
        QTest::addColumn<int>("by");
        QTest::addColumn<int>("width");
        QTest::newRow("wider") << 60 << 160;
        QTest::newRow("narrow, but something") << -97 << 3;
        QTest::newRow("one pixel is something") << -99 << 1;
        QTest::newRow("to nothing becomes 5") << -100 << 5;
        QTest::newRow("beyond nothing becomes 5") << -130 << 5;
    }
    void draggedWidths() {
        QFETCH(int, by);
        Fixture fixture(3, 3);
        fixture.home.settings->ListColumns().SetWidth(0, 100);
        fixture.Layout(3);
        QSignalSpy resized(&fixture.view, &CRecordListView::ColumnResized);
        fixture.DragEdge(1, by);
        QTEST(fixture.view.columnWidth(1), "width");
        QCOMPARE(resized.count(), 1);
        fixture.view.CaptureWidths();
        QTEST(fixture.home.settings->ListColumns().EntryAt(0).width, "width");
        QTest::mouseClick(fixture.view.horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(fixture.view.columnViewportPosition(3) + 10, 5));
        QCOMPARE(resized.count(), 1);
    }

    /// The last column fills the row, which nobody has asked for; where the others leave it no more than its
    /// own width, it can be dragged like them.
    void lastColumn() {
        Fixture fixture(3, 3);
        CColSet& columns = fixture.home.settings->ListColumns();
        fixture.view.resize(3000, 400);
        QVERIFY(fixture.view.columnWidth(9) > 1000);
        fixture.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(10).width, 90);
        columns.SetWidth(10, 80);
        fixture.view.resize(300, 400);
        fixture.Layout(3);
        QCOMPARE(fixture.view.columnWidth(9), 80);
        fixture.view.horizontalScrollBar()->setValue(fixture.view.horizontalScrollBar()->maximum());
        fixture.DragEdge(9, -30);
        QCOMPARE(fixture.view.columnWidth(9), 50);
        fixture.view.CaptureWidths();
        QCOMPARE(columns.EntryAt(10).width, 50);
    }

    /// The state's width counts in each layout, and not when it is nothing.
    void widthOfTheState() {
        Fixture fixture(3, 2);
        fixture.view.horizontalHeader()->resizeSection(0, 47);
        fixture.view.CaptureWidths();
        QCOMPARE(fixture.home.settings->iconColumnWidth, 47);
        fixture.view.horizontalHeader()->resizeSection(0, 0);
        fixture.view.CaptureWidths();
        QCOMPARE(fixture.home.settings->iconColumnWidth, 47);
        fixture.Layout(4);
        QCOMPARE(fixture.view.columnWidth(0), 47);
        fixture.view.resize(640, 400);
        QCOMPARE(fixture.view.columnWidth(1), fixture.view.viewport()->width() - 47);
    }

    /// Lines follow the breaks of the columns.
    void breaksOfTheColumns() {
        Fixture fixture(1);
        const int three = fixture.view.rowHeight(0);
        fixture.home.settings->ListColumns().SetBreaks(ColumnHalf::Time, {5});
        fixture.Layout(4);
        QCOMPARE(fixture.view.rowHeight(0) * 3, three * 2);
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
        Fixture fixture(30, layout);
        fixture.timers.Start(fixture.model.IdAt(0), true, 1, 42, 17);
        fixture.timers.Start(fixture.model.IdAt(1), false, 0, 0, 0);
        fixture.timers.Pause(fixture.model.IdAt(1));
        fixture.view.selectRow(2);
        fixture.home.settings->gridLineStyle = 99;
        fixture.home.settings->gridLineWidth = 3;
        QImage picture(QSizeF(500 * scale, 400 * scale).toSize(), QImage::Format_ARGB32);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::magenta);
        fixture.view.render(&picture);
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
        QCOMPARE(MakeListColours(settings, light).alternate, QColor(0xF8, 0xF8, 0xF8));
        const ListColours onDark = MakeListColours(settings, dark);
        for (const QColor& line : onDark.lines) QVERIFY(line.lightness() > 128);
        QVERIFY(onDark.alternate.lightness() < 60);
        settings.lineColour2 = 0x0000AA;  // chosen by the user: it stays
        settings.alternateRowColour = 0x123456;
        QCOMPARE(MakeListColours(settings, dark).lines[1], QColor(0xAA, 0, 0));
        QCOMPARE(MakeListColours(settings, dark).alternate, QColor(0x56, 0x34, 0x12));
    }

    void findShowsWhatHasTheWords_data() { checkBoxToggles_data(); }
    void findShowsWhatHasTheWords() {
        QFETCH(int, layout);
        Fixture fixture(30, layout);
        fixture.view.Find(u"client 2"_s);
        QVERIFY(fixture.view.IsFinding());
        QCOMPARE(fixture.view.ShownCount(), 12);  // 2, 12 and 20 to 29
        const QStringList shown = fixture.view.ShownIds();
        QCOMPARE(shown.size(), 12);
        fixture.Click(1, 3);
        QCOMPARE(fixture.view.SelectedIds(), QStringList{shown[1]});
        QStringList visited;
        fixture.view.ForEachSelected([&](const CVORec& record) { visited.append(record.GetId()); });
        QCOMPARE(visited, QStringList{shown[1]});
        QSignalSpy edit(&fixture.view, &CRecordListView::EditWanted);
        QTest::mouseDClick(fixture.view.viewport(), Qt::LeftButton, {}, fixture.At(2, 100));
        QCOMPARE(edit.value(0).value(0).toString(), shown[2]);
        QTest::keyClick(&fixture.view, Qt::Key_End);
        QCOMPARE(fixture.view.CurrentId(), shown.last());
        fixture.view.selectAll();
        QCOMPARE(fixture.view.SelectedIds(), shown);
        QCOMPARE(fixture.view.horizontalHeader()->count(), fixture.model.columnCount());
    }

    /// Selection and place come back as they were.
    void endOfFindGivesAllBack() {
        Fixture fixture(60);
        fixture.view.SelectIds({fixture.model.IdAt(40), fixture.model.IdAt(41)});
        fixture.view.scrollTo(fixture.model.index(38, 0), QAbstractItemView::PositionAtTop);
        const auto inSight = fixture.view.RowsInSight();
        const QList<int> selected = fixture.SelectedRows();
        const QString current = fixture.view.CurrentId();
        fixture.view.Find(u"client 5"_s);
        fixture.view.Find(u"client 59"_s);
        QCOMPARE(fixture.view.ShownCount(), 1);
        QCOMPARE(fixture.view.ListRowsInSight().size(), 1U);
        fixture.view.Find({});
        QVERIFY(!fixture.view.IsFinding());
        QCOMPARE(fixture.view.ShownCount(), 60);
        QCOMPARE(fixture.SelectedRows(), selected);
        QCOMPARE(fixture.view.CurrentId(), current);
        QCOMPARE(fixture.view.RowsInSight(), inSight);
    }

    /// Who has found a record wants to see it among its neighbours.
    void whatWasSelectedInFindStays() {
        Fixture fixture(60);
        fixture.view.SelectIds({fixture.model.IdAt(3)});
        fixture.view.Find(u"client 1"_s);
        fixture.Click(1, 100);
        const QStringList found = fixture.view.SelectedIds();
        fixture.view.Find(u"client"_s);
        QCOMPARE(fixture.view.SelectedIds(), found);
        fixture.view.Find({});
        QCOMPARE(fixture.view.SelectedIds(), found);
        QVERIFY(found != QStringList{fixture.model.IdAt(3)});
        const auto [first, last] = fixture.view.RowsInSight();
        QVERIFY(first <= fixture.SelectedRows().front() && fixture.SelectedRows().front() <= last);
    }

    void findIsToldOnceAsSelection() {
        Fixture fixture(10);
        fixture.view.SelectIds({fixture.model.IdAt(3)});
        QSignalSpy changed(&fixture.view, &CRecordListView::SelectionChanged);
        fixture.view.Find(u"client"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(fixture.view.SelectedCount(), 1);
        QSignalSpy end(&fixture.view, &CRecordListView::FindEndWanted);
        QTest::keyClick(&fixture.view, Qt::Key_Escape);
        QCOMPARE(end.count(), 1);
    }

    /// The widths that the user chose stay through a search.
    void findKeepsWidths() {
        Fixture fixture(10, 3);
        fixture.DragEdge(2, 33);
        const int width = fixture.view.columnWidth(2);
        fixture.view.Find(u"client"_s);
        QCOMPARE(fixture.view.columnWidth(2), width);
        fixture.view.Find({});
        QCOMPARE(fixture.view.columnWidth(2), width);
    }
};

TEST_CLASS(TestCRecordListView);
#include "TestCRecordListView.moc"
