#include "records/CPRecord.h"

#include "RecordsFixture.h"
#include "support/TestProgram.h"

using Type = CPRecord::ValueType;

class TestCPRecord : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void FieldDefs();
    void Construct();
    void SetText_data();
    void SetText();
    void SetNumber_data();
    void SetNumber();
    void GetTextOfNumbers_data();
    void GetTextOfNumbers();
    void Bytes_data();
    void Bytes();
    void FromBytes_data();
    void FromBytes();
    void Rows_data();
    void Rows();
    void ReusedObject();

 private:
    RegionScope m_region{Region24()};
};

namespace {

CPRecord Item(Type type, int list = 16) {
    CPRecord record;
    if (type == Type::Text) record.SetText(QStringLiteral("abc"));
    if (type == Type::Number) record.SetNumber(1.5F);
    record.listId = list;
    record.GenUnique();
    return record;
}

}  // namespace

void TestCPRecord::FieldDefs() {
    QStringList columns;
    for (const FieldDef& field : CPRecord().GetFieldDefs())
        columns += QStringLiteral("%1/%2/%3/%4")
                       .arg(LoadText(field.nameId))
                       .arg(static_cast<int>(field.type))
                       .arg(field.length)
                       .arg(field.flags);
    QCOMPARE(columns.join(u' '),
             QStringLiteral("list/1/1/0 value_type/1/1/0 text/0/255/0 value/3/1/0 identity/0/32/256"));
}

void TestCPRecord::Construct() {
    QCOMPARE(CPRecord().valueType, Type::None);
    QCOMPARE(CPRecord().GetText(), QString());
    QCOMPARE(CPRecord(QStringLiteral("a")).GetText(), QStringLiteral("a"));
    QCOMPARE(CPRecord(2.5F).valueType, Type::Number);
    QCOMPARE(CPRecord(2.5F).GetText(), QStringLiteral("2.5"));
}

void TestCPRecord::SetText_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("text");
    QTest::newRow("on an item of no type") << 0 << QStringLiteral("x") << 1 << QStringLiteral("x");
    QTest::newRow("on a text item") << 1 << QStringLiteral("x") << 1 << QStringLiteral("x");
    QTest::newRow("a number's text on a number item")
        << 2 << QStringLiteral("7.25") << 2 << QStringLiteral("7.25");
    QTest::newRow("no number on a number item changes nothing")
        << 2 << QStringLiteral("seven") << 2 << QStringLiteral("1.5");
    QTest::newRow("an empty text on a number item changes nothing")
        << 2 << QString() << 2 << QStringLiteral("1.5");
}

void TestCPRecord::SetText() {
    QFETCH(int, before);
    QFETCH(QString, entered);
    QFETCH(int, after);
    CPRecord record = Item(static_cast<Type>(before));
    record.SetText(entered);
    QCOMPARE(static_cast<int>(record.valueType), after);
    QTEST(record.GetText(), "text");
}

void TestCPRecord::SetNumber_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<float>("entered");
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("text");
    QTest::newRow("on an item of no type") << 0 << 3.0F << 2 << QStringLiteral("3");
    QTest::newRow("on a number item") << 2 << 3.25F << 2 << QStringLiteral("3.25");
    QTest::newRow("on a text item the formatted number is its text")
        << 1 << 3.25F << 1 << QStringLiteral("3.25");
}

void TestCPRecord::SetNumber() {
    QFETCH(int, before);
    QFETCH(float, entered);
    QFETCH(int, after);
    CPRecord record = Item(static_cast<Type>(before));
    record.SetNumber(entered);
    QCOMPARE(static_cast<int>(record.valueType), after);
    QTEST(record.GetText(), "text");
    QCOMPARE(record.text.isEmpty(), after == 2);
}

void TestCPRecord::GetTextOfNumbers_data() {
    QTest::addColumn<float>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("a whole number") << 42.0F << QStringLiteral("42");
    QTest::newRow("no trailing zeros") << 1.50F << QStringLiteral("1.5");
    QTest::newRow("six significant digits") << 1234.5678F << QStringLiteral("1234.57");
    QTest::newRow("a third") << 1.0F / 3.0F << QStringLiteral("0.333333");
    QTest::newRow("a negative one") << -0.25F << QStringLiteral("-0.25");
}

void TestCPRecord::GetTextOfNumbers() {
    QFETCH(float, number);
    QTEST(CPRecord(number).GetText(), "text");
}

