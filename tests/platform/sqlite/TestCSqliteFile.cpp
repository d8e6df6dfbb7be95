#include "platform/sqlite/CSqliteFile.h"

#include <sqlite3.h>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <map>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdarg>

#include "platform/sqlite/SqliteErrors.h"
#include "support/TestProgram.h"

namespace {

constexpr SqliteFileKind kKind = {.applicationId = 0x54455354, .version = 3, .busySeconds = 1};

std::int64_t Number(CSqliteFile& file, const QByteArray& sql) {
    sqlite3_stmt* statement = file.Prepare(sql);
    if (statement == nullptr) return -1;
    const std::int64_t number =
        sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
    sqlite3_reset(statement);
    return number;
}

/// Makes a database by SQLite alone, as another program would.
void MakeForeign(const QString& path, const char* sql) {
    sqlite3* db = nullptr;
    QCOMPARE(sqlite3_open(QFile::encodeName(path).constData(), &db), SQLITE_OK);
    QCOMPARE(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
}

void WriteBytes(const QString& path, const QByteArray& bytes, qint64 at = 0) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(at));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Runs the work in a child process that may do no harm to this one; its exit code.
template <typename Work>
int InChild(Work work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// An account without rights, where tests run as the administrator, whom no file mode stops.
void BecomeNobody() {
    if (::geteuid() == 0 && (::setegid(65534) != 0 || ::seteuid(65534) != 0)) ::_exit(99);
}

}  // namespace

class TestCSqliteFile : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void open_data();
    void open();
    void openSetsUpTheConnection();
    void openWithoutRights_data();
    void openWithoutRights();
    void openByManyAtOnce();
    void openIsCheap();
    void prepare();
    void prepareKeepsABoundedNumber();
    void prepareLeavesARunningStatementAlone();
    void transaction();
    void transactionUndoneByAFullDisk();
    void fileSizeLimit();
    void lockedByAnother();
    void waitsOfTwoFilesAddUp();
    void nothingBeginsWithinAWait();
    void whereNoFileCanBeLocked_data();
    void whereNoFileCanBeLocked();
    void isStillInPlace_data();
    void isStillInPlace();
    void integrityReport();
    void sentence_data();
    void sentence();

