#include "records/CVOSrcMgr.h"

#include "RecordsFixture.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CPRecord.h"
#include "records/QuoteText.h"
#include "records/RecordFactory.h"
#include "support/TestProgram.h"

/// The store contract: queries, rows, transactions, two managers on one store.
class TestCVOSrcMgr : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void InitDataSrc();
    void CreationCutOff();
    void Tables_data();
    void Tables();
    void BeforeAnyQuery();
    void Cursor_data();
    void Cursor();
    void RecordRefusesARow();
    void GetRows_data();
    void GetRows();
    void ComputedColumns();
    void Insert();
    void InsertRefuses_data();
    void InsertRefuses();
    void InsertTwice();
    void Modify();
    void ModifyRefuses();
    void WalkAndModify();
    void SetFieldValue_data();
    void SetFieldValue();
    void TextsRoundTrip_data();
    void TextsRoundTrip();
    void DeleteIsDurableByItself();
    void BatchJoinsDeletes();
    void Discard();
    void CloseDropsWhatNobodyAskedToKeep();
    void QueryFails_data();
    void QueryFails();
    void NoLockIsKept_data();
    void NoLockIsKept();
    void OpenReadDoesNotBlockTheOwnCommit();
    void TwoManagers();

 private:
    static bool InsertInto(CVOSrcMgr& manager, const CVORec& record);
};

namespace {

const QString kAllTimes = QStringLiteral("SELECT * FROM time_velmarch");
const QString kTimePlace = QStringLiteral("SELECT * FROM time_velmarch WHERE 0");

QString ById(const QString& id) {
    return kAllTimes + QStringLiteral(" WHERE identity='%1'").arg(id);
}

}  // namespace

bool TestCVOSrcMgr::InsertInto(CVOSrcMgr& manager, const CVORec& record) {
    return manager.Query(kTimePlace, true) && manager.Insert(record);
}

void TestCVOSrcMgr::InitDataSrc() {
    QTemporaryDir folder;
    CVOSrcMgr manager;
    manager.m_directory = folder.path();
    manager.m_fileName = QStringLiteral("velmarch.store");
    eActionDisposition source{};
    eActionDisposition second{};
    QVERIFY(manager.InitDataSrc(source, second));
    QCOMPARE(source, eActionDisposition::Created);
    QVERIFY(!manager.m_recordset);
    manager.Close();
    RecordsFixture home;
    home.manager.Close();
    QVERIFY(home.manager.InitDataSrc(source, second));
    QCOMPARE(source, eActionDisposition::Existed);
}

void TestCVOSrcMgr::CreationCutOff() {
    QTemporaryDir folder;
    eActionDisposition source{};
    eActionDisposition second{};
    for (int start = 0; start < 2; ++start) {
        CVOSrcMgr manager;
        manager.m_directory = folder.path();
        manager.m_fileName = QStringLiteral("velmarch.store");
        QVERIFY(manager.InitDataSrc(source, second));
        // With a table missing the creation goes on at the next start.
        QCOMPARE(source, eActionDisposition::Created);
        QVERIFY(manager.InitDataSrcTable(QStringLiteral("time_velmarch"), CTRecord()));
    }
}

void TestCVOSrcMgr::Tables_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("sql");
    QTest::newRow("items") << QStringLiteral("item_velmarch")
                           << QStringLiteral(
                                  "CREATE TABLE \"item_velmarch\" (\"list\" INTEGER, \"value_type\" INTEGER, "
                                  "\"text\" TEXT, \"value\" REAL, \"identity\" TEXT PRIMARY KEY) WITHOUT "
                                  "ROWID");
    QTest::newRow("dependencies")
        << QStringLiteral("dependency_velmarch")
        << QStringLiteral(
               "CREATE TABLE \"dependency_velmarch\" (\"number\" INTEGER, \"block\" TEXT, \"identity\" TEXT "
               "PRIMARY KEY) WITHOUT ROWID");
    QTest::newRow("days of time records")
        << QStringLiteral("time_velmarch_days")
        << QStringLiteral(
               "CREATE INDEX \"time_velmarch_days\" ON \"time_velmarch\" (\"year\", \"month\", \"day\")");
    QTest::newRow("days of expenses") << QStringLiteral("expense_velmarch_days")
                                      << QStringLiteral(
                                             "CREATE INDEX \"expense_velmarch_days\" ON \"expense_velmarch\" "
                                             "(\"year\", \"month\", \"day\")");
}

