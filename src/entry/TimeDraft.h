#pragma once

#include "entry/DraftFinding.h"
#include "entry/TimeEntryRules.h"
#include "entry/Typed.h"
#include "records/CTRecord.h"

#include <functional>
#include <optional>

/// A time record while it is entered, with the rules of entry of its fields. Times are tried as they are
/// typed: each entry into a field replaces what was tried for that field since the last settlement, so that
/// all that depends on it follows while typing: "1", "1:", "1:3", "1:30" is one entry, not four.
class TimeDraft {
 public:
    enum class Field { None, Date, Start, End, Duration, Break };

    /// settings must outlive the draft.
    explicit TimeDraft(const Settings& settings) : m_settings(&settings) {}

    /// untouched: what the record was before somebody entered something, if it comes back to its dialog.
    void Begin(const CTRecord& record, const CTRecord* untouched = nullptr);
    /// The record as far as it is entered.
    [[nodiscard]] const CTRecord& Record() const { return m_record; }
    /// The record as it was at the beginning, with what its timer has counted since: what nobody has entered.
    [[nodiscard]] const CTRecord& Untouched() const { return m_untouched; }

    /// Whether the user has entered anything that isn't stored; what a timer counts is nothing entered, what
    /// can't be read is.
    [[nodiscard]] bool HasEntries() const;

    // --- Times; nothing clears. With a timer they may not be entered: TimeEntryRules::MayEnterTimes.

    void EnterDate(const std::optional<DateTimeVal>& day);
    void EnterStart(const std::optional<DateTimeVal>& time);
    void EnterEnd(const std::optional<DateTimeVal>& time);
    void EnterDuration(const std::optional<EnteredSpan>& span, SpanSource source = SpanSource::Entered);
    void EnterBreak(const std::optional<EnteredSpan>& span, SpanSource source = SpanSource::Entered);
    /// Takes the entry into the field back.
    void Undo(Field field);
    /// What was tried holds.
    void Settle() { m_field = Field::None; }
    /// The timer of a new record starts: so does the work, unless something says already when it was, be it a
    /// time, a duration or another day. As with every timestamp the time isn't rounded.
    void StampStart(const DateTimeVal& now);
    /// A timer's count, also while an entry is tried (TimeEntryRules::SetFromTimer).
    void SetFromTimer(int hours, int minutes, bool fromTimer);

    // --- Items, notes, flags

    void EnterItem(QString CTRecord::*item, const QString& text);
    void EnterNotes(const QString& notes);
    /// Turned off, rate, amount and the mark "billed" go.
    void SwitchBillable(bool isOn);
    /// Only a billable record can be billed.
    void SwitchBilled(bool isOn);

    // --- Money. What can't be read changes nothing and can't be accepted; nothing is saved as no value.

    Typed EnterRate(const QString& text);
    Typed EnterAmount(const QString& text);
    /// No value; the partner stays.
    void ClearRate();
    void ClearAmount();
    /// What the fields show: as typed, or as computed since.
    [[nodiscard]] const QString& RateText() const { return m_page.rate; }
    [[nodiscard]] const QString& AmountText() const { return m_page.amount; }

    // --- The end

    /// What stands against accepting it.
    [[nodiscard]] DraftFindings Findings() const;
    /// Takes the money over as its fields show it, and offers all texts to the pick lists.
    void Accept(const NewListItems& lists);
    /// Offers the texts that were entered, not those that the record had, to the pick lists.
    void AddEntered(const NewListItems& lists) const;

 private:
    using Rule = std::function<void(CTRecord& record)>;
    using Page = TimeEntryRules::EntryPage;
    using EnterMoney = bool (*)(CTRecord& record, const QString& text);

    void StartFrom(Field field);
    void Try(Field field, const Rule& rule);
    void Change(const Rule& rule);
    Typed EnterNumber(QString Page::*text, const QString& typed, EnterMoney rule);
    void ShowComputed();
    [[nodiscard]] Page FullPage() const;

    const Settings* m_settings;
    CTRecord m_record;
    CTRecord m_untouched;
    CTRecord m_start;  ///< before the entry into m_field
    Field m_field = Field::None;
    Page m_page;     ///< the texts of rate and amount as their fields show them
    Page m_entered;  ///< what was entered
};
