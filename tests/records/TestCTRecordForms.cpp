#include "RecordsFixture.h"

#include "support/TestProgram.h"

/// The forms in which a time record travels: bytes, a row, a row of a bulk read.
class TestCTRecordForms : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void FieldDefs();
    void ToBytes();
    void BytesRoundTrip();
    void FromBytes_data();
    void FromBytes();
    void FromBytesOfEightBitText();
    void RowRoundTrip_data();
    void RowRoundTrip();
    void StoredValues();
    void LoadedRecordForgetsWhatWasDerived();
    void FlagsOfOtherNumbers();
    void IntegersOfTheBulkPath();
    void LoadOfAnotherTable();
    void AbsurdRow();

 private:
    /// The first record of the store by both ways of reading.
    static CTRecord ByRow(RecordsFixture& home);
    static CTRecord ByTable(RecordsFixture& home);
    RegionScope m_region{Region24()};
};

namespace {

/// A record with a different value in every field.
CTRecord FullRecord() {
    CTRecord record = NewTime(QStringLiteral("Client ÄÖÜ"));
    record.item2 = QStringLiteral("it's 100 %");
    record.item3 = QStringLiteral("\"quoted\"");
    record.item4 = QStringLiteral("four");
    record.item5 = QStringLiteral("EUR");
    record.notes = QStringLiteral("line 1\nline 2 \U0001F600");
    record.SetStart(9, 5, false);
    record.SetEnd(5, 35, true);
    record.SetBreak(0, 45);
    record.SetBillable(true);
    (void)record.SetRate(12.5F);
    record.isBilled = true;
    record.isExported = false;
    return record;
}

QString Summary(const CTRecord& r) {
    return QStringList({TimeTextOfRecord(r, 3), TimeTextOfRecord(r, 4), r.spans.duration.clockText,
                        r.spans.breakTime.clockText, r.spans.effective.clockText, r.date.longText, r.item1,
                        r.item2, r.item3, r.item4, r.item5, r.GetRateText(), r.GetAmountText(),
                        QStringLiteral("%1%2%3").arg(r.isBillable).arg(r.isBilled).arg(r.isExported),
                        r.notes})
        .join(u'|');
}

constexpr char kFullSummary[] =
    "09:05|17:35|8:30|0:45|7:45|11/19/2026|Client ÄÖÜ|it's 100 %|\"quoted\"|four|EUR|12.500|96.88|110|line "
    "1\nline 2 "
    "\U0001F600";

}  // namespace

CTRecord TestCTRecordForms::ByRow(RecordsFixture& home) {
    CTRecord record;
    QString id;
    if (!home.store.Query(home.store.SelectAll(RecordKind::Time)) || !home.store.NextRecord(record, id, true))
        QTest::qFail("no record by row", __FILE__, __LINE__);
    home.manager.CloseQuery();
    return record;
}

CTRecord TestCTRecordForms::ByTable(RecordsFixture& home) {
    CTRecord record;
    RowTable rows;
    if (!home.store.Query(home.store.SelectAll(RecordKind::Time)) ||
        !home.manager.m_recordset->GetRows(rows) || !record.Load(rows, 0))
        QTest::qFail("no record by table", __FILE__, __LINE__);
    return record;
}

void TestCTRecordForms::FieldDefs() {
    const CTRecord record;
    QCOMPARE(record.GetFieldCount(), 25);
    QStringList columns;
    for (const FieldDef& field : record.GetFieldDefs())
        columns += QStringLiteral("%1/%2/%3/%4")
                       .arg(LoadText(field.nameId))
                       .arg(static_cast<int>(field.type))
                       .arg(field.length)
                       .arg(field.flags);
    QCOMPARE(
        columns.join(u' '),
        QStringLiteral("start_hour/1/1/0 start_minute/1/1/0 start_pm/1/1/0 end_hour/1/1/0 end_minute/1/1/0 "
                       "end_pm/1/1/0 item1/0/255/0 item2/0/255/0 item3/0/255/0 item4/0/255/0 rate/3/1/0 "
                       "item5/0/255/0 amount/3/1/0 billable/1/1/0 billed/1/1/0 exported/1/1/0 "
                       "duration_hours/1/1/0 duration_minutes/1/1/0 break_hours/1/1/0 break_minutes/1/1/0 "
                       "month/1/1/0 day/1/1/0 year/1/1/0 notes/2/32000/0 identity/0/32/256"));
}

