#include "config/FontRecord.h"

#include "support/TestProgram.h"

#include <QTest>

class TestFontRecord : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Layout();
    void RoundTrip_data();
    void RoundTrip();
    void Refused_data();
    void Refused();
};

void TestFontRecord::Layout() {
    const FontRecord font{120, 700, true, QStringLiteral("Aé")};
    QByteArray expected = QByteArray::fromHex("78000000");  // 120 tenths of a point
    expected += QByteArray(12, '\0');
    expected += QByteArray::fromHex("bc020000");  // 700
    expected += QByteArray::fromHex("01") + QByteArray(7, '\0');
    expected += QByteArray::fromHex("4100e900") + QByteArray(60, '\0');
    QCOMPARE(font.ToBytes(), expected);
    QCOMPARE(font.ToBytes().size(), 92);
}

void TestFontRecord::RoundTrip_data() {
    QTest::addColumn<QString>("face");
    QTest::addColumn<bool>("isItalic");
    QTest::addColumn<QString>("kept");
    QTest::newRow("no face") << QString() << false << QString();
    QTest::newRow("a plain face") << "Sans Serif" << false << "Sans Serif";
    QTest::newRow("a slanted face") << "Sans Serif" << true << "Sans Serif";
    QTest::newRow("31 characters") << QString(31, u'x') << false << QString(31, u'x');
    QTest::newRow("32 characters are cut to 31") << QString(32, u'x') << false << QString(31, u'x');
}

void TestFontRecord::RoundTrip() {
    QFETCH(QString, face);
    QFETCH(bool, isItalic);
    QFETCH(QString, kept);
    FontRecord read;
    QVERIFY(FontRecord::FromBytes(FontRecord{95, 400, isItalic, face}.ToBytes(), read));
    QCOMPARE(read, (FontRecord{95, 400, isItalic, kept}));
}

void TestFontRecord::Refused_data() {
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = FontRecord().ToBytes();
    QTest::newRow("91 bytes") << good.left(91);
    QTest::newRow("93 bytes") << good + '\0';
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("height 0") << QByteArray(good).replace(0, 4, QByteArray(4, '\0'));
    QTest::newRow("a huge height") << QByteArray(good).replace(0, 4, QByteArray::fromHex("ffffff7f"));
    QTest::newRow("a negative height") << QByteArray(good).replace(0, 4, QByteArray(4, '\xff'));
    QTest::newRow("weight 0") << QByteArray(good).replace(16, 4, QByteArray(4, '\0'));
}

void TestFontRecord::Refused() {
    QFETCH(QByteArray, bytes);
    FontRecord font{77, 500, true, QStringLiteral("before")};
    QVERIFY(!FontRecord::FromBytes(bytes, font));
    QCOMPARE(font, (FontRecord{77, 500, true, QStringLiteral("before")}));
}

TEST_CLASS(TestFontRecord);
#include "TestFontRecord.moc"
