#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <set>

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "exchange/backup/CRestore.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/WriteBackup.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "torture/CFaultInjector.h"
#include "torture/CFaultyCalls.h"
#include "torture/QuickWaits.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr const char* kStore = "velmarch.store";

bool IsLong() {
    return qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS");
}

}  // namespace

/// Backup and restore while the disk fails, is full, or the process is killed: a backup is whole or the old
/// one stays, and the records are those before or those after, never a mixture.
class TestBackupFaults : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void init();
    void EachCallOfABackup_data();
    void EachCallOfABackup();
    void EachCallOfARestore_data();
    void EachCallOfARestore();
    void AFullDiskDuringARestore();
    void KilledCommands_data();
    void KilledCommands();

 private:
    /// Back to the records before.
    [[nodiscard]] bool Renew() const;
    [[nodiscard]] BackupOutcome BackUp(const QString& path);
    [[nodiscard]] RestoreOutcome Restore();
    /// The present records, as a backup of a fixed time.
    [[nodiscard]] QByteArray Present();
    void Judge(const RestoreOutcome& outcome);

    CFaultInjector m_disk;
    QuickWaits m_waits;
    QTemporaryDir m_made, m_work, m_files;
    CScriptedPrompt m_prompt;
    CGoldenClock m_clock;
    CNoProgress m_progress;
    QByteArray m_before, m_after;
};

/// Before: forty times, more than one page; after: the golden file.
void TestBackupFaults::initTestCase() {
    m_disk.Disarm();
    {
        TestHome home(m_made.path());
        for (int day = 1; day <= 30; ++day) home.AddTime(2026, 11, day, u"09:00"_s, u"17:00"_s);
    }
    QVERIFY(Renew());
    m_before = Present();
    m_after = GoldenFile(u"current.vbk"_s);
    QVERIFY(m_before.size() > 1000 && m_before != m_after);
}

void TestBackupFaults::init() {
    m_disk.Disarm();
}

bool TestBackupFaults::Renew() const {
    const QDir work(m_work.path());
    for (const QString& name : work.entryList(QDir::Files | QDir::Hidden))
        if (!QFile::remove(work.filePath(name))) return false;
    return QFile::copy(m_made.filePath(QString::fromLatin1(kStore)),
                       m_work.filePath(QString::fromLatin1(kStore)));
}

BackupOutcome TestBackupFaults::BackUp(const QString& path) {
    CSecondSource source(m_work.path(), m_prompt);
    if (!source.Open()) return {.error = source.Manager().m_error, .content = {}};
    return WriteBackup({source, m_clock, m_progress}, path, EmptyBackup::Refused);
}

QByteArray TestBackupFaults::Present() {
    const QString path = m_files.filePath(u"present.vbk"_s);
    const BackupOutcome outcome = BackUp(path);
    return outcome ? BytesOf(path) : outcome.error.toUtf8();
}

RestoreOutcome TestBackupFaults::Restore() {
    CRestore restore({.prompt = m_prompt, .clock = m_clock, .progress = m_progress});
    const BackupOutcome verified = restore.Verify(GoldenPath(u"current.vbk"_s));
    if (!verified) return {.error = verified.error, .safetyCopy = {}};
    return restore.Run(m_work.path(), nullptr);
}

void TestBackupFaults::EachCallOfABackup_data() {
    QTest::addColumn<int>("error");
    QTest::addColumn<Lasting>("lasting");
    QTest::newRow("the disk fails once") << EIO << Lasting::OneCall;
    QTest::newRow("the disk fails from then on") << EIO << Lasting::FromThenOn;
    QTest::newRow("no space from then on") << ENOSPC << Lasting::FromThenOn;
}

void TestBackupFaults::EachCallOfABackup() {
    QFETCH(int, error);
    QFETCH(Lasting, lasting);
    QVERIFY(Renew());
    const QString path = m_files.filePath(u"b.vbk"_s);
    int calls = 0;
    {
        const CFaultyCalls counted(error, lasting, 0);
        QVERIFY(BackUp(path));
        calls = counted.calls;
    }
    QVERIFY(calls >= 8);
    for (int call = 1; call <= calls; ++call) {
        QVERIFY(PutBytes(path, m_after));
        BackupOutcome outcome;
        {
            const CFaultyCalls faulty(error, lasting, call);
            outcome = BackUp(path);
        }
        const bool isNew = outcome || outcome.error.contains(u"could not confirm"_s);
        QVERIFY2(BytesOf(path) == (isNew ? m_before : m_after), qPrintable(u"call %1"_s.arg(call)));
        QFile::remove(path);
    }
}

