#include "RecordsFixture.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"
#include "torture/CVfsShim.h"

/// A commit that fails: nothing of it is stored, neither now nor later.
class TestFailedCommit : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void InsertThenSpace_data();
    void InsertThenSpace();
    void FullWhileInserting();
    void FullForTheJournal();
    void OtherProgramReads();
    void ModifyOfADurableRow();
    void DeleteThatFails();
    void BatchWithDeletes();
    void CloseStoresNothing();
    void LargeBatch();
    void RolledBackMidway();
    void NoLockAfterwards();
    void ARowWhoseChecksumCantBeWritten_data();
    void ARowWhoseChecksumCantBeWritten();
    void DoneAllTheSame_data();
    void DoneAllTheSame();
};

namespace {

/// A disk that can be full, or broken, for a while.
class FaultyDisk final : public CVfsShim {
 public:
    int failure = SQLITE_OK;
    /// The journal is written while a row is changed, the store itself by the commit.
    bool journalToo = false;

    int OnWrite(const QString& path, qint64, const QByteArray&) override {
        return path.endsWith(QStringLiteral("-journal")) && !journalToo ? SQLITE_OK : failure;
    }
};

/// A disk that fails where a journal ends: it is cut, or it can't be, and the disk doesn't confirm it.
class UnconfirmedEnd final : public CVfsShim {
 public:
    int failures = 0;
    bool isTruncateRefused = false;

    int OnTruncate(const QString& path, qint64 size) override {
        if (failures == 0 || !path.endsWith(QStringLiteral("-journal")) || size != 0) return SQLITE_OK;
        m_isCut = true;
        return isTruncateRefused ? SQLITE_IOERR_TRUNCATE : SQLITE_OK;
    }
    int OnSync(const QString&, bool) override {
        if (!m_isCut || failures == 0) return SQLITE_OK;
        --failures;
        return SQLITE_IOERR_FSYNC;
    }

 private:
    bool m_isCut = false;
};

const QString kAllTimes = QStringLiteral("SELECT * FROM time_velmarch");

}  // namespace

void TestFailedCommit::InsertThenSpace_data() {
    QTest::addColumn<int>("failure");
    QTest::addColumn<QString>("words");
    const QString full = QStringLiteral("disk is full");
    const QString broken = QStringLiteral("disk reported an error");
    QTest::newRow("the disk is full") << SQLITE_FULL << full;
    QTest::newRow("the disk fails") << SQLITE_IOERR_WRITE << broken;
}

void TestFailedCommit::InsertThenSpace() {
    QFETCH(int, failure);
    QFETCH(QString, words);
    FaultyDisk disk;
    RecordsFixture home;
    disk.failure = failure;
    const CTRecord first = NewTime(QStringLiteral("first"));
    const CTRecord second = NewTime(QStringLiteral("second"));
    home.prompt.ExpectTold(Text::InsertCommitFailed);
    QVERIFY(home.store.InsertRecord(first, Commit::Now));
    home.prompt.Finish();
    QVERIFY(home.store.m_lastError != 0);
    QVERIFY2(home.prompt.told.constLast().contains(words), qPrintable(home.prompt.told.constLast()));
    QVERIFY(!home.manager.HasOpenChanges());
    disk.failure = SQLITE_OK;
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.store.InsertRecord(second, Commit::Now));
    QCOMPARE(home.store.m_lastError, 0);
    QCOMPARE(home.TimeRows(), 1);
    CTRecord read;
    QVERIFY(!home.store.ReadRecord(read, first.GetId()));
    QVERIFY(home.store.ReadRecord(read, second.GetId()));
}

void TestFailedCommit::FullWhileInserting() {
    RecordsFixture home;
    QVERIFY(home.manager.File().Execute("PRAGMA max_page_count=1"));
    CTRecord record = NewTime();
    record.notes = QString(32000, u'n');
    home.prompt.ExpectTold(Text::InsertFailed);
    QVERIFY(!home.store.InsertRecord(record, Commit::Now));
    // Refused at once: nothing waits, the caller keeps nothing either.
    QVERIFY(!home.manager.HasOpenChanges());
    QVERIFY(home.manager.File().Execute("PRAGMA max_page_count=100000"));
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    QCOMPARE(home.TimeRows(), 1);
}

void TestFailedCommit::FullForTheJournal() {
    FaultyDisk disk;
    RecordsFixture home;
    disk.failure = SQLITE_FULL;
    disk.journalToo = true;
    home.prompt.ExpectTold(Text::InsertFailed);
    QVERIFY(!home.store.InsertRecord(NewTime(), Commit::Now));
    QVERIFY(!home.manager.HasOpenChanges());
    disk.failure = SQLITE_OK;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QCOMPARE(home.TimeRows(), 1);
}

