#include "app/RecordMode.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/list/CRecordDelegate.h"
#include "shell/list/CRecordListView.h"
#include "shell/look/CDrawing.h"
#include "shell/look/Glyphs.h"
#include "shell/look/ListColours.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QApplication>
#include <QImage>
#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QColor kLineColours[] = {QColor(1, 2, 3), QColor(10, 20, 30), QColor(40, 50, 60), QColor(70, 80, 90)};
const QColor kGridColour(200, 100, 50);

std::uint32_t Stored(const QColor& colour) {
    return static_cast<std::uint32_t>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

/// Which of the line colours a text was drawn in, counted from 1; 0 for another colour.
int LineColour(const DrawnText& drawn) {
    const auto* found = std::ranges::find(kLineColours, drawn.colour);
    return found == std::end(kLineColours) ? 0 : static_cast<int>(found - kLineColours) + 1;
}

/// A picture as it looks alone.
QImage PictureOf(Glyph glyph, int size, const QColor& ink, const QColor& paper) {
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(paper);
    QPainter painter(&image);
    Glyphs::Paint(painter, image.rect(), glyph, ink, paper);
    return image;
}

/// A list with the colours of the lines told apart, each record of it made by the test.
struct Fixture {
    TestHome home;
    ActiveTimerSet timers{home.clock};
    CRecordListModel model{*home.document, timers, *home.settings};
    CRecordListView view{model, *home.settings};

    Fixture() {
        Settings& settings = *home.settings;
        settings.lineColour1 = Stored(kLineColours[0]);
        settings.lineColour2 = Stored(kLineColours[1]);
        settings.lineColour3 = Stored(kLineColours[2]);
        settings.lineColour4 = Stored(kLineColours[3]);
        settings.gridLineColour = Stored(kGridColour);
        settings.alternateRows = 0;
        view.resize(900, 300);
    }
    void Add(CVORec& record) {
        [&] { QVERIFY(home.document->AddRecord(record, {Notify::Later, Commit::Now, Identity::New})); }();
    }
    void AddTime() {
        CTRecord record;
        record.Reset();
        record.date.Set(11, 3, 2026);
        record.SetStart(9, 0, false);
        record.SetEnd(5, 30, true);
        record.item1 = u"Acme"_s;
        record.item2 = u"Anvils & bolts"_s;
        record.item3 = u"Forging"_s;
        record.item4 = u"Day"_s;
        record.SetBillable(true);
        record.notes = u"first\nsecond"_s;
        Add(record);
    }
    void Show(int layout) {
        home.document->BuildVisible();
        home.settings->listLayout = layout;
        model.Rebuild();
        view.ApplyLayout();
        view.show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(&view)); }();
    }
    [[nodiscard]] ListColours Colours() const {
        return MakeListColours(*home.settings, QApplication::palette());
    }
    [[nodiscard]] Drawing Drawn() { return CDrawing::Of(*view.viewport()); }
    /// The text that was drawn and holds this one; the test fails without one.
    [[nodiscard]] DrawnText Drawn(const QString& text) {
        for (const DrawnText& drawn : Drawn().texts)
            if (drawn.text.contains(text)) return drawn;
        [&] { QFAIL(qPrintable(text + u" isn't drawn"_s)); }();
        return {};
    }
    [[nodiscard]] QRect Cell(int row, int column) const { return view.visualRect(model.index(row, column)); }
    /// What is on the screen in a square of a cell: so far from its left edge, in the middle upright.
    [[nodiscard]] QImage PictureAt(int row, int column, int left, int size) {
        const QRect cell = Cell(row, column);
        const QRect place(cell.left() + left, cell.center().y() - size / 2, size, size);
        return view.viewport()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    }
};

constexpr int kFirstColour = 1, kSecondColour = 2, kThirdColour = 3;

}  // namespace

