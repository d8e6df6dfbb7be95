#include "shell/program/CWindowProgram.h"

#include "app/CVelmarchApp.h"
#include "app/HomeFiles.h"
#include "entry/CEnteredItems.h"
#include "exchange/backup/BackupPlan.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CInstallLocation.h"
#include "platform/host/CLauncher.h"
#include "platform/instance/CInstanceChannel.h"
#include "shell/controls/CBoxPrompt.h"
#include "shell/frame/CAboutDialog.h"
#include "shell/frame/CEventPump.h"
#include "shell/frame/CMainFrame.h"
#include "shell/frame/CProgressBox.h"
#include "shell/frame/CWaitBox.h"
#include "shell/look/IconTheme.h"
#include "shell/look/LegiblePalette.h"
#include "shell/program/AccessibleRoles.h"
#include "shell/program/COutsideControl.h"
#include "shell/program/CQuitSignals.h"
#include "shell/program/CSingleWindow.h"
#include "shell/program/CWindowDialogs.h"
#include "shell/record/OfferDrafts.h"
#include "timers/CRecordTimers.h"
#include "timers/LostTimers.h"
#include "timers/PausedAtExit.h"
#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/guide/CGuide.h"
#include "viewmodel/program/CDamagedStore.h"
#include "viewmodel/program/CInstanceHost.h"
#include "viewmodel/program/CStartCheck.h"
#include "viewmodel/program/CViewHub.h"
#include "viewmodel/program/NewWindow.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kUsage = 2;

void Print(std::FILE* stream, const QString& text) {
    const QByteArray line = text.toLocal8Bit() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stream);
}

/// The library lies beside the program; the application object that knows where isn't made yet.
QString ProgramFolder() {
    return FolderOf(ModulePath());
}

bool HasDisplay(const QStringList& arguments) {
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || arguments.contains(u"-platform"_s);
}

/// A display that is named but can't be reached: Qt would abort, with advice for its own developers.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        Print(stderr, LoadText(Text::NoDisplay));
        std::_Exit(kFailed);
    }
    if (!QByteArray(context.category).startsWith("qt.qpa")) Print(stderr, message);
}

/// The window works all the same, but the console has to do without it.
void TellUnheard(CPrompt& prompt, const QString& why) {
    prompt.Tell({.textId = static_cast<int>(Text::ChannelFailed),
                 .title = LoadText(Text::ProgramTitle),
                 .text = FormatText<Text::ChannelFailed>(why),
                 .icon = BoxIcon::Warning,
                 .actionLabel = {}});
}

/// Where the settings were found damaged just now, the user was told then.
void TellLoss(CVelmarchApp& app, CRecordTimers& timers, CPrompt& prompt) {
    const bool isTold = !app.Tree().KeptAside().isEmpty() || HasTimers(app.Tree().DamagedValues());
    isTold ? timers.ForgetLoss() : TellLostTimers(timers, prompt);
}

/// What all windows of the program have in common.
void PrepareApplication() {
    InstallAccessibleRoles();
    QApplication::setApplicationName(LoadText(Text::ProgramTitle));
    QApplication::setDesktopFileName(u"velmarch"_s);
    MakePaletteLegible();
    ChooseIconTheme();
}

/// Backups by themselves: a while after the start, and every hour, as a window may stay open for weeks.
class CBackupTimer {
 public:
    CBackupTimer(CVelmarchApp& app, CPrompt& prompt, const CClock& clock, CMainFrame& frame,
                 COutsideControl& control)
        : m_progress(frame),
          m_backups({app.Home(), app.Document(), app.Settings().Profile(), prompt, clock, m_progress}) {
        const auto run = [this, &control] { control.WhenFree([this] { m_backups.RunIfDue(); }); };
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, run);
        QTimer::singleShot(10s, &m_timer, run);
        m_timer.start(1h);
    }

 private:
    CProgressBox m_progress;
    CAutomaticBackups m_backups;
    QTimer m_timer;
};

RecordDialogContext DialogContext(CVelmarchApp& app, CRecordTimers& timers, CEnteredItems& entered,
                                  CPrompt& prompt, const CClock& clock) {
    return {.document = app.Document(),
            .timers = timers,
            .settings = app.Settings(),
            .prompt = prompt,
            .clock = clock,
            .catalogue = app.Catalogue(),
            .entered = entered};
}

