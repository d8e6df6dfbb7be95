#include "config/ColumnTable.h"

#include "support/TestProgram.h"

#include <QTest>
#include <algorithm>

namespace {

/// The columns of a half that have a position, in its order.
std::vector<int> InOrder(ColumnHalf half, int ColumnRow::*position) {
    std::vector<int> columns;
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (ColumnTable()[static_cast<std::size_t>(column)].*position > 0) columns.push_back(column);
    std::ranges::sort(columns, {}, [position](int column) {
        return ColumnTable()[static_cast<std::size_t>(column)].*position;
    });
    return columns;
}

}  // namespace

/// The 34 columns as a fresh installation has them.
class TestColumnTable final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void rows_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("caption");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("field");
        QTest::newRow("date of a time record") << 0 << 25424 << 80 << 8 << 0;
        QTest::newRow("duration") << 1 << 25777 << 44 << 9 << 0;
        QTest::newRow("net time stands before the break") << 2 << 26025 << 44 << 9 << 0;
        QTest::newRow("break") << 3 << 26026 << 44 << 9 << 0;
        QTest::newRow("project") << 5 << 25205 << 90 << 5 << 110;
        QTest::newRow("start") << 6 << 25778 << 65 << 7 << 0;
        QTest::newRow("rate per hour, behind 112 in the order of fields") << 8 << 25428 << 50 << 9 << 113;
        QTest::newRow("amount of time") << 12 << 25177 << 90 << 9 << 115;
        QTest::newRow("notes, a field before the flags") << 15 << 25179 << 30 << 3 << 116;
        QTest::newRow("exported time") << 16 << 25994 << 30 << 3 << 146;
        QTest::newRow("date of an expense: no time with it") << 17 << 25424 << 80 << 6 << 0;
        QTest::newRow("amount of an expense") << 18 << 25177 << 60 << 9 << 136;
        QTest::newRow("a distance entry: no field name") << 22 << 25776 << 30 << 3 << 0;
        QTest::newRow("distance: no field name either") << 23 << 25180 << 50 << 9 << 0;
        QTest::newRow("rate per distance: nor here") << 24 << 25428 << 50 << 9 << 0;
        QTest::newRow("the third flag is field 141") << 29 << 25201 << 30 << 3 << 141;
        QTest::newRow("the fifth flag is field 140") << 31 << 25782 << 30 << 3 << 140;
        QTest::newRow("exported expense") << 33 << 25994 << 30 << 3 << 148;
    }
    void rows() {
        QFETCH(int, column);
        const ColumnRow& row = ColumnTable()[static_cast<std::size_t>(column)];
        QCOMPARE(row.index, column);
        QTEST(static_cast<int>(row.caption), "caption");
        QTEST(row.width, "width");
        QTEST(static_cast<int>(row.kind), "kind");
        QTEST(row.field, "field");
    }

    void orders_data() {
        QTest::addColumn<bool>("isTree");
        QTest::addColumn<bool>("isTime");
        QTest::addColumn<std::vector<int>>("order");
        QTest::newRow("list, time") << false << true << std::vector{0, 6, 1, 13, 14, 4, 5, 9, 10};
        QTest::newRow("list, expenses") << false << false << std::vector{17, 18, 27, 28, 19, 20, 21, 25};
        QTest::newRow("tree, time: the date is last and will go")
            << true << true << std::vector{4, 5, 9, 10, 0};
        QTest::newRow("tree, expenses") << true << false << std::vector{19, 20, 25, 21, 17};
    }
    void orders() {
        QFETCH(bool, isTree);
        QFETCH(bool, isTime);
        const ColumnHalf half = isTime ? ColumnHalf::Time : ColumnHalf::Expense;
        QTEST(InOrder(half, isTree ? &ColumnRow::treePosition : &ColumnRow::listPosition), "order");
    }

    /// 24 columns follow a field name, each field once.
    void fields() {
        std::vector<int> fields;
        for (const ColumnRow& row : ColumnTable())
            if (row.field != 0) fields.push_back(row.field);
        QCOMPARE(fields.size(), 24U);
        std::ranges::sort(fields);
        QVERIFY(std::ranges::adjacent_find(fields) == fields.end());
        QCOMPARE(fields.front(), 109);
        QCOMPARE(fields.back(), 148);
    }

    void withoutLevel() {
        const std::span<const int> out = ColumnsWithoutLevel();
        QCOMPARE(std::vector<int>(out.begin(), out.end()),
                 (std::vector{0, 1, 2, 3, 6, 7, 8, 12, 15, 16, 17, 18, 23, 24, 32, 33}));
    }

    void breaks() {
        const auto time = DefaultBreaks(ColumnHalf::Time), expense = DefaultBreaks(ColumnHalf::Expense);
        QCOMPARE(std::vector<int>(time.begin(), time.end()), (std::vector{5, 7, 9}));
        QCOMPARE(std::vector<int>(expense.begin(), expense.end()), (std::vector{4, 6, 8}));
    }

    void halves() {
        QCOMPARE(HalfOf(16), ColumnHalf::Time);
        QCOMPARE(HalfOf(17), ColumnHalf::Expense);
        QCOMPARE(HalfOf(33), ColumnHalf::Expense);
        QVERIFY(!IsColumn(-1));
        QVERIFY(!IsColumn(34));
        QVERIFY(!IsColumn(Column::kNone));
    }

    void looks() {
        for (const int column : {1, 2, 3, 8, 12, 18, 23, 24}) QVERIFY(IsRightAligned(column));
        QVERIFY(!IsRightAligned(4));
        for (const int column : {13, 14, 15, 16, 22, 27, 31, 32, 33}) QVERIFY(IsImageColumn(column));
        QVERIFY(!IsImageColumn(600));
        QVERIFY(IsNotesColumn(15));
        QVERIFY(IsNotesColumn(32));
        QVERIFY(!IsNotesColumn(16));
    }
};

TEST_CLASS(TestColumnTable);
#include "TestColumnTable.moc"
