#include "platform/instance/CInstance.h"

#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString kName = u"Dv.Win.Velmarch.{5E1C7A20-93D4-4C7F-A1B6-2F08D6C4B711}"_qs;

/// A pipe to give and take signs between processes.
struct Pipe {
    Pipe() { isOpen = ::pipe(ends) == 0; }
    ~Pipe() {
        for (const int end : ends) ::close(end);
    }
    bool Say() const { return ::write(ends[1], "!", 1) == 1; }
    bool Hear() const {
        char sign = 0;
        return ::read(ends[0], &sign, 1) == 1;
    }
    bool isOpen = false;
    int ends[2] = {-1, -1};
};

}  // namespace

class TestCInstance : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void take();
    void takeElsewhere();
    void staleFile_data();
    void staleFile();
    void killedHolder();
    void startedProgramDoesNotInherit();
    void fiftyAtOnce();
    void failures_data();
    void failures();
    void anotherOwner_data();
    void anotherOwner();

 private:
    [[nodiscard]] QString Home() const { return m_folder->path(); }
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestCInstance::init() {
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestCInstance::take() {
    QVERIFY(!CInstance::IsHeld(kName, Home()));
    CInstance first;
    QCOMPARE(first.Take(kName, Home()), CInstance::Outcome::Taken);
    QVERIFY(CInstance::IsHeld(kName, Home()));
    CInstance second;
    QCOMPARE(second.Take(kName, Home()), CInstance::Outcome::AlreadyExists);
    QVERIFY(CInstance::IsHeld(kName, Home()));  // asking and trying have not lost it
    first.Release();
    QVERIFY(!CInstance::IsHeld(kName, Home()));
    QCOMPARE(second.Take(kName, Home()), CInstance::Outcome::Taken);
    QCOMPARE(second.Take(kName, Home()), CInstance::Outcome::Taken);  // once more by itself
    {
        const CInstance scoped = CInstance();
        QVERIFY(CInstance::IsHeld(kName, Home()));
    }
    QVERIFY(CInstance::IsHeld(kName, Home()));
}

void TestCInstance::takeElsewhere() {
    const QTemporaryDir elsewhere;
    CInstance here;
    CInstance there;
    CInstance another;
    QCOMPARE(here.Take(kName, Home()), CInstance::Outcome::Taken);
    QCOMPARE(there.Take(kName, elsewhere.path()), CInstance::Outcome::Taken);
    QCOMPARE(another.Take(u"another/name"_qs, Home()), CInstance::Outcome::Taken);
    // The same home by another path is the same home.
    const QString link = elsewhere.filePath(u"link"_qs);
    QVERIFY(QFile::link(Home(), link));
    QVERIFY(CInstance::IsHeld(kName, link));
}

void TestCInstance::staleFile_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("an empty file left behind") << QByteArray();
    QTest::newRow("a file with the number of a process that lives") << QByteArray::number(::getpid());
    QTest::newRow("a file of rubbish") << QByteArray(100'000, '\xFF');
}

void TestCInstance::staleFile() {
    QFETCH(QByteArray, content);
    {
        CInstance earlier;
        QCOMPARE(earlier.Take(kName, Home()), CInstance::Outcome::Taken);
    }
    const QStringList files = QDir(Home()).entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(files.size(), 1);
    QFile file(QDir(Home()).filePath(files.front()));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
    file.close();
    QVERIFY(!CInstance::IsHeld(kName, Home()));
    CInstance instance;
    QCOMPARE(instance.Take(kName, Home()), CInstance::Outcome::Taken);
}

void TestCInstance::killedHolder() {
    const Pipe taken;
    QVERIFY(taken.isOpen);
    const pid_t child = ::fork();
    if (child == 0) {
        CInstance instance;
        const bool good = instance.Take(kName, Home()) == CInstance::Outcome::Taken && taken.Say();
        while (good) ::pause();
        ::_exit(1);
    }
    QVERIFY(taken.Hear());
    QVERIFY(CInstance::IsHeld(kName, Home()));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    QVERIFY(!CInstance::IsHeld(kName, Home()));
    CInstance instance;
    QCOMPARE(instance.Take(kName, Home()), CInstance::Outcome::Taken);
}

void TestCInstance::startedProgramDoesNotInherit() {
    CInstance instance;
    QCOMPARE(instance.Take(kName, Home()), CInstance::Outcome::Taken);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execlp("sleep", "sleep", "60", static_cast<char*>(nullptr));
        ::_exit(1);
    }
    // Until it has become the other program the child still shares the lock.
    instance.Release();
    const bool isFree = QTest::qWaitFor([&] { return !CInstance::IsHeld(kName, Home()); }, 5000);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    QVERIFY(isFree);
}

