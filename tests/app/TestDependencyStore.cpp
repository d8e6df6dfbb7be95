#include "app/DependencyStore.h"

#include "app/DependencyBytes.h"
#include "records/CDRecord.h"
#include "records/CPRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using State = StoredTree::State;
constexpr DependencySet kTimes = DependencySet::Time;
constexpr DependencySet kExpenses = DependencySet::Expense;

/// Bytes that never repeat within a chunk.
QByteArray Content(qsizetype size) {
    QByteArray bytes;
    for (qsizetype i = 0; i < size; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    return bytes;
}

}  // namespace

class TestDependencyStore : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    std::unique_ptr<DependencyStore> trees;

    void Run(const QString& sql) { QVERIFY2(home->manager.File().Execute(sql.toUtf8()), qPrintable(sql)); }
    QStringList Ids(const QString& condition) {
        QStringList ids;
        if (!home->store->QueryTexts(u"SELECT identity FROM dependency_velmarch WHERE "_s + condition, ids))
            qFatal("the rows can't be read");
        return ids;
    }
    /// The chunks of a set: all its rows but those under fixed identities.
    QStringList Chunks(int set) {
        return Ids(u"number=%1 AND identity NOT LIKE 'FFFF%' ORDER BY identity"_s.arg(set));
    }
    QByteArray DataOf(const QString& id, bool isPacked = false) {
        CDRecord row;
        row.SetPacked(isPacked);
        return home->store->ReadRecord(row, id) ? row.data : QByteArray("absent");
    }
    void PutRow(const QString& id, int number, const QByteArray& data, bool isPacked) {
        CDRecord row;
        row.SetPacked(isPacked);
        row.number = number;
        row.data = data;
        row.SetId(id);
        QVERIFY(home->store->InsertRecord(row, Commit::Now));
    }
    void Compare(const StoredTree& tree, State state, const QByteArray& bytes) {
        QCOMPARE(static_cast<int>(tree.state), static_cast<int>(state));
        QVERIFY(tree.bytes == bytes);
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        trees = std::make_unique<DependencyStore>(*home->store);
    }
    void cleanup() {
        home->prompt.Finish();
        home.reset();
    }

    void FixedIdentities() {
        QCOMPARE(DependencyStore::OldRootId(kTimes), u"FFFF26110BDC7162F073A5BC94A40001"_s);
        QCOMPARE(DependencyStore::OldRootId(kExpenses), u"FFFF26110BDC7162F073A5BC94A40002"_s);
        QCOMPARE(DependencyStore::RootId(kTimes), u"FFFF26110BDC7162F073A5BC94A40010"_s);
        QCOMPARE(DependencyStore::RootId(kExpenses), u"FFFF26110BDC7162F073A5BC94A40011"_s);
    }

    void Save_data() {
        QTest::addColumn<qsizetype>("size");
        QTest::addColumn<QList<int>>("chunks");
        QTest::newRow("an empty tree takes no chunk") << qsizetype{0} << QList<int>();
        QTest::newRow("one byte") << qsizetype{1} << QList<int>{1};
        QTest::newRow("exactly one chunk") << qsizetype{15984} << QList<int>{15984};
        QTest::newRow("a byte more takes two") << qsizetype{15985} << QList<int>{15984, 1};
        QTest::newRow("a hundred") << qsizetype{1598400} << QList<int>(100, 15984);
    }
    void Save() {
        QFETCH(qsizetype, size);
        const QByteArray bytes = Content(size);
        QVERIFY(trees->Save(kTimes, bytes));

        QByteArray listed;
        QList<int> sizes;
        for (const QString& id : Chunks(55)) {
            listed += IdentityToBytes(id);
            sizes.append(static_cast<int>(DataOf(id).size()));
        }
        QTEST(sizes, "chunks");
        // identities ascend, so the sorted ones are in the order of the chunks
        QCOMPARE(DataOf(DependencyStore::RootId(kTimes)), listed);
        QVERIFY(!home->manager.HasOpenChanges());
        Compare(trees->Read(kTimes), State::Current, bytes);
        Compare(trees->Read(kExpenses), State::None, {});
    }

    void SaveAgainReplacesTheChunks() {
        QVERIFY(trees->Save(kTimes, Content(40000)));
        const QStringList former = Chunks(55);
        QVERIFY(trees->Save(kTimes, Content(20000)));
        QCOMPARE(former.size(), 3);
        QCOMPARE(Chunks(55).size(), 2);
        for (const QString& id : Chunks(55)) QVERIFY(!former.contains(id));
        Compare(trees->Read(kTimes), State::Current, Content(20000));
        QVERIFY(trees->Save(kTimes, {}));
        QCOMPARE(Ids(u"1"_s), QStringList{DependencyStore::RootId(kTimes)});
        Compare(trees->Read(kTimes), State::Current, {});
    }

    void TwoSetsAreIndependent() {
        QVERIFY(trees->Save(kTimes, "of times"));
        QVERIFY(trees->Save(kExpenses, "of expenses"));
        QVERIFY(trees->Save(kTimes, "of times, anew"));
        Compare(trees->Read(kTimes), State::Current, "of times, anew");
        Compare(trees->Read(kExpenses), State::Current, "of expenses");
        QCOMPARE(Chunks(66).size(), 1);
    }

    void SaveSparesTheRowInTheOldForm() {
        PutRow(DependencyStore::OldRootId(kTimes), 55, "old", true);
        QVERIFY(trees->Save(kTimes, "new"));
        QCOMPARE(DataOf(DependencyStore::OldRootId(kTimes), true), QByteArray("old"));
        Compare(trees->Read(kTimes), State::Current, "new");
    }

    void ReadOld() {
        const QByteArray packable = QByteArray(400, 'a') + Content(300);
        PutRow(DependencyStore::OldRootId(kExpenses), 66, packable, true);
        Compare(trees->Read(kExpenses), State::Old, packable);
        Compare(trees->Read(kTimes), State::None, {});
    }

    void ReadDamaged_data() {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<bool>("isTold");
        const auto change = [](const char* block, const char* row) {
            return u"UPDATE dependency_velmarch SET block=%1 WHERE %2"_s.arg(QLatin1StringView(block),
                                                                             QLatin1StringView(row));
        };
        const char* const root = "identity='FFFF26110BDC7162F073A5BC94A40010'";
        const char* const chunk = "identity NOT LIKE 'FFFF%'";
        const char* const otherDigit = "substr(block,1,32)||'F'||substr(block,34)";
        QTest::newRow("a changed digit in the root") << change(otherDigit, root) << true;
        QTest::newRow("a changed digit in a chunk") << change(otherDigit, chunk) << true;
        QTest::newRow("a character in the root that is no digit")
            << change("'G'||substr(block,2)", root) << true;
        QTest::newRow("a character in a chunk that is no digit")
            << change("'G'||substr(block,2)", chunk) << true;
        QTest::newRow("half a byte is missing") << change("substr(block,2)", chunk) << true;
        QTest::newRow("a block too short for its check") << change("'00FF'", chunk) << true;
        QTest::newRow("an empty block in the root") << change("''", root) << true;
        QTest::newRow("a chunk is missing")
            << u"DELETE FROM dependency_velmarch WHERE %1"_s.arg(QLatin1StringView(chunk)) << false;
    }
    void ReadDamaged() {
        QFETCH(QString, damage);
        QFETCH(bool, isTold);
        QVERIFY(trees->Save(kTimes, Content(100)));
        Run(damage);
        if (isTold) home->prompt.ExpectTold(Text::ReadFailed);
        Compare(trees->Read(kTimes), State::Damaged, {});
    }

    void ReadRootOfNoWholeIdentities() {
        PutRow(DependencyStore::RootId(kTimes), 55, QByteArray(17, 'x'), false);
        Compare(trees->Read(kTimes), State::Damaged, {});
    }

    void ReadOldDamaged() {
        // a group that announces five bytes and has one
        PutRow(DependencyStore::OldRootId(kTimes), 55, QByteArray("\x04x"), false);
        home->prompt.ExpectTold(Text::ReadFailed);
        Compare(trees->Read(kTimes), State::Damaged, {});
    }

    void ReadWithoutTable() {
        Run(u"DROP TABLE dependency_velmarch"_s);
        home->prompt.ExpectTold(Text::ReadQueryFailed);
        Compare(trees->Read(kTimes), State::Failed, {});
    }

    void SaveOverADamagedRoot() {
        QVERIFY(trees->Save(kTimes, Content(20000)));
        Run(u"UPDATE dependency_velmarch SET block='G'"_s);
        QVERIFY(trees->Save(kTimes, "anew"));
        Compare(trees->Read(kTimes), State::Current, "anew");
    }

    void SaveThatFails_data() {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<Text>("message");
        QTest::newRow("at the root") << u"BEFORE UPDATE ON dependency_velmarch"_s << Text::ModifyFailed;
        QTest::newRow("at the former chunks")
            << u"BEFORE DELETE ON dependency_velmarch"_s << Text::QueryFailed;
        QTest::newRow("at the second chunk")
            << u"BEFORE INSERT ON dependency_velmarch WHEN length(new.block)<32000"_s << Text::InsertFailed;
    }
    void SaveThatFails() {
        QFETCH(QString, trigger);
        QFETCH(Text, message);
        QVERIFY(trees->Save(kTimes, Content(20000)));
        const QStringList former = Ids(u"1 ORDER BY identity"_s);
        Run(u"CREATE TRIGGER refuse %1 BEGIN SELECT RAISE(ABORT,'no'); END"_s.arg(trigger));
        home->prompt.ExpectTold(message);
        QVERIFY(!trees->Save(kTimes, Content(30000)));
        QCOMPARE(Ids(u"1 ORDER BY identity"_s), former);
        QVERIFY(!home->manager.HasOpenChanges());
        Compare(trees->Read(kTimes), State::Current, Content(20000));
        Run(u"DROP TRIGGER refuse"_s);
        QVERIFY(trees->Save(kTimes, Content(30000)));
    }

    void SaveBesideAnotherProgram() {
        CVOSrcMgr other;
        other.m_directory = home->Path();
        other.m_fileName = home->manager.m_fileName;
        eActionDisposition source, second;
        QVERIFY(other.InitDataSrc(source, second));
        QVERIFY(other.BeginBatch());
        home->manager.Close();
        home->manager.m_busySeconds = 0;
        QVERIFY(home->manager.InitDataSrc(source, second));
        home->prompt.ExpectTold(Text::CommitFailed);
        QVERIFY(!trees->Save(kTimes, "blocked"));
        other.Discard();
        Compare(trees->Read(kTimes), State::None, {});
    }

    /// What was changed before and isn't committed yet doesn't go with a save that fails.
    void SaveThatFailsLeavesOpenChangesAlone() {
        CPRecord item(u"waiting"_s);
        item.GenUnique();
        QVERIFY(home->store->InsertRecord(item, Commit::Later));
        Run(u"CREATE TRIGGER refuse BEFORE INSERT ON dependency_velmarch BEGIN SELECT RAISE(ABORT,'no'); END"_s);
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!trees->Save(kTimes, "refused"));
        CPRecord read;
        QVERIFY(home->store->ReadRecord(read, item.GetId()));
    }

    /// More identities than the root's row can hold.
    void TooLargeATree() {
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!trees->Save(kTimes, QByteArray(qsizetype{15984} * 1000, 'x')));
        Compare(trees->Read(kTimes), State::None, {});
    }
};

TEST_CLASS(TestDependencyStore);
#include "TestDependencyStore.moc"