void TestCPRecord::Bytes_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a text") << 1
                            << QByteArray::fromHex(
                                   "01000000 04000000 01000000  02000000 06000000 610062006300  "
                                   "01000000 04000000 10000000");
    QTest::newRow("a number") << 2
                              << QByteArray::fromHex(
                                     "01000000 04000000 02000000  05000000 04000000 0000c03f  "
                                     "01000000 04000000 10000000");
    QTest::newRow("no type is written as an empty text")
        << 0
        << QByteArray::fromHex("01000000 04000000 01000000  02000000 00000000  01000000 04000000 10000000");
}

void TestCPRecord::Bytes() {
    QFETCH(int, type);
    QFETCH(QByteArray, bytes);
    const CPRecord record = Item(static_cast<Type>(type));
    const QByteArray made = record.ToBytes();
    QCOMPARE(made.toHex(), bytes.toHex());
    CPRecord read(4.0F);
    QVERIFY(read.FromBytes(bytes, false));
    QCOMPARE(read.GetText(), record.GetText());
    QCOMPARE(static_cast<int>(read.valueType), type == 2 ? 2 : 1);
    QCOMPARE(read.listId, 16);
    QCOMPARE(read.GetId(), QString());
}

void TestCPRecord::FromBytes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("read");
    const auto row = [](const char* name, const QByteArray& hex, bool read) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << read;
    };
    QTest::newRow("no bytes at all") << QByteArray() << false;
    row("type 0", "01000000 04000000 00000000  02000000 00000000  01000000 04000000 10000000", false);
    row("type 3", "01000000 04000000 03000000  02000000 00000000  01000000 04000000 10000000", false);
    row("type alone", "01000000 04000000 01000000", false);
    row("without the list", "01000000 04000000 01000000  02000000 00000000", false);
    row("a text of 256 characters",
        "01000000 04000000 01000000  02000000 00020000" + QByteArray("4100").repeated(256) +
            "01000000 04000000 10000000",
        true);
}

void TestCPRecord::FromBytes() {
    QFETCH(QByteArray, bytes);
    CPRecord record;
    QTEST(record.FromBytes(bytes, false), "read");
    QVERIFY(record.text.size() <= 255);
}

void TestCPRecord::Rows_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("text");
    QTest::newRow("a text") << 1 << QStringLiteral("value_type=1 AND text='abc' AND value=0")
                            << QStringLiteral("abc");
    QTest::newRow("a number") << 2 << QStringLiteral("value_type=2 AND text='' AND value=1.5")
                              << QStringLiteral("1.5");
    QTest::newRow("no type is stored as an empty text")
        << 0 << QStringLiteral("value_type=1 AND text='' AND value=0") << QString();
}

void TestCPRecord::Rows() {
    QFETCH(int, type);
    QFETCH(QString, stored);
    QFETCH(QString, text);
    RecordsFixture home;
    const CPRecord record = Item(static_cast<Type>(type));
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM item_velmarch WHERE list=16 AND ") + stored), 1);
    CPRecord read;
    QVERIFY(home.store.ReadRecord(read, record.GetId()));
    QCOMPARE(read.GetText(), text);
    QCOMPARE(read.listId, 16);
    QVERIFY(home.store.Query(home.store.SelectAll(RecordKind::PulldownItem)));
    RowTable rows;
    QVERIFY(home.manager.m_recordset->GetRows(rows));
    CPRecord loaded;
    QVERIFY(loaded.Load(rows, 0));
    QCOMPARE(loaded.GetText(), text);
    QCOMPARE(loaded.GetId(), record.GetId());
    // Any other type reads as an empty text.
    QVERIFY(home.manager.Query(QStringLiteral("UPDATE item_velmarch SET value_type=9"), true));
    QVERIFY(home.store.ReadRecord(read, record.GetId()));
    QCOMPARE(read.valueType, Type::Text);
    QCOMPARE(read.GetText(), QString());
}

void TestCPRecord::ReusedObject() {
    RecordsFixture home;
    const CPRecord text = Item(Type::Text);
    const CPRecord number = Item(Type::Number);
    QVERIFY(home.store.InsertRecord(text, Commit::Now));
    QVERIFY(home.store.InsertRecord(number, Commit::Now));
    CPRecord record;
    QVERIFY(home.store.ReadRecord(record, number.GetId()));
    QVERIFY(home.store.ReadRecord(record, text.GetId()));
    QCOMPARE(record.GetText(), QStringLiteral("abc"));
    QVERIFY(home.store.ReadRecord(record, number.GetId()));
    QCOMPARE(record.GetText(), QStringLiteral("1.5"));
    QCOMPARE(record.Clone()->GetId(), number.GetId());
}

TEST_CLASS(TestCPRecord);
#include "TestCPRecord.moc"
