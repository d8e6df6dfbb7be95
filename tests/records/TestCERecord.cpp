#include "records/CERecord.h"

#include "RecordsFixture.h"
#include "records/Precisions.h"
#include "records/QuoteText.h"
#include "support/TestProgram.h"

class TestCERecord : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void FieldDefs();
    void Reset();
    void Getters();
    void ToBytes();
    void BytesRoundTrip();
    void FromBytesRefuses();
    void RowRoundTrip_data();
    void RowRoundTrip();
    void DistanceColumn_data();
    void DistanceColumn();
    void DistanceOfAnotherRegion_data();
    void DistanceOfAnotherRegion();
    void DistanceStaysAsStored_data();
    void DistanceStaysAsStored();
    void DistanceSetAnewIsStoredAnew();
    void UnreadableDistanceKeepsTheFormer();
    void NoAmountIsStoredAsMinusOne();
    void Copy();

 private:
    static CERecord ByRow(RecordsFixture& home);
    static CERecord ByTable(RecordsFixture& home);
    RegionScope m_region{Region24()};
};

namespace {

CERecord FullRecord() {
    CERecord record;
    record.GenUnique();
    record.date.Set(2, 29, 2028);
    record.item1 = QStringLiteral("i1");
    record.item2 = QStringLiteral("i2 Ä");
    record.item3 = QStringLiteral("i3 'x'");
    record.item4 = QStringLiteral("i4");
    record.item5 = QStringLiteral("i5");
    record.isDistance = true;
    record.distance.Set(12.5F);
    record.amount.Set(6.25F);
    record.rate.Set(0.5F);
    record.odometerStart = QStringLiteral("1000");
    record.odometerEnd = QStringLiteral("1012.5");
    record.flag1 = record.flag3 = record.isExported = true;
    record.notes = QStringLiteral("n\U0001F600");
    return record;
}

QString Summary(const CERecord& r) {
    return QStringList({r.date.longText, r.item1, r.item2, r.item3, r.item4, r.item5,
                        QString::number(r.isDistance), r.distance.text, r.GetAmountText(), r.GetRateText(),
                        r.odometerStart, r.odometerEnd,
                        QStringLiteral("%1%2%3%4%5%6")
                            .arg(r.flag1)
                            .arg(r.flag2)
                            .arg(r.flag3)
                            .arg(r.flag4)
                            .arg(r.flag5)
                            .arg(r.isExported),
                        r.notes})
        .join(u'|');
}

constexpr char kFullSummary[] =
    "02/29/2028|i1|i2 Ä|i3 'x'|i4|i5|1|12.50|6.25|0.500|1000|1012.5|101001|n\U0001F600";

CRegionalInfo RegionWithDecimal(const QString& decimal) {
    CRegionalInfo info = Region24();
    info.decimalChar = decimal[0].unicode();
    info.usesDotDecimal = decimal == QStringLiteral(".");
    return info;
}

}  // namespace

CERecord TestCERecord::ByRow(RecordsFixture& home) {
    CERecord record;
    QString id;
    if (!home.store.Query(home.store.SelectAll(RecordKind::Expense)) ||
        !home.store.NextRecord(record, id, true))
        QTest::qFail("no record by row", __FILE__, __LINE__);
    home.manager.CloseQuery();
    return record;
}

CERecord TestCERecord::ByTable(RecordsFixture& home) {
    CERecord record;
    RowTable rows;
    if (!home.store.Query(home.store.SelectAll(RecordKind::Expense)) ||
        !home.manager.m_recordset->GetRows(rows) || !record.Load(rows, 0))
        QTest::qFail("no record by table", __FILE__, __LINE__);
    return record;
}

