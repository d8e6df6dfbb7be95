#include "exchange/backup/CRestore.h"

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "exchange/backup/CBackupReader.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/WriteBackup.h"
#include "lang/LoadText.h"
#include "records/CPRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Does something as soon as work of a name begins.
class CAtBegin final : public CProgress {
 public:
    void Begin(const QString& what, int) override {
        if (atBegin) atBegin(what);
    }
    bool Advance() override { return true; }
    void End() override {}
    std::function<void(const QString& what)> atBegin;
};

}  // namespace

class TestCRestore : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void init();
    void TheRecordsOfTheFileAlone();
    void ABackupOfARestoreIsTheSame();
    void RecordsWithoutIdentityGetOne();
    void TheLongIdentityIsPutRight();
    void PackedBlocksAreStoredPacked();
    void TwoQuestions_data();
    void TwoQuestions();
    void Refused_data();
    void Refused();
    void NothingIsLostByARecordThatCantBeStored_data();
    void NothingIsLostByARecordThatCantBeStored();
    void WhatTheStoreRefusesIsMetBefore_data();
    void WhatTheStoreRefusesIsMetBefore();
    void TheSafetyCopyHoldsWhatWasThere();
    void NoSafetyCopyOfNothing();
    void NoRestoreWithoutASafetyCopy();
    void TheNewestFiveCopiesStay();
    void AFileThatChangesMeanwhile();
    void NobodyElseStoresAnythingMeanwhile();
    void TheRecordsAreEmptiedBeforeTheyAreRead();

 private:
    [[nodiscard]] RestoreOutcome Restore(const QString& path);
    [[nodiscard]] QStringList SafetyCopies() const {
        return QDir(m_home->Path()).entryList({u"before-restore-*"_s}, QDir::Files);
    }
    std::unique_ptr<TestHome> m_home;
    CAtBegin m_progress;
    std::function<void()> m_emptied;
};

void TestCRestore::init() {
    m_home.reset();
    m_home = std::make_unique<TestHome>();
    m_progress.atBegin = {};
    m_emptied = {};
}

RestoreOutcome TestCRestore::Restore(const QString& path) {
    CRestore restore(
        {.prompt = m_home->prompt, .clock = m_home->clock, .progress = m_progress, .emptied = m_emptied});
    const BackupOutcome verified = restore.Verify(path);
    if (!verified) return {.error = verified.error, .safetyCopy = {}};
    return restore.Run(m_home->Path(), nullptr);
}

void TestCRestore::TheRecordsOfTheFileAlone() {
    QStringList expected;
    {
        TestHome other;
        QVERIFY(FillLikeGolden(other));
        expected = StoreRows(other);
    }
    init();
    m_home->AddTime(2026, 11, 19, u"09:00"_s, u"17:00"_s);
    const RestoreOutcome outcome = Restore(GoldenPath(u"current.vbk"_s));
    QVERIFY2(outcome, qPrintable(outcome.error));
    QCOMPARE(StoreRows(*m_home), expected);
    QCOMPARE(expected.size(), 8);
}

void TestCRestore::ABackupOfARestoreIsTheSame() {
    QVERIFY(Restore(GoldenPath(u"current.vbk"_s)));
    CSecondSource source(m_home->Path(), m_home->prompt);
    QVERIFY(source.Open());
    const CGoldenClock clock;
    const QString path = m_home->Path() + u"/again.vbk"_s;
    QVERIFY(WriteBackup({source, clock, m_progress}, path, EmptyBackup::Refused));
    QCOMPARE(BytesOf(path).toHex(), GoldenFile(u"current.vbk"_s).toHex());
    QCOMPARE(source.FindDamage(), QString());
}

void TestCRestore::RecordsWithoutIdentityGetOne() {
    QVERIFY(Restore(GoldenPath(u"no-identity.vbk"_s)));
    const QStringList rows = StoreRows(*m_home);
    QCOMPARE(rows.size(), 2);
    for (const QString& row : rows) QVERIFY2(IsIdentity(row.section(u'|', -1)), qPrintable(row));
}

void TestCRestore::TheLongIdentityIsPutRight() {
    QVERIFY(Restore(GoldenPath(u"long-identity.vbk"_s)));
    QCOMPARE(StoreRows(*m_home).first().section(u'|', -1), u"FFFF26110BDC7162F073A5BC94A40011"_s);
}

/// md5 of the two groups, then the groups: a run of 20 zeros, three plain bytes.
void TestCRestore::PackedBlocksAreStoredPacked() {
    QVERIFY(Restore(GoldenPath(u"packed.vbk"_s)));
    QVERIFY(StoreRows(*m_home).first().contains(u"920002616263|FFFF26110BDC7162F073A5BC94A40001"_s));
}