void TestCVOSrcMgr::Tables() {
    QFETCH(QString, name);
    RecordsFixture home;
    QVERIFY(
        home.manager.Query(QStringLiteral("SELECT sql FROM sqlite_schema WHERE name='%1'").arg(name), false));
    QTEST(home.manager.m_recordset->GetFieldValueString(0), "sql");
}

void TestCVOSrcMgr::BeforeAnyQuery() {
    RecordsFixture home;
    QVERIFY(!home.manager.m_recordset);
    QVERIFY(home.manager.IsEOF());
    QVERIFY(home.manager.MoveNext());
    CTRecord record;
    bool found = true;
    QVERIFY(home.manager.GetQueryRecord(record, found, true));
    QVERIFY(!found);
    QVERIFY(!home.manager.Insert(NewTime()));
    QVERIFY(!home.manager.Modify(NewTime()));
    QVERIFY(home.manager.Update());
    QVERIFY(!home.manager.HasOpenChanges());
    home.manager.CloseQuery();
}

void TestCVOSrcMgr::Cursor_data() {
    QTest::addColumn<bool>("updatable");
    QTest::newRow("read only") << false;
    QTest::newRow("updatable") << true;
}

void TestCVOSrcMgr::Cursor() {
    QFETCH(bool, updatable);
    RecordsFixture home;
    for (const char16_t item : u"abc")
        if (item != 0) QVERIFY(InsertInto(home.manager, NewTime(QString(QChar(item)))));
    QVERIFY(home.manager.Update());
    CVOSrcMgr& manager = home.manager;
    QVERIFY(manager.Query(kAllTimes, updatable));
    QVERIFY(!manager.IsEOF());
    CTRecord record;
    bool found = false;
    // Without advancing the same row comes again.
    QVERIFY(manager.GetQueryRecord(record, found, false) && found);
    QVERIFY(manager.GetQueryRecord(record, found, true) && found);
    QCOMPARE(record.item1, QStringLiteral("a"));
    QCOMPARE(manager.m_recordset->GetFieldValueString(6), QStringLiteral("b"));
    QCOMPARE(manager.m_recordset->GetFieldValue(20), VARIANT(std::int32_t{11}));
    QCOMPARE(manager.m_recordset->GetFieldValue(12), VARIANT(-1.0));
    QCOMPARE(manager.m_recordset->GetFieldValue(25), VARIANT());
    QCOMPARE(manager.m_recordset->GetFieldValue(-1), VARIANT());
    QVERIFY(manager.MoveNext());
    QVERIFY(manager.GetQueryRecord(record, found, true) && found);
    QCOMPARE(record.item1, QStringLiteral("c"));
    QVERIFY(manager.IsEOF());
    QCOMPARE(manager.m_recordset->GetFieldValue(6), VARIANT());
    QVERIFY(manager.GetQueryRecord(record, found, true));
    QVERIFY(!found);
    QVERIFY(manager.MoveNext());
}

void TestCVOSrcMgr::RecordRefusesARow() {
    struct Picky final : public CVORec {
        [[nodiscard]] RecordKind Kind() const override { return RecordKind::Time; }
        [[nodiscard]] std::span<const FieldDef> GetFieldDefs() const override {
            return FieldDefsOf(RecordKind::Time);
        }
        [[nodiscard]] bool WriteFields(CVORecordset&) const override { return false; }
        [[nodiscard]] bool ReadFields(CVORecordset& row) override {
            row.m_errorCode = -2;
            row.m_errorTexts = {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("one")};
            return false;
        }
        [[nodiscard]] QByteArray ToBytes() const override { return {}; }
        [[nodiscard]] bool FromBytes(const QByteArray&, bool) override { return false; }
        [[nodiscard]] std::unique_ptr<CVORec> Clone() const override { return nullptr; }
    } picky;
    picky.GenUnique();
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(home.manager.Query(kAllTimes, false));
    bool found = false;
    QVERIFY(!home.manager.GetQueryRecord(picky, found, true));
    QCOMPARE(home.manager.m_errorCode, -2);
    QCOMPARE(home.manager.m_error, QStringLiteral("one two"));
    QVERIFY(!InsertInto(home.manager, picky));
    QVERIFY(home.manager.m_errorCode != 0);
    QVERIFY(!home.manager.HasOpenChanges());
    QCOMPARE(home.TimeRows(), 1);
}

