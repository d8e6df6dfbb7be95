#include "shell/core/CPeriodCommands.h"

#include "app/CVelmarchDoc.h"

void CPeriodCommands::ApplyFilter(const TimeFilter& filter) {
    m_document.Filter() = filter;
    m_document.BuildVisible();
    m_document.NotifyViews(Hint::Rebuild);
}

void CPeriodCommands::Preset(int preset) {
    TimeFilter filter = m_document.Filter();
    if (filter.ApplyPreset(preset, m_document.PeriodNeeds())) ApplyFilter(filter);
}

void CPeriodCommands::All() {
    TimeFilter filter = m_document.Filter();
    filter.EnablePeriod(false);
    ApplyFilter(filter);
}

void CPeriodCommands::Day(const QString& date) {
    TimeFilter filter = m_document.Filter();
    if (filter.SetSingleDate(date, m_document.PeriodNeeds())) ApplyFilter(filter);
}

void CPeriodCommands::StepBack() {
    TimeFilter filter = m_document.Filter();
    if (filter.StepBack(m_document.PeriodNeeds())) ApplyFilter(filter);
}

void CPeriodCommands::StepForward() {
    TimeFilter filter = m_document.Filter();
    if (filter.StepForward(m_document.PeriodNeeds())) ApplyFilter(filter);
}

void CPeriodCommands::ClearConditions() {
    const TimeFilter& present = m_document.Filter();
    TimeFilter filter;
    static_cast<PeriodFilter&>(filter) = present;
    filter.matchWhole = filter.matchCase = false;
    ApplyFilter(filter);
}

void CPeriodCommands::WithTimers() {
    TimeFilter filter;
    filter.Reset();
    filter.timer = FlagCriterion::kSet;
    ApplyFilter(filter);
}