void TestCRestore::TwoQuestions_data() {
    QTest::addColumn<QList<Answer>>("answers");
    QTest::addColumn<bool>("isConfirmed");
    QTest::newRow("no") << QList{Answer::No} << false;
    QTest::newRow("yes, no") << QList{Answer::Yes, Answer::No} << false;
    QTest::newRow("yes, yes") << QList{Answer::Yes, Answer::Yes} << true;
}

void TestCRestore::TwoQuestions() {
    QFETCH(QList<Answer>, answers);
    QFETCH(bool, isConfirmed);
    CRestore restore({m_home->prompt, m_home->clock, m_progress, {}});
    QVERIFY(restore.Verify(GoldenPath(u"current.vbk"_s)));
    m_home->prompt.Expect(Text::AskRestore, answers.first());
    if (answers.size() > 1) m_home->prompt.Expect(Text::AskRestoreSure, answers.last());
    QCOMPARE(restore.IsConfirmed(), isConfirmed);
    m_home->prompt.Finish();
    QVERIFY2(m_home->prompt.told.first().contains(u"2026-11-20 12:34"_s),
             qPrintable(m_home->prompt.told.first()));
    QVERIFY(m_home->prompt.told.first().contains(u" 8 "_s));
}

void TestCRestore::Refused_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    const QString closed = LoadText(Text::BackupCantOpen) + u' ';
    QTest::newRow("no file") << u"/nowhere/b.vbk"_s << closed + u"No such file or directory"_s;
    QTest::newRow("a folder") << u"/tmp"_s << closed + u"Is a directory"_s;
    QTest::newRow("a device without an end") << u"/dev/zero"_s << closed + LoadText(Text::BackupNoPlainFile);
    QTest::newRow("no backup") << GoldenPath(u"make.py"_s) << LoadText(Text::BackupDigestDiffers);
}

void TestCRestore::Refused() {
    QFETCH(QString, path);
    QFETCH(QString, reason);
    m_home->AddTime(2026, 11, 19);
    const QStringList before = StoreRows(*m_home);
    QCOMPARE(Restore(path).error, reason);
    QCOMPARE(StoreRows(*m_home), before);
    QCOMPARE(SafetyCopies(), QStringList());
}

void TestCRestore::NothingIsLostByARecordThatCantBeStored_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("the same identity twice") << u"twice.vbk"_s;
    QTest::newRow("an identity that is none") << u"no-hex.vbk"_s;
    QTest::newRow("a text that is too long") << u"too-long.vbk"_s;
}

void TestCRestore::NothingIsLostByARecordThatCantBeStored() {
    QFETCH(QString, file);
    QVERIFY(FillLikeGolden(*m_home));
    const QStringList before = StoreRows(*m_home);
    const RestoreOutcome outcome = Restore(GoldenPath(file));
    QVERIFY(!outcome);
    QVERIFY2(outcome.error.startsWith(LoadText(Text::RestoreInsertFailed) + u" ["_s),
             qPrintable(outcome.error));
    QVERIFY2(outcome.error.contains(u"], "_s), qPrintable(outcome.error));
    QCOMPARE(StoreRows(*m_home), before);
    // The store can be changed again at once.
    m_home->AddTime(2026, 11, 19);
    QCOMPARE(StoreRows(*m_home).size(), before.size() + 1);
}

void TestCRestore::WhatTheStoreRefusesIsMetBefore_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    const QString noIdentity = u" [13], "_s + LoadText(Text::RecordWithoutIdentity);
    QTest::newRow("an identity that is none") << u"no-hex.vbk"_s << noIdentity;
    QTest::newRow("a text that is too long") << u"too-long.vbk"_s << u" [FFFFFFFD], The text of \"item1\""_s;
}

/// The digest is right, and yet it couldn't be restored.
void TestCRestore::WhatTheStoreRefusesIsMetBefore() {
    QFETCH(QString, file);
    QFETCH(QString, reason);
    CRestore restore({.prompt = m_home->prompt, .clock = m_home->clock, .progress = m_progress});
    const BackupOutcome verified = restore.Verify(GoldenPath(file));
    QVERIFY(!verified);
    QVERIFY2(verified.error.startsWith(LoadText(Text::RestoreInsertFailed) + reason),
             qPrintable(verified.error));
}