void TestCVOSrcMgr::GetRows_data() {
    QTest::addColumn<bool>("updatable");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<int>("rows");
    QTest::newRow("all rows") << false << 0 << 3;
    QTest::newRow("the rest behind the first") << false << 1 << 2;
    QTest::newRow("nothing at the end") << false << 3 << 0;
    QTest::newRow("all rows of an updatable query") << true << 0 << 3;
    QTest::newRow("the rest of an updatable query") << true << 2 << 1;
}

void TestCVOSrcMgr::GetRows() {
    QFETCH(bool, updatable);
    QFETCH(int, skipped);
    QFETCH(int, rows);
    RecordsFixture home;
    for (const char16_t item : {u'a', u'b', u'c'}) {
        CTRecord record = NewTime(QString(QChar(item)));
        record.SetBillable(true);
        (void)record.SetRate(1.5F);
        QVERIFY(InsertInto(home.manager, record));
    }
    QVERIFY(home.manager.Update());
    QVERIFY(home.manager.Query(kAllTimes, updatable));
    for (int i = 0; i < skipped; ++i) QVERIFY(home.manager.MoveNext());
    RowTable table;
    QVERIFY(home.manager.m_recordset->GetRows(table));
    QCOMPARE(static_cast<int>(table.RowCount()), rows);
    QCOMPARE(table.ColumnCount(), 25);
    if (rows > 0) {
        const auto last = static_cast<std::size_t>(rows - 1);
        QCOMPARE(table.Text(6, last).toByteArray(), QByteArray("c"));
        QCOMPARE(table.Integer(22, last), std::int16_t{2026});
        QCOMPARE(table.Real(10, last), 1.5);
    }
    QVERIFY(home.manager.IsEOF());
}

void TestCVOSrcMgr::ComputedColumns() {
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(home.manager.Query(QStringLiteral("SELECT count(*), NULL FROM time_velmarch"), false));
    QCOMPARE(ToInt32(home.manager.m_recordset->GetFieldValue(0)), 1);
    QCOMPARE(home.manager.m_recordset->GetFieldValueString(1), QString());
}

void TestCVOSrcMgr::Insert() {
    RecordsFixture home;
    const CTRecord record = NewTime(QStringLiteral("x"));
    QVERIFY(InsertInto(home.manager, record));
    QVERIFY(home.manager.HasOpenChanges());
    // Not durable yet: another connection doesn't see it.
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.manager.Update());
    QVERIFY(!home.manager.HasOpenChanges());
    QCOMPARE(home.TimeRows(), 1);
    // The place of a query serves many rows.
    QVERIFY(home.manager.Query(kTimePlace, true));
    for (int i = 0; i < 5; ++i) QVERIFY(home.manager.Insert(NewTime()));
    QVERIFY(home.manager.Update());
    QCOMPARE(home.TimeRows(), 6);
}

void TestCVOSrcMgr::InsertRefuses_data() {
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("text");
    const QString good = QStringLiteral("0123456789ABCDEF0123456789ABCDEF");
    QTest::newRow("no identity") << QString() << kTimePlace << static_cast<int>(Text::RecordWithoutIdentity);
    QTest::newRow("a lower-case identity")
        << good.toLower() << kTimePlace << static_cast<int>(Text::RecordWithoutIdentity);
    QTest::newRow("an identity one digit too long")
        << good + u'1' << kTimePlace << static_cast<int>(Text::RecordWithoutIdentity);
    QTest::newRow("the place of another kind")
        << good << QStringLiteral("SELECT * FROM item_velmarch WHERE 0")
        << static_cast<int>(Text::NoTableToWrite);
    QTest::newRow("a query of no table")
        << good << QStringLiteral("SELECT 1") << static_cast<int>(Text::NoTableToWrite);
}

void TestCVOSrcMgr::InsertRefuses() {
    QFETCH(QString, id);
    QFETCH(QString, statement);
    QFETCH(int, text);
    RecordsFixture home;
    CTRecord record = NewTime();
    record.SetId(id);
    QVERIFY(home.manager.Query(statement, true));
    QVERIFY(!home.manager.Insert(record));
    QCOMPARE(home.manager.m_error, LoadText(text));
    QVERIFY(home.manager.m_errorCode != 0);
    QVERIFY(!home.manager.HasOpenChanges());
    QCOMPARE(home.TimeRows(), 0);
}

