#pragma once

#include <QStringList>
#include <optional>

class ExpenseFilter;
class TimeFilter;

/// Where the records of a run come from: the window's list and its filter dialogs.
class CReportSource {
 public:
    virtual ~CReportSource() = default;
    /// The selected records of the record list in its order; nothing while the list isn't in front.
    [[nodiscard]] virtual std::optional<QStringList> SelectedIds() const = 0;
    /// All of its records in its order; nothing while it isn't in front.
    [[nodiscard]] virtual std::optional<QStringList> ListedIds() const = 0;
    /// Has the user describe a filter. False: cancelled.
    [[nodiscard]] virtual bool AskFilter(TimeFilter& filter) = 0;
    [[nodiscard]] virtual bool AskFilter(ExpenseFilter& filter) = 0;
};