 private:
    [[nodiscard]] QString Path(const QString& name) const { return m_folder->filePath(name); }
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestCSqliteFile::init() {
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestCSqliteFile::open_data() {
    QTest::addColumn<QByteArray>("what");
    QTest::addColumn<bool>("create");
    QTest::addColumn<OpenOutcome>("outcome");
    QTest::newRow("an absent file is created") << QByteArray("absent") << true << OpenOutcome::Created;
    QTest::newRow("an absent file is missing when it isn't to be created")
        << QByteArray("absent") << false << OpenOutcome::Missing;
    QTest::newRow("an empty file is filled") << QByteArray("empty") << true << OpenOutcome::Created;
    QTest::newRow("an empty file is nothing of ours when it isn't to be created")
        << QByteArray("empty") << false << OpenOutcome::Foreign;
    QTest::newRow("our own file is there") << QByteArray("own") << true << OpenOutcome::Existed;
    QTest::newRow("our own file of an older version is there")
        << QByteArray("older") << false << OpenOutcome::Existed;
    QTest::newRow("our own file in another journal mode is brought back")
        << QByteArray("wal") << false << OpenOutcome::Existed;
    QTest::newRow("a file of a newer version is left alone")
        << QByteArray("newer") << true << OpenOutcome::Newer;
    QTest::newRow("another program's database") << QByteArray("foreign") << true << OpenOutcome::Foreign;
    QTest::newRow("a database without a name") << QByteArray("nameless") << true << OpenOutcome::Foreign;
    QTest::newRow("a folder") << QByteArray("folder") << true << OpenOutcome::Foreign;
    QTest::newRow("a pipe is not waited for") << QByteArray("pipe") << true << OpenOutcome::Foreign;
    QTest::newRow("a text file") << QByteArray("text") << true << OpenOutcome::Damaged;
    QTest::newRow("our own file cut off") << QByteArray("cut") << true << OpenOutcome::Damaged;
    QTest::newRow("a file in a folder that isn't there")
        << QByteArray("no/such/folder") << true << OpenOutcome::Failed;
    QTest::newRow("a link that leads to itself") << QByteArray("circle") << true << OpenOutcome::Failed;
}

void TestCSqliteFile::open() {
    QFETCH(QByteArray, what);
    QFETCH(bool, create);
    QFETCH(OpenOutcome, outcome);
    const QByteArray own = "PRAGMA application_id=1413829460;";  // "TEST"
    const std::map<QByteArray, QByteArray> scripts = {
        {"own", own + "PRAGMA user_version=3; CREATE TABLE t(a)"},
        {"older", own + "PRAGMA user_version=2; CREATE TABLE t(a)"},
        {"wal", own + "PRAGMA user_version=3; PRAGMA journal_mode=WAL; CREATE TABLE t(a)"},
        {"newer", own + "PRAGMA user_version=4; CREATE TABLE t(a)"},
        {"foreign", "PRAGMA application_id=99; CREATE TABLE t(a)"},
        {"nameless", "CREATE TABLE t(a)"},
        {"cut", own + "CREATE TABLE t(a); CREATE TABLE u(a); CREATE TABLE v(a)"}};
    const QString path = Path(QString::fromUtf8(what));
    if (const auto script = scripts.find(what); script != scripts.end()) MakeForeign(path, script->second);
    if (what == "empty") WriteBytes(path, "");
    if (what == "text") WriteBytes(path, QByteArray("Dear diary,\n").repeated(100));
    if (what == "folder") QVERIFY(QDir(m_folder->path()).mkdir(QString::fromUtf8(what)));
    if (what == "pipe") QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    if (what == "circle") QVERIFY(QFile::link(path, path));
    if (what == "cut") QVERIFY(QFile::resize(path, 4096));

    CSqliteFile file;
    QCOMPARE(file.Open(path, kKind, create), outcome);
    const bool isOpen = outcome == OpenOutcome::Created || outcome == OpenOutcome::Existed;
    QCOMPARE(file.IsOpen(), isOpen);
    QCOMPARE(file.Error().isEmpty(), isOpen);
    QVERIFY(!file.IsReadOnly());
    if (what == "absent") QCOMPARE(QFile::exists(path), create);
}

void TestCSqliteFile::openSetsUpTheConnection() {
    CSqliteFile file;
    QCOMPARE(file.Open(Path(u"store"_qs), kKind, true), OpenOutcome::Created);
    QCOMPARE(Number(file, "PRAGMA application_id"), 0x54455354);
    QCOMPARE(Number(file, "PRAGMA user_version"), 3);
    QCOMPARE(Number(file, "PRAGMA synchronous"), 3);  // EXTRA
    QCOMPARE(Number(file, "PRAGMA trusted_schema"), 0);
    QCOMPARE(Number(file, "PRAGMA cell_size_check"), 1);
    QCOMPARE(Number(file, "PRAGMA mmap_size"), 0);
    sqlite3_stmt* mode = file.Prepare("PRAGMA journal_mode");
    QCOMPARE(sqlite3_step(mode), SQLITE_ROW);
    QCOMPARE(reinterpret_cast<const char*>(sqlite3_column_text(mode, 0)), "truncate");
    sqlite3_reset(mode);
    struct stat status {};
    QCOMPARE(::stat(QFile::encodeName(file.Path()).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777U, 0600U);
    QVERIFY(!file.Execute("SELECT * FROM nowhere"));
    QCOMPARE(file.ErrorCode(), SQLITE_ERROR);
    QVERIFY(file.Error().contains(u"(no such table: nowhere)"));
}

void TestCSqliteFile::openWithoutRights_data() {
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<int>("fileMode");
    QTest::addColumn<OpenOutcome>("outcome");
    QTest::addColumn<QByteArray>("sentence");
    QTest::newRow("a read-only file can be read")
        << 0777 << 0444 << OpenOutcome::ReadOnly << QByteArray("read-only");
    QTest::newRow("a file in a read-only folder can be read")
        << 0555 << 0666 << OpenOutcome::ReadOnly << QByteArray("read-only");
    QTest::newRow("a file that may not be read")
        << 0777 << 0000 << OpenOutcome::Failed << QByteArray("may not be opened by you");
}

void TestCSqliteFile::openWithoutRights() {
    QFETCH(int, folderMode);
    QFETCH(int, fileMode);
    QFETCH(OpenOutcome, outcome);
    QFETCH(QByteArray, sentence);
    const QString path = Path(u"store"_qs);
    {
        CSqliteFile file;
        QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Created);
        QVERIFY(file.Execute("CREATE TABLE t(a); INSERT INTO t VALUES(42)"));
    }
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), static_cast<mode_t>(fileMode)), 0);
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), static_cast<mode_t>(folderMode)), 0);
    const int failedStep = InChild([&] {
        BecomeNobody();
        CSqliteFile file;
        if (file.Open(path, kKind, true) != outcome) return 1;
        if (outcome == OpenOutcome::ReadOnly) {
            if (!file.IsReadOnly() || Number(file, "SELECT a FROM t") != 42) return 2;
            if (file.Execute("INSERT INTO t VALUES(1)")) return 3;
        }
        return file.Error().contains(QString::fromUtf8(sentence)) ? 0 : 4;
    });
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0700), 0);
    QCOMPARE(failedStep, 0);
}

