#include "lang/LoadText.h"
#include "platform/instance/CInstanceChannel.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The window's program on a home whose settings can't be written: at its end a box says so.
class EndingWindow {
 public:
    EndingWindow() {
        { const TestHome home(Home()); }
        RefuseWrites();
        program.start(QStringLiteral(TEST_BIN_DIR "/velmarch"), {u"--home"_s, Home()});
    }
    ~EndingWindow() {
        program.kill();
        program.waitForFinished();
    }
    EndingWindow(const EndingWindow&) = delete;
    EndingWindow& operator=(const EndingWindow&) = delete;

    [[nodiscard]] QString Home() const { return QFileInfo(m_folder.path()).canonicalFilePath(); }
    [[nodiscard]] bool IsFound() const {
        CInstanceClient client;
        return client.FindWindow(Home(), LoadText(Text::ProgramTitle));
    }
    /// What the window answers to a command; empty without an answer.
    [[nodiscard]] QString Answer(InstanceCommand command) const {
        CInstanceClient client;
        if (!client.FindWindow(Home(), LoadText(Text::ProgramTitle))) return {};
        const auto reply = client.Send({command});
        return reply ? reply->words : QString();
    }
    void Signal(int signal) const { ::kill(static_cast<pid_t>(program.processId()), signal); }
    /// The box stands as soon as commands are refused.
    [[nodiscard]] bool IsEnding() const {
        return Answer(InstanceCommand::SyncEnd) == LoadText(Text::WindowIsEnding);
    }
    [[nodiscard]] bool IsRunning() const { return program.state() == QProcess::Running; }
    /// Each signal closes the box that stands.
    [[nodiscard]] bool EndsBySignals() {
        for (int i = 0; i < 50 && !program.waitForFinished(100); ++i) Signal(SIGTERM);
        return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    }

    QProcess program;

 private:
    void RefuseWrites() const {
        CSqliteFile settings;
        [&] {
            QCOMPARE(settings.Open(Home() + u"/velmarch.settings"_s, CSettingsTree::kFileKind, false),
                     OpenOutcome::Existed);
            for (const char* change : {"INSERT", "UPDATE"})
                QVERIFY(settings.Execute(QByteArray("CREATE TRIGGER no_") + change + " BEFORE " + change +
                                         " ON entries BEGIN SELECT RAISE(FAIL, 'refused'); END"));
        }();
    }
    QTemporaryDir m_folder;
};

/// Another start, or a verb, that ends by itself.
int ExitOf(const QStringList& arguments, QString* said = nullptr) {
    QProcess program;
    program.start(QStringLiteral(TEST_BIN_DIR "/velmarch"), arguments);
    if (!program.waitForFinished()) return -1;
    if (said) *said = QString::fromUtf8(program.readAllStandardError());
    return program.exitCode();
}

}  // namespace

/// The end of the window's program while a box says that something can't be kept: whatever comes then finds
/// no window to work on, and must not need one.
class TestWindowEnd final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void ASecondSignalClosesTheBox() {
        EndingWindow window;
        QTRY_VERIFY(window.IsFound());
        window.Signal(SIGTERM);
        QTRY_VERIFY(window.IsEnding());
        QVERIFY(window.EndsBySignals());
    }

    void CommandsAreRefused_data() {
        QTest::addColumn<int>("command");
        QTest::newRow("a timer") << static_cast<int>(InstanceCommand::Timer);
        QTest::newRow("a setting") << static_cast<int>(InstanceCommand::Setting);
        QTest::newRow("the end") << static_cast<int>(InstanceCommand::Exit);
    }
    void CommandsAreRefused() {
        QFETCH(int, command);
        EndingWindow window;
        QTRY_VERIFY(window.IsFound());
        window.Signal(SIGTERM);
        QTRY_VERIFY(window.IsEnding());
        QCOMPARE(window.Answer(static_cast<InstanceCommand>(command)), LoadText(Text::WindowIsEnding));
        QVERIFY(window.IsRunning());
        QVERIFY(window.EndsBySignals());
    }

    void AnotherStartOnlyRaisesTheBox() {
        EndingWindow window;
        QTRY_VERIFY(window.IsFound());
        window.Signal(SIGTERM);
        QTRY_VERIFY(window.IsEnding());
        QCOMPARE(ExitOf({u"--home"_s, window.Home()}), 0);
        QTest::qWait(200);
        QVERIFY(window.IsRunning());
        QVERIFY(window.EndsBySignals());
    }

    void TheVerbIsRefused() {
        EndingWindow window;
        QTRY_VERIFY(window.IsFound());
        window.Signal(SIGTERM);
        QTRY_VERIFY(window.IsEnding());
        QString said;
        QCOMPARE(ExitOf({u"--home"_s, window.Home(), u"-shutdown"_s}, &said), 1);
        QCOMPARE(said.trimmed(), LoadText(Text::WindowIsEnding));
        QVERIFY(window.IsRunning());
        QVERIFY(window.EndsBySignals());
    }
};

TEST_CLASS(TestWindowEnd);
#include "TestWindowEnd.moc"
