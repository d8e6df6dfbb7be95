#include "exchange/backup/MakeBackup.h"

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "exchange/backup/CSecondSource.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestMakeBackup : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void init();
    void FilesOfTheHome_data();
    void FilesOfTheHome();
    void AnEmptyOneOverAnOther_data();
    void AnEmptyOneOverAnOther();
    void ADamagedRecord_data();
    void ADamagedRecord();

 private:
    [[nodiscard]] BackupOutcome Make();
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestMakeBackup::init() {
    m_home.reset();
    m_home = std::make_unique<TestHome>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"b.vbk"_s);
}

BackupOutcome TestMakeBackup::Make() {
    CSecondSource source(m_home->Path(), m_home->prompt);
    if (!source.Open()) return {.error = source.Manager().m_error, .content = {}};
    CNoProgress progress;
    return MakeBackup({source, m_home->prompt, m_home->clock, progress}, m_path);
}

void TestMakeBackup::FilesOfTheHome_data() {
    QTest::addColumn<QString>("path");  // %1: the home, %2: a link to it
    QTest::addColumn<bool>("isOfHome");
    QTest::newRow("the store") << u"%1/velmarch.store"_s << true;
    QTest::newRow("the settings") << u"%1/velmarch.settings"_s << true;
    QTest::newRow("the history") << u"%1/velmarch.history"_s << true;
    QTest::newRow("the store's journal") << u"%1/velmarch.store-journal"_s << true;
    QTest::newRow("the settings' journal") << u"%1/velmarch.settings-journal"_s << true;
    QTest::newRow("with dots") << u"%1/../%3/./velmarch.store"_s << true;
    QTest::newRow("through a link to the home") << u"%2/velmarch.store"_s << true;
    QTest::newRow("beside them") << u"%1/velmarch.store.vbk"_s << false;
    QTest::newRow("the same name elsewhere") << u"/tmp/velmarch.store"_s << false;
    QTest::newRow("a folder that isn't there") << u"/nowhere/velmarch.store"_s << false;
}

void TestMakeBackup::FilesOfTheHome() {
    QFETCH(QString, path);
    QFETCH(bool, isOfHome);
    const QString link = m_folder->filePath(u"link"_s);
    QVERIFY(QFile::link(m_home->Path(), link));
    const QString full = QString(path)
                             .replace(u"%1"_s, m_home->Path())
                             .replace(u"%2"_s, link)
                             .replace(u"%3"_s, QDir(m_home->Path()).dirName());
    QCOMPARE(IsFileOfHome(m_home->Path(), full), isOfHome);
}

void TestMakeBackup::AnEmptyOneOverAnOther_data() {
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<std::optional<Answer>>("answer");
    QTest::addColumn<bool>("isWritten");
    const std::optional<Answer> none;
    QTest::newRow("over one with records: no")
        << GoldenFile(u"current.vbk"_s) << std::optional(Answer::No) << false;
    QTest::newRow("over one with records: yes")
        << GoldenFile(u"current.vbk"_s) << std::optional(Answer::Yes) << true;
    QTest::newRow("over an empty one") << GoldenFile(u"empty.vbk"_s) << none << true;
    QTest::newRow("over something else") << QByteArray("notes") << none << true;
    QTest::newRow("over nothing") << QByteArray() << none << true;
}

void TestMakeBackup::AnEmptyOneOverAnOther() {
    QFETCH(QByteArray, old);
    QFETCH(std::optional<Answer>, answer);
    QFETCH(bool, isWritten);
    if (!old.isEmpty()) QVERIFY(PutBytes(m_path, old));
    if (answer) m_home->prompt.Expect(Text::AskBackupEmpty, *answer);
    const BackupOutcome outcome = Make();
    m_home->prompt.Finish();
    QCOMPARE(bool(outcome), isWritten);
    QCOMPARE(outcome.isCancelled, !isWritten);
    QCOMPARE(BytesOf(m_path) == old, !isWritten);
}

void TestMakeBackup::ADamagedRecord_data() {
    QTest::addColumn<Answer>("answer");
    QTest::newRow("no") << Answer::No;
    QTest::newRow("all the same") << Answer::Yes;
}

/// A row that isn't as it was written: its checksum says so.
void TestMakeBackup::ADamagedRecord() {
    QFETCH(Answer, answer);
    QVERIFY(FillLikeGolden(*m_home));
    QVERIFY(m_home->manager.File().Execute("UPDATE time_velmarch_checks SET sum=sum+1"));
    m_home->prompt.Expect(Text::AskBackupDamaged, answer);
    const BackupOutcome outcome = Make();
    m_home->prompt.Finish();
    QCOMPARE(bool(outcome), answer == Answer::Yes);
    QCOMPARE(QFile::exists(m_path), answer == Answer::Yes);
}

TEST_CLASS(TestMakeBackup);
#include "TestMakeBackup.moc"