void TestCTRecordForms::ToBytes() {
    CTRecord record;
    record.SetStart(9, 5, false);
    record.SetEnd(5, 35, true);
    record.date.Set(11, 19, 2026);
    record.item1 = QStringLiteral("A");
    record.item5 = QStringLiteral("E");
    record.SetBillable(true);
    record.rate.Set(1.5F);
    record.isExported = true;
    record.notes = QStringLiteral("n");
    // Hours, minutes and flags of start and end; duration; break; date; texts and floats; flags; notes.
    const QByteArray expected = QByteArray::fromHex(
        "01000000 04000000 09000000  01000000 04000000 05000000  00000000 01000000 00"
        "01000000 04000000 05000000  01000000 04000000 23000000  00000000 01000000 01"
        "01000000 04000000 08000000  01000000 04000000 1e000000"
        "01000000 04000000 ffffffff  01000000 04000000 ffffffff"
        "01000000 04000000 0b000000  01000000 04000000 13000000  01000000 04000000 ea070000"
        "02000000 02000000 4100      02000000 00000000           05000000 04000000 0000c03f"
        "02000000 00000000           02000000 00000000           02000000 02000000 4500"
        "05000000 04000000 000080bf"
        "00000000 01000000 01        00000000 01000000 00        00000000 01000000 01"
        "02000000 02000000 6e00");
    const QByteArray bytes = record.ToBytes();
    QCOMPARE(bytes.toHex(), expected.toHex());
}

void TestCTRecordForms::BytesRoundTrip() {
    const CTRecord source = FullRecord();
    const QByteArray bytes = source.ToBytes();
    CTRecord target;
    QVERIFY(target.FromBytes(bytes, false));
    QCOMPARE(Summary(target), QString::fromUtf8(kFullSummary));
    QCOMPARE(target.GetId(), QString());
    QVERIFY(!target.amountIsDerived && !target.rateIsDerived);
}

void TestCTRecordForms::FromBytes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no bytes at all") << QByteArray();
    QTest::newRow("an empty block") << QByteArray("");
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("ones") << QByteArray(1000, '\xff');
    const QByteArray whole = FullRecord().ToBytes();
    for (qsizetype cut = 1; cut < whole.size(); cut += 7)
        QTest::addRow("cut off after %d bytes", static_cast<int>(cut)) << whole.left(cut);
    QTest::newRow("cut off by one byte") << whole.left(whole.size() - 1);
}

void TestCTRecordForms::FromBytes() {
    QFETCH(QByteArray, bytes);
    CTRecord record;
    const bool isZeros = bytes.size() == 1000 && bytes[0] == '\0';
    QCOMPARE(record.FromBytes(bytes, false), isZeros);
    (void)record.FromBytes(bytes, true);
}

void TestCTRecordForms::FromBytesOfEightBitText() {
    CTRecord source;
    QByteArray bytes = source.ToBytes();
    // The last item is the empty notes: give it three bytes.
    QCOMPARE(bytes.right(8).toHex(), QByteArray("0200000000000000"));
    bytes.chop(4);
    bytes += QByteArray::fromHex("03000000") + "abc";
    CTRecord target;
    QVERIFY(target.FromBytes(bytes, true));
    QCOMPARE(target.notes, QStringLiteral("abc"));
}

void TestCTRecordForms::RowRoundTrip_data() {
    QTest::addColumn<bool>("isBulk");
    QTest::newRow("row by row") << false;
    QTest::newRow("bulk read") << true;
}

void TestCTRecordForms::RowRoundTrip() {
    QFETCH(bool, isBulk);
    RecordsFixture home;
    const CTRecord source = FullRecord();
    QVERIFY(home.store.InsertRecord(source, Commit::Now));
    const CTRecord target = isBulk ? ByTable(home) : ByRow(home);
    QCOMPARE(Summary(target), QString::fromUtf8(kFullSummary));
    QCOMPARE(target.GetId(), source.GetId());
}

