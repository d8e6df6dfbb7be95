#include "RecordsFixture.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>
#include <QDirIterator>
#include <QFile>
#include <functional>

/// What is said about a store that can't be used, and that nothing is done to it.
class TestStoreOpening : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void Refused_data();
    void Refused();
    void Locked();
    void ReadOnly();
    void GoneWhileOpen_data();
    void GoneWhileOpen();
    void BackInPlace();
    void DamagedLater();
};

namespace {

using Prepare = std::function<void(const QString& path)>;

void Sql(const QString& path, const char* statements) {
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &db);
    if (sqlite3_exec(db, statements, nullptr, nullptr, nullptr) != SQLITE_OK)
        QTest::qFail(sqlite3_errmsg(db), __FILE__, __LINE__);
    sqlite3_close(db);
}

void WriteAt(const QString& path, qint64 offset, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(offset) || file.write(bytes) != bytes.size())
        QTest::qFail("the file could not be written", __FILE__, __LINE__);
}

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// The rights of someone else: root may write everything, so the test steps down for a while.
class CommonUser {
 public:
    CommonUser() : m_wasRoot(geteuid() == 0) {
        if (m_wasRoot && seteuid(65534) != 0) QTest::qFail("seteuid", __FILE__, __LINE__);
    }
    ~CommonUser() {
        if (m_wasRoot && seteuid(0) != 0) QTest::qFail("seteuid", __FILE__, __LINE__);
    }
    CommonUser(const CommonUser&) = delete;
    CommonUser& operator=(const CommonUser&) = delete;

 private:
    bool m_wasRoot;
};

}  // namespace

void TestStoreOpening::Refused_data() {
    QTest::addColumn<Prepare>("prepare");
    QTest::addColumn<bool>("mayCreate");
    QTest::addColumn<QString>("words");
    const auto row = [](const char* name, bool mayCreate, const char* words, Prepare prepare) {
        QTest::newRow(name) << std::move(prepare) << mayCreate << QString::fromLatin1(words);
    };
    row("missing and not to be created", false, "does not exist",
        [](const QString& path) { QFile::remove(path); });
    row("empty and not to be created", false, "is empty",
        [](const QString& path) { QFile::resize(path, 0); });
    row("no database", true, "not a file of this program", [](const QString& path) {
        QFile::resize(path, 0);
        WriteAt(path, 0, QByteArray("Dear diary, ").repeated(1000));
    });
    row("another program's database", true, "another program",
        [](const QString& path) { Sql(path, "PRAGMA application_id=1"); });
    row("made by a newer version", true, "newer version",
        [](const QString& path) { Sql(path, "PRAGMA user_version=2"); });
    row("damaged tables", true, "damaged",
        [](const QString& path) { WriteAt(path, 100, QByteArray(2000, '\xEE')); });
    row("cut off", true, "damaged", [](const QString& path) { QFile::resize(path, 1500); });
    row("a folder", true, "is a folder", [](const QString& path) {
        QFile::remove(path);
        QDir().mkpath(path);
    });
    row("in a folder that isn't there", true, "folder does not exist",
        [](const QString& path) { QDir(QFileInfo(path).path()).removeRecursively(); });
}

void TestStoreOpening::Refused() {
    QFETCH(Prepare, prepare);
    QFETCH(bool, mayCreate);
    QFETCH(QString, words);
    RecordsFixture home;
    home.manager.Close();
    prepare(home.Path());
    const QByteArray before = Content(home.Path());
    home.manager.m_mayCreate = mayCreate;
    eActionDisposition source{};
    eActionDisposition second{};
    QVERIFY(!home.manager.InitDataSrc(source, second));
    QVERIFY2(home.manager.m_error.contains(words), qPrintable(home.manager.m_error));
    QVERIFY(home.manager.m_errorCode != 0);
    QCOMPARE(Content(home.Path()), before);
    QVERIFY(!home.manager.Query(QStringLiteral("SELECT * FROM time_velmarch"), false));
    QVERIFY(!home.manager.InitDataSrcTable(QStringLiteral("t"), CTRecord()));
}

void TestStoreOpening::Locked() {
    RecordsFixture home;
    CVOSrcMgr other;
    QVERIFY(home.Open(other));
    QVERIFY(home.manager.File().Execute("BEGIN EXCLUSIVE"));
    QVERIFY(!other.Query(QStringLiteral("SELECT * FROM time_velmarch"), false));
    QVERIFY2(other.m_error.contains(QStringLiteral("Another program is using")), qPrintable(other.m_error));
    CVOSrcMgr third;
    QVERIFY(!home.Open(third));
    QVERIFY2(third.m_error.contains(QStringLiteral("Another program is using")), qPrintable(third.m_error));
    home.manager.File().Rollback();
    QVERIFY(home.Open(third));
}

