#include "ColumnBytes.h"
#include "config/CTreeColSet.h"
#include "lang/LoadText.h"
#include "records/RunPack.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace ColumnBytes;

/// The stored form of a set of columns, and bytes that are none.
class TestColumnBlob final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void defaults_data();
    void defaults();
    void payloadSize_data();
    void payloadSize();
    void rowForm();
    void breaksForm();
    void roundTrip();
    void tooManyBreaks();
    void noBlob_data();
    void noBlob();
    void anEmptyItemLeavesTheSet();
    void everyChangedByteIsNoticed();
    void oddRowsAreTaken();
    void whatFollowsIsIgnored();

 private:
    /// The bytes of a set before packing.
    static QByteArray PlainOf(const ColumnPayload& payload) {
        const QByteArray blob = ColumnBlobOf(payload).value_or(QByteArray());
        return RunUnpack(blob.sliced(24), kMostColumnBytes).value_or(QByteArray());
    }
    static ColumnPayload Filled() {
        ColumnPayload payload;
        for (ColumnEntry& entry : payload.entries) entry = {QStringLiteral("A"), 0, 50, 0, 5};
        return payload;
    }
};

void TestColumnBlob::defaults_data() {
    QTest::addColumn<bool>("isTree");
    QTest::newRow("list") << false;
    QTest::newRow("tree") << true;
}

/// Byte for byte what an independent program makes.
void TestColumnBlob::defaults() {
    QFETCH(bool, isTree);
    CColSet list;
    CTreeColSet tree;
    CColSet& set = isTree ? tree : list;
    set.SetDefaults();
    QByteArray blob;
    QVERIFY(set.MakeBlob(blob));
    const QByteArray expected = Default(isTree ? "tree" : "list");
    QVERIFY(!expected.isEmpty());
    QCOMPARE(blob.toHex(), expected.toHex());
}

void TestColumnBlob::payloadSize_data() {
    QTest::addColumn<int>("timeBreaks");
    QTest::addColumn<int>("expenseBreaks");
    QTest::addColumn<int>("size");
    QTest::newRow("no breaks") << 0 << 0 << 1538;
    QTest::newRow("the defaults, three and three") << 3 << 3 << 1562;
    QTest::newRow("one of time") << 1 << 0 << 1542;
    QTest::newRow("two of expenses") << 0 << 2 << 1546;
}

void TestColumnBlob::payloadSize() {
    QFETCH(int, timeBreaks);
    QFETCH(int, expenseBreaks);
    ColumnPayload payload = Filled();
    payload.timeBreaks.assign(static_cast<std::size_t>(timeBreaks), 5);
    payload.expenseBreaks.assign(static_cast<std::size_t>(expenseBreaks), 4);
    QTEST(static_cast<int>(PlainOf(payload).size()), "size");
}

void TestColumnBlob::rowForm() {
    ColumnPayload payload = Filled();
    payload.entries[33] = {QStringLiteral("\u00C4\U0001F600b"), 1, 0x01020304, -2, 9};
    const QByteArray row = PlainOf(payload).mid(33 * 45, 45);
    QCOMPARE(row.toHex(), QByteArray("c400"
                                     "3dd800de"
                                     "6200"
                                     "0000000000000000"
                                     "0000000000000000"
                                     "0000000000000000"
                                     "01"
                                     "04030201"
                                     "feffffff"
                                     "09000000"));
}

void TestColumnBlob::breaksForm() {
    ColumnPayload payload = Filled();
    payload.timeBreaks = {5, 258};
    payload.expenseBreaks = {-1};
    QCOMPARE(PlainOf(payload).mid(1530).toHex(), QByteArray("02000000"
                                                            "05000000"
                                                            "02010000"
                                                            "01000000"
                                                            "ffffffff"));
}

void TestColumnBlob::roundTrip() {
    ColumnPayload payload = Filled();
    for (int i = 0; i < 34; ++i)
        payload.entries[static_cast<std::size_t>(i)] = {
            QString(1 + i % 16, QChar(u'a' + i)), static_cast<std::uint8_t>(i % 2), 1000 * i + 1, i, i - 5};
    payload.timeBreaks = {1, 2, 3};
    payload.expenseBreaks = {16};
    const auto blob = ColumnBlobOf(payload);
    QVERIFY(blob);
    const auto back = ColumnsFromBlob(*blob);
    QVERIFY(back);
    QVERIFY(*back == payload);
    QCOMPARE(back->entries[15].caption, QStringLiteral("pppppppppppppppp"));
}

/// What could not be read again isn't written.
void TestColumnBlob::tooManyBreaks() {
    ColumnPayload payload = Filled();
    payload.timeBreaks.assign(15999, 7);  // 1538 + 4 x 15,999 = 65,534
    QVERIFY(ColumnsFromBlob(ColumnBlobOf(payload).value_or(QByteArray())));
    payload.timeBreaks.assign(16000, 7);
    QVERIFY(!ColumnBlobOf(payload));
}

