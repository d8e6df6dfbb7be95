#include "cli/home/ConsoleHome.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool PutBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray WithDigest(const QByteArray& rest) {
    return QCryptographicHash::hash(rest, QCryptographicHash::Md5) + rest;
}

QStringList FilesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

}  // namespace

/// backup, verify and restore as scripts use them.
class TestBackupCommands : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void init();
    void ABackupInJson();
    void InWords();
    void VerifyTouchesNoHome();
    void VerifyRefuses_data();
    void VerifyRefuses();
    void ThereAndBack();
    void UnansweredNothingHappens();
    void IntoAHomeThatIsntThere();
    void ARefusedFileMakesNoHome();
    void TargetsOfABackup_data();
    void TargetsOfABackup();
    void ALinkIsReplaced();
    void NoHomeIsMade();
    void AnEmptyBackupOverAnother();
    void TimersOfRecordsThatAreGone();

 private:
    [[nodiscard]] QString File(const QString& name) const { return m_folder->filePath(name); }
    std::unique_ptr<ConsoleHome> m_home;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestBackupCommands::init() {
    m_home = std::make_unique<ConsoleHome>();
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestBackupCommands::ABackupInJson() {
    m_home->Add(Words(u"--date 2026-11-19 --start 09:00 --end 17:00 --item1 Acme"_s));
    m_home->AddExpense(Words(u"--date 2026-11-19 --amount 12"_s));
    QCOMPARE(m_home->Run(Words(u"items add 17 Plan"_s)).exit, 0);
    const Reply reply = m_home->RunJson({u"backup"_s, File(u"b.vbk"_s)});
    QCOMPARE(reply.exit, 0);
    const QJsonObject json = reply.Object();
    QCOMPARE(json.keys(), (QStringList{u"counts"_s, u"file"_s, u"records"_s, u"time"_s}));
    QCOMPARE(json[u"file"_s].toString(), File(u"b.vbk"_s));
    const QJsonObject counts = json[u"counts"_s].toObject();
    QCOMPARE(counts[u"time"_s].toInt(), 1);
    QCOMPARE(counts[u"expense"_s].toInt(), 1);
    QVERIFY(counts[u"items"_s].toInt() >= 1);
    QCOMPARE(json[u"records"_s].toInt(), 2 + counts[u"items"_s].toInt() + counts[u"dependencies"_s].toInt());
    const auto time = QDateTime::fromString(json[u"time"_s].toString(), u"yyyy-MM-ddTHH:mm:ss"_s);
    QVERIFY(time.isValid() && qAbs(time.secsTo(QDateTime::currentDateTime())) < 120);
    struct stat status {};
    QCOMPARE(::stat(qPrintable(File(u"b.vbk"_s)), &status), 0);
    QCOMPARE(status.st_mode & 0777U, 0600U);
    QCOMPARE(FilesIn(m_folder->path()), QStringList(u"b.vbk"_s));
    QCOMPARE(ConsoleHome::RunBare({u"--json"_s, u"verify"_s, File(u"b.vbk"_s)}).Object(), json);
}

void TestBackupCommands::InWords() {
    m_home->Add({});
    const Reply backup = m_home->Run({u"backup"_s, File(u"b.vbk"_s)});
    QVERIFY2(backup.out.startsWith("Saved in "), backup.out.constData());
    QVERIFY2(backup.out.contains("1 times"), backup.out.constData());
    QVERIFY(m_home->Run({u"verify"_s, File(u"b.vbk"_s)}).out.contains("sound"));
}

void TestBackupCommands::VerifyTouchesNoHome() {
    m_home->Add({});
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    const QString home = File(u"no-home"_s);
    QCOMPARE(ConsoleHome::RunBare({u"--home"_s, home, u"verify"_s, File(u"b.vbk"_s)}).exit, 0);
    QVERIFY(!QFileInfo::exists(home));
}

void TestBackupCommands::VerifyRefuses_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Text>("reason");
    QTest::newRow("an empty file") << QByteArray() << Text::BackupLacksDigest;
    QTest::newRow("notes") << QByteArray("these are notes, not a backup") << Text::BackupDigestDiffers;
    QTest::newRow("forty bytes") << WithDigest(QByteArray::fromHex("c800000002000000") + QByteArray(16, '\0'))
                                 << Text::BackupEndMissing;
}

