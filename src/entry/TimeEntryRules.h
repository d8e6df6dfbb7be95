#pragma once

#include "calendar/DateTimeVal.h"

#include <QString>
#include <optional>
#include <span>

class CPrompt;
class CTRecord;
class CTimerService;
class NewListItems;
struct Settings;

/// Hours and minutes as entered, both from 0.
struct EnteredSpan {
    int hours = 0;
    int minutes = 0;
};

/// How a length of time was entered: as a value of its own, which may be added to the former one, or by
/// stepping on from the former one, which never is.
enum class SpanSource { Entered, Stepped };

/// The rules by which an entered value becomes part of a time record; each decides which setter of the record
/// to call and what is rounded first. Nothing entered (nullopt) clears the field.
namespace TimeEntryRules {

/// While the record has a timer, start, end, duration and break can't be entered. False when so; with a
/// prompt the user is told.
[[nodiscard]] bool MayEnterTimes(const CTimerService& timers, const QString& recordId, CPrompt* prompt);

/// 08:00 to 10:00 and a start of 09:00: the duration becomes 1:00; with lockDurationOnTimeEdit it stays 2:00
/// and the end becomes 11:00. The time is rounded before anything is computed from it.
void EnterStart(CTRecord& record, const std::optional<DateTimeVal>& time, const Settings& settings);
/// The mirror: the start gives way.
void EnterEnd(CTRecord& record, const std::optional<DateTimeVal>& time, const Settings& settings);
/// 08:00 to 10:00 and a duration of 3:00: the end becomes 11:00; without lockStartOnDurationEdit the start
/// becomes 07:00. With accumulateOnReentry the former duration is added first: 1:50 and 0:20 are 2:10.
void EnterDuration(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings,
                   SpanSource source = SpanSource::Entered);
/// As a duration is entered, with the rounding of durations; no time moves.
void EnterBreak(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings,
                SpanSource source = SpanSource::Entered);
/// The count of the record's timer as its duration: live ones (fromTimer) as they are, the last one, at a
/// stop, rounded as entered durations are. Nothing is added up: the count holds the former duration already.
void SetFromTimer(CTRecord& record, int hours, int minutes, bool fromTimer, const Settings& settings);
/// False, and nothing changes, for a text that isn't a number as a whole or a record that isn't billable.
bool EnterRate(CTRecord& record, const QString& text);
bool EnterAmount(CTRecord& record, const QString& text);

/// What the entry page of the record dialog holds when it is accepted.
struct EntryPage {
    QString item1, item2, item3, item4, item5;
    QString rate, amount;
    bool isBillable = false;
    bool isBilled = false;
};
/// An item of a record and its text in the page.
struct EntryItem {
    QString CTRecord::*item;
    QString EntryPage::*text;
};
[[nodiscard]] std::span<const EntryItem> EntryItems();
/// Takes the page over; rate and amount as typed, without recalculation. Items are cut to 255 characters.
/// What was typed goes into the pick lists; a rate or an amount that was computed never does.
void AcceptEntryPage(CTRecord& record, const EntryPage& page, const NewListItems& lists);

}  // namespace TimeEntryRules
