#include "shell/frame/CFrameCommands.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "shell/commands/CActions.h"
#include "shell/frame/CFrameControl.h"
#include "shell/list/CListFindBar.h"
#include "shell/list/CRecordListView.h"
#include "shell/report/CReportPane.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/commands/BarButtons.h"
#include "viewmodel/commands/FilterCommands.h"
#include "viewmodel/program/RegionalSettings.h"
#include "viewmodel/tree/CTreeControl.h"

#include <algorithm>

CFrameCommands::CFrameCommands(const Context& context)
    : m_context(context),
      m_history(m_context),
      m_recent(m_context.document),
      m_records(m_context, m_recent),
      m_work(m_context, m_records, m_recent),
      m_views(m_context),
      m_columns(m_context),
      m_filters(m_context),
      m_lists(m_context),
      m_find(m_context),
      m_backup(m_context),
      m_reports(m_context),
      m_page(m_context, m_reports.Run()),
      m_exchange(m_context),
      m_guide(m_context),
      m_help(m_context),
      m_labels(m_context),
      m_dependencies(m_context, m_records.Changes()),
      m_hasRegionalSettings(HasRegionalSettings(m_context.launcher)) {
    m_context.actions.ShowNamesOf(m_context.catalogue.Labels());
    for (const Bar bar : {Bar::Records, Bar::Filters})
        m_context.actions.Bars().SetButtons(bar, LoadButtons(m_context.settings.Profile(), bar));
}

CFrameCommands::Handler CFrameCommands::HandlerOf(::Run run) {
    using Self = CFrameCommands;
    static constexpr HandlerRow kHandlers[] = {
        {::Run::QuickEntry, [](Self& self, int flags) { self.m_records.QuickEntry(flags); }},
        {::Run::EditRecord, [](Self& self, int) { self.m_records.EditSelected(); }},
        {::Run::CopyRecords, [](Self& self, int) { self.m_records.CopySelected(); }},
        {::Run::DeleteRecords, [](Self& self, int) { self.m_records.DeleteSelected(); }},
        {::Run::Mark, [](Self& self, int mark) { self.m_records.MarkSelected(mark); }},
        {::Run::Undo, [](Self& self, int) { self.m_history.Undo(); }},
        {::Run::Redo, [](Self& self, int) { self.m_history.Redo(); }},
        {::Run::TimerAction, [](Self& self, int action) { self.m_records.ApplyTimers(action); }},
        {::Run::StopAllTimers, [](Self& self, int) { self.m_records.StopTimers(); }},
        {::Run::PauseAllTimers, [](Self& self, int) { self.m_records.PauseTimers(); }},
        {::Run::Defaults, [](Self& self, int) { self.m_records.EditDefaults(); }},
        {::Run::RenameLists, [](Self& self, int) { self.m_labels.EditNames(); }},
        {::Run::SelectAll, [](Self& self, int) { self.m_views.SelectAll(); }},
        {::Run::SelectNone, [](Self& self, int) { self.m_views.SelectNone(); }},
        {::Run::SwitchMode,
         [](Self& self, int mode) { self.m_context.control.SwitchMode(RecordMode{mode}); }},
        {::Run::Sort, [](Self& self, int) { self.m_columns.Sort(); }},
        {::Run::Layout, [](Self& self, int layout) { self.m_views.Layout(layout); }},
        {::Run::GroupList, [](Self& self, int groups) { self.m_views.GroupList(groups); }},
        {::Run::FoldGroups, [](Self& self, int) { self.m_views.FoldGroups(); }},
        {::Run::ListColumns, [](Self& self, int) { self.m_columns.EditColumns(); }},
        {::Run::FitColumns, [](Self& self, int) { self.m_columns.FitAll(); }},
        {::Run::RestoreColumns, [](Self& self, int) { self.m_columns.Restore(); }},
        {::Run::ListFont, [](Self& self, int) { self.m_views.ListFont(); }},
        {::Run::ToggleTree, [](Self& self, int) { self.m_views.ToggleTree(); }},
        {::Run::StackPanes, [](Self& self, int stacked) { self.m_context.tree.Stack(stacked != 0); }},
        {::Run::ExpandTree, [](Self& self, int) { self.m_context.tree.ExpandAll(); }},
        {::Run::TreeColumns, [](Self& self, int) { self.m_views.TreeColumns(); }},
        {::Run::ToggleWorkBar, [](Self& self, int) { self.m_context.control.ToggleWorkBar(); }},
        {::Run::ToggleBar1, [](Self& self, int) { self.m_context.control.ToggleBar1(); }},
        {::Run::ToggleBar2, [](Self& self, int) { self.m_context.control.ToggleBar2(); }},
        {::Run::ToggleStatusBar, [](Self& self, int) { self.m_context.control.ToggleStatusBar(); }},
        {::Run::CustomizeBar, [](Self& self, int bar) { self.m_views.CustomizeBar(Bar{bar}); }},
        {::Run::Refresh, [](Self& self, int) { self.m_context.control.Refresh(); }},
        {::Run::RebuildViews, [](Self& self, int) { self.m_views.RebuildViews(); }},
        {::Run::EditLists, [](Self& self, int) { self.m_lists.EditLists(); }},
        {::Run::EditDependencies, [](Self& self, int) { self.m_dependencies.Edit(); }},
        {::Run::UseDependencies, [](Self& self, int) { self.m_filters.ToggleDependencies(); }},
        {::Run::FindCommand, [](Self& self, int) { self.m_views.FindCommand(); }},
        {::Run::Backup, [](Self& self, int) { self.m_backup.Backup(); }},
        {::Run::Restore, [](Self& self, int) { self.m_backup.Restore(); }},
        {::Run::BackupPlan, [](Self& self, int) { self.m_backup.EditPlan(); }},
        {::Run::ImportRecords,
         [](Self& self, int form) { self.m_exchange.ImportRecords(static_cast<RecordForm>(form)); }},
        {::Run::ImportItems, [](Self& self, int) { self.m_exchange.ImportItems(); }},
        {::Run::ExportRecords, [](Self& self, int) { self.m_exchange.ExportRecords(); }},
        {::Run::ExportItems, [](Self& self, int) { self.m_exchange.ExportItems(); }},
        {::Run::Options, [](Self& self, int) { self.m_views.Options(); }},
        {::Run::RegionalSettings, [](Self& self, int) { self.m_views.RegionalSettings(); }},
        {::Run::Guide, [](Self& self, int) { self.RunGuide(); }},
        {::Run::UserGuide, [](Self& self, int) { self.m_help.UserGuide(); }},
        {::Run::AllKeys, [](Self& self, int) { self.m_help.AllKeys(); }},
        {::Run::About, [](Self& self, int) { self.m_views.About(); }},
        {::Run::Exit, [](Self& self, int) { self.m_context.control.Leave(); }},
    };
    const auto* row = std::ranges::find(kHandlers, run, &HandlerRow::run);
    return row == std::end(kHandlers) ? WorkHandlerOf(run) : row->handler;
}