void TestBackupCommands::VerifyRefuses() {
    QFETCH(QByteArray, bytes);
    QFETCH(Text, reason);
    QVERIFY(PutBytes(File(u"b.vbk"_s), bytes));
    const Reply reply = ConsoleHome::RunBare({u"verify"_s, File(u"b.vbk"_s)});
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains(LoadText(reason).toUtf8()), reply.err.constData());
    QCOMPARE(ConsoleHome::RunBare({u"verify"_s, File(u"none.vbk"_s)}).exit, 4);
    const Reply folder = ConsoleHome::RunBare({u"verify"_s, File({})});
    QCOMPARE(folder.exit, 1);
    QVERIFY2(folder.err.contains("Is a directory"), folder.err.constData());
}

void TestBackupCommands::ThereAndBack() {
    const QString first = m_home->Add(Words(u"--item1 Acme"_s));
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    const QJsonObject before = m_home->Show(first);
    const QString second = m_home->Add(Words(u"--item1 Beta"_s));
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"delete"_s, first}).exit, 0);

    const Reply reply = m_home->RunJson({u"restore"_s, File(u"b.vbk"_s), u"--yes"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(m_home->Show(first), before);
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, second}).exit, 4);
    const QString copy = reply.Object()[u"safetyCopy"_s].toString();
    QCOMPARE(QFileInfo(copy).path(), QFileInfo(m_home->Path()).canonicalFilePath());
    // The copy holds what was there before.
    QCOMPARE(m_home->Run({u"--yes"_s, u"restore"_s, copy}).exit, 0);
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, second}).exit, 0);
    QCOMPARE(m_home->Run({u"time"_s, u"show"_s, first}).exit, 4);
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestBackupCommands::UnansweredNothingHappens() {
    const QString id = m_home->Add({});
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    const QString other = m_home->Add({});
    const QByteArray store = BytesOf(m_home->File(u"velmarch.store"_s));
    QCOMPARE(m_home->Run({u"restore"_s, File(u"b.vbk"_s)}).exit, 1);
    QCOMPARE(BytesOf(m_home->File(u"velmarch.store"_s)), store);
    QCOMPARE(FilesIn(m_home->Path()).filter(u"before-restore"_s), QStringList());
}

void TestBackupCommands::IntoAHomeThatIsntThere() {
    const QString id = m_home->Add(Words(u"--item1 Acme"_s));
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    const QString home = File(u"new"_s);
    const Reply reply =
        ConsoleHome::RunBare({u"--json"_s, u"--home"_s, home, u"--yes"_s, u"restore"_s, File(u"b.vbk"_s)});
    QCOMPARE(reply.exit, 0);
    QVERIFY(reply.Object()[u"safetyCopy"_s].isNull());
    QCOMPARE(ConsoleHome::RunBare({u"--home"_s, home, u"time"_s, u"show"_s, id}).exit, 0);
}

void TestBackupCommands::ARefusedFileMakesNoHome() {
    QVERIFY(PutBytes(File(u"b.vbk"_s), "no backup at all, just some words"));
    const QString home = File(u"new"_s);
    const Reply reply = ConsoleHome::RunBare({u"--home"_s, home, u"--yes"_s, u"restore"_s, File(u"b.vbk"_s)});
    QCOMPARE(reply.exit, 1);
    QVERIFY(reply.err.contains(LoadText(Text::BackupDigestDiffers).toUtf8()));
    QVERIFY(!QFileInfo::exists(home));
    QCOMPARE(ConsoleHome::RunBare({u"--home"_s, home, u"--yes"_s, u"restore"_s, File(u"none"_s)}).exit, 4);
}

