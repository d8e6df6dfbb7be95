#pragma once

#include "shell/report/CChartPicture.h"
#include "shell/report/ReportPrinting.h"
#include "viewmodel/report/CBrowserPage.h"
#include "viewmodel/report/CChartChoice.h"

#include <QObject>
#include <QString>
#include <optional>

class CReportRun;
struct CommandState;
struct FileOutcome;
struct FrameContext;

/// The commands on the report that is shown.
class CFrameReportPage {
 public:
    CFrameReportPage(const FrameContext& context, CReportRun& run);
    ~CFrameReportPage();
    CFrameReportPage(const CFrameReportPage&) = delete;
    CFrameReportPage& operator=(const CFrameReportPage&) = delete;

    /// The page of the last run comes into the view. A machine that can't show pages is told of.
    void Show();
    void Describe(CommandState& state) const;

    void Copy();
    /// steps: 1 larger, -1 smaller, 0 the page's own size.
    void Zoom(int steps);
    void ToggleChart();
    void NextSum();
    void SaveChart();
    /// Characters that the page's character set lacks are told of before anything is written.
    void SavePage();
    void SavePdf();
    void SaveCsv();
    void OpenInBrowser();
    void Preview();
    void Print();

 private:
    void TakeCharts();
    void ShowCharts();
    [[nodiscard]] std::optional<QString> ChooseFile(const QString& title, const QString& filter,
                                                    const QString& extension) const;
    [[nodiscard]] bool MayLoseCharacters() const;
    [[nodiscard]] QString Title() const;
    void SayHow(const FileOutcome& outcome, const QString& path) const;
    void SayPrinted(PrintEnd end) const;

    const FrameContext& m_context;
    CReportRun& m_run;
    CChartChoice m_charts;
    CChartPicture m_picture;
    CBrowserPage m_browser;
    QMetaObject::Connection m_sumChosen;
};