void TestCVOSrcMgr::InsertTwice() {
    RecordsFixture home;
    const CTRecord record = NewTime(QStringLiteral("first"));
    CTRecord again = record;
    again.item1 = QStringLiteral("second");
    QVERIFY(InsertInto(home.manager, record));
    QVERIFY(!InsertInto(home.manager, again));
    QVERIFY(home.manager.m_errorCode != 0);
    // The refused row takes nothing of the batch with it.
    QVERIFY(home.manager.Update());
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='first'")), 1);
}

void TestCVOSrcMgr::Modify() {
    RecordsFixture home;
    CTRecord record = NewTime(QStringLiteral("before"));
    const QString oldId = record.GetId();
    QVERIFY(InsertInto(home.manager, record) && home.manager.Update());
    record.item1 = QStringLiteral("after");
    QVERIFY(home.manager.Query(ById(oldId), true));
    QVERIFY(home.manager.Modify(record));
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='after'")), 0);
    QVERIFY(home.manager.Update());
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='after'")), 1);
    // All columns are overwritten, the identity among them.
    record.GenUnique();
    QVERIFY(home.manager.Query(ById(oldId), true));
    QVERIFY(home.manager.Modify(record) && home.manager.Update());
    QCOMPARE(home.Rows(ById(record.GetId())), 1);
    QCOMPARE(home.TimeRows(), 1);
}

void TestCVOSrcMgr::ModifyRefuses() {
    RecordsFixture home;
    const CTRecord record = NewTime();
    QVERIFY(home.manager.Query(ById(record.GetId()), true));
    QVERIFY(!home.manager.Modify(record));
    QCOMPARE(home.manager.m_error, LoadText(Text::RecordGone));
    QVERIFY(InsertInto(home.manager, record) && home.manager.Update());
    QVERIFY(home.manager.Query(ById(record.GetId()), true));
    CVOSrcMgr other;
    QVERIFY(home.Open(other));
    QVERIFY(other.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
    QVERIFY(!home.manager.Modify(record));
    QCOMPARE(home.manager.m_error, LoadText(Text::RecordGone));
    QVERIFY(!home.manager.HasOpenChanges());
}

void TestCVOSrcMgr::WalkAndModify() {
    RecordsFixture home;
    for (int i = 0; i < 20; ++i) QVERIFY(InsertInto(home.manager, NewTime(QString::number(i))));
    QVERIFY(home.manager.Update());
    QVERIFY(home.manager.Query(kAllTimes, true));
    int count = 0;
    for (; !home.manager.IsEOF(); ++count) {
        CTRecord record;
        bool found = false;
        QVERIFY(home.manager.GetQueryRecord(record, found, false) && found);
        record.item1 += u'!';
        QVERIFY(home.manager.Modify(record));
        QVERIFY(home.manager.MoveNext());
    }
    QVERIFY(home.manager.Update());
    QCOMPARE(count, 20);
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1 LIKE '%!' AND item1 NOT LIKE '%!!'")), 20);
}

void TestCVOSrcMgr::SetFieldValue_data() {
    QTest::addColumn<int>("itemLength");
    QTest::addColumn<int>("notesLength");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("255 characters in an item") << 255 << 0 << true;
    QTest::newRow("256 characters in an item") << 256 << 0 << false;
    QTest::newRow("32000 characters in the notes") << 0 << 32000 << true;
    QTest::newRow("32001 characters in the notes") << 0 << 32001 << false;
}

void TestCVOSrcMgr::SetFieldValue() {
    QFETCH(int, itemLength);
    QFETCH(int, notesLength);
    QFETCH(bool, isStored);
    RecordsFixture home;
    CTRecord record = NewTime(QString(itemLength, u'Ä'));
    record.notes = QString(notesLength, u'ß');
    QCOMPARE(InsertInto(home.manager, record), isStored);
    QVERIFY(home.manager.Update());
    QCOMPARE(home.TimeRows(), isStored ? 1 : 0);
    if (!isStored) QCOMPARE(home.manager.m_errorCode, -3);
    // Outside of a row being written there is nothing to set; a name that the table lacks is refused.
    CVORecordset& row = *home.manager.m_recordset;
    QVERIFY(!row.SetFieldValue(QStringLiteral("no_such_column"), VARIANT(std::int32_t{1})));
    QVERIFY(!CVORecordset().SetFieldValue(QStringLiteral("item1"), VARIANT(std::int32_t{1})));
    if (!isStored) return;
    CTRecord read;
    bool found = false;
    QVERIFY(home.manager.Query(kAllTimes, false));
    QVERIFY(home.manager.GetQueryRecord(read, found, true) && found);
    QCOMPARE(read.item1, record.item1);
    QCOMPARE(read.notes, record.notes);
}

void TestCVOSrcMgr::TextsRoundTrip_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("apostrophes") << QStringLiteral("it's 'quoted'");
    QTest::newRow("quotation marks") << QStringLiteral("\"x\"");
    QTest::newRow("percent signs") << QStringLiteral("100 %s %d %%");
    QTest::newRow("umlauts") << QStringLiteral("ÄÖÜ äöü ß");
    QTest::newRow("an emoji") << QStringLiteral("\U0001F600");
    QTest::newRow("line feeds and tabs") << QStringLiteral("a\r\n\tb");
    QTest::newRow("a null character") << QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    QTest::newRow("a null character alone") << QString(QChar(0));
    QTest::newRow("what looks like a statement") << QStringLiteral("'; DROP TABLE time_velmarch; --");
    QTest::newRow("digits in a text column") << QStringLiteral("007");
    QTest::newRow("nothing") << QString();
}

