#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>

#include "platform/host/CFileCalls.h"
#include "platform/host/SafeFile.h"
#include "support/TestProgram.h"
#include "torture/CFaultInjector.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The system's calls, of which one fails, or all from one on. In use while it lives.
class CFaultyCalls final : public CFileCalls {
 public:
    CFaultyCalls(int error, Lasting lasting, int failing)
        : m_error(error), m_lasting(lasting), m_failing(failing), m_former(theFileCalls) {
        theFileCalls = this;
    }
    ~CFaultyCalls() override { theFileCalls = m_former; }
    CFaultyCalls(const CFaultyCalls&) = delete;
    CFaultyCalls& operator=(const CFaultyCalls&) = delete;

    int OpenFolder(const char* path) override { return Fails() ? -1 : CFileCalls::OpenFolder(path); }
    int Create(int folder, const char* name, mode_t mode) override {
        return Fails() ? -1 : CFileCalls::Create(folder, name, mode);
    }
    ssize_t Write(int file, const void* bytes, std::size_t size) override {
        return Fails() ? -1 : CFileCalls::Write(file, bytes, std::min<std::size_t>(size, kPiece));
    }
    int Sync(int handle) override { return Fails() ? -1 : CFileCalls::Sync(handle); }
    /// What close reports is a late failure: the file is closed all the same.
    int Close(int handle) override {
        const bool fails = Fails();
        const int result = CFileCalls::Close(handle);
        if (fails) errno = m_error;
        return fails ? -1 : result;
    }
    int Rename(int folder, const char* from, const char* to) override {
        return Fails() ? -1 : CFileCalls::Rename(folder, from, to);
    }
    int Unlink(int folder, const char* name) override {
        return Fails() ? -1 : CFileCalls::Unlink(folder, name);
    }

    int calls = 0;

 private:
    static constexpr std::size_t kPiece = 4096;  ///< a write may take less than it was given

    bool Fails() {
        ++calls;
        const bool fails =
            m_lasting == Lasting::OneCall ? calls == m_failing : m_failing > 0 && calls >= m_failing;
        if (fails) errno = m_error;
        return fails;
    }
    int m_error;
    Lasting m_lasting;
    int m_failing;
    CFileCalls* m_former;
};

const QByteArray kOld(5000, 'o');
const QByteArray kNew(20'000, 'n');

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
};

void TestFileFaults::EachCall_data() {
    QTest::addColumn<int>("error");
    QTest::addColumn<Lasting>("lasting");
    QTest::addColumn<bool>("isOver");
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
        QTest::addRow("%s, a new file", row.name) << row.error << row.lasting << false;
        QTest::addRow("%s, over an old one", row.name) << row.error << row.lasting << true;
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
    m_isOver = isOver;
    int calls = 0;
    {
        QVERIFY(Renew(isOver));
        const CFaultyCalls counted(error, lasting, 0);
        QVERIFY(WriteWholeFile(m_path, kNew, FileAudience::OwnerOnly).written);
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
        outcome = WriteWholeFile(m_path, kNew, FileAudience::OwnerOnly);
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
