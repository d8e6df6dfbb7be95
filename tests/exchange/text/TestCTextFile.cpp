#include "exchange/text/CTextFile.h"

#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>

using namespace Qt::Literals::StringLiterals;

class TestCTextFile final : public QObject {
    Q_OBJECT

    QTemporaryDir folder;

    QString Write(const QByteArray& content) {
        QFile file(folder.filePath(u"file"_s));
        [&] { QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()); }();
        return file.fileName();
    }
    /// All of it, and "!" where it breaks off.
    static QString Read(CTextFile& file) {
        QString text;
        auto next = CTextSource::Next::Text;
        while (next == CTextSource::Next::Text) next = file.Read(text);
        return next == CTextSource::Next::End ? text : text + u'!';
    }

 private Q_SLOTS:
    void encodings_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("chosen");
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("fellBack");
        const QByteArray none;
        QTest::newRow("UTF-8") << QByteArray("ü€") << none << QByteArray("utf-8") << u"ü€"_s << false;
        QTest::newRow("a mark is no text")
            << QByteArray("\xEF\xBB\xBFü") << none << QByteArray("utf-8") << u"ü"_s << false;
        QTest::newRow("a mark within is")
            << QByteArray("ü\xEF\xBB\xBF") << none << QByteArray("utf-8") << u"ü\uFEFF"_s << false;
        QTest::newRow("UTF-16, the small end first")
            << QByteArray("\xFF\xFE\x61\0\xAC\x20", 6) << none << QByteArray("utf-16le") << u"a€"_s << false;
        QTest::newRow("UTF-16, the great end first")
            << QByteArray("\xFE\xFF\0\x61\x20\xAC", 6) << none << QByteArray("utf-16be") << u"a€"_s << false;
        QTest::newRow("a mark wins over what was chosen")
            << QByteArray("\xEF\xBB\xBFü") << QByteArray("windows-1252") << QByteArray("utf-8") << u"ü"_s
            << false;
        QTest::newRow("no UTF-8 in its last byte")
            << QByteArray("ü\xFC") << none << QByteArray("windows-1252") << u"Ã¼ü"_s << true;
        QTest::newRow("nor cut at its end")
            << QByteArray("a\xE2\x82") << none << QByteArray("windows-1252") << u"aâ‚"_s << true;
        QTest::newRow("bytes that Windows-1252 lacks")
            << QByteArray("\xFC\x81") << none << QByteArray("windows-1252") << u"ü\u0081"_s << true;
        QTest::newRow("chosen") << QByteArray("\xA4") << QByteArray("ISO-8859-15")
                                << QByteArray("iso-8859-15") << u"€"_s << false;
        QTest::newRow("chosen, and it can't read all of it")
            << QByteArray("a\x81") << QByteArray("windows-1252") << QByteArray("windows-1252") << u"a!"_s
            << false;
        QTest::newRow("UTF-8 was chosen, so nothing else is tried")
            << QByteArray("a\xFC") << QByteArray("utf-8") << QByteArray("utf-8") << u"a!"_s << false;
        QTest::newRow("a mark before what isn't UTF-8")
            << QByteArray("\xEF\xBB\xBF\x61\xFC") << none << QByteArray("utf-8") << u"a!"_s << false;
        QTest::newRow("nothing") << none << none << QByteArray("utf-8") << QString() << false;
    }
    void encodings() {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, chosen);
        QFETCH(QString, text);
        CTextFile file;
        QCOMPARE(file.Open(Write(bytes)), 0);
        file.Begin(chosen);
        QTEST(file.Encoding(), "encoding");
        QTEST(file.FellBack(), "fellBack");
        QCOMPARE(Read(file), text);
        file.Rewind();
        QCOMPARE(Read(file), text);
    }

    void aCharacterAtThePiecesEnd() {
        // The pieces that are read have 65,536 bytes: the last byte of the character comes with the second.
        const QByteArray bytes = QByteArray(65534, 'a') + "€" + QByteArray(70000, 'b');
        CTextFile file;
        QCOMPARE(file.Open(Write(bytes)), 0);
        file.Begin({});
        QVERIFY(!file.FellBack());
        QCOMPARE(Read(file), QString::fromUtf8(bytes));
    }

    void anAbsentFile() { QCOMPARE(CTextFile().Open(folder.filePath(u"absent"_s)), ENOENT); }
};

TEST_CLASS(TestCTextFile);
#include "TestCTextFile.moc"