void TestColumnBlob::noBlob_data() {
    QTest::addColumn<QByteArray>("blob");
    const QByteArray sound = Rows() + NoBreaks();
    QVERIFY(ColumnsFromBlob(Blob(sound)));
    const auto damaged = [](int column, const QByteArray& row) {
        QByteArray rows = Rows();
        PutRow(rows, column, row);
        return Blob(rows + NoBreaks());
    };
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("half a tag") << QByteArray("\6\0", 2);
    QTest::newRow("another tag") << QByteArray(Blob(sound)).replace(0, 1, "\2");
    QTest::newRow("an item of no bytes that is no buffer") << Number(2) + Number(0);
    QTest::newRow("a negative length") << Number(6) + Number(-1) + QByteArray(50, 'x');
    QTest::newRow("a length beyond the end") << Blob(sound).chopped(1);
    QTest::newRow("15 bytes, less than a digest") << Number(6) + Number(15) + QByteArray(15, 'x');
    QTest::newRow("a digest of nothing") << Guard({});
    QTest::newRow("another digest") << QByteArray(Blob(sound)).replace(8, 16, QByteArray(16, 'x'));
    QTest::newRow("a literal group cut short") << Guard(Literal(sound).chopped(1));
    QTest::newRow("a run without its byte") << Guard(Literal(sound) + QByteArray("\x80", 1));
    QTest::newRow("half of the rows") << Blob(Rows().first(17 * 45));
    QTest::newRow("one byte less than the rows") << Blob(Rows().chopped(1));
    QTest::newRow("no count of breaks") << Blob(Rows());
    QTest::newRow("half a count") << Blob(Rows() + QByteArray(2, '\0'));
    QTest::newRow("no second count") << Blob(Rows() + Number(0));
    QTest::newRow("a negative count") << Blob(Rows() + Number(-1) + Number(0));
    QTest::newRow("the least count") << Blob(Rows() + Number(INT_MIN) + Number(0));
    QTest::newRow("the greatest count") << Blob(Rows() + Number(INT_MAX) + Number(0));
    QTest::newRow("a count whose bytes overflow 32 bits") << Blob(Rows() + Number(0x40000001) + Number(5));
    QTest::newRow("one break more than there is") << Blob(Rows() + Number(2) + Number(5));
    QTest::newRow("the greatest second count") << Blob(Rows() + Number(0) + Number(INT_MAX));
    QTest::newRow("one second break more than there is") << Blob(Rows() + Number(0) + Number(2) + Number(5));
    QTest::newRow("an empty caption") << damaged(20, Row('\0', 1, 50, 1, 5));
    QTest::newRow("an empty caption of a hidden row") << damaged(33, Row('\0', 0, 50, 0, 5));
    QTest::newRow("a width of 0") << damaged(0, Row('A', 1, 0, 1, 5));
    QTest::newRow("a width of 0 of a hidden row") << damaged(16, Row('A', 0, 0, 0, 5));
    // 8 million zeros in 126,000 bytes.
    QTest::newRow("a small blob that unpacks to a huge one")
        << Guard(QByteArray("\xff\0", 2).repeated(63000));
    QTest::newRow("one byte more than is unpacked")
        << Blob(Rows() + NoBreaks() + QByteArray(65536 - 1537, '\0'));
}

void TestColumnBlob::noBlob() {
    QFETCH(QByteArray, blob);
    QVERIFY(!ColumnsFromBlob(blob));
    CColSet set;
    set.SetDefaults();
    set.SetWidth(4, 77);
    QVERIFY(!set.LoadBlob(blob));
    QByteArray after;
    CColSet before;
    before.SetDefaults();
    before.SetWidth(4, 77);
    QByteArray expected;
    QVERIFY(set.MakeBlob(after) && before.MakeBlob(expected));
    QCOMPARE(after, expected);
    QCOMPARE(set.Order(ColumnHalf::Time), (std::vector{0, 6, 1, 13, 14, 4, 5, 9, 10}));
}

void TestColumnBlob::anEmptyItemLeavesTheSet() {
    CColSet set;
    set.SetDefaults();
    set.SetWidth(4, 77);
    set.ShowExactly(ColumnHalf::Time, {4, 0});
    QVERIFY(set.LoadBlob(Number(6) + Number(0)));
    QCOMPARE(set.EntryAt(4).width, 77);
    QCOMPARE(set.Order(ColumnHalf::Time), (std::vector{4, 0}));
    QCOMPARE(set.Order(ColumnHalf::Expense), (std::vector{17, 18, 27, 28, 19, 20, 21, 25}));
    QVERIFY(!set.IsEmpty());
    QVERIFY(CColSet().IsEmpty());
}

void TestColumnBlob::everyChangedByteIsNoticed() {
    const QByteArray sound = Default("list");
    QVERIFY(ColumnsFromBlob(sound));
    for (qsizetype at = 8; at < sound.size(); ++at) {
        QByteArray damaged = sound;
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
        QVERIFY2(!ColumnsFromBlob(damaged), qPrintable(QString::number(at)));
    }
}

/// Positions, kinds and flags that no program of ours writes come as they stand, and negative widths too.
void TestColumnBlob::oddRowsAreTaken() {
    QByteArray rows = Rows();
    PutRow(rows, 0, Row('A', 7, -3, INT_MIN, 99));
    PutRow(rows, 1, Row('A', 1, INT_MAX, INT_MAX, -1));
    const auto read = ColumnsFromBlob(Blob(rows + NoBreaks()));
    QVERIFY(read);
    QVERIFY((read->entries[0] == ColumnEntry{QStringLiteral("A"), 7, -3, INT_MIN, 99}));
    QVERIFY((read->entries[1] == ColumnEntry{QStringLiteral("A"), 1, INT_MAX, INT_MAX, -1}));
}

void TestColumnBlob::whatFollowsIsIgnored() {
    QVERIFY(ColumnsFromBlob(Blob(Rows() + NoBreaks() + "more") + "and more"));
}

TEST_CLASS(TestColumnBlob);
#include "TestColumnBlob.moc"