/// The commands of the work bar.
CFrameCommands::Handler CFrameCommands::WorkHandlerOf(::Run run) {
    using Self = CFrameCommands;
    static constexpr HandlerRow kHandlers[] = {
        {::Run::WorkLine, [](Self& self, int) { self.m_work.OpenLine(); }},
        {::Run::WorkRecent, [](Self& self, int) { self.m_work.OpenRecent(); }},
        {::Run::Continue, [](Self& self, int) { self.m_work.ContinueSelected(); }},
        {::Run::WorkPause, [](Self& self, int) { self.m_work.PauseOrGoOn(); }},
        {::Run::WorkStop, [](Self& self, int) { self.m_work.Stop(); }},
        {::Run::WorkOpen, [](Self& self, int) { self.m_work.Open(); }},
    };
    const auto* row = std::ranges::find(kHandlers, run, &HandlerRow::run);
    return row == std::end(kHandlers) ? FilterHandlerOf(run) : row->handler;
}

/// The commands that choose which records are shown.
CFrameCommands::Handler CFrameCommands::FilterHandlerOf(::Run run) {
    using Self = CFrameCommands;
    static constexpr HandlerRow kHandlers[] = {
        {::Run::PeriodPreset, [](Self& self, int preset) { self.Period().Preset(preset); }},
        {::Run::PeriodAll, [](Self& self, int) { self.Period().All(); }},
        {::Run::PeriodDay, [](Self& self, int) { self.m_context.control.PickDay(); }},
        {::Run::PeriodRange, [](Self& self, int) { self.m_filters.PeriodRange(); }},
        {::Run::PeriodPrevious, [](Self& self, int) { self.Period().StepBack(); }},
        {::Run::PeriodNext, [](Self& self, int) { self.Period().StepForward(); }},
        {::Run::FilterDialog, [](Self& self, int) { self.m_filters.FilterDialog(); }},
        {::Run::ClearFilter, [](Self& self, int) { self.Period().ClearConditions(); }},
        {::Run::FilterTimers, [](Self& self, int) { self.m_filters.ToggleTimers(); }},
        {::Run::FilterBy, [](Self& self, int command) { self.m_filters.FilterBy(command); }},
        {::Run::Find, [](Self& self, int) { self.m_find.Open(); }},
        {::Run::FindEverywhere, [](Self& self, int) { self.m_find.ToggleEverywhere(); }},
    };
    const auto* row = std::ranges::find(kHandlers, run, &HandlerRow::run);
    return row == std::end(kHandlers) ? ReportHandlerOf(run) : row->handler;
}

