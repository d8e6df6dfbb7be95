#include "platform/host/CFileReader.h"

#include "support/TestProgram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

class TestCFileReader final : public QObject {
    Q_OBJECT

    QTemporaryDir folder;

    QString Write(const QByteArray& content) {
        QFile file(folder.filePath(u"file"_s));
        [&] { QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()); }();
        return file.fileName();
    }

 private Q_SLOTS:
    void readsInPiecesAndAgain() {
        CFileReader reader;
        QCOMPARE(reader.Open(Write("abcde")), 0);
        QCOMPARE(reader.Read(3).value(), QByteArray("abc"));
        QCOMPARE(reader.Read(3).value(), QByteArray("de"));
        QCOMPARE(reader.Read(3).value(), QByteArray());
        reader.Rewind();
        QCOMPARE(reader.Read(9).value(), QByteArray("abcde"));
    }

    void saysWhyItCantBeOpened() {
        QCOMPARE(CFileReader().Open(folder.filePath(u"absent"_s)), ENOENT);
        QCOMPARE(CFileReader().Open(folder.path()), EISDIR);
        // A pipe without a writer isn't waited for.
        const QByteArray pipe = folder.filePath(u"pipe"_s).toUtf8();
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        QCOMPARE(CFileReader().Open(QString::fromUtf8(pipe)), ESPIPE);
    }

    void noticesWhatIsWrittenMeanwhile() {
        CFileReader reader;
        const QString path = Write("abc");
        QCOMPARE(reader.Open(path), 0);
        QVERIFY(!reader.HasChanged());
        Write("abcd");
        QVERIFY(reader.HasChanged());
    }

    void aFileInItsPlaceIsAnotherOne() {
        CFileReader reader;
        const QString path = Write("abc");
        QCOMPARE(reader.Open(path), 0);
        QVERIFY(QFile::remove(path));
        Write("xyz");
        QCOMPARE(reader.Read(9).value(), QByteArray("abc"));
        QVERIFY(!reader.HasChanged());
    }
};

TEST_CLASS(TestCFileReader);
#include "TestCFileReader.moc"
