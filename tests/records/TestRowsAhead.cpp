#include "RecordsFixture.h"
#include "records/QueryCursor.h"
#include "support/TestProgram.h"

#include <algorithm>

/// Rows that are read in a thread of their own while those before them are used.
class TestRowsAhead : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void InPieces_data();
    void InPieces();
    void ThatFail();
    void GivenUp();
};

namespace {

const QString kAllTimes = QStringLiteral("SELECT * FROM time_velmarch");

bool Add(CVOSrcMgr& manager) {
    return manager.Query(kAllTimes + QStringLiteral(" WHERE 0"), true) && manager.Insert(NewTime()) &&
           manager.Update();
}

/// Records with the items "0" and so on, in this order.
bool AddNumbered(RecordsFixture& home, int count) {
    for (int i = 0; i < count; ++i) {
        CTRecord record = NewTime(QString::number(i));
        record.SetId(QString::number(i).rightJustified(32, u'0'));
        if (!home.store.InsertRecord(record, Commit::Later)) return false;
    }
    return home.store.Commit();
}

}  // namespace

void TestRowsAhead::InPieces_data() {
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("piece");
    QTest::newRow("fewer than a piece") << 3 << 5;
    QTest::newRow("a piece") << 5 << 5;
    QTest::newRow("one more") << 6 << 5;
    QTest::newRow("pieces of one row") << 4 << 1;
    QTest::newRow("several pieces") << 23 << 5;
}

void TestRowsAhead::InPieces() {
    QFETCH(int, rows);
    QFETCH(int, piece);
    RecordsFixture home;
    QVERIFY(AddNumbered(home, rows));
    QVERIFY(home.manager.Query(kAllTimes, false));
    int next = 0;
    while (!home.manager.IsEOF()) {
        RowTable table;
        QVERIFY(home.manager.GetQueryRows(table, static_cast<std::size_t>(piece), Ahead::Yes));
        QCOMPARE(static_cast<int>(table.RowCount()), std::min(piece, rows - next));
        for (std::size_t row = 0; row < table.RowCount(); ++row)
            QCOMPARE(table.Text(6, row).toByteArray(), QByteArray::number(next++));
    }
    QCOMPARE(next, rows);
    // No lock is kept.
    CVOSrcMgr other;
    QVERIFY(home.Open(other) && Add(other));
}

/// In the same words, and at the same rows, as where they aren't read ahead.
void TestRowsAhead::ThatFail() {
    RecordsFixture home;
    QVERIFY(AddNumbered(home, 9));
    const QString statement = QStringLiteral(
        "SELECT item1, CASE WHEN item1='7' THEN abs(-9223372036854775807-1) END FROM time_velmarch");
    QStringList errors;
    for (const Ahead ahead : {Ahead::No, Ahead::Yes}) {
        QVERIFY(home.manager.Query(statement, false));
        int pieces = 0;
        RowTable table;
        while (home.manager.GetQueryRows(table, 2, ahead)) ++pieces;
        QCOMPARE(pieces, 3);
        QVERIFY(home.manager.IsEOF());
        errors += home.manager.m_error;
    }
    QVERIFY2(errors[0].contains(QStringLiteral("overflow")), qPrintable(errors[0]));
    QCOMPARE(errors[1], errors[0]);
}

void TestRowsAhead::GivenUp() {
    RecordsFixture home;
    QVERIFY(AddNumbered(home, 9));
    CVOSrcMgr other;
    QVERIFY(home.Open(other));
    RowTable table;
    QVERIFY(home.manager.Query(kAllTimes, false) && home.manager.GetQueryRows(table, 2, Ahead::Yes));
    home.manager.CloseQuery();
    QVERIFY(Add(other));
    QVERIFY(home.manager.Query(kAllTimes, false) && home.manager.GetQueryRows(table, 2, Ahead::Yes));
    QVERIFY(home.manager.Query(kAllTimes + QStringLiteral(" WHERE item1='4'"), false));
    QVERIFY(home.manager.GetQueryRows(table, 2));
    QCOMPARE(table.RowCount(), std::size_t{1});
    QCOMPARE(table.Text(6, 0).toByteArray(), QByteArray("4"));
}

TEST_CLASS(TestRowsAhead);
#include "TestRowsAhead.moc"
