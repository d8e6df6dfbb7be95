#include "platform/host/CInstallLocation.h"

#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

class TestCInstallLocation : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void cleanup();
    void read_data();
    void read();
    void readWithoutANote();
    void defaultPlace();
    void modulePath();
    void folderOf_data();
    void folderOf();

 private:
    void Note(const QString& below, const QByteArray& content);
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_configBefore;
    QByteArray m_homeBefore;
};

void TestCInstallLocation::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_configBefore = qgetenv("XDG_CONFIG_HOME");
    m_homeBefore = qgetenv("HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder->path()));
}

void TestCInstallLocation::cleanup() {
    qputenv("XDG_CONFIG_HOME", m_configBefore);
    qputenv("HOME", m_homeBefore);
}

void TestCInstallLocation::Note(const QString& below, const QByteArray& content) {
    const QString folder = m_folder->path() + below + u"/velmarch"_qs;
    QVERIFY(QDir().mkpath(folder));
    QFile file(folder + u"/DvVelSetup"_qs);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void TestCInstallLocation::read_data() {
    QTest::addColumn<QByteArray>("note");
    QTest::addColumn<bool>("known");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("reason");
    const QString absent = u"RegQueryValueEx\n\nNo such file or directory"_qs;
    const auto row = [&](const char* name, const QByteArray& note, const QString& directory) {
        QTest::newRow(name) << note << true << directory << QString();
    };
    row("the folder", "InstallLocation=/opt/velmarch\n", u"/opt/velmarch"_qs);
    row("in a section, with other values", "[General]\n; a remark\nVersion=8\nInstallLocation = /opt/v\n",
        u"/opt/v"_qs);
    row("a last line without an end", "InstallLocation=/opt/v", u"/opt/v"_qs);
    row("blanks, commas and equals signs within", "InstallLocation=/home/a b/c,d=e;f\n",
        u"/home/a b/c,d=e;f"_qs);
    row("umlauts and an emoji", "InstallLocation=/home/Jörg/\xF0\x9F\x95\x92\n", u"/home/Jörg/\U0001F552"_qs);
    row("in double quotes", "InstallLocation=\" /with \\\"quotes\\\" and \\\\ \"\n",
        u" /with \"quotes\" and \\ "_qs);
    row("lines of another system", "InstallLocation=/opt/v\r\n", u"/opt/v"_qs);
    row("an empty value is known", "InstallLocation=\n", QString());
    row("the first of two counts", "InstallLocation=/a\nInstallLocation=/b\n", u"/a"_qs);
    QTest::newRow("an empty note") << QByteArray() << false << QString() << absent;
    QTest::newRow("another value only") << QByteArray("Location=/a\n") << false << QString() << absent;
    QTest::newRow("case counts") << QByteArray("installlocation=/a\n") << false << QString() << absent;
    QTest::newRow("a value without a sign")
        << QByteArray("InstallLocation\n") << false << QString() << absent;
}

void TestCInstallLocation::read() {
    QFETCH(QByteArray, note);
    QFETCH(bool, known);
    QFETCH(QString, directory);
    QFETCH(QString, reason);
    Note(QString(), note);
    const InstalledPlace place = ReadInstallLocation();
    QCOMPARE(place.known, known);
    QCOMPARE(place.directory, directory);
    QCOMPARE(place.reason, reason);
}

void TestCInstallLocation::readWithoutANote() {
    InstalledPlace place = ReadInstallLocation();
    QVERIFY(!place.known);
    QCOMPARE(place.reason, u"RegOpenKeyEx\n\nNo such file or directory"_qs);
    QVERIFY(QDir(m_folder->path()).mkpath(u"velmarch/DvVelSetup"_qs));
    place = ReadInstallLocation();
    QVERIFY(!place.known);
    QVERIFY(place.reason.startsWith(u"RegOpenKeyEx\n\n"));
}

void TestCInstallLocation::defaultPlace() {
    qputenv("HOME", QFile::encodeName(m_folder->path()));
    Note(u"/.config"_qs, "InstallLocation=/from/home\n");
    qputenv("XDG_CONFIG_HOME", "");
    QCOMPARE(ReadInstallLocation().directory, u"/from/home"_qs);
    qputenv("XDG_CONFIG_HOME", "not/absolute");  // to be ignored, says the XDG Base Directory standard
    QCOMPARE(ReadInstallLocation().directory, u"/from/home"_qs);
}

void TestCInstallLocation::modulePath() {
    QCOMPARE(QFileInfo(ModulePath()).fileName(), u"tests_platform"_qs);
    QVERIFY(QFile::exists(ModulePath()));
}

void TestCInstallLocation::folderOf_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::newRow("a program in a folder") << u"/opt/velmarch/velmarch"_qs << u"/opt/velmarch"_qs;
    QTest::newRow("a program in the root has none") << u"/velmarch"_qs << QString();
    QTest::newRow("a bare name has none") << u"velmarch"_qs << QString();
    QTest::newRow("a path that ends in a separator") << u"/opt/"_qs << u"/opt"_qs;
    QTest::newRow("nothing") << QString() << QString();
}

void TestCInstallLocation::folderOf() {
    QFETCH(QString, path);
    QFETCH(QString, folder);
    QCOMPARE(FolderOf(path), folder);
}

TEST_CLASS(TestCInstallLocation);
#include "TestCInstallLocation.moc"
