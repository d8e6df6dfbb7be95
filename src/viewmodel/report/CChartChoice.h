#pragma once

#include "viewmodel/report/ReportCharts.h"

#include <QStringList>
#include <cstddef>
#include <vector>

class CProfile;

/// Which chart of the report in front is shown, if any. Whether there is to be one, and of which sum, is
/// remembered from one report to the next and from one start to the next, of tables and of summaries apart.
class CChartChoice {
 public:
    explicit CChartChoice(CProfile& profile);

    /// The report in front; of it is shown the sum that was chosen last, or else its first one.
    void SetReport(const GroupedTable& table, const ChartCalendar& calendar);
    void SetReport(const ReportSectionList& summary, const ChartCalendar& calendar);
    /// A report without sums, or none.
    void Clear() { m_charts.clear(); }

    /// Whether the report has something to show.
    [[nodiscard]] bool IsOffered() const { return !m_charts.empty(); }
    [[nodiscard]] bool IsWanted() const { return m_isWanted; }
    void Want(bool isWanted);

    /// What can be chosen, in the order of the report.
    [[nodiscard]] QStringList Sums() const;
    [[nodiscard]] std::size_t Chosen() const { return m_chosen; }
    void Choose(std::size_t sum);
    /// Behind the last comes the first.
    void ChooseNext();

    /// The chart to be drawn; null where none is wanted or none is there.
    [[nodiscard]] const ChartModel* Shown() const;

 private:
    void Take(std::vector<ReportChart> charts, const QString& memory);

    CProfile& m_profile;
    bool m_isWanted;
    std::vector<ReportChart> m_charts;
    QString m_memory;  ///< where the choice is remembered
    std::size_t m_chosen = 0;
};