/// The commands that make reports, and those on the one in front.
CFrameCommands::Handler CFrameCommands::ReportHandlerOf(::Run run) {
    using Self = CFrameCommands;
    static constexpr HandlerRow kHandlers[] = {
        {::Run::QuickReport, [](Self& self, int kind) { self.m_reports.Quick(ReportKind{kind}); }},
        {::Run::StoredReport, [](Self& self, int kind) { self.m_reports.RunStored(ReportKind{kind}); }},
        {::Run::DefineReport, [](Self& self, int kind) { self.m_reports.Define(ReportKind{kind}); }},
        {::Run::SummaryReport, [](Self& self, int) { self.m_reports.Summary(); }},
        {::Run::ReportAgain, [](Self& self, int) { self.m_reports.Again(); }},
        {::Run::ReportFind, [](Self& self, int) { self.m_context.report.OpenFind(); }},
        {::Run::ReportCopy, [](Self& self, int) { self.m_page.Copy(); }},
        {::Run::ReportZoom, [](Self& self, int steps) { self.m_page.Zoom(steps); }},
        {::Run::ReportShrink, [](Self& self, int) { self.m_context.report.ToggleShrink(); }},
        {::Run::ReportChart, [](Self& self, int) { self.m_page.ToggleChart(); }},
        {::Run::ReportNextSum, [](Self& self, int) { self.m_page.NextSum(); }},
        {::Run::ReportChartSave, [](Self& self, int) { self.m_page.SaveChart(); }},
        {::Run::ReportSave, [](Self& self, int) { self.m_page.SavePage(); }},
        {::Run::ReportPdf, [](Self& self, int) { self.m_page.SavePdf(); }},
        {::Run::ReportCsv, [](Self& self, int) { self.m_page.SaveCsv(); }},
        {::Run::ReportBrowser, [](Self& self, int) { self.m_page.OpenInBrowser(); }},
        {::Run::ReportPreview, [](Self& self, int) { self.m_page.Preview(); }},
        {::Run::ReportPrint, [](Self& self, int) { self.m_page.Print(); }},
        {::Run::ReportClose, [](Self& self, int) { self.m_context.control.CloseReport(); }},
    };
    const auto* row = std::ranges::find(kHandlers, run, &HandlerRow::run);
    return row == std::end(kHandlers) ? nullptr : row->handler;
}

bool CFrameCommands::HasHandler(::Run run) {
    return HandlerOf(run) != nullptr;
}

void CFrameCommands::Run(const CommandRow& row) {
    if (const Handler handler = HandlerOf(row.run)) handler(*this, row.argument);
}

void CFrameCommands::RunGuide() {
    if (m_guide.Run()) m_views.TakeUpSettings();
    m_guide.ShowStarted();
}

void CFrameCommands::Describe(CommandState& state) const {
    const CVelmarchDoc& document = m_context.document;
    const bool timeMode = theRecordMode == RecordMode::Time;
    const PeriodFilter& period = m_context.document.CurrentFilter();
    state.timeMode = timeMode;
    state.preset = period.preset;
    state.canStep = period.CanStep();
    state.anyTimer = m_context.timers.Set().AnyActive();
    state.anyRunning = m_context.timers.Set().AnyRunning();
    state.filters =
        timeMode ? SetFilterCommands(document.Filter()) : SetFilterCommands(document.FilterOfExpenses());
    state.timersAlone = m_filters.Period().AreTimersAlone();
    state.isFinding = m_context.findBar.isVisible();
    state.findsEverywhere = m_context.findBar.IsEverywhere();
    state.useDependencies = m_context.settings.useDependencies;
    state.hasRegionalSettings = m_hasRegionalSettings;
    m_page.Describe(state);
    state.canRunAgain = m_reports.CanRunAgain();
    m_history.Describe(state);
    DescribeTree(state);
    DescribeSelectedTimers(state);
}

/// There are few timers, and there may be very many selected records.
void CFrameCommands::DescribeSelectedTimers(CommandState& state) const {
    if (state.selected == 0 || !state.timeMode) return;
    const ActiveTimerSet& timers = m_context.timers.Set();
    for (int i = 0; i < timers.Count() && !state.selectedRuns; ++i) {
        if (!m_context.view.IsSelected(timers.IdAt(i))) continue;
        state.selectedHasTimer = true;
        state.selectedRuns = timers.StateAt(i) == TimerState::Running;
    }
}

void CFrameCommands::DescribeTree(CommandState& state) const {
    const CTreeControl& tree = m_context.tree;
    state.treeShown = tree.IsShown();
    state.treeStacked = tree.IsStacked();
    state.treeHasNode = tree.HasNode();
    state.treeCanExpand = tree.CanExpand();
}
