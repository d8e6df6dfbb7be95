#include "records/CDRecord.h"

#include "records/QuoteText.h"

#include "RecordsFixture.h"
#include "support/TestProgram.h"

class TestCDRecord : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void FieldDefs();
    void StoredBlock_data();
    void StoredBlock();
    void Length_data();
    void Length();
    void ReadBlock_data();
    void ReadBlock();
    void Bytes();
    void FromBytes_data();
    void FromBytes();
    void NoBulkForm();
};

namespace {

/// Digests of RFC 1321, section A.5: "", "a", "abc", "message digest".
constexpr char kMd5OfNothing[] = "D41D8CD98F00B204E9800998ECF8427E";
constexpr char kMd5OfA[] = "0CC175B9C0F1B6A831C399E269772661";
constexpr char kMd5OfAbc[] = "900150983CD24FB0D6963F7D28E17F72";
constexpr char kMd5OfMessageDigest[] = "F96B697D7CB7938D525A2F31AAF161D0";
/// md5sum of the bytes 81 61 ("aaa" packed) and of 02 61 62 63 ("abc" packed).
constexpr char kMd5OfPackedAaa[] = "CD8950F7E19B755AD0AFAFC0EA38F602";
constexpr char kMd5OfPackedAbc[] = "9887647AC98EA75EDDD5F7E5DDF3F316";

CDRecord Block(const QByteArray& data, bool isPacked, int number = 55) {
    CDRecord record;
    record.SetPacked(isPacked);
    record.number = number;
    record.data = data;
    record.GenUnique();
    return record;
}

}  // namespace

void TestCDRecord::FieldDefs() {
    QStringList columns;
    for (const FieldDef& field : CDRecord().GetFieldDefs())
        columns += QStringLiteral("%1/%2/%3/%4")
                       .arg(LoadText(field.nameId))
                       .arg(static_cast<int>(field.type))
                       .arg(field.length)
                       .arg(field.flags);
    QCOMPARE(columns.join(u' '), QStringLiteral("number/1/1/0 block/2/32000/0 identity/0/32/256"));
    QVERIFY(CDRecord().isPacked);
    QCOMPARE(CDRecord::kMaxData, 15984);
}

void TestCDRecord::StoredBlock_data() {
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("isPacked");
    QTest::addColumn<QString>("block");
    const auto row = [](const char* name, const QByteArray& data, bool isPacked, const char* digest,
                        const char* content) {
        QTest::newRow(name) << data << isPacked << QString::fromLatin1(digest) + QString::fromLatin1(content);
    };
    row("nothing is the digest of nothing", {}, false, kMd5OfNothing, "");
    row("nothing packed is the same", {}, true, kMd5OfNothing, "");
    row("a plain byte", "a", false, kMd5OfA, "61");
    row("plain bytes", "abc", false, kMd5OfAbc, "616263");
    row("more of them", "message digest", false, kMd5OfMessageDigest, "6D65737361676520646967657374");
    row("a packed run", "aaa", true, kMd5OfPackedAaa, "8161");
    row("packed literals", "abc", true, kMd5OfPackedAbc, "02616263");
}

void TestCDRecord::StoredBlock() {
    QFETCH(QByteArray, data);
    QFETCH(bool, isPacked);
    QFETCH(QString, block);
    RecordsFixture home;
    const CDRecord record = Block(data, isPacked);
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM dependency_velmarch WHERE number=55 AND block=%1")
                           .arg(QuoteText(block))),
             1);
    CDRecord read;
    read.SetPacked(isPacked);
    QVERIFY(home.store.ReadRecord(read, record.GetId()));
    QCOMPARE(read.data, data);
    QCOMPARE(read.number, 55);
    QCOMPARE(read.GetId(), record.GetId());
}

void TestCDRecord::Length_data() {
    QTest::addColumn<int>("bytes");
    QTest::addColumn<bool>("fits");
    QTest::newRow("as much as a row carries: 32000 characters") << 15984 << true;
    QTest::newRow("one byte more") << 15985 << false;
}

void TestCDRecord::Length() {
    QFETCH(int, bytes);
    QFETCH(bool, fits);
    RecordsFixture home;
    const CDRecord record = Block(QByteArray(bytes, 'x'), false);
    if (!fits) home.prompt.ExpectTold(Text::InsertFailed);
    QCOMPARE(home.store.InsertRecord(record, Commit::Now), fits);
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM dependency_velmarch WHERE length(block)=32000")),
             fits ? 1 : 0);
    if (fits) return;
    QCOMPARE(home.store.m_lastError, -3);
    for (const QString& text : home.manager.m_recordset->m_errorTexts)
        QCOMPARE(text, LoadText(Text::BlockTooLong));
    QVERIFY(home.prompt.told.constLast().contains(LoadText(Text::BlockTooLong)));
    QVERIFY(!home.manager.HasOpenChanges());
}