void TestCERecord::FieldDefs() {
    const CERecord record;
    QCOMPARE(record.GetFieldCount(), 22);
    QStringList columns;
    for (const FieldDef& field : record.GetFieldDefs())
        columns += QStringLiteral("%1/%2/%3")
                       .arg(LoadText(field.nameId))
                       .arg(static_cast<int>(field.type))
                       .arg(field.length);
    QCOMPARE(
        columns.join(u' '),
        QStringLiteral("month/1/1 day/1/1 year/1/1 item1/0/255 item2/0/255 item3/0/255 is_distance/1/1 "
                       "distance/0/255 rate/3/1 item4/0/255 item5/0/255 amount/3/1 billable/1/1 billed/1/1 "
                       "reimbursable/1/1 reimbursed/1/1 personal/1/1 exported/1/1 notes/2/32000 "
                       "odometer_start/0/255 odometer_end/0/255 identity/0/32"));
    QCOMPARE(record.GetFieldDefs().back().flags, 256);
}

void TestCERecord::Reset() {
    CERecord record = FullRecord();
    record.Reset();
    QCOMPARE(Summary(record), QStringLiteral("||||||0||||||000000|"));
    QVERIFY(!record.distance.isSet);
    QCOMPARE(record.amount.value, -1.0F);
    QCOMPARE(record.rate.value, -1.0F);
    QCOMPARE(record.GetId(), QString());
    QCOMPARE(record.distance.precision, 2);
    QCOMPARE(record.rate.precision, 3);
    QCOMPARE(record.amount.precision, 2);
}

void TestCERecord::Getters() {
    CERecord record;
    float value = 9.0F;
    QCOMPARE(record.GetDistance(), 0.0F);
    QVERIFY(!record.GetAmount(value));
    QCOMPARE(value, 0.0F);
    QVERIFY(!record.GetRate(value));
    QCOMPARE(record.GetAmountText() + record.GetRateText(), QString());
    record.distance.Set(120.5F);
    record.amount.Set(0.0F);
    record.rate.Set(0.5F);
    QCOMPARE(record.GetDistance(), 120.5F);
    QVERIFY(record.GetAmount(value));
    QCOMPARE(value, 0.0F);
    QVERIFY(record.GetRate(value));
    QCOMPARE(value, 0.5F);
    QCOMPARE(record.GetAmountText(), QStringLiteral("0.00"));
    QCOMPARE(record.GetRateText(), QStringLiteral("0.500"));
}

void TestCERecord::ToBytes() {
    CERecord record;
    record.date.Set(1, 2, 2003);
    record.item1 = QStringLiteral("A");
    record.odometerEnd = QStringLiteral("9");
    record.isDistance = true;
    record.distance.Set(1.5F);
    record.item4 = QStringLiteral("D");
    record.flag1 = record.flag4 = record.isExported = true;
    record.notes = QStringLiteral("n");
    const QByteArray expected = QByteArray::fromHex(
        "01000000 04000000 01000000  01000000 04000000 02000000  01000000 04000000 d3070000"
        "02000000 02000000 4100      02000000 00000000           02000000 00000000"
        "02000000 00000000           02000000 02000000 3900"
        "00000000 01000000 01        02000000 08000000 31002e0035003000"
        "05000000 04000000 000080bf"
        "02000000 02000000 4400      02000000 00000000"
        "05000000 04000000 000080bf"
        "00000000 01000000 01  00000000 01000000 00  00000000 01000000 00"
        "00000000 01000000 01  00000000 01000000 00  00000000 01000000 01"
        "02000000 02000000 6e00");
    const QByteArray bytes = record.ToBytes();
    QCOMPARE(bytes.toHex(), expected.toHex());
}

void TestCERecord::BytesRoundTrip() {
    const QByteArray bytes = FullRecord().ToBytes();
    CERecord target;
    QVERIFY(target.FromBytes(bytes, false));
    QCOMPARE(Summary(target), QString::fromUtf8(kFullSummary));
    QCOMPARE(target.GetId(), QString());
}

void TestCERecord::FromBytesRefuses() {
    CERecord record;
    QVERIFY(!record.FromBytes({}, false));
    const QByteArray whole = FullRecord().ToBytes();
    for (qsizetype cut = 0; cut < whole.size(); ++cut)
        QVERIFY2(!record.FromBytes(QByteArray(whole.constData(), cut), cut % 2 == 0),
                 qPrintable(QString::number(cut)));
}

