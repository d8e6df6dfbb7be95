#pragma once

#include "app/CFieldCatalogue.h"
#include "app/ExpenseFilter.h"
#include "app/RecordMode.h"
#include "app/TimeFilter.h"
#include "reports/run/CReportRun.h"
#include "reports/run/CReportSource.h"
#include "shell/report/ReportSheetContext.h"

#include <optional>

struct FrameContext;

/// The commands that make a report, and the report that was made last: its records are those of the list, of
/// its selection, or of a query.
class CFrameReports final : public CReportSource {
 public:
    explicit CFrameReports(const FrameContext& context);

    /// The sheet, then the report.
    void Quick(ReportKind kind);
    /// A definition that the user chooses by its name.
    void RunStored(ReportKind kind);
    /// The sheet; the definition is stored, and run if the user wants that.
    void Define(ReportKind kind);
    void Summary();
    /// The report in front anew, from the records as they are now.
    void Again();
    /// In the other mode its records aren't loaded.
    [[nodiscard]] bool CanRunAgain() const { return m_mode == theRecordMode; }

    [[nodiscard]] CReportRun& Run() { return m_run; }
    [[nodiscard]] const CReportRun& Run() const { return m_run; }

    [[nodiscard]] std::optional<QStringList> SelectedIds() const override;
    [[nodiscard]] std::optional<QStringList> ListedIds() const override;
    [[nodiscard]] bool AskFilter(TimeFilter& filter) override;
    [[nodiscard]] bool AskFilter(ExpenseFilter& filter) override;

 private:
    void Begin(ReportKind kind);
    [[nodiscard]] bool EditInSheet();
    [[nodiscard]] QString ChooseStored(const QStringList& names) const;
    [[nodiscard]] bool WantsToRun() const;
    void ResolveAndRun();
    void SayWhy(RunEnd end) const;
    template <class Filter>
    [[nodiscard]] bool Ask(Filter& filter, std::optional<Filter>& last);
    [[nodiscard]] QStringList StillThere(const QStringList& ids) const;

    const FrameContext& m_context;
    CFieldCatalogue m_catalogue;
    CReportRun m_run;
    CReportDef m_report;                     ///< of the run that is being made, or was made last
    std::optional<RecordMode> m_mode;        ///< of the report that was made last
    std::optional<TimeFilter> m_timeFilter;  ///< that the user described last
    std::optional<ExpenseFilter> m_expenseFilter;
    bool m_isAgain = false;  ///< the records are those of the last run, or of its filter
};
