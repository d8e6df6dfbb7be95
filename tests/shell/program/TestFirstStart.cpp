#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/instance/CInstanceChannel.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

/// The window's program on a home in which nobody has worked: it opens with the guide.
class TestFirstStart final : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcess m_program;

    [[nodiscard]] QString Home() const { return QFileInfo(m_folder->path()).canonicalFilePath(); }
    void Start() { m_program.start(QStringLiteral(TEST_BIN_DIR "/velmarch"), {u"--home"_s, Home()}); }
    /// While a dialog is open, another process can't end the window.
    [[nodiscard]] bool HasDialog() const {
        CInstanceClient client;
        if (!client.FindWindow(Home(), LoadText(Text::ProgramTitle))) return false;
        const auto reply = client.Send({InstanceCommand::Exit});
        return reply && !*reply;
    }
    [[nodiscard]] int FirstSteps() const { return TestHome(Home()).settings->firstSteps; }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() {
        m_program.kill();
        m_program.waitForFinished();
    }

    /// Killed or ended meanwhile, nothing is decided: it comes again.
    void TheGuideComesUntilItIsDone_data() {
        QTest::addColumn<int>("signal");
        QTest::newRow("the session ends") << SIGTERM;
        QTest::newRow("killed") << SIGKILL;
    }
    void TheGuideComesUntilItIsDone() {
        QFETCH(int, signal);
        for (int start = 0; start < 2; ++start) {
            Start();
            QTRY_VERIFY_WITH_TIMEOUT(HasDialog(), 20000);
            ::kill(static_cast<pid_t>(m_program.processId()), signal);
            QVERIFY(m_program.waitForFinished());
        }
        QCOMPARE(FirstSteps(), 1);
    }

    /// A window that is killed in its first minute has left its place, its period and its few buttons.
    void KilledItHasKeptItsLayout() {
        { const TestHome console(Home()); }
        Start();
        const auto keeps = [this] {
            TestHome home(Home());
            home.settings->KeepStoreUntouched();
            return home.settings->listLayout == 3 &&
                   home.profile->GetBinary(LoadText(Text::SectionWindow), LoadText(Text::EntryGeometry)) &&
                   home.profile->GetText(LoadText(Text::SectionPeriod), LoadText(Text::EntryVisible));
        };
        QTRY_VERIFY_WITH_TIMEOUT(keeps(), 20000);
        ::kill(static_cast<pid_t>(m_program.processId()), SIGKILL);
        QVERIFY(m_program.waitForFinished());
        QVERIFY(keeps());
    }

    void AHomeThatTheConsoleHasMadeHasNoGuide() {
        QCOMPARE(FirstSteps(), 0);
        Start();
        // The window takes the command as soon as nothing is in front of it.
        QVERIFY(m_program.waitForStarted());
        const auto isEnded = [this] {
            static_cast<void>(HasDialog());
            m_program.waitForFinished(100);
            return m_program.state() == QProcess::NotRunning;
        };
        QTRY_VERIFY_WITH_TIMEOUT(isEnded(), 20000);
        QCOMPARE(m_program.exitCode(), 0);
    }
};

TEST_CLASS(TestFirstStart);
#include "TestFirstStart.moc"
