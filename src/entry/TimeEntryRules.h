#pragma once

#include "calendar/DateTimeVal.h"

#include <QString>
#include <optional>

class CPrompt;
class CTRecord;
class CTimerService;
class KeepInLists;
struct Settings;

/// Hours and minutes as entered, both from 0.
struct EnteredSpan {
    int hours = 0;
    int minutes = 0;
};

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
/// fromTimer: the live count of a timer, neither added up nor rounded.
void EnterDuration(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings,
                   bool fromTimer = false);
/// As a duration is entered, with the rounding of durations; no time moves.
void EnterBreak(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings);
/// The count of the record's timer as its duration: live ones (fromTimer) as they are, the last one, at a
/// stop, rounded as entered durations are. Nothing is added up: the count holds the former duration already.
void SetFromTimer(CTRecord& record, int hours, int minutes, bool fromTimer, const Settings& settings);
/// False, and nothing changes, for a text that can't be read as a number or a record that isn't billable.
bool EnterRate(CTRecord& record, const QString& text);
bool EnterAmount(CTRecord& record, const QString& text);

/// What the entry page of the record dialog holds when it is accepted.
struct EntryPage {
    QString item1, item2, item3, item4, item5;
    QString rate, amount;
    bool isBillable = false;
    bool isBilled = false;
};
/// Takes the page over; rate and amount as typed, without recalculation. Items are cut to 255 characters.
/// What was typed is kept in the pick lists; a rate or an amount that was computed never is.
void AcceptEntryPage(CTRecord& record, const EntryPage& page, const KeepInLists& keep);

}  // namespace TimeEntryRules
