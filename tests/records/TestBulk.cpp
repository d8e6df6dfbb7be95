#include "RecordsFixture.h"
#include "platform/host/CWaitBudget.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CERecord.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <atomic>

/// Records that a thread of its own puts into the store while the next are made.
class TestBulk : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Records_data();
    void Records();
    void OfTwoTables();
    void AreSeenByWhoLooks();
    void AreCommittedWithIt();
    void ThatFail_data();
    void ThatFail();
    void OnAFullDisk();
    void NeverWaitBesideTheirCaller();
};

namespace {

const QString kAllTimes = QStringLiteral("SELECT * FROM time_velmarch");
const QString kTimes = QStringLiteral("time_velmarch");

CTRecord Numbered(int number) {
    CTRecord record = NewTime(QString::number(number));
    record.SetId(QString::number(number).rightJustified(32, u'0'));
    record.notes = QStringLiteral("Gr\u00FC\u00DFe, \u65E5\u672C ") + QString(number % 700, u'n');
    record.SetStart(9, number % 60, false);
    record.SetRate(static_cast<float>(number) / 4);
    return record;
}

/// Until one fails.
bool AddNumbered(CRecordStore& store, int from, int to) {
    for (int i = from; i < to; ++i)
        if (!store.InsertRecord(Numbered(i), Commit::Later)) return false;
    return true;
}

/// Counts the waits, whichever thread they are in.
class CCountedWaits : public CWaitListener {
 public:
    [[nodiscard]] Choice OnWaiting(const QString&, std::chrono::milliseconds) override {
        ++count;
        return Choice::GiveUp;
    }
    std::atomic<int> count = 0;
};

}  // namespace

void TestBulk::Records_data() {
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("less than a piece") << 511;
    QTest::newRow("a piece") << 512;
    QTest::newRow("one more") << 513;
    QTest::newRow("several pieces") << 2600;
}

/// As they are stored one by one, their checksums included.
void TestBulk::Records() {
    QFETCH(int, count);
    RecordsFixture home;
    {
        const CVOSrcMgr::Bulk bulk(home.manager);
        QVERIFY(AddNumbered(home.store, 0, count));
    }
    QVERIFY(home.store.Commit());
    RecordsFixture oneByOne;
    QVERIFY(AddNumbered(oneByOne.store, 0, count) && oneByOne.store.Commit());
    const QString checks = QStringLiteral("SELECT quote(identity) || quote(sum) FROM time_velmarch_checks");
    QStringList rows, expected;
    QVERIFY(home.store.QueryTexts(checks, rows) && oneByOne.store.QueryTexts(checks, expected));
    QCOMPARE(rows, expected);
    QCOMPARE(rows.size(), count);
    QStringList faults;
    QVERIFY(home.manager.FindFaults(kTimes, faults));
    QCOMPARE(faults, QStringList());
}

void TestBulk::OfTwoTables() {
    RecordsFixture home;
    {
        const CVOSrcMgr::Bulk bulk(home.manager);
        for (int i = 0; i < 700; ++i) {
            CERecord expense;
            expense.GenUnique();
            expense.date.Set(11, 19, 2026);
            QVERIFY(home.store.InsertRecord(Numbered(i), Commit::Later));
            if (i % 3 == 0) QVERIFY(home.store.InsertRecord(expense, Commit::Later));
        }
        QVERIFY(home.store.SettleInserts());
    }
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 700);
    QCOMPARE(home.Rows(QStringLiteral("SELECT * FROM expense_velmarch")), 234);
}

/// Whatever is asked of the store waits for them.
void TestBulk::AreSeenByWhoLooks() {
    RecordsFixture home;
    const CVOSrcMgr::Bulk bulk(home.manager);
    for (int i = 0; i < 3; ++i) {
        QVERIFY(AddNumbered(home.store, i * 600, i * 600 + 600));
        QStringList items;
        QVERIFY(home.store.QueryTexts(QStringLiteral("SELECT item1 FROM time_velmarch"), items));
        QCOMPARE(items.size(), i * 599 + 600);
        CTRecord record;
        QVERIFY(home.store.ReadRecord(record, Numbered(i * 600 + 599).GetId()));
        QCOMPARE(record.item1, QString::number(i * 600 + 599));
        record.item1 = QStringLiteral("changed");
        QVERIFY(home.store.ModifyRecord(record, record.GetId(), Commit::Later));
        QVERIFY(home.store.DeleteRecord(RecordKind::Time, Numbered(i * 600).GetId()));
    }
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 1797);
    QCOMPARE(home.Rows(kAllTimes + QStringLiteral(" WHERE item1='changed'")), 3);
}

