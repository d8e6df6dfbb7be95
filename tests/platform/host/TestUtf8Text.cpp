#include "platform/host/Utf8Text.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestUtf8Text : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void TextOf_data();
    void TextOf();
    void Write_data();
    void Write();
};

void TestUtf8Text::TextOf_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("plain") << QByteArray("abc") << u"abc"_s;
    QTest::newRow("umlauts") << QByteArray("M\xC3\xBCller") << u"Müller"_s;
    QTest::newRow("a mark in front") << QByteArray(
                                            "\xEF\xBB\xBF"
                                            "abc")
                                     << u"\uFEFFabc"_s;
    QTest::newRow("two of them") << QByteArray(
                                        "\xEF\xBB\xBF\xEF\xBB\xBF"
                                        "abc")
                                 << u"\uFEFF\uFEFFabc"_s;
    QTest::newRow("nothing else") << QByteArray("\xEF\xBB\xBF") << u"\uFEFF"_s;
    QTest::newRow("a mark inside") << QByteArray(
                                          "a\xEF\xBB\xBF"
                                          "b")
                                   << u"a\uFEFFb"_s;
    QTest::newRow("part of a mark") << QByteArray("\xEF\xBB") << u"\uFFFD\uFFFD"_s;
    QTest::newRow("an emoji") << QByteArray("\xF0\x9F\x98\x80") << u"\U0001F600"_s;
}

void TestUtf8Text::TextOf() {
    QFETCH(QByteArray, bytes);
    QTEST(TextOfUtf8(bytes), "text");
}

void TestUtf8Text::Write_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QString() << QByteArray();
    QTest::newRow("plain") << u"abc~"_s << QByteArray("abc~");
    QTest::newRow("the first character that is no ASCII") << u"a\u0080"_s << QByteArray("a\xC2\x80");
    QTest::newRow("three bytes") << u"\uFFFD\u20AC"_s << QByteArray("\xEF\xBF\xBD\xE2\x82\xAC");
    QTest::newRow("a mark in front") << u"\uFEFFx"_s << QByteArray("\xEF\xBB\xBFx");
    QTest::newRow("an emoji") << u"\U0001F600"_s << QByteArray("\xF0\x9F\x98\x80");
    QTest::newRow("half a pair") << QString(QChar(0xD83D)) + u'x' << QByteArray("?x");
}

void TestUtf8Text::Write() {
    QFETCH(QString, text);
    QByteArray out(text.size() * kMostUtf8PerUnit, '!');
    out.truncate(WriteUtf8(text, out.data()));
    QTEST(out, "bytes");
}

TEST_CLASS(TestUtf8Text);
#include "TestUtf8Text.moc"