void TestCTRecordForms::StoredValues() {
    RecordsFixture home;
    CTRecord record;
    record.GenUnique();
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    // No times, no spans, no date, no money: the sentinels of the table.
    QCOMPARE(
        home.Rows(QStringLiteral("SELECT * FROM time_velmarch WHERE start_hour=50 AND start_minute=0 AND "
                                 "start_pm=0 AND end_hour=50 AND end_minute=0 AND end_pm=0 AND item1='' AND "
                                 "rate=-1.0 AND amount=-1.0 AND billable=0 AND duration_hours=-1 AND "
                                 "duration_minutes=-1 AND break_hours=-1 AND break_minutes=-1 AND month=-1 "
                                 "AND day=-1 AND year=-1 AND notes='' AND length(identity)=32")),
        1);
    const CTRecord read = ByTable(home);
    QVERIFY(!read.HasStart() && !read.HasEnd() && !read.date.IsSet());
    float value = 0.0F;
    QVERIFY(!read.GetAmount(value) && !read.GetRate(value));
}

void TestCTRecordForms::LoadedRecordForgetsWhatWasDerived() {
    RecordsFixture home;
    CTRecord source = NewTime();
    source.SetBillable(true);
    source.SetDurationOnly(2, 0);
    (void)source.SetAmount(30.0F);
    QVERIFY(source.rateIsDerived);
    QVERIFY(home.store.InsertRecord(source, Commit::Now));
    for (CTRecord record : {ByRow(home), ByTable(home)}) {
        QVERIFY(!record.rateIsDerived && !record.amountIsDerived);
        record.SetDurationOnly(3, 0);
        QCOMPARE(record.GetRateText() + u' ' + record.GetAmountText(), QStringLiteral("15.000 45.00"));
    }
}

void TestCTRecordForms::FlagsOfOtherNumbers() {
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QVERIFY(home.manager.Query(QStringLiteral("UPDATE time_velmarch SET billable=-1, billed=2, start_pm=-5"),
                               true));
    const CTRecord byRow = ByRow(home);
    QVERIFY(byRow.isBillable && byRow.isBilled && byRow.startIsPm);
    // The bulk path takes only numbers above 0.
    const CTRecord byTable = ByTable(home);
    QVERIFY(!byTable.isBillable && byTable.isBilled && !byTable.startIsPm);
}

void TestCTRecordForms::IntegersOfTheBulkPath() {
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QVERIFY(home.manager.Query(
        QStringLiteral("UPDATE time_velmarch SET duration_hours=65537, duration_minutes=0"), true));
    QCOMPARE(ByRow(home).spans.duration.hours, 65537);
    // 16 bits: 65537 is 1 there.
    QCOMPARE(ByTable(home).spans.duration.hours, 1);
}

void TestCTRecordForms::LoadOfAnotherTable() {
    CTRecord record;
    QVERIFY(!record.Load(RowTable(), 0));
    std::vector<RowColumnType> columns(25, RowColumnType::Text);
    QVERIFY(!record.Load(RowTable(columns), 0));
    RecordsFixture home;
    QVERIFY(home.store.Query(home.store.SelectAll(RecordKind::Time)));
    RowTable rows;
    QVERIFY(home.manager.m_recordset->GetRows(rows));
    QCOMPARE(rows.ColumnCount(), 25);
    QVERIFY(!record.Load(rows, 0));
}

void TestCTRecordForms::AbsurdRow() {
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(FullRecord(), Commit::Now));
    QVERIFY(home.manager.Query(
        QStringLiteral("UPDATE time_velmarch SET duration_hours=2147483648, duration_minutes=99999, "
                       "break_hours=2147483647, break_minutes=99999, start_hour=-9223372036854775808, "
                       "start_minute=99999, day=99999, year=2147483647, rate=1e300, amount='text', "
                       "item1=NULL, end_hour='seventeen', notes=x'00ff'"),
        true));
    for (CTRecord record : {ByRow(home), ByTable(home)}) {
        QCOMPARE(record.item1, QString());
        record.SetDuration(1, 0, true);
        record.SetBreak(0, 30);
        record.SetStart(9, 0, false);
        const QByteArray bytes = record.ToBytes();
    }
}

TEST_CLASS(TestCTRecordForms);
#include "TestCTRecordForms.moc"