void TestCDRecord::ReadBlock_data() {
    QTest::addColumn<QString>("block");
    QTest::addColumn<bool>("isPacked");
    QTest::addColumn<int>("code");
    QTest::addColumn<QList<int>>("texts");
    const QString good = QString::fromLatin1(kMd5OfAbc) + QStringLiteral("616263");
    const QList<int> encoding{23237, 23311, 23236};
    const QList<int> digest{23237, 23204, 23236};
    constexpr int kUnnamed = -2147352567;
    QTest::newRow("a changed digit of the content") << good.left(37) + u'4' << false << -2 << digest;
    QTest::newRow("a changed digit of the digest") << u'8' + good.mid(1) << false << -2 << digest;
    QTest::newRow("a character that is no digit") << good.left(37) + u'G' << false << -1 << encoding;
    QTest::newRow("a lower-case digit") << good.toLower() << false << -1 << encoding;
    QTest::newRow("an odd number of digits") << good + u'0' << false << -1 << encoding;
    QTest::newRow("a character of two bytes") << good.left(37) + u'Ä' << false << -1 << encoding;
    QTest::newRow("fewer bytes than a digest") << good.left(30) << false << kUnnamed << QList<int>{};
    QTest::newRow("an empty text") << QString() << false << kUnnamed << QList<int>{};
    QTest::newRow("packed groups that don't fit together") << good << true << kUnnamed << QList<int>{};
}

void TestCDRecord::ReadBlock() {
    QFETCH(QString, block);
    QFETCH(bool, isPacked);
    QFETCH(int, code);
    QFETCH(QList<int>, texts);
    RecordsFixture home;
    const CDRecord stored = Block("abc", false, 66);
    QVERIFY(home.store.InsertRecord(stored, Commit::Now));
    QVERIFY(home.manager.Query(
        QStringLiteral("UPDATE dependency_velmarch SET block=%1").arg(QuoteText(block)), true));
    CDRecord record = Block("before", isPacked);
    home.prompt.ExpectTold(Text::ReadFailed);
    QVERIFY(!home.store.ReadRecord(record, stored.GetId()));
    QCOMPARE(home.store.m_lastError, code);
    QCOMPARE(record.number, 66);
    QCOMPARE(record.data, QByteArray("before"));
    for (int i = 0; i < texts.size(); ++i) {
        QCOMPARE(home.manager.m_recordset->m_errorTexts[static_cast<std::size_t>(i)], LoadText(texts[i]));
        QVERIFY(home.prompt.told.constLast().contains(LoadText(texts[i])));
    }
}

void TestCDRecord::Bytes() {
    const CDRecord record = Block("abc", false);
    QByteArray bytes = record.ToBytes();
    QCOMPARE(bytes.toHex(), QByteArray("010000000400000037000000"
                                       "0600000013000000900150983cd24fb0d6963f7d28e17f72616263"));
    CDRecord read;
    read.SetPacked(false);
    QVERIFY(read.FromBytes(bytes, false));
    QCOMPARE(read.number, 55);
    QCOMPARE(read.data, QByteArray("abc"));
    const CDRecord packed = Block(QByteArray(1000, 'z'), true, 66);
    bytes = packed.ToBytes();
    QVERIFY(bytes.size() < 100);
    CDRecord unpacked;
    QVERIFY(unpacked.FromBytes(bytes, false));
    QCOMPARE(unpacked.data, QByteArray(1000, 'z'));
}

void TestCDRecord::FromBytes_data() {
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray number = QByteArray::fromHex("010000000400000037000000");
    QTest::newRow("no bytes at all") << QByteArray();
    QTest::newRow("the number alone") << number;
    QTest::newRow("another tag than a buffer's") << number + QByteArray::fromHex("0200000002000000") + "ab";
    QTest::newRow("fewer bytes than a digest")
        << number + QByteArray::fromHex("060000000f000000") + QByteArray(15, 'x');
    QTest::newRow("another digest") << number + QByteArray::fromHex(
                                                    "0600000013000000"
                                                    "900150983cd24fb0d6963f7d28e17f73616263");
    QTest::newRow("a size beyond the end")
        << number + QByteArray::fromHex("06000000ffffff7f") + QByteArray(16, 'x');
}

void TestCDRecord::FromBytes() {
    QFETCH(QByteArray, bytes);
    CDRecord record = Block("before", false);
    QVERIFY(!record.FromBytes(bytes, false));
    QCOMPARE(record.data, QByteArray("before"));
}

void TestCDRecord::NoBulkForm() {
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(Block("abc", false), Commit::Now));
    QVERIFY(home.store.Query(home.store.SelectAll(RecordKind::Dependency)));
    RowTable rows;
    QVERIFY(home.manager.m_recordset->GetRows(rows));
    QCOMPARE(rows.RowCount(), std::size_t{1});
    CDRecord record;
    QVERIFY(!record.Load(rows, 0));
    QCOMPARE(record.Clone()->Kind(), RecordKind::Dependency);
}

TEST_CLASS(TestCDRecord);
#include "TestCDRecord.moc"