void TestFailedCommit::OtherProgramReads() {
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    CVOSrcMgr reader;
    QVERIFY(home.Open(reader) && reader.Query(kAllTimes, false));
    home.prompt.ExpectTold(Text::InsertCommitFailed);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QVERIFY2(home.prompt.told.constLast().contains(QStringLiteral("Another program is using")),
             qPrintable(home.prompt.told.constLast()));
    reader.CloseQuery();
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1);
}

void TestFailedCommit::ModifyOfADurableRow() {
    FaultyDisk disk;
    RecordsFixture home;
    CTRecord record = NewTime(QStringLiteral("first"));
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    disk.failure = SQLITE_FULL;
    record.item1 = QStringLiteral("changed");
    home.prompt.ExpectTold(Text::ModifyCommitFailed);
    QVERIFY(home.store.ModifyRecord(record, record.GetId(), Commit::Now));
    QVERIFY(home.store.m_lastError != 0);
    disk.failure = SQLITE_OK;
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='first'")), 1);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='changed'")), 0);
    QCOMPARE(home.TimeRows(), 2);
}

void TestFailedCommit::DeleteThatFails() {
    FaultyDisk disk;
    RecordsFixture home;
    const CTRecord record = NewTime();
    QVERIFY(home.store.InsertRecord(record, Commit::Now));
    disk.failure = SQLITE_FULL;
    home.prompt.ExpectTold(Text::DeleteFailed);
    QVERIFY(!home.store.DeleteRecord(RecordKind::Time, record.GetId()));
    // It isn't carried out behind the user's back later on.
    QVERIFY(!home.manager.HasOpenChanges());
    disk.failure = SQLITE_OK;
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1);
}

void TestFailedCommit::BatchWithDeletes() {
    FaultyDisk disk;
    RecordsFixture home;
    const CTRecord old = NewTime(QStringLiteral("old"));
    QVERIFY(home.store.InsertRecord(old, Commit::Now));
    QVERIFY(home.manager.BeginBatch());
    QVERIFY(home.store.InsertRecord(NewTime(QStringLiteral("passing")), Commit::Later));
    QVERIFY(home.manager.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
    QVERIFY(home.store.InsertRecord(NewTime(QStringLiteral("new")), Commit::Later));
    disk.failure = SQLITE_FULL;
    home.prompt.ExpectTold(Text::CommitFailed);
    QVERIFY(!home.store.Commit());
    disk.failure = SQLITE_OK;
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='old'")), 1);
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1);
}

void TestFailedCommit::CloseStoresNothing() {
    FaultyDisk disk;
    RecordsFixture home;
    disk.failure = SQLITE_FULL;
    home.prompt.ExpectTold(Text::InsertCommitFailed);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    disk.failure = SQLITE_OK;
    home.manager.Close();
    QVERIFY(home.Open(home.manager));
    QCOMPARE(home.TimeRows(), 0);
}

void TestFailedCommit::LargeBatch() {
    constexpr int kRows = 5000;
    FaultyDisk disk;
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    for (int i = 0; i < kRows; ++i) QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    disk.failure = SQLITE_FULL;
    home.prompt.ExpectTold(Text::CommitFailed);
    QVERIFY(!home.store.Commit());
    disk.failure = SQLITE_OK;
    // The whole batch fails, and nothing of it comes later.
    QVERIFY(!home.manager.HasOpenChanges());
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1);
    for (int i = 0; i < kRows; ++i) QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1 + kRows);
}

