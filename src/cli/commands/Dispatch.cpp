#include "cli/commands/Dispatch.h"

#include "app/CVelmarchApp.h"
#include "cli/commands/CCommandLine.h"
#include "cli/commands/CommandTable.h"
#include "cli/home/CRecordHome.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CWindowLink.h"
#include "platform/host/CWaitBudget.h"

namespace {

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
        const ExitCode exit = run(m_request.arguments, m_console, owner);
        home.TellOfHistory();
        return exit;
    }

    ExitCode operator()(RunOnRecords run) {
        CRecordHome home(m_console, m_budget);
        if (!home.Open(m_request.home)) return ExitCode::Failed;
        return run(m_request.arguments, m_console, home.Context());
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
