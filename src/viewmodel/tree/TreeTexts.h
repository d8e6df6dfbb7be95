#pragma once

#include "config/ColumnTable.h"
#include "lang/Text.h"

#include <QString>
#include <span>

class CERecord;
class CTRecord;
class CVORec;
struct Settings;

/// Where the texts of a level of the data tree come from: a text of the record, or one of two texts by a
/// flag.
struct TreeLevelRow {
    int column;
    QString CTRecord::*timeText;
    QString CERecord::*expenseText;
    bool CTRecord::*timeFlag;
    bool CERecord::*expenseFlag;
    Text set;  ///< of a flag
    Text clear;

    [[nodiscard]] bool IsFlag() const { return timeFlag || expenseFlag; }
};

/// The 18 columns that can be levels, in order of their numbers.
[[nodiscard]] std::span<const TreeLevelRow> TreeLevels();
/// Null for a column that can't.
[[nodiscard]] const TreeLevelRow* FindTreeLevel(int column);

/// What the tree calls a record in a column. Columns that can't be levels are known too, as far as they have
/// such a text: spans and times as the list shows them, and whether there are notes. Empty for the others and
/// for columns of the other kind.
/// "Billed" has one text for both states of its flag: billed and not billed records share one node, and that
/// is wanted.
[[nodiscard]] QString ColumnText(const CVORec& record, int column, const Settings& settings);
