#include "platform/host/SafeFile.h"

#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

mode_t ModeOf(const QString& path) {
    struct stat status {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode : 0;
}

void Put(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

}  // namespace

class TestSafeFile : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void write_data();
    void write();
    void mode_data();
    void mode();
    void overALink();
    void overAnOldFileThatIsOpen();
    void relativePath();
    void refusals_data();
    void refusals();
    void fileSizeLimit();
    void folderWithoutRights();
    void inPieces();
    void whatIsWrongStaysAway();
    void nothingIsLeftWithoutAFinish();

 private:
    [[nodiscard]] QString Path(const QString& name) const { return m_folder->filePath(name); }
    [[nodiscard]] QStringList Files() const {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSafeFile::init() {
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestSafeFile::write_data() {
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a new file") << QByteArray() << QByteArray("new");
    QTest::newRow("over a longer one") << QByteArray(10'000, 'o') << QByteArray("new");
    QTest::newRow("an empty file") << QByteArray("old") << QByteArray();
    QTest::newRow("zero bytes") << QByteArray("old") << QByteArray("\0\0", 2);
    QTest::newRow("ten million bytes") << QByteArray("old") << QByteArray(10'000'000, 'n');
}

void TestSafeFile::write() {
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, content);
    const QString path = Path(u"Report \"1\".html"_qs);
    if (!old.isNull()) Put(path, old);
    const FileOutcome outcome = WriteWholeFile(path, content, FileAudience::UserDefault);
    QVERIFY2(outcome.written, qPrintable(outcome.error));
    QCOMPARE(outcome.error, QString());
    QCOMPARE(ReadBytes(path), content);
    QCOMPARE(Files(), QStringList(u"Report \"1\".html"_qs));
}

void TestSafeFile::mode_data() {
    QTest::addColumn<int>("mask");
    QTest::addColumn<FileAudience>("audience");
    QTest::addColumn<int>("mode");
    QTest::newRow("for the owner") << 0022 << FileAudience::OwnerOnly << 0600;
    QTest::newRow("for the owner, whatever the mask") << 0000 << FileAudience::OwnerOnly << 0600;
    QTest::newRow("as the user has it") << 0022 << FileAudience::UserDefault << 0644;
    QTest::newRow("as a careful user has it") << 0077 << FileAudience::UserDefault << 0600;
}

void TestSafeFile::mode() {
    QFETCH(int, mask);
    QFETCH(FileAudience, audience);
    QFETCH(int, mode);
    const mode_t before = ::umask(static_cast<mode_t>(mask));
    const FileOutcome outcome = WriteWholeFile(Path(u"f"_qs), "x", audience);
    ::umask(before);
    QVERIFY(outcome.written);
    QCOMPARE(static_cast<int>(ModeOf(Path(u"f"_qs)) & 0777U), mode);
}

void TestSafeFile::overALink() {
    Put(Path(u"target"_qs), "untouched");
    for (const QString& target : {Path(u"target"_qs), Path(u"nowhere"_qs), m_folder->path()}) {
        QFile::remove(Path(u"link"_qs));
        QVERIFY(QFile::link(target, Path(u"link"_qs)));
        QVERIFY(WriteWholeFile(Path(u"link"_qs), "new", FileAudience::OwnerOnly).written);
        QVERIFY(S_ISREG(ModeOf(Path(u"link"_qs))));
        QCOMPARE(ReadBytes(Path(u"link"_qs)), "new");
    }
    QCOMPARE(ReadBytes(Path(u"target"_qs)), "untouched");
    QVERIFY(!QFile::exists(Path(u"nowhere"_qs)));
}

void TestSafeFile::overAnOldFileThatIsOpen() {
    const QString path = Path(u"f"_qs);
    Put(path, "old");
    QFile reader(path);
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QVERIFY(WriteWholeFile(path, "new", FileAudience::OwnerOnly).written);
    QCOMPARE(reader.readAll(), "old");  // a reader keeps what it began to read
    QCOMPARE(ReadBytes(path), "new");
}

void TestSafeFile::relativePath() {
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    const FileOutcome outcome = WriteWholeFile(u"f"_qs, "x", FileAudience::OwnerOnly);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(outcome.written);
    QCOMPARE(ReadBytes(Path(u"f"_qs)), "x");
}

void TestSafeFile::refusals_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("a folder") << QByteArray("folder") << u"is a folder"_qs;
    QTest::newRow("a folder named with a separator") << QByteArray("folder/") << u"is no file name"_qs;
    QTest::newRow("this folder") << QByteArray(".") << u"is no file name"_qs;
    QTest::newRow("a pipe is not waited for") << QByteArray("pipe") << u"not an ordinary file"_qs;
    QTest::newRow("a link to a device") << QByteArray("null") << u"not an ordinary file"_qs;
    QTest::newRow("a folder that isn't there") << QByteArray("none/f") << u"folder does not exist"_qs;
    QTest::newRow("a file as folder") << QByteArray("file/f") << u"folder does not exist"_qs;
    QTest::newRow("a name of 300 characters") << QByteArray(300, 'n') << u"name is too long"_qs;
    QTest::newRow("nothing") << QByteArray() << u"is no file name"_qs;
}

void TestSafeFile::refusals() {
    QFETCH(QByteArray, name);
    QFETCH(QString, sentence);
    QVERIFY(QDir(m_folder->path()).mkdir(u"folder"_qs));
    QCOMPARE(::mkfifo(QFile::encodeName(Path(u"pipe"_qs)).constData(), 0600), 0);
    QVERIFY(QFile::link(u"/dev/null"_qs, Path(u"null"_qs)));
    Put(Path(u"file"_qs), "untouched");
    const QStringList before = Files();
    const QString path = name.isEmpty() ? QString() : m_folder->path() + u'/' + QString::fromUtf8(name);
    const FileOutcome outcome = WriteWholeFile(path, "new", FileAudience::OwnerOnly);
    QVERIFY(!outcome.written);
    QVERIFY2(outcome.error.contains(sentence), qPrintable(outcome.error));
    QCOMPARE(Files(), before);
    QCOMPARE(ReadBytes(Path(u"file"_qs)), "untouched");
}

void TestSafeFile::fileSizeLimit() {
    const QString path = Path(u"f"_qs);
    Put(path, "old");
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{.rlim_cur = 50'000, .rlim_max = 50'000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(1);
        const FileOutcome outcome = WriteWholeFile(path, QByteArray(100'000, 'n'), FileAudience::OwnerOnly);
        ::_exit(!outcome.written && outcome.error.contains(u"larger than is allowed") ? 0 : 2);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    QCOMPARE(ReadBytes(path), "old");
    QCOMPARE(Files(), QStringList(u"f"_qs));
}

void TestSafeFile::folderWithoutRights() {
    const QString path = Path(u"f"_qs);
    Put(path, "old");
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0555), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        // Where tests run as the administrator, whom no file mode stops.
        if (::geteuid() == 0 && ::seteuid(65534) != 0) ::_exit(3);
        const FileOutcome outcome = WriteWholeFile(path, "new", FileAudience::OwnerOnly);
        ::_exit(!outcome.written && outcome.error.contains(u"may not write in this folder") ? 0 : 2);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0700), 0);
    QCOMPARE(status, 0);
    QCOMPARE(ReadBytes(path), "old");
}

/// Pieces smaller and larger than what is gathered, and bytes at the front that are known last.
void TestSafeFile::inPieces() {
    const QString path = Path(u"f"_qs);
    QByteArray expected;
    {
        CSafeFile file(path, FileAudience::OwnerOnly);
        for (const int size : {4, 100'000, 1, 65'535, 65'536, 3}) {
            const QByteArray piece(size, static_cast<char>('a' + size % 26));
            QVERIFY(file.Write(piece));
            expected += piece;
        }
        QVERIFY(file.WriteAt(0, "HEAD"));
        QVERIFY(file.Write("end"));
        expected = "HEAD" + expected.mid(4) + "end";
        QVERIFY(!QFile::exists(path));
        QByteArray seen;
        const FileOutcome outcome = file.Finish([&](QIODevice& written) {
            seen = written.readAll();
            return QString();
        });
        QVERIFY2(outcome.written, qPrintable(outcome.error));
        QCOMPARE(seen, expected);
    }
    QCOMPARE(ReadBytes(path), expected);
    QCOMPARE(Files(), QStringList(u"f"_qs));
}

void TestSafeFile::whatIsWrongStaysAway() {
    const QString path = Path(u"f"_qs);
    Put(path, "old");
    {
        CSafeFile file(path, FileAudience::OwnerOnly);
        QVERIFY(file.Write("new"));
        const FileOutcome outcome = file.Finish([](QIODevice&) { return u"It is wrong."_qs; });
        QVERIFY(!outcome.written);
        QCOMPARE(outcome.error, u"It is wrong."_qs);
    }
    QCOMPARE(ReadBytes(path), QByteArray("old"));
    QCOMPARE(Files(), QStringList(u"f"_qs));
}

void TestSafeFile::nothingIsLeftWithoutAFinish() {
    {
        CSafeFile file(Path(u"f"_qs), FileAudience::OwnerOnly);
        QVERIFY(file.Write(QByteArray(100'000, 'n')));
    }
    QCOMPARE(Files(), QStringList());
}

TEST_CLASS(TestSafeFile);
#include "TestSafeFile.moc"