void TestCSqliteFile::openByManyAtOnce() {
    const QString path = Path(u"store"_qs);
    constexpr int kPrograms = 20;
    std::vector<pid_t> children;
    for (int i = 0; i < kPrograms; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            SqliteFileKind kind = kKind;
            kind.busySeconds = 30;
            CSqliteFile file;
            const OpenOutcome outcome = file.Open(path, kind, true);
            const bool done = file.Begin() && file.Execute("CREATE TABLE IF NOT EXISTS t(a)") &&
                              file.Execute("INSERT INTO t VALUES(1)") && file.Commit();
            if (!done) ::_exit(3);
            ::_exit(outcome == OpenOutcome::Created ? 1 : outcome == OpenOutcome::Existed ? 0 : 2);
        }
        children.push_back(child);
    }
    int created = 0;
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) < 2);
        created += WEXITSTATUS(status);
    }
    QCOMPARE(created, 1);
    CSqliteFile file;
    QCOMPARE(file.Open(path, kKind, false), OpenOutcome::Existed);
    QCOMPARE(Number(file, "SELECT count(*) FROM t"), kPrograms);
}

void TestCSqliteFile::openIsCheap() {
    const QString path = Path(u"store"_qs);
    {
        CSqliteFile file;
        QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Created);
        QVERIFY(file.Execute("CREATE TABLE t(a)"));
    }
    const auto median = [](auto work) {
        std::vector<qint64> times;
        for (int i = 0; i < 51; ++i) {
            QElapsedTimer timer;
            timer.start();
            work();
            times.push_back(timer.nsecsElapsed());
        }
        std::nth_element(times.begin(), times.begin() + 25, times.end());
        return times[25];
    };
    const qint64 bare = median([&] {
        sqlite3* db = nullptr;
        sqlite3_open(QFile::encodeName(path).constData(), &db);
        sqlite3_exec(db, "SELECT 1 FROM t", nullptr, nullptr, nullptr);
        sqlite3_close(db);
    });
    const qint64 ours = median([&] {
        CSqliteFile file;
        QCOMPARE(file.Open(path, kKind, false), OpenOutcome::Existed);
    });
    QVERIFY2(ours - bare < 1'000'000, qPrintable(u"%1 ns over %2 ns"_qs.arg(ours).arg(bare)));
}

void TestCSqliteFile::prepare() {
    CSqliteFile file;
    QCOMPARE(file.Open(u":memory:"_qs, kKind, true), OpenOutcome::Created);
    sqlite3_stmt* first = file.Prepare("SELECT ?1");
    sqlite3_bind_int(first, 1, 7);
    QCOMPARE(sqlite3_step(first), SQLITE_ROW);
    sqlite3_stmt* second = file.Prepare("SELECT ?1");
    QCOMPARE(second, first);
    QCOMPARE(sqlite3_step(second), SQLITE_ROW);
    QCOMPARE(sqlite3_column_type(second, 0), SQLITE_NULL);
    QCOMPARE(file.Prepare("SELEKT"), nullptr);
    QVERIFY(file.Error().contains(u"SELEKT"));
    CSqliteFile closed;
    QCOMPARE(closed.Prepare("SELECT 1"), nullptr);
    QVERIFY(!closed.Begin());
}

void TestCSqliteFile::prepareKeepsABoundedNumber() {
    CSqliteFile file;
    QCOMPARE(file.Open(u":memory:"_qs, kKind, true), OpenOutcome::Created);
    for (int i = 0; i < 1000; ++i) QVERIFY(file.Prepare("SELECT " + QByteArray::number(i)) != nullptr);
    int kept = 0;
    for (sqlite3_stmt* at = nullptr; (at = sqlite3_next_stmt(file.Handle(), at)) != nullptr;) ++kept;
    QCOMPARE(kept, 64);
}

