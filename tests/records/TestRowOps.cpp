#include "records/RowOps.h"

#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QTest>

namespace {

RowOp Op(RowEvent event, int table, const QByteArray& key, std::int64_t sum, const QByteArray& before) {
    return {.event = event, .table = table, .key = key, .sum = sum, .before = before};
}

}  // namespace

/// Changes of rows as bytes, and rows as bytes.
class TestRowOps : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void opsComeBack();
    void manyOpsTakeSeveralParts();
    void notOps_data();
    void notOps();
    void rowsComeBack_data();
    void rowsComeBack();
    void notARow_data();
    void notARow();
};

void TestRowOps::opsComeBack() {
    const std::vector<RowOp> ops{
        Op(RowEvent::Added, 0, "A", -1, {}),
        Op(RowEvent::Modified, 3, QByteArray("k\0y", 3), INT64_MIN, QByteArray(300, 'x')),
        Op(RowEvent::Deleted, 2, {}, 0, "b"),
    };
    RowLog log;
    for (const RowOp& op : ops) log.Append(op);
    QCOMPARE(log.Parts().size(), std::size_t{1});
    QCOMPARE(log.Bytes(), std::int64_t{log.Parts()[0].size()});
    const auto read = RowLog::Read(log.Parts()[0]);
    QVERIFY(read && *read == ops);
}

void TestRowOps::manyOpsTakeSeveralParts() {
    RowLog log;
    for (int op = 0; op < 3000; ++op)
        log.Append(Op(RowEvent::Deleted, 1, QByteArray::number(op), 0, QByteArray(1000, 'x')));
    QCOMPARE(log.Parts().size(), std::size_t{3});
    int read = 0;
    for (const QByteArray& part : log.Parts())
        for (const RowOp& op : RowLog::Read(part).value_or(std::vector<RowOp>()))
            QCOMPARE(op.key, QByteArray::number(read++));
    QCOMPARE(read, 3000);
    log.Clear();
    QVERIFY(log.IsEmpty() && log.Bytes() == 0);
}

void TestRowOps::notOps_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("an unknown event") << QByteArray("\4\0\0........\0", 12);
    QTest::newRow("a cut checksum") << QByteArray("\1\0\1A...", 7);
    QTest::newRow("a length beyond the end") << QByteArray(
        "\1\0\x7F"
        "A",
        4);
    QTest::newRow("a length that never ends") << QByteArray("\1\0") + QByteArray(12, '\xFF');
}

void TestRowOps::notOps() {
    QFETCH(QByteArray, bytes);
    QVERIFY(!RowLog::Read(bytes));
}

void TestRowOps::rowsComeBack_data() {
    QTest::addColumn<QByteArray>("values");
    QTest::newRow("integers") << QByteArray("0, -1, 1, 127, -128, 9223372036854775807, -9223372036854775808");
    QTest::newRow("fractions") << QByteArray("0.5, -1e300, 0.300000011920929");
    QTest::newRow("texts") << QByteArray(
        "'', 'it''s 100 %', 'Gr\xC3\xBC\xC3\x9F"
        "e', 'a' || char(0) || 'b'");
    QTest::newRow("blobs and nothing") << QByteArray("x'', x'00FF', NULL");
}

/// A row that is bound again is the same one, types included.
void TestRowOps::rowsComeBack() {
    QFETCH(QByteArray, values);
    CSqliteFile file;
    QCOMPARE(file.Open(QStringLiteral(":memory:"), {}, true), OpenOutcome::Created);
    sqlite3_stmt* select = file.Prepare("SELECT " + values);
    QVERIFY(select);
    QCOMPARE(sqlite3_step(select), SQLITE_ROW);
    const int columns = sqlite3_column_count(select);
    QByteArray image;
    for (int column = 0; column < columns; ++column)
        RowOpImage::Append(image, sqlite3_column_value(select, column));
    QByteArrayList same;
    for (int column = 1; column <= columns; ++column) same.append('?' + QByteArray::number(column));
    sqlite3_stmt* compare = file.Prepare("SELECT (" + same.join(',') + ") IS (" + values + "), typeof(" +
                                         same.join(") || typeof(") + ") = typeof(" +
                                         values.split(',').join(") || typeof(") + ')');
    QVERIFY2(compare, qPrintable(file.Error()));
    QCOMPARE(RowOpImage::Bind(image, compare, 1), std::optional(columns));
    QCOMPARE(sqlite3_step(compare), SQLITE_ROW);
    QCOMPARE(sqlite3_column_int(compare, 0), 1);
    QCOMPARE(sqlite3_column_int(compare, 1), 1);
    sqlite3_reset(select);
    sqlite3_reset(compare);
}

void TestRowOps::notARow_data() {
    QTest::addColumn<QByteArray>("image");
    QTest::newRow("an unknown type") << QByteArray("\6");
    QTest::newRow("a text that is cut") << QByteArray("\3\5ab");
    QTest::newRow("a cut fraction") << QByteArray("\2abc");
}

void TestRowOps::notARow() {
    QFETCH(QByteArray, image);
    CSqliteFile file;
    QCOMPARE(file.Open(QStringLiteral(":memory:"), {}, true), OpenOutcome::Created);
    sqlite3_stmt* statement = file.Prepare("SELECT ?1");
    QCOMPARE(RowOpImage::Bind(image, statement, 1), std::nullopt);
}

TEST_CLASS(TestRowOps);
#include "TestRowOps.moc"
