#pragma once

#include "viewmodel/commands/CPeriodCommands.h"

struct FilterCommandRow;
struct FrameContext;

/// The commands that choose which records and which list items are shown.
class CFrameFilters {
 public:
    explicit CFrameFilters(const FrameContext& context);

    [[nodiscard]] CPeriodCommands& Period() { return m_period; }
    [[nodiscard]] const CPeriodCommands& Period() const { return m_period; }
    /// All conditions at once; the widths on screen are taken into the columns first.
    void FilterDialog();
    /// Lets the user choose two days, from those of the present period.
    void PeriodRange();
    /// Lets the user pick the value of the condition that a command stands for.
    void FilterBy(int command);
    /// Only records with a timer; once more, what was shown before.
    void ToggleTimers();
    /// The conditions of the filter come by name above the list.
    void ShowConditions();
    /// Whether lists offer only what goes with the items above. Kept at once.
    void ToggleDependencies();

 private:
    void EndCondition(int place);
    template <class Filter>
    void FillAndApply();
    template <class Filter>
    void Pick(const FilterCommandRow& row, Filter filter);

    const FrameContext& m_context;
    CPeriodCommands m_period;
};
