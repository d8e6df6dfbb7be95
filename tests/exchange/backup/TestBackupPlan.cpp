#include "exchange/backup/BackupPlan.h"

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "exchange/backup/LastBackup.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestBackupPlan : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void init();
    void IsKept();
    void WhatIsDamagedIsNoPlan();
    void NothingWithoutAPlan();
    void OnceADay();
    void OnceAWeek();
    void AClockThatWasSetBack();
    void TheNewestStay();
    void NothingOfNothing();
    void AFailureIsToldOnceADay();
    void TheLastGoodOneIsKnown();

 private:
    void Plan(int days, int keep = 7);
    [[nodiscard]] QStringList Backups() const {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden);
    }
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestHome> m_home;
    CNoProgress m_progress;
    std::unique_ptr<CAutomaticBackups> m_backups;
};

void TestBackupPlan::init() {
    m_backups.reset();
    m_home.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_home = std::make_unique<TestHome>();
    m_backups = std::make_unique<CAutomaticBackups>(CAutomaticBackups::Context{
        m_home->Path(), *m_home->document, *m_home->profile, m_home->prompt, m_home->clock, m_progress});
    m_home->AddTime(2026, 11, 19);
}

void TestBackupPlan::Plan(int days, int keep) {
    QVERIFY(NoteBackupPlan(*m_home->profile, {.everyDays = days, .folder = m_folder->path(), .keep = keep}));
}

void TestBackupPlan::IsKept() {
    QCOMPARE(ReadBackupPlan(*m_home->profile), BackupPlan());
    const BackupPlan plan{.everyDays = 7, .folder = u"/somewhere/ä"_s, .keep = 3};
    QVERIFY(NoteBackupPlan(*m_home->profile, plan));
    QCOMPARE(ReadBackupPlan(*m_home->profile), plan);
}

void TestBackupPlan::WhatIsDamagedIsNoPlan() {
    QVERIFY(NoteBackupPlan(*m_home->profile, {.everyDays = 5, .folder = u"/x"_s, .keep = 0}));
    QCOMPARE(ReadBackupPlan(*m_home->profile), (BackupPlan{.everyDays = 0, .folder = u"/x"_s, .keep = 1}));
}

void TestBackupPlan::NothingWithoutAPlan() {
    m_backups->RunIfDue();
    Plan(0);
    m_backups->RunIfDue();
    QCOMPARE(Backups(), QStringList());
}

void TestBackupPlan::OnceADay() {
    Plan(1);
    m_backups->RunIfDue();
    QCOMPARE(Backups(), QStringList(u"velmarch-auto-20261119-090000.vbk"_s));
    m_home->clock.Advance(14 * 3600);
    m_backups->RunIfDue();
    QCOMPARE(Backups().size(), 1);
    m_home->clock.Advance(2 * 3600);  // past midnight
    m_backups->RunIfDue();
    QCOMPARE(Backups().size(), 2);
}

void TestBackupPlan::OnceAWeek() {
    Plan(7);
    for (int day = 0; day < 15; ++day) {
        m_backups->RunIfDue();
        m_home->clock.Advance(24 * 3600);
    }
    QCOMPARE(Backups(),
             (QStringList{u"velmarch-auto-20261119-090000.vbk"_s, u"velmarch-auto-20261126-090000.vbk"_s,
                          u"velmarch-auto-20261203-090000.vbk"_s}));
}

void TestBackupPlan::AClockThatWasSetBack() {
    Plan(7);
    m_backups->RunIfDue();
    m_home->clock.SetClock(-3 * 24 * 3600);
    m_backups->RunIfDue();
    QCOMPARE(Backups().size(), 2);
}

void TestBackupPlan::TheNewestStay() {
    Plan(1, 2);
    QVERIFY(PutBytes(m_folder->filePath(u"velmarch-auto-mine.vbk"_s), "mine"));
    for (int day = 0; day < 4; ++day) {
        m_backups->RunIfDue();
        m_home->clock.Advance(24 * 3600);
    }
    QCOMPARE(Backups(), (QStringList{u"velmarch-auto-20261121-090000.vbk"_s,
                                     u"velmarch-auto-20261122-090000.vbk"_s, u"velmarch-auto-mine.vbk"_s}));
}

/// No records: there is nothing to save, and nothing to complain of.
void TestBackupPlan::NothingOfNothing() {
    QVERIFY(m_home->manager.File().Execute("DELETE FROM time_velmarch"));
    Plan(1);
    m_backups->RunIfDue();
    QCOMPARE(Backups(), QStringList());
}

void TestBackupPlan::AFailureIsToldOnceADay() {
    QVERIFY(NoteBackupPlan(*m_home->profile, {.everyDays = 1, .folder = u"/nowhere"_s}));
    m_home->prompt.ExpectTold(Text::AutomaticBackupFailed);
    m_backups->RunIfDue();
    m_home->prompt.Finish();
    m_backups->RunIfDue();
    m_home->clock.Advance(24 * 3600);
    m_home->prompt.ExpectTold(Text::AutomaticBackupFailed);
    m_backups->RunIfDue();
    m_home->prompt.Finish();
}

void TestBackupPlan::TheLastGoodOneIsKnown() {
    QVERIFY(!ReadLastBackup(*m_home->profile));
    Plan(1);
    m_backups->RunIfDue();
    const auto last = ReadLastBackup(*m_home->profile);
    QVERIFY(last);
    QCOMPARE(last->path, m_folder->filePath(u"velmarch-auto-20261119-090000.vbk"_s));
    QCOMPARE(last->time, m_home->clock.GetLocalTime());
    QVERIFY(LastBackupText(last).contains(u"2026-11-19 09:00"_s));
    // From a program that hasn't the settings open.
    NoteLastBackup(m_home->Path(), {{2027, 1, 5, 1, 8, 30, 0, 0}, u"/b"_s});
    QCOMPARE(ReadLastBackup(*m_home->profile)->path, u"/b"_s);
}

TEST_CLASS(TestBackupPlan);
#include "TestBackupPlan.moc"