void TestCERecord::RowRoundTrip_data() {
    QTest::addColumn<bool>("isBulk");
    QTest::newRow("row by row") << false;
    QTest::newRow("bulk read") << true;
}

void TestCERecord::RowRoundTrip() {
    QFETCH(bool, isBulk);
    RecordsFixture home;
    const CERecord source = FullRecord();
    QVERIFY(home.store.InsertRecord(source, Commit::Now));
    const CERecord target = isBulk ? ByTable(home) : ByRow(home);
    QCOMPARE(Summary(target), QString::fromUtf8(kFullSummary));
    QCOMPARE(target.GetId(), source.GetId());
}

void TestCERecord::DistanceColumn_data() {
    QTest::addColumn<float>("distance");
    QTest::addColumn<QString>("decimalChar");
    QTest::addColumn<QString>("column");
    QTest::newRow("no distance entry: an empty text") << -1.0F << QStringLiteral(".") << QString();
    QTest::newRow("two decimals") << 12.5F << QStringLiteral(".") << QStringLiteral("12.50");
    QTest::newRow("with the decimal comma of this machine")
        << 12.5F << QStringLiteral(",") << QStringLiteral("12,50");
    QTest::newRow("a distance of nothing is one") << 0.0F << QStringLiteral(".") << QStringLiteral("0.00");
}

void TestCERecord::DistanceColumn() {
    QFETCH(float, distance);
    QFETCH(QString, decimalChar);
    QFETCH(QString, column);
    CRegionalInfo region = Region24();
    region.decimalChar = decimalChar[0].unicode();
    region.usesDotDecimal = decimalChar == QStringLiteral(".");
    const RegionScope scope(region);
    RecordsFixture home;
    CERecord record;
    record.GenUnique();
    record.isDistance = distance >= 0.0F;
    if (record.isDistance) record.distance.Set(distance);
    // As the document stores it: a copy.
    QVERIFY(home.store.InsertRecord(*record.Clone(), Commit::Now));
    QCOMPARE(
        home.Rows(QStringLiteral("SELECT * FROM expense_velmarch WHERE distance=%1").arg(QuoteText(column))),
        1);
    for (const CERecord& read : {ByRow(home), ByTable(home)}) {
        QCOMPARE(read.GetDistance(), record.isDistance ? distance : 0.0F);
        QCOMPARE(read.distance.isSet, record.isDistance);
    }
}

void TestCERecord::DistanceOfAnotherRegion_data() {
    QTest::addColumn<QString>("writer");
    QTest::addColumn<float>("distance");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QString>("read");
    const QString comma = QStringLiteral(","), stop = QStringLiteral(".");
    QTest::newRow("comma to comma") << comma << 12.5F << "12,50" << comma << "12,50";
    QTest::newRow("full stop to full stop") << stop << 12.5F << "12.50" << stop << "12.50";
    QTest::newRow("full stop to comma: the full stop is read everywhere")
        << stop << 12.5F << "12.50" << comma << "12,50";
    QTest::newRow("comma to full stop: the number ends at the comma, the fraction is lost")
        << comma << 12.5F << "12,50" << stop << "12.00";
    QTest::newRow("comma to full stop: nothing but a fraction") << comma << 0.75F << "0,75" << stop << "0.00";
    QTest::newRow("comma to full stop: thousands") << comma << 1234.56F << "1234,56" << stop << "1234.00";
}

/// The store of one home under the regional settings of two machines.
void TestCERecord::DistanceOfAnotherRegion() {
    QFETCH(QString, writer);
    QFETCH(float, distance);
    QFETCH(QString, column);
    QFETCH(QString, reader);
    RecordsFixture home;
    CERecord source;
    source.GenUnique();
    {
        const RegionScope scope(RegionWithDecimal(writer));
        source.distance.Set(distance);
        QVERIFY(home.store.InsertRecord(source, Commit::Now));
    }
    const QString statement = QStringLiteral("SELECT * FROM expense_velmarch WHERE distance=%1");
    const RegionScope scope(RegionWithDecimal(reader));
    for (const CERecord& record : {ByRow(home), ByTable(home)}) QTEST(record.distance.text, "read");
    QCOMPARE(home.Rows(statement.arg(QuoteText(column))), 1);
    const QByteArray bytes = source.ToBytes();
    CERecord target;
    QVERIFY(target.FromBytes(bytes, false));
    QTEST(target.distance.text, "read");
}

