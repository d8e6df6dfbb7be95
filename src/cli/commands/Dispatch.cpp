#include "cli/commands/Dispatch.h"

#include "app/CVelmarchApp.h"
#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "cli/commands/CCommandLine.h"
#include "cli/commands/CommandTable.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "entry/CEnteredItems.h"
#include "lang/LoadText.h"
#include "platform/host/CMessagePump.h"
#include "platform/host/CWaitBudget.h"
#include "timers/TimerOutcome.h"

namespace {

/// The home of one command.
class COpenHome {
 public:
    explicit COpenHome(Console& console)
        : m_console(console), m_app({console.clock, console.prompt, m_pump, m_views}) {}

    [[nodiscard]] bool OpenSettings(const QString& homeOption) {
        if (!m_app.ResolveHome(homeOption)) return false;
        // Settings that can't be kept have been told about; commands that only read go on with what there is.
        m_areSettingsKept = m_app.OpenSettings();
        if (!m_areSettingsKept) m_app.Tree().RefuseChanges();
        m_app.Settings().KeepStoreUntouched();
        return true;
    }
    /// The same for a command about the settings themselves: the defaults would pass for what the user has
    /// set, and changes of them for done.
    [[nodiscard]] bool OpenSettingsAlone(const QString& homeOption) {
        if (!OpenSettings(homeOption)) return false;
        if (!m_areSettingsKept) m_console.out.Complain(LoadText(Text::CliSettingsNotOpened));
        return m_areSettingsKept;
    }
    [[nodiscard]] bool AreSettingsKept() const { return m_areSettingsKept; }
    [[nodiscard]] CVelmarchApp& App() { return m_app; }

 private:
    Console& m_console;
    CNoPump m_pump;
    CNoViews m_views;
    CVelmarchApp m_app;
    bool m_areSettingsKept = false;
};

class CRunner {
 public:
    CRunner(const CommandRequest& request, Console& console) : m_request(request), m_console(console) {}

    ExitCode operator()(RunWithoutHome run) { return run(m_request.arguments, m_console); }

    ExitCode operator()(RunOnHome run) { return run(m_request.arguments, m_console, m_request.home); }

    ExitCode operator()(RunWithSettings run) {
        COpenHome home(m_console);
        if (!home.OpenSettingsAlone(m_request.home)) return ExitCode::Failed;
        return run(m_request.arguments, m_console, home.App().Settings());
    }

    ExitCode operator()(RunOnSettings run) {
        COpenHome home(m_console);
        if (!home.OpenSettingsAlone(m_request.home)) return ExitCode::Failed;
        CWindowLink window(home.App().Home(), m_budget);
        CSettingsOwner owner(home.App().Settings(), window, m_console.clock);
        return run(m_request.arguments, m_console, owner);
    }

    ExitCode operator()(RunOnRecords run) {
        COpenHome home(m_console);
        if (!home.OpenSettings(m_request.home) || !home.App().OpenStore()) return ExitCode::Failed;
        CVelmarchApp& app = home.App();
        CWindowLink window(app.Home(), m_budget);
        CTimerAccess timers(m_console.clock, app.Document(), app.Settings(), window);
        timers.OnOrphan([this](const ActiveTimer& orphan) { TellOrphan(orphan, m_console.prompt); });
        CSettingsOwner owner(app.Settings(), window, m_console.clock);
        if (!home.AreSettingsKept()) owner.NoteUnread();
        CNoProgress progress;
        CEnteredItems entered;
        CRecordChanges changes({.document = app.Document(),
                                .timers = timers,
                                .catalogue = app.Catalogue(),
                                .entered = entered,
                                .settings = app.Settings(),
                                .prompt = m_console.prompt,
                                .progress = progress,
                                .partial = CRecordChanges::Partial::Undone});
        RecordContext context{.document = app.Document(),
                              .settings = app.Settings(),
                              .timers = timers,
                              .window = window,
                              .catalogue = app.Catalogue(),
                              .owner = owner,
                              .changes = changes,
                              .entered = entered};
        return run(m_request.arguments, m_console, context);
    }

 private:
    const CommandRequest& m_request;
    Console& m_console;
    CWaitBudget m_budget;  ///< of all that the command waits for
    WaitBudgetScope m_scope{m_budget};
};

}  // namespace

ExitCode RunCommandOf(const CommandRequest& request, Console& console) {
    return std::visit(CRunner(request, console), request.command->run);
}
