#pragma once

#include <QString>
#include <vector>

class CERecord;
class CTRecord;
class CVORec;
class ExpenseFilter;
class TimeFilter;
struct Settings;

/// One step from the root of the data tree down: the column of the level and the text of the node there.
struct TreeStep {
    int column;
    QString text;
};
/// From the first level down; the root is the path without a step.
using TreePath = std::vector<TreeStep>;

/// Narrows a filter to the records below a node. What the filter had of its own goes, except the period (and
/// how texts are matched, which is the caller's). The root clears all conditions.
/// A flag is wanted set where the node has the text of the set flag, so below "Billed", which counts billed
/// and other records alike, only the billed ones are shown: that is wanted.
void ApplyPath(const TreePath& path, TimeFilter& filter);
void ApplyPath(const TreePath& path, ExpenseFilter& filter);

/// Makes a record anew of what a node says: its texts and flags; hours ("1.75", in decimal form), times of
/// day by clock24 and a distance where the path has such columns. A text that can't be read leaves its field
/// unset. False, and the record as it was, for the root.
[[nodiscard]] bool FillRecord(const TreePath& path, CTRecord& record, const Settings& settings);
[[nodiscard]] bool FillRecord(const TreePath& path, CERecord& record);
/// The same by the record's kind; false for a record of another one.
[[nodiscard]] bool FillRecord(const TreePath& path, CVORec& record, const Settings& settings);
