#include "records/StoreTransaction.h"

#include "RecordsFixture.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

namespace {

/// Notes what is told, and whether other programs wait for the store meanwhile.
class Looking final : public CPrompt {
 public:
    explicit Looking(CVOSrcMgr& manager) : m_manager(manager) {}
    Answer Ask(const MessageBox& box) override { return box.defaultAnswer; }
    void Tell(const MessageBox& box) override {
        told.append(box.textId);
        isHeld = isHeld || m_manager.File().InTransaction();
    }
    std::optional<QString> ChooseFile(const FileChoice&) override { return {}; }

    QList<int> told;
    bool isHeld = false;

 private:
    CVOSrcMgr& m_manager;
};

}  // namespace

class TestStoreTransaction : public QObject {
    Q_OBJECT

    static void RefuseChanges(RecordsFixture& home) {
        QVERIFY(home.manager.File().Execute(
            "CREATE TRIGGER refuse BEFORE INSERT ON time_velmarch BEGIN SELECT RAISE(FAIL, 'no'); END"));
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    /// A box may stand for hours: another program that wants the store doesn't wait for its answer.
    void AFailureIsToldWhenTheStoreIsFree() {
        RecordsFixture home;
        RefuseChanges(home);
        Looking prompt(home.manager);
        CRecordStore store(home.manager, prompt, QStringLiteral("velmarch"));
        CTRecord record;
        record.GenUnique();
        {
            const StoreTransaction outer(store);
            {
                const StoreTransaction inner(store);
                QVERIFY(outer.IsOpen() && inner.IsOpen());
                QVERIFY(!store.InsertRecord(record, Commit::Later));
            }
            QVERIFY(prompt.told.isEmpty());
        }
        QCOMPARE(prompt.told, QList<int>{static_cast<int>(Text::InsertFailed)});
        QVERIFY(!prompt.isHeld);
    }

    void OutsideOfATransactionItIsToldAtOnce() {
        RecordsFixture home;
        RefuseChanges(home);
        Looking prompt(home.manager);
        CRecordStore store(home.manager, prompt, QStringLiteral("velmarch"));
        CTRecord record;
        record.GenUnique();
        QVERIFY(!store.InsertRecord(record, Commit::Now));
        QCOMPARE(prompt.told.size(), 1);
    }
};

TEST_CLASS(TestStoreTransaction);
#include "TestStoreTransaction.moc"
