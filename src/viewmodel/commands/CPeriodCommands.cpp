#include "viewmodel/commands/CPeriodCommands.h"

#include "app/CVelmarchDoc.h"

#include <utility>

namespace {

void Show(CVelmarchDoc& document) {
    document.BuildVisible();
    document.NotifyViews(Hint::Rebuild);
}

/// A filter without conditions over the same period.
template <class Filter>
Filter PeriodAlone(const Filter& present) {
    Filter filter;
    static_cast<PeriodFilter&>(filter) = present;
    filter.matchWhole = filter.matchCase = false;
    return filter;
}

TimeFilter TimersAlone() {
    TimeFilter filter;
    filter.timer = FlagCriterion::kSet;
    return filter;
}

}  // namespace

void CPeriodCommands::ApplyFilter(const TimeFilter& filter) {
    m_document.Filter() = filter;
    Show(m_document);
}

void CPeriodCommands::ApplyFilter(const ExpenseFilter& filter) {
    m_document.FilterOfExpenses() = filter;
    Show(m_document);
}

void CPeriodCommands::Change(const std::function<bool(PeriodFilter& filter)>& change) {
    if (theRecordMode == RecordMode::Time) {
        TimeFilter filter = m_document.Filter();
        if (change(filter)) ApplyFilter(filter);
    } else {
        ExpenseFilter filter = m_document.FilterOfExpenses();
        if (change(filter)) ApplyFilter(filter);
    }
}

void CPeriodCommands::Preset(int preset) {
    Change([&](PeriodFilter& filter) { return filter.ApplyPreset(preset, m_document.GetPeriodContext()); });
}

void CPeriodCommands::All() {
    Change([](PeriodFilter& filter) {
        filter.EnablePeriod(false);
        return true;
    });
}

void CPeriodCommands::Day(const QString& date) {
    Change([&](PeriodFilter& filter) { return filter.SetSingleDate(date, m_document.GetPeriodContext()); });
}

void CPeriodCommands::Range(const DateTimeVal& first, const DateTimeVal& last) {
    Change([&](PeriodFilter& filter) {
        filter.SetRange(first, last, m_document.GetPeriodContext());
        return true;
    });
}

void CPeriodCommands::StepBack() {
    Change([&](PeriodFilter& filter) { return filter.StepBack(m_document.GetPeriodContext()); });
}

void CPeriodCommands::StepForward() {
    Change([&](PeriodFilter& filter) { return filter.StepForward(m_document.GetPeriodContext()); });
}

void CPeriodCommands::ClearConditions() {
    if (theRecordMode == RecordMode::Time)
        ApplyFilter(PeriodAlone(m_document.Filter()));
    else
        ApplyFilter(PeriodAlone(m_document.FilterOfExpenses()));
}

void CPeriodCommands::WithTimers() {
    if (theRecordMode != RecordMode::Time) return;
    if (!AreTimersAlone()) m_beforeTimers = m_document.Filter();
    ApplyFilter(TimersAlone());
}

bool CPeriodCommands::AreTimersAlone() const {
    return theRecordMode == RecordMode::Time && m_document.Filter() == TimersAlone();
}

const PeriodFilter& CPeriodCommands::LastingPeriod() const {
    if (AreTimersAlone() && m_beforeTimers) return *m_beforeTimers;
    return std::as_const(m_document).CurrentFilter();
}

void CPeriodCommands::EndTimers() {
    if (AreTimersAlone()) ApplyFilter(std::exchange(m_beforeTimers, {}).value_or(TimeFilter()));
}