void TestCVOSrcMgr::TextsRoundTrip() {
    QFETCH(QString, text);
    RecordsFixture home;
    CTRecord record = NewTime(text);
    record.notes = text;
    QVERIFY(InsertInto(home.manager, record) && home.manager.Update());
    CTRecord byRow;
    bool found = false;
    QVERIFY(home.manager.Query(kAllTimes, false));
    QVERIFY(home.manager.GetQueryRecord(byRow, found, true) && found);
    QCOMPARE(byRow.item1, text);
    QCOMPARE(byRow.notes, text);
    CTRecord byTable;
    RowTable rows;
    QVERIFY(home.manager.Query(kAllTimes, false) && home.manager.m_recordset->GetRows(rows));
    QVERIFY(byTable.Load(rows, 0));
    QCOMPARE(byTable.item1, text);
    QCOMPARE(byTable.notes, text);
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1=") + QuoteText(text)), 1);
}

void TestCVOSrcMgr::DeleteIsDurableByItself() {
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(home.manager.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(!home.manager.HasOpenChanges());
    // The flag doesn't matter: a statement that changes data is carried out.
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(home.manager.Query(QStringLiteral("DELETE FROM time_velmarch"), false));
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.manager.IsEOF());
}

void TestCVOSrcMgr::BatchJoinsDeletes() {
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(home.manager.BeginBatch());
    QVERIFY(home.manager.BeginBatch());
    QVERIFY(home.manager.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
    QVERIFY(InsertInto(home.manager, NewTime()));
    QVERIFY(InsertInto(home.manager, NewTime()));
    QCOMPARE(home.TimeRows(), 1);
    QVERIFY(home.manager.HasOpenChanges());
    QVERIFY(home.manager.Update());
    QCOMPARE(home.TimeRows(), 2);
}

void TestCVOSrcMgr::Discard() {
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(home.manager.BeginBatch());
    QVERIFY(home.manager.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
    QVERIFY(InsertInto(home.manager, NewTime()));
    home.manager.Discard();
    QVERIFY(!home.manager.HasOpenChanges());
    QVERIFY(home.manager.Update());
    QCOMPARE(home.TimeRows(), 1);
    home.manager.Discard();
}

void TestCVOSrcMgr::CloseDropsWhatNobodyAskedToKeep() {
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()));
    home.manager.Close();
    QVERIFY(!home.manager.HasOpenChanges());
    QVERIFY(home.Open(home.manager));
    QCOMPARE(home.TimeRows(), 0);
}

void TestCVOSrcMgr::QueryFails_data() {
    QTest::addColumn<QString>("statement");
    QTest::newRow("a table that isn't there") << QStringLiteral("SELECT * FROM unknown_table");
    QTest::newRow("no statement") << QString();
    QTest::newRow("nonsense") << QStringLiteral("hello");
    QTest::newRow("two statements") << QStringLiteral("SELECT 1; DELETE FROM time_velmarch");
    QTest::newRow("an open apostrophe") << QStringLiteral("SELECT * FROM time_velmarch WHERE item1='");
    QTest::newRow("a null character in it")
        << QStringLiteral("SELECT 1") + QChar(0) + QStringLiteral(" FROM x");
}

