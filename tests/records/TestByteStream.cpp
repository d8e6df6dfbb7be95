#include "records/ByteStream.h"

#include "support/TestProgram.h"

#include <QTest>
#include <functional>

class TestByteStream : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Put_data();
    void Put();
    void RoundTrip();
    void GetString_data();
    void GetString();
    void GetBuffer_data();
    void GetBuffer();
    void ReadPastTheEnd_data();
    void ReadPastTheEnd();
    void HoldsItems();
    void SkipsTheTag();
    void AtEndAndRewind();
    void Release();
};

void TestByteStream::Put_data() {
    QTest::addColumn<std::function<void(ByteStream&)>>("put");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, std::function<void(ByteStream&)> put, const char* hex) {
        QTest::newRow(name) << put << QByteArray::fromHex(hex);
    };
    row(
        "a byte", [](ByteStream& s) { s.PutByte(200); }, "00000000 01000000 c8");
    row(
        "an integer, little-endian", [](ByteStream& s) { s.PutInt(0x01020304); },
        "01000000 04000000 04030201");
    row(
        "minus one", [](ByteStream& s) { s.PutInt(-1); }, "01000000 04000000 ffffffff");
    row(
        "a float of 1.5", [](ByteStream& s) { s.PutFloat(1.5F); }, "05000000 04000000 0000c03f");
    row(
        "an empty text has length 0", [](ByteStream& s) { s.PutString({}); }, "02000000 00000000");
    row(
        "a text in UTF-16 without terminator", [](ByteStream& s) { s.PutString(QStringLiteral("Aé")); },
        "02000000 04000000 4100e900");
    row(
        "an emoji takes two units", [](ByteStream& s) { s.PutString(QStringLiteral("\U0001F600")); },
        "02000000 04000000 3dd800de");
    row(
        "a buffer", [](ByteStream& s) { s.PutBuffer("\x01\x02\x03"); }, "06000000 03000000 010203");
    row(
        "two items one after the other",
        [](ByteStream& s) {
            s.PutByte(1);
            s.PutInt(2);
        },
        "00000000 01000000 01 01000000 04000000 02000000");
}

void TestByteStream::Put() {
    QFETCH(std::function<void(ByteStream&)>, put);
    ByteStream stream;
    put(stream);
    QTEST(stream.Buffer(), "bytes");
    QCOMPARE(stream.Length(), static_cast<int>(stream.Buffer().size()));
}

void TestByteStream::RoundTrip() {
    ByteStream stream;
    const QString long32000(32000, u'x');
    const QString withNull = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    stream.PutByte(255);
    stream.PutInt(-2147483647 - 1);
    stream.PutFloat(-0.1F);
    stream.PutString({});
    stream.PutString(long32000);
    stream.PutString(withNull);
    stream.PutBuffer(QByteArray(3, '\0'));
    QCOMPARE(stream.GetByte(), std::uint8_t{255});
    QCOMPARE(stream.GetInt(), -2147483647 - 1);
    QCOMPARE(stream.GetFloat(), -0.1F);
    QCOMPARE(stream.GetString(), QString());
    QCOMPARE(stream.GetString(), long32000);
    QCOMPARE(stream.GetString(), withNull);
    QByteArray buffer;
    QVERIFY(stream.GetBuffer(buffer));
    QCOMPARE(buffer, QByteArray(3, '\0'));
    QVERIFY(stream.AtEnd());
    QVERIFY(!stream.IsBroken());
}

void TestByteStream::GetString_data() {
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<bool>("ansi");
    QTest::addColumn<int>("characters");
    QTest::addColumn<QString>("text");
    QTest::newRow("8-bit text") << QByteArray("abc") << true << -1 << QStringLiteral("abc");
    QTest::newRow("8-bit text of 4086 characters")
        << QByteArray(4086, 'a') << true << -1 << QString(4086, u'a');
    QTest::newRow("8-bit text stops at 4086 characters")
        << QByteArray(5000, 'a') << true << -1 << QString(4086, u'a');
    QTest::newRow("an odd byte at the end of wide text is dropped")
        << QByteArray("A\0B", 3) << false << -1 << QStringLiteral("A");
    QTest::newRow("cut to 2 characters") << QByteArray("A\0B\0C\0", 6) << false << 2 << QStringLiteral("AB");
    QTest::newRow("8-bit text cut to 2 characters") << QByteArray("ABC") << true << 2 << QStringLiteral("AB");
}

