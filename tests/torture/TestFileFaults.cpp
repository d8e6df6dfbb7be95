#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>

#include "platform/host/SafeFile.h"
#include "support/TestProgram.h"
#include "torture/CFaultyCalls.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray kOld(5000, 'o');
const QByteArray kNew(20'000, 'n');

/// How a file is written: in one piece, or in small ones with a place that is written over.
using WriteFile = FileOutcome (*)(const QString& path);

FileOutcome WriteAtOnce(const QString& path) {
    return WriteWholeFile(path, kNew, FileAudience::OwnerOnly);
}

FileOutcome WriteInPieces(const QString& path) {
    CSafeFile file(path, FileAudience::OwnerOnly);
    bool isWritten = file.Write("later");
    for (qsizetype done = 5; done < kNew.size(); done += 15)
        isWritten =
            file.Write(QByteArrayView(kNew).sliced(done, std::min<qsizetype>(15, kNew.size() - done)));
    isWritten = file.WriteAt(0, "nnnnn") && isWritten;
    FileOutcome outcome = file.Finish(
        [](QIODevice& written) { return written.readAll() == kNew ? QString() : u"other bytes"_s; });
    if (outcome.written && !isWritten) outcome.error = u"a failure was forgotten"_s;
    return outcome;
}

}  // namespace

/// Each call to the system by which a whole file is written fails once, and from then on. The old file or the
/// new one is there, whole, and the outcome says which.
class TestFileFaults : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void EachCall_data();
    void EachCall();

 private:
    void Try(int error, Lasting lasting, int call);
    [[nodiscard]] QStringList Files() const {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
    }
    [[nodiscard]] QByteArray Content() const;
    [[nodiscard]] bool Renew(bool isOver) const;

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"report.html"_s);
    bool m_isOver = false;
    WriteFile m_write = WriteAtOnce;
};

void TestFileFaults::EachCall_data() {
    QTest::addColumn<int>("error");
    QTest::addColumn<Lasting>("lasting");
    QTest::addColumn<bool>("isOver");
    QTest::addColumn<WriteFile>("write");
    struct Row {
        const char* name;
        int error;
        Lasting lasting;
    };
    constexpr Row kRows[] = {
        {"the disk fails once", EIO, Lasting::OneCall},
        {"the disk fails from then on", EIO, Lasting::FromThenOn},
        {"no space, once", ENOSPC, Lasting::OneCall},
        {"no space from then on", ENOSPC, Lasting::FromThenOn},
    };
    for (const Row& row : kRows) {
        for (const WriteFile write : {WriteAtOnce, WriteInPieces}) {
            const char* way = write == WriteAtOnce ? "at once" : "in pieces";
            QTest::addRow("%s, a new file, %s", row.name, way) << row.error << row.lasting << false << write;
            QTest::addRow("%s, over an old one, %s", row.name, way)
                << row.error << row.lasting << true << write;
        }
    }
}

QByteArray TestFileFaults::Content() const {
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool TestFileFaults::Renew(bool isOver) const {
    for (const QString& name : Files())
        if (!QFile::remove(m_folder.filePath(name))) return false;
    QFile file(m_path);
    return !isOver || (file.open(QIODevice::WriteOnly) && file.write(kOld) == kOld.size());
}

void TestFileFaults::EachCall() {
    QFETCH(int, error);
    QFETCH(Lasting, lasting);
    QFETCH(bool, isOver);
    QFETCH(WriteFile, write);
    m_isOver = isOver;
    m_write = write;
    int calls = 0;
    {
        QVERIFY(Renew(isOver));
        const CFaultyCalls counted(error, lasting, 0);
        QVERIFY(m_write(m_path).written);
        calls = counted.calls;
    }
    QCOMPARE(Content(), kNew);
    QVERIFY(calls > 10);
    for (int call = 1; call <= calls; ++call) {
        QVERIFY(Renew(isOver));
        Try(error, lasting, call);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(u"call %1 of %2"_s.arg(call).arg(calls)));
    }
}

void TestFileFaults::Try(int error, Lasting lasting, int call) {
    FileOutcome outcome;
    {
        const CFaultyCalls faulty(error, lasting, call);
        outcome = m_write(m_path);
    }
    QCOMPARE(outcome.error.isEmpty(), outcome.written);
    const bool isNewThere = outcome.written || outcome.error.contains(u"could not confirm"_s);
    QCOMPARE(Content(), isNewThere ? kNew : m_isOver ? kOld : QByteArray());
    // Where nothing works any more not even the temporary file can be deleted.
    const qsizetype most = lasting == Lasting::FromThenOn && !isNewThere ? 2 : 1;
    QVERIFY2(Files().size() <= most, qPrintable(Files().join(u' ')));
}

TEST_CLASS(TestFileFaults);
#include "TestFileFaults.moc"
