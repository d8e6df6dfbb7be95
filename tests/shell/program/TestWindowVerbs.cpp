#include "lang/LoadText.h"
#include "platform/instance/CInstanceChannel.h"
#include "support/TestProgram.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The verbs of the window's program, with a window of the home that answers as the row says.
class TestWindowVerbs final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Shutdown_data();
    void Shutdown();
    void ShutdownWithoutAWindow();
};

void TestWindowVerbs::Shutdown_data() {
    QTest::addColumn<bool>("isCarriedOut");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("said");
    QTest::newRow("the window leaves") << true << 0 << QString();
    QTest::newRow("the window refuses, and says why") << false << 1 << u"A dialog is open.\n"_s;
}

void TestWindowVerbs::Shutdown() {
    QFETCH(bool, isCarriedOut);
    QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
    const QTemporaryDir home;
    const QString path = QFileInfo(home.path()).canonicalFilePath();
    CInstanceServer window;
    QVERIFY(window.Listen(path, LoadText(Text::ProgramTitle), [&](const InstanceMessage&) {
        return isCarriedOut ? InstanceReply::Done()
                            : InstanceReply::Refused(ReplyReason::WindowOwns, u"A dialog is open."_s);
    }));
    QProcess program;
    program.start(QStringLiteral(TEST_BIN_DIR "/velmarch"), {u"--home"_s, path, u"-shutdown"_s});
    QTRY_COMPARE(program.state(), QProcess::NotRunning);
    QTEST(program.exitCode(), "exit");
    QTEST(QString::fromUtf8(program.readAllStandardError()), "said");
}

void TestWindowVerbs::ShutdownWithoutAWindow() {
    const QTemporaryDir home;
    QProcess program;
    program.start(QStringLiteral(TEST_BIN_DIR "/velmarch"), {u"--home"_s, home.path(), u"-shutdown"_s});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 0);
}

TEST_CLASS(TestWindowVerbs);
#include "TestWindowVerbs.moc"
