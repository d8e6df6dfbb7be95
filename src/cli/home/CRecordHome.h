#pragma once

#include "app/CVelmarchApp.h"
#include "changes/CHistory.h"
#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "entry/CEnteredItems.h"
#include "platform/host/CMessagePump.h"

#include <QString>
#include <memory>

struct Console;

/// The home of one command, opened as far as the command wants it.
class COpenHome {
 public:
    explicit COpenHome(const Console& console);

    [[nodiscard]] bool OpenSettings(const QString& homeOption);
    /// The same for a command about the settings themselves: the defaults would pass for what the user has
    /// set, and changes of them for done.
    [[nodiscard]] bool OpenSettingsAlone(const QString& homeOption);
    [[nodiscard]] bool AreSettingsKept() const { return m_areSettingsKept; }
    [[nodiscard]] CVelmarchApp& App() { return m_app; }
    /// After OpenSettings: what is changed is written down in it.
    [[nodiscard]] CHistory& History() { return *m_history; }
    /// What has to be said of it, of changes of the settings or of those that could not be read.
    void TellOfHistory();

 private:
    const Console& m_console;
    CNoPump m_pump;
    CNoViews m_views;
    CVelmarchApp m_app;
    bool m_areSettingsKept = false;
    std::unique_ptr<CHistory> m_history;
};

/// The same with the records, and all that stands on them.
class CRecordHome {
 public:
    /// budget: what the command may wait for other programs.
    CRecordHome(const Console& console, CWaitBudget& budget);
    ~CRecordHome();

    /// False, and the user was told, when the home or its records can't be opened.
    [[nodiscard]] bool Open(const QString& homeOption);
    [[nodiscard]] const QString& Path() { return m_home.App().Home(); }
    /// After Open.
    [[nodiscard]] RecordContext& Context();

 private:
    struct Opened;
    const Console& m_console;
    CWaitBudget& m_budget;
    COpenHome m_home;
    std::unique_ptr<Opened> m_opened;
};
