#pragma once

#include "fields/ListId.h"
#include "lang/Text.h"

#include <QString>
#include <span>

class CERecord;
class CTRecord;

/// One pick list that holds items of records.
struct ListRow {
    int list;
    Text title;
    bool holdsNumbers;                ///< its items are numbers, normalised when they are entered
    QString CTRecord::*timeField;     ///< the item of time records that it serves; null for none
    QString CERecord::*expenseField;  ///< the same of expenses
};

/// The eleven lists in their order: 16, 17, 34, 32, 33, 68, 69, 70, 71, 72, 73.
[[nodiscard]] std::span<const ListRow> RecordLists();
/// Null when no list of records has that number.
[[nodiscard]] const ListRow* FindRecordList(int list);
/// Whether records store items of this list in a text field: renaming an item can be carried into them.
[[nodiscard]] bool IsRecordList(int list);
[[nodiscard]] bool HoldsNumbers(int list);

/// All 57 entries that the catalogue starts with, in their order. 128 and 140 stand twice: the second entry
/// of each shadows nothing and stays empty.
[[nodiscard]] std::span<const int> KnownLists();
[[nodiscard]] bool IsKnownList(int list);

/// The text as the display form of a number with six significant digits ("1.50" gives "1.5"); false when it
/// is no number by the user's regional settings.
[[nodiscard]] bool NormaliseNumber(const QString& text, float& number, QString& display);
/// What an item of the list shows that is made of a text: 0.50 is 0.5 in a list of numbers; a text that it
/// doesn't take stays.
[[nodiscard]] QString ItemShown(int list, const QString& text);