void TestCSqliteFile::prepareLeavesARunningStatementAlone() {
    CSqliteFile file;
    QCOMPARE(file.Open(u":memory:"_qs, kKind, true), OpenOutcome::Created);
    sqlite3_stmt* running = file.Prepare("SELECT 1 UNION ALL SELECT 2");
    QCOMPARE(sqlite3_step(running), SQLITE_ROW);
    for (int i = 0; i < 200; ++i) QVERIFY(file.Prepare("SELECT " + QByteArray::number(i)) != nullptr);
    QCOMPARE(sqlite3_step(running), SQLITE_ROW);
    QCOMPARE(sqlite3_column_int(running, 0), 2);
}

void TestCSqliteFile::transaction() {
    CSqliteFile file;
    QCOMPARE(file.Open(Path(u"store"_qs), kKind, true), OpenOutcome::Created);
    QVERIFY(file.Execute("CREATE TABLE t(a)"));
    QVERIFY(!file.InTransaction());
    QVERIFY(file.Commit());  // nothing to do
    QVERIFY(file.Begin());
    QVERIFY(file.Begin());  // still the same one
    QVERIFY(file.InTransaction());
    QVERIFY(file.Execute("INSERT INTO t VALUES(1)"));
    QVERIFY(file.Commit());
    QVERIFY(!file.InTransaction());
    QVERIFY(file.Begin());
    QVERIFY(file.Execute("INSERT INTO t VALUES(2)"));
    file.Rollback();
    QVERIFY(!file.InTransaction());
    QVERIFY(file.Begin());
    QVERIFY(file.Execute("INSERT INTO t VALUES(3)"));
    file.Close();  // without a commit: undone
    QCOMPARE(file.Open(Path(u"store"_qs), kKind, false), OpenOutcome::Existed);
    QCOMPARE(Number(file, "SELECT sum(a) FROM t"), 1);
}

void TestCSqliteFile::transactionUndoneByAFullDisk() {
    CSqliteFile file;
    QCOMPARE(file.Open(Path(u"store"_qs), kKind, true), OpenOutcome::Created);
    QVERIFY(file.Execute("CREATE TABLE t(a); PRAGMA max_page_count=10"));
    QVERIFY(file.Begin());
    QVERIFY(file.Execute("INSERT INTO t VALUES(1)"));
    QVERIFY(!file.Execute("INSERT INTO t VALUES(zeroblob(1000000))"));
    QCOMPARE(file.ErrorCode(), SQLITE_FULL);
    QVERIFY(file.Error().startsWith(u"The disk is full"));
    QVERIFY(!file.InTransaction());
    QVERIFY(!file.Commit());  // the first row went too
    QVERIFY(file.Error().startsWith(u"The disk is full"));
    QCOMPARE(Number(file, "SELECT count(*) FROM t"), 0);
    QVERIFY(file.Begin());
    QVERIFY(file.Execute("INSERT INTO t VALUES(1)"));
    QVERIFY(file.Commit());
    QCOMPARE(Number(file, "SELECT count(*) FROM t"), 1);
}

void TestCSqliteFile::fileSizeLimit() {
    const QString path = Path(u"store"_qs);
    CSqliteFile before;
    QCOMPARE(before.Open(path, kKind, true), OpenOutcome::Created);
    QVERIFY(before.Execute("CREATE TABLE t(a)"));
    before.Close();
    QCOMPARE(InChild([&] {
                 std::signal(SIGXFSZ, SIG_IGN);
                 const rlimit limit{.rlim_cur = 65536, .rlim_max = 65536};
                 if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
                 CSqliteFile file;
                 if (file.Open(path, kKind, false) != OpenOutcome::Existed || !file.Begin()) return 2;
                 if (!file.Execute("INSERT INTO t VALUES(1), (zeroblob(200000))")) return 3;
                 if (file.Commit()) return 4;
                 return file.Error().contains(u"may not grow any further") ? 0 : 5;
             }),
             0);
    CSqliteFile after;
    QCOMPARE(after.Open(path, kKind, false), OpenOutcome::Existed);
    QCOMPARE(Number(after, "SELECT count(*) FROM t"), 0);
    QCOMPARE(after.IntegrityReport(), QString());
}

