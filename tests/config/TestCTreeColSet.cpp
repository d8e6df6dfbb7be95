#include "config/CTreeColSet.h"

#include "ColumnBytes.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace ColumnBytes;

class TestCTreeColSet final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void defaultLevels() {
        CTreeColSet set;
        set.SetDefaults();
        QCOMPARE(set.Order(ColumnHalf::Time), (std::vector{4, 5, 9, 10}));
        QCOMPARE(set.Order(ColumnHalf::Expense), (std::vector{19, 20, 25, 21}));
        QCOMPARE(set.EntryAt(10).position, 4);
        QCOMPARE(set.EntryAt(0).position, 0);
        QVERIFY(set.Breaks(ColumnHalf::Time).empty());
        QVERIFY(set.Breaks(ColumnHalf::Expense).empty());
    }

    void excluded() {
        const CTreeColSet set;
        QString excluded;
        for (int column = -1; column <= 34; ++column)
            if (set.IsExcluded(column)) excluded += QString::number(column) + u' ';
        QCOMPARE(excluded, QStringLiteral("0 1 2 3 6 7 8 12 15 16 17 18 23 24 32 33 "));
        QVERIFY(!set.IsExcluded(600));
    }

    /// Excluded columns that a stored set shows are hidden, and the levels behind them move up.
    void storedExcludedColumnsAreHidden() {
        QByteArray rows = Rows();
        PutRow(rows, 0, Row('A', 1, 50, 1, 5));
        PutRow(rows, 4, Row('A', 1, 50, 2, 5));
        PutRow(rows, 8, Row('A', 1, 50, 3, 5));
        PutRow(rows, 5, Row('A', 1, 50, 4, 5));
        PutRow(rows, 23, Row('A', 1, 50, 1, 5));
        PutRow(rows, 26, Row('A', 1, 50, 2, 5));
        CTreeColSet set;
        QVERIFY(set.LoadBlob(Blob(rows + NoBreaks())));
        QCOMPARE(set.Order(ColumnHalf::Time), (std::vector{4, 5}));
        QCOMPARE(set.Order(ColumnHalf::Expense), (std::vector{26}));
        QCOMPARE(set.EntryAt(5).position, 2);
        QCOMPARE(set.EntryAt(26).position, 1);
        QVERIFY(!set.IsVisible(0));
        QCOMPARE(set.EntryAt(0).position, 0);
    }

    /// The list's set as a tree's: what makes a level stays in its order.
    void aListsSet() {
        CTreeColSet set;
        QVERIFY(set.LoadBlob(Default("list")));
        QCOMPARE(set.Order(ColumnHalf::Time), (std::vector{13, 14, 4, 5, 9, 10}));
        QCOMPARE(set.Order(ColumnHalf::Expense), (std::vector{27, 28, 19, 20, 21, 25}));
    }

    void damaged() {
        CTreeColSet set;
        set.SetDefaults();
        QVERIFY(!set.LoadBlob(Default("tree").chopped(1)));
        QCOMPARE(set.Order(ColumnHalf::Time), (std::vector{4, 5, 9, 10}));
    }

    /// Nobody shows an excluded column later either.
    void excludedStayHidden() {
        CTreeColSet set;
        set.SetDefaults();
        set.AssignOrder(ColumnHalf::Time, {}, {QStringLiteral("Date"), QStringLiteral("Currency")});
        QVERIFY(!set.IsVisible(0));
        QVERIFY(set.IsVisible(11));
        set.SetColumn(ColumnHalf::Time, QStringLiteral("Rate"), {QStringLiteral("Rate"), 50, 0, true});
        QVERIFY(!set.IsVisible(8));
        QCOMPARE(set.EntryAt(8).position, 0);
    }

    /// With captions that two columns share, the one that can be a level is shown.
    void distanceByCaption() {
        CTreeColSet set;
        set.SetDefaults();
        set.AssignOrder(ColumnHalf::Expense, {}, {QStringLiteral("Distance")});
        QVERIFY(set.IsVisible(22));
        QVERIFY(!set.IsVisible(23));
    }
};

TEST_CLASS(TestCTreeColSet);
#include "TestCTreeColSet.moc"
