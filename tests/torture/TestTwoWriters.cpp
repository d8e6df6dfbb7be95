#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "platform/instance/CInstance.h"
#include "shell/frame/CEventPump.h"
#include "shell/frame/CMainFrame.h"
#include "shell/frame/ScriptedDialogs.h"
#include "support/CNotedLauncher.h"
#include "support/CScriptedPrompt.h"
#include "support/TestProgram.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/program/CInstanceHost.h"
#include "viewmodel/program/CViewHub.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kNewWithTimestamp = 32852;

/// Records that each side adds.
int PerSide() {
    return qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS") ? 5000 : 150;
}

/// The window as the program builds it, on a scratch home, answered by a prompt that fails the test at any
/// message.
class OpenWindow {
 public:
    explicit OpenWindow(const QString& home) : m_app({m_clock, m_prompt, m_pump, m_hub}) {
        isOpen = m_app.ResolveHome(home) &&
                 m_instance.Take(QString::fromLatin1(CVelmarchApp::kMutexName), m_app.Home()) ==
                     CInstance::Outcome::Taken &&
                 m_app.OpenSettings() && m_app.OpenStore();
        if (!isOpen) return;
        m_app.Settings().dialogOnQuickEntry = false;
        m_timers = std::make_unique<CRecordTimers>(m_timerSet, m_app.Document(), m_app.Settings());
        m_app.Document().SetTimers(m_timers.get());
        m_dialogs.edit = [](CVORec&) { return false; };
        frame = std::make_unique<CMainFrame>(
            CMainFrame::Context{m_app, *m_timers, m_hub, m_prompt, m_pump, m_clock, m_launcher, m_dialogs});
        m_host = std::make_unique<CInstanceHost>(CInstanceHost::Context{
            m_app.Document(), *m_timers, m_app.Settings(), [this] { frame->Refresh(); }, [] {}, [] {},
            [this] { return frame->IsBusy(); }, [] { return false; }, [this] { m_app.LoadLists(); }});
        isOpen = m_host->Listen(m_app.Home(), LoadText(Text::ProgramTitle));
        frame->show();
        frame->Refresh();
    }
    ~OpenWindow() {
        m_host.reset();
        frame.reset();
        if (isOpen) m_app.Document().SetTimers(nullptr);
    }

    [[nodiscard]] CVelmarchDoc& Document() { return m_app.Document(); }
    [[nodiscard]] CScriptedPrompt& Prompt() { return m_prompt; }

    bool isOpen = false;
    std::unique_ptr<CMainFrame> frame;

 private:
    CSystemClock m_clock;
    CScriptedPrompt m_prompt;
    CEventPump m_pump;
    CNotedLauncher m_launcher;
    ScriptedDialogs m_dialogs;
    CViewHub m_hub;
    CVelmarchApp m_app;
    CInstance m_instance;
    ActiveTimerSet m_timerSet{m_clock};
    std::unique_ptr<CRecordTimers> m_timers;
    std::unique_ptr<CInstanceHost> m_host;
};

/// Adds records by the console program, one after the other, while the event loop of the window goes on.
class ConsoleWriter : public QObject {
 public:
    ConsoleWriter(const QString& home, int count) : m_home(home), m_left(count) {
        connect(&m_program, &QProcess::finished, this, [this](int code) { Ended(code); });
    }
    void Start() {
        m_since.start();
        m_program.start(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"),
                        {u"--home"_s, m_home, u"--json"_s, u"time"_s, u"add"_s, u"--item1"_s, u"console"_s});
    }

    QSet<QString> ids;
    QStringList complaints;
    qint64 longestMs = 0;
    bool isDone = false;

 private:
    void Ended(int code) {
        longestMs = std::max(longestMs, m_since.elapsed());
        const QByteArray said = m_program.readAllStandardError();
        if (code != 0 || !said.isEmpty())
            complaints += QString::number(code) + u": "_s + QString::fromUtf8(said);
        ids.insert(QJsonDocument::fromJson(m_program.readAllStandardOutput())[u"id"_s].toString());
        isDone = --m_left == 0;
        if (!isDone) Start();
    }

    QString m_home;
    int m_left;
    QProcess m_program;
    QElapsedTimer m_since;
};

}  // namespace

/// Window and console add records to one store at the same time.
class TestTwoWriters : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void WindowAndConsoleAtOnce();
};

void TestTwoWriters::WindowAndConsoleAtOnce() {
    QTemporaryDir home;
    OpenWindow window(home.path());
    QVERIFY(window.isOpen);
    const int count = PerSide();

    ConsoleWriter console(home.path(), count);
    int windowAdds = 0;
    qint64 windowLongestMs = 0;
    QTimer adds;
    connect(&adds, &QTimer::timeout, this, [&] {
        QElapsedTimer since;
        since.start();
        window.frame->RunCommand(kNewWithTimestamp);
        windowLongestMs = std::max(windowLongestMs, since.elapsed());
        if (++windowAdds == count) adds.stop();
    });
    console.Start();
    adds.start(0);
    QTRY_VERIFY_WITH_TIMEOUT(console.isDone && windowAdds == count, 1000 * 60 * 60);

    QCOMPARE(console.complaints, QStringList());
    QCOMPARE(window.Prompt().told, QStringList());
    QCOMPARE(console.ids.size(), count);
    // The window shows what the console added as well, without being asked to refresh.
    QTRY_COMPARE_WITH_TIMEOUT(window.Document().RecordCount(), static_cast<std::size_t>(2 * count), 1000);
    // And the store holds it, read afresh.
    window.frame->Refresh();
    QCOMPARE(window.Document().RecordCount(), static_cast<std::size_t>(2 * count));
    for (const QString& id : console.ids) QVERIFY2(window.Document().FindRecord(id), qPrintable(id));
    qInfo("%d records each; longest wait: console %lld ms, window %lld ms", count, console.longestMs,
          windowLongestMs);
}

TEST_CLASS(TestTwoWriters);
#include "TestTwoWriters.moc"
