#pragma once

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <span>

class CPulldownCatalogue;

/// A command that sets one condition of the filter to a value that the user picks. In a mode whose filter has
/// no such condition the command isn't offered, and does nothing.
struct FilterCommandRow {
    int command;
    int list;  ///< the pick list whose items are offered; 0 for a flag
    // The condition in each filter, null where there is none: the text of an item, or a FlagCriterion.
    QString& (*timeText)(TimeFilter&);
    QString& (*expenseText)(ExpenseFilter&);
    int& (*timeFlag)(TimeFilter&);
    int& (*expenseFlag)(ExpenseFilter&);
};
/// Six texts and six flags.
[[nodiscard]] std::span<const FilterCommandRow> FilterCommands();
/// Null for a command that sets no condition.
[[nodiscard]] const FilterCommandRow* FindFilterCommand(int command);

/// Whether a command sets a condition that records of a mode have; true for what is no filter command.
[[nodiscard]] bool IsFilterOfMode(int command, bool timeMode);

/// What the user picks from: the word for any, then the items of the list in its order, or yes and no.
[[nodiscard]] QStringList FilterChoices(const FilterCommandRow& row, const CPulldownCatalogue& lists);
/// The choice that is the condition now; -1 when it is none of them, a text that isn't an item for example.
[[nodiscard]] int PresentChoice(const FilterCommandRow& row, TimeFilter filter, const QStringList& choices);
[[nodiscard]] int PresentChoice(const FilterCommandRow& row, ExpenseFilter filter,
                                const QStringList& choices);
/// Sets the condition to a choice. A text is wanted just as it stands, so from then on all texts of the
/// filter compare whole and by case; the word for any takes the condition away and leaves that as it is.
/// False, and the filter as it was, where it has no such condition.
[[nodiscard]] bool ApplyChoice(const FilterCommandRow& row, TimeFilter& filter, const QStringList& choices,
                               int choice);
[[nodiscard]] bool ApplyChoice(const FilterCommandRow& row, ExpenseFilter& filter, const QStringList& choices,
                               int choice);

/// The commands whose condition is set.
[[nodiscard]] QSet<int> SetFilterCommands(TimeFilter filter);
[[nodiscard]] QSet<int> SetFilterCommands(ExpenseFilter filter);