/// Neither settings nor records: nobody has worked here.
bool IsNewHome(const QString& home) {
    return !QFileInfo::exists(SettingsPath(home)) && !QFileInfo::exists(StorePath(home));
}

/// A while after the start, when the first clicks are done.
void LookOverLater(CStartCheck& check, QObject* context, const QString& home) {
    QTimer::singleShot(3s, context,
                       [&check, home] { check.Begin(ProgramFolder() + u"/velmarch-cli"_s, home); });
}

}  // namespace

/// A home that is open, and what its window works with.
struct CWindowProgram::Opened {
    CVelmarchApp& app;
    CSingleWindow& single;
    CWaitBudget& budget;
    CClock& clock;
    CPrompt& prompt;
    CEventPump& pump;
    CViewHub& hub;
};

CWindowProgram::CWindowProgram(int& argc, char** argv) : m_argc(argc), m_argv(argv) {}

int CWindowProgram::Run() {
    if (!LoadLanguageLibrary(ProgramFolder())) return kFailed;  // there is no text to say why
    QStringList arguments;
    for (int i = 1; i < m_argc; ++i) arguments.append(QString::fromLocal8Bit(m_argv[i]));
    const bool isClear = ReadOptions(arguments);
    if (FindVerb(arguments)) return RunVerb(arguments);
    if (!isClear) {
        Print(stderr, m_complaint);
        return kUsage;
    }
    if (m_wantsHelp || m_wantsVersion) return RunConsolePart();
    if (!HasDisplay(arguments)) {
        Print(stderr, LoadText(Text::NoDisplay));
        return kFailed;
    }
    return RunWindow();
}

/// What Qt knows (-style, -platform and so on) is left to it.
bool CWindowProgram::ReadOptions(const QStringList& arguments) {
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& token = arguments[i];
        if (token == u"--help"_s || token == u"-h"_s) {
            m_wantsHelp = true;
        } else if (token == u"--version"_s) {
            m_wantsVersion = true;
        } else if (token.startsWith(u"--home="_s)) {
            m_home = token.mid(7);
        } else if (token == u"--home"_s && i + 1 < arguments.size()) {
            m_home = arguments[++i];
        } else if (token == u"--home"_s) {
            m_complaint = LoadText(Text::HomeNeedsFolder);
        } else if (token.startsWith(u"--"_s)) {
            m_complaint = FormatText<Text::UnknownOption>(token);
        }
    }
    return m_complaint.isEmpty();
}

int CWindowProgram::RunConsolePart() {
    Print(stdout,
          m_wantsHelp ? LoadText(Text::HelpUsage) : LoadText(Text::ProgramTitle) + u' ' + VersionLine());
    return kDone;
}

/// A verb acts on the window of this home if there is one, and ends in silence if there is none.
int CWindowProgram::RunVerb(const QStringList& arguments) const {
    const Verb verb = *FindVerb(arguments);
    // Nothing has to be registered with a synchronisation here.
    if (verb == Verb::RegisterSync) return kDone;
    const QString named = m_home.isEmpty() ? qEnvironmentVariable("VELMARCH_HOME") : m_home;
    const QString home = named.isEmpty() ? ReadInstallLocation().directory : QDir(named).canonicalPath();
    CInstanceClient other;
    if (home.isEmpty() || !other.FindWindow(home, LoadText(Text::ProgramTitle))) return kDone;
    if (verb != Verb::Shutdown) return other.Post({InstanceCommand::SyncEnd}) ? kDone : kFailed;
    // The window refuses while a dialog is open in which something may have been entered.
    const auto reply = other.Send({InstanceCommand::Exit});
    if (reply && !*reply) Print(stderr, reply->words);
    return reply && *reply ? kDone : kFailed;
}

