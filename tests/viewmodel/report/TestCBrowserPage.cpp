#include "viewmodel/report/CBrowserPage.h"

#include "lang/LoadText.h"
#include "support/CNotedLauncher.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The file that the desktop was asked to open.
QString OpenedBy(const CNotedLauncher& launcher) {
    return launcher.started.section(u' ', 1);
}

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class TestCBrowserPage final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void OpensThePageInTheDesktopsProgram() {
        CNotedLauncher launcher;
        launcher.programs = QStringList{u"xdg-open"_s};
        CBrowserPage browser(launcher);
        QVERIFY(browser.Open("<p>one</p>").written);
        const QString path = OpenedBy(launcher);
        QCOMPARE(Bytes(path), QByteArray("<p>one</p>"));
        QVERIFY(path.endsWith(u".html"_s));
    }

    void NobodyElseMayReadIt() {
        CNotedLauncher launcher;
        launcher.programs = QStringList{u"xdg-open"_s};
        CBrowserPage browser(launcher);
        QVERIFY(browser.Open("x").written);
        const QFileInfo file(OpenedBy(launcher));
        QCOMPARE(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        const QFileInfo folder(file.path());
        QCOMPARE(folder.permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther),
                 QFile::Permissions());
    }

    void ThePageBeforeStaysAsItIs() {
        CNotedLauncher launcher;
        launcher.programs = QStringList{u"xdg-open"_s};
        CBrowserPage browser(launcher);
        QVERIFY(browser.Open("one").written);
        const QString first = OpenedBy(launcher);
        QVERIFY(browser.Open("two").written);
        QCOMPARE(Bytes(first), QByteArray("one"));
        QCOMPARE(Bytes(OpenedBy(launcher)), QByteArray("two"));
    }

    void PagesGoWithTheProgram() {
        CNotedLauncher launcher;
        launcher.programs = QStringList{u"xdg-open"_s};
        {
            CBrowserPage browser(launcher);
            QVERIFY(browser.Open("x").written);
            QVERIFY(QFile::exists(OpenedBy(launcher)));
        }
        QVERIFY(!QFile::exists(OpenedBy(launcher)));
    }

    void WithoutABrowser_data() {
        QTest::addColumn<QStringList>("programs");
        QTest::addColumn<bool>("starts");
        QTest::newRow("the desktop has no program for it") << QStringList() << true;
        QTest::newRow("it can't be started") << QStringList{u"xdg-open"_s} << false;
    }
    void WithoutABrowser() {
        QFETCH(QStringList, programs);
        CNotedLauncher launcher;
        launcher.programs = programs;
        QFETCH(bool, starts);
        launcher.starts = starts;
        CBrowserPage browser(launcher);
        const FileOutcome outcome = browser.Open("x");
        QVERIFY(!outcome.written);
        QCOMPARE(outcome.error, u"No browser could be started. Save the page and open it from there."_s);
    }
};

TEST_CLASS(TestCBrowserPage);
#include "TestCBrowserPage.moc"
