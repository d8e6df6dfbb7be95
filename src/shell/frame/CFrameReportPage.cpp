#include "shell/frame/CFrameReportPage.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "reports/run/CReportRun.h"
#include "reports/write/PageBytes.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "shell/report/CReportPane.h"
#include "shell/report/CReportView.h"
#include "shell/report/CSumChooser.h"
#include "shell/report/ChartFile.h"
#include "shell/report/ReportPrinting.h"
#include "viewmodel/commands/CommandState.h"

namespace {

QString PageFilter() {
    return QStringLiteral("%1 (*.%2)").arg(LoadText(Text::ReportFiles), LoadText(Text::ReportExtension));
}

}  // namespace

CFrameReportPage::CFrameReportPage(const FrameContext& context, CReportRun& run)
    : m_context(context),
      m_run(run),
      m_charts(context.settings.Profile()),
      m_picture([this] { return m_charts.Shown(); }),
      m_browser(context.launcher) {
    m_context.report.View().SetPicture(&m_picture);
    m_sumChosen = QObject::connect(&m_context.report.Sums(), &CSumChooser::SumChosen, &m_context.report,
                                   [this](std::size_t sum) {
                                       m_charts.Choose(sum);
                                       ShowCharts();
                                   });
}

CFrameReportPage::~CFrameReportPage() {
    QObject::disconnect(m_sumChosen);
    m_context.report.View().SetPicture(nullptr);
}

void CFrameReportPage::Show() {
    if (!CReportView::CanShow()) {
        m_context.prompt.Tell({.textId = static_cast<int>(Text::ReportNotShown),
                               .title = LoadText(Text::ReportNotShownTitle),
                               .text = LoadText(Text::ReportNotShown),
                               .icon = BoxIcon::Warning,
                               .actionLabel = {}});
        return;
    }
    TakeCharts();
    m_context.report.ShowPage(m_run.GetHtml());
}

void CFrameReportPage::TakeCharts() {
    const ReportResult& result = m_run.Result();
    const ChartCalendar calendar{m_context.settings.Region(), m_context.settings.firstDayOfWeek};
    if (result.grouped)
        m_charts.SetReport(*result.grouped, calendar);
    else if (result.summary)
        m_charts.SetReport(*result.summary, calendar);
    else
        m_charts.Clear();
    ShowCharts();
}

/// The chart on the page, and above it what it can be of.
void CFrameReportPage::ShowCharts() {
    const bool isShown = m_charts.Shown() != nullptr;
    m_context.report.Sums().ShowSums(isShown ? m_charts.Sums() : QStringList(), m_charts.Chosen());
    m_context.report.View().UpdatePicture();
}

void CFrameReportPage::Describe(CommandState& state) const {
    const ReportResult& result = m_run.Result();
    state.reportShrinks = m_context.report.Shrinks();
    state.reportHasSelection = m_context.report.HasSelection();
    state.reportHasTable = result.listing || result.grouped || result.summary;
    state.reportHasChart = m_charts.IsOffered();
    state.chartShown = m_charts.IsOffered() && m_charts.IsWanted();
    state.chartHasNextSum = m_charts.Sums().size() > 1;
}

void CFrameReportPage::Copy() {
    m_context.report.View().Copy();
}

void CFrameReportPage::Zoom(int steps) {
    CReportView& view = m_context.report.View();
    if (steps > 0)
        view.ZoomIn();
    else if (steps < 0)
        view.ZoomOut();
    else
        view.ZoomNormal();
}

void CFrameReportPage::ToggleChart() {
    m_charts.Want(!m_charts.IsWanted());
    ShowCharts();
}

void CFrameReportPage::NextSum() {
    m_charts.ChooseNext();
    ShowCharts();
}

/// The report's title, as far as a file name can hold it.
QString CFrameReportPage::Title() const {
    const QString& title = m_run.Result().definition.title;
    return title.isEmpty() ? LoadText(Text::ReportPageName) : title;
}

std::optional<QString> CFrameReportPage::ChooseFile(const QString& title, const QString& filter,
                                                    const QString& extension) const {
    constexpr int kLongestName = 80;
    QString name = Title().simplified().left(kLongestName);
    for (const QChar unfit : QStringLiteral("/\\:*?\"<>|")) name.replace(unfit, QLatin1Char('-'));
    return m_context.prompt.ChooseFile({.purpose = FileChoice::Purpose::Save,
                                        .title = title,
                                        .suggestedName = name + QLatin1Char('.') + extension,
                                        .filter = filter});
}

void CFrameReportPage::SayHow(const FileOutcome& outcome, const QString& path) const {
    m_context.report.Say(outcome.written ? FormatText<Text::ReportSaved>(path)
                                         : FormatText<Text::ReportNotSaved>(path, outcome.error));
}

bool CFrameReportPage::MayLoseCharacters() const {
    const qint64 lost = m_run.CountLostCharacters();
    if (lost == 0) return true;
    return m_context.prompt.Ask({.textId = static_cast<int>(Text::PageLosesCharacters),
                                 .title = LoadText(Text::ReportSavePageTitle),
                                 .text = FormatText<Text::PageLosesCharacters>(static_cast<int>(lost)),
                                 .icon = BoxIcon::Warning,
                                 .buttons = Buttons::YesNo,
                                 .defaultAnswer = Answer::No,
                                 .actionLabel = LoadText(Text::SheetSave)}) == Answer::Yes;
}

void CFrameReportPage::SavePage() {
    const auto path =
        ChooseFile(LoadText(Text::ReportSavePageTitle), PageFilter(), LoadText(Text::ReportExtension));
    if (path && MayLoseCharacters()) SayHow(m_run.SavePage(*path), *path);
}

void CFrameReportPage::SaveCsv() {
    const auto path =
        ChooseFile(LoadText(Text::ReportSaveCsvTitle), LoadText(Text::ReportCsvFiles), QStringLiteral("csv"));
    if (path) SayHow(WriteWholeFile(*path, m_run.Csv(), FileAudience::UserDefault), *path);
}

void CFrameReportPage::SavePdf() {
    const auto path =
        ChooseFile(LoadText(Text::ReportSavePdfTitle), LoadText(Text::ReportPdfFiles), QStringLiteral("pdf"));
    if (path) SayHow(::SavePdf(m_context.report.View(), *path, Title(), m_context.progress), *path);
}

void CFrameReportPage::SaveChart() {
    const ChartModel* chart = m_charts.Shown();
    if (!chart) return;
    const auto path =
        ChooseFile(LoadText(Text::ChartSaveTitle), LoadText(Text::ChartFileFilter), QStringLiteral("svg"));
    if (path) SayHow(::SaveChart(*chart, *path), *path);
}

void CFrameReportPage::OpenInBrowser() {
    const FileOutcome outcome = m_browser.Open(CPageEncoder().Encode(m_run.GetHtml()));
    if (!outcome.written) m_context.report.Say(outcome.error);
}

void CFrameReportPage::Preview() {
    SayPrinted(
        RunPrintPreview(m_context.report.View(), m_context.control.Window(), Title(), m_context.progress));
}

void CFrameReportPage::Print() {
    SayPrinted(RunPrint(m_context.report.View(), m_context.control.Window(), Title(), m_context.progress));
}

/// Who closes the dialog of the printer knows that nothing was printed.
void CFrameReportPage::SayPrinted(PrintEnd end) const {
    if (end == PrintEnd::Done) m_context.report.Say(LoadText(Text::ReportPrinted));
    if (end == PrintEnd::Failed) m_context.report.Say(LoadText(Text::ReportNotPrinted));
}
