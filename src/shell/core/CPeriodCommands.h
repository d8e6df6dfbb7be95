#pragma once

#include <QString>

class CVelmarchDoc;
class TimeFilter;

/// Changes the period and the filter of the list. Each works on a copy of the filter, which then is applied:
/// the visible records are chosen anew and the views rebuild.
class CPeriodCommands {
 public:
    explicit CPeriodCommands(CVelmarchDoc& document) : m_document(document) {}

    void ApplyFilter(const TimeFilter& filter);
    void Preset(int preset);
    /// No period; the other conditions stay.
    void All();
    /// One day, as text in the user's form with its year.
    void Day(const QString& date);
    void StepBack();
    void StepForward();
    /// Takes all conditions away and keeps the period.
    void ClearConditions();
    /// Only records with a timer, of any day.
    void WithTimers();

 private:
    CVelmarchDoc& m_document;
};