void TestFailedCommit::RolledBackMidway() {
    FaultyDisk disk;
    RecordsFixture home;
    // A small page cache makes the batch spill to the disk before its commit.
    QVERIFY(home.manager.File().Execute("PRAGMA cache_size=10"));
    for (int i = 0; i < 1000; ++i) QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    disk.failure = SQLITE_FULL;
    bool isInserted = true;
    for (int i = 0; i < 1000 && isInserted; ++i) {
        CTRecord record = NewTime();
        record.notes = QString(5000, u'n');
        QVERIFY(home.manager.Query(kAllTimes + QStringLiteral(" WHERE 0"), true));
        isInserted = home.manager.Insert(record);
    }
    QVERIFY(!isInserted);
    disk.failure = SQLITE_OK;
    // SQLite has undone the batch: it must not go on as if the rest were all.
    QVERIFY(!home.manager.Insert(NewTime()));
    QCOMPARE(home.manager.m_error, LoadText(Text::BatchLost));
    QVERIFY(!home.manager.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
    QVERIFY(!home.manager.Update());
    QCOMPARE(home.manager.m_error, LoadText(Text::BatchLost));
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QCOMPARE(home.TimeRows(), 1);
}

void TestFailedCommit::NoLockAfterwards() {
    FaultyDisk disk;
    RecordsFixture home;
    disk.failure = SQLITE_FULL;
    home.prompt.ExpectTold(Text::InsertCommitFailed);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    disk.failure = SQLITE_OK;
    CVOSrcMgr other;
    QVERIFY(home.Open(other));
    CRecordStore otherStore(other, home.prompt, QStringLiteral("velmarch"));
    QVERIFY(otherStore.InsertRecord(NewTime(), Commit::Now));
    // Nor after a change that was refused meanwhile.
    CTRecord refused = NewTime(QString(256, u'x'));
    home.prompt.ExpectTold(Text::InsertFailed);
    QVERIFY(!home.store.InsertRecord(refused, Commit::Now));
    home.prompt.ExpectTold(Text::ModifyFailed);
    QVERIFY(!home.store.ModifyRecord(NewTime(), refused.GetId(), Commit::Now));
    QVERIFY(otherStore.InsertRecord(NewTime(), Commit::Now));
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 2);
}

void TestFailedCommit::ARowWhoseChecksumCantBeWritten_data() {
    QTest::addColumn<bool>("isModified");
    QTest::newRow("added") << false;
    QTest::newRow("modified") << true;
}

/// In a batch that goes on with what was done, the row would stay, and the user was told that it isn't there.
void TestFailedCommit::ARowWhoseChecksumCantBeWritten() {
    QFETCH(bool, isModified);
    RecordsFixture home;
    const CTRecord former = NewTime();
    QVERIFY(home.store.InsertRecord(former, Commit::Now));
    QVERIFY(
        home.manager.File().Execute("CREATE TRIGGER refuse BEFORE INSERT ON time_velmarch_checks "
                                    "BEGIN SELECT RAISE(FAIL, 'refused'); END"));
    QVERIFY(home.store.BeginBatch());
    home.prompt.ExpectTold(isModified ? Text::ModifyFailed : Text::InsertFailed);
    CTRecord changed = NewTime(QStringLiteral("other"));
    changed.SetId(former.GetId());
    QVERIFY(isModified ? !home.store.ModifyRecord(changed, former.GetId(), Commit::Later)
                       : !home.store.InsertRecord(NewTime(), Commit::Later));
    home.prompt.ExpectTold(Text::CommitFailed);
    QVERIFY(!home.store.Commit());
    home.prompt.Finish();
    QCOMPARE(home.TimeRows(), 1);
    CTRecord stored;
    QVERIFY(home.store.ReadRecord(stored, former.GetId()));
    QCOMPARE(stored.item1, former.item1);
}

void TestFailedCommit::DoneAllTheSame_data() {
    QTest::addColumn<int>("failures");
    QTest::addColumn<bool>("isTruncateRefused");
    QTest::addColumn<bool>("isStored");
    QTest::addColumn<bool>("isDoubtful");
    QTest::newRow("the end of the journal is confirmed by the next attempt") << 1 << false << true << false;
    QTest::newRow("the disk never confirms it") << 1000 << false << true << true;
    QTest::newRow("the journal stays, and undoes it") << 1000 << true << false << false;
}

/// The last step of a commit fails: whether the row is stored doesn't hang on what the disk says, and what is
/// told is what is stored.
void TestFailedCommit::DoneAllTheSame() {
    QFETCH(int, failures);
    QFETCH(bool, isTruncateRefused);
    QFETCH(bool, isStored);
    QFETCH(bool, isDoubtful);
    UnconfirmedEnd disk;
    RecordsFixture home;
    disk.failures = failures;
    disk.isTruncateRefused = isTruncateRefused;
    if (isDoubtful) home.prompt.ExpectTold(Text::CommitUnconfirmed);
    if (!isStored) home.prompt.ExpectTold(Text::InsertCommitFailed);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    home.prompt.Finish();
    disk.failures = 0;
    QCOMPARE(home.store.m_lastError == 0, isStored);
    QCOMPARE(home.TimeRows(), isStored ? 1 : 0);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QCOMPARE(home.TimeRows(), isStored ? 2 : 1);
}

TEST_CLASS(TestFailedCommit);
#include "TestFailedCommit.moc"
