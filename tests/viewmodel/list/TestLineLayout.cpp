#include "viewmodel/list/LineLayout.h"

#include "config/ColumnTable.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

/// The list's columns of time records and their breaks as a fresh installation has them.
constexpr int kNine[] = {0, 6, 1, 13, 14, 4, 5, 9, 10};
constexpr int kBreaks[] = {5, 7, 9};

/// "0 6 1 i i | 4 5": the columns of each line.
QString Words(const std::vector<ListLine>& lines) {
    QStringList words;
    for (const ListLine& line : lines) {
        QStringList columns;
        for (const int column : line.columns) columns.append(QString::number(column));
        words.append(columns.join(u' '));
    }
    return words.join(QStringLiteral(" | "));
}

}  // namespace

class TestLineLayout final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void buildLines_data() {
        QTest::addColumn<std::vector<int>>("visible");
        QTest::addColumn<std::vector<int>>("breaks");
        QTest::addColumn<QString>("lines");
        const std::vector<int> nine(std::begin(kNine), std::end(kNine));
        QTest::newRow("the defaults make 5, 2 and 2 columns; the 9 never fires")
            << nine << std::vector{5, 7, 9} << QStringLiteral("0 6 1 13 14 | 4 5 | 9 10");
        QTest::newRow("breaks out of order stop the later ones")
            << nine << std::vector{7, 5, 8} << QStringLiteral("0 6 1 13 14 4 5 | 9 10");
        QTest::newRow("no breaks, one line")
            << nine << std::vector<int>{} << QStringLiteral("0 6 1 13 14 4 5 9 10");
        QTest::newRow("a break at the start makes an empty line")
            << std::vector{0, 6} << std::vector{0} << QStringLiteral(" | 0 6");
        QTest::newRow("five lines") << std::vector{0, 6, 1, 4, 5} << std::vector{1, 2, 3, 4}
                                    << QStringLiteral("0 | 6 | 1 | 4 | 5");
        QTest::newRow("no columns, one empty line") << std::vector<int>{} << std::vector{5} << QString();
        QTest::newRow("doubled breaks fire once")
            << nine << std::vector{5, 5, 7} << QStringLiteral("0 6 1 13 14 | 4 5 9 10");
    }
    void buildLines() {
        QFETCH(std::vector<int>, visible);
        QFETCH(std::vector<int>, breaks);
        QTEST(Words(BuildLines(visible, breaks)), "lines");
    }

    void defaults() {
        const std::vector<ListLine> lines = BuildLines(kNine, kBreaks);
        QCOMPARE(lines.size(), 3U);
        QCOMPARE(lines[0].textColumns, 3);
        QCOMPARE(lines[0].imageColumns, 2);
        QCOMPARE(lines[1].textColumns, 2);
    }

    /// Notes are an image among columns, and text among lines.
    void notesAreText() {
        const std::vector<int> columns{15, 16};
        const std::vector<ListLine> lines = BuildLines(columns, {});
        QCOMPARE(lines[0].textColumns, 1);
        QCOMPARE(lines[0].imageColumns, 1);
        QVERIFY(IsImageColumn(15));
    }

    /// Line of 3 texts and 2 images, 300 wide: (300 - 32 - 8) / 3 = 86.67, cut to 86.
    void placeCells() {
        const std::vector<ListLine> lines = BuildLines(kNine, kBreaks);
        const std::vector<CellPlace> places = PlaceCells(lines[0], 40, 300, 16);
        const int lefts[] = {40, 128, 216, 304, 322};
        const int widths[] = {86, 86, 86, 16, 16};
        QCOMPARE(places.size(), 5U);
        for (std::size_t i = 0; i < places.size(); ++i) {
            QCOMPARE(places[i].left, lefts[i]);
            QCOMPARE(places[i].width, widths[i]);
            QCOMPARE(places[i].isImage, i > 2);
        }
    }

    /// Lines of three texts with two images, and of two texts with none, 300 wide from 40 on: the images take
    /// 36 at the right end, three columns of 88 are left, and the second text of the second line takes two.
    void placeOnAGrid() {
        const int columns[] = {0, 6, 7, 13, 14, 4, 5};
        const int breaks[] = {5};
        const std::vector<ListLine> lines = BuildLines(columns, breaks);
        const LineGrid grid = GridOf(lines);
        const auto words = [&](const ListLine& line) {
            QStringList places;
            for (const CellPlace& place : PlaceCellsOnGrid(line, grid, 40, 300, 16))
                places << QStringLiteral("%1+%2%3")
                              .arg(place.left)
                              .arg(place.width)
                              .arg(place.isImage ? QStringLiteral("i") : QString());
            return places.join(QLatin1Char(' '));
        };
        QCOMPARE(words(lines[0]), QStringLiteral("40+86 128+86 216+88 306+16i 324+16i"));
        QCOMPARE(words(lines[1]), QStringLiteral("40+86 128+176"));
        for (const CellPlace& place : PlaceCellsOnGrid(lines[0], grid, 0, 10, 16)) QVERIFY(place.width >= 0);
        QVERIFY(PlaceCellsOnGrid({}, GridOf({}), 0, 100, 16).empty());
    }

    void placeInTooLittleRoom() {
        const std::vector<ListLine> lines = BuildLines(kNine, kBreaks);
        for (const CellPlace& place : PlaceCells(lines[0], 0, 10, 16)) QVERIFY(place.width >= 0);
        ListLine images;
        images.columns = {13};
        images.imageColumns = 1;
        QCOMPARE(PlaceCells(images, 0, 100, 16).front().width, 16);
    }

    void lineColourNumber_data() {
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("colour");
        const int colours[] = {1, 2, 3, 4, 1, 3, 1, 4, 3, 2, 1, 4};
        for (int line = 1; line <= 12; ++line) QTest::addRow("line %d", line) << line << colours[line - 1];
    }
    void lineColourNumber() {
        QFETCH(int, line);
        QTEST(LineColourNumber(line), "colour");
    }
};

TEST_CLASS(TestLineLayout);
#include "TestLineLayout.moc"