void TestCERecord::DistanceStaysAsStored_data() {
    QTest::addColumn<QString>("stored");
    QTest::newRow("cut at the comma") << "12,75";
    QTest::newRow("no number at all") << "far";
    QTest::newRow("more places than the setting") << "12.7512";
    QTest::newRow("nothing") << "";
}

/// A console run without the user's region must not cut the distances of the records that it changes.
void TestCERecord::DistanceStaysAsStored() {
    QFETCH(QString, stored);
    const RegionScope scope(RegionWithDecimal(QStringLiteral(".")));
    CERecord read;
    read.TakeStoredDistance(stored);
    QCOMPARE(read.StoredDistance(), stored);

    CERecord copy;
    copy.distance.Set(3.0F);
    copy.Copy(read);
    QCOMPARE(copy.StoredDistance(), stored);
    const QByteArray bytes = copy.ToBytes();
    CERecord fromBytes;
    QVERIFY(fromBytes.FromBytes(bytes, false));
    QCOMPARE(fromBytes.StoredDistance(), stored);

    RecordsFixture home;
    copy.GenUnique();
    QVERIFY(home.store.InsertRecord(copy, Commit::Now));
    for (CERecord record : {ByRow(home), ByTable(home)}) {
        record.notes = QStringLiteral("edited");
        QVERIFY(home.store.ModifyRecord(record, record.GetId(), Commit::Now));
        QCOMPARE(ByRow(home).StoredDistance(), stored);
    }
}

void TestCERecord::DistanceSetAnewIsStoredAnew() {
    CERecord record;
    record.TakeStoredDistance(QStringLiteral("12,75"));
    QCOMPARE(record.distance.text, QStringLiteral("12.00"));
    record.distance.Set(12.0F);
    QCOMPARE(record.StoredDistance(), QStringLiteral("12.00"));

    record.TakeStoredDistance(QStringLiteral("12,75"));
    record.distance.Reset();
    QCOMPARE(record.StoredDistance(), QString());

    record.TakeStoredDistance(QStringLiteral("12,75"));
    record.Copy(CERecord());
    QCOMPARE(record.StoredDistance(), QString());
}

void TestCERecord::UnreadableDistanceKeepsTheFormer() {
    RecordsFixture home;
    CERecord source = FullRecord();
    source.distance.text = QStringLiteral("far");
    QVERIFY(home.store.InsertRecord(source, Commit::Now));
    CERecord target;
    target.distance.Set(3.0F);
    QVERIFY(home.store.ReadRecord(target, source.GetId()));
    QCOMPARE(target.GetDistance(), 3.0F);
    const QByteArray bytes = source.ToBytes();
    QVERIFY(target.FromBytes(bytes, false));
    QCOMPARE(target.GetDistance(), 3.0F);
}

void TestCERecord::NoAmountIsStoredAsMinusOne() {
    RecordsFixture home;
    CERecord record;
    record.GenUnique();
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QCOMPARE(
        home.Rows(QStringLiteral("SELECT * FROM expense_velmarch WHERE amount=-1 AND rate=-1 AND month=-1")),
        1);
    float value = 0.0F;
    QVERIFY(!ByTable(home).GetAmount(value));
    QVERIFY(!ByRow(home).GetAmount(value));
}

void TestCERecord::Copy() {
    const CERecord source = FullRecord();
    CERecord target;
    target.amount.precision = 1;
    target.Copy(source);
    QCOMPARE(Summary(target),
             QString::fromUtf8(kFullSummary).replace(QStringLiteral("|6.25|"), QStringLiteral("|6.3|")));
    QCOMPARE(target.GetId(), source.GetId());
    target.Copy(CERecord());
    QVERIFY(!target.distance.isSet);
    QCOMPARE(target.distance.text, QString());
}

TEST_CLASS(TestCERecord);
#include "TestCERecord.moc"