void TestCInstance::fiftyAtOnce() {
    constexpr int kPrograms = 50;
    const Pipe start;
    const Pipe done;
    const Pipe finish;
    QVERIFY(start.isOpen && done.isOpen && finish.isOpen);
    std::vector<pid_t> children;
    for (int i = 0; i < kPrograms; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            CInstance instance;
            if (!start.Hear()) ::_exit(9);
            const CInstance::Outcome outcome = instance.Take(kName, Home());
            if (!done.Say() || !finish.Hear()) ::_exit(9);  // all hold on until everybody has tried
            ::_exit(outcome == CInstance::Outcome::Taken ? 1 : outcome == CInstance::Outcome::Failed ? 2 : 0);
        }
        children.push_back(child);
    }
    for (int i = 0; i < kPrograms; ++i) QVERIFY(start.Say());
    for (int i = 0; i < kPrograms; ++i) QVERIFY(done.Hear());
    for (int i = 0; i < kPrograms; ++i) QVERIFY(finish.Say());
    int taken = 0;
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) < 2);
        taken += WEXITSTATUS(status);
    }
    QCOMPARE(taken, 1);
    QVERIFY(!CInstance::IsHeld(kName, Home()));
}

void TestCInstance::failures_data() {
    QTest::addColumn<QByteArray>("what");
    QTest::newRow("a home that isn't there") << QByteArray("no home");
    QTest::newRow("a link in the place of the file is not followed") << QByteArray("link");
    QTest::newRow("a folder in the place of the file") << QByteArray("folder");
}

void TestCInstance::failures() {
    QFETCH(QByteArray, what);
    const QString home = what == "no home" ? m_folder->filePath(u"none"_qs) : Home();
    const QString file = m_folder->filePath(u'.' + kName);
    const QString target = m_folder->filePath(u"target"_qs);
    if (what == "link") QVERIFY(QFile::link(target, file));
    if (what == "folder") QVERIFY(QDir().mkdir(file));
    CInstance instance;
    QCOMPARE(instance.Take(kName, home), CInstance::Outcome::Failed);
    QVERIFY(!instance.Error().isEmpty());
    QVERIFY(what == "no home" || instance.Error().contains(u"Delete it."_qs));
    QVERIFY(!CInstance::IsHeld(kName, home));
    QVERIFY(!QFile::exists(target));
}

void TestCInstance::anotherOwner_data() {
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<bool>("isWritable");
    QTest::addColumn<int>("outcome");
    QTest::newRow("a folder that can't be written, and no lock in it: nobody can change anything")
        << false << false << static_cast<int>(CInstance::Outcome::ReadOnly);
    QTest::newRow("a lock of another user, who may hold it")
        << true << false << static_cast<int>(CInstance::Outcome::Failed);
    QTest::newRow("the same in a folder that anybody may write")
        << true << true << static_cast<int>(CInstance::Outcome::Failed);
}

void TestCInstance::anotherOwner() {
    if (::geteuid() != 0) QSKIP("only the administrator can pretend to be another user");
    QFETCH(bool, isThere);
    QFETCH(bool, isWritable);
    QFETCH(int, outcome);
    QCOMPARE(::chmod(QFile::encodeName(Home()).constData(), isWritable ? 0777 : 0755), 0);
    if (isThere) {
        CInstance other;
        QCOMPARE(other.Take(kName, Home()), CInstance::Outcome::Taken);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        if (::seteuid(65534) != 0) ::_exit(9);
        ::_exit(static_cast<int>(CInstance().Take(kName, Home())));
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), outcome);
}

TEST_CLASS(TestCInstance);
#include "TestCInstance.moc"
