#include "cli/home/CRecordHome.h"

#include "changes/CUndo.h"
#include "cli/output/COutput.h"
#include "cli/output/Console.h"
#include "lang/LoadText.h"
#include "reports/query/CStoredTexts.h"
#include "timers/TimerOutcome.h"

COpenHome::COpenHome(const Console& console)
    : m_console(console), m_app({console.clock, console.prompt, m_pump, m_views}) {}

bool COpenHome::OpenSettings(const QString& homeOption) {
    if (!m_app.ResolveHome(homeOption)) return false;
    // Settings that can't be kept have been told about; commands that only read go on with what there is.
    m_areSettingsKept = m_app.OpenSettings();
    if (!m_areSettingsKept) m_app.Tree().RefuseChanges();
    m_app.Settings().KeepStoreUntouched();
    m_history = std::make_unique<CHistory>(m_app.Home(), m_console.clock, m_app.Settings());
    m_history->Entries().Watch();
    return true;
}

void COpenHome::TellOfHistory() {
    const QString notice = m_history ? m_history->TakeNotice() : QString();
    if (!notice.isEmpty()) m_console.out.Complain(notice);
}

bool COpenHome::OpenSettingsAlone(const QString& homeOption) {
    if (!OpenSettings(homeOption)) return false;
    if (!m_areSettingsKept) m_console.out.Complain(LoadText(Text::CliSettingsNotOpened));
    return m_areSettingsKept;
}

struct CRecordHome::Opened {
    Opened(CVelmarchApp& app, CHistory& history, const Console& console, CWaitBudget& budget)
        : manager(app.Manager()),
          window(app.Home(), budget),
          timers(console.clock, app.Document(), app.Settings(), window),
          owner(app.Settings(), window, console.clock),
          stored(app.Settings(), console.clock, console.prompt),
          changes({.document = app.Document(),
                   .timers = timers,
                   .catalogue = app.Catalogue(),
                   .entered = entered,
                   .settings = app.Settings(),
                   .prompt = console.prompt,
                   .progress = progress,
                   .partial = CRecordChanges::Partial::Undone,
                   .carrier = &stored}),
          undo({.store = app.Store(), .history = history, .timers = timers, .settings = app.Settings()}),
          context{.document = app.Document(),
                  .settings = app.Settings(),
                  .timers = timers,
                  .window = window,
                  .catalogue = app.Catalogue(),
                  .owner = owner,
                  .changes = changes,
                  .entered = entered,
                  .undo = undo} {
        manager.SetJournal(&history);
        timers.OnOrphan([&console](const ActiveTimer& orphan) { TellOrphan(orphan, console.prompt); });
    }

    ~Opened() { manager.SetJournal(nullptr); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    CVOSrcMgr& manager;
    CWindowLink window;
    CTimerAccess timers;
    CSettingsOwner owner;
    CStoredTexts stored;
    CNoProgress progress;
    CEnteredItems entered;
    CRecordChanges changes;
    CUndo undo;
    RecordContext context;
};

CRecordHome::CRecordHome(const Console& console, CWaitBudget& budget)
    : m_console(console), m_budget(budget), m_home(console) {}

CRecordHome::~CRecordHome() = default;

bool CRecordHome::Open(const QString& homeOption) {
    CVelmarchApp& app = m_home.App();
    if (!m_home.OpenSettings(homeOption) || !app.OpenStore()) return false;
    m_opened = std::make_unique<Opened>(app, m_home.History(), m_console, m_budget);
    if (!m_home.AreSettingsKept()) m_opened->owner.NoteUnread();
    return true;
}

RecordContext& CRecordHome::Context() {
    return m_opened->context;
}
