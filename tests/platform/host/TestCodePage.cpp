#include "platform/host/CodePage.h"

#include "support/TestProgram.h"

#include <QTest>
#include <map>

class TestCodePage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void cleanup();
    void from_data();
    void from();
    void to_data();
    void to();
    void everyByteOfLatin1();

 private:
    std::map<QByteArray, QByteArray> m_before;
};

void TestCodePage::init() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        m_before[name] = qgetenv(name);
        qunsetenv(name);
    }
}

void TestCodePage::cleanup() {
    for (const auto& [name, value] : m_before) qputenv(name.constData(), value);
}

void TestCodePage::from_data() {
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTF-8") << QByteArray("de_DE.UTF-8") << QByteArray("Tür \xE2\x82\xAC") << u"Tür €"_qs;
    QTest::newRow("UTF-8 by another spelling") << QByteArray("de_DE.utf8") << QByteArray("ü") << u"ü"_qs;
    QTest::newRow("no locale") << QByteArray() << QByteArray("ü") << u"ü"_qs;
    QTest::newRow("a locale without an encoding") << QByteArray("de_DE") << QByteArray("ü") << u"ü"_qs;
    QTest::newRow("an encoding nobody knows") << QByteArray("de_DE.KLINGON-1") << QByteArray("ü") << u"ü"_qs;
    QTest::newRow("a byte that means nothing in UTF-8") << QByteArray("de_DE.UTF-8")
                                                        << QByteArray(
                                                               "a\xFF"
                                                               "b")
                                                        << u"a\uFFFDb"_qs;
    QTest::newRow("a character cut off at the end")
        << QByteArray("de_DE.UTF-8") << QByteArray("a\xC3") << u"a\uFFFD"_qs;
    QTest::newRow("Latin 1") << QByteArray("de_DE.ISO-8859-1") << QByteArray("T\xFCr") << u"Tür"_qs;
    QTest::newRow("Latin 9 with a modifier")
        << QByteArray("de_DE.ISO-8859-15@euro") << QByteArray("\xA4") << u"€"_qs;
    QTest::newRow("Shift JIS") << QByteArray("ja_JP.SJIS") << QByteArray("\x93\xFA") << u"日"_qs;
    QTest::newRow("a byte that means nothing in ASCII") << QByteArray("C.ASCII")
                                                        << QByteArray(
                                                               "a\xFC"
                                                               "b")
                                                        << u"a\uFFFDb"_qs;
    QTest::newRow("a character of two bytes cut off")
        << QByteArray("ja_JP.EUC-JP") << QByteArray("a\xC6") << u"a\uFFFD"_qs;
    QTest::newRow("nothing") << QByteArray("de_DE.ISO-8859-1") << QByteArray() << QString();
    QTest::newRow("a zero byte") << QByteArray("de_DE.ISO-8859-1") << QByteArray("a\0b", 3)
                                 << QString::fromUtf8("a\0b", 3);
    QTest::newRow("a long text") << QByteArray("de_DE.ISO-8859-1") << QByteArray(100'000, '\xFC')
                                 << QString(100'000, u'ü');
}

void TestCodePage::from() {
    QFETCH(QByteArray, locale);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    qputenv("LC_CTYPE", locale);
    QCOMPARE(FromCodePage(bytes), text);
}

void TestCodePage::to_data() {
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8") << QByteArray("de_DE.UTF-8") << u"Tür €"_qs << QByteArray("Tür \xE2\x82\xAC");
    QTest::newRow("half a character in UTF-8")
        << QByteArray("de_DE.UTF-8") << (u"a"_qs + QChar(0xD83D) + u'b') << QByteArray("a?b");
    QTest::newRow("Latin 1") << QByteArray("de_DE.ISO-8859-1") << u"Tür"_qs << QByteArray("T\xFCr");
    QTest::newRow("a character that Latin 1 lacks")
        << QByteArray("de_DE.ISO-8859-1") << u"5 €"_qs << QByteArray("5 ?");
    QTest::newRow("an emoji is one question mark")
        << QByteArray("de_DE.ISO-8859-1") << u"a\U0001F552b"_qs << QByteArray("a?b");
    QTest::newRow("half a character in Latin 1")
        << QByteArray("de_DE.ISO-8859-1") << (u"a"_qs + QChar(0xDD52) + u'b') << QByteArray("a?b");
    QTest::newRow("Shift JIS") << QByteArray("ja_JP.SJIS") << u"日"_qs << QByteArray("\x93\xFA");
    QTest::newRow("nothing") << QByteArray("de_DE.ISO-8859-1") << QString() << QByteArray();
}

void TestCodePage::to() {
    QFETCH(QByteArray, locale);
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    qputenv("LANG", "de_DE.UTF-8");
    qputenv("LC_ALL", locale);
    QCOMPARE(ToCodePage(text), bytes);
}

void TestCodePage::everyByteOfLatin1() {
    qputenv("LANG", "en_US.ISO-8859-1");
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const QString text = FromCodePage(bytes);
    QCOMPARE(text.size(), 256);
    QCOMPARE(text[0xE9], QChar(u'é'));
    QCOMPARE(ToCodePage(text), bytes);
}

TEST_CLASS(TestCodePage);
#include "TestCodePage.moc"