void TestCSqliteFile::lockedByAnother() {
    const QString path = Path(u"store"_qs);
    CSqliteFile other;
    QCOMPARE(other.Open(path, kKind, true), OpenOutcome::Created);
    QVERIFY(other.Execute("CREATE TABLE t(a)"));
    CSqliteFile file;
    QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Existed);
    QVERIFY(other.Execute("BEGIN EXCLUSIVE"));

    QElapsedTimer timer;
    timer.start();
    QVERIFY(!file.Begin());
    QVERIFY(timer.elapsed() >= 1000);
    QCOMPARE(file.ErrorCode(), SQLITE_BUSY);
    QCOMPARE(file.Error(), u"Another program is using %1. Try again when it is done."_qs.arg(path));
    CSqliteFile late;
    QCOMPARE(late.Open(path, kKind, true), OpenOutcome::Locked);
    QVERIFY(!late.IsOpen());

    std::thread soonDone([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        other.Rollback();
    });
    const bool begun = file.Begin();
    soonDone.join();
    QVERIFY(begun);
    QVERIFY(file.Commit());
}

/// Two files in the hands of others are waited for no longer than one.
void TestCSqliteFile::waitsOfTwoFilesAddUp() {
    CSqliteFile others[2], files[2];
    for (int i = 0; i < 2; ++i) {
        const QString path = Path(QString::number(i));
        QCOMPARE(others[i].Open(path, kKind, true), OpenOutcome::Created);
        QCOMPARE(files[i].Open(path, kKind, true), OpenOutcome::Existed);
        QVERIFY(others[i].Execute("BEGIN EXCLUSIVE"));
    }
    CWaitBudget budget(std::chrono::milliseconds(800));
    const WaitBudgetScope scope(budget);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!files[0].Begin());
    QVERIFY(!files[1].Begin());
    QVERIFY(!files[0].Begin());
    QVERIFY2(timer.elapsed() >= 800 && timer.elapsed() < 1600, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(files[1].ErrorCode(), SQLITE_BUSY);
}

/// A message that is served within a wait comes in the middle of a statement, and can't begin another one.
void TestCSqliteFile::nothingBeginsWithinAWait() {
    const QString path = Path(u"store"_qs);
    CSqliteFile other, file;
    QCOMPARE(other.Open(path, kKind, true), OpenOutcome::Created);
    QVERIFY(other.Execute("CREATE TABLE t(a)"));
    QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Existed);
    QVERIFY(other.Execute("BEGIN EXCLUSIVE"));
    class Listener final : public CWaitListener {
     public:
        explicit Listener(CSqliteFile& waiting) : m_file(waiting) {}
        Choice OnWaiting(const QString&, std::chrono::milliseconds) override {
            began = began || m_file.Begin() || m_file.Execute("SELECT 1") || m_file.Prepare("SELECT 1");
            ++asked;
            return asked < 3 ? Choice::GoOn : Choice::GiveUp;
        }
        int asked = 0;
        bool began = false;

     private:
        CSqliteFile& m_file;
    } listener(file);
    CWaitBudget budget;
    const WaitBudgetScope scope(budget);
    budget.SetListener(&listener);
    QVERIFY(!file.Begin());
    QCOMPARE(listener.asked, 3);
    QVERIFY(!listener.began);
    other.Rollback();
    budget.Renew();
    QVERIFY(file.Begin());
    QVERIFY(file.Commit());
}

namespace {

/// What the file system answers to every attempt at a lock.
int theLockError = 0;

int RefuseLocks(int handle, int command, ...) {
    std::va_list rest;
    va_start(rest, command);
    void* argument = va_arg(rest, void*);
    va_end(rest);
    const bool isLock = command == F_SETLK || command == F_SETLKW || command == F_GETLK;
    if (!isLock) return ::fcntl(handle, command, argument);
    errno = theLockError;
    return -1;
}

}  // namespace

void TestCSqliteFile::whereNoFileCanBeLocked_data() {
    QTest::addColumn<int>("error");
    QTest::newRow("no locks available") << ENOLCK;
    QTest::newRow("not supported") << EOPNOTSUPP;
    QTest::newRow("no such call") << ENOSYS;
}

void TestCSqliteFile::whereNoFileCanBeLocked() {
    QFETCH(int, error);
    const QString path = Path(u"store"_qs);
    {
        CSqliteFile file;
        QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Created);
    }
    theLockError = error;
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    QCOMPARE(vfs->xSetSystemCall(vfs, "fcntl", reinterpret_cast<sqlite3_syscall_ptr>(&RefuseLocks)),
             SQLITE_OK);
    const auto restore = qScopeGuard([vfs] { (void)vfs->xSetSystemCall(vfs, "fcntl", nullptr); });
    QElapsedTimer timer;
    timer.start();
    CSqliteFile file;
    QCOMPARE(file.Open(path, kKind, false), OpenOutcome::Failed);
    QVERIFY2(file.Error().contains(u"doesn't let files be locked"), qPrintable(file.Error()));
    // Nothing that is waited for would come.
    QVERIFY(timer.elapsed() < 500);
}