void TestByteStream::GetString() {
    QFETCH(QByteArray, payload);
    QFETCH(bool, ansi);
    QFETCH(int, characters);
    ByteStream stream;
    stream.PutBuffer(payload);
    const QString text = characters < 0 ? stream.GetString(ansi) : stream.GetStringInto(characters, ansi);
    QTEST(text, "text");
    QVERIFY(stream.AtEnd());
}

void TestByteStream::GetBuffer_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("read");
    const auto row = [](const char* name, const char* hex, bool read) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << read;
    };
    row("one byte", "06000000 01000000 41", true);
    row("an empty stream", "", false);
    row("half a tag", "0600", false);
    row("another tag", "02000000 01000000 41", false);
    row("a tag alone", "06000000", false);
    row("a size of 0", "06000000 00000000", false);
    row("a negative size", "06000000 ffffffff 41", false);
    row("a size beyond the end", "06000000 02000000 41", false);
    row("a size near the greatest integer", "06000000 ffffff7f 41", false);
}

void TestByteStream::GetBuffer() {
    QFETCH(QByteArray, bytes);
    ByteStream stream;
    stream.Attach(bytes);
    QByteArray out("before");
    QTEST(stream.GetBuffer(out), "read");
    QCOMPARE(out.isEmpty(), QTest::currentDataTag() != QByteArray("one byte"));
}

void TestByteStream::ReadPastTheEnd_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing at all") << QByteArray();
    QTest::newRow("half a head") << QByteArray::fromHex("01000000 0400");
    QTest::newRow("a head without payload") << QByteArray::fromHex("01000000 04000000");
    QTest::newRow("a negative length") << QByteArray::fromHex("01000000 f8ffffff 01000000 00000000");
    QTest::newRow("a length beyond the end") << QByteArray::fromHex("02000000 ffffff7f 4100");
}

void TestByteStream::ReadPastTheEnd() {
    QFETCH(QByteArray, bytes);
    const std::function<bool(ByteStream&)> readers[] = {
        [](ByteStream& s) { return s.GetByte() == 0; },
        [](ByteStream& s) { return s.GetInt() == 0; },
        [](ByteStream& s) { return s.GetFloat() == 0.0F; },
        [](ByteStream& s) { return s.GetString().isEmpty(); },
        [](ByteStream& s) { return s.GetString(true).isEmpty(); },
    };
    for (const auto& read : readers) {
        ByteStream stream;
        stream.Attach(bytes);
        QVERIFY(read(stream));
        QVERIFY(stream.IsBroken());
        QVERIFY(stream.AtEnd());
        QVERIFY(read(stream));
    }
    QVERIFY(!ByteStream::HoldsItems(bytes, 1));
}

void TestByteStream::HoldsItems() {
    ByteStream stream;
    stream.PutInt(5);
    stream.PutString(QStringLiteral("abc"));
    const QByteArray bytes = stream.Release();
    QVERIFY(ByteStream::HoldsItems(bytes, 0));
    QVERIFY(ByteStream::HoldsItems(bytes, 2));
    QVERIFY(!ByteStream::HoldsItems(bytes, 3));
    QVERIFY(!ByteStream::HoldsItems(bytes.chopped(1), 2));
}

void TestByteStream::SkipsTheTag() {
    ByteStream stream;
    stream.PutBuffer(QByteArray::fromHex("07000000"));
    QCOMPARE(stream.GetInt(), 7);
    stream.Rewind();
    QCOMPARE(stream.GetByte(), std::uint8_t{7});
    QVERIFY(stream.AtEnd());
}

void TestByteStream::AtEndAndRewind() {
    ByteStream stream;
    QVERIFY(stream.AtEnd());
    stream.PutInt(5);
    QVERIFY(!stream.AtEnd());
    QCOMPARE(stream.GetInt(), 5);
    QCOMPARE(stream.GetInt(), 0);
    QVERIFY(stream.IsBroken());
    stream.Rewind();
    QVERIFY(!stream.IsBroken());
    QCOMPARE(stream.GetInt(), 5);
}

void TestByteStream::Release() {
    ByteStream stream;
    stream.PutByte(1);
    const QByteArray bytes = stream.Release();
    QCOMPARE(bytes.size(), qsizetype{9});
    QCOMPARE(stream.Length(), 0);
    QVERIFY(stream.AtEnd());
    stream.Attach(bytes);
    QCOMPARE(stream.GetByte(), std::uint8_t{1});
}

TEST_CLASS(TestByteStream);
#include "TestByteStream.moc"