void TestBackupFaults::EachCallOfARestore_data() {
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<Lasting>("lasting");
    struct Row {
        const char* name;
        Fault fault;
    };
    constexpr Row kRows[] = {{"the disk fails", Fault::DiskError},
                             {"the disk can't be read", Fault::Unreadable},
                             {"the disk is full", Fault::DiskFull}};
    for (const Row& row : kRows) {
        QTest::addRow("%s once", row.name) << row.fault << Lasting::OneCall;
        QTest::addRow("%s from then on", row.name) << row.fault << Lasting::FromThenOn;
    }
}

/// A failure leaves the records before, a success those after; a commit that the disk took all the same is
/// one.
void TestBackupFaults::Judge(const RestoreOutcome& outcome) {
    m_disk.Disarm();
    QCOMPARE(Present().toHex(), (outcome ? m_after : m_before).toHex());
    if (outcome) QVERIFY(QFile::exists(outcome.safetyCopy));
}

void TestBackupFaults::EachCallOfARestore() {
    QFETCH(Fault, fault);
    QFETCH(Lasting, lasting);
    QVERIFY(Renew());
    m_disk.Arm(fault, lasting, 0);
    QVERIFY(Restore());
    const int calls = m_disk.Calls();
    QVERIFY(calls > 3);
    const int step = IsLong() ? 1 : std::max(1, calls / 12);
    int failed = 0;
    for (int call = 1; call <= calls; call += step) {
        QVERIFY(Renew());
        m_disk.Arm(fault, lasting, call);
        const RestoreOutcome outcome = Restore();
        if (!outcome) ++failed;
        Judge(outcome);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(u"call %1 of %2"_s.arg(call).arg(calls)));
    }
    QVERIFY(failed > 0);
}

void TestBackupFaults::AFullDiskDuringARestore() {
    QVERIFY(Renew());
    m_disk.ArmDisk(1 << 30);
    QVERIFY(Restore());
    const qint64 most = m_disk.MostGrowth();
    const int pages = static_cast<int>(most / 4096);
    QVERIFY(pages > 0);
    for (int page = 0; page <= pages + 1; page += IsLong() ? 1 : std::max(1, pages / 10)) {
        QVERIFY(Renew());
        m_disk.ArmDisk(qint64{page} * 4096);
        Judge(Restore());
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(u"%1 pages free"_s.arg(page)));
    }
}

void TestBackupFaults::KilledCommands_data() {
    QTest::addColumn<bool>("isRestore");
    QTest::newRow("backup") << false;
    QTest::newRow("restore") << true;
}

/// The real program, killed at any moment.
void TestBackupFaults::KilledCommands() {
    QFETCH(bool, isRestore);
    const QString path = m_files.filePath(u"killed.vbk"_s);
    QRandomGenerator random(4711);
    std::set<bool> seen;
    int kills = 0, within = 60;
    for (int run = 0; run < (IsLong() ? 400 : 25); ++run) {
        QVERIFY(Renew());
        QVERIFY(PutBytes(path, m_after));
        QProcess program;
        program.start(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"),
                      {u"--home"_s, m_work.path(), u"--yes"_s, isRestore ? u"restore"_s : u"backup"_s, path});
        QElapsedTimer since;
        since.start();
        if (!program.waitForFinished(random.bounded(within))) {
            program.kill();
            ++kills;
            QVERIFY(program.waitForFinished(60000));
        } else {
            within = static_cast<int>(since.elapsed()) * 2 + 5;
        }
        const QByteArray present = Present();
        QVERIFY(present == m_before || (isRestore && present == m_after));
        const bool isOld = BytesOf(path) == m_after;
        CRestore reader({.prompt = m_prompt, .clock = m_clock, .progress = m_progress});
        QVERIFY(reader.Verify(path));
        seen.insert(isRestore ? present == m_before : isOld);
    }
    QVERIFY(kills > 0);
    qInfo("%d kills, %d kinds of ends", kills, static_cast<int>(seen.size()));
}

TEST_CLASS(TestBackupFaults);
#include "TestBackupFaults.moc"
