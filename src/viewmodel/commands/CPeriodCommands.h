#pragma once

#include "app/TimeFilter.h"

#include <QString>
#include <functional>
#include <optional>

class CVelmarchDoc;
class DateTimeVal;
class ExpenseFilter;

/// Changes the period and the filter of the list, in the mode in use. Each works on a copy of the filter,
/// which then is applied: the visible records are chosen anew and the views rebuild.
class CPeriodCommands {
 public:
    explicit CPeriodCommands(CVelmarchDoc& document) : m_document(document) {}

    void ApplyFilter(const TimeFilter& filter);
    void ApplyFilter(const ExpenseFilter& filter);
    void Preset(int preset);
    /// No period; the other conditions stay.
    void All();
    /// One day, as text in the user's form with its year.
    void Day(const QString& date);
    /// From one day to another; a start after the end is taken as the day of the end.
    void Range(const DateTimeVal& first, const DateTimeVal& last);
    void StepBack();
    void StepForward();
    /// Takes all conditions away and keeps the period.
    void ClearConditions();
    /// Only records with a timer, of any day. Expenses have no timers: then nothing happens.
    void WithTimers();
    /// Whether records with a timer are all that is wanted. Their end brings back the filter before them.
    [[nodiscard]] bool AreTimersAlone() const;
    void EndTimers();
    /// The period to come back to at the next start: not that of the timers, which are of any day.
    [[nodiscard]] const PeriodFilter& LastingPeriod() const;

 private:
    /// change: false when it could not be done, and nothing is applied.
    void Change(const std::function<bool(PeriodFilter& filter)>& change);

    CVelmarchDoc& m_document;
    std::optional<TimeFilter> m_beforeTimers;
};
