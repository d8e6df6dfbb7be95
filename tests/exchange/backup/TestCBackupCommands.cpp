#include "exchange/backup/CBackupCommands.h"

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "exchange/backup/LastBackup.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The commands of the window, with a script in the user's place.
class TestCBackupCommands : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void init();
    void Backup();
    void BackupCalledOff();
    void BackupFails();
    void BackupOverTheStore();
    void Restore();
    void RestoreRefused();
    void RestoreDeclined();
    void RestoreFails();
    void TheViewsAreClearedWhileItRuns();

 private:
    [[nodiscard]] CBackupCommands Commands();
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QTemporaryDir> m_folder;
    CNoProgress m_progress;
    int m_refreshed = 0;
    int m_gone = 0;
    QString m_path;
};

void TestCBackupCommands::init() {
    m_home.reset();
    m_home = std::make_unique<TestHome>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"b.vbk"_s);
    m_refreshed = m_gone = 0;
}

CBackupCommands TestCBackupCommands::Commands() {
    return CBackupCommands({.home = m_home->Path(),
                            .document = *m_home->document,
                            .profile = *m_home->profile,
                            .prompt = m_home->prompt,
                            .clock = m_home->clock,
                            .progress = m_progress,
                            .refresh = [this] { ++m_refreshed; },
                            .dropGone = [this] { return m_gone; },
                            .timers = [] { return QHash<QString, QByteArray>(); }});
}

void TestCBackupCommands::Backup() {
    m_home->AddTime(2026, 11, 19);
    m_home->prompt.ExpectFile(m_path);
    m_home->prompt.ExpectTold(Text::BackupDone);
    Commands().Backup();
    m_home->prompt.Finish();
    QVERIFY(QFile::exists(m_path));
    QVERIFY(m_home->prompt.told.last().contains(m_path));
    QCOMPARE(ReadLastBackup(*m_home->profile)->path, m_path);
}

void TestCBackupCommands::BackupCalledOff() {
    m_home->AddTime(2026, 11, 19);
    m_home->prompt.ExpectFile(std::nullopt);
    Commands().Backup();
    m_home->prompt.Finish();
    QVERIFY(!ReadLastBackup(*m_home->profile));
}

void TestCBackupCommands::BackupFails() {
    m_home->AddTime(2026, 11, 19);
    m_home->prompt.ExpectFile(u"/nowhere/b.vbk"_s);
    m_home->prompt.ExpectTold(Text::BackupFailed);
    Commands().Backup();
    m_home->prompt.Finish();
    QVERIFY(m_home->prompt.told.last().contains(u"folder"_s));
    QVERIFY(!ReadLastBackup(*m_home->profile));
}

void TestCBackupCommands::BackupOverTheStore() {
    m_home->AddTime(2026, 11, 19);
    const QStringList before = StoreRows(*m_home);
    m_home->prompt.ExpectFile(QString(m_home->Path() + u"/velmarch.store"_s));
    m_home->prompt.ExpectTold(Text::BackupOwnFile);
    Commands().Backup();
    m_home->prompt.Finish();
    QCOMPARE(StoreRows(*m_home), before);
}

void TestCBackupCommands::Restore() {
    m_home->AddTime(2026, 11, 19);
    m_gone = 2;
    m_home->prompt.ExpectFile(GoldenPath(u"current.vbk"_s));
    m_home->prompt.Expect(Text::AskRestore, Answer::Yes);
    m_home->prompt.Expect(Text::AskRestoreSure, Answer::Yes);
    m_home->prompt.ExpectTold(Text::RestoreDone);
    Commands().Restore();
    m_home->prompt.Finish();
    QCOMPARE(StoreRows(*m_home).size(), 8);
    QCOMPARE(m_refreshed, 1);
    const QString told = m_home->prompt.told.last();
    QVERIFY2(told.contains(u"dropped: 2"_s) && told.contains(u"before-restore-20261119-090000.vbk"_s),
             qPrintable(told));
}

void TestCBackupCommands::RestoreRefused() {
    m_home->AddTime(2026, 11, 19);
    const QStringList before = StoreRows(*m_home);
    m_home->prompt.ExpectFile(GoldenPath(u"make.py"_s));
    m_home->prompt.ExpectTold(Text::BackupRefused);
    Commands().Restore();
    m_home->prompt.Finish();
    QVERIFY(m_home->prompt.told.last().contains(LoadText(Text::BackupDigestDiffers)));
    QVERIFY(m_home->prompt.told.last().contains(LoadText(Text::RestoreNothingChanged).trimmed()));
    QCOMPARE(StoreRows(*m_home), before);
    QCOMPARE(m_refreshed, 0);
}

void TestCBackupCommands::RestoreDeclined() {
    m_home->AddTime(2026, 11, 19);
    const QStringList before = StoreRows(*m_home);
    m_home->prompt.ExpectFile(GoldenPath(u"current.vbk"_s));
    m_home->prompt.Expect(Text::AskRestore, Answer::Yes);
    m_home->prompt.Expect(Text::AskRestoreSure, Answer::No);
    Commands().Restore();
    m_home->prompt.Finish();
    QCOMPARE(StoreRows(*m_home), before);
    QCOMPARE(QDir(m_home->Path()).entryList({u"before-restore-*"_s}), QStringList());
}

void TestCBackupCommands::RestoreFails() {
    m_home->AddTime(2026, 11, 19);
    const QStringList before = StoreRows(*m_home);
    m_home->prompt.ExpectFile(GoldenPath(u"twice.vbk"_s));
    m_home->prompt.Expect(Text::AskRestore, Answer::Yes);
    m_home->prompt.Expect(Text::AskRestoreSure, Answer::Yes);
    m_home->prompt.ExpectTold(Text::RestoreFailed);
    Commands().Restore();
    m_home->prompt.Finish();
    QCOMPARE(StoreRows(*m_home), before);
    QCOMPARE(m_refreshed, 1);
    QVERIFY(m_home->prompt.told.last().endsWith(LoadText(Text::RestoreUndone)));
}

/// No view may point to a record that is about to go.
void TestCBackupCommands::TheViewsAreClearedWhileItRuns() {
    m_home->AddTime(2026, 11, 19);
    m_home->document->LoadCurrentMode();
    m_home->document->BuildVisible();
    QCOMPARE(m_home->document->VisibleCount(), std::size_t{1});
    m_home->views.seen.clear();
    m_home->prompt.ExpectFile(GoldenPath(u"current.vbk"_s));
    m_home->prompt.Expect(Text::AskRestore, Answer::Yes);
    m_home->prompt.Expect(Text::AskRestoreSure, Answer::Yes);
    m_home->prompt.ExpectTold(Text::RestoreDone);
    Commands().Restore();
    m_home->prompt.Finish();
    QCOMPARE(m_home->views.seen.size(), 1);
    QCOMPARE(m_home->views.seen.first().first, Hint::Clear);
}

TEST_CLASS(TestCBackupCommands);
#include "TestCBackupCommands.moc"