void TestBackupCommands::TargetsOfABackup_data() {
    QTest::addColumn<QString>("target");  // %1: the home, %2: another folder
    QTest::addColumn<int>("exit");
    QTest::newRow("the store") << u"%1/velmarch.store"_s << 2;
    QTest::newRow("the settings, by way of the parent") << u"%1/../%3/velmarch.settings"_s << 2;
    QTest::newRow("a journal") << u"%1/velmarch.store-journal"_s << 2;
    QTest::newRow("a folder") << u"%2"_s << 1;
    QTest::newRow("a folder that isn't there") << u"%2/nowhere/b.vbk"_s << 1;
    QTest::newRow("a name that ends with a slash") << u"%2/b.vbk/"_s << 1;
    QTest::newRow("a device") << u"/dev/null"_s << 1;
    QTest::newRow("in the home") << u"%1/b.vbk"_s << 0;
}

void TestBackupCommands::TargetsOfABackup() {
    QFETCH(QString, target);
    QFETCH(int, exit);
    m_home->Add({});
    const QByteArray store = BytesOf(m_home->File(u"velmarch.store"_s));
    target.replace(u"%1"_s, m_home->Path()).replace(u"%2"_s, m_folder->path());
    target.replace(u"%3"_s, QDir(m_home->Path()).dirName());
    const Reply reply = m_home->Run({u"backup"_s, target});
    QVERIFY2(reply.exit == exit, reply.err.constData());
    QCOMPARE(BytesOf(m_home->File(u"velmarch.store"_s)), store);
    QCOMPARE(FilesIn(m_folder->path()), QStringList());
}

void TestBackupCommands::ALinkIsReplaced() {
    m_home->Add({});
    QVERIFY(PutBytes(File(u"notes"_s), "notes"));
    QVERIFY(QFile::link(File(u"notes"_s), File(u"b.vbk"_s)));
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    QCOMPARE(BytesOf(File(u"notes"_s)), QByteArray("notes"));
    QVERIFY(!QFileInfo(File(u"b.vbk"_s)).isSymLink());
}

void TestBackupCommands::NoHomeIsMade() {
    QVERIFY(PutBytes(File(u"b.vbk"_s), "old"));
    const QString home = File(u"new"_s);
    QCOMPARE(ConsoleHome::RunBare({u"--home"_s, home, u"backup"_s, File(u"b.vbk"_s)}).exit, 4);
    QVERIFY(!QFileInfo::exists(home));
    // A folder without a store.
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 4);
    QCOMPARE(FilesIn(m_home->Path()), QStringList());
    QCOMPARE(BytesOf(File(u"b.vbk"_s)), QByteArray("old"));
}

void TestBackupCommands::AnEmptyBackupOverAnother() {
    const QString id = m_home->Add({});
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    const QByteArray good = BytesOf(File(u"b.vbk"_s));
    QCOMPARE(m_home->Run({u"--yes"_s, u"time"_s, u"delete"_s, id}).exit, 0);
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 1);
    QCOMPARE(BytesOf(File(u"b.vbk"_s)), good);
    QCOMPARE(m_home->Run({u"backup"_s, File(u"other.vbk"_s)}).exit, 0);
    QCOMPARE(m_home->Run({u"--yes"_s, u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    QCOMPARE(BytesOf(File(u"b.vbk"_s)).size(), 56);
}

void TestBackupCommands::TimersOfRecordsThatAreGone() {
    const QString stays = m_home->Add({});
    QCOMPARE(m_home->Run({u"backup"_s, File(u"b.vbk"_s)}).exit, 0);
    const QString goes = m_home->Add({});
    for (const QString& id : {stays, goes}) QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, id}).exit, 0);
    const Reply reply = m_home->Run({u"--yes"_s, u"restore"_s, File(u"b.vbk"_s)});
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("dropped: 1"), reply.err.constData());
    const QJsonArray timers = m_home->RunJson({u"timer"_s, u"status"_s}).Array();
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().toObject()[u"id"_s].toString(), stays);
}

TEST_CLASS(TestBackupCommands);
#include "TestBackupCommands.moc"
