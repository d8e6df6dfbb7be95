#include "platform/sqlite/RowTable.h"

#include "support/TestProgram.h"

#include <QTest>

class TestRowTable : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void emptyTable();
    void integer_data();
    void integer();
    void columnsStayApart();
    void texts();
    void textsOfOddKinds();
};

void TestRowTable::emptyTable() {
    const RowTable none;
    QCOMPARE(none.ColumnCount(), 0);
    QCOMPARE(none.RowCount(), std::size_t{0});
    const RowTable table({RowColumnType::Text, RowColumnType::Real, RowColumnType::Integer});
    QCOMPARE(table.ColumnCount(), 3);
    QCOMPARE(table.RowCount(), std::size_t{0});
    QCOMPARE(table.TypeOf(0), RowColumnType::Text);
    QCOMPARE(table.TypeOf(1), RowColumnType::Real);
    QCOMPARE(table.TypeOf(2), RowColumnType::Integer);
}

void TestRowTable::integer_data() {
    QTest::addColumn<qint64>("put");
    QTest::addColumn<int>("read");
    QTest::newRow("small") << qint64{-1} << -1;
    QTest::newRow("the largest of 16 bits") << qint64{32767} << 32767;
    QTest::newRow("one more turns over") << qint64{32768} << -32768;
    QTest::newRow("the seventeenth bit is lost") << qint64{65536} << 0;
    QTest::newRow("only the low 16 bits count") << qint64{65543} << 7;
    QTest::newRow("even of 64") << (qint64{1} << 40) + 5 << 5;
}

void TestRowTable::integer() {
    QFETCH(qint64, put);
    QFETCH(int, read);
    RowTable table({RowColumnType::Integer});
    table.PutInteger(0, put);
    table.EndRow();
    QCOMPARE(table.Integer(0, 0), static_cast<std::int16_t>(read));
}

void TestRowTable::columnsStayApart() {
    RowTable table({RowColumnType::Integer, RowColumnType::Text, RowColumnType::Real, RowColumnType::Text});
    for (int row = 0; row < 3; ++row) {
        const QByteArray text = "row " + QByteArray::number(row);
        table.PutInteger(0, row);
        table.PutText(1, text.constData(), static_cast<std::size_t>(text.size()));
        table.PutReal(2, row + 0.5);
        table.PutText(3, nullptr, 0);
        table.EndRow();
    }
    QCOMPARE(table.RowCount(), std::size_t{3});
    QCOMPARE(table.Integer(0, 2), std::int16_t{2});
    QCOMPARE(table.Text(1, 2), QByteArrayView("row 2"));
    QCOMPARE(table.Text(1, 0), QByteArrayView("row 0"));
    QCOMPARE(table.Real(2, 1), 1.5);
    QVERIFY(table.Text(3, 1).isEmpty());
}

void TestRowTable::texts() {
    constexpr int kRows = 1000;
    RowTable table({RowColumnType::Text});
    table.Reserve(kRows);
    const auto textOf = [](int row) { return QByteArray(row % 13, static_cast<char>('a' + row % 26)); };
    for (int row = 0; row < kRows; ++row) {
        const QByteArray text = textOf(row);
        table.PutText(0, text.constData(), static_cast<std::size_t>(text.size()));
        table.EndRow();
    }
    for (int row = kRows - 1; row >= 0; --row) {
        QCOMPARE(table.Text(0, static_cast<std::size_t>(row)), QByteArrayView(textOf(row)));
    }
}

void TestRowTable::textsOfOddKinds() {
    RowTable table({RowColumnType::Text});
    const QByteArray zeros("a\0b", 3);
    const QByteArray large(3'000'000, 'x');
    for (const QByteArray& text : {zeros, large, QByteArray("\xF0\x9F\x95\x92")}) {
        table.PutText(0, text.constData(), static_cast<std::size_t>(text.size()));
        table.EndRow();
    }
    QCOMPARE(table.Text(0, 0), QByteArrayView(zeros));
    QCOMPARE(table.Text(0, 1), QByteArrayView(large));
    QCOMPARE(QString::fromUtf8(table.Text(0, 2)), u"\U0001F552"_qs);
}

TEST_CLASS(TestRowTable);
#include "TestRowTable.moc"