void TestCRestore::TheSafetyCopyHoldsWhatWasThere() {
    QVERIFY(FillLikeGolden(*m_home));
    const QStringList before = StoreRows(*m_home);
    const RestoreOutcome outcome = Restore(GoldenPath(u"packed.vbk"_s));
    QVERIFY(outcome);
    QCOMPARE(outcome.safetyCopy, m_home->Path() + u"/before-restore-20261119-090000.vbk"_s);
    QVERIFY(StoreRows(*m_home) != before);
    const RestoreOutcome back = Restore(outcome.safetyCopy);
    QVERIFY(back);
    QCOMPARE(StoreRows(*m_home), before);
    // Another one in the same second.
    QCOMPARE(back.safetyCopy, m_home->Path() + u"/before-restore-20261119-090000-2.vbk"_s);
}

void TestCRestore::NoSafetyCopyOfNothing() {
    const RestoreOutcome outcome = Restore(GoldenPath(u"current.vbk"_s));
    QVERIFY(outcome);
    QCOMPARE(outcome.safetyCopy, QString());
    QCOMPARE(SafetyCopies(), QStringList());
}

void TestCRestore::NoRestoreWithoutASafetyCopy() {
    QVERIFY(FillLikeGolden(*m_home));
    QVERIFY(m_home->manager.File().Execute("DROP TABLE dependency_velmarch"));
    const RestoreOutcome outcome = Restore(GoldenPath(u"packed.vbk"_s));
    QVERIFY(!outcome);
    QCOMPARE(StoreRows(*m_home).size(), 6);
}

void TestCRestore::TheNewestFiveCopiesStay() {
    QVERIFY(FillLikeGolden(*m_home));
    const QString other = m_home->Path() + u"/before-restore-notes.vbk"_s;
    QVERIFY(PutBytes(other, "mine"));
    for (int i = 0; i < 7; ++i) {
        QVERIFY(Restore(GoldenPath(u"current.vbk"_s)));
        m_home->clock.Advance(1);
    }
    QCOMPARE(SafetyCopies(),
             (QStringList{u"before-restore-20261119-090002.vbk"_s, u"before-restore-20261119-090003.vbk"_s,
                          u"before-restore-20261119-090004.vbk"_s, u"before-restore-20261119-090005.vbk"_s,
                          u"before-restore-20261119-090006.vbk"_s, u"before-restore-notes.vbk"_s}));
    // The clock was set back: the one that was just made isn't taken for the oldest.
    m_home->clock.SetClock(-3600);
    const RestoreOutcome outcome = Restore(GoldenPath(u"current.vbk"_s));
    QVERIFY(QFileInfo::exists(outcome.safetyCopy));
    QCOMPARE(SafetyCopies().size(), 6);
}

/// Another sound backup in the bytes of the same file: it isn't what was asked about.
void TestCRestore::AFileThatChangesMeanwhile() {
    QVERIFY(FillLikeGolden(*m_home));
    const QStringList before = StoreRows(*m_home);
    const QString path = m_home->Path() + u"/b.vbk"_s;
    QVERIFY(PutBytes(path, GoldenFile(u"current.vbk"_s)));
    m_progress.atBegin = [&](const QString& what) {
        if (what.startsWith(u"Restoring"_s)) QVERIFY(PutBytes(path, GoldenFile(u"packed.vbk"_s)));
    };
    QCOMPARE(Restore(path).error, LoadText(Text::RestoreChanged));
    QCOMPARE(StoreRows(*m_home), before);
}

/// What was stored between the copy and the restore would be in neither.
void TestCRestore::NobodyElseStoresAnythingMeanwhile() {
    QVERIFY(FillLikeGolden(*m_home));
    bool isHeldOff = false;
    m_progress.atBegin = [&](const QString& what) {
        if (!what.startsWith(u"Backing up"_s)) return;
        CSecondSource other(m_home->Path(), m_home->prompt);
        other.Manager().m_busySeconds = 0;
        isHeldOff = other.Open() && !other.Manager().BeginBatch();
    };
    QVERIFY(Restore(GoldenPath(u"current.vbk"_s)));
    QVERIFY(isHeldOff);
}

void TestCRestore::TheRecordsAreEmptiedBeforeTheyAreRead() {
    QVERIFY(FillLikeGolden(*m_home));
    QStringList order;
    m_emptied = [&] { order += u"emptied"_s; };
    m_progress.atBegin = [&](const QString& what) { order += what.section(u' ', 0, 0); };
    QVERIFY(Restore(GoldenPath(u"current.vbk"_s)));
    QCOMPARE(order, (QStringList{u"Checking"_s, u"Backing"_s, u"Checking"_s, u"emptied"_s, u"Restoring"_s}));
}

TEST_CLASS(TestCRestore);
#include "TestCRestore.moc"