void TestCVOSrcMgr::QueryFails() {
    QFETCH(QString, statement);
    RecordsFixture home;
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QVERIFY(!home.manager.Query(statement, false));
    QVERIFY(home.manager.m_errorCode != 0);
    QVERIFY(!home.manager.m_error.isEmpty());
    QVERIFY(home.manager.IsEOF());
    QCOMPARE(home.TimeRows(), 1);
    CVOSrcMgr closed;
    QVERIFY(!closed.Query(kAllTimes, false));
    QVERIFY(!closed.m_error.isEmpty());
}

void TestCVOSrcMgr::NoLockIsKept_data() {
    QTest::addColumn<QString>("after");
    for (const char* after : {"the end", "close", "the next query", "an insert's place", "an updatable query",
                              "a bulk read", "a failed query"})
        QTest::newRow(after) << QString::fromLatin1(after);
}

void TestCVOSrcMgr::NoLockIsKept() {
    QFETCH(QString, after);
    RecordsFixture home;
    for (int i = 0; i < 3; ++i) QVERIFY(InsertInto(home.manager, NewTime()));
    QVERIFY(home.manager.Update());
    CVOSrcMgr other;
    QVERIFY(home.Open(other));
    QVERIFY(home.manager.Query(kAllTimes, false));
    // As long as the walk stands on a row, the other one can't write: this is what must not stay.
    QVERIFY(InsertInto(other, NewTime()));
    QVERIFY(!other.Update());
    other.Discard();
    RowTable rows;
    if (after == QStringLiteral("the end"))
        while (!home.manager.IsEOF()) QVERIFY(home.manager.MoveNext());
    else if (after == QStringLiteral("close"))
        home.manager.CloseQuery();
    else if (after == QStringLiteral("the next query"))
        QVERIFY(home.manager.Query(kAllTimes + QStringLiteral(" WHERE day=77"), false));
    else if (after == QStringLiteral("an insert's place"))
        QVERIFY(home.manager.Query(kTimePlace, true));
    else if (after == QStringLiteral("an updatable query"))
        QVERIFY(home.manager.Query(kAllTimes, true));
    else if (after == QStringLiteral("a bulk read"))
        QVERIFY(home.manager.m_recordset->GetRows(rows));
    else
        QVERIFY(!home.manager.Query(QStringLiteral("nonsense"), false));
    QVERIFY(InsertInto(other, NewTime()));
    QVERIFY2(other.Update(), qPrintable(other.m_error));
}

void TestCVOSrcMgr::OpenReadDoesNotBlockTheOwnCommit() {
    RecordsFixture home;
    for (int i = 0; i < 3; ++i) QVERIFY(InsertInto(home.manager, NewTime()));
    QVERIFY(home.manager.Update());
    QVERIFY(home.manager.BeginBatch());
    QVERIFY(home.manager.Query(QStringLiteral("DELETE FROM time_velmarch WHERE day=77"), true));
    QVERIFY(home.manager.Query(kAllTimes, false));
    QVERIFY(home.manager.Update());
    QVERIFY(!home.manager.IsEOF());
    QVERIFY(home.manager.MoveNext());
    QVERIFY(home.manager.MoveNext());
    QVERIFY(!home.manager.IsEOF());
}

void TestCVOSrcMgr::TwoManagers() {
    RecordsFixture home;
    CVOSrcMgr second(LoadText(Text::SecondManagerName), LoadText(Text::SecondManagerPurpose));
    QVERIFY(home.Open(second));
    for (int i = 0; i < 10; ++i) {
        QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
        QVERIFY(InsertInto(second, NewTime()) && second.Update());
    }
    for (CVOSrcMgr* manager : {&home.manager, &second}) {
        RowTable rows;
        QVERIFY(manager->Query(kAllTimes, false) && manager->m_recordset->GetRows(rows));
        QCOMPARE(rows.RowCount(), std::size_t{20});
    }
    // While one has changes open, the other reads the state before them.
    QVERIFY(InsertInto(second, NewTime()));
    QCOMPARE(home.TimeRows(), 20);
    QVERIFY(!InsertInto(home.manager, NewTime()));
    QVERIFY2(home.manager.m_error.contains(QStringLiteral("using")), qPrintable(home.manager.m_error));
    QVERIFY(second.Update());
    QVERIFY(InsertInto(home.manager, NewTime()) && home.manager.Update());
    QCOMPARE(home.TimeRows(), 22);
    second.Close();
    QVERIFY(home.manager.Query(kAllTimes, false));
}

TEST_CLASS(TestCVOSrcMgr);
#include "TestCVOSrcMgr.moc"
