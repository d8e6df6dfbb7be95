#pragma once

#include "shell/frame/CFrameBackup.h"
#include "shell/frame/CFrameColumns.h"
#include "shell/frame/CFrameDependencies.h"
#include "shell/frame/CFrameExchange.h"
#include "shell/frame/CFrameFilters.h"
#include "shell/frame/CFrameFind.h"
#include "shell/frame/CFrameGuide.h"
#include "shell/frame/CFrameHelp.h"
#include "shell/frame/CFrameHistory.h"
#include "shell/frame/CFrameLabels.h"
#include "shell/frame/CFrameLists.h"
#include "shell/frame/CFrameRecords.h"
#include "shell/frame/CFrameReportPage.h"
#include "shell/frame/CFrameReports.h"
#include "shell/frame/CFrameViews.h"
#include "shell/frame/CFrameWork.h"
#include "shell/frame/FrameContext.h"
#include "viewmodel/commands/CommandTable.h"

/// Carries out the commands of the window: a table from what a command runs to the operation that does it.
class CFrameCommands {
 public:
    using Context = FrameContext;
    /// The bars take the buttons that the user has chosen.
    explicit CFrameCommands(const Context& context);
    CFrameCommands(const CFrameCommands&) = delete;
    CFrameCommands& operator=(const CFrameCommands&) = delete;

    void Run(const CommandRow& row);
    [[nodiscard]] CFrameRecords& Records() { return m_records; }
    [[nodiscard]] CFrameFilters& Filters() { return m_filters; }
    [[nodiscard]] CFrameFind& Find() { return m_find; }
    [[nodiscard]] CFrameViews& Views() { return m_views; }
    [[nodiscard]] CFrameWork& Work() { return m_work; }
    /// The page of the report that was made last comes into its view.
    void ShowPage() { m_page.Show(); }
    [[nodiscard]] CPeriodCommands& Period() { return m_filters.Period(); }
    /// The part of the state that commands know: mode, period, conditions, timers, tree.
    void Describe(CommandState& state) const;

    /// Whether something can carry it out; for the test over the command table.
    [[nodiscard]] static bool HasHandler(::Run run);

 private:
    using Handler = void (*)(CFrameCommands& commands, int argument);
    struct HandlerRow {
        ::Run run;
        Handler handler;
    };
    [[nodiscard]] static Handler HandlerOf(::Run run);
    [[nodiscard]] static Handler WorkHandlerOf(::Run run);
    [[nodiscard]] static Handler FilterHandlerOf(::Run run);
    [[nodiscard]] static Handler ReportHandlerOf(::Run run);
    void RunGuide();
    void DescribeTree(CommandState& state) const;
    void DescribeSelectedTimers(CommandState& state) const;

    Context m_context;
    CFrameHistory m_history;
    CRecentWork m_recent;
    CFrameRecords m_records;
    CFrameWork m_work;
    CFrameViews m_views;
    CFrameColumns m_columns;
    CFrameFilters m_filters;
    CFrameLists m_lists;
    CFrameFind m_find;
    CFrameBackup m_backup;
    CFrameReports m_reports;
    CFrameReportPage m_page;
    CFrameExchange m_exchange;
    CFrameGuide m_guide;
    CFrameHelp m_help;
    CFrameLabels m_labels;
    CFrameDependencies m_dependencies;
    bool m_hasRegionalSettings;
};
