#pragma once

#include "calendar/DateTimeVal.h"
#include "entry/DraftFinding.h"
#include "entry/ExpenseEntryRules.h"
#include "entry/Typed.h"
#include "records/CERecord.h"

#include <optional>

/// An expense while it is entered, with the rules of entry of its fields. Distance, rate and amount stay as
/// typed until the draft is accepted as a whole: a distance that is turned off by mistake isn't lost.
class ExpenseDraft {
 public:
    using Odometer = ExpenseEntryRules::Odometer;

    /// untouched: what the record was before somebody entered something, if it comes back to its dialog.
    void Begin(const CERecord& record, const CERecord* untouched = nullptr);
    /// The record as far as it is entered; money and distance follow when the draft is accepted.
    [[nodiscard]] const CERecord& Record() const { return m_record; }
    /// The record as it was before.
    [[nodiscard]] const CERecord& Untouched() const { return m_untouched; }
    /// Whether the user has entered anything that isn't stored, be it something that can't be read.
    [[nodiscard]] bool HasEntries() const;

    void EnterDate(const std::optional<DateTimeVal>& day);
    void EnterItem(QString CERecord::*item, const QString& text);
    void EnterNotes(const QString& notes) { m_record.notes = notes; }
    /// flag2 needs flag1, flag4 needs flag3: turning the first off turns the second off.
    void SwitchFlag(bool CERecord::*flag, bool isOn);
    /// Whether a flag can be turned on now.
    [[nodiscard]] bool MaySetFlag(bool CERecord::*flag) const;

    // --- Money, as the fields show it

    [[nodiscard]] bool IsDistance() const { return m_money.isDistance; }
    [[nodiscard]] const QString& DistanceText() const { return m_money.distance; }
    [[nodiscard]] const QString& RateText() const { return m_money.rate; }
    [[nodiscard]] const QString& AmountText() const { return m_money.amount; }
    /// Turned off, it empties the three texts. Turned on, the amount's text says that it is computed, which
    /// it is from the first entry on; distance and rate that the record kept from before are there again, the
    /// first time.
    void SwitchDistance(bool isOn);
    /// The amount follows; a text that can't be read counts as 0 there, and can't be accepted.
    Typed EnterDistance(const QString& text);
    Typed EnterRate(const QString& text);
    /// Of a plain expense.
    Typed EnterAmount(const QString& text);
    /// No value, in the record as well where this is no distance entry. The amount follows the distance, and
    /// stays without a rate.
    void ClearDistance();
    void ClearRate();

    // --- Readings

    /// On what the odometer opens: the texts of the page, and the last reading as a suggestion.
    [[nodiscard]] Odometer OpenOdometer(const Settings& settings) const;
    /// Takes the readings over, notes the last one in the settings, and the amount follows.
    void AcceptOdometer(const Odometer& odometer, Settings& settings);
    /// One reading after the other, without the odometer's dialog. The odometer opens with the first of them,
    /// on what the page shows, and stays open until EndReadings: the distance follows from both.
    void EnterReading(QString Odometer::*reading, const QString& typed, const Settings& settings);
    void EndReadings(Settings& settings);
    /// Takes a reading away; the distance stays, and no start is suggested in place of one that was cleared.
    void ClearReading(QString CERecord::*reading);
    /// A distance that is entered by hand has no readings.
    void DropReadings();

    // --- The end

    /// What stands against accepting it.
    [[nodiscard]] DraftFindings Findings() const;
    /// Takes the money over as its fields show it, and offers all texts to the pick lists.
    void Accept(const NewListItems& lists);
    /// Offers the texts that were entered, not those that the record had, to the pick lists.
    void AddEntered(const NewListItems& lists) const;

 private:
    using MoneyPage = ExpenseEntryRules::MoneyPage;
    using ItemsPage = ExpenseEntryRules::ItemsPage;

    Typed EnterNumber(QString MoneyPage::*text, const QString& typed);
    void ComputeAmount();
    [[nodiscard]] MoneyPage FullMoney() const;
    [[nodiscard]] ItemsPage FullItems() const;

    CERecord m_record;
    CERecord m_untouched;
    MoneyPage m_money;         ///< the texts as the fields show them
    MoneyPage m_enteredMoney;  ///< what was entered
    ItemsPage m_enteredItems;
    bool m_hasKeptDistance = false;
    std::optional<Odometer> m_odometer;  ///< while readings are entered one by one
    bool m_isStartCleared = false;
};