/// What the list draws: texts, where they stand, their colours, the pictures, the line under a row.
class TestRecordDrawing final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// One record over three lines: 858 pixels behind the state, less two pictures and four gaps, give three
    /// texts of 272 in the first line; less one gap, two of 428 in the others.
    void lines() {
        Fixture fixture;
        fixture.AddTime();
        fixture.Show(4);
        QCOMPARE(fixture.Cell(0, 1).width(), 858);
        struct Row {
            QString text;
            int left, line, colour;
        };
        const Row rows[] = {{u"11/03/26"_s, 40, 0, kFirstColour},
                            {u"09:00 AM"_s, 314, 0, kFirstColour},
                            {u"8.5000"_s, 588, 0, kFirstColour},
                            {u"Acme"_s, 40, 1, kSecondColour},
                            {u"Anvils & bolts"_s, 470, 1, kSecondColour},
                            {u"Forging"_s, 40, 2, kThirdColour},
                            {u"Day"_s, 470, 2, kThirdColour}};
        const Drawing drawing = fixture.Drawn();
        QCOMPARE(drawing.texts.size(), qsizetype(std::size(rows)));
        const int height = fixture.Cell(0, 1).height() / 3;
        for (qsizetype i = 0; i < drawing.texts.size(); ++i) {
            const DrawnText& drawn = drawing.texts[i];
            QCOMPARE(drawn.text, rows[i].text);
            QCOMPARE(drawn.place.left(), rows[i].left);
            QCOMPARE(LineColour(drawn), rows[i].colour);
            const qreal middle = (rows[i].line + 0.5) * height;
            QVERIFY2(std::abs(drawn.place.center().y() - middle) <= 1.0, qPrintable(drawn.text));
        }
    }

    /// The fourth line has the fourth colour, the fifth the first again, the sixth the third.
    void coloursOfManyLines() {
        Fixture fixture;
        fixture.AddTime();
        fixture.home.settings->ListColumns().ShowExactly(ColumnHalf::Time, {0, 6, 1, 4, 5, 9, 10});
        fixture.home.settings->ListColumns().SetBreaks(ColumnHalf::Time, {1, 2, 3, 4, 5, 6});
        fixture.Show(4);
        QList<int> colours;
        for (const DrawnText& drawn : fixture.Drawn().texts) colours.append(LineColour(drawn));
        QCOMPARE(colours, QList<int>({1, 2, 3, 4, 1, 3, 1}));
    }

    /// Each text in its own column, all in the first line colour; spans stand at the right.
    void columns() {
        Fixture fixture;
        fixture.AddTime();
        fixture.Show(3);
        struct Row {
            QString text;
            int column;
            bool isAtRight;
        };
        const Row rows[] = {
            {u"11/03/26"_s, 1, false}, {u"09:00 AM"_s, 2, false},       {u"8.5000"_s, 3, true},
            {u"Acme"_s, 6, false},     {u"Anvils & bolts"_s, 7, false}, {u"Forging"_s, 8, false},
            {u"Day"_s, 9, false}};
        const Drawing drawing = fixture.Drawn();
        QCOMPARE(drawing.texts.size(), qsizetype(std::size(rows)));
        for (qsizetype i = 0; i < drawing.texts.size(); ++i) {
            const DrawnText& drawn = drawing.texts[i];
            const QRect cell = fixture.Cell(0, rows[i].column);
            QCOMPARE(drawn.text, rows[i].text);
            QCOMPARE(LineColour(drawn), kFirstColour);
            QVERIFY(std::abs(drawn.place.center().y() - cell.center().y()) <= 1.0);
            if (rows[i].isAtRight)
                QCOMPARE(qRound(drawn.place.right()), cell.right() + 1 - CRecordDelegate::kMargin);
            else
                QCOMPARE(qRound(drawn.place.left()), cell.left() + CRecordDelegate::kMargin);
        }
    }

    /// One text for a row, in the colour of the desktop's lists.
    void plainLayouts_data() {
        QTest::addColumn<int>("layout");
        QTest::newRow("large icons") << 1;
        QTest::newRow("list") << 2;
    }
    void plainLayouts() {
        QFETCH(int, layout);
        Fixture fixture;
        fixture.AddTime();
        fixture.Show(layout);
        const Drawing drawing = fixture.Drawn();
        QCOMPARE(drawing.Words(), QStringList{u"11/03/26"_s});
        QCOMPARE(drawing.texts[0].colour, fixture.view.palette().color(QPalette::Text));
        QCOMPARE(drawing.lines.size(), 0);
    }

    void selectedTexts_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<bool>("hasFocus");
        for (const int layout : {1, 2, 3, 4})
            for (const bool hasFocus : {true, false})
                QTest::addRow("layout %d %s focus", layout, hasFocus ? "with" : "without")
                    << layout << hasFocus;
    }
    void selectedTexts() {
        QFETCH(int, layout);
        QFETCH(bool, hasFocus);
        Fixture fixture;
        fixture.AddTime();
        fixture.Show(layout);
        fixture.view.selectAll();
        fixture.view.activateWindow();
        if (hasFocus)
            fixture.view.setFocus();
        else
            fixture.view.clearFocus();
        QTRY_COMPARE(fixture.view.hasFocus(), hasFocus);
        const ListColours colours = fixture.Colours();
        const Drawing drawing = fixture.Drawn();
        QVERIFY(!drawing.texts.isEmpty());
        for (const DrawnText& drawn : drawing.texts)
            QCOMPARE(drawn.colour, hasFocus ? colours.highlightText : colours.highlightTextNoFocus);
    }

    /// A text that doesn't fit ends with dots within its place.
    void longTexts_data() {
        QTest::addColumn<int>("layout");
        QTest::newRow("columns") << 3;
        QTest::newRow("lines") << 4;
    }
    void longTexts() {
        QFETCH(int, layout);
        Fixture fixture;
        fixture.AddTime();
        fixture.home.settings->ListColumns().ShowExactly(ColumnHalf::Time, {5, 0});
        fixture.home.settings->ListColumns().SetWidth(5, 60);
        fixture.view.resize(200, 300);
        fixture.Show(layout);
        const DrawnText drawn = fixture.Drawn(u"An"_s);
        const int room =
            layout == 3 ? 60 - 2 * CRecordDelegate::kMargin : (fixture.Cell(0, 1).width() - 2) / 2;
        QVERIFY2(drawn.text.startsWith(u"An"_s) && drawn.text.endsWith(u'\u2026'), qPrintable(drawn.text));
        QVERIFY(drawn.place.width() <= room);
        QVERIFY(drawn.place.width() > room / 2);
    }

    /// Widths that nobody has chosen were made for one font and grow with it.
    void textsInALargeFont() {
        Fixture fixture;
        fixture.AddTime();
        fixture.home.settings->SetListFont({.tenthsOfPoint = 300, .face = u"DejaVu Sans"_s});
        fixture.view.resize(4000, 300);
        fixture.Show(3);
        const DrawnText drawn = fixture.Drawn(u"Anvils"_s);
        QCOMPARE(drawn.text, u"Anvils & bolts"_s);
        QVERIFY(drawn.place.height() > 30);
    }

    /// On one line, a break inside a text is a space.
    void textOfSeveralLines() {
        Fixture fixture;
        fixture.AddTime();
        fixture.home.settings->ListColumns().ShowExactly(ColumnHalf::Time, {0, 15});
        fixture.Show(4);
        QCOMPARE(fixture.Drawn(u"first"_s).text, u"first second"_s);
    }

    /// Figure by figure, so that the count doesn't tremble; at the right as any other span.
    void runningCount() {
        Fixture fixture;
        fixture.AddTime();
        fixture.Show(3);
        fixture.timers.Start(fixture.model.IdAt(0), true, 1, 42, 17);
        const QRect cell = fixture.Cell(0, 3);
        QString count;
        qreal right = 0;
        for (const DrawnText& drawn : fixture.Drawn().texts) {
            if (!cell.contains(drawn.place.center().toPoint())) continue;
            count += drawn.text;
            right = drawn.place.right();
        }
        QCOMPARE(count, u"01:42:17"_s);
        QVERIFY(std::abs(right - (cell.right() + 1 - CRecordDelegate::kMargin)) <= 1.0);
    }

    /// The check box stands at the left edge, the picture of the state behind it, in the ink of the row.
    void state_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<int>("timer");
        QTest::addColumn<Glyph>("glyph");
        for (const int layout : {1, 2, 3, 4}) {
            QTest::addRow("layout %d, no timer", layout) << layout << 0 << Glyph::Record;
            QTest::addRow("layout %d, paused", layout) << layout << 1 << Glyph::TimerPaused;
            QTest::addRow("layout %d, running", layout) << layout << 2 << Glyph::TimerRunning;
        }
    }
    void state() {
        QFETCH(int, layout);
        QFETCH(int, timer);
        QFETCH(Glyph, glyph);
        Fixture fixture;
        fixture.AddTime();
        fixture.home.settings->gridLines = 0;
        fixture.Show(layout);
        if (timer > 0) fixture.timers.Start(fixture.model.IdAt(0), false, 0, 0, 0);
        if (timer == 1) fixture.timers.Pause(fixture.model.IdAt(0));
        const ListColours colours = fixture.Colours();
        const int size = layout == 1 ? 32 : 16;
        const QColor ink = layout < 3 ? fixture.view.palette().color(QPalette::Text) : colours.lines[0];
        QCOMPARE(fixture.PictureAt(0, 0, 0, 16), PictureOf(Glyph::CheckClear, 16, ink, colours.window));
        QCOMPARE(fixture.PictureAt(0, 0, 18, size), PictureOf(glyph, size, ink, colours.window));
        fixture.view.clearFocus();
        fixture.view.selectAll();
        const QColor light = colours.highlightTextNoFocus, ground = colours.highlightNoFocus;
        QCOMPARE(fixture.PictureAt(0, 0, 0, 16), PictureOf(Glyph::CheckSet, 16, light, ground));
        QCOMPARE(fixture.PictureAt(0, 0, 18, size), PictureOf(glyph, size, light, ground));
    }

    void stateOfAnExpense_data() {
        QTest::addColumn<bool>("isDistance");
        QTest::addColumn<Glyph>("glyph");
        QTest::newRow("money") << false << Glyph::Expense;
        QTest::newRow("a distance") << true << Glyph::DistanceEntry;
    }
    void stateOfAnExpense() {
        QFETCH(bool, isDistance);
        QFETCH(Glyph, glyph);
        Fixture fixture;
        const RecordModeScope mode(RecordMode::Expense);
        CERecord record;
        record.Reset();
        record.date.Set(11, 3, 2026);
        record.isDistance = isDistance;
        fixture.Add(record);
        fixture.Show(3);
        const ListColours colours = fixture.Colours();
        QCOMPARE(fixture.PictureAt(0, 0, 18, 16), PictureOf(glyph, 16, colours.lines[0], colours.window));
    }

    void flags_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<Glyph>("glyph");
        QTest::newRow("billable") << 13 << Glyph::Billable;
        QTest::newRow("billed") << 14 << Glyph::Billed;
        QTest::newRow("notes") << 15 << Glyph::Notes;
        QTest::newRow("exported") << 16 << Glyph::Exported;
        QTest::newRow("distance") << 22 << Glyph::DistanceEntry;
        QTest::newRow("flag 1 of an expense") << 27 << Glyph::Billable;
        QTest::newRow("flag 2 of an expense") << 28 << Glyph::Billed;
        QTest::newRow("flag 3 of an expense") << 29 << Glyph::Reimbursable;
        QTest::newRow("flag 4 of an expense") << 30 << Glyph::Reimbursed;
        QTest::newRow("flag 5 of an expense") << 31 << Glyph::Personal;
        QTest::newRow("notes of an expense") << 32 << Glyph::Notes;
        QTest::newRow("an exported expense") << 33 << Glyph::Exported;
    }
    /// In columns and in lines, set in the first record of the two and clear in the other. Among lines notes
    /// are text.
    void flags() {
        QFETCH(int, column);
        QFETCH(Glyph, glyph);
        const bool isTime = column < 17;
        Fixture fixture;
        const RecordModeScope mode(isTime ? RecordMode::Time : RecordMode::Expense);
        fixture.home.settings->gridLines = 0;
        fixture.view.resize(200, 300);
        fixture.home.settings->ListColumns().ShowExactly(isTime ? ColumnHalf::Time : ColumnHalf::Expense,
                                                         {column});
        AddBothRecords(fixture, isTime);
        fixture.Show(3);
        const ListColours colours = fixture.Colours();
        const QImage set = PictureOf(glyph, 16, colours.lines[0], colours.window);
        const QImage clear = PictureOf(Glyph::FlagClear, 16, colours.lines[0], colours.window);
        QVERIFY(set != clear);
        QVERIFY(ShowBoth(fixture, set, clear));
        if (column == 15 || column == 32) return;
        fixture.Show(4);
        QVERIFY(ShowBoth(fixture, set, clear));
    }

    void gridLine_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<int>("stored");
        QTest::addColumn<Qt::PenStyle>("style");
        for (const int layout : {3, 4}) {
            QTest::addRow("solid, layout %d", layout) << layout << 0 << Qt::SolidLine;
            QTest::addRow("dashes, layout %d", layout) << layout << 1 << Qt::DashLine;
            QTest::addRow("dots, layout %d", layout) << layout << 2 << Qt::DotLine;
            QTest::addRow("dash and dot, layout %d", layout) << layout << 3 << Qt::DashDotLine;
            QTest::addRow("dash and two dots, layout %d", layout) << layout << 4 << Qt::DashDotDotLine;
            QTest::addRow("an unknown style, layout %d", layout) << layout << 99 << Qt::DashDotDotLine;
            QTest::addRow("a negative style, layout %d", layout) << layout << -1 << Qt::SolidLine;
        }
    }
    /// Under each row, from its left edge to its right.
    void gridLine() {
        QFETCH(int, layout);
        QFETCH(int, stored);
        QFETCH(Qt::PenStyle, style);
        Fixture fixture;
        fixture.AddTime();
        fixture.home.settings->gridLineStyle = stored;
        fixture.Show(layout);
        const Drawing drawing = fixture.Drawn();
        QVERIFY(!drawing.lines.isEmpty());
        qreal reached = 0;
        for (const DrawnLine& drawn : drawing.lines) {
            QCOMPARE(drawn.pen.style(), style);
            QCOMPARE(drawn.pen.color(), kGridColour);
            QCOMPARE(drawn.line.x1(), reached);
            QCOMPARE(qRound(drawn.line.y1()), fixture.Cell(0, 0).bottom());
            QCOMPARE(drawn.line.y2(), drawn.line.y1());
            reached = drawn.line.x2();
        }
        QCOMPARE(qRound(reached), fixture.view.viewport()->width());
        fixture.home.settings->gridLines = 0;
        QCOMPARE(fixture.Drawn().lines.size(), 0);
    }

 private:
    /// Whether one of the two rows shows one picture, the other row the other one.
    static bool ShowBoth(Fixture& fixture, const QImage& set, const QImage& clear) {
        const auto shows = [&fixture](int row, const QImage& picture) {
            const QRect cell = fixture.Cell(row, 1);
            const QImage drawn = fixture.view.viewport()->grab(cell).toImage();
            return Contains(drawn.convertToFormat(QImage::Format_RGB32), picture);
        };
        return (shows(0, set) && shows(1, clear)) || (shows(0, clear) && shows(1, set));
    }
    static bool Contains(const QImage& drawn, const QImage& picture) {
        for (int y = 0; y + picture.height() <= drawn.height(); ++y)
            for (int x = 0; x + picture.width() <= drawn.width(); ++x)
                if (drawn.copy(QRect(QPoint(x, y), picture.size())) == picture) return true;
        return false;
    }
    /// Of two records, one with all flags and a note, one with none.
    static void AddBothRecords(Fixture& fixture, bool isTime) {
        for (const bool isSet : {true, false}) {
            CTRecord time;
            CERecord expense;
            time.Reset();
            expense.Reset();
            time.isBillable = time.isBilled = time.isExported = isSet;
            expense.isDistance = expense.flag1 = expense.flag2 = expense.flag3 = isSet;
            expense.flag4 = expense.flag5 = expense.isExported = isSet;
            if (isSet) time.notes = expense.notes = u"note"_s;
            fixture.Add(isTime ? static_cast<CVORec&>(time) : expense);
        }
    }

    /// Words that are looked for stand on a colour of their own, in texts and in the notes of several lines;
    /// the picture of the notes stands on it as a whole.
    void wordsAreMarked_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("isMarked");
        QTest::newRow("lines: a client") << 4 << u"cme"_s << true;
        QTest::newRow("lines: in the notes") << 4 << u"SECOND"_s << true;
        QTest::newRow("columns: a client") << 3 << u"cme"_s << true;
        QTest::newRow("columns: in the notes") << 3 << u"second"_s << true;
        QTest::newRow("a figure of the date is no word of a text") << 3 << u"11 acme"_s << false;
    }
    void wordsAreMarked() {
        QFETCH(int, layout);
        QFETCH(QString, words);
        QFETCH(bool, isMarked);
        Fixture fixture;
        fixture.AddTime();
        fixture.Show(layout);
        const auto marked = [&fixture] {
            const QImage picture = fixture.view.viewport()->grab().toImage();
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    if (picture.pixelColor(x, y) == fixture.Colours().found) return true;
            return false;
        };
        QVERIFY(!marked());
        fixture.view.Find(words);
        QCOMPARE(fixture.view.ShownCount(), isMarked ? 1 : 0);
        QCOMPARE(marked(), isMarked);
        fixture.view.Find({});
        QVERIFY(!marked());
    }
};

TEST_CLASS(TestRecordDrawing);
#include "TestRecordDrawing.moc"