void TestCSqliteFile::isStillInPlace_data() {
    QTest::addColumn<QByteArray>("what");
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("an untouched file is") << QByteArray("nothing") << true;
    QTest::newRow("a moved file isn't") << QByteArray("move") << false;
    QTest::newRow("a deleted file isn't") << QByteArray("delete") << false;
    QTest::newRow("a replaced file isn't") << QByteArray("replace") << false;
    QTest::newRow("a file whose folder was moved isn't") << QByteArray("folder") << false;
}

void TestCSqliteFile::isStillInPlace() {
    QFETCH(QByteArray, what);
    QFETCH(bool, inPlace);
    QVERIFY(QDir(m_folder->path()).mkdir(u"home"_qs));
    const QString path = Path(u"home/store"_qs);
    const QString other = Path(u"home/other"_qs);
    CSqliteFile file;
    QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Created);
    QVERIFY(file.Execute("CREATE TABLE t(a)"));
    if (what == "move") QVERIFY(QFile::rename(path, other));
    if (what == "delete") QVERIFY(QFile::remove(path));
    if (what == "folder") QVERIFY(QDir().rename(Path(u"home"_qs), Path(u"elsewhere"_qs)));
    if (what == "replace") {
        MakeForeign(other, "CREATE TABLE t(a)");
        QCOMPARE(::rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()), 0);
    }
    QCOMPARE(file.IsStillInPlace(), inPlace);
    QCOMPARE(file.Begin() && file.Execute("INSERT INTO t VALUES(1)") && file.Commit(), inPlace);
    if (!inPlace) QVERIFY2(file.Error().contains(u"moved, deleted or replaced"), qPrintable(file.Error()));
}

void TestCSqliteFile::integrityReport() {
    const QString path = Path(u"store"_qs);
    CSqliteFile file;
    QCOMPARE(file.Open(path, kKind, true), OpenOutcome::Created);
    QVERIFY(file.Execute("CREATE TABLE t(a); INSERT INTO t VALUES(zeroblob(100000))"));
    QCOMPARE(file.IntegrityReport(), QString());
    file.Close();
    WriteBytes(path, QByteArray(4096, 'x'), 4096);
    QCOMPARE(file.Open(path, kKind, false), OpenOutcome::Existed);
    QVERIFY(!file.IntegrityReport().isEmpty());
    QVERIFY(!file.Execute("SELECT * FROM t"));
    QVERIFY2(file.Error().startsWith(u"%1 is damaged, so nothing is written to it."_qs.arg(path)),
             qPrintable(file.Error()));
    QVERIFY(!file.Begin());
}

void TestCSqliteFile::sentence_data() {
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("systemError");
    QTest::addColumn<QString>("expected");
    QTest::newRow("busy") << SQLITE_BUSY << 0 << u"Another program is using F. Try again when it is done."_qs;
    QTest::newRow("any kind of busy")
        << SQLITE_BUSY_SNAPSHOT << 0 << u"Another program is using F. Try again when it is done."_qs;
    QTest::newRow("full") << SQLITE_FULL << 0
                          << u"The disk is full, so F was not changed. Free some space and try again."_qs;
    QTest::newRow("a quota used up while writing")
        << SQLITE_IOERR_WRITE << EDQUOT
        << u"Your disk quota is used up, so F was not changed. Free some space and try again."_qs;
    QTest::newRow("a disk that fails")
        << SQLITE_IOERR_FSYNC << EIO
        << u"The disk reported an error while F was in use. Check the disk, then try again."_qs;
    QTest::newRow("a percent sign in SQLite's own message stays")
        << SQLITE_ERROR << 0 << u"F could not be used (odd %1 thing)."_qs;
}

void TestCSqliteFile::sentence() {
    QFETCH(int, code);
    QFETCH(int, systemError);
    QFETCH(QString, expected);
    QCOMPARE(SqliteSentence(code, systemError, u"F"_qs, u"odd %1 thing"_qs), expected);
}

TEST_CLASS(TestCSqliteFile);
#include "TestCSqliteFile.moc"
