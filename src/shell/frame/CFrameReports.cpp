#include "shell/frame/CFrameReports.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "reports/definition/CReportStore.h"
#include "reports/definition/ReportKinds.h"
#include "shell/controls/CPickDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "shell/frame/ReportCoverageOf.h"
#include "shell/list/CRecordListView.h"
#include "shell/report/CFilterDialog.h"
#include "shell/report/CReportSheet.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QScopedValueRollback>

namespace {
/// A list of stored reports up to here needs no search.
constexpr int kShortList = 8;
}  // namespace

CFrameReports::CFrameReports(const FrameContext& context)
    : m_context(context),
      m_catalogue(context.catalogue.Labels(), context.settings),
      m_run({.document = context.document,
             .settings = context.settings,
             .catalogue = m_catalogue,
             .source = *this,
             .prompt = context.prompt,
             .progress = context.progress,
             .clock = context.clock}) {}

void CFrameReports::Begin(ReportKind kind) {
    m_report.Reset();
    m_report.kind = kind;
}

bool CFrameReports::EditInSheet() {
    return RunReportSheet(&m_context.control.Window(), m_report,
                          {.mode = theRecordMode,
                           .settings = m_context.settings,
                           .catalogue = m_catalogue,
                           .prompt = m_context.prompt,
                           .coverage = ReportCoverageOf(m_context, m_catalogue, *this)});
}

/// Stored before it is run, so that it is there even if the run fails; that it couldn't be stored is no
/// reason not to run it.
void CFrameReports::Quick(ReportKind kind) {
    Begin(kind);
    m_report.title = QuickTitle(kind);
    if (!EditInSheet()) return;
    static_cast<void>(
        CReportStore(m_context.settings, theRecordMode, kind).Save(CReportStore::ReservedName(), m_report));
    ResolveAndRun();
}

void CFrameReports::Define(ReportKind kind) {
    Begin(kind);
    if (!EditInSheet()) return;
    CReportStore store(m_context.settings, theRecordMode, kind);
    if (!m_report.name.isEmpty()) static_cast<void>(store.Save(m_report.name, m_report));
    static_cast<void>(store.Save(CReportStore::ReservedName(), m_report));
    if (WantsToRun()) ResolveAndRun();
}

bool CFrameReports::WantsToRun() const {
    return m_context.prompt.Ask({.textId = static_cast<int>(Text::AskRunReport),
                                 .title = LoadText(Text::ReportMessageTitle),
                                 .text = LoadText(Text::AskRunReport),
                                 .icon = BoxIcon::Question,
                                 .buttons = Buttons::YesNo,
                                 .defaultAnswer = Answer::No,
                                 .actionLabel = LoadText(Text::ReportRun),
                                 .otherLabel = LoadText(Text::ReportRunLater)}) == Answer::Yes;
}

void CFrameReports::RunStored(ReportKind kind) {
    Begin(kind);
    const CReportStore store(m_context.settings, theRecordMode, kind);
    const QString name = ChooseStored(store.Names());
    if (name.isEmpty()) return;
    if (!store.Load(name, m_report)) return m_context.control.Say(FormatText<Text::ReportUnreadable>(name));
    m_report.name = name;
    ResolveAndRun();
}

QString CFrameReports::ChooseStored(const QStringList& names) const {
    const CPickDialog::Choice choice{.title = LoadText(Text::ReportChooserTitle),
                                     .rows = names,
                                     .present = names.isEmpty() ? -1 : 0,
                                     .hasSearch = names.size() > kShortList,
                                     .note = names.isEmpty() ? LoadText(Text::ReportChooserEmpty) : QString(),
                                     .accept = Text::ReportChooserRun};
    const std::optional<int> picked =
        RunPickDialog(&m_context.control.Window(), choice, m_context.settings.Profile());
    return picked ? names[*picked] : QString();
}

void CFrameReports::Summary() {
    Begin(ReportKind::Summary);
    m_report.title = QuickTitle(ReportKind::Summary);
    ResolveAndRun();
}

void CFrameReports::Again() {
    if (!CanRunAgain()) return;
    m_report = m_run.Result().definition;
    const QScopedValueRollback again(m_isAgain, true);
    ResolveAndRun();
}

void CFrameReports::ResolveAndRun() {
    RunOutcome outcome = m_run.ResolveRecords(m_report);
    if (outcome) outcome = m_run.RunReport(m_report);
    if (!outcome) return SayWhy(outcome.end);
    m_mode = theRecordMode;
    m_context.control.ShowReport();
}

/// What ends a run without a message says so where the window says what happens.
void CFrameReports::SayWhy(RunEnd end) const {
    switch (end) {
        case RunEnd::NotInFront:
            return m_context.control.Say(LoadText(Text::ReportNotInList));
        case RunEnd::QueryGone:
            return m_context.control.Say(FormatText<Text::ReportQueryGone>(m_report.queryName));
        case RunEnd::RecordGone:
            return m_context.control.Say(LoadText(Text::ReportRecordGone));
        case RunEnd::NoSuchKind:
            return m_context.control.Say(FormatText<Text::ReportUnreadable>(m_report.name));
        case RunEnd::Cancelled:
            return m_context.control.Say(LoadText(Text::ReportCancelled));
        default:
            break;
    }
}

std::optional<QStringList> CFrameReports::SelectedIds() const {
    if (m_isAgain) return StillThere(m_run.Result().definition.recordIds);
    if (!m_context.control.State().listIsActive) return std::nullopt;
    return m_context.view.SelectedIds();
}

std::optional<QStringList> CFrameReports::ListedIds() const {
    if (!m_isAgain && !m_context.control.State().listIsActive) return std::nullopt;
    return m_context.view.ShownIds();
}

QStringList CFrameReports::StillThere(const QStringList& ids) const {
    QStringList there;
    for (const QString& id : ids)
        if (m_context.document.FindLoaded(id)) there << id;
    return there;
}

bool CFrameReports::AskFilter(TimeFilter& filter) {
    return Ask(filter, m_timeFilter);
}

bool CFrameReports::AskFilter(ExpenseFilter& filter) {
    return Ask(filter, m_expenseFilter);
}

template <class Filter>
bool CFrameReports::Ask(Filter& filter, std::optional<Filter>& last) {
    if (!m_isAgain || !last) {
        const FilterDialogContext context{m_context.settings, m_context.catalogue, m_context.prompt,
                                          m_context.clock, m_context.document.GetPeriodContext()};
        Filter described;
        if (!RunFilterDialog(&m_context.control.Window(), described, CFilterDialog::Use::Report, context))
            return false;
        last = described;
    }
    filter = *last;
    return true;
}
