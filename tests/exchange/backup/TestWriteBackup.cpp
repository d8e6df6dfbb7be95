#include "exchange/backup/WriteBackup.h"

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "exchange/backup/CBackupReader.h"
#include "exchange/backup/CSecondSource.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

CRegionalInfo German() {
    CRegionalInfo region;
    region.decimalChar = u',';
    return region;
}

/// Another program that wants to store something while the backup is written.
class CWriterBeside final : public CProgress {
 public:
    explicit CWriterBeside(const QString& home) : m_home(home) {}
    void Begin(const QString& what, int steps) override {
        begun += what;
        mostSteps = std::max(mostSteps, steps);
    }
    bool Advance() override {
        if (steps++ == 0) {
            CScriptedPrompt prompt;
            CSecondSource other(m_home, prompt);
            other.Manager().m_busySeconds = 0;
            isHeldOff = other.Open() && other.Manager().BeginBatch() && !other.Manager().File().IsDamaged() &&
                        other.Manager().Query(u"DELETE FROM item_velmarch"_s, true) &&
                        !other.Manager().Update();
        }
        return true;
    }
    void End() override {}
    QStringList begun;
    int steps = 0;
    int mostSteps = 0;
    bool isHeldOff = false;

 private:
    QString m_home;
};

}  // namespace

class TestWriteBackup : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void init();
    void ByteForByte_data();
    void ByteForByte();
    void EmptyTables();
    void AnEmptyOneIsWrittenOnRequestAlone();
    void RatesAreNotRoundedToTheSettings();
    void OnlyTheOwnerMayReadIt();
    void AnOldFileStaysWhenItFails_data();
    void AnOldFileStaysWhenItFails();
    void OneMoment();
    void CancelLeavesNothing();

 private:
    void AddBlankTimes(int count);
    [[nodiscard]] BackupOutcome Write(EmptyBackup empty = EmptyBackup::Refused);
    [[nodiscard]] QStringList Files() const {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden);
    }
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestHome> m_home;
    CNoProgress m_progress;
    CGoldenClock m_clock;
    QString m_path;
};

void TestWriteBackup::init() {
    m_home.reset();
    m_home = std::make_unique<TestHome>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"b.vbk"_s);
}

BackupOutcome TestWriteBackup::Write(EmptyBackup empty) {
    CSecondSource source(m_home->Path(), m_home->prompt);
    if (!source.Open()) return {.error = source.Manager().m_error, .content = {}};
    return WriteBackup({source, m_clock, m_progress}, m_path, empty);
}

void TestWriteBackup::AddBlankTimes(int count) {
    CTRecord record;
    for (int i = 0; i < count; ++i) {
        record.GenUnique();
        QVERIFY(m_home->store->InsertRecord(record, Commit::Later));
    }
    QVERIFY(m_home->store->Commit());
}

void TestWriteBackup::ByteForByte_data() {
    QTest::addColumn<CRegionalInfo>("region");
    QTest::newRow("full stop: 12,50 would come back as 12.00") << CRegionalInfo();
    QTest::newRow("comma") << German();
}

/// The distance "12,50" is stored by a machine with a comma, whatever is in use now.
void TestWriteBackup::ByteForByte() {
    QFETCH(CRegionalInfo, region);
    m_home.reset();
    m_home = std::make_unique<TestHome>(region);
    QVERIFY(FillLikeGolden(*m_home));
    const BackupOutcome written = Write();
    QVERIFY2(written, qPrintable(written.error));
    QCOMPARE(written.content.counts, (std::array<int, 4>{2, 2, 2, 2}));
    QCOMPARE(BytesOf(m_path).toHex(), GoldenFile(u"current.vbk"_s).toHex());
    QCOMPARE(Files(), QStringList(u"b.vbk"_s));
}

void TestWriteBackup::EmptyTables() {
    QVERIFY(Write(EmptyBackup::Written));
    QCOMPARE(BytesOf(m_path).toHex(), GoldenFile(u"empty.vbk"_s).toHex());
}

void TestWriteBackup::AnEmptyOneIsWrittenOnRequestAlone() {
    QVERIFY(PutBytes(m_path, "old"));
    const BackupOutcome written = Write();
    QVERIFY(!written && written.isEmpty);
    QCOMPARE(BytesOf(m_path), QByteArray("old"));
}

void TestWriteBackup::RatesAreNotRoundedToTheSettings() {
    QVERIFY(FillLikeGolden(*m_home));
    m_home->settings->precisionRate = 0;
    m_home->settings->precisionAmount = 0;
    QVERIFY(Write());
    QCOMPARE(BytesOf(m_path).toHex(), GoldenFile(u"current.vbk"_s).toHex());
}

void TestWriteBackup::OnlyTheOwnerMayReadIt() {
    QVERIFY(FillLikeGolden(*m_home));
    QVERIFY(Write());
    struct stat status {};
    QCOMPARE(::stat(qPrintable(m_path), &status), 0);
    QCOMPARE(status.st_mode & 0777U, 0600U);
}

void TestWriteBackup::AnOldFileStaysWhenItFails_data() {
    QTest::addColumn<QString>("statement");
    QTest::newRow("a table is gone") << u"DROP TABLE dependency_velmarch"_s;
    QTest::newRow("a block whose digest is wrong")
        << u"UPDATE dependency_velmarch SET block='00' || substr(block, 3) WHERE number=55"_s;
}

void TestWriteBackup::AnOldFileStaysWhenItFails() {
    QFETCH(QString, statement);
    QVERIFY(FillLikeGolden(*m_home));
    QVERIFY(PutBytes(m_path, "old"));
    const QByteArray column = LoadText(Text::ColumnBlock).toUtf8();
    QVERIFY(m_home->manager.File().Execute(statement.toUtf8().replace("block", column)));
    const BackupOutcome written = Write();
    QVERIFY(!written && !written.error.isEmpty());
    QCOMPARE(BytesOf(m_path), QByteArray("old"));
    QCOMPARE(Files(), QStringList(u"b.vbk"_s));
}

/// While the records are read no other program can store anything.
void TestWriteBackup::OneMoment() {
    QVERIFY(FillLikeGolden(*m_home));
    AddBlankTimes(100);
    CSecondSource source(m_home->Path(), m_home->prompt);
    QVERIFY(source.Open());
    CWriterBeside progress(m_home->Path());
    const BackupOutcome written = WriteBackup({source, m_clock, progress}, m_path, EmptyBackup::Refused);
    QVERIFY2(written, qPrintable(written.error));
    QCOMPARE(written.content.Total(), 108);
    QVERIFY(progress.isHeldOff);
    QVERIFY(progress.steps <= progress.mostSteps);
    QCOMPARE(progress.begun.size(), 2);
    AddBlankTimes(1);  // and afterwards it can
}

void TestWriteBackup::CancelLeavesNothing() {
    class CCancel final : public CProgress {
     public:
        void Begin(const QString&, int) override {}
        bool Advance() override { return false; }
        void End() override {}
    };
    AddBlankTimes(100);
    CSecondSource source(m_home->Path(), m_home->prompt);
    QVERIFY(source.Open());
    CCancel progress;
    const BackupOutcome written = WriteBackup({source, m_clock, progress}, m_path, EmptyBackup::Refused);
    QVERIFY(!written && written.isCancelled);
    QCOMPARE(Files(), QStringList());
}

TEST_CLASS(TestWriteBackup);
#include "TestWriteBackup.moc"