void TestStoreOpening::ReadOnly() {
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    home.manager.Close();
    QCOMPARE(chmod(QFile::encodeName(home.folder.path()).constData(), 0555), 0);
    QCOMPARE(chmod(QFile::encodeName(home.Path()).constData(), 0444), 0);
    const QByteArray before = Content(home.Path());
    {
        const CommonUser user;
        CVOSrcMgr reader;
        QVERIFY2(home.Open(reader), qPrintable(reader.m_error));
        RowTable rows;
        QVERIFY(reader.Query(QStringLiteral("SELECT * FROM time_velmarch"), false));
        QVERIFY(reader.m_recordset->GetRows(rows));
        QCOMPARE(rows.RowCount(), std::size_t{1});
        QVERIFY(reader.Query(QStringLiteral("SELECT * FROM time_velmarch WHERE 0"), true));
        QVERIFY(!reader.Insert(NewTime()));
        QVERIFY2(reader.m_error.contains(QStringLiteral("read-only")), qPrintable(reader.m_error));
        QVERIFY(!reader.Query(QStringLiteral("DELETE FROM time_velmarch"), true));
        QVERIFY2(reader.m_error.contains(QStringLiteral("read-only")), qPrintable(reader.m_error));
        QVERIFY(!reader.HasOpenChanges());
    }
    QCOMPARE(chmod(QFile::encodeName(home.folder.path()).constData(), 0755), 0);
    QCOMPARE(Content(home.Path()), before);
}

void TestStoreOpening::GoneWhileOpen_data() {
    QTest::addColumn<Prepare>("prepare");
    QTest::newRow("deleted") << Prepare([](const QString& path) { QFile::remove(path); });
    QTest::newRow("moved") << Prepare([](const QString& path) { QFile::rename(path, path + u'2'); });
    QTest::newRow("replaced by a copy") << Prepare([](const QString& path) {
        QFile::copy(path, path + u'2');
        ::rename(QFile::encodeName(path + u'2').constData(), QFile::encodeName(path).constData());
    });
    QTest::newRow("its folder moved") << Prepare([](const QString& path) {
        const QString folder = QFileInfo(path).path();
        QDir().rename(folder, folder + u'2');
    });
}

void TestStoreOpening::GoneWhileOpen() {
    QFETCH(Prepare, prepare);
    RecordsFixture home;
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    prepare(home.Path());
    const QByteArray before = Content(home.Path());
    home.prompt.ExpectTold(Text::InsertQueryFailed);
    QVERIFY(!home.store.InsertRecord(NewTime(), Commit::Now));
    QVERIFY2(home.manager.m_error.contains(QStringLiteral("moved, deleted or replaced")),
             qPrintable(home.manager.m_error));
    home.prompt.ExpectTold(Text::DeleteFailed);
    QVERIFY(!home.store.DeleteRecord(RecordKind::Time, NewTime().GetId()));
    QVERIFY(!home.manager.BeginBatch());
    // No ghost is written, and no new file appears in its place.
    QCOMPARE(Content(home.Path()), before);
    QVERIFY(!home.manager.HasOpenChanges());
    QDir(home.folder.path() + u'2').removeRecursively();
}

void TestStoreOpening::BackInPlace() {
    RecordsFixture home;
    // Moved away between the change and its commit: the change is given up, and what follows is stored.
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Later));
    QVERIFY(QFile::rename(home.Path(), home.Path() + u'2'));
    home.prompt.ExpectTold(Text::CommitFailed);
    QVERIFY(!home.store.Commit());
    QVERIFY(!home.manager.HasOpenChanges());
    QVERIFY(QFile::rename(home.Path() + u'2', home.Path()));
    QVERIFY(home.store.Commit());
    QCOMPARE(home.TimeRows(), 0);
    QVERIFY(home.store.InsertRecord(NewTime(), Commit::Now));
    QCOMPARE(home.TimeRows(), 1);
}

void TestStoreOpening::DamagedLater() {
    RecordsFixture home;
    for (int i = 0; i < 200; ++i) {
        CTRecord record = NewTime();
        record.notes = QString(200, u'n');
        QVERIFY(home.store.InsertRecord(record, Commit::Later));
    }
    QVERIFY(home.store.Commit());
    home.manager.Close();
    // A page of the table in the middle of the file.
    WriteAt(home.Path(), 16L * 4096, QByteArray(4096, '\xEE'));
    QVERIFY(home.Open(home.manager));
    RowTable rows;
    const bool isRead = home.manager.Query(QStringLiteral("SELECT * FROM time_velmarch"), false) &&
                        home.manager.m_recordset->GetRows(rows);
    QVERIFY(!isRead);
    QVERIFY(!home.manager.File().IntegrityReport().isEmpty());
}

TEST_CLASS(TestStoreOpening);
#include "TestStoreOpening.moc"
