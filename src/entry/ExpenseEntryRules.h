#pragma once

#include "entry/DraftFinding.h"

#include <QString>
#include <span>

class CERecord;
class NewListItems;
struct Settings;

/// The rules by which entered values become part of an expense.
namespace ExpenseEntryRules {

/// What the amount field shows: distance times rate, from 0. A text that can't be read counts as 0.
/// 10 and 0.5 give "5.00"; 10 and -0.5 give "0.00".
[[nodiscard]] QString UpdateDistanceAmount(const QString& distance, const QString& rate);

/// Distance and rate as the page shows them; a text that can't be read leaves none. For a draft on which the
/// odometer dialog opens.
void TakeDistance(CERecord& record, const QString& distance, const QString& rate);

/// The first page of the expense dialog when it is accepted.
struct MoneyPage {
    int month = 0, day = 0, year = 0;
    bool isDistance = false;
    QString distance, rate;
    QString amount;  ///< of a distance entry: the computed one
    QString item5;

    bool operator==(const MoneyPage&) const = default;
};
/// Takes the page over. Without isDistance the record keeps the distance and rate that it had: turned off by
/// mistake, they are still there. Numbers are taken as typed, negative ones too: -20.00 is money that came
/// back. Only -1.00 can't be told from no amount. What was typed goes into the pick lists, the amount of a
/// distance entry, which was computed, doesn't.
void AcceptMoneyPage(CERecord& record, const MoneyPage& page, const NewListItems& lists);

/// The second page.
struct ItemsPage {
    QString item1, item2, item3, item4;
    bool flag1 = false, flag2 = false, flag3 = false, flag4 = false, flag5 = false;
};
/// An item of an expense and its text in the page.
struct PageItem {
    QString CERecord::*item;
    QString ItemsPage::*text;
};
[[nodiscard]] std::span<const PageItem> PageItems();
/// flag2 needs flag1, flag4 needs flag3: where the first is off, the second is cleared. The items go
/// into the pick lists.
void AcceptItemsPage(CERecord& record, const ItemsPage& page, const NewListItems& lists);

/// The odometer dialog: readings as typed, and the distance that follows from them.
struct Odometer {
    QString start, end;
    QString rate, distance;
};
/// On what it opens: the last reading is suggested as the start of a record that has none.
[[nodiscard]] Odometer OpenOdometer(const CERecord& record, const Settings& settings);
/// After start or end was typed. An end above the start gives the distance, with up to six significant
/// digits; otherwise the distance stays. A reading that is missing or can't be read counts as 0.
void ReadingsChanged(Odometer& odometer);
/// After a distance was typed or picked: such a distance has no readings.
void DistanceChosen(Odometer& odometer, const QString& distance);
/// What can't be read as a number, in the order of the fields.
[[nodiscard]] DraftFindings FindIn(const Odometer& odometer);
/// Takes readings, rate and distance over, computes the amount, and notes the end for the next suggestion: a
/// reading of 12345.6 suggests 12345, one that is no number nothing. A rate or distance that can't be read
/// leaves the record's.
void AcceptOdometer(CERecord& record, const Odometer& odometer, Settings& settings);

}  // namespace ExpenseEntryRules