int CWindowProgram::RunWindow() {
    const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
    QApplication qt(m_argc, m_argv);
    qInstallMessageHandler(usual);
    PrepareApplication();

    CWaitBudget budget;
    const WaitBudgetScope waiting(budget);
    const CWaitBox waitBox(budget);
    CSystemClock clock;
    CBoxPrompt prompt;
    CEventPump pump;
    CViewHub hub;
    CVelmarchApp app({clock, prompt, pump, hub});
    if (!app.ResolveHome(m_home)) return kFailed;
    CSingleWindow single(prompt);
    const CSingleWindow::Start start = single.Begin(app.Home());
    if (start != CSingleWindow::Start::IsAlone)
        return start == CSingleWindow::Start::OtherRaised ? kDone : kFailed;
    const bool isNewHome = IsNewHome(app.Home());
    // Without the settings' file the window works with what memory holds; the user has been told. Nor is
    // there a guide then, which would come again at each start.
    if (app.OpenSettings()) {
        static_cast<void>(SetUpNewWindow(app.Settings()));
        if (isNewHome) static_cast<void>(WantGuide(app.Settings()));
    }
    bool isStoreOpen = app.OpenStore();
    std::optional<int> code;
    while (!code) {
        if (!CDamagedStore({app, prompt, clock}).Resolve(isStoreOpen)) return kFailed;
        code = RunFrame({app, single, budget, clock, prompt, pump, hub});
        isStoreOpen = true;
    }
    return *code;
}

std::optional<int> CWindowProgram::RunFrame(const Opened& opened) {
    auto& app = opened.app;
    const bool isDamageKnown = app.IsStoreFoundDamaged();
    bool isDamageMet = false;
    auto& budget = opened.budget;
    auto& prompt = opened.prompt;
    const CClock& clock = opened.clock;
    ActiveTimerSet timerSet(clock);
    CRecordTimers timers(timerSet, app.Document(), app.Settings());
    const auto tellOrphan = [&prompt](const ActiveTimer& orphan) { TellOrphan(orphan, prompt); };
    app.Document().SetTimers(&timers);
    CEnteredItems entered;
    const RecordDialogContext dialog = DialogContext(app, timers, entered, prompt, clock);
    CProcessLauncher launcher;
    CWindowDialogs dialogs(dialog);
    auto frame = std::make_unique<CMainFrame>(
        CMainFrame::Context{app, timers, opened.hub, prompt, opened.pump, clock, launcher, dialogs});
    COutsideControl control(*frame);
    CInstanceHost host(
        {app.Document(), timers, app.Settings(), [&] { control.Refresh(); }, [&] { control.Raise(); },
         [&] { control.Leave(); }, [&] { return control.IsBusy() || budget.IsWaiting(); },
         [] { return QApplication::activeModalWidget() != nullptr; }, [&app] { app.LoadLists(); }});
    const bool isHeard = host.Listen(app.Home(), LoadText(Text::ProgramTitle));
    if (!isHeard && !opened.single.IsLocked()) {
        opened.single.TellNotAlone(app.Home(), host.Error());
        return kFailed;
    }
    const CQuitSignals signals([&] { control.Leave(); });
    CStartCheck check({launcher, prompt, [&](const std::function<void()>& work) { control.WhenFree(work); },
                       [&app] { app.NoteStoreDamage(); }});
    const CBackupTimer backups(app, prompt, clock, *frame, control);
    // Not in the middle of what is being done to the timers.
    timers.OnOrphan([&](const ActiveTimer& orphan) {
        QTimer::singleShot(0, frame.get(), [&, orphan] { control.WhenFree([=] { tellOrphan(orphan); }); });
    });
    frame->show();
    // The records come with the window on the screen.
    QTimer::singleShot(0, frame.get(), [&] {
        frame->Refresh();
        isDamageMet = !isDamageKnown && app.IsStoreFoundDamaged();
        if (isDamageMet) return QApplication::exit();
        TellLoss(app, timers, prompt);
        if (!isHeard) TellUnheard(prompt, host.Error());
        OfferPausedTimers(timers, app.Document(), prompt);
        OfferDrafts(frame.get(), dialog);
        LookOverLater(check, frame.get(), app.Home());
        if (IsGuideWanted(app.Settings(), app.Document(), app.Catalogue()))
            frame->RunCommand(Command::kGuide);
    });
    const int code = QApplication::exec();

    budget.Renew();
    host.BeginEnd();
    control.BeginEnd();
    timers.OnOrphan(tellOrphan);
    if (!isDamageMet) frame->PersistEverything();
    app.Document().SetTimers(nullptr);
    frame.reset();
    if (isDamageMet) return std::nullopt;
    app.CloseSettings();
    return code;
}
