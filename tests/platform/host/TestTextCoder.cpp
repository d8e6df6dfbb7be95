#include "platform/host/TextCoder.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestTextCoder final : public QObject {
    Q_OBJECT

    using Meaningless = CTextDecoder::Meaningless;

 private Q_SLOTS:
    void names_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("isKnown");
        QTest::newRow("UTF-8") << QByteArray("UTF-8") << true;
        QTest::newRow("in small letters") << QByteArray("windows-1252") << true;
        QTest::newRow("of another script") << QByteArray("EUC-JP") << true;
        QTest::newRow("nobody knows it") << QByteArray("KLINGON-1") << false;
        QTest::newRow("nothing would be the locale's") << QByteArray() << false;
        QTest::newRow("one that drops characters") << QByteArray("ascii//IGNORE") << false;
        QTest::newRow("one that rewrites them") << QByteArray("ascii//TRANSLIT") << false;
        QTest::newRow("a blank") << QByteArray("UTF-8 ") << false;
    }
    void names() {
        QFETCH(QByteArray, name);
        QTEST(IsEncoding(name), "isKnown");
    }

    void oneByte_data() {
        QTest::addColumn<char16_t>("character");
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<bool>("isOne");
        QTest::newRow("a quote in UTF-8") << u'"' << QByteArray("utf-8") << true;
        QTest::newRow("a section sign in UTF-8 is two") << u'\u00A7' << QByteArray("utf-8") << false;
        QTest::newRow("and one in Windows-1252") << u'\u00A7' << QByteArray("windows-1252") << true;
        QTest::newRow("one that the encoding lacks") << u'\u0416' << QByteArray("windows-1252") << false;
        QTest::newRow("ASCII counts as one in UTF-16") << u';' << QByteArray("utf-16le") << true;
        QTest::newRow("half a character") << u'\xD83D' << QByteArray("windows-1252") << false;
    }
    void oneByte() {
        QFETCH(char16_t, character);
        QFETCH(QByteArray, encoding);
        QTEST(IsOneByte(character, encoding), "isOne");
    }

    void decode_data() {
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<Meaningless>("meaningless");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isWhole");
        const auto refused = Meaningless::Refused;
        QTest::newRow("UTF-8") << QByteArray("utf-8") << refused << QByteArray("Tür €\U0001F552")
                               << u"Tür €\U0001F552"_s << true;
        QTest::newRow("a mark isn't passed over")
            << QByteArray("utf-8") << refused << QByteArray("\xEF\xBB\xBF\x61") << u"\uFEFFa"_s << true;
        QTest::newRow("what stands before a bad byte")
            << QByteArray("utf-8") << refused << QByteArray("ab\xFF\x63") << u"ab"_s << false;
        QTest::newRow("cut at the end")
            << QByteArray("utf-8") << refused << QByteArray("ab\xE2\x82") << u"ab"_s << false;
        QTest::newRow("letters and signs in turns")
            << QByteArray("utf-8") << refused << QByteArray("aü€b🕒ßc") << u"aü€b🕒ßc"_s << true;
        QTest::newRow("a letter behind half a sign")
            << QByteArray("utf-8") << refused << QByteArray("a\xE2\x82\x62ü") << u"a"_s << false;
        QTest::newRow("which is replaced") << QByteArray("utf-8") << Meaningless::Replaced
                                           << QByteArray("a\xE2\x82\x62ü") << u"a\uFFFD\uFFFDbü"_s << true;
        QTest::newRow("an overlong form")
            << QByteArray("utf-8") << refused << QByteArray("\xC0\xAF") << QString() << false;
        QTest::newRow("half a character in UTF-8")
            << QByteArray("utf-8") << refused << QByteArray("\xED\xA0\xBD") << QString() << false;
        QTest::newRow("Windows-1252")
            << QByteArray("windows-1252") << refused << QByteArray("\x80\xFC") << u"€ü"_s << true;
        QTest::newRow("a byte that Windows-1252 lacks")
            << QByteArray("windows-1252") << refused << QByteArray("a\x81") << u"a"_s << false;
        QTest::newRow("which browsers read") << QByteArray("windows-1252") << Meaningless::Controls
                                             << QByteArray("a\x81\x9D\x62") << u"a\u0081\u009Db"_s << true;
        QTest::newRow("a replacement") << QByteArray("utf-8") << Meaningless::Replaced
                                       << QByteArray("a\xFF\xE2\x82") << u"a\uFFFD\uFFFD\uFFFD"_s << true;
        QTest::newRow("UTF-16") << QByteArray("utf-16be") << refused << QByteArray("\0a\x20\xAC", 4)
                                << u"a€"_s << true;
        QTest::newRow("UTF-16 with half a character")
            << QByteArray("utf-16le") << refused << QByteArray("\x3D\xD8\x61\0", 4) << QString() << false;
        QTest::newRow("a zero") << QByteArray("utf-8") << refused << QByteArray("a\0b", 3)
                                << QString::fromUtf8("a\0b", 3) << true;
        QTest::newRow("nothing") << QByteArray("utf-8") << refused << QByteArray() << QString() << true;
    }
    void decode() {
        QFETCH(QByteArray, encoding);
        QFETCH(Meaningless, meaningless);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, isWhole);
        QString whole;
        CTextDecoder decoder(encoding, meaningless);
        QCOMPARE(decoder.Decode(bytes, whole) && decoder.Finish(whole), isWhole);
        QTEST(whole, "text");
        // In pieces of one byte it is the same.
        QString pieces;
        CTextDecoder slow(encoding, meaningless);
        bool goesOn = true;
        for (qsizetype i = 0; goesOn && i < bytes.size(); ++i)
            goesOn = slow.Decode(QByteArrayView(bytes).sliced(i, 1), pieces);
        QCOMPARE(goesOn && slow.Finish(pieces), isWhole);
        QCOMPARE(pieces, whole);
    }

    void encode_data() {
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("replaced");
        QTest::newRow("UTF-8") << QByteArray("utf-8") << u"Tür €"_s << QByteArray("Tür €") << 0;
        QTest::newRow("two that the encoding lacks")
            << QByteArray("iso-8859-1") << u"5 € \U0001F552 ü"_s << QByteArray("5 ? ? \xFC") << 2;
        QTest::newRow("half a character counts as one")
            << QByteArray("utf-8") << (u"a"_s + QChar(0xD83D) + u'b') << QByteArray("a?b") << 1;
        QTest::newRow("half a character at the end")
            << QByteArray("utf-8") << (u"a"_s + QChar(0xD83D)) << QByteArray("a?") << 1;
        QTest::newRow("no mark in UTF-16") << QByteArray("utf-16") << u"a"_s << QByteArray("a\0", 2) << 0;
        QTest::newRow("a question mark is no replacement")
            << QByteArray("utf-16be") << u"?"_s << QByteArray("\0?", 2) << 0;
    }
    void encode() {
        QFETCH(QByteArray, encoding);
        QFETCH(QString, text);
        QFETCH(int, replaced);
        CTextEncoder encoder(encoding);
        QVERIFY(encoder.IsOpen());
        QTEST(encoder.Encode(text), "bytes");
        QCOMPARE(static_cast<int>(encoder.ReplacedCount()), replaced);
        QVERIFY(!CTextEncoder("KLINGON-1").IsOpen());
    }
};

TEST_CLASS(TestTextCoder);
#include "TestTextCoder.moc"