void TestBulk::AreCommittedWithIt() {
    RecordsFixture home;
    {
        const CVOSrcMgr::Bulk bulk(home.manager);
        QVERIFY(AddNumbered(home.store, 0, 700));
        QVERIFY(home.store.Commit());
        QCOMPARE(home.TimeRows(), 700);
        QVERIFY(AddNumbered(home.store, 700, 800));
        home.manager.Discard();
        QCOMPARE(home.TimeRows(), 700);
    }
    QVERIFY(!home.manager.HasOpenChanges());
}

void TestBulk::ThatFail_data() {
    QTest::addColumn<int>("behind");
    QTest::newRow("nothing behind it") << 0;
    QTest::newRow("more in its piece") << 40;
    QTest::newRow("pieces behind it") << 2000;
}

/// In the words of a failure of its own; nothing of the batch is left then, and nothing goes in any more.
void TestBulk::ThatFail() {
    QFETCH(int, behind);
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(Numbered(100), Commit::Now));
    for (const Text told : {Text::InsertFailed, Text::InsertFailed, Text::InsertFailed, Text::CommitFailed})
        home.prompt.ExpectTold(told);
    QVERIFY(!home.store.InsertRecord(Numbered(100), Commit::Later));
    const QString words = home.manager.m_error;
    const std::int32_t code = home.manager.m_errorCode;
    home.manager.Discard();
    {
        const CVOSrcMgr::Bulk bulk(home.manager);
        QVERIFY(home.store.BeginBatch());
        const bool isAdded = AddNumbered(home.store, 0, 101 + behind) && home.store.SettleInserts();
        QVERIFY(!isAdded);
        QCOMPARE(home.manager.m_error, words);
        QCOMPARE(home.manager.m_errorCode, code);
        QCOMPARE(home.store.m_lastError, code);
        QVERIFY(!home.store.InsertRecord(Numbered(5000), Commit::Later));
    }
    QVERIFY(!home.store.Commit());
    QCOMPARE(home.TimeRows(), 1);
    QVERIFY(home.store.InsertRecord(Numbered(5000), Commit::Now));
    QCOMPARE(home.TimeRows(), 2);
}

void TestBulk::OnAFullDisk() {
    RecordsFixture home;
    QVERIFY(home.manager.File().Execute("PRAGMA max_page_count=60"));
    {
        const CVOSrcMgr::Bulk bulk(home.manager);
        QVERIFY(home.store.BeginBatch());
        home.prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!(AddNumbered(home.store, 0, 3000) && home.store.SettleInserts()));
        QCOMPARE(home.manager.m_errorCode, SQLITE_FULL);
    }
    home.prompt.ExpectTold(Text::CommitFailed);
    QVERIFY(!home.store.Commit());
    QCOMPARE(home.TimeRows(), 0);
}

/// A program that reads keeps pages from being written before the commit: they stay in memory. Who waits
/// serves messages, which is nothing for another thread.
void TestBulk::NeverWaitBesideTheirCaller() {
    RecordsFixture home;
    CVOSrcMgr patient;
    patient.m_directory = home.folder.path();
    patient.m_fileName = home.manager.m_fileName;
    eActionDisposition source{}, second{};
    QVERIFY(patient.InitDataSrc(source, second));
    QVERIFY(patient.File().Execute("PRAGMA cache_size=10"));
    CRecordStore store(patient, home.prompt, QStringLiteral("velmarch"));
    QVERIFY(home.manager.BeginRead());
    CCountedWaits waits;
    CWaitBudget budget;
    budget.SetListener(&waits);
    const WaitBudgetScope scope(budget);
    const CVOSrcMgr::Bulk bulk(patient);
    QVERIFY(store.BeginBatch());
    QVERIFY(AddNumbered(store, 0, 2000) && store.SettleInserts());
    QCOMPARE(waits.count.load(), 0);
    home.manager.Discard();
    QVERIFY(store.Commit());
    QCOMPARE(home.TimeRows(), 2000);
}

TEST_CLASS(TestBulk);
#include "TestBulk.moc"
