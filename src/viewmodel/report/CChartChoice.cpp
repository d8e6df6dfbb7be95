#include "viewmodel/report/CChartChoice.h"

#include "platform/settings/CProfile.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kSection = u"Chart"_s;
const QString kWanted = u"Visible"_s;
const QString kSumOfTable = u"Sum"_s;
const QString kSumOfSummary = u"SummarySum"_s;

}  // namespace

CChartChoice::CChartChoice(CProfile& profile)
    : m_profile(profile), m_isWanted(profile.GetInt(kSection, kWanted, 1) != 0) {}

void CChartChoice::SetReport(const GroupedTable& table, const ChartCalendar& calendar) {
    Take(ChartsOf(table, calendar), kSumOfTable);
}

void CChartChoice::SetReport(const ReportSectionList& summary, const ChartCalendar& calendar) {
    Take(ChartsOf(summary, calendar), kSumOfSummary);
}

void CChartChoice::Take(std::vector<ReportChart> charts, const QString& memory) {
    m_charts = std::move(charts);
    m_memory = memory;
    const int remembered = m_profile.GetInt(kSection, m_memory, -1);
    const auto found = std::find_if(m_charts.begin(), m_charts.end(), [remembered](const ReportChart& chart) {
        return chart.sum == remembered;
    });
    m_chosen = found == m_charts.end() ? 0 : static_cast<std::size_t>(found - m_charts.begin());
}

void CChartChoice::Want(bool isWanted) {
    m_isWanted = isWanted;
    m_profile.WriteInt(kSection, kWanted, isWanted ? 1 : 0);
}

QStringList CChartChoice::Sums() const {
    QStringList captions;
    for (const ReportChart& chart : m_charts) captions.append(chart.caption);
    return captions;
}

void CChartChoice::Choose(std::size_t sum) {
    if (sum >= m_charts.size()) return;
    m_chosen = sum;
    m_profile.WriteInt(kSection, m_memory, m_charts[sum].sum);
}

void CChartChoice::ChooseNext() {
    if (IsOffered()) Choose((m_chosen + 1) % m_charts.size());
}

const ChartModel* CChartChoice::Shown() const {
    return IsOffered() && IsWanted() ? &m_charts[m_chosen].model : nullptr;
}
