#include "records/GuardedBlock.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Digests are those of RFC 1321, section A.5.
class TestGuardedBlock : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Text_data();
    void Text();
    void BadTexts_data();
    void BadTexts();
    void Bytes();
    void LargestOfARow();
};

void TestGuardedBlock::Text_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing: the digest of nothing") << QByteArray() << u"D41D8CD98F00B204E9800998ECF8427E"_s;
    QTest::newRow("a") << QByteArray("a") << u"0CC175B9C0F1B6A831C399E26977266161"_s;
    QTest::newRow("abc") << QByteArray("abc") << u"900150983CD24FB0D6963F7D28E17F72616263"_s;
}

void TestGuardedBlock::Text() {
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    QCOMPARE(BlockText(content), text);
    QByteArray read("before");
    QVERIFY(ReadBlockText(text, read) == BlockState::Sound);
    QCOMPARE(read, content);
}

void TestGuardedBlock::BadTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    const auto row = [](const char* name, const QString& text, BlockState state) {
        QTest::newRow(name) << text << static_cast<int>(state);
    };
    row("no digit", u"900150983CD24FB0D6963F7D28E17F7261626G"_s, BlockState::BadEncoding);
    row("a lower-case digit", u"900150983CD24FB0D6963F7D28E17f72616263"_s, BlockState::BadEncoding);
    row("an odd number of digits", u"900150983CD24FB0D6963F7D28E17F726162630"_s, BlockState::BadEncoding);
    row("nothing at all", QString(), BlockState::TooShort);
    row("15 bytes", u"900150983CD24FB0D6963F7D28E17F"_s, BlockState::TooShort);
    row("a changed digit of the content", u"900150983CD24FB0D6963F7D28E17F72616264"_s, BlockState::BadDigest);
    row("a changed digit of the digest", u"900150983CD24FB0D6963F7D28E17F73616263"_s, BlockState::BadDigest);
    row("a byte is missing", u"900150983CD24FB0D6963F7D28E17F726162"_s, BlockState::BadDigest);
}

void TestGuardedBlock::BadTexts() {
    QFETCH(QString, text);
    QFETCH(int, state);
    QByteArray content("before");
    QCOMPARE(static_cast<int>(ReadBlockText(text, content)), state);
    QCOMPARE(content, QByteArray("before"));
}

void TestGuardedBlock::Bytes() {
    const QByteArray block = Guarded("abc");
    QCOMPARE(block.toHex(), QByteArray("900150983cd24fb0d6963f7d28e17f72616263"));
    QByteArray content;
    QVERIFY(Unguard(block, content) == BlockState::Sound);
    QCOMPARE(content, QByteArray("abc"));
}

void TestGuardedBlock::LargestOfARow() {
    QCOMPARE(BlockText(QByteArray(15984, 'x')).size(), qsizetype(32000));
}

TEST_CLASS(TestGuardedBlock);
#include "TestGuardedBlock.moc"
